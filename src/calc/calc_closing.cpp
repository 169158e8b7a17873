// SPDX-License-Identifier: MIT
#include "calc/calc_closing.h"

#include "calc/calc_evaluation.h"
#include "calc/calc_ids.h"
#include "calc/calc_menus.h"
#include "calc/calc_notes.h"
#include "host/storage_messages.h"

namespace pnl::calc {

namespace {

constexpr std::uint32_t kResultBack = 0xFF0000;  // blue
constexpr std::uint32_t kResultText = 0x00FFFF;  // yellow
constexpr int kLineHeight = -6;
constexpr int kLineWeight = 600;
constexpr int kResultHeight = -8;
constexpr int kResultWeight = 700;
constexpr int kTick = 250;

constexpr std::intptr_t kHideAndDestroy = 6;
constexpr std::intptr_t kCloseTool = 20;
constexpr std::intptr_t kCloseForOther = 34;
constexpr std::intptr_t kClosedItself = 2;

void MakeControls(CalcState& state) {
  CalcView& view = state.View();
  view.MakeFonts(kLineHeight, kLineWeight, kResultHeight, kResultWeight);
  view.LimitLine(static_cast<int>(kLongestExpression));
  for (int key = calc_id::kOpenList; key <= calc_id::kLastKey; ++key) {
    view.SetKeyIcon(key, calc_id::kFirstKeyIcon + key - calc_id::kOpenList);
  }
  view.SetResultText(FormatResult(state.value, state.numberBase));
  view.SetStatus(state.texts.empty);
}

/// Nothing runs and nothing is heard any more; the window is still there.
void EndActivity(CalcState& state) {
  CloseNote(state);
  DropWork(state);
  state.timer.Stop();
  state.closed = true;
}

void HideAndDestroy(CalcState& state) {
  if (state.window == nullptr) return;
  state.window->Hide();
  // Hiding may have ended the window already.
  if (state.window != nullptr) state.window->Destroy();
}

}  // namespace

void Open(const std::shared_ptr<CalcState>& keep) {
  CalcState& state = *keep;
  if (state.opened || state.closed) return;
  state.loaded = LoadCalcSettings(state.context.files, state.context.cnc.Util());
  state.minimized = state.loaded.settings.minimized;
  state.View().MoveWindow(state.loaded.settings.left, state.loaded.settings.top);
  ResizeWindow(state);
  const TextRows rows = state.history.Load();
  state.View().FillList(rows);
  // From here on there is something to save.
  state.opened = true;
  state.texts = LoadCalcTexts(state.context.language);
  state.View().SetTitle(state.texts.title);
  state.View().SetResultColors(kResultBack, kResultText);
  MakeControls(state);
  // A box about the language, and then the host, may have ended the tool.
  if (state.closed) return;
  state.context.host.HostToolOpening(tool_id::kCalculator);
  if (state.closed) return;
  InstallMenus(state);
  if (state.closed) return;
  state.timer.Start(kTick, [weak = std::weak_ptr<CalcState>(keep)] {
    if (const auto alive = weak.lock()) CompareSelection(*alive);
  });
  state.View().Show();
  state.View().BringToTop();
  state.View().FocusLine();
  TellLargeFile(state.context, tool_id::kCalculator, CalcHistory::kName, rows.TextBytes() + rows.size());
}

void Close(CalcState& state, int code) {
  if (state.closed) return;
  EndActivity(state);
  if (state.window != nullptr) state.window->Hide();
  state.context.host.HostToolClosed(tool_id::kCalculator, code);
  if (code == PNL_CLOSED_ACCEPTED) state.context.host.HostCalcResultAccepted();
  if (state.window != nullptr) state.window->Destroy();
}

void GoToMachining(CalcState& state) {
  EndActivity(state);
  state.context.host.HostToolClosed(tool_id::kCalculator, PNL_CLOSED);
  state.context.host.HostOpenMachiningCalculator();
  HideAndDestroy(state);
}

std::intptr_t OnToolCommand(CalcState& state, std::intptr_t request) {
  switch (request) {
    case kHideAndDestroy:
      EndActivity(state);
      HideAndDestroy(state);
      return kDone;
    case kCloseTool:
      Close(state, PNL_CLOSED);
      return kClosedItself;
    case kCloseForOther:
      Close(state, PNL_CLOSED);
      return kDone;
    default:
      return kDone;
  }
}

void OnDestroyed(CalcState& state) {
  if (state.window == nullptr) return;
  // A window that is going is asked for nothing but what is to be saved.
  state.closed = true;
  state.timer.Stop();
  DropWork(state);
  std::vector<Text> failed;
  if (state.opened) {
    if (!state.history.Save(state.window->ListRows())) failed.emplace_back(CalcHistory::kName);
    const Rect place = state.window->WindowRect();
    const CalcSettings settings{place.left, place.top, state.minimized};
    if (!SaveCalcSettings(state.context.files, state.context.cnc.Util(), settings, state.loaded)) {
      failed.emplace_back(kCalcIniName);
    }
  }
  state.window = nullptr;
  DestroyMenus(state);
  TellNotSaved(state.context, tool_id::kCalculator, failed);
}

}  // namespace pnl::calc
