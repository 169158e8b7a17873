// SPDX-License-Identifier: MIT
#include "places/network_batches.h"

#include <utility>

namespace pnl {
namespace {

std::size_t BytesOf(const NetworkResource& resource) {
  std::size_t bytes = kEntryBytes;
  for (const Text* text : {&resource.remote, &resource.local, &resource.comment, &resource.provider}) {
    if (!text->empty()) bytes += 2 * (text->size() + 1);
  }
  return bytes;
}

class Batches final : public NetworkEnumeration {
 public:
  explicit Batches(std::vector<NetworkResource> all) : all_(std::move(all)) {}

  int Next(std::vector<NetworkResource>& entries) override {
    entries.clear();
    if (next_ == all_.size()) return network_status::kNoMore;
    for (std::size_t bytes = 0; next_ < all_.size(); ++next_) {
      bytes += BytesOf(all_[next_]);
      if (bytes > kBatchBytes) break;
      entries.push_back(all_[next_]);
    }
    return entries.empty() ? network_status::kTooLarge : network_status::kOk;
  }

 private:
  const std::vector<NetworkResource> all_;
  std::size_t next_ = 0;
};

}  // namespace

std::unique_ptr<NetworkEnumeration> EnumerateAll(std::vector<NetworkResource> resources) {
  return std::make_unique<Batches>(std::move(resources));
}

}  // namespace pnl
