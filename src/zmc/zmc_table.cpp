// SPDX-License-Identifier: MIT
#include "zmc/zmc_table.h"

#include <algorithm>
#include <map>
#include <utility>

namespace pnl {
namespace {

constexpr int kDescription = 1;
constexpr TextView kFactoryOrigin = u"O";
constexpr TextView kCustomOrigin = u"C";

}  // namespace

ZmcTable::ZmcTable(ZmcDesk& desk, const ZmcTableShape& shape, std::function<void()> reloadLists)
    : desk_(desk), shape_(shape), reloadLists_(std::move(reloadLists)) {}

void ZmcTable::OnShown() {
  if (!std::exchange(made_, true)) {
    desk_.View().MakeTab(shape_.tab);
    SetHeader();
  }
  const MenuHandle menu = desk_.menus.RebuildTabMenu(shape_.tab);
  if (fills_ == 0) Fill();
  const auto [column, ascending] = SortColumn();
  Grid().ShowSortMarker(column, ascending);
  (void)EnableSoftKeys();
  desk_.Host().HostSetSideMenu(PNL_TOOL_MACHINING_CALCULATOR, menu);
  desk_.View().FocusGrid(shape_.tab);
}

// Rows.

void ZmcTable::Fill() {
  ++fills_;
  ModifiedRows_.clear();
  known_ = Rows();
  // The grid is asked for anew each time: a row that goes moves its selection, and the host hears of that.
  Grid().RemoveAllRows();
  for (const ZmcTableRow& content : known_) ShowRow(Grid().AddRow(), content);
  if (!known_.empty()) Grid().Select({1, kDescription});
  Grid().Redraw();
}

void ZmcTable::Refill() {
  if (fills_ != 0 && !IsDirty()) Fill();
}

void ZmcTable::ShowRow(int row, const ZmcTableRow& content) {
  ZmcGrid& grid = Grid();
  SetKinds(row);
  for (int col = 1; col <= shape_.columns; ++col) {
    if (col == shape_.hiddenColumn) {
      grid.SetChecked(row, col, content.hidden);
    } else if (col == shape_.originColumn) {
      grid.SetCellText(row, col, content.factory ? kFactoryOrigin : kCustomOrigin);
    } else {
      grid.SetCellText(row, col, content.cells[static_cast<std::size_t>(col - 1)]);
    }
  }
  grid.SetRowState(row, content.factory ? zmc_row_state::kFactory : zmc_row_state::kNormal);
}

ZmcTableRow ZmcTable::RowInGrid(int row) const {
  const ZmcGrid& grid = Grid();
  ZmcTableRow content;
  for (int col = 1; col <= shape_.columns; ++col) content.cells.push_back(grid.CellText(row, col));
  content.cells[static_cast<std::size_t>(shape_.hiddenColumn - 1)].clear();
  content.cells[0] = Text(Trim(content.cells[0]));
  content.hidden = grid.IsChecked(row, shape_.hiddenColumn);
  content.factory = IsFactoryRow(row);
  return content;
}

bool ZmcTable::IsFactoryRow(int row) const { return Grid().CellText(row, shape_.originColumn) == kFactoryOrigin; }

void ZmcTable::AddRow() {
  ZmcGrid& grid = Grid();
  if (grid.IsEditing()) grid.CommitEdit();
  const int row = grid.AddRow();
  ZmcTableRow content;
  content.cells.resize(static_cast<std::size_t>(shape_.columns));
  ShowRow(row, content);
  known_.push_back(std::move(content));
  NoteModified(row, {});
  grid.Select({row, kDescription});
  UpdateSoftKeys();
  desk_.View().FocusGrid(shape_.tab);
  Grid().BeginEdit({row, kDescription});
}

void ZmcTable::OnCommitted(int row, int col) {
  const auto at = static_cast<std::size_t>(row - 1);
  if (row < 1 || at >= known_.size() || col < 1 || col > shape_.columns) return;
  ZmcTableRow& known = known_[at];
  const Text oldDescription = known.cells[0];
  const ZmcGrid& grid = Grid();
  if (col == shape_.hiddenColumn) {
    const bool hidden = grid.IsChecked(row, col);
    if (known.hidden == hidden) return;
    known.hidden = hidden;
  } else {
    Text text = grid.CellText(row, col);
    Text& before = known.cells[static_cast<std::size_t>(col - 1)];
    if (before == text) return;
    before = std::move(text);
  }
  NoteModified(row, oldDescription);
  UpdateSoftKeys();
}

void ZmcTable::NoteModified(int row, const Text& oldDescription) {
  const bool noted = std::any_of(ModifiedRows_.begin(), ModifiedRows_.end(),
                                 [row](const Modified& entry) { return entry.row == row; });
  if (!noted) ModifiedRows_.push_back({row, oldDescription, oldDescription});
}

void ZmcTable::OnHeaderClicked(int col) {
  if (col < 1 || col > shape_.sortColumns || !CanLeave() || IsDirty()) return;
  OrderBy(col);
  Fill();
  const auto [column, ascending] = SortColumn();
  Grid().ShowSortMarker(column, ascending);
  UpdateSoftKeys();
  reloadLists_();
}

bool ZmcTable::EnableSoftKeys() {
  const int row = Grid().Current().row;
  const bool deleted =
      desk_.menus.Enable(shape_.tab, shape_.deleteItem, row >= 1 && row < Grid().Rows() && !IsFactoryRow(row));
  return desk_.menus.Enable(shape_.tab, shape_.saveItem, IsDirty()) || deleted;
}

void ZmcTable::UpdateSoftKeys() {
  if (EnableSoftKeys()) desk_.Host().HostUpdateSideMenu(PNL_TOOL_MACHINING_CALCULATOR);
}

// Keys.

bool ZmcTable::OnKey(ZmcKey key, const std::function<void()>& close) {
  ZmcGrid& grid = Grid();
  const bool editing = grid.IsEditing();
  switch (key) {
    case ZmcKey::kEscape:
      if (!editing) close();
      return !editing;
    case ZmcKey::kTab:
    case ZmcKey::kBackTab:
      if (editing) grid.CommitEdit();
      Step(key == ZmcKey::kTab);
      return true;
    case ZmcKey::kEnter: {
      const ZmcCell cell = grid.Current();
      if (editing) {
        grid.CommitEdit();
      } else if (cell.col != shape_.hiddenColumn && !grid.IsReadOnly(cell.row, cell.col)) {
        grid.BeginEdit(cell);
        return true;
      }
      Step(true);
      return true;
    }
    default:
      return false;
  }
}

/// To the next cell, or the one before, row by row; the first and the last cell of the table are the ends.
void ZmcTable::Step(bool forward) {
  ZmcGrid& grid = Grid();
  const int columns = shape_.columns - 1;  // the origin isn't shown
  const int cells = (grid.Rows() - 1) * columns;
  const ZmcCell at = grid.Current();
  const int cell = (at.row - 1) * columns + at.col - 1 + (forward ? 1 : -1);
  if (cell >= 0 && cell < cells) grid.Select({cell / columns + 1, cell % columns + 1});
}

// Deleting.

void ZmcTable::DeleteRows() {
  ZmcGrid& grid = Grid();
  if (grid.IsEditing()) grid.CancelEdit();
  const auto [first, last] = grid.SelectedRows();
  if (first < 1 || last >= grid.Rows()) return;
  for (int row = first; row <= last; ++row) {
    if (!IsFactoryRow(row)) continue;
    desk_.ShowInfo(zmc_text::kFactoryRow);
    desk_.View().FocusGrid(shape_.tab);
    return;
  }
  const int fills = fills_;
  const bool agreed = last > first ? desk_.AskYesNoMany(zmc_text::kDeleteMany)
                                   : desk_.AskYesNoWith(zmc_text::kDeleteOne, grid.CellText(first, kDescription));
  // The rows may have been filled anew while the question was open; then these are others.
  if (!agreed || fills_ != fills) return;
  bool deleted = true;
  for (int row = last; row >= first && deleted; --row) deleted = DeleteRow(row);
  Grid().Redraw();
  UpdateSoftKeys();
  reloadLists_();
}

/// A row whose record can't be taken out of the file stays.
bool ZmcTable::DeleteRow(int row) {
  const auto entry = std::find_if(ModifiedRows_.begin(), ModifiedRows_.end(),
                                  [row](const Modified& modified) { return modified.row == row; });
  const Text description = entry != ModifiedRows_.end() ? entry->storedAs : Grid().CellText(row, kDescription);
  if (desk_.data.CanAccessUserFile() && !desk_.CheckStored(DeleteRecord(description))) return false;
  if (entry != ModifiedRows_.end()) ModifiedRows_.erase(entry);
  for (Modified& modified : ModifiedRows_) {
    if (modified.row > row) --modified.row;
  }
  known_.erase(known_.begin() + (row - 1));
  Grid().RemoveRow(row);
  return true;
}

// Saving.

bool ZmcTable::CanLeave() {
  if (Grid().IsEditing()) Grid().CommitEdit();
  if (!IsDirty()) return true;
  if (desk_.AskYesNo(shape_.saveQuestion)) return SaveTable(false);
  Fill();
  UpdateSoftKeys();
  return true;
}

/// A changed row needs a description, and one that no other row has.
bool ZmcTable::CheckRows() {
  std::map<Text, int> rowsWith;
  for (int row = 1; row < Grid().Rows(); ++row) ++rowsWith[DescriptionOf(row)];
  bool good = true;
  for (const Modified& entry : ModifiedRows_) {
    const Text description = DescriptionOf(entry.row);
    const bool rowGood = !description.empty() && rowsWith[description] == 1;
    Grid().SetRowState(entry.row, rowGood ? zmc_row_state::kNormal : zmc_row_state::kRefused);
    good = good && rowGood;
  }
  return good;
}

Text ZmcTable::DescriptionOf(int row) const { return Text(Trim(Grid().CellText(row, kDescription))); }

/// The first entry that can be saved, as the store finds a record by its description: a row that takes another one's
/// description waits until that one has its new one. The end when rows pass theirs on in a circle.
std::vector<ZmcTable::Modified>::iterator ZmcTable::NextToSave() {
  return std::find_if(ModifiedRows_.begin(), ModifiedRows_.end(), [this](const Modified& entry) {
    const Text description = DescriptionOf(entry.row);
    return std::none_of(ModifiedRows_.begin(), ModifiedRows_.end(),
                        [&](const Modified& other) { return other.row != entry.row && other.storedAs == description; });
  });
}

CuttingError ZmcTable::SaveEntry(const Modified& entry) {
  const ZmcTableRow content = RowInGrid(entry.row);
  const CuttingError error = SaveRow(content, entry.oldDescription, entry.storedAs);
  if (error != CuttingError::kNone) return error;
  // The record has this description from now on, and is found by it when the row is changed again.
  Grid().SetCellText(entry.row, kDescription, content.cells[0]);
  known_[static_cast<std::size_t>(entry.row - 1)].cells[0] = content.cells[0];
  return error;
}

/// Opens a circle: the entry's record gets a description that nobody has, until it can get its own.
CuttingError ZmcTable::MakeWay(Modified& entry) {
  ZmcTableRow content = RowInGrid(entry.row);
  Text& free = content.cells[0];
  const auto isTaken = [&] {
    return std::any_of(known_.begin(), known_.end(), [&](const ZmcTableRow& row) { return row.cells[0] == free; }) ||
           std::any_of(ModifiedRows_.begin(), ModifiedRows_.end(),
                       [&](const Modified& other) { return other.storedAs == free; });
  };
  while (isTaken()) free += u'_';
  const CuttingError error = SaveRow(content, entry.oldDescription, entry.storedAs);
  if (error == CuttingError::kNone) entry.storedAs = free;
  return error;
}

/// The rest waits. What is in the file is in the lists, in which the next save looks for the old records.
void ZmcTable::OnPartlySaved() {
  for (Modified& waiting : ModifiedRows_) waiting.oldDescription = waiting.storedAs;
  reloadLists_();
}

bool ZmcTable::SaveTable(bool refill) {
  if (Grid().IsEditing()) Grid().CommitEdit();
  if (!CheckRows()) {
    desk_.ShowInfo(zmc_text::kRowsRefused);
    desk_.View().FocusGrid(shape_.tab);
    return false;
  }
  // An entry goes when its row is stored: what couldn't be stored can be tried again.
  bool stored = false;
  while (!ModifiedRows_.empty()) {
    // Nothing is said of a file that has vanished, but what the operator typed isn't dropped for it.
    if (!desk_.data.CanAccessUserFile()) return true;
    const auto next = NextToSave();
    const bool circle = next == ModifiedRows_.end();
    if (!desk_.CheckStored(circle ? MakeWay(ModifiedRows_.front()) : SaveEntry(*next))) {
      if (stored) OnPartlySaved();
      return false;
    }
    stored = true;
    if (!circle) ModifiedRows_.erase(next);
  }
  UpdateSoftKeys();
  reloadLists_();
  if (!refill) return true;
  Fill();
  UpdateSoftKeys();
  return true;
}

}  // namespace pnl
