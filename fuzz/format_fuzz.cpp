// SPDX-License-Identifier: MIT
// Any format over arguments of every kind ends, reads nothing that isn't there and grows no further than its caps
// allow. The first sixteen bytes are the numbers among the arguments, the rest is the format.
#include "base/format.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "fuzz_check.h"

namespace {

constexpr std::size_t kMostPerConversion = 4096 + 320;

void CheckSize(const pnl::Text& result, pnl::TextView format, std::size_t texts) {
  const auto conversions = static_cast<std::size_t>(std::count(format.begin(), format.end(), u'%'));
  FUZZ_CHECK(result.size() <= format.size() + conversions * (kMostPerConversion + texts));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::array<char, 16> numbers{};
  const std::size_t taken = std::min(size, numbers.size());
  std::memcpy(numbers.data(), data, taken);
  std::int64_t integer = 0;
  double real = 0;
  std::memcpy(&integer, numbers.data(), sizeof integer);
  std::memcpy(&real, numbers.data() + sizeof integer, sizeof real);
  const pnl::Text format = pnl::DecodeFile({reinterpret_cast<const char*>(data) + taken, size - taken});
  const pnl::Text text = format.substr(0, 50);

  CheckSize(pnl::Format(format), format, 0);
  CheckSize(pnl::Format(format, integer), format, 0);
  CheckSize(pnl::Format(format, real, text), format, text.size());
  const auto letter = static_cast<char16_t>(integer & 0xFFFF);
  CheckSize(pnl::Format(format, text, integer, real, letter, static_cast<int>(integer), text, real, integer), format,
            text.size());
  CheckSize(pnl::Format(format, static_cast<int>(integer), static_cast<int>(integer >> 32), real, text, letter), format,
            text.size());
  return 0;
}
