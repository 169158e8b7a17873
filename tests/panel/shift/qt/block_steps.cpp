// SPDX-License-Identifier: MIT
// Single blocks and the list of blocks.
#include <QAbstractItemView>

#include "panel/shift/qt/shift_steps.h"
#include "ui/soft_key_bar.h"
#include "ui/touch_keyboard.h"
#include "ui/undo_offer.h"

namespace panel::shift {
namespace {

// Items of the list's menu.
constexpr int kChange = 32772;
constexpr int kNew = 32773;
constexpr int kSaveAsProgram = 32775;
constexpr int kClear = 32776;
constexpr int kMoveUp = 40003;

QString Line(const Hands& hands) { return hands.TextOf(PNL_TOOL_MDI, kCommandEdit); }

QAbstractItemView* List(const Hands& hands) { return hands.Control<QAbstractItemView>(PNL_TOOL_MDI, kCommandList); }

QString Items(const Hands& hands) {
  QStringList all;
  for (int row = 0; row < List(hands)->model()->rowCount(); ++row) {
    all << List(hands)->model()->index(row, 0).data().toString();
  }
  return all.join(u'|');
}

bool IsAt(Hands& hands, double x, double y) {
  const auto state = hands.Stage().Machine();
  return state.axes.size() >= 2 && qAbs(state.axes[0].position - x) < 1e-6 && qAbs(state.axes[1].position - y) < 1e-6;
}

/// Presses start and waits until the block has run.
void Start(Hands& hands, const QString& block) {
  const auto before = hands.Stage().Blocks().size();
  hands.Machine(Action::kCycleStart);
  hands.Expect(hands.Stage().Blocks().size() == before + 1, QStringLiteral("the CNC got no block"));
  hands.ExpectText(hands.Stage().Blocks().last(), block, QStringLiteral("the block that the CNC got"));
  hands.Until([&] { return hands.Stage().Machine().channelStatus == 1; }, QStringLiteral("the block never ends"));
}

void OpenLine(Hands& hands) {
  hands.Main(Action::kOpenMdi);
  hands.Expect(hands.IsSeen(PNL_TOOL_MDI), QStringLiteral("the command line doesn't open"));
  hands.Expect(hands.Window().TouchKeys().isVisible() == (hands.Stage().Set().pointing == Pointing::kMouse),
               QStringLiteral("the touch keyboard"));
  hands.Raise(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Type(QStringLiteral("G1 X20 Y10 F3000"));
  hands.ExpectText(Line(hands), QStringLiteral("G1 X20 Y10 F3000"), QStringLiteral("the command line"));
  hands.Capture(QStringLiteral("block"));
}

void RunBlocks(Hands& hands) {
  Start(hands, QStringLiteral("G1 X20 Y10 F3000"));
  hands.Expect(IsAt(hands, 20, 10), QStringLiteral("the axes aren't at X20 Y10"));
  hands.ExpectText(Line(hands), {}, QStringLiteral("the command line after the block"));
  hands.ExpectText(hands.State(), Say(Word::kReady), QStringLiteral("the state"));
  hands.Type(QStringLiteral("G0 X0 Y0"));
  Start(hands, QStringLiteral("G0 X0 Y0"));
  hands.Expect(IsAt(hands, 0, 0), QStringLiteral("the axes aren't at X0 Y0"));
}

void OpenList(Hands& hands) {
  hands.Main(Action::kSwitchRole);
  hands.ExpectText(Items(hands), QStringLiteral("G1 X20 Y10 F3000|G0 X0 Y0|G1 X50.8 F3000"),
                   QStringLiteral("the list of the blocks that ran"));
  hands.Main(kNew);
  hands.Raise(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Type(QStringLiteral("G0 Z20"));
  hands.Tap(TouchAct::kEnter);
  hands.Expect(Items(hands).contains(QStringLiteral("G0 Z20")), QStringLiteral("the new item isn't in the list"));
}

void ChangeList(Hands& hands) {
  hands.PutKeyboardAway();
  hands.Item(List(hands), QStringLiteral("G0 X0 Y0"));
  hands.Main(kChange);
  hands.ExpectText(Line(hands), QStringLiteral("G0 X0 Y0"), QStringLiteral("the item that is changed"));
  hands.Raise(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Tap(TouchAct::kBack);
  hands.Type(QStringLiteral("25"));
  hands.Tap(TouchAct::kEnter);
  hands.Expect(Items(hands).contains(QStringLiteral("G0 X0 Y25")), QStringLiteral("the changed item"));
  hands.PutKeyboardAway();
  hands.Item(List(hands), QStringLiteral("G0 Z20"));
  while (!Items(hands).startsWith(QStringLiteral("G0 Z20"))) {
    const QString before = Items(hands);
    hands.Main(kMoveUp);
    hands.Expect(Items(hands) != before, QStringLiteral("the item doesn't move"));
  }
  hands.Capture(QStringLiteral("list"));
}

void RunItem(Hands& hands) {
  hands.Item(List(hands), QStringLiteral("G0 X0 Y25"));
  Start(hands, QStringLiteral("G0 X0 Y25"));
  hands.Expect(IsAt(hands, 0, 25), QStringLiteral("the axes aren't at X0 Y25"));
}

void SaveList(Hands& hands) {
  const QString items = Items(hands);
  hands.Main(kSaveAsProgram);
  hands.Expect(hands.IsSeen(PNL_TOOL_EXPLORER), QStringLiteral("the explorer doesn't ask for a name"));
  hands.Touch(hands.Control(PNL_TOOL_EXPLORER, kExplorerName), QStringLiteral("the file's name"));
  hands.Type(QStringLiteral("SHIFT.NC"));
  hands.Capture(QStringLiteral("name"));
  hands.Tap(TouchAct::kEnter);
  hands.Expect(!hands.IsSeen(PNL_TOOL_EXPLORER), QStringLiteral("the explorer stays"));
  const QString text = QString::fromUtf8(hands.Stage().FileAt(QStringLiteral("C:\\CNC\\PROGRAMS\\SHIFT.NC")));
  hands.ExpectText(
      text.split(u'\n', Qt::SkipEmptyParts).join(u'|'),
      QStringLiteral("(------------- CREATED BY MDI -------------)|% SHIFT|") + items + QStringLiteral("|M30"),
      QStringLiteral("the program made of the list"));
}

void ClearList(Hands& hands) {
  const QString items = Items(hands);
  hands.Main(kClear);
  hands.ExpectText(Items(hands), {}, QStringLiteral("the list that was cleared"));
  hands.Touch(&hands.Window().Undo(), QStringLiteral("the key that puts the list back"));
  hands.ExpectText(Items(hands), items, QStringLiteral("the list that was put back"));
  // The next block is typed, not chosen.
  hands.Main(Action::kSwitchRole);
  hands.Row(RowKey::kClose);
  hands.Expect(!hands.IsSeen(PNL_TOOL_MDI), QStringLiteral("the list stays"));
}

}  // namespace

std::vector<ShiftStep> BlockSteps() { return {{"type a block", &OpenLine}, {"run blocks", &RunBlocks}}; }

std::vector<ShiftStep> ListSteps() {
  return {{"add to the list", &OpenList},
          {"change the list", &ChangeList},
          {"run an item", &RunItem},
          {"save the list", &SaveList},
          {"clear the list and put it back", &ClearList}};
}

}  // namespace panel::shift
