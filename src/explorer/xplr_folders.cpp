// SPDX-License-Identifier: MIT
#include "explorer/xplr_folders.h"

#include <optional>
#include <utility>

#include "explorer/xplr_outcomes.h"

namespace pnl {
namespace {

Outcome ClassifyNow(const FolderReader& reader, const NetworkReader& network, const Text& path, WindowHandle owner) {
  const int error = reader.Probe(path);
  if (!WantsConnection(error)) return OutcomeOfError(error);
  return network.Connect(path, owner) == 0 ? Outcome::kFolderUsable : Outcome::kNoConnection;
}

Neighbours EnumerateNow(const NetworkReader& reader, NetworkScope scope, const std::optional<NetworkResource>& below) {
  Neighbours found;
  const auto enumeration = reader.Open(scope, below);
  if (enumeration == nullptr) return found;
  found.opened = true;
  std::vector<NetworkResource> batch;
  // Whatever ends it, what came until then counts.
  while (enumeration->Next(batch) == network_status::kOk) {
    found.resources.insert(found.resources.end(), batch.begin(), batch.end());
  }
  return found;
}

}  // namespace

void XplrFolders::Classify(Text path, WindowHandle owner, const std::function<void(Outcome)>& then) const {
  if (path.empty()) {
    then(Outcome::kFolderNotFound);
    return;
  }
  const auto work = [reader = places_.Reader(), network = network_.Reader(), path = std::move(path), owner] {
    return ClassifyNow(*reader, *network, path, owner);
  };
  if (jobs_.Ask(work, then) == 0) then(Outcome::kNoAccess);
}

void XplrFolders::ListFolders(Text path, const std::function<void(std::vector<Text>)>& then) const {
  const auto work = [reader = places_.Reader(), path = std::move(path)] {
    std::vector<Text> names;
    // A folder that breaks off in the middle shows what came until then.
    static_cast<void>(reader->List(path, [&names](std::vector<PlaceEntry>&& entries) {
      for (PlaceEntry& entry : entries) {
        if (entry.folder && !entry.hidden && !entry.dots) names.push_back(std::move(entry.name));
      }
      return true;
    }));
    return names;
  };
  if (jobs_.Ask(work, then) == 0) then({});
}

void XplrFolders::Enumerate(NetworkResource below, const std::function<void(Neighbours)>& then) const {
  const auto work = [reader = network_.Reader(), below = std::move(below)] {
    return EnumerateNow(*reader, NetworkScope::kEverything, below);
  };
  if (jobs_.Ask(work, then) == 0) then({});
}

void XplrFolders::EnumerateTop(const std::function<void(std::vector<NetworkResource>)>& then) const {
  const auto work = [reader = network_.Reader()] {
    std::vector<NetworkResource> all = EnumerateNow(*reader, NetworkScope::kEverything, std::nullopt).resources;
    for (NetworkResource& connected : EnumerateNow(*reader, NetworkScope::kConnected, std::nullopt).resources) {
      if (connected.display == network_display::kGeneric) all.push_back(std::move(connected));
    }
    return all;
  };
  if (jobs_.Ask(work, then) == 0) then({});
}

void XplrFolders::LookAt(Text path, const std::function<void(FileFacts)>& then) const {
  const auto work = [reader = places_.Reader(), path = std::move(path)] {
    FileFacts facts;
    facts.known = true;
    facts.exists = reader->Exists(path);
    facts.readOnly = facts.exists && reader->IsReadOnly(path);
    return facts;
  };
  if (jobs_.Ask(work, then) == 0) then({});
}

void XplrFolders::MakeFolder(Text path, const std::function<void(bool)>& then) const {
  const auto work = [reader = places_.Reader(), path = std::move(path)] {
    if (reader->Exists(path)) return true;
    const int error = reader->MakeFolder(path);
    return error == place_error::kNone || error == place_error::kAlreadyExists;
  };
  if (jobs_.Ask(work, then) == 0) then(false);
}

}  // namespace pnl
