// SPDX-License-Identifier: MIT
// Drives, folders and a network in memory, for tests of the explorer's logic. As strict as a real disc: names compare
// without regard to case, a folder needs its parent, a root has no dot entries.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "places/network.h"
#include "places/places.h"

namespace pnl::test {

struct TextNoCaseLess {
  bool operator()(const Text& left, const Text& right) const { return ToUpper(left) < ToUpper(right); }
};

/// Everything that FakePlaces has; its readers read it as it is when they are asked.
struct FakeDisc {
  /// The entries of each folder, by its path. "C:" is a drive's root.
  std::map<Text, std::vector<PlaceEntry>, TextNoCaseLess> folders;
  /// Folders that answer this error, with everything below them.
  std::map<Text, int, TextNoCaseLess> errors;
  std::set<Text, TextNoCaseLess> readOnly;
  int makeError = place_error::kNone;
  std::map<Text, std::string, TextNoCaseLess> bytes;  // of files
  std::vector<Text> asked;                            // "list C:\A", "probe C:\A", "make C:\A"
  std::vector<Text> looked;  // the paths of which was asked whether they exist or may be written
  std::size_t batch = 0;     // so many entries come at a time; 0 for all at once
  std::function<void()> betweenBatches;

  void AddFolder(const Text& path) {
    folders[path];
    if (const std::size_t slash = path.rfind(u'\\'); slash != Text::npos && !path.starts_with(u"\\\\")) {
      AddFolder(path.substr(0, slash));
      AddEntry(path, true);
    }
  }
  void AddFile(const Text& path) {
    AddFolder(path.substr(0, path.rfind(u'\\')));
    AddEntry(path, false);
  }

 private:
  void AddEntry(const Text& path, bool folder) {
    const std::size_t slash = path.rfind(u'\\');
    PlaceEntry entry;
    entry.name = path.substr(slash + 1);
    entry.folder = folder;
    entry.hidden = entry.name.starts_with(u'.');
    std::vector<PlaceEntry>& entries = folders[path.substr(0, slash)];
    if (std::find(entries.begin(), entries.end(), entry) == entries.end()) entries.push_back(entry);
  }
};

class FakeReader final : public FolderReader {
 public:
  explicit FakeReader(std::shared_ptr<FakeDisc> disc) : disc_(std::move(disc)) {}

  [[nodiscard]] int List(TextView folder, const Take& take) const override {
    disc_->asked.push_back(u"list " + Text(folder));
    const int error = Answer(folder);
    if (error != place_error::kNone) return error;
    std::vector<PlaceEntry> entries;
    if (folder.size() > 2) {
      for (const char16_t* name : {u".", u".."}) {
        PlaceEntry dots;
        dots.name = name;
        dots.folder = dots.dots = true;
        entries.push_back(dots);
      }
    }
    const auto& own = disc_->folders.find(Text(folder))->second;
    entries.insert(entries.end(), own.begin(), own.end());
    const std::size_t step = disc_->batch == 0 ? std::max<std::size_t>(entries.size(), 1) : disc_->batch;
    for (std::size_t first = 0; first < entries.size() || first == 0; first += step) {
      if (first != 0 && disc_->betweenBatches) disc_->betweenBatches();
      const auto from = entries.begin() + static_cast<std::ptrdiff_t>(first);
      const auto to = entries.begin() + static_cast<std::ptrdiff_t>(std::min(first + step, entries.size()));
      if (!take({from, to})) break;
    }
    return place_error::kNone;
  }
  [[nodiscard]] int Probe(TextView folder) const override {
    disc_->asked.push_back(u"probe " + Text(folder));
    return Answer(folder);
  }
  [[nodiscard]] bool Exists(TextView path) const override {
    disc_->looked.emplace_back(path);
    return IsThere(path);
  }
  [[nodiscard]] bool IsReadOnly(TextView path) const override {
    disc_->looked.emplace_back(path);
    return disc_->readOnly.count(Text(path)) != 0;
  }
  [[nodiscard]] int MakeFolder(TextView path) const override {
    disc_->asked.push_back(u"make " + Text(path));
    if (disc_->makeError != place_error::kNone) return disc_->makeError;
    if (IsThere(path)) return place_error::kAlreadyExists;
    disc_->AddFolder(Text(path));
    return place_error::kNone;
  }
  [[nodiscard]] std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    disc_->asked.push_back(u"read " + Text(path));
    const auto found = disc_->bytes.find(Text(path));
    if (found == disc_->bytes.end()) return std::nullopt;
    return found->second.substr(0, most);
  }

 private:
  [[nodiscard]] bool IsThere(TextView path) const { return IsFolder(path) || HasEntry(path); }
  [[nodiscard]] bool IsFolder(TextView path) const { return disc_->folders.count(Text(path)) != 0; }
  [[nodiscard]] bool HasEntry(TextView path) const {
    const std::size_t slash = path.rfind(u'\\');
    if (slash == TextView::npos) return false;
    const auto folder = disc_->folders.find(Text(path.substr(0, slash)));
    return folder != disc_->folders.end() &&
           std::any_of(folder->second.begin(), folder->second.end(),
                       [&](const PlaceEntry& entry) { return EqualNoCase(entry.name, path.substr(slash + 1)); });
  }
  [[nodiscard]] int Answer(TextView folder) const {
    for (const auto& [path, error] : disc_->errors) {
      if (EqualNoCase(folder.substr(0, path.size()), path)) return error;
    }
    if (IsFolder(folder)) {
      return folder.size() == 2 && disc_->folders[Text(folder)].empty() ? place_error::kNothingFound
                                                                        : place_error::kNone;
    }
    return HasEntry(folder) ? place_error::kNoFolder : place_error::kPathNotFound;
  }
  std::shared_ptr<FakeDisc> disc_;
};

class FakePlaces final : public Places {
 public:
  std::shared_ptr<FakeDisc> disc = std::make_shared<FakeDisc>();
  std::map<char, int> types{{'C', drive_type::kFixed}};
  std::map<char, Text> labels;
  std::map<char, RemoteName> remotes;
  DriveMask hidden = 0;
  DriveMask locked = 0;
  DriveMask remembered = 0;
  char current = 'C';

  [[nodiscard]] DriveMask LogicalDrives() const override {
    DriveMask all = 0;
    for (const auto& [letter, type] : types) all |= DriveBit(static_cast<char16_t>(letter));
    return all;
  }
  [[nodiscard]] DriveMask HiddenDrives() const override { return hidden; }
  [[nodiscard]] DriveMask LockedDrives() const override { return locked; }
  [[nodiscard]] DriveMask RememberedDrives() const override { return remembered; }
  [[nodiscard]] int DriveType(char letter) const override {
    const auto found = types.find(letter);
    return found == types.end() ? drive_type::kNoRoot : found->second;
  }
  [[nodiscard]] std::optional<Text> VolumeLabel(char letter) const override {
    const auto found = labels.find(letter);
    return found == labels.end() ? std::nullopt : std::optional(found->second);
  }
  [[nodiscard]] RemoteName DriveRemoteName(char letter) const override {
    const auto found = remotes.find(letter);
    return found == remotes.end() ? RemoteName{place_error::kPathNotFound, {}} : found->second;
  }
  [[nodiscard]] char CurrentDrive() const override { return current; }
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override {
    return std::make_shared<FakeReader>(disc);
  }
  void Watch(std::function<void()> changed) override { watcher = std::move(changed); }
  std::function<void()> watcher;
};

/// What is below each resource, by its name: comment of a provider, remote name of the others; "" is the top.
struct FakeNeighbourhood {
  std::map<Text, std::vector<NetworkResource>> below;
  std::vector<NetworkResource> connected;
  std::set<Text> closed;  // can't be opened
  int connectError = 0;
  std::vector<Text> asked;  // "open \\SRV of PROVIDER", "connect \\SRV\SHARE"
};

class FakeNetwork final : public Network {
 public:
  std::shared_ptr<FakeNeighbourhood> around = std::make_shared<FakeNeighbourhood>();

  [[nodiscard]] std::shared_ptr<const NetworkReader> Reader() const override { return std::make_shared<Asker>(around); }

 private:
  class Entries final : public NetworkEnumeration {
   public:
    explicit Entries(std::vector<NetworkResource> entries) : entries_(std::move(entries)) {}
    [[nodiscard]] int Next(std::vector<NetworkResource>& entries) override {
      entries = std::exchange(entries_, {});
      return entries.empty() ? network_status::kNoMore : network_status::kOk;
    }

   private:
    std::vector<NetworkResource> entries_;
  };
  class Asker final : public NetworkReader {
   public:
    explicit Asker(std::shared_ptr<FakeNeighbourhood> around) : around_(std::move(around)) {}
    [[nodiscard]] std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                                           const std::optional<NetworkResource>& below) const override {
      if (scope == NetworkScope::kConnected) return std::make_unique<Entries>(around_->connected);
      const Text name = !below ? Text() : below->remote.empty() ? below->comment : below->remote;
      if (below) around_->asked.push_back(u"open " + name + u" of " + below->provider);
      if (around_->closed.count(name) != 0) return nullptr;
      return std::make_unique<Entries>(around_->below[name]);
    }
    [[nodiscard]] int Connect(TextView path, WindowHandle /*owner*/) const override {
      around_->asked.push_back(u"connect " + Text(path));
      return around_->connectError;
    }

   private:
    std::shared_ptr<FakeNeighbourhood> around_;
  };
};

}  // namespace pnl::test
