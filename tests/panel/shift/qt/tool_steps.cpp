// SPDX-License-Identifier: MIT
// The calculator, an error with its help, a file from a share, and a block from the machining calculator.
#include <QAbstractItemView>
#include <QComboBox>
#include <QTableView>

#include "panel/shift/qt/shift_steps.h"
#include "ui/program_editor.h"
#include "ui/soft_key_bar.h"
#include "ui/touch_keyboard.h"

namespace panel::shift {
namespace {

constexpr int kCalculatorLine = 1008;
constexpr int kCalculatorResult = 1010;
constexpr int kErrorHelp = 1042;
// Of the machining calculator.
constexpr int kMaterial = 3008;
constexpr int kOperation = 3010;
constexpr int kToolBox = 3012;
constexpr int kGrid = 3028;
constexpr int kSpeed = 3035;
constexpr int kWithSpeed = 226;
constexpr int kInsertBlock = 32902;
constexpr int kMachining = PNL_TOOL_MACHINING_CALCULATOR;

void Compute(Hands& hands) {
  hands.Type(QStringLiteral("G1 X"));
  hands.Row(RowKey::kCalculator);
  hands.Expect(hands.IsSeen(PNL_TOOL_CALCULATOR), QStringLiteral("the calculator doesn't open"));
  hands.Raise(hands.Control(PNL_TOOL_CALCULATOR, kCalculatorLine), QStringLiteral("the expression"));
  hands.Type(QStringLiteral("25.4*2"));
  hands.Capture(QStringLiteral("compute"));
  hands.Tap(TouchAct::kEnter);
  hands.ExpectText(hands.TextOf(PNL_TOOL_CALCULATOR, kCalculatorResult).trimmed(), QStringLiteral("50.8"),
                   QStringLiteral("the value"));
}

void InsertValue(Hands& hands) {
  hands.Row(RowKey::kInsert);
  hands.Expect(!hands.IsSeen(PNL_TOOL_CALCULATOR), QStringLiteral("the calculator stays"));
  hands.ExpectText(hands.TextOf(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("G1 X50.8"),
                   QStringLiteral("the command line"));
  hands.Raise(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Type(QStringLiteral(" F3000"));
  hands.Machine(Action::kCycleStart);
  hands.ExpectText(hands.Stage().Blocks().last(), QStringLiteral("G1 X50.8 F3000"),
                   QStringLiteral("the block that the CNC got"));
  hands.Until([&] { return hands.Stage().Machine().channelStatus == 1; }, QStringLiteral("the block never ends"));
}

void Refused(Hands& hands) {
  hands.Main(Action::kOpenMdi);
  hands.Raise(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Type(QStringLiteral("G999"));
  hands.Machine(Action::kCycleStart);
  hands.Until([&] { return hands.IsSeen(PNL_TOOL_ERRORS); }, QStringLiteral("no error window"));
  hands.Expect(hands.Stage().Rig().Cnc().ErrorQueue().size() == 1, QStringLiteral("not one error"));
  hands.Read();
  hands.Capture(QStringLiteral("error"));
}

void ErrorHelp(Hands& hands) {
  hands.Touch(hands.Control(PNL_TOOL_ERRORS, kErrorHelp), QStringLiteral("the key for the error's help"));
  hands.Until([&] { return hands.IsSeen(PNL_TOOL_PLC_MESSAGES); }, QStringLiteral("no help of the error"));
  hands.Expect(!hands.IsSeen(PNL_TOOL_ERRORS), QStringLiteral("the error window stays"));
  hands.Capture(QStringLiteral("error-help"));
  hands.Row(RowKey::kClose);
  hands.Expect(hands.IsSeen(PNL_TOOL_ERRORS), QStringLiteral("the error window doesn't come back"));
  hands.Read();
  hands.Machine(Action::kClearError);
  hands.Until([&] { return hands.Stage().Rig().Cnc().ErrorQueue().empty(); }, QStringLiteral("the error stays"));
  hands.ExpectText(hands.TextOf(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("G999"),
                   QStringLiteral("the refused block"));
}

void Correct(Hands& hands) {
  // A refused block is marked whole; a touch after its end leaves the caret there.
  hands.Touch(hands.Control(PNL_TOOL_MDI, kCommandEdit), QStringLiteral("the command line"));
  hands.Tap(TouchAct::kBack, 3);
  hands.Type(QStringLiteral("0 X5"));
  hands.Machine(Action::kCycleStart);
  hands.ExpectText(hands.Stage().Blocks().last(), QStringLiteral("G0 X5"),
                   QStringLiteral("the block that the CNC got"));
  hands.Until([&] { return hands.Stage().Machine().channelStatus == 1; }, QStringLiteral("the block never ends"));
  hands.Row(RowKey::kClose);
  hands.Expect(!hands.IsSeen(PNL_TOOL_MDI), QStringLiteral("the command line stays"));
}

void OpenFromShare(Hands& hands) {
  hands.Main(Action::kOpenProgram);
  auto* tree = hands.Control<QAbstractItemView>(PNL_TOOL_EXPLORER, kExplorerTree);
  hands.TreePath(tree, {QStringLiteral("N:  (\\\\OFFICE\\ORDERS)")});
  hands.Item(hands.Control<QAbstractItemView>(PNL_TOOL_EXPLORER, kExplorerList), QStringLiteral("ORDER 27.NC"));
  hands.Capture(QStringLiteral("share"));
  hands.Main(kExplorerOk);
  hands.ExpectText(hands.Program(), QStringLiteral("(ORDER 27)\nG90 G54\nG0 X10 Y10\nM30\n"),
                   QStringLiteral("the program of the share"));
}

void Choose(Hands& hands) {
  hands.Main(Action::kOpenMachining);
  hands.Expect(hands.IsSeen(kMachining), QStringLiteral("the machining calculator doesn't open"));
  auto* material = hands.Control<QComboBox>(kMachining, kMaterial);
  hands.Pick(material, material->itemText(0));
  auto* operation = hands.Control<QComboBox>(kMachining, kOperation);
  hands.Pick(operation, operation->itemText(0));
  hands.Pick(hands.Control<QComboBox>(kMachining, kToolBox), QStringLiteral("T3"));
  auto* grid = hands.Control<QTableView>(kMachining, kGrid);
  hands.ExpectText(grid->model()->index(0, 1).data().toString(), QStringLiteral("150.0000000"),
                   QStringLiteral("the least cutting speed of the pair"));
  hands.Item(grid, grid->model()->index(0, 3), true);
  hands.Expect(hands.Window().TouchKeys().isVisible(), QStringLiteral("no touch keyboard for the cell"));
  hands.Type(QStringLiteral("180"));
  hands.Capture(QStringLiteral("machining"));
  hands.Tap(TouchAct::kEnter);
  hands.ExpectText(grid->model()->index(0, 3).data().toString(), QStringLiteral("180"), QStringLiteral("the cell"));
  hands.PutKeyboardAway();
  // The box is as it was left by the last block.
  if (!hands.IsChecked(kMachining, kWithSpeed)) {
    hands.Touch(hands.Control(kMachining, kWithSpeed), QStringLiteral("the box for the speed"));
  }
  hands.Expect(hands.IsChecked(kMachining, kWithSpeed), QStringLiteral("the speed isn't chosen"));
  hands.ExpectText(hands.TextOf(kMachining, kSpeed), QStringLiteral("3580"), QStringLiteral("the speed"));
}

void InsertBlock(Hands& hands) {
  hands.Side(kInsertBlock);
  hands.Expect(!hands.IsSeen(kMachining), QStringLiteral("the machining calculator stays"));
  hands.Expect(hands.Program().contains(QStringLiteral("S3580")), QStringLiteral("no block in the program"));
  hands.Capture(QStringLiteral("inserted"));
}

}  // namespace

std::vector<ShiftStep> CalculatorSteps() { return {{"compute", &Compute}, {"insert the value", &InsertValue}}; }

std::vector<ShiftStep> ErrorSteps() {
  return {{"a block is refused", &Refused}, {"read its help", &ErrorHelp}, {"correct it", &Correct}};
}

std::vector<ShiftStep> ShareSteps() { return {{"take a file from a share", &OpenFromShare}}; }

std::vector<ShiftStep> MachiningSteps() { return {{"compute a block", &Choose}, {"insert it", &InsertBlock}}; }

}  // namespace panel::shift
