// SPDX-License-Identifier: MIT
// What the remote control needs of the panel's window. The panel implements it; a test implements it with a plain
// widget. Call everything on the window thread. The panel keeps its widgets.
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
  /// The parent widget of the tools; its client area has the size that --size gives.
  [[nodiscard]] virtual QWidget* ToolAreaWidget() = 0;
  /// The text of the program editor.
  [[nodiscard]] virtual QString ProgramText() const = 0;
  /// Whether a program is being read from a file or written to one.
  [[nodiscard]] virtual bool Working() const { return false; }
  /// The manual time has gone on.
  virtual void TimeAdvanced(qint64 milliseconds) { (void)milliseconds; }
  /// Gives the tool area exactly that size and fits the rest of the panel around it.
  virtual void ResizeToolArea(const QSize& size) = 0;
  /// Sets the function that answers the panel's questions instead of the operator. With an empty function he answers
  /// again.
  virtual void AnswerQuestions(const std::function<bool(const QString& text)>& answer) { (void)answer; }
};

}  // namespace panel
