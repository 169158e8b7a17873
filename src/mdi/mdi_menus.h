// SPDX-License-Identifier: MIT
// The soft-key menus of the command line. This class loads them, decides which menu is in which bar and which items can
// be pressed, and exchanges one item while an item of the list is edited. The commands themselves are elsewhere.
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
  /// Returns the host. Throws WindowGone if the tool has ended.
  using HostAccess = std::function<const HostBridge&()>;

  MdiMenus(Language& language, Kernel& kernel, HostAccess host)
      : language_(language), kernel_(kernel), host_(std::move(host)) {}

  /// Loads the three menus with their bitmaps and helpers, and texts 7 and 8.
  void Load(const MdiSettings& settings);
  void Destroy();
  /// Whether a command may run in the record's state. It is asked for every sender of the command. False for an unknown
  /// id.
  [[nodiscard]] static bool MayRun(std::intptr_t id, const MDIDATA_ST& record);
  /// Language text 8: the title of the explorer and of message boxes.
  [[nodiscard]] const Text& ProgramTitle() const { return programTitle_; }

  /// Begins, changes or ends the edit of a list item. edit is a value of mdi_edit. Exchanges the items of the menu.
  void SetEdit(MDIDATA_ST& record, std::int32_t edit);
  /// Gives the bars the menus for the record's role and state. listCount is the number of items in the list box. In
  /// State 4 it writes to the black box whether the block can be cancelled.
  void Install(const MDIDATA_ST& record, int listCount);
  /// Enables and disables the items of the MDA menu. Does nothing in MDI role or without a record.
  void Update(const MDIDATA_ST* record, int listCount);
  /// Sets the bitmaps and helpers of the position menu to match the settings.
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
  // Each handle is 0 if the language does not have the menu.
  MenuHandle cancel_ = 0;
  MenuHandle mda_ = 0;
  MenuHandle position_ = 0;
  Text endEdit_;  // language text 7
  Text programTitle_;
  Text moveUpCaption_;  // the text of item 40003, for the time after the edit
};

}  // namespace pnl
