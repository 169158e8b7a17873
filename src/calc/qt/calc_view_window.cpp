// SPDX-License-Identifier: MIT
// The part of the calculator's window that implements CalcView.
#include "calc/calc_ids.h"
#include "calc/qt/calc_look.h"
#include "calc/qt/calc_window.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
Rect ZCCalc7340::WindowRect() const { return FromQRect(geometry()); }

Rect ZCCalc7340::ClientRect() const { return {0, 0, client_->width(), client_->height()}; }

void ZCCalc7340::SetClientHeight(int height) {
  const int bar = bar_ == nullptr ? 0 : bar_->heightForWidth(width());
  resize(width(), std::max(0, height) + std::max(0, bar));
  // Needed even if the size is the same: the bar may have another height.
  LayOut();
}

void ZCCalc7340::LayOut() {
  const int bar = bar_ == nullptr ? 0 : std::max(0, bar_->heightForWidth(width()));
  if (bar_ != nullptr) bar_->setGeometry(0, 0, width(), bar);
  client_->setGeometry(0, bar, width(), std::max(0, height() - bar));
}

void ZCCalc7340::BringToTop() {
  raise();
  if (note_) note_->raise();
}

void ZCCalc7340::Destroy() {
  EndMessages();
  const QPointer<ZCCalc7340> alive(this);
  Hide();
  if (alive) deleteLater();
}

void ZCCalc7340::ClosePanel() {
  // Queued, because closing may destroy every object on the call stack.
  QMetaObject::invokeMethod(window(), &QWidget::close, Qt::QueuedConnection);
}

void ZCCalc7340::SetTitle(TextView title) {
  setWindowTitle(ToQString(title));
  SetTitleProperty(title);
}

void ZCCalc7340::AttachMenu(MenuHandle menu) {
  if (bar_ != nullptr) {
    bar_->hide();
    bar_->deleteLater();
    bar_ = nullptr;
  }
  if (menu != 0) {
    bar_ = new CalcMenuWidget(context_.language.Menus(), menu, client_->Scaled(calc_look::kItemHeight), this);
    // Queued, because the command may destroy the window. The menu is closed by then.
    connect(
        bar_, &CalcMenuWidget::Chosen, this,
        [this](int id) { Tell([id](CalcSession& session) { session.OnMenuCommand(id); }); }, Qt::QueuedConnection);
    bar_->show();
  }
  setProperty(property::kMenuAttached, bar_ != nullptr);
}

void ZCCalc7340::MoveControl(int id, const Rect& rect) {
  QWidget* control = client_->Control(id);
  if (control != nullptr) control->setGeometry(ToQRect(rect));
}

void ZCCalc7340::ShowControl(int id, bool shown) {
  QWidget* control = client_->Control(id);
  if (control == nullptr) return;
  control->setVisible(shown);
}

void ZCCalc7340::SetKeyIcon(int id, int bitmap) { client_->SetKeyIcon(id, context_.language.Bitmap(bitmap)); }

void ZCCalc7340::MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) {
  client_->MakeFonts(lineHeight, lineWeight, resultHeight, resultWeight);
}

Text ZCCalc7340::LineText() const { return FromQString(client_->Line().text()); }

void ZCCalc7340::SetLineText(TextView text) { client_->Line().SetText(ToQString(text)); }

Text ZCCalc7340::ResultText() const {
  QString text;
  client_->Result().GetText(text);
  return FromQString(text);
}

void ZCCalc7340::SetResultText(TextView text) { client_->Result().SetText(ToQString(text), true); }

void ZCCalc7340::SetResultColors(std::uint32_t back, std::uint32_t text) {
  client_->Result().SetColors(back, text, true);
}

void ZCCalc7340::SetStatus(TextView text) { client_->Status().SetText(ToQString(text)); }

void ZCCalc7340::FillVariables(const std::vector<Text>& rows) { client_->Variables().SetItems(TextRows(rows)); }

void ZCCalc7340::SetNote(TextView text) {
  if (!note_) return;
  note_->SetText(ToQString(text));
  PlaceNote();
}

void ZCCalc7340::PlaceNote() {
  if (!note_) return;
  const bool shown = isVisible() && !note_->Shown().isEmpty();
  if (shown) note_->PlaceBeside(geometry());
  note_->setVisible(shown);
}

void ZCCalc7340::SetWorking(bool working) {
  if (!working) return work_.stop();
  if (!work_.isActive()) work_.start(0, this);
}

}  // namespace pnl
