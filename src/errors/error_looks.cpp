// SPDX-License-Identifier: MIT
// The part of the session that decides how the window looks: the colours and the flashing of its boxes, and the places
// of its controls.
#include "errors/error_ids.h"
#include "errors/error_session.h"

namespace pnl {

void ErrorSession::OnFlash() {
  flashPhase_ = !flashPhase_;
  SetBoxes(currentClass_, currentClass_, flashPhase_, true);
}

void ErrorSession::SetBoxes(ErrorClass titleClass, ErrorClass channelClass, bool inverted, bool now) {
  const auto set = [this, inverted, now](int id, std::uint32_t color) {
    View().SetBoxColors(id, inverted ? color : kErrorWhite, inverted ? kErrorWhite : color, now);
  };
  set(error_id::kTitleBox, ErrorColorOf(titleClass));
  if (!now || channelShown_) set(error_id::kChannelBox, ErrorColorOf(channelClass));
}

void ErrorSession::MeasureBase() {
  baseClient_ = View().ClientRect();
  base_.titleRect = View().ControlRect(error_id::kTitleLine);
  const Rect text = View().ControlRect(error_id::kDescription);
  base_.titleToTextGap = text.top - base_.titleRect.bottom;
  topRow_ = {View().ControlRect(error_id::kTitleBox), View().ControlRect(error_id::kChannelBox),
             View().ControlRect(error_id::kHelp), View().ControlRect(error_id::kAcknowledge)};
  previousArrow_ = {View().ControlRect(error_id::kPrevious), View().ControlRect(error_id::kBefore)};
  nextArrow_ = {View().ControlRect(error_id::kNext), View().ControlRect(error_id::kAfter)};
}

void ErrorSession::OnResized() {
  const Rect client = View().ClientRect();
  const Rect title = LayoutTitleLine(View().ControlRect(error_id::kTitleLine), client.Width());
  View().MoveControl(error_id::kTitleLine, title);
  const auto place = [this](int arrow, int counter, const ErrorArrow& where) {
    View().MoveControl(arrow, where.arrow);
    View().MoveControl(counter, where.counter);
  };
  const int oldWidth = baseClient_.Width();
  place(error_id::kPrevious, error_id::kBefore,
        LayoutArrow(previousArrow_, title.top, oldWidth, client.Width(), false));
  place(error_id::kNext, error_id::kAfter, LayoutArrow(nextArrow_, title.top, oldWidth, client.Width(), true));
  View().MoveControl(error_id::kDescription, LayoutDescription(title, base_.titleToTextGap, client));
  LayTopRow();
}

void ErrorSession::LayTopRow() {
  const ErrorTopRow row = LayoutTop(View().ClientRect().Width(), topRow_, channelShown_);
  View().MoveControl(error_id::kTitleBox, row.titleBox);
  if (channelShown_) View().MoveControl(error_id::kChannelBox, row.channelBox);
  View().MoveControl(error_id::kHelp, row.help);
  for (const int sign : {error_id::kAcknowledge, error_id::kConfirmSign, error_id::kMarkedSign}) {
    View().MoveControl(sign, row.sign);
  }
}

void ErrorSession::FitTitleLine() {
  const Rect title = View().ControlRect(error_id::kTitleLine);
  const int needed = View().TitleTextHeight(composed_.titleLine, title.Width());
  const TitleFit fit = FitTitle(base_.titleRect.Height(), title.Height(), needed);
  if (!fit.changed) return;
  const Rect fitted{title.left, title.top, title.right, title.top + fit.height};
  View().MoveControl(error_id::kTitleLine, fitted);
  View().CentreTitleLine(fit.centred);
  View().MoveControl(error_id::kDescription, LayoutDescription(fitted, base_.titleToTextGap, View().ClientRect()));
}

}  // namespace pnl
