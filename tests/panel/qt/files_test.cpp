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

TEST_F(FilesTest, AFileOfTheMostBytesIsStillRead) {
  QFile most(Host("most.nc"));
  ASSERT_TRUE(most.open(QIODevice::WriteOnly) && most.resize(kMostProgramBytes));
  EXPECT_EQ(ReadProgram(Host("most.nc")).outcome, FileOutcome::kNotAText) << "read, and full of NULs";
}

TEST_F(FilesTest, TheLayoutSaysHowATextLiesInItsFile) {
  const auto wide = [](std::string_view units, int bytes, bool big) {
    std::string text;
    for (const char unit : units) {
      const std::string zeros(static_cast<std::size_t>(bytes - 1), '\0');
      text += big ? zeros + unit : unit + zeros;
    }
    return text;
  };
  using Encoding = QStringConverter;
  const struct {
    const char* what;
    std::string bytes;
    Encoding::Encoding encoding;
    int mark;
    std::vector<qint64> ends;
    qint64 letter;
  } rows[] = {{"plain", "G0\r\nG1\r\n", Encoding::Utf8, 0, {2, 2, 2}, 1},
              {"unix", "G0\nG1\n", Encoding::Utf8, 0, {1, 1, 2}, 1},
              {"mixed", "G0\r\nG1\rG2\n", Encoding::Utf8, 0, {2, 1, 1}, 1},
              {"mark", "\xEF\xBB\xBFG0\r\n", Encoding::Utf8, 3, {2, 2}, 1},
              {"latin", "\xD8\r\n", Encoding::Latin1, 0, {2}, 1},
              {"utf16", "\xFF\xFE" + wide("G0\n", 2, false), Encoding::Utf16LE, 2, {2}, 2},
              {"utf16 big", "\xFE\xFF" + wide("G0\r\n", 2, true), Encoding::Utf16BE, 2, {4}, 2},
              {"utf32", std::string("\xFF\xFE\0\0", 4) + wide("G0\n", 4, false), Encoding::Utf32LE, 4, {4}, 4},
              {"utf32 big", std::string("\0\0\xFE\xFF", 4) + wide("G0\r\n", 4, true), Encoding::Utf32BE, 4, {8}, 4}};
  for (const auto& row : rows) {
    folder_.Write("layout.nc", row.bytes);
    const ProgramText program = ReadProgram(Host("layout.nc"));
    EXPECT_EQ(program.outcome, FileOutcome::kDone) << row.what;
    EXPECT_EQ(program.layout.encoding, row.encoding) << row.what;
    EXPECT_EQ(program.layout.markBytes, row.mark) << row.what;
    for (std::size_t line = 0; line < row.ends.size(); ++line) {
      EXPECT_EQ(program.layout.EndBytes(static_cast<int>(line)), row.ends[line]) << row.what << line;
    }
    EXPECT_EQ(program.layout.BytesOf(u"AB"), 2 * row.letter) << row.what;
  }
  EXPECT_EQ(ProgramLayout().BytesOf(u"\u00D8"), 2);
  EXPECT_TRUE(ProgramLayout().ends.isEmpty());
  folder_.Write("layout.nc", "G0\r\nG1\r\n");
  EXPECT_TRUE(ReadProgram(Host("layout.nc")).layout.ends.isEmpty()) << "nothing to note where all are alike";
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
  EXPECT_EQ(FolderAbove("C:\\A\\\\"), "C:\\");
  EXPECT_EQ(FolderAbove("C:"), "C:\\");
  EXPECT_EQ(FolderAbove("\\"), "\\");
  EXPECT_EQ(FolderAbove("\\A"), "\\");
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

TEST_F(FilesTest, NoNameHasACharacterThatAFileCannotHave) {
  (void)folder_.Folder("P");
  const auto isBad = [this](const QString& name) {
    return CheckName({}, Resolver(), "C:\\P", name).problem == Word::kNameBad;
  };
  for (const QChar c : QStringLiteral("\\/:*?\"<>|\x1F\x01"))
    EXPECT_TRUE(isBad(QString("a") + c + 'b')) << static_cast<int>(c.unicode());
  EXPECT_TRUE(isBad("."));
  EXPECT_TRUE(isBad(".."));
  EXPECT_TRUE(isBad(QString(256, 'a')));
  EXPECT_FALSE(isBad(QString(255, 'a')));
  EXPECT_FALSE(isBad("a b!.~"));
  EXPECT_FALSE(isBad("..."));
}

TEST_F(FilesTest, ABlankInTheExtensionOrInANameOfNothingElse) {
  (void)folder_.Folder("P");
  FileRequest request;
  request.flags = XPLR_NOBLANKS;
  const auto problem = [&](const char* name) { return CheckName(request, Resolver(), "C:\\P", name).problem; };
  EXPECT_EQ(problem("a b"), Word::kNameBlank);
  EXPECT_EQ(problem(".a b"), Word::kNameBlank) << "it has no title but this";
  EXPECT_EQ(problem("ab.n c"), std::nullopt) << "only the title counts";
  EXPECT_EQ(problem("a b.c.d"), Word::kNameBlank);
}

TEST_F(FilesTest, AnAnswerNeedsItsFolder) {
  (void)folder_.Folder("P");
  FileRequest request;
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\NONE", "a").problem, Word::kFolderMissing);
  EXPECT_EQ(CheckName(request, Resolver(), "X:\\", "a").problem, Word::kFolderMissing);
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P\\", "a").folder, "C:\\P");
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "a").file, "a") << "no extension is asked for";
  EXPECT_FALSE(CheckName(request, Resolver(), "C:\\P", "a").mustMake);
  folder_.Write("P/f", "x");
  request.flags = XPLR_FOLDERMODE | XPLR_MUSTEXIST;
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "f").problem, Word::kFolderMissing) << "a file is no folder";
  EXPECT_EQ(CheckName(request, Resolver(), "X:\\", "f").problem, Word::kFolderMissing);
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P", "..").problem, Word::kNameBad);
  EXPECT_FALSE(CheckName(request, Resolver(), "C:\\", "P").mustMake);
  EXPECT_EQ(CheckName(request, Resolver(), "C:\\P\\\\", "").folder, "C:\\P");
}

TEST_F(FilesTest, ARequestIsReadFromItsRecord) {
  XPLRDATA_ST record{};
  const auto put = [](auto& field, std::u16string_view text) { std::copy(text.begin(), text.end(), field); };
  put(record.Title, u"Save");
  put(record.Path, u"C:\\P");
  put(record.File, u"a");
  put(record.Filter, u"*.nc");
  put(record.Extension, u"nc");
  record.Flags = XPLR_MUSTEXIST;
  const FileRequest request = RequestFrom(record);
  EXPECT_EQ(request.title, "Save");
  EXPECT_EQ(request.folder, "C:\\P");
  EXPECT_EQ(request.file, "a");
  EXPECT_EQ(request.filter, "*.nc");
  EXPECT_EQ(request.extension, "nc");
  EXPECT_EQ(request.flags, static_cast<quint32>(XPLR_MUSTEXIST));
  std::fill(std::begin(record.Extension), std::end(record.Extension), u'x');
  EXPECT_EQ(RequestFrom(record).extension.size(), static_cast<qsizetype>(std::size(record.Extension)))
      << "a field without its end";
}

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
  folder_.Write("P/plain", "");
  EXPECT_EQ(ListFolder(Resolver(), "C:\\P", "*.*")->size(), 5) << "one without a point too";
  EXPECT_EQ(ListFolder(Resolver(), "C:\\P", "*.txt,,")->size(), 2);
  EXPECT_FALSE(ListFolder(Resolver(), "C:\\P\\plain", "*").has_value()) << "a file is no folder";
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
    window_.activateWindow();
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
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
  ASSERT_TRUE(chooser_.Confirm().IsOpen());
  EXPECT_TRUE(chooser_.Confirm().Text().contains("old.nc"));
  chooser_.Confirm().Answer(1);
  EXPECT_TRUE(got_.isEmpty());
  EXPECT_TRUE(chooser_.IsOpen());
  chooser_.Accept();
  chooser_.Confirm().Answer(0);
  EXPECT_EQ(got_, QStringList{"C:\\P|old.nc"});
}

TEST_F(ChooserTest, EscapeLeavesAndAWrongNameStays) {
  Ask(XPLR_MUSTEXIST);
  chooser_.NameEdit().setText("nothing");
  chooser_.Accept();
  EXPECT_EQ(chooser_.Problem(), Say(Word::kFileMissing));
  EXPECT_TRUE(chooser_.IsOpen());
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
  EXPECT_TRUE(chooser_.IsOpen());
  chooser_.Dismiss();
  EXPECT_EQ(got_, QStringList{"left"}) << "a dismissed request tells nobody";
}

TEST_F(ChooserTest, AnAnswerToAQuestionLeadsBackToTheName) {
  Ask(XPLR_CONFIRMOVERWRITE);
  EXPECT_TRUE(chooser_.NameEdit().hasFocus());
  chooser_.NameEdit().setText("old.nc");
  chooser_.Accept();
  EXPECT_EQ(chooser_.Confirm().Text(), Say(Word::kOverwrite, "old.nc"));
  EXPECT_EQ(chooser_.Confirm().Key(0)->text(), Say(Word::kYes));
  EXPECT_EQ(chooser_.Confirm().Key(1)->text(), Say(Word::kNo));
  EXPECT_EQ(chooser_.Confirm().geometry(), chooser_.rect());
  chooser_.NameEdit().setText("new.nc");
  chooser_.Accept();
  EXPECT_TRUE(got_.isEmpty()) << "the question is open";
  chooser_.Confirm().Answer(1);
  EXPECT_TRUE(chooser_.NameEdit().hasFocus());
}

TEST_F(ChooserTest, AQuestionGoesWithItsRequest) {
  Ask(XPLR_CONFIRMOVERWRITE);
  chooser_.NameEdit().setText("old.nc");
  chooser_.Accept();
  ASSERT_TRUE(chooser_.Confirm().IsOpen());
  chooser_.Dismiss();
  EXPECT_FALSE(chooser_.Confirm().IsOpen());
  EXPECT_FALSE(chooser_.isVisible());
  EXPECT_TRUE(got_.isEmpty());
}

TEST_F(ChooserTest, ItsEndIsToldOnce) {
  int finished = 0;
  QObject::connect(&chooser_, &FileChooser::Finished, &chooser_, [&finished] { ++finished; });
  chooser_.Leave();
  chooser_.Dismiss();
  EXPECT_EQ(finished, 0) << "nothing is open";
  Ask(0);
  EXPECT_EQ(window_.children().last(), &chooser_);
  chooser_.Leave();
  chooser_.Leave();
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(got_, QStringList{"left"});
  chooser_.NameEdit().setText("new.nc");
  chooser_.Accept();
  EXPECT_EQ(got_, QStringList{"left"});
}

TEST_F(ChooserTest, ARequestBeginsWithItsTitleItsNameAndItsFolder) {
  FileRequest request;
  request.title = "Take one";
  request.folder = "C:\\P\\NOT\\THERE";
  request.file = "first.nc";
  chooser_.Ask(request, {}, {});
  EXPECT_EQ(chooser_.accessibleName(), "Take one");
  EXPECT_EQ(chooser_.Folder(), "C:\\P") << "the nearest that is there";
  EXPECT_EQ(chooser_.NameEdit().text(), "first.nc");
  EXPECT_EQ(chooser_.NameEdit().selectedText(), "first.nc");
  EXPECT_EQ(chooser_.Problem(), "");
  chooser_.NameEdit().setText("a*b");
  chooser_.Accept();
  EXPECT_EQ(chooser_.Problem(), Say(Word::kNameBad));
  Ask(0);
  EXPECT_EQ(chooser_.Problem(), "");
  EXPECT_EQ(chooser_.NameEdit().text(), "");
  EXPECT_EQ(chooser_.accessibleName(), Say(Word::kChooseFile));
  Ask(XPLR_FOLDERMODE);
  EXPECT_EQ(chooser_.accessibleName(), Say(Word::kChooseFolder));
}

TEST_F(ChooserTest, WhatCannotBeChosenIsUnlit) {
  const auto enabled = [this](int row) { return (chooser_.List().item(row)->flags() & Qt::ItemIsEnabled) != 0; };
  const auto up = [this] { return chooser_.Keys()[0]->isEnabled(); };
  Ask(0);
  EXPECT_TRUE(enabled(0) && enabled(1));
  EXPECT_TRUE(up());
  chooser_.Enter("C:\\");
  EXPECT_FALSE(up()) << "a drive has nothing above";
  Ask(XPLR_LISTONLY);
  EXPECT_FALSE(enabled(0)) << "the folder";
  EXPECT_TRUE(enabled(1));
  EXPECT_FALSE(up());
  emit chooser_.List().itemClicked(chooser_.List().item(1));
  EXPECT_EQ(chooser_.NameEdit().text(), "old.nc");
  Ask(XPLR_FOLDERMODE);
  EXPECT_TRUE(enabled(0));
  EXPECT_FALSE(enabled(1)) << "the file";
  emit chooser_.List().itemClicked(chooser_.List().item(1));
  EXPECT_EQ(chooser_.NameEdit().text(), "");
}

TEST_F(ChooserTest, AFolderListShowsEveryFileWhateverTheFilter) {
  FileRequest request;
  request.folder = "C:\\P";
  request.filter = "*.txt";
  chooser_.Ask(request, {}, {});
  EXPECT_EQ(chooser_.List().count(), 1);
  request.flags = XPLR_FOLDERMODE;
  chooser_.Ask(request, {}, {});
  EXPECT_EQ(chooser_.List().count(), 2);
}

TEST_F(ChooserTest, AFolderIsMadeBeforeItIsHandedOver) {
  Ask(XPLR_FOLDERMODE | XPLR_MUSTEXIST);
  chooser_.NameEdit().setText("fresh");
  chooser_.Accept();
  EXPECT_EQ(got_, QStringList{"C:\\P\\fresh|fresh"});
  EXPECT_TRUE(QFileInfo(Host("P/fresh")).isDir());
}

TEST_F(ChooserTest, TheKeyboardAloneChooses) {
  Ask(0);
  Key(Qt::Key_Down);
  EXPECT_TRUE(chooser_.List().hasFocus());
  EXPECT_EQ(chooser_.List().currentRow(), 0);
  chooser_.List().setCurrentRow(1);
  chooser_.NameEdit().setFocus();
  Key(Qt::Key_Return);
  EXPECT_TRUE(chooser_.IsOpen()) << "the list hasn't the keyboard";
  Key(Qt::Key_Up);
  EXPECT_EQ(chooser_.List().currentRow(), 1) << "where it was";
  chooser_.List().setCurrentRow(0);
  Key(Qt::Key_Enter);
  EXPECT_EQ(chooser_.Folder(), "C:\\P\\sub");
  EXPECT_TRUE(chooser_.IsOpen()) << "a folder is entered only";
  Key(Qt::Key_Backspace);
  Key(Qt::Key_A);
  chooser_.List().setFocus();
  chooser_.List().setCurrentRow(1);
  Key(Qt::Key_Return);
  EXPECT_EQ(got_, QStringList{"C:\\P|old.nc"});
}

TEST_F(ChooserTest, ItsKeysDoWhatTheySay) {
  Ask(0);
  chooser_.Keys()[0]->click();
  EXPECT_EQ(chooser_.Folder(), "C:\\");
  chooser_.Enter("C:\\P");
  chooser_.NameEdit().setText("a.nc");
  chooser_.Keys()[1]->click();
  Ask(0);
  chooser_.Keys()[2]->click();
  Ask(0);
  chooser_.NameEdit().setText("b.nc");
  emit chooser_.NameEdit().returnPressed();
  EXPECT_EQ(got_, (QStringList{"C:\\P|a.nc", "left", "C:\\P|b.nc"}));
}

TEST_F(ChooserTest, ATouchTakesAProblemAway) {
  Ask(0);
  chooser_.NameEdit().setText("a*b");
  chooser_.Accept();
  ASSERT_NE(chooser_.Problem(), "");
  emit chooser_.List().itemClicked(chooser_.List().item(1));
  EXPECT_EQ(chooser_.Problem(), "");
  chooser_.Enter("C:\\NONE");
  EXPECT_EQ(chooser_.Problem(), Say(Word::kFolderMissing));
}

TEST_F(ChooserTest, TabGoesRoundTheChooser) {
  Ask(0);
  const std::vector<QWidget*> places = {&chooser_.NameEdit(), &chooser_.List(),   chooser_.Keys()[0],
                                        chooser_.Keys()[2],   chooser_.Keys()[1], &chooser_.NameEdit()};
  for (QWidget* place : places) {
    EXPECT_TRUE(place->hasFocus());
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
    QCoreApplication::sendEvent(place, &tab);
  }
}

TEST_F(ChooserTest, KeysAndRowsAreBigEnoughForAFinger) {
  const int touch = theme::TouchPixels(chooser_);
  chooser_.SetFontPixels(16);
  Ask(0);
  for (PanelKey* key : chooser_.Keys()) EXPECT_GE(std::min(key->width(), key->height()), touch);
  EXPECT_GE(chooser_.List().visualItemRect(chooser_.List().item(0)).height(), touch);
  EXPECT_GE(chooser_.NameEdit().height(), touch);
  EXPECT_EQ(chooser_.List().item(0)->sizeHint().height(), std::max(touch, 40));
  chooser_.SetFontPixels(6);
  Ask(0);
  EXPECT_EQ(chooser_.List().item(0)->sizeHint().height(), touch);
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
  EXPECT_EQ(answers.size(), 2u) << "nothing is open any more";
}

}  // namespace
}  // namespace panel
