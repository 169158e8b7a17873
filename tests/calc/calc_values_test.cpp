// SPDX-License-Identifier: MIT
// The values beside the rows of the history: which are known, and which row has which.
#include "calc/calc_values.h"

#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;

struct AloneRow {
  TextView expression;
  bool alone;
};

const AloneRow kAlone[] = {
    {u"1+1", true},         {u"Sin(30)", true},      {u"PI*MMPERI", true},
    {u"A=12.5;A*PI", true}, {u"A=1:A+1", true},      {u"A=3", true},
    {u"A", false},          {u"A+1", false},         {u"A=A+1", false},
    {u"A=1;B", false},      {u"ACC*2", false},       {u"1;ACC", false},
    {u"ZERO(X-2)", false},  {u"INTEGRAL(X)", false}, {u"(A=1;A)", false},
    {u"(A=1;1)/A", false},  {u"(A=1;1)/A;A", false}, {u"X=1;INTEGRAL(X)", false},
    {u"B101", true},        {u"1 ? 2", false},
};

TEST(CalcStandsAlone, WhenNothingFromBeforeIsRead) {
  for (const AloneRow& row : kAlone) EXPECT_EQ(StandsAlone(Text(row.expression)), row.alone) << ToUtf8(row.expression);
}

TEST(CalcRowValuesTest, FollowTheirRows) {
  CalcRowValues values;
  values.Insert(0, 1.0);
  values.Insert(0, 2.0);
  values.Insert(1, std::nullopt);
  EXPECT_EQ(values.At(0), 2.0);
  EXPECT_EQ(values.At(1), std::nullopt);
  EXPECT_EQ(values.At(2), 1.0);
  EXPECT_EQ(values.Erase(0), 2.0);
  EXPECT_EQ(values.At(1), 1.0);
  EXPECT_EQ(values.Erase(7), std::nullopt);
  values.Insert(4, 5.0);
  EXPECT_EQ(values.At(4), 5.0);
  EXPECT_EQ(values.At(3), std::nullopt);
  values.Insert(9, std::nullopt);
  EXPECT_EQ(values.At(9), std::nullopt);
}

class CalcHistoryValues : public CalcTest {
 protected:
  CalcHistoryValues() {
    files.disc["C:\\P1\\calc.htr"] = "Sin(30)\r\nA+1\r\n1/0\r\n2+\r\n255\r\n" + std::string(400, '1') + "\r\n";
    SharedCalcStore() = {};
    Open();
  }
  ~CalcHistoryValues() override { SharedCalcStore() = {}; }
  /// The values beside all rows.
  [[nodiscard]] std::vector<std::string> Values() {
    std::vector<std::string> values;
    for (std::size_t i = 0; i < view->rows.size(); ++i) {
      values.push_back(ToUtf8(Call(&CalcSession::RowValue, static_cast<int>(i), view->rows[i])));
    }
    return values;
  }
};

TEST_F(CalcHistoryValues, ARowOfTheFileHasTheValueThatItAlwaysHas) {
  EXPECT_THAT(Values(), ElementsAre("0.5", "", "", "", "255", ""));
}

TEST_F(CalcHistoryValues, AConfirmedRowHasTheValueThatItHadThen) {
  Confirm("A=1");
  Confirm("A+1");
  Confirm("A=5");
  Confirm("A+1");
  EXPECT_THAT(Values(), ElementsAre("6", "5", "2", "1", "0.5", "", "", "", "255", ""));
}

TEST_F(CalcHistoryValues, AskingChangesNoVariable) {
  Confirm("A=7;ACC");
  const CalcStore before = SharedCalcStore();
  Line("");
  static_cast<void>(Call(&CalcSession::RowValue, 0, Text(u"A=12;A")));
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
  EXPECT_EQ(SharedCalcStore().Acc, before.Acc);
}

TEST_F(CalcHistoryValues, TheyFollowBaseAndAngleUnit) {
  Menu(calc_id::kMenuBase);
  EXPECT_EQ(view->valuePaints, 1);
  EXPECT_EQ(Values().at(4), "B11111111");
  Menu(calc_id::kMenuBase);
  EXPECT_EQ(Values().at(4), "$FF");
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuAngle);
  EXPECT_EQ(view->valuePaints, 4);
  EXPECT_EQ(Values().at(0).substr(0, 6), "-0.988");
}

TEST_F(CalcHistoryValues, DeletedRowsTakeTheirValuesAlongAndBringThemBack) {
  Confirm("A=1");
  Confirm("A+1");
  Key(CalcKey::kUp);
  Pick({0, 2});
  Key(CalcKey::kDelete);
  EXPECT_THAT(Values(), ElementsAre("1", "", "", "", "255", ""));
  Tell([](CalcSession& session) { session.OnKeptWork({RegisterMessage(PNL_NAME_REMOVED), PNL_REMOVED_PUT_BACK, 0}); });
  EXPECT_THAT(Values(), ElementsAre("2", "1", "0.5", "", "", "", "255", ""));
}

TEST_F(CalcHistoryValues, TheyArePartOfNeitherLineNorFile) {
  Confirm("2*3");
  Key(CalcKey::kUp);
  Pick({0});
  EXPECT_EQ(LineNow(), "2*3");
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "2*3");
  Command(PNL_COMMAND_CLOSE_TOOL);
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"].substr(0, 5), "2*3\r\n");
}

}  // namespace
}  // namespace pnl::test
