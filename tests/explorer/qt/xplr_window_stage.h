// SPDX-License-Identifier: MIT
// The explorer's window in a panel's window, off screen, over real folders: it gets real keys and presses, and its jobs
// run on threads. A request for a file in "C:\P100" is in `request`.
#pragma once

#include <QScrollBar>

#include "explorer/qt/xplr_window.h"
#include "explorer/xplr_settings.h"
#include "host/records.h"
#include "support/window_stage.h"

namespace pnl::test {

class XplrWindowStage : public WindowStage {
 protected:
  XplrWindowStage() : WindowStage({912, 936}, {4, 162, 800, 600}) {
    ForgetQualityTest();
    cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
    Disc("C:\\P15\\LPNLTOOLS.DLL", "");
    Disc("C:\\P100\\A.NC", "G0\n");
    Disc("C:\\P100\\B.TXT", "text");
    static_cast<void>(DiscFiles(drives).MakeFolder(u"C:\\P100\\SUB\\DEEP"));
    Disc("C:\\P100\\SUB\\C.NC", "G1\n");
    SetField(request.Title, u"Pick");
    SetField(request.Path, u"C:\\P100");
    SetField(request.Filter, u"*");
    request.Owner = 1006;
  }
  ~XplrWindowStage() override { WithdrawRecord(PublishRecord(&request)); }

  void Open() {
    Begin(context);
    Idle();
  }
  /// Opens it without waiting for anything.
  void Begin(const ToolContext& in) {
    ZCVariable(cnc.Vars(), u"E.XPLRDATA").WriteInt(PublishRecord(&request));
    explorer = new ZCExplorer(in, area);
    Use(explorer);
    explorer->Start();
  }
  /// Until every listing has ended and everything that it posted was handled.
  void Idle() {
    do {
      while (worker.IsBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      Settle();
    } while (worker.IsBusy());
  }
  [[nodiscard]] ZCXPLRList* List() const { return static_cast<ZCXPLRList*>(Control(xplr_control::kList)); }
  [[nodiscard]] ZCFolderTree* Tree() const { return static_cast<ZCFolderTree*>(Control(xplr_control::kTree)); }
  [[nodiscard]] QLineEdit* Name() const { return static_cast<QLineEdit*>(Control(xplr_control::kName)); }
  [[nodiscard]] QStringList Rows() const {
    QStringList names;
    for (int row = 0; row < List()->model()->rowCount(); ++row)
      names << List()->model()->index(row, 0).data().toString();
    return names;
  }
  void PressRow(int row, QEvent::Type type = QEvent::MouseButtonPress) {
    const QPoint middle = List()->visualRect(List()->model()->index(row, 0)).center();
    PressMouse(List()->viewport(), middle, type);
    Idle();
  }
  void PressKeyAndIdle(int key, const QString& text = {}) {
    Key(key, {}, text);
    Idle();
  }

  XPLRDATA_ST request{};
  QPointer<ZCExplorer> explorer;
};

class XplrWindowTest : public XplrWindowStage {};

}  // namespace pnl::test
