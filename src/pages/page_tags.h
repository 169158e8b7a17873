// SPDX-License-Identifier: MIT
// The tags and attributes that a page may have. Tables only: pages/page_markup.cpp uses them.
#pragma once

#include "base/text.h"

namespace pnl {

/// What a tag is. One kind each.
enum class TagKind {
  kInline,   // b, span, a
  kBlock,    // p, div, h1: it ends an open paragraph
  kVoid,     // br, img: it has no end
  kList,     // ul, ol, dl
  kItem,     // li, dt, dd: it ends the item before it
  kTable,    // table
  kSection,  // thead, tbody, tfoot
  kRow,      // tr
  kCell,     // td, th
  kStyle,    // style: its content isn't markup
  kSkipped   // script, object: left out with its content
};

struct TagRow {
  TextView name;
  TagKind kind;
};

/// Returns null for a tag that isn't known; its content then counts as if the tag weren't there. name is in small
/// letters.
[[nodiscard]] const TagRow* FindTag(TextView name);

enum class ValueKind {
  kText,     // passes as it is
  kAddress,  // an address; the source of the page decides
  kPicture,  // the same of a picture: it gets kPictureScheme in front
  kLength,   // a number of pixels or a percentage: it is limited
  kSmall,    // a number up to 50
  kSpan,     // a number of columns or rows
  kCss       // a style: its numbers are limited
};

struct AttributeRow {
  TextView name;
  ValueKind kind;
};

/// Returns null for an attribute that doesn't pass. name is in small letters.
[[nodiscard]] const AttributeRow* FindAttribute(TextView name);

}  // namespace pnl
