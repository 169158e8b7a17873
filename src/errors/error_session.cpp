// SPDX-License-Identifier: MIT
#include "errors/error_session.h"

#include <algorithm>
#include <utility>

#include "base/format.h"
#include "errors/error_ids.h"

namespace pnl {

namespace {

constexpr int kTool = tool_id::kErrorManager;
constexpr int kOrdinaryClose = 2;
constexpr int kClosePeriod = 5000;
constexpr std::size_t kMostCurrent = 260;
/// A shorter period in the file would keep the panel busy with nothing but flashing.
constexpr int kFastestFlash = 50;

/// As the messages to the main window carry two numbers in one argument.
std::intptr_t Packed(std::int32_t low, std::int32_t high) {
  const std::uint32_t word = (static_cast<std::uint32_t>(low) & 0xFFFF) | (static_cast<std::uint32_t>(high) << 16);
  return static_cast<std::intptr_t>(word);
}

}  // namespace

ErrorSession::ErrorSession(const ToolContext& context, ErrorView& view, std::unique_ptr<ErrorLineReader> reader)
    : context_(context),
      view_(view),
      reader_(std::move(reader)),
      priorityVariable_(context_.cnc.Vars()),
      countVariable_(context_.cnc.Vars()),
      flashTimer_(context_.timers),
      closeTimer_(context_.timers) {
  widths_.of = [this](TextView text) { return view_->DescriptionTextWidth(text); };
}

ErrorSession::~ErrorSession() { reader_->Drop(); }

void ErrorSession::Start() {
  // Not in the constructor: a missing language library opens a box, and the window may be gone when that is closed.
  words_ = ErrorWords(context_.language.SharedToolTexts());
  if (HasEnded()) return;
  titleWord_ = words_(error_text::kError);
  view_->Hide();
  const Text ini = ErrorIniPath(context_.cnc.Util());
  settings_ = ReadErrorSettings(context_.files, ini);
  MeasureBase();
  priorityVariable_.SetNombre(u"E.ERRORPRI");
  countVariable_.SetNombre(u"E.NERRORS");
  priorityVariable_.OpenReport(view_->Handle());
  countVariable_.OpenReport(view_->Handle());
  view_->SetFonts(settings_.titleFont, settings_.textFont);
  view_->UseRaisedLook(error_id::kTitleBox, false);
  view_->UseRaisedLook(error_id::kChannelBox, false);
  view_->SetWindowRect(PlaceErrorWindow(context_.files, context_.cnc.Util()));
  OnResized();
  priorityVariable_.GeneraReport();
  countVariable_.GeneraReport();
  view_->RegisterHotKey(true);
}

void ErrorSession::End() {
  if (HasEnded()) return;
  view_->RegisterHotKey(false);
  if (waiting_) view_->SetWaitCursor(false);
  view_.Detach();
  active_ = false;
  visible_ = false;
  reader_->Drop();
  flashTimer_.Stop();
  closeTimer_.Stop();
  priorityVariable_.CloseReport();
  countVariable_.CloseReport();
}

// Reading and composing.

void ErrorSession::ReadShown() {
  composed_ = {};
  reader_->Drop();
  ErrorRecord record{};
  shownIndex_ = context_.cnc.Kapi().ReadError(requestedIndex_, record);
  if (shownIndex_ == -1) return NothingToShow();
  ShowComposed(record);
  view_->SetClassColor(ErrorColorOf(composed_.errorClass));
  DecideState();
  if (HasEnded()) return;
  shownNumber_ = record.Get<std::int32_t>(error_field::kNumber.offset);
  shownRecord_ = record;
  FitTitleLine();
  currentClass_ = composed_.errorClass;
  view_->Invalidate();
}

void ErrorSession::NothingToShow() {
  if (active_) flashTimer_.Stop();
  // The panel closes by itself only if the error that asked for it was on the screen.
  if (closePending_ && closeTimer_.IsRunning()) {
    closeTimer_.Stop();
    PostClose();
  }
  closePending_ = false;
  shownNumber_ = 0;
  shownRecord_ = {};
  Deactivate();
}

void ErrorSession::ShowComposed(const ErrorRecord& record) {
  widths_.available = view_->ControlRect(error_id::kDescription).Width();
  const ErrorSurroundings around{context_.cnc.Kapi(), context_.cnc.Util(), context_.files, words_, widths_};
  composed_ = ComposeError(record, around);
  titleWord_ = composed_.titleWord;
  if (composed_.inProgram) ReadProgramLinesLater();
  view_->SetControlText(error_id::kTitleLine, composed_.titleLine);
  TellDescription();
  view_->SetControlText(error_id::kTitleBox, composed_.boxText);

  const auto source = record.Get<std::int32_t>(error_field::kSource.offset);
  const bool kernels = HasChannel(source);
  // The box of the others takes the colour of the error before, which the next flash corrects.
  SetBoxes(kernels ? composed_.errorClass : currentClass_, composed_.errorClass, false, false);
  channelShown_ = composed_.showChannel;
  if (channelShown_) {
    view_->SetControlText(error_id::kChannelBox, Format(u"%d", ChannelOf(record)));
  }
  view_->ShowControl(error_id::kChannelBox, channelShown_);
  LayTopRow();
  const bool closes = record.Get<std::int32_t>(error_field::kNumber.offset) == kClosingNumber &&
                      composed_.errorClass != ErrorClass::kWarning && HasKernelWord(source) &&
                      source != error_source::kScript && source != error_source::kOwnText;
  if (closes) closeTimer_.Start(kClosePeriod, [this] { PostClose(); });
  if (composed_.logIt) context_.cnc.Kapi().AddLogOnInfo(composed_.LogText());

  const bool helps = composed_.info.helpRef[0] != u'\0' && composed_.hasDescription;
  view_->ShowControl(error_id::kHelp, helps);
  view_->ShowControl(error_id::kAcknowledge, composed_.errorClass == ErrorClass::kError);
  view_->ShowControl(error_id::kConfirmSign, composed_.errorClass == ErrorClass::kConfirm);
  view_->ShowControl(error_id::kMarkedSign, composed_.errorClass == ErrorClass::kMarked);
}

void ErrorSession::ReadProgramLinesLater() {
  const auto lines = reader_->Read(composed_.place, ProgramCaptionsOf(words_), [this](const ProgramLines& late) {
    composed_.parts.lineNumber = late.lineNumber;
    composed_.parts.lineText = late.lineText;
    TellDescription();
  });
  if (!lines) return;
  composed_.parts.lineNumber = lines->lineNumber;
  composed_.parts.lineText = lines->lineText;
}

void ErrorSession::TellDescription() { view_->SetControlText(error_id::kDescription, composed_.Description()); }

bool ErrorSession::MustShow() const {
  if (blocked_) return false;
  switch (composed_.errorClass) {
    case ErrorClass::kFatal:
    case ErrorClass::kConfirm:
      return true;
    case ErrorClass::kError:
    case ErrorClass::kMarked:
      return !suppressed_ && !settings_.hideErrors;
    case ErrorClass::kWarning:
      return !suppressed_ && !settings_.hideWarnings;
  }
  return false;
}

void ErrorSession::DecideState() {
  if (MustShow()) {
    Activate();
  } else {
    active_ = true;
  }
}

// The window's state.

void ErrorSession::Activate() {
  if (active_) return;
  active_ = true;
  Show();
}

void ErrorSession::Deactivate() {
  active_ = false;
  Hide(true);
  if (HasEnded()) return;
  context_.host.HostErrorsGone();
}

void ErrorSession::Show() {
  context_.host.HostToolOpening(kTool);
  if (HasEnded()) return;
  if (settings_.flashPeriod > 0) {
    flashTimer_.Start(std::max(settings_.flashPeriod, kFastestFlash), [this] { OnFlash(); });
  }
  firstPress_.reset();
  view_->Show();
  view_->BringToTop();
  view_->FocusWindow();
  visible_ = true;
}

void ErrorSession::Hide(bool notify) {
  view_->Hide();
  visible_ = false;
  if (notify) context_.host.HostToolClosed(kTool, kOrdinaryClose);
}

void ErrorSession::Toggle(bool hide) {
  if (!active_) return;
  if (hide) {
    Hide(true);
    PostCount(Count());
  } else if (blocked_) {
    PostCount(Count());
  } else {
    PostCount(0);
    context_.host.HostErrorsGone();
    if (!HasEnded()) Show();
  }
}

void ErrorSession::Refresh() {
  if (active_ && !visible_) PostCount(Count());
}

// Reports and the queue.

void ErrorSession::OnReport(std::intptr_t first, std::intptr_t second) {
  if (HasEnded()) return;
  if (countVariable_.HandleReport(first, second)) OnCountReport();
  if (priorityVariable_.HandleReport(first, second)) OnPriorityReport();
}

void ErrorSession::OnCountReport() {
  const int count = Count();
  if (!visible_) PostCount(count);
  ShowNext(count >= 2 && LiesAfterShown() > 0);
  UpdateCounters();
}

void ErrorSession::OnPriorityReport() {
  requestedIndex_ = -1;
  ShowPrevious(false);
  ReadShown();
  WriteCurrent();
  UpdateCounters();
  if (composed_.info.hasHelp != 0 && ShowHelp()) return;
  const bool hiddenWarning = currentClass_ == ErrorClass::kWarning && settings_.hideWarnings;
  const bool error = currentClass_ == ErrorClass::kError || currentClass_ == ErrorClass::kMarked;
  // Who hides errors too has the window away already.
  if (hiddenWarning && !suppressed_ && !settings_.hideErrors) {
    Toggle(true);
  } else if (suppressed_ || hiddenWarning || (error && settings_.hideErrors)) {
    Refresh();
  } else if (!visible_) {
    Toggle(false);
  }
}

int ErrorSession::Count() const {
  std::int32_t count = 0;
  countVariable_.ReadInt(count);
  return count;
}

std::int64_t ErrorSession::LiesAfterShown() const { return std::int64_t{Count()} - shownIndex_ - 1; }

void ErrorSession::UpdateCounters() {
  view_->SetControlText(error_id::kBefore, Format(u"%d", shownIndex_));
  view_->SetControlText(error_id::kAfter, Format(u"%lld", LiesAfterShown()));
}

void ErrorSession::ShowPrevious(bool shown) {
  view_->ShowControl(error_id::kPrevious, shown);
  view_->ShowControl(error_id::kBefore, shown);
}

void ErrorSession::ShowNext(bool shown) {
  view_->ShowControl(error_id::kNext, shown);
  view_->ShowControl(error_id::kAfter, shown);
}

void ErrorSession::WriteCurrent() {
  ZCVariable current(context_.cnc.Vars(), u"DM.HMI.ERROR.CURRENT");
  if (!current.IsValid()) return;
  Text text;
  if (Count() != 0) text = Format(u"%s: %s", composed_.boxText, composed_.titleLine).substr(0, kMostCurrent);
  current.WriteTxt(text);
}

void ErrorSession::PostCount(int count) {
  if (!active_) return;
  Message message{RegisterMessage("ZM_UPDATE_NERRORS"), 0, 0};
  if (count != 0) {
    message.first = Packed(shownNumber_, static_cast<std::int32_t>(currentClass_));
    message.second = Packed(settings_.flashPeriod, count);
  }
  context_.windows.Post(context_.windows.MainWindow(), message);
}

void ErrorSession::PostClose() {
  context_.windows.Post(context_.windows.MainWindow(), {RegisterMessage("ZM_CLOSE7340"), 1, 0});
}

void ErrorSession::OnToolNotify(std::intptr_t what, std::intptr_t value) {
  constexpr std::intptr_t kSuppress = 1;
  constexpr std::intptr_t kHotKey = 2;
  constexpr std::intptr_t kBlock = 79;
  if (what == kSuppress) {
    suppressed_ = value != 0;
  } else if (what == kHotKey) {
    view_->RegisterHotKey(value == 1);
  } else if (what == kBlock) {
    blocked_ = value != 0;
    if (blocked_ && active_ && visible_) {
      Hide(true);
      PostCount(Count());
    }
  }
}

// Help.

bool ErrorSession::ShowHelp() {
  if (!active_ || composed_.info.helpRef[0] == u'\0') return false;
  if (visible_) Hide(true);
  if (HasEnded()) return true;
  PostCount(Count());
  const Text helpRef = FieldText(composed_.info.helpRef);
  const Text infoText = FieldText(composed_.info.text);
  const Text header = Format(u"%s %d : %s", titleWord_, shownNumber_, WithoutLeadingLineFeed(infoText));
  (void)context_.host.HostShowError({ErrorColorOf(currentClass_), kErrorWhite, helpRef.c_str(), header.c_str()});
  return true;
}

void ErrorSession::HelpEnded() {
  if (!active_ || visible_) return;
  PostCount(0);
  Show();
}

void ErrorSession::OnHotKey() { Toggle(visible_); }

}  // namespace pnl
