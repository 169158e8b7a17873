// SPDX-License-Identifier: MIT
#include "help/help_menus.h"

#include <algorithm>
#include <utility>

#include "facade/utilities.h"

namespace pnl {
namespace {

constexpr TextView kMenuName = u"IDR_HELPMENU";

}  // namespace

const std::array<ManualEntry, 9> HelpMenus::m_Entries = {{
    {help_command::kManuals, 0, 3007, u"HELP1", 0},
    {2001, 0, 3009, u"HELP2", help_command::kContents},
    {2003, 0, 3010, u"HELP3", help_command::kIndex},
    {2006, 0, 3011, u"HELP4", help_command::kSearch},
    {4, ManualEntry::kByPosition, 3012, u"HELP5", 0},
    {2000, 0, 3013, u"HELP6", help_command::kHome},
    {2002, 0, 3014, u"HELP7", help_command::kBack},
    {2005, 0, 3015, u"HELP8", help_command::kForward},
    {help_command::kFindInPage, 0, 3016, u"HELP9", 0},
}};

void HelpMenus::Load() {
  Destroy();
  m_Menu = language_.LoadToolMenu(kMenuName);
  for (const ManualEntry& entry : m_Entries) {
    const bool byPosition = (entry.Flags & ManualEntry::kByPosition) != 0;
    const int id = static_cast<int>(entry.Id);
    UTIL7340_SetMenuItemBitmap(language_.Menus(), Main(), id, byPosition, entry.Bitmap);
    UTIL7340_SetMenuItemHelper(language_.Menus(), Main(), id, byPosition, entry.Helper);
  }
}

void HelpMenus::Destroy() {
  if (m_Menu == 0) return;
  UTIL7340_CleanMenu(language_.Menus(), Main());
  language_.Menus().Destroy(std::exchange(m_Menu, 0));
}

MenuHandle HelpMenus::Main() const {
  const Menu* menu = language_.Menus().Find(m_Menu);
  return menu == nullptr || menu->items.empty() ? 0 : menu->items.front().subMenu;
}

int HelpMenus::CommandOf(int id) {
  const auto found = std::find_if(m_Entries.begin(), m_Entries.end(), [id](const ManualEntry& entry) {
    return entry.Flags == 0 && entry.Id == static_cast<std::uint32_t>(id);
  });
  return found == m_Entries.end() ? 0 : found->Command;
}

}  // namespace pnl
