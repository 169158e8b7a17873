// SPDX-License-Identifier: MIT
// The attributes of a tag, and what may be in their values and in style sheets: no number that would make the browser
// paint or reserve gigabytes, no import of other sheets.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"
#include "pages/page_tags.h"

namespace pnl {

/// Comes before the address of every picture in clean markup. The browser opens a picture by itself when its
/// address names a file of this machine and something else was loaded under that address; under these it finds none.
inline constexpr TextView kPictureScheme = u"picture:";

struct PageAttribute {
  Text name;  // in small letters
  TextView value;
};

/// Takes the attributes off the front of text, up to and with the tag's end. Returns nothing when the tag has no end.
[[nodiscard]] std::optional<std::vector<PageAttribute>> TakePageAttributes(TextView& text);

/// The value as it may pass, without double quotes.
[[nodiscard]] Text CleanValue(ValueKind kind, TextView value);
/// The number of columns that the value of a "colspan" asks for, from 1.
[[nodiscard]] int SpanOf(TextView value);
/// The style sheet without imports and within the limits of pages/page_limits.h.
[[nodiscard]] Text CleanStyle(TextView css);
/// ASCII letters only: the names of tags and attributes.
[[nodiscard]] Text SmallLetters(TextView text);

}  // namespace pnl
