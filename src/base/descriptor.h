// SPDX-License-Identifier: MIT
// Owns one file descriptor of this machine and closes it. For the sides of the seams that deal with the system.
#pragma once

#include <unistd.h>

#include <utility>

namespace pnl {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  explicit operator bool() const { return number_ >= 0; }
  [[nodiscard]] int Get() const { return number_; }

 private:
  int number_ = -1;
};

}  // namespace pnl
