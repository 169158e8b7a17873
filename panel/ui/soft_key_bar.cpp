// SPDX-License-Identifier: MIT
#include "ui/soft_key_bar.h"

#include <pnltools/pnltools.h>

#include <QEvent>
#include <algorithm>

#include "common/record_fields.h"
#include "common/shortcuts.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kGap = 4;

QByteArray Picture(int number) {
  const unsigned char* data = nullptr;
  std::size_t size = 0;
  if (number == 0 || PnlBitmap(number, &data, &size) == 0 || data == nullptr) return {};
  return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

}  // namespace

bool MenuExists(std::uint32_t menu) { return menu != 0 && PnlMenuItemCount(menu) >= 0; }

std::vector<SoftKeyItem> ReadMenu(std::uint32_t menu) {
  std::vector<SoftKeyItem> items;
  const int count = PnlMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    PnlMenuItem item{};
    if (PnlMenuItemAt(menu, i, &item) == 0 || item.visible == 0) continue;
    items.push_back({item.id, FromField(item.text), FromField(item.helper), item.enabled != 0, item.checked != 0,
                     item.bitmap, item.subMenu, false});
  }
  return items;
}

SoftKeyBar::SoftKeyBar(Qt::Orientation orientation, int slotCount, QKeySequence (*keyAt)(int), QWidget* parent)
    : QWidget(parent), orientation_(orientation), slotCount_(slotCount) {
  const bool main = orientation == Qt::Horizontal;
  back_ = new PanelKey(this);
  back_->SetArrow(main ? Qt::LeftArrow : Qt::UpArrow);
  connect(back_, &PanelKey::clicked, this, &SoftKeyBar::Back);
  for (int slot = 0; slot < slotCount; ++slot) {
    auto* key = new PanelKey(this);
    key->SetKeyName(keyAt(slot).toString());
    connect(key, &PanelKey::clicked, this, [this, slot] { Press(slot); });
    keys_.push_back(key);
  }
  more_ = new PanelKey(this);
  more_->SetArrow(main ? Qt::RightArrow : Qt::DownArrow);
  more_->SetKeyName(KeysOf(main ? Action::kMainMore : Action::kSideMore).first().toString());
  connect(more_, &PanelKey::clicked, this, &SoftKeyBar::NextPage);
  ShowWords();
  UpdateDisplay();
}

void SoftKeyBar::ShowWords() {
  const bool main = orientation_ == Qt::Horizontal;
  back_->setAccessibleName(Say(Word::kBack));
  back_->SetTip(TooltipOf(main ? Action::kMainBack : Action::kSideBack));
  more_->setAccessibleName(Say(Word::kMore));
  more_->SetTip(TooltipOf(main ? Action::kMainMore : Action::kSideMore));
}

void SoftKeyBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

void SoftKeyBar::ShowMenu(std::uint32_t menu, std::vector<SoftKeyItem> ofPanel) {
  ofPanel_ = std::move(ofPanel);
  for (SoftKeyItem& item : ofPanel_) item.ofPanel = true;
  if (Menu() != menu || menus_.empty()) {
    menus_ = {menu};
    page_ = 0;
    items_.clear();
    UpdateDisplay();
  }
  Read();
}

void SoftKeyBar::ShowItems(std::vector<SoftKeyItem> items) {
  if (!menus_.empty()) page_ = 0;
  menus_.clear();
  Take(std::move(items));
}

void SoftKeyBar::SetInner(bool inner) {
  if (inner == inner_) return;
  inner_ = inner;
  page_ = 0;
  UpdateDisplay();
}

void SoftKeyBar::Take(std::vector<SoftKeyItem> items) {
  // The panel redraws many times a second while axes move, but its keys rarely change.
  if (items == items_) return;
  items_ = std::move(items);
  UpdateDisplay();
}

void SoftKeyBar::Read() {
  // A sub-menu that no longer exists closes.
  while (menus_.size() > 1 && !source_.exists(menus_.back())) menus_.pop_back();
  auto items = source_.read(menus_.back());
  if (!InSubMenu()) items.insert(items.end(), ofPanel_.begin(), ofPanel_.end());
  Take(std::move(items));
}

int SoftKeyBar::PageCount() const {
  return std::max(1, (static_cast<int>(items_.size()) + slotCount_ - 1) / slotCount_);
}

const SoftKeyItem* SoftKeyBar::ItemAt(int slot) const {
  const int index = page_ * slotCount_ + slot;
  const bool there = slot >= 0 && slot < slotCount_ && index < static_cast<int>(items_.size());
  return there ? &items_[static_cast<std::size_t>(index)] : nullptr;
}

void SoftKeyBar::Press(int slot) {
  const SoftKeyItem* item = ItemAt(slot);
  if (item == nullptr || !item->enabled) return;
  if (item->subMenu != 0) {
    menus_.push_back(item->subMenu);
    page_ = 0;
    Read();
    UpdateDisplay();
    return;
  }
  emit Pressed(item->id, item->ofPanel ? 0 : Menu());
}

void SoftKeyBar::NextPage() {
  page_ = (page_ + 1) % PageCount();
  UpdateDisplay();
}

void SoftKeyBar::Back() {
  if (IsInner() && page_ == 0) {
    emit Left();
    return;
  }
  page_ = 0;
  if (menus_.size() > 1) {
    menus_.pop_back();
    Read();
  }
  UpdateDisplay();
}

void SoftKeyBar::SetFontPixels(int pixels) {
  for (PanelKey* key : keys_) key->SetFontPixels(pixels);
  back_->SetFontPixels(pixels);
  more_->SetFontPixels(pixels);
  // The screen's density may have changed, too.
  Place();
}

void SoftKeyBar::ShowItem(PanelKey& key, const SoftKeyItem* item) {
  // An empty slot stays as a disabled key: keys must not change places under a finger.
  key.setEnabled(item != nullptr && item->enabled);
  key.setText(item == nullptr ? QString() : item->text);
  key.setAccessibleName(item == nullptr ? QString() : item->text);
  key.SetPicture(item == nullptr ? QByteArray() : Picture(item->bitmap));
  key.setCheckable(item != nullptr && item->checked);
  key.setChecked(item != nullptr && item->checked);
  key.SetLeadsOn(item != nullptr && item->subMenu != 0);
  key.SetTip(item == nullptr ? QString() : QStringLiteral("%1 (%2)").arg(item->text, key.KeyName()));
}

void SoftKeyBar::UpdateDisplay() {
  page_ = std::min(page_, PageCount() - 1);
  for (int slot = 0; slot < slotCount_; ++slot) ShowItem(*Key(slot), ItemAt(slot));
  more_->setEnabled(PageCount() > 1);
  back_->setEnabled(InSubMenu() || IsInner() || page_ > 0);
  more_->setText(PageCount() > 1 ? QStringLiteral("%1/%2").arg(page_ + 1).arg(PageCount()) : QString());
  Place();
}

void SoftKeyBar::Place() {
  const bool across = orientation_ == Qt::Horizontal;
  const int length = across ? width() : height();
  const int touch = theme::TouchPixels(*this);
  const int narrow = std::max(touch, across ? std::min(length / 12, 72) : touch);
  // In the side bar the two paging keys share a row, which is there only when it is needed.
  const bool paging = across || PageCount() > 1 || InSubMenu() || IsInner();
  back_->setVisible(paging);
  more_->setVisible(paging);
  const int before = across ? narrow + kGap : 0;
  const int after = paging ? narrow + kGap : 0;
  const int room = std::max(0, length - before - after - (slotCount_ - 1) * kGap);
  int at = before;
  for (int slot = 0; slot < slotCount_; ++slot) {
    const int size = room * (slot + 1) / slotCount_ - room * slot / slotCount_;
    Key(slot)->setGeometry(across ? QRect(at, 0, size, height()) : QRect(0, at, width(), size));
    at += size + kGap;
  }
  if (across) {
    back_->setGeometry(0, 0, narrow, height());
    more_->setGeometry(length - narrow, 0, narrow, height());
  } else {
    back_->setGeometry(0, length - narrow, width() / 2 - kGap / 2, narrow);
    more_->setGeometry(width() / 2 + kGap / 2, length - narrow, width() - width() / 2 - kGap / 2, narrow);
  }
}

void SoftKeyBar::resizeEvent(QResizeEvent*) { Place(); }

}  // namespace panel
