// SPDX-License-Identifier: MIT
// The real program that unpacks manuals, in a temporary folder that shows everything it leaves.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "help/manual/manual.h"
#include "help/manual/manual_extractor.h"
#include "support/folder_snapshot.h"
#include "support/temp_folder.h"

namespace pnl::test {

class ExtractorTest : public testing::Test {
 protected:
  /// Unpacks a manual with these bytes and checks that nothing was written but the folder.
  Extraction Unpack(const std::string& bytes) {
    namespace fs = std::filesystem;
    fs::remove_all(unpacked_.Path() / "manual");
    around_.Write("in/manual.chm", bytes);
    const std::string folder = around_.Folder("out") + "/manual";
    const FolderSnapshot before = SnapshotOf(around_.Path());
    const ProgramExtractor extractor(PNL_CHM_PROGRAM);
    const Extraction result = extractor.Extract(around_.Path() / "in/manual.chm", folder, [] { return false; });
    EXPECT_EQ(fs::exists(folder), result == Extraction::kDone);
    std::error_code ignored;
    fs::rename(folder, Folder(), ignored);
    EXPECT_EQ(SnapshotOf(around_.Path()), before) << "what is outside the folder changed";
    manual_ = result == Extraction::kDone ? Manual::Load(Folder()) : nullptr;
    EXPECT_EQ(manual_ != nullptr, result == Extraction::kDone);
    return result;
  }
  /// The names of what was unpacked, in alphabetical order, as the listing has them.
  [[nodiscard]] std::string Names() const {
    if (!manual_) return "nothing";
    std::vector<std::string> names;
    for (const ListedObject& object : manual_->Listing().objects) names.push_back(ToUtf8(object.name));
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names) text += name + " ";
    return text;
  }
  /// Where the manual was moved to that was unpacked last.
  [[nodiscard]] std::string Folder() const { return unpacked_.Path() / "manual"; }

  TempFolder temp_;  // for whatever a test needs
  std::shared_ptr<const Manual> manual_;

 private:
  TempFolder around_;
  TempFolder unpacked_;
};

}  // namespace pnl::test
