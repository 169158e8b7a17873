// SPDX-License-Identifier: MIT
#include "controls/grid_model.h"

#include <algorithm>

#include "window/qt/control_properties.h"

namespace pnl {

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) { rows_.emplace_back().cells.resize(1); }

void GridModel::SetRows(int count) {
  const int wanted = std::max(1, count);
  const int had = Rows();
  if (wanted > had) {
    beginInsertRows({}, had - 1, wanted - 2);
    GridRow row;
    row.cells.resize(static_cast<std::size_t>(columns_));
    rows_.resize(static_cast<std::size_t>(wanted), row);
    endInsertRows();
  } else if (wanted < had) {
    beginRemoveRows({}, wanted - 1, had - 2);
    rows_.erase(rows_.begin() + wanted, rows_.end());
    endRemoveRows();
  }
}

void GridModel::SetColumns(int count) {
  beginResetModel();
  columns_ = std::max(1, count);
  for (GridRow& row : rows_) row.cells.resize(static_cast<std::size_t>(columns_));
  endResetModel();
}

int GridModel::AddRow() {
  SetRows(Rows() + 1);
  return Rows() - 1;
}

bool GridModel::DeleteRow(int row) {
  if (row < 1 || row >= Rows()) return false;
  beginRemoveRows({}, row - 1, row - 1);
  rows_.erase(rows_.begin() + row);
  endRemoveRows();
  return true;
}

bool GridModel::Has(int row, int column) const { return row >= 0 && row < Rows() && column >= 0 && column < columns_; }

const GridModel::GridCell& GridModel::Cell(int row, int column) const {
  static const GridCell kNone;
  if (!Has(row, column)) return kNone;
  return rows_[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
}

GridModel::GridCell& GridModel::At(int row, int column) {
  return rows_[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
}

void GridModel::SetCellText(int row, int column, const QString& text) {
  if (!Has(row, column)) return;
  At(row, column).text = text;
  Changed(row, column, column);
}

void GridModel::SetKind(int row, int column, GridCellKind kind) {
  if (!Has(row, column) || row == 0 || column == 0) return;
  GridCell& cell = At(row, column);
  cell.kind = kind;
  cell.checked = cell.checked && kind == GridCellKind::kCheck;
  if (kind != GridCellKind::kList) cell.items.clear();
  Changed(row, column, column);
}

void GridModel::SetList(int row, int column, const QStringList& items) {
  SetKind(row, column, GridCellKind::kList);
  if (Kind(row, column) == GridCellKind::kList) At(row, column).items = items;
}

void GridModel::SetChecked(int row, int column, bool checked) {
  if (Kind(row, column) != GridCellKind::kCheck) return;
  At(row, column).checked = checked;
  Changed(row, column, column);
}

void GridModel::SetReadOnly(int row, int column, bool readOnly) {
  if (!Has(row, column)) return;
  At(row, column).readOnly = readOnly;
  Changed(row, column, column);
}

void GridModel::SetTint(int row, int column, bool on) {
  if (!Has(row, column) || At(row, column).tint == on) return;
  At(row, column).tint = on;
  Changed(row, column, column);
}

void GridModel::SetRowFormat(int row, const NumberFormat& format) {
  if (!Has(row, 0)) return;
  rows_[static_cast<std::size_t>(row)].format = format;
  Changed(row, 0, columns_ - 1);
}

void GridModel::SetCellFormat(int row, int column, const NumberFormat& format) {
  if (!Has(row, column)) return;
  At(row, column).format = format;
  Changed(row, column, column);
}

std::optional<NumberFormat> GridModel::FormatOf(int row, int column) const {
  const GridCell& cell = Cell(row, column);
  if (cell.kind != GridCellKind::kNumber) return std::nullopt;
  if (cell.format) return cell.format;
  return rows_[static_cast<std::size_t>(row)].format.value_or(NumberFormat());
}

GridRowState GridModel::RowState(int row) const {
  return row > 0 && row < Rows() ? rows_[static_cast<std::size_t>(row)].state : GridRowState::kFactory;
}

void GridModel::SetRowState(int row, GridRowState state) {
  if (row < 1 || row >= Rows()) return;
  rows_[static_cast<std::size_t>(row)].state = state;
  Changed(row, 0, columns_ - 1);
  emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
}

bool GridModel::AcceptsEdit(int row, int column) const {
  if (!Has(row, column) || row == 0 || column == 0 || IsReadOnly(row, column)) return false;
  return Kind(row, column) == GridCellKind::kCheck || RowState(row) != GridRowState::kFactory;
}

bool GridModel::IsConsistent() const {
  if (rows_.empty() || rowCount() != Rows() - 1 || columnCount() != columns_) return false;
  const auto whole = [this](const GridRow& row) {
    return static_cast<int>(row.cells.size()) == columns_ && row.cells.front().kind == GridCellKind::kText &&
           std::all_of(row.cells.begin(), row.cells.end(), [](const GridCell& cell) {
             return (!cell.checked || cell.kind == GridCellKind::kCheck) &&
                    (cell.items.isEmpty() || cell.kind == GridCellKind::kList);
           });
  };
  return std::all_of(rows_.begin(), rows_.end(), whole);
}

void GridModel::Changed(int row, int firstColumn, int lastColumn) {
  if (row > 0) emit dataChanged(createIndex(row - 1, firstColumn), createIndex(row - 1, lastColumn));
  if (row == 0) emit headerDataChanged(Qt::Horizontal, firstColumn, lastColumn);
  if (firstColumn == 0 && row > 0) emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Rows() - 1; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  if (!index.isValid() || !Has(row, index.column())) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole) return CellText(row, index.column());
  if (role == Qt::CheckStateRole && Kind(row, index.column()) == GridCellKind::kCheck) {
    return static_cast<int>(IsChecked(row, index.column()) ? Qt::Checked : Qt::Unchecked);
  }
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool across = orientation == Qt::Horizontal;
  if (section < 0 || section >= (across ? columns_ : Rows() - 1)) return {};
  if (role == Qt::DisplayRole) return across ? CellText(0, section) : CellText(section + 1, 0);
  if (role == kRowStateRole && !across) return static_cast<int>(RowState(section + 1));
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const int row = index.row() + 1;
  const int column = index.column();
  if (!index.isValid() || !Has(row, column) || column == 0) return Qt::NoItemFlags;
  const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  if (!AcceptsEdit(row, column)) return shown;
  return shown | (Kind(row, column) == GridCellKind::kCheck ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) return false;
  const int row = index.row() + 1;
  const bool checked = value.toInt() == Qt::Checked;
  if (checked == IsChecked(row, index.column())) return true;
  SetChecked(row, index.column(), checked);
  emit CheckTurned(row, index.column());
  return true;
}

}  // namespace pnl
