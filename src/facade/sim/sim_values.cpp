// SPDX-License-Identifier: MIT
#include "facade/sim/sim_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/numbers.h"

namespace pnl::sim {

namespace {

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighestWord = std::numeric_limits<std::uint32_t>::max();

/// A real of this size or larger is written with an exponent.
constexpr double kLargestPlain = 1e15;

Text FromAscii(const char* begin, const char* end) {
  Text text;
  for (; begin != end; ++begin) text.push_back(static_cast<char16_t>(static_cast<unsigned char>(*begin)));
  return text;
}

Text RealAsText(double value) {
  std::array<char, 64> buffer{};
  char* const end = buffer.data() + buffer.size();
  const bool plain = value == 0 || (std::abs(value) < kLargestPlain && std::abs(value) >= 1e-5);
  const auto result = plain ? std::to_chars(buffer.data(), end, value, std::chars_format::fixed)
                            : std::to_chars(buffer.data(), end, value);
  return FromAscii(buffer.data(), result.ptr);
}

std::optional<std::int64_t> AsWholeNumber(const rig::Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  if (const auto* real = std::get_if<double>(&value)) {
    const double cut = std::trunc(*real);
    // The comparison is written so that it is false for NaN.
    if (cut >= static_cast<double>(kLowest) && cut <= static_cast<double>(kHighestWord)) {
      return static_cast<std::int64_t>(cut);
    }
    return std::nullopt;
  }
  if (const auto* text = std::get_if<std::u16string>(&value)) {
    if (const auto number = ParseInt(*text)) return *number;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::int32_t> AsInt32(const rig::Value& value) {
  const auto number = AsWholeNumber(value);
  if (!number || *number < kLowest || *number > kHighestWord) return std::nullopt;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(*number));
}

std::optional<double> AsDouble(const rig::Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<double>(*number);
  if (const auto* real = std::get_if<double>(&value)) return *real;
  if (const auto* text = std::get_if<std::u16string>(&value)) return ParseDouble(*text);
  return std::nullopt;
}

std::optional<Text> AsText(const rig::Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    const std::string digits = std::to_string(*number);
    return FromAscii(digits.data(), digits.data() + digits.size());
  }
  if (const auto* real = std::get_if<double>(&value)) return RealAsText(*real);
  if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
  return std::nullopt;
}

std::optional<rig::Value> ConvertTo(rig::VariableType type, const rig::Value& value) {
  switch (type) {
    case rig::VariableType::kInt:
      if (const auto number = AsWholeNumber(value)) return rig::Value{*number};
      break;
    case rig::VariableType::kDouble:
      if (const auto real = AsDouble(value)) return rig::Value{*real};
      break;
    case rig::VariableType::kText:
      if (auto text = AsText(value)) return rig::Value{*std::move(text)};
      break;
  }
  return std::nullopt;
}

rig::Value ZeroOf(rig::VariableType type) {
  switch (type) {
    case rig::VariableType::kDouble:
      return 0.0;
    case rig::VariableType::kText:
      return Text();
    case rig::VariableType::kInt:
      break;
  }
  return std::int64_t{0};
}

bool SameValue(const rig::Value& a, const rig::Value& b) {
  if (a.index() != b.index()) return false;
  if (const auto* number = std::get_if<std::int64_t>(&a)) return *number == std::get<std::int64_t>(b);
  if (const auto* real = std::get_if<double>(&a)) return *real == std::get<double>(b);
  if (const auto* text = std::get_if<std::u16string>(&a)) return *text == std::get<std::u16string>(b);
  return std::holds_alternative<std::monostate>(a);
}

}  // namespace pnl::sim
