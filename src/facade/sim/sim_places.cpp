// SPDX-License-Identifier: MIT
#include "facade/sim/sim_places.h"

#include <utility>

#include "base/panel_path.h"
#include "facade/sim/sim_shares.h"
#include "places/disc_places.h"

namespace pnl::sim {
namespace {

DriveMask MaskOfLetters(std::string_view letters) {
  DriveMask mask = 0;
  for (const char letter : letters) mask |= DriveBit(static_cast<unsigned char>(letter));
  return mask;
}

/// What a reader needs to know about the drives.
struct DriveCopy {
  DriveMap folders;
  DriveMask emptiable = 0;
  std::map<char, int> errors;
};

/// Adds the drives that the network has under a local name, such as "N:". A drive of the storage goes before them.
void AddConnectedDrives(const std::vector<rig::NetworkNode>& nodes, DriveCopy& drives) {
  for (const rig::NetworkNode& node : nodes) {
    const auto local = ParsePanelPath(node.local);
    if (local && !node.dir.empty() && !drives.folders.Folder(local->drive)) {
      drives.folders.Set(local->drive, node.dir);
      drives.errors[local->drive] = node.error;
    }
    AddConnectedDrives(node.children, drives);
  }
}

/// Reads the drives' folders, after waiting for those that are held, unless their error forbids it.
class DriveReader final : public FolderReader {
 public:
  DriveReader(DriveCopy drives, std::shared_ptr<SimHold> hold)
      : disc_(MakeDiscReader(std::move(drives.folders), drives.emptiable)),
        errors_(std::move(drives.errors)),
        hold_(std::move(hold)) {}

  int List(TextView folder, const Take& take) const override {
    const int error = Enter(folder);
    return error != place_error::kNone ? error : disc_->List(folder, take);
  }
  int Probe(TextView folder) const override {
    const int error = Enter(folder);
    return error != place_error::kNone ? error : disc_->Probe(folder);
  }
  bool Exists(TextView path) const override { return Enter(path) == place_error::kNone && disc_->Exists(path); }
  bool IsReadOnly(TextView path) const override { return Enter(path) == place_error::kNone && disc_->IsReadOnly(path); }
  int MakeFolder(TextView path) const override {
    const int error = Enter(path);
    return error != place_error::kNone ? error : disc_->MakeFolder(path);
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    return Enter(path) == place_error::kNone ? disc_->ReadStart(path, most) : std::nullopt;
  }

 private:
  /// The error of the path's drive, once the drive isn't held any more.
  [[nodiscard]] int Enter(TextView path) const {
    const auto parsed = ParsePanelPath(path);
    if (!parsed) return place_error::kPathNotFound;
    hold_->WaitWhileHeld(parsed->drive);
    const auto found = errors_.find(parsed->drive);
    return found != errors_.end() ? found->second : place_error::kNone;
  }

  std::shared_ptr<const FolderReader> disc_;
  std::map<char, int> errors_;
  std::shared_ptr<SimHold> hold_;
};

}  // namespace

const rig::Drive* SimPlaces::Described(char letter) const {
  if (!storage_.Map().Folder(letter)) return nullptr;
  static const rig::Drive ordinary;
  const char capital = letter >= 'a' ? static_cast<char>(letter - 'a' + 'A') : letter;
  const auto found = storage_.Drives().find(capital);
  return found != storage_.Drives().end() ? &found->second : &ordinary;
}

DriveMask SimPlaces::LogicalDrives() const { return MaskOf(storage_.Map()); }

DriveMask SimPlaces::HiddenDrives() const { return MaskOfLetters(storage_.DriveMasks().noDrives); }

DriveMask SimPlaces::LockedDrives() const { return MaskOfLetters(storage_.DriveMasks().locked); }

DriveMask SimPlaces::RememberedDrives() const { return MaskOfLetters(storage_.DriveMasks().remembered); }

int SimPlaces::DriveType(char letter) const {
  if (const rig::Drive* drive = Described(letter); drive != nullptr) return drive->type;
  const bool remembered = (RememberedDrives() & DriveBit(static_cast<unsigned char>(letter))) != 0;
  return remembered ? drive_type::kNetwork : drive_type::kNoRoot;
}

std::optional<Text> SimPlaces::VolumeLabel(char letter) const {
  const rig::Drive* drive = Described(letter);
  if (drive == nullptr || drive->labelFails) return std::nullopt;
  return drive->label;
}

Places::RemoteName SimPlaces::DriveRemoteName(char letter) const {
  const rig::Drive* drive = Described(letter);
  if (drive == nullptr || drive->type != drive_type::kNetwork) return {place_error::kNotConnected, {}};
  return {place_error::kNone, drive->remote};
}

std::shared_ptr<const FolderReader> SimPlaces::Reader() const {
  DriveCopy copy;
  copy.folders = storage_.Map();
  for (const auto& [letter, drive] : storage_.Drives()) {
    copy.errors[letter] = drive.error;
    if (IsEmptiable(drive.type)) copy.emptiable |= DriveBit(static_cast<unsigned char>(letter));
  }
  AddConnectedDrives(storage_.Network(), copy);
  return MakeCompositeReader(std::make_shared<DriveReader>(std::move(copy), storage_.Hold()),
                             MakeShareReader(storage_.Network(), storage_.Hold()));
}

}  // namespace pnl::sim
