// SPDX-License-Identifier: MIT
#include "mdi/mdi_blocks.h"

#include <optional>
#include <utility>

#include "mdi/mdi_history.h"

namespace pnl {

/// Puts the block that is to run into the record. Returns false if there is none.
bool MdiBlocks::PickBlock(MDIDATA_ST& record) {
  if (record.TypesInEdit()) {
    if (!View().IsDropListOpen()) {
      record.Text = View().EditText();
      return !record.Text.empty();
    }
    const std::optional<Text> selected = View().DropListSelection();
    // In the arranged list nothing is selected unless the operator has chosen a row. Without a choice the block that he
    // has typed runs, as if the list weren't open.
    const bool typed = !selected && screen_.IsDropListArranged();
    screen_.CloseDropList();
    record.Text = typed ? View().EditText() : selected.value_or(Text());
    if (selected) View().SetEditText(*selected);
    return !record.Text.empty();
  }
  record.MDASelection = View().ListSelection();
  // Text may still contain a block that has run. It must not run again because nothing is selected.
  if (record.MDASelection < 0) return false;
  record.Text = View().ListItem(record.MDASelection);
  return !record.Text.empty();
}

void MdiBlocks::Send(MDIDATA_ST& record) {
  if (!PickBlock(record)) return UpdateMenus(record);
  if (kernel_.CogerPlcFree(0, record.Channel) == 0) return;
  const std::int32_t errorsBefore = refusals_.ErrorCount();
  if (kernel_.MDILine(0, record.Text, 0, 4, 0) == 0) {
    record.Refused.reset();
    record.State = mdi_state::kRunning;
    screen_.ShowRunning(record);
    return UpdateMenus(record);
  }
  // The error tool shows the operator why the block was refused. The edit keeps the text, so that he can correct it.
  kernel_.LiberarPlcFree(0, record.Channel, 1);
  const Text block = std::exchange(record.Text, {});
  record.MDASelection = -1;
  UpdateMenus(record);
  ShowRefusal(record, block, errorsBefore);
}

/// Keeps the refused block and selects the word at fault in the edit, so that the operator can type over it.
void MdiBlocks::ShowRefusal(MDIDATA_ST& record, const Text& block, std::int32_t errorsBefore) {
  record.Refused = refusals_.Read(record.Channel, block, errorsBefore);
  if (record.TypesInEdit()) screen_.SelectRefusedWord(*record.Refused);
}

void MdiBlocks::Start(MDIDATA_ST& record, bool fromKey) {
  if (!channels_.IsCurrent(record) || record.Opened == 0 || record.InMDI == 0) return;
  const std::optional<std::int32_t> status = MdiChannels::Status(record);
  if (!status) return;
  const std::int32_t byte = MdiStatusByte(*status);
  const std::int32_t detail = MdiStatusDetail(*status);
  if (fromKey && MdiChannels::DivertsStart(byte, record)) return;
  if (byte == 1) {
    // At a second press before the block's first report the channel still says that it is ready. The block must not be
    // sent again.
    if (record.IsReady()) Send(record);
  } else if (byte == 2) {
    if (!record.IsReady() && detail == 1) kernel_.NextSingleStep(0);
  } else if (byte == 4) {
    if (detail == 4 || detail == 6) kernel_.NextSingleStep(0);
    if (detail == 5 || detail == 15) kernel_.ClearFeedhold(0);
  }
}

bool MdiBlocks::OnStatusReport(MDIDATA_ST& record) {
  const std::optional<std::int32_t> status = MdiChannels::Status(record);
  if (!status) return false;
  switch (MdiStatusByte(*status)) {
    case 1:
      OnReady(record);
      break;
    case 2:
      ChangeState(record, mdi_state::kInterrupted, mdi_state::kRunning);
      break;
    case 4:
      ChangeState(record, mdi_state::kRunning, mdi_state::kInterrupted);
      break;
    case 8:
      OnAborted(record);
      break;
    default:
      break;
  }
  return true;
}

void MdiBlocks::OnReady(MDIDATA_ST& record) {
  if (record.IsReady()) {
    if (record.InMDI == 0) holding_.Enter(record);
    holding_.LeaveIfWanted(record);
  } else {
    OnBlockDone(record);
  }
}

void MdiBlocks::OnBlockDone(MDIDATA_ST& record) {
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  const bool shown = channels_.IsCurrent(record);
  const bool hadBlock = !record.Text.empty();
  const int fills = screen_.ListFills();
  // This comes first: the host may destroy the window when it gets the menus, and then the lists are written.
  MdiHistory::AddToHistory(record, record.Text);
  const std::optional<MdiListChange> change = list_.Store(record, shown);
  if (old == mdi_state::kInterrupted) ReinstallMenus(record);
  if (shown && hadBlock) View().SetEditText({});
  // If the host shows the tool anew when it gets the menus, the list box is filled from the store and has the block.
  if (shown && change) list_.Show(record, *change, screen_.ListFills() != fills);
  if (holding_.LeaveIfWanted(record) || !shown) return;
  screen_.ShowReady(record);
  UpdateMenus(record);
}

void MdiBlocks::OnAborted(MDIDATA_ST& record) {
  // Before the first report of our block, an abort belongs to what ran before it.
  if (record.State == mdi_state::kRunning) return;
  const std::int32_t old = std::exchange(record.State, mdi_state::kReady);
  MdiHistory::AddToHistory(record, std::exchange(record.Text, {}));
  if (old == mdi_state::kInterrupted) ReinstallMenus(record);
  if (!channels_.IsCurrent(record)) return;
  screen_.ShowAborted(record);
  UpdateMenus(record);
}

void MdiBlocks::ChangeState(MDIDATA_ST& record, std::int32_t from, std::int32_t to) {
  if (record.State != from) return;
  record.State = to;
  ReinstallMenus(record);
}

void MdiBlocks::ReinstallMenus(const MDIDATA_ST& record) {
  if (channels_.IsCurrent(record)) menus_.Install(record, View().ListCount());
}

}  // namespace pnl
