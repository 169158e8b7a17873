// SPDX-License-Identifier: MIT
#include "host/file_desk.h"

#include <sys/stat.h>

#include <utility>

#include "common/words.h"

namespace panel {
namespace {

constexpr int kOwnerBase = 1000;
/// The panel is no tool; a pin that is set in its own requests belongs to this number.
constexpr int kPanelOwner = 1100;
constexpr const char16_t* kVariable = u"E.XPLRDATA";

/// Facts of a file that change whenever it is written or replaced.
struct FileStamp {
  bool there = false;
  ino_t number = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const std::optional<std::string>& hostPath) {
  struct stat facts {};
  if (!hostPath || ::stat(hostPath->c_str(), &facts) != 0) return {};
  return {true, facts.st_ino, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

}  // namespace

FileDesk::FileDesk(HostSession& session, pnl::rig::Rig* rig) : session_(session), rig_(rig) {
  connect(&session_, &HostSession::Called, this, &FileDesk::OnCalled);
  // An explorer that is destroyed from outside reports nothing.
  connect(&session_, &HostSession::ToolsChanged, this, [this] {
    if (waiting_ && !loading_ && PnlIsAlive(explorer_) == 0) End(false);
  });
}

FileDesk::~FileDesk() {
  if (ownNumber_ != 0) PnlWithdrawRecord(ownNumber_);
}

XPLRDATA_ST* FileDesk::Record() const {
  if (rig_ == nullptr) return nullptr;
  const auto value = rig_->Cnc().Get(kVariable);
  const auto* number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
  return number == nullptr ? nullptr : static_cast<XPLRDATA_ST*>(PnlResolveRecord(static_cast<std::int32_t>(*number)));
}

void FileDesk::Publish(std::int32_t number) {
  const pnl::rig::Value value{static_cast<std::int64_t>(number)};
  if (rig_->Cnc().Set(kVariable, value)) return;
  rig_->Cnc().Define(kVariable, pnl::rig::VariableType::kInt, value, true, true);
}

void FileDesk::Ask(const FileRequest& request, Accepted accepted, Left left) {
  // An earlier request of the panel uses the same record, so it ends before the record is filled.
  Leave();
  if (rig_ == nullptr) {
    emit Said(Say(Word::kToolMissing), true);
    return left();
  }
  if (ownNumber_ == 0) ownNumber_ = PnlPublishRecord(&own_);
  const bool fromProgram = session_.WorkingTool() < 0;
  own_.Owner = kPanelOwner;
  Fill(own_, request);
  Publish(ownNumber_);
  Open({0, std::move(accepted), std::move(left), fromProgram});
}

void FileDesk::OnToolRequest() {
  Leave();
  const XPLRDATA_ST* record = Record();
  if (record != nullptr) return Open({AskerOf(*record), {}, {}, false});
  emit Said(Say(Word::kNoRequest), true);
  Wait({session_.ToolWindow(PNL_TOOL_MDI), {}, {}, false});
  EndLater();
}

void FileDesk::Wait(Waiting waiting) {
  waiting_ = std::move(waiting);
  ++requests_;
}

void FileDesk::EndLater() {
  QMetaObject::invokeMethod(
      this,
      [this, request = requests_] {
        if (request == requests_) End(false);
      },
      Qt::QueuedConnection);
}

PnlWindow FileDesk::AskerOf(const XPLRDATA_ST& record) const {
  const PnlWindow owner = session_.ToolWindow(record.Owner - kOwnerBase);
  return owner != 0 ? owner : session_.ToolWindow(PNL_TOOL_MDI);
}

void FileDesk::Open(Waiting waiting) {
  Wait(std::move(waiting));
  loading_ = true;
  explorer_ = session_.LoadTool(PNL_TOOL_EXPLORER, session_.ToolArea());
  loading_ = false;
  emit Changed();
  if (explorer_ != 0) return;
  emit Said(Say(Word::kToolMissing), true);
  EndLater();
}

void FileDesk::Leave() {
  const PnlWindow open = session_.ToolWindow(PNL_TOOL_EXPLORER);
  if (open != 0 && session_.IsToolOpen(PNL_TOOL_EXPLORER)) {
    PnlSendMessage(open, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL, 0);
  }
  End(false);
}

void FileDesk::OnCalled(const HostCall& call) {
  // While the explorer is loaded, its failure is the answer of LoadTool.
  if (loading_ || !(session_.Reacting() || IsOwn())) return;
  switch (call.slot) {
    case PNL_SLOT_EXPLORER_REQUEST:
      if (session_.Reacting()) OnToolRequest();
      return;
    case PNL_SLOT_EXPLORER_ACCEPTED:
    case PNL_SLOT_EXPLORER_ACCEPTED_ALT:
      return End(true);
    case PNL_SLOT_SHOW_MESSAGE:
      askerSaid_ = askerSaid_ || !call.args.value(1).toMap().value("text").toString().isEmpty();
      return;
    case PNL_SLOT_TOOL_CLOSED:
      return OnToolClosed(call.args.value(0).toInt(), call.args.value(1).toInt());
    default:
      return;
  }
}

void FileDesk::OnToolClosed(int tool, int reason) {
  if (tool == PNL_TOOL_EXPLORER) {
    if (reason == PNL_CLOSED) End(false);
    return;
  }
  // A machining calculator that has closed is not to go on with a file that is chosen later. The command line does.
  const bool asker = waiting_ && !IsOwn() && waiting_->tool == session_.ToolWindow(tool);
  if (asker && tool == PNL_TOOL_MACHINING_CALCULATOR) Leave();
}

void FileDesk::End(bool accepted) {
  if (!waiting_) return;
  const Waiting waiting = *std::exchange(waiting_, std::nullopt);
  if (waiting.accepted) {
    AnswerPanel(waiting, accepted);
  } else {
    AnswerTool(waiting.tool, accepted);
  }
  emit Changed();
}

void FileDesk::AnswerTool(PnlWindow tool, bool accepted) {
  if (!accepted) {
    PnlSendMessage(tool, PNL_MSG_RESULT_READY, PNL_READY_EXPLORER_LEFT, 0);
    PnlSendMessage(tool, PNL_MSG_EXPLORER_ENDED, PNL_TOOL_EXPLORER, PNL_CLOSED);
    return;
  }
  const XPLRDATA_ST* record = Record();
  if (record == nullptr) {
    // Without an answer the asker would wait for ever.
    emit Said(Say(Word::kNoRequest), true);
    return AnswerTool(tool, false);
  }
  const QString path = JoinPath(FolderOf(*record), FileOf(*record));
  const auto host = rig_->Files().HostPath(path.toStdU16String());
  const FileStamp before = StampOf(host);
  askerSaid_ = false;
  PnlSendMessage(tool, PNL_MSG_RESULT_READY, PNL_READY_FILE, 0);
  // The asker reports a failure itself. When it reports no success, the panel does.
  const FileStamp after = StampOf(host);
  if (!askerSaid_ && after.there && after != before) emit Said(Say(Word::kSaved, path), false);
}

void FileDesk::AnswerPanel(const Waiting& waiting, bool accepted) {
  const QString folder = FolderOf(own_);
  const QString file = FileOf(own_);
  // An explorer that a script opens later is to find no request of the panel.
  Publish(0);
  if (accepted) return waiting.accepted(folder, file);
  // The explorer leads back to the tool under it. Whoever typed in the program goes on there.
  if (waiting.fromProgram) session_.TurnToProgram();
  waiting.left();
}

}  // namespace panel
