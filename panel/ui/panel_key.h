// SPDX-License-Identifier: MIT
// One key of the panel, as it is drawn everywhere: a caption, a picture by number or a sign, the keyboard's name for
// it, a check mark, a colour of its own. It never takes the focus by a press, so that a tool keeps it; the keyboard
// reaches it by Tab. Who listens to clicked() decides what it does.
#pragma once

#include <QAbstractButton>
#include <QByteArray>
#include <QColor>

namespace panel {

class PanelKey : public QAbstractButton {
  Q_OBJECT

 public:
  explicit PanelKey(QWidget* parent);

  /// The keyboard's name for the key, drawn small in the corner; empty for none.
  void SetKeyName(const QString& name);
  [[nodiscard]] const QString& KeyName() const { return keyName_; }
  /// An SVG drawn beside or above the caption; empty for none. Damaged bytes draw nothing.
  void SetPicture(const QByteArray& svg);
  [[nodiscard]] bool HasPicture() const { return !picture_.isNull(); }
  /// Edge and sign take this colour; an invalid one gives the ordinary look.
  void SetTint(const QColor& tint);
  [[nodiscard]] const QColor& Tint() const { return tint_; }
  /// Filled with its tint, for the keys that must be found at once.
  void SetFilled(bool filled);
  void SetFontPixels(int pixels);
  /// Marks a key that leads to a sub-menu.
  void SetLeadsOn(bool leadsOn);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QColor Fill() const;
  [[nodiscard]] QColor Ink() const;
  void PaintMarks(QPainter& painter) const;
  void PaintFace(QPainter& painter) const;
  QString keyName_;
  QByteArray svg_;
  QImage picture_;
  QColor tint_;
  bool filled_ = false;
  bool leadsOn_ = false;
  int fontPixels_ = 15;
};

}  // namespace panel
