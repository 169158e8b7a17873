// SPDX-License-Identifier: MIT
// What a reader sees of a page, without its markup: for the full-text search. Lays nothing out.
#pragma once

#include "base/text.h"

namespace pnl {

struct ReadablePage {
  Text title;  // what the page calls itself, on one line; empty if it doesn't
  Text text;   // title and body; elements that begin a new line or cell are divided by a blank
};

[[nodiscard]] ReadablePage TextOfPage(TextView markup);

}  // namespace pnl
