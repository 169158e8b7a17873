// SPDX-License-Identifier: MIT
// The calculator's client area with all its controls, as the dialog of the language pack has them. It places and fills
// the controls and reports presses with signals. It decides nothing.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <map>

#include "calc/calc_places.h"
#include "calc/qt/calc_input_widgets.h"
#include "controls/list_box.h"
#include "host/language.h"

namespace pnl {

class CalcLabelWidget;
class ZCResultWnd;

class CalcClientWidget final : public QWidget {
  Q_OBJECT

 public:
  CalcClientWidget(const Language& language, double scale, QWidget* parent);

  /// The control with that id, or null if there is none.
  [[nodiscard]] QWidget* Control(int id) const;
  /// The place of the control with that id. It is empty if there is none.
  [[nodiscard]] Rect ControlRect(int id) const;
  void SetKeyIcon(int id, const std::string* svg);
  /// Sets the fonts of the line and of the result. Heights are relative to the dialog's font; a negative one is taller.
  void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight);
  void InsertRow(int index, TextView text);
  void DeleteRow(int index);
  void SelectRow(int index);
  void FillHistory(const TextRows& rows);

  /// That many pixels of the dialog at its present scale.
  [[nodiscard]] int Scaled(int pixels) const;

  [[nodiscard]] CalcLine& Line() const { return *line_; }
  [[nodiscard]] ZCResultWnd& Result() const { return *result_; }
  [[nodiscard]] CalcLabelWidget& Status() const { return *status_; }
  [[nodiscard]] ListBox& History() const { return *history_; }
  [[nodiscard]] ListBox& Variables() const { return *variables_; }

 signals:
  void KeyPressed(int id);
  /// Emitted when the operator selects rows, presses a row, or moves with the keys, even at an end of the list. Not
  /// emitted when the rows themselves change.
  void HistorySelected();
  void HistoryDoubleClicked();
  void VariablesPicked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QWidget* Make(const CalcControl& control);
  [[nodiscard]] QWidget* MakeKey(const CalcControl& control);
  [[nodiscard]] ListBox* MakeList(int id);
  void Connect();
  const double scale_;
  std::map<int, QWidget*> controls_;
  CalcLine* line_ = nullptr;
  ZCResultWnd* result_ = nullptr;
  CalcLabelWidget* status_ = nullptr;
  ListBox* history_ = nullptr;
  ListBox* variables_ = nullptr;
  QPointer<QWidget> pressed_;  // the control under the last press
  bool quiet_ = false;         // set while the rows change, so that nothing is emitted
};

}  // namespace pnl
