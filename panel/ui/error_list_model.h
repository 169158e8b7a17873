// SPDX-License-Identifier: MIT
// The rows of the error history in words, for a list. It copies what it shows, so the history may change meanwhile. It
// knows no widget.
#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <vector>

#include "host/error_history.h"

namespace panel {

/// One row as the operator reads it.
struct ErrorRowText {
  QString time;     // of the latest error of the row
  QString name;     // "error 1110"
  QString text;     // the text of the tables, on one line; without one, the facts in the record
  QString details;  // channel, source, how often it came, what became of it
  QColor color;
};

/// Returns the words of a row. now decides whether a time needs its date.
[[nodiscard]] ErrorRowText TextOfRow(const ErrorRow& row, ErrorTime now);
/// The name of the part of the control from which an error comes; its number when it has no name.
[[nodiscard]] QString NameOfSource(std::int32_t source);
/// Returns "12:34:56", with the date before it when that isn't today.
[[nodiscard]] QString TextOfTime(ErrorTime time, ErrorTime now);
/// Returns the notes above the rows: a flood, and errors that have no row any more. Empty when there are none.
[[nodiscard]] QStringList NotesOf(const ErrorHistory& history);

class ErrorListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role { kTimeRole = Qt::UserRole, kNameRole, kDetailsRole, kColorRole };

  using QAbstractListModel::QAbstractListModel;
  void Take(const ErrorHistory& history, ErrorTime now);
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  /// The row of the history's row with that id, or -1. For a selection that stays with its error.
  [[nodiscard]] int RowOf(std::int64_t id) const;
  [[nodiscard]] std::int64_t IdAt(int row) const;
  /// The last error of that row; null when there is no such row.
  [[nodiscard]] const ErrorHistory::Summary* ErrorAt(int row) const;

 private:
  std::vector<ErrorRowText> rows_;
  std::vector<std::int64_t> ids_;
  std::vector<ErrorHistory::Summary> errors_;
};

}  // namespace panel
