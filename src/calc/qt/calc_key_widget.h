// SPDX-License-Identifier: MIT
// A key of the calculator: a picture of the language pack, or a short text where there is none. It never takes the
// focus, so that the line keeps the caret; what it means is told by its id.
#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <memory>
#include <string>

class QSvgRenderer;

namespace pnl {

class CalcKeyWidget final : public QAbstractButton {
  Q_OBJECT

 public:
  /// ground is the colour of the key at rest.
  CalcKeyWidget(int id, const QString& text, QRgb ground, QWidget* parent);
  ~CalcKeyWidget() override;

  /// A picture that can't be read leaves the key as it is.
  void SetPicture(const std::string& svg);
  [[nodiscard]] bool HasPicture() const { return picture_ != nullptr; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] const QPixmap& Drawn(QSize size);
  const QRgb ground_;
  std::unique_ptr<QSvgRenderer> picture_;
  QPixmap drawn_;
};

}  // namespace pnl
