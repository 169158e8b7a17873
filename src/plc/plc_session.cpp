// SPDX-License-Identifier: MIT
#include "plc/plc_session.h"

#include "base/format.h"
#include "plc/plc_ids.h"
#include "window/dialog_units.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_PLC_MESSAGES;
constexpr int kEscapeKey = 27;
constexpr std::uint32_t kTypeShift = 28;
constexpr std::uint32_t kIdMask = 0x0FFFFFFF;
/// The size of the window in a language pack that doesn't have the dialog.
constexpr int kDialogWidth = 236;
constexpr int kDialogHeight = 226;
/// The title's colour before the first message.
constexpr std::uint32_t kTitleText = 0;
/// The key of the first file among the items. Codes are lower.
constexpr std::int64_t kFileItem = std::int64_t{1} << 32;

PlcFile FileOf(std::intptr_t first, const ShowFileRecord& record) {
  const auto text = [](const char16_t* field) { return field == nullptr ? Text() : Text(field); };
  return {first, record.backColor, record.textColor, text(record.file), text(record.title)};
}

}  // namespace

PlcSession::PlcSession(const ToolContext& context, PlcView& view)
    : ToolSession(context, view), messageVariable_(context.cnc.Vars()) {}

void PlcSession::Start() {
  const DialogTemplate* dialog = Context().language.Dialog(plc_id::kDialog);
  const int width = dialog != nullptr && dialog->width > 0 ? dialog->width : kDialogWidth;
  const int height = dialog != nullptr && dialog->height > 0 ? dialog->height : kDialogHeight;
  View().SetTitleColors(titleBack_, kTitleText);
  View().SetWindowRect(DialogPixels({0, 0, width, height}, 1));
  OnResized();
  messageVariable_.SetNombre(u"E.PLCMSGDATA");
  messageVariable_.OpenReport(View().Handle());
}

void PlcSession::End() {
  if (HasEnded()) return;
  MarkEnded();
  messageVariable_.CloseReport();
}

void PlcSession::OnReport(std::intptr_t first, std::intptr_t second) {
  if (!messageVariable_.HandleReport(first, second)) return;
  std::int32_t code = 0;
  if (messageVariable_.ReadInt(code) != 0) return;
  queue_.AddCode(static_cast<std::uint32_t>(code));
  // If the host refuses, the code waits. The next report asks again.
  if (!Open()) return;
  if (queue_.TakeLowerCode()) ShowMessage();
  ShowCount();
}

void PlcSession::ShowErrorHelp(const ShowFileRecord* record) {
  if (record == nullptr) return;
  ShowRecord(PlcMode::kHelp, FileOf(0, *record));
}

void PlcSession::HideErrorHelp() {
  if (queue_.Mode() == PlcMode::kHelp) Advance();
}

void PlcSession::ShowFile(std::intptr_t first, const ShowFileRecord* record) {
  if (record == nullptr) return;
  const PlcFile file = FileOf(first, *record);
  queue_.AddFile(file);
  if (queue_.Mode() == PlcMode::kClosed) return ShowRecord(PlcMode::kFile, file);
  ShowCount();
}

void PlcSession::OnToolCommand(std::intptr_t command) {
  if (command == PNL_COMMAND_LEAVE) View().Hide();
  if (command == PNL_COMMAND_CLOSE_TOOL || command == PNL_COMMAND_CLOSE_FOR_OTHER) Close();
}

void PlcSession::OnCommand(int command) {
  if (shownKind_ != DocumentKind::kVideo) return;
  if (command == PNL_VIDEO_PLAY) {
    View().PlayVideo(1);
  } else if (command == PNL_VIDEO_STOP) {
    View().StopVideo();
  } else if (command == PNL_VIDEO_REWIND) {
    View().StopVideo();
    View().RewindVideo();
  }
}

bool PlcSession::OnKey(PlcKey key) {
  const bool video = shownKind_ == DocumentKind::kVideo;
  switch (key) {
    case PlcKey::kEscape:
      Close();
      return true;
    case PlcKey::kEnter:
      // Not every video: an extension of which "AVI" is only the beginning doesn't play with Enter.
      if (!video || !EqualNoCase(documentExt_, u"avi")) return false;
      OnCommand(PNL_VIDEO_PLAY);
      return true;
    case PlcKey::kSpace:
      OnCommand(PNL_VIDEO_STOP);
      return video;
    case PlcKey::kHome:
      OnCommand(PNL_VIDEO_REWIND);
      return video;
  }
  return false;
}

bool PlcSession::Open() {
  if (Host().HostMayOpenTool(kTool) == 0) return false;
  Host().HostToolOpening(kTool);
  View().Show();
  View().BringToTop();
  View().FocusWindow();
  return true;
}

// Messages and files.

void PlcSession::ReadMessage(Text& message, Text& reference) const {
  ZCPlcMsgTable* table = Context().cnc.Tapi().Connect();
  if (table == nullptr) return;
  if (ZCMsg* entry = table->CreateMsg(); entry != nullptr) {
    entry->SetMsgType(static_cast<std::int32_t>(queue_.CurrentCode() >> kTypeShift));
    entry->SetIdMsg(static_cast<std::int32_t>(queue_.CurrentCode() & kIdMask));
    if (table->ReadMsg(*entry)) {
      message = entry->GetMsg();
      reference = entry->GetInfo();
    }
    table->DeleteMsg(entry);
  }
  table->Disconnect();
}

void PlcSession::ShowMessage() {
  const std::uint32_t code = queue_.CurrentCode();
  BeginItem(code);
  // If the background is right already, a text colour that a file has left stays.
  if (titleBack_ != kMessageBack) SetColors(kMessageBack, kMessageText);
  Text word;
  const std::uint32_t type = code >> kTypeShift;
  if (type <= 1) {
    const int text = type == 0 ? plc_text::kMessage : plc_text::kError;
    word = Format(u" %s (%d)", Context().language.LoadToolText(text), code & kIdMask);
  }
  Text reference;
  messageText_.clear();
  ReadMessage(messageText_, reference);
  FindDocument(reference);
  View().SetControlText(plc_id::kTitle, Format(u"%s: %s", word, messageText_));
  ShowDocument();
}

void PlcSession::ShowRecord(PlcMode mode, const PlcFile& file) {
  const auto item = mode == PlcMode::kFile ? std::optional<ItemKey>(kFileItem) : std::nullopt;
  queue_.SetMode(mode);
  BeginItem(item);
  SetColors(file.backColor, file.textColor);
  FindDocument(file.file);
  View().SetControlText(plc_id::kTitle, file.title);
  ShowCount();
  // If the host refuses, the mode stays, so that a file which comes now only waits. The area still shows the document
  // before this one, whose place isn't this item's.
  if (!Open()) return item_.reset();
  ShowDocument();
}

void PlcSession::Close() {
  const bool help = queue_.Mode() == PlcMode::kHelp;
  if (queue_.Mode() == PlcMode::kMessage) places_.erase(queue_.CurrentCode());
  if (queue_.Mode() == PlcMode::kFile) places_.erase(kFileItem);
  item_.reset();
  queue_.RemoveShown();
  Advance();
  if (help) Host().HostForwardKey(kEscapeKey);
}

void PlcSession::Advance() {
  switch (queue_.Advance()) {
    case PlcItem::kMessage:
      ShowMessage();
      return ShowCount();
    case PlcItem::kFile: {
      const PlcFile first = queue_.Files().front();
      return ShowRecord(PlcMode::kFile, first);
    }
    case PlcItem::kNothing:
      return CloseWindow();
  }
}

void PlcSession::CloseWindow() {
  BeginItem(std::nullopt);
  documentFile_.clear();
  HideDocument();
  View().ClearPage();
  View().SetText({});
  View().SetControlText(plc_id::kTitle, {});
  ShowCount();
  Host().HostToolClosed(kTool, PNL_CLOSED);
  View().Hide();
}

void PlcSession::SetColors(std::uint32_t back, std::uint32_t text) {
  titleBack_ = back;
  View().SetTitleColors(back, text);
}

void PlcSession::ShowCount() {
  const std::size_t place = queue_.Place();
  const std::size_t total = queue_.Total();
  const bool several = place != 0 && total > 1;
  View().SetControlText(plc_id::kCount,
                        several ? Format(Context().language.LoadToolText(plc_text::kCount), place, total) : Text());
}

}  // namespace pnl
