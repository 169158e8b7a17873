// SPDX-License-Identifier: MIT
#include "controls/report_model.h"

#include <algorithm>
#include <utility>

namespace pnl {

void ReportModel::SetColumns(std::vector<ReportColumn> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  endResetModel();
}

void ReportModel::SetRows(std::vector<ReportRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int ReportModel::InsertRow(int index, ReportRow row) {
  const int at = Has(index) ? index : static_cast<int>(rows_.size());
  beginInsertRows({}, at, at);
  rows_.insert(rows_.begin() + at, std::move(row));
  endInsertRows();
  return at;
}

bool ReportModel::ReplaceRow(int index, ReportRow row) {
  if (!Has(index)) return false;
  rows_[static_cast<std::size_t>(index)] = std::move(row);
  Changed(index);
  return true;
}

bool ReportModel::DeleteRow(int index) {
  if (!Has(index)) return false;
  beginRemoveRows({}, index, index);
  rows_.erase(rows_.begin() + index);
  endRemoveRows();
  return true;
}

bool ReportModel::SetCell(int index, int column, ReportCell cell) {
  if (!Has(index) || column < 0 || column >= columnCount()) return false;
  auto& cells = rows_[static_cast<std::size_t>(index)].cells;
  cells.resize(std::max(cells.size(), static_cast<std::size_t>(column) + 1));
  cells[static_cast<std::size_t>(column)] = std::move(cell);
  Changed(index);
  return true;
}

const ReportRow* ReportModel::Row(int index) const {
  return Has(index) ? &rows_[static_cast<std::size_t>(index)] : nullptr;
}

const ReportCell& ReportModel::Cell(int index, int column) const {
  static const ReportCell kEmpty;
  const ReportRow* row = Row(index);
  if (row == nullptr || column < 0 || column >= static_cast<int>(row->cells.size())) return kEmpty;
  return row->cells[static_cast<std::size_t>(column)];
}

bool ReportModel::IsConsistent() const {
  if (rowCount() != static_cast<int>(rows_.size()) || columnCount() != static_cast<int>(columns_.size())) return false;
  return !hasIndex(rowCount(), 0) && (rows_.empty() || columns_.empty() || hasIndex(0, 0));
}

int ReportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return Cell(index.row(), index.column()).text;
  return headerData(index.column(), Qt::Horizontal, role);
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const ReportColumn& column = columns_[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return column.title;
  if (role == Qt::TextAlignmentRole) return static_cast<int>(column.alignment | Qt::AlignVCenter);
  return {};
}

void ReportModel::Changed(int index) {
  if (columnCount() > 0) emit dataChanged(createIndex(index, 0), createIndex(index, columnCount() - 1));
}

}  // namespace pnl
