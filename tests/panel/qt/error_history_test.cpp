// SPDX-License-Identifier: MIT
// What became of the session's errors, told by a fake clock.
#include "host/error_history.h"

#include <gtest/gtest.h>

#include "ui/error_list_model.h"
#include "common/words.h"

namespace panel {
namespace {

using Fate = ErrorHistory::Fate;
using Summary = ErrorHistory::Summary;
using std::chrono::minutes;
using std::chrono::seconds;

class ErrorHistoryTest : public ::testing::Test {
 protected:
  static Summary Error(int number, std::u16string text = u"broken") {
    Summary error;
    error.number = number;
    error.severity = 1;
    error.text = std::move(text);
    return error;
  }
  std::int64_t Raise(Summary error) {
    error.serial = ++serial_;
    last_ = error;
    history_.Tell(error, Fate::kRaised);
    EXPECT_TRUE(history_.IsConsistent());
    return serial_;
  }
  void Leave(Summary error, std::int64_t serial, Fate fate) {
    error.serial = serial;
    history_.Tell(error, fate);
    EXPECT_TRUE(history_.IsConsistent());
  }
  [[nodiscard]] const ErrorRow& Front() const { return history_.Rows().front(); }

  ErrorTime now_{std::chrono::hours(1000)};
  ErrorHistory history_{[this] { return now_; }};
  std::int64_t serial_ = 0;
  Summary last_;
};

TEST_F(ErrorHistoryTest, TheLastErrorIsInFrontWithItsTime) {
  Raise(Error(1));
  now_ += seconds(5);
  Raise(Error(2));
  ASSERT_EQ(history_.Rows().size(), 2u);
  EXPECT_EQ(Front().error.number, 2);
  EXPECT_EQ(Front().first, now_);
  EXPECT_EQ(Front().times, 1);
}

TEST_F(ErrorHistoryTest, AnEqualErrorCountsInItsRowWithTheTimeOfTheFirst) {
  const ErrorTime first = now_;
  Raise(Error(1));
  now_ += seconds(5);
  Raise(Error(2));
  now_ += seconds(5);
  Raise(Error(1));
  ASSERT_EQ(history_.Rows().size(), 2u);
  EXPECT_EQ(Front().error.number, 1);
  EXPECT_EQ(Front().times, 2);
  EXPECT_EQ(Front().first, first);
  EXPECT_EQ(Front().last, now_);
  EXPECT_EQ(Front().standing.size(), 2u);
}

TEST_F(ErrorHistoryTest, ErrorsThatDifferInAnythingHaveRowsOfTheirOwn) {
  Raise(Error(1));
  const auto differ = [this](auto change) {
    Summary other = Error(1);
    change(other);
    Raise(other);
  };
  differ([](Summary& e) { e.channel = 2; });
  differ([](Summary& e) { e.severity = 0; });
  differ([](Summary& e) { e.errorClass = pnl::rig::CncControl::ErrorClass::kMarked; });
  differ([](Summary& e) { e.source = 10; });
  differ([](Summary& e) { e.identifier = 7; });
  differ([](Summary& e) { e.module = u"PLC"; });
  differ([](Summary& e) { e.text = u"other"; });
  differ([](Summary& e) { e.parameters = {u"1"}; });
  differ([](Summary& e) { e.parameters = {u"1", u""}; });
  EXPECT_EQ(history_.Rows().size(), 10u);
}

TEST_F(ErrorHistoryTest, EveryErrorTellsHowItLeft) {
  const auto a = Raise(Error(1));
  const auto b = Raise(Error(1));
  const auto c = Raise(Error(1));
  Raise(Error(1));
  Leave(Error(1), b, Fate::kAcknowledged);
  Leave(Error(1), a, Fate::kConfirmed);
  Leave(Error(1), c, Fate::kCleared);
  EXPECT_EQ(Front().times, 4);
  EXPECT_EQ(Front().acknowledged, 1);
  EXPECT_EQ(Front().confirmed, 1);
  EXPECT_EQ(Front().cleared, 1);
  EXPECT_EQ(Front().standing.size(), 1u);
  Leave(Error(1), a, Fate::kAcknowledged);
  EXPECT_EQ(Front().acknowledged, 1) << "it left already";
}

TEST_F(ErrorHistoryTest, WhatFindsNoPlaceIsCounted) {
  const auto first = Raise(Error(0));
  Raise(Error(0));
  for (int i = 1; i < 200; ++i) Raise(Error(i));
  EXPECT_EQ(history_.Rows().size(), 200u);
  EXPECT_EQ(history_.Left(), 0);
  Raise(Error(200));
  EXPECT_EQ(history_.Rows().size(), 200u);
  EXPECT_EQ(history_.Rows().back().error.number, 1) << "the one that came longest ago went";
  EXPECT_EQ(history_.Left(), 2) << "errors, not rows";
  EXPECT_EQ(history_.LeftStanding(), 2);
  Leave(Error(0), first, Fate::kAcknowledged);
  EXPECT_EQ(history_.Left(), 2);
  EXPECT_EQ(history_.LeftStanding(), 1);
  UseWords("en");
  EXPECT_EQ(NotesOf(history_).last(), "Older errors that are not shown: 2, of which 1 still stand");
}

TEST_F(ErrorHistoryTest, MoreThanTenInTenMinutesAreAFloodUntilTheyAreOver) {
  for (int i = 0; i < 10; ++i) {
    Raise(Error(1));
    now_ += seconds(30);
  }
  EXPECT_FALSE(history_.Flood());
  EXPECT_FALSE(history_.FloodEnd());
  const ErrorTime first = now_ - seconds(300);
  Raise(Error(2));
  EXPECT_EQ(history_.Flood(), 11);
  EXPECT_EQ(history_.FloodEnd(), first + minutes(10));
  UseWords("en");
  EXPECT_EQ(NotesOf(history_), QStringList{"Flood: 11 errors in the last ten minutes"});
  now_ = first + minutes(10) - std::chrono::milliseconds(1);
  EXPECT_TRUE(history_.Flood());
  now_ = first + minutes(10);
  EXPECT_FALSE(history_.Flood());
  EXPECT_TRUE(NotesOf(history_).isEmpty());
}

TEST_F(ErrorHistoryTest, AClockThatIsSetBackChangesNoOrder) {
  Raise(Error(1));
  now_ -= minutes(60);
  Raise(Error(2));
  EXPECT_EQ(Front().error.number, 2);
  EXPECT_GE(Front().last, history_.Rows().back().last);
}

TEST_F(ErrorHistoryTest, TenThousandDifferentErrorsKeepTheirCounts) {
  for (int i = 0; i < 10000; ++i) {
    Summary error = Error(i);
    error.serial = i + 1;
    history_.Tell(error, Fate::kRaised);
  }
  EXPECT_TRUE(history_.IsConsistent());
  EXPECT_EQ(history_.Left(), 9800);
  EXPECT_EQ(history_.LeftStanding(), 9800);
  EXPECT_EQ(history_.Flood(), 10000);
}

struct TextRow {
  const char* name;
  Summary error;
  const char* shownName;
  const char* text;
  const char* details;
};

using Class = pnl::rig::CncControl::ErrorClass;

Summary Told(int number, Class errorClass, std::u16string text, int channel, std::vector<std::u16string> parameters) {
  Summary error;
  error.number = number;
  error.errorClass = errorClass;
  error.text = std::move(text);
  error.channel = channel;
  error.parameters = std::move(parameters);
  error.source = 13;
  error.identifier = 77;
  error.module = u"DRV";
  error.serial = 1;
  return error;
}

class ErrorTextTest : public ::testing::TestWithParam<TextRow> {};

TEST_P(ErrorTextTest, ARowReadsAsTold) {
  UseWords("en");
  ErrorHistory history([] { return ErrorTime(std::chrono::hours(1000)); });
  history.Tell(GetParam().error, Fate::kRaised);
  const ErrorRowText shown = TextOfRow(history.Rows().front(), ErrorTime(std::chrono::hours(1000)));
  EXPECT_EQ(shown.name.toStdString(), GetParam().shownName);
  EXPECT_EQ(shown.text.toStdString(), GetParam().text);
  EXPECT_EQ(shown.details.toStdString(), GetParam().details);
}

INSTANTIATE_TEST_SUITE_P(
    All, ErrorTextTest,
    ::testing::Values(
        TextRow{"error", Told(12, Class::kError, u"\nToo fast", 2, {u"7"}), "error 12", "Too fast",
                "channel 2  ·  source 13  ·  standing"},
        TextRow{"warning", Told(13, Class::kWarning, u"Hot", 0, {}), "warning 13", "Hot", "source 13  ·  standing"},
        TextRow{"fatal", Told(14, Class::kFatal, u"Over", 0, {}), "fatal error 14", "Over", "source 13  ·  standing"},
        TextRow{"marked", Told(14, Class::kMarked, u"Over", 0, {}), "error 14", "Over", "source 13  ·  standing"},
        TextRow{"confirm", Told(3753, Class::kConfirm, u"Look", 0, {}), "to be confirmed 3753", "Look",
                "source 13  ·  standing"},
        TextRow{"lines", Told(15, Class::kError, u"two\r\nlines", 0, {}), "error 15", "two lines",
                "source 13  ·  standing"},
        TextRow{"unknown", Told(16, Class::kError, u"", 1, {u" 1", u" 2.5"}), "error 16",
                "no text  ·  source 13  ·  ID DRV-77  ·  parameters 1, 2.5", "channel 1  ·  standing"},
        TextRow{"markup", Told(17, Class::kError, u"<b>bold</b>", 0, {}), "error 17", "<b>bold</b>",
                "source 13  ·  standing"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace panel
