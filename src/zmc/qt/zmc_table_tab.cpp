// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_table_tab.h"

#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <numeric>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"
#include "zmc/store/cutting_text.h"

namespace pnl {
namespace {

constexpr std::uint32_t kCentre = 0x8865;
constexpr int kTitleUnits = 13;
constexpr int kTitleMargin = 4;  // what the title leaves around its text
constexpr int kRowUnits = 7;     // of a page of 320 by 200
constexpr int kFixedColumn = 14;

}  // namespace

ZmcTableTab::ZmcTableTab(const ToolContext& context, ZmcTab tab, std::vector<int> shares, QWidget* frame)
    : MessageWindow(frame), context_(context), tab_(tab), shares_(std::move(shares)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The page isn't a window of its own to a script: its controls are found in the frame.
  setProperty(property::kWindow, QVariant());
  for (const ZmcControlPlace& place : ControlsOf(tab)) {
    if (place.kind == ZmcControlKind::kGrid) {
      grid_ = new ZCGridXWrap(place.id, this);
    } else {
      title_ = new ZWCStatic(place.id, context_.timers, context_.files, this);
    }
  }
  title_->SetColors(zmc_look::kPage, zmc_look::kTitleText, false);
  title_->SetFormat(kCentre);
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(tab));
  for (const ZmcControlPlace& place : ControlsOf(tab)) {
    const DialogControl* own = dialog != nullptr ? dialog->Find(place.id) : nullptr;
    if (own != nullptr && place.kind == ZmcControlKind::kLabel) title_->SetTextW(ToQString(own->text), false);
  }
  grid_->Cells().SetColumns(static_cast<int>(shares_.size()) + 1);
  grid_->SetTextCheck([](const QString& text) { return CanHoldCuttingText(FromQString(text)); });
  cells_ = std::make_unique<ZmcGridAdapter>(*grid_);
}

ZmcTableTab::~ZmcTableTab() { EndMessages(); }

void ZmcTableTab::resizeEvent(QResizeEvent* event) {
  MessageWindow::resizeEvent(event);
  const DialogTemplate* dialog = context_.language.Dialog(DialogOf(tab_));
  const ZmcPage page = PageOf(tab_, dialog, width(), height());
  for (const ZmcControlPlace& place : ControlsOf(tab_)) {
    QWidget* control = place.kind == ZmcControlKind::kGrid ? static_cast<QWidget*>(grid_) : title_;
    control->setGeometry(ToQRect(page.Pixels(UnitsOf(place, dialog))));
  }
  const int letters = page.FontHeight(kTitleUnits);
  title_->SetFont(QStringLiteral("Arial"), letters, 700);
  // On a low page the title keeps the height of its letters, and the table begins below it.
  QRect title = title_->geometry();
  title.setHeight(std::max(title.height(), letters + kTitleMargin));
  if (title.bottom() >= height()) title.moveBottom(std::max(title.height(), height()) - 1);
  title_->setGeometry(title);
  QRect table = grid_->geometry();
  table.setTop(std::min(std::max(table.top(), title.bottom() + 1), table.bottom()));
  grid_->setGeometry(table);
  grid_->SetFont(QStringLiteral("Arial"), page.FontHeight(kRowUnits), 500);
  PlaceColumns();
}

void ZmcTableTab::PlaceColumns() {
  const int all = std::accumulate(shares_.begin(), shares_.end(), 0);
  const int room =
      grid_->width() - 2 * grid_->frameWidth() - kFixedColumn - grid_->verticalScrollBar()->sizeHint().width();
  grid_->SetColumnWidth(0, kFixedColumn);
  for (std::size_t col = 0; col < shares_.size(); ++col) {
    grid_->SetColumnWidth(static_cast<int>(col) + 1, room * shares_[col] / all);
  }
}

void ZmcTableTab::paintEvent(QPaintEvent* event) { QPainter(this).fillRect(event->rect(), ToQColor(zmc_look::kPage)); }

ZCTabZMCMateriales::ZCTabZMCMateriales(const ToolContext& context, QWidget* frame)
    : ZmcTableTab(context, ZmcTab::kMaterials, {31, 13, 16, 13, 17, 10, 0}, frame) {}

ZCTabZMCOperaciones::ZCTabZMCOperaciones(const ToolContext& context, QWidget* frame)
    : ZmcTableTab(context, ZmcTab::kOperations, {50, 38, 12, 0}, frame) {}

}  // namespace pnl
