// SPDX-License-Identifier: MIT
#include "explorer/xplr_date.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "base/format.h"
#include "explorer/xplr_scan.h"

namespace pnl {
namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kFarthest = 67'767'900'000'000'000;  // seconds; the years of 32 bits end just beyond
constexpr std::size_t kDays = 4096;

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

bool IsLeap(std::int64_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

/// Days from 1970-01-01 to the first of a month. Years are counted from March, so that a leap day ends one.
std::int64_t DaysToMonth(std::int64_t year, std::int32_t month) {
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = FloorDiv(y, 400);
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t monthFromMarch = (month + 9) % 12;
  const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

/// Asked of the system. Nothing when the year doesn't fit.
std::optional<std::int64_t> SystemOffset(std::int64_t utc) {
  const std::time_t time = utc;
  std::tm local{};
  if (localtime_r(&time, &local) == nullptr) return std::nullopt;
  return local.tm_gmtoff;
}

std::int32_t ClampDay(std::int64_t year, std::int32_t month, std::int32_t day) {
  switch (month) {
    case 2:
      if (IsLeap(year)) return day >= 30 ? 29 : day;
      return day >= 29 ? 28 : day;
    case 4:
    case 6:
    case 9:
    case 11:
      return std::min(day, 30);
    default:
      // Every day of a month with 31 becomes the last one, and a day beyond stays. Whoever turns this around changes
      // the order that operators know: files of such a month are sorted by their time of day.
      return std::max(day, 31);
  }
}

}  // namespace

std::int64_t ToSeconds(const DateFields& fields) {
  const std::int64_t days = DaysToMonth(fields.year, fields.month) + fields.day - 1;
  return days * kDay + fields.hour * std::int64_t{3600} + fields.minute * std::int64_t{60} + fields.second;
}

DateFields ToFields(std::int64_t seconds) {
  const std::int64_t days = FloorDiv(seconds, kDay);
  const auto time = static_cast<std::int32_t>(seconds - days * kDay);
  const std::int64_t shifted = days + 719468;
  const std::int64_t era = FloorDiv(shifted, 146097);
  const std::int64_t dayOfEra = shifted - era * 146097;
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  DateFields fields;
  fields.month = static_cast<std::int32_t>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
  fields.year = era * 400 + yearOfEra + (fields.month <= 2 ? 1 : 0);
  fields.day = static_cast<std::int32_t>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
  fields.hour = time / 3600;
  fields.minute = time / 60 % 60;
  fields.second = time % 60;
  return fields;
}

Text DateText(const DateFields& fields) {
  const bool calendar = fields.year >= 1970 && fields.year <= 2037;
  return Format(calendar ? u"%02d/%02d/%04d %02d:%02d:%02d" : u"%02d/%02d/%04d %d:%d:%d", fields.day, fields.month,
                fields.year, fields.hour, fields.minute, fields.second);
}

DateFields ParseDateText(TextView text) {
  std::array<std::int32_t, 6> numbers{};
  ScanNumbers(text, u"%d/%d/%d %d:%d:%d", numbers);
  return {numbers[2], numbers[1], numbers[0], numbers[3], numbers[4], numbers[5]};
}

DateFields ClampDate(const DateFields& fields) {
  DateFields result;
  result.year = std::clamp<std::int64_t>(fields.year, 1970, 2099);
  result.month = std::clamp(fields.month, 1, 12);
  result.day = ClampDay(result.year, result.month, std::max(fields.day, 1));
  result.hour = std::clamp(fields.hour, 0, 23);
  result.minute = std::clamp(fields.minute, 0, 59);
  result.second = std::clamp(fields.second, 0, 59);
  return result;
}

LocalZone::LocalZone() : days_(kDays) { tzset(); }

std::optional<std::int64_t> LocalZone::OffsetAt(std::int64_t utc) {
  if (utc > kFarthest || utc < -kFarthest) return std::nullopt;
  const std::int64_t number = FloorDiv(utc, kDay);
  Day& day = days_[static_cast<std::uint64_t>(number) % kDays];
  if (day.number != number) {
    const auto first = SystemOffset(number * kDay);
    const auto last = SystemOffset(number * kDay + kDay - 1);
    day = {number, first.value_or(0), !first || first != last};
  }
  if (day.changes) return SystemOffset(utc);
  return day.offset;
}

std::optional<std::int64_t> LocalZone::ToLocal(std::int64_t utc) {
  const auto offset = OffsetAt(utc);
  if (!offset) return std::nullopt;
  return utc + *offset;
}

std::int64_t LocalZone::ToUtc(std::int64_t local) {
  // A day earlier and a day later lie on the two sides of a change of the clock, whatever the zone.
  const std::int64_t before = OffsetAt(local - kDay).value_or(0);
  const std::int64_t after = OffsetAt(local + kDay).value_or(0);
  if (before == after || OffsetAt(local - before) == before) return local - before;
  if (OffsetAt(local - after) == after) return local - after;
  return local - before;
}

}  // namespace pnl
