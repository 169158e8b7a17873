// SPDX-License-Identifier: MIT
#include "calc/qt/calc_input_widgets.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <algorithm>
#include <vector>

#include "calc/qt/calc_look.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kLineLimit = 255;
constexpr int kLineMargin = 4;

constexpr qreal kKeyRadius = 3;
constexpr int kKeyMargin = 2;
constexpr int kSmallestText = 8;
/// The height of a key's text, 12 pixels at scale 1. It is a part of the key's height, so that it grows with the key.
int TextHeight(int key) { return (key * 3 + 6) / 7; }

/// The text for Qt. "&" is an ordinary character in our menus, and Qt would take it as the mark of a shortcut.
QString Plain(const Text& text) { return ToQString(text).replace(QLatin1Char('&'), QStringLiteral("&&")); }

std::vector<MenuItem> ItemsOf(const MenuTable& menus, MenuHandle handle) {
  const Menu* menu = menus.Find(handle);
  return menu == nullptr ? std::vector<MenuItem>{} : menu->items;
}

}  // namespace

// The line.

CalcLine::CalcLine(int id, QWidget* parent) : LimitedEdit(id, kLineLimit, parent) {
  setFrame(false);
  setTextMargins(kLineMargin, 0, kLineMargin, 0);
  QPalette colors = palette();
  colors.setColor(QPalette::Base, QColor(calc_look::kLineGround));
  colors.setColor(QPalette::Text, QColor(calc_look::kLineText));
  colors.setColor(QPalette::Highlight, QColor(calc_look::kSelection));
  colors.setColor(QPalette::HighlightedText, Qt::white);
  setPalette(colors);
}

TextSelection CalcLine::Selection() const {
  if (!hasSelectedText()) return {cursorPosition(), cursorPosition()};
  return {selectionStart(), selectionEnd()};
}

void CalcLine::Select(TextSelection selection) {
  const int length = static_cast<int>(text().size());
  const int start = std::clamp(selection.start, 0, length);
  const int end = std::clamp(selection.end, 0, length);
  if (start == end) return setCursorPosition(end);
  setSelection(start, end - start);
}

void CalcLine::mousePressEvent(QMouseEvent* event) {
  LimitedEdit::mousePressEvent(event);
  // This comes last, because a listener may destroy the edit.
  emit Pressed();
}

// A key.

CalcKeyWidget::CalcKeyWidget(int id, const QString& text, QRgb ground, QWidget* parent)
    : QAbstractButton(parent), ground_(ground) {
  MarkControl(this, id, control_kind::kButton);
  setText(text);
  setAccessibleName(text);
  setFocusPolicy(Qt::NoFocus);
  setAutoRepeat(false);
}

CalcKeyWidget::~CalcKeyWidget() = default;

void CalcKeyWidget::SetPicture(const std::string& svg) {
  auto picture = std::make_unique<QSvgRenderer>(QByteArray(svg.data(), static_cast<qsizetype>(svg.size())));
  if (!picture->isValid()) return;
  picture->setAspectRatioMode(Qt::KeepAspectRatio);
  picture_ = std::move(picture);
  drawn_ = QPixmap();
  update();
}

const QPixmap& CalcKeyWidget::Drawn(QSize size) {
  const qreal ratio = devicePixelRatioF();
  if (drawn_.size() == size * ratio) return drawn_;
  drawn_ = QPixmap(size * ratio);
  drawn_.setDevicePixelRatio(ratio);
  drawn_.fill(Qt::transparent);
  QPainter painter(&drawn_);
  picture_->render(&painter, QRectF(QPointF(), size));
  return drawn_;
}

void CalcKeyWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor(calc_look::kKeyEdge));
  painter.setBrush(QColor(isDown() ? calc_look::kPressedKey : ground_));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kKeyRadius, kKeyRadius);
  const QRect face = rect().adjusted(kKeyMargin, kKeyMargin, -kKeyMargin, -kKeyMargin);
  if (face.isEmpty()) return;
  if (picture_) return painter.drawPixmap(face.topLeft(), Drawn(face.size()));
  painter.setPen(QColor(calc_look::kText));
  painter.setFont(calc_look::FittingFont(calc_look::Font(TextHeight(height()), calc_look::kBoldWeight), text(),
                                         face.width(), kSmallestText));
  painter.drawText(face, Qt::AlignCenter | Qt::TextSingleLine, text());
}

// The menu bar.

CalcMenuWidget::CalcMenuWidget(MenuTable& menus, MenuHandle menu, int height, QWidget* parent)
    : QMenuBar(parent), menus_(menus) {
  setNativeMenuBar(false);
  setFont(calc_look::Font(height, calc_look::kNormalWeight));
  for (const MenuItem& item : ItemsOf(menus_, menu)) {
    if (item.hidden) continue;
    if (item.subMenu == 0) {
      connect(addAction(Plain(item.text)), &QAction::triggered, this, [this, id = item.id] { emit Chosen(id); });
      continue;
    }
    QMenu* shown = addMenu(Plain(item.text));
    shown->setFont(font());
    connect(shown, &QMenu::aboutToShow, this, [this, shown, sub = item.subMenu] { Fill(*shown, sub); });
  }
}

void CalcMenuWidget::Fill(QMenu& shown, MenuHandle menu) {
  shown.clear();
  for (const MenuItem& item : ItemsOf(menus_, menu)) {
    if (item.hidden) continue;
    if (item.subMenu != 0) {
      QMenu* sub = shown.addMenu(Plain(item.text));
      sub->setFont(font());
      connect(sub, &QMenu::aboutToShow, this, [this, sub, handle = item.subMenu] { Fill(*sub, handle); });
      continue;
    }
    QAction* action = shown.addAction(Plain(item.text));
    action->setEnabled(item.enabled);
    action->setCheckable(item.checked);
    action->setChecked(item.checked);
    connect(action, &QAction::triggered, this, [this, id = item.id] { emit Chosen(id); });
  }
}

}  // namespace pnl
