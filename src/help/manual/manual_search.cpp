// SPDX-License-Identifier: MIT
#include "help/manual/manual_search.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>

#include "help/manual/page_text.h"
#include "help/manual/search_words.h"

namespace pnl {

/// The words and their pages while they are collected.
struct SearchIndex::Builder {
  std::unordered_map<Text, PageNumbers> pagesOf;
  std::size_t postings = 0;

  void AddPage(std::uint32_t number, TextView text) {
    for (Text& word : SearchWordsOf(text)) {
      if (postings >= kMostPostings) return;
      PageNumbers& pages = pagesOf[std::move(word)];
      if (!pages.empty() && pages.back() == number) continue;
      pages.push_back(number);
      ++postings;
    }
  }
};

std::shared_ptr<const SearchIndex> SearchIndex::Build(const Manual& manual, const std::function<bool()>& isCancelled) {
  auto index = std::make_shared<SearchIndex>();
  Builder builder;
  for (const Text& page : manual.Pages()) {
    if (isCancelled()) return nullptr;
    if (index->pages_.size() >= kMostPages) break;
    const auto markup = manual.ReadText(page, kMostPageBytes);
    const ReadablePage content = markup ? TextOfPage(*markup) : ReadablePage();
    SearchRow row{content.title, page};
    if (row.title.empty()) row.title = manual.ContentsTitleOf(page);
    if (row.title.empty()) row.title = page;
    builder.AddPage(static_cast<std::uint32_t>(index->pages_.size()), content.text);
    index->pages_.push_back(std::move(row));
  }
  index->Take(builder);
  return index;
}

void SearchIndex::Take(Builder& builder) {
  words_.reserve(builder.pagesOf.size());
  for (const auto& [word, pages] : builder.pagesOf) words_.push_back(word);
  std::sort(words_.begin(), words_.end());
  postings_.reserve(builder.postings);
  firstPosting_.reserve(words_.size() + 1);
  for (const Text& word : words_) {
    firstPosting_.push_back(postings_.size());
    const PageNumbers& pages = builder.pagesOf[word];
    postings_.insert(postings_.end(), pages.begin(), pages.end());
  }
  firstPosting_.push_back(postings_.size());
}

SearchIndex::PageNumbers SearchIndex::PagesOf(std::size_t first, std::size_t last) const {
  const auto begin = postings_.begin();
  const auto from = begin + static_cast<std::ptrdiff_t>(firstPosting_[first]);
  const auto to = begin + static_cast<std::ptrdiff_t>(firstPosting_[last]);
  if (last - first == 1) return {from, to};
  std::vector<bool> isThere(pages_.size());
  for (auto page = from; page != to; ++page) isThere[*page] = true;
  PageNumbers pages;
  for (std::size_t i = 0; i < isThere.size(); ++i) {
    if (isThere[i]) pages.push_back(static_cast<std::uint32_t>(i));
  }
  return pages;
}

SearchIndex::PageNumbers SearchIndex::PagesWith(const Text& word, bool isPrefix) const {
  const auto first = std::lower_bound(words_.begin(), words_.end(), word);
  auto last = first;
  if (isPrefix) {
    last = std::partition_point(first, words_.end(), [&word](const Text& other) { return other.starts_with(word); });
  } else if (last != words_.end() && *last == word) {
    ++last;
  }
  if (first == last) return {};
  return PagesOf(static_cast<std::size_t>(first - words_.begin()), static_cast<std::size_t>(last - words_.begin()));
}

std::vector<SearchRow> SearchIndex::Find(TextView query) const {
  const std::vector<Text> words = SearchWordsOf(query.substr(0, kLongestQuery));
  PageNumbers pages;
  for (std::size_t i = 0; i < words.size(); ++i) {
    PageNumbers with = PagesWith(words[i], i + 1 == words.size());
    if (i > 0) {
      PageNumbers both;
      std::set_intersection(pages.begin(), pages.end(), with.begin(), with.end(), std::back_inserter(both));
      with.swap(both);
    }
    pages.swap(with);
    if (pages.empty()) break;
  }
  std::vector<SearchRow> rows;
  rows.reserve(pages.size());
  for (const std::uint32_t page : pages) rows.push_back(pages_[page]);
  return rows;
}

bool ManualSearch::Begin(std::shared_ptr<const Manual> manual, std::function<void()> ready) {
  Drop();
  if (!manual) return false;
  job_ = worker_.Start([this, manual = std::move(manual), ready = std::move(ready)](Job& job) {
    auto index = SearchIndex::Build(*manual, [&job] { return job.IsCancelled(); });
    if (!index) return;
    // The step runs only as long as this object hasn't cancelled the job.
    job.Post([this, index = std::move(index), ready] {
      index_ = index;
      if (ready) ready();
    });
  });
  return job_ != 0;
}

void ManualSearch::Drop() {
  worker_.Cancel(std::exchange(job_, 0));
  index_.reset();
}

std::vector<SearchRow> ManualSearch::Find(TextView query) const {
  return index_ ? index_->Find(query) : std::vector<SearchRow>();
}

}  // namespace pnl
