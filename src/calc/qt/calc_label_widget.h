// SPDX-License-Identifier: MIT
// A line of words of the calculator. A text too long for it first gets smaller characters, then loses what is farthest
// from the place of a failure ("< >"), because that place is what the operator looks for.
#pragma once

#include <QtWidgets/QWidget>

namespace pnl {

class CalcLabelWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// height is that of the characters in pixels.
  CalcLabelWidget(int id, int height, QWidget* parent);

  void SetText(const QString& text);
  /// The whole text, shortened or not.
  [[nodiscard]] QString Shown() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const int height_;
  QString text_;
};

/// The text as it fits into width: whole, or with "…" for what is left out at its end, its start, or both, so that the
/// mark "< >" stays if there is one.
[[nodiscard]] QString ShortenAroundMark(const QFontMetrics& metrics, const QString& text, int width);

}  // namespace pnl
