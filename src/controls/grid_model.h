// SPDX-License-Identifier: MIT
// The cells of a grid, as their owner sets them. Row 0 and column 0 are the fixed ones: headers, never edited. A cell
// that doesn't exist reads as empty, and an operation on it does nothing. ZCGridXWrap draws the cells and lets the
// operator edit them. For Qt, row 0 is the horizontal header and row 1 the model's first row; columns are the same.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

#include "controls/number_format.h"

namespace pnl {

enum class GridCellKind { kText, kNumber, kCheck, kList };

/// A factory row accepts edits in its check cells only. A failed row is one that its owner found wrong.
enum class GridRowState { kFactory = 0, kNormal = 1, kFailed = 2 };

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(QObject* parent = nullptr);

  /// Both counts include the fixed row and column and are at least 1. New cells are empty text cells, new rows normal.
  void SetRows(int count);
  void SetColumns(int count);
  [[nodiscard]] int Rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int Columns() const { return columns_; }
  /// Adds a row at the end and returns its number.
  int AddRow();
  /// Row 0 can't be deleted.
  bool DeleteRow(int row);

  /// The text of a cell, exactly as it was written.
  [[nodiscard]] QString CellText(int row, int column) const { return Cell(row, column).text; }
  void SetCellText(int row, int column, const QString& text);
  [[nodiscard]] GridCellKind Kind(int row, int column) const { return Cell(row, column).kind; }
  /// Fixed cells are always text cells.
  void SetKind(int row, int column, GridCellKind kind);
  /// Makes the cell a list cell with these items.
  void SetList(int row, int column, const QStringList& items);
  [[nodiscard]] QStringList Items(int row, int column) const { return Cell(row, column).items; }
  /// The check state; false for any other cell.
  [[nodiscard]] bool IsChecked(int row, int column) const { return Cell(row, column).checked; }
  void SetChecked(int row, int column, bool checked);
  [[nodiscard]] bool IsReadOnly(int row, int column) const { return Cell(row, column).readOnly; }
  void SetReadOnly(int row, int column, bool readOnly);
  /// The format of all numeric cells of a row that have none of their own.
  void SetRowFormat(int row, const NumberFormat& format);
  void SetCellFormat(int row, int column, const NumberFormat& format);
  /// The format of a numeric cell; nothing for any other cell. Without one set, every number is allowed.
  [[nodiscard]] std::optional<NumberFormat> FormatOf(int row, int column) const;
  [[nodiscard]] GridRowState RowState(int row) const;
  void SetRowState(int row, GridRowState state);
  /// A tint on a cell whose value the operator should look at.
  void SetTint(int row, int column, bool on);
  [[nodiscard]] bool HasTint(int row, int column) const { return Cell(row, column).tint; }
  /// Whether the operator may change the cell.
  [[nodiscard]] bool AcceptsEdit(int row, int column) const;
  [[nodiscard]] bool IsConsistent() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Sets the check of a cell that accepts edits, for the operator. Emits CheckTurned when it has changed.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  void CheckTurned(int row, int column);

 private:
  struct GridCell {
    QString text;
    QStringList items;
    std::optional<NumberFormat> format;
    GridCellKind kind = GridCellKind::kText;
    bool readOnly = false;
    bool checked = false;
    bool tint = false;
  };
  struct GridRow {
    std::vector<GridCell> cells;
    std::optional<NumberFormat> format;
    GridRowState state = GridRowState::kNormal;
  };
  [[nodiscard]] bool Has(int row, int column) const;
  [[nodiscard]] const GridCell& Cell(int row, int column) const;
  [[nodiscard]] GridCell& At(int row, int column);
  void Changed(int row, int firstColumn, int lastColumn);
  std::vector<GridRow> rows_;
  int columns_ = 1;
};

}  // namespace pnl
