// SPDX-License-Identifier: MIT
// The panel on screens of every size: tools and bars use a large one, and nothing is out of sight on a small one. And
// the side keys are those of what is in front.
#include <gtest/gtest.h>

#include <tuple>

#include "panel/machine/qt/panel_fixture.h"
#include "ui/editor_bars.h"
#include "ui/find_bar.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/touch_desk.h"
#include "ui/touch_keyboard.h"

namespace panel {
namespace {

constexpr QSize kSizes[] = {{640, 480}, {800, 600}, {1024, 768}, {1600, 860}, {1920, 1080}};

class ScreenSizesTest : public PanelFixture {
 protected:
  ScreenSizesTest() {
    Forget();
    RemakeErrors();
  }
  ~ScreenSizesTest() override {
    UseWords("en");
    Forget();
  }
  /// The error tool keeps for which panel its window was.
  void Forget() {
    constexpr std::int32_t kSetup = 52;
    const auto path = rig_.Files().HostPath(rig_.Files().Path(kSetup) + u"\\errman.ini");
    if (path) std::remove(path->c_str());
  }
  void Resize(const QSize& size) {
    window_->resize(size);
    Settle();
  }
  /// Makes the error tool again, which measures the panel when it is made.
  void RemakeErrors() {
    for (int i = 0; i < 2; ++i) {
      window_->Row().Key(RowKey::kLanguage)->click();
      Settle();
    }
  }
  [[nodiscard]] QRect Area() const { return window_->ToolAreaWidget()->rect(); }
  void LeaveCalculatorAt(const std::string& place) {
    const auto path = rig_.Files().HostPath(u"C:\\CNC\\USER\\Calc7340.ini");
    ASSERT_TRUE(path);
    std::FILE* file = std::fopen(path->c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs(("[COMMON]\r\nWindow=" + place + "\r\nMinimized=NO\r\n").c_str(), file);
    std::fclose(file);
  }
  [[nodiscard]] QStringList SideTexts() const {
    QStringList texts;
    for (const SoftKeyItem& item : window_->SideBar().Items()) texts << item.text;
    return texts;
  }
  /// Whether all of the widget is in the part of the tool area that is seen.
  [[nodiscard]] bool IsSeen(const QWidget& widget) const {
    const QWidget* area = window_->ToolAreaWidget();
    const QRect seen = area->mask().isEmpty() ? area->rect() : area->mask().boundingRect();
    return widget.isVisible() && seen.contains(QRect(widget.mapTo(area, QPoint(0, 0)), widget.size()));
  }
};

// Its middle was empty on a large screen.
TEST_F(ScreenSizesTest, TheStatusStripIsFilled) {
  for (const QSize& size : kSizes) {
    Resize(size);
    const StatusStrip& strip = window_->Status();
    const QRect errors = strip.Indicator().geometry();
    EXPECT_EQ(errors.right() + 1, strip.width()) << size.width();
    EXPECT_EQ(errors.height(), strip.height()) << size.width();
    if (window_->Layout().wide) {
      EXPECT_GE(errors.width(), strip.width() / 5) << size.width();
    }
  }
}

TEST_F(ScreenSizesTest, TheErrorWindowTakesTheWidthOfTheToolArea) {
  for (const QSize& size : kSizes) {
    Resize(size);
    RemakeErrors();
    Raise(pnl::rig::MachineControl::Fault::kDriveFault);
    ASSERT_TRUE(ErrorsShown());
    EXPECT_EQ(Errors()->width(), Area().width()) << size.width();
    EXPECT_EQ(Errors()->x(), 0);
    EXPECT_TRUE(Area().contains(Errors()->geometry())) << size.width();
    rig_.Cnc().ClearErrors();
    Settle();
  }
}

// A machine's owner may have put the window elsewhere.
TEST_F(ScreenSizesTest, AnErrorWindowThatLeavesMoreRoomKeepsIt) {
  Resize({1920, 1080});
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  for (const QRect& place : {QRect(0, 0, Area().width() * 3 / 4, 300), QRect(60, 0, Area().width() - 70, 300)}) {
    Errors()->setGeometry(place);
    Settle();
    EXPECT_EQ(Errors()->geometry(), place);
  }
  window_->ResizeToolArea(QSize(1000, 600));
  Errors()->setGeometry(0, 0, 990, 300);
  Settle();
  EXPECT_EQ(Errors()->width(), 990) << "a script places it itself";
}

// At the right the error tool leaves 90 of 800 pixels for soft keys, which the panel has elsewhere.
TEST_F(ScreenSizesTest, OnlyTheRoomForSoftKeysIsAddedToTheErrorWindow) {
  Resize({1920, 1080});
  Raise(pnl::rig::MachineControl::Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  for (int width = 1600; width <= 1920; width += 20) {
    Resize({width, 1080});
    const int area = Area().width();
    const int room = area * 90 / 800 + 1;
    ASSERT_GT(room, 90);
    for (const auto& [left, size, wide] :
         {std::tuple(0, area - room - 1, area - room - 1), std::tuple(0, area - room, area),
          std::tuple(-1, area - room, area), std::tuple(1, area - room, area - room)}) {
      Errors()->setGeometry(left, 0, size, 300);
      Settle();
      EXPECT_EQ(Errors()->width(), wide) << area << " at " << left;
    }
  }
}

TEST_F(ScreenSizesTest, TheCalculatorGrowsWithTheToolArea) {
  int before = 0;
  for (const QSize& size : {QSize(800, 600), QSize(1920, 1080), QSize(2560, 1440)}) {
    Resize(size);
    Do(Action::kOpenCalculator);
    const QWidget* tool = Tool(PNL_TOOL_CALCULATOR);
    ASSERT_NE(tool, nullptr);
    EXPECT_GT(tool->width(), before) << size.width();
    EXPECT_LE(tool->width(), Area().width() / 2) << size.width();
    before = tool->width();
    Key(Qt::Key_Escape);
  }
}

// It opened where it was left on a larger screen, and a finger could not reach it.
TEST_F(ScreenSizesTest, TheCalculatorOpensInSightWhereverItWasLeft) {
  for (const QSize& size : kSizes) {
    Resize(size);
    for (const char* place : {"3000,2000", "600,400", "500,150", "-100,-90", "-2000,20"}) {
      LeaveCalculatorAt(place);
      Do(Action::kOpenCalculator);
      const QWidget* tool = Tool(PNL_TOOL_CALCULATOR);
      ASSERT_NE(tool, nullptr);
      EXPECT_TRUE(Area().contains(tool->pos())) << place << " at " << size.width();
      if (tool->height() <= Area().height()) {
        EXPECT_TRUE(Area().contains(tool->geometry())) << place << " at " << size.width();
      }
      Key(Qt::Key_Escape);
      ASSERT_EQ(Tool(PNL_TOOL_CALCULATOR), nullptr);
    }
  }
}

TEST_F(ScreenSizesTest, AnOpenCalculatorComesAlongWhenTheScreenGetsSmaller) {
  Resize({1920, 1080});
  Do(Action::kOpenCalculator);
  QWidget* tool = Tool(PNL_TOOL_CALCULATOR);
  tool->move(Area().width() - tool->width(), Area().height() - tool->height());
  Settle();
  Resize({1024, 768});
  EXPECT_TRUE(Area().contains(tool->pos()));
  // As its keys leave it, partly out of sight.
  tool->move(Area().width() - 30, 10);
  Settle();
  EXPECT_EQ(tool->x(), Area().width() - 30) << "where the operator wants it";
}

TEST_F(ScreenSizesTest, AScriptsCalculatorStaysWhereItWasLeft) {
  window_->ResizeToolArea(QSize(800, 600));
  LeaveCalculatorAt("700,500");
  Do(Action::kOpenCalculator);
  ASSERT_NE(Tool(PNL_TOOL_CALCULATOR), nullptr);
  EXPECT_EQ(Tool(PNL_TOOL_CALCULATOR)->pos(), QPoint(700, 500));
}

// The second field was partly under the touch keyboard on a small screen.
TEST_F(ScreenSizesTest, BothFieldsForReplacingAreSeenAboveTheTouchKeyboard) {
  window_->Touch().SetTouched(true);
  for (const QSize& size : kSizes) {
    Resize(size);
    for (const char* language : {"en", "es"}) {
      if (WordsInUse() != language) window_->Row().Key(RowKey::kLanguage)->click();
      Settle();
      window_->Editor().setFocus();
      Do(Action::kReplace);
      const FindBar& bar = window_->Editor().Finding();
      ASSERT_TRUE(window_->TouchKeys().isVisible()) << size.width();
      for (BarField* field : {&bar.What(), &bar.With()}) {
        field->setFocus();
        Settle();
        EXPECT_TRUE(field->hasFocus());
        EXPECT_TRUE(IsSeen(*field)) << field->accessibleName().toStdString() << size.width();
      }
      EXPECT_TRUE(IsSeen(*bar.ReplaceKey())) << size.width();
      if (size.width() >= 800) {
        EXPECT_TRUE(IsSeen(bar.What()) && IsSeen(*bar.CloseKey())) << size.width();
      }
      Key(Qt::Key_Escape);
    }
  }
  Resize({800, 600});
  window_->Touch().SetTouched(false);
  window_->Touch().PutAway();
  Do(Action::kReplace);
  EXPECT_GT(window_->Editor().Finding().y(), 0) << "below the program's name again";
}

// Undo and its neighbours were in the side bar while a list or a message covered the program.
TEST_F(ScreenSizesTest, AListInFrontHasNoSideKeysOfTheProgram) {
  const QStringList ofProgram = SideTexts();
  ASSERT_TRUE(ofProgram.contains(Say(Word::kUndo)));
  OpenListAtSecond();
  EXPECT_EQ(SideTexts(), QStringList());
  EXPECT_EQ(window_->SideBar().Menu(), 0u);
  Do(Action::kOpenCalculator);
  EXPECT_NE(window_->SideBar().Menu(), 0u);
  Key(Qt::Key_Escape);
  EXPECT_EQ(SideTexts(), QStringList());
  Do(Action::kSwitchRole);
  EXPECT_NE(window_->SideBar().Menu(), 0u) << "the command line has keys of its own";
}

TEST_F(ScreenSizesTest, OverAMessageTheSideBarIsEmptyAndTheProgramGetsItsKeysBack) {
  const QStringList ofProgram = SideTexts();
  op_->RaisePlcMessage(op_->PlcMessages().front().code);
  Settle();
  ASSERT_TRUE(session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES));
  EXPECT_EQ(SideTexts(), QStringList());
  session_.TypeInto(PNL_TOOL_PLC_MESSAGES, Qt::Key_Escape);
  Settle();
  ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES));
  EXPECT_EQ(SideTexts(), ofProgram);
}

TEST_F(ScreenSizesTest, TheKeysOfAToolBehindHelpAreNotThoseOfTheHelp) {
  Do(Action::kOpenMdi);
  ASSERT_NE(window_->SideBar().Menu(), 0u);
  Do(Action::kHelp);
  ASSERT_EQ(session_.WorkingTool(), PNL_TOOL_HELP);
  EXPECT_EQ(window_->SideBar().Menu(), 0u);
  EXPECT_EQ(SideTexts(), QStringList());
  op_->CloseTool(PNL_TOOL_HELP);
  Settle();
  EXPECT_NE(window_->SideBar().Menu(), 0u);
}

}  // namespace
}  // namespace panel
