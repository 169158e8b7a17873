// SPDX-License-Identifier: MIT
#include "calc/calc_session.h"

#include "calc/calc_closing.h"
#include "calc/calc_confirm.h"
#include "calc/calc_evaluation.h"
#include "calc/calc_line.h"
#include "calc/calc_list.h"
#include "calc/calc_menus.h"
#include "calc/calc_navigation.h"
#include "calc/calc_state.h"
#include "calc/calc_variables.h"

namespace pnl {

CalcSession::CalcSession(const ToolContext& context, CalcView& view, std::int32_t param)
    : state_(std::make_shared<CalcState>(context, view, param)) {}

CalcSession::~CalcSession() {
  // The window is half gone by now, so nothing can be asked of it; what was to be saved, OnDestroyed has saved.
  state_->timer.Stop();
  state_->closed = true;
  state_->window = nullptr;
  calc::DestroyMenus(*state_);
}

// Each operation holds the state: the host may destroy the window, and this object with it, from one of its callbacks.

void CalcSession::Open() {
  const auto state = state_;
  calc::Open(state);
}

bool CalcSession::OnKey(CalcKey key, bool ctrl) {
  const auto state = state_;
  return !state->closed && calc::OnKey(*state, key, ctrl);
}

bool CalcSession::OnCharacter(char16_t character) {
  const auto state = state_;
  return !state->closed && calc::OnCharacter(*state, character);
}

void CalcSession::OnLineChanged() {
  const auto state = state_;
  if (!state->closed) calc::OnLineChanged(*state);
}

void CalcSession::OnLinePressed() {
  const auto state = state_;
  if (state->closed || state->IsConfirming()) return;
  calc::CloseHistory(*state, calc::CalcKeep::kSelectedRow);
  calc::CloseVariables(*state);
}

void CalcSession::OnButton(int id) {
  const auto state = state_;
  if (!state->closed) calc::OnButton(*state, id);
}

void CalcSession::OnMenuCommand(int id) {
  const auto state = state_;
  if (!state->closed) calc::OnMenuCommand(*state, id);
}

void CalcSession::OnListSelection() {
  const auto state = state_;
  if (!state->closed && !state->IsConfirming()) calc::ShowSelectedRow(*state);
}

void CalcSession::OnListDoubleClick() {
  const auto state = state_;
  if (!state->closed && !state->IsConfirming()) calc::CloseHistory(*state, calc::CalcKeep::kSelectedRow);
}

void CalcSession::OnVariablesPicked() {
  const auto state = state_;
  if (!state->closed && !state->IsConfirming()) calc::PickVariable(*state);
}

std::intptr_t CalcSession::OnToolCommand(std::intptr_t request) {
  const auto state = state_;
  return state->closed ? kDone : calc::OnToolCommand(*state, request);
}

void CalcSession::OnHandleValue() {
  const auto state = state_;
  if (!state->closed && !state->IsConfirming()) calc::TakeValue(*state);
}

void CalcSession::OnDestroyed() {
  const auto state = state_;
  calc::OnDestroyed(*state);
}

void CalcSession::Work() {
  const auto state = state_;
  if (!state->closed) calc::ContinueWork(*state);
}

bool CalcSession::IsComputing() const { return state_->work != nullptr; }
bool CalcSession::IsListOpen() const { return state_->openList == CalcOpenList::kHistory; }
bool CalcSession::IsMenuAttached() const { return state_->menuAttached; }
int CalcSession::NumberBase() const { return state_->numberBase; }
bool CalcSession::Radians() const { return state_->radians; }
double CalcSession::Value() const { return state_->value; }

}  // namespace pnl
