// SPDX-License-Identifier: MIT
#include "errors/error_session.h"

#include <algorithm>
#include <utility>

#include "base/format.h"
#include "errors/error_ids.h"

namespace pnl {

namespace {

constexpr int kTool = PNL_TOOL_ERRORS;
constexpr int kClosePeriod = 5000;
constexpr std::size_t kMostCurrent = 260;
/// In milliseconds. With a shorter period in the file the panel would do nothing but flash.
constexpr int kFastestFlash = 50;

/// Two halves in one number, which PnlLowHalf and PnlHighHalf take apart.
std::intptr_t Packed(std::int32_t low, std::int32_t high) {
  const std::uint32_t word = (static_cast<std::uint32_t>(low) & 0xFFFF) | (static_cast<std::uint32_t>(high) << 16);
  return static_cast<std::intptr_t>(word);
}

}  // namespace

ErrorSession::ErrorSession(const ToolContext& context, ErrorView& view, std::unique_ptr<ErrorLineReader> reader)
    : ToolSession(context, view),
      reader_(std::move(reader)),
      priorityVariable_(context.cnc.Vars()),
      countVariable_(context.cnc.Vars()),
      flashTimer_(context.timers),
      closeTimer_(context.timers) {
  widths_.of = [this](TextView text) { return View().DescriptionTextWidth(text); };
}

ErrorSession::~ErrorSession() { reader_->Drop(); }

void ErrorSession::Start() {
  // Not in the constructor: if the language library is missing, a box opens, and the window may be gone after it.
  words_ = ErrorWords(Context().language.SharedToolTexts());
  View().Hide();
  const Text ini = ErrorIniPath(Context().cnc.Util());
  settings_ = ReadErrorSettings(Context().files, ini);
  const Rect place = PlaceErrorWindow(Context().files, Context().cnc.Util());
  View().ScaleDialog(ErrorScale(View().ParentClientRect(), place));
  MeasureBase();
  priorityVariable_.SetNombre(u"E.ERRORPRI");
  countVariable_.SetNombre(u"E.NERRORS");
  priorityVariable_.OpenReport(View().Handle());
  countVariable_.OpenReport(View().Handle());
  View().SetFonts(settings_.titleFont, settings_.textFont);
  View().UseRaisedLook(error_id::kTitleBox, false);
  View().UseRaisedLook(error_id::kChannelBox, false);
  View().SetWindowRect(place);
  OnResized();
  priorityVariable_.GeneraReport();
  countVariable_.GeneraReport();
  View().RegisterHotKey(true);
}

void ErrorSession::End() {
  if (HasEnded()) return;
  View().RegisterHotKey(false);
  if (waiting_) View().SetWaitCursor(false);
  MarkEnded();
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
  shownIndex_ = Kapi().ReadError(requestedIndex_, record);
  if (shownIndex_ == -1) return NothingToShow();
  ShowComposed(record);
  View().SetClassColor(ErrorColorOf(composed_.errorClass));
  DecideState();
  shownNumber_ = record.Get<std::int32_t>(error_field::kNumber.offset);
  shownRecord_ = record;
  FitTitleLine();
  currentClass_ = composed_.errorClass;
  View().Invalidate();
}

void ErrorSession::NothingToShow() {
  if (active_) flashTimer_.Stop();
  // The operator has acknowledged a fatal error, and the error that closes the panel was just on the screen. So the
  // panel closes at once.
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
  widths_.available = View().ControlRect(error_id::kDescription).Width();
  const ErrorSurroundings around{Kapi(), Context().cnc.Util(), Context().files, words_, widths_};
  composed_ = ComposeError(record, around);
  if (composed_.inProgram) ReadProgramLinesLater();
  View().SetControlText(error_id::kTitleLine, composed_.titleLine);
  ShowDescription();
  View().SetControlText(error_id::kTitleBox, composed_.boxText);

  const auto source = record.Get<std::int32_t>(error_field::kSource.offset);
  const bool kernels = HasChannel(source);
  // For a source without a channel the title box takes the colour of the previous error. The next flash corrects it.
  SetBoxes(kernels ? composed_.errorClass : currentClass_, composed_.errorClass, false, false);
  channelShown_ = composed_.showChannel;
  if (channelShown_) {
    View().SetControlText(error_id::kChannelBox, Format(u"%d", ChannelOf(record)));
  }
  View().ShowControl(error_id::kChannelBox, channelShown_);
  LayTopRow();
  const bool closes = record.Get<std::int32_t>(error_field::kNumber.offset) == kClosingNumber &&
                      composed_.errorClass != ErrorClass::kWarning && HasKernelWord(source) &&
                      source != error_source::kScript && source != error_source::kOwnText;
  if (closes) closeTimer_.Start(kClosePeriod, Later([this] { PostClose(); }));
  if (composed_.logIt) Kapi().AddLogOnInfo(composed_.LogText());

  const bool helps = composed_.info.helpRef[0] != u'\0' && composed_.hasDescription;
  View().ShowControl(error_id::kHelp, helps);
  View().ShowControl(error_id::kAcknowledge, composed_.errorClass == ErrorClass::kError);
  View().ShowControl(error_id::kConfirmSign, composed_.errorClass == ErrorClass::kConfirm);
  View().ShowControl(error_id::kMarkedSign, composed_.errorClass == ErrorClass::kMarked);
}

void ErrorSession::ReadProgramLinesLater() {
  const auto take = [this](const ProgramLines& lines) {
    composed_.parts.lineNumber = lines.lineNumber;
    composed_.parts.lineText = lines.lineText;
    ShowDescription();
  };
  const auto lines = reader_->Read(composed_.place, ProgramCaptionsOf(words_), Later(take));
  if (!lines) return;
  composed_.parts.lineNumber = lines->lineNumber;
  composed_.parts.lineText = lines->lineText;
}

void ErrorSession::ShowDescription() { View().SetControlText(error_id::kDescription, composed_.Description()); }

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
  Host().HostErrorsGone();
}

void ErrorSession::Show() {
  Host().HostToolOpening(kTool);
  firstPress_.reset();
  View().Show();
  View().BringToTop();
  View().FocusWindow();
  if (settings_.flashPeriod > 0) {
    flashTimer_.Start(std::max(settings_.flashPeriod, kFastestFlash), Later([this] { OnFlash(); }));
  }
  visible_ = true;
}

void ErrorSession::Hide(bool notify) {
  View().Hide();
  visible_ = false;
  if (notify) Host().HostToolClosed(kTool, PNL_CLOSED);
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
    Host().HostErrorsGone();
    Show();
  }
}

void ErrorSession::Refresh() {
  if (active_ && !visible_) PostCount(Count());
}

// Reports and the queue.

void ErrorSession::OnReport(std::intptr_t first, std::intptr_t second) {
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
  // If errors are hidden as well, the window is already hidden.
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
  View().SetControlText(error_id::kBefore, Format(u"%d", shownIndex_));
  View().SetControlText(error_id::kAfter, Format(u"%lld", LiesAfterShown()));
}

void ErrorSession::ShowPrevious(bool shown) {
  View().ShowControl(error_id::kPrevious, shown);
  View().ShowControl(error_id::kBefore, shown);
}

void ErrorSession::ShowNext(bool shown) {
  View().ShowControl(error_id::kNext, shown);
  View().ShowControl(error_id::kAfter, shown);
}

void ErrorSession::WriteCurrent() {
  ZCVariable current(Context().cnc.Vars(), u"DM.HMI.ERROR.CURRENT");
  if (!current.IsValid()) return;
  Text text;
  if (Count() != 0) text = Format(u"%s: %s", composed_.boxText, composed_.titleLine).substr(0, kMostCurrent);
  current.WriteTxt(text);
}

void ErrorSession::PostCount(int count) {
  if (!active_) return;
  Message message{RegisterMessage(PNL_NAME_ERRORS_CHANGED), 0, 0};
  if (count != 0) {
    message.first = Packed(shownNumber_, static_cast<std::int32_t>(currentClass_));
    message.second = Packed(settings_.flashPeriod, count);
  }
  Context().windows.Post(Context().windows.MainWindow(), message);
}

void ErrorSession::PostClose() {
  Context().windows.Post(Context().windows.MainWindow(), {RegisterMessage(PNL_NAME_CLOSE_PANEL), 1, 0});
}

void ErrorSession::OnToolNotify(std::intptr_t what, std::intptr_t value) {
  if (what == PNL_NOTIFY_SUPPRESS_ERRORS) {
    suppressed_ = value != 0;
  } else if (what == PNL_NOTIFY_ERROR_HOT_KEY) {
    View().RegisterHotKey(value == 1);
  } else if (what == PNL_NOTIFY_BLOCK_ERRORS) {
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
  const Text header = Format(u"%s %d : %s", composed_.titleWord, shownNumber_, WithoutLeadingLineFeed(infoText));
  (void)Host().HostShowError({ErrorColorOf(currentClass_), kErrorWhite, helpRef.c_str(), header.c_str()});
  return true;
}

void ErrorSession::HelpEnded() {
  if (!active_ || visible_) return;
  PostCount(0);
  Show();
}

void ErrorSession::OnHotKey() { Toggle(visible_); }

}  // namespace pnl
