// SPDX-License-Identifier: MIT
// The orders that the main tab takes, given to it directly: what they do to a control of another kind, and what they
// leave alone when nothing changes.
#include <QtGui/QShortcut>

#include "controls/qt/paint_counter.h"
#include "support/sim_fixture.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

constexpr int kNoControl = 9999;

/// The font of a label, which its class keeps to itself.
struct LabelFont : ZWCStatic {
  using ZWCStatic::Font;
};

/// Counts what a window has left for later.
struct LaterCounter : QObject {
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::MetaCall ? 1 : 0;
    return false;
  }
  int count = 0;
};

class ZmcMainTabTest : public ZmcWindowStage {
 protected:
  [[nodiscard]] ZCTabZMCMain& Tab() const { return *area->findChild<ZCTabZMCMain*>(); }
};

TEST_F(ZmcMainTabTest, AnOrderToAControlOfAnotherKindDoesNothing) {
  Open();
  const std::string material = MainText(id::kMaterial);
  Tab().SetControlText(id::kMaterial, u"Brass");
  EXPECT_EQ(MainText(id::kMaterial), material) << "a list shows what is selected in it";
  for (const int control : {id::kMaterialLabel, kNoControl}) {
    Tab().SetState(control, 1);
    EXPECT_EQ(Tab().State(control), 0) << control;
    EXPECT_FALSE(Tab().IsFieldEditing(control)) << control;
    Tab().FillList(control, {u"one"});
    EXPECT_TRUE(Tab().ListItems(control).empty()) << control;
    Tab().SelectItem(control, 0);
    EXPECT_EQ(Tab().ListSelection(control), -1) << control;
    Tab().OpenList(control, true);
    Tab().MoveInList(control, 1);
    EXPECT_FALSE(Tab().IsListOpen(control)) << control;
    EXPECT_FALSE(Tab().AcceptItem(control)) << control;
    Tab().SelectAllText(control);
    Tab().SetDigits(control, {});
  }
  for (const int control : {static_cast<int>(id::kGrid), kNoControl}) {
    Tab().SetControlText(control, u"text");
    EXPECT_EQ(Tab().ControlText(control), u"") << control;
    Tab().SetLabelColor(control, 0);
  }
  Tab().ShowControl(kNoControl, true);
  Tab().EnableControl(kNoControl, false);
  Tab().FocusControl(kNoControl);
  EXPECT_EQ(FocusedId(), id::kMaterial);
}

TEST_F(ZmcMainTabTest, ALabelIsPaintedAnewOnlyWhenItsTextIsAnother) {
  Open();
  Settle();
  const PaintCounter paints(*Main(id::kDiameterUnit));
  Tab().SetControlText(id::kDiameterUnit, u"mm");
  Settle();
  EXPECT_EQ(paints.Count(), 0);
  Tab().SetControlText(id::kDiameterUnit, u"inch");
  Settle();
  EXPECT_EQ(paints.Count(), 1);
}

TEST_F(ZmcMainTabTest, APageAnswersEveryMessageWithNothing) {
  Open();
  for (const std::uint32_t message : {RegisterMessage("ZWCEDIT_SETFOCUS"), RegisterMessage("ZWCEDIT_KILLFOCUS"),
                                      static_cast<std::uint32_t>(PNL_MSG_TOOL_COMMAND)}) {
    EXPECT_EQ(windows.Send(Tab().Handle(), {message, id::kRemark, 0}), 0) << message;
  }
}

TEST_F(ZmcMainTabTest, NoControlHasTheFocusWhenItIsElsewhereOrThePageIsHidden) {
  Open();
  EXPECT_EQ(Tab().FocusedControl(), id::kMaterial);
  other->setFocus();
  EXPECT_EQ(Tab().FocusedControl(), 0);
  Focus(id::kTool);
  EXPECT_EQ(Tab().FocusedControl(), id::kTool);
  Tab().OpenList(id::kMaterial, true);
  EXPECT_EQ(Tab().FocusedControl(), id::kMaterial) << "an open list has the keys";
  Tab().FocusControl(id::kF);
  EXPECT_FALSE(Tab().IsListOpen(id::kMaterial));
  EXPECT_EQ(Tab().FocusedControl(), id::kF);
  Tab().hide();
  EXPECT_EQ(Tab().FocusedControl(), 0);
}

TEST_F(ZmcMainTabTest, ALabelHasTheLargestLettersInWhichItsTextFitsButNoneThatCannotBeRead) {
  Open();
  auto* label = static_cast<ZWCStatic*>(Main(id::kDiameterUnit));
  const auto height = [label] { return QFontMetrics((label->*&LabelFont::Font)()).height(); };
  const int whole = height();
  const int letters = label->width() / label->fontMetrics().horizontalAdvance('H');
  Tab().SetControlText(id::kDiameterUnit, Text(static_cast<std::size_t>(letters) + 2, u'H'));
  EXPECT_LT(height(), whole);
  Tab().SetControlText(id::kDiameterUnit, Text(200, u'H'));
  EXPECT_GE(height(), 10);
  Tab().SetControlText(id::kDiameterUnit, u"mm");
  EXPECT_EQ(height(), whole);
}

TEST_F(ZmcMainTabTest, OnlyTheFocusMakesTheFrameAskWhereItIs) {
  Open();
  LaterCounter later;
  tool->installEventFilter(&later);
  for (QWidget* control : Tab().KeyReceivers()) control->update();
  Settle();
  EXPECT_EQ(later.count, 0);
  Focus(id::kFCheck);
  EXPECT_GT(later.count, 0);
}

TEST_F(ZmcMainTabTest, TheAreaOfTheToolGetsItsOwnEvents) {
  const PaintCounter paints(*area);  // asked after the tool's own filter
  Open();
  Key(Qt::Key_Escape);
  ASSERT_FALSE(tool->isVisible());
  const int before = paints.Count();
  area->update();
  Settle();
  EXPECT_EQ(paints.Count(), before + 1);
}

TEST_F(ZmcMainTabTest, TheBlockIsCopiedWithThePagesOwnWindow) {
  Open();
  RecordingSink sink;
  cnc.SetSink(&sink);
  Menu(zmc_command::kCopy);
  cnc.SetSink(nullptr);
  EXPECT_THAT(sink.Take(), testing::Contains(testing::StartsWith("UTIL7340_CopyToClipboard_Text(" +
                                                                 std::to_string(Tab().Handle()) + ",")));
}

TEST_F(ZmcMainTabTest, AKeyThatIsNotTheToolsIsLeftToThePanelAndItsShortcuts) {
  Open();
  int shots = 0;
  QShortcut shortcut(QKeySequence(Qt::Key_F6), &panel);
  QObject::connect(&shortcut, &QShortcut::activated, [&shots] { ++shots; });
  for (const int control : {id::kFCheck, id::kMaterial, id::kGrid, id::kTool}) {
    Focus(control);
    EXPECT_FALSE(Key(Qt::Key_F5)) << control;
    shots = 0;
    Key(Qt::Key_F6);
    EXPECT_EQ(shots, 1) << control;
  }
}

TEST_F(ZmcMainTabTest, NoPageIsAWindowOfItsOwnToAScript) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  for (const ZmcTab tab : kZmcTabs) EXPECT_FALSE(Page(tab)->property("pnlWindow").isValid());
  EXPECT_EQ(tool->property("pnlWindow").toLongLong(), static_cast<qlonglong>(handle));
}

TEST_F(ZmcMainTabTest, ATableTakesTheFocusFromWhateverHasIt) {
  Open();
  for (const auto& [tab, command] : {std::pair(ZmcTab::kMaterials, zmc_command::kMaterialsTab),
                                     {ZmcTab::kOperations, zmc_command::kOperationsTab}}) {
    other->setFocus();
    Menu(command);
    EXPECT_TRUE(Grid(tab)->hasFocus()) << command;
  }
}

// What the window system complains of, nobody sees but in the log of a machine.
TEST_F(ZmcMainTabTest, NothingIsAskedOfAControlThatIsNotThere) {
  static int warnings;
  warnings = 0;
  const auto before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  Menu(zmc_command::kMainTab);
  QApplication::focusWidget()->clearFocus();
  Command(PNL_COMMAND_RESTORE_FOCUS);
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), nullptr) << "a Tab that nobody gets";
  delete tool;
  qInstallMessageHandler(before);
  EXPECT_EQ(warnings, 0);
}

}  // namespace
}  // namespace pnl::test
