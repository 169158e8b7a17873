// SPDX-License-Identifier: MIT
// The library's one instance. It owns everything that a tool may use, in the order in which the parts need each other,
// and makes the tools. It knows tools by number only. Instance is made at first use, which may be before the
// application exists. It is never destroyed, because a host's widgets, and the tools in them, may outlive every static
// object.
#pragma once

#include <QObject>
#include <memory>
#include <optional>
#include <string>

#include "base/files.h"
#include "facade/mill/machine.h"
#include "facade/sim/sim_network.h"
#include "facade/sim/sim_places.h"
#include "facade/sim/simulated_cnc.h"
#include "host/tool_context.h"
#include "places/credentials_desk.h"
#include "places/disc_places.h"
#include "places/network_places.h"
#include "places/qt/mount_watch.h"
#include "places/share_network.h"
#include "window/menu.h"
#include "window/qt/qt_timers.h"
#include "window/qt/qt_window_system.h"
#include "window/qt/qt_worker.h"

namespace pnl {

class Library {
 public:
  static Library& Instance();
  /// For a test that needs an instance of its own.
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Makes the tool and returns its window. Returns 0 when the number has no tool, the parent isn't alive or dies
  /// meanwhile, or this isn't the thread of a QApplication.
  [[nodiscard]] WindowHandle LoadTool(int toolId, WindowHandle parent);
  /// Destroys a tool: at once, or as soon as none of its code is on the call stack. In both cases the handle is dead on
  /// return. Does nothing for a window that isn't a tool's.
  void DestroyTool(WindowHandle window);

  /// Returns false, and changes nothing, when there is no pack for the code.
  bool SetLanguage(const std::string& code);
  /// Returns false, and changes nothing, when the backend can't be loaded or a tool exists.
  bool SetBackend(const std::string& name);

  /// Makes the folders of all paths and puts the language library, and a machine's error descriptions, manuals and PLC
  /// documents, into theirs.
  void PrepareFolders();
  /// Makes and attaches the machine of that name, which stays for the life of the process. Returns false for an unknown
  /// name or when there is a machine already.
  bool StartMachine(std::string_view name);
  /// Delivers all posted messages, including those that are posted meanwhile, and deletes what waits for deletion.
  static void Drain();

  [[nodiscard]] QtWindowSystem& Windows() { return windows_; }
  [[nodiscard]] SwitchableTimers& Timers() { return timers_; }
  [[nodiscard]] MenuTable& Menus() { return menus_; }
  [[nodiscard]] const Worker& Jobs() const { return worker_; }
  [[nodiscard]] CredentialsDesk& Credentials() { return *credentials_; }
  [[nodiscard]] Files& FileSystem() { return files_; }
  [[nodiscard]] Language& Texts() { return tools_->language; }
  /// A reader of the drives and the network that the tools see, as they are now.
  [[nodiscard]] std::shared_ptr<const FolderReader> Folders() { return tools_->context.places.Reader(); }
  /// The simulated CNC; null when a backend library has taken its place.
  [[nodiscard]] sim::SimulatedCnc* Simulation() { return backend_ == nullptr ? simulation_.get() : nullptr; }
  /// False when the drives are those of this machine, by the drive file.
  [[nodiscard]] bool SimulatesDrives() const { return !ownDrives_; }
  [[nodiscard]] sim::Machine* Machine() { return machine_.get(); }

 private:
  /// The parts that refer to one facade. They are made again for another one.
  struct Tools {
    /// network may be null: the simulated one.
    Tools(Library& library, CncFacade& cnc, const ShareNetwork* network);
    std::unique_ptr<NetworkPlaces> places;  // null: the library's own
    HostBridge host;
    Language language;
    ToolContext context;
  };
  /// The drives of this machine with a drive file or a backend library, else the simulated ones.
  [[nodiscard]] Places& DrivesFor(const CncFacade& cnc);
  /// From the first tool on, drives come and go with the kernel's table of mounts.
  void WatchMounts();
  bool UsePack(const std::string& code);
  /// The network that a facade's tools see: the real one when there is a network file or the facade is a backend's,
  /// else null.
  [[nodiscard]] const ShareNetwork* NetworkFor(bool isBackend);
  void InstallLanguageLibrary();
  /// Puts the machine's long descriptions, in every language, onto its drive and into the simulated CNC's tables.
  void InstallDescriptions();

  DriveMap drives_;
  DiscFiles files_{drives_};
  QtWindowSystem windows_{WindowRegistry::Instance()};
  SwitchableTimers timers_;
  MenuTable menus_;
  QtWorker worker_;
  std::unique_ptr<sim::SimulatedCnc> simulation_;
  bool ownDrives_ = false;
  std::unique_ptr<DiscPlaces> discs_;
  std::unique_ptr<MountWatch> mounts_;
  std::unique_ptr<sim::SimPlaces> places_;
  std::unique_ptr<sim::SimNetwork> network_;
  std::unique_ptr<sim::Machine> machine_;
  std::unique_ptr<CncFacade> backend_;
  std::optional<NetworkSetup> networkFile_;
  QObject onWindowsThread_;
  const std::shared_ptr<CredentialsDesk> credentials_;
  std::unique_ptr<ShareNetwork> shares_;
  std::unique_ptr<Tools> tools_;
  std::string language_ = "en";
  bool numbersForTexts_ = false;
  bool foldersReady_ = false;
  std::string packBytes_;
};

}  // namespace pnl
