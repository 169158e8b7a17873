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

  /// The caption, as it is: a "&" in it is a character like any other and makes no shortcut.
  void setText(const QString& text);
  /// An arrow before the caption, or alone; NoArrow for none.
  void SetArrow(Qt::ArrowType arrow);
  [[nodiscard]] Qt::ArrowType Arrow() const { return arrow_; }
  /// Plain text, whatever it looks like.
  void SetTip(const QString& text);
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

  /// What the key is filled with at this moment, and what is written on it.
  [[nodiscard]] QColor Fill() const;
  [[nodiscard]] QColor Ink() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  /// A press changes no lamp: what the key does may, and then it is shown.
  void nextCheckState() override {}
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintMarks(QPainter& painter) const;
  void PaintFace(QPainter& painter) const;
  [[nodiscard]] int KeyNamePixels() const;
  /// Draws the caption's arrow. What it leaves of body.
  [[nodiscard]] QRect PaintArrow(QPainter& painter, const QRect& body) const;
  QString keyName_;
  QByteArray svg_;
  QImage picture_;
  QColor tint_;
  Qt::ArrowType arrow_ = Qt::NoArrow;
  bool filled_ = false;
  bool leadsOn_ = false;
  int fontPixels_ = 15;
};

}  // namespace panel
