// SPDX-License-Identifier: MIT
// Decides who has the keyboard. A visible cover comes first, then the error window when it is the front tool, then the
// tool or the program in which the operator works. A tool in the background that takes the focus loses it again at
// once. The operator's own touch decides in which tool he works. Under --bare scripts give the focus, and this class
// only gives it to the program when the last tool closes.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

#include "host/host_session.h"

class QKeyEvent;
class QWidget;

namespace panel {

class ErrorDesk;
class ProgramEditor;

class Keyboard : public QObject {
  Q_OBJECT

 public:
  /// All of them must outlive this object. toolArea: the parent of the tools and the editor.
  Keyboard(QWidget& panel, QWidget& toolArea, ProgramEditor& editor, HostSession& session, ErrorDesk& errors);
  ~Keyboard() override;

  /// Adds a cover over the panel. focus gives the keyboard to it.
  void AddCover(QWidget* cover, std::function<void()> focus);
  /// Gives the keyboard to its owner, unless the owner has it already.
  void Restore();
  /// Moves the focus to the next or previous control with move. When the focus was lost because its widget went away,
  /// gives the keyboard to its owner instead.
  bool MoveFocus(bool next, const std::function<bool(bool)>& move);
  /// Whether a key that is touched on the screen now may act. One that acts on errors may not while nobody can have
  /// read the error window yet.
  [[nodiscard]] bool MayAct(int key) const;
  /// Sets the clock, in ms, which must never go back. For tests.
  void SetClock(std::function<qint64()> clock) { clock_ = std::move(clock); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Cover {
    QWidget* widget;
    std::function<void()> focus;
  };
  [[nodiscard]] const Cover* SeenCover() const;
  [[nodiscard]] QWidget* ToolWidget(int tool) const;
  /// Null while the error window is away or another tool is in front of it.
  [[nodiscard]] QWidget* ErrorWindowInFront() const;
  /// Whether a tool covers the whole program, so that typed text would not be seen.
  [[nodiscard]] bool ProgramIsHidden() const;
  /// The tool that owns the keyboard when no cover is visible; -1 for the program.
  [[nodiscard]] int Owner() const;
  [[nodiscard]] bool MayHave(const QWidget& widget) const;
  void OnFocusChanged(QWidget* now);
  void OnToolsChanged();
  void OnErrorsCame();
  void OnTouched(QWidget& widget);
  /// Whether the error window has been there for less time than reading it takes.
  [[nodiscard]] bool ErrorsJustCame() const;
  /// Whether a key or a touch that reaches the error window was meant for what had the keyboard before.
  [[nodiscard]] bool WasOnItsWay(const QWidget& watched, const QEvent& event);
  [[nodiscard]] bool KeyWasOnItsWay(const QKeyEvent& key, bool atErrors);

  QWidget& panel_;
  QWidget& toolArea_;
  ProgramEditor& editor_;
  HostSession& session_;
  std::vector<Cover> covers_;
  std::function<qint64()> clock_;
  qint64 errorsCameAt_;
  bool typedInProgram_ = false;  // whether the program had the focus when the error window came
  int heldKey_ = 0;              // the last key pressed where it doesn't act on errors, else 0
  int frontTool_ = -1;
  bool giving_ = false;
  bool moving_ = false;
};

}  // namespace panel
