// SPDX-License-Identifier: MIT
// Full-text search in one manual. SearchIndex is the words of all pages, made once and never changed; ManualSearch has
// it made beside the window's thread. Case and accents play no part: "maquina" finds "Máquina". Knows no order but that
// of the manual's pages; the viewer sorts what it shows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/text.h"
#include "help/manual/manual.h"
#include "window/worker.h"

namespace pnl {

struct SearchRow {
  Text title;  // of the page: its own, else that in the contents, else its name
  Text page;   // as Manual::Pages has it
};

class SearchIndex {
 public:
  /// The limits of one index; what is beyond them isn't found.
  static constexpr std::size_t kMostPages = 20'000;
  static constexpr std::size_t kMostPostings = 20'000'000;  // pairs of a word and a page
  static constexpr std::uint64_t kMostPageBytes = 10'000'000;
  static constexpr std::size_t kLongestQuery = 1'000;

  /// Reads all pages. Returns null when it was cancelled. Any thread may call it.
  [[nodiscard]] static std::shared_ptr<const SearchIndex> Build(const Manual& manual,
                                                                const std::function<bool()>& isCancelled);
  /// The pages that contain every word of the query, the last word also as the start of a word, in the order of
  /// Manual::Pages. A query without a word finds nothing.
  [[nodiscard]] std::vector<SearchRow> Find(TextView query) const;
  [[nodiscard]] std::size_t WordCount() const { return words_.size(); }
  [[nodiscard]] std::size_t PageCount() const { return pages_.size(); }

 private:
  struct Builder;
  using PageNumbers = std::vector<std::uint32_t>;
  /// The pages of the words from first up to, not including, last; in rising order.
  [[nodiscard]] PageNumbers PagesOf(std::size_t first, std::size_t last) const;
  [[nodiscard]] PageNumbers PagesWith(const Text& word, bool isPrefix) const;
  /// Sorts what the builder has collected into this index.
  void Take(Builder& builder);

  std::vector<SearchRow> pages_;
  std::vector<Text> words_;                // in rising order
  std::vector<std::size_t> firstPosting_;  // of each word, and the end of the last one
  PageNumbers postings_;
};

/// Used on the window's thread.
class ManualSearch {
 public:
  explicit ManualSearch(Worker& worker) : worker_(worker) {}
  ~ManualSearch() { Drop(); }
  ManualSearch(const ManualSearch&) = delete;
  ManualSearch& operator=(const ManualSearch&) = delete;

  /// Begins to index the manual and calls ready when queries can be asked. Drops the manual before. Returns false when
  /// nothing can be started.
  bool Begin(std::shared_ptr<const Manual> manual, std::function<void()> ready);
  /// Forgets the manual. ready isn't called any more.
  void Drop();
  [[nodiscard]] bool IsReady() const { return index_ != nullptr; }
  /// SearchIndex::Find; nothing as long as the index isn't ready.
  [[nodiscard]] std::vector<SearchRow> Find(TextView query) const;

 private:
  Worker& worker_;
  JobId job_ = 0;
  std::shared_ptr<const SearchIndex> index_;
};

}  // namespace pnl
