// SPDX-License-Identifier: MIT
// The help viewer's window: real keys and presses, three panes and a page, at two sizes.
#include "help_stage.h"

#include <QLabel>
#include <QScrollBar>
#include <climits>
#include <cstdlib>

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class HelpWindow : public HelpStage {};

TEST_F(HelpWindow, StartingLeavesTheFocusAndTheScreenAsTheyWere) {
  other->setFocus();
  Make();
  EXPECT_EQ(Focus(), other);
  EXPECT_FALSE(tool->isVisible());
  EXPECT_THAT(TakeHostCalls(), ElementsAre("main menu"));
}

TEST_F(HelpWindow, OpeningFillsTheAreaAndShowsTheMarksPage) {
  Make();
  EXPECT_EQ(OpenAt(), 0);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(tool->geometry(), area->rect());
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
  EXPECT_EQ(Control(help_id::kPage)->property("pnlLocation").toString(), "mdi.htm#OPT0130");
  EXPECT_TRUE(IsFocused(help_id::kPage));
  EXPECT_FALSE(Shows(help_id::kMissing));
  EXPECT_EQ(Contents()->topLevelItemCount(), 1);
  EXPECT_EQ(Contents()->SelectedRow(), 2);
  EXPECT_EQ(TextOf(help_id::kContentsTab), "Contents");
}

TEST_F(HelpWindow, AMissingManualShowsTheStaticAlone) {
  Make();
  EXPECT_EQ(OpenAt(u"NIX0000"), 0);
  EXPECT_TRUE(Shows(help_id::kMissing));
  EXPECT_EQ(TextOf(help_id::kMissing), "File not found.");
  EXPECT_EQ(qobject_cast<QLabel*>(Control(help_id::kMissing))->text(), "File not found.");
  EXPECT_FALSE(Shows(help_id::kPage));
  EXPECT_FALSE(Shows(help_id::kContents));
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(HelpWindow, AFallbackIsSaidAboveThePage) {
  Make();
  EXPECT_EQ(OpenAt(u"OPT0777"), 0);
  EXPECT_TRUE(Shows(help_id::kNotice));
  EXPECT_EQ(TextOf(help_id::kNotice), "There is no page for this mark. Opened instead: home.htm in oper.chm.");
  EXPECT_THAT(TakeHostCalls(), Contains("box"));
}

TEST_F(HelpWindow, ClosingHidesIt) {
  Make();
  OpenAt();
  TakeHostCalls();
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL), 2);
  EXPECT_FALSE(tool->isVisible());
  EXPECT_EQ(PageText(), "");
  EXPECT_EQ(Control(help_id::kPage)->property("pnlLocation").toString(), "");
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolClosed(2,2)"));
}

TEST_F(HelpWindow, ItFollowsItsParent) {
  Make();
  OpenAt();
  area->resize(640, 480);
  Settle();
  EXPECT_EQ(tool->size(), QSize(640, 480));
}

// Panes.

TEST_F(HelpWindow, ATabShowsItsPane) {
  Make();
  OpenAt();
  struct Row {
    int tab;
    int shown;
    std::vector<int> hidden;
  };
  for (const Row& row : {Row{help_id::kIndexTab, help_id::kIndexLine, {help_id::kContents, help_id::kResults}},
                         Row{help_id::kSearchTab, help_id::kSearchLine, {help_id::kContents, help_id::kIndexList}},
                         Row{help_id::kContentsTab, help_id::kContents, {help_id::kIndexLine, help_id::kSearchLine}}}) {
    Touch(row.tab);
    EXPECT_TRUE(IsFocused(row.shown)) << row.tab;
    for (const int id : row.hidden) EXPECT_FALSE(Shows(id)) << id;
    EXPECT_TRUE(Control(row.tab)->property("pnlChecked").toBool());
  }
}

TEST_F(HelpWindow, ThePanesCanBeHiddenAndThePageGetsTheirRoom) {
  Make();
  OpenAt();
  const int before = Control(help_id::kPage)->width();
  Touch(help_id::kPanesKey);
  EXPECT_FALSE(Shows(help_id::kContents));
  EXPECT_GT(Control(help_id::kPage)->width(), before + 200);
  EXPECT_TRUE(IsFocused(help_id::kPage));
  Touch(help_id::kPanesKey);
  EXPECT_TRUE(Shows(help_id::kContents));
  EXPECT_EQ(Control(help_id::kPage)->width(), before);
}

TEST_F(HelpWindow, ATouchedRowOfTheContentsOpensItsPage) {
  Make();
  OpenAt();
  QTreeWidgetItem* top = Contents()->topLevelItem(0);
  ASSERT_EQ(top->childCount(), 2);
  TouchRow(Contents(), Contents()->indexAt(Contents()->visualItemRect(top->child(1)).center()));
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
  EXPECT_EQ(Contents()->SelectedRow(), 3);
}

TEST_F(HelpWindow, ArrowsAndEnterOpenARowOfTheContents) {
  Make();
  OpenAt();
  Touch(help_id::kContentsTab);
  Key(Qt::Key_Down);
  EXPECT_EQ(Contents()->SelectedRow(), 3);
  Key(Qt::Key_Return);
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
  EXPECT_TRUE(IsFocused(help_id::kContents)) << "the list gets the focus again";
}

TEST_F(HelpWindow, TypingInTheIndexFindsTheWordAndEnterOpensIt) {
  Make();
  OpenAt();
  Menu(2003);
  EXPECT_TRUE(IsFocused(help_id::kIndexLine));
  Type(Line(help_id::kIndexLine), "st");
  EXPECT_EQ(List(help_id::kIndexList)->Selection(), 1);
  Key(Qt::Key_Return);
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
  EXPECT_TRUE(IsFocused(help_id::kIndexLine));
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(List(help_id::kIndexList)->Selection(), 3) << "the arrows move in the list below the line";
  Key(Qt::Key_Enter);
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
}

TEST_F(HelpWindow, TheIndexIndentsTheTopicsOfAWord) {
  Make();
  OpenAt();
  EXPECT_EQ(List(help_id::kIndexList)->Item(1), u"start");
  EXPECT_EQ(List(help_id::kIndexList)->Item(2), u"    Starting");
}

TEST_F(HelpWindow, EnterInTheSearchsLineFindsAndTidies) {
  book->found[u"axis"] = {{u"Start", u"start.htm"}, {u"Blocks", u"mdi.htm"}};
  Make();
  OpenAt();
  Menu(2006);
  EXPECT_TRUE(IsFocused(help_id::kSearchLine));
  Type(Line(help_id::kSearchLine), "axis");
  Key(Qt::Key_Return);
  ListBox* results = List(help_id::kResults);
  EXPECT_EQ(results->Item(0), u"Blocks");
  EXPECT_EQ(results->Item(1), u"Start");
  EXPECT_EQ(TextOf(help_id::kSearchStatus), "Pages found: 2");
  EXPECT_TRUE(IsFocused(help_id::kSearchLine));
  Key(Qt::Key_Down);
  EXPECT_EQ(results->Selection(), 1);
  Key(Qt::Key_Return);
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
}

TEST_F(HelpWindow, TheSearchsKeyAndATouchedResultWorkWithoutAKeyboard) {
  SearchForAxis();
  ListBox* results = List(help_id::kResults);
  ASSERT_EQ(results->Count(), 1);
  TouchRow(results, results->model()->index(0, 0));
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
}

// Keys.

TEST_F(HelpWindow, TabMovesFromPaneToPaneAndNeverOutOfTheViewer) {
  book->home = u"mdi.htm";
  Make();
  OpenAt();
  Menu(2003);
  const int expected[] = {help_id::kIndexList, help_id::kPage, help_id::kIndexLine, help_id::kIndexList};
  for (const int id : expected) {
    Key(Qt::Key_Tab);
    EXPECT_TRUE(IsFocused(id)) << id;
  }
}

TEST_F(HelpWindow, TheHostsTabMovesTheFocusOn) {
  Make();
  OpenAt();
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_RESTORE_FOCUS), 0);
  EXPECT_TRUE(IsFocused(help_id::kContents));
  Send(PNL_MSG_TOOL_COMMAND, PNL_COMMAND_RESTORE_FOCUS);
  EXPECT_TRUE(IsFocused(help_id::kPage));
}

TEST_F(HelpWindow, EscapeAsksTheHostFromEveryControl) {
  Make();
  OpenAt();
  for (const int tab : {help_id::kContentsTab, help_id::kIndexTab, help_id::kSearchTab}) {
    Touch(tab);
    TakeHostCalls();
    Key(Qt::Key_Escape);
    EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolWantsClose(2)"));
  }
  tool->setFocus();
  Key(Qt::Key_Escape);
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolWantsClose(2)"));
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(HelpWindow, AltWithTheArrowsGoesBackAndForward) {
  Make();
  OpenAt();
  Menu(2000);
  ASSERT_THAT(PageText(), HasSubstr("Welcome"));
  EXPECT_EQ(Control(help_id::kPage)->property("pnlLocation").toString(), "home.htm");
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_THAT(PageText(), HasSubstr("Welcome"));
  // Without Alt as a system key they are consumed; as plain keys they are the controls'.
  Key(Qt::Key_Left, Qt::GroupSwitchModifier);
  EXPECT_THAT(PageText(), HasSubstr("Welcome"));
  Menu(2002);
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
  Menu(2005);
  EXPECT_THAT(PageText(), HasSubstr("Welcome"));
}

TEST_F(HelpWindow, ItsKeysComeBeforeThePanelsShortcuts) {
  Make();
  OpenAt();
  struct Row {
    int key;
    Qt::KeyboardModifiers modifiers;
    bool taken;
  };
  for (const Row& row : {Row{Qt::Key_Escape, {}, true}, Row{Qt::Key_Tab, {}, true}, Row{Qt::Key_Return, {}, true},
                         Row{Qt::Key_Up, {}, true}, Row{Qt::Key_F, Qt::ControlModifier, true},
                         Row{Qt::Key_Left, Qt::AltModifier, true}, Row{Qt::Key_F5, {}, false}}) {
    QKeyEvent event(QEvent::ShortcutOverride, row.key, row.modifiers);
    event.ignore();
    QApplication::sendEvent(Focus(), &event);
    EXPECT_EQ(event.isAccepted(), row.taken) << row.key;
  }
}

TEST_F(HelpWindow, AKeyThatAControlDoesntNeedGoesNoFurther) {
  class KeyCounter final : public QObject {
   public:
    int keys = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      keys += event->type() == QEvent::KeyPress ? 1 : 0;
      return false;
    }
  } counter;
  area->installEventFilter(&counter);
  Make();
  OpenAt();
  for (const int tab : {help_id::kContentsTab, help_id::kIndexTab, help_id::kSearchTab}) {
    Touch(tab);
    for (const int key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Return, Qt::Key_Tab}) Key(key);
  }
  tool->setFocus();
  for (const int key : {Qt::Key_Up, Qt::Key_Return, Qt::Key_Tab}) Key(key);
  EXPECT_EQ(counter.keys, 0);
}

TEST_F(HelpWindow, ATextIsFoundInThePage) {
  Make();
  OpenAt();
  Touch(help_id::kContentsTab);
  Menu(40002);
  EXPECT_TRUE(IsFocused(help_id::kFindLine));
  Type(Line(help_id::kFindLine), "axis");
  Key(Qt::Key_Return);
  const auto* page = Control(help_id::kPage)->findChild<QTextBrowser*>();
  EXPECT_EQ(page->textCursor().selectedText(), "axis");
  EXPECT_FALSE(Shows(help_id::kNotice));
  Line(help_id::kFindLine)->setText("nowhere");
  Touch(help_id::kFindPrevious);
  EXPECT_EQ(TextOf(help_id::kNotice), "The page does not contain \"nowhere\".");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Shows(help_id::kFindLine));
  EXPECT_TRUE(IsFocused(help_id::kPage));
}

TEST_F(HelpWindow, CtrlFInThePageOpensTheLineAndItsKeyClosesIt) {
  Make();
  OpenAt();
  Key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Shows(help_id::kFindLine));
  Touch(help_id::kFindClose);
  EXPECT_FALSE(Shows(help_id::kFindLine));
}

TEST_F(HelpWindow, ShiftWithEnterFindsThePlaceBefore) {
  Make();
  OpenAt();
  Menu(40002);
  Type(Line(help_id::kFindLine), "a");
  const auto* page = Control(help_id::kPage)->findChild<QTextBrowser*>();
  Key(Qt::Key_Return);
  const int first = page->textCursor().position();
  Key(Qt::Key_Return);
  const int second = page->textCursor().position();
  ASSERT_GT(second, first);
  Key(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(page->textCursor().position(), first);
  Touch(help_id::kFindNext);
  EXPECT_EQ(page->textCursor().position(), second);
  Touch(help_id::kFindPrevious);
  EXPECT_EQ(page->textCursor().position(), first);
  EXPECT_TRUE(IsFocused(help_id::kFindLine)) << "its keys leave it the focus";
}

TEST_F(HelpWindow, TheLineForFindingComesWithItsTextSelected) {
  Make();
  OpenAt();
  Menu(40002);
  Type(Line(help_id::kFindLine), "axis");
  Key(Qt::Key_Escape);
  Menu(40002);
  EXPECT_EQ(Line(help_id::kFindLine)->selectedText(), "axis");
  Key(Qt::Key_Escape);
  Touch(help_id::kIndexTab);
  Type(Line(help_id::kIndexLine), "st");
  Touch(help_id::kContentsTab);
  Touch(help_id::kIndexTab);
  EXPECT_EQ(Line(help_id::kIndexLine)->selectedText(), "st");
  Line(help_id::kIndexLine)->setCursorPosition(1);
  Key(Qt::Key_Return);
  EXPECT_EQ(Line(help_id::kIndexLine)->selectedText(), "") << "who has it already goes on where he was";
}

TEST_F(HelpWindow, ShiftWithTabIsTabAndOnlyCtrlAloneFinds) {
  Make();
  OpenAt();
  Menu(2003);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(IsFocused(help_id::kIndexList));
  for (const auto modifiers : {Qt::KeyboardModifiers(), Qt::ShiftModifier | Qt::ControlModifier}) {
    Key(Qt::Key_F, modifiers);
    EXPECT_FALSE(Shows(help_id::kFindLine)) << modifiers;
  }
  Key(Qt::Key_Left, Qt::ShiftModifier);
  Key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_THAT(PageText(), HasSubstr("Type a block.")) << "Alt is for left and right, and they are for Alt";
}

TEST_F(HelpWindow, AManualThatGoesLeavesItsFocusInTheViewer) {
  Make();
  OpenAt();
  Touch(help_id::kSearchTab);
  EXPECT_EQ(OpenAt(u"NIX0000"), 0);
  EXPECT_EQ(Focus(), tool) << "and no other control of the panel gets it";
}

TEST_F(HelpWindow, ALinkOfThePageIsFollowed) {
  Make();
  OpenAt();
  Menu(2000);
  auto* view = static_cast<PageView*>(Control(help_id::kPage));
  EXPECT_TRUE(view->Follow(u"start.htm"));
  EXPECT_THAT(PageText(), HasSubstr("Switch on."));
  EXPECT_EQ(Contents()->SelectedRow(), 3);
  EXPECT_FALSE(view->Follow(u"http://example.org/"));
  EXPECT_EQ(TextOf(help_id::kNotice), "The link cannot be followed: http://example.org/");
}

TEST_F(HelpWindow, APageWithOddCharactersInItsNameIsShown) {
  const Text name = u"100% #1 why?.htm";
  book->pages.push_back(name);
  static_cast<MemoryPages&>(*book->Pages()).texts[name] = "<p>odd</p>";
  book->contents.push_back({u"Odd", {name, u""}, 0});
  Make();
  OpenAt();
  Contents()->SelectRow(4);
  Touch(help_id::kContentsTab);
  Key(Qt::Key_Return);
  EXPECT_THAT(PageText(), HasSubstr("odd"));
}

// Slow manuals don't hold the window up.

TEST_F(HelpWindow, WhileAManualIsBeingOpenedTheWindowIsThere) {
  world.slow = true;
  Make();
  EXPECT_EQ(OpenAt(), 0);
  EXPECT_EQ(TextOf(help_id::kNotice), "Opening oper.chm ...");
  world.done({ManualState::kDamaged, book});
  Settle();
  EXPECT_THAT(PageText(), HasSubstr("Type a block."));
  EXPECT_EQ(TextOf(help_id::kNotice), "The manual oper.chm is damaged. What can be read of it is shown.");
}

// Sizes.

class HelpSizes : public testing::TestWithParam<QSize> {};

class SizedStage : public HelpStage {
 public:
  explicit SizedStage(QSize size) : HelpStage(size) {}
  void TestBody() override {}
  void Look() {
    book->found[u"axis"] = {{u"Start", u"start.htm"}, {u"Blocks", u"mdi.htm"}};
    Make();
    OpenAt();
    for (const int tab : {help_id::kContentsTab, help_id::kIndexTab, help_id::kSearchTab}) {
      Touch(tab);
      CheckPlaces();
    }
    Menu(40002);
    CheckPlaces();
    const int row = Contents()->visualItemRect(Contents()->topLevelItem(0)).height();
    EXPECT_GE(row, 34);
    for (const int list : {help_id::kIndexList, help_id::kResults}) EXPECT_EQ(List(list)->RowHeight(), row) << list;
    EXPECT_GE(Control(help_id::kPage)->width(), tool->width() / 2);
    Touch(help_id::kContentsTab);
    CheckTriangle();
  }

 private:
  /// The triangle before a row that has rows inside grows with the row, and points down when they are shown.
  void CheckTriangle() {
    QTreeWidgetItem* top = Contents()->topLevelItem(0);
    const QRect open = TriangleOf(top);
    const int height = Contents()->visualItemRect(top).height();
    EXPECT_GE(open.width(), std::max(12, height / 3));
    EXPECT_GT(open.width(), open.height());
    if (height > 50) {
      EXPECT_GE(std::min(open.width(), open.height()), 12);
    }
    // Pressed in its middle the row closes, and no page is shown.
    const Text page = static_cast<PageView*>(Control(help_id::kPage))->Address();
    PressMouse(Contents()->viewport(), open.center());
    PressMouse(Contents()->viewport(), open.center(), QEvent::MouseButtonRelease);
    Settle();
    EXPECT_FALSE(top->isExpanded());
    EXPECT_EQ(static_cast<PageView*>(Control(help_id::kPage))->Address(), page);
    const QRect closed = TriangleOf(top);
    EXPECT_GT(closed.height(), closed.width());
    Contents()->SelectRow(0);
    const QRect selected = TriangleOf(top);
    EXPECT_GE(selected.height(), closed.height() - 2) << "it can be seen in the selected row too";
    EXPECT_GT(selected.height(), selected.width());
    top->setExpanded(true);
    EXPECT_TRUE(TriangleOf(top->child(1)).isEmpty()) << "it has no rows inside";
  }
  /// What is painted before the row's text.
  QRect TriangleOf(QTreeWidgetItem* item) {
    const QRect row = Contents()->visualItemRect(item);
    const QImage image = Contents()->viewport()->grab().toImage();
    const QColor back = image.pixelColor(row.left() - 1, row.top() + 1);
    QRegion dark;
    for (int y = row.top(); y <= row.bottom(); ++y) {
      for (int x = row.left() - Contents()->indentation(); x < row.left(); ++x) {
        if (std::abs(image.pixelColor(x, y).lightness() - back.lightness()) > 100) dark += QRect(x, y, 1, 1);
      }
    }
    return dark.boundingRect();
  }
  /// Every control that is shown lies in the window, can be touched, and lies over no other.
  void CheckPlaces() {
    std::vector<std::pair<int, QRect>> taken;
    for (QWidget* control : tool->findChildren<QWidget*>()) {
      if (ControlId(control) < 0 || !control->isVisible()) continue;
      const QRect place(control->mapTo(tool, QPoint(0, 0)), control->size());
      EXPECT_TRUE(tool->rect().contains(place)) << ControlId(control);
      if (ControlKind(control) == "button" || ControlKind(control) == "edit") {
        EXPECT_GE(place.height(), 34) << ControlId(control);
        EXPECT_GE(place.width(), 28) << ControlId(control);
      }
      for (const auto& [id, rect] : taken) EXPECT_FALSE(rect.intersects(place)) << id << ControlId(control);
      taken.emplace_back(ControlId(control), place);
    }
    EXPECT_GE(taken.size(), 5u);
  }
};

TEST_P(HelpSizes, EveryControlHasItsPlace) { SizedStage(GetParam()).Look(); }

INSTANTIATE_TEST_SUITE_P(Panels, HelpSizes, testing::Values(QSize(800, 600), QSize(800, 460), QSize(1920, 1080)));

// Without a size the font was one pixel high.
TEST_F(HelpWindow, APanelThatAnswersNoFontOrAnAbsurdOneGetsAFontThatCanBeRead) {
  struct Row {
    int answer;
    int font;
  };
  for (const Row& row : {Row{0, 17}, Row{-5, 17}, Row{1, 8}, Row{30, 30}, Row{96, 96}, Row{97, 96}, Row{INT_MAX, 96}}) {
    ASSERT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {row.answer}));
    const HelpScale scale(context.cnc.Util());
    EXPECT_EQ(scale.Font(), row.font) << row.answer;
    EXPECT_GE(scale(help_look::kKeyHeight), help_look::kKeyHeight) << row.answer;
  }
}

}  // namespace
}  // namespace pnl::test
