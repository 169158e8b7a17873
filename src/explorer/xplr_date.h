// SPDX-License-Identifier: MIT
// The dates that the list shows: a file's time by the clock on the wall, its text, and the moment that such a text is
// sorted by. That moment is not the file's: of most months the day is lost on the way.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/text.h"

namespace pnl {

/// A date and a time of day. Fields may be out of their ranges.
struct DateFields {
  std::int64_t year = 0;
  std::int32_t month = 0;
  std::int32_t day = 0;
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  friend bool operator==(const DateFields&, const DateFields&) = default;
};

/// Seconds since 1970-01-01 00:00:00 on a clock that never changes, and back. A day or time of day out of range counts
/// on into the next or from the previous day; the month must be 1 to 12.
[[nodiscard]] std::int64_t ToSeconds(const DateFields& fields);
[[nodiscard]] DateFields ToFields(std::int64_t seconds);

/// The text in the date column. From 1970 to 2037 every number but the year has two digits. Other years come from
/// another branch, in which hours, minutes and seconds have no leading zero.
[[nodiscard]] Text DateText(const DateFields& fields);
/// The numbers of a shown date; the missing ones are 0.
[[nodiscard]] DateFields ParseDateText(TextView text);
/// Forces fields into the calendar, in the order and with the oddity that the sorting by date has.
[[nodiscard]] DateFields ClampDate(const DateFields& fields);

/// The machine's time zone as it is when this is made. Quick for many times that lie near each other. For one thread.
class LocalZone {
 public:
  LocalZone();
  /// What the clock on the wall shows at a moment, both in seconds since 1970-01-01 00:00:00. Nothing when the year
  /// doesn't fit in 32 bits.
  [[nodiscard]] std::optional<std::int64_t> ToLocal(std::int64_t utc);
  /// The moment at which the clock on the wall shows a time: what mktime gives with daylight flag -1. Of a time that
  /// the clock shows twice it is the first, and a time that it skips counts by the offset before the change; there
  /// mktime answers now one, now the other, and no order can be made of that. The time must lie within the years that
  /// ToLocal can give.
  [[nodiscard]] std::int64_t ToUtc(std::int64_t local);
  /// The moment that a shown date is sorted by.
  [[nodiscard]] std::int64_t SortKey(const DateFields& shown) { return ToUtc(ToSeconds(ClampDate(shown))); }

 private:
  struct Day {
    std::int64_t number = INT64_MIN;  // the day since 1970-01-01 UTC
    std::int64_t offset = 0;
    bool changes = false;  // the offset isn't the same all day
  };
  [[nodiscard]] std::optional<std::int64_t> OffsetAt(std::int64_t utc);

  std::vector<Day> days_;  // by the low bits of their number
};

}  // namespace pnl
