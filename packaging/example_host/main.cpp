// SPDX-License-Identifier: MIT
// The smallest host: one widget as the tools' parent, five of the callbacks, the command line opened in channel 1 of
// the simulated machine. Prints what the tool asks of it and ends.
#include <pnltools/pnltools.h>
#include <pnltools/rig.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QWidget>
#include <cstdio>

namespace {

void ToolOpening(int tool) { std::printf("tool %d opens\n", tool); }

void ToolClosed(int tool, int reason) { std::printf("tool %d closed, reason %d\n", tool, reason); }

void SetSideMenu(int, HostMenuRef bar) {
  PnlMenuItem item;
  for (int i = 0; i < PnlMenuItemCount(bar.menu) && PnlMenuItemAt(bar.menu, i, &item) != 0; ++i) {
    std::printf("soft key %d: %s\n", item.id, qPrintable(QString::fromUtf16(item.text)));
  }
}

void ShowMessage(int, const HostMessage* message) {
  std::printf("message: \"%s\"\n", qPrintable(QString::fromUtf16(message->text)));
}

intptr_t OnMessage(void*, PnlWindow, uint32_t message, intptr_t first, intptr_t second) {
  if (message != PNL_MSG_TOOL_NOTIFY) return 0;
  const auto* notify = reinterpret_cast<const PnlToolNotify*>(second);
  std::printf("channel %d %s\n", notify->channel, first == 41 ? "taken" : "let go");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QTemporaryDir folder;
  pnl::rig::Drive drive;
  drive.dir = folder.path().toStdString();
  PnlRig()->Files().SetDrive(drive);
  if (!PnlRig()->StartMachine("demo")) return 1;

  QWidget toolArea;
  toolArea.resize(800, 600);
  toolArea.show();
  const PnlWindow parent = PnlAttachWidget(&toolArea, OnMessage, nullptr);
  PnlSetMainWindow(parent);
  SetPNLApi(nullptr, ToolOpening, ToolClosed, nullptr, SetSideMenu, nullptr, nullptr, ShowMessage, nullptr, nullptr,
            nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);

  const PnlWindow tool = LoadPNLTool(PNL_TOOL_MDI, parent);
  const intptr_t opened = PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 2, 1);
  QApplication::processEvents();
  const intptr_t closed = PnlSendMessage(tool, PNL_MSG_TOOL_COMMAND, 5, 1);
  PnlDestroyWindow(tool);
  std::printf("opened %d, closed %d\n", static_cast<int>(opened), static_cast<int>(closed));
  return tool != 0 && opened == 0 && closed == 0 ? 0 : 1;
}
