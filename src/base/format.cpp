// SPDX-License-Identifier: MIT
#include "base/format.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "base/format_spec.h"
#include "base/numbers.h"
#include "base/print_number.h"

namespace pnl {
namespace {

/// The argument as a whole number; nothing for a text.
std::optional<std::int64_t> AsInteger(const FormatArg& arg) {
  const auto& value = arg.Value();
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return *integer;
  if (const auto* real = std::get_if<double>(&value)) return TruncateToInt64(*real);
  if (const auto* letter = std::get_if<char16_t>(&value)) return *letter;
  return std::nullopt;
}

std::optional<double> AsReal(const FormatArg& arg) {
  if (const auto* real = std::get_if<double>(&arg.Value())) return *real;
  if (const auto integer = AsInteger(arg)) return static_cast<double>(*integer);
  return std::nullopt;
}

Text AsText(const FormatArg& arg) {
  const auto& value = arg.Value();
  if (const auto* text = std::get_if<TextView>(&value)) return Text(*text);
  if (const auto* letter = std::get_if<char16_t>(&value)) return Text(1, *letter);
  // Without a conversion they print as %g and %d.
  if (const auto* real = std::get_if<double>(&value)) return PrintReal(*real, {});
  return PrintSigned(std::get<std::int64_t>(value), {});
}

/// Cuts an integer to the size that the conversion asks for, as printf does with its argument.
std::int64_t CutSigned(std::int64_t value, FormatSpec::Size size) {
  switch (size) {
    case FormatSpec::Size::kByte:
      return static_cast<std::int8_t>(value);
    case FormatSpec::Size::kShort:
      return static_cast<std::int16_t>(value);
    case FormatSpec::Size::kInt:
      return static_cast<std::int32_t>(value);
    case FormatSpec::Size::kLong:
      break;
  }
  return value;
}

std::uint64_t CutUnsigned(std::int64_t value, FormatSpec::Size size) {
  const auto bits = static_cast<std::uint64_t>(value);
  switch (size) {
    case FormatSpec::Size::kByte:
      return bits & 0xFF;
    case FormatSpec::Size::kShort:
      return bits & 0xFFFF;
    case FormatSpec::Size::kInt:
      return bits & 0xFFFFFFFF;
    case FormatSpec::Size::kLong:
      break;
  }
  return bits;
}

/// Hands out the arguments in turn; null when they are used up.
class ArgQueue {
 public:
  ArgQueue(const FormatArg* first, const FormatArg* end) : next_(first), end_(end) {}
  const FormatArg* Take() { return next_ == end_ ? nullptr : next_++; }

 private:
  const FormatArg* next_;
  const FormatArg* end_;
};

int StarValue(ArgQueue& args) {
  const FormatArg* arg = args.Take();
  const auto value = arg != nullptr ? AsInteger(*arg) : std::nullopt;
  return value ? static_cast<int>(std::clamp<std::int64_t>(*value, -FormatSpec::kMost, FormatSpec::kMost)) : 0;
}

void FillStars(FormatSpec& spec, ArgQueue& args) {
  if (spec.widthFromArgument) {
    const int width = StarValue(args);
    spec.left = spec.left || width < 0;
    spec.width = std::abs(width);
  }
  if (spec.precisionFromArgument) {
    const int precision = StarValue(args);
    spec.precision = precision < 0 ? FormatSpec::kNone : precision;
  }
}

Text PrintText(Text text, const FormatSpec& spec, int precision) {
  if (precision >= 0 && text.size() > static_cast<std::size_t>(precision))
    text.resize(static_cast<std::size_t>(precision));
  const auto width = static_cast<std::size_t>(spec.width);
  if (text.size() < width) text.insert(spec.left ? text.size() : 0, width - text.size(), u' ');
  return text;
}

Text Convert(const FormatSpec& spec, const FormatArg& arg) {
  switch (spec.kind) {
    case FormatSpec::Kind::kSigned:
      if (const auto value = AsInteger(arg)) return PrintSigned(CutSigned(*value, spec.size), spec);
      break;
    case FormatSpec::Kind::kUnsigned:
      if (const auto value = AsInteger(arg)) return PrintUnsigned(CutUnsigned(*value, spec.size), spec);
      break;
    case FormatSpec::Kind::kReal:
      if (const auto value = AsReal(arg)) return PrintReal(*value, spec);
      break;
    case FormatSpec::Kind::kLetter:
      if (const auto value = AsInteger(arg)) {
        return PrintText(Text(1, static_cast<char16_t>(*value & 0xFFFF)), spec, FormatSpec::kNone);
      }
      break;
    case FormatSpec::Kind::kText:
      return PrintText(AsText(arg), spec, spec.precision);
    case FormatSpec::Kind::kPercent:
    case FormatSpec::Kind::kSwallow:
    case FormatSpec::Kind::kUnknown:
      break;
  }
  return {};
}

}  // namespace

Text FormatList(TextView format, std::initializer_list<FormatArg> args) {
  Text result;
  ArgQueue queue(args.begin(), args.end());
  while (!format.empty()) {
    const std::size_t sign = std::min(format.find(u'%'), format.size());
    result += format.substr(0, sign);
    format.remove_prefix(sign);
    if (format.empty()) break;
    format.remove_prefix(1);
    FormatSpec spec = TakeFormatSpec(format);
    FillStars(spec, queue);
    if (spec.kind == FormatSpec::Kind::kPercent) result += u'%';
    if (spec.kind == FormatSpec::Kind::kPercent || spec.kind == FormatSpec::Kind::kUnknown) continue;
    if (const FormatArg* arg = queue.Take()) result += Convert(spec, *arg);
  }
  return result;
}

}  // namespace pnl
