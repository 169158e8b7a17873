// SPDX-License-Identifier: MIT
#include "places/share_reader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace pnl {
namespace {

/// So many entries go to the taker at a time.
constexpr std::size_t kBatch = 1024;

struct Done {
  int error = place_error::kRemoteNotListening;
};

ShareListing ListFolder(ShareClient& client, const SharePlace& place) { return client.List(place); }
ShareFacts LookAt(ShareClient& client, const SharePlace& place) { return client.Look(place); }

/// Makes the folders that are missing on the way to the place, and the place.
Done MakeWay(ShareClient& client, const SharePlace& place) {
  const ShareFacts there = client.Look(place);
  if (there.error == place_error::kNone) return {place_error::kAlreadyExists};
  if (there.error != place_error::kPathNotFound) return {there.error};
  SharePlace at = place;
  at.names.clear();
  if (const int error = client.Look(at).error; error != place_error::kNone) return {error};
  for (const Text& name : place.names) {
    at.names.push_back(name);
    const ShareFacts facts = client.Look(at);
    if (facts.error == place_error::kNone && facts.folder) continue;
    if (facts.error == place_error::kNone) return {place_error::kPathNotFound};
    if (facts.error != place_error::kPathNotFound) return {facts.error};
    // Somebody else may have made it meanwhile.
    const int error = client.MakeFolder(at);
    if (error != place_error::kNone && error != place_error::kAlreadyExists) return {error};
  }
  return {place_error::kNone};
}

class ShareReader final : public FolderReader {
 public:
  explicit ShareReader(std::shared_ptr<ShareAccess> access) : access_(std::move(access)) {}

  int List(TextView folder, const Take& take) const override {
    auto place = access_->PlaceOf(folder);
    if (!place) return place_error::kPathNotFound;
    if (place->share.empty()) return ProbeServer(*place, folder);
    ShareListing listing = access_->Ask(std::move(*place), &ListFolder);
    if (listing.error != place_error::kNone) return listing.error;
    if (take({{u".", true, false, true, 0, 0}, {u"..", true, false, true, 0, 0}})) HandOver(listing.entries, take);
    return place_error::kNone;
  }
  int Probe(TextView folder) const override {
    auto place = access_->PlaceOf(folder);
    if (!place) return place_error::kPathNotFound;
    if (place->share.empty()) return ProbeServer(*place, folder);
    // The client is asked for the whole folder: one that may be entered may still refuse to be listed.
    return access_->Ask(std::move(*place), &ListFolder).error;
  }
  bool Exists(TextView path) const override { return Look(path).error == place_error::kNone; }
  bool IsReadOnly(TextView path) const override { return Look(path).readOnly; }
  int MakeFolder(TextView path) const override {
    auto place = access_->PlaceOf(path);
    if (!place) return place_error::kPathNotFound;
    if (!place->share.empty()) return access_->Ask(std::move(*place), &MakeWay).error;
    const int error = ProbeServer(*place, path);
    return error == place_error::kNone ? place_error::kAlreadyExists : error;
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    auto place = access_->PlaceOf(path);
    if (!place || place->share.empty()) return std::nullopt;
    ShareStart start = access_->Ask(std::move(*place), [most](ShareClient& client, const SharePlace& file) {
      return client.ReadStart(file, most);
    });
    return start.error == place_error::kNone ? std::optional(std::move(start.bytes)) : std::nullopt;
  }

 private:
  [[nodiscard]] int ProbeServer(const SharePlace& place, TextView path) const {
    return access_->SharesOf(place, ParseNetworkPath(path)->server).error;
  }
  [[nodiscard]] ShareFacts Look(TextView path) const {
    auto place = access_->PlaceOf(path);
    if (!place) return {place_error::kPathNotFound};
    if (place->share.empty()) return {ProbeServer(*place, path), true};
    return access_->Ask(std::move(*place), &LookAt);
  }
  static void HandOver(std::vector<PlaceEntry>& entries, const Take& take) {
    for (std::size_t first = 0; first < entries.size(); first += kBatch) {
      const auto from = entries.begin() + static_cast<std::ptrdiff_t>(first);
      const auto to = entries.begin() + static_cast<std::ptrdiff_t>(std::min(first + kBatch, entries.size()));
      if (!take({std::make_move_iterator(from), std::make_move_iterator(to)})) return;
    }
  }

  std::shared_ptr<ShareAccess> access_;
};

}  // namespace

std::shared_ptr<const FolderReader> MakeShareReader(std::shared_ptr<ShareAccess> access) {
  return std::make_shared<ShareReader>(std::move(access));
}

}  // namespace pnl
