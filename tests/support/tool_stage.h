// SPDX-License-Identifier: MIT
// What is around a tool's logic, all of it fake: disc, clock, windows, CNC, language and host, with one log of
// everything that was asked, in order, a line each. A tool's own fixture adds its view and its session.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "facade/sim/simulated_cnc.h"
#include "host/language_pack.h"
#include "host/tool_context.h"
#include "support/memory_files.h"
#include "support/noting_host.h"
#include "support/sim_fixture.h"
#include "window/timers.h"

namespace pnl::test {

/// The part of a stage that a CNC can be built on.
struct StageGround {
  RecordingSink sink;
  Log& log = sink.lines;
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  MenuTable menus;
};

/// The simulated CNC, whose calls go to the log.
class StageCnc final : public sim::SimulatedCnc {
 public:
  explicit StageCnc(StageGround& ground) : SimulatedCnc(ground.windows, ground.timers, ground.files, ground.drives) {
    SetSink(&ground.sink);
  }
};

/// A menu item, or with items a sub-menu, of a language pack.
inline LanguagePack::MenuNode PackItem(int id, TextView text, std::vector<LanguagePack::MenuNode> items = {}) {
  LanguagePack::MenuNode node;
  node.item.id = id;
  node.item.text = Text(text);
  node.children = std::move(items);
  return node;
}

/// Cnc is made from a StageGround.
template <typename Cnc>
class ToolStage : public StageGround {
 public:
  explicit ToolStage(const PackContents& contents) {
    LanguagePack pack;
    EXPECT_TRUE(pack.Parse(BuildPack(contents)));
    language.Use(std::move(pack));
    // The texts that all tools share come from this module; without it a box says so.
    files.disc["C:\\P15\\LPNLTOOLS.DLL"] = BuildPack(contents);
  }
  ToolStage(const ToolStage&) = delete;
  ToolStage& operator=(const ToolStage&) = delete;

  /// What was asked since the last call, with the orders to the view ("view ...").
  Log All() { return std::exchange(log, {}); }
  /// The same without them.
  Log Asked() {
    Log asked = All();
    std::erase_if(asked, [](const std::string& line) { return line.starts_with("view "); });
    return asked;
  }
  void Forget() { log.clear(); }

  Cnc cnc{static_cast<StageGround&>(*this)};
  Language language{menus, cnc.Util(), files, windows};
  HostApiTable table = {};
  HostBridge host{table, cnc.Vars()};
  ToolContext context{host, cnc, windows, timers, language, files};
  std::function<void(const std::string&)> onHostCall;  // after it was noted
  NotingHost noting{table, [this](const std::string& line) {
                      log.push_back(line);
                      if (onHostCall) onHostCall(line);
                    }};
};

}  // namespace pnl::test
