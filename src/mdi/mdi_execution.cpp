// SPDX-License-Identifier: MIT
#include "mdi/mdi_execution.h"

#include <cstddef>
#include <cstring>
#include <utility>

#include "host/storage_messages.h"
#include "mdi/mdi_block.h"
#include "mdi/mdi_channel.h"
#include "mdi/mdi_commands.h"
#include "mdi/mdi_inspection.h"
#include "mdi/mdi_list.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_opening.h"
#include "mdi/mdi_program_file.h"
#include "mdi/mdi_screen.h"
#include "mdi/mdi_services.h"
#include "mdi/mdi_session.h"

namespace pnl {

namespace {

constexpr std::intptr_t kCycleStartAllowed = 1;
constexpr std::intptr_t kCycleStartDuringInspection = 4;
constexpr std::intptr_t kExplorerEnded = 5;

std::intptr_t OnVariableReport(MdiSession& session, const Message& message) {
  for (MDIDATA_ST& record : session.records) {
    if (record.Opened == 0) continue;
    if (record.StatusVar.HandleReport(message.first, message.second)) return mdi::OnStatusReport(session, record);
    if (record.InspectVar.IsValid() && record.InspectVar.HandleReport(message.first, message.second)) {
      mdi::OnInspectReport(session, record);
      mdi::ShowInspectHint(session);
      return kDone;
    }
  }
  return kDone;
}

std::intptr_t OnCycleStart(MdiSession& session, const Message& message) {
  if (message.first == 3) return kReserved;
  if (message.first != 1 && message.first != 2) return kRefused;
  if (message.second == 0) return kDone;
  // Only the channel's byte is read: a host's record may end behind it.
  std::int8_t asked = 0;
  const auto* record = reinterpret_cast<const char*>(message.second);  // NOLINT(performance-no-int-to-ptr)
  std::memcpy(&asked, record + offsetof(PnlCycleStart, channel), 1);
  if (message.first == 1) return mdi::Start(session, asked, true);
  const std::int8_t channel = asked == 0 ? session.CurrentChannel : asked;
  return mdi::IsInspecting(session, channel) ? kCycleStartDuringInspection : kCycleStartAllowed;
}

std::intptr_t OnToolNotify(MdiSession& session, const Message& message) {
  if (message.first != 1) return kDone;
  const MDIDATA_ST* record = session.Record(message.second);
  if (record != nullptr && record->InMDI != 0) mdi::NotifyHost(session, mdi::kNotifyTaken, record->Channel);
  return kDone;
}

std::intptr_t OnResultReady(MdiSession& session, const Message& message) {
  if (message.first == 1) mdi::PasteCalcResult(session);
  if (message.first == 2) {
    const XPLRDATA_ST& answer = session.ExplorerRequest;
    return mdi::WriteProgramFile(session, FieldText(answer.Path), FieldText(answer.File));
  }
  // First 3, the explorer left without a file: the wait ends with message 0x806 only.
  return kDone;
}

std::intptr_t OnExplorerEnded(MdiSession& session, const Message& message) {
  if (message.first == kExplorerEnded && message.second != 1) session.WaitingForExplorer = 0;
  return kDone;
}

}  // namespace

class MdiExecution::Parts {
 public:
  Parts(const ToolContext& context, MdiView& view, WindowHandle hostWindow)
      : session(context, view, hostWindow), endList(RegisterMessage("MDI_ENDLIST")) {}
  MdiSession session;
  std::uint32_t endList;
};

std::shared_ptr<MdiExecution> MdiExecution::Make(const ToolContext& context, MdiView& view, WindowHandle hostWindow) {
  std::shared_ptr<MdiExecution> execution(
      new MdiExecution(std::make_unique<Parts>(context, view, hostWindow)));  // the constructor is private
  MdiSession& session = execution->parts_->session;
  session.MakeRecords();
  session.settings.Open();
  mdi::LoadMenus(session);
  mdi::LayOut(session, MdiRole::kMdi, nullptr);
  view.SetTitle(MdiTitleText(MdiRole::kMdi, session.ChannelCount(), 1));
  view.SetSignColors(kMdiSignBack, kMdiSignBack);
  return execution;
}

MdiExecution::MdiExecution(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

MdiExecution::~MdiExecution() { OnDestroy(); }

void MdiExecution::OnDestroy() {
  MdiSession& session = parts_->session;
  if (session.Ended()) return;
  session.DetachView();
  std::vector<Text> failed;
  if (!session.settings.SaveSettings()) failed.emplace_back(kMdiIniName);
  for (MDIDATA_ST& record : session.records) {
    for (Text& name : session.history.SaveLists(record)) failed.push_back(std::move(name));
    if (record.StatusVar.IsReportOpened()) record.StatusVar.CloseReport();
    if (record.InspectVar.IsReportOpened()) record.InspectVar.CloseReport();
  }
  mdi::DestroyMenus(session);
  TellNotSaved(session.context, tool_id::kMdi, failed);
}

bool MdiExecution::Ended() const { return parts_->session.Ended(); }

std::optional<std::intptr_t> MdiExecution::OnMessage(const Message& message) {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  MdiSession& session = parts_->session;
  if (session.Ended()) return std::nullopt;
  switch (message.number) {
    case kMsgVariableReport:
      return OnVariableReport(session, message);
    case kMsgCycleStart:
      return OnCycleStart(session, message);
    case kMsgToolNotify:
      return OnToolNotify(session, message);
    case kMsgToolCommand:
      return mdi::OnToolCommand(session, message.first, message.second);
    case kMsgResultReady:
      return OnResultReady(session, message);
    case kMsgHelpKey:
      return mdi::AskHelp(session);
    case kMsgExplorerEnded:
      return OnExplorerEnded(session, message);
    case kMsgCommand:
      mdi::OnMenuCommand(session, message.first);
      return kDone;
    default:
      break;
  }
  if (message.number != parts_->endList) return std::nullopt;
  mdi::EndDropList(session, message.first);
  return kDone;
}

bool MdiExecution::OnKey(MdiKey key) {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  MdiSession& session = parts_->session;
  if (session.Ended()) return false;
  MDIDATA_ST* record = session.Current();
  const bool mda = record != nullptr && record->LowRole() == MdiRole::kMda;
  switch (key) {
    case MdiKey::kTab:
      return false;
    case MdiKey::kEnter:
      // While a block is in the machine's hands its text must stay what was sent.
      if (mda && record->IsReady()) mdi::EnterInList(session, *record);
      return true;
    case MdiKey::kEscape:
      if (session.View().IsDropListOpen()) {
        mdi::CancelDropList(session);
      } else {
        mdi::Escape(session);
      }
      return true;
    case MdiKey::kUp:
    case MdiKey::kDown:
      if (record == nullptr || mda || !record->IsReady()) return false;
      mdi::OpenDropList(session);
      return true;
    case MdiKey::kDelete:
      if (!mda || record->Edit() != mdi_edit::kNone) return false;
      mdi::OnMenuCommand(session, mdi::command::kDeleteItem);
      return true;
  }
  return false;
}

void MdiExecution::OnLeftPress(bool endedDropList) {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  MdiSession& session = parts_->session;
  if (session.View().IsDropListOpen()) {
    mdi::CancelDropList(session);
  } else if (!endedDropList) {
    mdi::OpenDropList(session);
  }
}

void MdiExecution::OnWindowFocus() {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  parts_->session.View().SetSignColors(kMdiSignFocus, kMdiSignBack);
  mdi::FocusForRole(parts_->session);
}

void MdiExecution::OnEditFocus(bool focused) {
  MdiView& view = parts_->session.View();
  if (focused) {
    view.SetEditSelection(parts_->session.selection);
    view.ScrollEditCaret();
  }
  view.RedrawEdit();
}

void MdiExecution::OnListFocus() {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  MdiSession& session = parts_->session;
  MDIDATA_ST* record = session.Current();
  if (record == nullptr || record->LowRole() != MdiRole::kMda || session.Ended()) return;
  mdi::SetEdit(session, *record, mdi_edit::kNone);
  session.View().SetEditText({});
  session.View().SetEditReadOnly(true);
  session.View().RedrawEdit();
}

void MdiExecution::OnFocusSettled() {
  const std::shared_ptr<MdiExecution> alive = shared_from_this();
  if (!parts_->session.Ended()) mdi::UpdateMenus(parts_->session);
}

void MdiExecution::OnHidden() { mdi::CloseDropList(parts_->session); }

void MdiExecution::OnParentResized() {
  MdiSession& session = parts_->session;
  mdi::LayOut(session, session.DisplayedRole, session.Current());
}

std::optional<MdiColorPair> MdiExecution::ControlColors(MdiControl control, bool focused) const {
  MdiSession& session = parts_->session;
  const MDIDATA_ST* record = session.Current();
  return MdiControlColors(session.settings.colors, control, record == nullptr || record->IsReady(), focused);
}

}  // namespace pnl
