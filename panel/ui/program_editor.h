// SPDX-License-Identifier: MIT
// The program editor: an ordinary text editor with line numbers, the line of the caret lit, and a head line that names
// the program. It knows no file; whoever opens and saves programs hands it texts and names.
#pragma once

#include <QPlainTextEdit>
#include <QString>

namespace panel {

/// The text itself with its numbers.
class CodeEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CodeEdit(QWidget* parent);
  ~CodeEdit() override;
  void PaintNumbers(QPaintEvent* event);
  [[nodiscard]] int NumbersWidth() const;
  void SetFontPixels(int pixels);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceNumbers();
  void LightCurrentLine();
  QWidget* numbers_;
};

class ProgramEditor : public QWidget {
  Q_OBJECT

 public:
  explicit ProgramEditor(QWidget* parent);

  /// Another program: its history of changes starts anew, the caret stands at its beginning.
  void SetProgram(const QString& text, const QString& name);
  void SetName(const QString& name);
  [[nodiscard]] QString Text() const;
  [[nodiscard]] const QString& Name() const { return name_; }
  [[nodiscard]] bool IsModified() const;
  void SetSaved();
  /// At the caret, in place of what is selected; one step back undoes it.
  void Insert(const QString& text);
  void SetFontPixels(int pixels);
  [[nodiscard]] CodeEdit& Edit() const { return *edit_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int HeadHeight() const { return fontPixels_ * 2; }
  CodeEdit* edit_;
  QString name_;
  int fontPixels_ = 16;
};

}  // namespace panel
