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

/// "-12.500" with three decimals, or as inches "-0.4921" with four; a value that is no number, or too big to show,
/// reads
/// "-----". Never "-0.000".
[[nodiscard]] QString FormatPosition(double millimetres, bool inches = false);

class AxisDisplay : public QWidget {
 public:
  explicit AxisDisplay(QWidget* parent);
  /// No axes: the field says that there is no machine.
  /// inches: what is shown, whatever the readings are in.
  void Show(std::vector<AxisReading> axes, bool moving, bool inches);
  /// Which coordinate is the big one.
  void ShowMachinePositions(bool on);
  [[nodiscard]] bool MachinePositions() const { return machine_; }
  /// The small texts are that high where they find room; they get smaller before a digit is lost.
  void SetFontPixels(int pixels);

  /// How the small texts of one axis fit below its number: side by side, or in two rows.
  struct Foot {
    int pixels = 0;
    bool twoRows = false;
  };
  [[nodiscard]] static Foot FitFoot(const QString& left, const QString& right, int width, int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintAxis(QPainter& painter, const QRect& rect, const AxisReading& axis) const;
  void PaintFoot(QPainter& painter, const QRect& foot, const AxisReading& axis, const Foot& fit) const;
  [[nodiscard]] QString OtherText(const AxisReading& axis) const;
  [[nodiscard]] QString ToGoText(const AxisReading& axis) const;
  std::vector<AxisReading> axes_;
  bool moving_ = false;
  bool machine_ = false;
  bool inches_ = false;
  int fontPixels_ = 14;
};

}  // namespace panel
