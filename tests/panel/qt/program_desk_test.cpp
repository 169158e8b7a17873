// SPDX-License-Identifier: MIT
// Programs opened, changed and saved while the panel goes on hearing its keys: what is on its way, what is asked
// meanwhile, and what is said in the end.
#include "ui/program_desk.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTextBlock>
#include <thread>

#include "common/words.h"
#include "panel/qt/files_fixture.h"
#include "remote/settle.h"
#include "support/text_catcher.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

constexpr int kPatience = 60'000;

/// Keeps what is asked until the test answers it.
class KeptRequest : public FileAsker {
 public:
  void Ask(const FileRequest& request, Accepted accepted, Left left) override {
    Leave();
    asked = request;
    accepted_ = std::move(accepted);
    left_ = std::move(left);
  }
  [[nodiscard]] bool IsOpen() const { return static_cast<bool>(accepted_); }
  void Accept(const QString& folder, const QString& file) {
    left_ = nullptr;
    if (const auto accepted = std::exchange(accepted_, nullptr)) accepted(folder, file);
  }
  void Leave() {
    accepted_ = nullptr;
    if (const auto left = std::exchange(left_, nullptr)) left();
  }

  FileRequest asked;

 private:
  Accepted accepted_;
  Left left_;
};

class DeskTest : public FilesTest {
 protected:
  DeskTest() : editor_(&window_), question_(&window_), other_(&window_), desk_(MakeDesk()) {
    other_.setFocusPolicy(Qt::StrongFocus);
    UseWords("en");
    folder_.Write("PROGRAMS/a.nc", "G0 X1\n");
    Listen();
    window_.show();
    window_.activateWindow();
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  std::unique_ptr<ProgramDesk> MakeDesk() {
    return std::make_unique<ProgramDesk>(editor_, asker_, question_, Resolver(), nullptr);
  }
  void Listen() {
    QObject::connect(desk_.get(), &ProgramDesk::Said, desk_.get(),
                     [this](const QString& text, bool warning) { said_ << (warning ? "!" : "") + text; });
  }
  /// Until nothing is on its way.
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return desk_->Working(); }, kPatience));
  }
  void Load(const char* name) {
    desk_->Load(QString("C:\\") + name);
    Rest();
  }
  /// Marks the first three bytes of a program in the folder of programs.
  void ShowFirstWordOf(const char16_t* file) {
    pnl::rig::ProgramSpot spot;
    spot.folder = u"C:\\PROGRAMS";
    spot.file = file;
    spot.position = 0;
    spot.span = 3;
    desk_->ShowSpot(spot);
  }
  void Store(const char* name) {
    desk_->Store(QString("C:\\") + name);
    Rest();
  }

  QWidget window_;
  ProgramEditor editor_;
  KeptRequest asker_;
  Question question_;
  QWidget other_;  // somebody else who may have the keyboard
  std::unique_ptr<ProgramDesk> desk_;
  QStringList said_;
};

TEST_F(DeskTest, AProgramIsOpenedChangedAndSaved) {
  desk_->Open();
  ASSERT_TRUE(asker_.IsOpen());
  EXPECT_EQ(asker_.asked.folder, "C:\\PROGRAMS");
  asker_.Accept("C:\\PROGRAMS", "a.nc");
  Rest();
  EXPECT_EQ(editor_.Text(), "G0 X1\n");
  EXPECT_EQ(editor_.Name(), "C:\\PROGRAMS\\a.nc");
  EXPECT_FALSE(editor_.IsModified());
  editor_.Insert("(first)\n");
  EXPECT_TRUE(editor_.IsModified());
  desk_->Save();
  Rest();
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_EQ(folder_.Read("PROGRAMS/a.nc"), "(first)\r\nG0 X1\r\n");
  EXPECT_EQ(said_, (QStringList{"Opened: C:\\PROGRAMS\\a.nc", "Saved: C:\\PROGRAMS\\a.nc"}));
}

TEST_F(DeskTest, AProgramWithoutAFileIsAskedForItsName) {
  editor_.Insert("M30\n");
  desk_->Save();
  ASSERT_TRUE(asker_.IsOpen());
  asker_.Accept("C:\\PROGRAMS", "b.nc");
  Rest();
  EXPECT_EQ(folder_.Read("PROGRAMS/b.nc"), "M30\r\n");
  EXPECT_EQ(editor_.Name(), "C:\\PROGRAMS\\b.nc");
  EXPECT_EQ(desk_->Path(), "C:\\PROGRAMS\\b.nc");
}

TEST_F(DeskTest, EachRequestHasItsFlagsItsTitleAndWhereItBegins) {
  folder_.Write("OTHER/b.nc", "G0");
  constexpr quint32 kWrites = XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY;
  const struct {
    void (ProgramDesk::*ask)();
    QString title;
    quint32 flags;
    const char* file;
    const char* extension;
  } rows[] = {{&ProgramDesk::Open, Say(Word::kOpen), XPLR_MUSTEXIST, "", ""},
              {&ProgramDesk::Browse, "", XPLR_MUSTEXIST, "", ""},
              {&ProgramDesk::SaveAs, Say(Word::kSaveAs), kWrites, "b.nc", "nc"},
              {&ProgramDesk::New, Say(Word::kNew), kWrites, "", "nc"}};
  desk_->SetProgramsFolder("C:\\HOME");
  for (const bool loaded : {false, true}) {
    if (loaded) Load("OTHER\\b.nc");
    for (const auto& row : rows) {
      (desk_.get()->*row.ask)();
      ASSERT_TRUE(asker_.IsOpen());
      EXPECT_EQ(asker_.asked.title, row.title);
      EXPECT_EQ(asker_.asked.flags, row.flags);
      EXPECT_EQ(asker_.asked.folder, loaded ? "C:\\OTHER" : "C:\\HOME");
      EXPECT_EQ(asker_.asked.file, loaded ? row.file : "");
      EXPECT_EQ(asker_.asked.extension, row.extension);
      EXPECT_EQ(asker_.asked.filter, "*");
      asker_.Leave();
    }
  }
}

TEST_F(DeskTest, AProgramThatHasItsFileHasTheKeyboard) {
  for (const auto ask : {&ProgramDesk::Open, &ProgramDesk::SaveAs, &ProgramDesk::New, &ProgramDesk::Browse}) {
    for (const bool accepted : {true, false}) {
      other_.setFocus();
      (desk_.get()->*ask)();
      if (accepted) {
        asker_.Accept("C:\\PROGRAMS", "a.nc");
      } else {
        asker_.Leave();
      }
      EXPECT_EQ(editor_.Edit().hasFocus(), accepted) << "whoever asked knows where he was";
      Rest();
    }
  }
}

TEST_F(DeskTest, AFileThatIsAcceptedAmongTheFilesIsOpened) {
  desk_->Browse();
  asker_.Accept("C:\\PROGRAMS", "a.nc");
  Rest();
  EXPECT_EQ(editor_.Text(), "G0 X1\n");
  editor_.Insert("(mine)");
  desk_->Browse();
  EXPECT_FALSE(question_.IsOpen()) << "looking at files loses nothing";
  asker_.Accept("C:\\PROGRAMS", "a.nc");
  ASSERT_TRUE(question_.IsOpen());
  question_.Answer(1);
  Rest();
  EXPECT_EQ(editor_.Text(), "(mine)G0 X1\n");
}

TEST_F(DeskTest, WhyAProgramCannotBeReadIsSaid) {
  folder_.Write("binary.nc", std::string("G0\0M30", 6));
  QFile huge(Host("huge.nc"));
  // A file of a gigabyte that takes no room on the disc.
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{1} << 30));
  Load("binary.nc");
  Load("huge.nc");
  Load("none.nc");
  EXPECT_EQ(said_, (QStringList{"!Not a program text: C:\\binary.nc",
                                "!Too big for the editor, 1024 MB of at most 32 MB: C:\\huge.nc",
                                "!Can't be read: C:\\none.nc"}));
  ASSERT_TRUE(huge.resize(kMostProgramBytes + 1));
  Load("huge.nc");
  EXPECT_EQ(said_.last(), "!Too big for the editor, 32.1 MB of at most 32 MB: C:\\huge.nc")
      << "a size above the limit reads as more";
}

TEST_F(DeskTest, AProgramThatCannotBeReadLeavesTheOldOneItsFile) {
  Load("PROGRAMS\\a.nc");
  Load("none.nc");
  EXPECT_EQ(desk_->Path(), "C:\\PROGRAMS\\a.nc");
  EXPECT_EQ(editor_.Name(), "C:\\PROGRAMS\\a.nc");
  EXPECT_EQ(editor_.Text(), "G0 X1\n");
}

TEST_F(DeskTest, ANewProgramHasTheKeyboardAndItsNameButNoFileUntilItIsSaved) {
  Load("PROGRAMS\\a.nc");
  desk_->New();
  EXPECT_EQ(editor_.Text(), "G0 X1\n") << "the old one stays until there is a name";
  asker_.Accept("C:\\PROGRAMS", "n.nc");
  EXPECT_TRUE(editor_.Edit().hasFocus());
  EXPECT_EQ(editor_.Text(), "");
  EXPECT_EQ(editor_.Name(), "C:\\PROGRAMS\\n.nc");
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_FALSE(folder_.Has("PROGRAMS/n.nc"));
  EXPECT_FALSE(desk_->CaretSpot());
  editor_.Insert("M2\n");
  desk_->Save();
  Rest();
  EXPECT_FALSE(asker_.IsOpen()) << "the name was asked for already";
  EXPECT_EQ(folder_.Read("PROGRAMS/n.nc"), "M2\r\n");
}

TEST_F(DeskTest, ANewProgramThatIsLeftWithoutANameChangesNothing) {
  Load("PROGRAMS\\a.nc");
  desk_->New();
  asker_.Leave();
  EXPECT_EQ(desk_->Path(), "C:\\PROGRAMS\\a.nc");
  EXPECT_EQ(editor_.Text(), "G0 X1\n");
}

TEST_F(DeskTest, TheHeadSaysWhatIsOnItsWay) {
  desk_->Load("C:\\PROGRAMS\\a.nc");
  editor_.resize(600, 300);
  EXPECT_TRUE(pnl::test::TextsOf(editor_).contains(Say(Word::kOpening, "C:\\PROGRAMS\\a.nc")));
  Rest();
  EXPECT_TRUE(pnl::test::TextsOf(editor_).contains("C:\\PROGRAMS\\a.nc"));
}

TEST_F(DeskTest, TheSpotBeginsAtTheWordInWhichTheCaretStands) {
  folder_.Write("spot.nc", "G1 X2 F9\r\nM30\r\n");
  Load("spot.nc");
  const struct {
    int caret;
    int position;
    int span;
  } rows[] = {{0, 0, 0}, {2, 0, 0}, {3, 0, 3}, {5, 0, 3}, {6, 0, 6}, {8, 0, 6}, {9, 10, 0}, {12, 10, 0}};
  for (const auto& row : rows) {
    QTextCursor caret = editor_.Edit().textCursor();
    caret.setPosition(row.caret);
    editor_.Edit().setTextCursor(caret);
    ASSERT_TRUE(desk_->CaretSpot());
    EXPECT_EQ(desk_->CaretSpot()->position, row.position) << row.caret;
    EXPECT_EQ(desk_->CaretSpot()->span, row.span) << row.caret;
  }
}

TEST_F(DeskTest, AProgramSavedAnewLiesAsTheControlCountsIt) {
  folder_.Write("unix.nc", "\xEF\xBB\xBFG0\nG1\n");
  Load("unix.nc");
  editor_.Edit().moveCursor(QTextCursor::End);
  EXPECT_EQ(desk_->CaretSpot()->position, 9);
  Store("unix.nc");
  EXPECT_EQ(desk_->CaretSpot()->position, 8) << "no mark, and two bytes at each line's end";
}

TEST_F(DeskTest, TheAnswersToChangesThatNoFileHas) {
  editor_.Insert("G1");
  int gone = 0;
  desk_->AskToDiscard([&gone] { ++gone; });
  EXPECT_EQ(question_.Text(), Say(Word::kDiscardChanges));
  question_.Answer(1);
  EXPECT_EQ(gone, 0);
  EXPECT_TRUE(editor_.Edit().hasFocus());
  desk_->AskToDiscard([&gone] { ++gone; });
  question_.Answer(0);
  EXPECT_EQ(gone, 1);
  editor_.SetSaved();
  desk_->AskToDiscard([&gone] { ++gone; });
  EXPECT_EQ(gone, 2) << "nothing would be lost";
  EXPECT_FALSE(question_.IsOpen());
}

TEST_F(DeskTest, ChangesAreNotDroppedWithoutAsking) {
  editor_.Insert("G1");
  desk_->New();
  ASSERT_TRUE(question_.IsOpen());
  question_.Answer(1);
  EXPECT_EQ(editor_.Text(), "G1");
  desk_->New();
  question_.Answer(0);
  EXPECT_EQ(editor_.Text(), "G1") << "not before the new one has its name";
  asker_.Accept("C:\\PROGRAMS", "n.nc");
  EXPECT_EQ(editor_.Text(), "");
  EXPECT_FALSE(editor_.IsModified());
}

TEST_F(DeskTest, AFileThatCannotBeReadOrWrittenLeavesTheTextAndSaysSo) {
  editor_.Insert("G1");
  Load("PROGRAMS\\none.nc");
  Store("NONE\\x.nc");
  desk_->Store("X:\\x.nc");
  Rest();
  EXPECT_EQ(editor_.Text(), "G1");
  EXPECT_TRUE(editor_.IsModified());
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_EQ(said_, (QStringList{"!Can't be read: C:\\PROGRAMS\\none.nc", "!Can't be written: C:\\NONE\\x.nc",
                                "!Can't be written: X:\\x.nc"}));
}

TEST_F(DeskTest, ANoBreakSpaceComesBackFromTheEditor) {
  folder_.Write("space.nc", "(10\xC2\xA0mm)\n");
  Load("space.nc");
  Store("space.nc");
  EXPECT_EQ(folder_.Read("space.nc"), "(10\xC2\xA0mm)\r\n");
}

TEST_F(DeskTest, NothingCanBeTypedIntoAProgramOnItsWay) {
  editor_.Insert("old");
  desk_->Load("C:\\PROGRAMS\\a.nc");
  EXPECT_TRUE(desk_->Working());
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  desk_->Store("C:\\PROGRAMS\\other.nc");
  EXPECT_EQ(said_, QStringList{"!The program is still being opened"});
  Rest();
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_EQ(editor_.Text(), "G0 X1\n");
  EXPECT_FALSE(folder_.Has("PROGRAMS/other.nc"));
}

TEST_F(DeskTest, ANewProgramTakesThePlaceOfOneOnItsWay) {
  desk_->Load("C:\\PROGRAMS\\a.nc");
  desk_->New();
  asker_.Accept("C:\\PROGRAMS", "n.nc");
  Rest();
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(editor_.Text(), "");
  EXPECT_EQ(desk_->Path(), "C:\\PROGRAMS\\n.nc");
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_TRUE(said_.isEmpty()) << said_.join('|').toStdString();
}

TEST_F(DeskTest, TheLastOfTwoProgramsThatAreOpenedIsShown) {
  folder_.Write("PROGRAMS/b.nc", "G1 Y2\n");
  desk_->Load("C:\\PROGRAMS\\a.nc");
  desk_->Load("C:\\PROGRAMS\\b.nc");
  Rest();
  EXPECT_EQ(editor_.Text(), "G1 Y2\n");
  EXPECT_EQ(said_, QStringList{"Opened: C:\\PROGRAMS\\b.nc"});
}

TEST_F(DeskTest, WhatIsTypedWhileAProgramIsWrittenStaysAChange) {
  editor_.Insert("G1\n");
  desk_->Store("C:\\c.nc");
  editor_.Insert("G2\n");
  Rest();
  EXPECT_EQ(folder_.Read("c.nc"), "G1\r\n");
  EXPECT_TRUE(editor_.IsModified());
  EXPECT_EQ(editor_.Name(), "C:\\c.nc");
}

TEST_F(DeskTest, ASecondSaveWaitsForTheFirst) {
  editor_.Insert("G1\n");
  desk_->Store("C:\\c.nc");
  editor_.Insert("G2\n");
  desk_->Store("C:\\c.nc");
  Rest();
  EXPECT_EQ(folder_.Read("c.nc"), "G1\r\nG2\r\n");
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_EQ(said_, (QStringList{"Saved: C:\\c.nc", "Saved: C:\\c.nc"}));
}

TEST_F(DeskTest, WhoDiscardsWhileAProgramIsWrittenIsNotAskedForIt) {
  editor_.Insert("G1\n");
  desk_->Store("C:\\c.nc");
  desk_->New();
  EXPECT_EQ(editor_.Text(), "G1\n") << "not before it is written";
  EXPECT_FALSE(asker_.IsOpen());
  Rest();
  EXPECT_FALSE(question_.IsOpen());
  EXPECT_TRUE(asker_.IsOpen());
  EXPECT_EQ(folder_.Read("c.nc"), "G1\r\n");
}

TEST_F(DeskTest, AnErrorsPlaceInTheOpenProgramAsksNothingAndReadsNothingAnew) {
  Load("PROGRAMS\\a.nc");
  editor_.Edit().moveCursor(QTextCursor::End);
  editor_.Insert("(mine)");
  said_.clear();
  ShowFirstWordOf(u"A.NC");
  EXPECT_FALSE(question_.IsOpen());
  Rest();
  EXPECT_EQ(editor_.Edit().textCursor().selectedText(), "X1") << "in the first line, too";
  EXPECT_EQ(editor_.Text(), "G0 X1\n(mine)");
  EXPECT_TRUE(said_.isEmpty()) << said_.join('|').toStdString();
}

TEST_F(DeskTest, APlaceIsNotMarkedInAProgramThatWasShownMeanwhile) {
  Load("PROGRAMS\\a.nc");
  ShowFirstWordOf(u"a.nc");
  desk_->TakeBack("C:\\PROGRAMS\\b.nc", "M3 M4\n", [] {});
  ASSERT_EQ(editor_.Text(), "M3 M4\n");
  Rest();
  EXPECT_FALSE(editor_.Edit().textCursor().hasSelection());
  EXPECT_EQ(editor_.Edit().textCursor().position(), 0);
}

TEST_F(DeskTest, WhatIsTakenBackTakesThePlaceOfAProgramOnItsWayAndHasNoFileYet) {
  Load("PROGRAMS\\a.nc");
  ASSERT_TRUE(desk_->CaretSpot());
  said_.clear();
  desk_->Load("C:\\PROGRAMS\\a.nc");
  desk_->TakeBack("C:\\PROGRAMS\\b.nc", "M3\n", [] {});
  Rest();
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(editor_.Text(), "M3\n");
  EXPECT_EQ(desk_->Path(), "C:\\PROGRAMS\\b.nc");
  EXPECT_TRUE(said_.isEmpty()) << said_.join('|').toStdString();
  editor_.SetSaved();
  EXPECT_FALSE(desk_->CaretSpot()) << "the control has no such text";
}

/// A save that was asked for while another one ran, and that an opening refuses, says nothing at its end to whoever
/// waits for it. The end of the opening does.
class HeldUpTest : public DeskTest {
 protected:
  /// Has somebody wait for a save, and then opens a program.
  void HoldUp(const char* name) {
    editor_.Insert("G1");
    desk_->Store("C:\\one.nc");
    while (!folder_.Has("one.nc")) std::this_thread::yield();
    desk_->Store("C:\\two.nc");
    desk_->AskToDiscard([this] { went_ = true; });
    desk_->Load(QString("C:\\") + name);
  }
  void WriteBig(const char* name, const std::string& end) {
    std::string text;
    for (int i = 0; i < 150'000; ++i) text += "N" + std::to_string(i) + " G1 X1 (big)\r\n";
    folder_.Write(name, text + end);
  }
  bool went_ = false;
};

TEST_F(HeldUpTest, AnOpeningThatIsRefusedLetsThoseWhoWaitGoOn) {
  WriteBig("bad.nc", std::string(1, '\0'));
  HoldUp("bad.nc");
  Rest();
  EXPECT_TRUE(said_.contains("!Not a program text: C:\\bad.nc")) << said_.join('|').toStdString();
  EXPECT_TRUE(went_);
}

TEST_F(HeldUpTest, ANewProgramInPlaceOfTheOneThatIsOpenedLetsThoseWhoWaitGoOn) {
  WriteBig("big.nc", "");
  HoldUp("big.nc");
  ASSERT_TRUE(WaitWhile([this] { return said_.size() < 2; }, kPatience));
  ASSERT_EQ(said_.last(), "!" + Say(Word::kStillOpening));
  EXPECT_FALSE(went_);
  desk_->New();
  asker_.Accept("C:\\PROGRAMS", "n.nc");
  EXPECT_TRUE(went_);
}

TEST_F(DeskTest, TheEndOfThePanelWaitsForAProgramThatIsBeingWritten) {
  editor_.Insert(QString("G1 X1\n").repeated(50'000));
  desk_->Store("C:\\c.nc");
  desk_.reset();
  EXPECT_EQ(folder_.Read("c.nc").size(), 50'000u * 7);
}

TEST_F(DeskTest, TheCaretsSpotIsInBytesOfTheFile) {
  struct Row {
    const char* name;
    std::string bytes;
  };
  const auto wide = [](std::u16string_view text, bool big) {
    std::string bytes = big ? "\xFE\xFF" : "\xFF\xFE";
    for (const char16_t unit : text) {
      const char low = static_cast<char>(unit & 0xFF);
      const char high = static_cast<char>(unit >> 8);
      bytes += big ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
  };
  for (const Row& row :
       {Row{"dos", "(\xC3\x98 10)\r\n(\xC3\xA9)\r\nG1 X2 F9\r\n"}, Row{"unix", "(\xC3\x98 10)\n(\xC3\xA9)\nG1 X2 F9\n"},
        Row{"mixed", "(\xC3\x98 10)\r\n(\xC3\xA9)\nG1 X2 F9\r"},
        Row{"mark", "\xEF\xBB\xBF(\xC3\x98 10)\r\n(\xC3\xA9)\r\nG1 X2 F9\r\n"},
        Row{"latin", "(\xD8 10)\r\n(\xE9)\r\nG1 X2 F9\r\n"}, Row{"wide", wide(u"(Ø 10)\r\n(é)\nG1 X2 F9\r\n", false)},
        Row{"wideBig", wide(u"(Ø 10)\r\n(é)\nG1 X2 F9\r\n", true)}}) {
    folder_.Write("spot.nc", row.bytes);
    Load("spot.nc");
    QTextCursor caret = editor_.Edit().textCursor();
    caret.setPosition(caret.document()->findBlockByNumber(2).position() + 4);
    editor_.Edit().setTextCursor(caret);
    const auto spot = desk_->CaretSpot();
    ASSERT_TRUE(spot) << row.name;
    const bool isWide = std::string_view(row.name).starts_with("wide");
    const std::string block = isWide ? wide(u"G1 X2", row.name == std::string_view("wideBig")).substr(2) : "G1 X2";
    EXPECT_EQ(row.bytes.substr(static_cast<std::size_t>(spot->position), block.size()), block) << row.name;
    EXPECT_EQ(spot->span, 3) << row.name << ": the mark counts characters, whatever they take in the file";
    EXPECT_EQ(spot->folder, u"C:\\");
    EXPECT_EQ(spot->file, u"spot.nc");
  }
}

TEST_F(DeskTest, AChangedProgramHasNoSpotUntilItIsSaved) {
  Load("PROGRAMS\\a.nc");
  EXPECT_TRUE(desk_->CaretSpot());
  editor_.Insert("(\xC3\x98)\n");
  EXPECT_FALSE(desk_->CaretSpot());
  desk_->Store("C:\\PROGRAMS\\a.nc");
  EXPECT_FALSE(desk_->CaretSpot()) << "not while it is being written";
  Rest();
  ASSERT_TRUE(desk_->CaretSpot());
  EXPECT_EQ(desk_->CaretSpot()->position, static_cast<int>(folder_.Read("PROGRAMS/a.nc").find("G0")));
}

TEST_F(HeldUpTest, ATextThatIsTakenBackLetsThoseWhoWaitGoOn) {
  WriteBig("big.nc", "");
  HoldUp("big.nc");
  ASSERT_TRUE(WaitWhile([this] { return said_.size() < 2; }, kPatience));
  EXPECT_FALSE(went_);
  bool shown = false;
  desk_->TakeBack("C:\\b.nc", "M3\n", [this, &shown] {
    shown = true;
    editor_.SetSaved();
  });
  EXPECT_TRUE(shown);
  EXPECT_TRUE(went_);
}

/// A program of so many lines, each with its number.
QString LongProgram(int lines) {
  QString text;
  for (int i = 0; i < lines; ++i) text += QStringLiteral("N%1 G1 X1\n").arg(i);
  return text;
}

class FillTest : public ::testing::Test {
 protected:
  FillTest() : editor_(nullptr) {
    editor_.resize(400, 300);
    editor_.show();
  }
  [[nodiscard]] bool Filled() {
    return WaitWhile([this] { return editor_.Filling(); }, kPatience);
  }
  ProgramEditor editor_;
};

TEST_F(FillTest, ThePanelHearsItsKeysWhileABigProgramComes) {
  const QString text = LongProgram(150'000);
  bool shown = false;
  editor_.Fill(text, "BIG", [&] { shown = true; });
  EXPECT_TRUE(editor_.Filling());
  EXPECT_FALSE(shown);
  // Each of these stands for a key that comes after what went before it was handled.
  int heard = 0;
  std::function<void()> next = [&] {
    ++heard;
    if (editor_.Filling()) QMetaObject::invokeMethod(&editor_, next, Qt::QueuedConnection);
  };
  QMetaObject::invokeMethod(&editor_, next, Qt::QueuedConnection);
  ASSERT_TRUE(Filled());
  EXPECT_GT(heard, 10);
  EXPECT_TRUE(shown);
  EXPECT_EQ(editor_.Text(), text);
  EXPECT_EQ(editor_.Edit().textCursor().position(), 0);
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_FALSE(editor_.Edit().document()->isUndoAvailable());
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  // And away again, as gently.
  const QPointer<CodeEdit> old = &editor_.Edit();
  editor_.Fill("G0\n", "SMALL", [&] { shown = false; });
  EXPECT_FALSE(editor_.Filling()) << "the new one needs not wait until the old one is away";
  EXPECT_EQ(editor_.Text(), "G0\n");
  EXPECT_FALSE(shown);
  EXPECT_NE(old, nullptr) << "it goes in slices";
  heard = 0;
  next = [&] {
    ++heard;
    if (old != nullptr) QMetaObject::invokeMethod(&editor_, next, Qt::QueuedConnection);
  };
  QMetaObject::invokeMethod(&editor_, next, Qt::QueuedConnection);
  ASSERT_TRUE(WaitWhile([&] { return old != nullptr; }, kPatience));
  EXPECT_GT(heard, 0);
}

TEST_F(FillTest, ASmallProgramIsThereAtOnce) {
  bool shown = false;
  editor_.Fill("G0\nM30\n", "SMALL", [&] { shown = true; });
  EXPECT_TRUE(shown);
  EXPECT_FALSE(editor_.Filling());
  EXPECT_EQ(editor_.Text(), "G0\nM30\n");
}

TEST_F(FillTest, WhatIsInsertedMeanwhileComesWhenTheProgramIsThere) {
  const QString text = LongProgram(150'000);
  editor_.Fill(text, "BIG");
  ASSERT_TRUE(editor_.Filling());
  editor_.Insert("S1000\n");
  editor_.Insert("F200\n");
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  ASSERT_TRUE(Filled());
  EXPECT_EQ(editor_.Text(), "S1000\nF200\n" + text);
  EXPECT_TRUE(editor_.IsModified());
  editor_.Edit().undo();
  EXPECT_EQ(editor_.Text(), text);
}

TEST_F(FillTest, AnotherProgramDropsTheOneOnItsWay) {
  bool first = false;
  bool second = false;
  editor_.Fill(LongProgram(150'000), "BIG", [&] { first = true; });
  editor_.Insert("lost");
  editor_.Fill("G1", "OTHER", [&] { second = true; });
  ASSERT_TRUE(Filled());
  EXPECT_EQ(editor_.Text(), "G1");
  EXPECT_EQ(editor_.Name(), "OTHER");
  EXPECT_FALSE(first);
  EXPECT_TRUE(second);
}

TEST_F(FillTest, AProgramThatBeginsLikeTheOneItDropsIsShownFromItsBeginning) {
  const QString text = LongProgram(150'000);
  editor_.Fill(text, "BIG");
  ASSERT_TRUE(editor_.Filling());
  editor_.Edit().moveCursor(QTextCursor::End);
  ASSERT_GT(editor_.Edit().textCursor().position(), 0);
  editor_.Fill(text + "M30\n", "OTHER");
  ASSERT_TRUE(Filled());
  EXPECT_EQ(editor_.Edit().textCursor().position(), 0);
  EXPECT_EQ(editor_.Edit().blockCount(), 150'002);
}

TEST_F(FillTest, OnlyTheLinesThatAreSeenAreColoured) {
  editor_.SetProgram(LongProgram(150'000), "BIG");
  EXPECT_LT(editor_.Edit().extraSelections().size(), 100);
  EXPECT_GT(editor_.Edit().extraSelections().size(), 5);
  editor_.Edit().moveCursor(QTextCursor::End);
  int last = 0;
  for (const auto& mark : editor_.Edit().extraSelections()) last = std::max(last, mark.cursor.position());
  EXPECT_GT(last, editor_.Edit().document()->characterCount() - 100);
}

TEST_F(FillTest, GAndMWordsAndCommentsHaveTheirColours) {
  editor_.SetProgram("G54.1 X1 (G0) M30 (open", "P");
  QStringList words;
  for (const auto& mark : editor_.Edit().extraSelections()) {
    if (mark.cursor.hasSelection()) words << mark.cursor.selectedText();
  }
  EXPECT_EQ(words, (QStringList{"G54.1", "G0", "M30", "(G0)", "(open"}));
  editor_.Insert("M5 ");
  bool found = false;
  for (const auto& mark : editor_.Edit().extraSelections()) found = found || mark.cursor.selectedText() == "M5";
  EXPECT_TRUE(found) << "what is typed is coloured at once";
}

TEST_F(FillTest, TheScrollBarsFollowTheSizeOfTheEditor) {
  editor_.SetProgram(LongProgram(1000), "P");
  const int before = editor_.Edit().verticalScrollBar()->pageStep();
  editor_.resize(300, 150);
  QCoreApplication::processEvents();
  EXPECT_LT(editor_.Edit().verticalScrollBar()->pageStep(), before);
  EXPECT_GT(editor_.Edit().verticalScrollBar()->maximum(), 900);
}

}  // namespace
}  // namespace panel
