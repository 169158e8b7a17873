// SPDX-License-Identifier: MIT
#include "ui/cover.h"

#include <QKeyEvent>

namespace panel {

void Cover::keyPressEvent(QKeyEvent* event) {
  // No key reaches what is under the cover.
  event->accept();
  const int key = event->key();
  const bool leftRight = arrows_ == Arrows::kLeftRight && (key == Qt::Key_Left || key == Qt::Key_Right);
  const bool upDown = arrows_ == Arrows::kUpDown && (key == Qt::Key_Up || key == Qt::Key_Down);
  if (key == Qt::Key_Escape) return Leave();
  if (leftRight || upDown) focusNextPrevChild(key == Qt::Key_Right || key == Qt::Key_Down);
}

bool Cover::focusNextPrevChild(bool next) { return FocusAmong(TabOrder(), next); }

bool FocusAmong(const std::vector<QWidget*>& widgets, bool next) {
  std::vector<QWidget*> able;
  for (QWidget* widget : widgets) {
    if (widget->isVisibleTo(widget->window()) && widget->isEnabled()) able.push_back(widget);
  }
  if (able.empty()) return false;
  const auto count = static_cast<int>(able.size());
  int at = next ? -1 : count;
  for (int i = 0; i < count; ++i) {
    if (able[static_cast<std::size_t>(i)]->hasFocus()) at = i;
  }
  able[static_cast<std::size_t>((at + (next ? 1 : count - 1)) % count)]->setFocus(next ? Qt::TabFocusReason
                                                                                       : Qt::BacktabFocusReason);
  return true;
}

}  // namespace panel
