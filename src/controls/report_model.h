// SPDX-License-Identifier: MIT
// The rows and columns of a report list, as its owner sets them. Not the look: ZWCListCtrl and its delegate draw. A row
// that isn't there reads as empty and is left alone; IsConsistent checks what the operations promise.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QStringList>
#include <cstdint>
#include <vector>

namespace pnl {

struct ReportCell {
  QString text;
  int image = -1;  // in the small image list; -1 for none
};

struct ReportRow {
  std::vector<ReportCell> cells;  // fewer than columns: the others are empty
  int overlay = -1;               // over the row's image
  int stateImage = -1;            // in the state image list
  std::intptr_t data = 0;
};

struct ReportColumn {
  QString title;
  Qt::Alignment alignment = Qt::AlignLeft;
};

class ReportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetColumns(std::vector<ReportColumn> columns);
  [[nodiscard]] const std::vector<ReportColumn>& Columns() const { return columns_; }

  void SetRows(std::vector<ReportRow> rows);
  /// At the end where index is not in the list. Answers where it is now.
  int InsertRow(int index, ReportRow row);
  bool ReplaceRow(int index, ReportRow row);
  bool DeleteRow(int index);
  void Clear() { SetRows({}); }
  bool SetCell(int index, int column, ReportCell cell);
  /// Null for a row that isn't there; holds until the next change.
  [[nodiscard]] const ReportRow* Row(int index) const;
  /// An empty cell where there is none.
  [[nodiscard]] const ReportCell& Cell(int index, int column) const;
  [[nodiscard]] bool IsConsistent() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  [[nodiscard]] bool Has(int index) const { return index >= 0 && index < static_cast<int>(rows_.size()); }
  void Changed(int index);
  std::vector<ReportColumn> columns_;
  std::vector<ReportRow> rows_;
};

}  // namespace pnl
