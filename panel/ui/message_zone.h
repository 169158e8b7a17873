// SPDX-License-Identifier: MIT
// The zone for messages: a kernel error first, then the tools' lines in the colours they ask for, then the panel's own
// hint. Its height is fixed; up to three messages share it. The caller decides what is shown and in which order.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <vector>

namespace panel {

struct ZoneLine {
  QString text;
  QColor back;
  QColor fore;
  bool strong = false;
  bool operator==(const ZoneLine&) const = default;
};

class MessageZone : public QWidget {
 public:
  explicit MessageZone(QWidget* parent);
  /// Shows the first kMaxLines of these lines.
  void Show(std::vector<ZoneLine> lines);
  void SetFontPixels(int pixels);
  [[nodiscard]] const std::vector<ZoneLine>& Lines() const { return lines_; }

  static constexpr int kMaxLines = 3;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<ZoneLine> lines_;
  int fontPixels_ = 16;
};

}  // namespace panel
