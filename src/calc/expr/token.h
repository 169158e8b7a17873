// SPDX-License-Identifier: MIT
// The tokens of a calculator expression and the four tables of its vocabulary. From the scanner to flattening, an entry
// is known by its index. operations.h and flatten.cpp define what an entry does. The head of a list of tokens owns the
// list.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "base/text.h"

namespace pnl {

enum TokenKind : std::int32_t {
  TOK_END = 0,
  TOK_FUNCTION = 1,
  TOK_DELIMITER = 2,
  TOK_LOGIC = 3,
  TOK_VARIABLE = 4,
  TOK_NUMBER = 5,
  TOK_CONSTANT = 6,
};

/// number for TOK_NUMBER, and index for every other kind.
union TokenValue {
  std::int32_t index;
  double number;
};

/// The head of a list has kind TOK_END and isn't a token. The last record is the End token, also of kind TOK_END.
struct Token {
  Token* prev = nullptr;
  std::unique_ptr<Token> next;
  TokenKind kind = TOK_END;
  TokenValue value{};
  std::int32_t position = 0;  // the index of the first character; for the End token that of the terminator
};

enum FunctionIndex : std::int32_t {
  FUN_ABS,
  FUN_SQRT,
  FUN_LOG,
  FUN_INVLOG,
  FUN_LN,
  FUN_INVLN,
  FUN_SIN,
  FUN_COS,
  FUN_TAN,
  FUN_INVSIN,
  FUN_INVCOS,
  FUN_INVTAN,
  FUN_SH,
  FUN_CH,
  FUN_TH,
  FUN_INVSH,
  FUN_INVCH,
  FUN_INVTH,
  FUN_MMTOI,
  FUN_ITOMM,
  FUN_INTEGRAL,
  FUN_INT,
  FUN_ZERO,
};

enum ConstantIndex : std::int32_t { CON_ACC, CON_PI, CON_MMPERI, CON_IPERMM };

enum LogicIndex : std::int32_t { LOG_OR, LOG_XOR, LOG_AND, LOG_NOT };

enum DelimiterIndex : std::int32_t {
  DEL_SEMICOLON,
  DEL_COLON,
  DEL_ASSIGN,
  DEL_PLUS,
  DEL_MINUS,
  DEL_TIMES,
  DEL_DIVIDE,
  DEL_PERCENT,
  DEL_POWER,
  DEL_FACTORIAL,
  DEL_OPEN,
  DEL_CLOSE,
};

/// In the order in which they are tried. An entry that begins with another one is before it: "INTEGRAL", "INT".
inline constexpr std::array<TextView, 23> kFunctions = {
    u"ABS",   u"SQRT",   u"LOG",    u"INVLOG", u"LN",       u"INVLN", u"SIN", u"COS",
    u"TAN",   u"INVSIN", u"INVCOS", u"INVTAN", u"SH",       u"CH",    u"TH",  u"INVSH",
    u"INVCH", u"INVTH",  u"MMTOI",  u"ITOMM",  u"INTEGRAL", u"INT",   u"ZERO"};
inline constexpr std::array<TextView, 4> kConstants = {u"ACC", u"PI", u"MMPERI", u"IPERMM"};
inline constexpr std::array<TextView, 4> kLogic = {u"OR", u"XOR", u"AND", u"NOT"};
inline constexpr TextView kDelimiters = u";:=+-*/%^!()";

/// Appends one line with position, kind and value for each token, for people and tests.
void DescribeTokens(const Token* head, Text& text);

}  // namespace pnl
