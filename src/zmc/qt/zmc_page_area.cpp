// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_page_area.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QScroller>
#include <algorithm>

#include "controls/system_colors.h"
#include "controls/wide_scroll_bar.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {
namespace {

constexpr int kAround = 4;  // what is seen around a part that was brought into sight

}  // namespace

ZmcPageArea::ZmcPageArea(QWidget* tab) : QScrollArea(tab) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  QPalette colors = palette();
  colors.setColor(QPalette::Window, ToQColor(zmc_look::kPage));
  setPalette(colors);
  auto* sheet = new QWidget;
  sheet->setAutoFillBackground(true);
  setWidget(sheet);
  QScroller::grabGesture(viewport(), QScroller::TouchGesture);
}

// A gesture that isn't released stays until the program ends.
ZmcPageArea::~ZmcPageArea() { QScroller::ungrabGesture(viewport()); }

int ZmcPageArea::SheetWidth(bool scrolls) const {
  return std::max(0, width() - (scrolls ? verticalScrollBar()->sizeHint().width() : 0));
}

void ZmcPageArea::PlaceSheet(QSize size) {
  setVerticalScrollBarPolicy(size.height() > height() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  widget()->resize(size);
}

void ZmcPageArea::ShowPart(const QRect& part) {
  const int room = viewport()->height();
  const int bottom = std::min(part.bottom() + 1 + kAround, std::max(0, part.top() - kAround) + room);
  int top = std::max(verticalScrollBar()->value(), bottom - room);
  top = std::min(top, std::max(0, part.top() - kAround));
  verticalScrollBar()->setValue(top);
}

void ZmcPageArea::keyPressEvent(QKeyEvent* event) { event->ignore(); }

}  // namespace pnl
