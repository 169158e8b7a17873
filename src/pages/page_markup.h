// SPDX-License-Identifier: MIT
// Makes the markup of a page harmless before a text browser gets it: only known tags and attributes pass, nothing that
// runs, and no nesting, table or number that would take the browser minutes or gigabytes. A page that is too long is
// cut (pages/page_limits.h). Resolves no addresses: PageSource does.
#pragma once

#include "base/text.h"

namespace pnl {

struct CleanPage {
  Text markup;
  bool cut = false;  // something was left out because a limit was reached
};
/// Returns the markup in which every tag that was opened is closed. Text outside the tags stays as it is, but for words
/// that are too long.
[[nodiscard]] CleanPage CleanMarkup(TextView markup);

}  // namespace pnl
