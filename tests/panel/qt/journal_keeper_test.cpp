// SPDX-License-Identifier: MIT
// When the journal is written, in manual time, what is said and done after a failure, and what is left at the end.
#include "ui/journal_keeper.h"

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
  void Begin() {
    JournalSetup setup;
    setup.folder = QString::fromStdString((temp.Path() / "user").string());
    setup.resolve = [](const QString&) { return QString(); };
    setup.manualTime = true;
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

  pnl::test::TempFolder temp;
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
        Step{"", 1, "ABCD", "after a pause it is soon again"}}) {
    if (*step.typed != '\0') Type(step.typed);
    Advance(step.milliseconds);
    EXPECT_EQ(Kept(), step.kept) << step.why;
  }
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

}  // namespace
}  // namespace panel
