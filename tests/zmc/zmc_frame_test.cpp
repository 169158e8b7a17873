// SPDX-License-Identifier: MIT
// The frame: opening and closing, the tabs, its messages, commands and settings.
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ZmcFrameTest : public testing::Test, public ZmcStage {
 protected:
  /// A materials table with one unsaved change.
  void OpenDirty() {
    SetUserFile("<MaterialDefinition><id>##</id><descripcion>Own</descripcion></MaterialDefinition>", "");
    Open();
    Menu(zmc_command::kMaterialsTab);
    EXPECT_TRUE(view->materials.Type(1, 1, u"Changed"));
    Forget();
    TakeBoxes();
  }
  std::vector<std::string> Checked() {
    std::vector<std::string> checked;
    for (const int item : {32818, 32819, 32820}) {
      if (menus.FindItem(mainMenu, item)->checked) checked.push_back(std::to_string(item));
    }
    return checked;
  }
};

// Opening.

TEST_F(ZmcFrameTest, OpensInItsOrder) {
  view = nullptr;
  Open();
  std::vector<std::string> calls;
  for (const std::string& line : All()) {
    if (!line.starts_with("view focus")) calls.push_back(line);
  }
  EXPECT_THAT(calls, ElementsAre("HostToolOpening(4)", "view show", "view top", "view make 0", "clear message",
                                 "view show tab 0", "side menu menu", "main menu menu"));
  EXPECT_THAT(Checked(), ElementsAre("32818"));
}

TEST_F(ZmcFrameTest, TheMainMenuIsInstalledByTheFramesOwnMessage) {
  Open();
  const auto is = [](const char* name) {
    return [number = RegisterMessage(name)](const SentMessage& sent) { return sent.message.number == number; };
  };
  const auto sent = std::find_if(windows.sent.begin(), windows.sent.end(), is("ZMC_SHOWMENU"));
  ASSERT_NE(sent, windows.sent.end());
  EXPECT_EQ(static_cast<MenuHandle>(sent->message.first), mainMenu);
  EXPECT_FALSE(sent->posted);
}

TEST_F(ZmcFrameTest, WithoutAPlaceForTheUserFileTheToolIsReportedClosedAndGoes) {
  files.full = true;
  Open();
  EXPECT_THAT(All(), ElementsAre("HostToolOpening(4)", "HostToolClosed(4,2)", "view destroy"));
  EXPECT_FALSE(view->visible);
}

TEST_F(ZmcFrameTest, TheFoldersOfTheUserFileAreMade) {
  files.folders.erase("C:\\P118");
  Open();
  EXPECT_EQ(UserFile().size(), 218u);
  EXPECT_EQ(UserFile().substr(0, 4), std::string("<\0C\0", 4));
}

TEST_F(ZmcFrameTest, AUserFileThatIsThereIsLeftAlone) {
  SetUserFile("", "");
  const std::string before = UserFile();
  Open();
  EXPECT_EQ(UserFile(), before);
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(ZmcFrameTest, TheFactoryFileIsNeverMade) {
  files.disc.erase(kFactoryPath);
  Open();
  EXPECT_EQ(files.disc.count(kFactoryPath), 0u);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T285", "T285"));
}

TEST_F(ZmcFrameTest, TheValuesOfTheCncAreReadOnceAndNotWhenTheFrameIsShownAgain) {
  Define(u"MPG.INCHES", 1);
  Open();
  Define(u"MPG.INCHES", 0);
  EXPECT_EQ(TextOf(id::kDiameterUnit), "in");
  Command(PNL_COMMAND_CLOSE_TOOL);
  Call(&ZmcSession::OnShownAgain);
  Pick(id::kOperation, u"Milling");
  EXPECT_EQ(TextOf(id::kDiameterUnit), "in");
  EXPECT_EQ(CellOf(1, 0), "T65 (sfm)");
}

// Messages.

TEST_F(ZmcFrameTest, AMessageIsShownInItsColourOnItsLine) {
  struct Row {
    std::intptr_t color, line;
    const char* shown;
  };
  const Row kRows[] = {
      {0, 0, "1 [Hello] back 2C8064"}, {1, 0, "1 [Hello] back 648064"}, {2, 0, "1 [Hello] back A0"},
      {0, 1, "1 [Hello] back 2C8064"}, {1, 2, "2 [Hello] back 648064"}, {2, 3, "3 [Hello] back A0"},
      {0, 4, "1 [Hello] back 2C8064"}, {3, 2, "2 [Hello] back 2C8064"}, {0xFFFF, 0xFFFF, "1 [Hello] back 2C8064"}};
  Open();
  for (const Row& row : kRows) {
    messages.clear();
    Frame("ZMC_SHOWMSG", row.color | (row.line << 16), reinterpret_cast<std::intptr_t>(u"Hello"));
    EXPECT_THAT(messages, ElementsAre(row.shown));
  }
  messages.clear();
  Frame("ZMC_SHOWMSG", 0, 0);
  EXPECT_THAT(messages, ElementsAre("1 [] back 2C8064")) << "no text at all";
}

TEST_F(ZmcFrameTest, TheMessagesOfTheFrame) {
  struct Row {
    const char* name;
    std::intptr_t first;
    std::vector<std::string> asked;
  };
  const Row kRows[] = {{"ZMC_RESETMSG", 0, {"clear message"}},
                       {"ZMC_SHOWMENU", 0, {"main menu none"}},
                       {"ZMC_UPDATEMENU", 0, {"HostUpdateMainMenu(4)"}},
                       {"ZMC_CANCELDLG", 2, {"clear message", "HostToolClosed(4,2)"}},
                       {"ZMC_CANCELDLG", 1, {"clear message", "HostToolClosed(4,1)"}},
                       {"XPLR_SHOWMENU", 0, {}}};
  for (const Row& row : kRows) {
    Open();
    Forget();
    messages.clear();
    Frame(row.name, row.first);
    EXPECT_EQ(Asked(), row.asked) << row.name;
    if (std::string(row.name) == "ZMC_RESETMSG") {
      EXPECT_THAT(messages, ElementsAre("1 [] back 646E78"));
    }
  }
}

TEST_F(ZmcFrameTest, AMessageThatIsNotTheFramesIsNotAnswered) {
  Open();
  std::optional<std::intptr_t> answer = 1;
  Tell([&](ZmcSession& session) { answer = session.OnMessage({PNL_MSG_CYCLE_START, 1, 0}); });
  EXPECT_EQ(answer, std::nullopt);
  Tell([&](ZmcSession& session) { answer = session.OnMessage({PNL_MSG_HELP_KEY, 0, 0}); });
  EXPECT_EQ(answer, 0);
}

TEST_F(ZmcFrameTest, TheCommandsOfTheHost) {
  struct Row {
    std::intptr_t code, answer;
    std::vector<std::string> calls;
  };
  const std::vector<std::string> kClosed = {"clear message", "HostToolClosed(4,2)", "view hide"};
  const Row kRows[] = {{PNL_COMMAND_LEAVE, 0, {"view hide", "view destroy"}},
                       {PNL_COMMAND_RESTORE_FOCUS, 0, {"view tab"}},
                       {PNL_COMMAND_ASK_UNSAVED, 0, {}},
                       {PNL_COMMAND_CLOSE_TOOL, 0, kClosed},
                       {PNL_COMMAND_CLOSE_FOR_OTHER, 0, kClosed},
                       {PNL_COMMAND_OPEN, 0, {}},
                       {PNL_COMMAND_HIDE, 0, {}},
                       {PNL_COMMAND_SHOW, 0, {}},
                       {PNL_COMMAND_CLOSE, 0, {}},
                       {PNL_COMMAND_SWITCH_ROLE, 0, {}},
                       {PNL_COMMAND_MANUAL_MODE_CHANGED, 0, {}},
                       {0, 0, {}},
                       {-1, 0, {}}};
  for (const Row& row : kRows) {
    Open();
    Forget();
    EXPECT_EQ(Command(row.code), row.answer) << row.code;
    EXPECT_EQ(All(), row.calls) << row.code;
  }
}

TEST_F(ZmcFrameTest, AVisibleTableWithChangesAnswersThatItHasUnsavedWork) {
  OpenDirty();
  EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED), PNL_UNSAVED_WORK);
  windows.boxAnswer = BoxAnswer::kNo;
  Menu(zmc_command::kMainTab);
  EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED), 0);
  Menu(zmc_command::kMaterialsTab);
  EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED), 0);
}

TEST_F(ZmcFrameTest, ARefusedCloseSaysSoAndClosesNothing) {
  for (const std::intptr_t code : {PNL_COMMAND_CLOSE_TOOL, PNL_COMMAND_CLOSE_FOR_OTHER}) {
    OpenDirty();
    view->materials.Type(1, 1, u" ");
    EXPECT_EQ(Command(code), PNL_CLOSE_REFUSED);
    EXPECT_THAT(TakeBoxes(), ElementsAre("T268", "T270"));
    EXPECT_THAT(Asked(), Not(Contains(HasSubstr("HostToolClosed"))));
    EXPECT_TRUE(view->visible);
  }
}

TEST_F(ZmcFrameTest, LeavingHidesAndDestroysWithoutAQuestion) {
  OpenDirty();
  EXPECT_EQ(Command(PNL_COMMAND_LEAVE), 0);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_TRUE(view->closing);
}

TEST_F(ZmcFrameTest, WritesTheHelpTopic) {
  Open();
  Forget();
  Send(PNL_MSG_HELP_KEY);
  EXPECT_THAT(Asked(), ElementsAre("write E.HELPDATA=\"OPT0330\" ok"));
}

// Menu commands.

TEST_F(ZmcFrameTest, TheTabsAreShownOneAtATimeAndMadeOnce) {
  struct Row {
    int command;
    ZmcTab tab;
    std::vector<std::string> calls;  // the second time
  };
  const Row kRows[] = {{32819, ZmcTab::kMaterials, {"view show tab 1", "view hide tab 0"}},
                       {32820, ZmcTab::kOperations, {"view show tab 2", "view hide tab 1"}},
                       {32818, ZmcTab::kMain, {"view show tab 0", "view hide tab 2"}}};
  Open();
  for (const bool again : {false, true}) {
    for (const Row& row : kRows) {
      Forget();
      Menu(row.command);
      std::vector<std::string> expected = row.calls;
      if (!again && row.tab != ZmcTab::kMain) {
        expected.insert(expected.begin(), "view make " + std::to_string(static_cast<int>(row.tab)));
      }
      std::vector<std::string> calls = All();
      std::erase_if(
          calls, [](const std::string& line) { return line.starts_with("view focus") || !line.starts_with("view "); });
      EXPECT_EQ(calls, expected);
      EXPECT_THAT(Checked(), ElementsAre(std::to_string(row.command)));
      EXPECT_EQ(view->shownTabs, std::set<ZmcTab>{row.tab});
    }
  }
}

TEST_F(ZmcFrameTest, AShownTabUpdatesTheTabsAndBringsItsOwnSoftKeys) {
  Open();
  for (const auto& [command, first] : {std::pair(32819, 32779), std::pair(32820, 32785), std::pair(32818, 32902)}) {
    Forget();
    Menu(command);
    EXPECT_THAT(Asked(), ElementsAre("HostUpdateMainMenu(4)", "side menu menu"));
    EXPECT_NE(Item(first), nullptr) << command;
    EXPECT_NE(Item(32822), nullptr);
  }
}

TEST_F(ZmcFrameTest, ATableThatCannotBeLeftKeepsItsPlace) {
  OpenDirty();
  view->materials.Type(1, 1, u"");
  for (const int command : {32818, 32820}) {
    Menu(command);
    EXPECT_THAT(TakeBoxes(), ElementsAre("T268", "T270"));
    EXPECT_EQ(view->shownTabs, std::set<ZmcTab>{ZmcTab::kMaterials});
    EXPECT_THAT(Checked(), ElementsAre("32819"));
  }
  EXPECT_EQ(view->made.count(ZmcTab::kOperations), 0u);
}

TEST_F(ZmcFrameTest, EachMenuCommandDoesWhatItSays) {
  struct Row {
    int tab, command;
    std::vector<std::string> boxes;
    int rows;  // more than before
    const char* asked;
  };
  const Row kRows[] = {
      {32818, 32902, {}, 0, "HostInsertBlock"},
      {32818, 32777, {}, 0, "UTIL7340_CopyToClipboard_Text"},
      {32819, 32779, {}, 1, ""},
      {32819, 32781, {"T281"}, 0, ""},
      {32819, 32783, {}, 0, ""},
      {32820, 32785, {}, 1, ""},
      {32820, 32787, {"T281"}, 0, ""},
      {32820, 32788, {}, 0, ""},
      {32818, 32822, {}, 0, "HostOpenCalculator"},
      {32819, 32822, {}, 0, "HostOpenCalculator"},
      {32820, 32822, {}, 0, "HostOpenCalculator"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::to_string(row.command) + " on " + std::to_string(row.tab));
    SetIni("LastOpe=Milling\r\n");
    Open();
    Menu(row.tab);
    FakeZmcGrid& grid = row.tab == 32819 ? view->materials : view->operations;
    const int before = grid.Rows();
    Forget();
    TakeBoxes();
    Menu(row.command);
    EXPECT_EQ(TakeBoxes(), row.boxes);
    EXPECT_EQ(grid.Rows(), before + row.rows);
    if (*row.asked != '\0') {
      EXPECT_THAT(Asked(), Contains(HasSubstr(row.asked)));
    }
  }
}

TEST_F(ZmcFrameTest, ACommandOfATableThatIsNotShownDoesNothing) {
  Open();
  Menu(32819);
  Menu(32820);
  const auto rows = [this] { return std::pair(view->materials.Rows(), view->operations.Rows()); };
  const auto before = rows();
  for (const auto& [tab, commands] :
       {std::pair(32818, std::vector{32779, 32781, 32783, 32785, 32787, 32788}),
        std::pair(32819, std::vector{32785, 32787, 32788}), std::pair(32820, std::vector{32779, 32781, 32783})}) {
    Menu(tab);
    Forget();
    for (const int command : commands) Menu(command);
    Menu(99);
    EXPECT_THAT(All(), IsEmpty());
    EXPECT_EQ(rows(), before);
    EXPECT_THAT(TakeBoxes(), IsEmpty());
  }
}

TEST_F(ZmcFrameTest, TheBlockCanBeCopiedFromATableTooAsTheMainTabIsThere) {
  Open();
  Turn(id::kFCheck, true);
  Turn(id::kToolCheck, true);
  Menu(32819);
  Menu(zmc_command::kCopy);
  EXPECT_THAT(ToUtf8(windows.clipboard), HasSubstr("T7"));
}

TEST_F(ZmcFrameTest, WithoutAMainTabThereIsNoBlock) {
  view = std::make_unique<FakeZmcView>(log, windows);
  tool = std::make_shared<ZmcSession>(context, *view);
  windows.clipboard = u"before";
  Forget();
  Menu(zmc_command::kInsert);
  Menu(zmc_command::kCopy);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(windows.clipboard, u"before");
}

TEST_F(ZmcFrameTest, TheStandardCalculatorOpensAfterThisToolHasClosed) {
  Open();
  Forget();
  Menu(zmc_command::kCalculator);
  EXPECT_THAT(All(), ElementsAre("clear message", "HostToolClosed(4,2)", "view hide", "HostOpenCalculator"));
}

TEST_F(ZmcFrameTest, ARefusedCloseStopsTheStandardCalculatorToo) {
  OpenDirty();
  view->materials.Type(1, 1, u"");
  Menu(zmc_command::kCalculator);
  EXPECT_THAT(Asked(), Not(Contains("HostOpenCalculator")));
  EXPECT_TRUE(view->visible);
}

TEST_F(ZmcFrameTest, InsertingPutsTheTextOnTheClipboardThenTellsTheHostThenCloses) {
  Open();
  Turn(id::kToolCheck, true);
  Forget();
  windows.clipboard.clear();
  onHostCall = [this](const std::string& line) {
    if (line == "HostInsertBlock") {
      EXPECT_NE(windows.clipboard, u"");
    }
  };
  Menu(zmc_command::kInsert);
  const Log calls = All();
  ASSERT_GE(calls.size(), 4u);
  EXPECT_EQ(std::vector(calls.end() - 4, calls.end()),
            (Log{"HostInsertBlock", "clear message", "HostToolClosed(4,2)", "view hide"}));
  const auto cancel = std::find_if(windows.sent.begin(), windows.sent.end(), [](const SentMessage& sent) {
    return sent.message.number == RegisterMessage("ZMC_CANCELDLG");
  });
  ASSERT_NE(cancel, windows.sent.end());
  EXPECT_EQ(cancel->message.first, 2);
  EXPECT_FALSE(cancel->posted);
}

TEST_F(ZmcFrameTest, InsertingClosesAlsoWithoutAHostThatTakesTheBlock) {
  Open();
  table.insertBlock = nullptr;
  Forget();
  Menu(zmc_command::kInsert);
  EXPECT_THAT(Asked(), Contains("HostToolClosed(4,2)"));
}

TEST_F(ZmcFrameTest, WithoutAnyHostTheToolOpensAndCloses) {
  table = {};
  Open();
  Turn(id::kToolCheck, true);
  Menu(32819);
  Menu(32820);
  Menu(32818);
  EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), 0);
  EXPECT_FALSE(view->visible);
}

// Closing, and coming back.

TEST_F(ZmcFrameTest, ATableIsAskedAboutItsChangesWhenTheToolCloses) {
  OpenDirty();
  windows.boxAnswer = BoxAnswer::kYes;
  EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), 0);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T268"));
  EXPECT_THAT(UserFile(), HasSubstr("Changed"));
  OpenDirty();
  windows.boxAnswer = BoxAnswer::kNo;
  EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), 0);
  EXPECT_THAT(UserFile(), Not(HasSubstr("Changed")));
}

TEST_F(ZmcFrameTest, AClosedToolIsReportedOnce) {
  Open();
  Command(PNL_COMMAND_CLOSE_TOOL);
  Forget();
  EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), 0);
  Frame("ZMC_CANCELDLG", 2);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(ZmcFrameTest, AHostThatClosesTheToolInTheMidstOfItsClosingIsToldOnce) {
  Open();
  Forget();
  onHostCall = [this](const std::string& line) {
    if (line == "clear message") Command(PNL_COMMAND_CLOSE_TOOL);
  };
  Command(PNL_COMMAND_CLOSE_TOOL);
  EXPECT_THAT(Asked(), ElementsAre("clear message", "HostToolClosed(4,2)"));
}

TEST_F(ZmcFrameTest, ShownAgainItOpensOnItsMainTabWithWhatWasChosen) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Menu(32819);
  Command(PNL_COMMAND_CLOSE_TOOL);
  Forget();
  Call(&ZmcSession::OnShownAgain);
  std::vector<std::string> calls = All();
  std::erase_if(calls, [](const std::string& line) { return line.starts_with("view focus"); });
  EXPECT_THAT(calls, ElementsAre("HostToolOpening(4)", "view top", "view show tab 0", "view hide tab 1",
                                 "side menu menu", "main menu menu"));
  EXPECT_EQ(TextOf(id::kMaterial), "Steel");
  EXPECT_THAT(Checked(), ElementsAre("32818"));
  Forget();
  Call(&ZmcSession::OnShownAgain);
  EXPECT_THAT(All(), IsEmpty()) << "it is open";
}

TEST_F(ZmcFrameTest, ShownAgainItKeepsTheFilesThatItBeganWith) {
  // The paths were formed anew: the lists were those of one file, and a cell was stored in another one.
  Open();
  Pick(id::kMaterial, u"Steel");
  Pick(id::kOperation, u"Milling");
  Command(PNL_COMMAND_CLOSE_TOOL);
  cnc.Storage().SetPath(24, u"C:\\ELSEWHERE");
  cnc.Storage().SetPath(118, u"C:\\ELSEWHERE");
  Call(&ZmcSession::OnShownAgain);
  EXPECT_TRUE(Cell(1, 3, u"120"));
  EXPECT_THAT(UserFile(), HasSubstr("1200000000"));
  EXPECT_EQ(files.disc.count("C:\\ELSEWHERE\\CondicionesCorteP.xml"), 0u);
  EXPECT_EQ(CellOf(1, 1), "80.0000000");
}

TEST_F(ZmcFrameTest, ShownAgainWithoutAPlaceForTheUserFileItClosesAgain) {
  Open();
  Command(PNL_COMMAND_CLOSE_TOOL);
  files.disc.erase(kUserPath);
  files.full = true;
  Forget();
  Call(&ZmcSession::OnShownAgain);
  EXPECT_THAT(All(), ElementsAre("HostToolOpening(4)", "HostToolClosed(4,2)", "view hide"));
  files.full = false;
  Forget();
  Call(&ZmcSession::OnShownAgain);
  EXPECT_THAT(Asked(), Contains("main menu menu"));
}

TEST_F(ZmcFrameTest, AToolThatNeverOpenedIsNotShownAgain) {
  files.full = true;
  Open();
  DestroyTool();
  view = std::make_unique<FakeZmcView>(log, windows);
  tool = std::make_shared<ZmcSession>(context, *view);
  Forget();
  Call(&ZmcSession::OnShownAgain);
  EXPECT_THAT(All(), IsEmpty());
  DestroyTool();
  EXPECT_THAT(All(), IsEmpty()) << "nor are settings stored that nobody has read";
}

TEST_F(ZmcFrameTest, ATabThatWasAskedForIsNotShownIfTheToolWasClosedMeanwhile) {
  OpenDirty();
  windows.boxAnswer = BoxAnswer::kNo;
  windows.onBox = [this] {
    windows.onBox = nullptr;
    Command(PNL_COMMAND_CLOSE_TOOL);
  };
  Menu(32820);
  EXPECT_THAT(Asked(), ElementsAre("HostUpdateSideMenu(4)", "clear message", "HostToolClosed(4,2)"));
  EXPECT_EQ(view->made.count(ZmcTab::kOperations), 0u);
}

TEST_F(ZmcFrameTest, TheMenusGoWithTheTool) {
  const std::size_t before = menus.Count();
  Open();
  Menu(32819);
  Menu(32820);
  Menu(32818);
  EXPECT_EQ(menus.Count(), before + 4);
  DestroyTool();
  EXPECT_EQ(menus.Count(), before);
}

// The soft keys.

TEST_F(ZmcFrameTest, EverySoftKeyHasItsHelpKeyAndItsBitmap) {
  struct Row {
    int tab, item;
    const char16_t* helper;
  };
  const Row kRows[] = {
      {32818, 32902, u"ZMC_INSERTAR"},       {32818, 32777, u"ZMC_COPIAR"},    {32818, 32822, u"CALC_STANDARD"},
      {32819, 32779, u"ZMC_ANMAT"},          {32819, 32781, u"ZMC_BORRARMAT"}, {32819, 32783, u"ZMC_GUARDARTAB_MAT"},
      {32819, 32822, u"CALC_STANDARD"},      {32820, 32785, u"ZMC_ANOPE"},     {32820, 32787, u"ZMC_BORRAROPE"},
      {32820, 32788, u"ZMC_GUARDARTAB_OPE"}, {32820, 32822, u"CALC_STANDARD"}};
  Open();
  for (const Row& row : kRows) {
    Menu(row.tab);
    const MenuItem* item = Item(row.item);
    ASSERT_NE(item, nullptr) << row.item;
    EXPECT_EQ(item->helper, row.helper);
    EXPECT_EQ(item->bitmap, row.item);
  }
}

TEST_F(ZmcFrameTest, InsertAndCopyNeedOneOfFiveBoxesAndM6IsNone) {
  for (const int box : {id::kRemarkCheck, id::kToolCheck, id::kFCheck, id::kSCheck, id::kDmcCheck}) {
    SetIni("LastOpe=Milling\r\n");
    Open();
    EXPECT_FALSE(Item(32902)->enabled);
    EXPECT_FALSE(Item(32777)->enabled);
    EXPECT_TRUE(Item(32822)->enabled);
    Forget();
    Turn(box, true);
    EXPECT_THAT(Asked(), ElementsAre("HostUpdateSideMenu(4)")) << box;
    EXPECT_TRUE(Item(32902)->enabled);
    EXPECT_TRUE(Item(32777)->enabled);
    if (box == id::kToolCheck) {
      Turn(id::kM6Check, true);
      Turn(id::kToolCheck, false);
      EXPECT_FALSE(Item(32902)->enabled) << "M6 alone is no word";
    } else {
      Turn(box, false);
      EXPECT_FALSE(Item(32902)->enabled);
    }
    EXPECT_TRUE(Item(32822)->enabled);
    DestroyTool();
  }
}

TEST_F(ZmcFrameTest, TheSoftKeysAreRightWhenTheMainTabComesBack) {
  SetIni("FChecked=YES\r\n");
  Open();
  EXPECT_TRUE(Item(32902)->enabled);
  Menu(32819);
  Menu(32818);
  EXPECT_TRUE(Item(32902)->enabled);
  Turn(id::kFCheck, false);
  Menu(32819);
  Menu(32818);
  EXPECT_FALSE(Item(32902)->enabled);
}

TEST_F(ZmcFrameTest, DmcThatBecomesUnusableTakesItsWordAway) {
  SetIni("LastOpe=Milling\r\nDmcChecked=YES\r\n");
  Open();
  EXPECT_TRUE(Item(32902)->enabled);
  Forget();
  Pick(id::kOperation, u"Turning");
  EXPECT_FALSE(Item(32902)->enabled);
  EXPECT_THAT(Asked(), Contains("HostUpdateSideMenu(4)"));
  Pick(id::kOperation, u"Milling");
  EXPECT_TRUE(Item(32902)->enabled) << "what was chosen comes back";
}

TEST_F(ZmcFrameTest, WithoutMenusAndDialogsOfTheLanguageTheToolWorksAllTheSame) {
  LanguagePack empty;
  EXPECT_TRUE(empty.Parse(BuildPack({})));
  language.Use(std::move(empty));
  language.UseNumbersForTexts(false);
  Open();
  Pick(id::kMaterial, u"Steel");
  Pick(id::kOperation, u"Milling");
  EXPECT_EQ(CellOf(1, 1), "80.0000000");
  Turn(id::kToolCheck, true);
  Menu(32819);
  Menu(zmc_command::kAddMaterial);
  EXPECT_EQ(view->materials.Rows(), 4);
  Menu(32820);
  EXPECT_EQ(sideMenu, 0u);
  Menu(32818);
  Menu(zmc_command::kInsert);
  EXPECT_THAT(Asked(), Contains("HostInsertBlock"));
}

// The settings.

TEST_F(ZmcFrameTest, TheSettingsAreWrittenWhenTheWindowGoesAndNotBefore) {
  Open();
  Turn(id::kFCheck, true);
  Command(PNL_COMMAND_CLOSE_TOOL);
  EXPECT_EQ(Ini(), "none");
  DestroyTool();
  EXPECT_EQ(Ini(),
            "[PRIVATE]\r\nLastMat=Brass\r\nLastOpe=Turning\r\nLastTool=T7\r\nFChecked=YES\r\nSChecked=NO\r\n"
            "DmcChecked=NO\r\nToolChecked=NO\r\nM6Checked=NO\r\nCommentsChecked=NO\r\nCustomMaterialFirst=YES\r\n"
            "CustomOperationFirst=YES\r\nMaterialAToZ=YES\r\nOperationAToZ=YES\r\nOrderingMaterialType=0\r\n"
            "OrderingOperationType=0\r\nFUnit=0\r\nSUnit=0\r\nLastPartDiameter=0\r\n");
}

TEST_F(ZmcFrameTest, SettingsThatCannotBeStoredAreNamed) {
  Open();
  files.full = true;
  messages.clear();
  DestroyTool();
  ASSERT_EQ(messages.size(), 1u);
}

}  // namespace
}  // namespace pnl::test
