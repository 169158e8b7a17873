// SPDX-License-Identifier: MIT
// The seam to the places that an operator can walk: drives, folders and what is in them. Reads only, but for
// MakeFolder. What is asked of a drive's letter answers at once; what may have to wait for a disc is asked of a
// FolderReader, on a thread of its own. DiscPlaces reads the discs of this machine; facade/sim has the simulated side.
// The network neighbourhood is in places/network.h.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"

namespace pnl {

/// Why a place couldn't be read, as numbers of the panel's system. Other numbers may come too.
namespace place_error {
inline constexpr int kNone = 0;
inline constexpr int kNothingFound = 2;
inline constexpr int kPathNotFound = 3;
inline constexpr int kAccessDenied = 5;
inline constexpr int kNotReady = 21;
inline constexpr int kRemoteNotListening = 51;
inline constexpr int kWrongPassword = 86;
inline constexpr int kAlreadyExists = 183;
inline constexpr int kNoFolder = 267;
inline constexpr int kLogonFailed = 1326;
inline constexpr int kNotAuthenticated = 2118;
inline constexpr int kNotConnected = 2250;
}  // namespace place_error

/// The types of drives, as numbers of the panel's system.
namespace drive_type {
inline constexpr int kUnknown = 0;
inline constexpr int kNoRoot = 1;
inline constexpr int kRemovable = 2;
inline constexpr int kFixed = 3;
inline constexpr int kNetwork = 4;
inline constexpr int kCd = 5;
}  // namespace drive_type

/// A set of drive letters: bit 0 is A, bit 25 is Z.
using DriveMask = std::uint32_t;
/// The bit of a letter, small or capital. 0 for any other character.
[[nodiscard]] constexpr DriveMask DriveBit(char16_t letter) {
  if (letter >= u'a' && letter <= u'z') letter = static_cast<char16_t>(letter - u'a' + u'A');
  return letter >= u'A' && letter <= u'Z' ? DriveMask{1} << (letter - u'A') : 0;
}

/// A file or folder in a folder.
struct PlaceEntry {
  Text name;                 // bytes that are no UTF-8 read as U+FFFD; the name still opens what it names
  bool folder = false;       // a link to a folder is a folder
  bool hidden = false;       // the name begins with a point; never set for "." and ".."
  bool dots = false;         // "." or ".."
  std::uint64_t size = 0;    // bytes; 0 for a folder
  std::int64_t written = 0;  // the last change, in seconds since 1970-01-01 00:00:00 UTC
  friend bool operator==(const PlaceEntry&, const PlaceEntry&) = default;
};

/// Reads folders, by panel path or network path. Never changes; may be used on any thread. Every call may take as long
/// as the disc or server needs.
class FolderReader {
 public:
  /// Gets the entries as they come, some at a time. Returns false to end the listing.
  using Take = std::function<bool(std::vector<PlaceEntry>&& entries)>;

  virtual ~FolderReader() = default;
  /// Lists a folder in the order of the disc. Returns kNone when everything was listed or take returned false, else
  /// the place_error with which the listing ended; what came before was taken. A folder, and the root of a share,
  /// begins with the entries "." and ".."; a drive's root has none, so it answers kNothingFound when it is empty.
  [[nodiscard]] virtual int List(TextView folder, const Take& take) const = 0;
  /// As List, but only finds out whether something is there: kNone, or the place_error. A server that can be enumerated
  /// is kNone.
  [[nodiscard]] virtual int Probe(TextView folder) const = 0;
  /// True when a file or folder has that path.
  [[nodiscard]] virtual bool Exists(TextView path) const = 0;
  /// True when a file or folder has that path and its owner's write permission is missing.
  [[nodiscard]] virtual bool IsReadOnly(TextView path) const = 0;
  /// Makes a folder with its parents. Returns kNone, kAlreadyExists, or why it couldn't be made.
  [[nodiscard]] virtual int MakeFolder(TextView path) const = 0;
  /// The first bytes of a file, at most so many; fewer are all that it has. Nothing for what isn't a file, or can't be
  /// read; a reader that never reads files need not replace it.
  [[nodiscard]] virtual std::optional<std::string> ReadStart(TextView /*path*/, std::size_t /*most*/) const {
    return std::nullopt;
  }
};

class Places {
 public:
  virtual ~Places() = default;
  /// The drives that are there now.
  [[nodiscard]] virtual DriveMask LogicalDrives() const = 0;
  /// Drives that the machine's policy hides.
  [[nodiscard]] virtual DriveMask HiddenDrives() const = 0;
  [[nodiscard]] virtual DriveMask LockedDrives() const = 0;
  /// Network drives of earlier sessions, connected or not.
  [[nodiscard]] virtual DriveMask RememberedDrives() const = 0;
  /// A drive_type. A remembered drive that isn't there is kNetwork, so that it can be shown; any other one is kNoRoot.
  [[nodiscard]] virtual int DriveType(char letter) const = 0;
  /// The volume's label, which may be empty. Nothing when it isn't known.
  [[nodiscard]] virtual std::optional<Text> VolumeLabel(char letter) const = 0;
  struct RemoteName {
    int error = place_error::kNone;  // kNotConnected: the name, if there is one, is remembered
    Text name;
  };
  /// The network path of a network drive.
  [[nodiscard]] virtual RemoteName DriveRemoteName(char letter) const = 0;
  /// The drive in which the panel works, a capital letter.
  [[nodiscard]] virtual char CurrentDrive() const = 0;
  /// A reader of the drives as they are now.
  [[nodiscard]] virtual std::shared_ptr<const FolderReader> Reader() const = 0;
  /// Calls changed on the window's thread each time a drive has come or gone, or has been hidden, locked or remembered.
  /// There is one watcher: a new function takes the place of the last, an empty one ends the watch.
  virtual void Watch(std::function<void()> changed) = 0;
};

}  // namespace pnl
