// SPDX-License-Identifier: MIT
// Help marks and the index files that lead from a mark to a page of a manual. The helps file names a manual for the
// first three characters of a mark; the marks file beside the manual names a page for the whole mark. Reads index files
// only; opens no manual and shows nothing itself.
#pragma once

#include <functional>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"

namespace pnl {

/// The results of ProbeHelp.
namespace help_probe {
inline constexpr int kFound = 0;
inline constexpr int kNotFound = 2;
inline constexpr int kNoName = 87;
}  // namespace help_probe

/// What the functions read.
struct HelpDisc {
  Files& files;
  Utilities& utilities;
};

struct HelpProbe {
  int code = help_probe::kNoName;
  Text folder;  // where it was found, else the fallback folder; empty without a name
};
/// Looks for a name in the help folder of the language, then in the fallback folder. An empty name is kNoName.
[[nodiscard]] HelpProbe ProbeHelp(const HelpDisc& disc, TextView name);

/// Where the helps file is. It needn't exist.
struct HelpsFile {
  int code = 0;
  Text name;
  Text folder;
  [[nodiscard]] Text Path() const;
};
/// The code is always 0. The folder is that of the last probe.
[[nodiscard]] HelpsFile FindHelpsFile(const HelpDisc& disc);

/// A page of a manual, as the index files name it.
struct ManualPage {
  Text manual;            // its path
  Text page;              // inside the manual
  Text mark;              // the mark in force, which is also the anchor in the page
  bool fallback = false;  // the mark in force isn't the one that was asked for
  /// "page#mark".
  [[nodiscard]] Text Topic() const;
};

enum class HelpResolution { kFound, kEmptyMark, kNoManual, kNoPage };

struct ResolvedPage {
  HelpResolution result = HelpResolution::kEmptyMark;
  ManualPage page;  // whole only for kFound
};

/// The most characters of a mark.
inline constexpr std::size_t kLongestMark = 260;
/// Shows the operator a message box of ResolveManualPage. Its title is the name of the helps file.
using HelpBoxShower = std::function<void(TextView title, TextView text)>;
/// Resolves a mark. An empty mark fails without a message. A mark without a page of its own costs a message, and then
/// the manual's fallback page is taken: that of the mark's first three characters and "0000".
[[nodiscard]] ResolvedPage ResolveManualPage(const HelpDisc& disc, TextView mark, const HelpBoxShower& showBox);

/// The results of ListManuals.
namespace manual_list {
inline constexpr int kDone = 0;
inline constexpr int kNoKeys = 1;
inline constexpr int kNoHelpsFile = 3;
inline constexpr int kNoListBox = 1627;
inline constexpr int kUnreadable = 4306;
inline constexpr std::size_t kNamesBuffer = 8192;  // characters of all keys, with an end for each and one for the list
}  // namespace manual_list

struct ManualNames {
  int code = manual_list::kDone;
  std::vector<Text> names;  // file names, in the order of the file
};
/// The manuals of the helps file. A value "DEFAULT" isn't listed, nor is a key without a value. Keys that no longer fit
/// into kNamesBuffer aren't listed either.
[[nodiscard]] ManualNames ListManuals(const HelpsFile& helps, Files& files, bool hasListBox);

}  // namespace pnl
