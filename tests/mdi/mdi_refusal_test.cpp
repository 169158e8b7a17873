// SPDX-License-Identifier: MIT
// The word at fault in a refused block: where that word is in the block, and what happens to the block afterwards.
#include "mdi/mdi_refusal.h"

#include "mdi_fixture.h"
#include "support/error_records.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ErrorRecord Naming(TextView word, std::uint16_t mark = 0) {
  ErrorRecord record = RecordBuilder().Channel(1).Parameter(0, TextParameter(2, word));
  record.Set(error_field::kFileSpan.offset, static_cast<std::uint16_t>(2 * mark));
  return record;
}

struct WordRow {
  TextView block;
  TextView word;
  std::uint16_t mark;
  std::string selected;  // "-" for none
};

const WordRow kWords[] = {
    {u"G1 X5 Q7", u"Q7", 6, "Q7"},
    {u"g1 x5 q7", u"Q7", 6, "q7"},
    {u"G1 Q 7.5 X5", u"Q7.5", 3, "Q 7.5"},
    {u"G1 X10 X1", u"X1", 0, "X1"},
    {u"X1 X1", u"X1", 3, "X1"},
    {u"$ X1 $", u"$", 0, "$"},
    {u"G1 (Q7) Q7", u"Q7", 8, "Q7"},
    {u"X1 (open", u"(OPEN", 3, "(open"},
    {u"G1 X", u"X", 3, "X"},
    {u"X1.2.3", u"X1.2.3", 0, "X1.2.3"},
    {u"G1 X5 ; Q7", u"Q7", 8, "-"},
    {u"G1 (X) Y5", u"X", 4, "-"},
    {u"G1 X5", u"Q7", 0, "-"},
    {u"G1 X10", u"X1", 3, "-"},
    {u"", u"X1", 0, "-"},
    {u"G1", u"", 0, "-"},
};

TEST(MdiRefusedWord, IsFoundByTheErrorsWord) {
  for (const WordRow& row : kWords) {
    SCOPED_TRACE(ToUtf8(row.block));
    const auto found = FindRefusedWord(row.block, Naming(row.word, row.mark));
    const std::string selected = found ? ToUtf8(row.block.substr(static_cast<std::size_t>(found->start),
                                                                 static_cast<std::size_t>(found->end - found->start)))
                                       : "-";
    EXPECT_EQ(selected, row.selected);
  }
}

TEST(MdiRefusedWord, TheMarkChoosesAmongEqualWordsAndWithoutOneTheLastCounts) {
  EXPECT_EQ(FindRefusedWord(u"$ X1 $", Naming(u"$", 0)), (TextSelection{0, 1}));
  EXPECT_EQ(FindRefusedWord(u"$ X1 $", Naming(u"$", 5)), (TextSelection{5, 6}));
  EXPECT_EQ(FindRefusedWord(u"$ X1 $ Y2 $", Naming(u"$", 5)), (TextSelection{5, 6}));
  EXPECT_EQ(FindRefusedWord(u"G0 X1 Y2 X1", Naming(u"X1", 0)), (TextSelection{9, 11}));
}

TEST(MdiRefusedWord, ARecordThatNamesNoWordFindsNone) {
  EXPECT_EQ(FindRefusedWord(u"G1 X5", RecordBuilder()), std::nullopt);
}

class MdiRefused : public MdiTest {
 protected:
  void SetUp() override {
    cnc.vars.Define("E.NERRORS", 0);
    Open();
    Forget();
    cnc.kernel.returns["MDILine"] = 5;
  }
  /// From now on a refused block raises this error.
  void Raise(const ErrorRecord& record) {
    cnc.kernel.onRefused = [this, record] {
      cnc.kernel.errors.push_back(record);
      cnc.vars.Set("E.NERRORS", static_cast<std::int32_t>(cnc.kernel.errors.size()));
    };
  }
  void Refuse(const std::string& block) {
    Type(block);
    Start();
  }
};

TEST_F(MdiRefused, TheWordAtFaultIsSelectedInTheEdit) {
  Raise(Naming(u"Q7", 3));
  Refuse("G1 Q7 X5");
  EXPECT_EQ(view->selection, (TextSelection{3, 5}));
  EXPECT_EQ(view->edit, u"G1 Q7 X5");
  EXPECT_EQ(cnc.kernel.grants, 0);
}

TEST_F(MdiRefused, TheNewestErrorSaysTheWord) {
  cnc.kernel.errors = {Naming(u"X5", 6)};
  cnc.vars.Set("E.NERRORS", 1);
  Raise(Naming(u"Q7", 3));
  Refuse("G1 Q7 X5");
  EXPECT_EQ(view->selection, (TextSelection{3, 5}));
}

TEST_F(MdiRefused, TheSelectionComesBackWithTheFocus) {
  Raise(Naming(u"Q7", 3));
  Refuse("G1 Q7 X5");
  view->Move(FakeMdiView::Focus::kElsewhere);
  view->selection = {};
  view->Move(FakeMdiView::Focus::kEdit);
  EXPECT_EQ(view->selection, (TextSelection{3, 5}));
}

TEST_F(MdiRefused, ACorrectedBlockIsNotTypedOver) {
  Raise(Naming(u"Q7", 3));
  Refuse("G1 Q7 X5");
  Type("G1 Y7 X5 F100");
  view->Move(FakeMdiView::Focus::kElsewhere);
  view->Move(FakeMdiView::Focus::kEdit);
  EXPECT_EQ(view->selection, (TextSelection{13, 13}));
}

TEST_F(MdiRefused, WithoutANewErrorNothingIsSelectedAndTheKernelIsNotAsked) {
  cnc.kernel.errors = {Naming(u"Q7", 3)};
  cnc.vars.Set("E.NERRORS", 1);
  Refuse("G1 Q7 X5");
  EXPECT_EQ(view->selection, TextSelection());
}

TEST_F(MdiRefused, AnErrorOfAnotherChannelSelectsNothing) {
  ErrorRecord record = Naming(u"Q7", 3);
  record.Set(error_field::kChannel.offset, std::int8_t{2});
  Raise(record);
  Refuse("G1 Q7 X5");
  EXPECT_EQ(view->selection, TextSelection());
}

TEST_F(MdiRefused, WithoutTheCounterARefusalIsAsBefore) {
  cnc.vars.Undefine("E.NERRORS");
  cnc.kernel.errors = {Naming(u"Q7", 3)};
  Refuse("G1 Q7 X5");
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"G1 Q7 X5\",0,4,0)=5", "LiberarPlcFree(0,1,1)=1"));
  EXPECT_EQ(view->selection, TextSelection());
}

TEST_F(MdiRefused, TheRefusedBlockIsTheFirstArrangedRowUntilABlockIsAccepted) {
  cnc.kernel.returns["MDILine"] = 0;
  RunBlock("G0 X1");
  cnc.kernel.returns["MDILine"] = 5;
  Refuse("G1 Q7 X5");
  Type("");
  Key(MdiKey::kDown);
  EXPECT_EQ(Utf8Rows(view->dropItems), std::vector<std::string>{"G0 X1"}) << "the list opens with the history alone";
  Tell([](MdiSession& session) { session.OnDropListSwitched(); });
  EXPECT_EQ(Utf8Rows(view->dropItems), (std::vector<std::string>{"G1 Q7 X5", "G0 X1"}));
  EXPECT_THAT(view->dropMarks, ElementsAre(MdiRowMark::kRefused, MdiRowMark::kNone));
  view->CancelInDropList();
  cnc.kernel.returns["MDILine"] = 0;
  RunBlock("G0 X2");
  Key(MdiKey::kDown);
  Tell([](MdiSession& session) { session.OnDropListSwitched(); });
  EXPECT_EQ(Utf8Rows(view->dropItems), (std::vector<std::string>{"G0 X2", "G0 X1"}));
}

TEST_F(MdiRefused, ARefusedBlockThatRanBeforeHasItsMarkInTheHistory) {
  cnc.kernel.returns["MDILine"] = 0;
  RunBlock("G1 Q7 X5");
  RunBlock("G0 X1");
  cnc.kernel.returns["MDILine"] = 5;
  Refuse("G1 Q7 X5");
  Key(MdiKey::kDown);
  ASSERT_EQ(Utf8Rows(view->dropItems), (std::vector<std::string>{"G0 X1", "G1 Q7 X5"}));
  EXPECT_THAT(view->dropMarks, ElementsAre(MdiRowMark::kNone, MdiRowMark::kRefused));
}

TEST_F(MdiRefused, ARefusedBlockThatIsCalledBackHasItsWordSelected) {
  Raise(Naming(u"Q7", 3));
  Refuse("G1 Q7 X5");
  Type("");
  Key(MdiKey::kDown);
  Tell([](MdiSession& session) { session.OnDropListSwitched(); });
  view->dropSelected = 0;
  view->OkInDropList();
  EXPECT_EQ(view->edit, u"G1 Q7 X5");
  EXPECT_EQ(view->selection, (TextSelection{3, 5}));
}

TEST_F(MdiRefused, ANewRefusalTakesThePlaceOfTheOneBefore) {
  Refuse("G1 Q7");
  Refuse("G1 Q8");
  Type("");
  Key(MdiKey::kDown);
  Tell([](MdiSession& session) { session.OnDropListSwitched(); });
  EXPECT_EQ(Utf8Rows(view->dropItems), std::vector<std::string>{"G1 Q8"});
  EXPECT_THAT(view->dropMarks, ElementsAre(MdiRowMark::kRefused));
}

}  // namespace
}  // namespace pnl::test
