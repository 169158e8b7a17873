// SPDX-License-Identifier: MIT
#include "guided/help_steps.h"

#include <QAbstractItemView>
#include <QWidget>

#include "remote/window_inspector.h"

namespace panel {
namespace {

constexpr int kTool = PNL_TOOL_HELP;
// Controls of the viewer.
constexpr int kIndexLine = 1011;
constexpr int kSearchLine = 1013;
constexpr int kSearchStatus = 1016;
constexpr int kPage = 1020;
constexpr int kNotice = 1021;
constexpr int kFindLine = 1030;
// Items of its menu.
constexpr int kIndex = 2003;
constexpr int kManuals = 2004;
constexpr int kSearch = 2006;
// The lists of the dialog with the manuals.
constexpr int kManualList = 3001;
constexpr int kRecentList = 3002;
constexpr int kDemoManuals = 3;

bool IsOpen(const Hands& hands) { return hands.session_.IsToolOpen(kTool); }

QString PageText(const Hands& hands) { return hands.TextIn(kTool, kPage); }

/// Whether the page has the word in its heading. The words of a block are the same in every language.
bool ShowsPageAbout(const Hands& hands, const char* word) {
  return PageText(hands).section(QLatin1Char('\n'), 0, 0).contains(QLatin1String(word));
}

int RowsIn(QWidget& dialog, int list) {
  QWidget* control = WindowInspector::Control(&dialog, list);
  const QAbstractItemView* view = control == nullptr ? nullptr : ItemView(control);
  return view == nullptr ? 0 : view->model()->rowCount(view->rootIndex());
}

std::vector<Step> PaneSteps() {
  return {
      {"help-block", "the help key explains the block that is marked in the command line",
       [](Hands& h) {
         h.Press(Action::kOpenMdi);
         h.Key(Qt::Key_End);
         h.Key(Qt::Key_Home, {}, Qt::ShiftModifier);
         h.Press(Action::kHelp);
         return IsOpen(h) && ShowsPageAbout(h, "G1");
       }},
      {"help-contents", "another page of the same chapter, chosen in the contents",
       [](Hands& h) {
         h.Key(Qt::Key_Tab);
         h.Key(Qt::Key_Down);
         h.Key(Qt::Key_Return);
         return ShowsPageAbout(h, "G2");
       }},
      {"help-index", "a word of the index leads to its page",
       [](Hands& h) {
         if (!h.PressItem(kIndex)) return false;
         h.Type(QStringLiteral("M6"));
         h.Key(Qt::Key_Return);
         return h.TextIn(kTool, kIndexLine) == QLatin1String("M6") && ShowsPageAbout(h, "M6");
       }},
      {"help-search", "every page of the manual that has the word",
       [](Hands& h) {
         if (!h.PressItem(kSearch)) return false;
         h.Type(QStringLiteral("G91"));
         h.Key(Qt::Key_Return);
         const bool found = !h.TextIn(kTool, kSearchStatus).isEmpty();
         h.Key(Qt::Key_Return);
         return found && h.TextIn(kTool, kSearchLine) == QLatin1String("G91") &&
                PageText(h).contains(QLatin1String("G91"));
       }},
      {"help-find", "a word is found in the page",
       [](Hands& h) {
         h.Key(Qt::Key_F, {}, Qt::ControlModifier);
         h.Type(QStringLiteral("G91"));
         h.Key(Qt::Key_Return);
         return h.TextIn(kTool, kFindLine) == QLatin1String("G91") && h.TextIn(kTool, kNotice).isEmpty();
       }},
  };
}

std::vector<Step> ManualSteps() {
  return {
      {"help-manuals", "the manuals, and the pages that were read last",
       [](Hands& h) {
         return h.InDialog([&h] { static_cast<void>(h.PressItem(kManuals)); },
                           [](QWidget& dialog) {
                             return RowsIn(dialog, kManualList) == kDemoManuals && RowsIn(dialog, kRecentList) > 1;
                           });
       }},
      {"help-closed", "the viewer closes, and the command line is as it was",
       [](Hands& h) {
         if (!h.PressClose() || IsOpen(h) || h.session_.FrontTool() != PNL_TOOL_MDI) return false;
         return h.Edit(PNL_TOOL_MDI)->text() == QLatin1String("G1 X50.8");
       }},
  };
}

}  // namespace

std::vector<Step> HelpSteps() {
  std::vector<Step> steps = PaneSteps();
  for (Step& step : ManualSteps()) steps.push_back(std::move(step));
  return steps;
}

Step HelpGlance() {
  return {"language-help", "help on the calculator in another language", [](Hands& h) {
            h.Press(Action::kClearError);
            h.Press(Action::kHelp);
            return IsOpen(h) && !PageText(h).isEmpty();
          }};
}

}  // namespace panel
