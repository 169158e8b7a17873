// SPDX-License-Identifier: MIT
// A question as a cover over the panel: a text and a few big keys. It leaves status, axes and the machine's keys free.
// A question is answered at most once; Escape gives the last answer.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

namespace panel {

class PanelKey;

class Question : public QWidget {
  Q_OBJECT

 public:
  explicit Question(QWidget* parent);
  /// Asks a question. answered gets the index of the key; the last key is the careful answer. A question that is still
  /// open is answered with its last key first.
  void Ask(const QString& text, const QStringList& answers, std::function<void(int)> answered);
  void Answer(int index);
  /// Gives the keyboard to the careful answer.
  void FocusCareful();
  /// Whether a question waits for its answer. The cover may be hidden meanwhile.
  [[nodiscard]] bool IsOpen() const { return static_cast<bool>(answered_); }
  [[nodiscard]] const QString& Text() const { return text_; }
  [[nodiscard]] PanelKey* Key(int index) const { return keys_.at(static_cast<std::size_t>(index)); }
  void SetFontPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Place();
  QString text_;
  std::function<void(int)> answered_;
  std::vector<PanelKey*> keys_;
  int fontPixels_ = 16;
};

/// Moves the focus to the next or previous of these widgets, so that Tab never leaves a cover. Returns false when none
/// of them can take it.
bool FocusAmong(const std::vector<QWidget*>& widgets, bool next);

}  // namespace panel
