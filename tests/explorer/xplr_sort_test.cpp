// SPDX-License-Identifier: MIT
#include "explorer/xplr_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

#include "base/merge_sort.h"
#include "explorer/xplr_zone.h"

namespace pnl::test {
namespace {

constexpr std::int64_t kDay = 86400;

/// A row with the texts that it shows.
struct Shown {
  explicit Shown(const XplrRow& row)
      : flags(row.flags), index(row.index), name(row.name), size(SizeText(row)), date(DateText(row)) {}
  [[nodiscard]] ShownRow Row() const { return {flags, name, size, date}; }
  std::uint16_t flags;
  std::uint32_t index;
  Text name;
  Text size;
  Text date;
};

std::vector<std::uint32_t> SortedByTexts(const std::vector<XplrRow>& rows, const SortState& state) {
  std::vector<Shown> shown(rows.begin(), rows.end());
  LocalZone zone;
  MergeSort(shown, [&](const Shown& a, const Shown& b) { return CompareRows(a.Row(), b.Row(), state, zone) < 0; });
  std::vector<std::uint32_t> order;
  std::transform(shown.begin(), shown.end(), std::back_inserter(order), [](const Shown& row) { return row.index; });
  return order;
}

std::vector<std::uint32_t> OrderOf(const std::vector<XplrRow>& rows) {
  std::vector<std::uint32_t> order;
  std::transform(rows.begin(), rows.end(), std::back_inserter(order), [](const XplrRow& row) { return row.index; });
  return order;
}

std::string NamesOf(const std::vector<XplrRow>& rows) {
  std::string names;
  for (const XplrRow& row : rows) names += (names.empty() ? "" : " ") + ToUtf8(row.name);
  return names;
}

std::vector<XplrRow> RowsOf(const std::vector<PlaceEntry>& entries, ListFor mode = ListFor::kFiles) {
  std::vector<XplrRow> rows;
  rows.reserve(entries.size());
  LocalZone zone;
  for (const PlaceEntry& entry : entries) {
    rows.push_back(MakeRow(entry, mode, static_cast<std::uint32_t>(rows.size()), zone));
  }
  return rows;
}

SortState State(bool name, bool size, bool date, bool extension, SortColumn column) {
  return {{name, size, date, extension}, column};
}

const std::vector<PlaceEntry> kFolder = {
    {u"tools", true, false, false, 0, 100 * kDay},    {u"Parts", true, false, false, 0, 300 * kDay},
    {u"b.nc", false, false, false, 1535, 200 * kDay}, {u"A.txt", false, false, false, 1024, 50 * kDay},
    {u"c", false, false, false, 1023, 400 * kDay},    {u"a.NC", false, false, false, 5000, 60 * kDay},
};

struct OrderCase {
  SortState state;
  const char* names;
};

TEST(XplrSort, FoldersComeFirstAndEachColumnHasItsOrder) {
  using enum SortColumn;
  const OrderCase cases[] = {
      {State(true, true, true, true, kName), "Parts tools a.NC A.txt b.nc c"},
      {State(false, true, true, true, kName), "tools Parts c b.nc A.txt a.NC"},
      {State(true, true, true, true, kSize), "tools Parts c b.nc A.txt a.NC"},
      {State(true, false, true, true, kSize), "tools Parts a.NC b.nc A.txt c"},
      {State(true, true, true, true, kDate), "tools Parts A.txt a.NC b.nc c"},
      {State(true, true, false, true, kDate), "Parts tools c b.nc a.NC A.txt"},
      {State(true, true, true, true, kExtension), "tools Parts c a.NC b.nc A.txt"},
      {State(true, true, true, false, kExtension), "tools Parts A.txt a.NC b.nc c"},
      {State(false, true, true, true, kExtension), "tools Parts c b.nc a.NC A.txt"},
      {State(false, true, true, false, kExtension), "tools Parts A.txt b.nc a.NC c"},
  };
  const ZoneOf in("UTC0");
  for (const OrderCase& row : cases) {
    for (const ListFor mode : {ListFor::kFiles, ListFor::kFolders}) {
      std::vector<XplrRow> rows = RowsOf(kFolder, mode);
      SortRows(rows, row.state);
      EXPECT_EQ(NamesOf(rows), row.names) << ToUtf8(row.state.ToText());
    }
  }
}

TEST(XplrSort, FilesOf1024And1535BytesKeepTheirOrderBySize) {
  for (const bool ascending : {true, false}) {
    std::vector<XplrRow> rows = RowsOf({{u"x", false, false, false, 1535, 0}, {u"y", false, false, false, 1024, 0}});
    SortRows(rows, State(true, ascending, true, true, SortColumn::kSize));
    EXPECT_EQ(NamesOf(rows), "x y");
  }
}

TEST(XplrSort, FilesOfTwoDaysOfJanuaryKeepTheirOrderAndThoseOfFebruaryDont) {
  const ZoneOf in("UTC0");
  const auto sorted = [](std::int64_t first, std::int64_t second) {
    std::vector<XplrRow> rows =
        RowsOf({{u"x", false, false, false, 1, first * kDay}, {u"y", false, false, false, 1, second * kDay}});
    SortRows(rows, State(true, true, true, true, SortColumn::kDate));
    return NamesOf(rows);
  };
  EXPECT_EQ(sorted(16, 2), "x y");   // 17 and 3 January
  EXPECT_EQ(sorted(47, 33), "y x");  // 17 and 3 February
}

TEST(XplrSort, RowsThatCompareAlikeKeepTheOrderOfTheSortBefore) {
  std::vector<XplrRow> rows = RowsOf(kFolder);
  SortRows(rows, State(false, true, true, true, SortColumn::kName));
  SortRows(rows, State(true, true, true, true, SortColumn::kSize));
  EXPECT_EQ(NamesOf(rows), "tools Parts c b.nc A.txt a.NC");
  SortRows(rows, State(true, true, true, true, SortColumn::kName));
  SortRows(rows, State(true, true, true, true, SortColumn::kSize));
  EXPECT_EQ(NamesOf(rows), "Parts tools c A.txt b.nc a.NC");
}

std::string SortedNames(const std::vector<Text>& names, SortColumn column) {
  std::vector<PlaceEntry> entries;
  entries.reserve(names.size());
  for (const Text& name : names) entries.push_back({name, false, false, false, 1, 0});
  std::vector<XplrRow> rows = RowsOf(entries);
  SortRows(rows, State(true, true, true, true, column));
  return NamesOf(rows);
}

TEST(XplrSort, LongNamesAndExtensionsAreComparedToTheirEnd) {
  EXPECT_EQ(SortedNames({u"x.abcdefh", u"y.abcdefa", u"z.abcdef", u"w.abcdefab"}, SortColumn::kExtension),
            "z.abcdef y.abcdefa w.abcdefab x.abcdefh");
  EXPECT_EQ(SortedNames({u"a.abcdefghi2", u"b.abcdefghi1", u"c.ABCDEFGHI1"}, SortColumn::kExtension),
            "b.abcdefghi1 c.ABCDEFGHI1 a.abcdefghi2");
  const Text start(30, u'n');
  EXPECT_EQ(SortedNames({start + u"2", start + u"10", start}, SortColumn::kName),
            ToUtf8(start + u' ' + start + u"10 " + start + u"2"));
}

TEST(XplrSort, ALetterOfOneByteWithACapitalOfTwoHasItsPlaceAmongTheOthers) {
  EXPECT_EQ(SortedNames({u"ÿ", u"ü", u"a"}, SortColumn::kName), "a ü ÿ");  // U+00FF, whose capital is U+0178
  EXPECT_EQ(SortedNames({u"x.ÿ", u"y.Ü"}, SortColumn::kExtension), "y.Ü x.ÿ");
}

TEST(XplrSort, NoRowAndOneRowAreSortedToo) {
  std::vector<XplrRow> rows;
  SortRows(rows, SortState());
  EXPECT_TRUE(rows.empty());
  rows = RowsOf({{u"x", false, false, false, 1, 0}});
  SortRows(rows, SortState());
  EXPECT_EQ(NamesOf(rows), "x");
}

// Against the comparison of the texts.

class Making {
 public:
  explicit Making(unsigned seed) : random_(seed) {}
  std::uint64_t Below(std::uint64_t end) { return random_() % end; }
  template <typename T, std::size_t N>
  T OneOf(const T (&values)[N]) {
    return values[Below(N)];
  }
  Text Name() {
    static constexpr TextView kPieces[] = {u"a",   u"A",         u"b",       u".",      u"nc", u"NC",
                                           u"txt", u"part_0000", u".abcdef", u"h",      u"1",  u"ñ",
                                           u"Ñ",   u"_",         u"\u0431",  u"\u0411", u" ",  u"\uFFFD"};
    Text name;
    for (std::uint64_t count = Below(6); count > 0; --count) name += OneOf(kPieces);
    if (Below(40) == 0) name += TextView(u"\0x", Below(3));
    if (Below(40) == 0) name += static_cast<char16_t>(Below(0x10000));
    return name;
  }
  std::uint64_t Size() {
    static constexpr std::uint64_t kSizes[] = {0,          1,          1023,       1024,        1535,       2048,
                                               0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x100000000, 0x100000400};
    return Below(2) == 0 ? OneOf(kSizes) : random_() >> Below(64);
  }
  std::int64_t Written() {
    static constexpr std::int64_t kTimes[] = {0,
                                              -1,
                                              2'145'916'800,
                                              2'147'483'648,
                                              4'102'444'800,
                                              253'402'300'800,
                                              INT64_MAX,
                                              INT64_MIN,
                                              -86'400,
                                              1'711'846'800,
                                              1'635'638'400,
                                              1'635'642'000,
                                              31'536'000,
                                              -62'167'219'201,
                                              951'782'400,
                                              951'868'799,
                                              67'767'900'000'000'000,
                                              1'325'239'200};
    switch (Below(4)) {
      case 0:
        return OneOf(kTimes);
      case 1:  // around such a time
        return OneOf({kTimes[0], kTimes[2], kTimes[9], kTimes[10]}) + static_cast<std::int64_t>(Below(8 * kDay)) -
               4 * kDay;
      case 2:  // a few days at the same hours, to have equal ones
        return 1'704'067'200 + static_cast<std::int64_t>(Below(90)) * kDay + static_cast<std::int64_t>(Below(3)) * 3600;
      default:
        return static_cast<std::int64_t>(random_()) >> Below(40);
    }
  }
  SortState Order() {
    return State(Below(2) == 0, Below(2) == 0, Below(2) == 0, Below(2) == 0, static_cast<SortColumn>(Below(4)));
  }

 private:
  template <typename T>
  T OneOf(std::initializer_list<T> values) {
    return values.begin()[Below(values.size())];
  }
  std::mt19937_64 random_;
};

/// How the flags of a list's rows may be mixed.
enum class Mix { kFileList, kFolderList, kFolderListInAnyOrder, kAnything };

std::uint16_t FlagsOf(Mix mix, bool folder, Making& making) {
  static constexpr std::uint16_t kAll[] = {0, 1, 16, 17, 2, 0xFFFF};
  if (mix == Mix::kFileList) return folder ? 16 : 1;
  return mix == Mix::kAnything ? making.OneOf(kAll) : folder ? 17 : 0;
}

std::vector<XplrRow> MakeRows(Making& making, Mix mix) {
  std::vector<XplrRow> rows;
  LocalZone zone;
  const std::uint64_t count = making.Below(5) == 0 ? making.Below(300) : making.Below(12);
  const std::uint64_t folders = making.Below(count + 1);
  for (std::uint32_t i = 0; i < count; ++i) {
    const bool folder = mix == Mix::kFolderList ? i < folders : making.Below(2) == 0;
    rows.push_back(
        MakeRow({making.Name(), folder, false, false, making.Size(), making.Written()}, ListFor::kFiles, i, zone));
    rows.back().flags = FlagsOf(mix, folder, making);
  }
  return rows;
}

class XplrSortMix : public testing::TestWithParam<Mix> {};

TEST_P(XplrSortMix, AnyRowsAreSortedAsTheComparisonOfTheirTextsSortsThem) {
  Making making(static_cast<unsigned>(GetParam()) + 11);
  for (int i = 0; i < 200; ++i) {
    const ZoneOf in(making.OneOf(kZones));
    std::vector<XplrRow> rows = MakeRows(making, GetParam());
    for (int again = 0; again < 3; ++again) {
      const SortState state = making.Order();
      const std::vector<std::uint32_t> expected = SortedByTexts(rows, state);
      SortRows(rows, state);
      ASSERT_EQ(OrderOf(rows), expected) << "list " << i << " by " << ToUtf8(state.ToText());
    }
  }
}

TEST_P(XplrSortMix, EachRowIsThereOnceAfterwards) {
  Making making(static_cast<unsigned>(GetParam()) + 23);
  for (int i = 0; i < 200; ++i) {
    std::vector<XplrRow> rows = MakeRows(making, GetParam());
    std::vector<Text> names(rows.size());
    for (const XplrRow& row : rows) names[row.index] = row.name;
    SortRows(rows, making.Order());
    std::vector<bool> seen(names.size());
    ASSERT_EQ(rows.size(), names.size());
    for (const XplrRow& row : rows) {
      ASSERT_FALSE(seen[row.index]);
      seen[row.index] = true;
      ASSERT_EQ(row.name, names[row.index]);
    }
  }
}

std::string NameOf(const testing::TestParamInfo<Mix>& mix) {
  static constexpr const char* kNames[] = {"FileList", "FolderList", "FolderListInAnyOrder", "Anything"};
  return kNames[static_cast<int>(mix.param)];
}

INSTANTIATE_TEST_SUITE_P(All, XplrSortMix,
                         testing::Values(Mix::kFileList, Mix::kFolderList, Mix::kFolderListInAnyOrder, Mix::kAnything),
                         NameOf);

TEST(XplrSort, TheKeyOfARowsDateIsThatOfItsShownText) {
  Making making(31);
  for (const char* name : kZones) {
    const ZoneOf in(name);
    LocalZone zone;
    for (int i = 0; i < 2000; ++i) {
      const XplrRow row = MakeRow({u"", false, false, false, 0, making.Written()}, ListFor::kFiles, 0, zone);
      const Text text = DateText(row);
      ASSERT_EQ(row.dateKey, zone.SortKey(ParseDateText(text))) << name << ": " << ToUtf8(text);
    }
  }
}

}  // namespace
}  // namespace pnl::test
