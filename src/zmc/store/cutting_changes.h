// SPDX-License-Identifier: MIT
// What one set of records changes in another: which are new, which differ, and in which fields. For the view of the
// user's data against the factory's, and for what an import would do.
#pragma once

#include <vector>

#include "base/text.h"
#include "zmc/store/cutting_csv.h"

namespace pnl {

enum class CuttingField { kNormGermany, kNormUne, kNormAisi, kForce, kToolType, kHidden };

struct CuttingFieldChange {
  CuttingField field = CuttingField::kForce;
  Text before;
  Text after;
  friend bool operator==(const CuttingFieldChange&, const CuttingFieldChange&) = default;
};

struct CuttingChange {
  bool material = true;  // else an operation
  bool added = false;    // the record is new; fields are those that it has
  Text description;
  std::vector<CuttingFieldChange> fields;
  friend bool operator==(const CuttingChange&, const CuttingChange&) = default;
};

/// What `after` changes in `before`, in the order of `after`: materials first. A record that is in `before` alone
/// counts as unchanged, and a date that differs is no change. Descriptions are compared exactly.
[[nodiscard]] std::vector<CuttingChange> CompareCutting(const CuttingRecords& before, const CuttingRecords& after);

}  // namespace pnl
