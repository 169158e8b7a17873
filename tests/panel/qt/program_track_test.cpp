// SPDX-License-Identifier: MIT
// The program in the journal: a short program is there whole, a long one as edits of its file or of a copy. The tests
// read the journal back and compare it with the text in the editor.
#include "ui/program_track.h"

#include <QCoreApplication>
#include <QTextCursor>
#include <QTextDocument>
#include <random>

#include "panel/qt/files_fixture.h"
#include "remote/settle.h"
#include "ui/journal_disc.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

using Base = JournalProgram::Base;

constexpr int kPatience = 60'000;

class NobodyAsks : public FileAsker {
 public:
  void Ask(const FileRequest& /*request*/, Accepted /*accepted*/, Left /*left*/) override {}
};

class Track : public FilesTest {
 protected:
  Track()
      : editor_(&window_),
        question_(&window_),
        desk_(editor_, asker_, question_, Resolver(), nullptr),
        track_(editor_, desk_),
        disc_(QString::fromStdString(folder_.Folder("user"))) {}

  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return desk_.Working(); }, kPatience));
  }
  /// Makes and opens a program with so many lines, and waits until it is known.
  void OpenLong(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "N" + std::to_string(i) + " G1 X" + std::to_string(i % 977) + "\r\n";
    folder_.Write("long.nc", text);
    desk_.Load("C:\\long.nc");
    Rest();
    BecomeKnown();
  }
  void BecomeKnown() {
    ASSERT_TRUE(WaitWhile([this] { return track_.Working(); }, kPatience));
  }
  /// A text of that size, in lines of an ordinary length.
  static QString Much(qsizetype size, QChar what = u'A') {
    QString text(size, what);
    for (qsizetype i = 40; i < size; i += 41) text[i] = u'\n';
    return text;
  }
  void Edit(int at, int removed, const QString& added) {
    QTextCursor cursor(editor_.Edit().document());
    cursor.setPosition(at);
    cursor.setPosition(at + removed, QTextCursor::KeepAnchor);
    cursor.insertText(added);
  }
  /// Writes what the track says, as the keeper does.
  ProgramTrack::Taken Keep() {
    auto taken = track_.Take();
    EXPECT_TRUE(taken);
    JournalContents contents;
    contents.program = taken->program;
    const auto written = disc_.Write(contents, taken->copy);
    EXPECT_TRUE(written.done);
    if (taken->copy) track_.OnCopyWritten(written.copyHash);
    return *taken;
  }
  /// What the panel reads from the disc when it starts after a kill. The slot of this panel counts as left.
  LeftProgram Left() {
    LeftJournal left;
    EXPECT_TRUE(QFile::copy(Host("user/PNLPANEL1.JNL"), Host("user/copy.JNL")));
    QFile journal(Host("user/copy.JNL"));
    EXPECT_TRUE(journal.open(QIODevice::ReadOnly));
    left.contents = *ReadJournal(journal.readAll());
    journal.remove();
    left.slot = JournalSlot::TakeFree(Host("other"));
    for (const char* copy : {"A", "B"}) {
      QFile::remove(Host("other/PNLPANEL1") + copy + ".TXT");
      QFile::copy(Host("user/PNLPANEL1") + copy + ".TXT", Host("other/PNLPANEL1") + copy + ".TXT");
    }
    return ProgramOf(left, Resolver()(left.contents.program->path));
  }
  [[nodiscard]] bool Has(const char* name) const { return folder_.Has(std::string("user/") + name); }

  QWidget window_;
  ProgramEditor editor_;
  NobodyAsks asker_;
  Question question_;
  ProgramDesk desk_;
  ProgramTrack track_;
  JournalDisc disc_;
};

TEST_F(Track, AProgramWithoutChangesSaysNothing) {
  EXPECT_FALSE(track_.Take());
  folder_.Write("a.nc", "G0\n");
  desk_.Load("C:\\a.nc");
  Rest();
  EXPECT_FALSE(track_.Take());
  Edit(0, 0, "N1 ");
  EXPECT_TRUE(track_.Take());
  editor_.Edit().undo();
  EXPECT_FALSE(track_.Take());
}

TEST_F(Track, AShortProgramIsKeptWhole) {
  folder_.Write("a.nc", "G0\r\nM30\r\n");
  desk_.Load("C:\\a.nc");
  Rest();
  Edit(0, 0, QStringLiteral("N1 \u00a0\u00d1"));
  const auto taken = Keep();
  EXPECT_EQ(taken.program.base, Base::kNone);
  EXPECT_EQ(taken.program.path, "C:\\a.nc");
  EXPECT_FALSE(taken.copy);
  // Its file may go or change.
  folder_.Write("a.nc", "another");
  const LeftProgram left = Left();
  EXPECT_TRUE(left.whole);
  EXPECT_EQ(left.text, QStringLiteral("N1 \u00a0\u00d1G0\nM30\n"));
}

TEST_F(Track, OfALongProgramOnlyTheEditsAreKept) {
  OpenLong(60'000);
  Edit(5, 2, "(a)");
  Edit(200'000, 0, "\n(b)\n");
  const auto taken = Keep();
  EXPECT_EQ(taken.program.base, Base::kFile);
  EXPECT_FALSE(taken.copy);
  EXPECT_EQ(taken.program.pieces.size(), 5u);
  EXPECT_LT(QFile(Host("user/PNLPANEL1.JNL")).size(), 1000);
  const LeftProgram left = Left();
  EXPECT_TRUE(left.whole);
  EXPECT_FALSE(left.saved);
  EXPECT_EQ(left.text, editor_.Text());
}

TEST_F(Track, RandomEditsOfALongProgramComeBack) {
  OpenLong(20'000);
  std::mt19937 random(11);
  const auto below = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  for (int i = 0; i < 200; ++i) {
    const int length = editor_.Edit().document()->characterCount() - 1;
    const int at = below(length);
    Edit(at, std::min(below(50), length - at), QString(below(9), QChar(i % 7 == 0 ? u'\n' : u'z')));
    if (i % 13 == 0) editor_.Edit().undo();
    if (i % 29 == 0) editor_.Edit().redo();
  }
  Keep();
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, ALongProgramWhoseFileHasChangedGivesWhatWasTyped) {
  OpenLong(20'000);
  Edit(5, 0, "(first)");
  Edit(9000, 0, "(second)");
  Keep();
  folder_.Write("long.nc", "another\r\n");
  const LeftProgram left = Left();
  EXPECT_FALSE(left.whole);
  EXPECT_EQ(left.text, "(first)\n(second)");
}

TEST_F(Track, AProgramWhoseFileHasItsTextAlreadyCountsAsSaved) {
  OpenLong(20'000);
  Edit(0, 0, "(x)");
  Keep();
  EXPECT_FALSE(Left().saved);
  folder_.Write("a.nc", "G0\n");
  desk_.Load("C:\\a.nc");
  Rest();
  Edit(0, 0, "N1 ");
  Keep();
  folder_.Write("a.nc", "N1 G0\n");
  EXPECT_TRUE(Left().saved);
}

TEST_F(Track, ManyTypedCharactersMakeOneCopyAndAfterwardsOnlyEdits) {
  OpenLong(20'000);
  Edit(0, 0, Much(ProgramTrack::kMostTyped));
  Edit(0, 0, "BB");
  EXPECT_TRUE(Keep().copy);
  EXPECT_EQ(Left().text, editor_.Text());
  Edit(10, 0, "CC");
  const auto next = Keep();
  EXPECT_EQ(next.program.base, Base::kCopy);
  EXPECT_FALSE(next.copy);
  EXPECT_LT(QFile(Host("user/PNLPANEL1.JNL")).size(), 1000);
  EXPECT_EQ(Left().text, editor_.Text());
  // The next copy takes the other name, and the old one goes once the journal refers to the new one.
  Edit(0, 0, Much(ProgramTrack::kMostTyped, u'D'));
  Edit(0, 0, "E");
  EXPECT_NE(Keep().program.copy, next.program.copy);
  EXPECT_NE(Has("PNLPANEL1A.TXT"), Has("PNLPANEL1B.TXT"));
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, AsManyTypedCharactersAsAJournalTakesNeedNoCopy) {
  OpenLong(20'000);
  Edit(0, 0, Much(ProgramTrack::kMostTyped));
  EXPECT_FALSE(Keep().copy);
  EXPECT_EQ(Left().text, editor_.Text());
  Edit(0, 0, "B");
  EXPECT_TRUE(Keep().copy);
}

TEST_F(Track, ACopyThatIsWrittenAfterASaveSaysNothingOfTheFile) {
  OpenLong(20'000);
  Edit(0, 100'000, Much(300'000));
  const auto taken = track_.Take();
  ASSERT_TRUE(taken && taken->copy);
  desk_.Store("C:\\long.nc");
  Rest();
  BecomeKnown();
  track_.OnCopyWritten(HashOf(*taken->copy) + 1);
  Edit(3, 0, "(not)");
  EXPECT_EQ(Keep().program.base, Base::kFile);
  const LeftProgram left = Left();
  EXPECT_TRUE(left.whole);
  EXPECT_EQ(left.text, editor_.Text());
}

TEST_F(Track, OneBigChangeMakesACopy) {
  OpenLong(20'000);
  Edit(0, 100'000, Much(300'000));
  EXPECT_TRUE(Keep().copy);
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, ALongProgramWithoutAFileIsCopied) {
  Edit(0, 0, Much(100'000));
  EXPECT_TRUE(Keep().copy);
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, ACopyThatCouldNotBeWrittenIsMadeAgain) {
  Edit(0, 0, Much(100'000));
  const int first = Keep().program.copy;
  // Without a journal on the disc that refers to it, the same place is tried again.
  track_.TreatAsNew();
  const auto failed = track_.Take();
  ASSERT_TRUE(failed && failed->copy);
  EXPECT_NE(failed->program.copy, first);
  track_.OnCopyWritten(std::nullopt);
  const auto again = track_.Take();
  ASSERT_TRUE(again && again->copy);
  EXPECT_EQ(again->program.copy, failed->program.copy);
}

TEST_F(Track, TextWithHalfASurrogatePairIsKeptAsItIsReadAgain) {
  Edit(0, 0, Much(100'000) + QChar(0xD800));
  Keep();
  const LeftProgram left = Left();
  EXPECT_TRUE(left.whole);
  EXPECT_EQ(left.text.back(), QChar(u'?'));
}

TEST_F(Track, AfterASaveTheEditsAreThoseOfTheNewFile) {
  OpenLong(20'000);
  Edit(0, 0, "(saved)");
  desk_.Store("C:\\long.nc");
  Rest();
  EXPECT_FALSE(track_.Take());
  BecomeKnown();
  Edit(3, 0, "(not)");
  EXPECT_EQ(Keep().program.base, Base::kFile);
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, WhatIsTypedWhileAProgramIsSavedIsKept) {
  OpenLong(20'000);
  Edit(0, 0, "(saved)");
  desk_.Store("C:\\long.nc");
  Edit(0, 0, "(typed)");
  Rest();
  ASSERT_TRUE(editor_.IsModified());
  Keep();
  EXPECT_EQ(Left().text, editor_.Text());
}

TEST_F(Track, AProgramThatWasTakenBackIsUnsavedAndKept) {
  folder_.Write("long.nc", "old\n");
  bool shown = false;
  desk_.TakeBack("C:\\long.nc", Much(200'000) + "\nB", [this, &shown] {
    shown = true;
    track_.TreatAsNew();
  });
  Rest();
  EXPECT_TRUE(shown);
  EXPECT_TRUE(editor_.IsModified());
  EXPECT_EQ(desk_.Path(), "C:\\long.nc");
  EXPECT_EQ(Keep().program.base, Base::kCopy);
  EXPECT_EQ(Left().text, editor_.Text());
  EXPECT_EQ(folder_.Read("long.nc"), "old\n");
}

TEST_F(Track, WithoutContentsNothingIsLeftInTheFolder) {
  Edit(0, 0, "G0");
  Keep();
  EXPECT_TRUE(Has("PNLPANEL1.JNL"));
  EXPECT_TRUE(disc_.Write({}, std::nullopt).done);
  EXPECT_TRUE(QDir(Host("user")).isEmpty());
}

}  // namespace
}  // namespace panel
