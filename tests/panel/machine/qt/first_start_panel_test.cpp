// SPDX-License-Identifier: MIT
// The first start in the whole panel: what comes first, what goes on meanwhile, what is remembered, and what the
// screen's size changes.
#include <gtest/gtest.h>

#include <QScreen>
#include <algorithm>
#include <map>
#include <optional>

#include "host/journal_file.h"
#include "panel/machine/qt/machining_fixture.h"
#include "support/temp_folder.h"
#include "ui/first_start.h"
#include "ui/journal_keeper.h"
#include "ui/keyboard.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/reserved_row.h"
#include "ui/settings_desk.h"
#include "ui/soft_key_bar.h"
#include "ui/theme.h"
#include "ui/touch_desk.h"

namespace panel {
namespace {

class FirstStartPanelTest : public MachiningFixture {
 protected:
  FirstStartPanelTest() {
    theme::SetScreenWidth(0);
    window_->KeyboardOwner().SetClock([this] { return qint64{now_}; });
  }
  ~FirstStartPanelTest() override {
    desk_.reset();
    theme::SetScreenWidth(0);
    UseWords("en");
    PnlSetLanguage("en");
  }
  [[nodiscard]] QString File() const { return QString::fromStdString((folder_.Path() / "USER/PNLPANEL.INI").string()); }
  /// Starts with what the file says. Counts how often the start goes on.
  void Start() {
    desk_.emplace(*window_, *op_, File());
    desk_->Begin(LoadSettings(File()), [this] { ++began_; });
    Settle();
  }
  void Restart() {
    desk_.reset();
    theme::SetScreenWidth(0);
    Start();
  }
  void SettleStored() {
    ASSERT_TRUE(WaitWhile([this] { return desk_->Working(); }, 60'000));
    Settle();
  }
  void TouchKey(FirstStart::Key key) {
    PanelKey* target = window_->First().KeyOf(key);
    // What has just come takes no answer yet.
    now_ += 2000;
    Touch(target, target->rect().center());
  }
  [[nodiscard]] double ScreenPixels() const { return window_->screen()->size().width(); }
  [[nodiscard]] bool Offers(int id) const {
    const auto& items = window_->MainBar().Items();
    return std::any_of(items.begin(), items.end(), [id](const SoftKeyItem& item) { return item.id == id; });
  }

  pnl::test::TempFolder folder_;
  std::optional<SettingsDesk> desk_;
  int began_ = 0;
};

TEST_F(FirstStartPanelTest, TheFirstStartAsksAndTheSecondDoesNot) {
  Start();
  EXPECT_TRUE(window_->First().isVisible());
  EXPECT_TRUE(Has(&window_->First()));
  EXPECT_EQ(began_, 0);
  window_->First().KeyOf(FirstStart::kSpanish)->click();
  EXPECT_EQ(WordsInUse(), "es");
  EXPECT_EQ(window_->Keys().Key(Action::kCycleStart)->text(), "Marcha") << "the whole panel speaks it at once";
  window_->First().SetBarLength(300);
  const double width = window_->First().ScreenMillimetres();
  window_->First().KeyOf(FirstStart::kOk)->click();
  SettleStored();
  EXPECT_FALSE(window_->First().isVisible());
  EXPECT_EQ(began_, 1);
  EXPECT_TRUE(Has(Program()));
  EXPECT_FALSE(ZoneText().contains(Say(Word::kSettingsNotKept))) << ZoneText().toStdString();
  EXPECT_EQ(LoadSettings(File()).language, "es");
  EXPECT_NEAR(LoadSettings(File()).screenMillimetres.value_or(0), width, 0.06);
  Restart();
  EXPECT_FALSE(window_->First().isVisible());
  EXPECT_EQ(began_, 2);
}

TEST_F(FirstStartPanelTest, FingersAloneAnswerItOnEverySize) {
  for (const QSize& size : {QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
    folder_.Write("USER/PNLPANEL.INI", "[Panel]\r\nMore=1\r\n");
    window_->resize(size);
    Restart();
    ASSERT_TRUE(window_->First().isVisible()) << size.width();
    TouchKey(FirstStart::kEnglish);
    ASSERT_EQ(window_->First().Shown(), FirstStart::Page::kScreen) << size.width();
    const int before = window_->First().Bar().width();
    TouchKey(FirstStart::kLonger);
    EXPECT_EQ(window_->First().Bar().width(), before + 1) << size.width();
    TouchKey(FirstStart::kOk);
    SettleStored();
    EXPECT_FALSE(window_->First().isVisible()) << size.width();
    EXPECT_TRUE(folder_.Read("USER/PNLPANEL.INI").find("More=1\r\nLanguage=en\r\nScreenWidth=") != std::string::npos);
  }
}

TEST_F(FirstStartPanelTest, TheSizeOfTheScreenIsTheSizeOfTheKeys) {
  Start();
  window_->First().KeyOf(FirstStart::kEnglish)->click();
  const int before = window_->Layout().reservedRow.height();
  window_->First().SetBarLength(static_cast<int>(85.6 * 150 / 25.4));
  window_->First().KeyOf(FirstStart::kOk)->click();
  SettleStored();
  const double density = ScreenPixels() * 25.4 / theme::ScreenWidth();
  EXPECT_NEAR(density, 150, 1);
  EXPECT_EQ(theme::DensityOf(*window_), density);
  EXPECT_EQ(theme::TouchPixels(*window_), theme::TouchPixels(density));
  EXPECT_GT(window_->Layout().reservedRow.height(), before);
  EXPECT_GE(window_->Layout().reservedRow.height() * 25.4 / density, 12);
  EXPECT_EQ(window_->Row().geometry(), window_->Layout().reservedRow);
  EXPECT_GE(window_->MainBar().Key(0)->height() * 25.4 / density, 9);
  EXPECT_GE(window_->SideBar().MoreKey()->height() * 25.4 / density, 9) << "the bars are placed anew";
}

TEST_F(FirstStartPanelTest, NothingBehindItTakesKeysOrTouches) {
  Start();
  const QString program = window_->ProgramText();
  Type("G1X1");
  EXPECT_EQ(window_->ProgramText(), program);
  Do(Action::kOpenMdi);
  Do(Action::kOpenCalculator);
  Do(Action::kErrorList);
  window_->PressMain(0);
  window_->PressSide(0);
  for (const RowKey key : {RowKey::kErrors, RowKey::kCalculator, RowKey::kHelp, RowKey::kInsert, RowKey::kKeyboard}) {
    EXPECT_FALSE(window_->Row().Key(key)->isEnabled()) << static_cast<int>(key);
    window_->Row().Key(key)->click();
  }
  Settle();
  EXPECT_EQ(session_.FrontTool(), -1);
  EXPECT_TRUE(window_->First().isVisible());
  EXPECT_TRUE(Has(&window_->First()));
  const QRect cover = window_->First().geometry();
  for (const QPoint& place : {cover.topLeft() + QPoint(9, 9), cover.center(), cover.bottomRight() - QPoint(9, 9)}) {
    const QWidget* hit = window_->childAt(place);
    EXPECT_TRUE(hit == &window_->First() || window_->First().isAncestorOf(hit));
  }
}

TEST_F(FirstStartPanelTest, HoldAndResetActMeanwhile) {
  Do(Action::kOpenMdi);
  Type("G1 X50 F100");
  Do(Action::kCycleStart);
  Advance(200);
  ASSERT_EQ(rig_.Machine()->State().channelStatus, 2);
  Start();
  ASSERT_TRUE(window_->First().isVisible());
  window_->Keys().Key(Action::kFeedHold)->click();
  Advance(200);
  EXPECT_TRUE(rig_.Machine()->State().feedHold || rig_.Machine()->State().channelStatus == 4);
  window_->Keys().Key(Action::kReset)->click();
  Advance(200);
  EXPECT_NE(rig_.Machine()->State().channelStatus, 2);
  EXPECT_NE(rig_.Machine()->State().channelStatus, 4);
  EXPECT_TRUE(window_->First().isVisible());
}

TEST_F(FirstStartPanelTest, WhatWasLeftIsOfferedOnlyAfterwards) {
  JournalContents left;
  left.written = 1'795'397'045'000;
  left.expression = "1+1";
  folder_.Write("USER/PNLPANEL1.JNL", JournalBytes(left).toStdString());
  desk_.emplace(*window_, *op_, File());
  desk_->Begin({}, [this] {
    window_->KeepJournal(
        {QString::fromStdString(folder_.Folder("USER")), [](const QString&) { return QString(); }, true});
  });
  Settle();
  ASSERT_TRUE(window_->First().isVisible());
  EXPECT_FALSE(window_->Asking().IsOpen());
  window_->First().KeyOf(FirstStart::kSpanish)->click();
  EXPECT_FALSE(window_->Asking().IsOpen());
  window_->First().KeyOf(FirstStart::kOk)->click();
  ASSERT_TRUE(WaitWhile([this] { return !window_->Asking().IsOpen(); }, 60'000));
  EXPECT_FALSE(window_->First().isVisible());
  EXPECT_TRUE(window_->Asking().Text().startsWith(WordIn(Word::kTakeBackAsked, 1))) << "in the language just chosen";
  window_->Asking().Answer(0);
  ASSERT_TRUE(WaitWhile([this] { return window_->Working(); }, 60'000));
  SettleStored();
}

TEST_F(FirstStartPanelTest, AnErrorIsSeenFirstAndTheQuestionComesBack) {
  Start();
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_FALSE(window_->First().isVisible());
  EXPECT_TRUE(window_->First().IsOpen());
  rig_.Cnc().ClearErrors();
  Settle();
  EXPECT_TRUE(window_->First().isVisible());
  EXPECT_TRUE(Has(&window_->First()));
}

TEST_F(FirstStartPanelTest, TheKeysOfTheRowAreRemembered) {
  folder_.Write("USER/PNLPANEL.INI", "[Panel]\r\nScreenWidth=270.0\r\n");
  Start();
  EXPECT_EQ(began_, 1);
  window_->Row().Key(RowKey::kLanguage)->click();
  SettleStored();
  EXPECT_EQ(LoadSettings(File()).language, "es");
  window_->Row().Key(RowKey::kLanguage)->click();
  SettleStored();
  EXPECT_EQ(LoadSettings(File()).language, "en");
  EXPECT_FALSE(window_->Touch().IsUp());
  window_->Row().Key(RowKey::kKeyboard)->click();
  SettleStored();
  EXPECT_EQ(LoadSettings(File()).touchKeyboard, true);
  window_->Row().Key(RowKey::kKeyboard)->click();
  SettleStored();
  EXPECT_EQ(LoadSettings(File()).touchKeyboard, false);
  EXPECT_EQ(LoadSettings(File()).screenMillimetres, 270.0);
}

TEST_F(FirstStartPanelTest, ATouchKeyboardThatWasOnRisesAgain) {
  folder_.Write("USER/PNLPANEL.INI", "[Panel]\r\nScreenWidth=270.0\r\nTouchKeyboard=1\r\n");
  Start();
  EXPECT_TRUE(window_->Touch().IsUp()) << "the program has the keyboard";
}

TEST_F(FirstStartPanelTest, ThatNothingCanBeStoredIsSaid) {
  folder_.Write("USER", "a file in the folder's place");
  Start();
  window_->First().KeyOf(FirstStart::kEnglish)->click();
  window_->First().KeyOf(FirstStart::kOk)->click();
  SettleStored();
  EXPECT_EQ(ZoneText(), Say(Word::kSettingsNotKept));
  EXPECT_EQ(began_, 1) << "the panel goes on";
  EXPECT_GT(theme::ScreenWidth(), 0);
}

TEST_F(FirstStartPanelTest, TheSizeCanBeSaidAgain) {
  EXPECT_FALSE(Offers(kScreenItem)) << "without settings there is no such key";
  folder_.Write("USER/PNLPANEL.INI", "[Panel]\r\nScreenWidth=270.0\r\n");
  Start();
  ASSERT_TRUE(Offers(kScreenItem));
  for (int page = 0; page < window_->MainBar().PageCount() && !window_->First().IsOpen(); ++page) {
    for (int slot = 0; slot < kMainKeys && !window_->First().IsOpen(); ++slot) {
      if (window_->MainBar().Key(slot)->text() == Say(Word::kScreenSize)) window_->PressMain(slot);
    }
    window_->MainBar().NextPage();
  }
  Settle();
  ASSERT_TRUE(window_->First().isVisible());
  EXPECT_EQ(window_->First().Shown(), FirstStart::Page::kScreen);
  window_->First().SetBarLength(280);
  window_->First().KeyOf(FirstStart::kOk)->click();
  SettleStored();
  EXPECT_NE(LoadSettings(File()).screenMillimetres, 270.0);
  EXPECT_EQ(began_, 1) << "the start isn't made again";
}

TEST_F(FirstStartPanelTest, ThePanelThatEndsAtOnceHasStoredTheChange) {
  folder_.Write("USER/PNLPANEL.INI", "[Panel]\r\nScreenWidth=270.0\r\n");
  Start();
  // The first change is being written; the second waits for it.
  for (int i = 0; i < 2; ++i) window_->Row().Key(RowKey::kLanguage)->click();
  desk_.reset();
  EXPECT_EQ(LoadSettings(File()).language, "en");
  EXPECT_EQ(LoadSettings(File()).screenMillimetres, 270.0);
}

TEST_F(FirstStartPanelTest, WithEveryToolOpenTheLanguageChangesAndEachOpensInItNext) {
  const std::pair<int, Action> tools[] = {{PNL_TOOL_MDI, Action::kOpenMdi},
                                          {PNL_TOOL_CALCULATOR, Action::kOpenCalculator},
                                          {PNL_TOOL_MACHINING_CALCULATOR, Action::kOpenMachining},
                                          {PNL_TOOL_HELP, Action::kHelp}};
  const auto captions = [this] {
    QStringList all;
    for (int slot = 0; slot < kMainKeys; ++slot) all << window_->MainBar().Key(slot)->text();
    for (int slot = 0; slot < kSideKeys; ++slot) all << window_->SideBar().Key(slot)->text();
    return all.join('|');
  };
  std::map<int, QString> english;
  for (const auto& [tool, action] : tools) {
    Do(action);
    ASSERT_TRUE(session_.IsToolOpen(tool)) << tool;
    english[tool] = captions();
  }
  window_->Row().Key(RowKey::kLanguage)->click();
  Settle();
  EXPECT_EQ(window_->Keys().Key(Action::kCycleStart)->text(), "Marcha");
  EXPECT_EQ(window_->Row().Key(RowKey::kHelp)->text(), WordIn(Word::kHelp, 1));
  for (const auto& [tool, action] : tools) {
    EXPECT_TRUE(session_.IsToolOpen(tool)) << tool << " loses nothing";
    op_->CloseTool(tool);
    Settle();
  }
  for (const auto& [tool, action] : tools) {
    Do(action);
    ASSERT_TRUE(session_.IsToolOpen(tool)) << tool;
    EXPECT_NE(captions(), english[tool]) << tool;
  }
  session_.CloseAll();
  Settle();
}

}  // namespace
}  // namespace panel
