// SPDX-License-Identifier: MIT
// The drive file: what a machine's owner says about its drives, in addition to their folders: type, label, network
// path, and which letters are hidden, locked or remembered. docs/formats/drives.md describes it. Only reads; DiscPlaces
// puts it to use.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "places/places.h"

namespace pnl {

struct DriveDescription {
  std::string folder;  // an absolute path of this machine; empty when none is given
  int type = drive_type::kFixed;
  std::optional<Text> label;  // nothing when the volume's label isn't known
  Text remote;                // the network path of a network drive
  friend bool operator==(const DriveDescription&, const DriveDescription&) = default;
};

struct DriveSetup {
  std::map<char, DriveDescription> drives;  // by capital letter
  DriveMask hidden = 0;
  DriveMask remembered = 0;
  DriveMask locked = 0;
  char current = 'C';
  friend bool operator==(const DriveSetup&, const DriveSetup&) = default;
};

/// Reads the bytes of a drive file. A value that makes no sense counts as absent.
[[nodiscard]] DriveSetup ParseDriveFile(std::string_view bytes);
/// Reads a drive file of this machine. Returns nothing when hostPath is null or the file can't be read, isn't a regular
/// file or is larger than a megabyte.
[[nodiscard]] std::optional<DriveSetup> ReadDriveFile(const char* hostPath);

}  // namespace pnl
