// SPDX-License-Identifier: MIT
// What a window can count on while a drive hangs: its thread goes on, and so does work on other drives.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "facade/sim/sim_places.h"
#include "support/event_wait.h"
#include "support/temp_folder.h"
#include "window/qt/qt_timers.h"
#include "window/qt/qt_worker.h"

namespace pnl::sim {
namespace {

using test::RunUntil;
using testing::ElementsAre;

class HangingDriveTest : public testing::Test {
 protected:
  HangingDriveTest() {
    for (const char letter : {'C', 'D'}) {
      rig::Drive drive;
      drive.letter = letter;
      drive.dir = temp.Folder(std::string(1, letter));
      storage.SetDrive(drive);
      temp.Write(std::string(1, letter) + "/file", "");
    }
    storage.Hold()->Hold('D');
  }
  /// Lists a drive beside the window's thread. Each name is added to listed, and at the end the error.
  JobId List(TextView folder) {
    return worker.Start([this, folder, reader = places.Reader()](Job& job) {
      const int error = reader->List(folder, [&](std::vector<PlaceEntry>&& entries) {
        job.Post([this, entries = std::move(entries)] {
          for (const PlaceEntry& entry : entries) listed.push_back(ToUtf8(entry.name));
        });
        return !job.IsCancelled();
      });
      job.Post([this, error] { listed.push_back(std::to_string(error)); });
    });
  }

  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
  SimStorage storage{files, drives};
  SimPlaces places{storage};
  std::vector<std::string> listed;
  QtWorker worker;
};

TEST_F(HangingDriveTest, TheWindowsThreadGoesOn) {
  List(u"D:");
  ASSERT_TRUE(storage.Hold()->AwaitWaiting(1));
  QtTimers timers;
  int ticks = 0;
  timers.Start(1, false, [&] { ++ticks; });
  ASSERT_TRUE(RunUntil([&] { return ticks >= 3; }));
  EXPECT_TRUE(worker.IsBusy());
  EXPECT_TRUE(listed.empty());
  storage.Hold()->Release('D');
  ASSERT_TRUE(RunUntil([&] { return !worker.IsBusy(); }));
  EXPECT_THAT(listed, ElementsAre("file", "0"));
}

TEST_F(HangingDriveTest, AnotherDriveIsListedMeanwhile) {
  List(u"D:");
  ASSERT_TRUE(storage.Hold()->AwaitWaiting(1));
  List(u"C:");
  ASSERT_TRUE(RunUntil([&] { return listed.size() == 2; }));
  EXPECT_THAT(listed, ElementsAre("file", "0"));
  EXPECT_TRUE(worker.IsBusy());
}

TEST_F(HangingDriveTest, AListingThatNobodyWaitsForIsDropped) {
  const JobId job = List(u"D:");
  ASSERT_TRUE(storage.Hold()->AwaitWaiting(1));
  worker.Cancel(job);
  EXPECT_FALSE(worker.IsBusy());
  storage.Hold()->Release('D');
  List(u"C:");
  ASSERT_TRUE(RunUntil([&] { return !worker.IsBusy(); }));
  EXPECT_THAT(listed, ElementsAre("file", "0"));
}

TEST_F(HangingDriveTest, TheDriveMayGoWhileItHangs) {
  List(u"D:");
  ASSERT_TRUE(storage.Hold()->AwaitWaiting(1));
  rig::Drive gone;
  gone.letter = 'D';
  storage.SetDrive(gone);
  storage.Hold()->Release('D');
  ASSERT_TRUE(RunUntil([&] { return !worker.IsBusy(); }));
  EXPECT_THAT(listed, ElementsAre("file", "0"));
}

}  // namespace
}  // namespace pnl::sim
