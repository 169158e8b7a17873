// SPDX-License-Identifier: MIT
// Finding, replacing and going to a line in the program editor: what is marked, what is counted, what one undo takes
// back, and that the panel hears its keys meanwhile.
#include "ui/program_search.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTextBlock>

#include "common/words.h"
#include "remote/settle.h"
#include "ui/find_bar.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"

namespace panel {
namespace {

constexpr int kPatience = 60'000;

class SearchTest : public ::testing::Test {
 protected:
  SearchTest() : editor_(nullptr) {
    UseWords("en");
    editor_.resize(600, 400);
    editor_.show();
    editor_.activateWindow();
    QObject::connect(&editor_, &ProgramEditor::Said, &editor_,
                     [this](const QString& text, bool warning) { said_ << (warning ? "!" : "") + text; });
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  FindBar& Bar() { return editor_.Finding(); }
  void Find(const QString& what) {
    editor_.Do(Action::kFind);
    Bar().What().setText(what);
    Rest();
  }
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return editor_.Working(); }, kPatience));
  }
  void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&widget, &press);
  }
  /// What is marked, as "line:column text".
  QString Marked() {
    const QTextCursor mark = editor_.Edit().textCursor();
    const QTextBlock block = editor_.Edit().document()->findBlock(mark.selectionStart());
    return QStringLiteral("%1:%2 %3")
        .arg(block.blockNumber() + 1)
        .arg(mark.selectionStart() - block.position() + 1)
        .arg(mark.selectedText());
  }
  /// How often something that is posted again and again is heard while the editor works.
  int HeardWhileWorking() {
    int heard = 0;
    std::function<void()> next;
    // The calls that are still posted to it at the end go with it.
    QObject here;
    next = [&] {
      ++heard;
      if (editor_.Working()) QMetaObject::invokeMethod(&here, next, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(&here, next, Qt::QueuedConnection);
    EXPECT_TRUE(WaitWhile([this] { return editor_.Working(); }, kPatience));
    return heard;
  }
  ProgramEditor editor_;
  QStringList said_;
};

TEST_F(SearchTest, EachPlaceIsMarkedInTurnAndTheSearchGoesOnAtTheOtherEnd) {
  editor_.SetProgram("G1 X1\nG0\ng1 Y G1\n", "P");
  Find("G1");
  EXPECT_EQ(Marked(), "1:1 G1");
  EXPECT_EQ(Bar().CountText(), "1 of 3");
  Bar().NextKey()->click();
  EXPECT_EQ(Marked(), "3:1 g1");
  Press(Bar().What(), Qt::Key_Return);
  EXPECT_EQ(Marked(), "3:6 G1");
  EXPECT_EQ(Bar().CountText(), "3 of 3");
  EXPECT_TRUE(said_.isEmpty());
  Press(Bar().What(), Qt::Key_Return);
  EXPECT_EQ(Marked(), "1:1 G1");
  EXPECT_EQ(said_.takeFirst(), Say(Word::kWentOnAtStart));
  Press(Bar().What(), Qt::Key_Enter, Qt::ShiftModifier);
  EXPECT_EQ(Marked(), "3:6 G1");
  EXPECT_EQ(said_.takeFirst(), Say(Word::kWentOnAtEnd));
  Bar().PreviousKey()->click();
  EXPECT_EQ(Marked(), "3:1 g1");
  EXPECT_TRUE(said_.isEmpty());
}

TEST_F(SearchTest, WhileTheWordIsTypedTheFirstPlaceFromTheCaretOnIsMarked) {
  editor_.SetProgram("M3\nM30\nM3\n", "P");
  editor_.GoToLine(2);
  Find("M");
  EXPECT_EQ(Marked(), "2:1 M");
  Bar().What().setText("M30");
  EXPECT_EQ(Marked(), "2:1 M30");
  Bar().What().setText("M3");
  EXPECT_EQ(Marked(), "2:1 M3");
  EXPECT_EQ(Bar().CountText(), "2 of 3");
}

TEST_F(SearchTest, WhatIsNotThereIsSaidAndTheKeysAreDim) {
  editor_.SetProgram("G0\n", "P");
  Find("G7");
  EXPECT_EQ(Bar().CountText(), "not found");
  EXPECT_FALSE(Bar().NextKey()->isEnabled());
  EXPECT_FALSE(Bar().AllKey()->isEnabled());
  Bar().What().setText("");
  EXPECT_EQ(Bar().CountText(), "");
  EXPECT_FALSE(Bar().NextKey()->isEnabled());
}

TEST_F(SearchTest, CapitalsCountOnlyWhenTheirKeyIsLatched) {
  editor_.SetProgram("x1 X1\n", "P");
  Find("X1");
  EXPECT_EQ(Bar().CountText(), "1 of 2");
  Bar().CaseKey()->click();
  EXPECT_TRUE(Bar().CaseKey()->isChecked());
  EXPECT_EQ(Marked(), "1:4 X1");
  EXPECT_EQ(Bar().CountText(), "1 of 1");
  Bar().CaseKey()->click();
  EXPECT_EQ(Bar().CountText(), "2 of 2");
}

TEST_F(SearchTest, ThePlacesFollowEveryChange) {
  editor_.SetProgram("G1\nG0\nG1 G1\nG2\n", "P");
  Find("G1");
  const auto change = [this](int position, int length, const QString& text) {
    QTextCursor cursor(editor_.Edit().document());
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    cursor.insertText(text);
  };
  EXPECT_EQ(Bar().CountText(), "1 of 3");
  change(4, 1, "1");  // G0 becomes G1
  EXPECT_EQ(Bar().CountText(), "1 of 4");
  change(2, 1, "");  // the first two lines become one
  EXPECT_EQ(Bar().CountText(), "1 of 4");
  change(0, 0, "G0 G1\n");
  EXPECT_EQ(Bar().CountText(), "2 of 5");
  Bar().NextKey()->click();
  EXPECT_EQ(Marked(), "2:3 G1");
  change(0, 6, "");
  EXPECT_EQ(Bar().CountText(), "2 of 4");
  editor_.Do(Action::kUndo);
  EXPECT_EQ(editor_.Text(), "G0 G1\nG1G1\nG1 G1\nG2\n");
  EXPECT_EQ(Bar().CountText(), "5 found") << "no place is marked after an undo";
}

TEST_F(SearchTest, OnePlaceIsReplacedAndTheNextMarked) {
  editor_.SetProgram("X1 X1 X1\n", "P");
  editor_.Do(Action::kReplace);
  Bar().What().setText("X1");
  Bar().With().setText("X1X1");
  Bar().ReplaceKey()->click();
  EXPECT_EQ(editor_.Text(), "X1X1 X1 X1\n");
  EXPECT_EQ(Marked(), "1:6 X1") << "what was put in isn't replaced again";
  Press(Bar().With(), Qt::Key_Return);
  EXPECT_EQ(editor_.Text(), "X1X1 X1X1 X1\n");
  editor_.Do(Action::kUndo);
  EXPECT_EQ(editor_.Text(), "X1X1 X1 X1\n");
}

TEST_F(SearchTest, APlaceThatIsNotMarkedIsMarkedBeforeItIsReplaced) {
  editor_.SetProgram("G0\nX1\n", "P");
  editor_.Do(Action::kReplace);
  Bar().What().setText("X1");
  editor_.GoToLine(1);
  Bar().With().setText("Y2");
  Bar().ReplaceKey()->click();
  EXPECT_EQ(editor_.Text(), "G0\nX1\n");
  EXPECT_EQ(Marked(), "2:1 X1");
  Bar().ReplaceKey()->click();
  EXPECT_EQ(editor_.Text(), "G0\nY2\n");
}

TEST_F(SearchTest, AllPlacesAreReplacedInOneStep) {
  editor_.SetProgram("X1 X1\nx1\nY\n", "P");
  editor_.Insert("(mine)\n");
  editor_.Do(Action::kReplace);
  Bar().What().setText("X1");
  Bar().With().setText("X22");
  Bar().AllKey()->click();
  Rest();
  EXPECT_EQ(editor_.Text(), "(mine)\nX22 X22\nX22\nY\n");
  EXPECT_EQ(Bar().CountText(), "not found") << "none is left";
  EXPECT_EQ(said_, QStringList{Say(Word::kReplaced, "3")});
  editor_.Do(Action::kUndo);
  EXPECT_EQ(editor_.Text(), "(mine)\nX1 X1\nx1\nY\n");
  editor_.Do(Action::kRedo);
  EXPECT_EQ(editor_.Text(), "(mine)\nX22 X22\nX22\nY\n");
  editor_.Do(Action::kUndo);
  editor_.Do(Action::kUndo);
  EXPECT_EQ(editor_.Text(), "X1 X1\nx1\nY\n");
}

TEST_F(SearchTest, AMarkStaysInItsLineAndTheTextHasTheKeyboard) {
  editor_.SetProgram("G0 X10\nX20\n", "P");
  const struct {
    int line;
    int column;
    int length;
    const char* marked;
  } rows[] = {{0, 3, 3, "1:4 X10"}, {0, 3, 99, "1:4 X10"}, {0, 99, 1, "1:7 "}, {0, 3, -1, "1:4 "},
              {0, -1, 2, "1:1 G0"}, {1, 0, 4, "2:1 X20"},  {99, 0, 1, "3:1 "}, {-1, 0, 2, "1:1 G0"}};
  for (const auto& row : rows) {
    editor_.Do(Action::kFind);
    ASSERT_TRUE(Bar().What().hasFocus());
    editor_.MarkInLine(row.line, row.column, row.length);
    EXPECT_EQ(Marked(), row.marked) << row.line << ":" << row.column << " " << row.length;
    EXPECT_TRUE(editor_.Edit().hasFocus());
  }
}

TEST_F(SearchTest, AMarkedWordIsWhatIsLookedFor) {
  editor_.SetProgram("G0 X10\nX10\n", "P");
  editor_.MarkInLine(0, 3, 3);
  editor_.Do(Action::kFind);
  EXPECT_EQ(Bar().What().text(), "X10");
  EXPECT_EQ(Bar().CountText(), "1 of 2");
}

TEST_F(SearchTest, EscapeClosesTheBarAndTheTextHasTheKeyboard) {
  editor_.SetProgram("G0 G0\n", "P");
  Find("G0");
  EXPECT_TRUE(Bar().What().hasFocus());
  EXPECT_TRUE(Bar().isVisible());
  EXPECT_FALSE(Bar().With().isVisible());
  EXPECT_EQ(editor_.Edit().y(), Bar().geometry().bottom() + 1);
  Press(Bar().What(), Qt::Key_Escape);
  EXPECT_FALSE(Bar().isVisible());
  EXPECT_TRUE(editor_.Edit().hasFocus());
  EXPECT_EQ(Marked(), "1:1 G0") << "what was found stays marked";
  editor_.Do(Action::kReplace);
  EXPECT_TRUE(Bar().With().isVisible());
  EXPECT_EQ(Bar().CountText(), "1 of 2");
}

TEST_F(SearchTest, TheKeysOfTheEditorWorkInTheTextAndInTheFields) {
  editor_.SetProgram("G0\nG1\n", "P");
  Press(editor_.Edit(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Bar().isVisible());
  Press(Bar().What(), Qt::Key_H, Qt::ControlModifier);
  EXPECT_TRUE(Bar().Replaces());
  Press(Bar().What(), Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(editor_.LineAsked().isVisible());
  EXPECT_FALSE(Bar().isVisible());
  Press(editor_.LineAsked().Field(), Qt::Key_Escape);
  editor_.Insert("M3");
  Press(editor_.Edit(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(editor_.Text(), "G0\nG1\n");
  Press(editor_.Edit(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(editor_.Text(), "M3G0\nG1\n");
  Press(editor_.Edit(), Qt::Key_Z, Qt::ControlModifier);
  Press(editor_.Edit(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(editor_.Text(), "M3G0\nG1\n");
}

TEST_F(SearchTest, ALineNumberLeadsToItsLineAndOneTooBigToTheLast) {
  editor_.SetProgram("G0\nG1\nG2\nG3", "P");
  const struct {
    const char* typed;
    const char* at;
    QStringList said;
  } rows[] = {{"3", "3:1 ", {}},
              {"1", "1:1 ", {}},
              {"0", "1:1 ", {}},
              {"4", "4:1 ", {}},
              {"5", "4:1 ", {Say(Word::kNoSuchLine, "4")}},
              {"999999999", "4:1 ", {Say(Word::kNoSuchLine, "4")}}};
  for (const auto& row : rows) {
    said_.clear();
    editor_.Do(Action::kGoToLine);
    EXPECT_TRUE(editor_.LineAsked().Field().hasFocus());
    EXPECT_EQ(editor_.LineAsked().Field().text(), "");
    editor_.LineAsked().Field().setText(row.typed);
    editor_.LineAsked().GoKey()->click();
    EXPECT_EQ(Marked(), row.at) << row.typed;
    EXPECT_EQ(said_, row.said) << row.typed;
    EXPECT_FALSE(editor_.LineAsked().isVisible());
    EXPECT_TRUE(editor_.Edit().hasFocus());
  }
}

TEST_F(SearchTest, UndoAndRedoAreDimWhileThereIsNothingForThem) {
  editor_.SetProgram("G0\n", "P");
  EXPECT_FALSE(editor_.Can(Action::kUndo));
  EXPECT_FALSE(editor_.Can(Action::kRedo));
  int changes = 0;
  QObject::connect(&editor_, &ProgramEditor::StateChanged, &editor_, [&changes] { ++changes; });
  editor_.Insert("M3");
  EXPECT_GT(std::exchange(changes, 0), 0);
  EXPECT_TRUE(editor_.Can(Action::kUndo));
  editor_.Do(Action::kUndo);
  EXPECT_GT(changes, 0);
  EXPECT_FALSE(editor_.Can(Action::kUndo));
  EXPECT_TRUE(editor_.Can(Action::kRedo));
  EXPECT_FALSE(editor_.Can(Action::kOpenMdi)) << "that is none of the editor's";
}

TEST_F(SearchTest, AnotherProgramIsSearchedForTheSame) {
  editor_.SetProgram("G0\n", "P");
  Find("G0");
  editor_.SetProgram("G0 G0\n", "Q");
  Rest();
  EXPECT_EQ(Bar().CountText(), "2 found");
}

TEST_F(SearchTest, TheNextPlaceIsTheFirstFromTheCaretOn) {
  editor_.SetProgram("G0 X1 X1\n", "P");
  Find("X1");
  editor_.MarkInLine(0, 3, 0);
  Bar().NextKey()->click();
  EXPECT_EQ(Marked(), "1:4 X1") << "the caret is right before it";
  editor_.MarkInLine(0, 0, 4);
  Bar().NextKey()->click();
  EXPECT_EQ(Marked(), "1:7 X1") << "the caret is behind the first X";
}

TEST_F(SearchTest, WithoutANumberTheBarForALineWaitsForOne) {
  editor_.SetProgram("G0\nG1\nG2", "P");
  editor_.GoToLine(3);
  editor_.Do(Action::kGoToLine);
  LineBar& bar = editor_.LineAsked();
  bar.GoKey()->setFocus();
  bar.GoKey()->click();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_TRUE(bar.Field().hasFocus());
  EXPECT_EQ(Marked(), "3:1 ");
  EXPECT_TRUE(said_.isEmpty());
}

TEST_F(SearchTest, AKeyThatTheEditorDoesNotKnowIsLeftForThePanel) {
  for (const int key : {static_cast<int>(Qt::Key_F20), static_cast<int>(Qt::Key_Escape)}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&editor_, &press);
    EXPECT_FALSE(press.isAccepted()) << key;
  }
}

TEST_F(SearchTest, AWordThatWasNotFoundIsNotGoneToWhenItComesLater) {
  editor_.SetProgram("G0\n", "P");
  Find("X1");
  ASSERT_EQ(Bar().CountText(), "not found");
  // So much text is searched from its beginning.
  QTextCursor(editor_.Edit().document()).insertText(QString("G1 X1\n").repeated(20'000));
  Rest();
  EXPECT_EQ(Bar().CountText(), "20000 found");
  EXPECT_FALSE(editor_.Edit().textCursor().hasSelection()) << "the caret is where the operator types";
}

TEST_F(SearchTest, InLittleRoomTheGapsAroundABarGoFirst) {
  LineBar bar(nullptr);
  bar.resize(400, bar.Height());
  bar.SetFontPixels(16);
  const int row = bar.Field().height();
  EXPECT_EQ(bar.Field().y(), 4);
  EXPECT_EQ(bar.Height(), row + 8);
  for (const auto& [room, gap] : {std::pair(row, 0), std::pair(row + 5, 2), std::pair(1000, 4), std::pair(1, 0)}) {
    bar.FitInto(room);
    EXPECT_EQ(bar.Height(), row + 2 * gap) << room;
    EXPECT_EQ(bar.Field().y(), gap) << room;
    EXPECT_EQ(bar.GoKey()->y(), gap) << room;
    EXPECT_EQ(bar.Field().height(), row) << "a key stays big enough for a finger";
  }
}

TEST_F(SearchTest, InAVeryLowEditorTheFieldThatIsTypedIntoIsTheOneThatIsSeen) {
  editor_.Do(Action::kReplace);
  const int row = Bar().What().height();
  for (BarField* field : {&Bar().With(), &Bar().What()}) {
    field->setFocus();
    editor_.resize(600, row + 10);
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    const QRect place(field->mapTo(&editor_, QPoint(0, 0)), field->size());
    EXPECT_TRUE(editor_.rect().contains(place)) << field->accessibleName().toStdString() << " " << place.top();
    editor_.resize(600, 400);
  }
}

class BigSearchTest : public SearchTest {
 protected:
  static constexpr int kLines = 150'000;
  BigSearchTest() {
    for (int i = 0; i < kLines; ++i) text_ += QStringLiteral("N%1 G1 X1\n").arg(i);
    editor_.SetProgram(text_, "BIG");
  }
  QString text_;
};

TEST_F(BigSearchTest, ThePanelHearsItsKeysWhileABigProgramIsSearched) {
  editor_.Do(Action::kFind);
  Bar().What().setText("X1");
  EXPECT_TRUE(editor_.Working());
  EXPECT_TRUE(Bar().CountText().startsWith("searching: ")) << Bar().CountText().toStdString();
  EXPECT_EQ(Marked(), "1:7 X1") << "the first place doesn't wait for the last";
  EXPECT_GT(HeardWhileWorking(), 1);
  EXPECT_EQ(Bar().CountText(), "1 of 150000");
  Bar().PreviousKey()->click();
  EXPECT_EQ(Marked(), "150000:12 X1");
}

TEST_F(BigSearchTest, APlaceFarAwayIsMarkedWhenItIsKnown) {
  editor_.Do(Action::kFind);
  Bar().What().setText("N149999");
  EXPECT_EQ(Bar().What().text(), "N149999");
  Rest();
  EXPECT_EQ(Marked(), "150000:1 N149999");
  EXPECT_EQ(Bar().CountText(), "1 of 1");
}

TEST_F(BigSearchTest, WhatChangesBeforeTheSearchIsCompleteCountsOnce) {
  editor_.Do(Action::kFind);
  Bar().What().setText("X1");
  ASSERT_TRUE(editor_.Working());
  QTextCursor cursor(editor_.Edit().document());
  cursor.insertText("X1\n");
  cursor.movePosition(QTextCursor::End);
  cursor.insertText("X1");
  Rest();
  EXPECT_TRUE(Bar().CountText().endsWith(" of 150002")) << Bar().CountText().toStdString();
}

TEST_F(BigSearchTest, ManyPlacesAreReplacedWhileThePanelHearsItsKeysAndAreOneStep) {
  editor_.Insert("(mine)");
  editor_.Do(Action::kReplace);
  Bar().What().setText("X1");
  Bar().With().setText("Y22");
  Rest();
  Bar().AllKey()->click();
  ASSERT_TRUE(editor_.Changing());
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  EXPECT_FALSE(editor_.Can(Action::kUndo));
  editor_.Insert("(later)");
  EXPECT_GT(HeardWhileWorking(), 1);
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  QString replaced = "(mine)" + text_;
  replaced.replace("X1", "Y22");
  EXPECT_TRUE(editor_.Text().remove("(later)") == replaced);
  EXPECT_EQ(said_, QStringList{Say(Word::kReplaced, "150000")});
  editor_.Do(Action::kUndo);
  EXPECT_TRUE(editor_.Text() == replaced) << "what was inserted afterwards is a step of its own";
  editor_.Do(Action::kUndo);
  EXPECT_TRUE(editor_.Changing()) << "the step is too big for one go";
  EXPECT_GT(HeardWhileWorking(), 1);
  EXPECT_TRUE(editor_.Text() == "(mine)" + text_);
  editor_.Do(Action::kRedo);
  Rest();
  EXPECT_TRUE(editor_.Text() == replaced);
  editor_.Do(Action::kUndo);
  Rest();
  editor_.Insert("(other)");
  editor_.Do(Action::kUndo);
  editor_.Do(Action::kUndo);
  EXPECT_TRUE(editor_.Text() == text_) << "the steps after a new change are single ones again";
}

TEST_F(BigSearchTest, ThePlaceBeforeTheCaretIsTheOneRightBeforeItAlsoWhenItIsNotKnownYet) {
  editor_.GoToLine(140'000);
  editor_.Do(Action::kFind);
  Bar().What().setText("X1");
  ASSERT_TRUE(editor_.Working());
  Bar().PreviousKey()->click();
  Rest();
  EXPECT_EQ(Marked(), "139999:12 X1");
}

TEST_F(BigSearchTest, WhoReplacesEverythingWhileItIsSearchedStaysWhereHeIs) {
  editor_.GoToLine(140'000);
  editor_.Do(Action::kReplace);
  Bar().What().setText("X1");
  Bar().With().setText("Y22");
  ASSERT_TRUE(editor_.Working());
  ASSERT_TRUE(Bar().AllKey()->isEnabled());
  Bar().AllKey()->click();
  Rest();
  EXPECT_EQ(said_, QStringList{Say(Word::kReplaced, "150000")});
  EXPECT_EQ(Marked(), "140000:1 ");
}

}  // namespace
}  // namespace panel
