// SPDX-License-Identifier: MIT
// The demo machine behind the library for the tests of this room: a process has one, so it is started once, by manual
// time, on a folder that goes with the process. Tests that need a bare CNC are a program of their own.
#pragma once

#include <gtest/gtest.h>
#include <pnltools/rig.h>

#include "support/temp_folder.h"

namespace panel {

inline pnl::rig::Rig& DemoMachine() {
  static pnl::rig::Rig& rig = []() -> pnl::rig::Rig& {
    pnl::rig::Rig& made = *PnlRig();
    static pnl::test::TempFolder root;
    pnl::rig::Drive drive;
    drive.dir = root.Path().string();
    made.Files().SetDrive(drive);
    EXPECT_TRUE(made.StartMachine("demo"));
    made.UseManualTime();
    PnlSetLanguage("en");
    return made;
  }();
  return rig;
}

}  // namespace panel
