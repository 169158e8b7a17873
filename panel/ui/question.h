// SPDX-License-Identifier: MIT
// A question as a cover over the panel: a text and a few big keys. It leaves status, axes and the machine's keys free.
// A question is answered at most once; Escape gives the last answer.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "ui/cover.h"

namespace panel {

class PanelKey;

class Question : public Cover {
  Q_OBJECT

 public:
  explicit Question(QWidget* parent);
  /// Asks a question. answered gets the index of the key; the last key is the careful answer. A question that is still
  /// open is answered with its last key first.
  void Ask(const QString& text, const QStringList& answers, std::function<void(int)> answered);
  void Answer(int index);
  /// Gives the careful answer.
  void Leave() override;
  /// Gives the keyboard to the careful answer.
  void FocusCareful();
  [[nodiscard]] bool IsOpen() const override { return static_cast<bool>(answered_); }
  [[nodiscard]] const QString& Text() const { return text_; }
  [[nodiscard]] PanelKey* Key(int index) const { return keys_.at(static_cast<std::size_t>(index)); }
  void SetFontPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override;

 private:
  void Place();
  QString text_;
  std::function<void(int)> answered_;
  std::vector<PanelKey*> keys_;
  int fontPixels_ = 16;
};

}  // namespace panel
