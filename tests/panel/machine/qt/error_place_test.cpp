// SPDX-License-Identifier: MIT
// From an error to its cure: the program is shown at the line of the error with the word marked, from the error window
// and from the list, and the list explains the chosen error.
#include <QPlainTextEdit>
#include <QTextBlock>

#include "panel/machine/qt/panel_fixture.h"
#include "ui/error_list.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/program_desk.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

class ErrorPlaceTest : public PanelFixture {
 protected:
  ErrorPlaceTest() {
    QString program;
    for (int line = 1; line <= 300; ++line) program += QString::fromUtf8("G1 X%1 (\u00D8) F9\n").arg(line);
    Write("FIRST.NC", program);
    Write("OTHER.NC", "M3\n");
  }
  void Write(const char* name, const QString& text) {
    window_->Editor().Edit().setPlainText(text);
    window_->Desk().Store(QString("C:\\") + name);
    Rest();
  }
  void Open(const char* name) {
    window_->Desk().Load(QString("C:\\") + name);
    Rest();
  }
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return window_->Working(); }, 60'000));
    Settle();
  }
  /// An error at the word of that block of FIRST.NC in which the caret is.
  void RaiseAt(int line, int column) {
    Open("FIRST.NC");
    QTextCursor caret = window_->Editor().Edit().textCursor();
    caret.setPosition(caret.document()->findBlockByNumber(line).position() + column);
    window_->Editor().Edit().setTextCursor(caret);
    op_->RaiseFault({Word::kFaultProgramLine, Fault::kProgramLine}, window_->Desk().CaretSpot());
    Settle();
  }
  int SlotOf(Word word) {
    const auto& items = window_->SideBar().Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].text == Say(word)) return static_cast<int>(i);
    }
    return -1;
  }
  /// What is marked, as "program line: word".
  QString Marked() {
    const QTextCursor mark = window_->Editor().Edit().textCursor();
    const QTextBlock block = window_->Editor().Edit().document()->findBlock(mark.selectionStart());
    return QStringLiteral("%1 %2: %3")
        .arg(window_->Editor().Name())
        .arg(block.blockNumber() + 1)
        .arg(mark.selectedText());
  }
};

TEST_F(ErrorPlaceTest, TheKeyOfTheErrorWindowShowsItsLineAndMarksItsWord) {
  EXPECT_EQ(SlotOf(Word::kGoToError), -1);
  RaiseAt(219, 13);
  ASSERT_TRUE(ErrorsShown());
  const int slot = SlotOf(Word::kGoToError);
  ASSERT_GE(slot, 0);
  window_->Editor().Edit().moveCursor(QTextCursor::Start);
  window_->PressSide(slot);
  Rest();
  EXPECT_EQ(Marked(), "C:\\FIRST.NC 220: F9");
  EXPECT_FALSE(ErrorsShown()) << "the program is to be seen";
  EXPECT_EQ(Queue(), 1u) << "and nothing was acknowledged";
  EXPECT_TRUE(Has(Program()));
  EXPECT_EQ(SlotOf(Word::kGoToLine), slot);
}

TEST_F(ErrorPlaceTest, AnErrorOfNoProgramHasNoSuchKey) {
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  EXPECT_EQ(SlotOf(Word::kGoToError), -1);
  EXPECT_GE(SlotOf(Word::kGoToLine), 0);
  // A key that was touched just before the error changed.
  emit window_->SideBar().Pressed(kErrorPlaceItem, 0);
  Rest();
  EXPECT_TRUE(ErrorsShown()) << "there is no place to show";
}

TEST_F(ErrorPlaceTest, TheKeyBelongsToTheErrorThatIsShown) {
  Raise(Fault::kDriveFault);
  RaiseAt(4, 3);
  ASSERT_EQ(Queue(), 2u);
  int place = Errors()->property(kErrorPlaceProperty).toInt();
  EXPECT_EQ(SlotOf(Word::kGoToError) >= 0, place == 1);
  Key(place == 0 ? Qt::Key_Right : Qt::Key_Left);
  ASSERT_NE(Errors()->property(kErrorPlaceProperty).toInt(), place);
  place = Errors()->property(kErrorPlaceProperty).toInt();
  EXPECT_EQ(SlotOf(Word::kGoToError) >= 0, place == 1);
}

TEST_F(ErrorPlaceTest, TheListLeadsToTheProgramOfTheErrorWhichIsOpenedFirst) {
  RaiseAt(7, 3);
  rig_.Cnc().ClearErrors();
  Settle();
  Open("OTHER.NC");
  Do(Action::kErrorList);
  ErrorListCover& list = window_->ErrorsShown();
  ASSERT_TRUE(list.LineKey()->isEnabled());
  list.LineKey()->click();
  Rest();
  EXPECT_FALSE(list.IsOpen());
  EXPECT_EQ(Marked(), "C:\\FIRST.NC 8: X8");
  EXPECT_TRUE(Has(Program()));
}

TEST_F(ErrorPlaceTest, ChangesThatAreNotSavedAreAskedForBeforeAnotherProgramIsShown) {
  RaiseAt(7, 3);
  rig_.Cnc().ClearErrors();
  Settle();
  Open("OTHER.NC");
  window_->Editor().Insert("(mine)");
  Do(Action::kErrorList);
  window_->ErrorsShown().LineKey()->click();
  Rest();
  ASSERT_TRUE(window_->Asking().IsOpen());
  window_->Asking().Answer(1);
  Rest();
  EXPECT_EQ(window_->Editor().Text(), "(mine)M3\n");
  Do(Action::kErrorList);
  window_->ErrorsShown().LineKey()->click();
  Settle();
  window_->Asking().Answer(0);
  Rest();
  EXPECT_EQ(Marked(), "C:\\FIRST.NC 8: X8");
}

TEST_F(ErrorPlaceTest, TheListExplainsTheChosenErrorAndItsHelpCanBeShown) {
  Raise(Fault::kDriveFault);
  Key(Qt::Key_Escape);
  Do(Action::kErrorList);
  ErrorListCover& list = window_->ErrorsShown();
  EXPECT_TRUE(list.Details().contains("Cause:")) << list.Details().toStdString();
  EXPECT_TRUE(list.Details().contains("Remedy:"));
  EXPECT_TRUE(list.Details().contains("source: drive"));
  EXPECT_FALSE(list.LineKey()->isEnabled());
  ASSERT_TRUE(list.HelpKey()->isEnabled());
  list.HelpKey()->click();
  Settle();
  EXPECT_FALSE(list.IsOpen());
  EXPECT_TRUE(op_->Desk().ShowsHelp());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(op_->Desk().ShowsHelp());
}

TEST_F(ErrorPlaceTest, WordsAreMarkedAsTheControlReadsThem) {
  window_->Editor().SetProgram("G1X2.5 (a b) SIN[1]\n", "P");
  const struct {
    int column;
    const char* word;
  } rows[] = {{0, "G1"}, {2, "X2.5"}, {7, "(a b)"}, {13, "SIN[1]"}, {19, ""}, {99, ""}};
  for (const auto& row : rows) {
    window_->Editor().MarkWord(0, row.column);
    EXPECT_EQ(window_->Editor().Edit().textCursor().selectedText(), row.word) << row.column;
  }
}

}  // namespace
}  // namespace panel
