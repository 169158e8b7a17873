// SPDX-License-Identifier: MIT
// The documents of the PLC's messages: each message has its document in both languages, and there is one of every kind
// that the message view shows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "facade/mill/machine_descriptions.h"
#include "facade/mill/machine_messages.h"
#include "facade/utilities.h"
#include "share/manual_files.h"

namespace pnl::test {
namespace {

namespace fs = std::filesystem;

fs::path PlcFolder() { return fs::path(PNL_SOURCE_FOLDER) / "share" / "plc"; }

/// The file of that name for a language: its own, or the one without words that all share.
fs::path Document(const std::string& language, const std::string& name) {
  const fs::path own = PlcFolder() / language / name;
  return fs::exists(own) ? own : PlcFolder() / "common" / name;
}

class PlcDocuments : public ::testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Languages, PlcDocuments, ::testing::Values("en", "es"));

TEST_P(PlcDocuments, EveryMessageHasItsDocument) {
  for (const sim::PlcMessage& message : sim::PlcMessages()) {
    const auto reference = ParseHelpReference(message.document);
    const std::string name = ToUtf8(reference ? TextView(reference->file) : message.document);
    const std::string bytes = BytesOf(Document(GetParam(), name));
    EXPECT_FALSE(bytes.empty()) << name;
    if (!reference) continue;
    bool found = false;
    for (const auto& [number, text] : sim::ParseDescriptions(bytes)) found = found || number == reference->number;
    EXPECT_TRUE(found) << ToUtf8(message.document);
  }
}

TEST_P(PlcDocuments, ThePagesLeadOnlyToFilesOfTheirFolder) {
  int pages = 0;
  for (const fs::directory_entry& file : fs::directory_iterator(PlcFolder() / GetParam())) {
    if (!file.path().extension().string().starts_with(".htm")) continue;
    ++pages;
    const std::string text = BytesOf(file.path());
    EXPECT_NE(text.find(std::string("<html lang=\"") + GetParam() + "\">"), std::string::npos) << file.path();
    std::vector<std::string> targets = Between(text, " href=\"", "\"");
    for (const std::string& picture : Between(text, "<img src=\"", "\"")) targets.push_back(picture);
    for (const std::string& target : targets) {
      EXPECT_EQ(target.find_first_of("/\\:"), std::string::npos) << target;
      const std::string name = target.substr(0, target.find('#'));
      const std::string page = name.empty() ? text : BytesOf(Document(GetParam(), name));
      EXPECT_FALSE(page.empty()) << target;
      if (target.find('#') == std::string::npos) continue;
      EXPECT_THAT(Between(page, "<a name=\"", "\""), ::testing::Contains(target.substr(target.find('#') + 1)));
    }
  }
  EXPECT_EQ(pages, 3);
}

TEST(PlcDocumentsOfBothLanguages, HaveTheSameNamesAndNoneOfTheCommonOnes) {
  const auto names = [](const char* folder) {
    std::set<std::string> all;
    for (const fs::directory_entry& file : fs::directory_iterator(PlcFolder() / folder)) {
      all.insert(file.path().filename().string());
    }
    return all;
  };
  EXPECT_EQ(names("en"), names("es"));
  for (const std::string& name : names("common")) EXPECT_EQ(names("en").count(name), 0u) << name;
}

TEST(PlcDocumentsOfBothLanguages, AreOneOfEveryKind) {
  std::multiset<std::string> kinds;
  for (const sim::PlcMessage& message : sim::PlcMessages()) {
    kinds.insert(ToUtf8(message.document.substr(message.document.find(u'.') + 1)));
  }
  EXPECT_EQ(kinds, (std::multiset<std::string>{"avi", "bmp", "gif", "htm", "html", "jpg", "txt", "txt#1"}));
}

std::size_t Number32(const std::string& bytes, std::size_t at) {
  std::size_t number = 0;
  for (std::size_t i = 4; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes.at(at + i));
  return number;
}

TEST(PlcDocumentsOfBothLanguages, HaveAVideoOfSomeSecondsBelowAMegabyte) {
  const std::string video = BytesOf(PlcFolder() / "common" / "toolchange.avi");
  EXPECT_LT(video.size(), 1u << 20);
  ASSERT_GT(video.size(), 256u);
  EXPECT_EQ(video.substr(0, 4) + video.substr(8, 4), "RIFFAVI ");
  EXPECT_EQ(Number32(video, 4) + 8, video.size());
  const std::size_t header = video.find("avih") + 8;
  const std::size_t frames = Number32(video, header + 16);
  const std::size_t microseconds = Number32(video, header) * frames;
  EXPECT_GE(microseconds, 3'000'000u);
  EXPECT_LE(microseconds, 10'000'000u);
  // Every entry of the index leads to a picture.
  const std::size_t movie = video.find("movi");
  const std::size_t index = video.rfind("idx1");
  ASSERT_EQ(Number32(video, index + 4), frames * 16);
  for (std::size_t frame = 0; frame < frames; ++frame) {
    const std::size_t at = movie + Number32(video, index + 8 + frame * 16 + 8);
    EXPECT_EQ(video.substr(at, 4), "00dc");
    EXPECT_EQ(video.substr(at + 8, 3), "\xFF\xD8\xFF");
    EXPECT_EQ(video.substr(at + 8 + Number32(video, at + 4) - 2, 2), "\xFF\xD9");
  }
}

}  // namespace
}  // namespace pnl::test
