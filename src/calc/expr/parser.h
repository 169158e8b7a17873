// SPDX-License-Identifier: MIT
// CParser: turns a list of tokens into a tree by recursive descent, or reports the position of the first token that no
// rule accepts. It evaluates nothing. The tree belongs to the caller.
#pragma once

#include <cstdint>
#include <memory>

#include "base/text.h"
#include "calc/expr/token.h"

namespace pnl {

/// A copy of a token's kind and value, with its operands. Unary forms have only left. So a minus sign with right is a
/// subtraction, and one without is a negation.
struct ExprNode {
  std::unique_ptr<ExprNode> left;
  std::unique_ptr<ExprNode> right;
  TokenKind kind = TOK_END;
  TokenValue value{};
};

class CParser {
 public:
  /// Makes the tree and returns 1. Returns 0 and the position of the first token that no rule accepts if that fails;
  /// then root may be a part of a tree. The list must have an End token.
  int ParseTokens(const Token* head, std::int32_t& errorPosition, std::unique_ptr<ExprNode>& root);
  /// Appends the fully bracketed text of a tree.
  static void DescribeTree(const ExprNode* root, Text& text);
  /// Frees left, then right, then the node.
  static void FreeTree(std::unique_ptr<ExprNode>& root);

 private:
  using Slot = std::unique_ptr<ExprNode>;
  using Level = bool (CParser::*)(Slot& slot);

  const Token& Next();
  void Back() { current_ = current_->prev; }
  /// Makes a node in the slot. The slot stays null if there is no memory.
  static void MakeNode(Slot& slot, const Token& token, Slot left, Slot right);

  // The levels of the grammar, from the loosest binding to the tightest. Each returns false if it fails.
  bool ParseSequence(Slot& slot);
  bool ParseAssignment(Slot& slot);
  bool ParseOr(Slot& slot);
  bool ParseXor(Slot& slot);
  bool ParseAnd(Slot& slot);
  bool ParseAdditive(Slot& slot);
  bool ParseMultiplicative(Slot& slot);
  bool ParseNot(Slot& slot);
  bool ParsePrefix(Slot& slot);
  bool ParsePower(Slot& slot);
  bool ParsePostfix(Slot& slot);
  bool ParsePrimary(Slot& slot);
  /// Parses operand (token operand)... for the tokens that accepts returns true for. The tree leans to the left.
  template <typename Accepts>
  bool ParseLeft(Slot& slot, Level operand, Accepts accepts);
  /// Parses the operand of a unary token, which has just been fetched.
  bool ParseUnary(Slot& slot, const Token& token, Level operand);

  const Token* listHead_ = nullptr;
  const Token* current_ = nullptr;
  std::int32_t errorPosition_ = 0;  // of the last fetched token, even if it was given back
};

}  // namespace pnl
