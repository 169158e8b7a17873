// SPDX-License-Identifier: MIT
#include "help/qt/manual_list_dialog.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <utility>

#include "help/help_ids.h"
#include "help/qt/help_controls.h"
#include "window/dialog_units.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kMargin = 12;
constexpr int kBorder = 2;
/// In dialog units, for a language without the dialog.
constexpr int kWidthUnits = 320;
constexpr int kHeightUnits = 260;
constexpr int kEdgeRoom = 8;

bool IsEnter(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

QLabel* MakeCaption(const QString& text, const HelpScale& scale, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setText(text);
  label->setFont(scale.MakeText(700));
  QPalette colors = label->palette();
  colors.setColor(QPalette::WindowText, ToQColor(help_look::kMissingText));
  label->setPalette(colors);
  return label;
}

}  // namespace

ZCListManuals::ZCListManuals(const Language& language, const HelpScale& scale, const ManualPicker& picker,
                             QWidget* parent)
    : ToolDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      manuals_(MakeHelpList(help_id::kManuals, scale, this)),
      recent_(MakeHelpList(help_id::kRecent, scale, this)) {
  setWindowModality(Qt::ApplicationModal);
  SetTitleProperty(language.LoadToolText(help_text::kManuals));
  SetUp(manuals_, recent_, picker.manuals);
  SetUp(recent_, manuals_, picker.recent);
  LayOut(language, scale, picker);
  const DialogTemplate* dialog = language.Dialog(help_id::kPicker);
  const double grown = static_cast<double>(scale.Font()) / help_look::kFont;
  resize(DialogPixelsX(dialog != nullptr && dialog->width > 0 ? dialog->width : kWidthUnits, grown),
         DialogPixelsY(dialog != nullptr && dialog->height > 0 ? dialog->height : kHeightUnits, grown));
  manuals_->setFocus(Qt::OtherFocusReason);
}

void ZCListManuals::SetUp(ListBox* list, ListBox* other, const std::vector<Text>& rows) {
  list->SetItems(TextRows(rows));
  list->setMinimumHeight(list->RowHeight());
  list->installEventFilter(this);
  connect(list, &QAbstractItemView::doubleClicked, this, [this] { Finish(true); });
  connect(list, &ListBox::Walked, this, [other] { other->Select(-1); });
}

void ZCListManuals::LayOut(const Language& language, const HelpScale& scale, const ManualPicker& picker) {
  const auto word = [&language](int id) { return ToQString(language.LoadToolText(id)); };
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addWidget(MakeCaption(word(help_text::kManuals), scale, this));
  column->addWidget(manuals_, 1);
  if (!picker.note.empty()) {
    QLabel* note = MakeCaption(ToQString(picker.note), scale, this);
    MarkControl(note, help_id::kPickerNote, control_kind::kStatic);
    note->setProperty("pnlText", ToQString(picker.note));
    column->addWidget(note);
  }
  column->addWidget(MakeCaption(word(help_text::kRecent), scale, this));
  column->addWidget(recent_, 1);
  auto* keys = new QHBoxLayout;
  const auto add = [&](int id, int text) {
    auto* key = new HelpKeyButton(id, word(text), scale, this);
    key->setMinimumWidth(scale(120));
    keys->addWidget(key);
    return key;
  };
  keys->addStretch();
  connect(add(help_id::kPickerOk, help_text::kOk), &QAbstractButton::clicked, this, [this] { Finish(true); });
  connect(add(help_id::kPickerCancel, help_text::kCancel), &QAbstractButton::clicked, this, [this] { Finish(false); });
  column->addLayout(keys);
}

std::optional<ManualChoice> ZCListManuals::Choice() const {
  if (const int row = manuals_->Selection(); row >= 0) return ManualChoice{ManualChoice::List::kManuals, row};
  if (const int row = recent_->Selection(); row >= 0) return ManualChoice{ManualChoice::List::kRecent, row};
  return std::nullopt;
}

bool ZCListManuals::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (!press && event->type() != QEvent::ShortcutOverride) return ToolDialog::eventFilter(watched, event);
  const auto& key = static_cast<QKeyEvent&>(*event);
  const bool leaves = IsEnter(key) || key.key() == Qt::Key_Escape;
  if (!leaves) return ToolDialog::eventFilter(watched, event);
  event->accept();
  if (press) Finish(IsEnter(key));
  return true;
}

void ZCListManuals::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event) || event->key() == Qt::Key_Escape) Finish(IsEnter(*event));
}

void ZCListManuals::closeEvent(QCloseEvent* event) {
  // Its owner takes it away.
  event->ignore();
  Finish(false);
}

void ZCListManuals::Finish(bool accepted) {
  if (!std::exchange(finished_, true)) emit Finished(accepted);
}

void ZCListManuals::Place() {
  const QWidget* around = parentWidget();
  const QSize room = around->size() - QSize(2 * kEdgeRoom, 2 * kEdgeRoom);
  resize(size().boundedTo(room).expandedTo(QSize(1, 1)));
  move(around->mapToGlobal(QPoint((around->width() - width()) / 2, (around->height() - height()) / 2)));
}

void ZCListManuals::showEvent(QShowEvent* /*event*/) { Place(); }

void ZCListManuals::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(help_look::kEdge));
  painter.fillRect(rect().adjusted(kBorder, kBorder, -kBorder, -kBorder), ToQColor(help_look::kBack));
}

}  // namespace pnl
