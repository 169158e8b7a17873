// SPDX-License-Identifier: MIT
#include "plc/plc_queue.h"

#include <gmock/gmock.h>

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

PlcFile File(TextView name) { return {0, 0, 0, Text(name), Text(name)}; }

TEST(PlcQueue, BeginsClosedWithNothing) {
  const PlcQueue queue;
  EXPECT_EQ(queue.Mode(), PlcMode::kClosed);
  EXPECT_EQ(queue.CurrentCode(), 2'000'000'000u);
  EXPECT_EQ(queue.Total(), 0u);
  EXPECT_EQ(queue.Place(), 0u);
}

TEST(PlcQueue, CodesWaitInAscendingOrderWithoutDuplicatesAndWithoutZero) {
  PlcQueue queue;
  for (const std::uint32_t code : {5u, 0xF0000001u, 3u, 5u, 0u, 9u, 3u}) queue.AddCode(code);
  EXPECT_THAT(queue.Codes(), ElementsAre(3u, 5u, 9u, 0xF0000001u));
}

TEST(PlcQueue, ALowerCodeDisplacesAHigherOneButNotTheOtherWay) {
  PlcQueue queue;
  queue.AddCode(5);
  EXPECT_TRUE(queue.TakeLowerCode());
  EXPECT_EQ(queue.CurrentCode(), 5u);
  EXPECT_EQ(queue.Mode(), PlcMode::kMessage);
  EXPECT_FALSE(queue.TakeLowerCode());
  queue.AddCode(7);
  EXPECT_FALSE(queue.TakeLowerCode());
  queue.AddCode(3);
  EXPECT_TRUE(queue.TakeLowerCode());
  EXPECT_EQ(queue.CurrentCode(), 3u);
}

TEST(PlcQueue, AMessageNeverDisplacesHelp) {
  PlcQueue queue;
  queue.SetMode(PlcMode::kHelp);
  queue.AddCode(1);
  EXPECT_FALSE(queue.TakeLowerCode());
  EXPECT_EQ(queue.Mode(), PlcMode::kHelp);
}

// The code that means none is a number like others: what isn't lower never comes to the screen by a report.
TEST(PlcQueue, ACodeThatIsNotBelowTheCodeForNoneIsOnlyShownWhenSomethingIsLeft) {
  PlcQueue queue;
  queue.AddCode(2'000'000'000);
  queue.AddCode(0x80000001);
  EXPECT_FALSE(queue.TakeLowerCode());
  EXPECT_EQ(queue.Mode(), PlcMode::kClosed);
  EXPECT_EQ(queue.Advance(), PlcItem::kMessage);
  EXPECT_EQ(queue.CurrentCode(), 2'000'000'000u);
}

TEST(PlcQueue, MessagesComeBeforeFilesAndFilesInTheirOrder) {
  PlcQueue queue;
  queue.AddFile(File(u"a"));
  queue.AddFile(File(u"b"));
  queue.AddCode(2);
  EXPECT_EQ(queue.Advance(), PlcItem::kMessage);
  queue.RemoveShown();
  EXPECT_EQ(queue.Advance(), PlcItem::kFile);
  EXPECT_EQ(queue.Mode(), PlcMode::kFile);
  EXPECT_EQ(queue.CurrentCode(), PlcQueue::kNoCode);
  EXPECT_EQ(queue.Files().front().file, u"a");
  queue.RemoveShown();
  EXPECT_EQ(queue.Advance(), PlcItem::kFile);
  EXPECT_EQ(queue.Files().front().file, u"b");
  queue.RemoveShown();
  EXPECT_EQ(queue.Advance(), PlcItem::kNothing);
  EXPECT_EQ(queue.Mode(), PlcMode::kClosed);
}

TEST(PlcQueue, OnlyWhatIsShownIsRemoved) {
  PlcQueue queue;
  queue.AddFile(File(u"a"));
  queue.AddCode(4);
  for (const PlcMode mode : {PlcMode::kHelp, PlcMode::kClosed}) {
    queue.SetMode(mode);
    queue.RemoveShown();
  }
  EXPECT_THAT(queue.Codes(), ElementsAre(4u));
  EXPECT_EQ(queue.Files().size(), 1u);
  queue.SetMode(PlcMode::kFile);
  queue.RemoveShown();
  queue.RemoveShown();
  EXPECT_THAT(queue.Files(), IsEmpty());
  EXPECT_THAT(queue.Codes(), ElementsAre(4u));
}

TEST(PlcQueue, ADisplacedFileComesBackAfterTheMessage) {
  PlcQueue queue;
  queue.AddFile(File(u"a"));
  queue.SetMode(PlcMode::kFile);
  queue.AddCode(4);
  EXPECT_TRUE(queue.TakeLowerCode());
  queue.RemoveShown();
  EXPECT_EQ(queue.Advance(), PlcItem::kFile);
  EXPECT_EQ(queue.Files().size(), 1u);
}

TEST(PlcQueue, ThePlaceCountsFilesThatWereLeftToo) {
  PlcQueue queue;
  queue.AddFile(File(u"a"));
  queue.AddFile(File(u"b"));
  queue.Advance();
  EXPECT_EQ(queue.Place(), 1u);
  queue.RemoveShown();
  queue.Advance();
  EXPECT_EQ(queue.Place(), 2u);
  EXPECT_EQ(queue.Total(), 2u);
}

TEST(PlcQueue, ThePlaceCountsWhatWasLeftSinceNothingWasLeft) {
  PlcQueue queue;
  queue.AddCode(3);
  queue.AddCode(5);
  queue.AddFile(File(u"a"));
  ASSERT_TRUE(queue.TakeLowerCode());
  const auto state = [&queue] { return std::pair(queue.Place(), queue.Total()); };
  EXPECT_EQ(state(), std::pair(std::size_t{1}, std::size_t{3}));
  queue.RemoveShown();
  queue.Advance();
  EXPECT_EQ(state(), std::pair(std::size_t{2}, std::size_t{3}));
  queue.RemoveShown();
  queue.Advance();
  EXPECT_EQ(state(), std::pair(std::size_t{3}, std::size_t{3}));
  queue.SetMode(PlcMode::kHelp);
  EXPECT_EQ(queue.Place(), 0u);
  queue.SetMode(PlcMode::kFile);
  queue.RemoveShown();
  queue.Advance();
  EXPECT_EQ(state(), std::pair(std::size_t{0}, std::size_t{0}));
}

}  // namespace
}  // namespace pnl::test
