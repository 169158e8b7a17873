// SPDX-License-Identifier: MIT
// The MDA list as a program file: the request to the explorer, the file byte for byte, and what goes wrong.
#include <pnltools/pnltools.h>

#include "host/records.h"
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kHeader = "(------------- CREATED BY MDI -------------)\n";

class MdiProgramFile : public MdiTest {
 protected:
  [[nodiscard]] XPLRDATA_ST* Request() {
    return static_cast<XPLRDATA_ST*>(ResolveRecord(cnc.vars.At("E.XPLRDATA").value));
  }
  /// The operator picks a file in the explorer.
  void Accept(TextView folder, TextView name) {
    XPLRDATA_ST* request = Request();
    ASSERT_NE(request, nullptr);
    SetField(request->Path, folder);
    SetField(request->File, name);
    EXPECT_EQ(Send(PNL_MSG_RESULT_READY, 2), 0);
  }
  void Ask(const std::string& list) {
    OpenMda(list);
    Menu(32775);
  }
};

TEST_F(MdiProgramFile, TheRequestIsPublishedWithEveryFieldFilled) {
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nDir=C:\\PRG\r\n";
  DestroyTool();
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nDir=C:\\PRG\r\n";
  MakeTool();
  Ask("A\r\n");
  EXPECT_EQ(Asked().back(), "HostExplorerRequest");
  const XPLRDATA_ST* request = Request();
  ASSERT_NE(request, nullptr);
  EXPECT_EQ(request->Owner, 1006);
  EXPECT_EQ(FieldText(request->Title), u"Save program");
  EXPECT_EQ(FieldText(request->Path), u"C:\\PRG");
  EXPECT_EQ(FieldText(request->File), u"");
  EXPECT_EQ(FieldText(request->Filter), u"*");
  EXPECT_EQ(FieldText(request->Extension), u"");
  EXPECT_EQ(request->Flags, 2u);
}

TEST_F(MdiProgramFile, AFolderTooLongForTheRecordIsCut) {
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nDir=" + std::string(1000, 'x') + "\r\n";
  tool->End();
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nDir=" + std::string(1000, 'x') + "\r\n";
  MakeTool();
  files.disc["C:\\P108\\MDAC1.DAT"] = "A\r\n";
  Ask("A\r\n");
  EXPECT_EQ(FieldText(Request()->Path).size(), 259u);
}

TEST_F(MdiProgramFile, ARequestOfADestroyedWindowLeadsNowhere) {
  Ask("A\r\n");
  const std::int32_t number = cnc.vars.At("E.XPLRDATA").value;
  EXPECT_NE(ResolveRecord(number), nullptr);
  DestroyTool();
  EXPECT_EQ(ResolveRecord(number), nullptr);
}

TEST_F(MdiProgramFile, TheStartKeyWaitsForTheExplorer) {
  Ask("A\r\n");
  Forget();
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), IsEmpty());
  Send(PNL_MSG_EXPLORER_ENDED, 5, 1);
  Send(PNL_MSG_EXPLORER_ENDED, 4, 0);
  Send(PNL_MSG_RESULT_READY, 3);
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), IsEmpty());
  Send(PNL_MSG_EXPLORER_ENDED, 5, 0);
  Start();
  EXPECT_THAT(Asked(), testing::Contains("MDILine(0,\"A\",0,4,0)=0"));
}

TEST_F(MdiProgramFile, TheListIsWrittenWithHeaderTitleAndEnd) {
  Ask("G0 X1\r\nM3\r\n");
  Accept(u"C:\\PRG", u"part.1.nc");
  EXPECT_EQ(files.disc["C:\\PRG\\part.1.nc"], std::string(kHeader) + "% part.1\nG0 X1\nM3\nM30");
}

TEST_F(MdiProgramFile, AfterWritingTheListHasTheFocus) {
  // The read-only edit had it, and the arrow keys were dead.
  Ask("G0 X1\r\nM3\r\n");
  view->Move(FakeMdiView::Focus::kElsewhere);
  Accept(u"C:\\PRG", u"p");
  EXPECT_EQ(view->focus, FakeMdiView::Focus::kList);
  EXPECT_TRUE(view->readOnly);
}

TEST_F(MdiProgramFile, AnAnswerInMdiRoleGivesTheFocusToTheEdit) {
  Ask("G0 X1\r\n");
  Command(8);
  view->Move(FakeMdiView::Focus::kElsewhere);
  Accept(u"C:\\PRG", u"p");
  EXPECT_EQ(view->focus, FakeMdiView::Focus::kEdit);
}

TEST_F(MdiProgramFile, AnItemEqualToTheEndOfProgramGetsNoFurtherOne) {
  Ask("M30\r\nM3\r\n");
  Accept(u"C:\\PRG", u"p");
  EXPECT_EQ(files.disc["C:\\PRG\\p"], std::string(kHeader) + "% p\nM30\nM3\n");
}

TEST_F(MdiProgramFile, OnlyAnItemThatIsExactlyTheEndCounts) {
  Ask("m30\r\nM30 \r\nN10 M30\r\n");
  Accept(u"C:\\PRG", u"p");
  EXPECT_EQ(files.disc["C:\\PRG\\p"], std::string(kHeader) + "% p\nm30\nM30 \nN10 M30\nM30");
}

TEST_F(MdiProgramFile, WhatTheBoxShowsIsWrittenNotWhatTheStoreKeeps) {
  Ask("A\r\nB\r\n");
  Send(PNL_MSG_EXPLORER_ENDED, 5, 0);
  Menu(32771);
  Menu(32775);
  Accept(u"C:\\PRG", u"p");
  EXPECT_EQ(files.disc["C:\\PRG\\p"], std::string(kHeader) + "% p\nB\nM30");
}

TEST_F(MdiProgramFile, TheFolderIsKeptForTheNextRun) {
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  MakeTool();
  Ask("A\r\n");
  EXPECT_EQ(FieldText(Request()->Path), u"C:\\PRG");
}

TEST_F(MdiProgramFile, TheFolderIsKeptAlsoWhenTheFileCannotBeWritten) {
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  ASSERT_EQ(windows.boxes.size(), 1u);
  Menu(32775);
  EXPECT_EQ(FieldText(Request()->Path), u"C:\\PRG");
}

TEST_F(MdiProgramFile, AfterWritingTheStartKeyWorksAgain) {
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  view->Move(FakeMdiView::Focus::kList);
  Forget();
  Start();
  EXPECT_THAT(Asked(), testing::Contains("MDILine(0,\"A\",0,4,0)=0"));
}

TEST_F(MdiProgramFile, AReadOnlyFileIsToldInABoxAndLeftAlone) {
  files.disc["C:\\PRG\\p"] = "old";
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].title, u"Save program");
  EXPECT_EQ(windows.boxes[0].text, u"p can't be written");
  EXPECT_EQ(windows.boxes[0].style, BoxStyle::kError);
  EXPECT_EQ(files.disc["C:\\PRG\\p"], "old");
  Forget();
  Start();
  EXPECT_THAT(Asked(), testing::Contains("MDILine(0,\"A\",0,4,0)=0"));
}

TEST_F(MdiProgramFile, AFileThatCannotBeCreatedIsToldInABox) {
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].text, u"p not created");
}

TEST_F(MdiProgramFile, AFullDiscIsToldInABoxAndLeavesTheOldFile) {
  files.disc["C:\\PRG\\p"] = "old";
  Ask("A\r\n");
  files.full = true;
  Accept(u"C:\\PRG", u"p");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].text, u"p not created");
  EXPECT_EQ(files.disc["C:\\PRG\\p"], "old");
}

TEST_F(MdiProgramFile, AHostileFormatOfTheLanguageReadsNothingThatIsNotThere) {
  language.SetText(10, u"%s %s %d %n %5000d");
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  Accept(u"C:\\PRG", u"p");
  ASSERT_EQ(windows.boxes.size(), 1u);
}

TEST_F(MdiProgramFile, TheWindowMayBeGoneWhenTheBoxCloses) {
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  SetField(Request()->Path, u"C:\\PRG");
  SetField(Request()->File, u"p");
  windows.onBox = [this] { DestroyTool(); };
  const std::shared_ptr<MdiSession> kept = tool;
  EXPECT_EQ(Answer({PNL_MSG_RESULT_READY, 2, 0}), 0);
  EXPECT_EQ(tool, nullptr);
}

TEST_F(MdiProgramFile, TheWindowMayBeGoneWithNobodyKeepingTheLogic) {
  files.readOnly = {"C:\\PRG\\p"};
  Ask("A\r\n");
  SetField(Request()->Path, u"C:\\PRG");
  SetField(Request()->File, u"p");
  windows.onBox = [this] { DestroyTool(); };
  EXPECT_EQ(Answer({PNL_MSG_RESULT_READY, 2, 0}), 0);
}

TEST_F(MdiProgramFile, AnAnswerWithoutARequestIsAFileThatCannotBeCreated) {
  Open();
  files.readOnly = {"\\"};
  EXPECT_EQ(Send(PNL_MSG_RESULT_READY, 2), 0);
  EXPECT_EQ(windows.boxes.size(), 1u);
}

TEST_F(MdiProgramFile, AnAnswerWithoutTerminatorsIsReadToTheEndOfItsFields) {
  Ask("A\r\n");
  XPLRDATA_ST* request = Request();
  std::fill(std::begin(request->Path), std::end(request->Path), u'p');
  std::copy_n(u"C:\\", 3, request->Path);
  files.folders.insert("C:\\" + std::string(257, 'p'));
  std::fill(std::begin(request->File), std::end(request->File), u'f');
  EXPECT_EQ(Send(PNL_MSG_RESULT_READY, 2), 0);
  EXPECT_EQ(files.disc.count("C:\\" + std::string(257, 'p') + "\\" + std::string(256, 'f')), 1u);
}

TEST_F(MdiProgramFile, EveryOtherCharacterMayBeInAName) {
  for (const TextView name : {u"a b", u"~", u"\u00A0", u"\u00F1"}) {
    Ask("A\r\n");
    Accept(u"C:\\PRG", name);
    EXPECT_TRUE(windows.boxes.empty()) << ToUtf8(name);
    EXPECT_EQ(files.disc.count("C:\\PRG\\" + ToUtf8(name)), 1u) << ToUtf8(name);
    DestroyTool();
    MakeTool();
  }
}

TEST_F(MdiProgramFile, ANameWithControlCharactersIsRefused) {
  for (const TextView name : {u"a\nb", u"a\x7F", u"\x1F", u"a\x85", u"\x9F"}) {
    Ask("A\r\n");
    windows.boxes.clear();
    SetField(Request()->Path, u"C:\\PRG");
    SetField(Request()->File, name);
    EXPECT_EQ(Send(PNL_MSG_RESULT_READY, 2), 0);
    EXPECT_EQ(windows.boxes.size(), 1u);
    EXPECT_EQ(files.disc.count("C:\\PRG\\" + ToUtf8(name)), 0u);
    DestroyTool();
    MakeTool();
  }
}

}  // namespace
}  // namespace pnl::test
