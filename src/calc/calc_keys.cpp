// SPDX-License-Identifier: MIT
#include "calc/calc_keys.h"

#include <algorithm>

#include "calc/calc_ids.h"

namespace pnl {

namespace {

constexpr int kFirstInsertion = 32783;  // the menu commands that write are in this range
constexpr int kLastInsertion = 32816;

// clang-format off
constexpr CalcKeyRow kRows[] = {
    {1017,     0,    0, CalcForm::kPlain,      u"7",        1},
    {1018,     0,    0, CalcForm::kPlain,      u"8",        1},
    {1019,     0,    0, CalcForm::kPlain,      u"9",        1},
    {1022,     0,    0, CalcForm::kPlain,      u"4",        1},
    {1023,     0,    0, CalcForm::kPlain,      u"5",        1},
    {1024,     0,    0, CalcForm::kPlain,      u"6",        1},
    {1027,     0,    0, CalcForm::kPlain,      u"1",        1},
    {1028,     0,    0, CalcForm::kPlain,      u"2",        1},
    {1029,     0,    0, CalcForm::kPlain,      u"3",        1},
    {1032,     0,    0, CalcForm::kPlain,      u"0",        1},
    {1034,     0,    0, CalcForm::kPlain,      u".",        1},
    {1016,     0,    0, CalcForm::kPlain,      u"Acc",      6},
    {   0, 32803,    0, CalcForm::kPlain,      u"PI",       2},
    {   0, 32804,    0, CalcForm::kPlain,      u"MMPERI",   6},
    {   0, 32811,    0, CalcForm::kPlain,      u"IPERMM",   6},
    {1035, 32805, u'+', CalcForm::kOperator,   u"+",        1},
    {1030, 32806, u'-', CalcForm::kOperator,   u"-",        1},
    {1025, 32807, u'*', CalcForm::kOperator,   u"*",        1},
    {1020, 32808, u'/', CalcForm::kOperator,   u"/",        1},
    {1026, 32812, u'%', CalcForm::kOperator,   u"%",        1},
    {   0, 32809, u'^', CalcForm::kOperator,   u"^",        1},
    {   0, 32783, u'!', CalcForm::kOperator,   u"!",        1},
    {   0, 32791,    0, CalcForm::kOperator,   u"And",      3},
    {   0, 32792,    0, CalcForm::kOperator,   u"Or",       2},
    {   0, 32793,    0, CalcForm::kOperator,   u"Xor",      3},
    {1021, 32816,    0, CalcForm::kFunction,   u"Sqrt",     4},
    {   0, 32784,    0, CalcForm::kFunction,   u"Sin",      3},
    {   0, 32785,    0, CalcForm::kFunction,   u"Cos",      3},
    {   0, 32786,    0, CalcForm::kFunction,   u"Tan",      3},
    {   0, 32810,    0, CalcForm::kFunction,   u"InvSin",   6},
    {   0, 32789,    0, CalcForm::kFunction,   u"InvCos",   6},
    {   0, 32787,    0, CalcForm::kFunction,   u"InvTan",   6},
    {   0, 32794,    0, CalcForm::kFunction,   u"Not",      3},
    {   0, 32795,    0, CalcForm::kFunction,   u"Ln",       2},
    {   0, 32796,    0, CalcForm::kFunction,   u"Log",      3},
    {   0, 32797,    0, CalcForm::kFunction,   u"InvLn",    5},
    {   0, 32798,    0, CalcForm::kFunction,   u"InvLog",   6},
    {   0, 32799,    0, CalcForm::kFunction,   u"Integral", 8},
    {   0, 32800,    0, CalcForm::kFunction,   u"Zero",     4},
    {   0, 32801,    0, CalcForm::kFunction,   u"MMToI",    8},
    {   0, 32802,    0, CalcForm::kFunction,   u"IToMM",    8},
    {   0, 32813,    0, CalcForm::kFunction,   u"Int",      3},
    {   0, 32814,    0, CalcForm::kFunction,   u"Abs",      3},
    {1037,     0, u'=', CalcForm::kAssignment, u"=",        1},
};
// clang-format on

/// The line in three parts: the text left of the selection, the selection, and the text right of it.
struct Parts {
  Parts(TextView line, TextSelection selection) {
    const int size = static_cast<int>(line.size());
    start = std::clamp(std::min(selection.start, selection.end), 0, size);
    end = std::clamp(std::max(selection.start, selection.end), 0, size);
    left = line.substr(0, static_cast<std::size_t>(start));
    right = line.substr(static_cast<std::size_t>(end));
    if (start == end) return;
    wrapped = u'(' + Text(line.substr(left.size(), static_cast<std::size_t>(end - start))) + u')';
    extra = 2;
  }
  int start = 0;
  int end = 0;
  int extra = 0;  // the number of brackets that were put around the selection
  TextView left;
  Text wrapped;  // the selection in brackets, or nothing
  TextView right;
};

Text Join(TextView a, TextView b, TextView c, TextView d) { return Text(a).append(b).append(c).append(d); }

CalcEdit Write(const Parts& parts, const CalcKeyRow& row) {
  switch (row.form) {
    case CalcForm::kPlain:
      return {Join(parts.left, row.text, {}, parts.right), parts.start + row.caret};
    case CalcForm::kOperator:
      return {Join(parts.left, parts.wrapped, row.text, parts.right), parts.end + row.caret + parts.extra};
    case CalcForm::kFunction:
    case CalcForm::kAssignment:
      return {Join(parts.left, row.text, parts.wrapped, parts.right), parts.end + row.caret + parts.extra};
  }
  return {};
}

CalcEdit Back(const Parts& parts) {
  if (parts.extra != 0 || parts.left.empty()) return {Join(parts.left, {}, {}, parts.right), parts.start};
  TextView left = parts.left.substr(0, parts.left.size() - 1);
  // A character beyond 16 bits has two units. Both are removed.
  const bool pair = (parts.left.back() & 0xFC00) == 0xDC00 && !left.empty() && (left.back() & 0xFC00) == 0xD800;
  if (pair) left.remove_suffix(1);
  return {Join(left, {}, {}, parts.right), static_cast<int>(left.size())};
}

CalcEdit Bracket(const Parts& parts, TextView bracket) {
  if (parts.extra == 0) return {Join(parts.left, bracket, {}, parts.right), parts.start + 1};
  return {Join(parts.left, parts.wrapped, {}, parts.right), parts.end + parts.extra};
}

/// Puts the prefix and ")" around the whole line, or removes them if they are already there.
CalcEdit ToggleAround(TextView line, TextView prefix) {
  const TextView trimmed = Trim(line);
  Text text;
  if (trimmed.size() > prefix.size() && trimmed.starts_with(prefix) && trimmed.back() == u')') {
    text = trimmed.substr(prefix.size(), trimmed.size() - prefix.size() - 1);
  } else {
    text = Join(prefix, trimmed, u")", {});
  }
  const int end = static_cast<int>(text.size());
  return {std::move(text), end};
}

}  // namespace

std::span<const CalcKeyRow> CalcKeyTable() { return kRows; }

CalcEdit InsertAtCaret(TextView line, TextSelection selection, int command) {
  const Parts parts(line, selection);
  switch (command) {
    case calc_id::kBack:
      return Back(parts);
    case calc_id::kOpenBracket:
      return Bracket(parts, u"(");
    case calc_id::kCloseBracket:
      return Bracket(parts, u")");
    case calc_id::kReciprocal:
      return ToggleAround(line, u"1/(");
    case calc_id::kSign:
      return ToggleAround(line, u"-(");
    default:
      break;
  }
  for (const CalcKeyRow& row : kRows) {
    if (command != 0 && (row.key == command || row.menu == command)) return Write(parts, row);
  }
  return {Text(line), 0};
}

CalcEdit InsertPlainly(TextView line, TextSelection selection, TextView text, int caret) {
  return Write(Parts(line, selection), {0, 0, 0, CalcForm::kPlain, text, caret});
}

Text SelectedText(TextView line, TextSelection selection) {
  const auto unit = [&line](int at) { return std::min(static_cast<std::size_t>(std::max(at, 0)), line.size()); };
  const std::size_t start = unit(std::min(selection.start, selection.end));
  const std::size_t end = unit(std::max(selection.start, selection.end));
  return Text(line.substr(start, end - start));
}

std::optional<int> CommandOfCharacter(char16_t character) {
  for (const CalcKeyRow& row : kRows) {
    if (row.typed != 0 && row.typed == character) return row.key != 0 ? row.key : row.menu;
  }
  return std::nullopt;
}

bool IsInsertion(int command) {
  const bool key = command >= calc_id::kFirstKey && command <= calc_id::kAssign && command != calc_id::kConfirm;
  return key || (command >= kFirstInsertion && command <= kLastInsertion);
}

}  // namespace pnl
