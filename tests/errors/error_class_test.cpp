// SPDX-License-Identifier: MIT
#include "errors/error_class.h"

#include <gtest/gtest.h>

#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

struct ClassCase {
  std::uint16_t severity;
  bool marked;
  std::int32_t number;
  ErrorClass expected;
};

TEST(ErrorClass, FollowsTheFirstRuleThatHolds) {
  const ClassCase cases[] = {
      {0, false, 1000, ErrorClass::kWarning}, {0, true, 1000, ErrorClass::kWarning},
      {0, false, 3753, ErrorClass::kWarning}, {0, true, 3753, ErrorClass::kWarning},
      {1, true, 1000, ErrorClass::kMarked},   {7, true, 1000, ErrorClass::kMarked},
      {1, true, 3753, ErrorClass::kMarked},   {1, false, 3753, ErrorClass::kConfirm},
      {7, false, 3753, ErrorClass::kConfirm}, {7, false, 1000, ErrorClass::kFatal},
      {1, false, 1000, ErrorClass::kError},   {6, false, 3752, ErrorClass::kError},
      {8, false, 3754, ErrorClass::kError},   {0xFFFF, false, 1000, ErrorClass::kError},
  };
  for (const ClassCase& row : cases) {
    RecordBuilder record;
    record.Severity(row.severity).Number(row.number);
    if (row.marked) record.Marked();
    EXPECT_EQ(ClassifyError(record), row.expected)
        << "severity " << row.severity << ", marked " << row.marked << ", number " << row.number;
  }
}

TEST(ErrorClass, AWarningWithTheNumberToConfirmStaysAWarning) {
  EXPECT_EQ(ClassifyError(RecordBuilder().Severity(0).Number(3753)), ErrorClass::kWarning);
}

TEST(ErrorClass, AMarkedFatalErrorIsMarked) {
  EXPECT_EQ(ClassifyError(RecordBuilder().Severity(7).Marked()), ErrorClass::kMarked);
}

TEST(ErrorClass, HasTheColourOfItsClass) {
  EXPECT_EQ(ErrorColorOf(ErrorClass::kError), 0x0000A0u);
  EXPECT_EQ(ErrorColorOf(ErrorClass::kMarked), 0x0000A0u);
  EXPECT_EQ(ErrorColorOf(ErrorClass::kWarning), 0x648064u);
  EXPECT_EQ(ErrorColorOf(ErrorClass::kFatal), 0x806480u);
  EXPECT_EQ(ErrorColorOf(ErrorClass::kConfirm), 0x806480u);
}

TEST(ErrorClass, SourcesOfDrivesAndBusesNameNoChannel) {
  for (const int source : {10, 13, 14, 16, 17, 19}) EXPECT_FALSE(HasChannel(source)) << source;
  for (const int source : {-1, 0, 1, 2, 3, 4, 8, 9, 11, 12, 15, 18, 20, 1000})
    EXPECT_TRUE(HasChannel(source)) << source;
  EXPECT_TRUE(HasKernelWord(19));
  EXPECT_FALSE(HasKernelWord(10));
  EXPECT_TRUE(HasKernelWord(9));
}

}  // namespace
}  // namespace pnl::test
