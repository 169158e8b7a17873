// SPDX-License-Identifier: MIT
#include "guided/error_steps.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include "ui/error_indicator.h"
#include "ui/error_list.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/status_strip.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

void Raise(Hands& hands, Fault fault) {
  for (const DemoFault& row : DemoFaults()) {
    if (row.fault == fault) hands.op_.RaiseFault(row, hands.window_.Desk().CaretSpot());
  }
  hands.Settle();
}

/// Puts the caret at the first place of the word in the open program. Returns false when the word isn't there.
bool PlaceCaret(Hands& hands, const QString& word) {
  QPlainTextEdit& edit = hands.window_.Editor().Edit();
  const auto at = edit.toPlainText().indexOf(word);
  QTextCursor caret = edit.textCursor();
  caret.setPosition(static_cast<int>(std::max<qsizetype>(at, 0)));
  edit.setTextCursor(caret);
  return at >= 0;
}

}  // namespace

bool ErrorWindowIsShown(const Hands& hands) { return hands.op_.Desk().WindowShown(); }

std::vector<Step> ErrorSteps() {
  return {
      {"error-warning", "a warning of a drive opens the error window in its own colour",
       [](Hands& h) {
         Raise(h, Fault::kDriveWarning);
         return ErrorWindowIsShown(h);
       }},
      {"error-program", "an error in a program shows the file and the word at fault",
       [](Hands& h) {
         h.Press(Action::kClearError);
         h.window_.Desk().Store(QStringLiteral("C:\\POCKET.NC"));
         h.Settle();
         PlaceCaret(h, QStringLiteral("F1000"));
         Raise(h, Fault::kProgramLine);
         return ErrorWindowIsShown(h);
       }},
      {"error-queue", "three errors: the counters show how many come before and after",
       [](Hands& h) {
         Raise(h, Fault::kDriveFault);
         Raise(h, Fault::kBusFault);
         h.Key(Qt::Key_Right);
         return h.op_.Desk().Standing() == 3;
       }},
      {"error-help", "the long description takes the place of the window",
       [](Hands& h) {
         PnlSendMessage(h.session_.ToolWindow(PNL_TOOL_ERRORS), PNL_MSG_HELP_KEY, 0, 0);
         h.Settle();
         return h.op_.Desk().ShowsHelp();
       }},
      {"error-indicator", "put away, the window leaves a flashing count",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         auto* tool = static_cast<QWidget*>(PnlWidgetOf(h.session_.ToolWindow(PNL_TOOL_ERRORS)));
         for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
           QMouseEvent press(type, QPointF(3, 3), tool->mapToGlobal(QPointF(3, 3)), Qt::LeftButton, Qt::LeftButton,
                             Qt::NoModifier);
           QCoreApplication::sendEvent(tool, &press);
         }
         h.Settle();
         return h.window_.Status().Indicator().Flashes();
       }},
      {"error-list", "the list of the session's errors, and what became of each",
       [](Hands& h) {
         h.Press(Action::kErrorList);
         return h.window_.ErrorsShown().IsOpen();
       }},
      {"error-done", "the indicator brings the window back, and each error is acknowledged",
       [](Hands& h) {
         h.Press(Action::kErrorList);
         for (int i = 0; i < 4 && h.op_.Desk().Standing() > 0; ++i) h.Press(Action::kClearError);
         // The drive and the bus are mended, too.
         for (const Fault fault : {Fault::kDriveFault, Fault::kBusFault}) Raise(h, fault);
         return h.op_.Desk().Standing() == 0 && h.op_.Can(Action::kCycleStart);
       }},
  };
}

}  // namespace panel
