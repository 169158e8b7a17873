// SPDX-License-Identifier: MIT
// The program editor: a text editor with line numbers, the caret's line lit, and a head line with the program's name. A
// big program is filled in slices, so that the panel reacts to keys meanwhile. It knows no file; its owner hands it
// texts and names.
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
  /// at once; shown is called after the last one. A program that is still being filled is dropped, and its shown isn't
  /// called.
  void Fill(const QString& text, const QString& name, std::function<void()> shown = {});
  /// The same, but all of it at once.
  void SetProgram(const QString& text, const QString& name);
  [[nodiscard]] bool Filling() const { return slice_.isActive(); }
  /// While busy isn't empty, nothing can be typed and the head line shows busy instead of the name.
  void SetBusy(const QString& busy);

  void SetName(const QString& name);
  /// The text; lines end with \n.
  [[nodiscard]] QString Text() const;
  /// The same text, quicker; lines end with a paragraph separator.
  [[nodiscard]] QString RawText() const;
  /// Changes with every change of the text.
  [[nodiscard]] int Revision() const;
  [[nodiscard]] const QString& Name() const { return name_; }
  [[nodiscard]] bool IsModified() const;
  void SetSaved();
  /// Inserts text at the caret, in place of the selection; one undo removes it. While a program is being filled, the
  /// text is inserted afterwards.
  void Insert(const QString& text);
  void SetFontPixels(int pixels);
  [[nodiscard]] CodeEdit& Edit() const { return *edit_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] int HeadHeight() const { return fontPixels_ * 2; }
  void Begin(const QString& text, const QString& name, std::function<void()> shown);
  /// Removes a piece of the old program or adds one of the new. Returns false when nothing is left to do.
  bool Step();
  /// Makes steps until the deadline. Returns whether there is more to do.
  bool Work(QDeadlineTimer end);
  void End();
  CodeEdit* edit_;
  QString name_;
  QString busy_;
  QString coming_;       // the program that is being filled in
  qsizetype taken_ = 0;  // how much of it is shown
  QString inserted_;     // text to insert when the program is complete
  std::function<void()> shown_;
  QBasicTimer slice_;
  int fontPixels_ = 16;
};

}  // namespace panel
