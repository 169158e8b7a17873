// SPDX-License-Identifier: MIT
// The library's one instance: owns everything that a tool may reach, in the order in which the parts need each other,
// and makes the tools. Knows no tool but by number. Instance is made at first use, which may be before the application
// exists, and never destroyed: a host's widgets, and the tools in them, may outlive every static object.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/files.h"
#include "facade/mill/machine.h"
#include "facade/sim/simulated_cnc.h"
#include "host/tool_context.h"
#include "window/menu.h"
#include "window/qt/qt_timers.h"
#include "window/qt/qt_window_system.h"

namespace pnl {

class Library {
 public:
  static Library& Instance();
  /// For a test that wants one of its own.
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// The tool's window, 0 when there is none, the parent isn't alive, or no application runs.
  [[nodiscard]] WindowHandle LoadTool(int toolId, WindowHandle parent);
  /// At once, or as soon as the tool's own code is off the stack; in both cases the handle is dead on return.
  void DestroyTool(WindowHandle window);

  /// False, and nothing changed, when there is no such pack.
  bool SetLanguage(const std::string& code);
  /// False, and nothing changed, when it can't be had or a tool exists.
  bool SetBackend(const std::string& name);

  /// Makes the folders of all paths and puts the language library into its own.
  void PrepareFolders();
  /// False for an unknown name. The machine stays for the life of the process.
  bool StartMachine(std::string_view name);
  /// Delivers everything that was posted, what that posts included.
  static void Drain();

  [[nodiscard]] QtWindowSystem& Windows() { return windows_; }
  [[nodiscard]] SwitchableTimers& Timers() { return timers_; }
  [[nodiscard]] MenuTable& Menus() { return menus_; }
  [[nodiscard]] Files& FileSystem() { return files_; }
  [[nodiscard]] Language& Texts() { return tools_->language; }
  /// Null when a backend library took its place.
  [[nodiscard]] sim::SimulatedCnc* Simulation() { return backend_ == nullptr ? simulation_.get() : nullptr; }
  [[nodiscard]] sim::Machine* Machine() { return machine_.get(); }

 private:
  /// What is bound to one facade and is made anew with another one.
  struct Tools {
    Tools(Library& library, CncFacade& cnc);
    HostBridge host;
    Language language;
    ToolContext context;
  };
  bool UsePack(const std::string& code);
  void InstallLanguageLibrary();
  /// Puts the machine's long descriptions, in every language there are, onto its drive and into the kernel's tables.
  void InstallDescriptions();

  DriveMap drives_;
  DiscFiles files_{drives_};
  QtWindowSystem windows_{WindowRegistry::Instance()};
  SwitchableTimers timers_;
  MenuTable menus_;
  std::unique_ptr<sim::SimulatedCnc> simulation_;
  std::unique_ptr<sim::Machine> machine_;
  std::unique_ptr<CncFacade> backend_;
  std::unique_ptr<Tools> tools_;
  std::string language_ = "en";
  bool numbersForTexts_ = false;
  bool foldersReady_ = false;
  std::string packBytes_;
};

}  // namespace pnl
