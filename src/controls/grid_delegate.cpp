// SPDX-License-Identifier: MIT
#include "controls/grid_delegate.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <algorithm>

#include "controls/fonts.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kLineMargin = 12;
constexpr QColor kEditBack(0xFF, 0xFF, 0xFF);
constexpr QColor kEditText(0x14, 0x1A, 0x21);
constexpr QColor kRefusedText(0xB0, 0x10, 0x1C);
constexpr QColor kMarked(0x00, 0x74, 0xD0);
constexpr Color kListBack = 0x342A20;      // 32, 42, 52
constexpr Color kListText = 0xF7F3EE;      // 238, 243, 247
constexpr Color kListSelected = 0xB26F1F;  // 31, 111, 178

void SetLineColors(QLineEdit* line, const QColor& text) {
  QPalette colors = line->palette();
  colors.setColor(QPalette::Base, kEditBack);
  colors.setColor(QPalette::Text, text);
  colors.setColor(QPalette::Highlight, kMarked);
  colors.setColor(QPalette::HighlightedText, Qt::white);
  line->setPalette(colors);
}

bool IsRowKey(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

GridDelegate::GridDelegate(QAbstractItemView* view, GridEditing& grid, const GridModel& cells, const GridColors& colors)
    : QAbstractItemDelegate(view), view_(*view), grid_(grid), cells_(cells), colors_(colors) {}

int GridDelegate::LineHeight() const {
  return std::max(FingerPixels(view_), CellHeight(QFontMetrics(view_.font())) + kLineMargin);
}

QString GridDelegate::PaintedText(const QModelIndex& index) const {
  const QString text = index.data().toString();
  const auto format = FormatOf(index);
  return format ? PaintedNumber(text, *format) : text;
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const int row = index.row() + 1;
  GridCellFace face;
  face.text = PaintedText(index);
  face.kind = KindOf(index);
  face.state = cells_.RowState(row);
  face.checked = cells_.IsChecked(row, index.column());
  face.editable = cells_.AcceptsEdit(row, index.column());
  face.alternate = row % 2 == 0;
  face.selected = view_.selectionModel()->isSelected(index);
  face.current = index == view_.currentIndex();
  face.focused = view_.hasFocus() || editor_ != nullptr;
  face.enabled = view_.isEnabled();
  face.tint = cells_.HasTint(row, index.column());
  DrawGridCell(*painter, option.rect, colors_, face);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const { return {1, LineHeight()}; }

EntryValidator* GridDelegate::MakeValidator(const QModelIndex& index, QObject* parent) const {
  auto* validator = new EntryValidator(parent);
  const auto format = FormatOf(index);
  validator->SetFormat(format);
  if (!format) validator->SetCheck(check_);
  validator->SetStart(PaintedText(index));
  return validator;
}

bool GridDelegate::MayBegin(const QModelIndex& index, const QString& typed) const {
  if (KindOf(index) == GridCellKind::kList) return true;
  const auto format = FormatOf(index);
  if (format) return MayBeTyped(typed, *format);
  return !check_ || check_(typed);
}

QWidget* GridDelegate::MakeLine(QWidget* parent, const QModelIndex& index) const {
  auto* line = new QLineEdit(parent);
  line->setFrame(false);
  line->setContextMenuPolicy(Qt::NoContextMenu);
  line->setFont(view_.font());
  if (KindOf(index) == GridCellKind::kNumber) line->setAlignment(Qt::AlignRight);
  SetLineColors(line, kEditText);
  line->setValidator(MakeValidator(index, line));
  connect(line, &QLineEdit::textEdited, line, [line] { SetLineColors(line, kEditText); });
  return line;
}

QWidget* GridDelegate::MakeList(QWidget* parent, const QModelIndex& index) const {
  auto* list = new ListBox(-1, parent);
  TextRows items;
  for (const QString& item : cells_.Items(index.row() + 1, index.column())) items.push_back(FromQString(item));
  list->SetItems(std::move(items));
  list->SetColors(kListBack, kListText);
  list->SetSelectedColors(kListSelected, kListText);
  list->setFont(view_.font());
  list->setFrameShape(QFrame::Box);
  // A press on an item ends the edit.
  list->viewport()->installEventFilter(const_cast<GridDelegate*>(this));
  return list;
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const bool list = KindOf(index) == GridCellKind::kList;
  editor_ = list ? MakeList(parent, index) : MakeLine(parent, index);
  start_ = PaintedText(index);
  return editor_;
}

void GridDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
  if (editor == editor_) editor_ = nullptr;
  QAbstractItemDelegate::destroyEditor(editor, index);
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* line = qobject_cast<QLineEdit*>(editor)) {
    // The view asks again when the cell is written meanwhile; what the operator has typed stays.
    if (!line->isModified()) line->setText(PaintedText(index));
  } else if (auto* list = qobject_cast<ListBox*>(editor)) {
    const QStringList items = cells_.Items(index.row() + 1, index.column());
    list->Select(static_cast<int>(items.indexOf(index.data().toString())));
  }
}

bool GridDelegate::IsAcceptable() const {
  const auto* line = qobject_cast<const QLineEdit*>(editor_);
  if (line == nullptr) return true;
  return line->text() == start_ || static_cast<const EntryValidator*>(line->validator())->Accepts(line->text());
}

void GridDelegate::MarkRefused() {
  auto* line = qobject_cast<QLineEdit*>(editor_);
  if (line == nullptr) return;
  line->selectAll();
  SetLineColors(line, kRefusedText);
  QPalette colors = line->palette();
  colors.setColor(QPalette::Highlight, kRefusedText);
  line->setPalette(colors);
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
  if (editor != editor_ || !IsAcceptable()) return;
  QString text = index.data().toString();
  if (const auto* line = qobject_cast<const QLineEdit*>(editor)) {
    // The editor begins with the painted text. Unless it was changed, the cell keeps its own.
    if (line->text() != start_) text = line->text();
  } else if (const auto* list = qobject_cast<const ListBox*>(editor)) {
    if (list->Selection() >= 0) text = ToQString(list->Item(list->Selection()));
  }
  grid_.Store(index, text);
}

QRect GridDelegate::ListPlace(const ListBox& list, const QRect& cell) const {
  const QRect view = view_.viewport()->rect();
  const int wanted = list.Count() * list.RowHeight() + 2 * list.frameWidth();
  const int below = view.bottom() - cell.bottom();
  const int above = cell.top();
  const bool down = below >= std::min(wanted, above);
  const int height = std::min(wanted, std::max({below, above, list.RowHeight()}));
  const int top = std::max(0, down ? cell.bottom() + 1 : cell.top() - height);
  return {cell.left(), top, cell.width(), height};
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
  if (const auto* list = qobject_cast<const ListBox*>(editor)) {
    editor->setGeometry(ListPlace(*list, option.rect));
  } else {
    editor->setGeometry(option.rect.adjusted(kCellFrame, kCellFrame, -kCellFrame - 1, -kCellFrame - 1));
  }
}

bool GridDelegate::OnEditorKey(QKeyEvent& event) {
  const QPointer<QAbstractItemView> alive(&view_);
  if (grid_.RunKeyHook(event) || editor_ == nullptr) return true;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      grid_.CommitEdit();
      return true;
    case Qt::Key_Escape:
      grid_.CancelEdit();
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (grid_.CommitEdit() && alive) grid_.MoveBy(event.key() == Qt::Key_Tab);
      return true;
    default:
      return qobject_cast<QLineEdit*>(editor_) != nullptr && IsRowKey(event.key());
  }
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (editor_ == nullptr) return false;
  if (watched == editor_) {
    if (event->type() == QEvent::ShortcutOverride && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      event->accept();
      return true;
    }
    if (event->type() == QEvent::KeyPress) return OnEditorKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusOut) {
      const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
      // A menu or another window comes back to the open edit.
      if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return false;
      const QPointer<QAbstractItemView> alive(&view_);
      grid_.LeaveEdit();
      return !alive;
    }
    return false;
  }
  const auto* list = qobject_cast<const ListBox*>(editor_);
  if (list == nullptr || watched != list->viewport() || event->type() != QEvent::MouseButtonRelease) return false;
  if (!list->indexAt(static_cast<const QMouseEvent*>(event)->position().toPoint()).isValid()) return false;
  grid_.CommitEdit();
  return true;
}

}  // namespace pnl
