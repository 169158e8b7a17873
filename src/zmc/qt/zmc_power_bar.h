// SPDX-License-Identifier: MIT
// The bar of the cutting power in percent of the spindle's rated power: amber above four fifths, red above all of it.
// Takes neither the focus nor the mouse.
#pragma once

#include <QtWidgets/QWidget>
#include <optional>

namespace pnl {

class ZmcPowerBar : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ WindowText)

 public:
  ZmcPowerBar(int id, QWidget* parent);
  /// Nothing leaves the bar empty.
  void SetPercent(std::optional<double> percent);
  /// "29.95 %", or empty.
  [[nodiscard]] QString WindowText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<double> percent_;
};

}  // namespace pnl
