// SPDX-License-Identifier: MIT
#include "calc/calc_values.h"

#include <memory>
#include <set>

#include "calc/calc_work.h"
#include "calc/expr/scaner.h"

namespace pnl {

namespace {

/// An expression without solvers needs far fewer steps. So a row is drawn at once even if there is a long one among
/// those that are seen.
constexpr std::int64_t kMostSteps = 20'000;
/// More values than rows are ever seen at once.
constexpr std::size_t kMostComputed = 1000;

bool Is(const Token& token, TokenKind kind, std::int32_t index) {
  return token.kind == kind && token.value.index == index;
}

/// Whether a token alone makes the value depend on what was before. Variables are looked at in their order.
bool ReadsWhatWasBefore(const Token& token) {
  return Is(token, TOK_CONSTANT, CON_ACC) || Is(token, TOK_FUNCTION, FUN_INTEGRAL) || Is(token, TOK_FUNCTION, FUN_ZERO);
}

std::optional<double> Computed(const Text& expression, bool radians) {
  if (expression.size() > kLongestExpression || !StandsAlone(expression)) return std::nullopt;
  CalcWork work{CalcStore()};
  if (work.Compile(expression)) return std::nullopt;
  work.Begin(radians);
  if (!work.Advance(kMostSteps)) return std::nullopt;
  return work.Finish();
}

}  // namespace

bool StandsAlone(const Text& expression) {
  CScaner scanner;
  std::unique_ptr<Token> head;
  scanner.ScanExpression(expression.c_str(), head);
  if (head == nullptr) return false;
  bool alone = true;
  std::set<std::int32_t> assigned;
  std::set<std::int32_t> inThisPart;
  int depth = 0;
  for (const Token* token = head->next.get(); token != nullptr && alone; token = token->next.get()) {
    const bool assigns = token->next != nullptr && Is(*token->next, TOK_DELIMITER, DEL_ASSIGN);
    if (token->kind == TOK_VARIABLE && assigns) inThisPart.insert(token->value.index);
    if (token->kind == TOK_VARIABLE && !assigns) alone = assigned.count(token->value.index) != 0;
    if (Is(*token, TOK_DELIMITER, DEL_OPEN)) ++depth;
    if (Is(*token, TOK_DELIMITER, DEL_CLOSE)) --depth;
    // Parts are computed one after the other. Within a part, what is on the right may come first.
    const bool ends = Is(*token, TOK_DELIMITER, DEL_SEMICOLON) || Is(*token, TOK_DELIMITER, DEL_COLON);
    if (ends && depth == 0) assigned.merge(inThisPart);
    if (ReadsWhatWasBefore(*token)) alone = false;
  }
  CScaner::FreeTokens(head);
  return alone;
}

void CalcRowValues::Insert(int row, Value value) {
  const auto at = static_cast<std::size_t>(row);
  if (at > values_.size()) {
    if (!value) return;
    values_.resize(at);
  }
  values_.insert(values_.begin() + row, value);
}

CalcRowValues::Value CalcRowValues::Erase(int row) {
  const Value value = At(row);
  if (static_cast<std::size_t>(row) < values_.size()) values_.erase(values_.begin() + row);
  return value;
}

CalcRowValues::Value CalcRowValues::At(int row) const {
  const auto at = static_cast<std::size_t>(row);
  return at < values_.size() ? values_[at] : std::nullopt;
}

std::optional<double> CalcValues::ValueOf(int row, const Text& expression, bool radians) {
  const auto key = std::make_pair(expression, radians);
  auto known = computed_.find(key);
  if (known == computed_.end()) {
    if (computed_.size() >= kMostComputed) computed_.clear();
    known = computed_.emplace(key, Computed(expression, radians)).first;
  }
  return known->second ? known->second : rows_.At(row);
}

}  // namespace pnl
