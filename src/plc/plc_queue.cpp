// SPDX-License-Identifier: MIT
#include "plc/plc_queue.h"

#include <algorithm>

namespace pnl {

void PlcQueue::AddCode(std::uint32_t code) {
  const auto place = std::lower_bound(codes_.begin(), codes_.end(), code);
  if (code != 0 && (place == codes_.end() || *place != code)) codes_.insert(place, code);
}

bool PlcQueue::TakeLowerCode() {
  if (mode_ == PlcMode::kHelp || codes_.empty() || codes_.front() >= currentCode_) return false;
  currentCode_ = codes_.front();
  mode_ = PlcMode::kMessage;
  return true;
}

void PlcQueue::RemoveShown() {
  if (mode_ == PlcMode::kMessage) {
    removed_ += std::erase(codes_, currentCode_);
  } else if (mode_ == PlcMode::kFile && !files_.empty()) {
    files_.pop_front();
    ++removed_;
  }
}

PlcItem PlcQueue::Advance() {
  currentCode_ = kNoCode;
  if (!codes_.empty()) {
    currentCode_ = codes_.front();
    mode_ = PlcMode::kMessage;
    return PlcItem::kMessage;
  }
  if (!files_.empty()) {
    mode_ = PlcMode::kFile;
    return PlcItem::kFile;
  }
  mode_ = PlcMode::kClosed;
  removed_ = 0;
  return PlcItem::kNothing;
}

std::size_t PlcQueue::Place() const {
  if (mode_ == PlcMode::kFile) return removed_ + codes_.size() + 1;
  if (mode_ != PlcMode::kMessage) return 0;
  const auto place = std::lower_bound(codes_.begin(), codes_.end(), currentCode_);
  return removed_ + static_cast<std::size_t>(place - codes_.begin()) + 1;
}

}  // namespace pnl
