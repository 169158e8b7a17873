// SPDX-License-Identifier: MIT
#include "common/words.h"

namespace panel {
namespace {

struct Row {
  const char* english;
  const char* spanish;
};

/// In the order of the words.
constexpr Row kWords[] = {
#define PANEL_WORD(word, english, spanish) {english, spanish},
#include "common/words.inc"
#undef PANEL_WORD
};

int inUse = 0;

}  // namespace

void UseWords(const QString& language) { inUse = language == QLatin1String("es") ? 1 : 0; }

QString WordsInUse() { return inUse == 1 ? QStringLiteral("es") : QStringLiteral("en"); }

QString WordIn(Word word, int language) {
  const Row& row = kWords[static_cast<std::size_t>(word)];
  return QString::fromUtf8(language == 1 ? row.spanish : row.english);
}

QString Say(Word word) { return WordIn(word, inUse); }

QString Say(Word word, const QString& argument) { return Say(word).arg(argument); }

}  // namespace panel
