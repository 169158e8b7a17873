// SPDX-License-Identifier: MIT
// The window's part in the errors: where their window is, presses on the indicator, the list over the panel, the
// question whether to close, and covers that give way to the error window.
#include <algorithm>

#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/first_start.h"
#include "ui/keyboard.h"
#include "ui/panel_window.h"
#include "ui/password_box.h"
#include "ui/program_desk.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/touch_desk.h"

namespace panel {

void PanelWindow::ConnectErrors() {
  connect(&status_->Indicator(), &ErrorIndicator::clicked, this, &PanelWindow::OnErrorSign);
  // Connected before the keyboard, so that a cover that gives way loses the focus first.
  connect(&session_, &HostSession::ToolsChanged, this, &PanelWindow::LetErrorsPass);
  connect(&op_.Desk(), &ErrorDesk::CloseAsked, this, &PanelWindow::AskToClose);
  connect(errorList_, &ErrorListCover::LineWanted, this, &PanelWindow::ShowErrorPlace);
  connect(errorList_, &ErrorListCover::HelpWanted, &op_.Desk(), &ErrorDesk::ShowHelpOf);
  connect(mainBar_, &SoftKeyBar::Left, this, [this] {
    innerKeys_ = InnerKeys::kNone;
    ShowBars();
  });
}

void PanelWindow::OnErrorSign() {
  if (op_.Desk().WindowShown() || !op_.Desk().BringBack()) Trigger(Action::kErrorList);
}

void PanelWindow::ShowErrorPlace(const std::optional<pnl::rig::ProgramSpot>& spot) {
  if (!spot) return;
  op_.Desk().PutAway();
  desk_->ShowSpot(*spot);
}

void PanelWindow::ShowErrors() {
  LetErrorsPass();
  errorList_->Update();
}

void PanelWindow::LetErrorsPass() {
  const bool shown = op_.Desk().WindowShown();
  if (shown == errorWindow_) return;
  errorWindow_ = shown;
  touch_->SetInterrupted(shown);
  if (shown) errorList_->Leave();
  if (shown) password_->Leave();
  // A hidden cover must not have the keyboard: an earlier question waits until the errors have been seen.
  const std::pair<QWidget*, bool> covers[] = {
      {first_, first_->IsOpen()}, {credentials_, credentials_->IsOpen()}, {question_, question_->IsOpen()}};
  for (const auto& [cover, open] : covers) {
    if (!open || cover->isVisible() != shown) continue;
    cover->setVisible(!shown);
    if (!shown) cover->raise();
  }
  keyboard_->Restore();
}

void PanelWindow::AskToClose() {
  const QString text = Say(Word::kCloseAsked);
  if (answer_) return op_.Desk().AnswerClose(answer_(text));
  question_->Ask(text, {Say(Word::kClosePanel), Say(Word::kKeepRunning)},
                 [this](int index) { op_.Desk().AnswerClose(index == 0); });
}

}  // namespace panel
