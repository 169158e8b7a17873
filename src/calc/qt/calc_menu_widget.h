// SPDX-License-Identifier: MIT
// The calculator's menu as a bar on its window. It shows the menu data as they are when a menu opens and tells which
// item was chosen; a menu that has gone is empty.
#pragma once

#include <QtWidgets/QMenuBar>

#include "window/menu.h"

namespace pnl {

class CalcMenuWidget final : public QMenuBar {
  Q_OBJECT

 public:
  CalcMenuWidget(MenuTable& menus, MenuHandle menu, QWidget* parent);

 signals:
  void Chosen(int id);

 private:
  void Fill(QMenu& shown, MenuHandle menu);
  MenuTable& menus_;
};

}  // namespace pnl
