// SPDX-License-Identifier: MIT
// The axes' positions in big digits, each with its way to go and its other coordinate. It stands in columns when it is
// broad and in rows when it is tall. It shows what it is given and asks nobody.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace panel {

struct AxisReading {
  QString name;
  double work = 0;     // mm
  double machine = 0;  // mm
  double toGo = 0;     // mm
  bool operator==(const AxisReading&) const = default;
};

/// "-12.500" with three decimals; a value that is no number, or too big to show, reads "-----". Never "-0.000".
[[nodiscard]] QString FormatPosition(double millimetres);

class AxisDisplay : public QWidget {
 public:
  explicit AxisDisplay(QWidget* parent);
  /// No axes: the field says that there is no machine.
  void Show(std::vector<AxisReading> axes, bool moving);
  /// Which coordinate is the big one.
  void ShowMachinePositions(bool on);
  [[nodiscard]] bool MachinePositions() const { return machine_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintAxis(QPainter& painter, const QRect& rect, const AxisReading& axis) const;
  std::vector<AxisReading> axes_;
  bool moving_ = false;
  bool machine_ = false;
};

}  // namespace panel
