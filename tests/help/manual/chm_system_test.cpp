// SPDX-License-Identifier: MIT
#include "help/manual/chm_system.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

std::string Entry(int code, const std::string& data) {
  const auto low = static_cast<char>(data.size() & 0xFF);
  const auto high = static_cast<char>(data.size() >> 8);
  return std::string{static_cast<char>(code), '\0', low, high} + data;
}

std::string Zero(const std::string& text) { return text + '\0'; }

const std::string kVersion("\3\0\0\0", 4);

TEST(ChmSystem, EachEntryCounts) {
  const ChmSystem system = ParseChmSystem(
      kVersion + Entry(10, "time") + Entry(0, Zero("toc.hhc")) + Entry(1, Zero("words.hhk")) + Entry(2, Zero("a.htm")) +
      Entry(3, Zero("T\xEDtulo")) + Entry(4, std::string("\x0A\x0C\0\0more", 8)) + Entry(9, Zero("compiler")));
  EXPECT_EQ(system.contents, "toc.hhc");
  EXPECT_EQ(system.index, "words.hhk");
  EXPECT_EQ(system.page, "a.htm");
  EXPECT_EQ(system.title, "T\xEDtulo");
  EXPECT_EQ(system.language, 0x0C0Au);
}

TEST(ChmSystem, TheFirstEntryThatIsntEmptyCounts) {
  const ChmSystem system =
      ParseChmSystem(kVersion + Entry(3, Zero("")) + Entry(3, Zero("first")) + Entry(3, Zero("second")));
  EXPECT_EQ(system.title, "first");
}

TEST(ChmSystem, ATextWithoutItsEndIsThatOfTheEntry) {
  EXPECT_EQ(ParseChmSystem(kVersion + Entry(3, "title") + Entry(2, Zero("a"))).title, "title");
}

TEST(ChmSystem, WhatIsCutOffCountsAsFarAsItGoes) {
  const std::string whole = kVersion + Entry(3, Zero("title")) + Entry(4, std::string("\x0A\x0C\0\0", 4));
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const ChmSystem system = ParseChmSystem(std::string_view(whole).substr(0, size));
    const std::string expected = std::string("title").substr(0, size < 8 ? 0 : size - 8);
    EXPECT_EQ(system.title, expected) << size;
  }
  EXPECT_EQ(ParseChmSystem(std::string_view(whole).substr(0, whole.size() - 3)).language, 0x0Au);
}

}  // namespace
}  // namespace pnl
