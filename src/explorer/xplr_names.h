// SPDX-License-Identifier: MIT
// The rules for names of files: title and extension, the filter, the default extension, and the patterns by which a
// folder is listed. Knows no folder and no disc. The filter is read in two ways, which differ on purpose: MatchFilter
// cuts it at commas and blanks and looks at extensions alone; ListingPatterns cuts it at commas only.
#pragma once

#include <vector>

#include "base/text.h"
#include "explorer/xplr_ids.h"

namespace pnl {

/// A name in two: the title up to the last point, and the extension from that point on. Without a point the extension
/// is empty; ".profile" has no title.
struct NameParts {
  TextView title;
  TextView extension;
};
[[nodiscard]] NameParts SplitName(TextView name);
/// True for an extension that counts as one: a point and something after it.
[[nodiscard]] constexpr bool IsExtension(TextView extension) { return extension.size() >= 2; }

/// True when a name stays in its folder: no slash, no backslash, no drive letter with colon in front, no NUL, and
/// neither
/// "." nor "..". Whoever accepts a name, with its default extension, refuses any other one with Outcome::kNoAccess.
[[nodiscard]] bool IsPlainName(TextView name);

/// kNameAcceptable when an extension, given with its point, is one of the filter's, else kNotInFilter. A filter that is
/// empty, "*" or "*.*" has every extension. In a list these two have none: "*.nc,*.*" matches ".nc" and ".*" alone.
[[nodiscard]] Outcome MatchFilter(TextView extension, TextView filter);

/// kBlankInName (only with noBlanks; a blank in the extension is none), kEmptyName, kNoExtension, or what MatchFilter
/// says about the extension, in this order.
[[nodiscard]] Outcome CheckFileName(TextView name, TextView filter, bool noBlanks);

/// A name with an extension as it is. Without one: title, point and the default extension, or the title alone when the
/// default is empty or "*". A lone point at the end is dropped.
[[nodiscard]] Text ApplyDefaultExtension(TextView name, TextView defaultExtension);

/// The patterns of a filter, cut at commas only. A blank after a comma belongs to the pattern. Empty ones are left out.
[[nodiscard]] std::vector<Text> ListingPatterns(TextView filter);

/// True when the whole name fits the pattern without regard to case: "*" is any number of characters, also none, "?" is
/// one. "*.*" fits every name, also one without a point.
[[nodiscard]] bool MatchesPattern(TextView name, TextView pattern);

}  // namespace pnl
