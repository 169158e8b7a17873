// SPDX-License-Identifier: MIT
#include "calc/qt/calc_menu_widget.h"

#include <vector>

#include "calc/qt/calc_look.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kItemHeight = 15;

/// A menu's text is no place for marks of shortcuts: "&" stands for itself.
QString Plain(const Text& text) { return ToQString(text).replace(QLatin1Char('&'), QStringLiteral("&&")); }

std::vector<MenuItem> ItemsOf(const MenuTable& menus, MenuHandle handle) {
  const Menu* menu = menus.Find(handle);
  return menu == nullptr ? std::vector<MenuItem>{} : menu->items;
}

}  // namespace

CalcMenuWidget::CalcMenuWidget(MenuTable& menus, MenuHandle menu, QWidget* parent) : QMenuBar(parent), menus_(menus) {
  setNativeMenuBar(false);
  setFont(calc_look::Font(kItemHeight, calc_look::kNormalWeight));
  for (const MenuItem& item : ItemsOf(menus_, menu)) {
    if (item.hidden) continue;
    if (item.subMenu == 0) {
      connect(addAction(Plain(item.text)), &QAction::triggered, this, [this, id = item.id] { emit Chosen(id); });
      continue;
    }
    QMenu* shown = addMenu(Plain(item.text));
    shown->setFont(font());
    connect(shown, &QMenu::aboutToShow, this, [this, shown, sub = item.subMenu] { Fill(*shown, sub); });
  }
}

void CalcMenuWidget::Fill(QMenu& shown, MenuHandle menu) {
  shown.clear();
  for (const MenuItem& item : ItemsOf(menus_, menu)) {
    if (item.hidden) continue;
    if (item.subMenu != 0) {
      QMenu* sub = shown.addMenu(Plain(item.text));
      sub->setFont(font());
      connect(sub, &QMenu::aboutToShow, this, [this, sub, handle = item.subMenu] { Fill(*sub, handle); });
      continue;
    }
    QAction* action = shown.addAction(Plain(item.text));
    action->setEnabled(item.enabled);
    action->setCheckable(item.checked);
    action->setChecked(item.checked);
    connect(action, &QAction::triggered, this, [this, id = item.id] { emit Chosen(id); });
  }
}

}  // namespace pnl
