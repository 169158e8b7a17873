// SPDX-License-Identifier: MIT
// The calculator's client area: all its controls, made after the dialog of the language pack. It places, fills and asks
// them and reports presses by signals; what follows is decided elsewhere.
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

  /// Null for an id that isn't one of its controls.
  [[nodiscard]] QWidget* Control(int id) const;
  /// Empty for such an id.
  [[nodiscard]] Rect ControlRect(int id) const;
  void SetKeyIcon(int id, const std::string* svg);
  /// Relative to the dialog's own font; a negative height is a taller one.
  void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight);
  void InsertRow(int index, TextView text);
  void DeleteRow(int index);
  void SelectRow(int index);
  void FillHistory(const TextRows& rows);

  [[nodiscard]] CalcLine& Line() const { return *line_; }
  [[nodiscard]] ZCResultWnd& Result() const { return *result_; }
  [[nodiscard]] CalcLabelWidget& Status() const { return *status_; }
  [[nodiscard]] ListBox& History() const { return *history_; }
  [[nodiscard]] ListBox& Variables() const { return *variables_; }

 signals:
  void KeyPressed(int id);
  /// The operator selected something, pressed a row, or walked with the keys and found an end. Not by a change of the
  /// rows.
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
  QPointer<QWidget> pressed_;  // the key or list under the last press
  bool quiet_ = false;         // the rows change, which is no choice of the operator's
};

}  // namespace pnl
