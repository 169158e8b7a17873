// SPDX-License-Identifier: MIT
// The channel's state in words and colour, the mode, and the indicator of errors. It shows what it is given.
#pragma once

#include <pnltools/rig.h>

#include <QColor>
#include <QString>
#include <QWidget>

#include "common/words.h"
#include "ui/error_indicator.h"

namespace panel {

/// The state of the channel as a word and a colour. During an inspection "inspection" precedes the word.
struct ChannelLook {
  Word word = Word::kNoMachine;
  QRgb color = 0;
  bool inspecting = false;
};

/// An unknown status counts as ready.
[[nodiscard]] ChannelLook LookOf(const pnl::rig::MachineState& state);
[[nodiscard]] ChannelLook LookWithoutMachine();

class StatusStrip : public QWidget {
 public:
  explicit StatusStrip(QWidget* parent);
  void Show(const ChannelLook& channel, const QString& mode);
  void SetFontPixels(int pixels);
  [[nodiscard]] QString StateText() const;
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
  [[nodiscard]] Fields Place() const;
  ChannelLook channel_ = LookWithoutMachine();
  QString mode_;
  int fontPixels_ = 15;
  ErrorIndicator* indicator_;
};

}  // namespace panel
