// SPDX-License-Identifier: MIT
// How the operator calls blocks back with the open drop list: by typing on, which narrows it to what begins as typed,
// by arranging it so that the refused block and the pinned ones come first, and by pinning. It decides what the list
// and its two keys show. It opens and closes nothing; MdiScreen does. Without an open list every call does nothing.
#pragma once

#include <utility>

#include "host/language.h"
#include "mdi/mdi_pins.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiRecall {
 public:
  /// Everything that is passed must outlive the object.
  MdiRecall(MdiViewAccess view, MdiScreen& screen, MdiPins& pins, const Language& language)
      : view_(std::move(view)), screen_(screen), pins_(pins), language_(language) {}

  /// Shows marks and keys in a list that has just been opened with the history.
  void Begin(const MDIDATA_ST& record);
  /// Changes between the history and the arranged rows.
  void Switch(const MDIDATA_ST& record);
  /// Types into the edit and arranges the list by what the edit has then.
  void Type(const MDIDATA_ST& record, TextView text);
  void Erase(const MDIDATA_ST& record);
  /// Pins or unpins the selected block. Returns false if that couldn't be stored.
  [[nodiscard]] bool Pin(MDIDATA_ST& record);
  /// The selection of the list has changed.
  void OnSelection(const MDIDATA_ST& record) { ShowKeys(record); }

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  [[nodiscard]] MdiDropRows Rows(const MDIDATA_ST& record) const;
  void Show(const MDIDATA_ST& record, const MdiDropRows& rows);
  void ShowKeys(const MDIDATA_ST& record);

  const MdiViewAccess view_;
  MdiScreen& screen_;
  MdiPins& pins_;
  const Language& language_;
};

}  // namespace pnl
