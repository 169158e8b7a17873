// SPDX-License-Identifier: MIT
#include "base/format.h"
#include "calc/expr/parser.h"

namespace pnl {
namespace {

void DescribeDelimiter(const ExprNode& node, Text& text) {
  text += u'(';
  if (node.value.index == DEL_MINUS && node.right == nullptr) {
    text += u'-';
    CParser::DescribeTree(node.left.get(), text);
  } else {
    CParser::DescribeTree(node.left.get(), text);
    text += kDelimiters[static_cast<std::size_t>(node.value.index)];
    CParser::DescribeTree(node.right.get(), text);
  }
  text += u')';
}

}  // namespace

void CParser::DescribeTree(const ExprNode* root, Text& text) {
  if (root == nullptr) return;
  switch (root->kind) {
    case TOK_FUNCTION:
      text += kFunctions[static_cast<std::size_t>(root->value.index)];
      DescribeTree(root->left.get(), text);
      break;
    case TOK_DELIMITER:
      DescribeDelimiter(*root, text);
      break;
    case TOK_VARIABLE:
      text += static_cast<char16_t>(u'A' + root->value.index);
      break;
    case TOK_NUMBER:
      text += Format(u"%g", root->value.number);
      break;
    default:
      // Not a mistake: constants and logic operators with their operands have no text. PI+1 is ((Error!)+1).
      text += u"(Error!)";
  }
}

}  // namespace pnl
