// SPDX-License-Identifier: MIT
// Which tools are made anew when the language changes, and when: none that the operator needs as it is.
#include "host/language_desk.h"

#include "panel/machine/qt/panel_fixture.h"

namespace panel {
namespace {

class LanguageDeskTest : public PanelFixture {
 protected:
  ~LanguageDeskTest() override {
    UseWords("en");
    PnlSetLanguage("en");
  }
  [[nodiscard]] PnlWindow WindowOf(int tool) const { return session_.ToolWindow(tool); }
  intptr_t TellMdi(int code) { return PnlSendMessage(WindowOf(PNL_TOOL_MDI), PNL_MSG_TOOL_COMMAND, code, 1); }
  /// Hides the command line without a word to the machine.
  void HideMdi() {
    ASSERT_EQ(TellMdi(kHide), 0);
    Settle();
    ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  }

  static constexpr int kHide = 3;
  LanguageDesk desk_{session_, op_->Desk(), &rig_};
};

TEST_F(LanguageDeskTest, ChangesThereAndBack) {
  EXPECT_TRUE(desk_.Switch());
  EXPECT_EQ(WordsInUse(), "es");
  EXPECT_TRUE(desk_.Switch());
  EXPECT_EQ(WordsInUse(), "en");
}

TEST_F(LanguageDeskTest, WhatIsClosedIsMadeAnewAtOnce) {
  const PnlWindow errors = WindowOf(PNL_TOOL_ERRORS);
  const PnlWindow messages = WindowOf(PNL_TOOL_PLC_MESSAGES);
  Do(Action::kOpenMdi);
  const PnlWindow mdi = WindowOf(PNL_TOOL_MDI);
  HideMdi();
  EXPECT_TRUE(desk_.Stale().empty());
  ASSERT_TRUE(desk_.Switch());
  EXPECT_TRUE(desk_.Stale().empty());
  for (const PnlWindow old : {errors, messages, mdi}) EXPECT_EQ(PnlIsAlive(old), 0);
  EXPECT_NE(WindowOf(PNL_TOOL_ERRORS), 0) << "these two wait hidden";
  EXPECT_NE(WindowOf(PNL_TOOL_PLC_MESSAGES), 0);
  EXPECT_EQ(WindowOf(PNL_TOOL_MDI), 0) << "and this one comes when it is wanted";
}

TEST_F(LanguageDeskTest, WhatIsOpenWaitsUntilItCloses) {
  Do(Action::kOpenCalculator);
  const PnlWindow calculator = WindowOf(PNL_TOOL_CALCULATOR);
  ASSERT_TRUE(desk_.Switch());
  EXPECT_EQ(desk_.Stale(), std::set<int>{PNL_TOOL_CALCULATOR});
  Settle();
  EXPECT_EQ(PnlIsAlive(calculator), 1);
  const PnlWindow errors = WindowOf(PNL_TOOL_ERRORS);
  op_->CloseTool(PNL_TOOL_CALCULATOR);
  Settle();
  EXPECT_EQ(PnlIsAlive(calculator), 0);
  EXPECT_TRUE(desk_.Stale().empty());
  EXPECT_EQ(WindowOf(PNL_TOOL_ERRORS), errors) << "what speaks the language is left alone";
}

TEST_F(LanguageDeskTest, AChangeOfToolsOrOfErrorsIsReasonEnoughToLookAgain) {
  for (const bool ofErrors : {false, true}) {
    Do(Action::kOpenMdi);
    const PnlWindow mdi = WindowOf(PNL_TOOL_MDI);
    ASSERT_TRUE(desk_.Switch());
    Settle();
    {
      const QSignalBlocker noTools(session_);
      const QSignalBlocker noErrors(op_->Desk());
      ASSERT_EQ(TellMdi(kHide), 0);
      Settle();
    }
    ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
    ASSERT_EQ(PnlIsAlive(mdi), 1);
    if (ofErrors) {
      emit op_->Desk().Changed();
    } else {
      emit session_.ToolsChanged();
    }
    EXPECT_EQ(PnlIsAlive(mdi), 1) << "not while somebody is at work";
    Settle();
    EXPECT_EQ(PnlIsAlive(mdi), 0) << ofErrors;
  }
}

TEST_F(LanguageDeskTest, AHiddenCommandLineKeepsItsBlockUntilItIsDone) {
  struct Row {
    const char* block;
    int status;
  };
  for (const Row& row : {Row{"G91 G1 X50 F1000", 2}, Row{"M0", 4}}) {
    Do(Action::kOpenMdi);
    Type(row.block);
    Do(Action::kCycleStart);
    Advance(100);
    HideMdi();
    const PnlWindow mdi = WindowOf(PNL_TOOL_MDI);
    ASSERT_EQ(op_->Machine().channelStatus, row.status);
    ASSERT_TRUE(desk_.Switch());
    EXPECT_EQ(PnlIsAlive(mdi), 1) << row.block;
    EXPECT_EQ(desk_.Stale(), std::set<int>{PNL_TOOL_MDI}) << row.block;
    rig_.Machine()->Reset();
    Advance(1000);
    emit session_.ToolsChanged();
    Settle();
    EXPECT_EQ(PnlIsAlive(mdi), 0) << row.block;
  }
}

TEST_F(LanguageDeskTest, AnErrorWindowThatWasPutAwayStaysAwayUntilItsErrorsEnd) {
  Raise(pnl::rig::MachineControl::Fault::kDriveWarning);
  ASSERT_TRUE(ErrorsShown());
  op_->Desk().PutAway();
  Settle();
  ASSERT_FALSE(ErrorsShown());
  const PnlWindow errors = WindowOf(PNL_TOOL_ERRORS);
  ASSERT_TRUE(desk_.Switch());
  EXPECT_EQ(desk_.Stale(), std::set<int>{PNL_TOOL_ERRORS});
  EXPECT_EQ(WindowOf(PNL_TOOL_ERRORS), errors);
  EXPECT_FALSE(ErrorsShown());
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_EQ(PnlIsAlive(errors), 0);
  EXPECT_NE(WindowOf(PNL_TOOL_ERRORS), 0);
  EXPECT_FALSE(ErrorsShown());
}

TEST_F(LanguageDeskTest, AScriptsToolsAreLeftAlone) {
  const PnlWindow errors = WindowOf(PNL_TOOL_ERRORS);
  session_.SetReacting(false);
  ASSERT_TRUE(desk_.Switch());
  EXPECT_EQ(WordsInUse(), "es");
  EXPECT_TRUE(desk_.Stale().empty());
  session_.SetReacting(true);
  emit session_.ToolsChanged();
  Settle();
  EXPECT_EQ(WindowOf(PNL_TOOL_ERRORS), errors);
}

TEST_F(LanguageDeskTest, WithoutAMachineAHiddenCommandLineIsFree) {
  Do(Action::kOpenMdi);
  const PnlWindow mdi = WindowOf(PNL_TOOL_MDI);
  HideMdi();
  LanguageDesk lone(session_, op_->Desk(), nullptr);
  ASSERT_TRUE(lone.Switch());
  EXPECT_EQ(PnlIsAlive(mdi), 0);
}

}  // namespace
}  // namespace panel
