// SPDX-License-Identifier: MIT
#include "library/library_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QWidget>

#include "host/records.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

class NotingSink : public rig::EventSink {
 public:
  void Cnc(std::string_view name, const std::vector<rig::Value>&, const rig::Value&) override {
    lines.push_back("cnc " + std::string(name));
  }
  void Write(std::u16string_view name, const rig::Value&, bool ok) override {
    lines.push_back("write " + ToUtf8(name) + (ok ? "" : " failed"));
  }
  void MessageToHost(PnlWindow, std::uint32_t message, std::intptr_t first, std::intptr_t) override {
    lines.push_back("message " + std::to_string(message) + " " + std::to_string(first));
  }
  void Box(std::u16string_view title, std::u16string_view text, std::string_view style,
           std::string_view answer) override {
    lines.push_back("box " + ToUtf8(title) + "|" + ToUtf8(text) + "|" + std::string(style) + "|" + std::string(answer));
  }
  std::vector<std::string> lines;
};

class RigTest : public ::testing::Test {
 protected:
  RigTest() {
    rig::Drive drive;
    drive.dir = folder_.Path().string();
    rig_.Files().SetDrive(drive);
    rig_.UseManualTime();
  }
  test::TempFolder folder_;
  Library library_;
  LibraryRig rig_{library_};
};

TEST_F(RigTest, AdvanceFiresTimersInOrderAndSettlesWhatEachPosts) {
  std::vector<std::string> log;
  struct Context {
    std::vector<std::string>* log;
  } context{&log};
  QWidget host;
  const WindowHandle window = WindowRegistry::Instance().Attach(
      &host,
      [](void* c, PnlWindow, std::uint32_t, std::intptr_t first, std::intptr_t) -> std::intptr_t {
        static_cast<Context*>(c)->log->push_back("posted " + std::to_string(first));
        return 0;
      },
      &context);
  library_.Windows().Post(window, {1, 0, 0});
  for (const int due : {20, 10}) {
    library_.Timers().Start(due, true, [this, &log, window, due] {
      log.push_back("tick " + std::to_string(due));
      library_.Windows().Post(window, {1, due, 0});
    });
  }
  rig_.Advance(20);
  EXPECT_THAT(log, ElementsAre("posted 0", "tick 10", "posted 10", "tick 20", "posted 20"));
}

TEST_F(RigTest, WithRealTimeAdvanceDoesNothing) {
  Library other;
  LibraryRig real(other);
  bool ticked = false;
  other.Timers().Start(100000, true, [&] { ticked = true; });
  real.Advance(200000);
  EXPECT_FALSE(ticked);
  EXPECT_EQ(real.Open().timers, 1u);
}

struct AnswerCase {
  BoxStyle style;
  const char* word;
  BoxAnswer answer;
  const char* told;
};

TEST_F(RigTest, BoxesAreAnsweredByTheWordForTheirStyleAndTold) {
  const AnswerCase cases[] = {
      {BoxStyle::kInfo, "ok", BoxAnswer::kOk, "box t|x|info|ok"},
      {BoxStyle::kError, "no", BoxAnswer::kOk, "box t|x|error|ok"},
      {BoxStyle::kQuestion, "yes", BoxAnswer::kYes, "box t|x|question|yes"},
      {BoxStyle::kQuestion, "ok", BoxAnswer::kYes, "box t|x|question|yes"},
      {BoxStyle::kQuestion, "no", BoxAnswer::kNo, "box t|x|question|no"},
      {BoxStyle::kQuestion, "cancel", BoxAnswer::kCancel, "box t|x|question|cancel"},
  };
  for (const AnswerCase& row : cases) {
    NotingSink sink;
    rig_.SetSink(&sink);
    rig_.AnswerBoxes([&row](std::string_view) { return std::string(row.word); });
    EXPECT_EQ(library_.Windows().ShowBox(0, {u"t", u"x", row.style}), row.answer);
    EXPECT_THAT(sink.lines, ElementsAre(row.told));
  }
  rig_.SetSink(nullptr);
}

TEST_F(RigTest, TheSinkHearsOfEverythingInOrderUntilItIsTakenAway) {
  NotingSink sink;
  rig_.SetSink(&sink);
  QWidget host;
  const WindowHandle window = WindowRegistry::Instance().Attach(&host, nullptr, nullptr);
  sim::SimulatedCnc& cnc = *library_.Simulation();
  rig_.Cnc().Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
  cnc.Kapi().SetMdi(1, 1);
  ZCVariable(cnc.Vars(), u"E.XPLRDATA").WriteInt(5);
  library_.Windows().Send(window, {0x801, 41, 0});
  EXPECT_THAT(sink.lines, ElementsAre("cnc SetMdi", "write E.XPLRDATA", "message 2049 41"));
  rig_.SetSink(nullptr);
  library_.Windows().Send(window, {0x801, 42, 0});
  cnc.Kapi().SetMdi(1, 0);
  EXPECT_EQ(sink.lines.size(), 3u);
}

TEST_F(RigTest, TextsClipboardAndCountsAreThoseOfTheLibrary) {
  rig_.SetText(7, u"Done");
  EXPECT_EQ(library_.Texts().LoadToolText(7), u"Done");
  library_.Windows().SetClipboardText(u"G1 X1");
  EXPECT_EQ(rig_.ClipboardText(), u"G1 X1");
  const rig::Rig::Counts before = rig_.Open();
  const MenuHandle menu = library_.Menus().Create({});
  int record = 0;
  const std::int32_t number = PublishRecord(&record);
  library_.Timers().Start(10, false, [] {});
  EXPECT_EQ(rig_.Open().menus, before.menus + 1);
  EXPECT_EQ(rig_.Open().records, before.records + 1);
  EXPECT_EQ(rig_.Open().timers, before.timers + 1);
  library_.Menus().Destroy(menu);
  WithdrawRecord(number);
}

TEST_F(RigTest, TheMachineRunsABlockOnTheManualClock) {
  ASSERT_TRUE(rig_.StartMachine("demo"));
  HostApi = {};
  QWidget host;
  const WindowHandle tool = library_.LoadTool(6, WindowRegistry::Instance().Attach(&host, nullptr, nullptr));
  ASSERT_EQ(library_.Windows().Send(tool, {PNL_MSG_TOOL_COMMAND, 2, 1}), 0);
  rig::MachineControl& machine = *rig_.Machine();
  const double before = machine.State().axes.at(0).position;
  EXPECT_NE(library_.Simulation()->Kapi().CogerPlcFree(0, 1), 0);
  ASSERT_EQ(library_.Simulation()->Kapi().MDILine(0, u"G91 G1 X10 F1000", 0, 4, 0), 0);
  rig_.Advance(60000);
  EXPECT_NEAR(machine.State().axes.at(0).position, before + 10, 1e-6);
  EXPECT_EQ(machine.State().channelStatus, 1);
}

}  // namespace
}  // namespace pnl
