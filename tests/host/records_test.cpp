// SPDX-License-Identifier: MIT
#include "host/records.h"

#include <gtest/gtest.h>
#include <pnltools/pnltools.h>

namespace pnl {
namespace {

TEST(Records, ANumberStandsForTheAddressUntilItIsWithdrawn) {
  const std::size_t before = PublishedRecords();
  int record = 0;
  const std::int32_t number = PublishRecord(&record);
  EXPECT_GT(number, 0);
  EXPECT_EQ(ResolveRecord(number), &record);
  EXPECT_EQ(PublishedRecords(), before + 1);
  WithdrawRecord(number);
  EXPECT_EQ(ResolveRecord(number), nullptr);
  EXPECT_EQ(PublishedRecords(), before);
}

TEST(Records, TheSameRecordKeepsItsNumberWhilePublishedAndGetsANewOneAfter) {
  int record = 0;
  const std::int32_t number = PublishRecord(&record);
  EXPECT_EQ(PublishRecord(&record), number);
  WithdrawRecord(number);
  const std::int32_t again = PublishRecord(&record);
  EXPECT_NE(again, number) << "a stale number must not lead to a record again";
  WithdrawRecord(again);
}

TEST(Records, InventedNumbersLeadNowhere) {
  EXPECT_EQ(PublishRecord(nullptr), 0);
  for (const std::int32_t number : {0, -1, 0x7FFFFFFF, static_cast<std::int32_t>(0x80000000)}) {
    EXPECT_EQ(ResolveRecord(number), nullptr) << number;
    WithdrawRecord(number);
  }
}

TEST(Records, TheExchangedStructuresHaveTheirFixedLayout) {
  EXPECT_EQ(sizeof(HostMenuRef), 12u);
  EXPECT_EQ(offsetof(HostMenuRef, zero), 0u);
  EXPECT_EQ(offsetof(HostMenuRef, menu), 4u);
  EXPECT_EQ(offsetof(HostMenuRef, one), 8u);
  EXPECT_EQ(offsetof(HostMenuRef, another), 9u);
  EXPECT_EQ(offsetof(HostMenuRef, unused), 10u);
  EXPECT_EQ(sizeof(HostMessage), 2120u);
  EXPECT_EQ(offsetof(HostMessage, line), 0u);
  EXPECT_EQ(offsetof(HostMessage, one), 4u);
  EXPECT_EQ(offsetof(HostMessage, another), 8u);
  EXPECT_EQ(offsetof(HostMessage, text), 12u);
  EXPECT_EQ(offsetof(HostMessage, back), 524u);
  EXPECT_EQ(offsetof(HostMessage, fore), 528u);
  EXPECT_EQ(offsetof(HostMessage, ten), 532u);
  EXPECT_EQ(offsetof(HostMessage, rest), 536u);
  EXPECT_EQ(sizeof(PnlToolNotify), 8u);
  EXPECT_EQ(offsetof(PnlCycleStart, channel), 4u);
}

TEST(Records, TheExplorersRecordHasItsFieldsInOrder) {
  EXPECT_EQ(offsetof(XPLRDATA_ST, Owner), 0u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, Title), 4u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, Path), 204u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, File), 724u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, Filter), 1236u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, Extension), 1748u);
  EXPECT_EQ(offsetof(XPLRDATA_ST, Flags), 1768u);
  EXPECT_EQ(sizeof(XPLRDATA_ST::Title) / sizeof(char16_t), 100u);
  EXPECT_EQ(sizeof(XPLRDATA_ST::Path) / sizeof(char16_t), 260u);
  EXPECT_EQ(sizeof(XPLRDATA_ST::File) / sizeof(char16_t), 256u);
  EXPECT_EQ(sizeof(XPLRDATA_ST::Filter) / sizeof(char16_t), 256u);
  EXPECT_EQ(sizeof(XPLRDATA_ST::Extension) / sizeof(char16_t), 10u);
}

struct FlagCase {
  int flag;
  int value;
};

TEST(Records, TheExplorersFlagsHaveTheirBits) {
  const FlagCase cases[] = {{XPLR_FOLDERMODE, 0x1},    {XPLR_CONFIRMOVERWRITE, 0x2}, {XPLR_LISTONLY, 0x8},
                            {XPLR_HIDELOCKED, 0x10},   {XPLR_NOBLANKS, 0x20},        {XPLR_MUSTEXIST, 0x1000},
                            {XPLR_NOREADONLY, 0x8000}, {XPLR_PINNED, 0x800000}};
  for (const FlagCase& row : cases) EXPECT_EQ(row.flag, row.value);
  EXPECT_EQ(XPLR_MUSTEXIST | XPLR_LISTONLY, 0x1008) << "the flags of a prepared record";
}

TEST(Records, TheToolsHaveTheirNumbers) {
  EXPECT_EQ(PNL_TOOL_ERRORS, 0);
  EXPECT_EQ(PNL_TOOL_PLC_MESSAGES, 1);
  EXPECT_EQ(PNL_TOOL_HELP, 2);
  EXPECT_EQ(PNL_TOOL_CALCULATOR, 3);
  EXPECT_EQ(PNL_TOOL_MACHINING_CALCULATOR, 4);
  EXPECT_EQ(PNL_TOOL_EXPLORER, 5);
  EXPECT_EQ(PNL_TOOL_MDI, 6);
}

}  // namespace
}  // namespace pnl
