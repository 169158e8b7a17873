// SPDX-License-Identifier: MIT
// The panel's own words in every language that it speaks. words.inc has them all. The words of the tools come from the
// library's language packs instead.
#pragma once

#include <QString>

namespace panel {

enum class Word {
#define PANEL_WORD(word, english, spanish) word,
#include "common/words.inc"
#undef PANEL_WORD
  kCount
};

/// Sets the current language: "es" is Spanish, every other code (also "none") is English.
void UseWords(const QString& language);
/// "es" or "en", whichever is current.
[[nodiscard]] QString WordsInUse();
[[nodiscard]] QString Say(Word word);
/// For a word with the place holder "%1".
[[nodiscard]] QString Say(Word word, const QString& argument);
/// The word in a given language, whatever the current one is: 0 English, 1 Spanish. For the tests and for pages made
/// from the table.
[[nodiscard]] QString WordIn(Word word, int language);

}  // namespace panel
