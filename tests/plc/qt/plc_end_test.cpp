// SPDX-License-Identifier: MIT
// The ends of the PLC message view: the host deletes the widget that owns it, at once or in the middle of a call.
#include <functional>

#include "plc_stage.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using PlcWindowEnd = PlcStage;

/// Passes everything on to the CNC's variables, and calls a function before a report is closed.
class ToldVariables final : public Variables {
 public:
  ToldVariables(Variables& own, std::function<void(WindowHandle)> closing) : own_(own), closing_(std::move(closing)) {}
  VariableInfo Bind(TextView name) override { return own_.Bind(name); }
  int ReadInt(std::int32_t id, std::int32_t& value) override { return own_.ReadInt(id, value); }
  int WriteInt(std::int32_t id, std::int32_t value, int flag) override { return own_.WriteInt(id, value, flag); }
  int ReadDouble(std::int32_t id, double& value) override { return own_.ReadDouble(id, value); }
  int WriteDouble(std::int32_t id, double value) override { return own_.WriteDouble(id, value); }
  int ReadTxt(std::int32_t id, Text& value) override { return own_.ReadTxt(id, value); }
  int WriteTxt(std::int32_t id, TextView value) override { return own_.WriteTxt(id, value); }
  int UpdateCache(std::int32_t id) override { return own_.UpdateCache(id); }
  int OpenReport(std::int32_t id, WindowHandle window) override { return own_.OpenReport(id, window); }
  int CloseReport(std::int32_t id, WindowHandle window) override {
    closing_(window);
    return own_.CloseReport(id, window);
  }
  int GeneraReport(std::int32_t id, WindowHandle window) override { return own_.GeneraReport(id, window); }

 private:
  Variables& own_;
  const std::function<void(WindowHandle)> closing_;
};

class ToldCnc final : public CncFacade {
 public:
  ToldCnc(CncFacade& own, std::function<void(WindowHandle)> closing)
      : own_(own), variables_(own.Vars(), std::move(closing)) {}
  Variables& Vars() override { return variables_; }
  Kernel& Kapi() override { return own_.Kapi(); }
  ToolTables& Tapi() override { return own_.Tapi(); }
  Utilities& Util() override { return own_.Util(); }
  Passwords& Psw() override { return own_.Psw(); }

 private:
  CncFacade& own_;
  ToldVariables variables_;
};

// A control may send a last report while it closes it.
TEST_F(PlcWindowEnd, NoMessageReachesAWindowThatIsGivingBackWhatItHad) {
  int closed = 0;
  ToldCnc told(cnc, [&](WindowHandle window) {
    ++closed;
    EXPECT_EQ(window, handle);
    EXPECT_FALSE(windows.IsAlive(window));
  });
  const ToolContext around{host, told, windows, timers, language, files, places, network, worker};
  delete tool;
  Use(tool = new ZCPLCMsgView(around, area, {}));
  tool->Start();
  EXPECT_EQ(closed, 0);
  delete tool;
  EXPECT_EQ(closed, 1);
}

TEST_F(PlcWindowEnd, TheEscapeInWhichTheHostDeletesTheWindowIsTaken) {
  Report(3);
  onHostCall = [this](const std::string& call) {
    if (call.starts_with("HostToolClosed")) delete area;
  };
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  press.ignore();
  QApplication::sendEvent(tool, &press);
  EXPECT_TRUE(tool.isNull());
  EXPECT_TRUE(press.isAccepted());
}

TEST_F(PlcWindowEnd, TheWindowMayGoInEveryCallOfTheHost) {
  delete area;
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(
      killer, {[this] {
                 MakeArea();
                 Open();
               },
               {[this] { Report(5); }, [this] { Page().Follow(u"http://example.com"); }, [this] { Help(u"film.avi"); },
                [this] { Key(Qt::Key_Escape), Settle(); }, [this] { File(u"plan.bmp"); },
                [this] { Key(Qt::Key_Escape), Settle(); }, [this] { Key(Qt::Key_Escape), Settle(); }},
               [this] { delete area; },
               [this] {
                 Settle();
                 delete area;
                 EXPECT_EQ(cnc.OpenReports(), 0u);
               }});
  EXPECT_THAT(calls, testing::IsSupersetOf({"HostMayOpenTool", "HostToolOpening", "HostToolClosed", "HostForwardKey",
                                            "HostShowMessage"}));
}

}  // namespace
}  // namespace pnl::test
