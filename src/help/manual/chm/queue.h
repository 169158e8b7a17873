// SPDX-License-Identifier: MIT
// The objects of a manual that are to be unpacked, in order, each once. The reading process and the one that watches it
// both have one; so a reader that crashed is followed by one that goes on with the next object.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/text.h"

namespace pnl::chm {

class ObjectQueue {
 public:
  /// Adds an object by its own name, which begins with a slash. Returns false when it is known already, in whatever
  /// case, or there are too many.
  bool Add(std::string object) {
    if (objects_.size() >= kMost || !known_.insert(KeyOf(object)).second) return false;
    objects_.push_back(std::move(object));
    return true;
  }
  [[nodiscard]] bool IsEmpty() const { return next_ == objects_.size(); }
  /// Takes the next object. There must be one.
  std::string Take() { return objects_[next_++]; }
  [[nodiscard]] bool IsFull() const { return objects_.size() >= kMost; }

 private:
  /// Far more than are unpacked: links often lead nowhere.
  static constexpr std::size_t kMost = 200'000;

  [[nodiscard]] static Text KeyOf(std::string_view object) { return ToUpper(DecodeFile(object)); }

  std::vector<std::string> objects_;
  std::unordered_set<Text> known_;
  std::size_t next_ = 0;
};

}  // namespace pnl::chm
