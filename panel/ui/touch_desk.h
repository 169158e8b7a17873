// SPDX-License-Identifier: MIT
// Decides when the touch keyboard is up. It comes up for a text field that a finger has touched, and, once it is
// switched on, for every text field that gets the focus. It goes away when another widget gets the focus, when it is
// put away, and when somebody types on a real keyboard. TouchDesk only decides; its owner shows the keyboard and makes
// room for it.
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

  /// Says that the operator touches the screen: every press then counts as a finger's, and the touch keyboard comes up
  /// for every text field that gets the focus. Otherwise only the touches of a touch screen count.
  void SetTouched(bool on);
  /// Lets every text field raise the keyboard, until it is put away by its key.
  void SwitchOn();
  /// Does what the key for the keyboard does. If the keyboard is up, puts it away. Otherwise raises it, whichever
  /// widget has the focus, and switches it on until this key puts it away.
  void Toggle();
  /// Puts the keyboard away until another field gets the focus or one is touched.
  void PutAway();
  /// Keeps the keyboard away while the operator has to see something whole that takes no text. Afterwards the keyboard
  /// is as it was before. A touch on a field or on the key for the keyboard ends the interruption.
  void SetInterrupted(bool on);
  [[nodiscard]] bool IsUp() const { return up_; }

  /// Whether text can be typed into that widget now.
  [[nodiscard]] static bool TakesText(const QWidget& widget);
  /// The part of the focus widget that has to be seen, in coordinates of area. It is the whole widget or, if the widget
  /// is higher than most, the place of its caret or current cell. Empty if the focus widget isn't in area.
  [[nodiscard]] static QRect Seen(const QWidget& area, int most);
  /// Decides again after the current events. Call it after a change that sends no event, such as another current cell.
  void ReviewSoon();

 signals:
  /// The keyboard has come or gone, or, while it is up, another place may have to be seen.
  void Changed();
  /// The key for the keyboard was pressed. on says whether every text field raises the keyboard now.
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
