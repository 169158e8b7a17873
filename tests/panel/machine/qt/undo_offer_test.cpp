// SPDX-License-Identifier: MIT
// The key that puts back what was removed: what it says, where it is, by touch and by key, and when it goes.
#include "ui/undo_offer.h"

#include <algorithm>

#include "host/tool_texts.h"
#include "panel/machine/qt/panel_fixture.h"
#include "support/made_timers.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

class UndoOfferTest : public PanelFixture {
 protected:
  UndoOfferTest() {
    window_->TimeAdvanced(0);
    OpenListAtSecond();
  }
  void Command(int id) {
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_COMMAND, id, 0);
    Settle();
  }
  [[nodiscard]] UndoOffer& Offered() const { return window_->Undo(); }
  [[nodiscard]] int Rows() const { return MdaList()->model()->rowCount(); }
  /// The removal that the tool itself could still put back.
  [[nodiscard]] int RowsKeptBy(int tool) const { return LastRemoval(session_.ToolWindow(tool)).rows; }
  /// A control of the calculator by its number.
  template <typename T>
  [[nodiscard]] T* Control(int id) const {
    const auto all = Tool(PNL_TOOL_CALCULATOR)->findChildren<T*>();
    const auto found =
        std::find_if(all.begin(), all.end(), [id](const T* one) { return one->property("pnlId") == QVariant(id); });
    return found == all.end() ? nullptr : *found;
  }
  /// Computes that many sums and deletes them all from the calculator's history.
  void DeleteSums(int count) {
    constexpr int kOpenList = 1012;
    constexpr int kHistory = 1038;
    for (int i = 0; i < count; ++i) {
      Line(PNL_TOOL_CALCULATOR)->setFocus();
      Line(PNL_TOOL_CALCULATOR)->selectAll();
      Type(QString("%1+1").arg(i + 1));
      Key(Qt::Key_Return);
    }
    ASSERT_NE(Control<QWidget>(kOpenList), nullptr);
    Touch(Control<QWidget>(kOpenList), QPoint(4, 4));
    auto* history = Control<QAbstractItemView>(kHistory);
    ASSERT_NE(history, nullptr);
    ASSERT_TRUE(history->isVisible());
    history->setFocus();
    const auto rows = history->model();
    history->selectionModel()->select(QItemSelection(rows->index(0, 0), rows->index(count - 1, 0)),
                                      QItemSelectionModel::ClearAndSelect);
    Key(Qt::Key_Delete);
  }
  void TouchIt() { Touch(&Offered(), Offered().rect().center()); }

  static constexpr int kDelete = 32771;
  static constexpr int kNew = 32773;
  static constexpr int kClear = 32776;
};

TEST_F(UndoOfferTest, IsBesideTheMessagesAndBigEnoughForAFinger) {
  ASSERT_FALSE(Offered().isVisible());
  const QRect whole = window_->Zone().geometry();
  Command(kClear);
  for (const QSize size : {QSize(640, 480), QSize(800, 600), QSize(1920, 1080)}) {
    window_->resize(size);
    Settle();
    EXPECT_TRUE(Offered().isVisible());
    EXPECT_GE(std::min(Offered().width(), Offered().height()), theme::TouchPixels(*window_));
    EXPECT_FALSE(Offered().geometry().intersects(window_->Zone().geometry()));
    EXPECT_EQ(Offered().geometry().right(), window_->Layout().messages.right());
  }
  window_->TimeAdvanced(UndoOffer::kMilliseconds);
  EXPECT_FALSE(Offered().isVisible());
  EXPECT_EQ(window_->Zone().geometry(), window_->Layout().messages);
  EXPECT_NE(window_->Zone().geometry(), whole) << "another size of the window";
}

TEST_F(UndoOfferTest, SaysWhatItPutsBack) {
  Command(kDelete);
  EXPECT_EQ(Offered().text(), "Undo: G0 X2");
  Command(kClear);
  EXPECT_EQ(Offered().text(), "List cleared: undo");
  TouchIt();
  EXPECT_EQ(Offered().text(), "Undo: G0 X2") << "the one before is offered next";
}

TEST_F(UndoOfferTest, IsAKeyInTheColourOfWhatCanBeDone) {
  EXPECT_EQ(Offered().Tint(), QColor(theme::kAccent));
  EXPECT_EQ(Offered().KeyName(), KeysOf(Action::kUndoRemoval).first().toString());
  const QString tip = Offered().toolTip();
  EXPECT_FALSE(tip.isEmpty());
  window_->SwitchLanguage();
  EXPECT_NE(Offered().toolTip(), tip) << "also while nothing is offered";
  EXPECT_FALSE(Offered().IsOpen());
}

TEST_F(UndoOfferTest, EachRemovalIsOfferedForTenSecondsOfItsOwn) {
  int changes = 0;
  const QObject here;
  QObject::connect(&Offered(), &UndoOffer::Changed, &here, [&changes] { ++changes; });
  Command(kDelete);
  EXPECT_EQ(changes, 1);
  window_->TimeAdvanced(6000);
  Command(kDelete);
  ASSERT_EQ(Rows(), 1);
  EXPECT_EQ(changes, 2);
  window_->TimeAdvanced(9999);
  EXPECT_TRUE(Offered().IsOpen());
  window_->TimeAdvanced(1);
  EXPECT_FALSE(Offered().IsOpen());
  EXPECT_EQ(changes, 3);
  window_->TimeAdvanced(20'000);
  EXPECT_EQ(changes, 3) << "it goes once";
  Do(Action::kUndoRemoval);
  EXPECT_EQ(Rows(), 1) << "the tool has forgotten both";
}

TEST_F(UndoOfferTest, RemovalsThatComeTogetherAreOneOffer) {
  int changes = 0;
  const QObject here;
  QObject::connect(&Offered(), &UndoOffer::Changed, &here, [&changes] { ++changes; });
  for (int i = 0; i < 2; ++i) PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_COMMAND, kDelete, 0);
  Settle();
  ASSERT_EQ(Rows(), 1);
  EXPECT_EQ(changes, 1);
}

TEST_F(UndoOfferTest, AKeyThatIsHeldComesUpWhenAQuestionDisablesIt) {
  Command(kDelete);
  Offered().setDown(true);
  Do(Action::kErrorList);
  EXPECT_FALSE(Offered().isDown());
  Do(Action::kErrorList);
  EXPECT_FALSE(Offered().isDown());
}

TEST_F(UndoOfferTest, SaysItInTheOtherLanguageWhenThatIsChanged) {
  Command(kClear);
  window_->SwitchLanguage();
  EXPECT_EQ(Offered().text(), "Lista vaciada: deshacer");
  EXPECT_EQ(Offered().accessibleName(), Offered().text());
}

TEST_F(UndoOfferTest, ATouchPutsItBackAndLeavesTheKeyboardWhereItWas) {
  Command(kClear);
  ASSERT_EQ(Rows(), 0);
  QWidget* focus = QApplication::focusWidget();
  TouchIt();
  EXPECT_EQ(Rows(), 3);
  EXPECT_FALSE(Offered().isVisible());
  EXPECT_EQ(QApplication::focusWidget(), focus);
}

// The key stayed after the tool had closed, and said that the row can't be put back now.
TEST_F(UndoOfferTest, ItGoesWithAToolThatCloses) {
  constexpr int kChannel = 1;
  Command(kClear);
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE, kChannel);
  Settle();
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  EXPECT_FALSE(Offered().isVisible());
  EXPECT_FALSE(Offered().IsOpen());
}

TEST_F(UndoOfferTest, WhileAnItemIsEditedItSaysWhyNotAndStays) {
  Command(kClear);
  Command(kNew);
  Do(Action::kUndoRemoval);
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(ZoneText(), "Not now: end the edit or the block first");
  EXPECT_TRUE(Offered().isVisible());
}

TEST_F(UndoOfferTest, ItGoesWithTheToolsWindow) {
  Command(kClear);
  session_.DestroyTool(session_.ToolWindow(PNL_TOOL_MDI));
  Settle();
  EXPECT_FALSE(Offered().isVisible());
  Do(Action::kUndoRemoval);
}

TEST_F(UndoOfferTest, AnotherToolInFrontLeavesItThereAndOnlyThatToolsRemovalTakesItsPlace) {
  Command(kDelete);
  Do(Action::kOpenCalculator);
  EXPECT_EQ(Offered().text(), "Undo: G0 X2") << "moving on to another tool removes nothing";
  TouchIt();
  EXPECT_EQ(Rows(), 3) << "the list is whole again behind it";
  EXPECT_FALSE(Offered().IsOpen());
  Command(kDelete);
  DeleteSums(2);
  EXPECT_EQ(Offered().text(), Say(Word::kUndoRows, "2"));
  EXPECT_EQ(RowsKeptBy(PNL_TOOL_MDI), 0) << "what isn't offered any more is forgotten";
  EXPECT_EQ(RowsKeptBy(PNL_TOOL_CALCULATOR), 2);
  op_->CloseTool(PNL_TOOL_CALCULATOR);
  Settle();
  ASSERT_EQ(Tool(PNL_TOOL_CALCULATOR), nullptr);
  Do(Action::kUndoRemoval);
  EXPECT_EQ(Rows(), 2) << "and nothing of the other one comes back";
}

TEST_F(UndoOfferTest, AnotherToolsEndChangesNothing) {
  Do(Action::kOpenCalculator);
  Command(kDelete);
  op_->CloseTool(PNL_TOOL_CALCULATOR);
  Settle();
  EXPECT_EQ(Offered().text(), "Undo: G0 X2");
  TouchIt();
  EXPECT_EQ(Rows(), 3);
}

TEST_F(UndoOfferTest, TheOfferOfEitherToolHasATimeOfItsOwn) {
  Do(Action::kOpenCalculator);
  DeleteSums(1);
  EXPECT_EQ(Offered().text(), "Undo: 1+1");
  window_->TimeAdvanced(4000);
  Command(kDelete);
  EXPECT_EQ(Offered().text(), "Undo: G0 X2");
  EXPECT_EQ(RowsKeptBy(PNL_TOOL_CALCULATOR), 0);
  window_->TimeAdvanced(UndoOffer::kMilliseconds - 1);
  EXPECT_TRUE(Offered().IsOpen());
  window_->TimeAdvanced(1);
  EXPECT_FALSE(Offered().IsOpen());
  EXPECT_EQ(RowsKeptBy(PNL_TOOL_MDI), 0);
}

TEST_F(UndoOfferTest, WhatWasPutBackIsOverAndTheNextRemovalIsOfferedAnew) {
  int changes = 0;
  const QObject here;
  QObject::connect(&Offered(), &UndoOffer::Changed, &here, [&changes] { ++changes; });
  Command(kDelete);
  TouchIt();
  EXPECT_EQ(changes, 2);
  window_->TimeAdvanced(2 * UndoOffer::kMilliseconds);
  EXPECT_EQ(changes, 2) << "no time runs without an offer";
  window_->SwitchLanguage();
  EXPECT_EQ(changes, 2) << "a language that changes then offers nothing";
  window_->SwitchLanguage();
  Settle();
  Command(kDelete);
  EXPECT_TRUE(Offered().IsOpen());
  EXPECT_EQ(changes, 3);
}

// With nobody who moves the time by hand, as at a machine.
class UndoOfferClockTest : public UndoOfferTest {
 protected:
  UndoOfferClockTest() {
    const pnl::test::MadeTimers made;
    offer_ = std::make_unique<UndoOffer>(session_, window_.get());
    timers_ = made.All();
  }
  void SetUp() override {
    ASSERT_EQ(timers_.size(), 1);
    // It looks at the tools when one comes or goes.
    Do(Action::kOpenCalculator);
    op_->CloseTool(PNL_TOOL_CALCULATOR);
    Settle();
  }
  [[nodiscard]] QTimer& Clock() const { return *timers_.first(); }

  std::unique_ptr<UndoOffer> offer_;
  QList<QTimer*> timers_;
};

TEST_F(UndoOfferClockTest, AfterTenSecondsItGoesOnceAndTheToolForgets) {
  EXPECT_FALSE(Clock().isActive()) << "an idle panel has no timer";
  int changes = 0;
  const QObject here;
  QObject::connect(offer_.get(), &UndoOffer::Changed, &here, [&changes] { ++changes; });
  Command(kDelete);
  ASSERT_TRUE(offer_->IsOpen());
  EXPECT_TRUE(Clock().isActive());
  EXPECT_TRUE(Clock().isSingleShot());
  EXPECT_EQ(Clock().interval(), 10'000);
  EXPECT_EQ(changes, 1);
  pnl::test::Fire(Clock());
  EXPECT_FALSE(offer_->IsOpen());
  EXPECT_TRUE(offer_->isHidden());
  EXPECT_FALSE(Clock().isActive());
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(RowsKeptBy(PNL_TOOL_MDI), 0);
  offer_->Undo();
  Settle();
  EXPECT_EQ(Rows(), 2) << "too late";
}

TEST_F(UndoOfferClockTest, TheTimerStopsWhenTheRowIsPutBackBefore) {
  Command(kDelete);
  ASSERT_TRUE(Clock().isActive());
  offer_->Undo();
  Settle();
  EXPECT_EQ(Rows(), 3);
  EXPECT_FALSE(offer_->IsOpen());
  EXPECT_FALSE(Clock().isActive()) << "nothing would wake an idle panel";
}

TEST_F(UndoOfferTest, AQuestionDisablesIt) {
  Command(kClear);
  Do(Action::kErrorList);
  EXPECT_FALSE(Offered().isEnabled());
  Do(Action::kUndoRemoval);
  EXPECT_EQ(Rows(), 0);
  Do(Action::kErrorList);
  EXPECT_TRUE(Offered().isEnabled());
}

}  // namespace
}  // namespace panel
