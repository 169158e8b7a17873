// SPDX-License-Identifier: MIT
// The program editor: an ordinary text editor with line numbers, the line of the caret lit, and a head line that names
// the program. A big program comes in slices, between which the panel hears its keys. It knows no file; whoever opens
// and saves programs hands it texts and names.
#pragma once

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QString>
#include <QWidget>
#include <functional>

#include "ui/code_edit.h"

namespace panel {

class ProgramEditor : public QWidget {
  Q_OBJECT

 public:
  explicit ProgramEditor(QWidget* parent);

  /// Shows another program, with the caret at its beginning and nothing to undo. It is filled in slices, the first one
  /// at once; shown is called after the last. A program that is still being filled is dropped.
  void Fill(const QString& text, const QString& name, std::function<void()> shown = {});
  /// The same, all of it at once.
  void SetProgram(const QString& text, const QString& name);
  [[nodiscard]] bool Filling() const { return slice_.isActive(); }
  /// Nothing can be typed, and the head says busy before what is on its way; empty for neither.
  void SetBusy(const QString& busy);

  void SetName(const QString& name);
  /// Lines end with \n.
  [[nodiscard]] QString Text() const;
  /// The same, quicker: lines end with a paragraph separator.
  [[nodiscard]] QString RawText() const;
  /// Another number after each change of the text.
  [[nodiscard]] int Revision() const;
  [[nodiscard]] const QString& Name() const { return name_; }
  [[nodiscard]] bool IsModified() const;
  void SetSaved();
  /// At the caret, in place of what is selected; one step back undoes it. Into a program on its way when that has come.
  void Insert(const QString& text);
  void SetFontPixels(int pixels);
  [[nodiscard]] CodeEdit& Edit() const { return *edit_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  [[nodiscard]] int HeadHeight() const { return fontPixels_ * 2; }
  void Begin(const QString& text, const QString& name, std::function<void()> shown);
  /// Removes a slice of the old program or adds one of the new. False when nothing is left to do.
  bool Step();
  /// Steps until the end. Whether there is more to do.
  bool Work(QDeadlineTimer end);
  void End();
  CodeEdit* edit_;
  QString name_;
  QString busy_;
  QString coming_;       // the program on its way
  qsizetype taken_ = 0;  // how much of it is there
  QString inserted_;     // what waits until it has come
  std::function<void()> shown_;
  QBasicTimer slice_;
  int fontPixels_ = 16;
};

}  // namespace panel
