// SPDX-License-Identifier: MIT
// Programs on their way in and out of the editor, panel paths, and the record of a request.
#include <pnltools/pnltools.h>

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "panel/qt/files_fixture.h"
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

TEST(FileRequestTest, ARecordTakesARequestAndLeavesOutWhatFindsNoRoom) {
  XPLRDATA_ST record{};
  record.Owner = 7;
  FileRequest request;
  request.title = "Save";
  request.folder = "C:\\P";
  request.file = "a.nc";
  request.filter = "*.nc";
  request.extension = "nc";
  request.flags = XPLR_MUSTEXIST;
  Fill(record, request);
  EXPECT_EQ(record.Owner, 7);
  EXPECT_EQ(QString::fromUtf16(record.Title), "Save");
  EXPECT_EQ(FolderOf(record), "C:\\P");
  EXPECT_EQ(FileOf(record), "a.nc");
  EXPECT_EQ(QString::fromUtf16(record.Filter), "*.nc");
  EXPECT_EQ(QString::fromUtf16(record.Extension), "nc");
  EXPECT_EQ(record.Flags, static_cast<quint32>(XPLR_MUSTEXIST));
  request.file = QString(256, 'N');
  request.folder = "C:\\" + QString(256, 'F');
  Fill(record, request);
  EXPECT_EQ(FileOf(record), "") << "no room for its end";
  EXPECT_EQ(FolderOf(record), request.folder) << "it just fits";
  std::fill(std::begin(record.File), std::end(record.File), u'x');
  EXPECT_EQ(FileOf(record).size(), 256) << "a field without its end";
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

TEST_F(FilesTest, AByteOfAFileLiesInItsLine) {
  struct Row {
    const char* bytes;
    std::vector<int> lines;  // of each byte, and of the one past the end
  };
  for (const Row& row : {Row{"a\r\nb\r\n", {0, 0, 0, 1, 1, 1, 2}}, Row{"a\nb", {0, 0, 1, 1}},
                         Row{"\xEF\xBB\xBF\xC3\x98\nb", {0, 0, 0, 0, 0, 0, 1, 1}}, Row{"", {0}}}) {
    folder_.Write("p.nc", row.bytes);
    const ProgramText program = ReadProgram(Host("p.nc"));
    for (std::size_t i = 0; i < row.lines.size(); ++i) {
      EXPECT_EQ(LineAt(program, static_cast<qint64>(i)), row.lines[i]) << row.bytes << " at " << i;
    }
    EXPECT_EQ(LineAt(program, -5), 0);
    EXPECT_EQ(LineAt(program, 999), row.lines.back());
  }
}

}  // namespace
}  // namespace panel
