// SPDX-License-Identifier: MIT
#include "explorer/xplr_order.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "explorer/xplr_ids.h"

namespace pnl {

void PrintTo(const SortState& state, std::ostream* out) { *out << ToUtf8(state.ToText()); }

namespace {

int Sign(int result) { return result < 0 ? -1 : result > 0 ? 1 : 0; }

SortState By(SortColumn column, bool ascending, bool names = true) {
  SortState state{{names, true, true, true}, column};
  state.ascending[static_cast<std::size_t>(column)] = ascending;
  return state;
}

int Compare(const ShownRow& a, const ShownRow& b, const SortState& state) {
  LocalZone zone;
  return Sign(CompareRows(a, b, state, zone));
}

// The flags.

struct FlagsCase {
  std::uint16_t a;
  std::uint16_t b;
  int expected;
};

TEST(XplrOrder, TheFlagsAreComparedFirst) {
  const FlagsCase cases[] = {
      {16, 16, 0},  {1, 1, 0},   {17, 17, 0}, {0, 0, 0},  {16, 1, -1}, {1, 16, 1},  // a list of files: folders first
      {17, 0, 1},   {0, 17, 1},                                                     // a list of folders: no order
      {16, 17, -1}, {17, 16, 1}, {16, 0, -1}, {1, 17, 1}, {17, 1, 1},  {1, 0, 1},  {0, 1, 1},
  };
  for (const FlagsCase& row : cases) {
    EXPECT_EQ(CompareFlags(row.a, row.b), row.expected) << row.a << ", " << row.b;
    if (row.a == row.b) continue;
    for (int column = 0; column < 4; ++column) {
      for (const bool ascending : {true, false}) {
        const SortState state = By(static_cast<SortColumn>(column), ascending);
        EXPECT_EQ(Compare({row.a, u"a", u"1 bytes", u""}, {row.b, u"b", u"2 bytes", u"1/2/2000"}, state), row.expected)
            << row.a << ", " << row.b << " by " << column;
        EXPECT_EQ(Compare({row.a, u"b", u"2 bytes", u"1/2/2000"}, {row.b, u"a", u"1 bytes", u""}, state), row.expected)
            << row.a << ", " << row.b << " by " << column;
      }
    }
  }
}

TEST(XplrOrder, FoldersComeFirstInAFileListInBothDirections) {
  for (const bool ascending : {true, false}) {
    EXPECT_EQ(Compare({16, u"z", u"", u""}, {1, u"a", u"", u""}, By(SortColumn::kName, ascending)), -1);
    EXPECT_EQ(Compare({1, u"a", u"", u""}, {16, u"z", u"", u""}, By(SortColumn::kName, ascending)), 1);
  }
}

TEST(XplrOrder, InAFolderListAFolderAndAFileGiveOneWhicheverComesFirst) {
  for (const bool ascending : {true, false}) {
    EXPECT_EQ(Compare({17, u"a", u"", u""}, {0, u"b", u"", u""}, By(SortColumn::kName, ascending)), 1);
    EXPECT_EQ(Compare({0, u"b", u"", u""}, {17, u"a", u"", u""}, By(SortColumn::kName, ascending)), 1);
  }
}

// The columns.

struct TextCase {
  const char16_t* a;
  const char16_t* b;
  int expected;
};

/// Both ways round, in both directions.
void ExpectOrder(ShownRow a, ShownRow b, SortColumn column, int expected, const std::string& what) {
  EXPECT_EQ(Compare(a, b, By(column, true)), expected) << what;
  EXPECT_EQ(Compare(b, a, By(column, true)), -expected) << what;
  EXPECT_EQ(Compare(a, b, By(column, false)), -expected) << what << ", descending";
  EXPECT_EQ(Compare(b, a, By(column, false)), expected) << what << ", descending";
}

TEST(XplrOrder, NamesCompareWithoutRegardToCase) {
  const TextCase cases[] = {
      {u"a", u"B", -1},        {u"A", u"b", -1},    {u"part.NC", u"PART.nc", 0}, {u"ñ", u"Ñ", 0},  {u"", u"a", -1},
      {u"part", u"part1", -1}, {u"O10", u"O9", -1}, {u"a_b", u"aab", 1},         {u"б", u"В", -1},
  };
  for (const TextCase& row : cases) {
    for (const std::uint16_t flags : {0, 1, 16, 17}) {
      ExpectOrder({flags, row.a, u"9 bytes", u""}, {flags, row.b, u"1 bytes", u""}, SortColumn::kName, row.expected,
                  ToUtf8(row.a) + ", " + ToUtf8(row.b));
    }
  }
}

TEST(XplrOrder, SizesCompareAsTheNumbersThatAreShown) {
  const TextCase cases[] = {
      {u"9 bytes", u"10 bytes", -1},
      {u"1023 bytes", u"1 KB", -1},
      {u"1 KB", u"1 KB", 0},
      {u"2 KB", u"1999 bytes", 1},
      {u"2097151 KB", u"-2147483648 bytes", 1},
      {u"-1 bytes", u"0 bytes", -1},
      {u"", u"0 bytes", 0},
      {u"", u"-1 bytes", 1},
      {u"K", u"0 bytes", 0},
      {u"1k", u"2 bytes", -1},           // only a capital counts
      {u"1 bytes K", u"1024 bytes", 0},  // and does so anywhere
      {u" 7 bytes", u"7", 0},
      {u"2097152 KB", u"-2147483648 bytes", 0},  // beyond 32 bits
      {u"99999999999 bytes", u"2147483647", 0},
      {u"4194304 KB", u"0 bytes", 0},
  };
  for (const TextCase& row : cases) {
    for (const std::uint16_t flags : {0, 1}) {
      ExpectOrder({flags, u"a", row.a, u""}, {flags, u"b", row.b, u""}, SortColumn::kSize, row.expected,
                  ToUtf8(row.a) + ", " + ToUtf8(row.b));
    }
  }
}

TEST(XplrOrder, TwoFoldersCompareEqualBySize) {
  for (const std::uint16_t flags : {16, 17}) {
    ExpectOrder({flags, u"a", u"9 bytes", u""}, {flags, u"b", u"1 bytes", u""}, SortColumn::kSize, 0, "folders");
  }
}

TEST(XplrOrder, DatesCompareAsTheTimesThatAreShown) {
  const TextCase cases[] = {
      {u"02/02/2026 08:00:00", u"01/03/2026 08:00:00", -1},
      {u"03/02/2026 08:00:00", u"17/02/2026 08:00:00", -1},
      {u"03/02/2026 08:00:00", u"03/02/2026 08:00:01", -1},
      {u"03/02/2026 23:59:59", u"04/02/2026 00:00:00", -1},
      {u"03/02/2026 08:00:00", u"3/2/2026 8:0:0", 0},
      {u"17/01/2026 08:00:00", u"03/01/2026 08:00:01", -1},  // a month of 31 days: by the time of day
      {u"03/01/2026 08:00:00", u"17/01/2026 08:00:00", 0},
      {u"31/12/2037 23:59:59", u"19/01/2038 3:14:8", -1},
      {u"31/12/1969 23:59:59", u"31/12/1970 23:59:59", 0},  // the year counts as 1970
      {u"01/02/2099 00:00:00", u"01/02/9999 0:0:0", 0},
      {u"", u"01/01/1970 00:00:00", 0},
      {u"", u"01/01/1970 00:00:01", -1},
      {u"", u"01/02/2026 00:00:00", -1},
      {u"x", u"", 0},
  };
  for (const TextCase& row : cases) {
    for (const std::uint16_t flags : {0, 1, 16, 17}) {
      ExpectOrder({flags, u"a", u"", row.a}, {flags, u"b", u"", row.b}, SortColumn::kDate, row.expected,
                  ToUtf8(row.a) + ", " + ToUtf8(row.b));
    }
  }
}

TEST(XplrOrder, ExtensionsCompareWithoutRegardToCaseAndThenTheNames) {
  const TextCase cases[] = {
      {u"b.nc", u"a.txt", -1},     {u"b.NC", u"a.txt", -1}, {u"b", u"a.nc", -1},  {u"b.", u"a", 1},
      {u"b.a.nc", u"a.b.txt", -1}, {u"b.nc", u"a.nca", -1}, {u"x.б", u"a.В", -1},
  };
  for (const TextCase& row : cases) {
    for (const std::uint16_t flags : {0, 1}) {
      ExpectOrder({flags, row.a, u"", u""}, {flags, row.b, u"", u""}, SortColumn::kExtension, row.expected,
                  ToUtf8(row.a) + ", " + ToUtf8(row.b));
    }
  }
}

TEST(XplrOrder, TwoFoldersCompareEqualByExtension) {
  for (const std::uint16_t flags : {16, 17}) {
    ExpectOrder({flags, u"a.x", u"", u""}, {flags, u"b.y", u"", u""}, SortColumn::kExtension, 0, "folders");
    ExpectOrder({flags, u"a.x", u"", u""}, {flags, u"b.x", u"", u""}, SortColumn::kExtension, 0, "folders");
  }
}

TEST(XplrOrder, EqualExtensionsFollowTheDirectionOfTheNames) {
  for (const bool ascending : {true, false}) {
    EXPECT_EQ(Compare({1, u"a.nc", u"", u""}, {1, u"b.NC", u"", u""}, By(SortColumn::kExtension, ascending, true)), -1);
    EXPECT_EQ(Compare({1, u"a.nc", u"", u""}, {1, u"b.NC", u"", u""}, By(SortColumn::kExtension, ascending, false)), 1);
    EXPECT_EQ(Compare({1, u"A.nc", u"", u""}, {1, u"a.NC", u"", u""}, By(SortColumn::kExtension, ascending)), 0);
  }
}

TEST(XplrOrder, EachColumnHasADirectionOfItsOwn) {
  SortState state{{false, false, true, false}, SortColumn::kDate};
  EXPECT_EQ(Compare({1, u"a", u"", u"1/2/2000"}, {1, u"b", u"", u"2/2/2000"}, state), -1);
  state = {{true, false, true, true}, SortColumn::kSize};
  EXPECT_EQ(Compare({1, u"a", u"1", u""}, {1, u"b", u"2", u""}, state), 1);
}

TEST(XplrOrder, A1024ByteFileAndA1535ByteFileCompareAsTheSameKilobyte) {
  EXPECT_EQ(Compare({1, u"a", u"1 KB", u""}, {1, u"b", u"1 KB", u""}, By(SortColumn::kSize, true)), 0);
}

// What it is sorted by.

struct CommandCase {
  SortState before;
  int command;
  SortState after;
};

TEST(XplrOrder, ACommandChangesTheColumnOrItsDirection) {
  using enum SortColumn;
  const CommandCase cases[] = {
      {{{true, true, true, true}, kName}, 32770, {{false, true, true, true}, kName}},
      {{{false, true, true, true}, kName}, 32770, {{true, true, true, true}, kName}},
      {{{false, false, false, false}, kName}, 32770, {{true, false, false, false}, kName}},
      {{{false, false, false, false}, kName}, 32771, {{true, true, true, true}, kSize}},
      {{{false, false, false, false}, kName}, 32772, {{true, true, true, true}, kDate}},
      {{{false, false, false, false}, kName}, 32773, {{true, true, true, true}, kExtension}},
      {{{true, true, false, true}, kDate}, 32772, {{true, true, true, true}, kDate}},
      {{{true, true, false, true}, kDate}, 32770, {{true, true, true, true}, kName}},
      {{{false, true, false, true}, kExtension}, 32773, {{false, true, false, false}, kExtension}},
      // Beyond the commands the nearest one counts.
      {{{true, true, true, true}, kName}, 32769, {{false, true, true, true}, kName}},
      {{{true, true, true, true}, kName}, 0, {{false, true, true, true}, kName}},
      {{{true, true, true, true}, kName}, std::numeric_limits<int>::min(), {{false, true, true, true}, kName}},
      {{{true, true, true, true}, kName}, 32774, {{true, true, true, true}, kExtension}},
      {{{true, true, true, true}, kExtension},
       std::numeric_limits<int>::max(),
       {{true, true, true, false}, kExtension}},
  };
  for (const CommandCase& row : cases) {
    SortState state = row.before;
    state.SortBy(row.command);
    EXPECT_EQ(state, row.after) << ToUtf8(row.before.ToText()) << " by " << row.command;
  }
}

TEST(XplrOrder, ReclickingTheSortedColumnFlipsItsFlagOnlyAndAnotherColumnResetsAllFour) {
  SortState state{{false, false, false, false}, SortColumn::kSize};
  state.SortBy(xplr_command::kSortBySize);
  EXPECT_EQ(ToUtf8(state.ToText()), "0 1 0 0,1");
  state.SortBy(xplr_command::kSortBySize);
  EXPECT_EQ(ToUtf8(state.ToText()), "0 0 0 0,1");
  state.SortBy(xplr_command::kSortByName);
  EXPECT_EQ(ToUtf8(state.ToText()), "1 1 1 1,0");
}

struct StoredCase {
  const char16_t* text;
  const char* state;
};

TEST(XplrOrder, TheStoredTextIsReadAsFarAsItGoes) {
  const StoredCase cases[] = {
      {u"1 0 1 0,2", "1 0 1 0,2"},
      {u"0 0 0 0,0", "0 0 0 0,0"},
      {u"1 1 1 1,3", "1 1 1 1,3"},
      {u"", "0 0 0 0,0"},
      {u"rubbish", "0 0 0 0,0"},
      {u"1", "1 0 0 0,0"},
      {u"1 1", "1 1 0 0,0"},
      {u"1 1 1 1", "1 1 1 1,0"},
      {u"1 1 1 1 3", "1 1 1 1,0"},
      {u"1 1 1 1,", "1 1 1 1,0"},
      {u"5 -1 0 99999999999,1", "1 1 0 1,1"},
      {u"1 1 1 1,4", "1 1 1 1,0"},
      {u"1 1 1 1,-1", "1 1 1 1,0"},
      {u"1 1 1 1,4294967296", "1 1 1 1,0"},
      {u"  1  0 0 1, 2 ", "1 0 0 1,2"},
  };
  for (const StoredCase& row : cases) {
    EXPECT_EQ(ToUtf8(SortState::FromText(row.text).ToText()), row.state) << ToUtf8(row.text);
  }
}

TEST(XplrOrder, WithNothingStoredTheFirstListingIsByNameDescending) {
  const SortState state = SortState::FromText(u"");
  EXPECT_EQ(state, SortState());
  EXPECT_EQ(state.column, SortColumn::kName);
  EXPECT_FALSE(state.Ascending(SortColumn::kName));
  EXPECT_EQ(Compare({1, u"a", u"", u""}, {1, u"b", u"", u""}, state), 1);
}

}  // namespace
}  // namespace pnl
