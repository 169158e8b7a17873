// SPDX-License-Identifier: MIT
// A manual that has been unpacked into a folder: its title, contents, index and pages. Reads the files that pnl-chm
// wrote and nothing else, and keeps their file open: a manual that is thrown away meanwhile can be read to its end.
// What a manual says of itself is not trusted: every count, depth and size has a limit. Never changes after Load, so
// any thread may read it. Unpacking is in help/manual/manual_cache.h.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/descriptor.h"
#include "base/text.h"
#include "help/manual/manual_listing.h"

namespace pnl {

/// A page of a manual, by the name that Manual has for it ("sub/Page.htm"), and an anchor in it. Both may be empty: a
/// place without a page leads nowhere.
struct ManualPlace {
  Text page;
  Text anchor;
  friend bool operator==(const ManualPlace&, const ManualPlace&) = default;
};

/// A line of the contents or of the index.
struct ManualTopic {
  Text title;
  ManualPlace place;
  int depth = 0;  // 0 for the outermost lines; a line is inside the last one before it with a smaller depth
  friend bool operator==(const ManualTopic&, const ManualTopic&) = default;
};

/// A word of the index and the topics to which it leads, whose depth is 0. It may lead to none, as a heading.
struct ManualWord {
  Text word;
  int depth = 0;
  std::vector<ManualTopic> topics;
};

class Manual {
 public:
  /// A longer page or picture isn't read.
  static constexpr std::uint64_t kMostBytes = 50'000'000;

  /// Reads the listing, contents and index from the folder. Returns null when it has no listing. A contents file or
  /// index that is missing or broken is as much as could be read of it, or empty.
  [[nodiscard]] static std::shared_ptr<const Manual> Load(const std::string& folder);

  /// The title; the name of the home page if the manual has none.
  [[nodiscard]] const Text& Title() const { return title_; }
  /// The page that a reader sees first: the default page, else the first page of the contents, else the first page.
  [[nodiscard]] const Text& Home() const { return home_; }
  [[nodiscard]] const std::vector<ManualTopic>& Contents() const { return contents_; }
  [[nodiscard]] const std::vector<ManualWord>& Index() const { return index_; }
  /// The HTML pages: those of the contents in its order, then the others in the order in which they were unpacked.
  [[nodiscard]] const std::vector<Text>& Pages() const { return pages_; }
  /// The title of a page: that of its first line in the contents, else empty.
  [[nodiscard]] Text ContentsTitleOf(TextView page) const;

  /// The name of the page or picture that a name means, without regard to case. Backslashes, percent signs, "." and
  /// ".." and a slash at the start are resolved. Returns nothing when the manual doesn't have it.
  [[nodiscard]] std::optional<Text> Find(TextView name) const;
  /// The place that a reference in a page means ("../b.htm#c", "#c", "its:x.chm::/b.htm"). from is empty for references
  /// of contents and index. The page is empty when the manual doesn't have it.
  [[nodiscard]] ManualPlace Resolve(TextView from, TextView reference) const;

  /// The bytes of a page or picture, by Find's rule. Returns nothing when there is no such object, it can't be read or
  /// it is larger than most bytes.
  [[nodiscard]] std::optional<std::string> Read(TextView name, std::uint64_t most = kMostBytes) const;
  /// The markup of a page as text: a byte order mark decides its encoding, else the page itself, else the manual's code
  /// page.
  [[nodiscard]] std::optional<Text> ReadText(TextView name, std::uint64_t most = kMostBytes) const;

  /// True when something of the manual couldn't be unpacked. The listing contains the counts.
  [[nodiscard]] bool IsDamaged() const { return listing_.IsDamaged(); }
  [[nodiscard]] const ManualListing& Listing() const { return listing_; }
  /// True when the file of the objects is as long as the listing says. A power cut may have lost what was written last.
  [[nodiscard]] bool IsComplete() const;

 private:
  Manual(Descriptor objects, ManualListing listing);
  void ReadContents();
  void ReadIndex();
  void OrderPages();
  void ChooseHome();
  [[nodiscard]] std::optional<Text> SitemapFile(TextView named, TextView ending) const;
  /// The object that a name means, by Find's rule; null when there is none.
  [[nodiscard]] const ListedObject* ObjectOf(TextView name) const;

  Descriptor objects_;
  ManualListing listing_;
  Text title_;
  Text home_;
  std::vector<ManualTopic> contents_;
  std::vector<ManualWord> index_;
  std::vector<Text> pages_;
  std::unordered_map<Text, std::size_t> byName_;        // the capitals of a name -> its number in the listing
  std::unordered_map<Text, std::size_t> contentsLine_;  // page -> its first line
};

}  // namespace pnl
