// SPDX-License-Identifier: MIT
#include "ui/readings.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "common/words.h"
#include "ui/theme.h"
#include "ui/units.h"

namespace panel {
namespace {

constexpr int kGap = 4;

constexpr int kSmallest = 6;  // a number shrinks to this before it loses a digit

/// Whether caption and detail have room beside each other in that font.
bool FitBeside(const Reading& reading, int width, const QFont& font) {
  constexpr int kBetween = 6;
  const QFontMetrics metrics(font);
  return metrics.horizontalAdvance(reading.caption) + metrics.horizontalAdvance(reading.detail) + kBetween < width;
}

/// The font of a flat tile's upper row. It shrinks until the detail has room beside the caption: without the detail the
/// operator wouldn't know what is programmed. When not even the smallest font has room, the caption goes first.
QFont HeadFont(const Reading& reading, int width, int pixels) {
  const QFont alone = theme::FittingFont(reading.caption, width, pixels, kSmallest);
  if (reading.detail.isEmpty()) return alone;
  for (int size = alone.pixelSize(); size >= kSmallest; --size) {
    if (FitBeside(reading, width, theme::Font(size))) return theme::Font(size);
  }
  return alone;
}

void PaintTile(QPainter& painter, const QRect& rect, const Reading& reading, int fontPixels) {
  theme::DrawField(painter, rect, QColor(theme::kSurface), QColor(theme::kBorder), 6);
  const QRect body = rect.adjusted(8, 2, -8, -2);
  const int caption = std::clamp(body.height() / 3, fontPixels, 2 * fontPixels);
  QRect value = body.adjusted(0, caption, 0, 0);
  const bool tall = value.height() >= 3 * caption;
  const int smallPixels = std::max(fontPixels, caption * 5 / 6);
  const QFont small = tall ? theme::FittingFont(reading.caption, body.width(), smallPixels, kSmallest)
                           : HeadFont(reading, body.width(), smallPixels);
  const QRect head(body.left(), body.top(), body.width(), caption);
  theme::DrawText(painter, head, Qt::AlignLeft | Qt::AlignVCenter, reading.caption, small, QColor(theme::kMuted));
  if (!reading.detail.isEmpty()) {
    if (tall) {
      const QRect foot(value.left(), value.bottom() + 1 - caption, value.width(), caption);
      theme::DrawText(painter, foot, Qt::AlignRight | Qt::AlignVCenter, reading.detail,
                      theme::FittingFont(reading.detail, foot.width(), smallPixels, kSmallest), QColor(theme::kMuted));
      value.setBottom(foot.top() - 1);
    } else if (FitBeside(reading, head.width(), small)) {
      theme::DrawText(painter, head, Qt::AlignRight | Qt::AlignVCenter, reading.detail, small, QColor(theme::kMuted));
    }
  }
  const int most = std::min(value.height(), 64);
  // The size is that of a number of usual length, so that the digits don't change size, as with the axes.
  const int usual = theme::FittingFont(QStringLiteral("00000"), value.width(), most, kSmallest, true).pixelSize();
  theme::DrawText(painter, value, Qt::AlignRight | Qt::AlignVCenter, reading.value,
                  theme::FittingFont(reading.value, value.width(), usual, kSmallest, true),
                  QColor(reading.unusual ? theme::kAmber : theme::kText));
}

/// Whether the feed that is shown is one per revolution. A rapid has its speed whatever F means.
bool IsPerRevolution(const pnl::rig::MachineState& state) { return state.feedPerRevolution && !state.rapid; }

Word FeedCaption(const pnl::rig::MachineState& state) {
  if (IsPerRevolution(state)) return state.inches ? Word::kFeedInchPerRevolution : Word::kFeedPerRevolution;
  return state.inches ? Word::kFeedInch : Word::kFeed;
}

/// The feed of the axes, in the unit of the caption.
QString FeedText(const pnl::rig::MachineState& state) {
  constexpr int kFineDecimals = 4;  // a feed per revolution is a few thousandths
  const double lengths = state.inches ? state.feed / kMillimetresPerInch : state.feed;
  if (!IsPerRevolution(state)) return FormatNumber(lengths);
  return FormatNumber(state.spindleSpeed > 0 ? lengths / state.spindleSpeed : 0, kFineDecimals);
}

QString FeedDetail(const pnl::rig::MachineState& state) {
  constexpr int kFineDecimals = 4;
  const QString programmed =
      QLatin1Char('F') + FormatNumber(state.programmedFeed, state.feedPerRevolution ? kFineDecimals : 3);
  // The caption names another unit while a rapid runs.
  return state.feedPerRevolution && state.rapid ? QStringLiteral("G95 ") + programmed : programmed;
}

QString SpeedDetail(const pnl::rig::MachineState& state) {
  QString detail;
  if (state.spindleDirection != 0) detail = state.spindleDirection > 0 ? QStringLiteral("M3 ") : QStringLiteral("M4 ");
  // Under G96 the programmed number is a cutting speed, not a spindle speed.
  if (state.cuttingSpeed) detail += QStringLiteral("G96 ");
  return detail + QLatin1Char('S') + FormatNumber(state.programmedSpeed);
}

}  // namespace

QString FormatNumber(double value, int decimals) {
  if (!std::isfinite(value) || std::abs(value) > 9999999) return QStringLiteral("-----");
  QString text = QString::number(value, 'f', std::abs(value) < 100 ? decimals : 1);
  while (text.contains(QLatin1Char('.')) && text.endsWith(QLatin1Char('0'))) text.chop(1);
  if (text.endsWith(QLatin1Char('.'))) text.chop(1);
  return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

std::vector<Reading> ReadingsOf(const pnl::rig::MachineState& state) {
  return {{Say(FeedCaption(state)), FeedText(state), FeedDetail(state), false},
          {Say(Word::kOverride), QStringLiteral("%1 %").arg(state.feedOverride), {}, state.feedOverride != 100},
          {Say(Word::kSpindle), FormatNumber(state.spindleSpeed), SpeedDetail(state), false},
          {Say(Word::kTool), QStringLiteral("T%1").arg(state.tool), state.coolant ? Say(Word::kCoolant) : QString(),
           false}};
}

std::vector<Reading> NoReadings() {
  const QString none = QStringLiteral("–");
  return {{Say(Word::kFeed), none, {}, false},
          {Say(Word::kOverride), none, {}, false},
          {Say(Word::kSpindle), none, {}, false},
          {Say(Word::kTool), none, {}, false}};
}

Readings::Readings(QWidget* parent) : QWidget(parent) {}

void Readings::Show(std::vector<Reading> readings) {
  if (readings == readings_) return;
  readings_ = std::move(readings);
  QStringList spoken;
  for (const auto& reading : readings_) spoken << reading.caption + QLatin1Char(' ') + reading.value;
  setAccessibleName(spoken.join(QStringLiteral(", ")));
  update();
}

void Readings::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void Readings::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int count = static_cast<int>(readings_.size());
  if (count == 0) return;
  const int columns = height() < 100 ? count : 2;
  const int rows = (count + columns - 1) / columns;
  for (int i = 0; i < count; ++i) {
    const int row = i / columns;
    const int column = i % columns;
    const int left = (width() + kGap) * column / columns;
    const int right = (width() + kGap) * (column + 1) / columns - kGap;
    const int top = (height() + kGap) * row / rows;
    const int bottom = (height() + kGap) * (row + 1) / rows - kGap;
    PaintTile(painter, QRect(left, top, right - left, bottom - top), readings_[static_cast<std::size_t>(i)],
              fontPixels_);
  }
}

ModalLine::ModalLine(QWidget* parent) : QWidget(parent) {}

void ModalLine::Show(const QString& codes, const QString& block) {
  if (codes == codes_ && block == block_) return;
  codes_ = codes;
  block_ = block;
  setAccessibleName(codes + QLatin1Char(' ') + block);
  update();
}

void ModalLine::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void ModalLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 6);
  const QRect body = rect().adjusted(10, 2, -10, -2);
  const QFont font = theme::Font(fontPixels_);
  const QFont mono = theme::MonoFont(fontPixels_);
  if (height() >= 3 * fontPixels_) {
    const int line = QFontMetrics(mono).height() + 2;
    theme::DrawParagraph(painter, body.adjusted(0, 0, 0, -line), Qt::AlignLeft | Qt::AlignVCenter, codes_, font,
                         QColor(theme::kMuted));
    theme::DrawText(painter, QRect(body.left(), body.bottom() + 1 - line, body.width(), line),
                    Qt::AlignLeft | Qt::AlignVCenter, block_, mono, QColor(theme::kAccent));
    return;
  }
  const int block = block_.isEmpty() ? 0 : std::min(QFontMetrics(mono).horizontalAdvance(block_) + 4, body.width() / 2);
  theme::DrawText(painter, body.adjusted(0, 0, -block - 12, 0), Qt::AlignLeft | Qt::AlignVCenter, codes_, font,
                  QColor(theme::kMuted));
  theme::DrawText(painter, QRect(body.right() + 1 - block, body.top(), block, body.height()),
                  Qt::AlignRight | Qt::AlignVCenter, block_, mono, QColor(theme::kAccent));
}

}  // namespace panel
