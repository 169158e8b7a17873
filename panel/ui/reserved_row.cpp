// SPDX-License-Identifier: MIT
#include "ui/reserved_row.h"

#include <QEvent>

#include "common/shortcuts.h"
#include "ui/panel_key.h"

namespace panel {
namespace {

struct RowWord {
  RowKey key;
  Word word;
  const char* name;  // the keyboard's name for it; empty: it has none
};

/// One row for each key, in their order.
constexpr std::array<RowWord, kRowKeys> kWords = {{
    {RowKey::kErrors, Word::kErrorList, "Ctrl+L"},
    {RowKey::kCalculator, Word::kCalculator, "Ctrl+K"},
    {RowKey::kHelp, Word::kHelp, "Ctrl+F1"},
    {RowKey::kKeyboard, Word::kTouchKeyboard, ""},
    {RowKey::kLanguage, Word::kOtherLanguage, ""},
    {RowKey::kInsert, Word::kInsertKey, "Ins"},
    {RowKey::kClose, Word::kClose, "Esc"},
    {RowKey::kEnter, Word::kEnterKey, ""},
}};

}  // namespace

ReservedRow::ReservedRow(QWidget* parent) : QWidget(parent) {
  for (const RowWord& row : kWords) {
    auto* key = new PanelKey(this);
    key->SetKeyName(QString::fromLatin1(row.name));
    connect(key, &PanelKey::clicked, this, [this, pressed = row.key] { emit Pressed(pressed); });
    keys_[static_cast<std::size_t>(row.key)] = key;
  }
  // Enter, Insert and Close act on what has the focus, so Tab must not give it to them.
  for (const RowKey key : {RowKey::kInsert, RowKey::kClose, RowKey::kEnter, RowKey::kKeyboard}) {
    Key(key)->setFocusPolicy(Qt::NoFocus);
  }
  for (const RowKey key : {RowKey::kErrors, RowKey::kCalculator, RowKey::kHelp, RowKey::kKeyboard}) {
    Key(key)->setCheckable(true);
  }
  ShowWords();
}

void ReservedRow::ShowWords() {
  for (const RowWord& row : kWords) {
    Key(row.key)->setText(Say(row.word));
    Key(row.key)->setAccessibleName(Say(row.word));
  }
}

void ReservedRow::Show(const std::function<RowKeyLook(RowKey)>& look) {
  for (const RowWord& row : kWords) {
    const RowKeyLook shown = look(row.key);
    Key(row.key)->setVisible(shown.there);
    Key(row.key)->setEnabled(shown.enabled);
    // A key that opens nothing can't be checked and takes no notice.
    Key(row.key)->setChecked(shown.lit);
  }
}

void ReservedRow::SetFontPixels(int pixels) {
  for (PanelKey* key : keys_) key->SetFontPixels(pixels);
}

void ReservedRow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

void ReservedRow::resizeEvent(QResizeEvent*) {
  constexpr int kGap = 4;
  for (int i = 0; i < kRowKeys; ++i) {
    const int left = (width() + kGap) * i / kRowKeys;
    const int right = (width() + kGap) * (i + 1) / kRowKeys - kGap;
    keys_[static_cast<std::size_t>(i)]->setGeometry(left, 0, right - left, height());
  }
}

}  // namespace panel
