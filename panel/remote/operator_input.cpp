// SPDX-License-Identifier: MIT
#include "remote/operator_input.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>
#include <algorithm>
#include <memory>

#include "remote/settle.h"
#include "remote/window_inspector.h"

namespace panel {

namespace {

constexpr char kRaised[] = "pnlRaised";
constexpr char kLimit[] = "pnlLimit";

/// Lets the edit take a text of this length, beyond its limit. The limit returns as soon as the text fits it again;
/// setting it back at once would cut the text. Until then the property "pnlLimit" contains it.
void RaiseLimit(QLineEdit* edit, qsizetype length) {
  const int limit = edit->maxLength();
  if (length <= limit) return;
  edit->setMaxLength(static_cast<int>(length));
  // An earlier call restores the true limit; maxLength is now only the length of that call's text.
  if (edit->property(kRaised).isValid()) return;
  edit->setProperty(kRaised, true);
  const bool told = edit->property(kLimit).isValid();
  if (!told) edit->setProperty(kLimit, limit);
  auto connection = std::make_shared<QMetaObject::Connection>();
  const auto giveBack = [edit, limit, told, connection](const QString& text) {
    if (text.size() > limit) return;
    QObject::disconnect(*connection);
    edit->setMaxLength(limit);
    edit->setProperty(kRaised, QVariant());
    if (!told) edit->setProperty(kLimit, QVariant());
  };
  *connection = QObject::connect(edit, &QLineEdit::textChanged, edit, giveBack);
}

void TypeOverLine(QLineEdit* edit, const QString& text) {
  const QPointer<QLineEdit> alive(edit);
  RaiseLimit(edit, text.size());
  edit->setText(text);
  if (alive) emit edit->textEdited(edit->text());
}

template <typename TextEdit>
void MarkIn(TextEdit* edit, int start, int end) {
  const int length = static_cast<int>(edit->toPlainText().size());
  auto cursor = edit->textCursor();
  cursor.setPosition(std::min(start, length));
  cursor.setPosition(std::min(end, length), QTextCursor::KeepAnchor);
  edit->setTextCursor(cursor);
}

QModelIndex IndexOf(const QAbstractItemView* view, int row, int column = 0) {
  const QModelIndex current = view->rootIndex();
  const QVariant shown = view->property("modelColumn");
  // A grid shows its fixed column as a header. The first cell of a row is then in the next column.
  const auto* table = qobject_cast<const QTableView*>(view);
  while (table != nullptr && table->isColumnHidden(column) && column + 1 < table->model()->columnCount()) ++column;
  return view->model()->index(row, shown.isValid() ? shown.toInt() : column, current);
}

void PickInView(QAbstractItemView* view, const QList<int>& indices) {
  QItemSelectionModel* selection = view->selectionModel();
  if (indices.isEmpty()) {
    selection->clear();
    return;
  }
  const auto wholeRow = view->selectionBehavior() == QAbstractItemView::SelectRows ? QItemSelectionModel::Rows
                                                                                   : QItemSelectionModel::NoUpdate;
  const QPointer<QItemSelectionModel> alive(selection);
  selection->setCurrentIndex(IndexOf(view, indices.first()), QItemSelectionModel::ClearAndSelect | wholeRow);
  if (view->selectionMode() == QAbstractItemView::SingleSelection) return;
  for (qsizetype i = 1; alive && i < indices.size(); ++i) {
    selection->select(IndexOf(view, indices[i]), QItemSelectionModel::Select | wholeRow);
  }
}

void PickInCombo(QComboBox* combo, int index) {
  const QPointer<QComboBox> alive(combo);
  combo->hidePopup();
  combo->setCurrentIndex(index);
  if (!alive || index < 0) return;
  emit combo->activated(index);
  if (alive) emit combo->textActivated(combo->itemText(index));
}

struct Target {
  QWidget* widget = nullptr;
  QPoint place;
};

/// The view's header with the columns; null for a list without one.
QHeaderView* HeaderOf(QAbstractItemView* view) {
  if (auto* tree = qobject_cast<QTreeView*>(view)) return tree->header();
  if (auto* table = qobject_cast<QTableView*>(view)) return table->horizontalHeader();
  return nullptr;
}

std::optional<Target> HeaderTarget(QAbstractItemView* view, int column) {
  QHeaderView* header = HeaderOf(view);
  if (header == nullptr || column < 0 || column >= header->count() || header->isSectionHidden(column)) {
    return std::nullopt;
  }
  const int middle = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
  return Target{header->viewport(), QPoint(middle, header->height() / 2)};
}

std::optional<Target> FindTarget(QWidget* control, const PressPlace& place) {
  if (place.index == PressPlace::kNone) {
    auto* area = qobject_cast<QAbstractScrollArea*>(control);
    QWidget* widget = area != nullptr ? area->viewport() : control;
    Target target{widget, widget->rect().center()};
    // A control that lets presses through passes them to the widget under it.
    while (target.widget->testAttribute(Qt::WA_TransparentForMouseEvents) && target.widget->parentWidget() != nullptr) {
      target.place = target.widget->mapToParent(target.place);
      target.widget = target.widget->parentWidget();
    }
    return target;
  }
  auto* view = qobject_cast<QAbstractItemView*>(control);
  if (view == nullptr || view->model() == nullptr) return std::nullopt;
  if (place.index == PressPlace::kHeader) return HeaderTarget(view, place.column);
  const QModelIndex index = IndexOf(view, place.index, place.column);
  if (!index.isValid()) return std::nullopt;
  view->scrollTo(index);
  const QRect shown = view->visualRect(index) & view->viewport()->rect();
  return Target{view->viewport(), shown.center()};
}

void GiveFocus(QWidget* widget) {
  if (!widget->window()->isActiveWindow()) {
    const QPointer<QWidget> alive(widget);
    widget->window()->activateWindow();
    Settle();
    if (!alive) return;
  }
  // The focus goes to the innermost widget that takes it, as with a press from the window system.
  for (QWidget* taker = widget; taker != nullptr; taker = taker->parentWidget()) {
    if (taker->isEnabled() && (taker->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus) {
      taker->setFocus(Qt::MouseFocusReason);
      return;
    }
    if (taker->isWindow()) return;
  }
}

void SendMouse(const QPointer<QWidget>& widget, QPoint place, QEvent::Type type) {
  if (!widget) return;
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

}  // namespace

bool TypeOver(QWidget* control, const QString& text) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) control = combo->lineEdit();
  if (auto* edit = qobject_cast<QLineEdit*>(control)) {
    TypeOverLine(edit, text);
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(control)) {
    plain->setPlainText(text);
  } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
    rich->setPlainText(text);
  } else {
    return false;
  }
  return true;
}

bool MarkText(QWidget* control, int start, int end) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) control = combo->lineEdit();
  if (auto* edit = qobject_cast<QLineEdit*>(control)) {
    const int length = static_cast<int>(edit->text().size());
    const int from = std::min(start, length);
    const int to = std::min(end, length);
    if (from == to) {
      edit->setCursorPosition(to);
    } else {
      edit->setSelection(from, to - from);
    }
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(control)) {
    MarkIn(plain, start, end);
  } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
    MarkIn(rich, start, end);
  } else {
    return false;
  }
  return true;
}

std::optional<int> ItemCount(QWidget* control) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) return combo->count();
  const auto* view = qobject_cast<QAbstractItemView*>(control);
  if (view == nullptr || view->model() == nullptr) return std::nullopt;
  return view->model()->rowCount(view->rootIndex());
}

void PickItems(QWidget* control, const QList<int>& indices) {
  if (auto* combo = qobject_cast<QComboBox*>(control)) {
    PickInCombo(combo, indices.isEmpty() ? -1 : indices.first());
  } else if (auto* view = qobject_cast<QAbstractItemView*>(control)) {
    PickInView(view, indices);
  }
}

bool Press(QWidget* control, const PressPlace& place, bool twice) {
  if (!FindTarget(control, place)) return false;
  const QPointer<QWidget> alive(control);
  GiveFocus(control);
  // The change of focus may have moved or destroyed the control.
  const auto target = alive ? FindTarget(control, place) : std::nullopt;
  if (!target) return true;
  const QPointer<QWidget> widget(target->widget);
  SendMouse(widget, target->place, QEvent::MouseButtonPress);
  SendMouse(widget, target->place, QEvent::MouseButtonRelease);
  if (!twice) return true;
  SendMouse(widget, target->place, QEvent::MouseButtonDblClick);
  SendMouse(widget, target->place, QEvent::MouseButtonRelease);
  return true;
}

}  // namespace panel
