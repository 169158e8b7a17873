// SPDX-License-Identifier: MIT
#include "explorer/xplr_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "explorer/xplr_stage.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// ---------------------------------------------------------------- opening

TEST_F(XplrSessionTest, ItOpensInTheFolderOfTheRequestWithTheFirstRowChosen) {
  Open();
  EXPECT_TRUE(view->visible);
  EXPECT_THAT(RowNames(), ElementsAre("SUB", "B.TXT", "A.NC")) << "without a stored order names are descending";
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = ");
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  EXPECT_EQ(view->labels[xplr_control::kFilter], u"*");
  EXPECT_EQ(view->labels[xplr_control::kLabel], u"File:");
  EXPECT_EQ(view->focused, xplr_control::kList);
  EXPECT_EQ(view->layout, LayOutXplr(800, 520, LayoutMode::kTreeAndList));
}

TEST_F(XplrSessionTest, ItComesToTheTopWhenItIsShown) {
  Open();
  const Log all = All();
  const auto shown = std::find(all.begin(), all.end(), "view show");
  ASSERT_NE(shown, all.end());
  EXPECT_NE(std::find(shown, all.end(), "view top"), all.end());
}

TEST_F(XplrSessionTest, TheHostLearnsOfMenusInTheirOrder) {
  Open();
  Log asked = Asked();
  std::erase_if(asked, [](const std::string& line) { return !line.starts_with("Host") && line.find("menu") > 5; });
  EXPECT_THAT(asked, ElementsAre("HostToolOpening(5)", "main menu menu", "HostUpdateMainMenu(5)", "side menu menu"));
  EXPECT_NE(mainMenu, 0u);
  EXPECT_NE(sideMenu, 0u);
}

TEST_F(XplrSessionTest, WithoutARequestItListsTheDefaultFolderOnly) {
  places.disc->AddFile(u"C:\\P101\\X.NC");
  Open(false);
  EXPECT_THAT(RowNames(), ElementsAre("X.NC"));
  EXPECT_EQ(view->layout, LayOutXplr(800, 520, LayoutMode::kListOnly));
  EXPECT_EQ(Item(sideMenu, 32791), nullptr) << "no pin key";
  EXPECT_TRUE(Item(sideMenu, 32777)->hidden);
}

TEST_F(XplrSessionTest, ARequestedNameThatIsThereIsSelectedAndOneThatIsNotGivesTheFieldTheFocus) {
  SetField(request.File, u"a.nc");
  Open();
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = A.NC");
  EXPECT_EQ(view->focused, xplr_control::kList);
  SetField(request.File, u"NEW.NC");
  Open();
  EXPECT_EQ(view->focused, xplr_control::kName);
  EXPECT_EQ(view->name, u"NEW.NC");
}

TEST_F(XplrSessionTest, InFolderModeTheTreeHasTheFocus) {
  request.Flags = XPLR_FOLDERMODE;
  Open();
  EXPECT_EQ(view->focused, xplr_control::kTree);
  EXPECT_EQ(view->labels[xplr_control::kLabel], u"Folder:");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = CNC");
}

TEST_F(XplrSessionTest, AGrownPanelHasLargerHeadings) {
  Open();
  EXPECT_EQ(view->fonts, (XplrFonts{18, 16, 15}));
  windows.panelRect = {0, 0, 1024, 768};
  Open();
  EXPECT_EQ(view->fonts.caption, 30);
  EXPECT_EQ(view->fonts.headings, 24);
}

// ---------------------------------------------------------------- messages

TEST_F(XplrSessionTest, AGivenTextIsShownInTheColourAndLineOfItsSelector) {
  Open();
  const Text text = u"50 %s";
  struct {
    std::intptr_t selector;
    const char* line;
  } const rows[] = {{0, "line 1 back 2916452"},
                    {1, "line 1 back 6586468"},
                    {2, "line 1 back 160"},
                    {0x10000, "line 2 back 2916452"},
                    {0x20002, "line 3 back 160"}};
  for (const auto& row : rows) {
    messages.clear();
    Message(XplrWindow::kFrame, XplrMessage::kShowMessage, row.selector, reinterpret_cast<std::intptr_t>(text.c_str()));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], std::string("50 %s ") + row.line);
  }
  messages.clear();
  Message(XplrWindow::kFrame, XplrMessage::kShowMessage, 0x20000);
  EXPECT_THAT(messages, ElementsAre(" line 3 back 2916452"));
}

TEST_F(XplrSessionTest, AnUpdateClearsANumberedMessageOnly) {
  Open();
  messages.clear();
  Message(XplrWindow::kFrame, XplrMessage::kUpdate);
  EXPECT_THAT(messages, IsEmpty());
  PickRow(u"SUB");
  Enter();
  EXPECT_THAT(messages, ElementsAre("No name line 1 back 160"));
  messages.clear();
  Message(XplrWindow::kFrame, XplrMessage::kUpdate);
  EXPECT_THAT(messages, ElementsAre(" line 1 back 2916452"));
}

TEST_F(XplrSessionTest, WhyAFolderCannotBeReadStaysUntilTheNextChange) {
  Open();
  places.disc->errors[u"C:\\CNC\\SUB"] = place_error::kNotReady;
  Focus(xplr_control::kTree);
  messages.clear();
  PickNode({u"C:", u"CNC", u"SUB"});
  EXPECT_THAT(messages, ElementsAre("Not ready line 1 back 160"));
  Message(XplrWindow::kFrame, XplrMessage::kUpdate);
  EXPECT_EQ(messages.size(), 2u) << "the next one clears it";
}

TEST_F(XplrSessionTest, AMessageThatIsNotKnownIsNotAnswered) {
  Open();
  for (int window = 0; window < 6; ++window) {
    Tell([&](XplrSession& session) {
      EXPECT_EQ(session.OnMessage(static_cast<XplrWindow>(window), {0x999, 1, 2}), std::nullopt) << window;
    });
  }
}

TEST_F(XplrSessionTest, EveryMessageOfItsOwnIsAnsweredWithZero) {
  Open();
  const std::pair<XplrWindow, XplrMessage> rows[] = {
      {XplrWindow::kFrame, XplrMessage::kUpdate},  {XplrWindow::kForm, XplrMessage::kUpdateMenu},
      {XplrWindow::kTree, XplrMessage::kEndFind},  {XplrWindow::kList, XplrMessage::kFind},
      {XplrWindow::kList, XplrMessage::kFindNext}, {XplrWindow::kFind, XplrMessage::kFindResult}};
  for (const auto& [window, message] : rows) EXPECT_EQ(Message(window, message), 0) << static_cast<int>(message);
}

TEST_F(XplrSessionTest, NothingIsPlacedBeforeItStarts) {
  Open();
  tool = std::make_shared<XplrSession>(context, *view);
  Forget();
  Call(&XplrSession::OnResized, 800, 520);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(XplrSessionTest, TheCaptionIsThereBeforeAnyFolderIsRead) {
  SetField(request.File, u"A.NC");
  Open();
  const Log all = All();
  const auto caption = std::find(all.begin(), all.end(), "view label 1101  Pick = A.NC");
  const auto read =
      std::find_if(all.begin(), all.end(), [](const auto& line) { return line.starts_with("view nodes"); });
  ASSERT_NE(read, all.end());
  EXPECT_LT(caption, read);
  SetField(request.File, u"");
}

TEST_F(XplrSessionTest, InAListAloneNoKeyLeadsToTheTree) {
  request.Flags = XPLR_LISTONLY;
  Open();
  Focus(xplr_control::kList);
  Menu(xplr_command::kMoveToTree);
  EXPECT_EQ(view->focused, xplr_control::kList);
  request.Flags = 0;
}

TEST_F(XplrSessionTest, TheFormsMessagesActFromWhoeverTheyCome) {
  Open();
  const Text caption = u" other";
  Message(XplrWindow::kForm, XplrMessage::kUpdateCaption, reinterpret_cast<std::intptr_t>(caption.c_str()));
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" other");
  Message(XplrWindow::kForm, XplrMessage::kUpdateCaption, 0);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" other");
  Message(XplrWindow::kForm, XplrMessage::kUpdateFolder, 0);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"");
  Message(XplrWindow::kForm, XplrMessage::kUpdateFolder, 4);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  Message(XplrWindow::kForm, XplrMessage::kResetList);
  EXPECT_THAT(RowNames(), IsEmpty());
  Message(XplrWindow::kForm, XplrMessage::kUpdateList, 0);
  EXPECT_EQ(RowNames().size(), 3u);
  Message(XplrWindow::kForm, XplrMessage::kUpdateList, 2);
  EXPECT_THAT(RowNames(), IsEmpty());
  PickNode({u"C:"});
  view->name = u"";
  Message(XplrWindow::kForm, XplrMessage::kUpdateEdit);
  EXPECT_EQ(view->name, u"");
}

// ---------------------------------------------------------------- choosing

TEST_F(XplrSessionTest, EnterHandsTheChoiceBackAndTellsTheHost) {
  Open();
  PickRow(u"A.NC");
  Forget();
  Enter();
  EXPECT_TRUE(FieldText(request.Path) == u"C:\\CNC");
  EXPECT_TRUE(FieldText(request.File) == u"A.NC");
  const Log all = All();
  EXPECT_THAT(all, testing::IsSupersetOf({"view hide", "view destroy"}));
  EXPECT_THAT(all, Contains("HostToolClosed(5,1)"));
  EXPECT_THAT(all, Contains("HostExplorerAccepted"));
}

TEST_F(XplrSessionTest, AChosenFolderIsToldInItsOwnWay) {
  request.Flags = XPLR_FOLDERMODE;
  Open();
  Forget();
  Enter();
  EXPECT_TRUE(FieldText(request.Path) == u"C:") << "a folder of a drive's root is parent and leaf";
  EXPECT_TRUE(FieldText(request.File) == u"CNC");
  EXPECT_THAT(All(), Contains("HostExplorerAcceptedAlt"));
}

TEST_F(XplrSessionTest, EscapeLeavesTheRequestAsItWas) {
  Open();
  PickRow(u"A.NC");
  Forget();
  Escape();
  EXPECT_TRUE(FieldText(request.Path) == u"C:\\CNC");
  EXPECT_TRUE(FieldText(request.File).empty());
  EXPECT_THAT(Asked(), Contains("HostToolClosed(5,2)"));
}

TEST_F(XplrSessionTest, ARequestThatWasWithdrawnTakesNoAnswer) {
  Open();
  PickRow(u"A.NC");
  WithdrawRecord(PublishRecord(&request));
  Enter();
  EXPECT_TRUE(FieldText(request.File).empty());
}

TEST_F(XplrSessionTest, AnExistingFileIsAskedForWithItsName) {
  request.Flags = XPLR_CONFIRMOVERWRITE;
  Open();
  PickRow(u"A.NC");
  windows.boxAnswer = BoxAnswer::kNo;
  Enter();
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_TRUE(windows.boxes[0].title == u"Pick");
  EXPECT_TRUE(windows.boxes[0].text == u"Overwrite A.NC?");
  EXPECT_TRUE(view->visible) << "no stops with nothing shown";
  windows.boxAnswer = BoxAnswer::kYes;
  Enter();
  EXPECT_TRUE(FieldText(request.File) == u"A.NC");
}

TEST_F(XplrSessionTest, ATypedNameIsTheChoiceAndOnlyWhileTheFieldHasTheFocus) {
  Open();
  view->name = u"X.NC";
  Call(&XplrSession::OnNameChanged);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = ");
  Focus(xplr_control::kName);
  TypeName(u"NEW.NC");
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = NEW.NC");
  Enter();
  EXPECT_TRUE(FieldText(request.File) == u"NEW.NC");
}

TEST_F(XplrSessionTest, DoubleClickingTheSelectedFolderStepsIntoIt) {
  Open();
  Call(&XplrSession::OnRowDoubleClicked, 0);
  Drain();
  EXPECT_THAT(RowNames(), ElementsAre("C.NC"));
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC\\SUB");
}

// ---------------------------------------------------------------- commands

TEST_F(XplrSessionTest, EachCommandOfTheHostClosesAsToldOrDoesNothing) {
  struct {
    int code;
    const char* closed;
  } const rows[] = {{6, ""}, {20, "HostToolClosed(5,2)"}, {34, "HostToolClosed(5,2)"}};
  for (const auto& row : rows) {
    Open();
    files.replaced.clear();
    Forget();
    EXPECT_EQ(Command(row.code), 0);
    const Log all = All();
    EXPECT_THAT(all, Contains("view destroy")) << row.code;
    const bool told = std::find(all.begin(), all.end(), row.closed) != all.end();
    EXPECT_EQ(told, *row.closed != '\0') << row.code;
    EXPECT_EQ(files.replaced.empty(), row.code == 6) << "the order is stored at each close but this";
  }
  Open();
  Forget();
  Command(7);
  EXPECT_THAT(All(), ElementsAre("view tab"));
  for (const int code : {0, 2, 3, 4, 5, 8, 10, 14, 99}) EXPECT_EQ(Command(code), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(XplrSessionTest, TheSoftKeysMoveTheFocus) {
  Open();
  const std::pair<int, int> rows[] = {{32777, 1106}, {32778, 1107}, {32779, 1105}};
  for (const auto& [command, control] : rows) {
    Menu(command);
    EXPECT_EQ(view->focused, control) << command;
  }
}

TEST_F(XplrSessionTest, ThePaneWithTheFocusHasItsHeadingLit) {
  Open();
  Focus(xplr_control::kTree);
  EXPECT_EQ(view->colors[xplr_control::kFilter], std::pair(4608090u, 12569043u));
  EXPECT_EQ(view->colors[xplr_control::kFolder], std::pair(12569043u, 8621463u));
  Focus(xplr_control::kList);
  EXPECT_EQ(view->colors[xplr_control::kFilter], std::pair(12569043u, 8621463u));
  EXPECT_EQ(view->colors[xplr_control::kFolder], std::pair(4608090u, 12569043u));
}

TEST_F(XplrSessionTest, SortingFollowsTheMenuAndIsKept) {
  Open();
  EXPECT_TRUE(Item(mainMenu, 32770)->checked);
  Menu(32770);
  EXPECT_THAT(RowNames(), ElementsAre("SUB", "A.NC", "B.TXT"));
  Menu(32773);
  EXPECT_TRUE(Item(mainMenu, 32773)->checked);
  EXPECT_FALSE(Item(mainMenu, 32770)->checked);
  Escape();
  EXPECT_EQ(files.disc["C:\\P52\\XPLR7340.ini"], "[PRIVATE]\r\nPrgSort=1 1 1 1,3\r\n");
  Open();
  EXPECT_TRUE(Item(mainMenu, 32773)->checked);
}

TEST_F(XplrSessionTest, RefreshReadsTheFolderAgain) {
  Open();
  places.disc->AddFile(u"C:\\CNC\\NEW.NC");
  Menu(32790);
  EXPECT_THAT(RowNames(), Contains("NEW.NC"));
}

// ---------------------------------------------------------------- pin

class XplrPin : public XplrSessionTest {
 protected:
  const std::string path_ = "C:\\P52\\XPLR7340.ini";
};

TEST_F(XplrPin, APasswordRefusedChangesNothing) {
  Open();
  cnc.Returns("PSW_ConfirmarAcceso", {0});
  files.replaced.clear();
  Menu(32791);
  EXPECT_FALSE(Item(sideMenu, 32791)->checked);
  EXPECT_TRUE(view->layout.showsTree);
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(XplrPin, APinKeepsTheFolderOfTheAskerAndHidesTheTree) {
  Open();
  Focus(xplr_control::kTree);
  Menu(32791);
  EXPECT_EQ(view->focused, xplr_control::kList) << "the tree had the focus";
  EXPECT_FALSE(view->layout.showsTree);
  EXPECT_TRUE(Item(sideMenu, 32791)->checked);
  EXPECT_EQ(Item(sideMenu, 32791)->bitmap, 371);
  EXPECT_TRUE(Item(sideMenu, 32791)->helper == u"XPLR2");
  EXPECT_TRUE(Item(sideMenu, 32777)->hidden);
  EXPECT_EQ(files.disc[path_], "[USER_1006]\r\nPinnedFolder=C:\\CNC\r\n");
  SetField(request.Path, u"C:\\P100");
  Open();
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC") << "it overrides the folder that the asker proposes";
  Menu(32791);
  EXPECT_TRUE(view->layout.showsTree);
  EXPECT_EQ(Item(sideMenu, 32791)->bitmap, 373);
  EXPECT_EQ(files.disc[path_].find("PinnedFolder"), std::string::npos);
}

TEST_F(XplrPin, ThePasswordOfThePinIsAskedForAndTheHostShowsTheNewMenu) {
  Open();
  Forget();
  Menu(32791);
  EXPECT_THAT(All(), testing::IsSupersetOf({"PSW_ConfirmarAcceso(4,0,0)=1", "HostUpdateSideMenu(5)"}));
}

TEST_F(XplrPin, APinnedFolderThatIsGoneIsIgnoredAndItsKeyStays) {
  files.disc[path_] = "[USER_1006]\r\nPinnedFolder=C:\\GONE\r\n";
  Open();
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  EXPECT_FALSE(Item(sideMenu, 32791)->checked);
  EXPECT_EQ(files.disc[path_], "[USER_1006]\r\nPinnedFolder=C:\\GONE\r\n");
}

TEST_F(XplrPin, ARequestThatOnlyListsReadsNoPin) {
  files.disc[path_] = "[USER_1006]\r\nPinnedFolder=C:\\P100\r\n";
  request.Flags = XPLR_LISTONLY;
  Open();
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
  EXPECT_EQ(Item(sideMenu, 32791), nullptr);
  files.replaced.clear();
  Menu(32791);
  EXPECT_THAT(files.replaced, IsEmpty()) << "nor does the command pin";
}

// ---------------------------------------------------------------- find

class XplrFindTest : public XplrSessionTest {
 protected:
  void StartFind() {
    Open();
    Menu(32774);
  }
  void TypeFind(const Text& text) {
    view->find = text;
    Call(&XplrSession::OnFindTyped, TextView(text));
    Drain();
  }
  void Key(FindKey key) {
    Call(&XplrSession::OnFindKey, key);
    Drain();
  }
};

TEST_F(XplrFindTest, TheSearchKeysTakeThePlaceOfTheirCommandsUntilItEnds) {
  StartFind();
  EXPECT_EQ(Item(mainMenu, 32774), nullptr);
  ASSERT_NE(Item(mainMenu, 32901), nullptr);
  EXPECT_TRUE(Item(mainMenu, 32901)->text == u"Previous");
  EXPECT_FALSE(Item(mainMenu, 32901)->enabled);
  EXPECT_EQ(Item(mainMenu, 32900), nullptr) << "without the folder search there is no item to become next";
  TypeFind(u"n");
  EXPECT_TRUE(Item(mainMenu, 32901)->enabled);
  TypeFind(u"");
  EXPECT_FALSE(Item(mainMenu, 32901)->enabled);
  Call(&XplrSession::OnFindClosed);
  Drain();
  ASSERT_NE(Item(mainMenu, 32774), nullptr);
  EXPECT_TRUE(Item(mainMenu, 32774)->text == u"Find");
  EXPECT_FALSE(Item(mainMenu, 32774)->checked);
  EXPECT_EQ(view->focused, xplr_control::kList);
}

TEST_F(XplrFindTest, ItShowsItsHintAndItsResults) {
  Open();
  messages.clear();
  Menu(32774);
  EXPECT_THAT(messages, ElementsAre("Type a text line 1 back 2916452"));
  messages.clear();
  TypeFind(u"txt");
  Key(FindKey::kEnter);
  EXPECT_THAT(messages, IsEmpty()) << "found";
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = B.TXT");
  Key(FindKey::kDown);
  EXPECT_THAT(messages, ElementsAre("Only txt line 2 back 6586468"));
  Key(FindKey::kUp);
  EXPECT_EQ(messages.back(), "Only txt line 1 back 6586468") << "a result is already there";
  messages.clear();
  TypeFind(u"zzz");
  EXPECT_THAT(messages, ElementsAre(" line 3 back 2916452")) << "typing clears the result";
  Key(FindKey::kPageDown);
  EXPECT_EQ(messages.back(), "No zzz line 2 back 6586468");
  messages.clear();
  Message(XplrWindow::kFind, XplrMessage::kFindResult, static_cast<std::intptr_t>(FindResult::kFound));
  EXPECT_THAT(messages, ElementsAre(" line 3 back 2916452")) << "what is found clears the result";
}

TEST_F(XplrFindTest, WithoutTextOrDialogNothingIsFound) {
  Open();
  view->find = u"txt";
  Forget();
  Menu(xplr_command::kNext);
  Menu(xplr_command::kPrevious);
  EXPECT_THAT(All(), IsEmpty()) << "the dialog isn't open";
  StartFind();
  TypeFind(u"b");
  Key(FindKey::kEnter);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = B.TXT") << "one letter is enough";
  view->find = u"a";
  Message(XplrWindow::kList, XplrMessage::kFindNext, 0);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = B.TXT") << "the message says that there is no text";
}

TEST_F(XplrFindTest, TheEndOfAFolderSearchThatIsNotOpenLeadsNowhere) {
  Open();
  view->folder = u"C:\\CNC\\SUB";
  Message(XplrWindow::kTree, XplrMessage::kEndFind);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:\\CNC");
}

TEST_F(XplrFindTest, EscapeClosesTheDialogFirst) {
  StartFind();
  Forget();
  Escape();
  EXPECT_THAT(All(), ElementsAre("view escape to dialog"));
  Call(&XplrSession::OnFindClosed);
  Escape();
  EXPECT_THAT(All(), Contains("HostToolClosed(5,2)"));
}

TEST_F(XplrFindTest, CommandsThatWouldDisturbADialogDoNothing) {
  StartFind();
  Forget();
  for (const int id : {32790, 32791, 32777, 32778, 32779, 32774, 32775}) Menu(id);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(XplrFindTest, TheFolderSearchIsForQualityTestsOnlyAndGoesToTheFolder) {
  Open();
  EXPECT_EQ(Item(mainMenu, 32775), nullptr);
  Menu(32775);
  EXPECT_THAT(All(), Not(Contains("view folder search")));
  ForgetQualityTest();
  files.disc["C:\\P108\\HMI_Settings.ini"] = "[CALIDAD]\r\nTest=SI\r\n";
  Open();
  Menu(32775);
  EXPECT_THAT(All(), Contains("view folder search"));
  EXPECT_FALSE(Item(mainMenu, 32774)->enabled) << "the other dialog's command is greyed";
  view->folder = u"C:\\CNC\\SUB";
  Call(&XplrSession::OnFolderClosed);
  Drain();
  EXPECT_THAT(RowNames(), ElementsAre("C.NC"));
  Menu(32775);
  view->folder = u"C:\\NOWHERE";
  messages.clear();
  Call(&XplrSession::OnFolderClosed);
  Drain();
  EXPECT_THAT(RowNames(), ElementsAre("C.NC"));
  EXPECT_THAT(messages, IsEmpty()) << "a folder that doesn't exist is dropped silently";
}

// ---------------------------------------------------------------- the end of the window

TEST_F(XplrSessionTest, TheWindowMayGoInEveryCallOfTheHost) {
  DeletingHost killer(table);
  FatalScene scene;
  scene.open = [this] { Open(); };
  scene.steps = {[this] { Menu(32791); }, [this] { Menu(32791); },
                 [this] { Menu(32774); }, [this] { Call(&XplrSession::OnFindClosed); },
                 [this] { Menu(32770); }, [this] { PickRow(u"SUB"); },
                 [this] { Enter(); },     [this] { PickRow(u"A.NC"); },
                 [this] { Enter(); }};
  scene.destroy = [this] { DestroyTool(); };
  scene.close = [this] {
    Drain();
    DestroyTool();
    EXPECT_EQ(menus.Count(), 0u);
  };
  EXPECT_THAT(PlayWithEachCallFatal(killer, scene), Contains("HostExplorerAccepted"));
}

TEST_F(XplrSessionTest, NothingIsLeftWhenTheWindowGoes) {
  const std::size_t before = menus.Count();
  Open();
  DestroyTool();
  EXPECT_EQ(menus.Count(), before);
}

// ---------------------------------------------------------------- drives that come and go

TEST_F(XplrSessionTest, ABurstOfChangesOfTheDrivesIsShownOnceAfterTheOperation) {
  Open();
  Forget();
  Tell([&](XplrSession&) {
    for (const char letter : {'D', 'E', 'F'}) {
      places.types[letter] = drive_type::kRemovable;
      places.watcher();
    }
    places.types.erase('E');
    places.watcher();
    EXPECT_THAT(All(), IsEmpty()) << "not in the middle of an operation";
  });
  EXPECT_EQ(windows.posted.size(), 1u);
  Drain();
  EXPECT_THAT(All(), ElementsAre("view nodes 0 1 1", "view nodes 0 2 1"));
  places.watcher();
  EXPECT_EQ(windows.posted.size(), 1u) << "the next change is reported again";
}

TEST_F(XplrSessionTest, TheListFollowsWhenTheDriveOfItsFolderGoes) {
  places.types['E'] = drive_type::kRemovable;
  places.disc->AddFile(u"E:\\JOBS\\J.NC");
  places.disc->AddFile(u"C:\\ROOT.NC");
  SetField(request.Path, u"E:\\JOBS");
  Open();
  EXPECT_THAT(RowNames(), ElementsAre("J.NC"));
  places.types.erase('E');
  places.watcher();
  Drain();
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:");
  EXPECT_THAT(RowNames(), Contains("ROOT.NC"));
}

TEST_F(XplrSessionTest, TheDrivesStayAsTheyAreWhileAQuestionIsOpen) {
  places.types['E'] = drive_type::kRemovable;
  places.disc->AddFile(u"E:\\J.NC");
  SetField(request.Path, u"E:");
  request.Flags = XPLR_CONFIRMOVERWRITE;
  Open();
  PickRow(u"J.NC");
  windows.onBox = [this] {
    places.types.erase('E');
    places.watcher();
    Drain();
    EXPECT_EQ(view->labels[xplr_control::kFolder], u"E:");
  };
  windows.boxAnswer = BoxAnswer::kNo;
  Enter();
  EXPECT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:");
}

/// Does something while the password's box is open.
class PasswordSink final : public rig::EventSink {
 public:
  explicit PasswordSink(std::function<void()> during) : during_(std::move(during)) {}
  void Cnc(std::string_view name, const std::vector<rig::Value>&, const rig::Value&) override {
    if (name == "PSW_ConfirmarAcceso") during_();
  }
  void Write(std::u16string_view, const rig::Value&, bool) override {}
  void MessageToHost(PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) override {}
  void Box(std::u16string_view, std::u16string_view, std::string_view, std::string_view) override {}

 private:
  std::function<void()> during_;
};

TEST_F(XplrSessionTest, TheDrivesStayAsTheyAreWhileAPasswordIsAskedFor) {
  places.types['E'] = drive_type::kRemovable;
  places.disc->AddFolder(u"E:");
  SetField(request.Path, u"E:");
  for (const int allowed : {1, 0}) {
    places.types['E'] = drive_type::kRemovable;
    Open();
    cnc.Returns("PSW_ConfirmarAcceso", {allowed});
    PasswordSink during([this] {
      places.types.erase('E');
      places.watcher();
      Drain();
      EXPECT_EQ(view->labels[xplr_control::kFolder], u"E:");
    });
    cnc.SetSink(&during);
    Menu(32791);
    cnc.SetSink(&sink);
    EXPECT_EQ(view->labels[xplr_control::kFolder], u"C:") << allowed;
  }
}

TEST_F(XplrSessionTest, AChangeOfTheDrivesAfterTheEndDoesNothing) {
  Open();
  const auto watcher = places.watcher;
  DestroyTool();
  Forget();
  watcher();
  Drain();
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(XplrSessionTest, TheEndOfOneExplorerDoesNotEndTheWatchOfTheNext) {
  Open();
  const auto first = tool;
  Open();
  first->End();
  Forget();
  places.types['E'] = drive_type::kRemovable;
  places.watcher();
  Drain();
  EXPECT_THAT(All(), ElementsAre("view nodes 0 1 1"));
}

}  // namespace
}  // namespace pnl::test
