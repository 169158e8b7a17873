// SPDX-License-Identifier: MIT
// CParser: turns a list of tokens into a tree by recursive descent, or tells the position of the first token that no
// rule takes. It evaluates nothing. The tree belongs to the caller.
#pragma once

#include <cstdint>
#include <memory>

#include "base/text.h"
#include "calc/expr/token.h"

namespace pnl {

/// A copy of a token's kind and value with its operands. Unary forms use left alone, so the two minus signs are told
/// apart by right.
struct ExprNode {
  std::unique_ptr<ExprNode> left;
  std::unique_ptr<ExprNode> right;
  TokenKind kind = TOK_END;
  TokenValue value{};
};

class CParser {
 public:
  /// 1 with the tree; 0 with the position of the first token that no rule takes, and perhaps a partial tree. The list
  /// must have an End token.
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
  /// Without memory the slot stays null.
  static void MakeNode(Slot& slot, const Token& token, Slot left, Slot right);

  // The levels of the grammar, from the loosest binding to the tightest; false on failure.
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
  /// operand (token operand)... leaning left, for the tokens that accepts takes.
  template <typename Accepts>
  bool ParseLeft(Slot& slot, Level operand, Accepts accepts);
  /// The token just fetched before an operand of that level.
  bool ParseUnary(Slot& slot, const Token& token, Level operand);

  const Token* listHead_ = nullptr;
  const Token* current_ = nullptr;
  std::int32_t errorPosition_ = 0;  // of the token fetched last, given back or not
};

}  // namespace pnl
