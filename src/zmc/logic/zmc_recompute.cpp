// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_recompute.h"

#include <algorithm>
#include <iterator>

namespace pnl {

namespace {

constexpr unsigned kPowerOn = zmc_clear::kPower | zmc_clear::kDmcText;
constexpr unsigned kFeedOn = zmc_clear::kF | kPowerOn;
constexpr unsigned kResults = zmc_clear::kS | kFeedOn;
constexpr int kSelected = 3;
constexpr int kFzRow = 2;

/// Not mistakes: another unit of F leaves the power as it was, and another unit of S leaves the feed.
constexpr ZmcRecompute kRecompute[] = {
    {ZmcEvent::kSelectedCell, kResults, zmc_step::kConditions},
    {ZmcEvent::kFzLimitCell, 0, zmc_step::kDmcText},
    {ZmcEvent::kOtherCell, 0, 0},
    {ZmcEvent::kD, kResults, zmc_step::kConditions},
    {ZmcEvent::kZ, kResults, zmc_step::kConditions},
    {ZmcEvent::kS, kFeedOn, zmc_step::kF | zmc_step::kPower | zmc_step::kDmcText},
    {ZmcEvent::kF, kPowerOn, zmc_step::kPower | zmc_step::kDmcText},
    {ZmcEvent::kPower, zmc_clear::kDmcText, zmc_step::kDmcText},
    {ZmcEvent::kFUnit, zmc_clear::kF | zmc_clear::kDmcText, zmc_step::kF | zmc_step::kDmcText},
    {ZmcEvent::kSUnit, 0, zmc_step::kS},
    {ZmcEvent::kTool, zmc_clear::kD | zmc_clear::kZ | kResults, zmc_step::kConditions},
    {ZmcEvent::kPair, zmc_clear::kGrid | zmc_clear::kRemark | kResults, zmc_step::kConditions},
};

struct ClearedField {
  unsigned bit;
  Text ZmcFields::*field;
};

constexpr ClearedField kClearedFields[] = {
    {zmc_clear::kD, &ZmcFields::D},           {zmc_clear::kZ, &ZmcFields::Z},
    {zmc_clear::kS, &ZmcFields::S},           {zmc_clear::kF, &ZmcFields::F},
    {zmc_clear::kPower, &ZmcFields::Power},   {zmc_clear::kDmcText, &ZmcFields::DmcText},
    {zmc_clear::kRemark, &ZmcFields::Remark},
};

}  // namespace

const ZmcRecompute& RecomputeOf(ZmcEvent event) {
  return *std::find_if(std::begin(kRecompute), std::end(kRecompute) - 1,
                       [event](const ZmcRecompute& row) { return row.event == event; });
}

ZmcEvent ZmcCellEvent(int row, int column) {
  if (column == kSelected) return ZmcEvent::kSelectedCell;
  return row == kFzRow ? ZmcEvent::kFzLimitCell : ZmcEvent::kOtherCell;
}

void ClearFields(ZmcEvent event, ZmcFields& fields) {
  const unsigned cleared = RecomputeOf(event).cleared;
  for (const ClearedField& row : kClearedFields) {
    if ((cleared & row.bit) != 0) (fields.*row.field).clear();
  }
  if ((cleared & zmc_clear::kGrid) != 0) fields.Cells.fill(Text());
}

}  // namespace pnl
