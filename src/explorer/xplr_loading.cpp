// SPDX-License-Identifier: MIT
#include "explorer/xplr_loading.h"

#include <utility>

#include "explorer/xplr_names.h"
#include "explorer/xplr_sort.h"

namespace pnl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr TextView kShareProvider = u"Microsoft Network";

/// The entries of a folder that may become rows, in the disc's order.
struct Found {
  std::vector<PlaceEntry> folders;
  std::vector<PlaceEntry> files;

  void Take(std::vector<PlaceEntry>&& entries) {
    for (PlaceEntry& entry : entries) {
      if (entry.hidden || entry.dots) continue;
      (entry.folder ? folders : files).push_back(std::move(entry));
    }
  }
};

class RowMaker {
 public:
  explicit RowMaker(ListFor mode) : mode_(mode) {}
  void Add(PlaceEntry entry) {
    rows_.push_back(MakeRow(std::move(entry), mode_, static_cast<std::uint32_t>(rows_.size()), zone_));
  }
  [[nodiscard]] XplrRows Sorted(const SortState& sort) {
    SortRows(rows_, sort);
    return std::move(rows_);
  }

 private:
  const ListFor mode_;
  LocalZone zone_;
  XplrRows rows_;
};

XplrRows RowsOf(Found found, const XplrLoadRequest& request) {
  RowMaker rows(request.mode);
  for (PlaceEntry& folder : found.folders) rows.Add(std::move(folder));
  const std::vector<Text> patterns = ListingPatterns(request.filter);
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    const bool last = i + 1 == patterns.size();
    for (PlaceEntry& file : found.files) {
      if (MatchesPattern(file.name, patterns[i])) rows.Add(last ? std::move(file) : file);
    }
  }
  return rows.Sorted(request.sort);
}

}  // namespace

XplrRows LoadFolder(const FolderReader& reader, const XplrLoadRequest& request, const XplrProgress& progress) {
  Found found;
  bool shown = false;
  bool ended = false;
  const Clock::time_point end = Clock::now() + progress.patience;
  static_cast<void>(reader.List(request.path, [&](std::vector<PlaceEntry>&& entries) {
    ended = !progress.goesOn();
    if (ended) return false;
    found.Take(std::move(entries));
    if (shown || Clock::now() < end) return true;
    shown = true;
    progress.partial(RowsOf(found, request));
    return true;
  }));
  return ended ? XplrRows() : RowsOf(std::move(found), request);
}

XplrRows LoadShares(const FolderReader& reader, const NetworkReader& network, const XplrLoadRequest& request,
                    const XplrProgress& progress) {
  RowMaker rows(request.mode);
  NetworkResource server;
  server.display = network_display::kServer;
  server.remote = request.path;
  server.provider = kShareProvider;
  const auto enumeration = network.Open(NetworkScope::kEverything, server);
  std::vector<NetworkResource> shares;
  // One batch only: more shares than it takes aren't shown.
  if (enumeration == nullptr || enumeration->Next(shares) != network_status::kOk) return {};
  for (const NetworkResource& share : shares) {
    if (share.display != network_display::kShare) continue;
    // A share that doesn't answer may take seconds.
    if (!progress.goesOn()) return {};
    bool added = false;
    static_cast<void>(reader.List(share.remote, [&](std::vector<PlaceEntry>&& entries) {
      for (PlaceEntry& entry : entries) {
        if (!entry.folder || entry.hidden || !entry.dots) continue;
        rows.Add(std::move(entry));
        added = true;
        break;
      }
      return !added;
    }));
  }
  return rows.Sorted(request.sort);
}

}  // namespace pnl
