// SPDX-License-Identifier: MIT
// Any text must scan, parse, print, compile and evaluate, or be refused at a place inside it. The first byte chooses
// the angle unit, the encoding of the text and how the run is cut into pieces. The second chooses the store. The rest
// is the text.
#include "calc/expr/evaluator.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "fuzz_check.h"

namespace {

using pnl::CalcStore;
using pnl::CEvaluator;
using pnl::Text;

constexpr std::int64_t kMostSteps = 3000;

Text TextOf(const std::uint8_t* data, std::size_t size, bool wide) {
  Text text;
  if (!wide) return {data, data + size};
  for (std::size_t i = 0; i + 1 < size; i += 2) text += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  return text;
}

/// The length that the evaluator sees: up to the terminator.
std::size_t LengthOf(const Text& text) { return std::min(text.find(u'\0'), text.size()); }

CalcStore StoreOf(std::uint8_t seed) {
  static constexpr double kValues[] = {0,
                                       1,
                                       -1,
                                       2.5,
                                       -0.0,
                                       1E300,
                                       1E10,
                                       std::numeric_limits<double>::infinity(),
                                       std::numeric_limits<double>::quiet_NaN(),
                                       -8,
                                       1.0 / 3};
  CalcStore store;
  for (std::size_t i = 0; i < store.Variables.size(); ++i) {
    store.Variables[i] = kValues[(seed + i * (seed >> 4)) % std::size(kValues)];
  }
  store.Acc = seed;
  return store;
}

bool Same(double a, double b) {
  return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void CheckSame(const CalcStore& a, const CalcStore& b) {
  for (std::size_t i = 0; i < a.Variables.size(); ++i) FUZZ_CHECK(Same(a.Variables[i], b.Variables[i]));
  FUZZ_CHECK(Same(a.Acc, b.Acc));
}

void ScanAndParse(const Text& text) {
  pnl::CScaner scanner;
  pnl::CParser parser;
  std::unique_ptr<pnl::Token> head;
  const char16_t* end = scanner.ScanExpression(text.c_str(), head);
  const std::size_t place = static_cast<std::size_t>(end - text.c_str());
  FUZZ_CHECK(place <= std::min(LengthOf(text), pnl::kLongestExpression));
  FUZZ_CHECK((head != nullptr) == (place == LengthOf(text)));
  if (head == nullptr) return;
  Text printed;
  pnl::DescribeTokens(head.get(), printed);
  FUZZ_CHECK(!printed.empty());
  std::int32_t last = -1;
  for (const pnl::Token* token = head->next.get(); token != nullptr; token = token->next.get()) {
    FUZZ_CHECK(token->position > last);
    last = token->position;
  }
  FUZZ_CHECK(static_cast<std::size_t>(last) == place);
  std::int32_t errorPosition = -1;
  std::unique_ptr<pnl::ExprNode> root;
  if (parser.ParseTokens(head.get(), errorPosition, root) == 0) {
    FUZZ_CHECK(errorPosition >= 0 && errorPosition <= last);
  }
}

struct Outcome {
  bool ended = false;
  int status = 0;
  double value = 0;
};

/// Evaluates the text in pieces of that many steps each, for at most kMostSteps in all.
Outcome Run(const Text& text, bool radians, std::int64_t piece, CalcStore& store) {
  pnl::CScaner scanner;
  pnl::CParser parser;
  CEvaluator evaluator(scanner, parser, store);
  const char16_t* error = nullptr;
  Outcome outcome;
  if (evaluator.Compile(text.c_str(), error) == 0) {
    FUZZ_CHECK(error >= text.c_str() && error <= text.c_str() + std::min(LengthOf(text), pnl::kLongestExpression));
    FUZZ_CHECK(evaluator.Evaluate(outcome.value) == 0);
    return outcome;
  }
  FUZZ_CHECK(error == text.c_str() + LengthOf(text));
  Text printed;
  evaluator.DescribeTree(printed);
  FUZZ_CHECK(!printed.empty());
  evaluator.radians = radians;
  evaluator.Begin();
  for (std::int64_t left = kMostSteps; left > 0 && !outcome.ended; left -= piece) {
    outcome.ended = evaluator.Advance(std::min(piece, left)) == CEvaluator::Progress::kEnded;
  }
  outcome.status = evaluator.Finish(outcome.value);
  FUZZ_CHECK(outcome.ended || outcome.status == 0);
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::uint8_t choice = data[0];
  const CalcStore store = StoreOf(data[1]);
  const Text text = TextOf(data + 2, size - 2, (choice & 0x02) != 0);
  const bool radians = (choice & 0x01) != 0;
  ScanAndParse(text);

  CalcStore whole = store;
  const Outcome expected = Run(text, radians, kMostSteps, whole);
  CheckSame(StoreOf(data[1]), store);
  if ((choice & 0x0C) == 0) {
    CalcStore pieces = store;
    const Outcome outcome = Run(text, radians, (choice >> 4) + 1, pieces);
    FUZZ_CHECK(outcome.ended == expected.ended && outcome.status == expected.status);
    FUZZ_CHECK(Same(outcome.value, expected.value));
    CheckSame(pieces, whole);
  }
  return 0;
}
