// SPDX-License-Identifier: MIT
// The controls of the error window: which are shown, where they lie, in which fonts they write; and its keys beside the
// panel's.
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>

#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "error_stage.h"
#include "errors/qt/error_counter_widget.h"
#include "errors/qt/error_text_widget.h"

namespace pnl::test {
namespace {

class ErrorControlsTest : public ErrorStage {
 protected:
  [[nodiscard]] QRect PlaceOf(int id) const { return Control(id)->geometry(); }
  /// Whether the window claims the key before the panel's shortcuts.
  [[nodiscard]] bool Claims(int key, Qt::KeyboardModifiers modifiers = {}) const {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
    event.ignore();
    QCoreApplication::sendEvent(tool, &event);
    return event.isAccepted();
  }
};

TEST_F(ErrorControlsTest, OnlyTheTextsAndTheTitleBoxAreShownBeforeTheFirstError) {
  Open();
  for (const int id : {error_id::kTitleLine, error_id::kDescription, error_id::kTitleBox}) {
    EXPECT_FALSE(Control(id)->isHidden()) << id;
  }
  for (const int id : {error_id::kChannelBox, error_id::kBefore, error_id::kAfter, error_id::kPrevious, error_id::kNext,
                       error_id::kHelp, error_id::kAcknowledge, error_id::kConfirmSign, error_id::kMarkedSign}) {
    EXPECT_TRUE(Control(id)->isHidden()) << id;
  }
}

TEST_F(ErrorControlsTest, LieAsTheDialogSaysInTheWindowsSize) {
  Open();
  Push(RecordBuilder());
  ASSERT_EQ(tool->size(), QSize(710, 298));
  EXPECT_EQ(PlaceOf(error_id::kPrevious), QRect(11, 10, 30, 33));
  EXPECT_EQ(PlaceOf(error_id::kBefore), QRect(20, 43, 30, 16));
  EXPECT_EQ(PlaceOf(error_id::kNext), QRect(657, 10, 30, 33));
  EXPECT_EQ(PlaceOf(error_id::kAfter), QRect(663, 43, 30, 16));
  EXPECT_EQ(PlaceOf(error_id::kTitleBox), QRect(195, 10, 320, 42));
  EXPECT_EQ(PlaceOf(error_id::kHelp), QRect(525, 10, 30, 33));
  EXPECT_EQ(PlaceOf(error_id::kAcknowledge), QRect(565, 10, 30, 33));
  EXPECT_EQ(PlaceOf(error_id::kTitleLine), QRect(11, 63, 688, 34));
  EXPECT_EQ(PlaceOf(error_id::kDescription), QRect(11, 109, 688, 174));
}

// On a large screen the pictures were as small as on a small one.
TEST_F(ErrorControlsTest, InALargerPanelTheDialogsControlsAreLargerAndStillBesideEachOther) {
  struct Row {
    QSize area;
    QSize picture;
    int titleHeight;
  };
  for (const Row& row : {Row{{800, 600}, {30, 33}, 34}, Row{{1000, 750}, {38, 41}, 43}, Row{{1600, 900}, {45, 49}, 51},
                         Row{{1920, 1200}, {60, 65}, 68}}) {
    delete tool;
    area->resize(row.area);
    cnc.ClearErrors();
    const std::string corner = std::to_string(row.area.width() * 71 / 80) + "," + std::to_string(row.area.height() / 2);
    WindowStage::Disc("C:\\P52\\errman.ini", "[COMMON]\r\nWindow=0,0," + corner + "\r\n");
    Open();
    for (int i = 0; i < 3; ++i) Push(RecordBuilder().Number(1000 + i));
    Key(Qt::Key_Right);
    EXPECT_EQ(PlaceOf(error_id::kHelp).size(), row.picture) << row.area.width();
    EXPECT_EQ(PlaceOf(error_id::kTitleLine).height(), row.titleHeight) << row.area.width();
    EXPECT_EQ(PlaceOf(error_id::kTitleBox).width(), 320);
    EXPECT_EQ(PlaceOf(error_id::kHelp).left(), PlaceOf(error_id::kTitleBox).right() + 1 + 10);
    EXPECT_EQ(PlaceOf(error_id::kDescription).bottom() + 1, tool->height() - 15);
    std::vector<QRect> shown;
    for (QWidget* each : tool->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (each->isVisible()) shown.push_back(each->geometry());
    }
    ASSERT_GE(shown.size(), 8u);
    for (std::size_t i = 0; i < shown.size(); ++i) {
      EXPECT_TRUE(tool->rect().contains(shown[i])) << row.area.width();
      for (std::size_t j = i + 1; j < shown.size(); ++j)
        EXPECT_FALSE(shown[i].intersects(shown[j])) << row.area.width();
    }
  }
}

TEST_F(ErrorControlsTest, TheTitleIsCentredAndTheDescriptionBeginsAtItsCorner) {
  Open();
  Push(RecordBuilder().Number(1000));
  const auto written = [this](int id) { return Ink(Paint(*Control(id)), 0xBFC9D3); };
  const QRect title = written(error_id::kTitleLine);
  EXPECT_NEAR(title.center().x(), PlaceOf(error_id::kTitleLine).width() / 2, 3);
  EXPECT_LT(written(error_id::kDescription).left(), 12);
}

TEST_F(ErrorControlsTest, WriteInTheFontsOfTheIniFile) {
  WindowStage::Disc("C:\\P52\\errman.ini", "[PRIVATE]\r\nFontTitle=x,30,400,1,1,1\r\nFontText=x,26,500,1,1,1\r\n");
  Open();
  const QFont text = MakeFont("Arial", 26, 500).value();
  const auto texts = tool->findChildren<ErrorTextWidget*>();
  EXPECT_EQ(texts.size(), 2);
  for (const ErrorTextWidget* each : texts) {
    EXPECT_EQ(each->TextFont().pixelSize(), text.pixelSize());
    EXPECT_EQ(each->TextFont().weight(), 500);
    EXPECT_TRUE(each->TextFont().italic() && each->TextFont().underline() && each->TextFont().strikeOut());
  }
  const auto counters = tool->findChildren<ErrorCounterWidget*>();
  EXPECT_EQ(counters.size(), 2);
  for (const ErrorCounterWidget* each : counters) {
    EXPECT_EQ(each->font().families(), MakeFont("Arial", 30, 700)->families());
    EXPECT_EQ(each->font().weight(), 700) << "the counters are bold whatever the title is";
    EXPECT_TRUE(each->font().italic());
  }
}

TEST_F(ErrorControlsTest, TheBoxesWriteInTheTitlesFont) {
  const auto box = [this](const char* font) {
    WindowStage::Disc("C:\\P52\\errman.ini", std::string("[PRIVATE]\r\nFontTitle=") + font + "\r\n");
    if (tool != nullptr) delete tool;
    Open();
    cnc.ClearErrors();
    Push(RecordBuilder());
    return Paint(*Control(error_id::kTitleBox));
  };
  const QImage plain = box("x,21,400");
  EXPECT_EQ(box("x,21,400"), plain);
  for (const char* differs : {"x,28,400", "x,21,800", "x,21,400,1", "x,21,400,0,1", "x,21,400,0,0,1"}) {
    EXPECT_NE(box(differs), plain) << differs;
  }
}

TEST_F(ErrorControlsTest, ItsKeysComeBeforeThePanelsAndNoOthers) {
  Open();
  Push(RecordBuilder());
  for (const int key :
       {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    EXPECT_TRUE(Claims(key)) << key;
    EXPECT_FALSE(Claims(key, Qt::ControlModifier)) << key;
  }
  for (const int key : {Qt::Key_F1, Qt::Key_A, Qt::Key_Delete}) EXPECT_FALSE(Claims(key)) << key;
}

TEST_F(ErrorControlsTest, AKeyOfTheWindowDoesntReachThePanelEvenIfItComesUnaccepted) {
  Open();
  Push(RecordBuilder());
  for (const bool used : {true, false}) {
    QKeyEvent press(QEvent::KeyPress, used ? Qt::Key_Right : Qt::Key_F1, Qt::NoModifier);
    press.ignore();
    QCoreApplication::sendEvent(tool, &press);
    EXPECT_EQ(press.isAccepted(), used);
  }
}

TEST_F(ErrorControlsTest, TabStaysInTheWindowWhileItIsShown) {
  Open();
  Push(RecordBuilder());
  ASSERT_TRUE(tool->hasFocus());
  Key(Qt::Key_Tab);
  EXPECT_TRUE(tool->hasFocus());
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(tool->hasFocus());
}

TEST_F(ErrorControlsTest, APressOnItTakesTheKeysBack) {
  Open();
  Push(RecordBuilder());
  other->setFocus();
  PressMouse(tool, PlaceOf(error_id::kDescription).center());
  EXPECT_TRUE(tool->hasFocus());
}

// It has to see a second press at a place from which the first one has taken the picture.
TEST_F(ErrorControlsTest, EveryPressIsTheWindowsOwn) {
  Open();
  for (const int number : {1000, 1001, 1002}) Push(RecordBuilder().Number(number));
  Key(Qt::Key_Right);
  for (const int id : {error_id::kTitleBox, error_id::kTitleLine, error_id::kDescription, error_id::kPrevious,
                       error_id::kBefore, error_id::kNext, error_id::kAfter, error_id::kAcknowledge}) {
    ASSERT_TRUE(Control(id)->isVisible()) << id;
    EXPECT_EQ(area->childAt(tool->mapTo(area, PlaceOf(id).center())), tool) << id;
  }
}

TEST_F(ErrorControlsTest, WhatLiesBehindAControlIsNotPaintedWithIt) {
  Open();
  Push(RecordBuilder());
  for (const int id : {error_id::kTitleBox, error_id::kTitleLine, error_id::kDescription, error_id::kAcknowledge}) {
    ASSERT_TRUE(Control(id)->isVisible()) << id;
    SCOPED_TRACE(id);
    ExpectPaintedAlone(*Control(id), *tool);
  }
  ExpectPaintedAlone(*tool, *area);
}

TEST_F(ErrorControlsTest, TheHotKeyIsOneForTheWholePanelHoweverOftenItIsAskedFor) {
  Open();
  Send(PNL_MSG_TOOL_NOTIFY, 2, 1);
  const auto hotKeys = panel.findChildren<QShortcut*>();
  ASSERT_EQ(hotKeys.size(), 1);
  EXPECT_EQ(hotKeys[0]->context(), Qt::ApplicationShortcut);
  EXPECT_EQ(hotKeys[0]->property(property::kOwner).toUInt(), handle);
}

TEST_F(ErrorControlsTest, ThePointerWaitsWhileAnErrorIsAcknowledged) {
  Open();
  Push(RecordBuilder().Severity(7));
  bool waited = false;
  onHostCall = [&](const std::string& call) {
    if (!call.starts_with("HostToolClosed")) return;
    const QCursor* pointer = QApplication::overrideCursor();
    waited = pointer != nullptr && pointer->shape() == Qt::WaitCursor;
  };
  Key(Qt::Key_Escape);
  EXPECT_TRUE(waited);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// The panel's own text is bright, the error window's is black on its own field.
TEST_F(ErrorControlsTest, TheTextIsBlackWhateverThePanelsColoursAre) {
  ErrorTextWidget text(1000, false, nullptr);
  QPalette bright;
  bright.setColor(QPalette::WindowText, Qt::green);
  text.setPalette(bright);
  text.resize(200, 60);
  text.SetText("HHHHHH");
  const QImage image = Paint(text);
  int darkest = 255;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) darkest = std::min(darkest, image.pixelColor(x, y).green());
  }
  EXPECT_LT(darkest, 100);
}

}  // namespace
}  // namespace pnl::test
