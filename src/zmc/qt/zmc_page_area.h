// SPDX-License-Identifier: MIT
// The area in which a page of the machining calculator scrolls up and down when it is higher than its room. It takes no
// keys and no focus: both belong to the page's controls and to the frame. Its sheet, the page, has the area's colour.
#pragma once

#include <QtWidgets/QScrollArea>

namespace pnl {

class ZmcPageArea final : public QScrollArea {
  Q_OBJECT

 public:
  explicit ZmcPageArea(QWidget* tab);
  ~ZmcPageArea() override;

  /// The width that the sheet has while the bar is shown, or while it isn't.
  [[nodiscard]] int SheetWidth(bool scrolls) const;
  /// Gives the sheet its size. The bar is shown when the sheet is higher than the area.
  void PlaceSheet(QSize size);
  /// Scrolls until that part of the sheet is in sight; of a part that is too high, its top.
  void ShowPart(const QRect& part);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace pnl
