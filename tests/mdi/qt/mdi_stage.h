// SPDX-License-Identifier: MIT
// A command line in a panel's window, off screen. Not the logic's fixture: here real widgets get real events.
#pragma once

#include <string>

#include "controls/list_box.h"
#include "controls/zwc_static.h"
#include "mdi/qt/mdi_window.h"
#include "support/window_stage.h"

namespace pnl::test {

class MdiStage : public WindowStage {
 protected:
  MdiStage();

  /// Makes the tool in the parent, by default the area, and starts it. Files on the disc must be there before.
  void Make() { Make(area); }
  void Make(QWidget* parent) {
    Use(tool = new ZCMDIWindow(context, parent));
    tool->Start();
  }
  void Open();
  void OpenMda();
  void SwitchRole() { Command(8, 0); }
  std::intptr_t Command(std::intptr_t code, std::intptr_t argument = 1) {
    return Send(PNL_MSG_TOOL_COMMAND, code, argument);
  }
  void StartKey();
  /// The control reports a status byte.
  void Status(int byte);
  /// A file of the operator's settings folder.
  void Disc(const std::string& name, const std::string& bytes) const { WindowStage::Disc("C:\\P108\\" + name, bytes); }
  /// History of that many blocks.
  void History(int blocks) const;

  [[nodiscard]] MdiEdit* Edit() const { return tool->findChild<MdiEdit*>(); }
  [[nodiscard]] ListBox* List() const { return qobject_cast<ListBox*>(Control(5001)); }
  [[nodiscard]] ZWCStatic* Title() const { return qobject_cast<ZWCStatic*>(Control(5003)); }
  [[nodiscard]] ZWCStatic* Sign() const { return qobject_cast<ZWCStatic*>(Control(3003)); }
  /// The open drop list; null when none is.
  [[nodiscard]] ZCMDIList* Drop() const;
  [[nodiscard]] ListBox* DropItems() const { return Drop()->findChild<ListBox*>(); }
  void Key(int key, const QString& text = {}) { WindowStage::Key(key, {}, text); }
  void PressSign() { PressMouse(Sign(), QPoint(5, 5)); }

  QPointer<ZCMDIWindow> tool;
};

}  // namespace pnl::test
