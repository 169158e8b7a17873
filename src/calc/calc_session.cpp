// SPDX-License-Identifier: MIT
// The part of the session that opens and closes the calculator and saves its files, and the commands that only the
// menus have.
#include "calc/calc_session.h"

#include "calc/calc_ids.h"
#include "host/storage_messages.h"

namespace pnl {

namespace {

constexpr int kTool = PNL_TOOL_CALCULATOR;
constexpr std::uint32_t kResultBack = 0xFF0000;  // blue
constexpr std::uint32_t kResultText = 0x00FFFF;  // yellow
constexpr int kLineHeight = -6;
constexpr int kLineWeight = 600;
constexpr int kResultHeight = -8;
constexpr int kResultWeight = 700;
constexpr int kTick = 250;
constexpr int kBases = 3;

}  // namespace

CalcSession::CalcSession(const ToolContext& context, CalcView& view, std::int32_t param)
    : ToolSession(context, view),
      param_(param),
      window_(&view),
      history_(context.files, context.cnc.Util()),
      menus_(context.language),
      timer_(context.timers) {}

// Opening and closing.

void CalcSession::Open() {
  if (opened_) return;
  loaded_ = LoadCalcSettings(Context().files, Context().cnc.Util());
  minimized_ = loaded_.settings.minimized;
  View().MoveWindow(loaded_.settings.left, loaded_.settings.top);
  ResizeWindow();
  ComeIntoSight();
  const TextRows rows = history_.Load();
  View().FillList(rows);
  // The rows and the place are in the window now, so they can be saved.
  opened_ = true;
  // If the language library is missing, a box opens, and the window may be gone after it.
  texts_ = LoadCalcTexts(Context().language);
  View().SetTitle(texts_.title);
  View().SetResultColors(kResultBack, kResultText);
  MakeControls();
  Host().HostToolOpening(kTool);
  InstallMenus();
  // After the end nobody would stop the timer.
  if (HasEnded()) return;
  timer_.Start(kTick, Later([this] { CompareSelection(); }));
  View().Show();
  View().BringToTop();
  View().FocusLine();
  ShowLargeFile(Context(), kTool, CalcHistory::kName, rows.TextBytes() + rows.size());
}

/// Moves the window if the panel has become so much smaller that it would open out of sight.
void CalcSession::ComeIntoSight() {
  const Rect window = View().WindowRect();
  const CalcPlace place = CalcInSight(window, View().ParentClientRect());
  if (place != CalcPlace{window.left, window.top}) View().MoveWindow(place.left, place.top);
}

void CalcSession::MakeControls() {
  View().MakeFonts(kLineHeight, kLineWeight, kResultHeight, kResultWeight);
  View().LimitLine(static_cast<int>(kLongestExpression));
  for (int key = calc_id::kOpenList; key <= calc_id::kLastKey; ++key) {
    View().SetKeyIcon(key, calc_id::kFirstKeyIcon + key - calc_id::kOpenList);
  }
  View().SetResultText(FormatResult(value_, numberBase_));
  View().SetStatus(texts_.empty);
}

void CalcSession::InstallMenus() {
  menus_.Load();
  menus_.MarkCompact(minimized_);
  Host().HostSetMainMenu(kTool, menus_.Main());
  Host().HostSetSideMenu(kTool, menus_.Side());
  // After the end the tool must not ask the kernel.
  if (HasEnded()) return;
  if (Kapi().SWOption_IsZMCON() == 0) menus_.RemoveMachining();
  UpdateMenuState();
}

void CalcSession::UpdateMenuState() {
  menus_.ShowState(numberBase_, radians_);
  Host().HostUpdateSideMenu(kTool);
}

std::intptr_t CalcSession::OnToolCommand(std::intptr_t request) {
  switch (request) {
    case PNL_COMMAND_LEAVE:
      EndActivity();
      HideWindow();
      DestroyWindow();
      return PNL_DONE;
    case PNL_COMMAND_CLOSE_TOOL:
      Close(PNL_CLOSED);
      return PNL_CLOSED_ITSELF;
    case PNL_COMMAND_CLOSE_FOR_OTHER:
      Close(PNL_CLOSED);
      return PNL_DONE;
    default:
      return PNL_DONE;
  }
}

void CalcSession::EndActivity() {
  CloseNote();
  DropWork();
  timer_.Stop();
  MarkEnded();
}

// The closing steps come after MarkEnded. The host must hear of the closing even if somebody destroys the window
// meanwhile. So they don't use View and Host, which would throw.

void CalcSession::Close(int code) {
  // The tool may have ended when it wrote the value. The host must hear of the closing only once.
  if (HasEnded()) return;
  EndActivity();
  HideWindow();
  Context().host.HostToolClosed(kTool, code);
  if (code == PNL_CLOSED_ACCEPTED) Context().host.HostCalcResultAccepted();
  DestroyWindow();
}

void CalcSession::GoToMachining() {
  EndActivity();
  Context().host.HostToolClosed(kTool, PNL_CLOSED);
  Context().host.HostOpenMachiningCalculator();
  HideWindow();
  DestroyWindow();
}

void CalcSession::HideWindow() {
  if (window_ != nullptr) window_->Hide();
}

void CalcSession::DestroyWindow() {
  // The window may have been destroyed when it was hidden.
  if (window_ != nullptr) window_->Destroy();
  Save();
}

void CalcSession::End() {
  MarkEnded();
  timer_.Stop();
  run_.Drop();
  Save();
}

void CalcSession::Save() {
  if (window_ == nullptr) return;
  std::vector<Text> failed;
  if (opened_) {
    if (!history_.Save(window_->ListRows())) failed.emplace_back(CalcHistory::kName);
    const Rect place = window_->WindowRect();
    const CalcSettings settings{place.left, place.top, minimized_};
    if (!SaveCalcSettings(Context().files, Context().cnc.Util(), settings, loaded_)) failed.emplace_back(kCalcIniName);
  }
  window_ = nullptr;
  menus_.Destroy();
  ShowNotSaved(Context(), kTool, failed);
}

// The commands that only the menus have.

void CalcSession::OnMenuCommand(int id) {
  switch (id) {
    case calc_id::kMenuBase:
      ChangeBase();
      break;
    case calc_id::kMenuAngle:
      ChangeAngle();
      break;
    case calc_id::kMenuCompact:
      ToggleCompact();
      break;
    case calc_id::kMenuMachining:
      GoToMachining();
      break;
    default:
      OnButton(id);
      break;
  }
}

void CalcSession::ChangeBase() {
  numberBase_ = (numberBase_ + 1) % kBases;
  RefreshPreview();
  View().SetResultText(FormatResult(value_, numberBase_));
  View().RepaintRowValues();
  UpdateMenuState();
}

/// Changes the angle unit. The result stays as it is. The next evaluation uses the new unit.
void CalcSession::ChangeAngle() {
  radians_ = !radians_;
  RefreshPreview();
  View().RepaintRowValues();
  UpdateMenuState();
}

void CalcSession::ToggleCompact() {
  // Closing the list would change the text of the line, and a running confirmation must keep it.
  if (run_.IsConfirming() && openList_ != OpenList::kNone) return;
  CloseHistory(Keep::kSavedLine);
  CloseVariables();
  minimized_ = !minimized_;
  menus_.MarkCompact(minimized_);
  Host().HostUpdateMainMenu(kTool);
  ResizeWindow();
}

void CalcSession::AttachMenu(bool attached) {
  menuAttached_ = attached;
  View().AttachMenu(attached ? menus_.All() : 0);
  ResizeWindow();
}

void CalcSession::ResizeWindow() { View().SetClientHeight(CalcClientHeight(MeasureCalc(View()), minimized_)); }

}  // namespace pnl
