// SPDX-License-Identifier: MIT
#include "controls/list_box.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/wide_scroll_bar.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kSideMargin = 6;
constexpr std::uint32_t kItemFormat =
    draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kExpandTabs | draw::kEndEllipsis;

class ItemDelegate : public QStyledItemDelegate {
 public:
  explicit ItemDelegate(ListBox* list) : QStyledItemDelegate(list), list_(*list) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    painter->fillRect(option.rect, ToQColor(selected ? list_.SelectedBackColor() : list_.BackColor()));
    painter->setPen(ToQColor(selected ? list_.SelectedTextColor() : list_.TextColor()));
    const QRect row = option.rect.adjusted(kSideMargin, 0, -kSideMargin, 0);
    const QRect room = DrawNote(*painter, row, list_.Note(index.row()));
    DrawText(*painter, room, ToQString(list_.Item(index.row())), kItemFormat);
  }

 private:
  const ListBox& list_;
};

bool IsUpOrDown(const QKeyEvent& event) { return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down; }

}  // namespace

void ListBoxModel::SetItems(TextRows items) {
  beginResetModel();
  items_ = std::move(items);
  endResetModel();
}

void ListBoxModel::Insert(int index, TextView text) {
  const int at = Has(index) ? index : Count();
  beginInsertRows({}, at, at);
  items_.Insert(static_cast<std::size_t>(at), text);
  endInsertRows();
}

void ListBoxModel::Replace(int index, TextView text) {
  if (!Has(index)) return;
  items_.Replace(static_cast<std::size_t>(index), text);
  emit dataChanged(createIndex(index, 0), createIndex(index, 0));
}

void ListBoxModel::Delete(int index) {
  if (!Has(index)) return;
  beginRemoveRows({}, index, index);
  items_.Erase(static_cast<std::size_t>(index));
  endRemoveRows();
}

int ListBoxModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Count(); }

QVariant ListBoxModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !Has(index.row())) return {};
  return ToQString(Item(index.row()));
}

ListBox::ListBox(int id, QWidget* parent) : RowView(parent) {
  MarkControl(this, id, control_kind::kList);
  setModel(&items_);
  setItemDelegate(new ItemDelegate(this));
  setSelectionMode(QAbstractItemView::SingleSelection);
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  setFrameShape(QFrame::NoFrame);
  SetColors(back_, text_);
}

void ListBox::SetExtended(bool extended) {
  setSelectionMode(extended ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
}

void ListBox::SetColors(Color back, Color text) {
  back_ = back;
  text_ = text;
  // This palette gives the scroll bar shades of the background.
  QPalette colors(ToQColor(back).lighter(125));
  colors.setColor(QPalette::Base, ToQColor(back));
  colors.setColor(QPalette::Text, ToQColor(text));
  setPalette(colors);
}

void ListBox::SetSelectedColors(Color back, Color text) {
  selectedBack_ = back;
  selectedText_ = text;
  viewport()->update();
}

void ListBox::SetFont(const QString& face, int height, int weight) {
  if (const auto made = MakeFont(face, height, weight)) setFont(*made);
}

void ListBox::SetNotes(std::function<ListNote(int)> notes) {
  notes_ = std::move(notes);
  viewport()->update();
}

ListNote ListBox::Note(int index) const { return notes_ && items_.Has(index) ? notes_(index) : ListNote(); }

void ListBox::SetItems(TextRows items) { items_.SetItems(std::move(items)); }

void ListBox::Insert(int index, TextView text) { items_.Insert(index, text); }

void ListBox::Replace(int index, TextView text) { items_.Replace(index, text); }

void ListBox::Delete(int index) {
  const bool single = selectionMode() == QAbstractItemView::SingleSelection;
  const bool selected = single && index == Selection();
  items_.Delete(index);
  // In a list of single selection the view would select the neighbour.
  if (selected) Select(-1);
}

void ListBox::Select(int index) {
  if (items_.Has(index)) {
    setCurrentIndex(items_.index(index, 0));
  } else if (index == -1) {
    selectionModel()->clear();
  }
}

int ListBox::Selection() const {
  const std::vector<int> selected = Selected();
  return selected.empty() ? -1 : selected.front();
}

std::vector<int> ListBox::Selected() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

int ListBox::RowHeight() const {
  return std::max({FingerPixels(*this), leastRowHeight_, CellHeight(QFontMetrics(font())) + 2});
}

void ListBox::SetLeastRowHeight(int pixels) {
  leastRowHeight_ = pixels;
  scheduleDelayedItemsLayout();
}

void ListBox::focusInEvent(QFocusEvent* event) {
  const bool untouched = !currentIndex().isValid();
  RowView::focusInEvent(event);
  // The view makes the first item current without selecting it, and the first Down would skip it.
  if (untouched && !selectionModel()->hasSelection()) selectionModel()->clearCurrentIndex();
}

bool ListBox::event(QEvent* event) {
  const bool focused = event->type() == QEvent::FocusIn;
  const bool walked = event->type() == QEvent::KeyPress && IsUpOrDown(static_cast<const QKeyEvent&>(*event));
  const QPointer<ListBox> alive(this);
  const bool handled = RowView::event(event);
  if (!alive) return handled;
  // These come last, because a listener may destroy the list.
  if (focused) emit Focused();
  if (walked) emit Walked();
  return handled;
}

bool ListBox::viewportEvent(QEvent* event) {
  bool walked = false;
  if (event->type() == QEvent::MouseButtonPress) {
    const auto& press = static_cast<const QMouseEvent&>(*event);
    walked = press.button() == Qt::LeftButton && indexAt(press.position().toPoint()).isValid();
  }
  const QPointer<ListBox> alive(this);
  const bool handled = RowView::viewportEvent(event);
  if (alive && walked) emit Walked();
  return handled;
}

}  // namespace pnl
