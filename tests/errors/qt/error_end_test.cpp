// SPDX-License-Identifier: MIT
// The ends of the error window: the host deletes the widget that owns it, at once, in the middle of a key, a touch, a
// message or a report.
#include "error_stage.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::IsSupersetOf;

class ErrorWindowEnd : public ErrorStage {
 protected:
  ErrorWindowEnd() { cnc.ErrorText("error_to_txt", 1001, u"\nbroken", u"C:\\H.TXT#7", false); }
  FatalScene Scene(std::vector<std::function<void()>> steps) {
    return {[this] {
              Renew();
              Open();
            },
            std::move(steps), [this] { delete area; },
            [this] {
              Settle();
              Renew();
              cnc.ClearErrors();
              EXPECT_EQ(timers.Running(), 0u);
              EXPECT_EQ(cnc.OpenReports(), 0u);
              EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "still waits";
              EXPECT_EQ(panel.findChild<QShortcut*>(), nullptr);
            }};
  }
  /// A fresh parent for the next tool.
  void Renew() {
    delete area;
    MakeArea();
  }
  std::function<void()> Pushing(const RecordBuilder& record) {
    return [this, record] { Push(record); };
  }
  std::function<void()> Pressing(int key) {
    return [this, key] { Key(key); };
  }
  std::function<void()> Touching(int id) {
    return [this, id] { Touch(id); };
  }
  std::function<void()> Telling(std::uint32_t message, std::intptr_t first = 0, std::intptr_t second = 0) {
    return [this, message, first, second] { Send(message, first, second); };
  }
  std::function<void()> HotKey() {
    return [this] { emit panel.findChild<QShortcut*>()->activated(); };
  }
};

TEST_F(ErrorWindowEnd, TheHostMayDeleteItsParentInEveryCallback) {
  DeletingHost killer(table);
  const std::uint32_t helpEnded = RegisterMessage("ZM_END_ERRORHELP");
  const auto calls = PlayWithEachCallFatal(
      killer, Scene({Pushing(RecordBuilder()), Pushing(RecordBuilder().Number(1001)), HotKey(), HotKey(),
                     [this] { TouchTwice(tool, QPoint(3, 3)); }, HotKey(), Touching(error_id::kNext),
                     Touching(error_id::kHelp), Telling(helpEnded), Telling(PNL_MSG_HELP_KEY), Telling(helpEnded),
                     Telling(PNL_MSG_TOOL_NOTIFY, 79, 1), Telling(PNL_MSG_TOOL_NOTIFY, 79, 0), HotKey(),
                     Touching(error_id::kAcknowledge), Pressing(Qt::Key_Escape)}));
  EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostErrorsGone", "HostShowError"}));
}

TEST_F(ErrorWindowEnd, TheHostMayDeleteItsParentWhileAnErrorIsConfirmedOrWithdrawn) {
  DeletingHost killer(table);
  const auto calls =
      PlayWithEachCallFatal(killer, Scene({Pushing(RecordBuilder().Number(3753)), Pressing(Qt::Key_Return),
                                           Pushing(RecordBuilder().Severity(7)), Pressing(Qt::Key_Escape), [this] {
                                             cnc.ClearErrors();
                                             Settle();
                                           }}));
  EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostErrorsGone"}));
}

TEST_F(ErrorWindowEnd, TheHostMayDeleteItsParentWhileAProgramsLineIsStillBeingRead) {
  Disc("C:\\P1\\BIG.NC", std::string(20'000'000, 'x'));
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(killer, Scene({Pushing(RecordBuilder()
                                                                      .Source(1)
                                                                      .Text(error_field::kProgramPath, u"C:\\P1")
                                                                      .Text(error_field::kProgramName, u"BIG.NC")
                                                                      .Int(error_field::kFilePosition, 19'999'999)),
                                                          Pressing(Qt::Key_Escape)}));
  EXPECT_THAT(calls, Contains("HostErrorsGone"));
}

// The box for the missing library runs an event loop, in which the host closes its window.
TEST_F(ErrorWindowEnd, TheHostMayDeleteItsParentWhileTheBoxForTheLanguageLibraryIsOpen) {
  int boxes = 0;
  windows.SetBoxAnswerer([&](const BoxSpec&) {
    ++boxes;
    delete area;
    return BoxAnswer::kOk;
  });
  Open();
  EXPECT_EQ(boxes, 1);
  EXPECT_TRUE(tool.isNull());
}

TEST_F(ErrorWindowEnd, ADeadWindowGetsNoReport) {
  DeletingHost listener(table);
  Open();
  listener.Begin(0, {});
  delete tool;
  Push(RecordBuilder());
  timers.Advance(10000);
  EXPECT_TRUE(listener.Calls().empty());
}

TEST_F(ErrorWindowEnd, NoMessageReachesAWindowThatIsGivingBackWhatItHad) {
  Open();
  int told = 0;
  QObject::connect(panel.findChild<QShortcut*>(), &QObject::destroyed, &panel, [&] {
    ++told;
    EXPECT_FALSE(windows.IsAlive(handle));
  });
  delete tool;
  EXPECT_EQ(told, 1);
}

TEST_F(ErrorWindowEnd, TheHotKeyGoesWithTheWindow) {
  Open();
  ASSERT_NE(panel.findChild<QShortcut*>(), nullptr);
  delete tool;
  EXPECT_EQ(panel.findChild<QShortcut*>(), nullptr);
}

}  // namespace
}  // namespace pnl::test
