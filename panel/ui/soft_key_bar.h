// SPDX-License-Identifier: MIT
// A bar of soft keys made from menu data: hidden items skipped, sub-menus opened on press, more items than keys paged.
// It draws what it is given and says which item was pressed; whose menu it is, it doesn't know.
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
  bool operator==(const SoftKeyItem&) const = default;
};

/// The visible items of a menu of the tools, as they are now. Empty for a menu that isn't there.
[[nodiscard]] std::vector<SoftKeyItem> ReadMenu(std::uint32_t menu);
/// Whether a menu handle is in use.
[[nodiscard]] bool MenuExists(std::uint32_t menu);

/// Where a bar gets a menu from: the tools' menus unless a test brings others.
struct MenuSource {
  std::function<bool(std::uint32_t)> exists = &MenuExists;
  std::function<std::vector<SoftKeyItem>(std::uint32_t)> read = &ReadMenu;
};

class SoftKeyBar : public QWidget {
  Q_OBJECT

 public:
  /// keyAt names the keyboard's key for each slot.
  SoftKeyBar(Qt::Orientation orientation, int slotCount, QKeySequence (*keyAt)(int), QWidget* parent);

  /// Shows a tool's menu. A menu that was shown before keeps its page and its open sub-menu.
  void ShowMenu(std::uint32_t menu);
  /// Shows the panel's own keys.
  void ShowItems(std::vector<SoftKeyItem> items);
  /// The panel's own keys lie inside others: the key back leads out of them, which Left tells.
  void SetInner(bool inner);
  /// Presses the key in that slot as the keyboard does; nothing for an empty or disabled one.
  void Press(int slot);
  void NextPage();
  /// Out of a sub-menu, else back to the first page.
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
  /// menu is 0 when the panel's own keys show.
  void Pressed(int id, std::uint32_t menu);
  void Left();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Read();
  void Take(std::vector<SoftKeyItem> items);
  void UpdateDisplay();
  void ShowItem(PanelKey& key, const SoftKeyItem* item);
  void Place();
  [[nodiscard]] const SoftKeyItem* ItemAt(int slot) const;
  Qt::Orientation orientation_;
  int slotCount_;
  MenuSource source_;
  std::vector<std::uint32_t> menus_;  // the tool's menu and the sub-menus opened in it; empty for the panel's own
  std::vector<SoftKeyItem> items_;
  int page_ = 0;
  bool inner_ = false;
  std::vector<PanelKey*> keys_;
  PanelKey* back_;
  PanelKey* more_;
};

}  // namespace panel
