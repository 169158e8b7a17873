// SPDX-License-Identifier: MIT
// The resting panel waits for its input and for nothing else: the kernel tells in which call the process sleeps, and
// with what time-out.
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/syscall.h>

#include <fstream>
#include <optional>
#include <string>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr int kCommandLine = 6;
constexpr int kCommand = 0x802;

/// The call that a sleeping process is in, from /proc.
struct Sleep {
  bool forEvents = false;  // in poll or ppoll
  bool endless = false;    // without a time-out, so no timer is active
};

/// Nothing while the process runs.
std::optional<Sleep> SleepOf(qint64 process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/syscall");
  long number = -1;
  std::string descriptors, count, timeout;
  if (!(file >> number >> descriptors >> count >> timeout)) return std::nullopt;
  Sleep sleep;
#ifdef SYS_poll
  if (number == SYS_poll) sleep = {true, static_cast<int>(std::stoul(timeout, nullptr, 16)) == -1};
#endif
  if (number == SYS_ppoll) sleep = {true, std::stoul(timeout, nullptr, 16) == 0};
  return sleep;
}

/// Whether the panel, once it has nothing more to do, sleeps until something comes in.
bool ComesToRest(const PanelClient& client) {
  while (client.Runs()) {
    const auto sleep = SleepOf(client.ProcessId());
    if (sleep && sleep->forEvents) return sleep->endless;
    sched_yield();
  }
  return false;
}

class Resting : public testing::Test {
 protected:
  pnl::test::TempFolder temp;
  QString root = QString::fromStdString(temp.Folder("root"));
};

TEST_F(Resting, ThePanelWithTheDemoMachineHasNoTimerActive) {
  PanelClient client({"--root", root});
  client.Call("ui.dialogs");
  EXPECT_TRUE(ComesToRest(client));
}

TEST_F(Resting, AListWithAScrollBarLeavesNoTimerActive) {
  std::string blocks;
  for (int i = 0; i < 200; ++i) blocks += "G1 X" + std::to_string(i) + " F600\r\n";
  temp.Write("root/CNC/USER/MDAC1.DAT", blocks);
  PanelClient client({"--root", root});
  const int tool = client.Load(kCommandLine);
  client.Tell(tool, kCommand, 2, 1);
  client.Tell(tool, kCommand, 8, 1);
  ASSERT_EQ(client.Control(tool, 5001)["items"].toArray().size(), 200);
  client.Call("ui.capture", {{"file", QString::fromStdString((temp.Path() / "panel.png").string())}});
  EXPECT_TRUE(ComesToRest(client));
}

TEST_F(Resting, ThePanelHasNoTimerActiveBehindAnOpenedAndClosedTool) {
  PanelClient client({"--root", root});
  const int tool = client.Load(kCommandLine);
  client.Tell(tool, kCommand, 2, 1);
  client.Tell(tool, kCommand, 5, 1);
  EXPECT_TRUE(ComesToRest(client));
}

}  // namespace
}  // namespace panel::test
