// SPDX-License-Identifier: MIT
// Where the controls of the main tab lie, and how large their texts are.
#include <QtGui/QResizeEvent>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/qt_rect.h"
#include "zmc/qt/zmc_main_tab.h"

namespace pnl {
namespace {

namespace id = zmc_control;

constexpr int kSmallestFont = 12;  // pixels
constexpr int kLabelMargin = 4;    // what a label leaves around its text
constexpr int kWeight = 500;
constexpr int kBold = 700;
constexpr int kGridRows = kZmcGridRows + 1;
constexpr int kGridColumns = kZmcGridColumns + 1;
constexpr int kCellMargin = 18;  // what a cell leaves beside its text, with its line
// How a label's text is drawn on one line, and on the lines that have room.
constexpr std::uint32_t kOneLine = 0x8864;
constexpr std::uint32_t kSomeLines = 0xaa10;

/// Whether the label has room for two lines where that is its place on the page.
bool HasTwoLines(int control, const ZmcPage& page) {
  switch (control) {
    case id::kReasonOption:
    case id::kReasonDrive:
    case id::kReasonSpindle:
    case id::kReasonTool:
    case id::kFormula:
      return page.low;
    default:
      return false;
  }
}

bool Fits(const QFont& font, const QString& text, QSize room, std::uint32_t format) {
  const QFontMetrics metrics(font);
  const QSize needed = MeasureText(metrics, room.width(), text, format);
  return needed.width() <= room.width() && (format != kSomeLines || needed.height() <= room.height());
}

int NamesWidth(const GridModel& cells, const QFont& font, int all) {
  const QFontMetrics metrics(font);
  int needed = all * 2 / 5;
  for (int row = 1; row < kGridRows; ++row) {
    needed = std::max(needed, metrics.horizontalAdvance(cells.CellText(row, 0)) + kCellMargin);
  }
  return std::min(needed, all / 2);
}

/// The width of a column in which its heading and the usual values are whole.
int ValueWidth(const GridModel& cells, QFont font) {
  int needed = QFontMetrics(font).horizontalAdvance(QStringLiteral("1000.0000"));
  font.setWeight(QFont::DemiBold);
  for (int column = 1; column < kGridColumns; ++column) {
    needed = std::max(needed, QFontMetrics(font).horizontalAdvance(cells.CellText(0, column)));
  }
  return needed + kCellMargin;
}

}  // namespace

void ZCTabZMCMain::resizeEvent(QResizeEvent* event) {
  MessageWindow::resizeEvent(event);
  if (width() != placedWidth_) tallest_ = 0;
  placedWidth_ = width();
  tallest_ = std::max(tallest_, height());
  area_->setGeometry(rect());
  Place();
  ShowFocused();
}

void ZCTabZMCMain::Place() {
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(ZmcTab::kMain));
  page_ = MainPageOf(dialog, width(), height(), tallest_);
  page_.width = area_->SheetWidth(page_.height > height());
  area_->PlaceSheet(QSize(page_.width, page_.height));
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) PlaceControl(place, dialog);
  // The fields lie on the left edges of their units.
  for (const auto& [field, unit] : {std::pair(id::kF, id::kFUnit), std::pair(id::kS, id::kSUnit)}) {
    controls_.at(field)->raise();
    const int covered = controls_.at(field)->geometry().right() + 1 - controls_.at(unit)->x();
    ControlAs<ZmcBox>(unit)->SetTextIndent(std::max(0, covered));
  }
}

void ZCTabZMCMain::PlaceControl(const ZmcControlPlace& place, const DialogTemplate* dialog) {
  Rect units = UnitsOf(place, page_, dialog);
  // A list's height is that of the open list; closed it is a line.
  const bool list = place.kind == ZmcControlKind::kListBox || place.kind == ZmcControlKind::kToolBox;
  if (list && !page_.low) units.bottom = units.top + page_.LineUnits() + 1;
  QWidget* control = controls_.at(place.id);
  const QRect pixels = ToQRect(page_.Pixels(units));
  control->setGeometry(pixels);
  if (auto* label = qobject_cast<ZWCStatic*>(control)) {
    FitLabel(place.id, *label);
  } else {
    SetControlFont(control, page_.FontHeight(page_.LineUnits()));
  }
  if (place.kind == ZmcControlKind::kGrid) PlaceGrid(pixels);
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
  const QString face = QStringLiteral("Arial");
  const QString text = label.WindowText();
  const std::uint32_t format = HasTwoLines(control, page_) ? kSomeLines : kOneLine;
  if (!title) label.SetFormat(format);
  const QSize room = label.size() - QSize(kLabelMargin, kLabelMargin);
  auto font = MakeFont(face, page_.FontHeight(title ? page_.TitleUnits() : page_.LineUnits()), weight);
  while (font && font->pixelSize() > kSmallestFont && !text.isEmpty() && !Fits(*font, text, room, format)) {
    font->setPixelSize(font->pixelSize() - 1);
  }
  if (font) label.SetFont(face, -font->pixelSize(), weight);
  label.update();
}

void ZCTabZMCMain::ShowFocused() {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || !sheet_->isAncestorOf(focus)) return;
  QRect part(focus->mapTo(sheet_, QPoint(0, 0)), focus->size());
  if (grid_ == focus || grid_->isAncestorOf(focus)) {
    const QRect cell = grid_->visualRect(grid_->currentIndex());
    part = cell.translated(grid_->viewport()->mapTo(sheet_, QPoint(0, 0)));
  }
  if (part.isValid()) area_->ShowPart(part);
}

/// The names take two fifths of the width, or what they need up to half of it; the values share the rest. The letters
/// are as big as lets the usual values be read whole.
void ZCTabZMCMain::PlaceGrid(const QRect& place) {
  const int frame = 2 * grid_->frameWidth();
  const int all = place.width() - frame;
  QFont font = grid_->font();
  int names = NamesWidth(grid_->Cells(), font, all);
  while (font.pixelSize() > kSmallestFont && (all - names) / (kGridColumns - 1) < ValueWidth(grid_->Cells(), font)) {
    font.setPixelSize(font.pixelSize() - 1);
    names = NamesWidth(grid_->Cells(), font, all);
  }
  grid_->SetFont(QStringLiteral("Arial"), -font.pixelSize(), kWeight);
  const int value = (all - names) / (kGridColumns - 1);
  grid_->SetColumnWidth(0, place.width() - frame - value * (kGridColumns - 1));
  for (int col = 1; col < kGridColumns; ++col) grid_->SetColumnWidth(col, value);
  const int row = (place.height() - frame) / kGridRows;
  grid_->SetRowHeight(0, place.height() - frame - row * (kGridRows - 1));
  for (int line = 1; line < kGridRows; ++line) grid_->SetRowHeight(line, row);
}

}  // namespace pnl
