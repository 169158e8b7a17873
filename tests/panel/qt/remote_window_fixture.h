// SPDX-License-Identifier: MIT
// A tool window with an edit and a list, on plain Qt widgets that carry the library's properties.
#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QListWidget>

#include "remote/operator_input.h"
#include "remote/settle.h"
#include "remote/window_inspector.h"

namespace panel {

template <typename W>
W* Make(QWidget* parent, int id, const QRect& place) {
  auto* widget = new W(parent);
  widget->setProperty("pnlId", id);
  widget->setGeometry(place);
  return widget;
}

/// A panel of 400 by 300 with a tool window at 10, 20 in its tool area.
class RemoteWindow : public ::testing::Test {
 protected:
  RemoteWindow() {
    panel.resize(400, 300);
    tool = new QWidget(&panel);
    tool->setGeometry(10, 20, 200, 100);
    tool->setProperty("pnlTool", 6);
    tool->setProperty("pnlTitle", "MDI");
    tool->setProperty("pnlBack", 0x05B9D2u);
    handle = PnlAttachWidget(tool, nullptr, nullptr);
    edit = Make<QLineEdit>(tool, 5000, {5, 6, 100, 20});
    list = Make<QListWidget>(tool, 5001, {5, 30, 100, 60});
    list->addItems({"G0 X1", "G1 Y2", "M30"});
  }
  void Show() {
    panel.show();
    panel.activateWindow();
    Settle();
  }
  QJsonObject Control(QWidget* control) { return WindowInspector(&panel).DescribeControl(tool, control); }
  QJsonObject Window() { return WindowInspector(&panel).DescribeWindow(tool); }
  void Key(const char* name, Qt::KeyboardModifiers modifiers = {}) { PressKey(tool, *KeyByName(name, modifiers)); }

  QWidget panel;
  QWidget* tool = nullptr;
  PnlWindow handle = 0;
  QLineEdit* edit = nullptr;
  QListWidget* list = nullptr;
};

}  // namespace panel
