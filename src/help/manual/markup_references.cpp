// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>

#include "help/manual/markup.h"

namespace pnl {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestName = 8;

/// The names of U+00A0 to U+00FF.
constexpr std::array<TextView, 96> kLatin = {
    u"nbsp",   u"iexcl",  u"cent",   u"pound",  u"curren", u"yen",    u"brvbar", u"sect",   u"uml",    u"copy",
    u"ordf",   u"laquo",  u"not",    u"shy",    u"reg",    u"macr",   u"deg",    u"plusmn", u"sup2",   u"sup3",
    u"acute",  u"micro",  u"para",   u"middot", u"cedil",  u"sup1",   u"ordm",   u"raquo",  u"frac14", u"frac12",
    u"frac34", u"iquest", u"Agrave", u"Aacute", u"Acirc",  u"Atilde", u"Auml",   u"Aring",  u"AElig",  u"Ccedil",
    u"Egrave", u"Eacute", u"Ecirc",  u"Euml",   u"Igrave", u"Iacute", u"Icirc",  u"Iuml",   u"ETH",    u"Ntilde",
    u"Ograve", u"Oacute", u"Ocirc",  u"Otilde", u"Ouml",   u"times",  u"Oslash", u"Ugrave", u"Uacute", u"Ucirc",
    u"Uuml",   u"Yacute", u"THORN",  u"szlig",  u"agrave", u"aacute", u"acirc",  u"atilde", u"auml",   u"aring",
    u"aelig",  u"ccedil", u"egrave", u"eacute", u"ecirc",  u"euml",   u"igrave", u"iacute", u"icirc",  u"iuml",
    u"eth",    u"ntilde", u"ograve", u"oacute", u"ocirc",  u"otilde", u"ouml",   u"divide", u"oslash", u"ugrave",
    u"uacute", u"ucirc",  u"uuml",   u"yacute", u"thorn",  u"yuml"};

struct NamedCharacter {
  TextView name;
  char16_t character;
};

constexpr NamedCharacter kOthers[] = {
    {u"amp", u'&'},       {u"lt", u'<'},        {u"gt", u'>'},          {u"quot", u'"'},   {u"apos", u'\''},
    {u"euro", u'€'},      {u"hellip", u'…'},    {u"mdash", u'—'},       {u"ndash", u'–'},  {u"lsquo", u'‘'},
    {u"rsquo", u'’'},     {u"ldquo", u'“'},     {u"rdquo", u'”'},       {u"bull", u'•'},   {u"trade", u'™'},
    {u"larr", u'←'},      {u"uarr", u'↑'},      {u"rarr", u'→'},        {u"darr", u'↓'},   {u"minus", u'−'},
    {u"le", u'≤'},        {u"ge", u'≥'},        {u"ne", u'≠'},          {u"infin", u'∞'},  {u"empty", u'∅'},
    {u"alpha", u'α'},     {u"beta", u'β'},      {u"pi", u'π'},          {u"Omega", u'Ω'},  {u"mu", u'μ'},
    {u"OElig", u'Œ'},     {u"oelig", u'œ'},     {u"Scaron", u'Š'},      {u"scaron", u'š'}, {u"permil", u'‰'},
    {u"ensp", u'\u2002'}, {u"emsp", u'\u2003'}, {u"thinsp", u'\u2009'}, {u"prime", u'′'},  {u"Prime", u'″'}};

/// What the code page 1252 has at 128 to 159. Pages name these characters by its numbers.
constexpr std::array<char16_t, 32> kWindows = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                               0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendCharacter(std::uint32_t code, Text& text) {
  if (code >= 128 && code < 160) code = kWindows[code - 128];
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = kReplacement;
  if (code < 0x10000) {
    text.push_back(static_cast<char16_t>(code));
  } else {
    text.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
  }
}

/// At least 16 for what is no digit.
int DigitOf(char16_t c) {
  if (c >= u'a') return c - u'a' + 10;
  if (c >= u'A') return c - u'A' + 10;
  return c >= u'0' && c <= u'9' ? c - u'0' : 16;
}

/// Replaces the number after "&#". Returns how much of the text it took; 0 when there is no number.
std::size_t AppendNumber(TextView text, Text& result) {
  const bool hexadecimal = !text.empty() && (text[0] == u'x' || text[0] == u'X');
  const int base = hexadecimal ? 16 : 10;
  const std::size_t first = hexadecimal ? 1 : 0;
  std::size_t at = first;
  std::uint32_t code = 0;
  for (; at < text.size() && DigitOf(text[at]) < base; ++at) {
    code = std::min<std::uint32_t>(
        code * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(DigitOf(text[at])), 0x110000);
  }
  if (at == first) return 0;
  AppendCharacter(code, result);
  return at < text.size() && text[at] == u';' ? at + 1 : at;
}

/// Replaces the name after "&", which must end with ";". Returns how much of the text it took; 0 when it has no such
/// name.
std::size_t AppendNamed(TextView text, Text& result) {
  const std::size_t end = text.substr(0, kLongestName + 1).find(u';');
  if (end == TextView::npos) return 0;
  const TextView name = text.substr(0, end);
  if (const auto* const found = std::find(kLatin.begin(), kLatin.end(), name); found != kLatin.end()) {
    result.push_back(static_cast<char16_t>(0xA0 + (found - kLatin.begin())));
    return end + 1;
  }
  for (const NamedCharacter& other : kOthers) {
    if (other.name != name) continue;
    result.push_back(other.character);
    return end + 1;
  }
  return 0;
}

}  // namespace

Text ReplaceReferences(TextView text) {
  Text result;
  result.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t mark = std::min(text.find(u'&', at), text.size());
    result.append(text.substr(at, mark - at));
    if (mark == text.size()) break;
    const TextView rest = text.substr(mark + 1);
    std::size_t taken = 0;
    if (rest.starts_with(u'#')) {
      const std::size_t number = AppendNumber(rest.substr(1), result);
      taken = number == 0 ? 0 : number + 1;
    } else {
      taken = AppendNamed(rest, result);
    }
    if (taken == 0) result.push_back(u'&');
    at = mark + 1 + taken;
  }
  return result;
}

}  // namespace pnl
