// SPDX-License-Identifier: MIT
#include "facade/mill/machine_data.h"

namespace pnl::sim {

namespace {

struct Offset {
  int gCode;
  Point zero;
};
constexpr std::array<Offset, 6> kOffsets{{
    {54, {0, 0, 0}},
    {55, {100, 50, 0}},
    {56, {-100, -50, 0}},
    {57, {200, 0, -50}},
    {58, {-200, 0, -50}},
    {59, {0, 100, -100}},
}};

}  // namespace

Point OffsetOf(int gCode) {
  for (const Offset& offset : kOffsets) {
    if (offset.gCode == gCode) return offset.zero;
  }
  return {};
}

}  // namespace pnl::sim
