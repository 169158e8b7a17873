// SPDX-License-Identifier: MIT
// The logic of a table tab: all records of both files in one grid, in which the operator adds and edits his own, hides
// those of the machine maker, and decides the order of the lists. What differs between materials and operations is in
// the derived classes. A row that was changed is kept in ModifiedRows until it is saved or the changes are dropped.
#pragma once

#include <functional>
#include <vector>

#include "zmc/zmc_desk.h"
#include "zmc/zmc_keys.h"

namespace pnl {

/// The columns and texts in which the two tables differ.
struct ZmcTableShape {
  ZmcTab tab;
  int columns;       // without the header column; the last one is the origin
  int sortColumns;   // so many, from the first on, can order the rows
  int hiddenColumn;  // of the check cells
  int originColumn;
  int deleteItem;  // soft keys
  int saveItem;
  int saveQuestion;  // text
};

/// One row as the grid has it.
struct ZmcTableRow {
  std::vector<Text> cells;  // by column from 1; the hidden flag's text is empty
  bool hidden = false;
  bool factory = false;
};

class ZmcTable {
 public:
  /// reloadLists is called after records were saved, deleted or ordered anew.
  ZmcTable(ZmcDesk& desk, const ZmcTableShape& shape, std::function<void()> reloadLists);
  virtual ~ZmcTable() = default;
  ZmcTable(const ZmcTable&) = delete;
  ZmcTable& operator=(const ZmcTable&) = delete;

  /// The tab is on the screen: soft keys, rows at the first time and after dropped changes, focus on the grid.
  void OnShown();
  [[nodiscard]] bool IsDirty() const { return !ModifiedRows_.empty(); }
  /// Asks whether changes are to be saved. False when the tab can't be left.
  [[nodiscard]] bool CanLeave();
  void AddRow();
  void DeleteRows();
  /// Checks all changed rows, then saves each. False when a row was refused or couldn't be stored. While there is no
  /// user file, nothing is saved and the changes wait.
  bool SaveTable(bool refill);

  /// The records have changed elsewhere. The tab, if it was ever shown, is filled again, unless changes wait in it.
  void Refill();

  // Events of the grid.
  void OnCommitted(int row, int col);
  void OnMoved() { UpdateSoftKeys(); }
  void OnHeaderClicked(int col);
  /// A key that the tab sees before the grid. close is called for an Escape that no edit takes. True when the grid
  /// isn't to get the key.
  bool OnKey(ZmcKey key, const std::function<void()>& close);

 protected:
  /// The rows in the present order.
  [[nodiscard]] virtual std::vector<ZmcTableRow> Rows() const = 0;
  /// Writes the row over the record that the file has under storedAs, or adds it when storedAs is empty. The lists have
  /// that record under oldDescription.
  [[nodiscard]] virtual CuttingError SaveRow(const ZmcTableRow& row, const Text& oldDescription,
                                             const Text& storedAs) = 0;
  [[nodiscard]] virtual CuttingError DeleteRecord(const Text& description) = 0;
  virtual void SetHeader() = 0;
  virtual void SetKinds(int row) = 0;
  /// The column that orders the rows, 0 for none, and its direction.
  [[nodiscard]] virtual std::pair<int, bool> SortColumn() const = 0;
  /// Orders by that column, the other way round if it does already, and not at all after both.
  virtual void OrderBy(int col) = 0;

  [[nodiscard]] ZmcGrid& Grid() const { return desk_.View().Grid(shape_.tab); }
  [[nodiscard]] ZmcDesk& Desk() const { return desk_; }

 private:
  struct Modified {
    int row;
    Text oldDescription;  // empty for a new row
    Text storedAs;        // what the file has; the same, unless the row has made way for another one
  };
  void Fill();
  void ShowRow(int row, const ZmcTableRow& content);
  [[nodiscard]] ZmcTableRow RowInGrid(int row) const;
  [[nodiscard]] bool IsFactoryRow(int row) const;
  [[nodiscard]] bool CheckRows();
  [[nodiscard]] Text DescriptionOf(int row) const;
  [[nodiscard]] bool DeleteRow(int row);
  void NoteModified(int row, const Text& oldDescription);
  [[nodiscard]] std::vector<Modified>::iterator NextToSave();
  [[nodiscard]] CuttingError SaveEntry(const Modified& entry);
  [[nodiscard]] CuttingError MakeWay(Modified& entry);
  void OnPartlySaved();
  void Step(bool forward);
  [[nodiscard]] bool EnableSoftKeys();
  void UpdateSoftKeys();

  ZmcDesk& desk_;
  const ZmcTableShape shape_;
  const std::function<void()> reloadLists_;
  std::vector<ZmcTableRow> known_;  // the rows as they were last filled or committed
  std::vector<Modified> ModifiedRows_;
  int fills_ = 0;  // how often the rows were filled
  bool made_ = false;
};

}  // namespace pnl
