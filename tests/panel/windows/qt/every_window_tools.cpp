// SPDX-License-Identifier: MIT
// The windows of the tools, each in its main states.
#include <QTreeWidget>

#include "panel/windows/qt/every_window.h"
#include "ui/undo_offer.h"

namespace panel {
namespace {

// Commands of the MDA list.
constexpr int kNewItem = 32773;
constexpr int kDeleteItem = 32771;
constexpr int kClearList = 32776;
// Of the calculator: its compact form, and the keys of its lists.
constexpr int kCompact = 32817;
constexpr int kCalcLists[] = {1012, 1038, 1101, 1102, 1103};
// Of the explorer.
constexpr int kExplorerFind = 32774;
constexpr int kMoveToTree = 32777;
constexpr int kMoveToList = 32778;
constexpr int kMoveToField = 32779;
// Of the help.
constexpr int kHelpContents = 2001;
constexpr int kHelpIndex = 2003;
constexpr int kHelpSearch = 2006;
constexpr int kHelpManuals = 2004;
constexpr int kHelpInPage = 40002;

}  // namespace

void EveryWindow::Command(int tool, int id) {
  op_->SendCommand(tool, id);
  Settle();
}

QWidget* EveryWindow::ControlOf(int tool, int id) const {
  for (QWidget* child : Tool(tool)->findChildren<QWidget*>()) {
    if (child->property("pnlId").toInt() == id) return child;
  }
  return nullptr;
}

void EveryWindow::Click(int tool, int id) {
  auto* key = qobject_cast<QAbstractButton*>(ControlOf(tool, id));
  ASSERT_NE(key, nullptr) << id;
  key->click();
  Settle();
}

void EveryWindow::CommandLine(const Look& look) {
  Do(Action::kOpenMdi);
  look();
  Type("G0 X10");
  look();
  Line(PNL_TOOL_MDI)->selectAll();
  look();
  window_->Editor().Edit().setFocus();
  look();
}

void EveryWindow::CommandHistory(const Look& look) {
  Do(Action::kOpenMdi);
  for (const char* block : {"G0 X1", "G0 X2", "G0 X3"}) {
    Type(block);
    Do(Action::kCycleStart);
    Advance(5000);
  }
  Key(Qt::Key_Down);
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::CommandRuns(const Look& look) {
  Do(Action::kOpenMdi);
  Type("G1 X90 F300");
  Do(Action::kCycleStart);
  Advance(200);
  look();
}

void EveryWindow::MdaList(const Look& look) {
  OpenListAtSecond();
  look();
  window_->Editor().Edit().setFocus();
  look();
}

void EveryWindow::MdaItem(const Look& look) {
  OpenListAtSecond();
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_COMMAND, kNewItem, 0);
  Settle();
  Type("G4");
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::Undo(const Look& look) {
  OpenListAtSecond();
  for (const int command : {kDeleteItem, kClearList}) {
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_COMMAND, command, 0);
    Settle();
    ASSERT_TRUE(window_->Undo().isVisible());
    look();
  }
}

void EveryWindow::Calculator(const Look& look) {
  Do(Action::kOpenCalculator);
  look();
  Type("2+3*SIN(30)");
  look();
  Line(PNL_TOOL_CALCULATOR)->selectAll();
  look();
  for (QAbstractButton* key : Tool(PNL_TOOL_CALCULATOR)->findChildren<QAbstractButton*>()) key->setDown(true);
  look();
}

void EveryWindow::CalculatorFails(const Look& look) {
  Do(Action::kOpenCalculator);
  Type("2+*");
  Key(Qt::Key_Return);
  look();
}

void EveryWindow::CompactCalculator(const Look& look) {
  Do(Action::kOpenCalculator);
  Command(PNL_TOOL_CALCULATOR, kCompact);
  look();
  Command(PNL_TOOL_CALCULATOR, kCompact);
}

void EveryWindow::CalculatorLists(const Look& look) {
  Do(Action::kOpenCalculator);
  for (const char* typed : {"2+3", "P1=7", "4*5"}) {
    Type(typed);
    Key(Qt::Key_Return);
    Line(PNL_TOOL_CALCULATOR)->selectAll();
  }
  Type("255");
  for (const int key : kCalcLists) {
    if (qobject_cast<QAbstractButton*>(ControlOf(PNL_TOOL_CALCULATOR, key)) == nullptr) continue;
    Click(PNL_TOOL_CALCULATOR, key);
    look();
    Click(PNL_TOOL_CALCULATOR, key);
  }
}

void EveryWindow::Machining(const Look& look) {
  Open();
  look();
  window_->Editor().Edit().setFocus();
  look();
}

void EveryWindow::MachiningChosen(const Look& look) {
  Open();
  Choose();
  look();
  for (const int id : {machining::kF, machining::kRemark, machining::kMaterial, machining::kToolBox}) {
    Control(id)->setFocus();
    look();
  }
}

void EveryWindow::MachiningList(const Look& look) {
  Open();
  for (const int id : {machining::kMaterial, machining::kToolBox}) {
    Box(id)->showPopup();
    look();
    Box(id)->hidePopup();
  }
}

void EveryWindow::Materials(const Look& look) {
  Open();
  Send(machining::kMaterialsTab);
  look();
  Grid(machining::kMaterials)->setFocus();
  Grid(machining::kMaterials)->selectRow(1);
  look();
}

void EveryWindow::MaterialEdited(const Look& look) {
  Open();
  Send(machining::kMaterialsTab);
  Send(machining::kAdd);
  look();
  TypeOnKeyboard("steel");
  look();
  Press(Qt::Key_Return);
  Send(machining::kSave);
  look();
}

void EveryWindow::Operations(const Look& look) {
  Open();
  Send(machining::kOperationsTab);
  Grid(machining::kOperations)->setFocus();
  look();
}

void EveryWindow::MachiningBox(const Look& look) {
  rig_.AnswerBoxes({});
  Open();
  auto* watch = new QTimer(window_.get());
  QObject::connect(watch, &QTimer::timeout, watch, [watch, &look] {
    const QPointer<QDialog> box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    watch->stop();
    watch->deleteLater();
    look();
    if (box) box->reject();
  });
  watch->start(0);
  Send(PNL_ZMC_CHANGES);
}

void EveryWindow::ErrorWindows(const Look& look) {
  for (const auto fault : {pnl::rig::MachineFault::kDriveFault, pnl::rig::MachineFault::kDriveWarning,
                           pnl::rig::MachineFault::kConfirm, pnl::rig::MachineFault::kFatal}) {
    Raise(fault);
    ASSERT_TRUE(ErrorsShown());
    look();
    rig_.Cnc().ClearErrors();
    Settle();
  }
  PushErrors();
  ASSERT_TRUE(ErrorsShown());
  look();
}

void EveryWindow::ErrorHelp(const Look& look) {
  Raise(pnl::rig::MachineFault::kDriveFault);
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), PNL_MSG_HELP_KEY, 0, 0);
  Settle();
  ASSERT_TRUE(Tool(PNL_TOOL_PLC_MESSAGES)->isVisible());
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::PlcMessages(const Look& look) {
  // Those without a video: its player shows no text.
  constexpr std::uint32_t kVideo = 3;
  for (const auto& message : op_->PlcMessages()) {
    if (message.code == kVideo) continue;
    op_->RaisePlcMessage(message.code);
    Settle();
    ASSERT_TRUE(Tool(PNL_TOOL_PLC_MESSAGES)->isVisible());
    look();
    session_.TypeInto(PNL_TOOL_PLC_MESSAGES, Qt::Key_Escape);
    Settle();
  }
}

void EveryWindow::Explorer(const Look& look) {
  Do(Action::kOpenProgram);
  ASSERT_TRUE(ExplorerShown());
  look();
  Command(PNL_TOOL_EXPLORER, kMoveToTree);
  look();
}

void EveryWindow::ExplorerList(const Look& look) {
  for (const char16_t* name : {u"C:\\ONE.NC", u"C:\\TWO.NC"}) {
    QFile file(QString::fromStdString(rig_.Files().HostPath(name).value_or("/nowhere")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("G0 X1\n");
  }
  Do(Action::kOpenProgram);
  Command(PNL_TOOL_EXPLORER, kMoveToList);
  look();
  Type("T");
  look();
  Key(Qt::Key_Space);
  look();
}

void EveryWindow::SaveAs(const Look& look) {
  Do(Action::kSaveProgramAs);
  ASSERT_TRUE(ExplorerShown());
  Command(PNL_TOOL_EXPLORER, kMoveToField);
  look();
  Type("P1");
  Line(PNL_TOOL_EXPLORER)->selectAll();
  look();
}

void EveryWindow::ExplorerFind(const Look& look) {
  Do(Action::kOpenProgram);
  Command(PNL_TOOL_EXPLORER, kMoveToList);
  Command(PNL_TOOL_EXPLORER, kExplorerFind);
  look();
  Type("TW");
  look();
  Key(Qt::Key_Escape);
}

void EveryWindow::HelpCommand(int command, const Look& look) {
  Do(Action::kHelp);
  ASSERT_TRUE(Tool(PNL_TOOL_HELP)->isVisible());
  Command(PNL_TOOL_HELP, command);
  look();
}

void EveryWindow::Help(const Look& look) {
  Do(Action::kHelp);
  ASSERT_TRUE(Tool(PNL_TOOL_HELP)->isVisible());
  look();
  Command(PNL_TOOL_HELP, kHelpContents);
  look();
}

void EveryWindow::HelpIndex(const Look& look) {
  HelpCommand(kHelpIndex, [&] {
    look();
    Type("a");
    look();
  });
}

void EveryWindow::HelpSearch(const Look& look) {
  HelpCommand(kHelpSearch, [&] {
    look();
    Type("program");
    Key(Qt::Key_Return);
    look();
  });
}

void EveryWindow::HelpInPage(const Look& look) {
  HelpCommand(kHelpInPage, [&] {
    look();
    Type("the");
    Key(Qt::Key_Return);
    look();
  });
}

void EveryWindow::Manuals(const Look& look) { HelpCommand(kHelpManuals, look); }

}  // namespace panel
