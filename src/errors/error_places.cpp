// SPDX-License-Identifier: MIT
#include "errors/error_places.h"

#include <array>

#include "errors/error_ids.h"

namespace pnl {

namespace {

using Kind = ErrorControlKind;

constexpr std::array kControls = {
    ErrorControl{error_id::kTitleBox, Kind::kBox, 75, 6, 212, 26, 0, u""},
    ErrorControl{error_id::kChannelBox, Kind::kBox, 41, 6, 30, 26, 0, u""},
    ErrorControl{error_id::kTitleLine, Kind::kText, 7, 39, 379, 21, 0, u""},
    ErrorControl{error_id::kDescription, Kind::kText, 7, 67, 379, 83, 0, u""},
    ErrorControl{error_id::kPrevious, Kind::kPicture, 7, 15, 20, 20, 361, u"<"},
    ErrorControl{error_id::kNext, Kind::kPicture, 358, 6, 20, 20, 362, u">"},
    ErrorControl{error_id::kBefore, Kind::kCounter, 13, 6, 20, 10, 0, u""},
    ErrorControl{error_id::kAfter, Kind::kCounter, 362, 25, 20, 10, 0, u""},
    ErrorControl{error_id::kHelp, Kind::kPicture, 291, 6, 20, 20, 3018, u"?"},
    ErrorControl{error_id::kAcknowledge, Kind::kPicture, 314, 6, 20, 20, 3023, u"Esc"},
    ErrorControl{error_id::kConfirmSign, Kind::kPicture, 335, 6, 20, 20, 3024, u"Enter"},
    ErrorControl{error_id::kMarkedSign, Kind::kPicture, 335, 6, 20, 20, 3070, u"!"},
};

}  // namespace

std::span<const ErrorControl> ErrorControls() { return kControls; }

Rect PixelsOf(const ErrorControl& control, const DialogTemplate* dialog, double scale) {
  const DialogControl* found = dialog == nullptr ? nullptr : dialog->Find(control.id);
  const bool placed = found != nullptr && found->rect.Width() > 0 && found->rect.Height() > 0;
  const Rect units =
      placed ? found->rect : Rect{control.x, control.y, control.x + control.width, control.y + control.height};
  return DialogPixels(units, scale);
}

}  // namespace pnl
