// SPDX-License-Identifier: MIT
#include "calc/calc_history.h"

#include <utility>

#include "base/format.h"

namespace pnl {

Text CalcHistory::Path() const { return Format(u"%s\\%s", utilities_.Get7340Path(path_id::kCalcHistory), kName); }

TextRows CalcHistory::Load() {
  RowsRead read = ReadRows(files_, Path());
  known_ = read.known;
  added_.clear();
  return std::move(read.rows);
}

bool CalcHistory::Save(const TextRows& rows) {
  if (rows.empty()) return true;
  const TextRows added = RowsOf(rows, added_);
  return StoreRows(files_, Path(), known_, {rows, added}) == FileStatus::kOk;
}

}  // namespace pnl
