// SPDX-License-Identifier: MIT
// What is around a tool's logic, all of it fake: disc, clock, windows, CNC, language and host, with one log of
// everything that was asked, in order, a line each. A tool's own fixture adds its view and its intentions.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "facade/sim/simulated_cnc.h"
#include "host/language_pack.h"
#include "host/tool_context.h"
#include "host/tool_session.h"
#include "support/fake_places.h"
#include "support/memory_files.h"
#include "support/noting_host.h"
#include "support/sim_fixture.h"
#include "window/timers.h"

namespace pnl::test {

/// The part of a stage that a CNC is built on.
struct StageGround {
  RecordingSink sink;
  Log& log = sink.lines;
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  MenuTable menus;
  FakePlaces places;
  FakeNetwork network;
  InlineWorker worker;
};

/// With the simulated CNC on it, whose calls go to the log.
struct SimGround : StageGround {
  SimGround() { cnc.SetSink(&sink); }
  sim::SimulatedCnc cnc{windows, timers, files, drives};
};

/// A menu item, or with items a sub-menu, of a language pack.
inline LanguagePack::MenuNode PackItem(int id, TextView text, std::vector<LanguagePack::MenuNode> items = {}) {
  LanguagePack::MenuNode node;
  node.item.id = id;
  node.item.text = Text(text);
  node.children = std::move(items);
  return node;
}

/// Ground is a StageGround with its CNC.
template <typename Ground, typename View, typename Session>
class ToolStage : public Ground {
 public:
  explicit ToolStage(const PackContents& contents) {
    LanguagePack pack;
    EXPECT_TRUE(pack.Parse(BuildPack(contents)));
    language.Use(std::move(pack));
    // The texts that all tools share come from this module; without it a box says so.
    this->files.disc["C:\\P15\\LPNLTOOLS.DLL"] = BuildPack(contents);
  }
  ToolStage(const ToolStage&) = delete;
  ToolStage& operator=(const ToolStage&) = delete;

  /// The window goes, and the logic with it unless a call keeps it for its own length.
  void DestroyTool() {
    const std::shared_ptr<Session> ending = std::exchange(tool, nullptr);
    if (!ending) return;
    this->windows.Kill(view->handle);
    ending->End();
    view->dead = true;
  }
  /// Calls an intention as the window does. False when the tool has ended. A window that its logic has closed goes when
  /// the outermost intention is over.
  template <typename Intention>
  bool Tell(Intention intention) {
    ++intentions_;
    const bool there = RunOperation(tool, intention);
    if (--intentions_ == 0 && view->closing) view->dead = true;
    return there;
  }
  /// The same with an operation of the session; what it returned, or zero from a tool that has ended.
  template <typename Result, typename... Args>
  Result Call(Result (Session::*operation)(Args...), std::type_identity_t<Args>... args) {
    if constexpr (std::is_void_v<Result>) {
      Tell([&](Session& session) { (session.*operation)(args...); });
    } else {
      Result result{};
      Tell([&](Session& session) { result = (session.*operation)(args...); });
      return result;
    }
  }

  /// What was asked since the last call, with the orders to the view ("view ...").
  Log All() { return this->sink.Take(); }
  /// The same without them.
  Log Asked() {
    Log asked = All();
    std::erase_if(asked, [](const std::string& line) { return line.starts_with("view "); });
    return asked;
  }
  void Forget() { this->log.clear(); }

  Language language{this->menus, this->cnc.Util(), this->files, this->windows};
  HostApiTable table = {};
  HostBridge host{table, this->cnc.Vars()};
  ToolContext context{host,        this->cnc,    this->windows, this->timers, language,
                      this->files, this->places, this->network, this->worker};
  std::function<void(const std::string&)> onHostCall;  // after it was noted
  NotingHost noting{table, [this](const std::string& line) {
                      this->log.push_back(line);
                      if (onHostCall) onHostCall(line);
                    }};
  std::unique_ptr<View> view;
  std::shared_ptr<Session> tool;

 private:
  int intentions_ = 0;  // that are under way
};

}  // namespace pnl::test
