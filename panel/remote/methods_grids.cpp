// SPDX-License-Identifier: MIT
// The methods for grids and trees, which are Qt's table and tree views. Row 0 of a grid is its header. The state of a
// row and the kind and image of a node come from the model, by the roles in item_roles.h.
#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTreeView>
#include <algorithm>

#include "remote/item_roles.h"
#include "remote/methods.h"
#include "remote/methods_lookup.h"
#include "remote/settle.h"

namespace panel {

namespace {

constexpr int kLargestIndex = 0x7FFFFFFF;
constexpr int kDeepestTree = 256;

QTableView* ReadGrid(Params& params) {
  auto* grid = qobject_cast<QTableView*>(ReadControl(params).control);
  if (grid == nullptr || grid->model() == nullptr) params.Fail("id", "the control is no grid");
  return grid;
}

QTreeView* ReadTree(Params& params) {
  auto* tree = qobject_cast<QTreeView*>(ReadControl(params).control);
  if (tree == nullptr || tree->model() == nullptr) params.Fail("id", "the control is no tree");
  return tree;
}

QJsonValue CellOf(const QModelIndex& index) {
  const QVariant check = index.data(Qt::CheckStateRole);
  if (check.isValid()) return check.toInt() == Qt::Checked;
  return index.data().toString();
}

bool IsEditing(const QTableView* grid) {
  const QVariant editing = grid->property("pnlEditing");
  if (editing.isValid()) return editing.toBool();
  const QWidget* focus = QApplication::focusWidget();
  return focus != nullptr && focus != grid->viewport() && grid->viewport()->isAncestorOf(focus);
}

RpcResult UiGrid(RemoteWorld& /*world*/, Params& params) {
  const QTableView* grid = ReadGrid(params);
  if (params.Problem()) return *params.Problem();
  const QAbstractItemModel* model = grid->model();
  const int rows = model->rowCount();
  const int columns = model->columnCount();
  QJsonArray cells;
  QJsonArray readOnly;
  QJsonArray states;
  for (int row = -1; row < rows; ++row) {
    QJsonArray texts;
    QJsonArray locks;
    for (int column = 0; column < columns; ++column) {
      const QModelIndex index = model->index(row, column);
      texts.append(row < 0 ? QJsonValue(model->headerData(column, Qt::Horizontal).toString()) : CellOf(index));
      locks.append(row < 0 || (model->flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) == 0);
    }
    cells.append(texts);
    readOnly.append(locks);
    states.append(row < 0 ? 0 : model->headerData(row, Qt::Vertical, kRowStateRole).toInt());
  }
  const QHeaderView* header = grid->horizontalHeader();
  const QModelIndex current = grid->currentIndex();
  return QJsonValue(QJsonObject{{"rows", rows + 1},
                                {"cols", columns},
                                {"cells", cells},
                                {"readOnly", readOnly},
                                {"rowState", states},
                                {"current", QJsonArray{current.row() + 1, current.column()}},
                                {"editing", IsEditing(grid)},
                                {"sort", header->isSortIndicatorShown() ? header->sortIndicatorSection() : -1}});
}

/// Reads "row" and "col" and returns the model's index. Fixed and hidden cells can't be chosen.
QModelIndex ReadCell(Params& params, const QTableView* grid) {
  const auto row = static_cast<int>(params.Integer("row", 1, kLargestIndex));
  const auto column = static_cast<int>(params.Integer("col", 0, kLargestIndex));
  const QAbstractItemModel* model = grid->model();
  if (row > model->rowCount()) params.Fail("row", "there is no such row");
  if (column >= model->columnCount()) params.Fail("col", "there is no such column");
  if (params.Problem()) return {};
  const QModelIndex cell = model->index(row - 1, column);
  if (grid->isColumnHidden(column) || !model->flags(cell).testFlag(Qt::ItemIsEnabled)) {
    params.Fail("col", "the cell can't be chosen");
  }
  return params.Problem() ? QModelIndex() : cell;
}

RpcResult UiGridSelect(RemoteWorld& /*world*/, Params& params) {
  QTableView* grid = ReadGrid(params);
  if (params.Problem()) return *params.Problem();
  const QModelIndex cell = ReadCell(params, grid);
  const auto to = static_cast<int>(params.Integer("toRow", 1, std::max(1, grid->model()->rowCount()), cell.row() + 1));
  if (params.Problem()) return *params.Problem();
  const QPointer<QTableView> alive(grid);
  const QPersistentModelIndex first(cell);
  grid->setCurrentIndex(cell);
  if (!alive || !first.isValid() || !params.Has("toRow")) return Done();
  const QModelIndex last = grid->model()->index(to - 1, first.column());
  grid->selectionModel()->select(QItemSelection(first, last),
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  return Done();
}

/// The editor that is open in the grid: the newest of its class.
template <typename Editor>
Editor* OpenEditor(const QTableView* grid) {
  const auto editors = grid->viewport()->findChildren<Editor*>(Qt::FindDirectChildrenOnly);
  return editors.isEmpty() ? nullptr : editors.last();
}

void PressIn(QWidget* editor, int key, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(editor, &press);
}

/// Types one character after the other, because an editor may refuse some. A character may have two code units.
void TypeIntoLine(QLineEdit* line, const QString& text) {
  const QPointer<QLineEdit> open(line);
  line->selectAll();
  line->del();
  for (qsizetype i = 0; open && i < text.size();) {
    const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    line->insert(text.mid(i, length));
    i += length;
  }
  if (open) PressIn(open, Qt::Key_Return, "\r");
}

/// Chooses the item with that text. Returns false when there is none: the list is closed with Escape.
bool ChooseInList(QAbstractItemView* list, const QString& text) {
  const QPointer<QAbstractItemView> open(list);
  const QAbstractItemModel* items = list->model();
  for (int row = 0; row < items->rowCount(); ++row) {
    if (items->index(row, 0).data().toString() != text) continue;
    list->setCurrentIndex(items->index(row, 0));
    if (open) PressIn(open, Qt::Key_Return, "\r");
    return true;
  }
  PressIn(list, Qt::Key_Escape, {});
  return false;
}

/// Opens the cell's editor, types the text and closes the editor with Enter. Returns false when the editor is a list
/// without that text.
bool TypeIntoCell(QTableView* grid, const QModelIndex& cell, const QString& text) {
  const QPointer<QTableView> alive(grid);
  const QPersistentModelIndex place(cell);
  grid->setCurrentIndex(cell);
  if (!alive || !place.isValid()) return true;
  grid->edit(place);
  if (!alive) return true;
  if (auto* line = OpenEditor<QLineEdit>(grid)) {
    TypeIntoLine(line, text);
  } else if (auto* list = OpenEditor<QAbstractItemView>(grid)) {
    return ChooseInList(list, text);
  }
  return true;
}

/// Turns the cell's check as a touch does.
void CheckCell(QTableView* grid, const QModelIndex& cell, bool checked) {
  const QPointer<QTableView> alive(grid);
  const QPersistentModelIndex place(cell);
  grid->setCurrentIndex(cell);
  if (!alive || !place.isValid()) return;
  grid->model()->setData(place, checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

RpcResult UiGridEdit(RemoteWorld& /*world*/, Params& params) {
  QTableView* grid = ReadGrid(params);
  if (params.Problem()) return *params.Problem();
  const QModelIndex cell = ReadCell(params, grid);
  const bool check = params.Has("checked");
  if (check && params.Has("text")) params.Fail("checked", "stands in the place of text");
  const bool checked = check && params.Bool("checked");
  const QString text = check ? QString() : params.Text("text");
  if (params.Problem()) return *params.Problem();
  const Qt::ItemFlags flags = grid->model()->flags(cell);
  if (check && !flags.testFlag(Qt::ItemIsUserCheckable)) return BadParameter("checked", "the cell has no check");
  if (!check && !flags.testFlag(Qt::ItemIsEditable)) return BadParameter("text", "the cell is read-only");
  if (check) {
    CheckCell(grid, cell, checked);
  } else if (!TypeIntoCell(grid, cell, text)) {
    return BadParameter("text", "the list has no such item");
  }
  return Done();
}

QJsonArray NodesBelow(const QTreeView* tree, const QModelIndex& parent, int depth) {
  const QAbstractItemModel* model = tree->model();
  QJsonArray nodes;
  for (int row = 0; row < model->rowCount(parent); ++row) {
    const QModelIndex index = model->index(row, 0, parent);
    nodes.append(QJsonObject{{"text", index.data().toString()},
                             {"kind", QJsonValue::fromVariant(index.data(kNodeKindRole))},
                             {"image", index.data(kNodeImageRole).toInt()},
                             {"hasChildren", model->hasChildren(index)},
                             {"expanded", tree->isExpanded(index)},
                             {"selected", tree->selectionModel()->isSelected(index)},
                             {"children", depth < kDeepestTree ? NodesBelow(tree, index, depth + 1) : QJsonArray()}});
  }
  return nodes;
}

RpcResult UiTree(RemoteWorld& /*world*/, Params& params) {
  const QTreeView* tree = ReadTree(params);
  if (params.Problem()) return *params.Problem();
  return QJsonValue(NodesBelow(tree, tree->rootIndex(), 0));
}

QModelIndex ReadNode(Params& params, const QTreeView* tree) {
  const QStringList path = params.Texts("path");
  if (path.isEmpty()) params.Fail("path", "at least one text is needed");
  QModelIndex node = tree->rootIndex();
  for (const QString& text : path) {
    const QModelIndex parent = node;
    node = QModelIndex();
    for (int row = 0; row < tree->model()->rowCount(parent) && !node.isValid(); ++row) {
      const QModelIndex child = tree->model()->index(row, 0, parent);
      if (child.data().toString() == text) node = child;
    }
    if (!node.isValid()) {
      params.Fail("path", QString("there is no \"%1\"").arg(text));
      return {};
    }
  }
  return node;
}

RpcResult UiTreeSelect(RemoteWorld& /*world*/, Params& params) {
  QTreeView* tree = ReadTree(params);
  if (params.Problem()) return *params.Problem();
  const QModelIndex node = ReadNode(params, tree);
  if (params.Problem()) return *params.Problem();
  tree->setCurrentIndex(node);
  return Done();
}

RpcResult UiTreeExpand(RemoteWorld& /*world*/, Params& params) {
  QTreeView* tree = ReadTree(params);
  if (params.Problem()) return *params.Problem();
  const QModelIndex node = ReadNode(params, tree);
  if (params.Problem()) return *params.Problem();
  tree->expand(node);
  return Done();
}

}  // namespace

void AddGridMethods(MethodTable& table) {
  table.insert({{"ui.grid", UiGrid},
                {"ui.grid.select", UiGridSelect},
                {"ui.grid.edit", UiGridEdit},
                {"ui.tree", UiTree},
                {"ui.tree.select", UiTreeSelect},
                {"ui.tree.expand", UiTreeExpand}});
}

}  // namespace panel
