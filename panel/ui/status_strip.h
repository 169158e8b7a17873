// SPDX-License-Identifier: MIT
// The channel's state in words and colour, the mode, and the indicator of errors. It shows what it is given.
#pragma once

#include <QString>
#include <QWidget>

#include "ui/channel_look.h"
#include "ui/error_indicator.h"

namespace panel {

class StatusStrip : public QWidget {
 public:
  explicit StatusStrip(QWidget* parent);
  void Show(const ChannelLook& channel, const QString& mode);
  void SetFontPixels(int pixels);
  [[nodiscard]] QString StateText() const { return TextOf(channel_); }
  [[nodiscard]] const QString& Mode() const { return mode_; }
  [[nodiscard]] ErrorIndicator& Indicator() const { return *indicator_; }
  [[nodiscard]] int ErrorCount() const { return indicator_->ErrorCount(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The places of state, mode and indicator.
  struct Fields {
    QRect state;
    QRect mode;
    QRect errors;
  };
  /// Each field has its usual width if there is room. The state gets half of the width that is left, the others share
  /// the other half.
  [[nodiscard]] Fields Place() const;
  [[nodiscard]] int Usual() const { return 220 * fontPixels_ / 15; }
  /// The width that the strip has beyond the usual width of all fields.
  [[nodiscard]] int Spare() const;
  /// The greatest height of the letters, in pixels. It is greater in a strip with much width to spare.
  [[nodiscard]] int Letters() const;
  void PlaceIndicator();
  void PaintState(QPainter& painter, const QRect& field) const;
  ChannelLook channel_ = LookWithoutMachine();
  QString mode_;
  int fontPixels_ = 15;
  ErrorIndicator* indicator_;
};

}  // namespace panel
