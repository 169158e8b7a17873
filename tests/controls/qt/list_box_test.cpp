// SPDX-License-Identifier: MIT
#include "controls/list_box.h"

#include <functional>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/list_note.h"
#include "paint_counter.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    box.SetColors(0x78643C, 0xFFFFFF);
    box.SetSelectedColors(0xD3BF97, 0x000001);
    box.SetFont("Arial", 18, 600);
    box.resize(200, 150);
  }
  [[nodiscard]] std::vector<Text> Items() const {
    std::vector<Text> items;
    for (int i = 0; i < box.Count(); ++i) items.push_back(box.Item(i));
    return items;
  }
  ListBox box{5001, nullptr};
};

TEST_F(ListBoxTest, NothingIsSelectedAfterFilling) {
  box.SetItems({u"a", u"b"});
  EXPECT_EQ(box.Selection(), -1);
  box.Select(1);
  EXPECT_EQ(box.Selection(), 1);
  box.SetItems({u"a", u"b"});
  EXPECT_EQ(box.Selection(), -1);
}

TEST_F(ListBoxTest, ANoteIsDrawnAtTheRightAndIsNoPartOfTheItem) {
  box.SetItems({u"a", u"b"});
  const auto right = [this](int row) {
    const QRect place = box.visualRect(box.model()->index(row, 0));
    return Count(Paint(*box.viewport()).copy(place.adjusted(place.width() / 2, 0, 0, 0)), 0xFFFFFF);
  };
  EXPECT_EQ(right(1), 0);
  box.SetNotes([](int row) { return row == 1 ? ListNote{u"8888", ListSign::kNone} : ListNote(); });
  EXPECT_EQ(right(0), 0);
  EXPECT_GT(right(1), 20);
  EXPECT_EQ(box.Item(1), u"b");
  EXPECT_EQ(box.model()->index(1, 0).data().toString(), "b");
  EXPECT_EQ(box.Note(7), ListNote()) << "no such row, so nobody is asked";
  box.SetNotes({});
  EXPECT_EQ(right(1), 0);
}

TEST_F(ListBoxTest, ALongItemLeavesTheNoteItsRoom) {
  box.SetItems({Text(200, u'8')});
  box.SetNotes([](int) { return ListNote{u"", ListSign::kCross}; });
  const QRect row = box.visualRect(box.model()->index(0, 0));
  const QImage painted = Paint(*box.viewport());
  EXPECT_EQ(Count(painted.copy(QRect(row.right() - 30, row.top(), 6, row.height())), 0xFFFFFF), 0)
      << "nothing is drawn between item and sign";
  const QRect sign(row.right() - 22, row.top(), 16, row.height());
  EXPECT_LT(Count(painted, 0x3C6478, sign), sign.width() * sign.height() - 20) << "its edges are soft";
}

TEST_F(ListBoxTest, ANoteThatLeadsIsWholeAndItsItemGivesWay) {
  const std::uint32_t ground = box.BackColor();
  const Text words = u"= 8888888888";
  const int needed = QFontMetrics(box.font()).horizontalAdvance(ToQString(words));
  box.resize(needed * 4 / 3 + 12, 200);
  box.SetItems({Text(200, u'8'), u""});
  const auto ink = [this, ground](int index, bool leads, const Text& text) {
    box.SetNotes([=](int) { return ListNote{text, ListSign::kNone, leads}; });
    const QImage painted = Paint(*box.viewport());
    return Ink(painted, ground, box.visualRect(box.model()->index(index, 0)));
  };
  const QRect whole = ink(1, true, words);
  EXPECT_NEAR(whole.width(), needed, 4) << "beyond the middle of the row";
  EXPECT_GT(ink(1, false, words).left(), box.width() / 2 - 2) << "one that doesn't lead is cut";
  // The item has what is left, and a gap.
  const QImage both = [&] {
    box.SetNotes([&](int) { return ListNote{words, ListSign::kNone, true}; });
    return Paint(*box.viewport());
  }();
  const QRect first = box.visualRect(box.model()->index(0, 0));
  EXPECT_TRUE(Ink(both, ground, QRect(whole.left() - 10, first.top(), 8, first.height())).isEmpty());
  EXPECT_FALSE(Ink(both, ground, QRect(0, first.top(), whole.left() - 10, first.height())).isEmpty());
  // Longer words have smaller letters, which still can be read.
  const QRect smaller = ink(1, true, u"= 888888888888");
  EXPECT_LT(smaller.height(), whole.height());
  EXPECT_LE(smaller.width(), box.width() - 12);
  EXPECT_GE(ink(1, true, Text(300, u'8')).height(), 8);
}

TEST_F(ListBoxTest, ItemsHaveNoItemsBelowThem) {
  ListBoxModel items;
  items.SetItems({u"a", u"b"});
  EXPECT_EQ(items.rowCount({}), 2);
  EXPECT_EQ(items.rowCount(items.index(0)), 0);
}

TEST_F(ListBoxTest, InsertingKeepsTheSelectedItemSelected) {
  box.SetItems({u"a", u"b"});
  box.Select(1);
  box.Insert(0, u"first");
  EXPECT_EQ(box.Selection(), 2);
  box.Insert(99, u"last");
  EXPECT_EQ(Items(), (std::vector<Text>{u"first", u"a", u"b", u"last"}));
}

TEST_F(ListBoxTest, ADeletedSelectionLeavesNone) {
  box.SetItems({u"a", u"b", u"c"});
  box.Select(1);
  box.Delete(1);
  EXPECT_EQ(box.Selection(), -1);
  box.Select(1);
  box.Delete(0);
  EXPECT_EQ(box.Selection(), 0);
  EXPECT_EQ(box.Item(0), u"c");
}

TEST_F(ListBoxTest, WrongIndicesAreLeftAlone) {
  box.SetItems({u"a"});
  box.Select(0);
  box.Select(5);
  box.Select(-7);
  EXPECT_EQ(box.Selection(), 0);
  box.Delete(3);
  box.Replace(-1, u"x");
  EXPECT_EQ(Items(), std::vector<Text>{u"a"});
  EXPECT_EQ(box.Item(4), u"");
  box.Select(-1);
  EXPECT_EQ(box.Selection(), -1);
}

TEST_F(ListBoxTest, PaintsItsColoursAlsoWhenDisabled) {
  box.SetItems({u"HHHH", u"HHHH"});
  box.Select(1);
  for (const bool enabled : {true, false}) {
    box.setEnabled(enabled);
    box.show();
    Settle();
    const QImage image = Paint(*box.viewport());
    EXPECT_EQ(ColorAt(image, 150, 10), 0x78643Cu);
    EXPECT_EQ(ColorAt(image, 150, box.RowHeight() + 10), 0xD3BF97u);
    EXPECT_GT(Count(image, 0xFFFFFF), 10);
    EXPECT_GT(Count(image, 0x000001), 10);
    EXPECT_EQ(ColorAt(image, 150, 140), 0x78643Cu);
  }
}

TEST_F(ListBoxTest, RowsAreHighEnoughForAFinger) {
  EXPECT_GE(box.RowHeight(), FingerPixels(box));
  box.SetItems({u"a"});
  EXPECT_EQ(box.sizeHintForRow(0), box.RowHeight());
}

TEST_F(ListBoxTest, RowsAreAsHighAsWishedButNeverTooLowForAFinger) {
  box.SetItems({u"a", u"b"});
  const int usual = box.RowHeight();
  box.SetLeastRowHeight(usual + 25);
  EXPECT_EQ(box.RowHeight(), usual + 25);
  EXPECT_EQ(box.visualRect(box.model()->index(1, 0)).top(), usual + 25);
  box.SetLeastRowHeight(1);
  EXPECT_EQ(box.RowHeight(), usual);
}

TEST_F(ListBoxTest, AFullListHasABarForAFinger) {
  box.SetItems(TextRows(std::vector<Text>(10000, u"G0 X1")));
  box.show();
  Settle();
  EXPECT_TRUE(box.verticalScrollBar()->isVisible());
  EXPECT_GE(box.verticalScrollBar()->width(), FingerPixels(box));
}

TEST_F(ListBoxTest, HandsItsTextsToWhoeverReadsTheModel) {
  box.SetItems({u"G0 X1"});
  EXPECT_EQ(box.model()->index(0, 0).data().toString(), "G0 X1");
  EXPECT_FALSE(box.model()->index(0, 0).data(Qt::DecorationRole).isValid());
}

TEST_F(ListBoxTest, AnExtendedOneTakesSeveralAndTellsThemInOrder) {
  box.SetExtended(true);
  box.SetItems({u"a", u"b", u"c", u"d"});
  EXPECT_TRUE(box.Selected().empty());
  EXPECT_EQ(box.Current(), -1);
  auto* selection = box.selectionModel();
  for (const int row : {3, 0, 1}) selection->select(box.model()->index(row, 0), QItemSelectionModel::Select);
  EXPECT_EQ(box.Selected(), (std::vector<int>{0, 1, 3}));
  EXPECT_EQ(box.Selection(), 0);
}

TEST_F(ListBoxTest, DeletingFromAnExtendedOneSelectsNoNeighbour) {
  box.SetExtended(true);
  box.SetItems({u"a", u"b", u"c", u"d"});
  auto* selection = box.selectionModel();
  for (const int row : {1, 3}) selection->select(box.model()->index(row, 0), QItemSelectionModel::Select);
  box.Delete(1);
  EXPECT_EQ(box.Selected(), (std::vector<int>{2})) << "the other one stays selected";
  box.Delete(2);
  EXPECT_TRUE(box.Selected().empty());
}

TEST_F(ListBoxTest, ATouchedRowAndTheKeysUpAndDownAreTold) {
  box.SetItems({u"a", u"b"});
  box.show();
  int walked = 0;
  QObject::connect(&box, &ListBox::Walked, &box, [&walked] { ++walked; });
  const QPoint row = box.visualRect(box.model()->index(1, 0)).center();
  PressMouse(box.viewport(), row);
  EXPECT_EQ(walked, 1);
  PressMouse(box.viewport(), row);
  EXPECT_EQ(walked, 2) << "the selection is as before";
  PressMouse(box.viewport(), row, QEvent::MouseButtonPress, Qt::RightButton);
  PressMouse(box.viewport(), QPoint(5, 140));
  PressMouse(box.viewport(), row, QEvent::MouseButtonRelease);
  EXPECT_EQ(walked, 2) << "another button, no row, no press";
  PressKey(&box, Qt::Key_Up);
  PressKey(&box, Qt::Key_Up);
  EXPECT_EQ(walked, 4) << "at the first row too";
  PressKey(&box, Qt::Key_Home);
  EXPECT_EQ(walked, 4);
}

TEST_F(ListBoxTest, TheFirstDownGoesToTheFirstItem) {
  QWidget window;
  auto* inside = new ListBox(1, &window);
  inside->SetItems({u"a", u"b"});
  Activate(window);
  inside->setFocus(Qt::OtherFocusReason);
  EXPECT_EQ(inside->Current(), -1);
  PressKey(inside, Qt::Key_Down);
  EXPECT_EQ(inside->Selection(), 0);
}

TEST_F(ListBoxTest, StartsWithTheSystemsColours) {
  const ListBox fresh(1, nullptr);
  EXPECT_EQ(fresh.BackColor(), 0xFFFFFFu);
  EXPECT_EQ(fresh.TextColor(), 0u);
  EXPECT_EQ(fresh.SelectedBackColor(), 0xD07400u);
  EXPECT_EQ(fresh.SelectedTextColor(), 0xFFFFFFu);
  EXPECT_EQ(fresh.palette().color(QPalette::Base), QColor(Qt::white));
  EXPECT_EQ(fresh.palette().color(QPalette::Button), QColor(Qt::white)) << "the bar has shades of the ground";
  EXPECT_EQ(fresh.frameWidth(), 0);
  EXPECT_EQ(ControlKind(&fresh), "list");
  EXPECT_EQ(fresh.Current(), -1);
  EXPECT_EQ(fresh.selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(ListBoxTest, AnItemLiesInTheMiddleOfItsRowBetweenTheMargins) {
  for (const char16_t* const text : {u"G0 &X1\tY2", u"a block that is much too long for the width of this list"}) {
    box.SetItems({text});
    box.show();
    Settle();
    QImage expected(200, box.RowHeight(), QImage::Format_RGB32);
    expected.fill(QColor(0x3C, 0x64, 0x78));
    QPainter painter(&expected);
    painter.setFont(box.font());
    painter.setPen(Qt::white);
    DrawText(painter, expected.rect().adjusted(6, 0, -6, 0), QString::fromUtf16(text),
             0x20 | 0x4 | 0x800 | 0x40 | 0x8000);
    painter.end();
    EXPECT_EQ(Paint(*box.viewport()).copy(expected.rect()), expected);
  }
}

TEST_F(ListBoxTest, ARowHasRoomForItsFont) {
  box.SetFont("Arial", 32, 400);
  EXPECT_EQ(box.RowHeight(), std::max(FingerPixels(box), CellHeight(QFontMetrics(box.font())) + 2));
  box.SetFont("Arial", 60, 400);
  EXPECT_EQ(box.RowHeight(), CellHeight(QFontMetrics(box.font())) + 2);
  box.SetFont("", 18, 400);
  EXPECT_EQ(box.RowHeight(), CellHeight(QFontMetrics(box.font())) + 2) << "a font that can't be had";
  box.SetFont("Arial", 12, 400);
  EXPECT_EQ(box.RowHeight(), FingerPixels(box));
}

TEST_F(ListBoxTest, ItemsComeInAtTheirPlaceAndChangeInIt) {
  box.SetItems({u"a", u"b"});
  box.Insert(2, u"end");
  box.Insert(1, u"middle");
  box.Insert(-1, u"last");
  EXPECT_EQ(Items(), (std::vector<Text>{u"a", u"middle", u"b", u"end", u"last"}));
  std::vector<int> changed;
  QObject::connect(box.model(), &QAbstractItemModel::dataChanged, &box,
                   [&](const QModelIndex& first) { changed.push_back(first.row()); });
  box.Replace(1, u"other");
  box.Replace(5, u"none");
  EXPECT_EQ(changed, std::vector<int>{1});
  EXPECT_EQ(box.Item(1), u"other");
  EXPECT_EQ(box.Item(5), u"");
  EXPECT_EQ(box.Item(-1), u"");
}

TEST_F(ListBoxTest, DownIsToldLikeUp) {
  box.SetItems({u"a", u"b"});
  box.show();
  int walked = 0;
  QObject::connect(&box, &ListBox::Walked, &box, [&walked] { ++walked; });
  PressKey(&box, Qt::Key_Down);
  EXPECT_EQ(walked, 1);
  EXPECT_EQ(box.Selection(), 0);
}

TEST_F(ListBoxTest, TheFocusIsToldWhenTheListHasHandledIt) {
  QWidget window;
  auto* inside = new ListBox(1, &window);
  inside->SetItems({u"a"});
  Activate(window);
  inside->clearFocus();
  std::vector<int> current;
  QObject::connect(inside, &ListBox::Focused, &window, [&] { current.push_back(inside->Current()); });
  inside->setFocus(Qt::OtherFocusReason);
  EXPECT_EQ(current, std::vector<int>{-1});
  inside->Select(0);
  inside->clearFocus();
  inside->setFocus(Qt::OtherFocusReason);
  EXPECT_EQ(current, (std::vector<int>{-1, 0})) << "the selected item stays the present one";
}

TEST_F(ListBoxTest, WhatChangesItsLookIsPaintedAtOnce) {
  box.SetItems(TextRows(std::vector<Text>(20, u"a")));
  box.show();
  Settle();
  const std::function<void()> changes[] = {
      [this] { box.SetSelectedColors(0x112233, 0xFFFFFF); },
      [this] { box.SetNotes([](int) {
                 return ListNote{u"1", ListSign::kNone};
               }); },
  };
  for (const auto& change : changes) {
    PaintCounter paints(*box.viewport());
    change();
    Settle();
    EXPECT_GE(paints.Count(), 1);
  }
  const int beyond = box.verticalScrollBar()->maximum();
  box.SetLeastRowHeight(box.RowHeight() + 10);
  Settle();
  EXPECT_EQ(box.verticalScrollBar()->maximum(), beyond + 200) << "higher rows need a longer way";
}

TEST_F(ListBoxTest, ItsTextsColourIsInItsPalette) {
  box.SetColors(0x78643C, 0x0000FF);
  EXPECT_EQ(box.palette().color(QPalette::Text), QColor(Qt::red));
}

TEST_F(ListBoxTest, FillingIsToldBeforeAndAfterwards) {
  std::vector<int> counts;
  const auto note = [&] { counts.push_back(box.Count()); };
  QObject::connect(box.model(), &QAbstractItemModel::modelAboutToBeReset, &box, note);
  QObject::connect(box.model(), &QAbstractItemModel::modelReset, &box, note);
  box.SetItems({u"a", u"b"});
  EXPECT_EQ(counts, (std::vector<int>{0, 2}));
}

TEST_F(ListBoxTest, MayBeDestroyedByWhoListens) {
  QWidget window;
  Activate(window);
  const std::function<void(ListBox&)> ways[] = {[](ListBox& list) { PressKey(&list, Qt::Key_Down); },
                                                [](ListBox& list) { PressMouse(list.viewport(), QPoint(5, 5)); }};
  for (const auto& way : ways) {
    const QPointer<ListBox> own = new ListBox(1, &window);
    own->SetItems({u"a"});
    own->resize(100, 50);
    own->show();
    Settle();
    QObject::connect(own, &ListBox::Walked, &window, [own] { delete own; });
    way(*own);
    EXPECT_TRUE(own.isNull());
    delete own;
  }
}

}  // namespace
}  // namespace pnl::test
