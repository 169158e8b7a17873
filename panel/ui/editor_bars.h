// SPDX-License-Identifier: MIT
// The bars above the text of the program editor: one asks for a line number, one shows how far a program is opened. The
// bar for finding is in find_bar.h. They say what the operator wants; the editor carries it out.
#pragma once

#include <QLineEdit>
#include <QWidget>
#include <vector>

#include "common/words.h"

namespace panel {

class PanelKey;

/// An input field of a bar. Enter comes as a signal, and Escape goes to the editor.
class BarField : public QLineEdit {
  Q_OBJECT

 public:
  explicit BarField(QWidget* parent);
  void SetName(const QString& name);

 signals:
  /// Enter was pressed, with Shift when back is true.
  void Entered(bool back);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// A bar. A row is high enough for a finger.
class EditorBar : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  /// The height that the bar needs.
  [[nodiscard]] int Height() const { return Rows() * (RowHeight() + gap_) + gap_; }
  /// Makes the gaps around the rows smaller, if that is needed for the bar to be no higher than room.
  void FitInto(int room);
  virtual void SetFontPixels(int pixels);

 protected:
  static constexpr int kGap = 4;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  virtual void Place() = 0;
  [[nodiscard]] virtual int Rows() const { return 1; }
  [[nodiscard]] int RowHeight() const;
  [[nodiscard]] int FontPixels() const { return fontPixels_; }
  /// Adds a key with a caption; the caption is also its name for scripts.
  PanelKey* AddKey(Word caption);
  /// Adds a key with an arrow; the word is its name and its tooltip.
  PanelKey* AddArrowKey(Qt::ArrowType arrow, Word name);
  /// Adds a field that takes the bar's font.
  BarField* AddField(Word name);
  /// Says all words again in the language that is in use now.
  virtual void ShowWords();
  void changeEvent(QEvent* event) override;
  /// Places keys from the right to the left in a row, the last one outermost. Returns where the first one begins.
  int PlaceAtRight(int row, const std::vector<PanelKey*>& keys) const;
  [[nodiscard]] QRect Row(int row) const;

 private:
  std::vector<std::pair<PanelKey*, Word>> keys_;
  std::vector<std::pair<BarField*, Word>> fields_;
  int fontPixels_ = 16;
  int gap_ = kGap;  // above, between and below the rows
};

/// Asks for a line number.
class LineBar : public EditorBar {
  Q_OBJECT

 public:
  explicit LineBar(QWidget* parent);
  /// Empties the field and gives it the keyboard.
  void Begin();
  [[nodiscard]] BarField& Field() const { return *field_; }
  [[nodiscard]] PanelKey* GoKey() const { return go_; }

 signals:
  /// line counts from 1.
  void LineWanted(int line);
  void LeaveWanted();

 protected:
  void Place() override;

 private:
  void Enter();
  BarField* field_;
  PanelKey* go_;
  PanelKey* close_;
};

/// Shows how far a program is opened, and has the key that cancels it.
class OpeningBar : public EditorBar {
  Q_OBJECT

 public:
  explicit OpeningBar(QWidget* parent);
  void Show(int percent);
  [[nodiscard]] int Percent() const { return percent_; }
  [[nodiscard]] PanelKey* CancelKey() const { return cancel_; }

 signals:
  void CancelWanted();

 protected:
  void Place() override;
  void paintEvent(QPaintEvent* event) override;

 private:
  PanelKey* cancel_;
  int percent_ = 0;
};

}  // namespace panel
