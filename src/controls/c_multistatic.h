// SPDX-License-Identifier: MIT
// CMultistatic: a picture with numbered states. As a band it is a plain colour, as a picture the SVG of its state, as a
// check box a drawn box that the operator turns: 0 is off, any other state on. Only a check box takes the focus.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <memory>
#include <string>

#include "controls/system_colors.h"

class QSvgRenderer;

namespace pnl {

class CMultistatic : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int pnlState READ State)
  Q_PROPERTY(QVariant pnlChecked READ Checked)
  Q_PROPERTY(uint pnlBack READ BackColor)

 public:
  enum class Face { kBand, kPicture, kCheckBox };
  /// The SVG of a state; null when there is none. It must live as long as the control.
  using PictureOf = std::function<const std::string*(int state)>;

  CMultistatic(int id, Face face, QWidget* parent);
  ~CMultistatic() override;

  /// Sets the state without a signal.
  void SetState(int state);
  [[nodiscard]] int State() const { return state_; }
  [[nodiscard]] bool IsOn() const { return state_ != 0; }
  /// For a picture. A state without a picture, or with one that can't be read, leaves the background.
  void SetPictures(PictureOf pictures);
  /// The colour of the band, and of the ground around a picture or a check box.
  void SetBackColor(Color color);
  [[nodiscard]] uint BackColor() const { return back_; }

 signals:
  /// The operator has turned the check box. Emitted last: a listener may destroy the control.
  void Changed(int state);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QVariant Checked() const;
  void Toggle();
  void DrawCheckBox(QPainter& painter) const;

  const Face face_;
  int state_ = 0;
  Color back_ = 0x646E78;  // the calculator's ground: 120, 110, 100
  PictureOf pictures_;
  std::unique_ptr<QSvgRenderer> picture_;  // of the present state; null when it has none
  bool pressed_ = false;
  bool turned_ = false;  // the operator has turned it in the event under way
};

}  // namespace pnl
