// SPDX-License-Identifier: MIT
// Feed, override, spindle and tool as tiles, each with a caption over a value. The tiles are one row in a flat field,
// else two columns. It shows only what it is given.
#pragma once

#include <pnltools/rig.h>

#include <QString>
#include <QWidget>
#include <vector>

namespace panel {

struct Reading {
  QString caption;
  QString value;
  QString detail;        // small, beside the caption or below the value; empty for none
  bool unusual = false;  // differs from the usual value; drawn in amber
  bool operator==(const Reading&) const = default;
};

/// "1000", "0.25": without trailing zeros. At most decimals decimals for a number below 100, at most one for a bigger
/// number.
[[nodiscard]] QString FormatNumber(double value, int decimals = 3);
/// Feed, override, spindle and tool of a machine, each in the unit in which it is programmed now.
[[nodiscard]] std::vector<Reading> ReadingsOf(const pnl::rig::MachineState& state);
/// The same tiles with dashes, for a panel without a machine.
[[nodiscard]] std::vector<Reading> NoReadings();

class Readings : public QWidget {
 public:
  explicit Readings(QWidget* parent);
  void Show(std::vector<Reading> readings);
  /// The least height of the captions, in pixels. The values are as big as there is room.
  void SetFontPixels(int pixels);
  [[nodiscard]] const std::vector<Reading>& Shown() const { return readings_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<Reading> readings_;
  int fontPixels_ = 12;
};

/// The line with the modal G codes and the current block.
class ModalLine : public QWidget {
 public:
  explicit ModalLine(QWidget* parent);
  void Show(const QString& codes, const QString& block);
  void SetFontPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString codes_;
  QString block_;
  int fontPixels_ = 14;
};

}  // namespace panel
