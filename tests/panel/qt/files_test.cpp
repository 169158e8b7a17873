// SPDX-License-Identifier: MIT
// Programs on their way in and out of the editor, the rules of a file's name, and the chooser.
#include <pnltools/pnltools.h>

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "panel/qt/files_fixture.h"
#include "ui/file_chooser.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/program_file.h"
#include "ui/question.h"
#include "ui/theme.h"

namespace panel {
namespace {

TEST_F(FilesTest, AProgramIsReadInTheEncodingItWasWrittenIn) {
  folder_.Write("utf8.nc", "(Ø 10)\nG0\n");
  folder_.Write("latin.nc", "(\xD8 10)\nG0\n");
  folder_.Write("mark.nc", "\xEF\xBB\xBF(Ø 10)\nG0\n");
  folder_.Write("wide.nc", std::string("\xFF\xFEG\0"
                                       "0\0\n\0",
                                       8));
  for (const char* name : {"utf8.nc", "latin.nc", "mark.nc"}) {
    EXPECT_EQ(ReadProgram(Host(name)).text, QString::fromUtf8("(Ø 10)\nG0\n")) << name;
  }
  EXPECT_EQ(ReadProgram(Host("wide.nc")).text, "G0\n");
}

FileOutcome Write(const QString& path, const QString& text) { return WriteProgram(PnlRig()->Files(), path, text); }

TEST_F(FilesTest, AnyLineEndIsALineEndAndSavedLinesEndAsTheControlCountsThem) {
  folder_.Write("any.nc", "G0\r\nG1\nG2\rG3\n\rG4\r\r\nM30");
  const ProgramText program = ReadProgram(Host("any.nc"));
  EXPECT_EQ(program.text, "G0\nG1\nG2\nG3\n\nG4\n\nM30");
  ASSERT_EQ(Write(Host("any.nc"), program.text), FileOutcome::kDone);
  EXPECT_EQ(folder_.Read("any.nc"), "G0\r\nG1\r\nG2\r\nG3\r\n\r\nG4\r\n\r\nM30");
  EXPECT_EQ(ReadProgram(Host("any.nc")).text, program.text);
}

TEST_F(FilesTest, AProgramOfNothingAndOneOfLineEndsComeBack) {
  for (const char* text : {"", "\n", "\n\n\n", "G0", "G0\n"}) {
    ASSERT_EQ(Write(Host("few.nc"), text), FileOutcome::kDone);
    EXPECT_EQ(ReadProgram(Host("few.nc")).text, text);
  }
}

TEST_F(FilesTest, WhatIsNoProgramIsNotOpened) {
  folder_.Write("binary.nc", std::string("G0\0M30", 6));
  (void)folder_.Folder("folder.nc");
  EXPECT_EQ(ReadProgram(Host("binary.nc")).outcome, FileOutcome::kNotAText);
  EXPECT_EQ(ReadProgram(Host("folder.nc")).outcome, FileOutcome::kCannotOpen);
  EXPECT_EQ(ReadProgram(Host("missing.nc")).outcome, FileOutcome::kCannotOpen);
  EXPECT_EQ(ReadProgram(QString()).outcome, FileOutcome::kCannotOpen);
  QFile huge(Host("huge.nc"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(kMostProgramBytes + 1));
  EXPECT_EQ(ReadProgram(Host("huge.nc")).outcome, FileOutcome::kTooBig);
}

TEST_F(FilesTest, ALineThatNoProgramHasIsRefusedBeforeItHangsTheEditor) {
  folder_.Write("long.nc", "G0\n" + std::string(kLongestProgramLine, 'X') + "\nM30\n");
  EXPECT_EQ(ReadProgram(Host("long.nc")).outcome, FileOutcome::kDone);
  folder_.Write("long.nc", "G0\n" + std::string(kLongestProgramLine + 1, 'X'));
  EXPECT_EQ(ReadProgram(Host("long.nc")).outcome, FileOutcome::kNotAText);
}

TEST_F(FilesTest, AReadOnlyProgramIsNotReplaced) {
  folder_.Write("keep.nc", "old");
  Protect("keep.nc");
  EXPECT_EQ(Write(Host("keep.nc"), "new"), FileOutcome::kCannotSave);
  EXPECT_EQ(folder_.Read("keep.nc"), "old");
  EXPECT_EQ(Write(Host("no/folder/x.nc"), "new"), FileOutcome::kCannotSave);
  EXPECT_EQ(Write(QString(), "new"), FileOutcome::kCannotSave);
  (void)folder_.Folder("sub.nc");
  EXPECT_EQ(Write(Host("sub.nc"), "new"), FileOutcome::kCannotSave);
}

TEST_F(FilesTest, AProgramIsReplacedAsTheToolsReplaceTheirFiles) {
  folder_.Write("real.nc", "old");
  std::filesystem::permissions(folder_.Path() / "real.nc", std::filesystem::perms(0640));
  std::filesystem::create_symlink(folder_.Path() / "real.nc", folder_.Path() / "link.nc");
  ASSERT_EQ(Write(Host("link.nc"), "new\n"), FileOutcome::kDone);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path() / "link.nc")) << "a link stays in its place";
  EXPECT_EQ(folder_.Read("real.nc"), "new\r\n");
  EXPECT_EQ(std::filesystem::status(folder_.Path() / "real.nc").permissions(), std::filesystem::perms(0640));
}

TEST(PathTest, FoldersJoinAndClimb) {
  EXPECT_EQ(JoinPath("C:\\", "A"), "C:\\A");
  EXPECT_EQ(JoinPath("C:\\A", "B"), "C:\\A\\B");
  EXPECT_EQ(FolderAbove("C:\\A\\B"), "C:\\A");
  EXPECT_EQ(FolderAbove("C:\\A\\B\\"), "C:\\A");
  EXPECT_EQ(FolderAbove("C:\\A"), "C:\\");
  EXPECT_EQ(FolderAbove("C:\\"), "C:\\");
}

struct NameRow {
  const char* name;
  const char* typed;
  quint32 flags;
  std::optional<Word> problem;
  const char* file;
  bool confirm;
};

class NameRules : public FilesTest, public ::testing::WithParamInterface<NameRow> {};

TEST_P(NameRules, DecideWhatANameComesTo) {
  folder_.Write("P/there.nc", "x");
  folder_.Write("P/locked.nc", "x");
  (void)folder_.Folder("P/sub.nc");
  Protect("P/locked.nc");
  FileRequest request;
  request.extension = "nc";
  request.flags = GetParam().flags;
  const NameAnswer answer = CheckName(request, Resolver(), "C:\\P", GetParam().typed);
  EXPECT_EQ(answer.problem, GetParam().problem);
  if (answer.problem) return;
  EXPECT_EQ(answer.folder, "C:\\P");
  EXPECT_EQ(answer.file.toStdString(), GetParam().file);
  EXPECT_EQ(answer.mustConfirm, GetParam().confirm);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NameRules,
    ::testing::Values(NameRow{"New", "new.nc", XPLR_CONFIRMOVERWRITE, {}, "new.nc", false},
                      NameRow{"ExtensionAdded", "new", 0, {}, "new.nc", false},
                      NameRow{"Trimmed", " new ", 0, {}, "new.nc", false},
                      NameRow{"Confirmed", "there", XPLR_CONFIRMOVERWRITE, {}, "there.nc", true},
                      NameRow{"Unasked", "there.nc", 0, {}, "there.nc", false},
                      NameRow{"Empty", "", 0, Word::kNameMissing, "", false},
                      NameRow{"Blanks", "  ", 0, Word::kNameMissing, "", false},
                      NameRow{"Separator", "a\\b", 0, Word::kNameBad, "", false},
                      NameRow{"Slash", "a/b", 0, Word::kNameBad, "", false},
                      NameRow{"Up", "..", 0, Word::kNameBad, "", false},
                      NameRow{"Pattern", "*.nc", 0, Word::kNameBad, "", false},
                      NameRow{"LineFeed", "a\nb", 0, Word::kNameBad, "", false},
                      NameRow{"IsFolder", "sub.nc", 0, Word::kNameBad, "", false},
                      NameRow{"BlankRefused", "a b.nc", XPLR_NOBLANKS, Word::kNameBlank, "", false},
                      NameRow{"BlankAllowed", "a b.nc", 0, {}, "a b.nc", false},
                      NameRow{"MustExist", "new", XPLR_MUSTEXIST, Word::kFileMissing, "", false},
                      NameRow{"Exists", "there", XPLR_MUSTEXIST, {}, "there.nc", false},
                      NameRow{"ReadOnly", "locked", XPLR_NOREADONLY, Word::kFileReadOnly, "", false},
                      NameRow{"ReadOnlyAllowed", "locked", XPLR_MUSTEXIST, {}, "locked.nc", false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(FilesTest, AnExtensionOfAStarAddsNone) {
  (void)folder_.Folder("P");
  FileRequest request;
  request.extension = "*";
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "new").file, "new");
}

TEST_F(FilesTest, AFolderIsChosenByNameOrByStandingInIt) {
  (void)folder_.Folder("P/Q");
  FileRequest request;
  request.flags = XPLR_FOLDERMODE;
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P\\Q", "").file, "Q");
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "Q").folder, "C:\\P\\Q");
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "R").problem, Word::kFolderMissing);
  request.flags |= XPLR_MUSTEXIST;
  EXPECT_TRUE(CheckName(request, Resolver(), "C:\\P", "R").mustMake);
}

TEST_F(FilesTest, AListHoldsFoldersFirstAndWhatTheFilterLetsThrough) {
  folder_.Write("P/b.nc", "");
  folder_.Write("P/A.NC", "");
  folder_.Write("P/c.txt", "");
  (void)folder_.Folder("P/z");
  const QList<FolderEntry> nc = {{"z", true}, {"A.NC", false}, {"b.nc", false}};
  EXPECT_EQ(ListFolder(Resolver(), "C:\\P", "*.nc"), nc);
  EXPECT_EQ(ListFolder(Resolver(), "C:\\P", "*.*")->size(), 4);
  EXPECT_EQ(ListFolder(Resolver(), "C:\\P", "*.txt, *.nc")->size(), 4);
  EXPECT_FALSE(ListFolder(Resolver(), "C:\\NONE", "*").has_value());
  EXPECT_FALSE(ListFolder(Resolver(), "X:\\", "*").has_value());
  EXPECT_EQ(NearestFolder(Resolver(), "C:\\P\\NOT\\THERE"), "C:\\P");
  EXPECT_EQ(NearestFolder(Resolver(), ""), "C:\\");
  EXPECT_EQ(NearestFolder(Resolver(), "X:\\A"), "X:\\") << "a drive that isn't there ends the climb";
}

class ChooserTest : public FilesTest {
 protected:
  ChooserTest() : chooser_(Resolver(), &window_) {
    window_.resize(800, 600);
    chooser_.setGeometry(0, 0, 800, 400);
    window_.show();
    folder_.Write("P/old.nc", "x");
    (void)folder_.Folder("P/sub");
  }

  void Ask(quint32 flags) {
    FileRequest request;
    request.folder = "C:\\P";
    request.flags = flags;
    chooser_.Ask(
        request, [this](const QString& folder, const QString& file) { got_ << folder + "|" + file; },
        [this] { got_ << "left"; });
  }
  void Key(int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&chooser_, &event);
  }

  QWidget window_;
  FileChooser chooser_;
  QStringList got_;
};

TEST_F(ChooserTest, ANameIsHandedOver) {
  Ask(0);
  EXPECT_TRUE(chooser_.isVisible());
  chooser_.NameEdit().setText("new.nc");
  chooser_.Accept();
  EXPECT_EQ(got_, QStringList{"C:\\P|new.nc"});
  EXPECT_FALSE(chooser_.isVisible());
}

TEST_F(ChooserTest, AnExistingFileIsReplacedOnlyAfterAYes) {
  Ask(XPLR_CONFIRMOVERWRITE);
  chooser_.NameEdit().setText("old.nc");
  chooser_.Accept();
  ASSERT_TRUE(chooser_.Confirm().Stands());
  EXPECT_TRUE(chooser_.Confirm().Text().contains("old.nc"));
  chooser_.Confirm().Answer(1);
  EXPECT_TRUE(got_.isEmpty());
  EXPECT_TRUE(chooser_.Stands());
  chooser_.Accept();
  chooser_.Confirm().Answer(0);
  EXPECT_EQ(got_, QStringList{"C:\\P|old.nc"});
}

TEST_F(ChooserTest, EscapeLeavesAndAWrongNameStays) {
  Ask(XPLR_MUSTEXIST);
  chooser_.NameEdit().setText("nothing");
  chooser_.Accept();
  EXPECT_EQ(chooser_.Problem(), Say(Word::kFileMissing));
  EXPECT_TRUE(chooser_.Stands());
  Key(Qt::Key_Escape);
  EXPECT_EQ(got_, QStringList{"left"});
}

TEST_F(ChooserTest, FoldersAreEnteredAndLeftByKeys) {
  Ask(0);
  ASSERT_EQ(chooser_.List().count(), 2);
  emit chooser_.List().itemClicked(chooser_.List().item(0));
  EXPECT_EQ(chooser_.Folder(), "C:\\P\\sub");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(chooser_.Folder(), "C:\\P");
  emit chooser_.List().itemClicked(chooser_.List().item(1));
  EXPECT_EQ(chooser_.NameEdit().text(), "old.nc");
}

TEST_F(ChooserTest, AListOnlyRequestStaysInItsFolder) {
  Ask(XPLR_LISTONLY);
  emit chooser_.List().itemClicked(chooser_.List().item(0));
  chooser_.GoUp();
  EXPECT_EQ(chooser_.Folder(), "C:\\P");
}

TEST_F(ChooserTest, ASecondRequestLeavesTheFirst) {
  Ask(0);
  Ask(0);
  EXPECT_EQ(got_, QStringList{"left"});
  EXPECT_TRUE(chooser_.Stands());
  chooser_.Dismiss();
  EXPECT_EQ(got_, QStringList{"left"}) << "a dismissed request tells nobody";
}

TEST_F(ChooserTest, KeysAndRowsAreBigEnoughForAFinger) {
  const int touch = theme::TouchPixels(chooser_);
  chooser_.SetFontPixels(16);
  Ask(0);
  for (PanelKey* key : chooser_.Keys()) EXPECT_GE(std::min(key->width(), key->height()), touch);
  EXPECT_GE(chooser_.List().visualItemRect(chooser_.List().item(0)).height(), touch);
  EXPECT_GE(chooser_.NameEdit().height(), touch);
}

TEST(EditorTest, AnInsertedBlockGoesToTheCaretAndOneStepBackUndoesIt) {
  ProgramEditor editor(nullptr);
  editor.resize(400, 300);
  editor.SetProgram("G0\nM30\n", "P");
  QTextCursor cursor = editor.Edit().textCursor();
  cursor.setPosition(3);
  editor.Edit().setTextCursor(cursor);
  editor.Insert("S1000\nF200\n");
  EXPECT_EQ(editor.Text(), "G0\nS1000\nF200\nM30\n");
  editor.Edit().undo();
  EXPECT_EQ(editor.Text(), "G0\nM30\n");
}

TEST(EditorTest, TheStripOfNumbersGrowsWithTheProgram) {
  ProgramEditor editor(nullptr);
  editor.resize(400, 300);
  editor.SetProgram("G0", "P");
  const int before = editor.Edit().NumbersWidth();
  editor.SetProgram(QString("G0\n").repeated(12000), "P");
  EXPECT_GT(editor.Edit().NumbersWidth(), before);
  EXPECT_FALSE(editor.grab().isNull());
}

TEST(QuestionTest, EscapeAndASecondQuestionGiveTheCarefulAnswer) {
  QWidget window;
  window.resize(400, 300);
  Question question(&window);
  question.setGeometry(window.rect());
  window.show();
  std::vector<int> answers;
  const auto note = [&answers](int index) { answers.push_back(index); };
  question.Ask("One?", {"Yes", "No"}, note);
  question.Ask("Two?", {"Yes", "No"}, note);
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(&question, &escape);
  EXPECT_EQ(answers, (std::vector<int>{1, 1}));
  question.Answer(0);
  EXPECT_EQ(answers.size(), 2u) << "nothing stands any more";
}

}  // namespace
}  // namespace panel
