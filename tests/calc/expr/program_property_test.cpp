// SPDX-License-Identifier: MIT
// The program against the plain walk of the tree: random expressions over random stores give the same value, status
// and store, bit for bit, whether run at once or instruction by instruction.
#include <random>

#include "calc/expr/expr_fixture.h"
#include "calc/expr/tree_walk.h"

namespace pnl::test {
namespace {

/// Writes expressions by the grammar's rows.
class Writer {
 public:
  explicit Writer(std::uint32_t seed) : random_(seed) {}

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  Text Sequence() {
    solvers_ = 0;
    size_ = 0;
    Text text = Assignment(4);
    for (int more = Pick(4); more > 1; --more) text += (Pick(2) == 0 ? u";" : u":") + Assignment(3);
    return text;
  }

  double Number() {
    static constexpr std::array kNumbers = {0.0,   1.0,  -1.0,  0.5,  2.0,  -2.0,  3.0, 1.0 / 3, -8.0,
                                            100.0, 25.4, 1E-15, -0.0, 1E10, 170.0, 7.9, 1E300,   4294967297.0};
    switch (Pick(12)) {
      case 0:
        return kInfinity;
      case 1:
        return kNotANumber;
      case 2:
      case 3:
        return std::uniform_real_distribution<>(-10, 10)(random_);
      default:
        return kNumbers[static_cast<std::size_t>(Pick(kNumbers.size()))];
    }
  }

 private:
  template <std::size_t N>
  Text OneOf(const char16_t* const (&texts)[N]) {
    return Pick(9) == 0 ? Text(texts[Pick(N)]) + u" " : texts[Pick(N)];
  }
  Text Letter() { return OneOf({u"A", u"b", u"N", u"E", u"X", u"x", u"C", u"D"}); }

  // NOLINTNEXTLINE(misc-no-recursion)
  Text Assignment(int depth) { return Pick(5) == 0 ? Letter() + u"=" + Assignment(depth) : Binary(depth); }

  Text Binary(int depth) {
    if (++size_ > 40) depth = 0;
    if (depth == 0) return Prefix(0);
    Text text = Operand(depth - 1);
    for (int more = Pick(4); more > 0; --more) {
      text += OneOf({u"+", u"-", u"*", u"/", u"/", u"%", u" OR ", u" XOR ", u" AND "});
      text += Operand(depth - 1);
    }
    return text;
  }

  Text Operand(int depth) { return Pick(20) == 0 ? u"NOT " + Prefix(depth) : Prefix(depth); }

  Text Prefix(int depth) {
    if (Pick(3) == 0) {
      if (solvers_ == 0 && Pick(8) == 0) {
        ++solvers_;
        return OneOf({u"INTEGRAL ", u"ZERO "}) + Prefix(depth);
      }
      return OneOf({u"-",      u"ABS ",   u"SQRT ",   u"LOG ",    u"INVLOG ", u"LN ",  u"INVLN ", u"SIN ",
                    u"COS ",   u"TAN ",   u"INVSIN ", u"INVCOS ", u"INVTAN ", u"SH ",  u"CH ",    u"TH ",
                    u"INVSH ", u"INVCH ", u"INVTH ",  u"MMTOI ",  u"ITOMM ",  u"INT ", u"sin ",   u"-"}) +
             Prefix(depth);
    }
    Text text = Primary(depth);
    if (Pick(12) == 0) text += u"!";
    if (Pick(5) == 0) text += u"^" + (Pick(2) == 0 ? Text(OneOf({u"2", u"3", u"-1", u"0"})) : Prefix(depth));
    return text;
  }

  Text Primary(int depth) {
    if (depth > 0 && Pick(2) == 0) return u"(" + Assignment(depth - 1) + u")";
    if (Pick(2) == 0) return Letter();
    return OneOf({u"0", u"1", u"2", u"3", u"0.5", u".25", u"1E-7", u"30", u"$FF", u"B101", u"ACC", u"PI", u"MMPERI",
                  u"IPERMM", u"1E3", u"0"});
  }

  std::mt19937 random_;
  int solvers_ = 0;
  int size_ = 0;
};

void FillStore(Writer& writer, CalcStore& store) {
  for (double& variable : store.Variables) variable = writer.Number();
  // Few intervals and iterations: the walk is slow. Some that are turned into the default.
  static constexpr std::array kCounts = {0.0, 1.0, 2.0, 5.9, -3.0, 4294967297.0, 1E30};
  store.Variables['N' - 'A'] = kCounts[static_cast<std::size_t>(writer.Pick(kCounts.size()))];
  if (writer.Pick(2) == 0) store.Variables['E' - 'A'] = -1E-6;
  store.Acc = writer.Number();
}

::testing::AssertionResult SameStore(const CalcStore& a, const CalcStore& b) {
  for (std::size_t i = 0; i < a.Variables.size(); ++i) {
    if (Same(a.Variables[i], b.Variables[i])) continue;
    return ::testing::AssertionFailure() << static_cast<char>('A' + i) << ": " << a.Variables[i] << " and "
                                         << b.Variables[i];
  }
  if (!Same(a.Acc, b.Acc)) return ::testing::AssertionFailure() << "ACC: " << a.Acc << " and " << b.Acc;
  return ::testing::AssertionSuccess();
}

int RunInSteps(CEvaluator& evaluator, std::int64_t steps, double& result) {
  evaluator.Begin();
  while (evaluator.Advance(steps) == CEvaluator::Progress::kRunning) {
  }
  return evaluator.Finish(result);
}

/// How many of the expressions came to a value.
int CompareMany(std::uint32_t seed, int count, std::int64_t steps) {
  Writer writer(seed);
  int values = 0;
  int compared = 0;
  while (compared < count) {
    const Text text = writer.Sequence();
    if (text.size() > kLongestExpression) continue;
    ++compared;
    Calc calc;
    FillStore(writer, calc.store);
    CalcStore expectedStore = calc.store;
    const bool radians = writer.Pick(2) == 0;
    SCOPED_TRACE(ToUtf8(text));
    EXPECT_EQ(-1, calc.Place(text));

    std::unique_ptr<Token> tokens;
    std::unique_ptr<ExprNode> tree;
    std::int32_t place = 0;
    calc.scanner.ScanExpression(text.c_str(), tokens);
    EXPECT_EQ(1, calc.parser.ParseTokens(tokens.get(), place, tree));
    double expected = -77;
    const int expectedStatus = TreeWalk(expectedStore, radians).Evaluate(*tree, expected);

    calc.evaluator.radians = radians;
    double value = -77;
    const int status = steps == 0 ? calc.evaluator.Evaluate(value) : RunInSteps(calc.evaluator, steps, value);
    EXPECT_EQ(expectedStatus, status);
    EXPECT_TRUE(Same(expected, value)) << expected << " and " << value;
    EXPECT_TRUE(SameStore(expectedStore, calc.store));
    if (::testing::Test::HasFailure()) return values;
    values += status;
  }
  return values;
}

TEST(ProgramProperty, TheProgramGivesWhatTheWalkOfTheTreeGives) { EXPECT_GT(CompareMany(1, 8000, 0), 2000); }

TEST(ProgramProperty, InstructionByInstructionItGivesTheSame) { EXPECT_GT(CompareMany(2, 2000, 1), 500); }

TEST(ProgramProperty, InPiecesOfSevenItGivesTheSame) { EXPECT_GT(CompareMany(3, 2000, 7), 500); }

}  // namespace
}  // namespace pnl::test
