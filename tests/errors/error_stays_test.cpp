// SPDX-License-Identifier: MIT
// What stays as it is: keys without an error, counts without a way on, a window that is away, and errors that are gone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "errors/error_ids.h"
#include "errors/error_rig.h"
#include "support/error_records.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

RecordBuilder Kernel(int number) { return RecordBuilder().Number(number); }
RecordBuilder Fatal(int number) { return RecordBuilder().Number(number).Severity(7); }

class ErrorStays : public ErrorToolTest {};

TEST_F(ErrorStays, ANewReportOfThePrimaryErrorTakesTheScreenBackToIt) {
  MakeTool();
  for (const int number : {1000, 1001, 1002}) Push(Kernel(number));
  Key(ErrorKey::kRight);
  Key(ErrorKey::kRight);
  ASSERT_EQ(Counters(), "2/-");
  All();
  Push(Kernel(1000));
  EXPECT_THAT(All(), ElementsAre("ReadError(-1)=0", "write DM.HMI.ERROR.CURRENT=\"ERROR 1000: fault 1000\" ok"));
  EXPECT_EQ(Box(), "ERROR 1000");
  EXPECT_EQ(Counters(), "-/3");
}

TEST_F(ErrorStays, EachErrorThatIsShownHasTheWindowPaintedAnew) {
  MakeTool();
  Push(Kernel(1000));
  Push(Kernel(1001));
  for (const ErrorKey key : {ErrorKey::kRight, ErrorKey::kLeft}) {
    const int before = view->invalidations;
    Key(key);
    EXPECT_EQ(view->invalidations, before + 1);
  }
}

TEST_F(ErrorStays, WalkingThereAndBackWritesWhichErrorIsShown) {
  MakeTool();
  Push(Kernel(1000));
  Push(Kernel(1001));
  Key(ErrorKey::kRight);
  EXPECT_EQ(Current(), "\"ERROR 1001: fault 1001\"");
  Key(ErrorKey::kLeft);
  EXPECT_EQ(Current(), "\"ERROR 1000: fault 1000\"");
}

TEST_F(ErrorStays, ConfirmingTheSecondErrorShowsTheFirst) {
  MakeTool();
  for (const int number : {1000, 3753, 1001}) Push(Kernel(number));
  Key(ErrorKey::kRight);
  All();
  Key(ErrorKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view wait", "ResetErrorWithEnter(0)=0", "ReadError(0)=0",
                                 "write DM.HMI.ERROR.CURRENT=\"ERROR 1000: fault 1000\" ok", "view ready"));
  EXPECT_EQ(Counters(), "-/1");
}

TEST_F(ErrorStays, WithoutAnErrorKeysAndPicturesDoNothing) {
  MakeTool();
  for (const bool emptied : {false, true}) {
    if (emptied) {
      Push(Kernel(3753));
      Key(ErrorKey::kEnter);
    }
    All();
    for (const ErrorKey key :
         {ErrorKey::kLeft, ErrorKey::kRight, ErrorKey::kUp, ErrorKey::kDown, ErrorKey::kEscape, ErrorKey::kEnter}) {
      Key(key);
    }
    for (const int id :
         {error_id::kPrevious, error_id::kNext, error_id::kHelp, error_id::kAcknowledge, error_id::kMarkedSign}) {
      Click(id);
    }
    EXPECT_THAT(All(), IsEmpty()) << emptied;
  }
}

TEST_F(ErrorStays, ACountOfOneWithoutAnErrorOffersNoWayOn) {
  MakeTool();
  cnc.Set(u"E.NERRORS", std::int64_t{1});
  Drain();
  EXPECT_FALSE(view->Shows(error_id::kNext));
  EXPECT_FALSE(view->Shows(error_id::kAfter));
}

TEST_F(ErrorStays, TwoErrorsOfferTheWayOn) {
  MakeTool();
  Push(Kernel(1000));
  EXPECT_EQ(Counters(), "-/-");
  Push(Kernel(1001));
  EXPECT_EQ(Counters(), "-/1");
}

TEST_F(ErrorStays, AFatalErrorThatIsGoneClosesNothingWithTheNextOne) {
  MakeTool();
  Push(Fatal(1000));
  Key(ErrorKey::kEscape);
  cnc.ClearErrors();
  Drain();
  Push(Kernel(201));
  All();
  Key(ErrorKey::kEscape);
  EXPECT_THAT(All(), Not(Contains("ZM_CLOSE7340(1,0)"))) << "it closes after its five seconds";
}

TEST_F(ErrorStays, TheHostGetsTheWordAndTheColoursOfTheErrorsClass) {
  static std::uint32_t textColor = 0;
  static std::uint32_t backColor = 0;
  static Text header;
  table.showError = [](const HostErrorLine* line) {
    backColor = line->backColor;
    textColor = line->textColor;
    header = line->headerText;
    return 0;
  };
  cnc.ErrorText("error_to_txt", 2000, u"\nbroken", u"C:\\H.TXT#7", false);
  MakeTool();
  Push(RecordBuilder().Number(2000).Severity(0));
  EXPECT_TRUE(tool->ShowHelp());
  EXPECT_EQ(backColor, 0x648064u);
  EXPECT_EQ(textColor, 0xFFFFFFu);
  EXPECT_EQ(header, u"Warning 2000 : broken");
}

TEST_F(ErrorStays, BlockingAWindowThatIsAwayTellsNothing) {
  MakeTool();
  Push(Kernel(1000));
  tool->OnHotKey();
  All();
  Notify(79, 1);
  EXPECT_THAT(All(), IsEmpty()) << "it is away already";
  Notify(79, 0);
  EXPECT_THAT(All(), IsEmpty()) << "it comes back with the hot key";
  tool->OnHotKey();
  EXPECT_TRUE(view->visible);
}

TEST_F(ErrorStays, TheSignsShareThePlaceBesideTheHelp) {
  MakeTool();
  Push(Kernel(1000));
  const Rect sign{565, 10, 595, 42};
  EXPECT_EQ(view->rects[error_id::kHelp], (Rect{525, 10, 555, 42}));
  EXPECT_EQ(view->rects[error_id::kAcknowledge], sign);
  EXPECT_EQ(view->rects[error_id::kConfirmSign], sign);
  EXPECT_EQ(view->rects[error_id::kMarkedSign], sign);
}

}  // namespace
}  // namespace pnl::test
