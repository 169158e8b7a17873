// SPDX-License-Identifier: MIT
// The drop list and the keys beside it: how they look, what lies over what, what is painted again, and who has the
// focus.
#include <QScrollBar>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "mdi/qt/mdi_list_key.h"
#include "mdi/qt/mdi_list_window.h"
#include "mdi_stage.h"
#include "support/painted_texts.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kKeyGround = 0x3B3024;
constexpr std::uint32_t kKeyPressed = 0xB26F1F;
constexpr std::uint32_t kKeyEdge = 0xFFB24D;

class MdiListKeyLook : public testing::Test {
 protected:
  MdiListKeyLook() {
    panel.resize(300, 200);
    key.setText("Pin");
    key.setGeometry(10, 10, 150, 40);
    Activate(panel);
    key.show();
    Settle();
  }
  /// The text as it is painted.
  PaintedText Word() {
    const std::vector<PaintedText> texts = PaintedTextsOf(key);
    EXPECT_EQ(texts.size(), 1u);
    return texts.empty() ? PaintedText() : texts.front();
  }
  QWidget panel;
  MdiListKey key{QStringLiteral("key"), &panel};
};

TEST(MdiListKeyTest, IsNotShownWithItsPanel) {
  QWidget panel;
  const MdiListKey key(QStringLiteral("key"), &panel);
  panel.show();
  EXPECT_FALSE(key.isVisible());
}

TEST_F(MdiListKeyLook, HasAnEdgeAndAGroundThatChangesWhileItIsPressed) {
  for (const bool pressed : {false, true}) {
    key.setDown(pressed);
    const QImage image = Paint(key);
    EXPECT_EQ(ColorAt(image, 5, 5), pressed ? kKeyPressed : kKeyGround);
    for (const QPoint place : {QPoint(0, 20), QPoint(149, 20), QPoint(75, 0), QPoint(75, 39)}) {
      EXPECT_EQ(ColorAt(image, place.x(), place.y()), kKeyEdge) << place.x() << "," << place.y();
    }
  }
}

TEST_F(MdiListKeyLook, AWordOnAKeyThatCantBePressedIsDimmerAndStillReadable) {
  EXPECT_EQ(Word().ink, QColor(0xee, 0xf3, 0xf7));
  EXPECT_GE(Word().contrast, 4.5);
  key.setEnabled(false);
  EXPECT_EQ(Word().ink, QColor(0x9f, 0xb0, 0xc0));
  EXPECT_GE(Word().contrast, 4.5);
}

TEST_F(MdiListKeyLook, AWordThatJustFitsKeepsItsSize) {
  const auto widthOn = [this](int width) {
    key.resize(width, 40);
    return Ink(Paint(key), kKeyGround, key.rect().adjusted(2, 2, -2, -2)).width();
  };
  key.setText("HHHHHHHH");
  const int margins = 12;
  const int word = QFontMetrics(MakeFont("Arial", -15, 600).value()).horizontalAdvance(key.text());
  EXPECT_EQ(widthOn(word + margins), widthOn(280));
  EXPECT_LT(widthOn(word + margins - 1), widthOn(280));
}

TEST_F(MdiListKeyLook, ItsWordIsInTheMiddleWhateverItsHeight) {
  const QFontMetrics metrics(MakeFont("Arial", -15, 600).value());
  key.setText("H");
  for (const int height : {40, 41}) {
    key.resize(150, height);
    const QRect letter = Ink(Paint(key), kKeyGround, key.rect().adjusted(2, 2, -2, -2));
    EXPECT_EQ(letter.bottom() + 1, (height - CellHeight(metrics)) / 2 + metrics.ascent()) << height;
    EXPECT_NEAR(letter.center().x(), 75, 1);
  }
}

TEST_F(MdiListKeyLook, APressLeavesTheFocusWhereItIs) {
  auto* field = new QLineEdit(&panel);
  field->show();
  field->setFocus();
  PressMouse(&key, QPoint(5, 5));
  EXPECT_TRUE(field->hasFocus());
}

class DropOwner : public MessageWindow {
 public:
  explicit DropOwner(QWidget* parent) : MessageWindow(parent) {}
  int verdicts = 0;
  std::function<void()> onVerdict;

 protected:
  std::intptr_t OnMessage(const Message& /*message*/) override {
    ++verdicts;
    if (onVerdict) onVerdict();
    return 0;
  }
};

class MdiDropLook : public testing::Test {
 protected:
  MdiDropLook() {
    panel.resize(400, 300);
    other->setGeometry(0, 260, 100, 30);
    Activate(panel);
  }
  ~MdiDropLook() override { Settle(); }
  void Open(const QRect& place = {10, 20, 200, 150}, bool keysAbove = false) {
    list->Open(place, keysAbove);
    list->ShowKeys({u"Arrange", u"Pin", true, u"Refused"});
    Settle();
  }
  /// Rows without marks, none of them selected.
  static MdiDropRows Rows(int count) {
    MdiDropRows rows;
    for (int row = 0; row < count; ++row) rows.items.push_back(u"G1");
    rows.marks.assign(static_cast<std::size_t>(count), MdiRowMark::kNone);
    rows.selected = -1;
    return rows;
  }
  [[nodiscard]] ListBox* Items() const { return list->findChild<ListBox*>(); }
  [[nodiscard]] QAbstractButton* KeyOf(const char* name) const { return panel.findChild<QAbstractButton*>(name); }
  [[nodiscard]] QAbstractButton* Arrange() const { return KeyOf(ZCMDIList::kArrangeKey); }
  [[nodiscard]] QAbstractButton* Pin() const { return KeyOf(ZCMDIList::kPinKey); }

  QtWindowSystem windows{WindowRegistry::Instance()};
  QWidget panel;
  QPointer<DropOwner> owner = new DropOwner(&panel);
  QLineEdit* other = new QLineEdit(&panel);
  QPointer<ZCMDIList> list = new ZCMDIList(windows, *owner, &panel);
};

TEST_F(MdiDropLook, IsNotShownWithItsPanel) {
  QWidget second;
  const auto* hidden = new ZCMDIList(windows, *owner, &second);
  second.show();
  EXPECT_FALSE(hidden->isVisible());
}

TEST_F(MdiDropLook, WhoeverGivesItTheFocusGivesItToItsRows) {
  Open();
  Items()->clearFocus();
  list->setFocus();
  EXPECT_TRUE(Items()->hasFocus());
}

TEST_F(MdiDropLook, OnlyTheOperatorsChoiceOfARowIsReported) {
  int moved = 0;
  QObject::connect(list, &ZCMDIList::SelectionMoved, list, [&moved] { ++moved; });
  list->ShowRows(Rows(3));
  Open();
  EXPECT_EQ(moved, 0);
  PressKey(Items(), Qt::Key_Down);
  EXPECT_EQ(moved, 1);
  PressKey(Items(), Qt::Key_Down);
  EXPECT_EQ(moved, 2);
  list->ShowRows(Rows(2));
  EXPECT_EQ(moved, 2);
  list->Dismiss();
  Items()->Select(1);
  EXPECT_EQ(moved, 2) << "after its end";
}

TEST_F(MdiDropLook, RowsThatStayTheSameStayWhereTheyWereScrolledTo) {
  list->ShowRows(Rows(40));
  Open();
  QScrollBar* bar = Items()->verticalScrollBar();
  ASSERT_GT(bar->maximum(), 0);
  bar->setValue(bar->maximum() / 2);
  const int place = bar->value();
  MdiDropRows rows = Rows(40);
  rows.marks[3] = MdiRowMark::kPinned;
  list->ShowRows(rows);
  EXPECT_EQ(Items()->currentIndex().row(), -1);
  EXPECT_EQ(bar->value(), place);
}

TEST_F(MdiDropLook, AMarkThatComesAloneIsPainted) {
  list->ShowRows(Rows(3));
  Open();
  const PaintCounter painted(*Items()->viewport());
  MdiDropRows rows = Rows(3);
  rows.marks[1] = MdiRowMark::kPinned;
  list->ShowRows(rows);
  Settle();
  EXPECT_GT(painted.Count(), 0);
}

TEST_F(MdiDropLook, ItsKeysHaveTheirWordsAndShareItsWidth) {
  Open({10, 60, 200, 150}, true);
  EXPECT_EQ(Arrange()->text(), "Arrange");
  EXPECT_EQ(Pin()->text(), "Pin");
  EXPECT_EQ(Arrange()->geometry().bottom() + 1, 60);
  EXPECT_EQ(Arrange()->x(), 10);
  EXPECT_EQ(Arrange()->width(), 200 * 3 / 5) << "its words are longer";
  EXPECT_EQ(Pin()->geometry(), QRect(10 + 120, Arrange()->y(), 80, Arrange()->height()));
}

TEST_F(MdiDropLook, WithoutRoomBesideItItsKeysAreOverItsEnd) {
  Open({10, 0, 200, 300}, true);
  EXPECT_EQ(Arrange()->y(), 0);
  EXPECT_EQ(panel.childAt(Arrange()->geometry().center()), Arrange());
  EXPECT_EQ(panel.childAt(Pin()->geometry().center()), Pin());
  list->Open({10, 0, 200, 300}, false);
  list->ShowKeys({u"Arrange", u"Pin", true, u"Refused"});
  EXPECT_EQ(Arrange()->geometry().bottom(), panel.height() - 1);
}

TEST_F(MdiDropLook, LiesOverWhatThePanelHasShownSince) {
  QWidget cover(&panel);
  cover.setGeometry(panel.rect());
  cover.show();
  Open();
  EXPECT_TRUE(list->isAncestorOf(panel.childAt(list->geometry().center())));
}

TEST_F(MdiDropLook, IsHiddenAtOnceWhenItIsDismissed) {
  Open();
  list->Dismiss();
  EXPECT_FALSE(list->isVisible());
  EXPECT_FALSE(Arrange()->isVisible());
  EXPECT_FALSE(Pin()->isVisible());
}

TEST_F(MdiDropLook, OutlivesKeysThatSomebodyElseDestroys) {
  Open();
  delete Arrange();
  delete Pin();
  list->ShowKeys({u"Arrange", u"Pin", true, u"Refused"});
  list->Dismiss();
  EXPECT_FALSE(list->isVisible());
}

TEST_F(MdiDropLook, SendsNoVerdictWhileItIsDestroyed) {
  list->ShowRows(Rows(3));
  Open();
  PressKey(Items(), Qt::Key_Down);
  int moved = 0;
  QObject::connect(list, &ZCMDIList::SelectionMoved, owner, [&moved] { ++moved; });
  // A host that never leaves the panel without a focus.
  QObject::connect(qApp, &QApplication::focusChanged, &panel, [this](QWidget* /*before*/, QWidget* now) {
    if (now == nullptr) other->setFocus();
  });
  delete list;
  EXPECT_TRUE(other->hasFocus());
  Settle();
  EXPECT_EQ(owner->verdicts, 0);
  EXPECT_EQ(moved, 0);
}

TEST_F(MdiDropLook, TheFocusGoesToNoWidgetThatTheVerdictHasHidden) {
  Open();
  auto* mine = new QLineEdit(owner);
  owner->setGeometry(300, 0, 50, 50);
  mine->show();
  owner->onVerdict = [this, mine] {
    list->Dismiss();
    other->hide();
    mine->setFocus();
  };
  other->setFocus(Qt::MouseFocusReason);
  ASSERT_EQ(owner->verdicts, 1);
  EXPECT_EQ(QApplication::focusWidget(), mine);
  other->show();
  EXPECT_EQ(QApplication::focusWidget(), mine) << "nor when it is shown again";
}

TEST_F(MdiDropLook, TakesItsKeysAlsoFromAHostThatOffersThemAsRefused) {
  Open();
  for (const int code : {Qt::Key_Insert, Qt::Key_Backspace, Qt::Key_A, Qt::Key_Return}) {
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, code == Qt::Key_A ? "a" : "");
    press.ignore();
    QApplication::sendEvent(Items(), &press);
    EXPECT_TRUE(press.isAccepted()) << code;
  }
}

TEST_F(MdiDropLook, ItsRowsFillItHoweverNarrowItIs) {
  Open();
  list->resize(1, 50);
  EXPECT_EQ(Items()->geometry(), QRect(0, 0, 1, 50));
  list->resize(50, 1);
  EXPECT_EQ(Items()->geometry(), QRect(0, 0, 50, 1));
}

}  // namespace
}  // namespace pnl::test
