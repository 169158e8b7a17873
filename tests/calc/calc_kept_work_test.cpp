// SPDX-License-Identifier: MIT
// What a host keeps for the operator of the calculator: the expression that isn't finished, and deleted rows of the
// history.
#include "calc_fixture.h"
#include "host/kept_work.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CalcKeptWork : public CalcTest {
 protected:
  CalcKeptWork() {
    files.disc["C:\\P1\\calc.htr"] = "1+1\r\n2+2\r\n3+3\r\n4+4\r\n";
    Open();
  }
  std::intptr_t Tell(const char* name, std::intptr_t first, void* record) {
    std::intptr_t answer = -1;
    RunOperation(tool, [&](CalcSession& session) {
      answer = session.OnKeptWork({RegisterMessage(name), first, reinterpret_cast<std::intptr_t>(record)}).value_or(-1);
    });
    return answer;
  }
  std::string Unfinished() {
    PnlUnfinished record{};
    EXPECT_EQ(Tell(PNL_NAME_READ_UNFINISHED, 0, &record), 1);
    return std::to_string(record.kind) + " '" + ToUtf8(record.text) + "'";
  }
  std::intptr_t Restore(TextView text, PnlUnfinishedKind kind = PNL_UNFINISHED_LINE) {
    PnlUnfinished record{};
    FillUnfinished(record, kind, text);
    return Tell(PNL_NAME_RESTORE_UNFINISHED, 0, &record);
  }
  std::string Removed() {
    PnlRemoved record{};
    const std::intptr_t rows = Tell(PNL_NAME_REMOVED, PNL_REMOVED_READ, &record);
    return std::to_string(rows) + " '" + ToUtf8(record.text) + "'";
  }
  std::intptr_t PutBack() { return Tell(PNL_NAME_REMOVED, PNL_REMOVED_PUT_BACK, nullptr); }
  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (int i = 0; i < view->ListCount(); ++i) rows.push_back(ToUtf8(view->ListItem(i)));
    return rows;
  }
  void Delete(std::vector<int> rows) {
    Button(calc_id::kOpenList);
    Pick(std::move(rows));
    Key(CalcKey::kDelete);
    Key(CalcKey::kEscape);
  }
};

TEST_F(CalcKeptWork, ReadingTellsTheLine) {
  EXPECT_EQ(Unfinished(), "0 ''");
  Line("SIN(30)+");
  EXPECT_EQ(Unfinished(), "1 'SIN(30)+'");
}

TEST_F(CalcKeptWork, WhileTheHistoryIsOpenItTellsTheLineFromBefore) {
  Line("abc");
  Button(calc_id::kOpenList);
  Pick({1});
  EXPECT_EQ(Unfinished(), "1 'abc'");
}

TEST_F(CalcKeptWork, AnExpressionComesBackWithTheCaretAtItsEnd) {
  EXPECT_EQ(Restore(u"SIN(30)+"), 1);
  EXPECT_EQ(ToUtf8(view->LineText()), "SIN(30)+");
  EXPECT_EQ(view->selection, (TextSelection{8, 8}));
}

TEST_F(CalcKeptWork, NothingIsPutOverWhatIsTypedOrIntoAnOpenList) {
  Line("1");
  EXPECT_EQ(Restore(u"2"), 0);
  EXPECT_EQ(ToUtf8(view->LineText()), "1");
  Line("");
  Button(calc_id::kOpenList);
  EXPECT_EQ(Restore(u"2"), 0);
  Key(CalcKey::kEscape);
  EXPECT_EQ(Restore(u"2", PNL_UNFINISHED_NEW_ITEM), 0);
  EXPECT_EQ(Restore(u""), 0);
  EXPECT_EQ(Restore(u"2"), 1);
}

TEST_F(CalcKeptWork, DeletedRowsComeBackWhereTheyWere) {
  Delete({0, 2});
  EXPECT_THAT(Rows(), ElementsAre("2+2", "4+4"));
  EXPECT_EQ(Removed(), "2 '1+1'");
  EXPECT_EQ(PutBack(), 2);
  EXPECT_THAT(Rows(), ElementsAre("1+1", "2+2", "3+3", "4+4"));
  EXPECT_EQ(PutBack(), 0);
}

TEST_F(CalcKeptWork, RowsThatWereConfirmedSinceStayAboveThem) {
  Delete({1});
  Confirm("5+5");
  EXPECT_EQ(PutBack(), 1);
  EXPECT_THAT(Rows(), ElementsAre("5+5", "1+1", "2+2", "3+3", "4+4"));
}

TEST_F(CalcKeptWork, RemovalsComeBackTheLastOneFirst) {
  Delete({0});
  Delete({1, 2});
  EXPECT_EQ(tool->RemovalNumber(), 2);
  EXPECT_EQ(Removed(), "2 '3+3'");
  EXPECT_EQ(PutBack(), 2);
  EXPECT_THAT(Rows(), ElementsAre("2+2", "3+3", "4+4"));
  EXPECT_EQ(tool->RemovalNumber(), 1);
  EXPECT_EQ(PutBack(), 1);
  EXPECT_THAT(Rows(), ElementsAre("1+1", "2+2", "3+3", "4+4"));
  EXPECT_EQ(tool->RemovalNumber(), 0);
}

TEST_F(CalcKeptWork, NoMoreRemovalsAreKeptThanAnybodyWantsBack) {
  for (std::size_t i = 0; i < kMostRemovals + 5; ++i) {
    Confirm("7");
    Delete({0});
  }
  std::size_t back = 0;
  while (PutBack() == 1) ++back;
  EXPECT_EQ(back, kMostRemovals);
}

TEST_F(CalcKeptWork, AForgottenRemovalDoesNotComeBack) {
  Delete({0});
  EXPECT_EQ(Tell(PNL_NAME_REMOVED, PNL_REMOVED_FORGET, nullptr), 0);
  EXPECT_EQ(Removed(), "0 ''");
  EXPECT_EQ(PutBack(), 0);
  EXPECT_THAT(Rows(), ElementsAre("2+2", "3+3", "4+4"));
}

TEST_F(CalcKeptWork, TheRowsAreStoredWhenTheHostAsksOnceForEachChange) {
  const auto store = [this] { return Tell(PNL_NAME_STORE_ROWS, 0, nullptr); };
  std::string& file = files.disc["C:\\P1\\calc.htr"];
  file = "by another\r\n";
  EXPECT_EQ(store(), 1);
  EXPECT_EQ(file, "by another\r\n") << "nothing has changed";
  Confirm("5+5");
  EXPECT_EQ(store(), 1);
  EXPECT_EQ(file, "5+5\r\n1+1\r\n2+2\r\n3+3\r\n4+4\r\n");
  Delete({1, 2});
  EXPECT_EQ(store(), 1);
  EXPECT_EQ(file, "5+5\r\n3+3\r\n4+4\r\n");
  file = "by another\r\n";
  EXPECT_EQ(store(), 1);
  EXPECT_EQ(file, "by another\r\n");
  EXPECT_EQ(PutBack(), 2);
  files.readOnly = {"C:\\P1\\calc.htr"};
  EXPECT_EQ(store(), 0);
  files.readOnly.clear();
  EXPECT_EQ(store(), 1) << "tried again";
  EXPECT_EQ(file, "5+5\r\n1+1\r\n2+2\r\n3+3\r\n4+4\r\n");
}

TEST_F(CalcKeptWork, WithoutRowsTheFileStays) {
  Delete({0, 1, 2, 3});
  EXPECT_EQ(Tell(PNL_NAME_STORE_ROWS, 0, nullptr), 1);
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"], "1+1\r\n2+2\r\n3+3\r\n4+4\r\n");
}

}  // namespace
}  // namespace pnl::test
