// SPDX-License-Identifier: MIT
// Where the panel's files are: folders by path id, drives by letter, and what the explorer gets to know about drives
// and the network. base/files turns a panel path into a path of this machine.
#pragma once

#include <pnltools/rig.h>

#include <map>
#include <string>
#include <vector>

#include "base/files.h"

namespace pnl::sim {

class SimStorage final : public rig::Storage {
 public:
  SimStorage(Files& files, DriveMap& drives) : files_(files), drives_(drives) {}

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
  };
  [[nodiscard]] const Masks& DriveMasks() const { return masks_; }
  [[nodiscard]] const std::vector<rig::NetworkNode>& Network() const { return network_; }

 private:
  Files& files_;
  DriveMap& drives_;
  std::map<std::int32_t, Text> paths_;
  std::map<char, rig::Drive> described_;
  Masks masks_;
  std::vector<rig::NetworkNode> network_;
};

}  // namespace pnl::sim
