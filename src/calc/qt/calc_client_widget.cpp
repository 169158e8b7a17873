// SPDX-License-Identifier: MIT
#include "calc/qt/calc_client_widget.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <cmath>

#include "calc/calc_ids.h"
#include "calc/qt/calc_look.h"
#include "calc/qt/calc_text_widgets.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

QRgb GroundOf(int id) {
  switch (id) {
    case calc_id::kConfirm:
      return calc_look::kConfirmKey;
    case calc_id::kShowBases:
    case calc_id::kShowVariables:
    case calc_id::kShowSolver:
    case calc_id::kAssign:
      return calc_look::kExtraKey;
    default:
      break;
  }
  constexpr int kFirstDigit = 1017;
  constexpr int kKeysInRow = 5;
  constexpr int kDigitsInRow = 3;
  const bool digit = id >= kFirstDigit && id < calc_id::kConfirm && (id - kFirstDigit) % kKeysInRow < kDigitsInRow;
  return digit ? calc_look::kKey : calc_look::kOperatorKey;
}

}  // namespace

CalcClientWidget::CalcClientWidget(const Language& language, double scale, QWidget* parent)
    : QWidget(parent), scale_(scale) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  const DialogTemplate* dialog = language.Dialog(calc_id::kDialog);
  for (const CalcControl& built : CalcControls()) {
    const CalcControl control = LocalizedControl(built, dialog);
    QWidget* made = Make(control);
    const Rect place = DialogPixels(control, scale_);
    made->setGeometry(ToQRect(place));
    controls_.emplace(control.id, made);
  }
  // After a press on a key or a field, the line must still have its caret and selection, even if a widget of the host
  // gives the focus to what was pressed.
  for (const auto& [id, control] : controls_) {
    if (control->focusPolicy() == Qt::NoFocus) control->setFocusProxy(line_);
  }
  for (QWidget* list : {history_->viewport(), variables_->viewport()}) list->installEventFilter(this);
  setFocusProxy(line_);
  Connect();
}

int CalcClientWidget::Scaled(int pixels) const { return static_cast<int>(std::lround(pixels * scale_)); }

QWidget* CalcClientWidget::Make(const CalcControl& control) {
  switch (control.kind) {
    case CalcKind::kResult:
      return result_ = new ZCResultWnd(control.id, this);
    case CalcKind::kEdit:
      return line_ = new CalcLine(control.id, this);
    case CalcKind::kStatic:
      return status_ = new CalcLabelWidget(control.id, Scaled(calc_look::kStatusHeight), this);
    case CalcKind::kList:
      return (control.id == calc_id::kHistory ? history_ : variables_) = MakeList(control.id);
    default:
      return MakeKey(control);
  }
}

QWidget* CalcClientWidget::MakeKey(const CalcControl& control) {
  auto* key = new CalcKeyWidget(control.id, ToQString(control.text), GroundOf(control.id), this);
  key->installEventFilter(this);
  connect(key, &QAbstractButton::clicked, this, [this, id = control.id] { emit KeyPressed(id); });
  return key;
}

ListBox* CalcClientWidget::MakeList(int id) {
  auto* list = new ListBox(id, this);
  list->SetColors(calc_look::kListBack, calc_look::kListText);
  list->SetSelectedColors(calc_look::kListSelected, calc_look::kListText);
  list->SetFont(QStringLiteral("Arial"), -Scaled(calc_look::kListHeight), calc_look::kBoldWeight);
  list->SetExtended(id == calc_id::kHistory);
  list->hide();
  return list;
}

void CalcClientWidget::Connect() {
  connect(history_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (!quiet_) emit HistorySelected();
  });
  connect(history_, &ListBox::Walked, this, &CalcClientWidget::HistorySelected);
  connect(history_, &QAbstractItemView::doubleClicked, this, [this] { emit HistoryDoubleClicked(); });
  connect(variables_, &QAbstractItemView::clicked, this, [this] { emit VariablesPicked(); });
}

QWidget* CalcClientWidget::Control(int id) const {
  const auto found = controls_.find(id);
  return found == controls_.end() ? nullptr : found->second;
}

Rect CalcClientWidget::ControlRect(int id) const {
  const QWidget* control = Control(id);
  if (control == nullptr) return {};
  const QRect place = control->geometry();
  return {place.x(), place.y(), place.x() + place.width(), place.y() + place.height()};
}

void CalcClientWidget::SetKeyIcon(int id, const std::string* svg) {
  auto* key = qobject_cast<CalcKeyWidget*>(Control(id));
  if (key != nullptr && svg != nullptr) key->SetPicture(*svg);
}

void CalcClientWidget::MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) {
  const auto height = [this](int relative) { return std::max(1, Scaled(calc_look::kDialogHeight) - Scaled(relative)); };
  line_->setFont(calc_look::Font(height(lineHeight), lineWeight));
  result_->SetFont(calc_look::Font(height(resultHeight), resultWeight));
}

void CalcClientWidget::InsertRow(int index, TextView text) {
  quiet_ = true;
  history_->Insert(index, text);
  quiet_ = false;
}

void CalcClientWidget::DeleteRow(int index) {
  quiet_ = true;
  history_->Delete(index);
  quiet_ = false;
}

void CalcClientWidget::SelectRow(int index) {
  quiet_ = true;
  history_->Select(index);
  quiet_ = false;
}

void CalcClientWidget::FillHistory(const TextRows& rows) { history_->SetItems(rows); }

bool CalcClientWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) pressed_ = static_cast<QWidget*>(watched);
  // The second of two quick presses was meant for the control under the first one. If that is hidden now, because a
  // list was opened or closed, the press is dropped. If it is still visible, the press counts, even on a neighbour.
  if (event->type() != QEvent::MouseButtonDblClick) return false;
  return pressed_ != nullptr && !pressed_->isVisible();
}

void CalcClientWidget::mousePressEvent(QMouseEvent* /*event*/) {
  // A press between the controls means that the operator wants to type here.
  if (!history_->isVisible() && !variables_->isVisible()) line_->setFocus(Qt::MouseFocusReason);
}

void CalcClientWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(calc_look::kGround));
  painter.setPen(QColor(calc_look::kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace pnl
