// SPDX-License-Identifier: MIT
// The positions of the axes in big digits, each with its unit and frame, its distance to go and its other coordinate.
// The axes are columns in a wide field and rows in a tall one. It shows only what it is given.
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

/// The position as text: "-12.500" with three decimals, or in inches "-0.4921" with four. "-----" for a value that is
/// no number or too big to show. Never "-0.000".
[[nodiscard]] QString FormatPosition(double millimetres, bool inches = false);

class AxisDisplay : public QWidget {
 public:
  explicit AxisDisplay(QWidget* parent);
  /// Shows these axes. Without axes the field says that there is no machine. inches: the unit shown; readings are
  /// always in mm.
  void Show(std::vector<AxisReading> axes, bool moving, bool inches);
  /// Sets the name of the workpiece offset in force, "G54"; empty when it isn't known.
  void SetFrame(const QString& frame);
  /// Sets which coordinate is the big one: machine (true) or work (false).
  void ShowMachinePositions(bool on);
  [[nodiscard]] bool MachinePositions() const { return machine_; }
  /// The unit and the frame of the big numbers: "mm, G54", "inch, MACHINE".
  [[nodiscard]] QString FrameText() const;
  /// The height of the small texts, in pixels, where there is room. They shrink before a digit is lost.
  void SetFontPixels(int pixels);

  /// How the two small texts of an axis fit below its number: side by side, or in two rows.
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
  QString frame_;
  bool moving_ = false;
  bool machine_ = false;
  bool inches_ = false;
  int fontPixels_ = 14;
};

}  // namespace panel
