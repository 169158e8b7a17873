// SPDX-License-Identifier: MIT
// The panel under the signals by which a system ends a program: it closes its tools, which keep what they have, and
// ends as at the end of its input.
#include <gtest/gtest.h>

#include <csignal>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kMdi = 6;
constexpr int kCommand = 0x802;
constexpr int kOpen = 2;

class Signals : public ::testing::TestWithParam<int> {
 protected:
  // Whoever started the tests in the background may have had them ignore it, and a panel takes that over.
  Signals() { std::signal(GetParam(), SIG_DFL); }
};

TEST_P(Signals, EndThePanelAsTheEndOfInputDoes) {
  // Histories, list and settings since the opening were lost at every shutdown of the system.
  pnl::test::TempFolder temp;
  PanelClient client({"--time", "manual", "--lang", "en", "--root", QString::fromStdString(temp.Folder("root"))});
  const int mdi = client.Load(kMdi);
  ASSERT_EQ(client.Tell(mdi, kCommand, kOpen, 1), 0);
  client.Call("ui.type", {{"window", mdi}, {"text", "G1 X10 F600"}});
  EXPECT_EQ(client.Start(mdi), 0);
  client.Advance(2000);
  client.Signal(GetParam());
  EXPECT_EQ(client.WaitForEnd(), 0);
  EXPECT_EQ(temp.Read("root/CNC/USER/MDIC1.DAT"), "G1 X10 F600\r\n");
  EXPECT_EQ(temp.Read("root/CNC/USER/MDAC1.DAT"), "G1 X10 F600\r\n");
}

TEST_P(Signals, EndAPanelWhoseRepliesNobodyReads) {
  pnl::test::TempFolder temp;
  PanelClient client({"--bare", "--root", QString::fromStdString(temp.Folder("root"))});
  client.Call("ui.dialogs");
  QByteArray lines;
  for (int i = 0; i < 20000; ++i) lines += "{\"id\":1,\"method\":\"no.such.method\"}\n";
  client.Send(lines);
  client.Signal(GetParam());
  EXPECT_EQ(client.WaitForEnd(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, Signals, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(IgnoredSignals, StayIgnored) {
  // A panel that was started to outlive its terminal does.
  pnl::test::TempFolder temp;
  std::signal(SIGHUP, SIG_IGN);
  PanelClient client({"--bare", "--root", QString::fromStdString(temp.Folder("root"))});
  std::signal(SIGHUP, SIG_DFL);
  client.Call("ui.dialogs");
  client.Signal(SIGHUP);
  client.Call("ui.dialogs");
  EXPECT_EQ(client.Finish(), 0);
}

}  // namespace
}  // namespace panel::test
