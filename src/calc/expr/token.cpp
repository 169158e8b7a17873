// SPDX-License-Identifier: MIT
#include "calc/expr/token.h"

#include "base/format.h"

namespace pnl {
namespace {

Text ValueText(const Token& token) {
  const auto index = static_cast<std::size_t>(token.value.index);
  switch (token.kind) {
    case TOK_FUNCTION:
      return Format(u"FUNCTION %s", kFunctions[index]);
    case TOK_DELIMITER:
      return Format(u"DELIMITER %c", kDelimiters[index]);
    case TOK_LOGIC:
      return Format(u"LOGIC %s", kLogic[index]);
    case TOK_VARIABLE:
      return Format(u"VARIABLE %c", static_cast<char16_t>(u'A' + token.value.index));
    case TOK_NUMBER:
      return Format(u"NUMBER %.17g", token.value.number);
    case TOK_CONSTANT:
      return Format(u"CONSTANT %s", kConstants[index]);
    case TOK_END:
      break;
  }
  return u"END";
}

}  // namespace

void DescribeTokens(const Token* head, Text& text) {
  if (head == nullptr) return;
  for (const Token* token = head->next.get(); token != nullptr; token = token->next.get()) {
    text += Format(u"%d %s\n", token->position, ValueText(*token));
  }
}

}  // namespace pnl
