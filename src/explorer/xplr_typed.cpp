// SPDX-License-Identifier: MIT
#include "explorer/xplr_typed.h"

#include <algorithm>

namespace pnl {
namespace {

std::optional<std::size_t> FirstThatBegins(const Text& letters, const std::vector<XplrRow>& rows) {
  const auto begins = [&letters](const XplrRow& row) {
    return EqualNoCase(TextView(row.name).substr(0, letters.size()), letters);
  };
  const auto found = std::find_if(rows.begin(), rows.end(), begins);
  if (letters.empty() || found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

bool IsSecondHalf(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::optional<std::size_t> XplrTyped::Add(TextView letters, const std::vector<XplrRow>& rows) {
  const Text all = letters_ + Text(letters);
  const auto row = FirstThatBegins(all, rows);
  if (row) letters_ = all;
  return row;
}

std::optional<std::size_t> XplrTyped::TakeBack(const std::vector<XplrRow>& rows) {
  if (letters_.empty()) return std::nullopt;
  const bool pair = IsSecondHalf(letters_.back()) && letters_.size() > 1;
  letters_.resize(letters_.size() - (pair ? 2 : 1));
  return FirstThatBegins(letters_, rows);
}

}  // namespace pnl
