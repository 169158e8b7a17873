// SPDX-License-Identifier: MIT
// One key of the panel, as it is drawn everywhere: a caption, a picture or an arrow, the keyboard's name for it, a
// tick, a colour of its own. A press never gives it the focus, so the tool keeps the focus; Tab reaches it. Whoever
// connects to clicked() decides what it does.
#pragma once

#include <QAbstractButton>
#include <QByteArray>
#include <QColor>

namespace panel {

class PanelKey : public QAbstractButton {
  Q_OBJECT

 public:
  explicit PanelKey(QWidget* parent);

  /// Sets the caption literally: a "&" in it is an ordinary character and makes no shortcut.
  void setText(const QString& text);
  /// Sets an arrow before the caption, or alone; NoArrow for none.
  void SetArrow(Qt::ArrowType arrow);
  [[nodiscard]] Qt::ArrowType Arrow() const { return arrow_; }
  /// Sets the tooltip, always shown as plain text.
  void SetTip(const QString& text);
  /// Sets the keyboard's name for the key, drawn small in the corner; empty for none.
  void SetKeyName(const QString& name);
  [[nodiscard]] const QString& KeyName() const { return keyName_; }
  /// Sets an SVG drawn above the caption; empty for none. Damaged bytes draw nothing.
  void SetPicture(const QByteArray& svg);
  [[nodiscard]] bool HasPicture() const { return !picture_.isNull(); }
  /// Sets the colour of the edge, and of the field when the key is filled or latched. An invalid colour gives the
  /// ordinary look.
  void SetTint(const QColor& tint);
  [[nodiscard]] const QColor& Tint() const { return tint_; }
  /// Whether the key is filled with its tint, for the keys that must be found at once.
  void SetFilled(bool filled);
  /// Sets a word or two at the lower edge that say why the key is dim; empty for none. They are never dim themselves.
  void SetNote(const QString& note);
  [[nodiscard]] const QString& Note() const { return note_; }
  void SetFontPixels(int pixels);
  /// Whether the key is marked as leading to a sub-menu.
  void SetLeadsOn(bool leadsOn);

  /// The colour of the field at this moment, and of the text on it.
  [[nodiscard]] QColor Fill() const;
  [[nodiscard]] QColor Ink() const;

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The key was touched while it was dim.
  void DimPressed();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  /// A press doesn't change the check mark. The owner shows the new state when there is one.
  void nextCheckState() override {}
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintMarks(QPainter& painter) const;
  void PaintFace(QPainter& painter) const;
  /// The colour of the key's name and marks: quieter than the caption where that can be read.
  [[nodiscard]] QColor SoftInk() const;
  [[nodiscard]] int KeyNamePixels() const;
  /// Whether there is room for the keyboard's name. In a low key a caption of two lines takes its place.
  [[nodiscard]] bool ShowsKeyName() const;
  /// Draws the note. Returns its height.
  int PaintNote(QPainter& painter) const;
  /// Draws the caption's arrow. Returns the part of body that is left for the caption.
  [[nodiscard]] QRect PaintArrow(QPainter& painter, const QRect& body) const;
  QString keyName_;
  QString note_;
  QByteArray svg_;
  QImage picture_;
  QColor tint_;
  Qt::ArrowType arrow_ = Qt::NoArrow;
  bool filled_ = false;
  bool leadsOn_ = false;
  int fontPixels_ = 15;
};

}  // namespace panel
