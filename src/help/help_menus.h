// SPDX-License-Identifier: MIT
// The help viewer's soft-key menu "IDR_HELPMENU" with its bitmaps and helper words, and what each of its commands does.
// Changes only the menu's data; its owner hands the menu to the host.
//
//   item            bitmap  command  what the viewer does
//   2004   HELP1    3007             shows the picker of manuals
//   2001   HELP2    3009     65740   shows the contents, or hides the panes if they are shown
//   2003   HELP3    3010    102400   the same with the index
//   2006   HELP4    3011    102403   the same with the search
//   place 4 HELP5   3012             opens the menu of the four below
//   2000   HELP6    3013       205   shows the manual's home page
//   2002   HELP7    3014     65745   goes back
//   2005   HELP8    3015    102402   goes forward
//   40002  HELP9    3016             opens the line for a text to find in the page
//                            71559   moves the focus one pane on; no item has it
#pragma once

#include <array>
#include <cstdint>

#include "host/language.h"

namespace pnl {

namespace help_command {
// Of the menu.
inline constexpr int kManuals = 2004;
inline constexpr int kFindInPage = 40002;
// Of the help window.
inline constexpr int kContents = 65740;
inline constexpr int kIndex = 102400;
inline constexpr int kSearch = 102403;
inline constexpr int kHome = 205;
inline constexpr int kBack = 65745;
inline constexpr int kForward = 102402;
inline constexpr int kNextPane = 71559;
}  // namespace help_command

struct ManualEntry {
  std::uint32_t Id;     // a menu command, or a position with kByPosition
  std::uint32_t Flags;  // 0 or kByPosition
  int Bitmap;
  TextView Helper;
  int Command;  // for the help window; 0 for none

  static constexpr std::uint32_t kByPosition = 1024;
};

class HelpMenus {
 public:
  explicit HelpMenus(Language& language) : language_(language) {}
  ~HelpMenus() { Destroy(); }
  HelpMenus(const HelpMenus&) = delete;
  HelpMenus& operator=(const HelpMenus&) = delete;

  /// Loads the menu, after it has destroyed an older one, and dresses its nine items.
  void Load();
  /// Removes bitmaps and helper words and destroys the menu. A second call does nothing.
  void Destroy();
  /// The part for the bar; 0 when the language has no such menu.
  [[nodiscard]] MenuHandle Main() const;
  /// The help window's command for a menu command; 0 for an item without one.
  [[nodiscard]] static int CommandOf(int id);

  static const std::array<ManualEntry, 9> m_Entries;

 private:
  Language& language_;
  MenuHandle m_Menu = 0;
};

}  // namespace pnl
