// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_look.h"

#include <QtGui/QPalette>
#include <QtWidgets/QComboBox>

#include "window/qt/qt_text.h"

namespace pnl {

void StyleBox(QComboBox& box) {
  QPalette palette = box.palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Base, ToQColor(zmc_look::kFieldBack));
    palette.setColor(group, QPalette::Button, ToQColor(zmc_look::kFieldBack));
    palette.setColor(group, QPalette::Text, ToQColor(zmc_look::kFieldText));
    palette.setColor(group, QPalette::ButtonText, ToQColor(zmc_look::kFieldText));
    palette.setColor(group, QPalette::Highlight, ToQColor(zmc_look::kMark));
    palette.setColor(group, QPalette::HighlightedText, ToQColor(0xFFFFFF));
  }
  // Its list follows it.
  box.setPalette(palette);
}

}  // namespace pnl
