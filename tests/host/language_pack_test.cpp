// SPDX-License-Identifier: MIT
#include "host/language_pack.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

PackContents Sample() {
  PackContents contents;
  contents.texts = {{7, u"End edit"}, {9, u"The file %s\ncannot be written"}, {57356, u"Error en el eje Ñ"}, {8, u""}};
  LanguagePack::MenuNode node;
  node.item.id = 40003;
  node.item.text = u"Move up";
  node.item.helper = u"MDA1";
  node.item.bitmap = 3019;
  node.item.enabled = false;
  node.item.checked = true;
  node.item.hidden = true;
  LanguagePack::MenuNode child;
  child.item.id = -5;
  child.item.text = u"Inner";
  node.children = {child};
  contents.menus[u"IDR_MDAMENU"] = {node, child};
  DialogTemplate dialog;
  dialog.id = 3004;
  dialog.width = 267;
  dialog.height = 18;
  dialog.controls = {{5000, u"edit", u"", {43, 1, 246, 19}}, {3003, u"static", u"MORE!", {-1, 1, 266, 19}}};
  contents.dialogs[3004] = dialog;
  contents.bitmaps = {{3017, "<svg/>"}, {3019, std::string("\0\xff", 2)}};
  return contents;
}

std::size_t EntriesOf(const LanguagePack& pack) {
  std::size_t count = 0;
  for (const int id : {7, 8, 9, 57356}) count += pack.FindText(id) != nullptr ? 1 : 0;
  for (const int id : {3017, 3019}) count += pack.FindBitmap(id) != nullptr ? 1 : 0;
  count += pack.FindMenuNodes(u"IDR_MDAMENU") != nullptr ? 1 : 0;
  count += pack.FindDialog(3004) != nullptr ? 1 : 0;
  return count;
}
constexpr std::size_t kSampleEntries = 8;

TEST(LanguagePack, WhatWasWrittenReadsBackWhole) {
  LanguagePack pack;
  ASSERT_TRUE(pack.Parse(BuildPack(Sample())));
  EXPECT_EQ(*pack.FindText(7), u"End edit");
  EXPECT_EQ(*pack.FindText(8), u"");
  EXPECT_EQ(*pack.FindText(9), u"The file %s\ncannot be written");
  EXPECT_EQ(*pack.FindText(57356), u"Error en el eje Ñ");
  EXPECT_EQ(pack.FindText(1), nullptr);
  const auto* nodes = pack.FindMenuNodes(u"IDR_MDAMENU");
  ASSERT_EQ(nodes->size(), 2u);
  const MenuItem& item = nodes->at(0).item;
  EXPECT_EQ(item.id, 40003);
  EXPECT_EQ(item.text, u"Move up");
  EXPECT_EQ(item.helper, u"MDA1");
  EXPECT_EQ(item.bitmap, 3019);
  EXPECT_FALSE(item.enabled);
  EXPECT_TRUE(item.checked);
  EXPECT_TRUE(item.hidden);
  const MenuItem& inner = nodes->at(0).children.at(0).item;
  EXPECT_EQ(inner.id, -5);
  EXPECT_EQ(inner.text, u"Inner");
  EXPECT_TRUE(inner.enabled);
  EXPECT_FALSE(inner.checked);
  EXPECT_FALSE(inner.hidden);
  EXPECT_TRUE(nodes->at(1).children.empty());
  EXPECT_EQ(pack.FindMenuNodes(u"3015"), nullptr);
  EXPECT_EQ(*pack.FindBitmap(3019), std::string("\0\xff", 2));
  EXPECT_EQ(pack.FindBitmap(1), nullptr);
}

TEST(LanguagePack, ADialogHasItsSizeAndItsControlsByNumber) {
  LanguagePack pack;
  ASSERT_TRUE(pack.Parse(BuildPack(Sample())));
  const DialogTemplate* dialog = pack.FindDialog(3004);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->id, 3004);
  EXPECT_EQ(dialog->width, 267);
  EXPECT_EQ(dialog->height, 18);
  ASSERT_NE(dialog->Find(3003), nullptr);
  EXPECT_EQ(dialog->Find(3003)->text, u"MORE!");
  EXPECT_EQ(dialog->Find(3003)->kind, u"static");
  EXPECT_EQ(dialog->Find(3003)->rect, (Rect{-1, 1, 266, 19}));
  EXPECT_EQ(dialog->Find(1), nullptr);
  EXPECT_EQ(pack.FindDialog(1), nullptr);
}

struct NoPack {
  const char* what;
  std::string bytes;
};

TEST(LanguagePack, WhatIsNoPackIsRefusedAndLeavesItEmpty) {
  std::string otherVersion = BuildPack(Sample());
  otherVersion[8] = 2;
  std::string wrongHeaderSum = BuildPack(Sample());
  wrongHeaderSum[20] = static_cast<char>(wrongHeaderSum[20] ^ 1);
  const NoPack cases[] = {{"nothing", ""},
                          {"text", "not a language pack at all, but long enough to be one"},
                          {"a lone magic word", std::string(pack_format::kMagic)},
                          {"half a header", BuildPack(Sample()).substr(0, 23)},
                          {"another version", otherVersion},
                          {"a damaged header", wrongHeaderSum}};
  for (const NoPack& row : cases) {
    LanguagePack pack;
    ASSERT_TRUE(pack.Parse(BuildPack(Sample())));
    EXPECT_FALSE(pack.Parse(row.bytes)) << row.what;
    EXPECT_EQ(EntriesOf(pack), 0u) << row.what;
  }
}

TEST(LanguagePack, ADamagedByteCostsAtMostTheEntriesItMakesUnreadable) {
  const std::string whole = BuildPack(Sample());
  for (std::size_t i = pack_format::kHeaderSize; i < whole.size(); ++i) {
    std::string damaged = whole;
    damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
    LanguagePack pack;
    EXPECT_TRUE(pack.Parse(damaged)) << i;
    EXPECT_LT(EntriesOf(pack), kSampleEntries) << "byte " << i << " isn't checked";
  }
}

TEST(LanguagePack, ADamagedPayloadLeavesAllOtherEntries) {
  std::string damaged = BuildPack(Sample());
  damaged[damaged.find("End edit")] = 'X';
  LanguagePack pack;
  EXPECT_TRUE(pack.Parse(damaged));
  EXPECT_EQ(pack.FindText(7), nullptr);
  EXPECT_EQ(EntriesOf(pack), kSampleEntries - 1);
}

TEST(LanguagePack, AFileCutShortGivesItsWholeEntries) {
  const std::string whole = BuildPack(Sample());
  std::size_t last = 0;
  for (std::size_t size = pack_format::kHeaderSize; size <= whole.size(); ++size) {
    LanguagePack pack;
    EXPECT_TRUE(pack.Parse(std::string_view(whole).substr(0, size)));
    EXPECT_GE(EntriesOf(pack), last);
    last = EntriesOf(pack);
  }
  EXPECT_EQ(last, kSampleEntries);
}

/// The payload of the menu "m": so many items, each in the sub-menu of the one before.
std::string MenuOfDepth(int depth) {
  LanguagePack::MenuNode node;
  for (int i = 1; i < depth; ++i) {
    LanguagePack::MenuNode outer;
    outer.children = {node};
    node = outer;
  }
  PackContents contents;
  contents.menus[u"m"] = {node};
  return BuildPack(contents);
}

TEST(LanguagePack, AMenuIsReadDownToItsEighthSubMenuAndADeeperOneIsLeftOut) {
  const struct {
    int depth;
    bool read;
  } rows[] = {{1, true}, {8, true}, {9, false}, {10, false}, {1000, false}};
  for (const auto& row : rows) {
    LanguagePack pack;
    ASSERT_TRUE(pack.Parse(MenuOfDepth(row.depth))) << row.depth;
    EXPECT_EQ(pack.FindMenuNodes(u"m") != nullptr, row.read) << row.depth;
  }
}

struct PayloadCase {
  const char* what;
  std::uint32_t kind;
  std::string payload;
};

std::string Numbers(std::initializer_list<std::uint32_t> values) {
  std::string out;
  for (const std::uint32_t value : values) pack_format::PutNumber(out, value);
  return out;
}

TEST(LanguagePack, PayloadsThatLieAboutTheirCountsAreLeftOut) {
  std::string deep;
  for (int i = 0; i < 1000; ++i) deep += Numbers({1, 1, 1, 0, 0, 0});
  deep += Numbers({0});
  const std::string name = Numbers({1}) + "m";
  const PayloadCase cases[] = {
      {"a menu of four billion items", pack_format::kMenu, name + Numbers({0xFFFFFFFF})},
      {"a name longer than the entry", pack_format::kMenu, Numbers({0xFFFFFFFF})},
      {"menus nested a thousand deep", pack_format::kMenu, name + deep},
      {"bytes behind the menu", pack_format::kMenu, name + Numbers({0}) + "x"},
      {"a dialog of four billion controls", pack_format::kDialog, Numbers({1, 1, 0xFFFFFFFF})},
      {"an empty dialog entry", pack_format::kDialog, ""},
      {"bytes behind a dialog without controls", pack_format::kDialog, Numbers({1, 1, 0}) + "x"},
      {"a kind of a later version", 99, "whatever"},
  };
  for (const PayloadCase& row : cases) {
    LanguagePack pack;
    const std::string entries = pack_format::Entry(row.kind, 5, row.payload) + pack_format::Entry(1, 6, "still here");
    EXPECT_TRUE(pack.Parse(pack_format::File(entries, 2))) << row.what;
    EXPECT_EQ(pack.FindMenuNodes(u"m"), nullptr) << row.what;
    EXPECT_EQ(pack.FindDialog(5), nullptr) << row.what;
    ASSERT_NE(pack.FindText(6), nullptr) << row.what;
  }
}

TEST(LanguagePack, TheChecksumIsTheOneOfZipFiles) { EXPECT_EQ(pack_format::Checksum("123456789"), 0xCBF43926u); }

std::string Header(std::uint32_t version) {
  std::string header(pack_format::kMagic);
  for (const std::uint32_t value : {version, 24u, 0u}) pack_format::PutNumber(header, value);
  pack_format::PutNumber(header, pack_format::Checksum(header));
  return header;
}

TEST(LanguagePack, AWholeHeaderOfAnotherVersionIsRefused) {
  LanguagePack pack;
  EXPECT_TRUE(pack.Parse(Header(1)));
  for (const std::uint32_t version : {0u, 2u, 0x01000000u}) EXPECT_FALSE(pack.Parse(Header(version))) << version;
}

TEST(LanguagePack, TheHeaderTellsVersionSizeAndCount) {
  const std::string bytes = BuildPack(Sample());
  std::string expected("PNLLANG\x1a");
  for (const std::size_t value : {std::size_t{1}, bytes.size(), kSampleEntries}) {
    pack_format::PutNumber(expected, static_cast<std::uint32_t>(value));
  }
  EXPECT_EQ(bytes.substr(0, 20), expected);
  EXPECT_EQ(pack_format::File("", 0), Header(1));
}

TEST(LanguagePack, AnEntryIsItsHeadAndItsPayload) {
  // A text with the number 0x01020304 and the payload "ab"; the checksum is that of what comes before it and of "ab".
  std::string head("\x01\0\0\0\x04\x03\x02\x01\x02\0\0\0", 12);
  std::string expected = head;
  pack_format::PutNumber(expected, pack_format::Checksum(head + "ab"));
  EXPECT_EQ(pack_format::Entry(pack_format::kText, 0x01020304, "ab"), expected + "ab");
}

TEST(LanguagePack, TheKindsHaveTheirNumbers) {
  EXPECT_EQ(pack_format::kText, 1u);
  EXPECT_EQ(pack_format::kMenu, 2u);
  EXPECT_EQ(pack_format::kDialog, 3u);
  EXPECT_EQ(pack_format::kBitmap, 4u);
}

}  // namespace
}  // namespace pnl
