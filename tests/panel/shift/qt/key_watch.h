// SPDX-License-Identifier: MIT
// Notices every key that doesn't come from a key on the screen: a key of a keyboard, or one that somebody sends. A key
// that the panel sends while a finger is on one of its own keys is the panel's.
#pragma once

#include <QObject>
#include <QStringList>

namespace panel::shift {

class Finger;

class KeyWatch : public QObject {
 public:
  /// finger must outlive it.
  explicit KeyWatch(const Finger& finger);
  ~KeyWatch() override;
  /// The keys that no finger has pressed, in words.
  [[nodiscard]] const QStringList& Strangers() const { return strangers_; }
  /// The keys that came from the screen.
  [[nodiscard]] int Typed() const { return typed_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const Finger& finger_;
  QStringList strangers_;
  int typed_ = 0;
};

}  // namespace panel::shift
