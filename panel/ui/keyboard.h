// SPDX-License-Identifier: MIT
// Who has the keyboard: what is in front, always. A cover that is seen comes first, then the error window when it is
// the front tool, then the tool or the program in which the operator works. A tool that takes the focus from behind
// loses it again at once; the operator's own touch decides in which tool he works. Under --bare scripts give the focus,
// and this only leads it to the program when the last tool closes.
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
  /// All must outlive it. toolArea: the parent of tools and editor.
  Keyboard(QWidget& panel, QWidget& toolArea, ProgramEditor& editor, HostSession& session, ErrorDesk& errors);
  ~Keyboard() override;

  /// A cover over the panel, and how it takes the keyboard.
  void AddCover(QWidget* cover, std::function<void()> focus);
  /// Gives the keyboard to whom it belongs, unless he has it.
  void Restore();
  /// Moves on from key to key; focus that was lost because its widget went away goes to whom it belongs instead.
  bool MoveFocus(bool next, const std::function<bool(bool)>& move);
  /// Milliseconds of a clock that never goes back, for tests.
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
  /// Null while it is away, and behind another tool.
  [[nodiscard]] QWidget* ErrorWindowInFront() const;
  /// Whether a tool lies over the program, so that nobody sees what would be typed there.
  [[nodiscard]] bool ProgramIsHidden() const;
  /// The tool to which the keyboard belongs when no cover is seen; -1 for the program.
  [[nodiscard]] int Owner() const;
  [[nodiscard]] bool MayHave(const QWidget& widget) const;
  void OnFocusChanged(QWidget* now);
  void OnToolsChanged();
  void OnErrorsCame();
  void OnTouched(QWidget& widget);
  /// Whether the error window has been there for less time than anybody needs to read it.
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
  bool typedInProgram_ = false;  // when the error window came
  int heldKey_ = 0;              // pressed last where it doesn't act on errors
  int frontTool_ = -1;
  bool giving_ = false;
  bool moving_ = false;
};

}  // namespace panel
