// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_box.h"

#include <QtCore/QPointer>
#include <QtCore/QSignalBlocker>
#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyledItemDelegate>
#include <algorithm>

#include "controls/grid_look.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {
namespace {

constexpr int kMostRows = 9;
constexpr int kFingersOfRow = 2;
constexpr int kBorder = 2;
constexpr int kLowBox = 16;
constexpr int kTextMargin = 4;
constexpr int kRounding = 2;    // a text is a fraction wider when it is measured for its ellipsis
constexpr int kLeastFont = 12;  // pixels

/// Rows that a glove can touch.
class TallRows : public QStyledItemDelegate {
 public:
  explicit TallRows(QAbstractItemView* view) : QStyledItemDelegate(view), view_(*view) {}
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(std::max(size.height() + 8, FingerPixels(view_)));
    return size;
  }

 private:
  const QAbstractItemView& view_;
};

}  // namespace

ZmcBox::ZmcBox(int id, bool typed, QWidget* parent) : QComboBox(parent) {
  MarkControl(this, id, control_kind::kCombo);
  setEditable(typed);
  setInsertPolicy(NoInsert);
  setMaxVisibleItems(kMostRows);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  view()->setItemDelegate(new TallRows(view()));
  if (typed) setCompleter(nullptr);
}

void ZmcBox::SetTextIndent(int pixels) {
  indent_ = pixels;
  update();
}

void ZmcBox::Fill(const std::vector<Text>& items) {
  const QSignalBlocker quiet(this);
  clear();
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(items.size()));
  for (const Text& item : items) texts.append(ToQString(item));
  addItems(texts);
  setCurrentIndex(-1);
}

std::vector<Text> ZmcBox::Items() const {
  std::vector<Text> items;
  items.reserve(static_cast<std::size_t>(count()));
  for (int index = 0; index < count(); ++index) items.push_back(FromQString(itemText(index)));
  return items;
}

void ZmcBox::SelectIndex(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
}

bool ZmcBox::IsOpen() const { return view()->isVisible(); }

void ZmcBox::Open(bool open) {
  if (open == IsOpen()) return;
  if (!open) return hidePopup();
  if (count() != 0) showPopup();
}

void ZmcBox::showPopup() {
  const int bar = view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(kFingersOfRow * FingerPixels(*this) + bar);
  QComboBox::showPopup();
}

void ZmcBox::MoveMark(int by) {
  const int row = std::clamp(view()->currentIndex().row() + by, 0, std::max(0, count() - 1));
  view()->setCurrentIndex(model()->index(row, modelColumn(), rootModelIndex()));
}

bool ZmcBox::AcceptMark() {
  const int row = view()->currentIndex().row();
  // The focus comes back from the list, and a listener may then destroy the box.
  const QPointer<ZmcBox> alive(this);
  hidePopup();
  if (!alive || row < 0 || row >= count()) return false;
  SelectIndex(row);
  return true;
}

// The look: a flat field with a drawn triangle, so that the text has all the room there is.

void ZmcBox::PlaceLine() {
  if (lineEdit() != nullptr)
    lineEdit()->setGeometry(kBorder, kBorder, width() - ArrowWidth() - kBorder, height() - 2 * kBorder);
}

void ZmcBox::resizeEvent(QResizeEvent* /*event*/) { PlaceLine(); }

/// The base places the line anew when the font changes.
void ZmcBox::changeEvent(QEvent* event) {
  QComboBox::changeEvent(event);
  PlaceLine();
}

void ZmcBox::focusOutEvent(QFocusEvent* event) {
  // The line has no focus of its own; its box has it.
  const Qt::FocusReason reason = event->reason();
  QComboBox::focusOutEvent(event);
  const bool comesBack = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (lineEdit() != nullptr && !comesBack) emit LineLeft();
}

/// A text that is a little too long is drawn a little smaller; what is still too long is cut.
QFont ZmcBox::FittingFont(const QString& text, int width) const {
  QFont fitting = font();
  const int least = std::max(kLeastFont, fitting.pixelSize() * 2 / 3);
  while (fitting.pixelSize() > least && QFontMetrics(fitting).horizontalAdvance(text) + kRounding > width) {
    fitting.setPixelSize(fitting.pixelSize() - 1);
  }
  return fitting;
}

void ZmcBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool focused = hasFocus();
  painter.fillRect(rect(), palette().color(QPalette::Base));
  // In a low box a thick frame would run through the text.
  const int frame = focused && height() >= kLowBox ? kBorder : 1;
  painter.setPen(QPen(focused ? palette().color(QPalette::Highlight) : ToQColor(zmc_look::kFrame), frame));
  painter.drawRect(QRectF(rect()).adjusted(frame / 2.0, frame / 2.0, -frame / 2.0, -frame / 2.0));
  const QRect arrow(width() - ArrowWidth(), 0, ArrowWidth(), height());
  DrawTriangle(painter, arrow, ArrowWidth() * 2 / 5, false, palette().color(QPalette::Text));
  if (lineEdit() != nullptr) return;
  const int left = kTextMargin + indent_;
  const QRect room(left, 0, width() - ArrowWidth() - left, height());
  painter.setPen(palette().color(QPalette::Text));
  painter.setFont(FittingFont(currentText(), room.width()));
  painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width()));
}

}  // namespace pnl
