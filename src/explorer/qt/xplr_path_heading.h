// SPDX-License-Identifier: MIT
// The heading with the path of the folder. A line under each piece that leads elsewhere shows that it can be touched.
#pragma once

#include <cstddef>

#include "controls/zwc_static.h"

namespace pnl {

class XplrPathHeading : public ZWCStatic {
  Q_OBJECT

 public:
  using ZWCStatic::ZWCStatic;
  /// Whether the pieces lead anywhere.
  void SetLeads(bool leads);

 signals:
  /// The character of the path that was pressed.
  void Touched(std::size_t at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// The left edge of a character.
  [[nodiscard]] int LeftOf(std::size_t character) const;

  bool leads_ = false;
};

}  // namespace pnl
