// SPDX-License-Identifier: MIT
#include "ui/panel_layout.h"

#include <algorithm>
#include <cmath>

#include "common/shortcuts.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kGap = 4;
constexpr double kMaxScale = 1.6;

/// The sizes of the parts around the tool area, before they are placed.
struct Sizes {
  int status;
  int axes;
  int modal;
  int messages;
  int keys;
  int reserved;
  int operatorKeys;
  int side;
  int column;  // 0 unless wide
};

double ScaleOf(QSize size, QSize one) {
  const double scale =
      std::min(static_cast<double>(size.width()) / one.width(), static_cast<double>(size.height()) / one.height());
  return std::clamp(scale, 1.0, kMaxScale);
}

/// columnMost: the greatest width of the column in a wide window.
Sizes SizesOf(double scale, bool wide, int touch, int columnMost) {
  const auto scaled = [scale](int pixels) { return static_cast<int>(std::lround(pixels * scale)); };
  Sizes sizes{};
  sizes.status = std::max(scaled(44), touch);
  sizes.axes = scaled(80);
  sizes.modal = scaled(22);
  sizes.messages = std::max(scaled(44), touch);
  sizes.keys = std::max(scaled(56), touch);
  sizes.reserved = std::max(scaled(44), MovingTouch(touch));
  sizes.operatorKeys = std::max(scaled(54), MovingTouch(touch));
  // The side bar has two paging keys side by side.
  sizes.side = std::max(scaled(100), 2 * touch + kGap);
  sizes.column = wide ? std::min(scaled(330), columnMost) : 0;
  return sizes;
}

int Above(const Sizes& sizes, bool wide) {
  return sizes.status + kGap + (wide ? 0 : sizes.axes + sizes.modal + 2 * kGap);
}

int Below(const Sizes& sizes) { return sizes.messages + sizes.keys + sizes.reserved + sizes.operatorKeys + 5 * kGap; }

/// Places the parts around the tool area. The layout must have its window and tool area already.
void Surround(PanelLayout& layout, const Sizes& sizes) {
  const int width = layout.window.width();
  const int height = layout.window.height();
  const int inner = width - 2 * kGap;
  layout.status = QRect(kGap, kGap, layout.wide ? inner : inner * 5 / 12, sizes.status - kGap);
  layout.operatorKeys = QRect(kGap, height - kGap - sizes.operatorKeys, inner, sizes.operatorKeys);
  layout.reservedRow = QRect(kGap, layout.operatorKeys.top() - kGap - sizes.reserved, inner, sizes.reserved);
  layout.mainBar = QRect(kGap, layout.reservedRow.top() - kGap - sizes.keys, inner, sizes.keys);
  layout.messages = QRect(kGap, layout.mainBar.top() - kGap - sizes.messages, inner, sizes.messages);
  const int sideLeft = width - kGap - sizes.side;
  const int bodyTop = layout.status.bottom() + 1 + kGap;
  const int bodyBottom = layout.messages.top() - kGap;
  layout.sideBar = QRect(sideLeft, bodyTop, sizes.side, std::max(0, bodyBottom - bodyTop));
  if (!layout.wide) {
    const int readingsLeft = layout.status.right() + 1 + kGap;
    layout.readings = QRect(readingsLeft, layout.status.top(), width - kGap - readingsLeft, layout.status.height());
    layout.axes = QRect(kGap, bodyTop, sideLeft - 2 * kGap, sizes.axes);
    layout.modal = QRect(kGap, layout.axes.bottom() + 1 + kGap, layout.axes.width(), sizes.modal);
    return;
  }
  const int columnHeight = std::max(0, bodyBottom - bodyTop);
  const int modalHeight = std::min(columnHeight / 6, 3 * sizes.modal);
  const int readingsHeight = (columnHeight - modalHeight) * 2 / 5;
  layout.axes = QRect(kGap, bodyTop, sizes.column, columnHeight - modalHeight - readingsHeight - 2 * kGap);
  layout.readings = QRect(kGap, layout.axes.bottom() + 1 + kGap, sizes.column, readingsHeight);
  layout.modal = QRect(kGap, layout.readings.bottom() + 1 + kGap, sizes.column, modalHeight);
}

}  // namespace

PanelLayout LayOutWithin(QSize window, int touch) {
  PanelLayout layout;
  layout.window = window.expandedTo(kLeastWindow);
  layout.scale = ScaleOf(layout.window, QSize(800, 600));
  layout.wide = layout.window.width() >= 1200 && layout.window.height() >= 700;
  const Sizes sizes = SizesOf(layout.scale, layout.wide, touch, layout.window.width() * 3 / 10);
  const int left = layout.wide ? sizes.column + 2 * kGap : kGap;
  const int top = Above(sizes, layout.wide) + kGap;
  layout.toolArea = QRect(left, top, std::max(1, layout.window.width() - left - sizes.side - 2 * kGap),
                          std::max(1, layout.window.height() - top - Below(sizes) - kGap));
  Surround(layout, sizes);
  return layout;
}

PanelLayout LayOutAround(QSize toolArea, int touch) {
  PanelLayout layout;
  const QSize area = toolArea.expandedTo(QSize(1, 1));
  layout.scale = ScaleOf(area, QSize(800, 600));
  layout.wide = area.width() >= 1100 && area.height() >= 560;
  const Sizes sizes = SizesOf(layout.scale, layout.wide, touch, area.width() * 9 / 20);
  const int left = layout.wide ? sizes.column + 2 * kGap : kGap;
  const int top = Above(sizes, layout.wide) + kGap;
  layout.window = QSize(left + area.width() + 2 * kGap + sizes.side, top + area.height() + Below(sizes) + kGap)
                      .expandedTo(kLeastWindow);
  layout.toolArea = QRect(QPoint(left, top), area);
  Surround(layout, sizes);
  return layout;
}

int MostTouch(QSize window) {
  constexpr int kLeastPart = 8;
  const auto fits = [window](int touch) {
    const PanelLayout layout = LayOutWithin(window, touch);
    return layout.toolArea.height() * kLeastPart >= layout.window.height();
  };
  int touch = theme::kLeastTouchPixels;
  while (fits(touch + 1)) ++touch;
  return touch;
}

PanelLayout WithKeyboard(const PanelLayout& rest, int height, int touch) {
  // The side bar has a row for each key and one for its paging.
  constexpr int kSideRows = kSideKeys + 1;
  PanelLayout raised = rest;
  raised.keyboard = QRect(rest.mainBar.left(), rest.reservedRow.top() - kGap - height, rest.mainBar.width(), height);
  const int up = rest.mainBar.top() - raised.keyboard.top();
  raised.messages.translate(0, -up);
  raised.toolArea.setHeight(std::max(1, rest.toolArea.height() - up));
  raised.sideBar.setHeight(std::max(0, rest.sideBar.height() - up));
  if (raised.sideBar.height() < kSideRows * (touch + kGap)) raised.sideBar = {};
  if (!rest.wide) return raised;
  // The column becomes lower by as much; the axes, which are the bigger part, give more.
  const int ofAxes = up * 3 / 5;
  raised.axes.setHeight(rest.axes.height() - ofAxes);
  raised.readings.translate(0, -ofAxes);
  raised.readings.setHeight(rest.readings.height() - (up - ofAxes));
  raised.modal.translate(0, -up);
  return raised;
}

int MostForKeyboard(const PanelLayout& rest, int touch) {
  return rest.toolArea.height() + rest.mainBar.height() - 2 * touch;
}

QRect RoomBeside(const QRect& area, const QRect& tool) {
  constexpr int kRoomGap = 3;
  constexpr int kLeastPart = 3;
  const QRect covered = tool & area;
  if (covered.isEmpty()) return area;
  const QRect rooms[] = {
      {area.topLeft(), QPoint(area.right(), covered.top() - kRoomGap)},
      {QPoint(area.left(), covered.bottom() + kRoomGap), area.bottomRight()},
      {QPoint(covered.right() + kRoomGap, area.top()), area.bottomRight()},
      {area.topLeft(), QPoint(covered.left() - kRoomGap, area.bottom())},
  };
  const auto size = [](const QRect& rect) { return rect.isValid() ? rect.width() * rect.height() : 0; };
  const QRect* best = std::max_element(std::begin(rooms), std::end(rooms),
                                       [&size](const QRect& a, const QRect& b) { return size(a) < size(b); });
  return size(*best) * kLeastPart >= area.width() * area.height() ? *best : area;
}

}  // namespace panel
