// SPDX-License-Identifier: MIT
// The explorer's real window over real folders and simulated drives, with threads of its own.
#pragma once

#include "explorer/qt/xplr_window.h"
#include "explorer/xplr_settings.h"
#include "host/records.h"
#include "support/window_stage.h"

namespace pnl::test {

class XplrWindowTest : public WindowStage {
 protected:
  XplrWindowTest() : WindowStage({912, 936}, {4, 162, 800, 600}) {
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
  ~XplrWindowTest() override { WithdrawRecord(PublishRecord(&request)); }

  void Open() {
    ZCVariable(cnc.Vars(), u"E.XPLRDATA").WriteInt(PublishRecord(&request));
    explorer = new ZCExplorer(context, area);
    Use(explorer);
    explorer->Start();
    Idle();
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

}  // namespace pnl::test
