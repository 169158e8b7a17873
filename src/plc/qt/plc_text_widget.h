// SPDX-License-Identifier: MIT
// The controls of the PLC message view that show text: the title line with its count, and the area of control 1005, in
// which a text scrolls or a picture fills the area.
#pragma once

#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QStackedLayout>
#include <QtWidgets/QWidget>
#include <cstdint>
#include <string>

#include "controls/picture_area.h"

namespace pnl {

/// Control 1006, with control 1102 at its right end.
class PlcTitleWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)
  Q_PROPERTY(uint pnlBack READ Back)
  Q_PROPERTY(uint pnlFore READ Fore)

 public:
  explicit PlcTitleWidget(QWidget* parent);
  void SetText(const QString& text);
  void SetCount(const QString& text);
  void SetColors(std::uint32_t back, std::uint32_t text);
  [[nodiscard]] QString Shown() const { return text_; }
  [[nodiscard]] uint Back() const { return back_; }
  [[nodiscard]] uint Fore() const { return fore_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceCount();

  QString text_;
  QWidget* count_;
  QFont font_;
  std::uint32_t back_ = 0;
  std::uint32_t fore_ = 0;
};

/// Control 1005.
class PlcTextWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  explicit PlcTextWidget(QWidget* parent);
  void SetText(const QString& text);
  bool SetPicture(const std::string& bytes);
  [[nodiscard]] QString Shown() const { return edit_->toPlainText(); }
  [[nodiscard]] PictureArea& Picture() { return *picture_; }
  [[nodiscard]] int ScrollPosition() const;
  void SetScrollPosition(int position);

 private:
  QStackedLayout* layout_;
  QPlainTextEdit* edit_;
  PictureArea* picture_;
};

}  // namespace pnl
