// SPDX-License-Identifier: MIT
#include "library/machine_documents.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "facade/utilities.h"
#include "library/library.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

class MachineDocuments : public ::testing::Test {
 protected:
  MachineDocuments() {
    rig::Drive drive;
    drive.dir = disc_.Path().string();
    library_.Simulation()->Storage().SetDrive(drive);
    shared_.Write("manuals/en/a.chm", "english");
    shared_.Write("manuals/es/a.chm", "spanish");
    shared_.Write("plc/en/messages.txt", "[1]\nDoor\n");
    shared_.Write("plc/es/messages.txt", "[1]\nPuerta\n");
  }
  bool Install() {
    return InstallDocuments(library_.FileSystem(), {(shared_.Path() / "lang").string()}, *library_.Simulation());
  }

  const test::TempFolder shared_;
  const test::TempFolder disc_;
  Library library_;
};

TEST_F(MachineDocuments, AreCopiedInEveryLanguage) {
  EXPECT_TRUE(Install());
  EXPECT_EQ(disc_.Read("CNC/HELP/EN/a.chm"), "english");
  EXPECT_EQ(disc_.Read("CNC/HELP/ES/a.chm"), "spanish");
  EXPECT_EQ(disc_.Read("CNC/PLC/ES/messages.txt"), "[1]\nPuerta\n");
  sim::SimulatedCnc& cnc = *library_.Simulation();
  EXPECT_EQ(cnc.DescriptionBehind(u"C:\\CNC\\PLC\\EN\\messages.txt#1"), u"Door");
  EXPECT_EQ(cnc.DescriptionBehind(u"C:\\CNC\\PLC\\ES\\messages.txt#1"), u"Puerta");
  EXPECT_EQ(cnc.DescriptionBehind(u"C:\\CNC\\PLC\\ES\\messages.txt#2"), std::nullopt);
}

TEST_F(MachineDocuments, ThatDifferAreWrittenAgainAndOthersAreLeftAlone) {
  ASSERT_TRUE(Install());
  disc_.Write("CNC/HELP/EN/a.chm", "english, and half of an older one");
  disc_.Write("CNC/HELP/ES/a.chm", "span");
  disc_.Write("CNC/HELP/ES/own.chm", "of the machine's owner");
  const fs::path untouched = disc_.Path() / "CNC/PLC/EN/messages.txt";
  const auto longAgo = fs::last_write_time(untouched) - std::chrono::hours(1);
  fs::last_write_time(untouched, longAgo);
  EXPECT_TRUE(Install());
  EXPECT_EQ(disc_.Read("CNC/HELP/EN/a.chm"), "english");
  EXPECT_EQ(disc_.Read("CNC/HELP/ES/a.chm"), "spanish");
  EXPECT_EQ(disc_.Read("CNC/HELP/ES/own.chm"), "of the machine's owner");
  EXPECT_EQ(fs::last_write_time(untouched), longAgo);
}

TEST_F(MachineDocuments, ThatCannotBeWrittenAreReportedAndTheOthersAreThere) {
  disc_.Write("CNC/HELP/EN", "a file where the folder should be");
  EXPECT_FALSE(Install());
  EXPECT_EQ(disc_.Read("CNC/HELP/ES/a.chm"), "spanish");
  EXPECT_EQ(library_.Simulation()->DescriptionBehind(u"C:\\CNC\\PLC\\EN\\messages.txt#1"), u"Door");
}

TEST_F(MachineDocuments, ThatIsAloneNotWritableIsReportedToo) {
  static_cast<void>(disc_.Folder("CNC/HELP/EN/a.chm"));
  EXPECT_FALSE(Install());
  EXPECT_EQ(disc_.Read("CNC/HELP/ES/a.chm"), "spanish");
}

TEST_F(MachineDocuments, ThatDoNotComeWithTheLibraryAreNotMissed) {
  EXPECT_TRUE(InstallDocuments(library_.FileSystem(), {"/nowhere/lang"}, *library_.Simulation()));
  EXPECT_FALSE(disc_.Has("CNC"));
}

TEST_F(MachineDocuments, HaveAFolderForEveryLanguage) {
  const struct {
    const char* language;
    TextView manuals;
    TextView plc;
  } rows[] = {{"en", u"C:\\CNC\\HELP\\EN", u"C:\\CNC\\PLC\\EN"},
              {"es", u"C:\\CNC\\HELP\\ES", u"C:\\CNC\\PLC\\ES"},
              {"es-mx", u"C:\\CNC\\HELP\\ES-MX", u"C:\\CNC\\PLC\\ES"},
              {"de_1", u"C:\\CNC\\HELP\\DE_1", u"C:\\CNC\\PLC\\EN"}};
  sim::SimStorage& storage = library_.Simulation()->Storage();
  for (const auto& row : rows) {
    UseLanguageFolders(storage, row.language);
    EXPECT_EQ(storage.Path(path_id::kHelpLanguage), row.manuals) << row.language;
    EXPECT_EQ(storage.Path(path_id::kPlcFiles), row.plc) << row.language;
  }
}

}  // namespace
}  // namespace pnl
