// SPDX-License-Identifier: MIT
// Everything in a window that a finger presses, with its size: keys, fields, rows of lists, cells, items of menus, and
// scroll bars that have something to scroll. What other parts cover, or what lies outside the window, isn't there.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTableView>
#include <QTreeView>
#include <QWidget>
#include <string>
#include <vector>

namespace pnl::test {

struct TouchTarget {
  const QWidget* widget;
  std::string part;  // what it is: "button", "row", ...
  QRect place;       // in the window
};

class TouchTargets {
 public:
  explicit TouchTargets(const QWidget& window) : window_(window) {
    Add(window);
    for (const QWidget* child : window.findChildren<QWidget*>()) {
      // A menu or a box that is open is a window of its own.
      if (child->window() == window.window() && child->isVisible()) Add(*child);
    }
  }
  [[nodiscard]] const std::vector<TouchTarget>& All() const { return all_; }

  /// Adds a part of a widget that paints its keys itself; place is in the widget.
  void AddPart(const QWidget& widget, const char* part, const QRect& place) {
    const QRect seen = place & SeenOf(widget);
    // What is hidden behind another part can't be pressed.
    if (seen.isEmpty()) return;
    const QPoint middle = widget.mapTo(&window_, seen.center());
    const QWidget* hit = &window_ == &widget ? &widget : window_.childAt(middle);
    if (hit == nullptr || (hit != &widget && !widget.isAncestorOf(hit) && !hit->isAncestorOf(&widget))) return;
    all_.push_back({&widget, part, QRect(widget.mapTo(&window_, place.topLeft()), place.size())});
  }

 private:
  /// The part of a widget that its parents don't cut off.
  [[nodiscard]] QRect SeenOf(const QWidget& widget) const {
    QRect seen = widget.rect();
    QPoint place;
    for (const QWidget* at = &widget; at != &window_ && at->parentWidget() != nullptr; at = at->parentWidget()) {
      place += at->pos();
      seen &= at->parentWidget()->rect().translated(-place);
    }
    return seen;
  }
  void Add(const QWidget& widget) {
    // The corner of a table whose owner has made it do nothing.
    if (widget.inherits("QTableCornerButton") && !widget.isEnabled()) return;
    // The path of a folder leads to the folders around it.
    if (widget.inherits("pnl::XplrPathHeading")) return AddPart(widget, "path", widget.rect());
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) return AddPart(widget, "button", widget.rect());
    if (qobject_cast<const QComboBox*>(&widget) != nullptr) return AddPart(widget, "box", widget.rect());
    if (qobject_cast<const QLineEdit*>(&widget) != nullptr) {
      const bool ofBox = qobject_cast<const QComboBox*>(widget.parentWidget()) != nullptr;
      if (!ofBox && widget.isEnabled()) AddPart(widget, "field", widget.rect());
      return;
    }
    if (const auto* bar = qobject_cast<const QScrollBar*>(&widget)) return AddBar(*bar);
    if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
      for (QAction* action : menu->actions()) AddPart(widget, "item", menu->actionGeometry(action));
      return;
    }
    if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) return AddHeader(*header);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) return AddRows(*view);
    if (widget.property("pnlKind").toString() == QLatin1String("check")) AddPart(widget, "check", widget.rect());
  }
  void AddBar(const QScrollBar& bar) {
    if (bar.maximum() <= bar.minimum()) return;
    AddPart(bar, "scroll bar", bar.rect());
    // A short bar has room for its arrows alone, which are as big.
    const int thickness = std::min(bar.width(), bar.height());
    if (std::max(bar.width(), bar.height()) < 3 * thickness) return;
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    AddPart(bar, "handle",
            bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar));
  }
  void AddHeader(const QHeaderView& header) {
    const bool across = header.orientation() == Qt::Horizontal;
    if (!across || header.model() == nullptr) return;
    for (int section = 0; section < header.count(); ++section) {
      if (header.isSectionHidden(section)) continue;
      const QRect place(header.sectionViewportPosition(section), 0, header.sectionSize(section), header.height());
      AddPart(*header.viewport(), "heading", place);
    }
  }
  void AddRows(const QAbstractItemView& view) {
    if (view.model() == nullptr || view.selectionMode() == QAbstractItemView::NoSelection) return;
    const QRect seen = view.viewport()->rect();
    const bool cells = qobject_cast<const QTableView*>(&view) != nullptr;
    QModelIndex last;
    for (int y = 1; y < seen.height(); y += 4) {
      const QModelIndex index = view.indexAt(QPoint(std::min(40, seen.width() - 1), y));
      if (!index.isValid() || index == last) continue;
      last = index;
      const int columns = cells ? view.model()->columnCount(index.parent()) : 1;
      for (int column = cells ? 0 : index.column(); column < (cells ? columns : index.column() + 1); ++column) {
        QRect place = view.visualRect(index.sibling(index.row(), column));
        // A row is pressed anywhere in its width.
        if (!cells) place = QRect(0, place.top(), seen.width(), place.height());
        // The last row may be cut off by the end of the list.
        if (seen.contains(place)) AddPart(*view.viewport(), cells ? "cell" : "row", place);
      }
    }
  }

  const QWidget& window_;
  std::vector<TouchTarget> all_;
};

}  // namespace pnl::test
