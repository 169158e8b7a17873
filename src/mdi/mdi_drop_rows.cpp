// SPDX-License-Identifier: MIT
#include "mdi/mdi_drop_rows.h"

#include <set>
#include <utility>

namespace pnl {

namespace {

/// The text in upper case and without blanks.
Text Bare(TextView text) {
  Text bare;
  for (const char16_t unit : text) {
    if (unit != u' ' && unit != u'\t') bare.push_back(ToUpper(unit));
  }
  return bare;
}

MdiRowMark MarkOf(const MDIDATA_ST& record, TextView block) {
  if (record.Refused && record.Refused->block == block) return MdiRowMark::kRefused;
  return record.Pins.Find(block) ? MdiRowMark::kPinned : MdiRowMark::kNone;
}

}  // namespace

bool BeginsAs(TextView block, TextView typed) { return Bare(block).starts_with(Bare(typed)); }

MdiDropRows HistoryRows(const MDIDATA_ST& record) {
  MdiDropRows rows;
  rows.items = record.History;
  rows.selected = rows.items.empty() ? -1 : 0;
  if (!record.Refused && record.Pins.empty()) return rows;
  for (const Text& block : rows.items) rows.marks.push_back(MarkOf(record, block));
  return rows;
}

MdiDropRows ArrangedRows(const MDIDATA_ST& record, TextView typed) {
  const Text start = Bare(typed);
  MdiDropRows rows;
  std::set<Text> shown;
  const auto add = [&](const Text& block, MdiRowMark mark) {
    if (!Bare(block).starts_with(start) || !shown.insert(block).second) return;
    rows.items.push_back(block);
    rows.marks.push_back(mark);
  };
  if (record.Refused) add(record.Refused->block, MdiRowMark::kRefused);
  for (const Text& block : record.Pins) add(block, MdiRowMark::kPinned);
  for (const Text& block : record.History) add(block, MdiRowMark::kNone);
  return rows;
}

}  // namespace pnl
