// SPDX-License-Identifier: MIT
// The keyboard on the screen. It paints the keys of its layout, at least 12 mm high and wide, and emits Typed for each
// one that is touched, again and again while it is held. It takes no focus and knows nobody who types: its owner sends
// the strokes on, and decides when it is shown.
#pragma once

#include <QBasicTimer>
#include <QWidget>
#include <vector>

#include "ui/touch_layouts.h"
#include "ui/touch_stroke.h"

namespace panel {

class TouchKeyboard : public QWidget {
  Q_OBJECT

 public:
  /// A key and where it is in the widget.
  struct Cell {
    TouchKey key;
    QRect place;
  };

  explicit TouchKeyboard(QWidget* parent);

  /// Sets the screen's density in dots per inch; 0 for what the screen reports.
  void SetDensity(qreal dotsPerInch);
  /// Sets how high a key is where there is room, in pixels.
  void SetKeyHeight(int pixels);
  /// The height that the keyboard takes when most is the most that it may take. It has fewer rows, and so more pages,
  /// rather than lower keys; one row is always there.
  [[nodiscard]] int HeightFor(int most) const;
  void Use(TouchLayout layout);
  /// Shows the block layout with Shift off, as at the first time.
  void Reset();

  [[nodiscard]] TouchLayout Layout() const { return layout_; }
  [[nodiscard]] int PageCount() const { return static_cast<int>(pages_.size()); }
  [[nodiscard]] bool Shifted() const { return shift_ != Shift::kOff; }
  /// The keys of the page that is shown. A blank place has no cell.
  [[nodiscard]] const std::vector<Cell>& Cells() const { return cells_; }
  /// The least side of a key, in pixels.
  [[nodiscard]] int LeastSide() const;

 signals:
  void Typed(const panel::TouchStroke& stroke, bool repeated);
  void HideWanted();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Shift { kOff, kOnce, kLocked };
  struct Finger {
    int id;
    int cell;
  };

  void Place();
  /// Does what the mouse or a finger does. Returns false for any other event.
  bool TakePointer(QEvent* event);
  [[nodiscard]] int CellAt(const QPointF& place) const;
  void Press(int finger, const QPointF& place);
  void Release(int finger, const QPointF& place);
  void LetGo();
  void Type(const TouchKey& key, bool repeated);
  /// What a key does that types nothing.
  void Act(const TouchKey& key);
  void PaintCell(QPainter& painter, const Cell& cell, bool down) const;
  [[nodiscard]] QString CaptionOf(const TouchKey& key) const;

  TouchLayout layout_ = TouchLayout::kBlock;
  std::vector<TouchPage> pages_;
  std::size_t page_ = 0;
  std::vector<Cell> cells_;
  std::vector<Finger> fingers_;
  Shift shift_ = Shift::kOff;
  qreal density_ = 0;
  int keyHeight_ = 0;
  QBasicTimer repeat_;
  bool repeating_ = false;  // the first repeat has come, the others follow faster
};

}  // namespace panel
