// SPDX-License-Identifier: MIT
// The program editor: a text editor with line numbers, the caret's line lit, a head line with the program's name, and
// bars for finding, replacing and going to a line. A program that is opened is filled into a text of its own, in
// slices, and takes the place of the old one when it is complete; until then opening can be cancelled. It knows no
// file; its owner hands it texts and names.
#pragma once

#include <QBasicTimer>
#include <QString>
#include <QWidget>
#include <functional>

#include "common/shortcuts.h"
#include "ui/code_edit.h"

namespace panel {

class CodeFiller;
class EditHistory;
class EditorBar;
class FindBar;
class LineBar;
class OpeningBar;
class ProgramSearch;

class ProgramEditor : public QWidget {
  Q_OBJECT

 public:
  explicit ProgramEditor(QWidget* parent);

  /// Shows another program, with the caret at its beginning and nothing to undo. It is filled in slices, the first one
  /// at once; shown is called after the last one. Until then the old program is still there. A program that is still
  /// being filled is dropped, and its shown isn't called.
  void Fill(const QString& text, const QString& name, std::function<void()> shown = {});
  /// The same, but all of it at once.
  void SetProgram(const QString& text, const QString& name);
  [[nodiscard]] bool Filling() const;

  /// A program is being read, and nothing can be typed. Fill ends this, or CancelOpening.
  void BeginOpening(const QString& name);
  /// How much of it has been read. A big one gets its bar at once, any other after a moment.
  void ShowReading(int percent, bool big);
  /// Shows the first lines of the program that is being read.
  void ShowFirst(const QString& lines);
  /// Shows the old program again, as it was. Does nothing when no program is being opened.
  void CancelOpening();
  [[nodiscard]] bool Opening() const { return !opening_.isNull() || Filling(); }

  void SetName(const QString& name);
  /// The text of the program; lines end with \n. While another one is opened, that of the old one.
  [[nodiscard]] QString Text() const;
  /// The same text, quicker; lines end with a paragraph separator.
  [[nodiscard]] QString RawText() const;
  /// Changes with every change of the text.
  [[nodiscard]] int Revision() const { return revision_; }
  [[nodiscard]] const QString& Name() const { return name_; }
  [[nodiscard]] bool IsModified() const;
  void SetSaved();
  /// Inserts text at the caret, in place of the selection; one undo removes it. While the text can't be changed, the
  /// text is inserted afterwards.
  void Insert(const QString& text);

  /// Carries out an action of the editor's own; Can says whether it would do anything now.
  void Do(Action action);
  [[nodiscard]] bool Can(Action action) const;
  /// Puts the caret at the beginning of a line, counted from 1. Past the end, the last line.
  void GoToLine(int line);
  /// Marks the word that begins there, as a control reads words: a letter and its number, or a comment. Line and
  /// column are counted from 0.
  void MarkWord(int line, int column);
  /// Marks a piece of a line, both counted from 0, and gives the text the keyboard.
  void MarkInLine(int line, int column, int length);
  /// Whether places are being replaced, or such a step is undone. Nothing else may change the text then.
  [[nodiscard]] bool Changing() const;
  /// Whether the editor works on something that goes on by itself.
  [[nodiscard]] bool Working() const;

  void SetFontPixels(int pixels);
  /// The text that is seen: another object for each program.
  [[nodiscard]] CodeEdit& Edit() const { return *Seen(); }
  [[nodiscard]] FindBar& Finding() const { return *findBar_; }
  [[nodiscard]] LineBar& LineAsked() const { return *lineBar_; }
  [[nodiscard]] OpeningBar& OpeningShown() const { return *openingBar_; }

 signals:
  /// The program's text changed, as QTextDocument says it.
  void Edited(int position, int removed, int added);
  /// Another program has taken the old one's place.
  void Replaced();
  /// What Can says may have changed.
  void StateChanged();
  /// A text for the message zone.
  void Said(const QString& text, bool warning);
  /// The operator wants the opening to end.
  void CancelWanted();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Bar { kNone, kFind, kLine };
  /// The height of the head line, or 0 while a bar needs its room.
  [[nodiscard]] int HeadHeight() const { return low_ ? 0 : fontPixels_ * 2; }
  [[nodiscard]] CodeEdit* Seen() const;
  [[nodiscard]] CodeEdit* MakeEdit();
  void ConnectBars();
  /// Makes an edit the program's.
  void Adopt(CodeEdit* edit);
  /// Empties an edit that isn't needed any more, and deletes it.
  static void Retire(CodeEdit* edit, CodeFiller* filler);
  void MakeComing();
  void RevealComing();
  void DropComing();
  /// Shows one edit in place of the other, and gives it the keyboard when that one had it.
  void Swap(CodeEdit* from, CodeEdit* to);
  void Arrive();
  void EndOpening();
  /// Lets the text be changed, or not.
  void UpdateLock();
  void OnChangingChanged();
  void InsertWaiting();
  void OpenBar(Bar bar);
  void CloseBar();
  void Find(bool replace);
  void Place();
  /// How far the bars have to go up so that the field that is typed in can be seen.
  [[nodiscard]] int Hidden(int bars) const;
  [[nodiscard]] int PercentOpened() const;
  void ShowOpeningBar();
  void UpdateProgress();

  CodeEdit* edit_ = nullptr;  // the program
  CodeFiller* filler_ = nullptr;
  EditHistory* history_ = nullptr;
  CodeEdit* coming_ = nullptr;  // the program that is being opened
  CodeFiller* comingFiller_ = nullptr;
  QString comingName_;
  QString name_;
  QString opening_;   // the name of the program that is being read; null for none
  int read_ = 0;      // how much of it, in percent
  QString inserted_;  // text to insert when the program can be changed again
  std::function<void()> shown_;
  int revision_ = 0;
  Bar bar_ = Bar::kNone;
  ProgramSearch* search_;
  FindBar* findBar_;
  LineBar* lineBar_;
  OpeningBar* openingBar_;
  QBasicTimer patience_;  // until the opening gets its bar
  int fontPixels_ = 16;
  bool low_ = false;  // the editor is too low for the head line and the bars
};

}  // namespace panel
