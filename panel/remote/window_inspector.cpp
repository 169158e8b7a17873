// SPDX-License-Identifier: MIT
#include "remote/window_inspector.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>
#include <algorithm>
#include <set>

namespace panel {

namespace {

constexpr int kNoLimit = 32767;  // the default of a QLineEdit

QJsonValue PropertyOf(const QWidget* widget, const char* name) {
  const QVariant value = widget->property(name);
  return value.isValid() ? QJsonValue::fromVariant(value) : QJsonValue(QJsonValue::Undefined);
}

void CopyProperty(QJsonObject& to, const char* key, const QWidget* widget, const char* name) {
  const QJsonValue value = PropertyOf(widget, name);
  if (!value.isUndefined()) to.insert(key, value);
}

int IdOf(const QWidget* widget) {
  const QVariant id = widget->property("pnlId");
  return id.isValid() ? id.toInt() : -1;
}

bool IsWindow(const QWidget* widget) { return widget->property("pnlWindow").isValid(); }

/// The nearest window with a handle that contains the control.
const QWidget* OwnerWindow(const QWidget* widget) {
  const QWidget* owner = widget->parentWidget();
  while (owner != nullptr && !IsWindow(owner)) owner = owner->parentWidget();
  return owner;
}

QList<QWidget*> Controls(QWidget* window) {
  QList<QWidget*> controls;
  for (QWidget* child : window->findChildren<QWidget*>()) {
    if (IdOf(child) >= 0 && OwnerWindow(child) == window) controls.append(child);
  }
  // A control beside the window, not in it, has a property that names its window.
  const QVariant handle = window->property("pnlWindow");
  const QWidget* parent = window->parentWidget();
  if (parent == nullptr || !handle.isValid()) return controls;
  for (QWidget* beside : parent->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const QVariant owner = beside->property("pnlOwner");
    if (owner.isValid() && owner.toInt() == handle.toInt() && IdOf(beside) >= 0) controls.append(beside);
  }
  return controls;
}

qint64 BackgroundOf(const QWidget* widget) {
  const QVariant back = widget->property("pnlBack");
  if (back.isValid()) return back.toUInt();
  const QColor color = widget->palette().color(widget->backgroundRole());
  return color.red() | (color.green() << 8) | (color.blue() << 16);
}

QString KindOf(QWidget* control) {
  QString kind = control->property("pnlKind").toString();
  if (!kind.isEmpty()) return kind;
  if (qobject_cast<QLineEdit*>(control) != nullptr) return "edit";
  if (qobject_cast<QComboBox*>(control) != nullptr) return "combo";
  if (qobject_cast<QAbstractButton*>(control) != nullptr) return "button";
  if (qobject_cast<QLabel*>(control) != nullptr) return "static";
  if (auto* view = qobject_cast<QAbstractItemView*>(control)) return IsReportList(view) ? "report" : "list";
  return "window";
}

QString TextOf(QWidget* control) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) return combo->currentText();
  if (auto* plain = qobject_cast<QPlainTextEdit*>(control)) return plain->toPlainText();
  if (auto* rich = qobject_cast<QTextEdit*>(control)) return rich->toPlainText();
  for (const char* name : {"pnlText", "text", "pnlTitle"}) {
    const QVariant text = control->property(name);
    if (text.isValid()) return text.toString();
  }
  return {};
}

bool HasFocus(QWidget* control) {
  const QWidget* focus = QApplication::focusWidget();
  return focus != nullptr && (focus == control || (control->isAncestorOf(focus) && IdOf(focus) < 0));
}

template <typename TextEdit>
void DescribeTextCursor(QJsonObject& to, const TextEdit* edit) {
  const auto cursor = edit->textCursor();
  to["caret"] = cursor.position();
  to["selection"] = QJsonArray{cursor.selectionStart(), cursor.selectionEnd()};
}

void DescribeCaret(QJsonObject& to, QWidget* control) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) control = combo->lineEdit();
  if (auto* plain = qobject_cast<QPlainTextEdit*>(control)) DescribeTextCursor(to, plain);
  if (auto* rich = qobject_cast<QTextEdit*>(control)) DescribeTextCursor(to, rich);
  auto* edit = qobject_cast<QLineEdit*>(control);
  if (edit == nullptr) return;
  const int caret = edit->cursorPosition();
  to["caret"] = caret;
  to["selection"] =
      edit->hasSelectedText() ? QJsonArray{edit->selectionStart(), edit->selectionEnd()} : QJsonArray{caret, caret};
  if (edit->maxLength() < kNoLimit) to["limit"] = edit->maxLength();
}

int ColumnOf(const QAbstractItemView* view) {
  if (qobject_cast<const QTreeView*>(view) != nullptr || qobject_cast<const QTableView*>(view) != nullptr) return 0;
  const QVariant column = view->property("modelColumn");
  return column.isValid() ? column.toInt() : 0;
}

QJsonValue RowOf(const QAbstractItemView* view, int row) {
  const QAbstractItemModel* model = view->model();
  const auto text = [&](int column) { return model->index(row, column, view->rootIndex()).data().toString(); };
  if (!IsReportList(view)) return text(ColumnOf(view));
  QJsonArray texts;
  for (int column = 0; column < model->columnCount(view->rootIndex()); ++column) texts.append(text(column));
  return texts;
}

void DescribeItems(QJsonObject& to, QWidget* control) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) {
    QJsonArray items;
    for (int i = 0; i < combo->count(); ++i) items.append(combo->itemText(i));
    to["items"] = items;
    to["selected"] = combo->currentIndex() < 0 ? QJsonArray() : QJsonArray{combo->currentIndex()};
    to["dropped"] = combo->view()->isVisible();
    return;
  }
  const auto* view = qobject_cast<QAbstractItemView*>(control);
  if (view == nullptr || view->model() == nullptr) return;
  QJsonArray items;
  const int rows = view->model()->rowCount(view->rootIndex());
  for (int row = 0; row < rows; ++row) items.append(RowOf(view, row));
  to["items"] = items;
  std::set<int> selected;
  for (const QModelIndex& index : view->selectionModel()->selectedIndexes()) selected.insert(index.row());
  QJsonArray indices;
  for (const int row : selected) indices.append(row);
  to["selected"] = indices;
}

}  // namespace

QJsonArray RectToJson(const QRect& rect) { return {rect.x(), rect.y(), rect.width(), rect.height()}; }

QAbstractItemView* ItemView(QWidget* control) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) return combo->view();
  return qobject_cast<QAbstractItemView*>(control);
}

bool IsReportList(const QAbstractItemView* view) {
  if (qobject_cast<const QTableView*>(view) != nullptr) return true;
  const auto* tree = qobject_cast<const QTreeView*>(view);
  // A tree hides its header or shows which nodes open. A tree view that does neither is a list with columns.
  return tree != nullptr && !tree->rootIsDecorated() && !tree->isHeaderHidden();
}

QWidget* WindowInspector::Window(PnlWindow window) {
  return PnlIsAlive(window) != 0 ? static_cast<QWidget*>(PnlWidgetOf(window)) : nullptr;
}

QWidget* WindowInspector::Control(QWidget* window, int id) {
  QWidget* found = nullptr;
  QWidget* onVisiblePage = nullptr;
  for (QWidget* control : Controls(window)) {
    if (IdOf(control) != id) continue;
    if (control->isVisible()) return control;
    if (found == nullptr) found = control;
    if (onVisiblePage == nullptr && control->parentWidget()->isVisible()) onVisiblePage = control;
  }
  return onVisiblePage != nullptr ? onVisiblePage : found;
}

bool WindowInspector::IsSeen(const QWidget* control) {
  if (!control->isVisible()) return false;
  QRect seen = control->rect();
  for (const QWidget* at = control; !at->isWindow(); at = at->parentWidget()) {
    seen = seen.translated(at->pos()) & at->parentWidget()->rect();
  }
  return !seen.isEmpty();
}

void WindowInspector::BringIntoSight(QWidget* control) {
  for (QWidget* around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
    auto* page = qobject_cast<QScrollArea*>(around);
    if (page != nullptr) page->ensureWidgetVisible(control, 0, 0);
    if (around->isWindow()) return;
  }
}

QWidget* WindowInspector::Focused(QWidget* window) {
  QWidget* focus = QApplication::focusWidget();
  if (focus != nullptr && (focus == window || window->isAncestorOf(focus))) return focus;
  // When another window has the focus, this is the control that gets it as soon as this window does.
  focus = window->focusWidget();
  return focus != nullptr && window->isAncestorOf(focus) ? focus : window;
}

QJsonObject WindowInspector::DescribeWindow(QWidget* window) const {
  const bool dialog = window->property("pnlDialog").toBool();
  QWidget* parent = dialog ? toolArea_ : window->parentWidget();
  if (parent == nullptr) parent = window;
  const QPoint place = parent == window ? QPoint() : parent->mapFromGlobal(window->mapToGlobal(QPoint(0, 0)));
  QWidget* focus = Focused(window);
  const QWidget* real = QApplication::focusWidget();
  if (real != nullptr && real != focus) focus = window;  // another window has the focus
  while (focus != window && IdOf(focus) < 0) focus = focus->parentWidget();
  QJsonArray ids;
  for (const QWidget* control : Controls(window)) ids.append(IdOf(control));
  const QString title = window->property("pnlTitle").toString();
  return {{"visible", window->isVisible()},
          {"title", title.isEmpty() ? window->windowTitle() : title},
          {"back", BackgroundOf(window)},
          {"rect", RectToJson(QRect(place, window->size()))},
          {"parent", QJsonArray{parent->width(), parent->height()}},
          {"focus", focus == window ? 0 : IdOf(focus)},
          {"menuAttached", window->property("pnlMenuAttached").toBool()},
          {"view", window->property("pnlView").toInt()},
          {"controls", ids}};
}

QJsonObject WindowInspector::DescribeControl(QWidget* window, QWidget* control) const {
  const QVariant readOnly = control->property("readOnly");
  const QVariant state = control->property("pnlState");
  const QPoint place = window->mapFromGlobal(control->mapToGlobal(QPoint(0, 0)));
  QJsonObject told{{"kind", KindOf(control)},
                   {"text", TextOf(control)},
                   {"visible", IsSeen(control)},
                   {"enabled", control->isEnabled()},
                   {"readOnly", readOnly.isValid() && readOnly.toBool()},
                   {"focused", HasFocus(control)},
                   {"rect", RectToJson(QRect(place, control->size()))},
                   {"state", state.isValid() ? state.toInt() : 0}};
  DescribeCaret(told, control);
  DescribeItems(told, control);
  const auto* button = qobject_cast<QAbstractButton*>(control);
  if (button != nullptr && button->isCheckable()) told["checked"] = button->isChecked();
  CopyProperty(told, "checked", control, "pnlChecked");
  CopyProperty(told, "limit", control, "pnlLimit");
  CopyProperty(told, "back", control, "pnlBack");
  CopyProperty(told, "fore", control, "pnlFore");
  CopyProperty(told, "frame", control, "pnlFrame");
  CopyProperty(told, "blinking", control, "pnlBlinking");
  CopyProperty(told, "phase", control, "pnlPhase");
  CopyProperty(told, "period", control, "pnlPeriod");
  CopyProperty(told, "location", control, "pnlLocation");
  CopyProperty(told, "playing", control, "pnlPlaying");
  CopyProperty(told, "position", control, "pnlPosition");
  return told;
}

QJsonArray WindowInspector::Dialogs() {
  QJsonArray dialogs;
  QList<QWidget*> open;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->property("pnlDialog").toBool() && widget->isVisible()) open.append(widget);
  }
  // Later handles are greater.
  std::sort(open.begin(), open.end(), [](const QWidget* a, const QWidget* b) {
    return a->property("pnlWindow").toInt() < b->property("pnlWindow").toInt();
  });
  for (const QWidget* widget : open) {
    const QString title = widget->property("pnlTitle").toString();
    dialogs.append(QJsonObject{{"window", widget->property("pnlWindow").toInt()},
                               {"title", title.isEmpty() ? widget->windowTitle() : title}});
  }
  return dialogs;
}

}  // namespace panel
