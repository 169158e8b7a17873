// SPDX-License-Identifier: MIT
// The operator's finger: it presses and lets go at a place of a widget, as the window system reports a touch screen or
// a mouse. It touches only what is seen at that place, and it presses no key of a keyboard.
#pragma once

#include <QPoint>
#include <QPointer>
#include <functional>

class QPointingDevice;
class QWidget;

namespace panel::shift {

/// What reports the finger.
enum class Pointing { kTouchScreen, kMouse };

/// Sees each stroke of the finger: a press or a release.
class StrokeWatch {
 public:
  virtual ~StrokeWatch() = default;
  /// A stroke is about to reach that widget.
  virtual void OnStroke(QWidget& widget, bool press) = 0;
  /// The panel has done what is to be done about it at once.
  virtual void OnAnswered() = 0;
};

class Finger {
 public:
  /// answer is called after each stroke, and returns when the panel has answered it.
  Finger(Pointing pointing, std::function<void()> answer) : pointing_(pointing), answer_(std::move(answer)) {}

  /// Sees every stroke from now on; null for nobody.
  void SetWatch(StrokeWatch* watch) { watch_ = watch; }
  /// Touches a place of a widget once, or twice in a row. Returns false, and touches nothing, when the widget isn't
  /// what is seen there. It may be gone afterwards.
  [[nodiscard]] bool Touch(QWidget& widget, const QPoint& place, bool twice = false);
  /// The widget that a stroke is reaching at this moment; null between the strokes, or when it is gone.
  [[nodiscard]] const QWidget* Touching() const { return touching_; }
  [[nodiscard]] bool IsTouching() const { return strokes_ > 0; }
  /// Whether the widget, or a part of it, is what is seen at that place.
  [[nodiscard]] static bool IsSeenAt(const QWidget& widget, const QPoint& place);

 private:
  struct Spot {
    QPointer<QWidget> widget;  // what is touched
    QPointer<QWidget> window;  // the window that it is in
    QPoint local;              // in the window
    QPoint global;
  };
  void Stroke(const Spot& spot, bool press);
  void Report(const Spot& spot, bool press);

  Pointing pointing_;
  std::function<void()> answer_;
  StrokeWatch* watch_ = nullptr;
  QPointer<QWidget> touching_;
  int strokes_ = 0;  // a box that a stroke opens is answered during the stroke
  int now_ = 0;      // ms, of the reports
};

}  // namespace panel::shift
