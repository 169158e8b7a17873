// SPDX-License-Identifier: MIT
// The ends of the PLC message view: whoever destroys its window, in whatever call, the operation under way ends without
// it.
#include "plc/plc_rig.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::IsEmpty;
using testing::IsSupersetOf;

class PlcEnd : public PlcToolTest {
 protected:
  PlcEnd() {
    Message(0, 3, u"oil is low", u"text.txt#3");
    Message(0, 5, u"door is open", u"film.avi");
  }
  FatalScene Scene(std::vector<std::function<void()>> steps) {
    return {[this] { MakeTool(); }, std::move(steps), [this] { DestroyTool(); },
            [this] {
              DestroyTool();
              EXPECT_EQ(timers.Running(), 0u);
              EXPECT_EQ(cnc.OpenReports(), 0u);
              windows.posted.clear();
            }};
  }
};

TEST_F(PlcEnd, TheWindowMayGoInEveryCallOfTheHost) {
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(
      killer, Scene({[this] { Report(5); }, [this] { Report(3); }, [this] { File(u"page.htm"); },
                     [this] { Help(u"text.txt#1"); }, [this] { Call(&PlcSession::OnLinkRefused, TextView(u"x:y")); },
                     [this] { Key(PlcKey::kEscape); }, [this] { ToolCommand(20); }, [this] { ToolCommand(34); },
                     [this] { Call(&PlcSession::OnLinkRefused, TextView(u"x:y")); }, [this] { Key(PlcKey::kEscape); },
                     [this] { Help(u"none.htm"); }, [this] { HideHelp(); }, [this] { Report(0); }}));
  EXPECT_THAT(calls, IsSupersetOf({"HostMayOpenTool", "HostToolOpening", "HostToolClosed", "HostShowMessage",
                                   "HostForwardKey"}));
}

TEST_F(PlcEnd, AnEndedLogicDoesNothing) {
  MakeTool();
  Report(3);
  const std::shared_ptr<PlcSession> kept = tool;
  DestroyTool();
  All();
  EXPECT_TRUE(kept->HasEnded());
  EXPECT_FALSE(RunOperation(kept, [](PlcSession&) { ADD_FAILURE(); }));
  kept->End();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(cnc.OpenReports(), 0u);
}

TEST_F(PlcEnd, AReportThatWaitsForADeadWindowReachesNobody) {
  MakeTool();
  EXPECT_TRUE(cnc.Set(u"E.PLCMSGDATA", std::int64_t{3}));
  DestroyTool();
  Drain();
  EXPECT_THAT(HostCalls(), IsEmpty());
}

}  // namespace
}  // namespace pnl::test
