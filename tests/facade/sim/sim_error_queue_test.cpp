// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_queue.h"

#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ErrorQueueTest : public test::SimFixture {
 protected:
  void Push(std::int64_t number, std::int64_t source = 0) {
    rig::ErrorSpec spec;
    spec.fields = {{"number", number}, {"source", source}};
    std::string problem;
    ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
  }
  void OpenBoth() {
    count.SetNombre(u"E.NERRORS");
    first.SetNombre(u"E.ERRORPRI");
    ASSERT_EQ(count.OpenReport(window), 0);
    ASSERT_EQ(first.OpenReport(window), 0);
  }
  /// "n" for a report of the count, "p" for one of the first error, in order.
  std::string Reports() {
    std::string all;
    for (const auto id : TakeReports(window))
      all += count.HandleReport(id, 0) ? "n" : first.HandleReport(id, 0) ? "p" : "?";
    return all;
  }
  int Read(int index) {
    ErrorRecord record{};
    last = -1;
    const int result = kernel.ReadError(index, record);
    if (result >= 0) last = record.Get<std::int32_t>(error_field::kNumber.offset);
    return result;
  }

  Kernel& kernel = cnc.Kapi();
  WindowHandle window = windows.Open();
  ZCVariable count{cnc.Vars()};
  ZCVariable first{cnc.Vars()};
  std::int32_t last = -1;
};

TEST_F(ErrorQueueTest, ThePushMakesTheTwoVariablesIfAbsent) {
  EXPECT_EQ(Get(u"E.NERRORS"), "absent");
  Push(5);
  EXPECT_EQ(Get(u"E.NERRORS"), "1");
  EXPECT_EQ(Get(u"E.ERRORPRI"), "0");
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(5));
}

TEST_F(ErrorQueueTest, EveryPushReportsTheCountThenTheFirst) {
  Push(5);
  OpenBoth();
  Push(6);
  EXPECT_EQ(Reports(), "np");
  EXPECT_EQ(Get(u"E.NERRORS"), "2");
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(5, 6));
}

TEST_F(ErrorQueueTest, TheFirstIsReadByMinusOneAndOthersByIndex) {
  Push(5);
  Push(6);
  EXPECT_EQ(Read(-1), 0);
  EXPECT_EQ(last, 5);
  EXPECT_EQ(Read(1), 1);
  EXPECT_EQ(last, 6);
}

TEST_F(ErrorQueueTest, ReadingWhatIsNotThereLeavesTheRecord) {
  Push(5);
  ErrorRecord record{};
  record.Set<std::int32_t>(0, 123);
  for (const int index : {1, 2, -2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(kernel.ReadError(index, record), -1) << index;
  }
  EXPECT_EQ(record.Get<std::int32_t>(0), 123);
  cnc.ClearErrors();
  EXPECT_EQ(kernel.ReadError(-1, record), -1);
  EXPECT_EQ(record.Get<std::int32_t>(0), 123);
}

TEST_F(ErrorQueueTest, AReadCanBeMadeToFail) {
  Push(5);
  cnc.Returns("ReadError", {-1, 0});
  ErrorRecord record{};
  EXPECT_EQ(kernel.ReadError(-1, record), -1);
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kNumber.offset), 0) << "a failed read leaves the record";
  EXPECT_EQ(kernel.ReadError(-1, record), 0);
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kNumber.offset), 5);
}

TEST_F(ErrorQueueTest, TakingTheFirstOutReportsBoth) {
  Push(5);
  Push(6);
  OpenBoth();
  EXPECT_EQ(kernel.ResetError(0, 1), 0);
  EXPECT_EQ(Reports(), "np");
  EXPECT_EQ(Get(u"E.NERRORS"), "1");
  EXPECT_EQ(Read(-1), 0);
  EXPECT_EQ(last, 6);
}

TEST_F(ErrorQueueTest, TakingAnotherOutReportsTheCountAlone) {
  Push(5);
  Push(6);
  Push(7);
  OpenBoth();
  EXPECT_EQ(kernel.ResetError(1, 0), 0);
  EXPECT_EQ(Reports(), "n");
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(5, 7));
}

TEST_F(ErrorQueueTest, TakingTheLastOneOutReportsBoth) {
  Push(5);
  OpenBoth();
  EXPECT_EQ(kernel.ResetError(-1, 1), 0);
  EXPECT_EQ(Reports(), "np");
  EXPECT_EQ(Get(u"E.NERRORS"), "0");
  EXPECT_EQ(Read(-1), -1);
}

TEST_F(ErrorQueueTest, TakingOutWhatIsNotThereReportsNothing) {
  Push(5);
  OpenBoth();
  ErrorRecord stranger{};
  stranger.Set<std::int32_t>(error_field::kNumber.offset, 99);
  EXPECT_EQ(kernel.ResetError(1, 1), -1);
  EXPECT_EQ(kernel.ResetError(-2, 1), -1);
  EXPECT_EQ(kernel.ResetErrorWithEnter(0, stranger), -1);
  EXPECT_EQ(Reports(), "");
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(5));
}

TEST_F(ErrorQueueTest, EnterTakesTheErrorItShows) {
  Push(5);
  Push(3753);
  Push(7);
  OpenBoth();
  ErrorRecord shown{};
  kernel.ReadError(1, shown);
  sink.Take();
  EXPECT_EQ(kernel.ResetErrorWithEnter(0, shown), 0);
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(5, 7));
  EXPECT_EQ(Reports(), "n");
  EXPECT_THAT(sink.Take(), ElementsAre("ResetErrorWithEnter(0,{number:3753,source:0})=0"));
}

TEST_F(ErrorQueueTest, EnterPrefersTheSameBytesToTheSameNumber) {
  rig::ErrorSpec spec;
  std::string problem;
  for (const std::int64_t channel : {1, 2}) {
    spec.fields = {{"number", std::int64_t{5}}, {"channel", channel}};
    ASSERT_TRUE(cnc.PushError(spec, problem));
  }
  ErrorRecord second{};
  kernel.ReadError(1, second);
  kernel.ResetErrorWithEnter(0, second);
  ErrorRecord left{};
  ASSERT_EQ(kernel.ReadError(0, left), 0);
  EXPECT_EQ(left.Get<std::int8_t>(error_field::kChannel.offset), 1);
  // A record that only shares number and source stands for the first of its kind.
  left.Set<std::int32_t>(error_field::kIdentifier.offset, 9);
  EXPECT_EQ(kernel.ResetErrorWithEnter(0, left), 0);
  EXPECT_THAT(cnc.ErrorQueue(), IsEmpty());
}

TEST_F(ErrorQueueTest, AStrangerTakesTheFirstOfItsNumberAndSource) {
  rig::ErrorSpec spec;
  std::string problem;
  const std::pair<std::int64_t, std::int64_t> kinds[] = {{6, 0}, {5, 1}, {5, 0}, {5, 0}};
  std::int64_t channel = 0;
  for (const auto& [number, source] : kinds) {
    spec.fields = {{"number", number}, {"source", source}, {"channel", ++channel}};
    ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
  }
  ErrorRecord stranger{};
  stranger.Set<std::int32_t>(error_field::kNumber.offset, 5);
  EXPECT_EQ(kernel.ResetErrorWithEnter(0, stranger), 0);
  ASSERT_EQ(cnc.Errors().size(), 3U);
  EXPECT_EQ(cnc.Errors()[0].channel, 1);
  EXPECT_EQ(cnc.Errors()[1].channel, 2);
  EXPECT_EQ(cnc.Errors()[2].channel, 4);
}

TEST_F(ErrorQueueTest, ACallIsRecordedBeforeTheReportsThatItCauses) {
  Push(5);
  Push(6);
  std::vector<std::string> recorded;
  cnc.Watch(u"E.NERRORS", [&] { recorded = sink.Take(); });
  kernel.ResetError(0, 1);
  EXPECT_THAT(recorded, ElementsAre("ResetError(0,1)=0"));
  ErrorRecord record{};
  kernel.ReadError(0, record);
  sink.Take();
  kernel.ResetErrorWithEnter(0, record);
  EXPECT_THAT(recorded, ElementsAre("ResetErrorWithEnter(0,{number:6,source:0})=0"));
}

TEST_F(ErrorQueueTest, ASetAnswerChangesTheAnswerNotTheDeed) {
  Push(5);
  cnc.Returns("ResetError", {1});
  EXPECT_EQ(kernel.ResetError(0, 1), 1);
  EXPECT_THAT(cnc.ErrorQueue(), IsEmpty());
}

TEST_F(ErrorQueueTest, ClearingReportsAsAPushDoes) {
  Push(5);
  Push(6);
  OpenBoth();
  cnc.ClearErrors();
  EXPECT_EQ(Reports(), "np");
  EXPECT_EQ(Get(u"E.NERRORS"), "0");
  cnc.ClearErrors();
  EXPECT_EQ(Reports(), "np");
}

TEST_F(ErrorQueueTest, ClearingAnEmptyQueueMakesTheVariablesToo) {
  cnc.ClearErrors();
  EXPECT_EQ(Get(u"E.NERRORS"), "0");
  EXPECT_EQ(Get(u"E.ERRORPRI"), "0");
}

TEST_F(ErrorQueueTest, ReadsAndResetsAreRecorded) {
  Push(5, 2);
  Read(-1);
  Read(4);
  kernel.ResetError(0, 1);
  EXPECT_THAT(sink.Take(),
              ElementsAre("ReadError(-1,{number:5,source:2})=0", "ReadError(4,nothing)=-1", "ResetError(0,1)=0"));
}

TEST_F(ErrorQueueTest, ARawRecordIsTakenAsItIs) {
  std::string bytes(sizeof(ErrorRecord), '\xFF');
  EXPECT_FALSE(cnc.PushErrorRecord(bytes + "x"));
  EXPECT_FALSE(cnc.PushErrorRecord(std::string_view(bytes).substr(1)));
  EXPECT_FALSE(cnc.PushErrorRecord(""));
  EXPECT_TRUE(cnc.PushErrorRecord(bytes));
  EXPECT_THAT(cnc.ErrorQueue(), ElementsAre(-1));
  ErrorRecord read{};
  EXPECT_EQ(kernel.ReadError(-1, read), 0);
  EXPECT_EQ(std::memcmp(read.bytes, bytes.data(), bytes.size()), 0);
  ASSERT_EQ(cnc.Errors().size(), 1U);
  EXPECT_EQ(cnc.Errors()[0].severity, 0xFFFF);
}

TEST_F(ErrorQueueTest, TenThousandErrorsCostNoMoreThanTheirNumber) {
  cnc.ClearErrors();
  OpenBoth();
  for (int i = 0; i < 10'000; ++i) Push(i);
  EXPECT_EQ(cnc.ErrorQueue().size(), 10'000U);
  EXPECT_EQ(Get(u"E.NERRORS"), "10000");
  EXPECT_EQ(Read(9'999), 9'999);
  EXPECT_EQ(last, 9'999);
  for (int i = 0; i < 10'000; ++i) kernel.ResetError(i % 2 == 0 ? 0 : -1, 1);
  EXPECT_THAT(cnc.ErrorQueue(), IsEmpty());
}

struct SummaryRow {
  const char* what;
  std::vector<rig::Field> fields;
  TextView text;
};

TEST_F(ErrorQueueTest, AnOperatorReadsTheBestTextThereIs) {
  cnc.ErrorText("error_to_txt", 10, u"\nDoor open", u"", false);
  cnc.ErrorText("error_to_txt", 11, u"\n", u"", false);
  const Text own = u"\nOwn text";
  const SummaryRow rows[] = {
      {"the text of its number, from the second character",
       {{"number", std::int64_t{10}}, {"messageText", own}},
       u"Door open"},
      {"a record that says itself what happened goes before the text of its number",
       {{"number", std::int64_t{10}}, {"source", std::int64_t{15}}, {"messageText", own}},
       u"Own text"},
      {"a text of its own, less a line feed", {{"number", std::int64_t{12}}, {"messageText", own}}, u"Own text"},
      {"an empty text of the number counts as none", {{"number", std::int64_t{11}}, {"messageText", own}}, u"Own text"},
      {"no text at all", {{"number", std::int64_t{13}}}, u""},
      {"two numbers in the place of the text",
       {{"number", std::int64_t{14}}, {"source", std::int64_t{3}}, {"code", std::int64_t{0x00410041}}},
       u""},
  };
  for (const SummaryRow& row : rows) {
    cnc.ClearErrors();
    std::string problem;
    ASSERT_TRUE(cnc.PushError({row.fields, {}, {}}, problem));
    ASSERT_EQ(cnc.Errors().size(), 1U);
    EXPECT_EQ(cnc.Errors()[0].text, row.text) << row.what;
  }
}

TEST_F(ErrorQueueTest, TheSummaryHasNumberChannelAndSeverity) {
  std::string problem;
  cnc.PushError(
      {{{"number", std::int64_t{3753}}, {"channel", std::int64_t{-1}}, {"severity", std::int64_t{7}}}, {}, {}},
      problem);
  Push(8);
  const auto errors = cnc.Errors();
  ASSERT_EQ(errors.size(), 2U);
  EXPECT_EQ(errors[0].number, 3753);
  EXPECT_EQ(errors[0].channel, -1);
  EXPECT_EQ(errors[0].severity, 7);
  EXPECT_EQ(errors[1].number, 8);
}

}  // namespace
}  // namespace pnl::sim
