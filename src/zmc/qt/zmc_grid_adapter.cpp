// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_grid_adapter.h"

#include "window/qt/qt_text.h"

namespace pnl {
namespace {

GridCellKind KindOf(ZmcCellKind kind) {
  switch (kind) {
    case ZmcCellKind::kNumber:
      return GridCellKind::kNumber;
    case ZmcCellKind::kCheck:
      return GridCellKind::kCheck;
    case ZmcCellKind::kList:
      return GridCellKind::kList;
    case ZmcCellKind::kText:
      break;
  }
  return GridCellKind::kText;
}

GridRowState StateOf(int state) {
  if (state == zmc_row_state::kFactory) return GridRowState::kFactory;
  return state == zmc_row_state::kRefused ? GridRowState::kFailed : GridRowState::kNormal;
}

}  // namespace

NumberFormat ToNumberFormat(const ZmcDigits& digits) {
  NumberFormat format;
  format.integerDigits = digits.integerDigits;
  format.decimals = digits.decimals;
  if (digits.least) format.minimum = *digits.least;
  if (digits.most) format.maximum = *digits.most;
  return format;
}

Text ZmcGridAdapter::CellText(int row, int col) const { return FromQString(grid_.Cells().CellText(row, col)); }

void ZmcGridAdapter::SetCellText(int row, int col, TextView text) {
  grid_.Cells().SetCellText(row, col, ToQString(text));
}

void ZmcGridAdapter::SetNumberFormat(int row, int col, const ZmcDigits& digits) {
  grid_.Cells().SetKind(row, col, GridCellKind::kNumber);
  grid_.Cells().SetCellFormat(row, col, ToNumberFormat(digits));
}

void ZmcGridAdapter::SetCellKind(int row, int col, ZmcCellKind kind, const std::vector<Text>& items) {
  if (kind != ZmcCellKind::kList) return grid_.Cells().SetKind(row, col, KindOf(kind));
  QStringList list;
  for (const Text& item : items) list.append(ToQString(item));
  grid_.Cells().SetList(row, col, list);
}

void ZmcGridAdapter::SetRowState(int row, int state) { grid_.Cells().SetRowState(row, StateOf(state)); }

void ZmcGridAdapter::BeginEdit(ZmcCell cell) {
  grid_.Select(cell.row, cell.col);
  grid_.BeginEdit();
}

}  // namespace pnl
