// SPDX-License-Identifier: MIT
#include "ui/settings_desk.h"

#include <utility>

#include "common/words.h"
#include "host/operator.h"
#include "ui/first_start.h"
#include "ui/panel_window.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"

namespace panel {

SettingsDesk::SettingsDesk(PanelWindow& window, Operator& op, QString file)
    : window_(window), op_(op), file_(std::move(file)) {
  connect(&window_, &PanelWindow::LanguageSwitched, this, [this] { Store({WordsInUse(), {}, {}}); });
  connect(&window_.Touch(), &TouchDesk::Switched, this, [this](bool on) { Store({{}, {}, on}); });
  connect(&window_.First(), &FirstStart::LanguageChosen, this, [this](const QString& language) {
    if (language != WordsInUse()) window_.SwitchLanguage();
  });
  connect(&window_.First(), &FirstStart::Answered, this, &SettingsDesk::OnAnswered);
  window_.OfferScreenSize();
}

SettingsDesk::~SettingsDesk() {
  writer_.Finish();
  if (!waiting_.IsEmpty()) (void)StoreSettings(file_, waiting_);
}

void SettingsDesk::Begin(const PanelSettings& known, std::function<void()> then) {
  if (known.touchKeyboard.value_or(false)) window_.Touch().SwitchOn();
  if (known.screenMillimetres) return then();
  then_ = std::move(then);
  window_.First().Ask(FirstStart::Page::kLanguage, false);
}

void SettingsDesk::OnAnswered(double screenMillimetres) {
  theme::SetScreenWidth(screenMillimetres);
  window_.LayOut();
  window_.UpdateDisplay();
  Store({WordsInUse(), screenMillimetres, {}});
  if (const auto then = std::exchange(then_, nullptr)) then();
}

void SettingsDesk::Store(const PanelSettings& changed) {
  waiting_.Update(changed);
  Write();
}

void SettingsDesk::Write() {
  if (writer_.Working() || waiting_.IsEmpty()) return;
  writer_.Run<bool>([file = file_, changed = std::exchange(waiting_, {})] { return StoreSettings(file, changed); },
                    [this](bool stored) {
                      if (!stored) op_.SetHint(Say(Word::kSettingsNotKept), true);
                      Write();
                    });
}

}  // namespace panel
