// SPDX-License-Identifier: MIT
// What the remote control needs to see of the panel's window. Not the window itself: the panel implements it, a test
// brings a plain widget. Everything is called on the window thread; the widgets stay the panel's.
#pragma once

#include <QSize>
#include <QString>
#include <functional>

class QWidget;

namespace panel {

class PanelFace {
 public:
  virtual ~PanelFace() = default;
  /// The whole panel, as captures show it.
  [[nodiscard]] virtual QWidget* PanelWidget() = 0;
  /// The widget under which tools live; its client area is what --size gives.
  [[nodiscard]] virtual QWidget* ToolAreaWidget() = 0;
  /// The text of the program editor.
  [[nodiscard]] virtual QString ProgramText() const = 0;
  /// Whether a program is on its way from a file or to one.
  [[nodiscard]] virtual bool Working() const { return false; }
  /// Gives the tool area exactly that size, the rest of the panel around it.
  virtual void ResizeToolArea(const QSize& size) = 0;
  /// Who answers instead of the operator when the panel asks whether to go on; an empty function gives the questions
  /// back to him.
  virtual void AnswerQuestions(const std::function<bool(const QString& text)>& answer) { (void)answer; }
};

}  // namespace panel
