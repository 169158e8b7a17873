// SPDX-License-Identifier: MIT
// The drives of another Places, with a reader for the paths of the network that isn't theirs.
#pragma once

#include <memory>
#include <utility>

#include "places/disc_places.h"
#include "places/places_over.h"

namespace pnl {

class NetworkPlaces final : public PlacesOver {
 public:
  NetworkPlaces(Places& drives, std::shared_ptr<const FolderReader> network)
      : PlacesOver(drives), network_(std::move(network)) {}

  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override {
    return MakeCompositeReader(places_.Reader(), network_);
  }

 private:
  std::shared_ptr<const FolderReader> network_;
};

}  // namespace pnl
