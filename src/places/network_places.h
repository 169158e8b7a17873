// SPDX-License-Identifier: MIT
// The drives of another Places, with a reader for the paths of the network that is not theirs. Passes all else on.
#pragma once

#include <memory>
#include <utility>

#include "places/disc_places.h"

namespace pnl {

class NetworkPlaces final : public Places {
 public:
  /// drives must outlive this object.
  NetworkPlaces(Places& drives, std::shared_ptr<const FolderReader> network)
      : drives_(drives), network_(std::move(network)) {}

  [[nodiscard]] DriveMask LogicalDrives() const override { return drives_.LogicalDrives(); }
  [[nodiscard]] DriveMask HiddenDrives() const override { return drives_.HiddenDrives(); }
  [[nodiscard]] DriveMask LockedDrives() const override { return drives_.LockedDrives(); }
  [[nodiscard]] DriveMask RememberedDrives() const override { return drives_.RememberedDrives(); }
  [[nodiscard]] int DriveType(char letter) const override { return drives_.DriveType(letter); }
  [[nodiscard]] std::optional<Text> VolumeLabel(char letter) const override { return drives_.VolumeLabel(letter); }
  [[nodiscard]] RemoteName DriveRemoteName(char letter) const override { return drives_.DriveRemoteName(letter); }
  [[nodiscard]] char CurrentDrive() const override { return drives_.CurrentDrive(); }
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override {
    return MakeCompositeReader(drives_.Reader(), network_);
  }
  void Watch(std::function<void()> changed) override { drives_.Watch(std::move(changed)); }

 private:
  Places& drives_;
  std::shared_ptr<const FolderReader> network_;
};

}  // namespace pnl
