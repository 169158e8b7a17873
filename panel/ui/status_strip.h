// SPDX-License-Identifier: MIT
// The channel's state in words and colour, the mode, and the indicator of errors. It shows what it is given.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include "ui/error_indicator.h"
#include "ui/words.h"

namespace panel {

/// What the channel is doing, as one word and one colour.
struct ChannelLook {
  Word word = Word::kNoMachine;
  QRgb color = 0;
};

/// status: 1 ready, 2 running, 4 interrupted, 8 aborted; another value counts as ready.
[[nodiscard]] ChannelLook LookOf(int status, bool feedHold, bool inspecting);
[[nodiscard]] ChannelLook LookWithoutMachine();

class StatusStrip : public QWidget {
 public:
  explicit StatusStrip(QWidget* parent);
  void Show(const ChannelLook& channel, const QString& mode);
  void SetFontPixels(int pixels);
  [[nodiscard]] QString StateText() const { return Say(channel_.word); }
  [[nodiscard]] const QString& Mode() const { return mode_; }
  [[nodiscard]] ErrorIndicator& Indicator() const { return *indicator_; }
  [[nodiscard]] int Errors() const { return indicator_->Count(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Where state, mode and indicator stand.
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
