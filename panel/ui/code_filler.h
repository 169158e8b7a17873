// SPDX-License-Identifier: MIT
// Fills a text edit with a program, or empties it, in slices of a few milliseconds, so that the panel reacts to its
// keys meanwhile. It belongs to the edit and knows nothing about files. What it does can't be undone.
#pragma once

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <functional>

namespace panel {

class CodeEdit;

class CodeFiller : public QObject {
  Q_OBJECT

 public:
  /// edit must be empty. It becomes the parent.
  explicit CodeFiller(CodeEdit* edit);

  /// Shows text in place of what was shown before. The first slice is done at once; done is called after the last one,
  /// perhaps before this returns. When the text begins with what is shown already, that stays.
  void Fill(const QString& text, std::function<void()> done);
  /// The same, but all of it at once.
  void FillNow(const QString& text);
  /// Removes everything. done is called after the last slice.
  void Empty(std::function<void()> done);
  [[nodiscard]] bool Working() const { return slice_.isActive(); }
  /// How much of the text is shown.
  [[nodiscard]] int Percent() const;

 signals:
  /// A slice is done, and there is more to do.
  void Progressed();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Take(const QString& text, std::function<void()> done);
  [[nodiscard]] bool Step();
  [[nodiscard]] bool Work(QDeadlineTimer end);
  void Slice();
  void End();

  CodeEdit* edit_;
  QString text_;         // what the edit is to show
  qsizetype taken_ = 0;  // how much of it is shown
  bool clears_ = false;  // what is shown is no part of it and goes first
  std::function<void()> done_;
  QBasicTimer slice_;
};

}  // namespace panel
