// SPDX-License-Identifier: MIT
#include "mdi/mdi_refusal.h"

#include <array>
#include <cstring>
#include <vector>

namespace pnl {

namespace {

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }

bool IsPartOfNumber(char16_t unit) { return (unit >= u'0' && unit <= u'9') || unit == u'.'; }

/// The text of a parameter, or nothing if it isn't a text.
Text TextOf(const ErrorParameter& parameter) {
  if (parameter.valueType != value_type::kText) return {};
  std::array<char16_t, sizeof parameter.value / sizeof(char16_t)> units{};
  std::memcpy(units.data(), parameter.value, sizeof parameter.value);
  const TextView all(units.data(), units.size());
  return Text(all.substr(0, all.find(u'\0')));
}

/// The end of the word in the block if the word begins at start, or nothing. Both are in upper case.
std::optional<std::size_t> EndOfWord(TextView block, std::size_t start, TextView word) {
  std::size_t at = start;
  for (const char16_t unit : word) {
    while (at < block.size() && at != start && IsBlank(block[at]) && !IsBlank(unit)) ++at;
    if (at >= block.size() || block[at] != unit) return std::nullopt;
    ++at;
  }
  // X1 isn't the beginning of X10. But a word without a number, at which the number is missing, may be followed by one
  // that can't be read.
  if (IsPartOfNumber(word.back()) && at < block.size() && IsPartOfNumber(block[at])) return std::nullopt;
  return at;
}

/// The end of the comment that begins at start, or start if none does.
std::size_t EndOfComment(TextView block, std::size_t start) {
  if (block[start] == u';') return block.size();
  if (block[start] != u'(') return start;
  const std::size_t close = block.find(u')', start);
  return close == TextView::npos ? block.size() : close + 1;
}

std::vector<TextSelection> PlacesOf(TextView block, TextView word) {
  std::vector<TextSelection> places;
  for (std::size_t at = 0; at < block.size();) {
    if (const auto end = EndOfWord(block, at, word)) {
      places.push_back({static_cast<int>(at), static_cast<int>(*end)});
    }
    const std::size_t behind = EndOfComment(block, at);
    at = behind > at ? behind : at + 1;
  }
  return places;
}

}  // namespace

std::optional<TextSelection> FindRefusedWord(TextView block, const ErrorRecord& record) {
  const Text upper = ToUpper(block);
  if (upper.size() != block.size()) return std::nullopt;
  // The mark is counted in bytes from the start of the block, as in an error of a program.
  const int mark = record.Get<std::uint16_t>(error_field::kFileSpan.offset) / 2;
  for (std::size_t i = 0; i < error_field::kParameterCount; ++i) {
    const auto offset = error_field::kParametersOffset + i * sizeof(ErrorParameter);
    const Text word = ToUpper(TextOf(record.Get<ErrorParameter>(offset)));
    if (word.empty()) continue;
    const std::vector<TextSelection> places = PlacesOf(upper, word);
    for (const TextSelection& place : places) {
      if (place.start == mark) return place;
    }
    if (!places.empty()) return places.back();
  }
  return std::nullopt;
}

std::int32_t MdiRefusals::ErrorCount() const {
  ZCVariable count(variables_, u"E.NERRORS");
  std::int32_t errors = 0;
  if (!count.IsValid()) return errors;
  count.UpdateCache();
  count.ReadInt(errors);
  return errors;
}

MdiRefusal MdiRefusals::Read(std::int8_t channel, const Text& block, std::int32_t before) const {
  MdiRefusal refusal{block, std::nullopt};
  const std::int32_t now = ErrorCount();
  if (now <= before) return refusal;
  ErrorRecord record{};
  // The newest error is the last one of the queue.
  if (kernel_.ReadError(now - 1, record) != now - 1) return refusal;
  const auto about = record.Get<std::int8_t>(error_field::kChannel.offset);
  if (about == channel || about == 0) refusal.word = FindRefusedWord(block, record);
  return refusal;
}

}  // namespace pnl
