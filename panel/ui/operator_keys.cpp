// SPDX-License-Identifier: MIT
#include "ui/operator_keys.h"

#include <QEvent>
#include <array>

#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

struct Look {
  Action action;
  QRgb tint;    // 0: an ordinary key
  bool filled;  // for the keys that must be found at once
  bool latches;
};

constexpr std::array kLooks = {
    Look{Action::kCycleStart, theme::kGreen, true, false},
    Look{Action::kFeedHold, theme::kAmber, true, false},
    Look{Action::kSingleBlock, theme::kAccent, false, true},
    Look{Action::kInspect, theme::kViolet, false, true},
    Look{Action::kOverrideDown, 0, false, false},
    Look{Action::kOverrideUp, 0, false, false},
    Look{Action::kCancel, theme::kAmber, false, false},
    Look{Action::kReset, theme::kRed, false, false},
    Look{Action::kClearError, theme::kRed, false, false},
};

constexpr int kRepeatAfter = 400;  // ms
constexpr int kRepeatEvery = 120;  // ms

}  // namespace

OperatorKeys::OperatorKeys(QWidget* parent) : QWidget(parent) {
  for (const Look& look : kLooks) {
    auto* key = new PanelKey(this);
    key->SetKeyName(KeysOf(look.action).first().toString());
    if (look.tint != 0) key->SetTint(QColor(look.tint));
    key->SetFilled(look.filled);
    key->setCheckable(look.latches);
    key->setAutoRepeat(Repeats(look.action));
    key->setAutoRepeatDelay(kRepeatAfter);
    key->setAutoRepeatInterval(kRepeatEvery);
    const auto press = [this, action = look.action] { emit Pressed(action); };
    // Whoever carries the action out says why it is impossible.
    connect(key, &PanelKey::DimPressed, this, press);
    // A key that repeats acts when it goes down. If it acted when it comes up too, it would make one step too many.
    if (key->autoRepeat()) {
      connect(key, &PanelKey::pressed, this, press);
    } else {
      connect(key, &PanelKey::clicked, this, press);
    }
    keys_.emplace_back(look.action, key);
  }
  ShowWords();
}

void OperatorKeys::ShowWords() {
  for (const auto& [action, key] : keys_) {
    key->setText(Say(WordOf(action)));
    key->setAccessibleName(key->text());
    key->SetTip(TooltipOf(action));
  }
}

void OperatorKeys::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

void OperatorKeys::Show(const std::function<bool(Action)>& can, const std::function<bool(Action)>& latched) {
  for (const auto& [action, key] : keys_) {
    key->setEnabled(can(action));
    // The lamp shows the state of the machine, not of the key. A key without a lamp takes no notice.
    key->setChecked(latched(action));
  }
}

void OperatorKeys::ShowStartReason(const QString& note, const QString& reason) {
  PanelKey* key = Key(Action::kCycleStart);
  if (key->Note() == note && key->accessibleDescription() == reason) return;
  key->SetNote(note);
  const QString tip = TooltipOf(Action::kCycleStart);
  key->SetTip(reason.isEmpty() ? tip : tip + QLatin1Char('\n') + reason);
  key->setAccessibleDescription(reason);
}

void OperatorKeys::SetFontPixels(int pixels) {
  for (const auto& [action, key] : keys_) key->SetFontPixels(pixels);
}

PanelKey* OperatorKeys::Key(Action action) const {
  for (const auto& [known, key] : keys_) {
    if (known == action) return key;
  }
  return nullptr;
}

void OperatorKeys::resizeEvent(QResizeEvent*) {
  constexpr int kGap = 4;
  const int count = static_cast<int>(keys_.size());
  for (int i = 0; i < count; ++i) {
    const int left = (width() + kGap) * i / count;
    const int right = (width() + kGap) * (i + 1) / count - kGap;
    keys_[static_cast<std::size_t>(i)].second->setGeometry(left, 0, right - left, height());
  }
}

}  // namespace panel
