// SPDX-License-Identifier: MIT
#include "mdi/mdi_session.h"

#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#include "base/format.h"
#include "host/records.h"
#include "host/storage_messages.h"
#include "mdi/mdi_program_file.h"

namespace pnl {

namespace {

constexpr std::int32_t kOwnerBase = 1000;
constexpr int kTextNotWritable = 9;
constexpr int kTextNotCreated = 10;

}  // namespace

MdiSession::MdiSession(const ToolContext& context, MdiView& view, WindowHandle hostWindow)
    : ToolSession(context, view),
      endList_(RegisterMessage("MDI_ENDLIST")),
      settings_(context.files, context.cnc.Util()),
      history_(context.files, context.cnc.Util(), settings_),
      channels_(context.cnc),
      menus_(context.language, context.cnc.Kapi(), HostAccess()),
      screen_(ViewAccess(), settings_),
      pins_(context.files, context.cnc.Util()),
      recall_(ViewAccess(), screen_, pins_, context.language),
      list_(ViewAccess(), screen_, menus_),
      holding_(context, hostWindow, ViewAccess(), HostAccess(), channels_, screen_),
      blocks_(context.cnc, ViewAccess(), channels_, holding_, list_, menus_, screen_) {
  explorerRequest_.Owner = kOwnerBase + PNL_TOOL_MDI;
}

void MdiSession::Start() {
  channels_.MakeRecords(View().Handle());
  settings_.Open();
  menus_.Load(settings_);
  screen_.Begin(channels_.Count());
}

void MdiSession::End() {
  if (HasEnded()) return;
  MarkEnded();
  // The explorer must not reach the request any more. PublishRecord returns the number that the record got when it was
  // requested. If it has none, it gets one, which is withdrawn at once.
  WithdrawRecord(PublishRecord(&explorerRequest_));
  std::vector<Text> failed;
  if (!settings_.SaveSettings()) failed.emplace_back(kMdiIniName);
  for (MDIDATA_ST& record : channels_.Records()) {
    for (Text& name : history_.SaveLists(record)) failed.push_back(std::move(name));
  }
  channels_.CloseReports();
  menus_.Destroy();
  ShowNotSaved(Context(), PNL_TOOL_MDI, failed);
}

// Messages.

std::optional<std::intptr_t> MdiSession::OnMessage(const Message& message) {
  switch (message.number) {
    case PNL_MSG_VARIABLE_REPORT:
      return OnVariableReport(message);
    case PNL_MSG_CYCLE_START:
      return OnCycleStart(message);
    case PNL_MSG_TOOL_NOTIFY:
      return OnToolNotify(message);
    case PNL_MSG_TOOL_COMMAND:
      return OnToolCommand(message.first, message.second);
    case PNL_MSG_RESULT_READY:
      return OnResultReady(message);
    case PNL_MSG_HELP_KEY:
      return AskHelp();
    case PNL_MSG_EXPLORER_ENDED:
      return OnExplorerEnded(message);
    case PNL_MSG_COMMAND:
      OnMenuCommand(message.first);
      return PNL_DONE;
    default:
      break;
  }
  if (message.number != endList_) return OnKeptWork(message);
  screen_.EndDropList(message.first, channels_.Current());
  return PNL_DONE;
}

std::intptr_t MdiSession::OnVariableReport(const Message& message) {
  for (MDIDATA_ST& record : channels_.Records()) {
    if (record.Opened == 0) continue;
    if (record.StatusVar.HandleReport(message.first, message.second)) {
      return blocks_.OnStatusReport(record) ? PNL_DONE : PNL_REFUSED;
    }
    if (record.InspectVar.IsValid() && record.InspectVar.HandleReport(message.first, message.second)) {
      if (MdiChannels::StartIsGranted(record)) StartBlock(&record, false);
      ShowInspectHint();
      return PNL_DONE;
    }
  }
  return PNL_DONE;
}

std::intptr_t MdiSession::OnCycleStart(const Message& message) {
  if (message.first == PNL_START_RESERVED) return PNL_RESERVED;
  if (message.first != PNL_START_KEY && message.first != PNL_START_QUERY) return PNL_REFUSED;
  if (message.second == 0) return PNL_DONE;
  // Only the channel's byte is read, because the host's record may be no longer than that.
  std::int8_t asked = 0;
  const auto* record = reinterpret_cast<const char*>(message.second);  // NOLINT(performance-no-int-to-ptr)
  std::memcpy(&asked, record + offsetof(PnlCycleStart, channel), 1);
  if (message.first == PNL_START_KEY) {
    StartBlock(asked == 0 ? channels_.Current() : channels_.Record(asked), true);
    return PNL_DONE;
  }
  const std::int8_t channel = asked == 0 ? channels_.CurrentChannel() : asked;
  return channels_.IsInspecting(channel) ? PNL_START_DURING_INSPECTION : PNL_START_ALLOWED;
}

/// Does nothing while the explorer is open.
void MdiSession::StartBlock(MDIDATA_ST* record, bool fromKey) {
  if (record != nullptr && !waitingForExplorer_) blocks_.Start(*record, fromKey);
}

std::intptr_t MdiSession::OnToolNotify(const Message& message) {
  if (message.first != PNL_NOTIFY_REPEAT) return PNL_DONE;
  const MDIDATA_ST* record = channels_.Record(message.second);
  if (record != nullptr && record->InMDI != 0) holding_.ReportTaken(*record);
  return PNL_DONE;
}

std::intptr_t MdiSession::OnResultReady(const Message& message) {
  if (message.first == PNL_READY_CALC_RESULT) PasteCalcResult();
  if (message.first == PNL_READY_FILE)
    return SaveProgram(FieldText(explorerRequest_.Path), FieldText(explorerRequest_.File));
  // Nothing to do for PNL_READY_EXPLORER_LEFT: only PNL_MSG_EXPLORER_ENDED ends the wait.
  return PNL_DONE;
}

std::intptr_t MdiSession::OnExplorerEnded(const Message& message) {
  if (message.first == PNL_TOOL_EXPLORER && message.second != PNL_CLOSED_ACCEPTED) waitingForExplorer_ = false;
  return PNL_DONE;
}

// Keys, mouse and focus.

bool MdiSession::OnKey(MdiKey key) {
  MDIDATA_ST* record = channels_.Current();
  const bool mda = record != nullptr && record->LowRole() == MdiRole::kMda;
  switch (key) {
    case MdiKey::kTab:
      return false;
    case MdiKey::kEnter:
      // While a block is running or interrupted, the record's text must stay the one that was sent.
      if (mda && record->IsReady()) list_.Enter(*record);
      return true;
    case MdiKey::kEscape:
      if (View().IsDropListOpen()) {
        screen_.CancelDropList(record);
      } else {
        Escape();
      }
      return true;
    case MdiKey::kUp:
    case MdiKey::kDown:
      if (record == nullptr || mda || !record->IsReady()) return false;
      OpenDropList();
      return true;
    case MdiKey::kDelete:
      if (!mda || record->Edit() != mdi_edit::kNone) return false;
      OnMenuCommand(mdi_command::kDeleteItem);
      return true;
  }
  return false;
}

void MdiSession::OnLeftPress(bool endedDropList) {
  if (View().IsDropListOpen()) {
    screen_.CancelDropList(channels_.Current());
  } else if (!endedDropList) {
    OpenDropList();
  }
}

void MdiSession::OpenDropList() {
  const MDIDATA_ST* record = channels_.Current();
  screen_.OpenDropList(record);
  if (record != nullptr) recall_.Begin(*record);
}

void MdiSession::OnDropListTyped(TextView text) {
  if (const MDIDATA_ST* record = channels_.Current()) recall_.Type(*record, text);
}

void MdiSession::OnDropListErased() {
  if (const MDIDATA_ST* record = channels_.Current()) recall_.Erase(*record);
}

void MdiSession::OnDropListSwitched() {
  if (const MDIDATA_ST* record = channels_.Current()) recall_.Switch(*record);
}

void MdiSession::OnDropListPin() {
  MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || recall_.Pin(*record)) return;
  ShowNotSaved(Context(), PNL_TOOL_MDI, {MdiPinsName(record->Channel)});
}

void MdiSession::OnDropListSelection() {
  if (const MDIDATA_ST* record = channels_.Current()) recall_.OnSelection(*record);
}

void MdiSession::OnWindowFocus() {
  View().SetSignColors(kMdiSignFocus, kMdiSignBack);
  screen_.FocusForRole(channels_.Current());
}

void MdiSession::OnEditFocus(bool focused) { screen_.OnEditFocus(focused); }

void MdiSession::OnListFocus() {
  MDIDATA_ST* record = channels_.Current();
  if (record != nullptr && record->LowRole() == MdiRole::kMda) list_.OnFocus(*record);
}

void MdiSession::OnFocusSettled() { UpdateMenus(); }

void MdiSession::OnHidden() { screen_.CloseDropList(); }

void MdiSession::OnParentResized() { screen_.LayOutAgain(channels_.Current()); }

std::optional<MdiColorPair> MdiSession::ControlColors(MdiControl control, bool focused) const {
  const MDIDATA_ST* record = channels_.Current();
  return MdiControlColors(settings_.colors, control, record == nullptr || record->IsReady(), focused);
}

// Services at the edit and the list.

void MdiSession::PasteCalcResult() {
  ZCVariable result(Context().cnc.Vars(), u"E.CALCRESUL");
  double value = 0;
  if (result.IsValid()) {
    result.UpdateCache();
    result.ReadDouble(value);
  }
  const MDIDATA_ST* record = channels_.Current();
  if (record == nullptr || !record->IsReady()) return;
  // If the operator can't type in the edit, the list gets the focus and nothing is pasted.
  if (!record->TypesInEdit()) return View().FocusList();
  View().FocusEdit();
  View().ReplaceEditSelection(Format(u"%g", value));
}

/// Writes the help mark of the block in hand, or the one of the command line, for the help tool.
std::intptr_t MdiSession::AskHelp() {
  Text mark(kMdiHelpMark);
  const MDIDATA_ST* record = channels_.Current();
  const Text block = record == nullptr ? Text() : screen_.BlockInHand(*record);
  if (!block.empty()) Context().cnc.Util().Util7340_MarcaHelpAsignadaABloque(block, mark);
  ZCVariable help(Context().cnc.Vars(), u"E.HELPDATA");
  if (!help.IsValid()) return PNL_REFUSED;
  help.WriteTxt(mark);
  return PNL_DONE;
}

/// Asks the host for the explorer. The answer is PNL_MSG_RESULT_READY, and the request then contains it. Until the
/// explorer ends, the start key does nothing.
void MdiSession::RequestProgramFile() {
  waitingForExplorer_ = true;
  FillProgramRequest(explorerRequest_, menus_.ProgramTitle(), settings_.Dir);
  Host().HostExplorerRequest(explorerRequest_);
}

std::intptr_t MdiSession::SaveProgram(const Text& folder, const Text& name) {
  settings_.Dir = folder;
  const MdiProgramResult result = WriteProgram(Context().files, folder, name, View());
  if (result == MdiProgramResult::kNotWritable || result == MdiProgramResult::kNotCreated) {
    ShowProblem(result == MdiProgramResult::kNotWritable ? kTextNotWritable : kTextNotCreated, name);
    waitingForExplorer_ = false;
    return PNL_DONE;
  }
  waitingForExplorer_ = false;
  screen_.FocusForRole(channels_.Current());
  if (result == MdiProgramResult::kNotStored) ShowProblem(kTextNotCreated, name);
  return PNL_DONE;
}

/// Shows a message box. It runs an event loop, in which the window may be destroyed.
void MdiSession::ShowProblem(int textId, const Text& name) {
  const Text text = Format(Context().language.LoadToolText(textId), name);
  Context().windows.ShowBox(View().Handle(), {menus_.ProgramTitle(), text, BoxStyle::kError});
}

}  // namespace pnl
