// SPDX-License-Identifier: MIT
// The MDA list: what becomes of its items in the store and in the list box, and the commands and keys that work on it.
// Store and box contain the same items but for one deliberate difference, described at Delete. Knows no channel but the
// record it is given.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "mdi/mdi_data.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// A change of the store that the list box doesn't show yet.
struct MdiListChange {
  enum class Kind { kAppended, kInserted, kReplaced };
  Kind kind = Kind::kAppended;
  int index = 0;  // of the item; unused for an appended one, since the box may be shorter than the store
  Text text;
};

class MdiList {
 public:
  /// screen and menus outlive the list.
  MdiList(MdiViewAccess view, MdiScreen& screen, MdiMenus& menus)
      : view_(std::move(view)), screen_(screen), menus_(menus) {}

  /// Puts the block in hand into the store where its role says: at the end of the list (MDI), before the selected item
  /// (a new item) or in the place of the item being changed. Nothing, and no change, for an empty block or one that was
  /// run straight from the list. shown: the list box shows this record's list. Asks the window for nothing but its
  /// selection.
  [[nodiscard]] std::optional<MdiListChange> Store(MDIDATA_ST& record, bool shown);
  /// Shows a change of the store in the list box, selects the item there and ends the edit. alreadyThere: the box was
  /// filled from the store after the change; then it only ends the edit.
  void Show(MDIDATA_ST& record, const MdiListChange& change, bool alreadyThere = false);

  // Commands, for the record whose list the box shows. Each ends with the menus.
  /// Takes the selected item out of the list box only: the store keeps it and isn't marked, so it is back at the next
  /// load.
  void Delete(const MDIDATA_ST& record);
  void Change(MDIDATA_ST& record);
  void New(MDIDATA_ST& record);
  void EndEdit(MDIDATA_ST& record);
  void Clear(MDIDATA_ST& record);
  /// Up is towards index 0; both ends are joined. Leaves the menus alone.
  void Move(MDIDATA_ST& record, bool up);
  /// The Enter key in MDA role: begins an edit, or stores the edited item without running it.
  void Enter(MDIDATA_ST& record);
  /// The list box got the focus: an edit of an item ends. Calls nobody outside, and leaves the menus to OnFocusSettled.
  void OnFocus(MDIDATA_ST& record);

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  void UpdateMenus(const MDIDATA_ST& record) { menus_.Update(&record, View().ListCount()); }

  const MdiViewAccess view_;
  MdiScreen& screen_;
  MdiMenus& menus_;
};

}  // namespace pnl
