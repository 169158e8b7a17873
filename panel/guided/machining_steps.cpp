// SPDX-License-Identifier: MIT
#include "guided/machining_steps.h"

#include <QApplication>
#include <QTextBlock>

#include "ui/program_editor.h"

namespace panel {
namespace {

constexpr int kTool = PNL_TOOL_MACHINING_CALCULATOR;
// Controls of the tool.
constexpr int kMaterial = 3008;
constexpr int kOperation = 3010;
constexpr int kToolBox = 3012;
constexpr int kToolCheck = 229;
constexpr int kFCheck = 225;
constexpr int kSCheck = 226;
constexpr int kS = 3035;
// Its soft keys.
constexpr int kMainTab = 32818;
constexpr int kMaterialsTab = 32819;
constexpr int kAdd = 32779;
constexpr int kSave = 32783;
constexpr int kInsert = 32902;

/// More than any list has items, any field characters, and the tool controls.
constexpr int kMany = 30;

bool MachiningIsOpen(const Hands& hands) { return hands.session_.IsToolOpen(kTool); }

QString TextOf(const Hands& hands, int id) { return hands.TextIn(kTool, id); }

/// The block is to come before the program's third line.
void PutCaretBeforeTheToolCall(Hands& hands) {
  QPlainTextEdit& edit = hands.window_.Editor().Edit();
  edit.setTextCursor(QTextCursor(edit.document()->findBlockByNumber(2)));
}

int FocusedControl() {
  for (const QWidget* at = QApplication::focusWidget(); at != nullptr; at = at->parentWidget()) {
    const QVariant id = at->property("pnlId");
    if (id.isValid()) return id.toInt();
  }
  return 0;
}

/// Opens the list that has the focus, chooses its first item and goes on to the next control.
void PickFirst(Hands& hands) {
  hands.Key(Qt::Key_Space, QStringLiteral(" "));
  for (int i = 0; i < kMany; ++i) hands.Key(Qt::Key_Up);
  hands.Key(Qt::Key_Return);
}

/// Goes on with Tab to that control. Returns false when it isn't met.
bool GoTo(Hands& hands, int control) {
  for (int i = 0; i < kMany && FocusedControl() != control; ++i) hands.Key(Qt::Key_Tab);
  return FocusedControl() == control;
}

bool Check(Hands& hands, int control) {
  if (!GoTo(hands, control)) return false;
  hands.Key(Qt::Key_Space, QStringLiteral(" "));
  return true;
}

bool Choose(Hands& hands) {
  if (FocusedControl() != kMaterial) return false;
  PickFirst(hands);
  PickFirst(hands);
  for (const char* value : {"180", "0.1", "4", "25"}) {
    hands.Key(Qt::Key_Return);
    hands.Type(QString::fromLatin1(value));
    hands.Key(Qt::Key_Return);
    hands.Key(Qt::Key_Down);
  }
  if (!Check(hands, kToolCheck) || !GoTo(hands, kToolBox)) return false;
  hands.Key(Qt::Key_End);
  for (int i = 0; i < kMany; ++i) hands.Key(Qt::Key_Backspace);
  hands.Type(QStringLiteral("T3"));
  hands.Key(Qt::Key_Return);
  return Check(hands, kFCheck) && Check(hands, kSCheck) && TextOf(hands, kS) == QLatin1String("3580");
}

}  // namespace

std::vector<Step> MachiningSteps() {
  return {
      {"machining", "the machining calculator: material, operation and tool",
       [](Hands& h) {
         PutCaretBeforeTheToolCall(h);
         h.Press(Action::kOpenMachining);
         return MachiningIsOpen(h) && !TextOf(h, kMaterial).isEmpty() && !TextOf(h, kOperation).isEmpty();
       }},
      {"machining-chosen", "speed, feed and power follow from the values that are chosen", Choose},
      {"machining-materials", "an own material in the table",
       [](Hands& h) {
         if (!h.PressItem(kMaterialsTab) || !h.PressSideItem(kAdd)) return false;
         h.Type(QStringLiteral("Our spring steel"));
         h.Key(Qt::Key_Return);
         return MachiningIsOpen(h);
       }},
      {"machining-export", "the own materials leave as a table",
       [](Hands& h) {
         return h.PressSideItem(kSave) && h.PressItem(PNL_ZMC_EXPORT) && h.session_.IsToolOpen(PNL_TOOL_EXPLORER);
       }},
      {"machining-inserted", "one key puts the block into the program",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         if (!h.PressItem(kMainTab) || !h.PressSideItem(kInsert)) return false;
         return !MachiningIsOpen(h) && h.window_.ProgramText().contains(QLatin1String("G97 S3580"));
       }},
  };
}

}  // namespace panel
