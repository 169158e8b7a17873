// SPDX-License-Identifier: MIT
#include "calc/expr/scaner.h"

#include <new>

namespace pnl {
namespace {

/// The capital of a to z. Other letters stay as they are and fail later. None of them may become an ASCII letter.
char16_t FoldCase(char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; }

/// A new token, or null if there is no memory.
std::unique_ptr<Token> NewToken() { return std::unique_ptr<Token>(new (std::nothrow) Token); }

/// Appends a token and makes it the last one. Returns false if there is no memory.
bool Link(Token*& last, TokenKind kind, TokenValue value, std::int32_t position) {
  std::unique_ptr<Token> token = NewToken();
  if (token == nullptr) return false;
  token->prev = last;
  token->kind = kind;
  token->value = value;
  token->position = position;
  last->next = std::move(token);
  last = last->next.get();
  return true;
}

template <std::size_t N>
int FindPrefix(const std::array<TextView, N>& table, const char16_t*& cursor) {
  for (std::size_t i = 0; i < N; ++i) {
    const char16_t* at = cursor;
    std::size_t matched = 0;
    while (matched < table[i].size() && *at == table[i][matched]) {
      ++at;
      ++matched;
    }
    if (matched == table[i].size()) {
      cursor = at;
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace

bool CScaner::CopyUpper(const char16_t* text) {
  for (std::size_t i = 0; i < kBufferSize; ++i) {
    buffer_[i] = FoldCase(text[i]);
    if (text[i] == u'\0') return true;
  }
  return false;
}

const char16_t* CScaner::ScanExpression(const char16_t* text, std::unique_ptr<Token>& head) {
  FreeTokens(head);
  if (!CopyUpper(text)) return text + kBufferSize - 1;
  cursor_ = buffer_.data();
  head = NewToken();
  if (head == nullptr) return nullptr;

  Token* last = head.get();
  while (*cursor_ != u'\0') {
    tokenStart_ = cursor_;
    const auto position = CursorIndex();
    TokenValue value{};
    const TokenKind kind = ScanToken(value);
    if (kind != TOK_END) {
      if (Link(last, kind, value, position)) continue;
      FreeTokens(head);
      return nullptr;
    }
    cursor_ = tokenStart_;
    // Only blanks are skipped, no other white space.
    if (GetChar() != u' ') {
      FreeTokens(head);
      return text + CursorIndex() - 1;
    }
  }
  if (!Link(last, TOK_END, TokenValue{}, CursorIndex())) {
    FreeTokens(head);
    return nullptr;
  }
  return text + CursorIndex();
}

void CScaner::FreeTokens(std::unique_ptr<Token>& head) {
  while (head != nullptr) head = std::move(head->next);
}

TokenKind CScaner::ScanToken(TokenValue& value) {
  if (ScanNumber(value.number) != 0) return TOK_NUMBER;
  cursor_ = tokenStart_;
  std::int32_t index = 0;
  int kind = ScanKeyword(index);
  if (kind == TOK_END) {
    cursor_ = tokenStart_;
    kind = ScanDelimiter(index);
  }
  value.index = index;
  return static_cast<TokenKind>(kind);
}

int CScaner::ScanKeyword(std::int32_t& index) {
  // Not a mistake: keywords need no word boundary, and the first match counts. SINX is SIN and X, "COSH" is COS and H.
  index = FindPrefix(kFunctions, cursor_);
  if (index >= 0) return TOK_FUNCTION;
  index = FindPrefix(kConstants, cursor_);
  if (index >= 0) return TOK_CONSTANT;
  index = FindPrefix(kLogic, cursor_);
  if (index >= 0) return TOK_LOGIC;
  const char16_t c = GetChar();
  if (c < u'A' || c > u'Z') return TOK_END;
  index = c - u'A';
  return TOK_VARIABLE;
}

int CScaner::ScanDelimiter(std::int32_t& index) {
  const std::size_t found = kDelimiters.find(GetChar());
  if (found == TextView::npos) {
    UngetChar();
    return TOK_END;
  }
  index = static_cast<std::int32_t>(found);
  return TOK_DELIMITER;
}

}  // namespace pnl
