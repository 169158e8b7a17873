// SPDX-License-Identifier: MIT
// Rows in little memory: what a plain vector would hold, in how many bytes.
#include "base/text_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <new>
#include <random>

#include "base/row_file.h"
#include "support/temp_folder.h"

namespace {

/// Bytes that this program holds, and the most that it held.
struct Held {
  std::size_t now = 0;
  std::size_t most = 0;
};
Held held;

void* Take(std::size_t size) {
  void* const block = std::malloc(size);
  if (block != nullptr) held.most = std::max(held.most, held.now += malloc_usable_size(block));
  return block;
}

void* TakeOrThrow(std::size_t size) {
  void* const block = Take(std::max<std::size_t>(size, 1));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Give(void* memory) {
  if (memory != nullptr) held.now -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

// Every allocation of this program is counted.
void* operator new(std::size_t size) { return TakeOrThrow(size); }
void* operator new[](std::size_t size) { return TakeOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void operator delete(void* memory) noexcept { Give(memory); }
void operator delete[](void* memory) noexcept { Give(memory); }
void operator delete(void* memory, std::size_t) noexcept { Give(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Give(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { Give(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { Give(memory); }

namespace pnl {
namespace {

using testing::ElementsAre;

std::vector<Text> AsVector(const TextRows& rows) { return {rows.begin(), rows.end()}; }

TEST(TextRowsTest, RowsComeOutAsTheyWentIn) {
  TextRows rows{u"a", u"", u"ñ€", TextView(u"n\0l", 3), u"two\r\nlines"};
  EXPECT_THAT(rows, ElementsAre(u"a", u"", u"ñ€", Text(u"n\0l", 3), u"two\r\nlines"));
  EXPECT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[2], u"ñ€");
  EXPECT_EQ(rows.TextBytes(), 1u + 0 + 5 + 3 + 10);
}

TEST(TextRowsTest, FindGivesTheFirstEqualRowAndNoneThatOnlyBeginsLikeIt) {
  const TextRows rows{u"ab", u"a", u"b", u"a"};
  EXPECT_EQ(rows.Find(u"a"), 1u);
  EXPECT_EQ(rows.Find(u"c"), std::nullopt);
  EXPECT_EQ(rows.Find(u""), std::nullopt);
}

TEST(TextRowsTest, PlacesThatAreNoRowsAreLeftAloneAndInsertingThereAppends) {
  TextRows rows{u"a"};
  rows.Replace(1, u"x");
  rows.Erase(1);
  EXPECT_THAT(rows, ElementsAre(u"a"));
  rows.Insert(7, u"b");
  EXPECT_THAT(rows, ElementsAre(u"a", u"b"));
}

TEST(TextRowsTest, ACopyIsNotChangedWithItsOriginal) {
  TextRows rows{u"a", u"b"};
  const TextRows copy = rows;
  rows.Replace(0, u"x");
  rows.push_back(u"c");
  rows.Erase(1);
  EXPECT_THAT(copy, ElementsAre(u"a", u"b"));
  EXPECT_THAT(rows, ElementsAre(u"x", u"c"));
  EXPECT_FALSE(copy == rows);
}

TEST(TextRowsTest, AnyRunOfChangesLeavesWhatAVectorWouldHold) {
  std::mt19937 random(7);
  for (int run = 0; run < 20; ++run) {
    std::vector<Text> plain;
    TextRows rows;
    for (int step = 0; step < 3000; ++step) {
      const Text text(random() % 40, static_cast<char16_t>(u'a' + random() % 26));
      const std::size_t at = random() % (plain.size() + 1);
      const auto place = static_cast<std::ptrdiff_t>(at);
      switch (random() % (run % 2 == 0 ? 5 : 4)) {
        case 0:
          plain.insert(plain.begin() + place, text);
          rows.Insert(at, text);
          break;
        case 1:
          plain.push_back(text);
          rows.push_back(text);
          break;
        case 2:
          plain.insert(plain.begin(), text);
          rows.push_front(text);
          break;
        case 3:
          if (at < plain.size()) plain[at] = text;
          rows.Replace(at, text);
          break;
        default:
          if (at < plain.size()) plain.erase(plain.begin() + place);
          rows.Erase(at);
      }
      ASSERT_EQ(rows.size(), plain.size());
      if (plain.empty()) continue;
      ASSERT_EQ(rows[at % plain.size()], plain[at % plain.size()]);
    }
    EXPECT_EQ(AsVector(rows), plain);
    std::size_t bytes = 0;
    for (const Text& text : plain) bytes += text.size();
    EXPECT_EQ(rows.TextBytes(), bytes);
  }
}

TEST(TextRowsTest, ALongRowStandsAmongShortOnes) {
  TextRows rows{u"a", u"b"};
  rows.Insert(1, Text(100000, u'x'));
  EXPECT_EQ(rows[0], u"a");
  EXPECT_EQ(rows[1].size(), 100000u);
  EXPECT_EQ(rows[2], u"b");
}

class RowMemory : public testing::Test {
 protected:
  RowMemory() { drives.Set('C', temp.Path().string()); }
  /// How many times the file's bytes are held at the most while it is read, shown and stored again.
  double Measure(const std::string& content) {
    temp.Write("rows", content);
    const Held before = held;
    held.most = held.now;
    {
      const RowsRead read = ReadRows(files, u"C:\\rows");
      EXPECT_EQ(read.known, FileKnown::kWhole);
      TextRows shown = read.rows;
      shown.Insert(0, u"one more");
      EXPECT_EQ(WriteRows(files, u"C:\\rows", shown), FileStatus::kOk);
    }
    return static_cast<double>(held.most - before.now) / static_cast<double>(content.size());
  }
  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
};

TEST_F(RowMemory, AFileOfLineFeedsCostsNoMoreThanThreeTimesItsSize) {
  // Each of them as a string of its own cost 65 times the file's size.
  EXPECT_LE(Measure(std::string(1u << 20, '\n')), 3);
  EXPECT_LE(Measure(std::string(1u << 20, '\r')), 3);
}

TEST_F(RowMemory, AFileOfBlocksCostsNoMoreThanThreeTimesItsSize) {
  std::string rows;
  for (int i = 0; rows.size() < (1u << 20); ++i) rows += "G1 X" + std::to_string(i) + " Y0\r\n";
  EXPECT_LE(Measure(rows), 3);
}

}  // namespace
}  // namespace pnl
