// SPDX-License-Identifier: MIT
// Where the panel's files are: folders by path id, drives by letter, and what the explorer gets to know about drives
// and the network. base/files turns a panel path into a path of this machine.
#pragma once

#include <pnltools/rig.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "facade/sim/sim_hold.h"

namespace pnl::sim {

class SimStorage final : public rig::Storage {
 public:
  SimStorage(Files& files, DriveMap& drives) : files_(files), drives_(drives) {}
  /// Releases what is held, so that no thread waits for ever.
  ~SimStorage() override { hold_->ReleaseForGood(); }

  /// Stores the path without its trailing backslashes.
  void SetPath(std::int32_t id, std::u16string_view path) override;
  /// The folder that was set for the id; else "C:\Pn" for an id n that the tools use; else empty.
  [[nodiscard]] std::u16string Path(std::int32_t id) const override;
  /// Sets a drive. The letter may be small or capital. Does nothing for a character that isn't a letter from A to Z.
  void SetDrive(const rig::Drive& drive) override;
  void SetDriveMasks(std::string_view noDrives, std::string_view remembered, std::string_view locked) override;
  void SetNetwork(std::vector<rig::NetworkNode> roots) override { network_ = std::move(roots); }
  [[nodiscard]] std::optional<std::string> HostPath(std::u16string_view panelPath) const override;
  [[nodiscard]] bool Replace(const std::string& hostPath, std::string_view bytes) const override;

  /// Makes the folder of every path id that the tools use. Returns false when one couldn't be made.
  bool MakeFolders();

  /// The drives that are set, by capital letter.
  [[nodiscard]] const std::map<char, rig::Drive>& Drives() const { return described_; }
  struct Masks {
    std::string noDrives;
    std::string remembered;
    std::string locked;
    friend bool operator==(const Masks&, const Masks&) = default;
  };
  [[nodiscard]] const Masks& DriveMasks() const { return masks_; }
  [[nodiscard]] const std::vector<rig::NetworkNode>& Network() const { return network_; }
  /// The folders of all drives, also of those that nobody has described.
  [[nodiscard]] const DriveMap& Map() const { return drives_; }
  /// Lets drives hang. Belongs to the readers of drives and network too.
  [[nodiscard]] const std::shared_ptr<SimHold>& Hold() const { return hold_; }
  /// Calls changed after a drive has come or gone and after a change of the masks. There is one watcher; an empty
  /// function ends the watch.
  void WatchDrives(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  void TellWatcher() const;

  Files& files_;
  DriveMap& drives_;
  std::map<std::int32_t, Text> paths_;
  std::map<char, rig::Drive> described_;
  Masks masks_;
  std::vector<rig::NetworkNode> network_;
  std::shared_ptr<SimHold> hold_ = std::make_shared<SimHold>();
  std::function<void()> changed_;
};

}  // namespace pnl::sim
