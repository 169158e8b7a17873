// SPDX-License-Identifier: MIT
// The key that puts back what was removed: what it says, where it is, by touch and by key, and when it goes.
#include "ui/undo_offer.h"

#include "panel/machine/qt/panel_fixture.h"
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
  QObject::connect(&Offered(), &UndoOffer::Changed, [&changes] { ++changes; });
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

TEST_F(UndoOfferTest, SaysItInTheOtherLanguageWhenThatIsChanged) {
  Command(kClear);
  window_->SwitchLanguage();
  EXPECT_EQ(Offered().text(), "Lista borrada: deshacer");
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

// The key stayed after the tool had reported its end, and said that the row can't be put back now.
TEST_F(UndoOfferTest, ItGoesWithAToolThatCloses) {
  Command(kClear);
  op_->CloseTool(PNL_TOOL_MDI);
  Settle();
  ASSERT_EQ(Tool(PNL_TOOL_MDI), nullptr);
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
