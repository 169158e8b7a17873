// SPDX-License-Identifier: MIT
// The rows and columns of a report list, as its owner sets them. ZWCListCtrl draws them. A row that doesn't exist reads
// as empty, and an operation on it does nothing. IsConsistent checks the model for tests.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QStringList>
#include <cstdint>
#include <vector>

namespace pnl {

struct ReportCell {
  QString text;
  int image = -1;  // index in the small image list; -1 for none
};

struct ReportRow {
  std::vector<ReportCell> cells;  // may be fewer than the columns; the others are empty
  int overlay = -1;               // index in the small image list, drawn over the row's image; -1 for none
  int stateImage = -1;            // index in the state image list; -1 for none
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
  /// Inserts before index, or at the end when no row has that index. Returns the row's new index.
  int InsertRow(int index, ReportRow row);
  bool ReplaceRow(int index, ReportRow row);
  bool DeleteRow(int index);
  void Clear() { SetRows({}); }
  bool SetCell(int index, int column, ReportCell cell);
  /// The row with that index; null when there is none. The pointer is valid until the next change.
  [[nodiscard]] const ReportRow* Row(int index) const;
  /// The cell; an empty one when there is none.
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
