// SPDX-License-Identifier: MIT
// The calculator's soft-key menu in its two parts, with its bitmaps and its check mark. It changes menu data only;
// whoever owns it hands the parts to the bars and says when they are to be drawn anew.
#pragma once

#include "host/language.h"

namespace pnl {

class CalcMenus {
 public:
  explicit CalcMenus(Language& language) : language_(language) {}
  ~CalcMenus() { Destroy(); }
  CalcMenus(const CalcMenus&) = delete;
  CalcMenus& operator=(const CalcMenus&) = delete;

  /// Made after the language pack's. Without one there every handle is 0 and the other operations do nothing.
  void Load();
  /// A second call does nothing.
  void Destroy();
  [[nodiscard]] MenuHandle All() const { return menu_; }
  /// The parts for the bars; 0 when the menu has no such part.
  [[nodiscard]] MenuHandle Main() const { return Part(0); }
  [[nodiscard]] MenuHandle Side() const { return Part(1); }

  /// The check mark at the command for the compact window.
  void MarkCompact(bool compact);
  /// For a control without the machining calculator.
  void RemoveMachining();
  /// The bitmaps for that base (number_base) and that angle unit.
  void ShowState(int base, bool radians);

 private:
  [[nodiscard]] MenuHandle Part(std::size_t index) const;

  Language& language_;
  MenuHandle menu_ = 0;
};

}  // namespace pnl
