// SPDX-License-Identifier: MIT
// The rows of the error history in words, for a list: what an operator reads of each. It copies what it shows, so the
// history may change under it; it knows no widget.
#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <vector>

#include "host/error_history.h"

namespace panel {

/// One row as it is read.
struct ErrorRowText {
  QString time;     // of the last one
  QString name;     // "error 1110"
  QString text;     // what the tables say of it, on one line; where they don't know it, what the record has
  QString details;  // channel, source, how often, what became of it
  QColor color;
};

/// now decides whether a time needs its date.
[[nodiscard]] ErrorRowText TextOfRow(const ErrorRow& row, ErrorTime now);
/// "12:34:56", with its date when that isn't today's.
[[nodiscard]] QString TextOfTime(ErrorTime time, ErrorTime now);
/// Notes above the rows: a flood, and what found no place. Empty when there is nothing to say.
[[nodiscard]] QStringList NotesOf(const ErrorHistory& history);

class ErrorListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role { kTimeRole = Qt::UserRole, kNameRole, kDetailsRole, kColorRole };

  using QAbstractListModel::QAbstractListModel;
  void Take(const ErrorHistory& history, ErrorTime now);
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  /// Where the history's row with that id stands, for a selection to stay with it; -1 for none.
  [[nodiscard]] int RowOf(std::int64_t id) const;
  [[nodiscard]] std::int64_t IdAt(int row) const;

 private:
  std::vector<ErrorRowText> rows_;
  std::vector<std::int64_t> ids_;
};

}  // namespace panel
