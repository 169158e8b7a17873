// SPDX-License-Identifier: MIT
// ZCGridXWrap: the panel's grid, with a fixed header row and a fixed column, both with the number 0. It draws the cells
// of its GridModel and lets the operator move, select rows, edit and check cells. It decides nothing about what they
// mean. Its signals are emitted last in each operation: a listener may destroy the grid.
#pragma once

#include <QtWidgets/QTableView>
#include <functional>
#include <utility>
#include <vector>

#include "controls/grid_delegate.h"
#include "controls/grid_model.h"

namespace pnl {

class GridHeader;

class ZCGridXWrap : public QTableView, private GridEditing {
  Q_OBJECT
  Q_PROPERTY(bool pnlEditing READ IsEditing)
  Q_PROPERTY(uint pnlBack READ BackColor)

 public:
  using KeyHook = std::function<bool(QKeyEvent&)>;

  ZCGridXWrap(int id, QWidget* parent);
  ~ZCGridXWrap() override;

  [[nodiscard]] GridModel& Cells() { return cells_; }
  [[nodiscard]] const GridModel& Cells() const { return cells_; }

  /// Rows without a height of their own are as high as a finger needs. Does nothing when the font can't be made.
  void SetFont(const QString& face, int height, int weight);
  /// The ground of the cells, of the fixed cells and of every second row. Text and lines are made to be seen on them.
  void SetColors(Color window, Color fixed, Color alternate);
  [[nodiscard]] const GridColors& Colors() const { return colors_; }
  [[nodiscard]] uint BackColor() const { return colors_.window; }
  /// In pixels. A column of width 0 isn't shown. Row 0 and column 0 are the fixed ones.
  void SetColumnWidth(int column, int width);
  void SetRowHeight(int row, int height);
  /// How many rows and columns are fixed on the screen, 0 or 1 each; 1 at the start. With 0 the headers are hidden.
  void SetFixed(int rows, int columns);
  [[nodiscard]] int FixedRows() const;
  [[nodiscard]] int FixedColumns() const;
  /// Draws the sort marker in the header cell of the column; -1 draws none.
  void SetSortMarker(int column, bool ascending);
  [[nodiscard]] int SortColumn() const;

  /// The present cell; 0 when there is none.
  [[nodiscard]] int Row() const;
  [[nodiscard]] int Column() const;
  /// Moves to the cell, selects its row and scrolls to it. A cell that is fixed, hidden or not there is ignored. An
  /// open edit ends: what may be stored is stored.
  void Select(int row, int column);
  void SelectRange(int firstRow, int lastRow);
  /// The first and the last selected row; 0 and 0 when none is selected.
  [[nodiscard]] std::pair<int, int> SelectedRows() const;

  using QTableView::edit;
  /// Opens an edit in the present cell. Returns false when it accepts none.
  bool BeginEdit();
  /// Stores what was typed and closes the edit. Returns false when it may not be stored: the edit is still open, with
  /// all of it selected. Returns true when no edit is open. The cell stays selected.
  bool CommitEdit() override;
  /// Closes the edit. The cell keeps its old text.
  void CancelEdit() override;
  [[nodiscard]] bool IsEditing() const;
  /// Turns the present cell's check as the operator does. Returns false when it has none or can't be changed.
  bool ToggleCheck();
  /// Asked for every text before it is typed into a text cell or stored there.
  void SetTextCheck(TextCheck check) { delegate_->SetTextCheck(std::move(check)); }
  /// Sees each key press in the grid and in its open edit first. Returns true if it has taken the key.
  void SetKeyHook(KeyHook hook) { keyHook_ = std::move(hook); }
  void Redraw();

 signals:
  /// The operator has committed a cell: an edit or a check. changed is false when the text is as before.
  void Committed(int row, int column, bool changed);
  void EditBegan(int row, int column);
  /// Another cell is the present one, by the operator or by a call.
  void Moved(int row, int column);
  /// The focus came to the grid or its open edit, or left both.
  void FocusChanged(bool focused);
  void HeaderClicked(int column);

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
  void reset() override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  /// Does an operation. The signals that it causes are emitted when the outermost one has ended.
  template <typename Step>
  void InStep(Step step) {
    ++depth_;
    step();
    if (--depth_ == 0) TellNews();
  }
  /// Does a part of one of Qt's own operations, in which no signal may be emitted. The signals are emitted from the
  /// event loop, or at the end of the grid's operation that is under way.
  template <typename Part>
  void InKit(Part part) {
    ++depth_;
    part();
    if (--depth_ == 0) TellLater();
  }
  void TellNews();
  void TellLater();
  void NoteFocus();
  void Store(const QModelIndex& index, const QString& text) override;
  void LeaveEdit() override;
  bool RunKeyHook(QKeyEvent& event) override;
  bool MoveBy(bool forward) override;
  /// Opens an edit and types into it. Returns false when the cell accepts none or not this text.
  bool BeginTyping(const QString& text);
  [[nodiscard]] QModelIndex Index(int row, int column) const { return cells_.index(row - 1, column); }
  void UseFont();
  void HideFixedColumn();
  void MakeHeaders();

  GridModel cells_;
  GridColors colors_;
  GridDelegate* delegate_;
  GridHeader* columnHeader_;
  GridHeader* rowHeader_;
  KeyHook keyHook_;
  int depth_ = 0;  // operations that are under way, one inside the other
  std::vector<std::function<void()>> news_;
  std::pair<int, int> toldCell_{0, 0};
  bool toldFocus_ = false;
  QPersistentModelIndex pressed_;  // the cell under the press; invalid after a drag
  bool pressedAgain_ = false;      // it was the present cell already
};

}  // namespace pnl
