// SPDX-License-Identifier: MIT
// When the journal is written, in manual time, what is said and done after a failure, and what is left at the end.
#include "ui/journal_keeper.h"

#include <QDateTime>
#include <filesystem>

#include "panel/qt/host_rig.h"
#include "remote/settle.h"
#include "support/temp_folder.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

class NobodyAsks : public FileAsker {
 public:
  void Ask(const FileRequest& /*request*/, Accepted /*accepted*/, Left /*left*/) override {}
};

class KeeperTest : public HostFixture {
 protected:
  KeeperTest() { Begin(); }
  void Begin(bool manualTime = true) {
    JournalSetup setup;
    setup.folder = QString::fromStdString((temp.Path() / "user").string());
    setup.resolve = [this](const QString& path) { return path == "C:\\A.NC" ? file : QString(); };
    setup.manualTime = manualTime;
    keeper = std::make_unique<JournalKeeper>(JournalParts{session, op, editor, desk, question}, std::move(setup));
  }
  void Rest() {
    Settle();
    ASSERT_TRUE(WaitWhile([this] { return keeper->Working() || desk.Working(); }, 60'000));
    Settle();
  }
  void Advance(qint64 milliseconds) {
    keeper->Advance(milliseconds);
    Rest();
  }
  void Type(const QString& text) {
    editor.Insert(text);
    Rest();
  }
  /// The whole journal; nothing without one.
  [[nodiscard]] std::optional<JournalContents> Journal() const {
    return ReadJournal(QByteArray::fromStdString(temp.Read("user/PNLPANEL1.JNL")));
  }
  /// The program of the journal; "-" without a journal.
  [[nodiscard]] std::string Kept() const {
    if (!temp.Has("user/PNLPANEL1.JNL")) return "-";
    const std::string bytes = temp.Read("user/PNLPANEL1.JNL");
    const auto contents = ReadJournal(QByteArray::fromStdString(bytes));
    if (!contents || !contents->program) return "?";
    std::string text;
    for (const EditPiece& piece : contents->program->pieces) text += piece.text.toStdString();
    return text;
  }
  /// Types something while a file has the name of the journal's folder, and lets the keeper try to write it.
  void FailOnce() {
    temp.Write("user", "a file");
    Type("A");
    Advance(200);
    EXPECT_EQ(Hint(), Warning(Word::kJournalNotKept));
    op.SetHint("seen", false);
  }
  void MendFolder() { std::filesystem::remove(temp.Path() / "user"); }
  /// Types a program, ends as the system ends a panel, and starts again. Then the program is offered.
  void StartAfterLosing(const QString& program) {
    Type(program);
    keeper->LeaveForNextStart();
    keeper.reset();
    editor.SetProgram({}, {});
    Begin();
    keeper->Start();
    Rest();
  }
  void SetStatus(int status) {
    rig.machine.state.channelStatus = status;
    rig.machine.changed();
    Settle();
    Rest();
  }

  /// A journal that a killed panel has left.
  void Leave(const JournalContents& contents) {
    temp.Write("user/PNLPANEL1.JNL", JournalBytes(contents).toStdString());
  }
  static JournalContents WithProgram(const QString& path, const QString& text, qint64 caret = 0) {
    JournalContents contents;
    contents.written = 1'795'397'045'000;
    contents.program.emplace();
    contents.program->path = path;
    contents.program->caret = caret;
    contents.program->pieces = {{0, 0, text}};
    return contents;
  }
  void Start() {
    keeper->Start();
    Rest();
  }

  pnl::test::TempFolder temp;
  QString file;  // of the program C:\\A.NC on this machine
  ProgramEditor editor{&main};
  NobodyAsks asker;
  Question question{&main};
  ProgramDesk desk{editor, asker, question, [](const QString&) { return QString(); }, nullptr};
  std::unique_ptr<JournalKeeper> keeper;
};

struct Step {
  const char* typed;
  int milliseconds;  // that pass after it
  const char* kept;  // what the journal has then
  const char* why;
};

TEST_F(KeeperTest, TheFirstChangeIsKeptSoonAndTheNextASecondAfterIt) {
  for (const Step& step :
       {Step{"", 5000, "-", "nothing is typed"}, Step{"A", 199, "-", "not yet"},
        Step{"", 1, "A", "soon after the first change"}, Step{"B", 500, "A", "not yet"}, Step{"C", 499, "A", "not yet"},
        Step{"", 1, "ABC", "a second after the last journal, whatever was typed meanwhile"},
        Step{"", 5000, "ABC", "nothing is typed"}, Step{"D", 199, "ABC", "not yet"},
        Step{"", 1, "ABCD", "after a pause it is soon again"}, Step{"", 5000, "ABCD", "nothing is typed"},
        Step{"E", 150, "ABCD", "not yet"}, Step{"F", 50, "ABCDEF", "whoever goes on typing doesn't put it off"}}) {
    if (*step.typed != '\0') Type(step.typed);
    Advance(step.milliseconds);
    EXPECT_EQ(Kept(), step.kept) << step.why;
  }
}

TEST_F(KeeperTest, InRealTimeItIsKeptByItself) {
  const qint64 before = QDateTime::currentMSecsSinceEpoch();
  keeper.reset();
  Begin(false);
  Type("A");
  ASSERT_TRUE(WaitWhile([this] { return !Journal(); }, 60'000));
  EXPECT_EQ(Kept(), "A");
  EXPECT_GE(Journal()->written, before);
}

TEST_F(KeeperTest, WhatIsKeptAlreadyIsNotWrittenAgain) {
  Type("A");
  Advance(200);
  ASSERT_EQ(Kept(), "A");
  std::filesystem::remove(temp.Path() / "user/PNLPANEL1.JNL");
  for (int i = 0; i < 2; ++i) {
    keeper->Touch();
    Advance(5000);
    EXPECT_EQ(Kept(), "-") << i;
  }
}

TEST_F(KeeperTest, ABlockThatBeginsWhileTheJournalIsWrittenIsKeptRightAfterIt) {
  Type("A");
  rig.machine.state.channelStatus = 2;
  rig.machine.changed();
  keeper->Advance(200);
  ASSERT_TRUE(keeper->Working());
  editor.Insert("B");
  Rest();
  EXPECT_EQ(Kept(), "AB");
}

TEST_F(KeeperTest, OfALongProgramOneCopyIsKeptAndThenWhatIsTyped) {
  const QString text = QString("G1 X1 Y2\n").repeated(10'000);
  Type(text);
  Advance(5000);
  ASSERT_TRUE(Journal());
  ASSERT_TRUE(Journal()->program);
  ASSERT_EQ(Journal()->program->base, JournalProgram::Base::kCopy);
  const int copy = Journal()->program->copy;
  for (const char* typed : {"M3\n", "M4\n", "M5\n"}) {
    Type(typed);
    Advance(5000);
    EXPECT_EQ(Journal()->program->copy, copy) << typed;
    EXPECT_EQ(Journal()->program->pieces.size(), 2u);
  }
  keeper->LeaveForNextStart();
  keeper.reset();
  editor.SetProgram({}, {});
  Begin();
  Start();
  ASSERT_TRUE(question.IsOpen());
  question.Answer(1);
  Rest();
  EXPECT_TRUE(editor.Text() == text + "M3\nM4\nM5\n");
}

TEST_F(KeeperTest, ABlockThatBeginsOrEndsIsKeptAtOnceAndNothingElseOfTheMachineIs) {
  Type("A");
  SetStatus(rig.machine.state.channelStatus);
  EXPECT_EQ(Kept(), "-") << "the same status";
  SetStatus(2);
  EXPECT_EQ(Kept(), "A");
  Type("B");
  SetStatus(2);
  EXPECT_EQ(Kept(), "A");
  SetStatus(1);
  EXPECT_EQ(Kept(), "AB") << "without waiting for the second to be over";
}

TEST_F(KeeperTest, AFailureIsSaidOnceAndTriedAgainAfterTenSeconds) {
  FailOnce();
  Advance(10'000);
  EXPECT_EQ(Hint(), "seen") << "once is enough";
  MendFolder();
  Advance(9'999);
  EXPECT_EQ(Kept(), "-");
  Advance(1);
  EXPECT_EQ(Kept(), "A");
  EXPECT_EQ(Hint(), "seen");
}

TEST_F(KeeperTest, ASecondFailureAfterASuccessIsSaidAgain) {
  FailOnce();
  MendFolder();
  Advance(10'000);
  ASSERT_EQ(Kept(), "A");
  // A folder takes no new journal while something else has the journal's name.
  std::filesystem::remove(temp.Path() / "user/PNLPANEL1.JNL");
  std::filesystem::create_directories(temp.Path() / "user/PNLPANEL1.JNL/full");
  Type("B");
  Advance(1000);
  EXPECT_EQ(Hint(), Warning(Word::kJournalNotKept));
}

TEST_F(KeeperTest, AProperEndLeavesNothing) {
  Type("A");
  Advance(200);
  ASSERT_EQ(Kept(), "A");
  keeper.reset();
  EXPECT_EQ(Kept(), "-");
}

TEST_F(KeeperTest, AnEndOfTheSystemLeavesTheLastStateAndNothingChangesItAfterwards) {
  Type("A");
  keeper->LeaveForNextStart();
  EXPECT_EQ(Kept(), "A") << "without waiting";
  Type("B");
  Advance(5000);
  SetStatus(2);
  keeper->LeaveForNextStart();
  EXPECT_EQ(Kept(), "A");
  keeper.reset();
  EXPECT_EQ(Kept(), "A");
}

TEST_F(KeeperTest, WhatIsLeftIsOfferedAndTakenBackAsAnUnsavedProgram) {
  StartAfterLosing("G0 X1");
  ASSERT_TRUE(question.IsOpen());
  EXPECT_TRUE(question.Text().contains(Say(Word::kTakeBackAsked)));
  EXPECT_TRUE(question.Text().contains(Say(Word::kLeftNewProgram)));
  question.Answer(1);
  Rest();
  EXPECT_EQ(editor.Edit().toPlainText(), "G0 X1");
  EXPECT_FALSE(temp.Has("user/PNLPANEL1.JNL")) << "this panel's own journal has it now";
  EXPECT_TRUE(temp.Has("user/PNLPANEL2.JNL"));
  keeper.reset();
  EXPECT_FALSE(temp.Has("user/PNLPANEL2.JNL"));
}

TEST_F(KeeperTest, WhatIsDiscardedIsGoneAndNothingIsTyped) {
  StartAfterLosing("G0 X1");
  ASSERT_TRUE(question.IsOpen());
  question.Answer(0);
  Rest();
  EXPECT_EQ(Kept(), "-");
  EXPECT_EQ(editor.Edit().toPlainText(), "");
  EXPECT_FALSE(question.IsOpen());
}

TEST_F(KeeperTest, WhatIsTakenBackHasItsCaretAndTheKeyboard) {
  QWidget other(&main);
  other.setFocusPolicy(Qt::StrongFocus);
  for (const auto& [left, caret] : {std::pair(3, 3), std::pair(5, 5), std::pair(99, 5)}) {
    other.setFocus();
    Leave(WithProgram("C:\\A.NC", "G0 X1", left));
    Start();
    ASSERT_TRUE(question.IsOpen()) << left;
    EXPECT_TRUE(question.Text().contains(Say(Word::kLeftProgram, "C:\\A.NC")));
    question.Answer(1);
    Rest();
    EXPECT_EQ(editor.Text(), "G0 X1");
    EXPECT_EQ(desk.Path(), "C:\\A.NC");
    EXPECT_EQ(editor.Edit().textCursor().position(), caret) << left;
    EXPECT_EQ(main.focusWidget(), &editor.Edit()) << left;
    EXPECT_EQ(Hint(), "");
    editor.SetSaved();
    Advance(5000);
  }
}

TEST_F(KeeperTest, OfAProgramWhoseFileIsGoneWhatWasTypedComesBackWithoutItsName) {
  JournalContents left = WithProgram("C:\\A.NC", "G9", 7);
  left.program->base = JournalProgram::Base::kFile;
  left.program->baseLength = 10;
  left.program->pieces.push_back({0, 5, {}});
  Leave(left);
  Start();
  ASSERT_TRUE(question.IsOpen());
  question.Answer(1);
  Rest();
  EXPECT_EQ(editor.Text(), "G9");
  EXPECT_EQ(desk.Path(), "") << "it could be saved over the whole one";
  EXPECT_EQ(editor.Edit().textCursor().position(), 0);
  EXPECT_EQ(Hint(), "! " + Say(Word::kLeftBaseGone, "C:\\A.NC"));
}

TEST_F(KeeperTest, WhatItsFileHasAlreadyIsNotOffered) {
  temp.Write("a.nc", "G0 X1\r\n");
  file = QString::fromStdString((temp.Path() / "a.nc").string());
  JournalContents left = WithProgram("C:\\A.NC", "G0 X1\n");
  Leave(left);
  Start();
  EXPECT_FALSE(question.IsOpen()) << "it was saved just before the end";
  EXPECT_FALSE(temp.Has("user/PNLPANEL1.JNL"));
  left.expression = "1+1";
  Leave(left);
  Start();
  ASSERT_TRUE(question.IsOpen());
  EXPECT_TRUE(question.Text().contains(Say(Word::kLeftExpression, "1+1")));
  EXPECT_FALSE(question.Text().contains("A.NC"));
  question.Answer(0);
  Rest();
  Leave(WithProgram("C:\\B.NC", "G0 X1\n"));
  Start();
  EXPECT_TRUE(question.IsOpen()) << "that is another program";
}

TEST_F(KeeperTest, EverythingThatIsLeftIsToldByItsKind) {
  const auto block = [](JournalBlock::Kind kind) { return JournalBlock{kind, 0, "G0", "G0 X7"}; };
  JournalContents nothing;
  nothing.written = 1'795'397'045'000;
  JournalContents line = nothing;
  line.block = block(JournalBlock::Kind::kLine);
  line.block->item = -1;
  line.block->original.clear();
  JournalContents item = nothing;
  item.block = block(JournalBlock::Kind::kChangedItem);
  JournalContents all = WithProgram("", "G0");
  all.block = line.block;
  all.expression = "1+1";
  const QString since =
      Say(Word::kLeftSince,
          QDateTime::fromMSecsSinceEpoch(nothing.written).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
  const QString typed = Say(Word::kLeftBlock, "G0 X7");
  for (const auto& [left, told] :
       {std::pair(line, QStringList{typed}), std::pair(item, QStringList{Say(Word::kLeftItem, "G0 X7")}),
        std::pair(all, QStringList{Say(Word::kLeftNewProgram), typed, Say(Word::kLeftExpression, "1+1")})}) {
    Leave(left);
    Start();
    ASSERT_TRUE(question.IsOpen());
    EXPECT_EQ(question.Text().split(QChar(QChar::LineSeparator)),
              QStringList{Say(Word::kTakeBackAsked)} + told + QStringList{since});
    question.Answer(0);
    Rest();
  }
}

TEST_F(KeeperTest, AJournalThatIsDamagedOrSaysNothingIsNotOffered) {
  const QString folder = QString::fromStdString((temp.Path() / "user").string());
  JournalContents nothing;
  nothing.written = 1'795'397'045'000;
  for (const QByteArray& bytes : {QByteArray("damaged"), JournalBytes(nothing)}) {
    temp.Write("user/PNLPANEL1.JNL", bytes.toStdString());
    EXPECT_FALSE(FindLeftJournal(folder)) << bytes.size();
  }
  Leave(WithProgram("", "G0"));
  EXPECT_TRUE(FindLeftJournal(folder));
}

}  // namespace
}  // namespace panel
