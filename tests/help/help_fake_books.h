// SPDX-License-Identifier: MIT
// Manuals in memory, and a shelf that may be slow, for tests of the help viewer with and without its window.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "help/help_books.h"
#include "help/help_rows.h"
#include "support/noting_host.h"

namespace pnl::test {

/// Pages in memory.
class MemoryPages final : public PageSource {
 public:
  std::map<Text, std::string> texts{
      {u"home.htm",
       "<html><body><h1>Operating</h1><p>Welcome to the panel.</p><a href=\"start.htm\">Start</a></body></html>"},
      {u"mdi.htm",
       "<html><body><h1>Command line</h1><a name=\"OPT0130\"></a><p>Type a block. An axis moves.</p></body></html>"},
      {u"start.htm", "<html><body><h1>Starting</h1><p>Switch on.</p></body></html>"}};

 protected:
  PageBytes Load(TextView page) override {
    const auto known = texts.find(Text(page));
    if (known == texts.end()) return {PageRefusal::kNotFound, {}};
    return {PageRefusal::kNone, known->second};
  }
};

/// A manual in memory.
class FakeBook final : public HelpBook {
 public:
  Text title = u"Operating";
  Text home = u"home.htm";
  std::vector<Text> pages{u"home.htm", u"mdi.htm", u"start.htm"};
  std::vector<ManualTopic> contents{{u"Operating", {u"home.htm", u""}, 0},
                                    {u"Command line", {u"mdi.htm", u""}, 1},
                                    {u"Blocks", {u"mdi.htm", u"OPT0130"}, 2},
                                    {u"Starting", {u"start.htm", u""}, 1}};
  std::vector<ManualWord> index{{u"block", 0, {{u"Command line", {u"mdi.htm", u""}, 0}}},
                                {u"start", 0, {{u"Starting", {u"start.htm", u""}, 0}, {u"Key", {u"mdi.htm", u"K"}, 0}}},
                                {u"words", 0, {}}};
  std::map<Text, std::vector<SearchRow>> found;
  bool slowSearch = false;
  bool searchRefuses = false;
  std::function<void()> ready;  // of a slow search

  [[nodiscard]] const Text& Title() const override { return title; }
  [[nodiscard]] const Text& Home() const override { return home; }
  [[nodiscard]] const std::vector<ManualTopic>& Contents() const override { return contents; }
  [[nodiscard]] const std::vector<ManualWord>& Index() const override { return index; }
  [[nodiscard]] Text TitleOf(TextView page) const override {
    const int row = ContentsRowOf(ContentsRows(contents), page, {});
    return row < 0 ? Text() : contents[static_cast<std::size_t>(row)].title;
  }
  [[nodiscard]] Text PageOf(TextView name) const override {
    const auto known =
        std::find_if(pages.begin(), pages.end(), [&](const Text& each) { return EqualNoCase(each, name); });
    return known == pages.end() ? Text() : *known;
  }
  [[nodiscard]] std::shared_ptr<PageSource> Pages() const override { return source_; }
  bool BeginSearch(std::function<void()> whenReady) override {
    if (searchRefuses) return false;
    if (slowSearch) {
      ready = std::move(whenReady);
    } else {
      searchable = true;
      whenReady();
    }
    return true;
  }
  [[nodiscard]] bool CanSearch() const override { return searchable; }
  [[nodiscard]] std::vector<SearchRow> Find(TextView query) const override {
    const auto rows = found.find(Text(query));
    return searchable && rows != found.end() ? rows->second : std::vector<SearchRow>();
  }

  bool searchable = false;

 private:
  std::shared_ptr<MemoryPages> source_ = std::make_shared<MemoryPages>();
};

/// Opens what the test put on it: at once, or when the test says so.
class FakeShelf final : public HelpShelf {
 public:
  /// What the shelf has; it outlives the tools.
  struct World {
    std::map<std::string, OpenedBook> books;  // by path; others are kMissing
    bool slow = false;
    bool refuses = false;
    std::function<void(const OpenedBook&)> done;  // of a slow one
    std::string asked;
    int drops = 0;
  };
  FakeShelf(World& world, Log& log) : world_(world), log_(log) {}
  bool Open(TextView manual, std::function<void(const OpenedBook&)> done) override {
    world_.asked = ToUtf8(manual);
    log_.push_back("open " + world_.asked);
    if (world_.refuses) return false;
    if (world_.slow) {
      world_.done = std::move(done);
      return true;
    }
    done(Answer(world_.asked));
    return true;
  }
  void Drop() override { ++world_.drops, world_.done = nullptr; }
  [[nodiscard]] OpenedBook Answer(const std::string& path) const {
    const auto known = world_.books.find(path);
    return known == world_.books.end() ? OpenedBook() : known->second;
  }

 private:
  World& world_;
  Log& log_;
};

}  // namespace pnl::test
