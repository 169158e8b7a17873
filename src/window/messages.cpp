// SPDX-License-Identifier: MIT
#include "window/messages.h"

#include <deque>
#include <map>
#include <string>

#include "window/window.h"

namespace pnl {
namespace {

/// The names and numbers of the process. The shared table is registered first, so that its numbers don't depend on who
/// asks first.
class Registry {
 public:
  static Registry& Instance() {
    static Registry registry;
    return registry;
  }

  std::uint32_t Register(std::string_view name) {
    if (name.empty()) return 0;
    const auto known = numbers_.find(name);
    if (known != numbers_.end()) return known->second;
    const std::uint32_t number = kFirstRegistered + static_cast<std::uint32_t>(names_.size());
    if (number > kLastRegistered) return 0;
    // A deque never moves its elements, so the map's keys and the views handed out stay valid.
    names_.emplace_back(name);
    numbers_.emplace(names_.back(), number);
    return number;
  }

  [[nodiscard]] std::string_view Name(std::uint32_t number) const {
    if (number < kFirstRegistered || number - kFirstRegistered >= names_.size()) return {};
    return names_[number - kFirstRegistered];
  }

 private:
  Registry() {
    for (const std::string_view name : kMessageNames) Register(name);
  }
  std::deque<std::string> names_;
  std::map<std::string_view, std::uint32_t> numbers_;
};

}  // namespace

std::uint32_t RegisterMessage(std::string_view name) { return Registry::Instance().Register(name); }

std::string_view RegisteredMessageName(std::uint32_t number) { return Registry::Instance().Name(number); }

}  // namespace pnl
