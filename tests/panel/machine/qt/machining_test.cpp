// SPDX-License-Identifier: MIT
// The machining calculator in the panel: its ways in and out, the block in the program, who has the keyboard and the
// bars, what the message zone shows, and what goes on meanwhile.
#include <gtest/gtest.h>

#include "panel/machine/qt/machining_fixture.h"
#include "ui/operator_keys.h"
#include "ui/question.h"
#include "ui/theme.h"

namespace panel {
namespace {

using namespace machining;
using Fault = pnl::rig::MachineControl::Fault;

const std::string kInfo = ";### ZMC # Structural steel S275JR # End milling, roughing # T3\n";
const std::string kToolLine = "T3              " + kInfo;
const std::string kSpeedLine = "G97 S3580           " + kInfo;

class MachiningInPanel : public MachiningFixture {};

TEST_F(MachiningInPanel, ByTouchFromItsSoftKeyToTheBlockInTheProgram) {
  window_->Editor().SetProgram("G90\nM30\n", {});
  PutCaret(4);
  TouchMiddle(window_->MainBar().Key(kOpenSlot));
  ASSERT_TRUE(IsShown());
  EXPECT_TRUE(Has(Box(kMaterial)));
  PickByTouch(kMaterial, "Structural steel S275JR");
  PickByTouch(kOperation, "End milling, roughing");
  PickByTouch(kToolBox, "T3");
  EXPECT_FALSE(window_->SideBar().Key(kInsertSlot)->isEnabled()) << "nothing would be in the block";
  for (const int check : {kToolCheck, kSCheck}) TouchMiddle(Control(check));
  TouchAt(Grid(kGrid)->viewport(), Grid(kGrid)->visualRect(Grid(kGrid)->model()->index(0, 3)).center(), true);
  TypeOnKeyboard("180");
  Press(Qt::Key_Return);
  EXPECT_EQ(FieldText(kS), "3580");
  ASSERT_TRUE(window_->SideBar().Key(kInsertSlot)->isEnabled());
  TouchMiddle(window_->SideBar().Key(kInsertSlot));
  EXPECT_EQ(ProgramText(), "G90\n" + kToolLine + kSpeedLine + "M30\n");
  EXPECT_FALSE(IsShown());
  EXPECT_FALSE(session_.IsToolOpen(kTool));
  EXPECT_TRUE(Has(Program()));
  EXPECT_EQ(window_->SideBar().Menu(), 0u);
}

TEST_F(MachiningInPanel, ByKeyboardFromItsShortcutToTheBlockInTheProgram) {
  Press(Qt::Key_D, Qt::ControlModifier);
  ASSERT_TRUE(IsShown());
  for (const int id : {kMaterial, kOperation}) {
    ASSERT_TRUE(Has(Box(id))) << id;
    Press(Qt::Key_Space, {}, " ");
    ASSERT_TRUE(Box(id)->view()->isVisible()) << id;
    for (int i = 0; i < 20; ++i) Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    EXPECT_EQ(Box(id)->currentIndex(), 0) << id;
  }
  ASSERT_TRUE(Has(Grid(kGrid)));
  Press(Qt::Key_Return);
  TypeOnKeyboard("180");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(kGrid, 1, 3), "180");
  while (!Has(Control(kToolCheck))) {
    ASSERT_FALSE(Has(Box(kToolBox))) << "the focus went past it";
    Press(Qt::Key_Tab);
  }
  Press(Qt::Key_Space, {}, " ");
  EXPECT_TRUE(IsChecked(kToolCheck));
  Press(Qt::Key_Tab);
  ASSERT_TRUE(Has(Box(kToolBox)));
  Box(kToolBox)->lineEdit()->selectAll();
  TypeOnKeyboard("T3");
  Press(Qt::Key_Return);
  while (!Has(Control(kSCheck))) {
    ASSERT_FALSE(Has(Box(kMaterial))) << "the focus went past it";
    Press(Qt::Key_Tab);
  }
  Press(Qt::Key_Space, {}, " ");
  Press(Qt::Key_Insert);
  EXPECT_EQ(ProgramText(), kToolLine + kSpeedLine);
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(Has(Program()));
}

TEST_F(MachiningInPanel, OneStepBackRemovesTheBlockAndNothingElse) {
  struct Row {
    const char* what;
    int caret;
    int anchor;
    std::string after;
  };
  const std::string block = kToolLine + kSpeedLine;
  const Row rows[] = {{"behind what was typed", 5, -1, "G0 X1" + block},
                      {"in a word", 1, -1, "G" + block + "0 X1"},
                      {"over a selection", 2, 0, block + " X1"},
                      {"over everything, marked from its end", 0, 5, block}};
  Open();
  Choose();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    Press(Qt::Key_Escape);
    window_->Editor().SetProgram({}, {});
    Editor().setFocus();
    TypeOnKeyboard("G0 X1");
    ASSERT_EQ(ProgramText(), "G0 X1");
    PutCaret(row.caret, row.anchor);
    Open();
    Send(kInsert);
    EXPECT_EQ(ProgramText(), row.after);
    Editor().undo();
    EXPECT_EQ(ProgramText(), "G0 X1");
  }
}

TEST_F(MachiningInPanel, ABlockWaitsForAProgramThatIsStillComing) {
  const QString text = QString("G1 X100 Y100 Z100 F1000\n").repeated(60'000);
  Open();
  Choose();
  window_->Editor().Fill(text, "BIG.NC");
  ASSERT_TRUE(window_->Editor().Filling());
  op_->SendCommand(kTool, kInsert);
  ASSERT_TRUE(window_->Editor().Filling());
  ASSERT_TRUE(WaitWhile([this] { return window_->Editor().Filling(); }, 60'000));
  EXPECT_EQ(ProgramText(), kToolLine + kSpeedLine + text.toStdString());
  Editor().undo();
  EXPECT_EQ(ProgramText(), text.toStdString());
}

TEST_F(MachiningInPanel, OverTheCommandLineTheBlockGoesToTheProgramAndSoDoesTheKeyboard) {
  Do(Action::kOpenMdi);
  Type("G0");
  Open();
  Choose();
  Send(kInsert);
  EXPECT_EQ(ProgramText(), kToolLine + kSpeedLine);
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0");
  EXPECT_TRUE(Has(Program()));
  EXPECT_EQ(session_.SideBar().first, PNL_TOOL_MDI) << "the command line is still open";
}

TEST_F(MachiningInPanel, OpenedAgainItShowsWhatWasChosen) {
  Open();
  Choose();
  const PnlWindow window = session_.ToolWindow(kTool);
  Send(kInsert);
  ASSERT_FALSE(IsShown());
  EXPECT_EQ(window_->MainBar().Menu(), 0u);
  Open();
  EXPECT_EQ(session_.ToolWindow(kTool), window);
  EXPECT_EQ(session_.ToolWindows().size(), 3u) << "with the error window and the message view";
  EXPECT_EQ(Box(kMaterial)->currentText(), "Structural steel S275JR");
  EXPECT_EQ(Box(kToolBox)->currentText(), "T3");
  EXPECT_EQ(Cell(kGrid, 1, 3), "180");
  EXPECT_EQ(FieldText(kS), "3580");
  EXPECT_TRUE(IsChecked(kSCheck));
  EXPECT_TRUE(Has(Box(kMaterial)));
  EXPECT_EQ(session_.MainBar().first, kTool);
  EXPECT_NE(window_->MainBar().Menu(), 0u);
  EXPECT_TRUE(window_->MainBar().Items()[0].checked);
  EXPECT_TRUE(window_->SideBar().Key(kInsertSlot)->isEnabled());
}

TEST_F(MachiningInPanel, ItsKeyBringsAnOpenOneToTheFrontWithItsTab) {
  Open();
  Send(kMaterialsTab);
  Do(Action::kOpenCalculator);
  ASSERT_TRUE(Has(Tool(PNL_TOOL_CALCULATOR)));
  Do(Action::kOpenMachining);
  EXPECT_TRUE(Has(Grid(kMaterials)));
  EXPECT_EQ(session_.MainBar().first, kTool);
}

TEST_F(MachiningInPanel, ItOpensTheCalculatorAndIsOpenedByIt) {
  Open();
  Send(kMaterialsTab);
  Send(kCalculator);
  EXPECT_FALSE(IsShown());
  EXPECT_FALSE(session_.IsToolOpen(kTool));
  ASSERT_TRUE(Has(Line(PNL_TOOL_CALCULATOR)));
  EXPECT_EQ(session_.MainBar().first, PNL_TOOL_CALCULATOR);
  op_->SendCommand(PNL_TOOL_CALCULATOR, kFromCalculator);
  Settle();
  EXPECT_EQ(Tool(PNL_TOOL_CALCULATOR), nullptr);
  ASSERT_TRUE(IsShown());
  EXPECT_TRUE(Has(Box(kMaterial)));
  EXPECT_EQ(session_.MainBar().first, kTool);
  Send(kCalculator);
  EXPECT_TRUE(Has(Line(PNL_TOOL_CALCULATOR)));
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Has(Program()));
  EXPECT_EQ(window_->MainBar().Menu(), 0u);
}

TEST_F(MachiningInPanel, EscapeEndsWhatIsInnermostFirst) {
  Open();
  Choose();
  Box(kMaterial)->setFocus();
  Press(Qt::Key_Space, {}, " ");
  ASSERT_TRUE(Box(kMaterial)->view()->isVisible());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Box(kMaterial)->view()->isVisible());
  ASSERT_TRUE(IsShown());
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(IsShown());
  rig_.Machine()->Reset();
  rig_.Cnc().ClearErrors();
  Advance(1000);
  ASSERT_FALSE(ErrorsShown());
  EXPECT_TRUE(Has(Box(kMaterial)));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(Has(Program()));
}

TEST_F(MachiningInPanel, TheKeyCloseClosesItWhateverIsBeingTyped) {
  for (const int id : {kToolBox, kRemark, kGrid, kF}) {
    Open();
    Control(id)->setFocus();
    if (id != kToolBox) Press(Qt::Key_Return);
    TypeOnKeyboard("1");
    ASSERT_TRUE(IsShown()) << id;
    TouchMiddle(window_->MainBar().Key(kCloseSlot));
    EXPECT_FALSE(IsShown()) << id;
    EXPECT_TRUE(Has(Program())) << id;
  }
}

TEST_F(MachiningInPanel, TheErrorWindowHasTheKeyboardWhileItIsShown) {
  Open();
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_TRUE(Has(Errors()));
  EXPECT_EQ(session_.MainBar().first, kTool) << "the error window has no soft keys";
  Type("x");
  TouchAt(Box(kMaterial), QPoint(4, 4));
  EXPECT_TRUE(Has(Errors()));
}

TEST_F(MachiningInPanel, TheMachineIsHeldAndStoppedOverIt) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  ASSERT_EQ(op_->Machine().channelStatus, 2);
  Open();
  Press(Qt::Key_F10);
  EXPECT_EQ(op_->Machine().channelStatus, 4);
  TouchMiddle(window_->Keys().Key(Action::kReset));
  Advance(500);
  EXPECT_EQ(op_->Machine().channelStatus, 1);
  rig_.Machine()->EmergencyStop(true);
  Settle();
  EXPECT_FALSE(op_->Can(Action::kCycleStart));
  EXPECT_TRUE(IsShown());
  rig_.Machine()->EmergencyStop(false);
}

TEST_F(MachiningInPanel, ItFillsTheToolAreaAtEverySize) {
  Open();
  for (const QSize size : {QSize(800, 600), QSize(1600, 860), QSize(640, 480)}) {
    window_->ResizeToolArea(size);
    Settle();
    EXPECT_EQ(Window()->geometry(), QRect(QPoint(0, 0), size));
    EXPECT_EQ(Grid(kGrid)->parentWidget()->size(), size);
    EXPECT_TRUE(Window()->rect().contains(QRect(Control(kF)->mapTo(Window(), QPoint()), Control(kF)->size())));
  }
}

TEST_F(MachiningInPanel, AClosedOneFillsTheToolAreaThatHasChangedMeanwhile) {
  Open();
  Press(Qt::Key_Escape);
  window_->ResizeToolArea(QSize(1000, 700));
  Open();
  EXPECT_EQ(Window()->size(), QSize(1000, 700));
  EXPECT_EQ(Grid(kGrid)->parentWidget()->size(), QSize(1000, 700));
}

TEST_F(MachiningInPanel, TheHelpKeyOpensTheManualAtItsMark) {
  Open();
  Do(Action::kHelp);
  const auto mark = rig_.Cnc().Get(u"E.HELPDATA");
  ASSERT_TRUE(mark);
  EXPECT_EQ(std::get<std::u16string>(*mark), u"OPT0330");
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_HELP);
  EXPECT_EQ(Zone(), "");
}

TEST_F(MachiningInPanel, ItsThreeLinesOfMessagesHaveTheirColoursAndCanBeRead) {
  Open();
  const auto show = [this](int color, int line, const char16_t* text) {
    PnlSendMessage(session_.ToolWindow(kTool), PnlRegisterMessage("ZMC_SHOWMSG"), color | line << 16,
                   reinterpret_cast<intptr_t>(text));
  };
  show(2, 3, u"third");
  show(0, 1, u"first");
  show(1, 2, u"second");
  Settle();
  EXPECT_EQ(Zone(), "first|second|third");
  const QColor backs[] = {QColor(100, 128, 44), QColor(100, 128, 100), QColor(160, 0, 0)};
  for (std::size_t i = 0; i < 3; ++i) {
    const ZoneLine& line = window_->Zone().Lines()[i];
    EXPECT_EQ(line.back, backs[i]) << i;
    EXPECT_GE(theme::Contrast(line.back, line.fore), theme::kLeastContrast) << i;
  }
  EXPECT_EQ(window_->Zone().Lines()[0].fore, QColor(Qt::black)) << "a text that can be read keeps its colour";
  PnlSendMessage(session_.ToolWindow(kTool), PnlRegisterMessage("ZMC_RESETMSG"), 0, 0);
  Settle();
  EXPECT_EQ(Zone(), "second|third");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Zone(), "") << "lines of a tool that has closed";
}

TEST_F(MachiningInPanel, AnotherToolsClosingLeavesItsLines) {
  Open();
  PnlSendMessage(session_.ToolWindow(kTool), PnlRegisterMessage("ZMC_SHOWMSG"), 2 << 16,
                 reinterpret_cast<intptr_t>(u"second"));
  Do(Action::kOpenCalculator);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Zone(), "second");
}

TEST_F(MachiningInPanel, WithoutAFolderForItsDataItSaysThatItCannotOpen) {
  const std::u16string folder = rig_.Files().Path(118);
  rig_.Files().SetPath(118, u"Q:\\NOWHERE");
  Do(Action::kOpenMachining);
  EXPECT_EQ(Zone(), Say(Word::kMachiningMissing).toStdString());
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(Has(Program()));
  Do(Action::kOpenCalculator);
  op_->SendCommand(PNL_TOOL_CALCULATOR, kFromCalculator);
  Settle();
  EXPECT_EQ(Zone(), Say(Word::kMachiningMissing).toStdString());
  rig_.Files().SetPath(118, folder);
  Open();
  Press(Qt::Key_Escape);
  // It keeps the files that it began with; now their folder goes.
  const QString there = QString::fromStdString(*rig_.Files().HostPath(folder));
  ASSERT_TRUE(QDir().rename(there, there + "-away"));
  ASSERT_TRUE(QFile(there).open(QIODevice::WriteOnly)) << "a file in its place";
  Do(Action::kOpenMachining);
  EXPECT_EQ(Zone(), Say(Word::kMachiningMissing).toStdString()) << "a closed one that opens again";
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(Has(Program()));
  EXPECT_TRUE(QFile::remove(there));
  EXPECT_TRUE(QDir().rename(there + "-away", there));
}

TEST_F(MachiningInPanel, AnotherLanguageMeanwhileLeavesItAtWork) {
  Open();
  Choose();
  PnlSetLanguage("es");
  Send(kMaterialsTab);
  EXPECT_TRUE(Has(Grid(kMaterials)));
  Send(kMainTab);
  Send(kInsert);
  EXPECT_EQ(ProgramText(), kToolLine + kSpeedLine);
  session_.DestroyTool(session_.ToolWindow(kTool));
  Open();
  EXPECT_EQ(window_->MainBar().Items()[1].text, "Materiales");
  PnlSetLanguage("en");
}

}  // namespace
}  // namespace panel
