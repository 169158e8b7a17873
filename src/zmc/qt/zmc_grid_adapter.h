// SPDX-License-Identifier: MIT
// The grid of a tab as the logic sees it: ZmcGrid over the panel's grid control. It converts texts and enumerations and
// decides nothing.
#pragma once

#include "controls/zc_grid_xwrap.h"
#include "zmc/zmc_view.h"

namespace pnl {

class ZmcGridAdapter final : public ZmcGrid {
 public:
  explicit ZmcGridAdapter(ZCGridXWrap& grid) : grid_(grid) {}

  [[nodiscard]] int Rows() const override { return grid_.Cells().Rows(); }
  [[nodiscard]] Text CellText(int row, int col) const override;
  void SetCellText(int row, int col, TextView text) override;
  [[nodiscard]] bool IsChecked(int row, int col) const override { return grid_.Cells().IsChecked(row, col); }
  void SetChecked(int row, int col, bool on) override { grid_.Cells().SetChecked(row, col, on); }
  [[nodiscard]] bool IsReadOnly(int row, int col) const override { return !grid_.Cells().AcceptsEdit(row, col); }
  void SetReadOnly(int row, int col, bool on) override { grid_.Cells().SetReadOnly(row, col, on); }
  void SetNumberFormat(int row, int col, const ZmcDigits& digits) override;
  void SetCellKind(int row, int col, ZmcCellKind kind, const std::vector<Text>& items) override;
  void SetRowState(int row, int state) override;
  void SetTint(int row, int col, bool on) override { grid_.Cells().SetTint(row, col, on); }
  int AddRow() override { return grid_.Cells().AddRow(); }
  void RemoveRow(int row) override { grid_.Cells().DeleteRow(row); }
  void RemoveAllRows() override { grid_.Cells().SetRows(1); }
  [[nodiscard]] ZmcCell Current() const override { return {grid_.Row(), grid_.Column()}; }
  void Select(ZmcCell cell) override { grid_.Select(cell.row, cell.col); }
  [[nodiscard]] std::pair<int, int> SelectedRows() const override { return grid_.SelectedRows(); }
  [[nodiscard]] bool IsEditing() const override { return grid_.IsEditing(); }
  void BeginEdit(ZmcCell cell) override;
  void CommitEdit() override { grid_.CommitEdit(); }
  void CancelEdit() override { grid_.CancelEdit(); }
  void ShowSortMarker(int col, bool ascending) override { grid_.SetSortMarker(col > 0 ? col : -1, ascending); }
  void Redraw() override { grid_.Redraw(); }

 private:
  ZCGridXWrap& grid_;
};

/// The control's own number format.
[[nodiscard]] NumberFormat ToNumberFormat(const ZmcDigits& digits);

}  // namespace pnl
