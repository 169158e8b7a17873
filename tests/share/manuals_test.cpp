// SPDX-License-Identifier: MIT
// The manuals fit together: the compiled ones are those of the pages, both languages have the same, every link, mark
// and entry leads to a page that is there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/files.h"
#include "base/format.h"
#include "base/ini_file.h"
#include "facade/mill/machine_descriptions.h"
#include "facade/mill/machine_errors.h"
#include "facade/mill/machine_marks.h"
#include "facade/mill/machine_raised.h"
#include "mdi/mdi_data.h"
#include "share/manual_files.h"
#include "zmc/zmc_ids.h"

namespace pnl::test {
namespace {

using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
namespace fs = std::filesystem;

constexpr const char* kLanguages[] = {"en", "es"};
constexpr const char* kKeys[] = {"OPT", "PRG", "ERR"};

class EveryManual : public ::testing::TestWithParam<ManualFiles> {};
INSTANTIATE_TEST_SUITE_P(Manuals, EveryManual, ::testing::ValuesIn(AllManuals()),
                         [](const auto& row) { return row.param.language + "_" + row.param.name; });

std::string WithoutZeros(std::string text) { return text.substr(0, text.find('\0')); }

/// The marks of a page: the names of its anchors.
std::vector<std::string> Anchors(std::string_view page) { return Between(page, "<a name=\"", "\""); }

TEST_P(EveryManual, CompiledHasItsSourcesByteForByte) {
  const CompiledManual compiled = ReadCompiled(GetParam().Compiled());
  std::map<std::string, std::string> sources = GetParam().Pages();
  sources["manual.css"] = BytesOf(ManualsFolder() / "manual.css");
  for (const char* name : {"contents.hhc", "index.hhk"}) sources[name] = BytesOf(GetParam().Folder() / name);
  for (const auto& [name, bytes] : sources) {
    const auto found = compiled.files.find(name);
    if (found == compiled.files.end()) {
      ADD_FAILURE() << name << " is not in the compiled manual; scripts/make_manuals makes it again";
    } else {
      EXPECT_TRUE(found->second == bytes) << name << " has changed; scripts/make_manuals makes the manual again";
    }
  }
  EXPECT_EQ(compiled.files.size(), sources.size());
}

TEST_P(EveryManual, CompiledSaysItsLanguageTitleAndPlaces) {
  const CompiledManual compiled = ReadCompiled(GetParam().Compiled());
  const bool spanish = GetParam().language == "es";
  ASSERT_EQ(compiled.system.count(4), 1u);
  EXPECT_EQ(compiled.system.at(4).substr(0, 4),
            spanish ? std::string("\x0A\x0C\0\0", 4) : std::string("\x09\x04\0\0", 4));
  EXPECT_EQ(WithoutZeros(compiled.system.at(0)), "contents.hhc");
  EXPECT_EQ(WithoutZeros(compiled.system.at(1)), "index.hhk");
  EXPECT_EQ(WithoutZeros(compiled.system.at(2)), "index.html");
  // In the code page of the language.
  if (GetParam().name == "programming" && spanish) {
    EXPECT_EQ(WithoutZeros(compiled.system.at(3)), "Programaci\xF3n de la fresadora de demostraci\xF3n");
  }
  EXPECT_FALSE(WithoutZeros(compiled.system.at(3)).empty());
}

TEST_P(EveryManual, HasTheSamePagesAndMarksInBothLanguages) {
  const ManualFiles other{GetParam().language == "en" ? "es" : "en", GetParam().name};
  const auto own = GetParam().Pages();
  const auto others = other.Pages();
  for (const auto& [name, text] : own) {
    const auto found = others.find(name);
    ASSERT_NE(found, others.end()) << name;
    EXPECT_EQ(Anchors(text), Anchors(found->second)) << name;
    EXPECT_EQ(Between(text, " href=\"", "\""), Between(found->second, " href=\"", "\"")) << name;
    EXPECT_NE(text, found->second) << name;
  }
  EXPECT_GE(own.size(), 25u);
  EXPECT_EQ(BytesOf(GetParam().Marks()), BytesOf(other.Marks()));
}

TEST_P(EveryManual, HasPagesInUtf8ThatSaySo) {
  for (const auto& [name, text] : GetParam().Pages()) {
    EXPECT_EQ(ToUtf8(FromUtf8(text)), text) << name;
    EXPECT_NE(text.find("charset=utf-8"), std::string::npos) << name;
    EXPECT_NE(text.find("<html lang=\"" + GetParam().language + "\">"), std::string::npos) << name;
    EXPECT_EQ(Between(text, "<title>", "</title>"), Between(text, "<h1>", "</h1>")) << name;
  }
}

TEST_P(EveryManual, HasLinksOnlyToPagesAndAnchorsThatAreThere) {
  const auto pages = GetParam().Pages();
  for (const auto& [name, text] : pages) {
    for (const std::string& link : Between(text, " href=\"", "\"")) {
      if (link == "manual.css") continue;
      const std::string target = link.substr(0, link.find('#'));
      const auto page = pages.find(target.empty() ? name : target);
      ASSERT_NE(page, pages.end()) << name << " leads to " << link;
      if (link.find('#') == std::string::npos) continue;
      EXPECT_THAT(Anchors(page->second), ::testing::Contains(link.substr(link.find('#') + 1))) << name;
    }
    EXPECT_THAT(Between(text, "src=\"", "\""), IsEmpty()) << name << ": no manual has pictures";
  }
}

TEST_P(EveryManual, HasEveryPageOnceInItsContentsAndInItsIndex) {
  const auto pages = GetParam().Pages();
  std::set<std::string> names;
  for (const auto& page : pages) names.insert(page.first);
  const std::vector<std::string> contents =
      Between(BytesOf(GetParam().Folder() / "contents.hhc"), "name=\"Local\" value=\"", "\"");
  EXPECT_EQ(std::set<std::string>(contents.begin(), contents.end()), names);
  EXPECT_EQ(contents.size(), names.size());
  const std::vector<std::string> index =
      Between(BytesOf(GetParam().Folder() / "index.hhk"), "name=\"Local\" value=\"", "\"");
  EXPECT_EQ(std::set<std::string>(index.begin(), index.end()), names);
}

TEST_P(EveryManual, HasTheTitlesOfItsPagesInItsContents) {
  const std::string contents = BytesOf(GetParam().Folder() / "contents.hhc");
  for (const auto& [name, text] : GetParam().Pages()) {
    const Text title = FromUtf8(Between(text, "<title>", "</title>").at(0));
    // In the code page of the language, which has these characters at their own numbers.
    const std::string entry(title.begin(), title.end());
    EXPECT_NE(contents.find("value=\"" + entry + "\"><param name=\"Local\" value=\"" + name + "\""), std::string::npos)
        << name;
  }
}

/// The indexes of one language, read as the help viewer reads them.
class ManualIndexes : public ::testing::TestWithParam<const char*> {
 protected:
  ManualIndexes() {
    drives_.Set('C', (ManualsFolder() / GetParam()).string());
    helps_.ReadIniFile(u"C:\\Cnc7340.helps");
  }
  /// The page of a mark, with the manual's name before it; empty when the mark leads nowhere.
  std::string PageOf(const std::string& mark) {
    const Text manual = helps_.ReadString(u"MANUALS", FromUtf8(mark.substr(0, 3)), u"");
    if (manual.size() <= 4 || !fs::exists(ManualsFolder() / GetParam() / ToUtf8(manual))) return {};
    const Text name = manual.substr(0, manual.size() - 4);
    CIniFile marks(files_);
    if (!marks.ReadIniFile(u"C:\\" + name + u".mrk")) return {};
    const Text page = marks.ReadString(u"MARKS", FromUtf8(mark), u"");
    return page.empty() ? std::string() : ToUtf8(name) + "/" + ToUtf8(page);
  }
  std::vector<std::string> MarksOf(const std::string& page) {
    return Anchors(BytesOf(ManualsFolder() / GetParam() / page));
  }

  DriveMap drives_;
  DiscFiles files_{drives_};
  CIniFile helps_{files_};
};
INSTANTIATE_TEST_SUITE_P(Languages, ManualIndexes, ::testing::ValuesIn(kLanguages));

/// The marks that the panel writes for tools that have none. They are read from its source, because the panel isn't
/// linked here.
std::vector<std::string> MarksOfThePanel() {
  const fs::path source = fs::path(PNL_SOURCE_FOLDER) / "panel" / "host" / "help_desk.cpp";
  std::vector<std::string> marks;
  for (const std::string& number : Between(BytesOf(source), "u\"OPT", "\"")) marks.push_back("OPT" + number);
  EXPECT_EQ(marks.size(), 5u);
  return marks;
}

/// Every mark that the tools, the panel and the machine can ask for, and the fallback of each manual.
std::vector<std::string> MarksThatAreEmitted() {
  std::vector<std::string> marks = MarksOfThePanel();
  for (const TextView mark : {kMdiHelpMark, kZmcHelpMark}) marks.push_back(ToUtf8(mark));
  for (const sim::WordMark& row : sim::WordMarks()) marks.push_back(ToUtf8(row.mark));
  for (const sim::FaultText& row : sim::FaultTexts()) marks.push_back("ERR" + std::to_string(row.number));
  for (const sim::TableText& row : sim::RaisedTexts()) {
    if (row.description != 0) marks.push_back("ERR" + std::to_string(row.description));
  }
  for (const char* key : kKeys) marks.push_back(std::string(key) + "0000");
  return marks;
}

TEST_P(ManualIndexes, LeadEveryMarkThatIsEmittedToAPageWithThatAnchor) {
  const std::vector<std::string> marks = MarksThatAreEmitted();
  EXPECT_GT(marks.size(), 90u);
  for (const std::string& mark : marks) {
    const std::string page = PageOf(mark);
    ASSERT_NE(page, "") << mark;
    EXPECT_THAT(MarksOf(page), ::testing::Contains(mark)) << page;
  }
}

TEST_P(ManualIndexes, LeadEveryMarkThatTheyHaveToAPageWithThatAnchor) {
  for (const ManualFiles& manual : AllManuals()) {
    if (manual.language != GetParam()) continue;
    CIniFile marks(files_);
    marks.Parse(BytesOf(manual.Marks()));
    for (const Text& mark : marks.GetKeyNames(u"MARKS")) {
      const std::string page = PageOf(ToUtf8(mark));
      EXPECT_EQ(page.substr(0, page.find('/')), manual.name) << ToUtf8(mark);
      EXPECT_THAT(MarksOf(page), ::testing::Contains(ToUtf8(mark))) << page;
    }
  }
}

TEST_P(ManualIndexes, HaveAMarkForEveryAnchor) {
  for (const ManualFiles& manual : AllManuals()) {
    if (manual.language != GetParam()) continue;
    for (const auto& [name, text] : manual.Pages()) {
      for (const std::string& mark : Anchors(text)) EXPECT_EQ(PageOf(mark), manual.name + "/" + name) << mark;
    }
  }
}

TEST_P(ManualIndexes, ListThreeManualsAndKeepAPlaceForTheMachineBuilders) {
  EXPECT_EQ(helps_.GetKeyNames(u"MANUALS"), (std::vector<Text>{u"OPT", u"PRG", u"ERR", u"OEM"}));
  EXPECT_EQ(helps_.ReadString(u"MANUALS", u"OEM", u""), u"DEFAULT");
  EXPECT_EQ(BytesOf(ManualsFolder() / GetParam() / "CNC.helps"),
            BytesOf(ManualsFolder() / GetParam() / "Cnc7340.helps"))
      << "both families of the control have the same manuals";
}

TEST_P(ManualIndexes, HaveAPageForEveryErrorWithItsWholeDescription) {
  const std::string language = GetParam();
  const bool spanish = language == "es";
  std::map<std::int32_t, Text> wordings;
  for (const sim::FaultText& row : sim::FaultTexts()) wordings[row.number] = spanish ? row.spanish : row.english;
  for (const sim::TableText& row : sim::RaisedTexts()) {
    if (row.description != 0) wordings[row.description] = Text(Trim(spanish ? row.spanish : row.english));
  }
  const fs::path source = fs::path(PNL_SOURCE_FOLDER) / "share" / "errors" / language / "machine.txt";
  const sim::Descriptions descriptions = sim::ParseDescriptions(BytesOf(source));
  EXPECT_EQ(descriptions.size(), wordings.size());
  for (const auto& [number, text] : descriptions) {
    const std::string page =
        PlainText(BytesOf(ManualsFolder() / language / "errors" / ToUtf8(Format(u"e%d.html", number))));
    EXPECT_NE(page.find(ToUtf8(Format(u"%d %s", number, wordings[number]))), std::string::npos) << number << page;
    for (TextView rest = text; !rest.empty();) {
      const std::string line = ToUtf8(rest.substr(0, rest.find(u'\n')));
      EXPECT_NE(page.find(line), std::string::npos) << number << ": " << line;
      rest.remove_prefix(
          std::min(rest.size(), rest.find(u'\n') == TextView::npos ? rest.size() : rest.find(u'\n') + 1));
    }
  }
}

}  // namespace
}  // namespace pnl::test
