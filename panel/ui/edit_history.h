// SPDX-License-Identifier: MIT
// Undo and redo of a program. A change that is made in many slices, such as replacing a word in every line, is one step
// for the operator: it is also undone in slices, so that the panel reacts to its keys meanwhile.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <vector>

namespace panel {

class CodeEdit;

class EditHistory : public QObject {
  Q_OBJECT

 public:
  /// edit becomes the parent.
  explicit EditHistory(CodeEdit* edit);

  /// What is changed from Begin to End is one step. Nothing else may change the text meanwhile.
  void Begin();
  void End();
  /// Takes the last step back, or does it again. Nothing may change the text while Working.
  void Undo();
  void Redo();
  /// Whether a big step is being undone or done again.
  [[nodiscard]] bool Working() const { return slice_.isActive(); }

 signals:
  /// Working has begun or ended.
  void Changed();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  /// A big step, as numbers of the document's own steps before and after it.
  struct Step {
    int before;
    int after;
  };
  [[nodiscard]] int Now() const;
  void OnContentsChange();
  void GoTo(int target);
  /// Goes on towards the target for a slice. Returns whether there is more to do.
  [[nodiscard]] bool Work();

  CodeEdit* edit_;
  std::vector<Step> steps_;
  int begun_ = 0;
  int last_ = 0;  // Now() after the last change
  int target_ = 0;
  bool moving_ = false;
  QBasicTimer slice_;
};

}  // namespace panel
