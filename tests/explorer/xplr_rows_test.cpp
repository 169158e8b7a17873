// SPDX-License-Identifier: MIT
#include "explorer/xplr_rows.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "explorer/xplr_zone.h"

namespace pnl::test {
namespace {

constexpr std::int64_t kDay = 86400;

XplrRow RowOf(std::uint64_t size, std::int64_t written, bool folder = false) {
  LocalZone zone;
  return MakeRow({u"part.nc", folder, false, false, size, written}, ListFor::kFiles, 0, zone);
}

// Flags and data.

struct FlagsCase {
  ListFor mode;
  bool folder;
  std::uint16_t flags;
};

TEST(XplrRows, TheFlagsDependOnWhatIsChosen) {
  const FlagsCase cases[] = {
      {ListFor::kFiles, true, 16},
      {ListFor::kFiles, false, 1},
      {ListFor::kFolders, true, 17},
      {ListFor::kFolders, false, 0},
  };
  LocalZone zone;
  for (const FlagsCase& row : cases) {
    EXPECT_EQ(ItemFlags(row.folder, row.mode), row.flags);
    const XplrRow made = MakeRow({u"x", row.folder, false, false, 0, 0}, row.mode, 7, zone);
    EXPECT_EQ(made.flags, row.flags);
    EXPECT_EQ(made.IsFolder(), row.folder);
    EXPECT_EQ(made.IsSelectable(), (row.flags & 1) != 0);
    EXPECT_EQ(RowData(made), 7u << 16 | row.flags);
  }
}

TEST(XplrRows, TheDataIsTheIndexAboveTheFlags) {
  LocalZone zone;
  const XplrRow row = MakeRow({u"x", true, false, false, 0, 0}, ListFor::kFolders, 0xABCD, zone);
  EXPECT_EQ(RowData(row), 0xABCD0011u);
  EXPECT_EQ(RowIndex(RowData(row)), 0xABCD);
  EXPECT_EQ(ItemFlags(RowData(row)), 17);
}

TEST(XplrRows, TheIndexInTheDataBeginsAgainAfter65535AndTheRowKeepsItsOwn) {
  LocalZone zone;
  std::set<std::uint32_t> identities;
  for (const std::uint32_t index : {0u, 1u, 65535u, 65536u, 65537u, 131072u}) {
    const XplrRow row = MakeRow({u"x", false, false, false, 0, 0}, ListFor::kFiles, index, zone);
    EXPECT_EQ(RowIndex(RowData(row)), index & 0xFFFF);
    EXPECT_EQ(ItemFlags(RowData(row)), 1);
    identities.insert(row.index);
  }
  EXPECT_EQ(identities.size(), 6u);
}

// Sizes.

struct SizeCase {
  std::uint64_t size;
  const char* text;
};

TEST(XplrRows, TheSizeIsASigned32BitNumberOfBytesOrWholeKilobytes) {
  const SizeCase cases[] = {
      {0, "0 bytes"},
      {1, "1 bytes"},
      {1023, "1023 bytes"},
      {1024, "1 KB"},
      {1535, "1 KB"},
      {2047, "1 KB"},
      {2048, "2 KB"},
      {1'048'576, "1024 KB"},
      {0x7FFFFFFF, "2097151 KB"},
      {0x80000000, "-2147483648 bytes"},  // 2 GiB
      {0x80000001, "-2147483647 bytes"},
      {0xFFFFFFFF, "-1 bytes"},
      {0x100000000, "0 bytes"},  // 4 GiB
      {0x1000003FF, "1023 bytes"},
      {0x100000400, "1 KB"},
      {0xFFFFFFFFFFFFFFFF, "-1 bytes"},
  };
  for (const SizeCase& row : cases) EXPECT_EQ(ToUtf8(SizeText(RowOf(row.size, 0))), row.text) << row.size;
}

TEST(XplrRows, ASizeOf1023ShowsBytesAndOneOf1024ShowsOneKilobyte) {
  EXPECT_EQ(ToUtf8(SizeText(RowOf(1023, 0))), "1023 bytes");
  EXPECT_EQ(ToUtf8(SizeText(RowOf(1024, 0))), "1 KB");
}

TEST(XplrRows, ALengthOfTwoGibibytesTurnsNegativeAndShowsAsBytes) {
  EXPECT_EQ(ToUtf8(SizeText(RowOf(std::uint64_t{2} << 30, 0))), "-2147483648 bytes");
}

TEST(XplrRows, AFolderShowsNoSize) {
  EXPECT_EQ(ToUtf8(SizeText(RowOf(4096, 0, true))), "");
  LocalZone zone;
  const PlaceEntry folder{u"x", true, false, false, 4096, 0};
  EXPECT_EQ(ToUtf8(SizeText(MakeRow(folder, ListFor::kFolders, 0, zone))), "");
}

// Dates.

struct DateCase {
  const char* zone;
  std::int64_t written;
  const char* text;
};

TEST(XplrRows, TheDateIsTheLocalOneOfTheLastChange) {
  const DateCase cases[] = {
      {"UTC0", 0, "01/01/1970 00:00:00"},
      {"UTC0", -1, "31/12/1969 23:59:59"},
      {"UTC0", -86'399, "31/12/1969 0:0:1"},
      {"UTC0", 1'772'323'205, "01/03/2026 00:00:05"},
      {"UTC0", 2'145'916'799, "31/12/2037 23:59:59"},
      {"UTC0", 2'145'916'800, "01/01/2038 0:0:0"},
      {"UTC0", 2'147'483'648, "19/01/2038 3:14:8"},
      {"UTC0", 253'402'300'799, "31/12/9999 23:59:59"},
      {"UTC0", 253'402'300'800, "01/01/10000 0:0:0"},
      {"UTC0", -62'135'596'800, "01/01/0001 0:0:0"},
      {"UTC0", -62'167'219'201, "31/12/-001 23:59:59"},
      {"UTC0", INT64_MAX, ""},
      {"UTC0", INT64_MIN, ""},
      // The year is that of the clock on the wall.
      {kBerlin, -1800, "01/01/1970 00:30:00"},
      {kBerlin, 2'145'913'200, "01/01/2038 0:0:0"},
      {kBerlin, 1'711'846'799, "31/03/2024 01:59:59"},
      {kBerlin, 1'711'846'800, "31/03/2024 03:00:00"},
      {kBerlin, 1'635'638'400, "31/10/2021 02:00:00"},
      {kBerlin, 1'635'642'000, "31/10/2021 02:00:00"},
      {"<-12>12", 0, "31/12/1969 12:0:0"},
      {"<-12>12", 2'145'916'800, "31/12/2037 12:00:00"},
      {"<+14>-14", 2'145'916'799, "01/01/2038 13:59:59"},
      {"IST-5:30", 0, "01/01/1970 05:30:00"},
      {"LHST-10:30LHDT-11,M10.1.0,M4.1.0", 1'719'792'000, "01/07/2024 10:30:00"},
      {"LHST-10:30LHDT-11,M10.1.0,M4.1.0", 1'704'067'200, "01/01/2024 11:00:00"},
  };
  for (const DateCase& row : cases) {
    const ZoneOf in(row.zone);
    EXPECT_EQ(ToUtf8(DateText(RowOf(1, row.written))), row.text) << row.written << " in " << row.zone;
  }
}

TEST(XplrRows, AFileOf2038ShowsMinutesAndSecondsWithoutLeadingZero) {
  const ZoneOf in("UTC0");
  EXPECT_EQ(ToUtf8(DateText(RowOf(1, 2'145'916'800 + 3661))), "01/01/2038 1:1:1");
  EXPECT_EQ(ToUtf8(DateText(RowOf(1, 2'145'916'800 + 3661 - kDay))), "31/12/2037 01:01:01");
}

TEST(XplrRows, ARowShowsTheTimeOfTheZoneInWhichItWasMade) {
  const ZoneOf in("UTC0");
  const XplrRow row = RowOf(1, 0);
  const ZoneOf then("<+05>-5");
  EXPECT_EQ(ToUtf8(DateText(row)), "01/01/1970 00:00:00");
  EXPECT_EQ(ToUtf8(DateText(RowOf(1, 0))), "01/01/1970 05:00:00");
}

TEST(XplrRows, ARowWithoutADateSortsWithTheOldest) {
  const ZoneOf in("UTC0");
  EXPECT_EQ(RowOf(1, INT64_MAX).dateKey, RowOf(1, 0).dateKey);
  EXPECT_EQ(RowOf(1, INT64_MAX).dateKey, 30 * kDay);
}

// Memory.

/// What a name keeps outside its row, as the allocator counts it.
std::size_t KeptBy(const Text& name) {
  constexpr std::size_t kInRow = 7;
  return name.capacity() <= kInRow ? 0 : ((name.capacity() + 1) * sizeof(char16_t) + 8 + 15) / 16 * 16;
}

TEST(XplrRows, ARowKeepsAtMost200BytesBeyondItsName) {
  LocalZone zone;
  std::string japanese;
  for (int i = 0; i < 80; ++i) japanese += "加";
  for (const std::string& name : {std::string("O1"), std::string("part_000001.nc"), std::string(255, 'x'), japanese}) {
    std::vector<XplrRow> rows;
    std::size_t beyond = 0;
    for (std::uint32_t i = 0; i < 1025; ++i) {  // the list has just grown
      rows.push_back(MakeRow({FromUtf8(name), false, false, false, 1, 1}, ListFor::kFiles, i, zone));
      beyond += KeptBy(rows.back().name);
    }
    beyond += rows.capacity() * sizeof(XplrRow);
    const std::size_t characters = rows.front().name.size() * sizeof(char16_t);
    EXPECT_LE(beyond / rows.size(), 200 + characters) << name;
  }
}

}  // namespace
}  // namespace pnl::test
