// SPDX-License-Identifier: MIT
#include "mdi/mdi_recall.h"

#include <optional>

namespace pnl {

namespace {

constexpr int kTextPinnedFirst = 7201;
constexpr int kTextAsTyped = 7202;
constexpr int kTextHistory = 7203;
constexpr int kTextPin = 7204;
constexpr int kTextUnpin = 7205;
constexpr int kTextRefused = 7206;

}  // namespace

MdiDropRows MdiRecall::Rows(const MDIDATA_ST& record) const {
  return screen_.IsDropListArranged() ? ArrangedRows(record, View().EditText()) : HistoryRows(record);
}

void MdiRecall::Show(const MDIDATA_ST& record, const MdiDropRows& rows) {
  View().ShowDropRows(rows);
  ShowKeys(record);
}

void MdiRecall::ShowKeys(const MDIDATA_ST& record) {
  if (!View().IsDropListOpen()) return;
  const auto text = [this](int id) { return language_.LoadToolText(id); };
  const std::optional<Text> selected = View().DropListSelection();
  MdiDropKeys keys;
  if (screen_.IsDropListArranged()) {
    keys.arrange = text(kTextHistory);
  } else {
    keys.arrange = text(View().EditText().empty() ? kTextPinnedFirst : kTextAsTyped);
  }
  keys.pin = text(selected && record.Pins.Find(*selected) ? kTextUnpin : kTextPin);
  keys.pinEnabled = selected && !selected->empty();
  keys.refused = text(kTextRefused);
  View().ShowDropKeys(keys);
}

void MdiRecall::Begin(const MDIDATA_ST& record) {
  if (View().IsDropListOpen()) Show(record, HistoryRows(record));
}

void MdiRecall::Switch(const MDIDATA_ST& record) {
  if (!View().IsDropListOpen()) return;
  screen_.NoteArranged(!screen_.IsDropListArranged());
  Show(record, Rows(record));
}

void MdiRecall::Type(const MDIDATA_ST& record, TextView text) {
  if (!View().IsDropListOpen()) return;
  screen_.TypeIntoEdit(text);
  screen_.NoteArranged(true);
  Show(record, Rows(record));
}

void MdiRecall::Erase(const MDIDATA_ST& record) {
  if (!View().IsDropListOpen()) return;
  screen_.EraseInEdit();
  screen_.NoteArranged(true);
  Show(record, Rows(record));
}

bool MdiRecall::Pin(MDIDATA_ST& record) {
  if (!View().IsDropListOpen()) return true;
  const std::optional<Text> block = View().DropListSelection();
  if (!block || block->empty()) return true;
  const bool stored = pins_.Toggle(record, *block);
  MdiDropRows rows = Rows(record);
  // The row stays selected. In the arranged list it may have another place, or none any more.
  const auto place = rows.items.Find(*block);
  rows.selected = place ? static_cast<int>(*place) : -1;
  Show(record, rows);
  return stored;
}

}  // namespace pnl
