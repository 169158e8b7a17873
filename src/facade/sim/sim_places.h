// SPDX-License-Identifier: MIT
// The drives of the simulated side, as SimStorage has them: real folders of this machine, described by whoever drives
// the simulation. A drive with an error answers with it whatever is read. Asked on the window's thread; its readers are
// copies of what the storage has at that time, so they may be used on any thread.
#pragma once

#include "facade/sim/sim_storage.h"
#include "places/places.h"

namespace pnl::sim {

class SimPlaces final : public Places {
 public:
  /// The storage must outlive this object. It reports its changes to one SimPlaces only, the last that watches.
  explicit SimPlaces(SimStorage& storage) : storage_(storage) {}

  [[nodiscard]] DriveMask LogicalDrives() const override;
  [[nodiscard]] DriveMask HiddenDrives() const override;
  [[nodiscard]] DriveMask LockedDrives() const override;
  [[nodiscard]] DriveMask RememberedDrives() const override;
  [[nodiscard]] int DriveType(char letter) const override;
  [[nodiscard]] std::optional<Text> VolumeLabel(char letter) const override;
  [[nodiscard]] RemoteName DriveRemoteName(char letter) const override;
  /// Always 'C'.
  [[nodiscard]] char CurrentDrive() const override { return 'C'; }
  /// The reader also reads network paths, in the folders of the shares, and drives that only the network has: those of
  /// a resource with a local name. What is asked of a drive or the network while the storage's hold has it waits.
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override;
  void Watch(std::function<void()> changed) override { storage_.WatchDrives(std::move(changed)); }

 private:
  /// The drive's description; that of an ordinary drive when only the drive map has it, null when nothing has it.
  [[nodiscard]] const rig::Drive* Described(char letter) const;

  SimStorage& storage_;
};

}  // namespace pnl::sim
