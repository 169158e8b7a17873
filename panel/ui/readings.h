// SPDX-License-Identifier: MIT
// Feed, override, spindle and tool as tiles, a caption over a value each; in one row when flat, else in two columns.
// It shows what it is given and asks nobody.
#pragma once

#include <pnltools/rig.h>

#include <QString>
#include <QWidget>
#include <vector>

namespace panel {

struct Reading {
  QString caption;
  QString value;
  QString detail;       // small, beside or below; empty for none
  bool stands = false;  // differs from the ordinary: drawn in amber
  bool operator==(const Reading&) const = default;
};

/// "1000", "0.25": as many decimals as it needs, of a number below 100 at most so many, of a bigger one at most one.
[[nodiscard]] QString FormatNumber(double value, int decimals = 3);
/// Feed, override, spindle and tool of a machine, each in the unit in which it is programmed at this moment.
[[nodiscard]] std::vector<Reading> ReadingsOf(const pnl::rig::MachineState& state);
/// The same tiles without a machine.
[[nodiscard]] std::vector<Reading> NoReadings();

class Readings : public QWidget {
 public:
  explicit Readings(QWidget* parent);
  void Show(std::vector<Reading> readings);
  /// The captions are never smaller than that; the values are as big as they find room.
  void SetFontPixels(int pixels);
  [[nodiscard]] const std::vector<Reading>& Shown() const { return readings_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<Reading> readings_;
  int fontPixels_ = 12;
};

/// The line of modal G codes with the block in hand.
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
