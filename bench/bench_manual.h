// SPDX-License-Identifier: MIT
// A compiled manual for the benchmarks: pages of 600 words, with contents and an index. It isn't compressed.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "support/chm_writer.h"

/// Words as a language has them: a few often, most seldom.
class BenchWords {
 public:
  BenchWords() {
    for (int i = 0; i < 8'000; ++i) {
      std::string word;
      for (unsigned syllables = 1 + random_() % 4; syllables > 0; --syllables) word += kSyllables[random_() % 16];
      words_.push_back(word);
    }
  }
  std::string Page(int number) {
    std::string page = "<html><head><title>Page " + std::to_string(number) + "</title></head><body>";
    for (int i = 0; i < 600; ++i) page += Next() + (i % 12 == 11 ? "</p>\n<p>" : " ");
    return page + "</body></html>";
  }
  [[nodiscard]] const std::string& Next() {
    const double place = static_cast<double>(random_() % 1'000'000) / 1e6;
    return words_[static_cast<std::size_t>(place * place * place * 7'999)];
  }

 private:
  static constexpr const char* kSyllables[] = {"ma",  "qui", "na", "hu", "si",  "llo", "ta", "la",
                                               "dro", "fre", "sa", "do", "per", "fo",  "ra", "ci\xC3\xB3n"};
  std::mt19937 random_{1};
  std::vector<std::string> words_;
};

inline std::string BenchPageName(int number) { return "page" + std::to_string(10'000 + number) + ".htm"; }

inline std::string BenchSitemapLine(const std::string& name, const std::string& page) {
  return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name +
         "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>\n";
}

/// Chapters of twenty pages in the contents, two words for each page in the index.
inline std::string BenchManual(int pages) {
  BenchWords words;
  pnl::test::ChmWriter writer;
  std::string contents = "<UL>\n";
  std::string index = "<UL>\n";
  writer.AddSystem("Bench", BenchPageName(0), "toc.hhc", "words.hhk", 0x0C0A);
  for (int i = 0; i < pages; ++i) {
    const std::string name = BenchPageName(i);
    writer.Add("/" + name, words.Page(i));
    if (i % 20 == 0) contents += (i > 0 ? "</UL>\n" : "") + BenchSitemapLine("Chapter", name) + "<UL>\n";
    contents += BenchSitemapLine("Page " + std::to_string(i), name);
    for (int word = 0; word < 2; ++word) index += BenchSitemapLine(words.Next() + std::to_string(i), name);
  }
  writer.Add("/toc.hhc", contents + "</UL></UL>").Add("/words.hhk", index + "</UL>");
  return writer.SortedBytes();
}
