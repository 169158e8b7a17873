// SPDX-License-Identifier: MIT
// Grids and trees over Qt's own views: what the remote control reports about them, and its presses on cells and nodes.
#include <gtest/gtest.h>

#include <QDoubleValidator>
#include <QHeaderView>
#include <QListWidget>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTreeView>

#include "panel/qt/remote_fixture.h"
#include "remote/item_roles.h"
#include "remote/settle.h"

namespace panel {
namespace {

class RemoteGrid : public RemoteMethods {
 protected:
  RemoteGrid() {
    tool = new QWidget(&face.area);
    tool->resize(400, 300);
    model.setHorizontalHeaderLabels({"Name", "On"});
    AddRow("steel", true, true);
    AddRow("brass", false, false);
    model.setHeaderData(1, Qt::Vertical, 2, kRowStateRole);
    grid = new QTableView(tool);
    grid->setModel(&model);
    grid->setGeometry(0, 0, 200, 200);
    grid->setProperty("pnlId", 7);
    tree = new QTreeView(tool);
    tree->setModel(&nodes);
    tree->setGeometry(200, 0, 200, 200);
    tree->setProperty("pnlId", 8);
    auto* drive = new QStandardItem("C:");
    drive->setData("drive", kNodeKindRole);
    drive->setData(3, kNodeImageRole);
    drive->appendRow(new QStandardItem("P108"));
    nodes.appendRow(drive);
    window = "\"window\":" + QByteArray::number(PnlAttachWidget(tool, nullptr, nullptr));
    face.panel.show();
  }
  ~RemoteGrid() override { delete tool; }
  void AddRow(const QString& name, bool on, bool editable) {
    auto* text = new QStandardItem(name);
    text->setEditable(editable);
    auto* check = new QStandardItem;
    check->setEditable(false);
    check->setCheckable(editable);
    check->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    model.appendRow({text, check});
  }
  std::string Grid(const QString& method, const QByteArray& params) {
    return Ask(method, "{" + window + "," + params + "}");
  }

  QStandardItemModel model;
  QStandardItemModel nodes;
  QWidget* tool = nullptr;
  QTableView* grid = nullptr;
  QTreeView* tree = nullptr;
  QByteArray window;
};

TEST_F(RemoteGrid, TellsItsCellsWithTheHeaderAsRowZero) {
  grid->setCurrentIndex(model.index(1, 0));
  EXPECT_EQ(Grid("ui.grid", R"("id":7)"),
            R"({"cells":[["Name","On"],["steel",true],["brass",false]],"cols":2,"current":[2,0],"editing":false,)"
            R"("readOnly":[[true,true],[false,false],[true,true]],"rowState":[0,0,2],"rows":3,"sort":-1})");
}

TEST_F(RemoteGrid, MovesTheCurrentCellAndChoosesRows) {
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":2,"col":1)"), "{}");
  EXPECT_EQ(grid->currentIndex(), model.index(1, 1));
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0,"toRow":2)"), "{}");
  EXPECT_EQ(grid->selectionModel()->selectedRows().size(), 2);
}

TEST_F(RemoteGrid, TypesIntoACellAndCommits) {
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"text":"inox")"), "{}");
  EXPECT_EQ(model.item(0, 0)->text(), "inox");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"checked":false)"), "{}");
  EXPECT_EQ(model.item(0, 1)->checkState(), Qt::Unchecked);
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("editing":false)"), std::string::npos);
}

TEST_F(RemoteGrid, RefusesWhatIsNotThere) {
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":3,"col":0)"), "-32602 row: there is no such row");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":2)"), "-32602 col: there is no such column");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0,"toRow":9)"),
            "-32602 toRow: an integer from 1 to 2 is needed");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":2,"col":0,"text":"x")"), "-32602 text: the cell is read-only");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"checked":true)"), "-32602 checked: the cell has no check");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"checked":true,"text":"")"),
            "-32602 checked: stands in the place of text");
  EXPECT_EQ(Grid("ui.grid", R"("id":8)"), "-32602 id: the control is no grid");
  EXPECT_EQ(Grid("ui.tree", R"("id":7)"), "-32602 id: the control is no tree");
  EXPECT_EQ(Grid("ui.tree.select", R"("id":8,"path":["C:","P52"])"), "-32602 path: there is no \"P52\"");
  EXPECT_EQ(Grid("ui.tree.expand", R"("id":8,"path":[])"), "-32602 path: at least one text is needed");
}

TEST_F(RemoteGrid, TheFirstWrongPlaceIsNamedInAnEmptyGridToo) {
  model.clear();
  for (const char* method : {"ui.grid.select", "ui.grid.edit"}) {
    EXPECT_EQ(Grid(method, R"("id":7,"row":0,"col":0,"text":"x")"),
              "-32602 row: an integer from 1 to 2147483647 is needed");
    EXPECT_EQ(Grid(method, R"("id":7,"row":1,"col":0,"text":"x")"), "-32602 row: there is no such row");
  }
}

TEST_F(RemoteGrid, TellsChoosesAndOpensNodes) {
  EXPECT_EQ(
      Grid("ui.tree", R"("id":8)"),
      R"([{"children":[{"children":[],"expanded":false,"hasChildren":false,"image":0,"kind":null,"selected":false,)"
      R"("text":"P108"}],"expanded":false,"hasChildren":true,"image":3,"kind":"drive","selected":false,)"
      R"("text":"C:"}])");
  grid->setFocus();
  EXPECT_EQ(Grid("ui.tree.expand", R"("id":8,"path":["C:"])"), "{}");
  EXPECT_TRUE(tree->isExpanded(nodes.index(0, 0)));
  EXPECT_EQ(Grid("ui.tree.select", R"("id":8,"path":["C:","P108"])"), "{}");
  EXPECT_EQ(tree->currentIndex().data().toString(), "P108");
  EXPECT_FALSE(tree->hasFocus());
}

TEST_F(RemoteGrid, TellsTheColumnByWhichItIsSortedAndWhetherACellIsEdited) {
  grid->horizontalHeader()->setSortIndicatorShown(true);
  grid->horizontalHeader()->setSortIndicator(1, Qt::AscendingOrder);
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("sort":1)"), std::string::npos);
  face.panel.activateWindow();
  Settle();
  grid->setFocus();
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("editing":false)"), std::string::npos);
  grid->setCurrentIndex(model.index(0, 0));
  grid->edit(model.index(0, 0));
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("current":[1,0],"editing":true)"), std::string::npos);
}

TEST_F(RemoteGrid, CellsOfOneKindAreCheckedOrEditedAndTheOthersRefused) {
  // Only the text of the first row can be edited, only its mark can be set.
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"text":"x")"), "-32602 text: the cell is read-only");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":2,"col":1,"checked":true)"), "-32602 checked: the cell has no check");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"checked":1)"), "-32602 checked: true or false is needed");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0)"), "-32602 text: missing");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":3,"col":0,"text":"x")"), "-32602 row: there is no such row");
  model.item(0, 1)->setCheckState(Qt::Unchecked);
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"checked":true)"), "{}");
  EXPECT_EQ(model.item(0, 1)->checkState(), Qt::Checked);
  EXPECT_EQ(model.item(0, 0)->text(), "steel");
}

TEST_F(RemoteGrid, WhatIsTypedTakesThePlaceOfTheOldText) {
  int changes = 0;
  QObject::connect(&model, &QStandardItemModel::itemChanged, [&changes] { ++changes; });
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"text":"")"), "{}");
  EXPECT_EQ(model.item(0, 0)->text(), "");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(grid->currentIndex(), model.index(0, 0));
  grid->setEditTriggers(QAbstractItemView::AllEditTriggers);
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"text":"inox")"), "{}");
  EXPECT_EQ(model.item(0, 0)->text(), "inox") << "its editor opens as the cell is chosen";
  EXPECT_EQ(changes, 2);
}

TEST_F(RemoteGrid, RowsAreChosenToTheLastAndInBothDirections) {
  const QModelIndex before = model.index(0, 1);
  grid->setCurrentIndex(before);
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":0,"col":0)"),
            "-32602 row: an integer from 1 to 2147483647 is needed");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":-1)"),
            "-32602 col: an integer from 0 to 2147483647 is needed");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1)"), "-32602 col: missing");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"col":1)"), "-32602 row: missing");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0,"toRow":3)"),
            "-32602 toRow: an integer from 1 to 2 is needed");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0,"toRow":0)"),
            "-32602 toRow: an integer from 1 to 2 is needed");
  EXPECT_EQ(grid->currentIndex(), before) << "nothing was chosen";
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":2,"col":1,"toRow":1)"), "{}");
  EXPECT_EQ(grid->currentIndex(), model.index(1, 1));
  EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 4);
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":2,"col":1,"toRow":2)"), "{}");
  EXPECT_EQ(grid->selectionModel()->selectedRows(), QModelIndexList{model.index(1, 0)});
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0)"), "{}");
  EXPECT_EQ(grid->selectionModel()->selectedIndexes(), QModelIndexList{model.index(0, 0)}) << "a cell alone";
}

TEST_F(RemoteGrid, AGridWithoutRowsHasItsHeaderAlone) {
  model.removeRows(0, 2);
  EXPECT_EQ(Grid("ui.grid", R"("id":7)"),
            R"({"cells":[["Name","On"]],"cols":2,"current":[0,-1],"editing":false,"readOnly":[[true,true]],)"
            R"("rowState":[0],"rows":1,"sort":-1})");
  EXPECT_EQ(Grid("ui.grid.select", R"("id":7,"row":1,"col":0)"), "-32602 row: there is no such row");
}

TEST_F(RemoteGrid, EveryMethodOfAGridRefusesATreeAndTheOtherWayRound) {
  EXPECT_EQ(Grid("ui.grid.select", R"("id":8,"row":1,"col":0)"), "-32602 id: the control is no grid");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":8,"row":1,"col":0,"text":"")"), "-32602 id: the control is no grid");
  EXPECT_EQ(Grid("ui.tree.select", R"("id":7,"path":["C:"])"), "-32602 id: the control is no tree");
  EXPECT_EQ(Grid("ui.tree.expand", R"("id":7,"path":["C:"])"), "-32602 id: the control is no tree");
  EXPECT_EQ(Grid("ui.tree.expand", R"("id":8)"), "-32602 path: missing");
  EXPECT_EQ(Grid("ui.tree.select", R"("id":8,"path":["P108"])"), "-32602 path: there is no \"P108\"");
  EXPECT_EQ(Grid("ui.tree.select", R"("id":8,"path":[])"), "-32602 path: at least one text is needed");
  EXPECT_FALSE(tree->currentIndex().isValid());
}

TEST_F(RemoteGrid, OfNodesWithOneNameTheFirstIsChosenAndTellsThatItIs) {
  auto* second = new QStandardItem("D:");
  for (int i = 0; i < 2; ++i) second->appendRow(new QStandardItem("same"));
  nodes.appendRow(second);
  EXPECT_EQ(Grid("ui.tree.select", R"("id":8,"path":["D:","same"])"), "{}");
  EXPECT_EQ(tree->currentIndex(), second->child(0)->index());
  EXPECT_EQ(Grid("ui.tree.expand", R"("id":8,"path":["D:"])"), "{}");
  const QJsonArray told = Reply("ui.tree", "{" + window + R"(,"id":8})")["result"].toArray();
  ASSERT_EQ(told.size(), 2);
  EXPECT_EQ(told[0].toObject()["expanded"], false);
  EXPECT_EQ(told[1].toObject()["expanded"], true);
  EXPECT_EQ(told[1].toObject()["kind"], QJsonValue(QJsonValue::Null));
  const QJsonArray children = told[1].toObject()["children"].toArray();
  ASSERT_EQ(children.size(), 2);
  EXPECT_EQ(children[0].toObject()["selected"], true);
  EXPECT_EQ(children[1].toObject()["selected"], false);
}

TEST_F(RemoteGrid, ATreeIsToldToItsTwoHundredAndFiftySeventhLevel) {
  QStandardItem* deep = nodes.item(0);
  for (int i = 0; i < 300; ++i) {
    auto* child = new QStandardItem("x");
    deep->insertRow(0, child);
    deep = child;
  }
  QJsonArray level = Reply("ui.tree", "{" + window + R"(,"id":8})")["result"].toArray();
  int levels = 0;
  for (; !level.isEmpty(); level = level[0].toObject()["children"].toArray()) ++levels;
  EXPECT_EQ(levels, 257);
}

/// Edits the first column with a line that takes numbers from 0 to 100, and the others with a list.
class GridEditors : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
    if (index.column() == 0) {
      auto* line = new QLineEdit(parent);
      auto* range = new QDoubleValidator(0, 100, 2, line);
      range->setNotation(QDoubleValidator::StandardNotation);
      range->setLocale(QLocale::c());
      line->setValidator(range);
      return line;
    }
    auto* list = new QListWidget(parent);
    list->addItems({"mill", "drill"});
    return list;
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
    const auto* list = qobject_cast<const QListWidget*>(editor);
    if (list == nullptr) return QStyledItemDelegate::setModelData(editor, model, index);
    if (list->currentItem() != nullptr) model->setData(index, list->currentItem()->text());
  }
};

TEST_F(RemoteGrid, WhatAnEditorDoesNotTakeIsNotTyped) {
  grid->setItemDelegate(new GridEditors(grid));
  model.item(0, 0)->setText("5");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"text":"1x2.3456")"), "{}");
  EXPECT_EQ(model.item(0, 0)->text(), "12.34") << "typed sign by sign";
}

TEST_F(RemoteGrid, ACharacterOfTwoUnitsIsTypedInOnePiece) {
  class Watching final : public QStyledItemDelegate {
   public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
      auto* line = new QLineEdit(parent);
      QObject::connect(line, &QLineEdit::textChanged,
                       [](const QString& text) { EXPECT_TRUE(text.isValidUtf16()) << "half of it"; });
      return line;
    }
  };
  grid->setItemDelegate(new Watching(grid));
  EXPECT_EQ(Grid("ui.grid.edit", "\"id\":7,\"row\":1,\"col\":0,\"text\":\"\xF0\x9F\x98\x80 \xF0\x9F\x98\x80\""), "{}");
  EXPECT_EQ(model.item(0, 0)->text().toStdString(), "\xF0\x9F\x98\x80 \xF0\x9F\x98\x80");
}

TEST_F(RemoteGrid, WhatIsTypedTakesThePlaceOfATextOfWhichNothingIsMarked) {
  grid->setCurrentIndex(model.index(0, 0));
  grid->edit(model.index(0, 0));
  auto* const line = grid->findChild<QLineEdit*>();
  ASSERT_NE(line, nullptr);
  line->deselect();
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":0,"text":"inox")"), "{}");
  EXPECT_EQ(model.item(0, 0)->text(), "inox");
}

TEST_F(RemoteGrid, AListCellTakesTheTextOfAnItem) {
  grid->setItemDelegate(new GridEditors(grid));
  model.item(0, 1)->setEditable(true);
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"text":"drill")"), "{}");
  EXPECT_EQ(model.item(0, 1)->text(), "drill");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"text":"Mill")"), "-32602 text: the list has no such item");
  EXPECT_EQ(model.item(0, 1)->text(), "drill");
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"text":"mill")"), "{}") << "the refused list was closed";
  EXPECT_EQ(model.item(0, 1)->text(), "mill");
}

TEST_F(RemoteGrid, ATurnedCheckBecomesThePresentCell) {
  grid->setCurrentIndex(model.index(1, 0));
  EXPECT_EQ(Grid("ui.grid.edit", R"("id":7,"row":1,"col":1,"checked":false)"), "{}");
  EXPECT_EQ(grid->currentIndex(), model.index(0, 1));
}

TEST_F(RemoteGrid, FixedAndHiddenCellsCannotBeChosen) {
  model.item(0, 0)->setFlags(Qt::NoItemFlags);
  grid->setColumnHidden(1, true);
  for (const char* method : {"ui.grid.select", "ui.grid.edit"}) {
    for (const char* column : {"0", "1"}) {
      EXPECT_EQ(Grid(method, QByteArray(R"("id":7,"row":1,"text":"x","col":)") + column),
                "-32602 col: the cell can't be chosen");
    }
  }
  EXPECT_FALSE(grid->currentIndex().isValid());
  EXPECT_EQ(model.item(0, 0)->text(), "steel");
}

TEST_F(RemoteGrid, ARowIsChosenByItsFirstColumnThatIsShown) {
  grid->setColumnHidden(0, true);
  EXPECT_EQ(Grid("ui.pick", R"("id":7,"index":1)"), "{}");
  EXPECT_EQ(grid->currentIndex(), model.index(1, 1));
  EXPECT_EQ(Grid("ui.click", R"("id":7,"index":0)"), "{}");
  EXPECT_EQ(grid->currentIndex(), model.index(0, 1));
}

TEST_F(RemoteGrid, AGridThatSaysSoIsEditedWithoutTheFocusToo) {
  grid->setProperty("pnlEditing", true);
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("editing":true)"), std::string::npos);
  grid->setProperty("pnlEditing", false);
  EXPECT_NE(Grid("ui.grid", R"("id":7)").find(R"("editing":false)"), std::string::npos);
}

}  // namespace
}  // namespace panel
