// SPDX-License-Identifier: MIT
// How the explorer's tree and list look, and what they report of what is done with them.
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPainter>
#include <string>
#include <vector>

#include "controls/fonts.h"
#include "explorer/qt/xplr_icons.h"
#include "explorer/qt/xplr_list_widget.h"
#include "explorer/qt/xplr_tree_widget.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

constexpr int kIcons = 13;

/// The colour of an icon of the strip.
QColor IconColor(int icon) { return {10 + 15 * icon, 200 - 10 * icon, 90}; }

std::uint32_t Bgr(const QColor& color) {
  return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

std::string Strip() {
  std::string strip = "<svg xmlns='http://www.w3.org/2000/svg' width='208' height='16' viewBox='0 0 208 16'>";
  for (int icon = 0; icon < kIcons; ++icon) {
    strip += "<rect x='" + std::to_string(16 * icon) + "' y='0' width='16' height='16' fill='" +
             IconColor(icon).name().toStdString() + "'/>";
  }
  return strip + "</svg>";
}

ImageList Icons() {
  const std::string strip = Strip();
  return MakeXplrIcons(&strip, 1);
}

TEST(XplrIconsTest, EachIsItsSquareOfTheStripInThePixelsOfTheScreen) {
  const std::string strip = Strip();
  for (const double ratio : {1.0, 2.0}) {
    const ImageList icons = MakeXplrIcons(&strip, ratio);
    EXPECT_EQ(icons.size, QSize(16, 16));
    for (int icon = 0; icon < kIcons; ++icon) {
      ASSERT_NE(icons.At(icon), nullptr);
      const QImage image = icons.At(icon)->toImage();
      EXPECT_EQ(icons.At(icon)->deviceIndependentSize(), QSizeF(16, 16));
      EXPECT_EQ(image.size(), QSize(16, 16) * ratio);
      for (const QPoint place : {QPoint(0, 0), QPoint(image.width() - 1, image.height() - 1)}) {
        EXPECT_EQ(image.pixel(place), IconColor(icon).rgb()) << icon << " at " << ratio;
      }
    }
    EXPECT_EQ(icons.At(kIcons), nullptr);
  }
}

TEST(XplrIconsTest, WithoutAStripTheyAreBlankAndKeepTheirRoom) {
  const ImageList icons = MakeXplrIcons(nullptr, 1);
  EXPECT_EQ(icons.size, QSize(16, 16));
  ASSERT_NE(icons.At(12), nullptr);
  EXPECT_EQ(icons.At(12)->toImage().pixelColor(3, 3).alpha(), 0);
}

// ---------------------------------------------------------------- the tree

class XplrTreeLookTest : public testing::Test {
 protected:
  XplrTreeLookTest() {
    window.resize(300, 200);
    tree->resize(300, 200);
    tree->SetLook(18, Icons());
    node.text = u"SRV";
    node.image = 10;
    node.selectedImage = 3;
    node.kind = NodeKind::kServer;
    Activate(window);
  }
  QTreeWidgetItem* Add() {
    nodes.Add(kNoNode, node);
    const std::size_t last = nodes.Children(kNoNode).size() - 1;
    tree->AddNodes(nodes, kNoNode, last, 1);
    return tree->topLevelItem(static_cast<int>(last));
  }
  static QImage Icon(const QTreeWidgetItem* item, QIcon::Mode mode) {
    return item->icon(0).pixmap(QSize(16, 16), 1.0, mode, QIcon::Off).toImage().convertToFormat(QImage::Format_RGB32);
  }

  QWidget window;
  ZCFolderTree* tree = new ZCFolderTree(1, &window);
  XplrNodes nodes;
  XplrNode node;
};

TEST_F(XplrTreeLookTest, ANodeHasItsIconAndAnotherOneWhileItIsSelected) {
  const QTreeWidgetItem* item = Add();
  EXPECT_EQ(tree->iconSize(), QSize(16, 16));
  for (const auto& [mode, icon] : {std::pair(QIcon::Normal, 10), std::pair(QIcon::Selected, 3)}) {
    const QImage image = Icon(item, mode);
    EXPECT_EQ(image.pixel(1, 1), IconColor(icon).rgb());
    EXPECT_EQ(image.pixel(11, 11), IconColor(icon).rgb()) << "no cross";
  }
  EXPECT_EQ(item->data(0, node_role::kImage).toInt(), 10);
}

TEST_F(XplrTreeLookTest, APlaceThatHasFailedHasARedCrossWithAWhiteEdgeInItsCorner) {
  node.failed = true;
  const QTreeWidgetItem* item = Add();
  for (const auto& [mode, icon] : {std::pair(QIcon::Normal, 10), std::pair(QIcon::Selected, 3)}) {
    const QImage image = Icon(item, mode);
    EXPECT_EQ(image.pixelColor(11, 11), QColor(0xD0, 0, 0)) << "where the lines cross";
    EXPECT_GT(image.pixelColor(13, 11).blue(), 150) << "a white edge, whatever the icon is";
    for (int i = 0; i < 16; ++i) {
      EXPECT_EQ(image.pixel(i, 2), IconColor(icon).rgb()) << i;
      EXPECT_EQ(image.pixel(2, i), IconColor(icon).rgb()) << i;
    }
    EXPECT_LT(Count(image, Bgr(IconColor(icon))) + Count(image, 0xffffff) + Count(image, 0x0000D0), 16 * 16)
        << "smooth edges";
    EXPECT_NE(image.pixel(8, 8), IconColor(icon).rgb());
    EXPECT_NE(image.pixel(14, 14), IconColor(icon).rgb());
    EXPECT_NE(image.pixel(14, 8), IconColor(icon).rgb());
    EXPECT_NE(image.pixel(8, 14), IconColor(icon).rgb());
  }
  EXPECT_EQ(item->foreground(0).color(), QColor(0x50, 0x08, 0x08));
  nodes.SetFailed(nodes.Children(kNoNode)[0], false);
  tree->UpdateNode(nodes, nodes.Children(kNoNode)[0]);
  EXPECT_EQ(Icon(item, QIcon::Normal).pixel(11, 11), IconColor(10).rgb());
  EXPECT_EQ(item->foreground(0).style(), Qt::NoBrush);
}

TEST_F(XplrTreeLookTest, HasItsFontAndColours) {
  EXPECT_EQ(tree->font().pixelSize(), MakeFont("Arial", 18, 500)->pixelSize());
  EXPECT_EQ(tree->font().weight(), 500);
  EXPECT_EQ(tree->property("pnlBack").toUInt(), 8621463u);
  EXPECT_EQ(tree->property("pnlFore").toUInt(), 0u);
  Add();
  nodes.SetText(nodes.Children(kNoNode)[0], u"SELECTED");
  tree->UpdateNode(nodes, nodes.Children(kNoNode)[0]);
  Add();
  tree->SelectNode(nodes.Children(kNoNode)[0]);
  tree->setFocus();
  const QImage image = Paint(*tree->viewport());
  const QRect first = tree->visualItemRect(tree->topLevelItem(0));
  const QRect second = tree->visualItemRect(tree->topLevelItem(1));
  EXPECT_GT(Count(image, 4608090, first), 0) << "the ground of the selection";
  EXPECT_EQ(tree->palette().color(QPalette::Highlight).rgb(), qRgb(0x5A, 0x50, 0x46));
  EXPECT_EQ(tree->palette().color(QPalette::HighlightedText).rgb(), qRgb(0xFF, 0xFF, 0xFF));
  EXPECT_EQ(Count(image, 4608090, second), 0);
  EXPECT_GT(Count(image, 0, second), 0) << "black text";
  EXPECT_EQ(ColorAt(image, image.width() - 3, image.height() - 3), 8621463u);
}

TEST_F(XplrTreeLookTest, WhatTheLogicDoesIsNotReportedAndWhatTheOperatorDoesIs) {
  Add();
  Add();
  std::vector<std::pair<NodeId, bool>> selected;
  std::vector<std::pair<NodeId, bool>> opening;
  QObject::connect(tree, &ZCFolderTree::NodeSelected, tree,
                   [&](NodeId id, bool walked) { selected.emplace_back(id, walked); });
  QObject::connect(tree, &ZCFolderTree::NodeOpening, tree,
                   [&](NodeId id, bool walked) { opening.emplace_back(id, walked); });
  const NodeId first = nodes.Children(kNoNode)[0];
  const NodeId second = nodes.Children(kNoNode)[1];
  tree->SelectNode(first);
  tree->OpenNode(first);
  tree->RemoveNode(first);
  tree->SelectNode(second);
  EXPECT_TRUE(selected.empty());
  EXPECT_TRUE(opening.empty());
  nodes.Remove(first);
  Add();
  const NodeId third = nodes.Children(kNoNode)[1];
  tree->setFocus();
  PressKey(tree, Qt::Key_Down);
  EXPECT_EQ(selected, (std::vector<std::pair<NodeId, bool>>{{third, true}})) << "a key that walks";
  for (const int key : {Qt::Key_Space, Qt::Key_Plus, Qt::Key_Right}) {
    opening.clear();
    tree->topLevelItem(1)->setExpanded(false);
    PressKey(tree, key);
    EXPECT_EQ(opening, (std::vector<std::pair<NodeId, bool>>{{third, key == Qt::Key_Right}})) << key;
    EXPECT_FALSE(tree->topLevelItem(1)->isExpanded()) << "not before its children are there";
  }
  selected.clear();
  tree->setCurrentItem(tree->topLevelItem(0));
  EXPECT_EQ(selected, (std::vector<std::pair<NodeId, bool>>{{second, false}})) << "after a key, too";
}

TEST_F(XplrTreeLookTest, ANodeThatHasGoneWithItsChildrenIsNoneAnyMore) {
  Add();
  Add();
  const NodeId above = nodes.Children(kNoNode)[0];
  const NodeId child = nodes.Add(above, node);
  tree->AddNodes(nodes, above, 0, 1);
  ASSERT_EQ(tree->topLevelItem(0)->childCount(), 1);
  tree->RemoveNode(above);
  for (const NodeId gone : {child, above}) {
    tree->RemoveNode(gone);
    tree->OpenNode(gone);
    tree->UpdateNode(nodes, gone);
    tree->SelectNode(gone);
    EXPECT_EQ(tree->SelectedNode(), nullptr);
  }
  ASSERT_EQ(tree->topLevelItemCount(), 1);
  tree->SelectNode(nodes.Children(kNoNode)[1]);
  EXPECT_EQ(tree->SelectedNode(), tree->topLevelItem(0));
}

// ---------------------------------------------------------------- the list

class XplrListLookTest : public testing::Test {
 protected:
  XplrListLookTest() {
    window.resize(640, 300);
    list->resize(640, 300);
    list->SetLook(18, Icons());
    list->SetTitles({"Name", "Size", "Date"});
    XplrRow folder;
    folder.name = u"SUB";
    folder.flags = item_flag::kFolder;
    XplrRow file;
    file.name = u"HILL.NC";
    file.flags = item_flag::kSelectable;
    file.length = 5000;
    list->SetRows(std::make_shared<const std::vector<XplrRow>>(std::vector{folder, file}));
    Activate(window);
    space = QFontMetrics(list->RowFont()).horizontalAdvance(u' ');
  }
  [[nodiscard]] QRect Row(int row) const { return list->visualRect(list->model()->index(row, 0)); }
  /// The smallest rectangle around the pixels of that colour.
  static QRect Around(const QImage& image, std::uint32_t color, const QRect& area) {
    QRect around;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (ColorAt(image, x, y) == color) around |= QRect(x, y, 1, 1);
      }
    }
    return around;
  }

  QWidget window;
  ZCXPLRList* list = new ZCXPLRList(1, &window);
  int space = 0;
};

TEST_F(XplrListLookTest, AFolderAndAFileHaveTheirIconsInTheMiddleOfTheRow) {
  const QImage image = Paint(*list->viewport());
  for (const auto& [row, icon] : {std::pair(0, 2), std::pair(1, 1)}) {
    const QRect place = Row(row);
    const QRect area(0, place.top(), image.width(), place.height());
    EXPECT_EQ(Around(image, Bgr(IconColor(icon)), area), QRect(0, place.top() + (place.height() - 16) / 2, 16, 16));
    EXPECT_EQ(Count(image, Bgr(IconColor(3 - icon)), area), 0);
  }
}

TEST_F(XplrListLookTest, ANameBeginsBesideItsIconAndASizeEndsBeforeItsColumn) {
  const QImage image = Paint(*list->viewport());
  const QRect row = Row(1);
  const auto ink = [&](int column, int from) {
    const QRect cell(list->columnViewportPosition(column), row.top(), list->columnWidth(column), row.height());
    return Ink(image, 10595253, cell.adjusted(from, 0, 0, 0)).translated(-cell.left(), 0);
  };
  const QRect name = ink(0, 16);
  EXPECT_NEAR(name.left(), 16 + space, 3);
  const QRect size = ink(1, 0);
  EXPECT_NEAR(size.right(), list->columnWidth(1) - 2 * space, 4);
}

TEST_F(XplrListLookTest, ANameThatIsTooLongIsCutBeforeTheNextColumn) {
  XplrRow row;
  row.name = Text(200, u'H');
  list->SetRows(std::make_shared<const std::vector<XplrRow>>(std::vector{row}));
  const QImage image = Paint(*list->viewport());
  const QRect place = Row(0);
  const QRect ink = Ink(image, 10595253, QRect(16, place.top(), list->columnWidth(0) - 16, place.height()));
  EXPECT_LE(ink.right(), list->columnWidth(0) - 2 * space);
  EXPECT_GT(ink.right(), list->columnWidth(0) - 2 * space - 30) << "an ellipsis near the end";
}

TEST_F(XplrListLookTest, TheTypedLettersAreMarkedInTheSelectedRowAlone) {
  const QFontMetrics metrics(list->RowFont());
  list->SelectRow(1);
  list->setFocus();
  const auto mark = [&] { return Around(Paint(*list->viewport()), 0x60D8FF, list->viewport()->rect()); };
  EXPECT_TRUE(mark().isEmpty());
  for (const int letters : {1, 4, 7}) {
    list->MarkTyped(static_cast<std::size_t>(letters));
    const QRect marked = mark();
    EXPECT_EQ(marked.left(), 16 + space - 1) << letters;
    EXPECT_EQ(marked.width(), metrics.horizontalAdvance(QStringLiteral("HILL.NC").left(letters))) << letters;
    EXPECT_EQ(marked.top(), Row(1).top() + (Row(1).height() - metrics.height()) / 2);
    EXPECT_EQ(marked.height(), metrics.height());
  }
  EXPECT_GT(Count(Paint(*list->viewport()), 0, mark()), 0) << "black letters on the mark";
  list->SelectRow(-1);
  EXPECT_TRUE(mark().isEmpty());
}

TEST_F(XplrListLookTest, ItsHeaderIsFixedAndTheTitleOfTheSizesIsAtTheRight) {
  const QAbstractItemModel& model = *list->model();
  const auto side = [&](int column) {
    return model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
  };
  EXPECT_EQ(side(0), Qt::AlignLeft | Qt::AlignVCenter);
  EXPECT_EQ(side(1), Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_EQ(side(2), Qt::AlignLeft | Qt::AlignVCenter);
  for (int column = 0; column < 3; ++column) {
    EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString(), QStringList({"Name", "Size", "Date"})[column]);
    EXPECT_EQ(list->header()->sectionResizeMode(column), QHeaderView::Fixed);
  }
  EXPECT_FALSE(model.headerData(3, Qt::Horizontal).isValid());
  EXPECT_FALSE(model.headerData(-1, Qt::Horizontal).isValid());
  EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
  EXPECT_FALSE(model.index(0, 0).data(Qt::ToolTipRole).isValid());
  EXPECT_TRUE(list->header()->sectionsClickable());
  EXPECT_EQ(list->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn) << "the columns never move";
  EXPECT_EQ(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(XplrListLookTest, OnlyTheLeftButtonPicks) {
  std::vector<int> clicks;
  std::vector<int> doubles;
  QObject::connect(list, &ZCXPLRList::RowClicked, list, [&](int row) { clicks.push_back(row); });
  QObject::connect(list, &ZCXPLRList::RowDoubleClicked, list, [&](int row) { doubles.push_back(row); });
  const auto press = [&](QPoint place, QEvent::Type type, Qt::MouseButton button) {
    PressMouse(list->viewport(), place, type, button);
  };
  const QPoint row = Row(1).center();
  press(row, QEvent::MouseButtonPress, Qt::RightButton);
  press(row, QEvent::MouseButtonDblClick, Qt::RightButton);
  EXPECT_TRUE(clicks.empty() && doubles.empty());
  press(row, QEvent::MouseButtonPress, Qt::LeftButton);
  EXPECT_EQ(clicks, (std::vector{1}));
  press(row, QEvent::MouseButtonDblClick, Qt::LeftButton);
  EXPECT_EQ(doubles, (std::vector{1}));
  press(Row(0).center(), QEvent::MouseButtonDblClick, Qt::LeftButton);
  EXPECT_EQ(doubles, (std::vector{1})) << "another row than the first press";
  press(list->viewport()->rect().bottomLeft(), QEvent::MouseButtonPress, Qt::LeftButton);
  EXPECT_EQ(clicks, (std::vector{1, 0, -1})) << "beside the rows";
}

TEST_F(XplrListLookTest, WhatTheLogicSelectsIsNotReported) {
  std::vector<int> selected;
  QObject::connect(list, &ZCXPLRList::RowSelected, list, [&](int row) { selected.push_back(row); });
  list->SelectRow(1);
  list->SelectRow(-1);
  list->SetRows(std::make_shared<const std::vector<XplrRow>>(3));
  EXPECT_TRUE(selected.empty());
  list->setFocus();
  list->SelectRow(0);
  PressKey(list, Qt::Key_Down);
  EXPECT_EQ(selected, (std::vector{1}));
}

TEST_F(XplrListLookTest, TheSignIsAtTheLowerEndOfTheRows) {
  const auto* sign = list->findChild<XplrComingSign*>();
  EXPECT_FALSE(sign->isVisible());
  list->ShowMoreComing(true);
  EXPECT_TRUE(sign->isVisible());
  const QRect rows = list->viewport()->geometry();
  EXPECT_EQ(sign->geometry(), QRect(rows.left(), rows.bottom() + 1 - 24, rows.width(), 24));
  EXPECT_EQ(list->childAt(sign->geometry().center()), list->viewport()) << "a finger presses the row under it";
  list->ShowMoreComing(false);
  EXPECT_FALSE(sign->isVisible());
}

TEST_F(XplrListLookTest, ThePreviewTakesNoPress) {
  list->ShowPreview({true, u"A.NC", {u"G0"}});
  const auto* pane = list->findChild<XplrPreviewPane*>();
  ASSERT_TRUE(pane->isVisible());
  EXPECT_NE(list->childAt(pane->geometry().center()), pane);
}

}  // namespace
}  // namespace pnl::test
