// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_fields.h"

#include <algorithm>
#include <cstddef>

#include "base/format.h"
#include "base/numbers.h"

namespace pnl {

bool BlankField(TextView text) { return text.empty() || text == u"0" || text == u" 0"; }

bool BlankCell(TextView text) { return text.empty() || text == u"0"; }

double DecimalOf(TextView text) {
  // No decimal number contains another character, and without one of these nothing but a decimal number can be read.
  constexpr TextView kDecimal = u"0123456789.+-eE \t\n\v\f\r";
  return ParseDoublePrefix(text.substr(0, text.find_first_not_of(kDecimal)));
}

Text CellText(double value) { return Format(u"%.7f", value); }

Text ResultText(double value, std::int32_t precision) {
  // Cut, not rounded: the text is read again, and the computation goes on with the cut value.
  return precision == 0 ? Format(u"%i", TruncateToInt32(value)) : Format(u"%f", value);
}

int SelectableIndex(int index, int count) { return index >= 0 && index < count ? index : kZmcNoSelection; }

int IndexOrLast(const std::vector<Text>& items, TextView text) {
  const auto same = [text](const Text& item) { return !text.empty() && EqualNoCase(item, text); };
  const auto found = std::find_if(items.begin(), items.end(), same);
  const std::ptrdiff_t index = found - items.begin();
  return static_cast<int>(found == items.end() ? index - 1 : index);
}

}  // namespace pnl
