// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <thread>

#include "extractor_rig.h"
#include "help/manual/manual_search.h"
#include "support/chm_writer.h"

namespace pnl {
namespace {

using test::ChmWriter;

std::string DataFile(const std::string& name) {
  std::ifstream in(std::string(PNL_TESTS_FOLDER) + "/help/manual/data/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

using Extractor = test::ExtractorTest;

TEST_F(Extractor, EveryPageOfACompiledManualIsItsSource) {
  ASSERT_EQ(Unpack(DataFile("small.chm")), Extraction::kDone);
  for (const char* name : {"inicio.htm", "sub/husillo.htm", "sub/refrigerante.htm", "sub/plano.png", "estilo.css",
                           "small.hhc", "small.hhk"}) {
    EXPECT_EQ(manual_->Read(FromUtf8(name)), DataFile(std::string("small/") + name)) << name;
  }
  EXPECT_FALSE(manual_->IsDamaged());
}

TEST_F(Extractor, ACompiledManualHasItsTitleContentsAndIndex) {
  ASSERT_EQ(Unpack(DataFile("small.chm")), Extraction::kDone);
  EXPECT_EQ(manual_->Title(), u"Manual de la máquina");
  EXPECT_EQ(manual_->Home(), u"inicio.htm");
  EXPECT_EQ(manual_->Listing().page, u"inicio.htm");
  EXPECT_EQ(manual_->Listing().language, 0x0C0Au);
  EXPECT_EQ(manual_->Listing().codePage, 1252);
  ASSERT_EQ(manual_->Contents().size(), 4u);
  EXPECT_EQ(manual_->Contents()[1], (ManualTopic{u"Máquina", {}, 0}));
  EXPECT_EQ(manual_->Contents()[2], (ManualTopic{u"Husillo & cono", {u"sub/husillo.htm", u""}, 1}));
  EXPECT_EQ(manual_->Contents()[3], (ManualTopic{u"Refrigerante", {u"sub/refrigerante.htm", u"nivel"}, 1}));
  ASSERT_EQ(manual_->Index().size(), 2u);
  EXPECT_EQ(manual_->Index()[1].topics.size(), 2u);
}

TEST_F(Extractor, APageOfACompiledManualIsFoundWithoutAccents) {
  ASSERT_EQ(Unpack(DataFile("small.chm")), Extraction::kDone);
  const auto index = SearchIndex::Build(*manual_, [] { return false; });
  const auto anadir = index->Find(u"anadir aceite");
  ASSERT_EQ(anadir.size(), 1u);
  EXPECT_EQ(anadir[0].title, u"Inicio de la máquina");
  EXPECT_EQ(index->Find(u"S3000").size(), 1u);
  EXPECT_EQ(index->Find(u"valvula").size(), 1u);
}

TEST_F(Extractor, WhatTheListLeavesOutIsFoundByItsName) {
  // The list is one chunk, and a lookup by name reads on where the list's walk doesn't: the names are sorted, and the
  // walk shows ordinary objects alone.
  ChmWriter writer;
  writer.AddSystem("T", "b.htm", "", "", 0x409);
  writer.Add("/a.htm", "<a href='%24hidden/c.htm'>").Add("/b.htm", "b").Add("/$hidden/c.htm", "c");
  ASSERT_EQ(Unpack(writer.SortedBytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "$hidden/c.htm a.htm b.htm ");
}

TEST_F(Extractor, LinksThatLeadNowhereAreNoDamage) {
  ChmWriter writer;
  writer.Add("/a.htm", "<a href=gone.htm><a href='http://x/'><a href='../out.htm'><img src='C:\\x.png'>");
  ASSERT_EQ(Unpack(writer.SortedBytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_FALSE(manual_->IsDamaged());
}

TEST_F(Extractor, WhatIsNoManualGivesNothing) {
  EXPECT_EQ(Unpack(""), Extraction::kNothing);
  EXPECT_EQ(Unpack("plain text"), Extraction::kNothing);
  EXPECT_EQ(Unpack(std::string(100'000, '\0')), Extraction::kNothing);
  EXPECT_EQ(Unpack(ChmWriter().AddSystem("T", "", "", "", 0).Bytes()), Extraction::kNothing);
}

TEST_F(Extractor, ATruncatedManualSaysSoAndGivesWhatThereIs) {
  ChmWriter writer;
  writer.AddSystem("T", "a.htm", "", "", 0x409);
  writer.Add("/a.htm", "first").Add("/b.htm", std::string(10'000, 'x'));
  const std::string whole = writer.SortedBytes();
  ASSERT_EQ(Unpack(whole.substr(0, whole.size() - 100)), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_TRUE(manual_->IsDamaged());
  EXPECT_EQ(manual_->Listing().unreadable, 1u);
  EXPECT_EQ(manual_->Title(), u"T");
}

TEST_F(Extractor, AMissingProgramOrManualOrFolderHasItsAnswer) {
  temp_.Write("m.chm", ChmWriter().Add("/a.htm", "a").Bytes());
  const auto never = [] { return false; };
  const std::string manual = temp_.Path() / "m.chm";
  EXPECT_EQ(ProgramExtractor(temp_.Path() / "gone").Extract(manual, temp_.Path() / "o", never), Extraction::kNoProgram);
  const ProgramExtractor real(PNL_CHM_PROGRAM);
  EXPECT_EQ(real.Extract(temp_.Path() / "gone.chm", temp_.Path() / "o", never), Extraction::kNothing);
  EXPECT_EQ(real.Extract(manual, temp_.Path() / "gone" / "o", never), Extraction::kNoRoom);
  EXPECT_EQ(real.Extract(manual, temp_.Path() / "o", never), Extraction::kDone);
}

TEST_F(Extractor, AFolderThatAnotherProcessMadeMeanwhileIsAsGood) {
  temp_.Write("m.chm", ChmWriter().Add("/a.htm", "a").Bytes());
  temp_.Write("o/listing.txt", "theirs");
  const ProgramExtractor real(PNL_CHM_PROGRAM);
  EXPECT_EQ(real.Extract(temp_.Path() / "m.chm", temp_.Path() / "o", [] { return false; }), Extraction::kDone);
  EXPECT_EQ(temp_.Read("o/listing.txt"), "theirs");
  EXPECT_EQ(test::SnapshotOf(temp_.Path()).size(), 3u);
}

TEST_F(Extractor, AFileInTheFoldersPlaceStaysAndIsNoManual) {
  temp_.Write("m.chm", ChmWriter().Add("/a.htm", "a").Bytes());
  temp_.Write("o", "theirs");
  const ProgramExtractor real(PNL_CHM_PROGRAM);
  EXPECT_EQ(real.Extract(temp_.Path() / "m.chm", temp_.Path() / "o", [] { return false; }), Extraction::kNoRoom);
  EXPECT_EQ(temp_.Read("o"), "theirs");
}

TEST_F(Extractor, WhatCannotBeReadIsCountedAndTheRestIsUnpacked) {
  // The home page is asked for first, and the table of the manual before it.
  ChmWriter page;
  page.AddSystem("T", "z.htm", "", "", 0x409);
  page.Add("/a.htm", "first").Add("/z.htm", std::string(10'000, 'x'));
  std::string whole = page.SortedBytes();
  ASSERT_EQ(Unpack(whole.substr(0, whole.size() - 100)), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_EQ(manual_->Listing().unreadable, 1u);
  ChmWriter system;
  system.Add("/a.htm", "first").AddSystem(std::string(500, 't'), "a.htm", "", "", 0x409);
  whole = system.SortedBytes();
  ASSERT_EQ(Unpack(whole.substr(0, whole.size() - 100)), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_TRUE(manual_->IsDamaged());
}

/// What the program prints, its errors too, and below that its answer.
std::string Printed(const std::string& words) {
  const std::string command = std::string("'") + PNL_CHM_PROGRAM + "' " + words + " 2>&1";
  FILE* const output = popen(command.c_str(), "r");
  std::string text;
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) text.push_back(static_cast<char>(c));
  return text + std::to_string(WEXITSTATUS(pclose(output)));
}

TEST_F(Extractor, TheProgramSaysInWordsWhyItDidNothing) {
  temp_.Write("m.chm", ChmWriter().Add("/a.htm", "a").Bytes());
  temp_.Write("text.chm", "plain text");
  const std::string folder = temp_.Path().string() + "/";
  const auto answer = [](int code) { return std::to_string(code); };
  EXPECT_EQ(Printed(folder + "m.chm"),
            "pnl-chm MANUAL FOLDER unpacks a compiled manual into a new folder and prints what it found.\n" +
                answer(extractor_exit::kUsage));
  EXPECT_EQ(Printed(folder + "text.chm " + folder + "o"),
            "pnl-chm: nothing could be unpacked\n" + answer(extractor_exit::kNothing));
  EXPECT_EQ(Printed(folder + "m.chm " + folder + "gone/o"),
            "pnl-chm: the folder can't be written\n" + answer(extractor_exit::kNoRoom));
}

TEST_F(Extractor, TheProgramItselfLeavesNothingBesideAFolderThatIsThere) {
  temp_.Write("m.chm", ChmWriter().Add("/a.htm", "a").Bytes());
  temp_.Write("o/listing.txt", "theirs");
  const std::string folder = temp_.Path().string() + "/";
  EXPECT_THAT(Printed(folder + "m.chm " + folder + "o"), testing::EndsWith(std::to_string(extractor_exit::kDone)));
  EXPECT_EQ(temp_.Read("o/listing.txt"), "theirs");
  EXPECT_EQ(test::SnapshotOf(temp_.Path()).size(), 3u);
}

/// A program that never ends, nor does what it has started. It begins a folder as the real one does.
class Endless : public Extractor {
 protected:
  Endless() {
    temp_.Write("endless", "#!/bin/sh\nmkdir \"$2.1-1.part\"\nsleep 100000 &\nexec sleep 100000\n");
    chmod(Program().c_str(), 0700);
    static_cast<void>(temp_.Folder("out"));
  }
  [[nodiscard]] std::string Program() const { return temp_.Path() / "endless"; }
  [[nodiscard]] std::string Target() const { return temp_.Path() / "out" / "manual"; }
};

TEST_F(Endless, AProgramThatOverrunsIsKilledWithAllThatItStarted) {
  const ProgramExtractor extractor(Program(), std::chrono::milliseconds(200));
  EXPECT_EQ(extractor.Extract("m", Target(), [] { return false; }), Extraction::kOverrun);
  EXPECT_TRUE(std::filesystem::is_empty(temp_.Path() / "out"));
}

TEST_F(Endless, AProgramThatNobodyWaitsForIsKilled) {
  const ProgramExtractor extractor(Program());
  const auto isThere = [this] { return std::filesystem::exists(Target() + ".1-1.part"); };
  EXPECT_EQ(extractor.Extract("m", Target(), isThere), Extraction::kCancelled);
  EXPECT_TRUE(std::filesystem::is_empty(temp_.Path() / "out"));
}

TEST_F(Extractor, TheProgramIsFoundBesideTheLibraryOrAmongThePrograms) {
  struct Row {
    const char* loadedFrom;
    const char* program;
  };
  const Row rows[] = {
      {"a/lib/libpnltools.so", "a/lib/pnl-chm"},
      {"b/lib/libpnltools.so", "b/bin/pnl-chm"},
      {"c/lib/libpnltools.so", "c/libexec/pnltools/pnl-chm"},
      {"d/lib/x86_64-linux-gnu/libpnltools.so", "d/libexec/pnltools/pnl-chm"},
  };
  for (const Row& row : rows) {
    temp_.Write(row.program, "");
    const std::string library = temp_.Folder(std::filesystem::path(row.loadedFrom).parent_path()) + "/libpnltools.so";
    const std::string program = temp_.Path() / row.program;
    ASSERT_EQ(chmod(program.c_str(), 0700), 0);
    EXPECT_EQ(std::filesystem::path(ExtractorBeside(library)).lexically_normal(), program);
  }
  EXPECT_EQ(ExtractorBeside("/nowhere/lib.so"), "/nowhere/pnl-chm");
}

TEST_F(Extractor, AFileThatCantBeRunIsNoProgram) {
  temp_.Write("lib/pnl-chm", "");
  temp_.Write("bin/pnl-chm", "");
  ASSERT_EQ(chmod((temp_.Path() / "lib/pnl-chm").c_str(), 0600), 0);
  ASSERT_EQ(chmod((temp_.Path() / "bin/pnl-chm").c_str(), 0700), 0);
  const std::filesystem::path found = ExtractorBeside(temp_.Path() / "lib/libpnltools.so");
  EXPECT_EQ(found.lexically_normal(), temp_.Path() / "bin/pnl-chm");
}

}  // namespace
}  // namespace pnl
