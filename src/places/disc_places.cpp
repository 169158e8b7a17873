// SPDX-License-Identifier: MIT
#include "places/disc_places.h"

#include <utility>

#include "base/panel_path.h"
#include "places/host_tree.h"

namespace pnl {
namespace {

/// Finds the tree of each path's drive in its own copy of the map. Nothing in it changes, so any thread may use it.
class DiscReader final : public FolderReader {
 public:
  DiscReader(DriveMap drives, DriveMask emptiable, DriveMask empty)
      : drives_(std::move(drives)), emptiable_(emptiable), empty_(empty) {}

  int List(TextView folder, const Take& take) const override {
    return InTree(folder, [&](const HostTree& tree, const HostTree::Names& names) { return tree.List(names, take); });
  }
  int Probe(TextView folder) const override {
    return InTree(folder, [](const HostTree& tree, const HostTree::Names& names) { return tree.Probe(names); });
  }
  bool Exists(TextView path) const override {
    const auto place = Find(path);
    return place && !Has(empty_, *place) && place->tree.Exists(place->names);
  }
  bool IsReadOnly(TextView path) const override {
    const auto place = Find(path);
    return place && !Has(empty_, *place) && place->tree.IsReadOnly(place->names);
  }
  int MakeFolder(TextView path) const override {
    return InTree(path, [](const HostTree& tree, const HostTree::Names& names) { return tree.MakeFolder(names); });
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    const auto place = Find(path);
    if (!place || Has(empty_, *place)) return std::nullopt;
    return place->tree.ReadStart(place->names, most);
  }

 private:
  struct Place {
    HostTree tree;
    HostTree::Names names;
    char drive;
  };

  [[nodiscard]] std::optional<Place> Find(TextView path) const {
    auto parsed = ParsePanelPath(path);
    if (!parsed) return std::nullopt;
    auto folder = drives_.Folder(parsed->drive);
    if (!folder) return std::nullopt;
    return Place{{std::move(*folder), HostTree::Root::kDrive}, std::move(parsed->names), parsed->drive};
  }
  [[nodiscard]] static bool Has(DriveMask drives, const Place& place) {
    return (drives & DriveBit(static_cast<char16_t>(place.drive))) != 0;
  }
  template <typename Operation>
  [[nodiscard]] int InTree(TextView path, const Operation& operation) const {
    const auto place = Find(path);
    if (!place) return place_error::kPathNotFound;
    // The folder without its disc is part of another disc, on which nothing may be listed or made by mistake.
    if (Has(empty_, *place)) return place_error::kNotReady;
    const int error = operation(place->tree, place->names);
    const bool mayBeOut = Has(emptiable_, *place);
    if (error == place_error::kPathNotFound && mayBeOut && place->tree.IsMissing()) return place_error::kNotReady;
    return error;
  }

  DriveMap drives_;
  DriveMask emptiable_;
  DriveMask empty_;
};

class CompositeReader final : public FolderReader {
 public:
  CompositeReader(std::shared_ptr<const FolderReader> drives, std::shared_ptr<const FolderReader> network)
      : drives_(std::move(drives)), network_(std::move(network)) {}

  int List(TextView folder, const Take& take) const override {
    const FolderReader* reader = For(folder);
    return reader != nullptr ? reader->List(folder, take) : place_error::kPathNotFound;
  }
  int Probe(TextView folder) const override {
    const FolderReader* reader = For(folder);
    return reader != nullptr ? reader->Probe(folder) : place_error::kPathNotFound;
  }
  bool Exists(TextView path) const override {
    const FolderReader* reader = For(path);
    return reader != nullptr && reader->Exists(path);
  }
  bool IsReadOnly(TextView path) const override {
    const FolderReader* reader = For(path);
    return reader != nullptr && reader->IsReadOnly(path);
  }
  int MakeFolder(TextView path) const override {
    const FolderReader* reader = For(path);
    return reader != nullptr ? reader->MakeFolder(path) : place_error::kPathNotFound;
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    const FolderReader* reader = For(path);
    return reader != nullptr ? reader->ReadStart(path, most) : std::nullopt;
  }

 private:
  [[nodiscard]] const FolderReader* For(TextView path) const {
    return path.substr(0, 2) == u"\\\\" ? network_.get() : drives_.get();
  }

  std::shared_ptr<const FolderReader> drives_;
  std::shared_ptr<const FolderReader> network_;
};

/// As the mount table names a folder.
std::string WithoutTrailingSlashes(std::string folder) {
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

char Capital(char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter; }

bool Contains(DriveMask mask, char letter) { return (mask & DriveBit(static_cast<unsigned char>(letter))) != 0; }

}  // namespace

std::shared_ptr<const FolderReader> MakeDiscReader(DriveMap drives, DriveMask emptiable, DriveMask empty) {
  return std::make_shared<DiscReader>(std::move(drives), emptiable, empty);
}

std::shared_ptr<const FolderReader> MakeCompositeReader(std::shared_ptr<const FolderReader> drives,
                                                        std::shared_ptr<const FolderReader> network) {
  return std::make_shared<CompositeReader>(std::move(drives), std::move(network));
}

DriveMask MaskOf(const DriveMap& drives) {
  DriveMask mask = 0;
  for (const char letter : drives.Letters()) mask |= DriveBit(static_cast<unsigned char>(letter));
  return mask;
}

DiscPlaces::DiscPlaces(const DriveMap& drives, DriveSetup setup) : drives_(drives), setup_(std::move(setup)) {}

const DriveDescription& DiscPlaces::Described(char letter) const {
  static const DriveDescription ordinary;
  const auto found = setup_.drives.find(Capital(letter));
  return found != setup_.drives.end() ? found->second : ordinary;
}

DriveMask DiscPlaces::Empty() const {
  DriveMask empty = 0;
  if (!mounted_) return empty;
  for (const char letter : drives_.Letters()) {
    const bool removable = Described(letter).type == drive_type::kRemovable;
    if (!removable || mounted_->count(WithoutTrailingSlashes(*drives_.Folder(letter))) != 0) continue;
    empty |= DriveBit(static_cast<unsigned char>(letter));
  }
  return empty;
}

bool DiscPlaces::IsThere(char letter) const { return Contains(LogicalDrives(), letter); }

int DiscPlaces::DriveType(char letter) const {
  if (IsThere(letter)) return Described(letter).type;
  // So that a drive of an earlier session is shown, connected or not.
  return Contains(setup_.remembered, letter) ? drive_type::kNetwork : drive_type::kNoRoot;
}

std::optional<Text> DiscPlaces::VolumeLabel(char letter) const {
  return IsThere(letter) ? Described(letter).label : std::nullopt;
}

Places::RemoteName DiscPlaces::DriveRemoteName(char letter) const {
  if (DriveType(letter) != drive_type::kNetwork) return {place_error::kNotConnected, {}};
  const int error = IsThere(letter) ? place_error::kNone : place_error::kNotConnected;
  return {error, Described(letter).remote};
}

std::shared_ptr<const FolderReader> DiscPlaces::Reader() const {
  DriveMask emptiable = 0;
  for (const auto& [letter, drive] : setup_.drives) {
    if (IsEmptiable(drive.type)) emptiable |= DriveBit(static_cast<unsigned char>(letter));
  }
  return MakeDiscReader(drives_, emptiable, Empty());
}

void DiscPlaces::SetMounted(MountedFolders folders) {
  const DriveMask before = LogicalDrives();
  mounted_ = std::move(folders);
  if (LogicalDrives() != before) OnDrivesChanged();
}

void DiscPlaces::OnDrivesChanged() const {
  // The watcher may end the watch or set another one.
  const auto changed = changed_;
  if (changed) changed();
}

}  // namespace pnl
