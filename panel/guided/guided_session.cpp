// SPDX-License-Identifier: MIT
#include "guided/guided_session.h"

#include <QDir>
#include <cstdio>

#include "guided/calculator_steps.h"
#include "guided/error_steps.h"
#include "guided/explorer_steps.h"
#include "guided/hands.h"
#include "guided/help_steps.h"
#include "guided/machining_steps.h"
#include "guided/message_steps.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

const char* const kProgram =
    "(POCKET 60 X 40)\n"
    "G90 G17 G54\n"
    "T3 M6\n"
    "S1800 M3\n"
    "G0 X0 Y0 Z5\n"
    "G1 Z-4 F300\n"
    "G1 X60 F1000\n"
    "G1 Y40\n"
    "G1 X0\n"
    "G1 Y0\n"
    "G0 Z50\n"
    "M30\n";

double PositionX(const Hands& hands) {
  const auto state = hands.op_.Machine();
  return state.axes.empty() ? 0 : state.axes.front().position;
}

bool MdiIsOpen(const Hands& hands) { return hands.session_.IsToolOpen(PNL_TOOL_MDI); }

std::vector<Step> FirstSteps() {
  return {
      {"panel", "the panel at rest, with a program in its editor",
       [](Hands& h) {
         h.window_.Editor().SetProgram(QString::fromLatin1(kProgram), {});
         return !h.window_.MainBar().Items().empty();
       }},
      {"mdi", "the MDI key opens the command line",
       [](Hands& h) {
         h.Press(Action::kOpenMdi);
         return MdiIsOpen(h);
       }},
      {"typed", "a block is typed: G1 X100 F1000",
       [](Hands& h) {
         h.Type(QStringLiteral("G1 X100 F1000"));
         return true;
       }},
      {"running", "cycle start: the axis moves",
       [](Hands& h) {
         h.PressStart();
         h.Advance(3000);
         return PositionX(h) > 1 && PositionX(h) < 99;
       }},
      {"hold", "feed hold stops it on the way",
       [](Hands& h) {
         h.Press(Action::kFeedHold);
         h.Advance(500);
         const double at = PositionX(h);
         h.Advance(1000);
         return at == PositionX(h);
       }},
      {"done", "cycle start again: the block runs to its end",
       [](Hands& h) {
         h.PressStart();
         return h.WaitForRest() && PositionX(h) > 99.9;
       }},
  };
}

std::vector<Step> LaterSteps() {
  return {
      {"history", "two more blocks, then the list of what ran before drops down",
       [](Hands& h) {
         const bool ran = h.RunBlock(QStringLiteral("G1 Y50")) && h.RunBlock(QStringLiteral("G0 X0 Y0"));
         h.Key(Qt::Key_Down);
         return ran;
       }},
      {"refused", "a block the machine doesn't know is refused, and the error window says why",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         h.Type(QStringLiteral("G999"));
         h.PressStart();
         return ErrorWindowIsShown(h);
       }},
      {"cleared", "the error is acknowledged",
       [](Hands& h) {
         h.Press(Action::kClearError);
         for (int i = 0; i < 4; ++i) h.Key(Qt::Key_Backspace);
         return h.op_.Desk().Standing() == 0;
       }},
      {"mda", "the MDA list holds every block that ran",
       [](Hands& h) {
         h.Press(Action::kSwitchRole);
         return h.window_.MainBar().Menu() != 0;
       }},
  };
}

std::vector<Step> GlanceSteps() {
  return {
      {"language", "the same panel in another language",
       [](Hands& h) {
         h.window_.Editor().SetProgram(QString::fromLatin1(kProgram), {});
         h.Press(Action::kOpenMdi);
         return MdiIsOpen(h);
       }},
      {"language-refused", "a refusal in another language",
       [](Hands& h) {
         h.Type(QStringLiteral("G999"));
         h.PressStart();
         return ErrorWindowIsShown(h);
       }},
      CalculatorGlance(),
      HelpGlance(),
  };
}

std::vector<Step> WholeTour() {
  std::vector<Step> steps;
  for (const auto part : {&FirstSteps, &LaterSteps, &SavingSteps, &CalculatorSteps, &ErrorSteps, &FilesSteps,
                          &MachiningSteps, &MessageSteps, &HelpSteps}) {
    for (Step& step : part()) steps.push_back(std::move(step));
  }
  return steps;
}

}  // namespace

int RunGuidedSession(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig, const QString& folder,
                     Tour tour, int first) {
  if (!QDir().mkpath(folder)) {
    std::fprintf(stderr, "pnlpanel: --guided: the folder %s can't be made\n", qPrintable(folder));
    return 0;
  }
  Hands hands(window, session, op, rig, folder);
  window.activateWindow();
  hands.Settle();
  const std::vector<Step> steps = tour == Tour::kWhole ? WholeTour() : GlanceSteps();
  int number = first;
  for (const Step& step : steps) {
    const bool done = step.run(hands) && hands.Capture(number, QString::fromLatin1(step.name));
    std::printf("%02d %s%s\n", number, step.text, done ? "" : "  -- FAILED");
    std::fflush(stdout);
    if (!done) return 0;
    ++number;
  }
  return number;
}

}  // namespace panel
