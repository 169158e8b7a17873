// SPDX-License-Identifier: MIT
// The drives of another Places, with a reader of its own. Passes everything else on.
#pragma once

#include <functional>
#include <utility>

#include "places/places.h"

namespace pnl {

class PlacesOver : public Places {
 public:
  /// places must outlive this object.
  explicit PlacesOver(Places& places) : places_(places) {}

  [[nodiscard]] DriveMask LogicalDrives() const override { return places_.LogicalDrives(); }
  [[nodiscard]] DriveMask HiddenDrives() const override { return places_.HiddenDrives(); }
  [[nodiscard]] DriveMask LockedDrives() const override { return places_.LockedDrives(); }
  [[nodiscard]] DriveMask RememberedDrives() const override { return places_.RememberedDrives(); }
  [[nodiscard]] int DriveType(char letter) const override { return places_.DriveType(letter); }
  [[nodiscard]] std::optional<Text> VolumeLabel(char letter) const override { return places_.VolumeLabel(letter); }
  [[nodiscard]] RemoteName DriveRemoteName(char letter) const override { return places_.DriveRemoteName(letter); }
  [[nodiscard]] char CurrentDrive() const override { return places_.CurrentDrive(); }
  void Watch(std::function<void()> changed) override { places_.Watch(std::move(changed)); }

 protected:
  Places& places_;
};

}  // namespace pnl
