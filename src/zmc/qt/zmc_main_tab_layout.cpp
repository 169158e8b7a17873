// SPDX-License-Identifier: MIT
// Where the controls of the main tab lie, and how large their texts are.
#include <QtGui/QResizeEvent>
#include <algorithm>
#include <utility>

#include "controls/fonts.h"
#include "window/qt/qt_rect.h"
#include "zmc/qt/zmc_main_tab.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr int kLineUnits = 13;
constexpr int kTitleUnits = 16;
constexpr int kSmallestFont = 11;
constexpr int kLabelMargin = 4;  // what a label leaves around its text
constexpr int kWeight = 500;
constexpr int kBold = 700;
constexpr int kGridRows = kZmcGridRows + 1;
constexpr int kGridColumns = kZmcGridColumns + 1;

}  // namespace

void ZCTabZMCMain::resizeEvent(QResizeEvent* event) {
  MessageWindow::resizeEvent(event);
  Place();
}

void ZCTabZMCMain::Place() {
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  const ZmcPage page = PageOf(ZmcTab::kMain, dialog, width(), height());
  const int font = page.FontHeight(kLineUnits);
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
    Rect units = UnitsOf(place, dialog);
    // A list's height is that of the open list; closed it is a line.
    if (place.kind == ZmcControlKind::kListBox || place.kind == ZmcControlKind::kToolBox) {
      units.bottom = units.top + kLineUnits + 1;
    }
    QWidget* control = controls_.at(place.id);
    const QRect pixels = ToQRect(page.Pixels(units));
    control->setGeometry(pixels);
    if (auto* label = qobject_cast<ZWCStatic*>(control)) {
      FitLabel(place.id, *label);
    } else {
      SetControlFont(control, font);
    }
    if (place.kind == ZmcControlKind::kGrid) PlaceGrid(pixels);
  }
  // The fields lie on the left edges of their units.
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    controls_.at(field)->raise();
    const int covered = controls_.at(field)->geometry().right() + 1 - controls_.at(unit)->x();
    ControlAs<ZmcBox>(unit)->SetTextIndent(std::max(0, covered));
  }
}

void ZCTabZMCMain::SetControlFont(QWidget* control, int height) {
  const QString face = QStringLiteral("Arial");
  if (auto* field = qobject_cast<ZCDatoWrap*>(control)) {
    field->SetFont(face, height, kWeight);
  } else if (auto* line = qobject_cast<ZWCEdit*>(control)) {
    line->SetFont(face, height, kWeight);
  } else if (auto* grid = qobject_cast<ZCGridXWrap*>(control)) {
    grid->SetFont(face, height, kWeight);
  } else if (const auto font = MakeFont(face, height, kWeight)) {
    control->setFont(*font);
  }
}

/// Gives a label the largest font up to its page's in which its text fits; a text that fits in none is cut.
void ZCTabZMCMain::FitLabel(int control, ZWCStatic& label) const {
  const bool title = control == id::kTitle;
  const int weight = title || control == id::kBandTitle ? kBold : kWeight;
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  int height = PageOf(ZmcTab::kMain, dialog, width(), this->height()).FontHeight(title ? kTitleUnits : kLineUnits);
  const QString face = QStringLiteral("Arial");
  const QString text = label.WindowText();
  for (; height > kSmallestFont && !text.isEmpty(); --height) {
    const auto font = MakeFont(face, height, weight);
    if (font && QFontMetrics(*font).horizontalAdvance(text) + kLabelMargin <= label.width()) break;
  }
  label.SetFont(face, height, weight);
  label.update();
}

/// The names take two fifths of the width, the values share the rest.
void ZCTabZMCMain::PlaceGrid(const QRect& place) {
  const int frame = 2 * grid_->frameWidth();
  const int names = (place.width() - frame) * 2 / 5;
  const int value = (place.width() - frame - names) / (kGridColumns - 1);
  grid_->SetColumnWidth(0, place.width() - frame - value * (kGridColumns - 1));
  for (int col = 1; col < kGridColumns; ++col) grid_->SetColumnWidth(col, value);
  const int row = (place.height() - frame) / kGridRows;
  grid_->SetRowHeight(0, place.height() - frame - row * (kGridRows - 1));
  for (int line = 1; line < kGridRows; ++line) grid_->SetRowHeight(line, row);
}

}  // namespace pnl
