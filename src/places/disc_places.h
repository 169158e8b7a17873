// SPDX-License-Identifier: MIT
// The drives of this machine: letters and folders from the drive map, and what the drive file says about them. Asks no
// disc itself; its readers do, each with a copy of the map, so that they may be used on any thread.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "base/drive_map.h"
#include "places/drive_file.h"
#include "places/mount_table.h"
#include "places/places.h"

namespace pnl {

/// A reader of these drives. A drive of the set emptiable whose folder doesn't exist is not ready: its disc isn't in. A
/// drive of the set empty is never ready, and nothing in its folder is looked at.
[[nodiscard]] std::shared_ptr<const FolderReader> MakeDiscReader(DriveMap drives, DriveMask emptiable,
                                                                 DriveMask empty = 0);
/// A reader that asks network for every path that begins with two backslashes, and drives for all others. Without
/// network the former are not found.
[[nodiscard]] std::shared_ptr<const FolderReader> MakeCompositeReader(std::shared_ptr<const FolderReader> drives,
                                                                      std::shared_ptr<const FolderReader> network);
/// True for the types of drives whose disc may be taken out.
[[nodiscard]] constexpr bool IsEmptiable(int type) { return type == drive_type::kRemovable || type == drive_type::kCd; }
/// The drives of the map.
[[nodiscard]] DriveMask MaskOf(const DriveMap& drives);

class DiscPlaces final : public Places {
 public:
  /// The map must outlive this object; the folders that the setup names are not looked at.
  explicit DiscPlaces(const DriveMap& drives, DriveSetup setup = {});

  [[nodiscard]] DriveMask LogicalDrives() const override { return MaskOf(drives_) & ~Empty(); }
  [[nodiscard]] DriveMask HiddenDrives() const override { return setup_.hidden; }
  [[nodiscard]] DriveMask LockedDrives() const override { return setup_.locked; }
  [[nodiscard]] DriveMask RememberedDrives() const override { return setup_.remembered; }
  [[nodiscard]] int DriveType(char letter) const override;
  [[nodiscard]] std::optional<Text> VolumeLabel(char letter) const override;
  [[nodiscard]] RemoteName DriveRemoteName(char letter) const override;
  [[nodiscard]] char CurrentDrive() const override { return setup_.current; }
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override;
  void Watch(std::function<void()> changed) override { changed_ = std::move(changed); }

  /// Reports to the watcher that the map has changed. To be called after each change of it.
  void OnDrivesChanged() const;
  /// What is mounted now. From the first call on a removable drive is there only while something is mounted on its
  /// folder. Reports to the watcher when a drive has come or gone.
  void SetMounted(MountedFolders folders);

 private:
  /// The description of a drive; that of an ordinary drive when the setup has none.
  [[nodiscard]] const DriveDescription& Described(char letter) const;
  /// The removable drives of the map without a disc.
  [[nodiscard]] DriveMask Empty() const;
  [[nodiscard]] bool IsThere(char letter) const;

  const DriveMap& drives_;
  DriveSetup setup_;
  std::optional<MountedFolders> mounted_;  // nothing while nobody has said
  std::function<void()> changed_;
};

}  // namespace pnl
