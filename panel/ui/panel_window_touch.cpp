// SPDX-License-Identifier: MIT
// The window's part in what is touched: the reserved row, and room for the touch keyboard.
#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "ui/credentials_cover.h"
#include "ui/error_list.h"
#include "ui/first_start.h"
#include "ui/keyboard.h"
#include "ui/panel_window.h"
#include "ui/password_box.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"
#include "ui/touch_keyboard.h"
#include "ui/touch_stroke.h"

namespace panel {
namespace {

/// What is seen beside a field, in pixels.
constexpr int kMargin = 4;

/// Puts a widget that belongs at rest where only room is left: cut off, and moved up until seen is in the room. rest
/// and room begin at the same place; seen is in the widget's coordinates.
void PutInto(QWidget& widget, const QRect& rest, const QRect& room, const QRect& seen) {
  if (room == rest) {
    widget.clearMask();
    return widget.setGeometry(rest);
  }
  int up = 0;
  if (!seen.isEmpty()) {
    up = std::clamp(seen.bottom() + 1 + kMargin - room.height(), 0, std::max(0, rest.height() - room.height()));
    up = std::min(up, std::max(0, seen.top() - kMargin));
  }
  widget.setGeometry(rest.translated(0, -up));
  const QRegion shown(QRect(QPoint(0, up), room.size()));
  if (widget.mask() != shown) widget.setMask(shown);
}

}  // namespace

void PanelWindow::MakeTouch() {
  connect(row_, &ReservedRow::Pressed, this, &PanelWindow::OnRowKey);
  connect(touch_.get(), &TouchDesk::Changed, this, &PanelWindow::OnTouchChanged);
  connect(touchKeys_, &TouchKeyboard::Typed, this, &PanelWindow::SendTouched);
  connect(touchKeys_, &TouchKeyboard::HideWanted, touch_.get(), &TouchDesk::PutAway);
}

void PanelWindow::MakeRoomForTouch() {
  // The tools' own lists and keys are for the same finger.
  toolArea_->setProperty("pnlFinger", theme::TouchPixels(*this));
  rest_ = layout_;
  const bool up = touch_->IsUp();
  if (up) {
    constexpr int kKeyHeight = 50;
    const int touch = theme::TouchPixels(*this);
    touchKeys_->SetKeyHeight(static_cast<int>(std::lround(kKeyHeight * rest_.scale)));
    layout_ = WithKeyboard(rest_, touchKeys_->HeightFor(MostForKeyboard(rest_, touch)), touch);
    touchKeys_->setGeometry(layout_.keyboard);
  } else if (touchKeys_->isVisible()) {
    touchKeys_->Reset();
  }
  touchKeys_->setVisible(up);
  mainBar_->setVisible(!up);
}

void PanelWindow::OnTouchChanged() {
  if (touch_->IsUp() == touchKeys_->isVisibleTo(this)) {
    FollowFocus();
    return PlaceEditor();
  }
  LayOut();
  EnableBars();
}

QRect PanelWindow::SeenToolArea() const {
  return toolArea_->mask().isEmpty() ? toolArea_->rect() : toolArea_->mask().boundingRect();
}

void PanelWindow::FollowFocus() {
  // The program takes the room that is left; nothing has to move for it.
  const QWidget* focus = QApplication::focusWidget();
  const bool program = focus != nullptr && editor_->isAncestorOf(focus);
  const QRect& room = layout_.toolArea;
  PutInto(*toolArea_, rest_.toolArea, room,
          program ? QRect() : TouchDesk::Seen(*toolArea_, room.height() - 2 * kMargin));
  QRect coverRoom = cover_;
  if (touch_->IsUp()) {
    // A cover on a wide panel leaves the messages free.
    const int below = rest_.wide ? layout_.messages.top() : layout_.keyboard.top();
    coverRoom.setBottom(std::min(cover_.bottom(), below - 1 - kMargin));
  }
  for (Cover* cover : Covers()) {
    PutInto(*cover, cover_, coverRoom, TouchDesk::Seen(*cover, coverRoom.height() - 2 * kMargin));
  }
}

void PanelWindow::SendTouched(const TouchStroke& stroke, bool repeated) {
  if (!keyboard_->MayAct(stroke.key)) return;
  const QPointer<PanelWindow> alive(this);
  SendStroke(*this, stroke, repeated);
  // The key may have moved the caret or the current cell.
  if (alive) touch_->ReviewSoon();
}

RowKeyLook PanelWindow::LookOfRowKey(RowKey key) const {
  const auto toolLook = [this](int tool) {
    return RowKeyLook{PnlHasTool(tool) != 0, !Covered(), session_.FrontTool() == tool};
  };
  switch (key) {
    case RowKey::kErrors:
      return {true, !Covered() || errorList_->IsOpen(), errorList_->IsOpen() || op_.Desk().WindowShown()};
    case RowKey::kCalculator:
      return toolLook(PNL_TOOL_CALCULATOR);
    case RowKey::kHelp:
      return toolLook(PNL_TOOL_HELP);
    case RowKey::kInsert:
      return {true, !Covered(), false};
    case RowKey::kKeyboard:
      // The questions of the first start need all the room, and no text is typed there.
      return {true, !first_->IsOpen(), touch_->IsUp()};
    default:
      return {};
  }
}

void PanelWindow::ToggleTool(int tool, Action opens) {
  if (session_.FrontTool() == tool) return op_.CloseTool(tool);
  Trigger(opens);
}

void PanelWindow::ToggleErrors() {
  if (errorList_->IsOpen()) return errorList_->Leave();
  if (!op_.Desk().WindowShown()) return OnErrorSign();
  // The error tool has reserved a key by which its window goes away and the errors stay.
  const PnlWindow tool = session_.ToolWindow(PNL_TOOL_ERRORS);
  for (QShortcut* shortcut : findChildren<QShortcut*>(Qt::FindDirectChildrenOnly)) {
    const QVariant owner = shortcut->property("pnlOwner");
    if (owner.isValid() && static_cast<PnlWindow>(owner.toInt()) == tool) return emit shortcut->activated();
  }
}

void PanelWindow::SwitchLanguage() {
  if (!language_.Switch()) return op_.SetHint(Say(Word::kNoLanguage), true);
  QEvent changed(QEvent::LanguageChange);
  QApplication::sendEvent(this, &changed);
  UpdateDisplay();
  emit LanguageSwitched();
}

void PanelWindow::OfferScreenSize() {
  offersScreen_ = true;
  UpdateDisplay();
}

void PanelWindow::OnRowKey(RowKey key) {
  switch (key) {
    case RowKey::kErrors:
      return ToggleErrors();
    case RowKey::kCalculator:
      return ToggleTool(PNL_TOOL_CALCULATOR, Action::kOpenCalculator);
    case RowKey::kHelp:
      return ToggleTool(PNL_TOOL_HELP, Action::kHelp);
    case RowKey::kLanguage:
      return SwitchLanguage();
    case RowKey::kInsert:
      return SendTouched({Qt::Key_Insert, {}, {}}, false);
    case RowKey::kClose:
      return SendTouched({Qt::Key_Escape, {}, QStringLiteral("\x1b")}, false);
    case RowKey::kEnter:
      return SendTouched({Qt::Key_Return, {}, QStringLiteral("\r")}, false);
    case RowKey::kKeyboard:
      return touch_->Toggle();
    case RowKey::kCount:
      return;
  }
}

}  // namespace panel
