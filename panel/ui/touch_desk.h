// SPDX-License-Identifier: MIT
// Decides when the touch keyboard is up. It rises for a text field that a finger has touched, and, once it is switched
// on, for every text field that gets the keyboard. It goes when something else gets it, when it is put away, and when
// somebody types on a real keyboard. It only decides; its owner shows the keyboard and makes room for it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

class QEvent;

namespace panel {

class TouchDesk : public QObject {
  Q_OBJECT

 public:
  /// panel is the window in which the keyboard rises; it must outlive this object.
  explicit TouchDesk(QWidget& panel);
  ~TouchDesk() override;

  /// Says that the screen is touched: every press then counts as a finger's, and every text field that gets the
  /// keyboard raises this one. Without it only a touch screen's own touches do.
  void SetTouched(bool on);
  /// Lets every text field raise the keyboard, until it is put away by its key.
  void SwitchOn();
  /// What the key for it does: puts the keyboard away when it is up. Otherwise raises it, whatever has the focus, and
  /// switches it on until it is put away by this key.
  void Toggle();
  /// Puts the keyboard away until another field gets the focus or one is touched.
  void PutAway();
  /// While something interrupts that has to be seen whole and takes no text, the keyboard is away. Afterwards it is as
  /// it was, for whatever was being typed in. A touch on a field or on the key for it ends the interruption.
  void SetInterrupted(bool on);
  [[nodiscard]] bool IsUp() const { return up_; }

  /// Whether text can be typed into that widget now.
  [[nodiscard]] static bool TakesText(const QWidget& widget);
  /// The part of what has the focus that has to be seen, in coordinates of area: the whole of it, or where its caret or
  /// its current cell is when it is higher than most. Empty when what has the focus isn't in area.
  [[nodiscard]] static QRect Seen(const QWidget& area, int most);
  /// Decides anew, after all that is going on now. For a change of which no event tells, such as another current cell.
  void ReviewSoon();

 signals:
  /// The keyboard has come or gone, or, while it is up, what has to be seen may be elsewhere.
  void Changed();
  /// Its key was pressed; on: whether every text field raises the keyboard now.
  void Switched(bool on);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Review();
  void OnFinger(const QPointer<QWidget>& touched);
  /// Whether a press is a finger's.
  [[nodiscard]] bool IsFinger(const QEvent& event) const;
  /// Whether an event about that object may change what Review decides or what has to be seen.
  [[nodiscard]] bool Concerns(const QObject* watched, const QEvent& event) const;

  QWidget& panel_;
  QPointer<QWidget> focus_;  // at the last look
  bool touchScreen_ = false;
  bool switchedOn_ = false;
  bool forced_ = false;  // raised by its key
  bool wanted_ = false;  // a text field was touched, and since then only text fields had the focus
  bool away_ = false;    // put away for the field that has the focus
  bool typed_ = false;   // put away by somebody who types on a real keyboard
  bool interrupted_ = false;
  bool up_ = false;
  bool soon_ = false;  // a review is queued
};

}  // namespace panel
