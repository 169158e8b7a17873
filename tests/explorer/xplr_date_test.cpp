// SPDX-License-Identifier: MIT
#include "explorer/xplr_date.h"

#include <gtest/gtest.h>

#include <clocale>
#include <random>
#include <set>
#include <string>

#include "explorer/xplr_zone.h"

namespace pnl {

void PrintTo(const DateFields& fields, std::ostream* out) {
  *out << fields.year << '-' << fields.month << '-' << fields.day << ' ' << fields.hour << ':' << fields.minute << ':'
       << fields.second;
}

namespace test {
namespace {

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;

DateFields FieldsOf(const std::tm& tm) {
  return {std::int64_t{tm.tm_year} + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

std::tm LocalTime(std::int64_t utc) {
  const std::time_t time = utc;
  std::tm tm{};
  EXPECT_NE(localtime_r(&time, &tm), nullptr) << utc;
  return tm;
}

std::int64_t WithMktime(const DateFields& fields) {
  std::tm tm{};
  tm.tm_year = static_cast<int>(fields.year - 1900);
  tm.tm_mon = fields.month - 1;
  tm.tm_mday = fields.day;
  tm.tm_hour = fields.hour;
  tm.tm_min = fields.minute;
  tm.tm_sec = fields.second;
  tm.tm_isdst = -1;
  return std::mktime(&tm);
}

// The calendar.

TEST(XplrDate, SecondsAndFieldsAreThoseOfTheSystemsCalendar) {
  std::mt19937_64 random(1);
  const auto check = [](std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm tm{};
    ASSERT_NE(gmtime_r(&time, &tm), nullptr);
    ASSERT_EQ(ToFields(seconds), FieldsOf(tm)) << seconds;
    ASSERT_EQ(ToSeconds(FieldsOf(tm)), seconds);
  };
  for (const std::int64_t seconds : {std::int64_t{0}, std::int64_t{-1}, kDay - 1, kDay, -kDay, -kDay - 1}) {
    check(seconds);
  }
  for (std::int64_t day = -800; day < 800; ++day) check(day * 365 * kDay / 2);
  for (int i = 0; i < 20000; ++i) check(static_cast<std::int64_t>(random() % 400'000'000'000) - 200'000'000'000);
  for (int i = 0; i < 2000; ++i) check(static_cast<std::int64_t>(random() % 60'000'000'000'000'000));
}

TEST(XplrDate, ADayOutOfRangeCountsOn) {
  EXPECT_EQ(ToFields(ToSeconds({2024, 1, 45, 0, 0, 0})), (DateFields{2024, 2, 14, 0, 0, 0}));
  EXPECT_EQ(ToFields(ToSeconds({2023, 3, 0, 0, 0, -1})), (DateFields{2023, 2, 27, 23, 59, 59}));
}

// The text.

struct TextCase {
  DateFields fields;
  const char* text;
};

TEST(XplrDate, From1970To2037EveryNumberHasTwoDigitsAndOtherYearsHaveNone) {
  const TextCase cases[] = {
      {{1969, 12, 31, 23, 5, 9}, "31/12/1969 23:5:9"},
      {{1970, 1, 1, 0, 0, 0}, "01/01/1970 00:00:00"},
      {{2026, 11, 2, 7, 5, 9}, "02/11/2026 07:05:09"},
      {{2037, 12, 31, 23, 59, 59}, "31/12/2037 23:59:59"},
      {{2038, 1, 1, 0, 0, 0}, "01/01/2038 0:0:0"},
      {{2038, 1, 19, 3, 14, 8}, "19/01/2038 3:14:8"},
      {{9999, 12, 31, 23, 59, 59}, "31/12/9999 23:59:59"},
      {{10000, 1, 1, 1, 2, 3}, "01/01/10000 1:2:3"},
      {{2147483647, 1, 1, 0, 0, 0}, "01/01/2147483647 0:0:0"},
      {{1, 1, 1, 0, 0, 0}, "01/01/0001 0:0:0"},
      {{0, 1, 1, 0, 0, 0}, "01/01/0000 0:0:0"},
      {{-5, 1, 1, 0, 0, 0}, "01/01/-005 0:0:0"},
  };
  for (const TextCase& row : cases) EXPECT_EQ(ToUtf8(DateText(row.fields)), row.text);
}

TEST(XplrDate, TheTextIsThatOfStrftimeInTheCLocaleWhateverTheProcesssOne) {
  const char* before = std::setlocale(LC_ALL, nullptr);
  const std::string kept = before != nullptr ? before : "C";
  std::mt19937_64 random(2);
  for (int i = 0; i < 2000; ++i) {
    const std::time_t time = static_cast<std::time_t>(random() % 2'145'916'800);
    std::tm tm{};
    gmtime_r(&time, &tm);
    char expected[64];
    std::strftime(expected, sizeof expected, "%d/%m/%Y %X", &tm);
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) std::setlocale(LC_ALL, "C.UTF-8");
    EXPECT_EQ(ToUtf8(DateText(FieldsOf(tm))), expected);
    std::setlocale(LC_ALL, kept.c_str());
  }
}

TEST(XplrDate, AShownDateIsReadAsFarAsItIsOne) {
  const TextCase cases[] = {
      {{2026, 11, 2, 7, 5, 9}, "02/11/2026 07:05:09"},
      {{2038, 1, 19, 3, 14, 8}, "19/01/2038 3:14:8"},
      {{2026, 11, 2, 7, 5, 9}, "  2/ 11/2026\t7: 5: 9 and more"},
      {{2026, 11, 2, 7, 5, 9}, "02/11/2026+07:05:09"},
      {{-5, 1, 1, 0, 0, 0}, "01/01/-005 0:0:0"},
      {{}, ""},
      {{}, "n/a"},
      {{0, 0, 2, 0, 0, 0}, "2"},
      {{0, 11, 2, 0, 0, 0}, "2/11"},
      {{0, 11, 2, 0, 0, 0}, "2/11 /2026"},
      {{2026, 11, 2, 0, 0, 0}, "2/11/2026"},
      {{2026, 11, 2, 7, 0, 0}, "2/11/2026 7.05.09"},
      {{2026, 11, 2, 7, 5, 0}, "2/11/2026 7:5:x"},
      {{2147483647, 1, 1, 0, 0, 0}, "1/1/99999999999"},
  };
  for (const TextCase& row : cases) EXPECT_EQ(ParseDateText(FromUtf8(row.text)), row.fields) << row.text;
}

// The moment that a shown date is sorted by.

struct ClampCase {
  DateFields fields;
  DateFields expected;
};

TEST(XplrDate, AShownDateIsForcedIntoTheCalendarStepByStep) {
  const ClampCase cases[] = {
      // 1. The year.
      {{1969, 2, 3, 4, 5, 6}, {1970, 2, 3, 4, 5, 6}},
      {{-5, 2, 3, 4, 5, 6}, {1970, 2, 3, 4, 5, 6}},
      {{1970, 2, 3, 4, 5, 6}, {1970, 2, 3, 4, 5, 6}},
      {{2099, 2, 3, 4, 5, 6}, {2099, 2, 3, 4, 5, 6}},
      {{2100, 2, 3, 4, 5, 6}, {2099, 2, 3, 4, 5, 6}},
      // 2. The month.
      {{2026, 0, 3, 4, 5, 6}, {2026, 1, 31, 4, 5, 6}},
      {{2026, -3, 3, 4, 5, 6}, {2026, 1, 31, 4, 5, 6}},
      {{2026, 13, 3, 4, 5, 6}, {2026, 12, 31, 4, 5, 6}},
      // 3. The day, before it is forced to the month.
      {{2026, 2, 0, 4, 5, 6}, {2026, 2, 1, 4, 5, 6}},
      {{2026, 4, -9, 4, 5, 6}, {2026, 4, 1, 4, 5, 6}},
      {{2026, 1, 0, 4, 5, 6}, {2026, 1, 31, 4, 5, 6}},
      // 4. February.
      {{2024, 2, 28, 0, 0, 0}, {2024, 2, 28, 0, 0, 0}},
      {{2024, 2, 29, 0, 0, 0}, {2024, 2, 29, 0, 0, 0}},
      {{2024, 2, 30, 0, 0, 0}, {2024, 2, 29, 0, 0, 0}},
      {{2024, 2, 99, 0, 0, 0}, {2024, 2, 29, 0, 0, 0}},
      {{2023, 2, 28, 0, 0, 0}, {2023, 2, 28, 0, 0, 0}},
      {{2023, 2, 29, 0, 0, 0}, {2023, 2, 28, 0, 0, 0}},
      {{2000, 2, 30, 0, 0, 0}, {2000, 2, 29, 0, 0, 0}},
      {{2100, 2, 29, 0, 0, 0}, {2099, 2, 28, 0, 0, 0}},
      {{1968, 2, 29, 0, 0, 0}, {1970, 2, 28, 0, 0, 0}},  // the year was forced first
      // The months of 30 days.
      {{2026, 4, 30, 0, 0, 0}, {2026, 4, 30, 0, 0, 0}},
      {{2026, 4, 31, 0, 0, 0}, {2026, 4, 30, 0, 0, 0}},
      {{2026, 6, 31, 0, 0, 0}, {2026, 6, 30, 0, 0, 0}},
      {{2026, 9, 77, 0, 0, 0}, {2026, 9, 30, 0, 0, 0}},
      {{2026, 11, 31, 0, 0, 0}, {2026, 11, 30, 0, 0, 0}},
      {{2026, 11, 1, 0, 0, 0}, {2026, 11, 1, 0, 0, 0}},
      // Every other month: a day below 31 becomes 31, and a day above stays.
      {{2026, 1, 3, 0, 0, 0}, {2026, 1, 31, 0, 0, 0}},
      {{2026, 3, 30, 0, 0, 0}, {2026, 3, 31, 0, 0, 0}},
      {{2026, 5, 31, 0, 0, 0}, {2026, 5, 31, 0, 0, 0}},
      {{2026, 7, 32, 0, 0, 0}, {2026, 7, 32, 0, 0, 0}},
      {{2026, 8, 1, 0, 0, 0}, {2026, 8, 31, 0, 0, 0}},
      {{2026, 10, 99, 0, 0, 0}, {2026, 10, 99, 0, 0, 0}},
      {{2026, 12, 2, 0, 0, 0}, {2026, 12, 31, 0, 0, 0}},
      // 5. The time of day.
      {{2026, 2, 3, -1, -1, -1}, {2026, 2, 3, 0, 0, 0}},
      {{2026, 2, 3, 24, 60, 60}, {2026, 2, 3, 23, 59, 59}},
      {{2026, 2, 3, 23, 59, 59}, {2026, 2, 3, 23, 59, 59}},
      // Nothing could be read: the oldest there is.
      {{}, {1970, 1, 31, 0, 0, 0}},
  };
  for (const ClampCase& row : cases) EXPECT_EQ(ClampDate(row.fields), row.expected);
}

TEST(XplrDate, TwoDaysOfJanuarySortAlikeAndTwoDaysOfFebruaryDont) {
  LocalZone zone;
  EXPECT_EQ(zone.SortKey({2026, 1, 3, 8, 0, 0}), zone.SortKey({2026, 1, 17, 8, 0, 0}));
  EXPECT_LT(zone.SortKey({2026, 1, 17, 8, 0, 0}), zone.SortKey({2026, 1, 3, 8, 0, 1}));
  EXPECT_LT(zone.SortKey({2026, 2, 3, 8, 0, 0}), zone.SortKey({2026, 2, 17, 8, 0, 0}));
}

TEST(XplrDate, WhatShowsNoDateSortsAsTheOldest) {
  for (const char* name : kZones) {
    const ZoneOf in(name);
    LocalZone zone;
    EXPECT_LE(zone.SortKey({}), zone.SortKey({1969, 1, 1, 0, 0, 0})) << name;
    EXPECT_LT(zone.SortKey({}), zone.SortKey({1970, 1, 1, 0, 0, 1})) << name;
    EXPECT_LT(zone.SortKey({}), zone.SortKey({1970, 2, 1, 0, 0, 0})) << name;
  }
}

// The zone.

TEST(XplrDate, TheClockOnTheWallIsThatOfTheSystem) {
  std::mt19937_64 random(3);
  for (const char* name : kZones) {
    const ZoneOf in(name);
    LocalZone zone;
    const auto check = [&](std::int64_t utc) {
      const auto local = zone.ToLocal(utc);
      ASSERT_TRUE(local) << utc << " in " << name;
      ASSERT_EQ(ToFields(*local), FieldsOf(LocalTime(utc))) << utc << " in " << name;
    };
    for (std::int64_t utc = -kDay; utc < kDay; utc += 601) check(utc);
    for (int i = 0; i < 3000; ++i) check(static_cast<std::int64_t>(random() % 5'000'000'000) - 800'000'000);
    for (int i = 0; i < 200; ++i) check(static_cast<std::int64_t>(random() % 67'000'000'000'000'000));
    for (int i = 0; i < 200; ++i) check(-static_cast<std::int64_t>(random() % 67'000'000'000'000'000));
    // Every half hour of a year, and so both sides of its changes.
    for (std::int64_t utc = 1'704'067'200; utc < 1'704'067'200 + 366 * kDay; utc += 1800) check(utc);
  }
}

TEST(XplrDate, AMomentBeyondAllCalendarsHasNoLocalTime) {
  LocalZone zone;
  for (const std::int64_t utc : {INT64_MAX, INT64_MIN, INT64_MAX - 1, std::int64_t{67'768'100'000'000'000},
                                 -std::int64_t{67'768'100'000'000'000}}) {
    EXPECT_EQ(zone.ToLocal(utc), std::nullopt);
  }
  EXPECT_EQ(ToFields(zone.ToLocal(67'767'900'000'000'000).value_or(0)).year, 2147481232);
}

/// Every moment at which the clock shows a time.
std::set<std::int64_t> MomentsOf(std::int64_t local) {
  std::set<std::int64_t> offsets;
  for (std::int64_t hour = -40; hour <= 40; ++hour) offsets.insert(LocalTime(local + hour * kHour).tm_gmtoff);
  std::set<std::int64_t> moments;
  for (const std::int64_t offset : offsets) {
    if (LocalTime(local - offset).tm_gmtoff == offset) moments.insert(local - offset);
  }
  return moments;
}

void CheckMoment(LocalZone& zone, std::int64_t local, const std::string& name) {
  const std::set<std::int64_t> moments = MomentsOf(local);
  const std::int64_t moment = zone.ToUtc(local);
  if (moments.empty()) {
    ASSERT_EQ(moment, local - LocalTime(local - kDay).tm_gmtoff) << name << ", skipped: " << local;
    return;
  }
  ASSERT_EQ(moment, *moments.begin()) << name << ": " << local;
  if (moments.size() == 1) {
    ASSERT_EQ(moment, WithMktime(ToFields(local))) << name << ": " << local;
  }
}

TEST(XplrDate, ATimeThatTheClockShowsOnceIsTheMomentOfMktime) {
  std::mt19937_64 random(4);
  for (const char* name : kZones) {
    const ZoneOf in(name);
    LocalZone zone;
    for (int i = 0; i < 200; ++i) {
      CheckMoment(zone, static_cast<std::int64_t>(random() % 4'102'444'800), name);
    }
    // The last days of months, to which the days of most dates are forced, and the changes of one year.
    for (std::int64_t year = 1970; year <= 2099; year += 3) {
      for (const std::int32_t month : {1, 3, 5, 10, 12}) {
        CheckMoment(zone, ToSeconds({year, month, 31, static_cast<std::int32_t>(random() % 4), 30, 0}), name);
      }
    }
    for (std::int64_t day = 0; day < 366; day += 1) {
      CheckMoment(zone, 1'704'067'200 + day * kDay + static_cast<std::int64_t>(random() % 5) * kHour / 2, name);
    }
  }
}

TEST(XplrDate, AnHourThatTheClockShowsTwiceCountsAsTheFirst) {
  const ZoneOf in(kBerlin);
  LocalZone zone;
  const std::int64_t first = 1'635'638'400;  // 31 October 2021, 02:00 in summer time
  EXPECT_EQ(zone.ToUtc(ToSeconds({2021, 10, 31, 1, 59, 59})), first - 1);
  EXPECT_EQ(zone.ToUtc(ToSeconds({2021, 10, 31, 2, 0, 0})), first);
  EXPECT_EQ(zone.ToUtc(ToSeconds({2021, 10, 31, 2, 59, 59})), first + kHour - 1);
  EXPECT_EQ(zone.ToUtc(ToSeconds({2021, 10, 31, 3, 0, 0})), first + 2 * kHour);
}

TEST(XplrDate, AnHourThatTheClockSkipsCountsAsTheOneAfterIt) {
  const ZoneOf in(kBerlin);
  LocalZone zone;
  const std::int64_t change = 1'711'846'800;  // 31 March 2024, 02:00, which is 03:00
  EXPECT_EQ(zone.ToUtc(ToSeconds({2024, 3, 31, 1, 59, 59})), change - 1);
  EXPECT_EQ(zone.ToUtc(ToSeconds({2024, 3, 31, 2, 30, 0})), change + kHour / 2);
  EXPECT_EQ(zone.ToUtc(ToSeconds({2024, 3, 31, 3, 30, 0})), change + kHour / 2);
  // So a file of any day in that March, at half past two, comes after one of a quarter past three.
  EXPECT_GT(zone.SortKey({2024, 3, 5, 2, 30, 0}), zone.SortKey({2024, 3, 9, 3, 15, 0}));
}

TEST(XplrDate, TheMomentOfATimeDoesNotDependOnWhatWasAskedBefore) {
  const ZoneOf in(kBerlin);
  const std::int64_t local = ToSeconds({2021, 10, 31, 2, 30, 0});
  for (const std::int32_t month : {1, 7}) {
    (void)WithMktime({2021, month, 1, 0, 0, 0});  // mktime itself remembers whether it was summer
    LocalZone zone;
    EXPECT_EQ(zone.ToUtc(local), 1'635'640'200);
  }
}

TEST(XplrDate, TheZoneIsTheOneOfTheMomentAtWhichItIsMade) {
  const ZoneOf before("UTC0");
  LocalZone utc;
  EXPECT_EQ(utc.ToLocal(0), 0);
  setenv("TZ", "<+05>-5", 1);
  LocalZone east;
  EXPECT_EQ(east.ToLocal(0), 5 * kHour);
}

}  // namespace
}  // namespace test
}  // namespace pnl
