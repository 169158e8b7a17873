// SPDX-License-Identifier: MIT
// A session with the command line on a CNC that only records: channel 1 is there, ready, in manual mode, and nothing
// runs unless a test says so.
#pragma once

#include <gtest/gtest.h>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {

inline constexpr int kMdi = 6;
inline constexpr int kCommand = 0x802;
inline constexpr int kOpen = 2;
inline constexpr int kHide = 3;
inline constexpr int kClose = 5;
inline constexpr int kSwitchRole = 8;
inline constexpr int kEdit = 5000;
inline constexpr int kList = 5001;
inline constexpr int kTitle = 5003;
inline constexpr qint64 kRefused = -200;
inline constexpr int kReady = 0x100;
inline constexpr int kRunning = 0x200;
inline constexpr int kInterrupted = 0x400;

class BareMdi : public ::testing::Test {
 protected:
  BareMdi()
      : client(
            {"--bare", "--lang", "none", "--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))}) {
    client.Define("[1].G.FULLSTATUS", kReady);
    client.Define("[1].G.STATUS", 1);
    client.Define("[1].G.CNCAUTSTATUS", 0);
    client.Define("[1].G.CNCMANSTATUS", 0);
    client.Define("[1].E.APISTATUS", 0);
    client.Define("[1].E.PNLMODE", 0);
    client.Define("[1].E.MANUALMODE", 1);
  }
  void Load() { mdi = client.Load(kMdi); }
  void Open() {
    Load();
    ASSERT_EQ(client.Tell(mdi, kCommand, kOpen, 1), 0);
    client.Trace();
  }
  void Status(int word) { client.Set("[1].G.FULLSTATUS", word); }
  void Type(const QString& text) { client.Call("ui.type", {{"window", mdi}, {"text", text}}); }
  void Key(const QString& key) { client.Call("ui.key", {{"window", mdi}, {"key", key}}); }
  void Command(int id) { client.Call("ui.command", {{"window", mdi}, {"id", id}}); }
  QJsonValue Items() { return client.Control(mdi, kList)["items"]; }
  /// Types a block and lets the channel run it.
  void Run(const QString& block) {
    Type(block);
    client.Start(mdi);
    Status(kRunning);
    Status(kReady);
  }

  pnl::test::TempFolder temp;
  PanelClient client;
  int mdi = 0;
};

}  // namespace panel::test
