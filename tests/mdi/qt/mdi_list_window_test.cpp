// SPDX-License-Identifier: MIT
// The drop list with the history, alone and with the window that opens it.
#include "mdi/qt/mdi_list_window.h"

#include "mdi/qt/mdi_list_key.h"
#include "mdi_stage.h"

namespace pnl::test {
namespace {

class Owner : public MessageWindow {
 public:
  explicit Owner(QWidget* parent) : MessageWindow(parent) {}
  std::vector<std::string> verdicts;
  std::function<void()> onVerdict;

 protected:
  std::intptr_t OnMessage(const Message& message) override {
    verdicts.push_back(std::string(RegisteredMessageName(message.number)) + " " + std::to_string(message.first) + "," +
                       std::to_string(message.second));
    if (onVerdict) onVerdict();
    return 0;
  }
};

class ZCMDIListTest : public testing::Test {
 protected:
  ZCMDIListTest() {
    panel.resize(400, 300);
    other->setGeometry(0, 260, 100, 30);
    Activate(panel);
  }
  ~ZCMDIListTest() override { Settle(); }
  void Open(const TextRows& items) {
    list->SetColors(0x78643C, 0xFFFFFF);
    list->Fill(&items);
    list->Open({10, 20, 200, 150});
    Settle();
  }
  [[nodiscard]] ListBox* Items() const { return list->findChild<ListBox*>(); }
  [[nodiscard]] Text Picked() const {
    Text text;
    list->GetText(text);
    return text;
  }
  using Verdicts = std::vector<std::string>;

  QtWindowSystem windows{WindowRegistry::Instance()};
  QWidget panel;
  QPointer<Owner> owner = new Owner(&panel);
  QLineEdit* other = new QLineEdit(&panel);
  QPointer<ZCMDIList> list = new ZCMDIList(windows, *owner, &panel);
};

TEST_F(ZCMDIListTest, ShowsAllItemsWithTheFirstSelected) {
  Open({u"a", u"b"});
  EXPECT_EQ(Items()->Count(), 2);
  EXPECT_EQ(Items()->Selection(), 0);
  Text text;
  EXPECT_TRUE(list->GetSelected(text));
  EXPECT_EQ(text, u"a");
  list->Fill(nullptr);
  EXPECT_EQ(Items()->Count(), 0);
  EXPECT_FALSE(list->GetSelected(text));
  EXPECT_EQ(text, u"");
}

TEST_F(ZCMDIListTest, TheListBoxFillsTheDialog) {
  Open({u"a"});
  EXPECT_EQ(list->geometry(), QRect(10, 20, 200, 150));
  EXPECT_EQ(Items()->geometry(), QRect(0, 0, 200, 150));
  list->resize(100, 50);
  EXPECT_EQ(Items()->geometry(), QRect(0, 0, 100, 50));
  list->resize(100, 0);
  EXPECT_EQ(Items()->height(), 50) << "a size of nothing is left alone";
}

TEST_F(ZCMDIListTest, IsAWindowOfItsOwnOverThePanel) {
  Open({u"a"});
  EXPECT_FALSE(list->isWindow());
  EXPECT_TRUE(list->property("pnlDialog").toBool());
  EXPECT_NE(list->property("pnlWindow").toInt(), 0);
  EXPECT_EQ(ColorAt(Paint(panel), 150, 150), 0x78643Cu);
  EXPECT_TRUE(Items()->hasFocus());
}

TEST_F(ZCMDIListTest, EnterPicksTheSelectedText) {
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    list = new ZCMDIList(windows, *owner, &panel);
    Open({u"a", u"b"});
    PressKey(Items(), Qt::Key_Down);
    PressKey(Items(), key, "\r");
    EXPECT_EQ(Picked(), u"b");
  }
  EXPECT_EQ(owner->verdicts, (Verdicts{"MDI_ENDLIST 1,0", "MDI_ENDLIST 1,0"}));
}

TEST_F(ZCMDIListTest, ADoubleClickPicks) {
  Open({u"a", u"b"});
  const QPoint second = Items()->visualRect(Items()->model()->index(1, 0)).center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
    PressMouse(Items()->viewport(), second, type);
  }
  Settle();
  EXPECT_EQ(owner->verdicts, Verdicts{"MDI_ENDLIST 1,0"});
  EXPECT_EQ(Picked(), u"b");
}

TEST_F(ZCMDIListTest, AnEmptyListPicksAnEmptyText) {
  Open({});
  PressKey(Items(), Qt::Key_Return, "\r");
  EXPECT_EQ(owner->verdicts, Verdicts{"MDI_ENDLIST 1,0"});
  EXPECT_EQ(Picked(), u"");
}

TEST_F(ZCMDIListTest, EscapeCancelsAndForgetsTheText) {
  Open({u"a"});
  PressKey(Items(), Qt::Key_Escape);
  EXPECT_EQ(owner->verdicts, Verdicts{"MDI_ENDLIST 2,0"});
  EXPECT_EQ(Picked(), u"");
}

TEST_F(ZCMDIListTest, TabStaysInTheListAndIsNoVerdict) {
  Open({u"a", u"b"});
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    EXPECT_TRUE(PressKey(Items(), key)) << key;
    EXPECT_TRUE(Items()->hasFocus()) << key;
  }
  EXPECT_EQ(Items()->Selection(), 0);
  EXPECT_TRUE(owner->verdicts.empty());
}

TEST_F(ZCMDIListTest, ItsVerdictKeysComeBeforeThePanelsShortcuts) {
  Open({u"a"});
  const auto claims = [this](int key) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(Items(), &event);
    return event.isAccepted();
  };
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) EXPECT_TRUE(claims(key)) << key;
  for (const int key : {Qt::Key_F1, Qt::Key_Tab}) EXPECT_FALSE(claims(key)) << key;
}

TEST_F(ZCMDIListTest, ItsKeysReachNeitherItsRowsNorThePanel) {
  Open({u"a", u"b"});
  EXPECT_TRUE(PressKey(Items(), Qt::Key_B, "b"));
  EXPECT_EQ(Items()->Selection(), 0) << "typing searches no row";
  EXPECT_TRUE(PressKey(Items(), Qt::Key_Insert));
  EXPECT_TRUE(PressKey(Items(), Qt::Key_Backspace, "\b"));
  EXPECT_TRUE(PressKey(Items(), Qt::Key_Return, "\r"));
  list = new ZCMDIList(windows, *owner, &panel);
  Open({u"a"});
  EXPECT_TRUE(PressKey(Items(), Qt::Key_Escape));
}

TEST_F(ZCMDIListTest, OnlyWhatCanBeWrittenIsTyping) {
  Open({u"a"});
  std::vector<QString> typed;
  QObject::connect(list, &ZCMDIList::Typed, list, [&typed](const QString& text) { typed.push_back(text); });
  const QString face = QString::fromUtf8("\xF0\x9F\x98\x80");
  for (const QString& text : {QString("x"), QString("\x01"), face, QString("\x7f")}) PressKey(Items(), 0, text);
  EXPECT_EQ(typed, (std::vector<QString>{"x", face}));
}

TEST_F(ZCMDIListTest, AfterItWasDismissedItHasNoVerdict) {
  Open({u"a"});
  list->Dismiss();
  list->OnOK();
  list->OnCancel();
  EXPECT_TRUE(owner->verdicts.empty());
}

TEST(MdiListKeyTest, AWordThatDoesntFitIsDrawnSmaller) {
  QWidget panel;
  MdiListKey key(QStringLiteral("key"), &panel);
  key.setText("HHHHHHHHHH");
  const auto inside = [&key] {
    const QImage image = Paint(key);
    const QRect within = image.rect().adjusted(2, 2, -2, -2);
    return Ink(image, ColorAt(image, 3, 3), within);
  };
  key.resize(400, 40);
  const QRect large = inside();
  key.resize(large.width() * 4 / 5 + 12, 40);
  const QRect small = inside();
  EXPECT_GE(small.left(), 5);
  EXPECT_LE(small.right(), key.width() - 6);
  EXPECT_LT(small.height(), large.height());
  EXPECT_GT(small.width(), key.width() / 2) << "no smaller than needed";
}

TEST_F(ZCMDIListTest, HasAFrameOfOneLine) {
  EXPECT_EQ(Items()->frameStyle(), static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
  EXPECT_EQ(list->property("pnlTitle").toString(), "MDI");
}

TEST_F(ZCMDIListTest, ASecondVerdictIsNotSent) {
  Open({u"a"});
  list->OnOK();
  list->OnOK();
  list->OnCancel();
  EXPECT_TRUE(list->Finished());
  EXPECT_EQ(owner->verdicts.size(), 1u);
}

TEST_F(ZCMDIListTest, FocusElsewhereCancelsAndStaysElsewhere) {
  // The owner answers a cancelled list by taking the focus, which would leave the operator's click without effect.
  Open({u"a"});
  auto* mine = new QLineEdit(owner);
  owner->setGeometry(300, 0, 50, 50);
  owner->show();
  owner->onVerdict = [mine] { mine->setFocus(); };
  other->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(owner->verdicts, Verdicts{"MDI_ENDLIST 2,0"});
  EXPECT_EQ(QApplication::focusWidget(), other);
}

TEST_F(ZCMDIListTest, LosingTheFocusToNobodyIsNoVerdict) {
  Open({u"a"});
  Items()->clearFocus();
  EXPECT_TRUE(owner->verdicts.empty());
}

TEST_F(ZCMDIListTest, MayBeDestroyedOnItsOwnVerdict) {
  Open({u"a"});
  owner->onVerdict = [this] { list->Dismiss(); };
  const WindowHandle handle = list->Handle();
  PressKey(Items(), Qt::Key_Return, "\r");
  EXPECT_FALSE(windows.IsAlive(handle)) << "no window any more at once";
  Settle();
  EXPECT_TRUE(list.isNull());
}

TEST_F(ZCMDIListTest, OutlivesItsOwner) {
  Open({u"a"});
  delete owner;
  PressKey(Items(), Qt::Key_Return, "\r");
  EXPECT_TRUE(list->Finished());
  other->setFocus();
}

TEST_F(ZCMDIListTest, DiesWithItsPanelWhileItHasTheFocus) {
  auto second = std::make_unique<QWidget>();
  second->resize(100, 100);
  auto* dying = new ZCMDIList(windows, *owner, second.get());
  Activate(*second);
  dying->Fill(nullptr);
  dying->Open({0, 0, 50, 50});
  second.reset();
  EXPECT_TRUE(owner->verdicts.empty());
}

TEST_F(ZCMDIListTest, ShowsMarksAtTheEndsOfItsRows) {
  Open({u"a", u"b", u"c"});
  const QRect row = Items()->visualRect(Items()->model()->index(1, 0));
  const QRect end(row.right() - 24, row.top(), 20, row.height());
  EXPECT_EQ(Count(Paint(*Items()->viewport()).copy(end), 0xFFFFFF), 0);
  list->ShowKeys({u"Arrange", u"Pin", true, u"Refused"});
  list->ShowRows({{u"a", u"b", u"c"}, {MdiRowMark::kNone, MdiRowMark::kPinned, MdiRowMark::kRefused}, 0});
  EXPECT_GT(Count(Paint(*Items()->viewport()).copy(end), 0xFFFFFF), 10);
  EXPECT_EQ(Items()->Note(1), (ListNote{u"", ListSign::kPin}));
  EXPECT_EQ(Items()->Note(2), (ListNote{u"Refused", ListSign::kCross}));
  EXPECT_EQ(Items()->Note(0), ListNote());
  EXPECT_EQ(Items()->Item(2), u"c") << "a mark is no part of the block";
}

TEST_F(ZCMDIListTest, TypingAndItsKeysAreReported) {
  Open({u"a", u"b"});
  std::vector<std::string> heard;
  QObject::connect(list, &ZCMDIList::Typed, list, [&](const QString& text) { heard.push_back(text.toStdString()); });
  QObject::connect(list, &ZCMDIList::Erased, list, [&] { heard.push_back("erased"); });
  QObject::connect(list, &ZCMDIList::SwitchWanted, list, [&] { heard.push_back("switch"); });
  QObject::connect(list, &ZCMDIList::PinWanted, list, [&] { heard.push_back("pin"); });
  PressKey(Items(), Qt::Key_G, "G");
  PressKey(Items(), Qt::Key_Space, " ");
  PressKey(Items(), Qt::Key_Backspace, "\b");
  PressKey(Items(), Qt::Key_Tab, "\t");
  PressKey(Items(), Qt::Key_Insert);
  PressKey(Items(), Qt::Key_Down);
  EXPECT_EQ(heard, (std::vector<std::string>{"G", " ", "erased", "switch", "pin"}));
  EXPECT_EQ(Items()->Selection(), 1) << "only the arrow has moved";
}

class MdiDropFlow : public MdiStage {
 protected:
  void OpenWithHistory(int blocks = 3) {
    History(blocks);
    Open();
  }
};

TEST_F(MdiDropFlow, LiesOverTheEditWhenTheLineIsBelow) {
  OpenWithHistory();
  Key(Qt::Key_Up);
  ASSERT_NE(Drop(), nullptr);
  const QPoint edit = Edit()->mapTo(&panel, QPoint(0, 0));
  EXPECT_EQ(Drop()->geometry(), QRect(edit.x(), edit.y() - 151, Edit()->width() + 30, 150));
  EXPECT_EQ(Drop()->parentWidget(), &panel);
  EXPECT_EQ(DropItems()->Count(), 3);
  EXPECT_EQ(Focus(), DropItems());
  EXPECT_EQ(DropItems()->SelectedBackColor(), List()->SelectedBackColor());
  EXPECT_EQ(DropItems()->SelectedTextColor(), List()->SelectedTextColor());
}

TEST_F(MdiDropFlow, LiesUnderTheEditWhenTheLineIsAbove) {
  OpenWithHistory();
  Send(PNL_MSG_COMMAND, 40005);
  Key(Qt::Key_Down);
  const QPoint edit = Edit()->mapTo(&panel, QPoint(0, 0));
  EXPECT_EQ(Drop()->geometry(), QRect(edit.x(), edit.y() + 30, Edit()->width() + 30, 150));
}

TEST_F(MdiDropFlow, EnterPutsThePickedBlockIntoTheEdit) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  Key(Qt::Key_Return, "\r");
  EXPECT_EQ(Edit()->text(), "G1 X1");
  EXPECT_EQ(Focus(), Edit());
  EXPECT_EQ(Drop(), nullptr);
}

TEST_F(MdiDropFlow, APressOnTheSignOpensAndClosesIt) {
  OpenWithHistory();
  PressSign();
  Settle();
  ASSERT_NE(Drop(), nullptr);
  PressSign();
  Settle();
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_EQ(Focus(), Edit());
  PressSign();
  EXPECT_NE(Drop(), nullptr) << "the next press opens it again";
}

TEST_F(MdiDropFlow, APressElsewhereInThePanelCancelsIt) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  PressMouse(other, QPoint(3, 3));
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_EQ(Focus(), other);
  Settle();
  PressSign();
  EXPECT_NE(Drop(), nullptr);
}

TEST_F(MdiDropFlow, TheStartKeyTakesTheSelectedBlock) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  StartKey();
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_EQ(Edit()->text(), "G1 X1");
  EXPECT_TRUE(Edit()->isReadOnly());
  EXPECT_EQ(Focus(), Edit());
}

TEST_F(MdiDropFlow, DoesNotOpenWhileABlockRuns) {
  OpenWithHistory();
  Type(Edit(), "G0");
  StartKey();
  Key(Qt::Key_Down);
  PressSign();
  EXPECT_EQ(Drop(), nullptr);
}

TEST_F(MdiDropFlow, GoesWithTheWindowThatHides) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  area->hide();
  EXPECT_EQ(Drop(), nullptr);
  area->show();
  Key(Qt::Key_Down);
  Command(5);
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(MdiDropFlow, GoesWithTheWindowThatDies) {
  OpenWithHistory();
  Key(Qt::Key_Down);
  delete tool;
  EXPECT_EQ(Drop(), nullptr);
  Settle();
  EXPECT_TRUE(panel.findChildren<ZCMDIList*>().isEmpty());
}

TEST_F(MdiDropFlow, TenThousandBlocksHaveNoWidgetEach) {
  OpenWithHistory(10000);
  Key(Qt::Key_Down);
  EXPECT_EQ(DropItems()->Count(), 10000);
  EXPECT_LT(Drop()->findChildren<QObject*>().size(), 60);
  EXPECT_GT(Count(Paint(*DropItems()->viewport()), 0xFFFFFF), 50);
}

TEST_F(MdiDropFlow, AVerdictFromNowhereChangesNothing) {
  OpenWithHistory();
  Type(Edit(), "G0");
  Send(RegisterMessage("MDI_ENDLIST"), 1);
  Send(RegisterMessage("MDI_ENDLIST"), 2);
  EXPECT_EQ(Edit()->text(), "G0");
}

}  // namespace
}  // namespace pnl::test
