// SPDX-License-Identifier: MIT
// The explorer's form in its window: places, fonts, colours and focus of its controls, and what still reaches a window
// that is closed.
#include "controls/fonts.h"
#include "controls/qt/paint_counter.h"
#include "explorer/qt/xplr_window_stage.h"
#include "explorer/xplr_layout.h"
#include "host/pack_files.h"
#include "support/text_catcher.h"
#include "window/qt/qt_rect.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(XplrWindowTest, EachControlIsWhereTheLayoutHasIt) {
  Open();
  for (const LayoutMode mode : {LayoutMode::kTreeAndList, LayoutMode::kPinnedList}) {
    for (const QSize size : {QSize(700, 500), QSize(790, 600)}) {
      area->resize(size);
      Idle();
      const XplrLayout layout = LayOutXplr(size.width(), size.height(), mode);
      const std::pair<int, Rect> expected[] = {
          {xplr_control::kCaption, layout.caption}, {xplr_control::kFilter, layout.filter},
          {xplr_control::kFolder, layout.folder},   {xplr_control::kLabel, layout.label},
          {xplr_control::kName, layout.name},       {xplr_control::kTree, layout.tree},
          {xplr_control::kList, layout.list}};
      for (const auto& [id, place] : expected) EXPECT_EQ(Control(id)->geometry(), ToQRect(place)) << id;
    }
    Send(PNL_MSG_COMMAND, xplr_command::kTogglePin);
    Idle();
  }
}

struct FontsCase {
  int panelHeight;
  int caption;
  int headings;
  int panes;
};

TEST_F(XplrWindowTest, OnAHighPanelItsFontsAreLarger) {
  windows.SetMainWindow(WindowRegistry::Instance().Attach(&panel, nullptr, nullptr));
  Disc("C:\\P15\\LPNLTOOLS.DLL",
       *ReadPackFile(PackFolders(nullptr, QCoreApplication::applicationFilePath().toStdString()), "en"));
  for (const FontsCase& row : {FontsCase{600, 18, 16, 15}, {900, 30, 24, 21}}) {
    panel.resize(912, row.panelHeight);
    Open();
    const std::pair<int, int> headings[] = {{xplr_control::kCaption, row.caption},
                                            {xplr_control::kFilter, row.headings},
                                            {xplr_control::kFolder, row.headings},
                                            {xplr_control::kLabel, row.headings}};
    for (const auto& [id, height] : headings) {
      const std::string font = " " + std::to_string(MakeFont("Arial", height, 600)->pixelSize()) + " px weight 600";
      EXPECT_THAT(StrokesOf(*Control(id)), Contains(HasSubstr(font))) << id;
    }
    EXPECT_EQ(Name()->font().pixelSize(), MakeFont("Arial", row.headings, 600)->pixelSize());
    EXPECT_EQ(Name()->font().weight(), 600);
    EXPECT_EQ(Tree()->font().pixelSize(), MakeFont("Arial", row.panes, 500)->pixelSize());
    EXPECT_EQ(List()->RowFont().pixelSize(), MakeFont("Arial", row.panes, 500)->pixelSize());
    Send(PNL_MSG_COMMAND, xplr_command::kFind);
    Idle();
    ASSERT_EQ(explorer->findChildren<ZCFind*>().size(), 1);
    const auto* edit = explorer->findChild<ZCFind*>()->findChild<QLineEdit*>();
    EXPECT_EQ(edit->font().pixelSize(), MakeFont("Arial", row.headings, 600)->pixelSize());
    delete explorer;
    Idle();
  }
}

TEST_F(XplrWindowTest, TheHeadingOfThePaneWithTheFocusIsLit) {
  Open();
  const auto colors = [this](int id) {
    return std::pair(Control(id)->property("pnlFrame").toUInt(), Back(Control(id)));
  };
  const std::pair<uint, uint> lit{4608090, 12569043};
  const std::pair<uint, uint> dark{12569043, 8621463};
  for (const int focus : {xplr_control::kList, xplr_control::kTree, xplr_control::kName, xplr_control::kTree,
                          xplr_control::kList, xplr_control::kName}) {
    Control(focus)->setFocus();
    Idle();
    EXPECT_EQ(colors(xplr_control::kFilter), focus == xplr_control::kTree ? lit : dark) << focus;
    EXPECT_EQ(colors(xplr_control::kFolder), focus == xplr_control::kList ? lit : dark) << focus;
  }
}

TEST_F(XplrWindowTest, TheCaptionHasTheNameOnceItsFieldGetsTheFocus) {
  Open();
  Name()->insert("x.nc");
  Idle();
  EXPECT_NE(TextOf(xplr_control::kCaption), " Pick = " + Name()->text().toStdString());
  Name()->setFocus();
  Idle();
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = " + Name()->text().toStdString());
}

TEST_F(XplrWindowTest, AnotherSizeLeavesTheFocusWhereItIs) {
  Open();
  for (const int id : {xplr_control::kTree, xplr_control::kList, xplr_control::kName}) {
    Control(id)->setFocus();
    area->resize(600 + id, 500);
    Idle();
    EXPECT_EQ(Focus(), Control(id)) << id;
  }
}

TEST_F(XplrWindowTest, NothingUnderItIsPaintedWithIt) {
  Open();
  Settle();
  const PaintCounter paints(*area);
  explorer->update();
  Settle();
  EXPECT_EQ(paints.Count(), 0);
}

// ---------------------------------------------------------------- keys, messages and the end

TEST_F(XplrWindowTest, GivingTheFocusBackWithoutAFocusDoesNothing) {
  Open();
  Focus()->clearFocus();
  ASSERT_EQ(Focus(), nullptr);
  static int warnings;
  warnings = 0;
  const auto before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_RESTORE_FOCUS);
  Idle();
  qInstallMessageHandler(before);
  EXPECT_EQ(warnings, 0);
  EXPECT_EQ(Focus(), nullptr);
}

TEST_F(XplrWindowTest, AMessageThatDestroysItIsAnsweredByZero) {
  Open();
  onHostCall = [this](const std::string&) { delete area; };
  EXPECT_EQ(windows.Send(List()->Handle(), {RegisterMessage("XPLR_END_FIND"), 0, 0}), 0);
  onHostCall = nullptr;
  EXPECT_TRUE(explorer.isNull());
}

TEST_F(XplrWindowTest, OnceClosedItTakesNoKeyAndNoMessage) {
  Open();
  TakeHostCalls();
  Key(Qt::Key_Escape);
  ASSERT_FALSE(explorer.isNull()) << "it goes once the key has been handled";
  EXPECT_FALSE(explorer->isVisible());
  EXPECT_THAT(WindowRegistry::Instance().ToolWindows(), IsEmpty());
  PressKey(explorer, Qt::Key_Escape);
  const Log calls = TakeHostCalls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "HostToolClosed(5,2)"), 1);
}

TEST_F(XplrWindowTest, ADoubleClickOnAFileAcceptsIt) {
  Open();
  PressRow(1);
  PressRow(1, QEvent::MouseButtonRelease);
  PressRow(1, QEvent::MouseButtonDblClick);
  EXPECT_TRUE(FieldText(request.File) == u"B.TXT");
  EXPECT_THAT(TakeHostCalls(), testing::IsSupersetOf({"HostToolClosed(5,1)", "HostExplorerAccepted"}));
  EXPECT_TRUE(explorer.isNull());
}

TEST_F(XplrWindowTest, TheNameFieldChangesItsColoursWithTheFocus) {
  Open();
  EXPECT_EQ(Back(Name()), 10595253u);
  EXPECT_EQ(Fore(Name()), 0u);
  Name()->setFocus();
  EXPECT_EQ(Back(Name()), 660510u);
  EXPECT_EQ(Fore(Name()), 0xffffffu);
  List()->setFocus();
  EXPECT_EQ(Back(Name()), 10595253u);
}

TEST_F(XplrWindowTest, TheHeadingsHaveTheirColoursAndSides) {
  Open();
  auto* caption = qobject_cast<ZWCStatic*>(Control(xplr_control::kCaption));
  EXPECT_EQ(caption->FrameColor(), 12569043u);
  EXPECT_EQ(caption->BackColor(), 8621463u);
  EXPECT_EQ(caption->TextColor(), 0xffffffu);
  EXPECT_EQ(caption->Format(), 0x8864u);
  auto* label = qobject_cast<ZWCStatic*>(Control(xplr_control::kLabel));
  EXPECT_EQ(label->FrameColor(), 12569043u);
  EXPECT_EQ(label->BackColor(), 8621463u);
  EXPECT_EQ(label->TextColor(), 0u);
  EXPECT_EQ(label->Format(), 0x8864u);
  EXPECT_EQ(qobject_cast<ZWCStatic*>(Control(xplr_control::kFilter))->Format(), 0x8866u);
  EXPECT_EQ(qobject_cast<ZWCStatic*>(Control(xplr_control::kFolder))->Format(), 0x8864u);
  EXPECT_EQ(TextOf(xplr_control::kFilter), "*");
  for (int column = 0; column < 3; ++column) {
    EXPECT_EQ(List()->model()->headerData(column, Qt::Horizontal).toString().toStdString(),
              ToUtf8(language.LoadToolText(13 + column)));
  }
  // A gap between label and name shows the frame.
  EXPECT_EQ(ColorAt(Paint(*explorer), 100, 590), 4608090u);
}

TEST_F(XplrWindowTest, ThePinTakesTheFilterAwayToo) {
  Open();
  for (const bool shown : {false, true}) {
    Send(PNL_MSG_COMMAND, xplr_command::kTogglePin);
    Idle();
    EXPECT_EQ(Control(xplr_control::kFilter)->isVisible(), shown);
    EXPECT_EQ(Tree()->isVisible(), shown);
    EXPECT_EQ(Tree()->isEnabled(), shown) << "Tab passes a tree that isn't shown";
  }
}

TEST_F(XplrWindowTest, EnterAndEscapeComeBeforeTheShortcutsOfThePanel) {
  Open();
  for (QWidget* control :
       {static_cast<QWidget*>(List()), static_cast<QWidget*>(Tree()), static_cast<QWidget*>(Name())}) {
    for (const auto& [key, taken] :
         {std::pair(Qt::Key_Return, true), {Qt::Key_Enter, true}, {Qt::Key_Escape, true}, {Qt::Key_F5, false}}) {
      QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
      event.ignore();
      QApplication::sendEvent(control, &event);
      EXPECT_EQ(event.isAccepted(), taken) << key;
    }
  }
}

TEST_F(XplrWindowTest, GivingTheFocusBackMovesOnByATab) {
  Open();
  Name()->setFocus();
  QWidget* before = Focus();
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_RESTORE_FOCUS);
  EXPECT_EQ(Focus(), before) << "the key is posted";
  Idle();
  EXPECT_NE(Focus(), before);
}

TEST_F(XplrWindowTest, ItFillsItsParentWhateverItsSize) {
  Open();
  for (const QSize size : {QSize(700, 500), QSize(900, 650)}) {
    area->resize(size);
    Idle();
    EXPECT_EQ(explorer->geometry(), QRect(QPoint(0, 0), size));
    EXPECT_EQ(List()->parentWidget()->geometry(), QRect(QPoint(0, 0), size)) << "the form";
  }
}

}  // namespace
}  // namespace pnl::test
