// SPDX-License-Identifier: MIT
// The part of CScaner that reads numbers: decimal with exponent, "$" hexadecimal, "B" binary.
#include "base/numbers.h"
#include "calc/expr/scaner.h"

namespace pnl {
namespace {

constexpr int kMostDigits = 33;  // of each part of a decimal number; further digits are read and ignored
constexpr int kMostHexDigits = 8;
constexpr int kMostBinaryDigits = 32;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// The value of a digit. It is 16 for a character that is no digit in any radix.
unsigned DigitValue(char16_t c) {
  if (IsDigit(c)) return c - unsigned{u'0'};
  return c >= u'A' && c <= u'F' ? c - unsigned{u'A'} + 10 : 16;
}

}  // namespace

int CScaner::ScanNumber(double& number) {
  number = 0;
  Text text;
  switch (GetChar()) {
    case u'$':
      return ScanRadix(16, kMostHexDigits, number);
    case u'B':
      // Because this comes first, B101 is always the number 5 and never the variable B.
      return ScanRadix(2, kMostBinaryDigits, number);
    case u'.':
      // Not a mistake: .5.25 is read as one number, whose conversion stops at the second point. So it is 0.5.
      text = u"0.";
      break;
    default:
      UngetChar();
  }
  if (ScanDigits(text, 0) == 0) return 0;
  // If a fraction or an exponent has no digits, the cursor goes back to here. The result is then 1 and the number has
  // no meaning, because the rest makes the expression fail: "." in the scanner, "E" in the parser.
  const char16_t* fallback = cursor_;
  char16_t c = GetChar();
  if (c == u'.') {
    text += c;
    if (ScanDigits(text, 0) == 0) {
      cursor_ = fallback;
      return 1;
    }
    fallback = cursor_;
    c = GetChar();
  }
  if (c != u'E') {
    UngetChar();
  } else if (!ScanExponent(text)) {
    cursor_ = fallback;
    return 1;
  }
  number = ParseDoublePrefix(text);
  return 1;
}

int CScaner::ScanRadix(unsigned radix, int mostDigits, double& number) {
  std::uint32_t value = 0;
  int digits = 0;
  for (unsigned digit = DigitValue(GetChar()); digit < radix; digit = DigitValue(GetChar())) {
    if (digits < mostDigits) value = value * radix + digit;
    ++digits;
  }
  UngetChar();
  if (digits == 0) return 0;
  number = value;
  return 1;
}

int CScaner::ScanDigits(Text& digits, int kept) {
  int appended = 0;
  for (; IsDigit(*cursor_); ++cursor_) {
    if (kept + appended >= kMostDigits) continue;
    digits += *cursor_;
    ++appended;
  }
  return appended;
}

/// Reads an exponent after its "E" and appends it. Returns false if it begins with a sign and has no digit. If no
/// exponent begins here, puts the cursor back to the "E" and returns true.
bool CScaner::ScanExponent(Text& exponent) {
  const char16_t c = GetChar();
  if (c != u'+' && c != u'-' && !IsDigit(c)) {
    UngetChar();
    UngetChar();
    return true;
  }
  exponent += u'E';
  if (IsDigit(c)) UngetChar();
  if (c == u'-') exponent += c;
  return ScanDigits(exponent, c == u'-' ? 1 : 0) > 0;
}

}  // namespace pnl
