// SPDX-License-Identifier: MIT
// Compares the calculator's language with muParser: a keystroke (compile and evaluate a line as it grows), one
// evaluation of a compiled formula, and integrals. Both sides get the same expressions, values and sums. After the
// table it prints the ratios of the median processor times.
#include <benchmark/benchmark.h>
#include <muParser.h>
#include <omp.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "calc/expr/evaluator.h"

namespace {

using pnl::CalcStore;
using pnl::CEvaluator;
using pnl::CParser;
using pnl::CScaner;
using pnl::Text;

struct Ours {
  CalcStore store;
  CScaner scanner;
  CParser parser;
  CEvaluator evaluator{scanner, parser, store};

  explicit Ours(const std::string& text) {
    const char16_t* error = nullptr;
    if (evaluator.Compile(pnl::FromUtf8(text).c_str(), error) != 1) std::abort();
    evaluator.radians = true;
  }
  double& operator[](char letter) { return store.Variables[static_cast<std::size_t>(letter - 'A')]; }
};

/// Translates our text for muParser. The expressions here use brackets, so only the names differ.
std::string InMuParser(std::string text) {
  static constexpr std::pair<std::string_view, std::string_view> kNames[] = {
      {"INVLN", "exp"}, {"SQRT", "sqrt"}, {"SIN", "sin"}, {"COS", "cos"}, {"ABS", "abs"}, {"LN", "ln"}, {"PI", "_pi"}};
  for (const auto& [ours, theirs] : kNames) {
    for (std::size_t at = text.find(ours); at != std::string::npos; at = text.find(ours, at + theirs.size()))
      text.replace(at, ours.size(), theirs);
  }
  return text;
}

// ---- A keystroke

constexpr std::string_view kLines[] = {"(12.5+3)*SIN(30)/4", "1000*120/(PI*16)", "A*2+25.4/3", "0.08*4*2387",
                                       "SQRT(12.5^2-3.75^2)"};

int PreviewOurs(const Text& text, CalcStore& store) {
  CScaner scanner;
  CParser parser;
  CEvaluator evaluator(scanner, parser, store);
  const char16_t* error = nullptr;
  double result = 0;
  if (evaluator.Compile(text.c_str(), error) != 1) return 0;
  evaluator.radians = true;
  evaluator.SaveVariables();
  const int answer = evaluator.Evaluate(result);
  evaluator.RestoreVariables();
  benchmark::DoNotOptimize(result);
  return answer;
}

bool PreviewMuParser(const std::string& text, mu::Parser& parser) {
  try {
    parser.SetExpr(text);
    benchmark::DoNotOptimize(parser.Eval());
    return true;
  } catch (const mu::ParserError&) {
    return false;
  }
}

/// Every prefix of every line, as the lines grow under typing.
std::vector<std::string> Prefixes() {
  std::vector<std::string> prefixes;
  for (const std::string_view line : kLines) {
    for (std::size_t length = 1; length <= line.size(); ++length) prefixes.emplace_back(line.substr(0, length));
  }
  return prefixes;
}

struct Keystrokes {
  double a = 2.5;
  mu::Parser parser;
  CalcStore store;
  std::vector<Text> ours;
  std::vector<std::string> theirs;

  /// Uses every prefix, or only those that are expressions in both languages.
  explicit Keystrokes(bool onlyWhole) {
    parser.DefineVar("A", &a);
    store.Variables[0] = a;
    for (const std::string& prefix : Prefixes()) {
      const Text text = pnl::FromUtf8(prefix);
      const std::string translated = InMuParser(prefix);
      if (onlyWhole && (PreviewOurs(text, store) != 1 || !PreviewMuParser(translated, parser))) continue;
      ours.push_back(text);
      theirs.push_back(translated);
    }
  }
};

void KeystrokeOurs(benchmark::State& state, bool onlyWhole) {
  Keystrokes keys(onlyWhole);
  for (auto _ : state) {
    for (const Text& text : keys.ours) benchmark::DoNotOptimize(PreviewOurs(text, keys.store));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(keys.ours.size()));
}

void KeystrokeMuParser(benchmark::State& state, bool onlyWhole) {
  Keystrokes keys(onlyWhole);
  for (auto _ : state) {
    for (const std::string& text : keys.theirs) benchmark::DoNotOptimize(PreviewMuParser(text, keys.parser));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(keys.theirs.size()));
}

// ---- One evaluation of a compiled formula, in bulk

constexpr int kBulk = 10000;
const std::string kFormula = "(A^2/SIN(2*PI/B))-A/2";

/// Values as operators type them: whole numbers and decimals in turn.
struct BulkValues {
  std::vector<double> a = std::vector<double>(kBulk);
  std::vector<double> b = std::vector<double>(kBulk);
  BulkValues() {
    for (std::size_t i = 0; i < kBulk; ++i) {
      const auto n = static_cast<double>(i);
      a[i] = i % 2 == 0 ? 1 + std::fmod(n, 250) : 0.5 + std::fmod(n * 37, 9973) / 100;
      b[i] = i % 3 == 0 ? 3 + std::fmod(n, 60) : 2.5 + std::fmod(n * 53, 9967) / 1000;
    }
  }
};

void FormulaOurs(benchmark::State& state) {
  const BulkValues values;
  std::vector<double> results(kBulk);
  Ours ours(kFormula);
  for (auto _ : state) {
    for (std::size_t i = 0; i < kBulk; ++i) {
      ours['A'] = values.a[i];
      ours['B'] = values.b[i];
      ours.evaluator.Evaluate(results[i]);
    }
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kBulk);
}

/// Uses one thread, as ours does.
void FormulaMuParser(benchmark::State& state) {
  BulkValues values;
  std::vector<double> results(kBulk);
  mu::Parser parser;
  parser.DefineVar("A", values.a.data());
  parser.DefineVar("B", values.b.data());
  parser.SetExpr(InMuParser(kFormula));
  omp_set_num_threads(1);
  for (auto _ : state) {
    parser.Eval(results.data(), kBulk);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kBulk);
}

// ---- Integrals

constexpr double kPanels = 250000;  // each panel has two intervals
constexpr std::string_view kShortIntegrand = "X^2*SIN(X)";
constexpr std::string_view kLongIntegrand =
    "X^2*SIN(X)+3.5*COS(2*X)-(X+1)/(X^2+2)+SQRT(X+7.25)*ABS(X-3)-INVLN(-X/2)+LN(X+1.5)*0.125+(2*X-1)*(X+4.75)/(3*X+2)"
    "-SIN(X/3)*COS(X/5)+12.7*X^3/(X^4+1)-COS(PI*X/8)+SQRT(X^2+0.0625)/2.5*(X-0.375)/16-X/3.5";
static_assert(kLongIntegrand.size() == 199);

void IntegralOurs(benchmark::State& state, std::string_view integrand) {
  Ours ours("INTEGRAL(" + std::string(integrand) + ")");
  ours['A'] = 0;
  ours['B'] = 10;
  ours['N'] = kPanels;
  for (auto _ : state) {
    double result = 0;
    ours.evaluator.Evaluate(result);
    benchmark::DoNotOptimize(result);
  }
}

void IntegralMuParser(benchmark::State& state, std::string_view integrand) {
  constexpr double kFrom = 0;
  constexpr double kTo = 10;
  constexpr int kIntervals = 500000;
  constexpr double kStep = (kTo - kFrom) / kIntervals;
  double x = 0;
  mu::Parser parser;
  parser.DefineVar("X", &x);
  parser.SetExpr(InMuParser(std::string(integrand)));
  const auto at = [&](double place) {
    x = place;
    return parser.Eval();
  };
  for (auto _ : state) {
    double sum = at(kFrom) + at(kTo);
    for (int i = 1; i < kIntervals / 2; ++i) sum += 2 * at(kFrom + 2 * i * kStep);
    for (int i = 0; i < kIntervals / 2; ++i) sum += 4 * at(kFrom + (2 * i + 1) * kStep);
    benchmark::DoNotOptimize(kStep / 3 * sum);
  }
}

// ---- Ratios

/// Prints the usual table, and after it the ratio of each pair "<what>/ours" and "<what>/muParser...".
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    std::printf("\nours / muParser, of median processor times\n");
    for (const auto& [name, time] : medians_) {
      const auto ours = medians_.find(name.substr(0, name.find('/')) + "/ours");
      if (ours == medians_.end() || name == ours->first) continue;
      std::printf("  %-28s %5.2f\n", name.c_str(), ours->second / time);
    }
  }

 private:
  std::map<std::string, double> medians_;
};

/// A short run that only shows whether everything works; its figures mean nothing.
bool brief = false;

template <typename Function, typename... Arguments>
void Register(const char* name, Function function, Arguments... arguments) {
  auto* registered = benchmark::RegisterBenchmark(name, function, arguments...);
  if (brief) {
    registered->Repetitions(2)->MinTime(0.001);
  } else {
    registered->Repetitions(7)->MinTime(0.05);
  }
  registered->ReportAggregatesOnly();
}

}  // namespace

int main(int argc, char** argv) {
  brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  if (brief) --argc;
  Register("keystroke/ours", KeystrokeOurs, true);
  Register("keystroke/muParser", KeystrokeMuParser, true);
  Register("growing line/ours", KeystrokeOurs, false);
  Register("growing line/muParser", KeystrokeMuParser, false);
  Register("formula/ours", FormulaOurs);
  Register("formula/muParser bulk", FormulaMuParser);
  Register("integral/ours", IntegralOurs, kShortIntegrand);
  Register("integral/muParser loop", IntegralMuParser, kShortIntegrand);
  Register("long integral/ours", IntegralOurs, kLongIntegrand);
  Register("long integral/muParser loop", IntegralMuParser, kLongIntegrand);
  // The repetitions of both sides take turns, so that a busy machine slows both alike.
  std::vector<char*> arguments(argv, argv + argc);
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, interleave.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
