// SPDX-License-Identifier: MIT
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QHeaderView>

#include "zmc/qt/zmc_look.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Place = std::pair<int, int>;

constexpr ZmcTab kMat = ZmcTab::kMaterials;
constexpr ZmcTab kOps = ZmcTab::kOperations;

TEST_F(ZmcWindowTest, OpensOverTheWholeAreaWithTheFocusOnTheMaterial) {
  Open();
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(tool->geometry(), area->rect());
  EXPECT_EQ(Page(ZmcTab::kMain)->geometry(), tool->rect());
  EXPECT_EQ(FocusedId(), id::kMaterial);
  EXPECT_EQ(Page(kMat), nullptr) << "made when it is first shown";
  EXPECT_EQ(tool->property("pnlTool").toInt(), 4);
  EXPECT_EQ(TakeHostCalls(), (Log{"HostToolOpening(4)", "message \"Carbide P25\"", "side menu", "main menu"}));
}

TEST_F(ZmcWindowTest, TheFocusGoesToTheToolBoxBeforeItGoesToTheMaterial) {
  std::vector<int> ids;
  const auto watch = QObject::connect(qApp, &QApplication::focusChanged, [&](QWidget*, QWidget* now) {
    if (now != nullptr && ControlId(now) > 0) ids.push_back(ControlId(now));
  });
  Open();
  QObject::disconnect(watch);
  EXPECT_THAT(ids, ElementsAre(id::kTool, id::kMaterial));
}

TEST_F(ZmcWindowTest, ShowsTheTextsOfTheLanguageAndTheUnitsOfTheMachine) {
  Open();
  const std::pair<int, const char*> rows[] = {{id::kTitle, "MACHINING CALCULATOR"},
                                              {id::kMaterialLabel, "Material"},
                                              {id::kOperationLabel, "Operation"},
                                              {id::kRemarkLabel, "Remark"},
                                              {id::kToolLabel, "Tool"},
                                              {id::kDiameterLabel, "Diameter"},
                                              {id::kPartLabel, "Part diameter"},
                                              {id::kTeethLabel, "No. of teeth"},
                                              {id::kBandTitle, "RESULTS"},
                                              {id::kFLabel, "F"},
                                              {id::kSLabel, "S"},
                                              {id::kPowerLabel, "Cutting power"},
                                              {id::kDmcLabel, "DMC"},
                                              {id::kDiameterUnit, "mm"},
                                              {id::kTeethUnit, "z"},
                                              {id::kM6Label, "M6"},
                                              {id::kPercent, "%"}};
  for (const auto& [control, text] : rows) EXPECT_EQ(MainText(control), text) << control;
  EXPECT_EQ(CellText(0, 1), "Minimum");
  EXPECT_EQ(CellText(0, 3), "Selected");
  EXPECT_EQ(CellText(1, 0), "Cutting speed (m/min)");
  EXPECT_EQ(CellText(4, 0), "Radial pass (%)");
}

struct KindRow {
  const char* kind;
  std::vector<int> ids;
};

TEST_F(ZmcWindowTest, EveryControlHasItsIdAndKindForThoseOutside) {
  Open();
  const KindRow rows[] = {
      {"static", {3027, 3018, 3009, 3014, 3011, 3013, 3024, 3026, 3015, 3036, 3023, 3007,         3020,
                  3021, 3061, 3019, 3025, 3022, 3058, 3059, 3062, 3057, 503,  504,  id::kFormula, id::kPowerBar}},
      {"combo", {3008, 3010, 3012, 3016, 3017}},
      {"edit", {3029, 3030, 3031, 3033, 3034, 3035, 3038}},
      {"grid", {3028}},
      {"check", {225, 226, 227, 228, 229, 230, 231}},
      {"picture", {501}},
  };
  for (const KindRow& row : rows) {
    for (const int control : row.ids) {
      ASSERT_NE(Main(control), nullptr) << control;
      EXPECT_EQ(ControlKind(Main(control)), row.kind) << control;
    }
  }
  EXPECT_TRUE(Main(id::kF)->property("pnlBack").isValid());
  EXPECT_FALSE(Page(ZmcTab::kMain)->property("pnlWindow").isValid()) << "the page's controls are the frame's";
}

TEST_F(ZmcWindowTest, ATextThatSomebodyElseWroteIsShownAsItIs) {
  Disc("C:\\P118\\CondicionesCorteP.xml",
       "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><id>##</id><descripcion>&lt;b&gt;x&amp;y"
       "</descripcion></MaterialDefinition></MaterialesDefinition><Operaciones/></CondicionesCorte>");
  Open();
  EXPECT_GE(Box(id::kMaterial)->findText("<b>x&y"), 0);
}

// The mouse.

TEST_F(ZmcWindowTest, ATouchOnACheckBoxTurnsItAndStoresIt) {
  Open();
  for (const int box : {id::kFCheck, id::kSCheck, id::kRemarkCheck, id::kToolCheck, id::kDmcCheck}) {
    Touch(Main(box));
    EXPECT_NE(Check(box)->State(), 0) << box;
    EXPECT_EQ(FocusedId(), box);
  }
  EXPECT_TRUE(Main(id::kM6Check)->isVisible());
  Touch(Main(id::kM6Check));
  Touch(Main(id::kFCheck));
  delete tool;
  Open();
  EXPECT_EQ(Check(id::kFCheck)->State(), 0);
  for (const int box : {id::kSCheck, id::kRemarkCheck, id::kToolCheck, id::kM6Check, id::kDmcCheck}) {
    EXPECT_NE(Check(box)->State(), 0) << box;
  }
}

TEST_F(ZmcWindowTest, ATouchOpensAListAndATouchOnItsItemSelectsIt) {
  Open();
  Touch(Main(id::kMaterial));
  ASSERT_TRUE(Box(id::kMaterial)->IsOpen());
  EXPECT_GE(Box(id::kMaterial)->view()->visualRect(Box(id::kMaterial)->model()->index(0, 0)).height(), 34);
  TouchItem(id::kMaterial, 1);
  EXPECT_FALSE(Box(id::kMaterial)->IsOpen());
  EXPECT_EQ(MainText(id::kMaterial), "Brass");
  EXPECT_EQ(CellText(1, 1), "");
  Touch(Main(id::kTool));
  if (!Box(id::kTool)->IsOpen()) Box(id::kTool)->showPopup();
  TouchItem(id::kTool, 1);
  EXPECT_EQ(MainText(id::kTool), "T4");
  EXPECT_EQ(MainText(id::kDiameter), "6.000000");
}

TEST_F(ZmcWindowTest, TouchingTheSelectedItemAgainSelectsItAgain) {
  Open();
  EditCell(1, 3, "120");
  TakeHostCalls();
  Touch(Main(id::kMaterial));
  TouchItem(id::kMaterial, 0);
  EXPECT_THAT(TakeHostCalls(), Contains("message \"Carbide P25\""));
  EXPECT_EQ(CellText(1, 3), "120.0000000");
}

TEST_F(ZmcWindowTest, UnitsRecomputeWhenTheyAreSelected) {
  Open();
  EditCell(1, 3, "120");
  EditCell(2, 3, "0.05");
  ASSERT_EQ(MainText(id::kF), "763.800000");
  Touch(Main(id::kFUnit));
  TouchItem(id::kFUnit, 1);
  EXPECT_EQ(MainText(id::kF), "0.200000");
}

TEST_F(ZmcWindowTest, TwoTouchesOpenACellsEditAndSoDoesADoubleClick) {
  Open();
  TouchCell(1, 3);
  EXPECT_EQ(Cell(), Place(1, 3));
  EXPECT_FALSE(Grid()->IsEditing());
  TouchCell(1, 3);
  EXPECT_TRUE(Grid()->IsEditing());
  Key(Qt::Key_Escape);
  TouchCell(2, 3);
  PressMouse(Grid()->viewport(), CellPlace(2, 3, ZmcTab::kMain), QEvent::MouseButtonDblClick);
  EXPECT_TRUE(Grid()->IsEditing());
  Key(Qt::Key_Escape);
  TouchCell(1, 1);
  TouchCell(1, 1);
  EXPECT_FALSE(Grid()->IsEditing()) << "the limit of a factory pair";
}

TEST_F(ZmcWindowTest, ATouchOutsideEndsAnEditWithItsValue) {
  Open();
  TouchCell(1, 3);
  Write("120");
  Touch(Main(id::kFCheck));
  EXPECT_FALSE(Grid()->IsEditing());
  EXPECT_EQ(CellText(1, 3), "120");
  EXPECT_EQ(MainText(id::kS), "3819");
}

TEST_F(ZmcWindowTest, SecondTouchInADataFieldOpensItsEdit) {
  Open();
  Touch(Main(id::kS));
  EXPECT_FALSE(Field(id::kS)->IsEditing());
  Touch(Main(id::kS));
  EXPECT_TRUE(Field(id::kS)->IsEditing());
}

// What the view shows.

TEST_F(ZmcWindowTest, TheBarShowsThePowerAndTintsWarnOfValuesOutsideTheirLimits) {
  Open();
  EXPECT_EQ(MainText(id::kPowerBar), "");
  EditCell(1, 3, "120");
  EditCell(2, 3, "0.05");
  EditCell(3, 3, "2");
  EditCell(4, 3, "50");
  EXPECT_EQ(MainText(id::kPower), "29.952941");
  EXPECT_EQ(MainText(id::kPowerBar), "29.95 %");
  const QImage bar = Paint(*Main(id::kPowerBar));
  EXPECT_EQ(ColorAt(bar, bar.width() / 4, bar.height() / 2), zmc_look::kPowerGood);
  EXPECT_EQ(ColorAt(bar, bar.width() / 2, bar.height() / 2), zmc_look::kPage);
  EXPECT_FALSE(Grid()->Cells().HasTint(1, 3));
  EditCell(1, 3, "200");
  EXPECT_TRUE(Grid()->Cells().HasTint(1, 3));
}

TEST_F(ZmcWindowTest, TheBarIsAmberAboveFourFifthsAndRedAboveAll) {
  Open();
  ZmcPowerBar bar(1, nullptr);
  bar.resize(200, 10);
  const std::pair<double, Color> rows[] = {{80, zmc_look::kPowerGood},
                                           {80.1, zmc_look::kPowerHigh},
                                           {100, zmc_look::kPowerHigh},
                                           {100.1, zmc_look::kPowerOver},
                                           {5000, zmc_look::kPowerOver}};
  for (const auto& [percent, color] : rows) {
    bar.SetPercent(percent);
    EXPECT_EQ(ColorAt(Paint(bar), 1, 5), color) << percent;
  }
  bar.SetPercent(5000);
  EXPECT_EQ(Count(Paint(bar), zmc_look::kPowerOver), 200 * 10);
  for (const double none : {0.0, -4.0, std::numeric_limits<double>::quiet_NaN()}) {
    bar.SetPercent(none);
    EXPECT_EQ(Count(Paint(bar), zmc_look::kPage), 200 * 10) << none;
  }
  bar.SetPercent({});
  EXPECT_EQ(bar.WindowText(), "");
}

TEST_F(ZmcWindowTest, ThePictureIsTheTools) {
  Open();
  const QImage mill = Paint(*Main(id::kPicture));
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("4");
  Key(Qt::Key_Return);
  EXPECT_NE(Paint(*Main(id::kPicture)), mill);
}

TEST_F(ZmcWindowTest, AReasonIsShownWhenDmcIsOffAndTheOtherCheckBoxInItsPlace) {
  Define(u"DM.OPTION.DMC", 0);
  Open();
  EXPECT_TRUE(Main(id::kReasonOption)->isVisible());
  EXPECT_EQ(MainText(id::kReasonOption), "The DMC option is not active");
  for (const int reason : {id::kReasonDrive, id::kReasonSpindle, id::kReasonTool}) {
    EXPECT_FALSE(Main(reason)->isVisible()) << reason;
  }
  EXPECT_FALSE(Main(id::kDmcCheck)->isVisible());
  EXPECT_TRUE(Main(id::kDmcOffCheck)->isVisible());
  EXPECT_FALSE(Main(id::kDmcOffCheck)->isEnabled());
  EXPECT_FALSE(Main(id::kPower)->isEnabled());
  EXPECT_EQ(Fore(Main(id::kDmcLabel)), 0x838D97u);
}

TEST_F(ZmcWindowTest, ALineThatNobodyTypesInShowsItsBeginning) {
  Open();
  EditCell(1, 3, "120");
  EditCell(2, 3, "0.05");
  EditCell(3, 3, "2");
  EditCell(4, 3, "50");
  EXPECT_EQ(Line(id::kDmcText)->cursorPosition(), 0);
}

// The tables.

TEST_F(ZmcWindowTest, ATableHasItsRowsStatesAndWidths) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  EXPECT_FALSE(Page(ZmcTab::kMain)->isVisible());
  ASSERT_EQ(Grid(kMat)->Cells().Rows(), 3);
  EXPECT_EQ(CellText(0, 5, kMat), "KC (N/mm2)");
  EXPECT_EQ(CellText(1, 1, kMat), "Steel");
  EXPECT_EQ(CellText(1, 7, kMat), "O");
  EXPECT_TRUE(Grid(kMat)->isColumnHidden(7));
  EXPECT_EQ(Grid(kMat)->Cells().RowState(1), GridRowState::kFactory);
  EXPECT_TRUE(Grid(kMat)->hasFocus());
  EXPECT_EQ(On(kMat, 3056)->property("pnlText").toString(), "MATERIALS TABLE");
  Menu(zmc_command::kOperationsTab);
  EXPECT_EQ(CellText(2, 2, kOps), "Turning tool");
  EXPECT_TRUE(Grid(kOps)->isColumnHidden(4));
  EXPECT_FALSE(Page(kMat)->isVisible());
  EXPECT_EQ(ControlKind(On(kOps, 3058)), "grid");
}

TEST_F(ZmcWindowTest, OfAFactoryRowOnlyTheHiddenFlagAcceptsEdits) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Grid(kMat)->Select(1, 1);
  Write("x");
  EXPECT_FALSE(Grid(kMat)->IsEditing());
  TouchCell(1, 6, kMat);
  EXPECT_TRUE(Grid(kMat)->Cells().IsChecked(1, 6));
  Grid(kMat)->Select(1, 6);
  Key(Qt::Key_Space, {}, " ");
  EXPECT_FALSE(Grid(kMat)->Cells().IsChecked(1, 6));
}

TEST_F(ZmcWindowTest, ANewRowIsTypedWithTheKeyboardAlone) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kAddMaterial);
  EXPECT_TRUE(Grid(kMat)->IsEditing());
  Write("Own");
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(kMat), Place(3, 2));
  Write("1.5");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Cell(kMat), Place(3, 3));
  Grid(kMat)->Select(3, 5);
  Write("12x3");
  Key(Qt::Key_Return);
  EXPECT_EQ(CellText(3, 5, kMat), "123");
  Key(Qt::Key_Space, {}, " ");
  EXPECT_TRUE(Grid(kMat)->Cells().IsChecked(3, 6));
  Menu(zmc_command::kSaveMaterials);
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::HasSubstr("<descripcion>Own</descripcion>"));
}

TEST_F(ZmcWindowTest, WhatNoFileCanHoldIsRefusedAtTheCell) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kAddMaterial);
  auto* line = Grid(kMat)->viewport()->findChild<QLineEdit*>();
  ASSERT_NE(line, nullptr);
  Write("a");
  for (const QChar bad : {QChar(1), QChar(0xFFFE), QChar(0xD800)}) {
    line->insert("x" + QString(bad));
    EXPECT_EQ(line->text(), "a") << static_cast<int>(bad.unicode());
  }
  line->insert("<&>\"");
  EXPECT_EQ(line->text(), "a<&>\"");
}

TEST_F(ZmcWindowTest, TheSoftKeyOfDeletingFollowsTheRow) {
  Disc("C:\\P118\\CondicionesCorteP.xml",
       "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><descripcion>Own</descripcion>"
       "</MaterialDefinition></MaterialesDefinition><Operaciones/></CondicionesCorte>");
  Open();
  Menu(zmc_command::kMaterialsTab);
  TakeHostCalls();
  Key(Qt::Key_Down);
  EXPECT_EQ(TakeHostCalls(), (Log{"HostUpdateSideMenu(4)"})) << "from an own row to one of the factory";
  Key(Qt::Key_Down);
  EXPECT_TRUE(TakeHostCalls().empty());
  TouchCell(1, 1, kMat);
  EXPECT_EQ(TakeHostCalls(), (Log{"HostUpdateSideMenu(4)"}));
}

TEST_F(ZmcWindowTest, ARefusedRowIsMarked) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kAddMaterial);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Grid(kMat)->IsEditing());
  Menu(zmc_command::kSaveMaterials);
  EXPECT_EQ(Grid(kMat)->Cells().RowState(3), GridRowState::kFailed);
  EXPECT_TRUE(Grid(kMat)->hasFocus());
}

TEST_F(ZmcWindowTest, ATouchOnAHeaderOrdersAndMarksTheColumn) {
  Open();
  Menu(zmc_command::kOperationsTab);
  EXPECT_EQ(Grid(kOps)->SortColumn(), -1);
  QHeaderView* header = Grid(kOps)->horizontalHeader();
  const auto press = [&](int col) {
    const QPoint place(header->sectionViewportPosition(col) + header->sectionSize(col) / 2, header->height() / 2);
    PressMouse(header->viewport(), place);
    PressMouse(header->viewport(), place, QEvent::MouseButtonRelease);
    Settle();
  };
  press(2);
  EXPECT_EQ(Grid(kOps)->SortColumn(), 2);
  EXPECT_EQ(header->sortIndicatorOrder(), Qt::AscendingOrder);
  press(2);
  EXPECT_EQ(header->sortIndicatorOrder(), Qt::DescendingOrder);
  EXPECT_EQ(CellText(1, 1, kOps), "Turning");
  press(2);
  EXPECT_EQ(Grid(kOps)->SortColumn(), -1);
  press(3);
  EXPECT_EQ(Grid(kOps)->SortColumn(), -1) << "the flag orders nothing";
}

TEST_F(ZmcWindowTest, EscapeInATableClosesTheToolUnlessAnEditIsOpen) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kAddMaterial);
  Write("Own");
  TakeHostCalls();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(tool->isVisible());
  Key(Qt::Key_Escape);
  EXPECT_THAT(TakeHostCalls(), ElementsAre("box", "HostUpdateSideMenu(4)", "clear message", "HostToolClosed(4,2)"));
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(ZmcWindowTest, TheToolTypeIsPickedFromAList) {
  Open();
  Menu(zmc_command::kOperationsTab);
  Menu(zmc_command::kAddOperation);
  Write("Bore");
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(kOps), Place(3, 2));
  Key(Qt::Key_Return);
  ASSERT_TRUE(Grid(kOps)->IsEditing());
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  EXPECT_THAT(CellText(3, 2, kOps), testing::AnyOf("Milling cutter", "Drill"));
}

// Reopening.

TEST_F(ZmcWindowTest, AClosedFrameThatIsShownOpensAgainWithoutReadingTheMachine) {
  Open();
  Key(Qt::Key_Escape);
  ASSERT_FALSE(tool->isVisible());
  Define(u"MPG.INCHES", 1);
  area->resize(500, 400);
  TakeHostCalls();
  tool->show();
  EXPECT_EQ(TakeHostCalls(), (Log{"HostToolOpening(4)", "side menu", "main menu"})) << "within the call";
  Settle();
  EXPECT_EQ(FocusedId(), id::kMaterial);
  EXPECT_EQ(MainText(id::kDiameterUnit), "mm") << "the machine is read once";
  EXPECT_EQ(tool->size(), QSize(500, 400));
  EXPECT_EQ(Page(ZmcTab::kMain)->size(), QSize(500, 400));
  EXPECT_TRUE(TakeHostCalls().empty()) << "once";
}

TEST_F(ZmcWindowTest, AFrameThatReappearsWithItsParentWasNeverClosed) {
  Open();
  TakeHostCalls();
  area->hide();
  area->show();
  Settle();
  EXPECT_TRUE(TakeHostCalls().empty());
}

TEST_F(ZmcWindowTest, AClosedFrameThatIsShownInAHiddenParentOpensWhenItIsSeen) {
  Open();
  Key(Qt::Key_Escape);
  area->hide();
  TakeHostCalls();
  tool->show();
  Settle();
  EXPECT_TRUE(TakeHostCalls().empty());
  area->show();
  Settle();
  EXPECT_THAT(TakeHostCalls(), Contains("HostToolOpening(4)"));
  EXPECT_EQ(FocusedId(), id::kMaterial);
}

TEST_F(ZmcWindowTest, TheHostMayDeleteAFrameThatItShowsAgain) {
  for (const bool direct : {true, false}) {
    MakeArea();
    Open();
    Key(Qt::Key_Escape);
    onHostCall = [this](const std::string& call) {
      if (call == "HostToolOpening(4)") delete area;
    };
    if (direct) {
      tool->show();
    } else {
      area->hide();
      tool->show();
      area->show();
    }
    Settle();
    onHostCall = nullptr;
    EXPECT_TRUE(tool.isNull());
  }
  MakeArea();
}

TEST_F(ZmcWindowTest, RestoringTheFocusPostsATab) {
  Open();
  Command(PNL_COMMAND_RESTORE_FOCUS);
  EXPECT_EQ(FocusedId(), id::kMaterial) << "posted, not sent";
  Settle();
  EXPECT_EQ(FocusedId(), id::kOperation);
}

TEST_F(ZmcWindowTest, WritesTheHelpTopic) {
  Open();
  Send(PNL_MSG_HELP_KEY, 0);
  Text topic;
  (void)ZCVariable(cnc.Vars(), u"E.HELPDATA").ReadTxt(topic);
  EXPECT_EQ(topic, u"OPT0330");
}

}  // namespace
}  // namespace pnl::test
