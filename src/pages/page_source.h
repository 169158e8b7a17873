// SPDX-License-Identifier: MIT
// The pages of one document, and which addresses may be read from it: nothing outside the document's own folder, and
// nothing from a network. Every reference of a page is resolved and read here, so what is refused is counted here.
// Knows no markup and no window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/text.h"

namespace pnl {

/// Why an address isn't read.
enum class PageRefusal {
  kNone,
  kBadAddress,  // empty, a NUL, a backslash or a broken percent sign
  kForeign,     // it names a scheme or a server: "http:", "file:", "data:", "//server"
  kOutside,     // it leaves the document's folder: "..", an absolute name, a drive letter
  kNotFound,
  kUnreadable,
  kTooLarge,
  kCount
};

/// A place in a document. page is relative to the document's folder, with slashes and without ".", ".." and percent
/// signs: "images/a.png". anchor is decoded too.
struct PageAddress {
  PageRefusal refusal = PageRefusal::kNone;
  Text page;
  Text anchor;
};

struct PageBytes {
  PageRefusal refusal = PageRefusal::kNone;
  std::string bytes;
};

/// Resolves a reference of a page: "../b.htm#c" in "sub/a.htm" is page "b.htm", anchor "c". A reference without a page
/// ("#c") names the page itself. page must be a resolved page, or empty for a reference to the document's folder.
[[nodiscard]] PageAddress ResolvePageAddress(TextView page, TextView reference);

/// A reference to a page or file by its name as it is: '%', '#', '?' and a blank at an end become percent signs
/// with digits.
[[nodiscard]] Text PageReference(TextView name);

class PageSource {
 public:
  /// A larger object isn't read.
  static constexpr std::uint64_t kMostBytes = 50'000'000;

  virtual ~PageSource() = default;
  /// Resolves a reference of a page by the document's rules and counts a refusal.
  [[nodiscard]] PageAddress Resolve(TextView page, TextView reference);
  /// The bytes of a page or picture. page must be a resolved page; another text is refused as in a reference.
  [[nodiscard]] PageBytes Read(TextView page);
  /// How many references and reads were refused for that reason. kNone counts those that weren't.
  [[nodiscard]] std::size_t Refused(PageRefusal reason) const { return refused_[static_cast<std::size_t>(reason)]; }

 protected:
  /// The place that a reference means: ResolvePageAddress, where a document has no rules of its own.
  [[nodiscard]] virtual PageAddress AddressOf(TextView page, TextView reference) const {
    return ResolvePageAddress(page, reference);
  }
  /// Reads a page. page is resolved: it has no "..", no drive letter and no percent signs.
  virtual PageBytes Load(TextView page) = 0;

 private:
  std::array<std::size_t, static_cast<std::size_t>(PageRefusal::kCount)> refused_{};
};

}  // namespace pnl
