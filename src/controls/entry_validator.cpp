// SPDX-License-Identifier: MIT
#include "controls/entry_validator.h"

namespace pnl {
namespace {

/// Whether text is what remains of whole after some characters were deleted.
bool IsRestOf(const QString& text, const QString& whole) {
  qsizetype at = 0;
  for (const QChar c : whole) {
    if (at < text.size() && text[at] == c) ++at;
  }
  return at == text.size();
}

}  // namespace

bool EntryValidator::Accepts(const QString& text) const {
  if (format_ && !IsAllowedNumber(text, *format_)) return false;
  return !check_ || check_(text);
}

QValidator::State EntryValidator::validate(QString& text, int& /*caret*/) const {
  if (Accepts(text)) return Acceptable;
  if (format_ && MayBeTyped(text, *format_)) return Intermediate;
  // Once a line edit holds an invalid text, it takes everything. So such a text is never called invalid.
  return IsRestOf(text, start_) ? Intermediate : Invalid;
}

}  // namespace pnl
