// SPDX-License-Identifier: MIT
#include "zmc/zmc_menus.h"

#include <utility>

#include "facade/utilities.h"

namespace pnl {
namespace {

struct MenuRow {
  ZmcTab tab;
  int id;
  TextView helper;
  int bitmap;
};

constexpr MenuRow kItems[] = {
    {ZmcTab::kMain, zmc_command::kInsert, u"ZMC_INSERTAR", 32902},
    {ZmcTab::kMain, zmc_command::kCopy, u"ZMC_COPIAR", 32777},
    {ZmcTab::kMain, zmc_command::kCalculator, u"CALC_STANDARD", 32822},
    {ZmcTab::kMaterials, zmc_command::kAddMaterial, u"ZMC_ANMAT", 32779},
    {ZmcTab::kMaterials, zmc_command::kDeleteMaterials, u"ZMC_BORRARMAT", 32781},
    {ZmcTab::kMaterials, zmc_command::kSaveMaterials, u"ZMC_GUARDARTAB_MAT", 32783},
    {ZmcTab::kMaterials, zmc_command::kCalculator, u"CALC_STANDARD", 32822},
    {ZmcTab::kOperations, zmc_command::kAddOperation, u"ZMC_ANOPE", 32785},
    {ZmcTab::kOperations, zmc_command::kDeleteOperations, u"ZMC_BORRAROPE", 32787},
    {ZmcTab::kOperations, zmc_command::kSaveOperations, u"ZMC_GUARDARTAB_OPE", 32788},
    {ZmcTab::kOperations, zmc_command::kCalculator, u"CALC_STANDARD", 32822},
};

constexpr TextView kTabMenus[] = {u"3026", u"3031", u"3032"};
constexpr int kTabItems[] = {zmc_command::kMainTab, zmc_command::kMaterialsTab, zmc_command::kOperationsTab};

}  // namespace

MenuHandle ZmcMenus::LoadFrameMenu() {
  if (frame_ == 0) frame_ = language_.LoadToolMenu(u"IDR_ZMC_MENU");
  return frame_;
}

MenuHandle ZmcMenus::RebuildTabMenu(ZmcTab tab) {
  MenuHandle& menu = tabs_[static_cast<std::size_t>(tab)];
  if (menu != 0) language_.Menus().Destroy(menu);
  menu = language_.LoadToolMenu(kTabMenus[static_cast<std::size_t>(tab)]);
  for (const MenuRow& row : kItems) {
    if (row.tab != tab) continue;
    UTIL7340_SetMenuItemBitmap(language_.Menus(), menu, row.id, false, row.bitmap);
    UTIL7340_SetMenuItemHelper(language_.Menus(), menu, row.id, false, row.helper);
  }
  return menu;
}

void ZmcMenus::Destroy() {
  for (MenuHandle* menu : {&frame_, &tabs_[0], &tabs_[1], &tabs_[2]}) {
    if (*menu != 0) language_.Menus().Destroy(std::exchange(*menu, 0));
  }
}

void ZmcMenus::CheckTab(ZmcTab tab) {
  for (const ZmcTab each : kZmcTabs) {
    MenuItem* item = language_.Menus().FindItem(frame_, kTabItems[static_cast<std::size_t>(each)]);
    if (item != nullptr) item->checked = each == tab;
  }
}

bool ZmcMenus::Enable(ZmcTab tab, int id, bool on) {
  MenuItem* item = language_.Menus().FindItem(TabMenu(tab), id);
  return item != nullptr && std::exchange(item->enabled, on) != on;
}

}  // namespace pnl
