// SPDX-License-Identifier: MIT
// A bar of soft keys made from menu items. It skips hidden items, opens a sub-menu on a press, and pages when there are
// more items than keys. It says which item was pressed; it doesn't know whose menu it shows.
#pragma once

#include <QByteArray>
#include <QKeySequence>
#include <QString>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

namespace panel {

class PanelKey;

/// One item as the bar shows it.
struct SoftKeyItem {
  int id = 0;
  QString text;
  QString helper;
  bool enabled = true;
  bool checked = false;
  int bitmap = 0;
  std::uint32_t subMenu = 0;
  bool ofPanel = false;  // a key of the panel beside a tool's menu
  bool operator==(const SoftKeyItem&) const = default;
};

/// The visible items of a tool's menu, as they are now. Empty when there is no such menu.
[[nodiscard]] std::vector<SoftKeyItem> ReadMenu(std::uint32_t menu);
/// Whether a menu handle is in use.
[[nodiscard]] bool MenuExists(std::uint32_t menu);

/// Where a bar reads menus from: the tools' menus, unless a test brings others.
struct MenuSource {
  std::function<bool(std::uint32_t)> exists = &MenuExists;
  std::function<std::vector<SoftKeyItem>(std::uint32_t)> read = &ReadMenu;
};

class SoftKeyBar : public QWidget {
  Q_OBJECT

 public:
  /// keyAt returns the key on the keyboard for each slot.
  SoftKeyBar(Qt::Orientation orientation, int slotCount, QKeySequence (*keyAt)(int), QWidget* parent);

  /// Shows a tool's menu, and after its items the panel's keys that belong to the tool. When the menu is shown already,
  /// its page and its open sub-menu stay.
  void ShowMenu(std::uint32_t menu, std::vector<SoftKeyItem> ofPanel = {});
  /// Shows the panel's own keys.
  void ShowItems(std::vector<SoftKeyItem> items);
  /// Whether the panel's own keys are an inner level. Then the key back, on their first page, emits Left.
  void SetInner(bool inner);
  /// Presses the key in that slot as the keyboard does. Does nothing for an empty or disabled one.
  void Press(int slot);
  void NextPage();
  /// Goes back to the first page and out of a sub-menu.
  void Back();

  void SetFontPixels(int pixels);
  void SetMenuSource(MenuSource source) { source_ = std::move(source); }
  [[nodiscard]] std::uint32_t Menu() const { return menus_.empty() ? 0 : menus_.front(); }
  [[nodiscard]] int PageCount() const;
  [[nodiscard]] int Page() const { return page_; }
  [[nodiscard]] bool InSubMenu() const { return menus_.size() > 1; }
  [[nodiscard]] bool IsInner() const { return inner_ && menus_.empty(); }
  [[nodiscard]] const std::vector<SoftKeyItem>& Items() const { return items_; }
  /// The key in that slot, for tests and for the order of focus.
  [[nodiscard]] PanelKey* Key(int slot) const { return keys_.at(static_cast<std::size_t>(slot)); }
  [[nodiscard]] PanelKey* MoreKey() const { return more_; }
  [[nodiscard]] PanelKey* BackKey() const { return back_; }

 signals:
  /// menu is the tool's menu, or 0 for a key of the panel.
  void Pressed(int id, std::uint32_t menu);
  void Left();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowWords();
  void Read();
  void Take(std::vector<SoftKeyItem> items);
  void UpdateDisplay();
  void ShowItem(PanelKey& key, const SoftKeyItem* item);
  void Place();
  [[nodiscard]] const SoftKeyItem* ItemAt(int slot) const;
  Qt::Orientation orientation_;
  int slotCount_;
  MenuSource source_;
  std::vector<std::uint32_t> menus_;  // the tool's menu and the open sub-menus; empty for the panel's own keys
  std::vector<SoftKeyItem> items_;
  std::vector<SoftKeyItem> ofPanel_;  // the panel's keys after those of the tool's menu
  int page_ = 0;
  bool inner_ = false;
  std::vector<PanelKey*> keys_;
  PanelKey* back_;
  PanelKey* more_;
};

}  // namespace panel
