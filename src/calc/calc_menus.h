// SPDX-License-Identifier: MIT
// The calculator's soft-key menu in two parts, with its bitmaps and its check mark. This class changes only the menu's
// data. Its owner hands the parts to the bars and has them drawn again.
#pragma once

#include "host/language.h"

namespace pnl {

class CalcMenus {
 public:
  explicit CalcMenus(Language& language) : language_(language) {}
  ~CalcMenus() { Destroy(); }
  CalcMenus(const CalcMenus&) = delete;
  CalcMenus& operator=(const CalcMenus&) = delete;

  /// Loads the menu of the language. If there is none, every handle is 0 and the other operations do nothing.
  void Load();
  /// Destroys the menu. A second call does nothing.
  void Destroy();
  [[nodiscard]] MenuHandle All() const { return menu_; }
  /// The parts for the bars, or 0 if the menu does not have that part.
  [[nodiscard]] MenuHandle Main() const { return Part(0); }
  [[nodiscard]] MenuHandle Side() const { return Part(1); }

  /// Sets or removes the check mark of the command for the compact window.
  void MarkCompact(bool compact);
  /// Removes the command for the machining calculator, for a CNC that doesn't have one.
  void RemoveMachining();
  /// Sets the bitmaps for a base (number_base) and an angle unit.
  void ShowState(int base, bool radians);

 private:
  [[nodiscard]] MenuHandle Part(std::size_t index) const;

  Language& language_;
  MenuHandle menu_ = 0;
};

}  // namespace pnl
