// SPDX-License-Identifier: MIT
// The way of a block: from the start key to the kernel, and with its status reports into history and list. Between the
// kernel's acceptance and the next report the record's State is what the panel believes. Nothing here uses the time.
// The caller decides whether a start is wanted, and that none happens while the explorer is open.
#pragma once

#include <cstdint>
#include <utility>

#include "facade/cnc_facade.h"
#include "mdi/mdi_channels.h"
#include "mdi/mdi_holding.h"
#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_refusal.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiBlocks {
 public:
  /// Everything that is passed must outlive the object.
  MdiBlocks(CncFacade& cnc, MdiViewAccess view, MdiChannels& channels, MdiHolding& holding, MdiList& list,
            MdiMenus& menus, MdiScreen& screen)
      : kernel_(cnc.Kapi()),
        refusals_(cnc.Kapi(), cnc.Vars()),
        view_(std::move(view)),
        channels_(channels),
        holding_(holding),
        list_(list),
        menus_(menus),
        screen_(screen) {}

  /// Handles the start key, or with fromKey false the start that the CNC grants during an inspection. Sends the block
  /// in hand, or lets an interrupted block go on. Does nothing if the channel isn't current, open and held.
  void Start(MDIDATA_ST& record, bool fromKey);
  /// Handles a change of the channel's status. Returns false and changes nothing if the status can't be read.
  [[nodiscard]] bool OnStatusReport(MDIDATA_ST& record);

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  [[nodiscard]] bool PickBlock(MDIDATA_ST& record);
  void Send(MDIDATA_ST& record);
  void ShowRefusal(MDIDATA_ST& record, const Text& block, std::int32_t errorsBefore);
  void OnReady(MDIDATA_ST& record);
  void OnBlockDone(MDIDATA_ST& record);
  void OnAborted(MDIDATA_ST& record);
  void ChangeState(MDIDATA_ST& record, std::int32_t from, std::int32_t to);
  void ReinstallMenus(const MDIDATA_ST& record);
  void UpdateMenus(const MDIDATA_ST& record) { menus_.Update(&record, View().ListCount()); }

  Kernel& kernel_;
  const MdiRefusals refusals_;
  const MdiViewAccess view_;
  MdiChannels& channels_;
  MdiHolding& holding_;
  MdiList& list_;
  MdiMenus& menus_;
  MdiScreen& screen_;
};

}  // namespace pnl
