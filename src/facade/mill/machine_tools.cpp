// SPDX-License-Identifier: MIT
#include "facade/mill/machine_tools.h"

#include <cmath>

#include "facade/mill/machine_data.h"

namespace pnl::sim {

namespace {

constexpr double kTableUnits = 10000;  // of the tool table in a millimetre

// clang-format off
constexpr ToolFacts kTools[] = {
    // Number, family, subfamily, teeth, diameter, in inches, length.
    // The first six are those of the demo programs.
    { 1, ToolFamily::kMillingCutter,     1, 4,  10,     0.5,     50},
    { 2, ToolFamily::kMillingCutter,     1, 4,   6,     0.25,    42.5},
    { 3, ToolFamily::kMillingCutter,     3, 4,  16,     0.625,   63},
    { 4, ToolFamily::kFaceMill,          8, 5,  63,     2.5,     40},
    { 5, ToolFamily::kDrill,             7, 2,   8.5,   0.3125,  71},
    { 6, ToolFamily::kMillingCutter,     2, 2,   3,     0.125,   35.25},
    { 7, ToolFamily::kMillingCutter,     0, 3,  12,     0.5,     55},
    { 8, ToolFamily::kMillingCutter,     6, 6,  21,     0.78125, 60},
    { 9, ToolFamily::kMillingCutter,     1, 4,  20,     0.75,    75},
    {10, ToolFamily::kDrill,             0, 2,  20,     0.75,    90},
    {11, ToolFamily::kDrill,             7, 2,   5,     0.201,   62},
    {12, ToolFamily::kDrill,             7, 2,   6.8,   0.257,   66},
    {13, ToolFamily::kFaceMill,          0, 4,  50,     2,       45},
    {14, ToolFamily::kFaceMill,          8, 7, 100,     4,       50},
    {15, ToolFamily::kTap,               0, 1,   6,     0.25,    58},
    {16, ToolFamily::kTap,               9, 1,  10,     0.375,   70},
    {17, ToolFamily::kTurningTool,       0, 1,   0,     0,       32},
    {18, ToolFamily::kTurningTool,      10, 1,   0,     0,       32},
    {19, ToolFamily::kThreadingTool,     0, 1,   0,     0,       32},
    {20, ToolFamily::kThreadingTool,     4, 4,  10,     0.375,   54},
    {21, ToolFamily::kThreadingTool,     5, 1,   0,     0,       32},
    {22, ToolFamily::kGroovingTool,      0, 1,   0,     0,       34},
    {23, ToolFamily::kGroovingTool,     12, 1,   0,     0,       34},
    {24, ToolFamily::kInnerTurningTool,  0, 1,   0,     0,       80},
    {25, ToolFamily::kInnerTurningTool, 11, 1,   0,     0,       96},
    {26, ToolFamily::kInnerTurningTool, 12, 1,   0,     0,       80},
    {27, ToolFamily::kInnerTurningTool, 13, 1,   0,     0,       80},
    {28, ToolFamily::kInnerTurningTool, 14, 2,   8,     0.3125,  70},
    {29, ToolFamily::kInnerTurningTool, 15, 4,  10,     0.375,   60},
    {30, ToolFamily::kOther,             0, 6,  12,     0.5,     85},
    {31, ToolFamily::kProbe,             0, 0,   6,     0.25,   110},
    {32, ToolFamily::kProbe,            14, 0,   4,     0.15625, 120},
    {33, ToolFamily::kProbe,            15, 0,   3,     0.125,   95},
};
// clang-format on

}  // namespace

ToolFacts ToolOf(int number) {
  for (const ToolFacts& tool : kTools) {
    if (tool.number == number) return tool;
  }
  return {};
}

double DiameterOf(const ToolFacts& tool, Measure measure) {
  return measure == Measure::kInches ? tool.inchDiameter * kInch : tool.diameter;
}

void DefineMachineTools(MachineEnvironment& environment, Measure measure) {
  for (const ToolFacts& tool : kTools) {
    const auto family = static_cast<std::int32_t>(tool.family);
    const auto diameter = static_cast<std::int32_t>(std::lround(DiameterOf(tool, measure) * kTableUnits));
    environment.SetTool(tool.number, family, {family, tool.subfamily, diameter, tool.teeth});
  }
}

}  // namespace pnl::sim
