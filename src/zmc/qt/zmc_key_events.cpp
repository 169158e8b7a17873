// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_key_events.h"

namespace pnl {

std::optional<ZmcKey> KeyOf(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Tab:
      return event.modifiers() & Qt::ShiftModifier ? ZmcKey::kBackTab : ZmcKey::kTab;
    case Qt::Key_Backtab:
      return ZmcKey::kBackTab;
    case Qt::Key_Up:
      return ZmcKey::kUp;
    case Qt::Key_Down:
      return ZmcKey::kDown;
    case Qt::Key_Left:
      return ZmcKey::kLeft;
    case Qt::Key_Right:
      return ZmcKey::kRight;
    case Qt::Key_Home:
      return ZmcKey::kHome;
    case Qt::Key_End:
      return ZmcKey::kEnd;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return ZmcKey::kEnter;
    case Qt::Key_Space:
      return ZmcKey::kSpace;
    case Qt::Key_Insert:
      return ZmcKey::kInsert;
    case Qt::Key_Escape:
      return ZmcKey::kEscape;
    default:
      return std::nullopt;
  }
}

bool IsTyped(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  switch (event.key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      return true;
    default:
      return !event.text().isEmpty() && event.text().front().isPrint();
  }
}

}  // namespace pnl
