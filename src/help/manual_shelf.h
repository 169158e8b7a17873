// SPDX-License-Identifier: MIT
// The real manuals for the viewer's seam: unpacked by the cache, read and searched by help/manual. ManualPages gives
// their pages to the page view, in UTF-8 whatever their code page, and knows how links are written in manuals.
#pragma once

#include <memory>
#include <string>

#include "base/files.h"
#include "help/help_books.h"

namespace pnl {

class ManualPages final : public PageSource {
 public:
  /// name is the manual's file name.
  ManualPages(std::shared_ptr<const Manual> manual, Text name) : manual_(std::move(manual)), name_(std::move(name)) {}

 protected:
  /// A reference with a slash or a backslash, or with "its:", "ms-its:" or the like and the name of this manual, leads
  /// to a page if the manual has it. All else is refused as in any document.
  [[nodiscard]] PageAddress AddressOf(TextView page, TextView reference) const override;
  PageBytes Load(TextView page) override;

 private:
  const std::shared_ptr<const Manual> manual_;
  const Text name_;
};

class ManualBook final : public HelpBook {
 public:
  ManualBook(Worker& worker, std::shared_ptr<const Manual> manual, Text name)
      : manual_(std::move(manual)), pages_(std::make_shared<ManualPages>(manual_, std::move(name))), search_(worker) {}

  [[nodiscard]] const Text& Title() const override { return manual_->Title(); }
  [[nodiscard]] const Text& Home() const override { return manual_->Home(); }
  [[nodiscard]] const std::vector<ManualTopic>& Contents() const override { return manual_->Contents(); }
  [[nodiscard]] const std::vector<ManualWord>& Index() const override { return manual_->Index(); }
  [[nodiscard]] Text TitleOf(TextView page) const override { return manual_->ContentsTitleOf(page); }
  [[nodiscard]] Text PageOf(TextView name) const override { return manual_->Resolve({}, name).page; }
  [[nodiscard]] std::shared_ptr<PageSource> Pages() const override { return pages_; }
  bool BeginSearch(std::function<void()> ready) override { return search_.Begin(manual_, std::move(ready)); }
  [[nodiscard]] bool CanSearch() const override { return search_.IsReady(); }
  [[nodiscard]] std::vector<SearchRow> Find(TextView query) const override { return search_.Find(query); }

 private:
  const std::shared_ptr<const Manual> manual_;
  const std::shared_ptr<ManualPages> pages_;
  ManualSearch search_;
};

class ManualShelf final : public HelpShelf {
 public:
  ManualShelf(Worker& worker, const Files& files, std::shared_ptr<const ManualCache> cache)
      : worker_(worker), files_(files), opener_(worker, std::move(cache)) {}
  /// A path that leads to no drive of this machine can't be started.
  [[nodiscard]] bool Open(TextView manual, std::function<void(const OpenedBook&)> done) override;
  void Drop() override { opener_.Drop(); }

 private:
  Worker& worker_;
  const Files& files_;
  ManualOpener opener_;
};

/// The shelf of a program that was loaded from that file: the cache is among the user's data (XDG_CACHE_HOME, HOME),
/// and what unpacks manuals beside the file.
[[nodiscard]] std::unique_ptr<HelpShelf> MakeManualShelf(Worker& worker, const Files& files,
                                                         const std::string& libraryFile);

}  // namespace pnl
