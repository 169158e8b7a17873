// SPDX-License-Identifier: MIT
#include "calc/expr/parser.h"

#include <new>
#include <utility>

namespace pnl {
namespace {

bool IsDelimiter(const Token& token, std::int32_t index) {
  return token.kind == TOK_DELIMITER && token.value.index == index;
}

bool IsLogic(const Token& token, std::int32_t index) { return token.kind == TOK_LOGIC && token.value.index == index; }

}  // namespace

int CParser::ParseTokens(const Token* head, std::int32_t& errorPosition, std::unique_ptr<ExprNode>& root) {
  listHead_ = head;
  current_ = listHead_;
  errorPosition_ = 0;
  root.reset();
  if (ParseSequence(root) && Next().kind == TOK_END) return 1;
  errorPosition = errorPosition_;
  return 0;
}

void CParser::FreeTree(std::unique_ptr<ExprNode>& root) { root.reset(); }

const Token& CParser::Next() {
  current_ = current_->next.get();
  errorPosition_ = current_->position;
  return *current_;
}

void CParser::MakeNode(Slot& slot, const Token& token, Slot left, Slot right) {
  slot.reset(new (std::nothrow) ExprNode);
  if (slot == nullptr) return;
  slot->left = std::move(left);
  slot->right = std::move(right);
  slot->kind = token.kind;
  slot->value = token.value;
}

template <typename Accepts>
bool CParser::ParseLeft(Slot& slot, Level operand, Accepts accepts) {
  if (!(this->*operand)(slot)) return false;
  while (true) {
    const Token& token = Next();
    if (!accepts(token)) {
      Back();
      return true;
    }
    Slot right;
    if (!(this->*operand)(right)) return false;
    MakeNode(slot, token, std::move(slot), std::move(right));
    if (slot == nullptr) return false;
  }
}

bool CParser::ParseUnary(Slot& slot, const Token& token, Level operand) {
  Slot left;
  if (!(this->*operand)(left)) return false;
  MakeNode(slot, token, std::move(left), nullptr);
  return slot != nullptr;
}

bool CParser::ParseSequence(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseAssignment, [](const Token& token) {
    return IsDelimiter(token, DEL_SEMICOLON) || IsDelimiter(token, DEL_COLON);
  });
}

bool CParser::ParseAssignment(Slot& slot) {
  const Token& variable = Next();
  if (variable.kind == TOK_VARIABLE) {
    const Token& sign = Next();
    if (IsDelimiter(sign, DEL_ASSIGN)) {
      Slot left;
      Slot right;
      MakeNode(left, variable, nullptr, nullptr);
      if (left == nullptr || !ParseAssignment(right)) return false;
      MakeNode(slot, sign, std::move(left), std::move(right));
      return slot != nullptr;
    }
    Back();
  }
  Back();
  return ParseOr(slot);
}

bool CParser::ParseOr(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseXor, [](const Token& token) { return IsLogic(token, LOG_OR); });
}

bool CParser::ParseXor(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseAnd, [](const Token& token) { return IsLogic(token, LOG_XOR); });
}

bool CParser::ParseAnd(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseAdditive, [](const Token& token) { return IsLogic(token, LOG_AND); });
}

bool CParser::ParseAdditive(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseMultiplicative,
                   [](const Token& token) { return IsDelimiter(token, DEL_PLUS) || IsDelimiter(token, DEL_MINUS); });
}

bool CParser::ParseMultiplicative(Slot& slot) {
  return ParseLeft(slot, &CParser::ParseNot, [](const Token& token) {
    return IsDelimiter(token, DEL_TIMES) || IsDelimiter(token, DEL_DIVIDE) || IsDelimiter(token, DEL_PERCENT);
  });
}

bool CParser::ParseNot(Slot& slot) {
  // NOT is allowed only at this level: NOT 1*2 is (NOT 1)*2, and -NOT 1 and 2^NOT 1 are errors.
  const Token& token = Next();
  if (IsLogic(token, LOG_NOT)) return ParseUnary(slot, token, &CParser::ParseNot);
  Back();
  return ParsePrefix(slot);
}

bool CParser::ParsePrefix(Slot& slot) {
  const Token& token = Next();
  if (token.kind == TOK_FUNCTION || IsDelimiter(token, DEL_MINUS)) {
    return ParseUnary(slot, token, &CParser::ParsePrefix);
  }
  Back();
  return ParsePower(slot);
}

bool CParser::ParsePower(Slot& slot) {
  if (!ParsePostfix(slot)) return false;
  const Token& token = Next();
  if (!IsDelimiter(token, DEL_POWER)) {
    Back();
    return true;
  }
  Slot right;
  if (!ParsePrefix(right)) return false;
  MakeNode(slot, token, std::move(slot), std::move(right));
  return slot != nullptr;
}

bool CParser::ParsePostfix(Slot& slot) {
  if (!ParsePrimary(slot)) return false;
  while (true) {
    const Token& token = Next();
    if (!IsDelimiter(token, DEL_FACTORIAL)) {
      Back();
      return true;
    }
    MakeNode(slot, token, std::move(slot), nullptr);
    if (slot == nullptr) return false;
  }
}

bool CParser::ParsePrimary(Slot& slot) {
  const Token& token = Next();
  if (IsDelimiter(token, DEL_OPEN)) {
    // Brackets contain an assignment and no sequence: (A=2;B=3) fails at the ";".
    return ParseAssignment(slot) && IsDelimiter(Next(), DEL_CLOSE);
  }
  if (token.kind != TOK_VARIABLE && token.kind != TOK_NUMBER && token.kind != TOK_CONSTANT) return false;
  MakeNode(slot, token, nullptr, nullptr);
  return slot != nullptr;
}

}  // namespace pnl
