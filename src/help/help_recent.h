// SPDX-License-Identifier: MIT
// The last pages that the operator has read, of all manuals, the latest first. Kept as long as the viewer exists and
// not stored.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl {

struct RecentPage {
  Text manual;  // its path
  Text page;
  Text anchor;
  Text title;  // "page - manual", for the operator
};

class RecentPages {
 public:
  static constexpr std::size_t kMost = 10;

  /// Puts a page in front. A page is listed once, with its latest anchor.
  void Add(RecentPage page) {
    std::erase_if(pages_, [&page](const RecentPage& known) {
      return EqualNoCase(known.manual, page.manual) && EqualNoCase(known.page, page.page);
    });
    pages_.insert(pages_.begin(), std::move(page));
    if (pages_.size() > kMost) pages_.resize(kMost);
  }
  [[nodiscard]] const std::vector<RecentPage>& All() const { return pages_; }

 private:
  std::vector<RecentPage> pages_;
};

}  // namespace pnl
