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

constexpr std::array<ToolFacts, 6> kTools{{
    {1, 10, 50},
    {2, 6, 42.5},
    {3, 16, 63},
    {4, 63, 40},
    {5, 8.5, 71},
    {6, 3, 35.25},
}};

}  // namespace

Point OffsetOf(int gCode) {
  for (const Offset& offset : kOffsets) {
    if (offset.gCode == gCode) return offset.zero;
  }
  return {};
}

ToolFacts ToolOf(int number) {
  for (const ToolFacts& tool : kTools) {
    if (tool.number == number) return tool;
  }
  return {number, 0, 0};
}

}  // namespace pnl::sim
