// SPDX-License-Identifier: MIT
// What the operator has typed in the list to find a name: letters with which a name begins, without regard to case.
// Selects nothing itself.
#pragma once

#include <optional>
#include <vector>

#include "explorer/xplr_rows.h"

namespace pnl {

class XplrTyped {
 public:
  /// Adds letters when a name begins with all that was typed then, and returns the first such row. Else nothing has
  /// changed.
  [[nodiscard]] std::optional<std::size_t> Add(TextView letters, const std::vector<XplrRow>& rows);
  /// Takes the last letter back. Returns the first row whose name begins with the rest; nothing without a rest.
  [[nodiscard]] std::optional<std::size_t> TakeBack(const std::vector<XplrRow>& rows);
  void Clear() { letters_.clear(); }
  [[nodiscard]] const Text& Letters() const { return letters_; }

 private:
  Text letters_;
};

}  // namespace pnl
