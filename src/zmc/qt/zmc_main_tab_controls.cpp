// SPDX-License-Identifier: MIT
// What the logic reads from the controls of the main tab, and writes into them.
#include <QtCore/QPointer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"
#include "zmc/qt/zmc_main_tab.h"

namespace pnl {
namespace {

namespace id = zmc_control;

}  // namespace

QWidget* ZCTabZMCMain::Control(int control) const {
  const auto found = controls_.find(control);
  return found != controls_.end() ? found->second : nullptr;
}

Text ZCTabZMCMain::ControlText(int control) const {
  if (const auto* field = ControlAs<ZCDatoWrap>(control)) return FromQString(field->Written());
  if (const auto* line = ControlAs<QLineEdit>(control)) return FromQString(line->text());
  if (const auto* box = ControlAs<QComboBox>(control)) return FromQString(box->currentText());
  if (const auto* label = ControlAs<ZWCStatic>(control)) return FromQString(label->WindowText());
  return {};
}

void ZCTabZMCMain::SetControlText(int control, TextView text) {
  const QString shown = ToQString(text);
  if (auto* field = ControlAs<ZCDatoWrap>(control)) {
    field->SetText(shown);
  } else if (auto* line = ControlAs<QLineEdit>(control)) {
    line->setText(shown);
    // A line that nobody types in shows its beginning.
    if (!line->hasFocus()) line->setCursorPosition(0);
  } else if (auto* box = ControlAs<QComboBox>(control)) {
    if (box->isEditable()) box->lineEdit()->setText(shown);
  } else if (auto* label = ControlAs<ZWCStatic>(control)) {
    if (label->WindowText() == shown) return;
    label->SetTextW(shown, true);
    FitLabel(control, *label);
  }
}

std::vector<QWidget*> ZCTabZMCMain::KeyReceivers() const {
  std::vector<QWidget*> receivers;
  for (const auto& [control, widget] : controls_) {
    if (control == id::kGrid) continue;  // it has a hook of its own
    receivers.push_back(widget);
    if (auto* box = qobject_cast<QComboBox*>(widget)) {
      receivers.push_back(box->view());
      if (box->lineEdit() != nullptr) receivers.push_back(box->lineEdit());
    }
  }
  return receivers;
}

void ZCTabZMCMain::ShowControl(int control, bool on) {
  if (QWidget* widget = Control(control)) widget->setVisible(on);
}

void ZCTabZMCMain::EnableControl(int control, bool on) {
  QWidget* widget = Control(control);
  if (widget == nullptr) return;
  widget->setEnabled(on);
  // A line has its own colours, which don't change when it is disabled.
  if (auto* line = qobject_cast<ZWCEdit*>(widget)) {
    line->SetNormalColors(on ? zmc_look::kFieldBack : zmc_look::kFieldOff, zmc_look::kFieldText, true);
  }
}

void ZCTabZMCMain::SetLabelColor(int control, std::uint32_t color) {
  if (auto* label = ControlAs<ZWCStatic>(control)) label->SetTextColor(color);
}

void ZCTabZMCMain::SetDigits(int control, const ZmcDigits& digits) {
  if (auto* field = ControlAs<ZCDatoWrap>(control)) field->SetDigits(ToNumberFormat(digits));
}

int ZCTabZMCMain::State(int control) const {
  const auto* picture = ControlAs<CMultistatic>(control);
  return picture != nullptr ? picture->State() : 0;
}

void ZCTabZMCMain::SetState(int control, int state) {
  if (auto* picture = ControlAs<CMultistatic>(control)) picture->SetState(state);
}

void ZCTabZMCMain::SetPowerBar(std::optional<double> percent) {
  if (auto* bar = ControlAs<ZmcPowerBar>(id::kPowerBar)) bar->SetPercent(percent);
}

bool ZCTabZMCMain::IsFieldEditing(int control) const {
  const auto* field = ControlAs<ZCDatoWrap>(control);
  return field != nullptr && field->IsEditing();
}

void ZCTabZMCMain::FillList(int control, const std::vector<Text>& items) {
  if (auto* box = ControlAs<ZmcBox>(control)) box->Fill(items);
}

std::vector<Text> ZCTabZMCMain::ListItems(int control) const {
  const auto* box = ControlAs<ZmcBox>(control);
  return box != nullptr ? box->Items() : std::vector<Text>();
}

int ZCTabZMCMain::ListSelection(int control) const {
  const auto* box = ControlAs<ZmcBox>(control);
  return box != nullptr ? box->currentIndex() : -1;
}

void ZCTabZMCMain::SelectItem(int control, int index) {
  if (auto* box = ControlAs<ZmcBox>(control)) box->SelectIndex(index);
}

bool ZCTabZMCMain::IsListOpen(int control) const {
  const auto* box = ControlAs<ZmcBox>(control);
  return box != nullptr && box->IsOpen();
}

void ZCTabZMCMain::OpenList(int control, bool open) {
  if (auto* box = ControlAs<ZmcBox>(control)) box->Open(open);
}

void ZCTabZMCMain::MoveInList(int control, int by) {
  if (auto* box = ControlAs<ZmcBox>(control)) box->MoveMark(by);
}

bool ZCTabZMCMain::AcceptItem(int control) {
  auto* box = ControlAs<ZmcBox>(control);
  return box != nullptr && box->AcceptMark();
}

void ZCTabZMCMain::SelectAllText(int control) {
  if (auto* line = ControlAs<QLineEdit>(control)) line->selectAll();
}

int ZCTabZMCMain::FocusedControl() const {
  if (!isVisible()) return 0;
  for (const int box : {id::kMaterial, id::kOperation, id::kTool, id::kFUnit, id::kSUnit}) {
    if (IsListOpen(box)) return box;
  }
  for (const QWidget* widget = QApplication::focusWidget(); widget != nullptr && widget != this;
       widget = widget->parentWidget()) {
    if (isAncestorOf(widget) && Control(ControlId(widget)) == widget) return ControlId(widget);
  }
  return 0;
}

void ZCTabZMCMain::FocusControl(int control) {
  const int from = FocusedControl();
  const QPointer<ZCTabZMCMain> alive(this);
  if (IsListOpen(from)) OpenList(from, false);
  if (!alive) return;
  if (QWidget* widget = Control(control)) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace pnl
