// SPDX-License-Identifier: MIT
#include "ui/status_strip.h"

#include <QPainter>
#include <algorithm>

#include "ui/theme.h"

namespace panel {

namespace {

constexpr int kGap = 4;
constexpr int kLeast = 11;    // pixels; a smaller word can't be read from some distance
constexpr int kLeastRow = 8;  // but a state is never cut

/// A text in two rows: parted after its comma, else at the blank nearest to its middle. Without either the second row
/// is empty.
std::pair<QString, QString> InTwoRows(const QString& text) {
  const auto comma = text.indexOf(QStringLiteral(", "));
  if (comma >= 0) return {text.left(comma), text.mid(comma + 2)};
  const auto middle = text.size() / 2;
  const auto before = text.lastIndexOf(QLatin1Char(' '), middle);
  const auto after = text.indexOf(QLatin1Char(' '), middle);
  const bool first = after < 0 || (before >= 0 && middle - before <= after - middle);
  const auto blank = first ? before : after;
  return blank < 0 ? std::pair(text, QString()) : std::pair(text.left(blank), text.mid(blank + 1));
}

}  // namespace

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent), indicator_(new ErrorIndicator(this)) {}

void StatusStrip::Show(const ChannelLook& channel, const QString& mode) {
  channel_ = channel;
  mode_ = mode;
  setAccessibleName(StateText() + QLatin1Char(' ') + mode);
  update();
}

void StatusStrip::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  PlaceIndicator();
  update();
}

int StatusStrip::Spare() const { return std::max(0, width() - 3 * Usual() - 2 * kGap); }

StatusStrip::Fields StatusStrip::Place() const {
  const int most = std::min(Usual(), width() * 9 / 20);
  const QRect state(0, 0, most + Spare() / 2, height());
  const int rest = width() - state.width() - 2 * kGap;
  const QRect mode(state.right() + 1 + kGap, 0, rest / 2, height());
  const int errors = rest - mode.width();
  return {state, mode, QRect(width() - errors, 0, errors, height())};
}

int StatusStrip::Letters() const {
  const int usual = fontPixels_ * 5 / 4;
  return Spare() < 2 * Usual() ? usual : std::max(usual, std::min(fontPixels_ * 7 / 4, height() * 3 / 5));
}

void StatusStrip::PlaceIndicator() {
  indicator_->setGeometry(Place().errors);
  // It says less than the state, so its letters are smaller.
  indicator_->SetFontPixels(std::max(fontPixels_, Letters() * 4 / 5));
}

void StatusStrip::resizeEvent(QResizeEvent*) { PlaceIndicator(); }

void StatusStrip::PaintState(QPainter& painter, const QRect& field) const {
  const QColor ink = theme::InkOn(QColor(channel_.color));
  const QString text = StateText();
  const int most = Letters();
  const QFont inOne = theme::FittingFont(text, field.width(), most, kLeast, true);
  const auto [upper, lower] = InTwoRows(text);
  const int half = field.height() / 2;
  int pixels = most;
  while (pixels > kLeastRow && QFontMetrics(theme::Font(pixels, true)).height() > half) --pixels;
  for (const QString& row : {upper, lower}) {
    pixels = theme::FittingFont(row, field.width(), pixels, kLeastRow, true).pixelSize();
  }
  // Two rows when their letters are bigger, or when one row would be cut.
  const bool cut = QFontMetrics(inOne).horizontalAdvance(text) > field.width();
  if (lower.isEmpty() || (pixels <= inOne.pixelSize() && !cut)) {
    return theme::DrawText(painter, field, Qt::AlignCenter, text, inOne, ink);
  }
  const QFont font = theme::Font(pixels, true);
  theme::DrawText(painter, QRect(field.left(), field.top(), field.width(), half), Qt::AlignCenter, upper, font, ink);
  theme::DrawText(painter, QRect(field.left(), field.bottom() + 1 - half, field.width(), half), Qt::AlignCenter, lower,
                  font, ink);
}

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Fields fields = Place();
  const QColor fill(channel_.color);
  theme::DrawField(painter, fields.state, fill, fill.lighter(130), 6);
  PaintState(painter, fields.state.adjusted(8, 0, -8, 0));
  theme::DrawField(painter, fields.mode, QColor(theme::kSurface), QColor(theme::kBorder), 6);
  theme::DrawText(painter, fields.mode.adjusted(6, 0, -6, 0), Qt::AlignCenter, mode_,
                  theme::FittingFont(mode_, fields.mode.width() - 12, Letters(), kLeast, true), QColor(theme::kText));
}

}  // namespace panel
