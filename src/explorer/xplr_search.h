// SPDX-License-Identifier: MIT
// The search in the names of the list, for the find dialog. Knows the rows through a small interface, selects none
// itself and says nothing to the dialog: its caller does, by the answer.
#pragma once

#include <cstddef>
#include <optional>

#include "base/text.h"

namespace pnl {

/// The rows of a list as a search sees them.
class SearchRows {
 public:
  virtual ~SearchRows() = default;
  [[nodiscard]] virtual std::size_t Count() const = 0;
  /// Valid until the rows change.
  [[nodiscard]] virtual TextView Name(std::size_t row) const = 0;
  /// The selected row. Nothing, or a row that there isn't, for none.
  [[nodiscard]] virtual std::optional<std::size_t> Selected() const = 0;
};

/// What was sought last, and in which direction.
struct SearchState {
  Text text;  // in capitals once it has been sought
  bool forward = true;
};

enum class FindResult { kNotFound = 0, kFound = 1, kOnlySelected = 2 };

struct SearchAnswer {
  FindResult result = FindResult::kNotFound;
  std::size_t row = 0;  // to be selected; only of kFound
};

/// Seeks the text in the rows after the selected one, or before it, and goes round at the end. Without a selection it
/// goes from one end to the other. kOnlySelected: no row but the selected one contains the text. With an empty text or
/// no rows nothing is sought, the state stays as it is and there is no answer.
[[nodiscard]] std::optional<SearchAnswer> SearchList(const SearchRows& rows, SearchState& state, bool forward);

}  // namespace pnl
