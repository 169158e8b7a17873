// SPDX-License-Identifier: MIT
// The operating manual speaks of the panel that is there: its keys, messages and states have the words that the panel
// shows, in each language.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "common/shortcuts.h"
#include "common/words.h"

namespace panel {
namespace {

QString TextOf(const QString& file) {
  QFile in(QStringLiteral(PNL_SOURCE_FOLDER "/") + file);
  return in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()) : QString();
}

QString Plain(QString html) {
  return html.remove(QRegularExpression(QStringLiteral("<[^>]*>")))
      .replace(QStringLiteral("&lt;"), QStringLiteral("<"))
      .replace(QStringLiteral("&gt;"), QStringLiteral(">"))
      .replace(QStringLiteral("&amp;"), QStringLiteral("&"));
}

QStringList Matches(const QString& text, const char* pattern) {
  QStringList found;
  auto all = QRegularExpression(QString::fromLatin1(pattern)).globalMatch(text);
  while (all.hasNext()) found << Plain(all.next().captured(1));
  return found;
}

class OperatingManual : public ::testing::TestWithParam<const char*> {
 protected:
  OperatingManual() : code_(QString::fromLatin1(GetParam())), language_(code_ == QLatin1String("es") ? 1 : 0) {
    // Every word of the panel and every text of the tools, each on a line of its own.
    for (int word = 0; word < static_cast<int>(Word::kCount); ++word) {
      words_ << WordIn(static_cast<Word>(word), language_);
    }
    const QString folder = QStringLiteral("lang/") + code_;
    words_ += Matches(TextOf(folder + QStringLiteral("/menus.xml")), "text=\"([^\"]*)\"");
    words_ += Matches(TextOf(folder + QStringLiteral("/dialogs.xml")), "text=\"([^\"]*)\"");
    words_ += Matches(TextOf(folder + QStringLiteral("/texts.txt")), "(?:^|\\n)\\d+ = ([^\\n]*)");
  }
  [[nodiscard]] QString Page(const QString& name) const {
    return TextOf(QStringLiteral("share/manuals/%1/operating/%2.html").arg(code_, name));
  }
  [[nodiscard]] QStringList Pages() const {
    QDir folder(QStringLiteral(PNL_SOURCE_FOLDER "/share/manuals/%1/operating").arg(code_));
    QStringList names;
    for (const QString& file : folder.entryList({QStringLiteral("*.html")})) names << file.chopped(5);
    return names;
  }
  /// Whether the panel says this: as it is, or with a name or a number at one place of it.
  [[nodiscard]] bool IsSaid(const QString& text) const {
    for (const QString& word : words_) {
      if (word == text) return true;
      QString open = word;
      for (const char* hole : {"%1", "%2", "%3"}) open.replace(QLatin1String(hole), QStringLiteral("…"));
      if (open == text) return true;
      for (const char* hole : {"%s", "%1"}) {
        const QString sign = QString::fromLatin1(hole);
        if (QString(word).replace(sign, QStringLiteral("…")) == text) return true;
        const QString around = QString(word).remove(QStringLiteral(": ") + sign);
        if (around != word && around == text) return true;
      }
      // A page may stop after a message's first sentence.
      if (word.startsWith(text) && text.endsWith(QLatin1Char('.'))) return true;
    }
    return false;
  }

  const QString code_;
  const int language_;
  QStringList words_;
};
INSTANTIATE_TEST_SUITE_P(Languages, OperatingManual, ::testing::Values("en", "es"));

TEST_P(OperatingManual, HasTheKeysThatThePanelHas) {
  int keys = 0;
  for (const QString& name : Pages()) {
    for (const QString& key : Matches(Page(name), "<span class=\"key\">(.*?)</span>")) {
      EXPECT_TRUE(words_.contains(key)) << qPrintable(name) << ": " << qPrintable(key);
      ++keys;
    }
  }
  EXPECT_GT(keys, 150);
}

TEST_P(OperatingManual, HasTheMessagesThatThePanelShows) {
  int messages = 0;
  for (const char* name : {"messages", "explorermessages", "machiningmessages"}) {
    for (const QString& message : Matches(Page(QString::fromLatin1(name)), "<tr><td>(.*?)</td>")) {
      EXPECT_TRUE(IsSaid(message)) << name << ": " << qPrintable(message);
      ++messages;
    }
  }
  EXPECT_EQ(messages, 40);
}

TEST_P(OperatingManual, HasTheStatesThatThePanelShows) {
  for (const Word word :
       {Word::kReady, Word::kRunning, Word::kInterrupted, Word::kFeedHold, Word::kAborted, Word::kInspection,
        Word::kNoMachine, Word::kEmergencyStop, Word::kDoorOpen, Word::kFault, Word::kFeedZero}) {
    const QString cell = QStringLiteral("<tr><td>%1</td>").arg(WordIn(word, language_));
    EXPECT_TRUE(Page(QStringLiteral("states")).contains(cell)) << qPrintable(cell);
  }
}

TEST_P(OperatingManual, HasTheKeyboardOfThePanel) {
  const QString page = Plain(Page(QStringLiteral("keyboard")));
  const QStringList rows = page.split(QLatin1Char('\n'));
  for (const ShortcutRow& row : ShortcutTable()) {
    QStringList names;
    for (const QKeySequence& key : KeysOf(row.action)) names << key.toString();
    const QString line = names.join(QStringLiteral(", ")) + WordIn(row.what, language_);
    bool found = false;
    for (const QString& candidate : rows) found = found || candidate.startsWith(line);
    EXPECT_TRUE(found) << qPrintable(line);
  }
  EXPECT_TRUE(page.contains(WordIn(Word::kToggleErrors, language_)));
}

}  // namespace
}  // namespace panel
