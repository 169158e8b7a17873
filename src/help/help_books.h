// SPDX-License-Identifier: MIT
// The seam between the help viewer and the manuals: an open manual that can be read and searched, and the shelf that
// opens one beside the window's thread. ManualShelf (help/manual_shelf.h) has the real manuals.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "base/text.h"
#include "help/manual/manual.h"
#include "help/manual/manual_cache.h"
#include "help/manual/manual_search.h"
#include "pages/page_source.h"

namespace pnl {

/// An open manual. Dropping it ends its search.
class HelpBook {
 public:
  virtual ~HelpBook() = default;
  [[nodiscard]] virtual const Text& Title() const = 0;
  [[nodiscard]] virtual const Text& Home() const = 0;
  [[nodiscard]] virtual const std::vector<ManualTopic>& Contents() const = 0;
  [[nodiscard]] virtual const std::vector<ManualWord>& Index() const = 0;
  /// The title of a page in the contents; empty when it isn't there.
  [[nodiscard]] virtual Text TitleOf(TextView page) const = 0;
  /// The page that a name means, by the manual's own rules for names. Empty when there is none.
  [[nodiscard]] virtual Text PageOf(TextView name) const = 0;
  [[nodiscard]] virtual std::shared_ptr<PageSource> Pages() const = 0;

  /// Makes the book ready to be searched and calls ready then: later, or before the call returns. Returns false when
  /// that can't be started.
  virtual bool BeginSearch(std::function<void()> ready) = 0;
  [[nodiscard]] virtual bool CanSearch() const = 0;
  /// The pages with all words of the query, in the order of the manual; none before CanSearch.
  [[nodiscard]] virtual std::vector<SearchRow> Find(TextView query) const = 0;
};

struct OpenedBook {
  ManualState state = ManualState::kMissing;
  std::shared_ptr<HelpBook> book;  // null unless kWhole or kDamaged
};

class HelpShelf {
 public:
  virtual ~HelpShelf() = default;
  /// Opens the manual at a panel path and calls done: later, or before the call returns. Drops what was asked for
  /// before. Returns false when nothing can be started; done isn't called then.
  [[nodiscard]] virtual bool Open(TextView manual, std::function<void(const OpenedBook&)> done) = 0;
  /// The answer that is under way doesn't come any more.
  virtual void Drop() = 0;
};

}  // namespace pnl
