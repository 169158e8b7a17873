// SPDX-License-Identifier: MIT
#include "guided/explorer_steps.h"

#include <QFile>

namespace panel {
namespace {

// Items of the command line's menu and of the explorer's two.
constexpr int kSaveAsProgram = 32775;
constexpr int kSortByDate = 32772;
constexpr int kToField = 32779;

QString SavedProgram(const Hands& hands) {
  const auto path = hands.rig_.Files().HostPath(hands.rig_.Files().Path(101) + u"\\GUIDED.NC");
  return path ? QFile::decodeName(QByteArray::fromStdString(*path)) : QString();
}

bool ExplorerIsOpen(const Hands& hands) { return hands.session_.IsToolOpen(PNL_TOOL_EXPLORER); }

}  // namespace

std::vector<Step> SavingSteps() {
  return {
      {"save-as", "the list is saved as a program: the explorer asks for a name",
       [](Hands& h) {
         if (!h.PressItem(kSaveAsProgram) || !ExplorerIsOpen(h) || !h.PressSideItem(kToField)) return false;
         h.Type(QStringLiteral("GUIDED.NC"));
         return h.Edit(PNL_TOOL_EXPLORER) != nullptr && h.Edit(PNL_TOOL_EXPLORER)->text() == "GUIDED.NC";
       }},
      {"saved", "the program is there",
       [](Hands& h) {
         h.rig_.AnswerBoxes([](std::string_view) { return std::string("yes"); });
         h.Key(Qt::Key_Return);
         h.rig_.AnswerBoxes({});
         return !ExplorerIsOpen(h) && QFile::exists(SavedProgram(h));
       }},
  };
}

std::vector<Step> FilesSteps() {
  return {
      {"files", "the files, sorted by date",
       [](Hands& h) {
         h.Press(Action::kOpenProgram);
         return ExplorerIsOpen(h) && h.PressItem(kSortByDate);
       }},
      {"files-left", "Escape leads back to where the operator was",
       [](Hands& h) {
         const int before = h.session_.FrontTool();
         h.Key(Qt::Key_Escape);
         return !ExplorerIsOpen(h) && h.session_.FrontTool() != before;
       }},
  };
}

}  // namespace panel
