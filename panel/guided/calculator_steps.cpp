// SPDX-License-Identifier: MIT
#include "guided/calculator_steps.h"

namespace panel {
namespace {

constexpr int kNextBase = 32779;
constexpr int kCompact = 32817;
constexpr int kBackspaces = 60;

bool CalculatorIsOpen(const Hands& hands) { return hands.session_.IsToolOpen(PNL_TOOL_CALCULATOR); }

QString LineOf(const Hands& hands) {
  const QLineEdit* line = hands.Edit(PNL_TOOL_CALCULATOR);
  return line == nullptr ? QString() : line->text();
}

void Confirm(Hands& hands, const QString& expression) {
  hands.Type(expression);
  hands.Key(Qt::Key_Return);
}

void Empty(Hands& hands) {
  hands.Key(Qt::Key_End);
  for (int i = 0; i < kBackspaces; ++i) hands.Key(Qt::Key_Backspace);
}

void Command(Hands& hands, int id) {
  hands.op_.SendCommand(PNL_TOOL_CALCULATOR, id);
  hands.Settle();
}

std::vector<Step> TypingSteps() {
  return {
      {"calculator", "the calculator opens beside the program",
       [](Hands& h) {
         // Leaves the list of blocks first.
         h.Key(Qt::Key_Escape);
         h.Press(Action::kOpenCalculator);
         return CalculatorIsOpen(h);
       }},
      {"calculator-preview", "an expression shows its value while it is typed",
       [](Hands& h) {
         h.Type(QStringLiteral("2*PI*12.5/SQRT(3)"));
         return !LineOf(h).isEmpty();
       }},
      {"calculator-history", "confirmed expressions stand in the history",
       [](Hands& h) {
         h.Key(Qt::Key_Return);
         Confirm(h, QStringLiteral("A=25.4*2"));
         Confirm(h, QStringLiteral("A*SIN 30"));
         h.Key(Qt::Key_Down);
         h.Key(Qt::Key_Down);
         return LineOf(h).startsWith(QLatin1String("A*"));
       }},
      {"calculator-variables", "the variables that hold a value, one key away",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         h.Key(Qt::Key_R, {}, Qt::ControlModifier);
         return CalculatorIsOpen(h);
       }},
      {"calculator-hex", "the same value in hexadecimal, and in every base below",
       [](Hands& h) {
         h.Key(Qt::Key_Escape);
         Confirm(h, QStringLiteral("4095"));
         Command(h, kNextBase);
         Command(h, kNextBase);
         h.Key(Qt::Key_B, {}, Qt::ControlModifier);
         return CalculatorIsOpen(h);
       }},
      {"calculator-binary", "and in binary",
       [](Hands& h) {
         Command(h, kNextBase);
         Command(h, kNextBase);
         return CalculatorIsOpen(h);
       }},
  };
}

std::vector<Step> LaterSteps() {
  return {
      {"calculator-syntax", "a mistake shows where it is",
       [](Hands& h) {
         h.Key(Qt::Key_B, {}, Qt::ControlModifier);
         Command(h, kNextBase);
         Command(h, kNextBase);
         h.Type(QStringLiteral("(2+3)*SIN )4"));
         return !LineOf(h).isEmpty();
       }},
      {"calculator-long", "a long integral says that it is being computed, and gives way to the next key",
       [](Hands& h) {
         Empty(h);
         Confirm(h, QStringLiteral("A=100;B=130;N=500000"));
         h.Key(Qt::Key_E, {}, Qt::ControlModifier);
         QLineEdit* line = h.Edit(PNL_TOOL_CALCULATOR);
         line->setText(QStringLiteral("INTEGRAL(X!") + QStringLiteral("-X!+X!").repeated(30) + QLatin1Char(')'));
         h.Settle();
         return CalculatorIsOpen(h);
       }},
      {"calculator-compact", "the compact window leaves more of the program free",
       [](Hands& h) {
         h.Edit(PNL_TOOL_CALCULATOR)->setText(QStringLiteral("25.4*2"));
         h.Key(Qt::Key_E, {}, Qt::ControlModifier);
         Command(h, kCompact);
         return CalculatorIsOpen(h);
       }},
      {"calculator-inserted", "one key gives the value to the command line",
       [](Hands& h) {
         Command(h, kCompact);
         h.Press(Action::kOpenMdi);
         h.Press(Action::kSwitchRole);
         h.Type(QStringLiteral("G1 X"));
         h.Press(Action::kOpenCalculator);
         h.Key(Qt::Key_Insert);
         const QLineEdit* mdi = h.Edit(PNL_TOOL_MDI);
         return mdi != nullptr && mdi->text() == QLatin1String("G1 X50.8");
       }},
  };
}

}  // namespace

std::vector<Step> CalculatorSteps() {
  std::vector<Step> steps = TypingSteps();
  for (Step& step : LaterSteps()) steps.push_back(std::move(step));
  return steps;
}

Step CalculatorGlance() {
  return {"language-calculator", "the calculator in another language", [](Hands& h) {
            h.Press(Action::kOpenCalculator);
            h.Type(QStringLiteral("(2+3"));
            return CalculatorIsOpen(h);
          }};
}

}  // namespace panel
