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

constexpr std::intptr_t kCycleStartAllowed = 1;
constexpr std::intptr_t kCycleStartDuringInspection = 4;
constexpr std::intptr_t kExplorerEnded = 5;
constexpr std::int32_t kOwnerBase = 1000;
constexpr int kTextNotWritable = 9;
constexpr int kTextNotCreated = 10;
constexpr TextView kOwnHelpMark = u"OPT0130";

}  // namespace

MdiSession::MdiSession(const ToolContext& context, MdiView& view, WindowHandle hostWindow)
    : ToolSession(context, view),
      endList_(RegisterMessage("MDI_ENDLIST")),
      settings_(context.files, context.cnc.Util()),
      history_(context.files, context.cnc.Util(), settings_),
      channels_(context.cnc),
      menus_(context.language, context.cnc.Kapi(), HostAccess()),
      screen_(ViewAccess(), settings_),
      list_(ViewAccess(), screen_, menus_),
      holding_(context, hostWindow, ViewAccess(), HostAccess(), channels_, screen_),
      blocks_(context.cnc.Kapi(), ViewAccess(), channels_, holding_, list_, menus_, screen_) {
  explorerRequest_.Owner = kOwnerBase + tool_id::kMdi;
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
  // The explorer must not reach the request any more. Publishing gives the number that the record may have got from a
  // request; without one it is made and dropped.
  WithdrawRecord(PublishRecord(&explorerRequest_));
  std::vector<Text> failed;
  if (!settings_.SaveSettings()) failed.emplace_back(kMdiIniName);
  for (MDIDATA_ST& record : channels_.Records()) {
    for (Text& name : history_.SaveLists(record)) failed.push_back(std::move(name));
  }
  channels_.CloseReports();
  menus_.Destroy();
  TellNotSaved(Context(), tool_id::kMdi, failed);
}

// Messages.

std::optional<std::intptr_t> MdiSession::OnMessage(const Message& message) {
  switch (message.number) {
    case kMsgVariableReport:
      return OnVariableReport(message);
    case kMsgCycleStart:
      return OnCycleStart(message);
    case kMsgToolNotify:
      return OnToolNotify(message);
    case kMsgToolCommand:
      return OnToolCommand(message.first, message.second);
    case kMsgResultReady:
      return OnResultReady(message);
    case kMsgHelpKey:
      return AskHelp();
    case kMsgExplorerEnded:
      return OnExplorerEnded(message);
    case kMsgCommand:
      OnMenuCommand(message.first);
      return kDone;
    default:
      break;
  }
  if (message.number != endList_) return std::nullopt;
  screen_.EndDropList(message.first);
  return kDone;
}

std::intptr_t MdiSession::OnVariableReport(const Message& message) {
  for (MDIDATA_ST& record : channels_.Records()) {
    if (record.Opened == 0) continue;
    if (record.StatusVar.HandleReport(message.first, message.second)) {
      return blocks_.OnStatusReport(record) ? kDone : kRefused;
    }
    if (record.InspectVar.IsValid() && record.InspectVar.HandleReport(message.first, message.second)) {
      if (MdiChannels::StartIsGranted(record)) StartBlock(&record, false);
      ShowInspectHint();
      return kDone;
    }
  }
  return kDone;
}

std::intptr_t MdiSession::OnCycleStart(const Message& message) {
  if (message.first == 3) return kReserved;
  if (message.first != 1 && message.first != 2) return kRefused;
  if (message.second == 0) return kDone;
  // Only the channel's byte is read: a host's record may end after it.
  std::int8_t asked = 0;
  const auto* record = reinterpret_cast<const char*>(message.second);  // NOLINT(performance-no-int-to-ptr)
  std::memcpy(&asked, record + offsetof(PnlCycleStart, channel), 1);
  if (message.first == 1) {
    StartBlock(asked == 0 ? channels_.Current() : channels_.Record(asked), true);
    return kDone;
  }
  const std::int8_t channel = asked == 0 ? channels_.CurrentChannel() : asked;
  return channels_.IsInspecting(channel) ? kCycleStartDuringInspection : kCycleStartAllowed;
}

/// Nothing while the explorer is open.
void MdiSession::StartBlock(MDIDATA_ST* record, bool fromKey) {
  if (record != nullptr && !waitingForExplorer_) blocks_.Start(*record, fromKey);
}

std::intptr_t MdiSession::OnToolNotify(const Message& message) {
  if (message.first != 1) return kDone;
  const MDIDATA_ST* record = channels_.Record(message.second);
  if (record != nullptr && record->InMDI != 0) holding_.ReportTaken(*record);
  return kDone;
}

std::intptr_t MdiSession::OnResultReady(const Message& message) {
  if (message.first == 1) PasteCalcResult();
  if (message.first == 2) return SaveProgram(FieldText(explorerRequest_.Path), FieldText(explorerRequest_.File));
  // First 3, the explorer left without a file: the wait ends with message 0x806 only.
  return kDone;
}

std::intptr_t MdiSession::OnExplorerEnded(const Message& message) {
  if (message.first == kExplorerEnded && message.second != 1) waitingForExplorer_ = false;
  return kDone;
}

// Keys, mouse and focus.

bool MdiSession::OnKey(MdiKey key) {
  MDIDATA_ST* record = channels_.Current();
  const bool mda = record != nullptr && record->LowRole() == MdiRole::kMda;
  switch (key) {
    case MdiKey::kTab:
      return false;
    case MdiKey::kEnter:
      // While a block is in the machine's hands its text must stay what was sent.
      if (mda && record->IsReady()) list_.Enter(*record);
      return true;
    case MdiKey::kEscape:
      if (View().IsDropListOpen()) {
        screen_.CancelDropList();
      } else {
        Escape();
      }
      return true;
    case MdiKey::kUp:
    case MdiKey::kDown:
      if (record == nullptr || mda || !record->IsReady()) return false;
      screen_.OpenDropList(record);
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
    screen_.CancelDropList();
  } else if (!endedDropList) {
    screen_.OpenDropList(channels_.Current());
  }
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
  // Without a place to type only the focus moves.
  if (!record->TypesInEdit()) return View().FocusList();
  View().FocusEdit();
  View().ReplaceEditSelection(Format(u"%g", value));
}

/// Gives the help tool the mark of the block in hand, or the command line's own.
std::intptr_t MdiSession::AskHelp() {
  Text mark(kOwnHelpMark);
  const MDIDATA_ST* record = channels_.Current();
  const Text block = record == nullptr ? Text() : screen_.BlockInHand(*record);
  if (!block.empty()) Context().cnc.Util().Util7340_MarcaHelpAsignadaABloque(block, mark);
  ZCVariable help(Context().cnc.Vars(), u"E.HELPDATA");
  if (!help.IsValid()) return kRefused;
  help.WriteTxt(mark);
  return kDone;
}

/// The answer comes as message 0x804 with the record filled. Until then the start key does nothing.
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
    return kDone;
  }
  waitingForExplorer_ = false;
  screen_.FocusForRole(channels_.Current());
  if (result == MdiProgramResult::kNotStored) ShowProblem(kTextNotCreated, name);
  return kDone;
}

/// The box runs an event loop, in which the window may end.
void MdiSession::ShowProblem(int textId, const Text& name) {
  const Text text = Format(Context().language.LoadToolText(textId), name);
  Context().windows.ShowBox(View().Handle(), {menus_.ProgramTitle(), text, BoxStyle::kError});
}

}  // namespace pnl
