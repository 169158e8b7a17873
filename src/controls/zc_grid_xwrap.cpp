// SPDX-License-Identifier: MIT
#include "controls/zc_grid_xwrap.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <algorithm>

#include "controls/fonts.h"
#include "controls/grid_header.h"
#include "controls/wide_scroll_bar.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kFixedColumnWidth = 24;

}  // namespace

ZCGridXWrap::ZCGridXWrap(int id, QWidget* parent)
    : QTableView(parent),
      delegate_(new GridDelegate(this, *this, cells_, colors_)),
      columnHeader_(new GridHeader(Qt::Horizontal, colors_, this)),
      rowHeader_(new GridHeader(Qt::Vertical, colors_, this)) {
  MarkControl(this, id, control_kind::kGrid);
  MakeHeaders();
  setModel(&cells_);
  setItemDelegate(delegate_);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setShowGrid(false);
  setWordWrap(false);
  setFrameShape(QFrame::NoFrame);
  setContextMenuPolicy(Qt::NoContextMenu);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  setHorizontalScrollBar(new WideScrollBar(Qt::Horizontal, this));
  connect(&cells_, &QAbstractItemModel::modelReset, this, &ZCGridXWrap::HideFixedColumn);
  connect(&cells_, &GridModel::CheckTurned, this, [this](int row, int column) {
    InStep([&] { news_.emplace_back([=, this] { emit Committed(row, column, true); }); });
  });
  SetColors(colors_.window, colors_.fixed, colors_.alternate);
  UseFont();
}

ZCGridXWrap::~ZCGridXWrap() {
  // The grid emits no signal from here on.
  ++depth_;
  CancelEdit();
}

void ZCGridXWrap::MakeHeaders() {
  setHorizontalHeader(columnHeader_);
  setVerticalHeader(rowHeader_);
  rowHeader_->setFixedWidth(kFixedColumnWidth);
  connect(columnHeader_, &GridHeader::Clicked, this,
          [this](int section) { InStep([&] { news_.emplace_back([=, this] { emit HeaderClicked(section); }); }); });
  connect(rowHeader_, &GridHeader::Clicked, this, [this](int section) {
    InStep([&] {
      setFocus(Qt::MouseFocusReason);
      Select(section + 1, std::max(1, Column()));
    });
  });
  // The corner is a button of the kit. It is drawn as the cell of both headers.
  for (auto* corner : findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly)) corner->installEventFilter(this);
  setCornerButtonEnabled(false);
}

void ZCGridXWrap::HideFixedColumn() {
  // The vertical header shows it, so that it stays when the cells scroll.
  setColumnHidden(0, true);
}

// Look.

void ZCGridXWrap::SetFont(const QString& face, int height, int weight) {
  const auto made = MakeFont(face, height, weight);
  if (!made) return;
  setFont(*made);
  UseFont();
}

void ZCGridXWrap::UseFont() {
  columnHeader_->setFont(font());
  rowHeader_->setFont(font());
  columnHeader_->setFixedHeight(delegate_->LineHeight());
  rowHeader_->setDefaultSectionSize(delegate_->LineHeight());
  Redraw();
}

void ZCGridXWrap::SetColors(Color window, Color fixed, Color alternate) {
  colors_ = {window, fixed, alternate};
  // This palette gives the scroll bars shades of the fixed cells.
  QPalette colors(ToQColor(fixed));
  colors.setColor(QPalette::Base, ToQColor(fixed).lighter(108));
  setPalette(colors);
  Redraw();
}

void ZCGridXWrap::SetColumnWidth(int column, int width) {
  if (column == 0) {
    rowHeader_->setFixedWidth(std::max(0, width));
    updateGeometries();
  } else if (column > 0 && column < cells_.Columns()) {
    setColumnHidden(column, width <= 0);
    if (width > 0) columnHeader_->resizeSection(column, width);
  }
}

void ZCGridXWrap::SetRowHeight(int row, int height) {
  if (height <= 0) return;
  if (row == 0) {
    columnHeader_->setFixedHeight(height);
    updateGeometries();
  } else if (row > 0 && row < cells_.Rows()) {
    rowHeader_->resizeSection(row - 1, height);
  }
}

void ZCGridXWrap::SetFixed(int rows, int columns) {
  columnHeader_->setHidden(rows <= 0);
  rowHeader_->setHidden(columns <= 0);
}

int ZCGridXWrap::FixedRows() const { return columnHeader_->isHidden() ? 0 : 1; }

int ZCGridXWrap::FixedColumns() const { return rowHeader_->isHidden() ? 0 : 1; }

void ZCGridXWrap::SetSortMarker(int column, bool ascending) {
  const bool shown = column > 0 && column < cells_.Columns();
  if (shown) columnHeader_->setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
  columnHeader_->setSortIndicatorShown(shown);
  columnHeader_->viewport()->update();
}

int ZCGridXWrap::SortColumn() const {
  return columnHeader_->isSortIndicatorShown() ? columnHeader_->sortIndicatorSection() : -1;
}

void ZCGridXWrap::Redraw() {
  viewport()->update();
  columnHeader_->viewport()->update();
  rowHeader_->viewport()->update();
}

// Selection.

int ZCGridXWrap::Row() const { return currentIndex().isValid() ? currentIndex().row() + 1 : 0; }

int ZCGridXWrap::Column() const { return currentIndex().isValid() ? currentIndex().column() : 0; }

void ZCGridXWrap::Select(int row, int column) {
  const QModelIndex index = Index(row, column);
  if (row < 1 || column < 1 || !index.isValid() || isColumnHidden(column)) return;
  InStep([&] {
    setCurrentIndex(index);
    // The present cell's row is selected alone, also when a range was.
    SelectRange(row, row);
  });
}

void ZCGridXWrap::SelectRange(int firstRow, int lastRow) {
  const QModelIndex first = Index(firstRow, cells_.Columns() - 1);
  const QModelIndex last = Index(lastRow, cells_.Columns() - 1);
  if (!first.isValid() || !last.isValid()) return;
  selectionModel()->select(QItemSelection(first, last),
                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::pair<int, int> ZCGridXWrap::SelectedRows() const {
  std::pair<int, int> rows{0, 0};
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    rows.first = rows.first == 0 ? range.top() + 1 : std::min(rows.first, range.top() + 1);
    rows.second = std::max(rows.second, range.bottom() + 1);
  }
  return rows;
}

// Edits.

bool ZCGridXWrap::IsEditing() const { return delegate_->Editor() != nullptr; }

bool ZCGridXWrap::BeginEdit() {
  if (IsEditing()) return true;
  const QModelIndex cell = currentIndex();
  return cells_.flags(cell).testFlag(Qt::ItemIsEditable) && edit(cell, AllEditTriggers, nullptr);
}

bool ZCGridXWrap::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  bool open = false;
  InStep([&] {
    const QWidget* before = delegate_->Editor();
    open = QTableView::edit(index, trigger, event);
    if (delegate_->Editor() == nullptr || delegate_->Editor() == before) return;
    const int row = index.row() + 1;
    const int column = index.column();
    news_.emplace_back([=, this] { emit EditBegan(row, column); });
  });
  return open;
}

void ZCGridXWrap::Store(const QModelIndex& index, const QString& text) {
  const int row = index.row() + 1;
  const int column = index.column();
  const bool changed = text != cells_.CellText(row, column);
  if (changed) cells_.SetCellText(row, column, text);
  news_.emplace_back([=, this] { emit Committed(row, column, changed); });
  // The kit stores an open edit by itself when the present cell changes.
  if (depth_ == 0) TellLater();
}

bool ZCGridXWrap::CommitEdit() {
  bool stored = true;
  InStep([&] {
    QWidget* editor = delegate_->Editor();
    if (editor == nullptr) return;
    stored = delegate_->IsAcceptable();
    if (!stored) return delegate_->MarkRefused();
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
  });
  return stored;
}

void ZCGridXWrap::CancelEdit() {
  InStep([&] {
    if (QWidget* editor = delegate_->Editor()) closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
  });
}

void ZCGridXWrap::LeaveEdit() {
  // The code that moves the focus still uses its widgets after the event, and a listener may destroy them. So the
  // signals are emitted from the event loop.
  InKit([&] {
    QWidget* editor = delegate_->Editor();
    const QWidget* focus = QApplication::focusWidget();
    if (editor == nullptr || (focus != nullptr && editor->isAncestorOf(focus))) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    NoteFocus();
  });
}

bool ZCGridXWrap::ToggleCheck() {
  const QModelIndex cell = currentIndex();
  if (!cells_.flags(cell).testFlag(Qt::ItemIsUserCheckable)) return false;
  const bool checked = cells_.IsChecked(Row(), Column());
  return cells_.setData(cell, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void ZCGridXWrap::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  InKit([&] { QTableView::currentChanged(current, previous); });
  Redraw();
}

void ZCGridXWrap::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
  InKit([&] { QTableView::rowsAboutToBeRemoved(parent, start, end); });
}

void ZCGridXWrap::reset() {
  InKit([&] { QTableView::reset(); });
}

// Signals.

void ZCGridXWrap::TellNews() {
  const QPointer<ZCGridXWrap> alive(this);
  while (alive && !news_.empty()) {
    const std::function<void()> tell = std::move(news_.front());
    news_.erase(news_.begin());
    tell();
  }
  if (!alive) return;
  const std::pair<int, int> cell{Row(), Column()};
  if (std::exchange(toldCell_, cell) != cell) emit Moved(cell.first, cell.second);
}

void ZCGridXWrap::TellLater() {
  QMetaObject::invokeMethod(
      this, [this] { TellNews(); }, Qt::QueuedConnection);
}

void ZCGridXWrap::NoteFocus() {
  const QWidget* focus = QApplication::focusWidget();
  const bool inside = focus != nullptr && (focus == this || isAncestorOf(focus));
  if (std::exchange(toldFocus_, inside) == inside) return;
  news_.emplace_back([=, this] { emit FocusChanged(inside); });
  Redraw();
}

}  // namespace pnl
