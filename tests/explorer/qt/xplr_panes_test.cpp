// SPDX-License-Identifier: MIT
// What the explorer's tree, list and name field do when they are pressed, resized, painted anew or left.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <memory>
#include <vector>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "explorer/qt/xplr_form.h"
#include "support/text_catcher.h"
#include "support/widget_probe.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "window/qt/qt_window_system.h"

namespace pnl::test {
namespace {

// ---------------------------------------------------------------- the tree

class XplrTreePaneTest : public testing::Test {
 protected:
  XplrTreePaneTest() {
    window.resize(300, 240);
    tree->resize(300, 200);
    other->setGeometry(0, 210, 50, 20);
    other->setFocusPolicy(Qt::StrongFocus);
    QPalette odd = window.palette();
    odd.setColor(QPalette::Text, Qt::red);
    odd.setColor(QPalette::HighlightedText, Qt::red);
    window.setPalette(odd);
    tree->SetLook(8, {});
    XplrNode node;
    for (int i = 0; i < 40; ++i) {
      node.text = Text(u"N") + static_cast<char16_t>(u'0' + i % 10);
      nodes.Add(kNoNode, node);
    }
    tree->AddNodes(nodes, kNoNode, 0, 40);
    other->setFocus();
    Activate(window);
  }
  [[nodiscard]] QRect Row(int row) const { return tree->visualItemRect(tree->topLevelItem(row)); }

  QWidget window;
  ZCFolderTree* tree = new ZCFolderTree(1, &window);
  QWidget* other = new QWidget(&window);
  XplrNodes nodes;
};

TEST_F(XplrTreePaneTest, ItsRowsAndItsScrollBarAreWideEnoughForAFinger) {
  EXPECT_GE(Row(0).height(), FingerPixels(*tree)) << "whatever its font is";
  EXPECT_GE(tree->verticalScrollBar()->width(), FingerPixels(*tree));
}

TEST_F(XplrTreePaneTest, ItsTextsHaveItsOwnColours) {
  EXPECT_EQ(tree->palette().color(QPalette::Text), QColor(Qt::black));
  EXPECT_EQ(tree->palette().color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST_F(XplrTreePaneTest, ItScrollsToTheNodeThatIsOpened) {
  EXPECT_GT(Row(39).top(), tree->viewport()->height());
  tree->OpenNode(nodes.Children(kNoNode)[39]);
  EXPECT_GE(Row(39).top(), 0);
  EXPECT_LT(Row(39).center().y(), tree->viewport()->height());
}

TEST_F(XplrTreePaneTest, TheFirstNodeIsTheCurrentOneOnceItHasTheFocus) {
  EXPECT_EQ(tree->currentItem(), nullptr);
  tree->setFocus();
  EXPECT_EQ(tree->currentItem(), tree->topLevelItem(0));
  EXPECT_EQ(tree->SelectedNode(), nullptr);
}

TEST_F(XplrTreePaneTest, ItScrollsByPixels) {
  tree->verticalScrollBar()->setValue(1);
  EXPECT_EQ(Row(0).top(), -1);
}

TEST_F(XplrTreePaneTest, ItPaintsItsRowsAnewWhenTheFocusComesAndGoes) {
  EXPECT_GT(PaintsAfter(*tree->viewport(), [&] { tree->setFocus(); }), 0);
  EXPECT_GT(PaintsAfter(*tree->viewport(), [&] { other->setFocus(); }), 0);
}

// ---------------------------------------------------------------- the list

class XplrListPaneTest : public testing::Test {
 protected:
  XplrListPaneTest() {
    window.resize(640, 400);
    list->resize(640, 300);
    other->setGeometry(0, 360, 50, 20);
    other->setFocusPolicy(Qt::StrongFocus);
    list->SetLook(18, {});
    list->SetTitles({"Name", "Size", "Date"});
    std::vector<XplrRow> rows(50);
    for (XplrRow& row : rows) {
      row.name = u"HILL.NC";
      row.flags = item_flag::kSelectable;
    }
    list->SetRows(std::make_shared<const std::vector<XplrRow>>(rows));
    other->setFocus();
    Activate(window);
  }
  [[nodiscard]] QRect Row(int row) const { return list->visualRect(list->model()->index(row, 0)); }
  [[nodiscard]] std::vector<int> Selected() const {
    std::vector<int> rows;
    for (const QModelIndex& index : list->selectionModel()->selectedRows()) rows.push_back(index.row());
    return rows;
  }

  QWidget window;
  ZCXPLRList* list = new ZCXPLRList(1, &window);
  QWidget* other = new QWidget(&window);
};

TEST_F(XplrListPaneTest, OneRowAtATimeIsSelected) {
  list->setFocus();
  list->SelectRow(1);
  PressKey(list, Qt::Key_Down, {}, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), std::vector{2});
}

TEST_F(XplrListPaneTest, TheFirstRowIsTheCurrentOneOnceItHasTheFocus) {
  EXPECT_FALSE(list->currentIndex().isValid());
  list->setFocus();
  EXPECT_EQ(list->currentIndex().row(), 0);
  EXPECT_TRUE(Selected().empty());
}

TEST_F(XplrListPaneTest, APressSelectsItsRowBeforeItIsReported) {
  std::vector<std::pair<char, int>> events;
  QObject::connect(list, &ZCXPLRList::RowSelected, list, [&](int row) { events.emplace_back('s', row); });
  QObject::connect(list, &ZCXPLRList::RowClicked, list, [&](int row) { events.emplace_back('c', row); });
  PressMouse(list->viewport(), Row(2).center());
  EXPECT_EQ(events, (std::vector<std::pair<char, int>>{{'s', 2}, {'c', 2}}));
  EXPECT_EQ(Selected(), std::vector{2});
}

TEST_F(XplrListPaneTest, ItsLastRowIsReachedWhateverItsHeight) {
  for (const int height : {300, 150, 350}) {
    list->resize(640, height);
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    const int left = list->viewport()->height() - 1 - Row(49).bottom();
    EXPECT_GE(left, 0) << height;
    EXPECT_LT(left, Row(49).height()) << "nothing is beyond it";
  }
}

TEST_F(XplrListPaneTest, ItPaintsItsRowsAnewWhenTheyLookOtherwise) {
  QWidget& rows = *list->viewport();
  EXPECT_GT(PaintsAfter(rows, [&] { list->setFocus(); }), 0) << "the focus";
  EXPECT_GT(PaintsAfter(rows, [&] { list->SelectRow(1); }), 0);
  EXPECT_GT(PaintsAfter(rows, [&] { list->MarkTyped(2); }), 0) << "the letters that were typed";
  EXPECT_GT(PaintsAfter(rows, [&] { list->SelectRow(-1); }), 0) << "no row is selected any more";
  EXPECT_GT(PaintsAfter(rows, [&] { other->setFocus(); }), 0);
}

TEST_F(XplrListPaneTest, ItsModelAnnouncesThatItsRowsChange) {
  QStringList order;
  const QAbstractItemModel& model = *list->model();
  QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, list,
                   [&] { order << QStringLiteral("before %1").arg(model.rowCount()); });
  QObject::connect(&model, &QAbstractItemModel::modelReset, list,
                   [&] { order << QStringLiteral("after %1").arg(model.rowCount()); });
  list->SetRows(std::make_shared<const std::vector<XplrRow>>(3));
  EXPECT_EQ(order, QStringList({"before 50", "after 3"}));
}

TEST_F(XplrListPaneTest, TheLettersAfterTheTypedOnesKeepTheirColour) {
  list->setFocus();
  list->SelectRow(1);
  list->MarkTyped(1);
  const QImage image = Paint(*list->viewport());
  const int mark = QFontMetrics(list->RowFont()).horizontalAdvance(u'H');
  int right = 0;
  for (int x = 0; x < list->columnWidth(0); ++x) {
    if (Count(image, 0x60D8FF, QRect(x, Row(1).top(), 1, Row(1).height())) > 0) right = x;
  }
  ASSERT_GE(right, mark - 1);
  const QRect rest(right + 1, Row(1).top(), list->columnWidth(0) - right - 1, Row(1).height());
  EXPECT_EQ(Count(image, 0, rest), 0) << "no black letter on the ground of the selection";
  EXPECT_GT(Count(image, 0xffffff, rest), 0);
}

TEST_F(XplrListPaneTest, NothingLeavesItsColumnHoweverNarrowItIs) {
  XplrRow folder;
  folder.name = u"HHHHHHHH";
  folder.flags = item_flag::kFolder;
  list->SetRows(std::make_shared<const std::vector<XplrRow>>(std::vector{folder}));
  QPixmap icon(16, 16);
  icon.fill(Qt::blue);
  list->SetLook(18, {icon.size(), {icon, icon, icon}});
  for (const int width : {150, 120, 100, 80, 60, 50, 45, 40}) {
    list->resize(width, 300);
    const QImage image = Paint(*list->viewport());
    const QRect size(list->columnViewportPosition(1), Row(0).top(), list->columnWidth(1), Row(0).height());
    EXPECT_TRUE(Ink(image, 10595253, size).isEmpty()) << width;
  }
}

TEST_F(XplrListPaneTest, ADateThatIsTooWideKeepsItsDay) {
  XplrRow file;
  file.name = u"A";
  file.shownTime = 0;
  list->SetRows(std::make_shared<const std::vector<XplrRow>>(std::vector{file}));
  const QString whole = ToQString(DateText(file));
  const auto drawn = [this] { return TextsOf(*list->viewport()); };
  list->resize(640, 300);
  EXPECT_TRUE(drawn().contains(whole));
  int width = 640;
  while (width > 100 && drawn().contains(whole)) list->resize(width -= 5, 300);
  EXPECT_TRUE(drawn().contains(whole.section(u' ', 0, 0))) << drawn().join(" | ").toStdString();
}

/// Lets a test draw as the view does that is the list's base.
class DrawnList final : public ZCXPLRList {
 public:
  using ZCXPLRList::DrawReportRow;
  using ZCXPLRList::ZCXPLRList;
};

TEST(XplrListRowTest, ARowThatHasGoneIsNotDrawn) {
  DrawnList list(1, nullptr);
  list.SetLook(18, {});
  list.SetRows(std::make_shared<const std::vector<XplrRow>>(2));
  for (const int row : {-1, 0, 1, 2, 1'000'000}) {
    QImage image(100, 20, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    list.DrawReportRow(painter, image.rect(), row);
    painter.end();
    const bool there = row == 0 || row == 1;
    EXPECT_EQ(Ink(image, 0xFF00FF).isEmpty(), !there) << row;
  }
}

TEST_F(XplrListPaneTest, ItsRowsHaveNoRowsBelowThem) {
  const QModelIndex row = list->model()->index(0, 0);
  EXPECT_EQ(list->model()->rowCount(row), 0);
  EXPECT_EQ(list->model()->columnCount(row), 0);
}

// ---------------------------------------------------------------- what lies over them

TEST_F(XplrListPaneTest, ThePreviewHasTheFontOfTheRows) {
  list->ShowPreview({true, u"A.NC", {u"G0"}});
  const std::string font = std::to_string(MakeFont("Courier New", 18, 400)->pixelSize()) + " px weight 400";
  EXPECT_THAT(StrokesOf(*list->findChild<XplrPreviewPane*>()), testing::Contains(testing::HasSubstr(font)));
}

TEST_F(XplrListPaneTest, NothingUnderThePreviewIsPaintedWithIt) {
  list->ShowPreview({true, u"A.NC", {u"G0"}});
  auto* pane = list->findChild<XplrPreviewPane*>();
  EXPECT_EQ(PaintsAfter(*list->viewport(), [&] { pane->update(); }), 0);
  EXPECT_GT(PaintsAfter(*pane, [&] { list->ShowPreview({true, u"A.NC", {u"G1"}}); }), 0);
}

TEST(XplrPreviewTextTest, NameAndLinesAreCutAtTheirMargins) {
  XplrPreviewPane pane(nullptr);
  pane.resize(300, 200);
  pane.SetLook(18);
  QPalette odd = pane.palette();
  odd.setColor(QPalette::WindowText, Qt::red);
  pane.setPalette(odd);
  const QString text(200, u'H');
  pane.Show({true, FromQString(text), {FromQString(text)}});
  const auto cut = [&](const char* face, int weight) {
    return QFontMetrics(*MakeFont(face, 18, weight)).elidedText(text, Qt::ElideRight, 300 - 2 * 8);
  };
  EXPECT_EQ(TextsOf(pane), QStringList({cut("Arial", 600), cut("Courier New", 400)}));
  const QImage image = Paint(pane);
  EXPECT_GT(Count(image, 0), 0) << "black";
  EXPECT_EQ(Count(image, 0x0000FF), 0);
}

// ---------------------------------------------------------------- the name

/// A form that hears of the focus of its name field.
class NameForm final : public MessageWindow {
 public:
  NameForm() : MessageWindow(nullptr) {
    resize(300, 100);
    name->resize(200, 30);
    other->setFocusPolicy(Qt::StrongFocus);
    Activate(*this);
    other->setFocus();
    heard.clear();
  }
  QtWindowSystem windows{WindowRegistry::Instance()};
  ZCEdit* name = new ZCEdit(7, windows, Handle(), this);
  QWidget* other = new QWidget(this);
  std::vector<std::intptr_t> heard;

 protected:
  std::intptr_t OnMessage(const Message& message) override {
    heard.push_back(message.first);
    return 0;
  }
};

TEST(XplrNameTest, ItIsPaintedInTheColoursOfItsFocus) {
  NameForm form;
  const auto ground = [&] {
    Paint(*form.name);
    return form.name->palette().color(QPalette::Base);
  };
  EXPECT_EQ(ground(), ToQColor(10595253));
  form.name->setFocus();
  EXPECT_EQ(ground(), ToQColor(660510));
  form.other->setFocus();
  EXPECT_EQ(ground(), ToQColor(10595253));
  EXPECT_EQ(form.heard, (std::vector<std::intptr_t>{7, 7})) << "its form hears of both";
}

}  // namespace
}  // namespace pnl::test
