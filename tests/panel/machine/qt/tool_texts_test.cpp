// SPDX-License-Identifier: MIT
// The tools report texts that are typed but not finished, and rows that were removed, and put both back. The command
// line and the calculator are tested.
#include "host/tool_texts.h"

#include "panel/machine/qt/panel_fixture.h"
#include "support/temp_folder.h"
#include "ui/journal_keeper.h"
#include "ui/question.h"

namespace panel {
namespace {

constexpr int kDeleteItem = 32771;
constexpr int kClearList = 32776;

class ToolTexts : public PanelFixture {
 protected:
  void Command(int id) {
    op_->SendCommand(PNL_TOOL_MDI, id);
    Settle();
  }
  [[nodiscard]] PnlWindow Mdi() const { return session_.ToolWindow(PNL_TOOL_MDI); }
  [[nodiscard]] QStringList Items() const {
    QStringList items;
    const QAbstractItemModel* model = MdaList()->model();
    for (int row = 0; row < model->rowCount(); ++row) items << model->index(row, 0).data().toString();
    return items;
  }
};

TEST_F(ToolTexts, WithoutAToolThereIsNothingAndNothingIsTaken) {
  EXPECT_EQ(TypedBlock(session_), std::nullopt);
  EXPECT_EQ(TypedExpression(session_), "");
  EXPECT_FALSE(PutBack(session_, {JournalBlock::Kind::kLine, -1, {}, "G1"}));
  EXPECT_FALSE(PutBackExpression(session_, "1+1"));
  EXPECT_EQ(LastRemoval(0).rows, 0);
  EXPECT_FALSE(PutBackRemoval(0));
  ForgetRemovals(0);
}

TEST_F(ToolTexts, ATypedBlockIsToldAndTakenBack) {
  Do(Action::kOpenMdi);
  EXPECT_EQ(TypedBlock(session_), std::nullopt) << "nothing is typed";
  Type("G1 X5");
  const JournalBlock typed{JournalBlock::Kind::kLine, -1, {}, "G1 X5"};
  EXPECT_EQ(TypedBlock(session_), typed);
  EXPECT_FALSE(PutBack(session_, {JournalBlock::Kind::kLine, -1, {}, "G1 X6"})) << "something else is typed";
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G1 X5");
  Line(PNL_TOOL_MDI)->selectAll();
  Key(Qt::Key_Delete);
  EXPECT_TRUE(PutBack(session_, {JournalBlock::Kind::kLine, -1, {}, "G1 X6"}));
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G1 X6");
}

TEST_F(ToolTexts, AnItemOfTheListIsToldWithItsPlaceAndItsOldText) {
  OpenListAtSecond();
  EXPECT_EQ(TypedBlock(session_), std::nullopt);
  Key(Qt::Key_Return);
  Type("5");
  const auto changed = TypedBlock(session_);
  ASSERT_TRUE(changed);
  EXPECT_EQ(changed->kind, JournalBlock::Kind::kChangedItem);
  EXPECT_EQ(changed->item, 1);
  EXPECT_EQ(changed->original, Items()[1]);
  EXPECT_EQ(changed->text, Items()[1] + "5");
  Key(Qt::Key_Escape);
  ASSERT_EQ(TypedBlock(session_), std::nullopt);
  EXPECT_TRUE(PutBack(session_, *changed));
  EXPECT_EQ(TypedBlock(session_), changed);
  Key(Qt::Key_Return);
  EXPECT_EQ(Items()[1], changed->text);
}

TEST_F(ToolTexts, ANewItemOfTheListIsTakenBackAsOne) {
  OpenListAtSecond();
  const QStringList before = Items();
  ASSERT_TRUE(PutBack(session_, {JournalBlock::Kind::kNewItem, -1, {}, "G0 X9"}));
  const JournalBlock item{JournalBlock::Kind::kNewItem, -1, {}, "G0 X9"};
  EXPECT_EQ(TypedBlock(session_), item);
  Key(Qt::Key_Return);
  EXPECT_EQ(Items().size(), before.size() + 1);
  EXPECT_TRUE(Items().contains("G0 X9"));
}

TEST_F(ToolTexts, AnExpressionIsToldAndTakenBack) {
  Do(Action::kOpenCalculator);
  EXPECT_EQ(TypedExpression(session_), "");
  Type("12");
  EXPECT_EQ(TypedExpression(session_), "12");
  EXPECT_FALSE(PutBackExpression(session_, "7"));
  Line(PNL_TOOL_CALCULATOR)->selectAll();
  Key(Qt::Key_Backspace);
  ASSERT_EQ(TypedExpression(session_), "");
  EXPECT_TRUE(PutBackExpression(session_, "34+5"));
  EXPECT_EQ(Line(PNL_TOOL_CALCULATOR)->text(), "34+5");
}

TEST_F(ToolTexts, ARemovalIsToldPutBackAndForgotten) {
  OpenListAtSecond();
  const QStringList all = Items();
  EXPECT_EQ(LastRemoval(Mdi()).rows, 0);
  Command(kDeleteItem);
  RemovedRows removed = LastRemoval(Mdi());
  EXPECT_EQ(removed.rows, 1);
  EXPECT_FALSE(removed.whole);
  EXPECT_EQ(removed.text, all[1]);
  EXPECT_TRUE(PutBackRemoval(Mdi()));
  EXPECT_EQ(Items(), all);
  EXPECT_EQ(LastRemoval(Mdi()).rows, 0);
  EXPECT_FALSE(PutBackRemoval(Mdi()));
  Command(kClearList);
  removed = LastRemoval(Mdi());
  EXPECT_EQ(removed.rows, 3);
  EXPECT_TRUE(removed.whole);
  EXPECT_EQ(removed.text, all[0]);
  ForgetRemovals(Mdi());
  EXPECT_EQ(LastRemoval(Mdi()).rows, 0);
  EXPECT_FALSE(PutBackRemoval(Mdi()));
  EXPECT_EQ(Items(), QStringList());
}

/// The panel with a journal of what is typed.
class KeptTexts : public PanelFixture {
 protected:
  void Keep() {
    window_->KeepJournal({Folder(), [](const QString&) { return QString(); }, true});
    Rest();
  }
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return window_->Working(); }, 60'000));
    Settle();
  }
  void Wait(int milliseconds) {
    window_->TimeAdvanced(milliseconds);
    Rest();
  }
  /// What a killed panel has left.
  void Leave(const QString& block, const QString& expression) {
    JournalContents left;
    left.written = 1'795'397'045'000;
    if (!block.isEmpty()) left.block = JournalBlock{JournalBlock::Kind::kLine, -1, {}, block};
    left.expression = expression;
    folder_.Write("USER/PNLPANEL1.JNL", JournalBytes(left).toStdString());
  }
  void TakeBack() {
    Keep();
    ASSERT_TRUE(window_->Asking().IsOpen());
    window_->Asking().Answer(1);
    Rest();
  }
  /// Leaves a block and takes it back while the command line can't open, so that it waits.
  void TakeBackWhileMdiIsRefused(const char* block) {
    constexpr const char16_t* kEnabled = u"DM.MDI.ENABLEC1";
    rig_.Cnc().Define(kEnabled, pnl::rig::VariableType::kInt, std::int64_t{0}, true, true);
    Leave(block, "");
    TakeBack();
    rig_.Cnc().Undefine(kEnabled);
    ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  }
  [[nodiscard]] QString Folder() const { return QString::fromStdString(folder_.Folder("USER")); }
  /// What the journal of that number says: the block and the expression.
  [[nodiscard]] QString Journal(int number) const {
    QFile file(Folder() + QString("/PNLPANEL%1.JNL").arg(number));
    if (!file.open(QIODevice::ReadOnly)) return "no journal";
    const auto contents = ReadJournal(file.readAll());
    if (!contents) return "damaged";
    return (contents->block ? contents->block->text : QString()) + '|' + contents->expression;
  }
  [[nodiscard]] QString InLine() const {
    const auto block = TypedBlock(session_);
    return block ? block->text : QString();
  }

  pnl::test::TempFolder folder_;
};

TEST_F(KeptTexts, WhatIsTypedInAToolIsInTheJournalSoon) {
  Keep();
  Do(Action::kOpenMdi);
  Type("G0 X7");
  Wait(60'000);
  EXPECT_EQ(Journal(1), "G0 X7|");
  // From now on nothing but the line changes.
  Type("8");
  Wait(60'000);
  EXPECT_EQ(Journal(1), "G0 X78|");
  Do(Action::kOpenCalculator);
  Type("1+1");
  Wait(60'000);
  EXPECT_EQ(Journal(1), "G0 X78|1+1");
}

TEST_F(KeptTexts, WhatWasLeftIsToldByItsKindAndComesBackIntoItsTools) {
  Leave("G0 X7", "1+1");
  Keep();
  ASSERT_TRUE(window_->Asking().IsOpen());
  EXPECT_TRUE(window_->Asking().Text().contains(Say(Word::kLeftBlock, "G0 X7")));
  EXPECT_TRUE(window_->Asking().Text().contains(Say(Word::kLeftExpression, "1+1")));
  window_->Asking().Answer(1);
  Rest();
  EXPECT_EQ(InLine(), "G0 X7");
  EXPECT_EQ(TypedExpression(session_), "1+1");
  EXPECT_EQ(Journal(1), "no journal") << "the other panel's goes";
  EXPECT_EQ(Journal(2), "G0 X7|1+1") << "when this panel's own has it";
}

TEST_F(KeptTexts, ToolsThatAreOpenTakeItAtOnce) {
  Do(Action::kOpenCalculator);
  Do(Action::kOpenMdi);
  Leave("G0 X7", "");
  TakeBack();
  EXPECT_EQ(InLine(), "G0 X7");
}

TEST_F(KeptTexts, OnlyTheToolOfWhatWasLeftOpensAndItIsPutBackOnce) {
  Leave("", "1+1");
  TakeBack();
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  ASSERT_TRUE(session_.IsToolOpen(PNL_TOOL_CALCULATOR));
  ASSERT_EQ(TypedExpression(session_), "1+1");
  Line(PNL_TOOL_CALCULATOR)->clear();
  op_->CloseTool(PNL_TOOL_CALCULATOR);
  Settle();
  ASSERT_EQ(Tool(PNL_TOOL_CALCULATOR), nullptr);
  Do(Action::kOpenCalculator);
  EXPECT_EQ(TypedExpression(session_), "");
}

TEST_F(KeptTexts, WhatIsPutBackLaterGoesIntoItsToolOnceThatOpens) {
  TakeBackWhileMdiIsRefused("G0 X7");
  Wait(60'000);
  EXPECT_EQ(Journal(2), "G0 X7|") << "it waits";
  Do(Action::kOpenMdi);
  EXPECT_EQ(InLine(), "G0 X7");
}

TEST_F(KeptTexts, WhatNeverReachedItsToolStaysForTheNextStart) {
  TakeBackWhileMdiIsRefused("G0 X7");
  window_.reset();
  EXPECT_EQ(Journal(2), "G0 X7|");
}

}  // namespace
}  // namespace panel
