// SPDX-License-Identifier: MIT
// The command line's window as it is seen and asked: its colours, what is painted again, and what it answers at its
// end.
#include "controls/qt/paint_counter.h"
#include "mdi_stage.h"
#include "support/painted_texts.h"

namespace pnl::test {
namespace {

class MdiPaintTest : public MdiStage {
 protected:
  /// The colour of the letters in the edit.
  QColor Letters() {
    const std::vector<PaintedText> texts = PaintedTextsOf(*Edit());
    EXPECT_EQ(texts.size(), 1u);
    return texts.empty() ? QColor() : texts.front().ink;
  }
};

TEST_F(MdiPaintTest, TheLettersOfTheEditFollowItsColours) {
  Open();
  Type(Edit(), "G0 X10");
  EXPECT_EQ(Letters(), QColor(Qt::black));
  other->setFocus();
  EXPECT_EQ(Letters(), QColor(Qt::white));
}

TEST_F(MdiPaintTest, TheDropListHasTheColoursOfTheSettings) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  EXPECT_EQ(Back(DropItems()), 0x78643Cu);
  EXPECT_EQ(Fore(DropItems()), 0xFFFFFFu);
}

TEST_F(MdiPaintTest, AMessageThatChangesNothingPaintsNothing) {
  Open();
  Settle();
  const PaintCounter sign(*Sign());
  const PaintCounter title(*Title());
  const PaintCounter edit(*Edit());
  Send(0x7FF, 0);
  Settle();
  EXPECT_EQ(sign.Count(), 0);
  EXPECT_EQ(title.Count(), 0);
  EXPECT_EQ(edit.Count(), 0);
}

TEST_F(MdiPaintTest, PaintsNothingOfThePanelBelow) {
  Open();
  ExpectPaintedAlone(*tool, *area);
}

TEST_F(MdiPaintTest, TheCaretStaysWhereItIsWhenTheFocusLeaves) {
  Open();
  Type(Edit(), "G0 X10");
  Edit()->setCursorPosition(4);
  other->setFocus();
  EXPECT_EQ(Edit()->cursorPosition(), 4);
}

TEST_F(MdiPaintTest, TellsTheHostThatAnItemCanBePutBack) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  OpenMda();
  EXPECT_EQ(tool->property(property::kRemoved).toInt(), 0);
  List()->Select(1);
  Key(Qt::Key_Delete);
  EXPECT_NE(tool->property(property::kRemoved).toInt(), 0);
}

TEST_F(MdiPaintTest, DeleteTakesTheItemOutAlsoFromTheEditThatCantBeWritten) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  OpenMda();
  List()->Select(1);
  Key(Qt::Key_Tab, "\t");
  ASSERT_EQ(Focus(), Edit());
  ASSERT_TRUE(Edit()->isReadOnly());
  Key(Qt::Key_Delete);
  EXPECT_EQ(List()->Count(), 1);
}

TEST_F(MdiPaintTest, AMessageInWhichItIsDestroyedAnswersNothing) {
  struct Row {
    std::uint32_t number;
    std::intptr_t first;
    std::intptr_t second;
  };
  for (const Row& row :
       {Row{PNL_MSG_TOOL_COMMAND, 3, 1}, Row{PNL_MSG_TOOL_COMMAND, 5, 1}, Row{PNL_MSG_TOOL_COMMAND, 8, 0},
        Row{PNL_MSG_COMMAND, 40005, 0}, Row{PNL_MSG_COMMAND, 32773, 0}, Row{PNL_MSG_COMMAND, 40003, 0}}) {
    Make();
    OpenMda();
    onHostCall = [this](const std::string&) { delete tool; };
    EXPECT_EQ(Send(row.number, row.first, row.second), 0) << row.number << " " << row.first;
    onHostCall = nullptr;
    delete tool;
  }
}

TEST_F(MdiPaintTest, GetsNoMessagesAnyMoreWhileItIsDestroyed) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  int changes = 0;
  // A host that answers each change of the focus.
  QObject::connect(qApp, &QApplication::focusChanged, &panel, [&](QWidget*, QWidget*) {
    ++changes;
    EXPECT_FALSE(windows.IsAlive(handle));
    Send(PNL_MSG_TOOL_COMMAND, 3, 1);
  });
  hostCalls.clear();
  delete tool;
  panel.disconnect();
  EXPECT_GT(changes, 0);
  EXPECT_THAT(TakeHostCalls(), testing::IsEmpty());
}

}  // namespace
}  // namespace pnl::test
