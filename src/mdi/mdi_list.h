// SPDX-License-Identifier: MIT
// The MDA list: how its items change in the record and in the list box, and the commands and keys that work on it. The
// list in the record is called the store. Store and list box have the same items except for the deliberate difference
// at Delete. The class knows only the record that it is given.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "mdi/mdi_data.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_removed.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// A change of the store that the list box does not show yet.
struct MdiListChange {
  enum class Kind { kAppended, kInserted, kReplaced };
  Kind kind = Kind::kAppended;
  int index = 0;  // the item's index; unused for kAppended, because the box may be shorter than the store
  Text text;
};

class MdiList {
 public:
  /// screen and menus must outlive the list.
  MdiList(MdiViewAccess view, MdiScreen& screen, MdiMenus& menus)
      : view_(std::move(view)), screen_(screen), menus_(menus) {}

  /// Puts the block in hand into the store: at the end of the list in MDI role, before the selected item if it is a new
  /// item, or in place of the item that is being changed. Returns nothing and changes nothing if the block is empty or
  /// was started from the list itself. shown says that the list box shows this record's list. Asks the window only for
  /// its selection.
  [[nodiscard]] std::optional<MdiListChange> Store(MDIDATA_ST& record, bool shown);
  /// Shows a change of the store in the list box, selects the item there and ends the edit. If alreadyThere is set, the
  /// box was filled from the store after the change, and this only ends the edit.
  void Show(MDIDATA_ST& record, const MdiListChange& change, bool alreadyThere = false);

  // Commands for the record whose list the box shows. Each of them updates the menus at its end.
  /// Removes the selected item only from the list box. The store keeps it and isn't marked as changed, so the item is
  /// back when the list is filled again.
  void Delete(const MDIDATA_ST& record);
  void Change(MDIDATA_ST& record);
  void New(MDIDATA_ST& record);
  void EndEdit(MDIDATA_ST& record);
  void Clear(MDIDATA_ST& record);
  /// Moves the selected item by one place. Up is towards index 0. From one end it goes to the other end. Does not
  /// update the menus.
  void Move(MDIDATA_ST& record, bool up);
  /// Handles the Enter key in MDA role: begins an edit, or stores the edited item without running it.
  void Enter(MDIDATA_ST& record);
  /// Ends the edit of an item, because the list box got the focus. Calls nobody outside. OnFocusSettled updates the
  /// menus.
  void OnFocus(MDIDATA_ST& record);

  /// What Delete and Clear have removed.
  [[nodiscard]] MdiRemoved& Removed() { return removed_; }
  [[nodiscard]] const MdiRemoved& Removed() const { return removed_; }
  /// Puts the last removal back: an item where it was in the list box, or a list before what came into it since.
  /// Returns the number of rows. Returns 0 and changes nothing when there is none for this record, a block is under
  /// way, or an item is being edited.
  std::size_t PutBack(MDIDATA_ST& record);

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  void UpdateMenus(const MDIDATA_ST& record) { menus_.Update(&record, View().ListCount()); }

  const MdiViewAccess view_;
  [[nodiscard]] TextRows BoxRows(const MDIDATA_ST& record) const;
  void PutBackList(MDIDATA_ST& record, const MdiRemoval& removal);

  MdiScreen& screen_;
  MdiMenus& menus_;
  MdiRemoved removed_;
};

}  // namespace pnl
