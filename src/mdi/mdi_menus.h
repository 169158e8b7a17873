// SPDX-License-Identifier: MIT
// The soft-key menus of the command line: loading them, which of them is in which bar, which items can be pressed, and
// the exchange of one item while an item of the list is edited. What the commands do is elsewhere.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "facade/kernel.h"
#include "host/host_api.h"
#include "host/language.h"
#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"

namespace pnl {

namespace mdi_command {
inline constexpr int kDeleteItem = 32771;
inline constexpr int kChangeItem = 32772;
inline constexpr int kNewItem = 32773;
inline constexpr int kEndEdit = 32774;
inline constexpr int kSaveProgram = 32775;
inline constexpr int kClearList = 32776;
inline constexpr int kCancelBlock = 40000;
inline constexpr int kMoveUp = 40003;
inline constexpr int kMoveDown = 40004;
inline constexpr int kSwitchPosition = 40005;
inline constexpr int kSwitchLength = 40006;
}  // namespace mdi_command

class MdiMenus {
 public:
  /// How the menus reach the host. The call throws WindowGone once the tool has ended.
  using HostAccess = std::function<const HostBridge&()>;

  MdiMenus(Language& language, Kernel& kernel, HostAccess host)
      : language_(language), kernel_(kernel), host_(std::move(host)) {}

  /// Loads the three menus with their bitmaps and helpers, and texts 7 and 8.
  void Load(const MdiSettings& settings);
  void Destroy();
  /// May the soft key's command run in this state? The guard is the same for every sender. False for an id that isn't
  /// known.
  [[nodiscard]] static bool MayRun(std::intptr_t id, const MDIDATA_ST& record);
  /// Language text 8.
  [[nodiscard]] const Text& ProgramTitle() const { return programTitle_; }

  /// Begins, changes or ends the editing of a list item (mdi_edit), with the menu's exchange of items.
  void SetEdit(MDIDATA_ST& record, std::int32_t edit);
  /// Gives the bars their menus by role and state, with listCount items in the list box. In State 4 it writes to the
  /// black box whether the block can be cancelled.
  void Install(const MDIDATA_ST& record, int listCount);
  /// Greys and enables the items of the MDA menu. Nothing in MDI role, or without a record.
  void Update(const MDIDATA_ST* record, int listCount);
  /// Bitmaps and helpers of the position menu by the settings.
  void UpdatePositionItems(const MdiSettings& settings);
  void InstallPositionMenu();

 private:
  [[nodiscard]] MenuTable& Table() { return language_.Menus(); }
  void SetItem(MenuHandle menu, int id, int bitmap, TextView helper);
  void EnableListCommands(bool enabled);
  void EnableOnly(int id);
  void PutEndEditIn();
  void PutMoveUpBack();
  void GreyItems(const MDIDATA_ST& record, int listCount);
  [[nodiscard]] bool CancelIsOffered(const MDIDATA_ST& record);

  Language& language_;
  Kernel& kernel_;
  const HostAccess host_;
  // A menu that the language doesn't have is 0.
  MenuHandle cancel_ = 0;
  MenuHandle mda_ = 0;
  MenuHandle position_ = 0;
  Text endEdit_;  // language text 7
  Text programTitle_;
  Text moveUpCaption_;  // what item 40003 reads when no edit has its place
};

}  // namespace pnl
