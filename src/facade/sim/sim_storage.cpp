// SPDX-License-Identifier: MIT
#include "facade/sim/sim_storage.h"

#include <algorithm>

#include "base/format.h"
#include "base/replace_file.h"
#include "facade/utilities.h"

namespace pnl::sim {

void SimStorage::SetPath(std::int32_t id, std::u16string_view path) {
  while (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
  paths_[id] = Text(path);
}

std::u16string SimStorage::Path(std::int32_t id) const {
  const auto set = paths_.find(id);
  if (set != paths_.end()) return set->second;
  const bool used = std::find(std::begin(path_id::kAll), std::end(path_id::kAll), id) != std::end(path_id::kAll);
  return used ? Format(u"C:\\P%d", id) : Text();
}

void SimStorage::SetDrive(const rig::Drive& drive) {
  rig::Drive described = drive;
  if (described.letter >= 'a' && described.letter <= 'z') {
    described.letter = static_cast<char>(described.letter - 'a' + 'A');
  }
  if (described.letter < 'A' || described.letter > 'Z') return;
  const bool wasThere = drives_.Folder(described.letter).has_value();
  drives_.Set(described.letter, described.dir);
  if (described.dir.empty()) {
    described_.erase(described.letter);
  } else {
    described_[described.letter] = described;
  }
  if (wasThere == described.dir.empty()) TellWatcher();
}

void SimStorage::SetDriveMasks(std::string_view noDrives, std::string_view remembered, std::string_view locked) {
  Masks masks{std::string(noDrives), std::string(remembered), std::string(locked)};
  if (masks == masks_) return;
  masks_ = std::move(masks);
  TellWatcher();
}

void SimStorage::TellWatcher() const {
  // The watcher may end the watch or set another one.
  const auto changed = changed_;
  if (changed) changed();
}

std::optional<std::string> SimStorage::HostPath(std::u16string_view panelPath) const {
  return files_.HostPath(panelPath);
}

bool SimStorage::Replace(const std::string& hostPath, std::string_view bytes) const {
  return ReplaceFile(hostPath, bytes) == FileStatus::kOk;
}

bool SimStorage::MakeFolders() {
  bool all = true;
  for (const int id : path_id::kAll) {
    const Text path = Path(id);
    if (!path.empty() && files_.MakeFolder(path) != FileStatus::kOk) all = false;
  }
  return all;
}

}  // namespace pnl::sim
