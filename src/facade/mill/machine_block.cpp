// SPDX-License-Identifier: MIT
#include "facade/mill/machine_block.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "base/format.h"

namespace pnl::sim {

namespace {

constexpr double kHighestLineNumber = 99'999'999;
/// Larger values would lose the digits that matter for lengths and for the ends of arcs.
constexpr double kHighestValue = 1e9;

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsNumberPart(char16_t c) { return IsDigit(c) || c == u'.' || c == u'+' || c == u'-'; }

char16_t UpperAscii(char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; }
bool IsLetter(char16_t c) { return UpperAscii(c) >= u'A' && UpperAscii(c) <= u'Z'; }

/// Reads a number: optional sign, digits, point, digits, with at least one digit and nothing else. A number too large
/// for a double becomes infinite.
std::optional<double> ParseNumber(TextView digits) {
  std::string ascii(digits.begin(), digits.end());
  const bool negative = ascii.front() == '-';
  if (negative || ascii.front() == '+') ascii.erase(0, 1);
  if (ascii.find_first_of("+-") != std::string::npos) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value, std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) return std::numeric_limits<double>::infinity();
  if (error != std::errc() || end != ascii.data() + ascii.size()) return std::nullopt;
  return negative ? -value : value;
}

/// Reads one number, or several that are divided from left to right. Sets byZero and returns nothing when a divisor is
/// 0.
std::optional<double> ParseQuotient(TextView digits, bool& byZero) {
  std::optional<double> quotient;
  while (true) {
    const std::size_t stroke = digits.find(u'/');
    const std::optional<double> number = ParseNumber(digits.substr(0, stroke));
    if (!number) return std::nullopt;
    if (quotient && *number == 0) {
      byZero = true;
      return std::nullopt;
    }
    quotient = quotient ? *quotient / *number : *number;
    if (stroke == TextView::npos) return quotient;
    digits.remove_prefix(stroke + 1);
  }
}

class Scanner {
 public:
  explicit Scanner(TextView text) : text_(text) {}

  std::variant<Block, Fault> Run() {
    while (!fault_ && SkipBlanks()) Next();
    if (fault_) return *fault_;
    return std::move(block_);
  }

 private:
  /// Returns false at the end of the text.
  bool SkipBlanks() {
    while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
    return at_ < text_.size();
  }

  void Next() {
    const char16_t c = text_[at_];
    const bool atFront = block_.words.empty() && !block_.line;
    if (c == u';') {
      at_ = text_.size();
    } else if (c == u'(') {
      SkipComment();
    } else if (c == u'/' && atFront && !block_.skip) {
      block_.skip = true;
      ++at_;
    } else if (IsLetter(c)) {
      TakeWord();
    } else {
      UnknownCharacter();
    }
  }

  void SkipComment() {
    const std::size_t end = text_.find(u')', at_);
    if (end == TextView::npos) {
      Fail(FaultCode::kCommentOpen, Text(text_.substr(at_)), at_, text_.size() - at_);
    } else {
      at_ = end + 1;
    }
  }

  void TakeWord() {
    Word word;
    word.begin = at_;
    word.letter = UpperAscii(text_[at_++]);
    word.text = Text(1, word.letter);
    word.length = 1;
    SkipBlanks();
    const std::size_t number = at_;
    while (at_ < text_.size() && (IsNumberPart(text_[at_]) || IsDivision(number))) ++at_;
    if (at_ == number) return Fail(FaultCode::kNumberMissing, word.text, word.begin, word.length);
    const TextView digits = text_.substr(number, at_ - number);
    word.text.append(digits);
    word.length = at_ - word.begin;
    bool byZero = false;
    const std::optional<double> value = ParseQuotient(digits, byZero);
    if (byZero) return Fail(FaultCode::kDivisionByZero, word.text, word.begin, word.length);
    if (!value) return Fail(FaultCode::kBadNumber, word.text, word.begin, word.length);
    if (std::abs(*value) > kHighestValue) return Fail(FaultCode::kBadValue, word.text, word.begin, word.length);
    word.value = *value;
    Store(std::move(word));
  }

  /// True for a '/' between two numbers; number is the place where the first one begins.
  [[nodiscard]] bool IsDivision(std::size_t number) const {
    return at_ > number && text_[at_] == u'/' && at_ + 1 < text_.size() && IsNumberPart(text_[at_ + 1]);
  }

  /// Adds the word to the block. A block number must be the first word.
  void Store(Word word) {
    if (word.letter != u'N') {
      block_.words.push_back(std::move(word));
    } else if (block_.line) {
      fault_ = FaultOf(FaultCode::kWordTwice, word);
    } else if (!block_.words.empty()) {
      fault_ = FaultOf(FaultCode::kUnusedWord, word);
    } else if (word.value < 0 || word.value > kHighestLineNumber || word.value != std::floor(word.value)) {
      fault_ = FaultOf(FaultCode::kBadValue, word)
                   .With(FaultFact::Kind::kLowest, 0)
                   .With(FaultFact::Kind::kHighest, kHighestLineNumber);
    } else {
      block_.line = static_cast<std::int32_t>(word.value);
    }
  }

  /// Reports the character at this place. A pair of surrogates is one character. A character that can't be shown is
  /// named by its code.
  void UnknownCharacter() {
    const char16_t c = text_[at_];
    const bool pair =
        c >= 0xD800 && c < 0xDC00 && at_ + 1 < text_.size() && text_[at_ + 1] >= 0xDC00 && text_[at_ + 1] < 0xE000;
    const std::size_t length = pair ? 2 : 1;
    const bool shown = pair || (c > u' ' && c != 0x7F && (c < 0xD800 || c >= 0xE000));
    Fail(FaultCode::kUnknownCharacter,
         shown ? Text(text_.substr(at_, length)) : Format(u"0x%02X", static_cast<unsigned>(c)), at_, length);
  }

  void Fail(FaultCode code, Text word, std::size_t begin, std::size_t length) {
    fault_ = Fault{code, std::move(word), begin, length};
  }

  TextView text_;
  std::size_t at_ = 0;
  Block block_;
  std::optional<Fault> fault_;
};

}  // namespace

std::variant<Block, Fault> ParseBlock(TextView text) { return Scanner(text).Run(); }

Fault FaultOf(FaultCode code, const Word& word) { return {code, word.text, word.begin, word.length, word.value}; }

Text Print(const Block& block) {
  Text line;
  if (block.skip) line += u"/ ";
  if (block.line) line += Format(u"N%d ", *block.line);
  for (const Word& word : block.words) line += Format(u"%c%.10g ", word.letter, word.value);
  if (!line.empty()) line.pop_back();
  return line;
}

}  // namespace pnl::sim
