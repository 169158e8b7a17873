// SPDX-License-Identifier: MIT
// The captions of both languages: each key is read whole on every size of screen, one word means one thing, and a text
// that is the same in both languages is so on purpose.
#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QXmlStreamReader>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include "common/shortcuts.h"
#include "common/words.h"
#include "support/text_catcher.h"
#include "ui/editor_bars.h"
#include "ui/error_indicator.h"
#include "ui/first_start.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_layout.h"
#include "ui/panel_menu.h"
#include "ui/password_box.h"
#include "ui/program_editor.h"
#include "ui/reserved_row.h"
#include "ui/soft_key_bar.h"
#include "ui/theme.h"
#include "ui/touch_keyboard.h"

namespace panel {
namespace {

using pnl::test::StrokesOf;
using pnl::test::TextsOf;

const char* const kLanguages[] = {"en", "es"};

QString Source(const QString& name) { return QStringLiteral(PNL_SOURCE_FOLDER "/lang/") + name; }

/// One caption: where it stands, the same in both languages, and its text.
using Captions = std::map<QString, QString>;

struct MenuKey {
  QString text;
  int bitmap = 0;
  bool leadsOn = false;
};
using Menu = std::vector<MenuKey>;

/// All menus of a language and their sub-menus, by name and place.
std::map<QString, Menu> MenusOf(const QString& language) {
  QFile file(Source(language + "/menus.xml"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
  QXmlStreamReader xml(&file);
  std::map<QString, Menu> menus;
  QStringList path;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == QLatin1String("menu")) {
      path = {xml.attributes().value("name").toString()};
      menus[path.join('/')];
    } else if (xml.isStartElement() && xml.name() == QLatin1String("item")) {
      Menu& menu = menus[path.join('/')];
      if (path.size() > 1 && menu.empty()) {
        // The item before was the name of this sub-menu.
        menus[path.mid(0, path.size() - 1).join('/')].back().leadsOn = true;
      }
      menu.push_back({xml.attributes().value("text").toString(), xml.attributes().value("bitmap").toInt(), false});
      path << QString::number(menu.size());
    } else if (xml.isEndElement() && xml.name() == QLatin1String("item")) {
      path.removeLast();
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_GT(menus.size(), 10U);
  return menus;
}

/// The picture of that number; empty when there is none.
QByteArray Picture(int bitmap) {
  QFile file(Source(QStringLiteral("bitmaps/%1.svg").arg(bitmap)));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Captions TextsOfPack(const QString& language) {
  QFile file(Source(language + "/texts.txt"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  Captions texts;
  for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
    const qsizetype sign = line.indexOf(QLatin1String(" = "));
    if (sign > 0 && !line.startsWith('#')) texts[line.left(sign)] = line.mid(sign + 3);
  }
  EXPECT_GT(texts.size(), 100U);
  return texts;
}

/// Everything that is said in a language: the keys of the menus, the texts by number, the words of the panel.
Captions CaptionsOf(int language) {
  Captions all;
  for (const auto& [number, text] : TextsOfPack(kLanguages[language])) all["text " + number] = text;
  for (const auto& [name, menu] : MenusOf(kLanguages[language])) {
    for (std::size_t i = 0; i < menu.size(); ++i) all[name + "#" + QString::number(i)] = menu[i].text;
  }
  for (int word = 0; word < static_cast<int>(Word::kCount); ++word) {
    all["word " + QString::number(word)] = WordIn(static_cast<Word>(word), language);
  }
  return all;
}

/// For each text of one language what it is in the other.
std::map<QString, std::set<QString>> Dictionary(int from, int to) {
  const Captions source = CaptionsOf(from);
  const Captions target = CaptionsOf(to);
  std::map<QString, std::set<QString>> dictionary;
  for (const auto& [place, text] : source) {
    EXPECT_EQ(target.count(place), 1U) << place.toStdString() << " is missing in " << kLanguages[to];
    if (target.count(place) != 0) dictionary[text].insert(target.at(place));
  }
  return dictionary;
}

void ExpectOneMeaning(int from, int to, const std::set<QString>& exceptions) {
  for (const auto& [text, meanings] : Dictionary(from, to)) {
    const bool one = meanings.size() == 1;
    EXPECT_NE(one, exceptions.count(text) != 0) << text.toStdString() << " means " << meanings.size() << " things";
  }
}

TEST(CaptionsTest, NoWordOfSpanishMeansTwoThings) {
  // Spanish has one word for looking something up in a list, in a page and in a whole manual. No bar shows two of them.
  ExpectOneMeaning(1, 0, {"Buscar"});
}

TEST(CaptionsTest, TheSameThingHasTheSameWordEverywhere) {
  // To leave a level of keys, and to turn back to the page read before.
  ExpectOneMeaning(0, 1, {"Back"});
}

TEST(CaptionsTest, WhatIsEqualInBothLanguagesIsSoOnPurpose) {
  const std::set<QString> equal = {
      // Names and units that every control uses.
      "AUTO", "MANUAL", "MDI", "MDI / MDA", "F  mm/min", "F  mm/rev", "F  in/min", "F  in/rev", "S  rpm", "rev/min",
      "OVERRIDE", "Reset", "ID %1", "mm", "Aa", "PLC", "F", "DMC", "W.-Nr.", "UNE", "AISI", "KC",
      // Functions and signs as they are typed in an expression.
      "+", "-", "*", "/", "%", "^", "!", "Sin", "Cos", "Tan", "InvSin", "InvCos", "InvTan", "Ln", "Log", "InvLn",
      "InvLog", "Sqrt", "Int", "Abs", "And", "Or", "Xor", "Not", "Integral", "Zero", "MMToI", "IToMM", "PI", "MMPERI",
      "IPERMM",
      // The same word in both.
      "Error", "error", "Error %1", "No", "Fatal", "control", "script", "Base", "Material", "Material %s:", "%s %s",
      "%s, %s:"};
  std::set<QString> found;
  for (const auto& [text, meanings] : Dictionary(0, 1)) {
    if (meanings.count(text) != 0) found.insert(text);
  }
  EXPECT_EQ(found, equal);
}

/// A size of the screen and a language.
class CaptionsAtTest : public ::testing::TestWithParam<std::tuple<QSize, int>> {
 protected:
  CaptionsAtTest() { UseWords(kLanguages[Language()]); }
  ~CaptionsAtTest() override { UseWords("en"); }
  [[nodiscard]] static int Language() { return std::get<1>(GetParam()); }

  /// Expects that a key shows its whole caption, in letters of at least 11 pixels.
  static void ExpectRead(PanelKey& key) {
    const QString shown = TextsOf(key).join(' ').remove(key.KeyName()).remove(' ');
    EXPECT_EQ(shown, QString(key.text()).remove(' ')) << key.width() << " x " << key.height();
  }

  PanelLayout layout_ = LayOutWithin(std::get<0>(GetParam()), theme::TouchPixels(96));
  int pixels_ = static_cast<int>(std::lround(14 * layout_.scale));
};

INSTANTIATE_TEST_SUITE_P(Screens, CaptionsAtTest,
                         ::testing::Combine(::testing::Values(QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)),
                                            ::testing::Values(0, 1)),
                         [](const auto& row) {
                           return std::to_string(std::get<0>(row.param).width()) + kLanguages[std::get<1>(row.param)];
                         });

TEST_P(CaptionsAtTest, EveryKeyOfEveryMenuIsReadWhole) {
  for (const auto& [name, menu] : MenusOf(kLanguages[Language()])) {
    std::vector<SoftKeyItem> items;
    for (const MenuKey& key : menu) {
      SoftKeyItem item;
      item.id = static_cast<int>(items.size()) + 1;
      item.text = key.text;
      item.bitmap = key.bitmap;
      item.subMenu = key.leadsOn ? 1 : 0;
      items.push_back(item);
    }
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
      const bool main = orientation == Qt::Horizontal;
      SoftKeyBar bar(orientation, main ? kMainKeys : kSideKeys, main ? &MainKey : &SideKey, nullptr);
      bar.resize(main ? layout_.mainBar.size() : layout_.sideBar.size());
      bar.SetFontPixels(pixels_);
      bar.ShowItems(items);
      for (int page = 0; page < bar.PageCount(); ++page) {
        for (int slot = 0; slot < (main ? kMainKeys : kSideKeys); ++slot) {
          PanelKey* key = bar.Key(slot);
          SCOPED_TRACE(name.toStdString() + " " + key->text().toStdString());
          for (const MenuKey& item : menu) {
            if (item.text == key->text()) key->SetPicture(Picture(item.bitmap));
          }
          ExpectRead(*key);
        }
        bar.NextPage();
      }
    }
  }
}

TEST_P(CaptionsAtTest, EveryOperatorKeyIsReadWhole) {
  OperatorKeys keys(nullptr);
  keys.resize(layout_.operatorKeys.size());
  keys.SetFontPixels(pixels_);
  keys.Show([](Action) { return true; }, [](Action) { return false; });
  for (const auto& [action, key] : keys.Keys()) ExpectRead(*key);
}

TEST_P(CaptionsAtTest, EveryKeyOfThePanelIsReadWhole) {
  for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
    const bool main = orientation == Qt::Horizontal;
    SoftKeyBar bar(orientation, main ? kMainKeys : kSideKeys, main ? &MainKey : &SideKey, nullptr);
    bar.resize(main ? layout_.mainBar.size() : layout_.sideBar.size());
    bar.SetFontPixels(pixels_);
    std::vector<SoftKeyItem> items;
    for (int action = 0; action < static_cast<int>(Action::kCount); ++action) {
      if (WordOf(static_cast<Action>(action)) == Word::kToggleErrors) continue;  // has a key on the keyboard only
      items.push_back({action, Say(WordOf(static_cast<Action>(action))), {}});
    }
    for (const Word word : {Word::kFiles,
                            Word::kPlcMessages,
                            Word::kDemoFaults,
                            Word::kOk,
                            Word::kClose,
                            Word::kExport,
                            Word::kImport,
                            Word::kOwnChanges,
                            Word::kPlayVideo,
                            Word::kStopVideo,
                            Word::kRewindVideo,
                            Word::kFaultDoor,
                            Word::kFaultDriveWarning,
                            Word::kFaultDrive,
                            Word::kFaultBus,
                            Word::kFaultProgramLine,
                            Word::kFaultConfirm,
                            Word::kFaultFatal,
                            Word::kFaultEmergencyStop,
                            Word::kScreenSize}) {
      items.push_back({1, Say(word), {}});
    }
    bar.ShowItems(items);
    for (int page = 0; page < bar.PageCount(); ++page) {
      for (int slot = 0; slot < (main ? kMainKeys : kSideKeys); ++slot) ExpectRead(*bar.Key(slot));
      bar.NextPage();
    }
  }
}

/// A part of the panel with words, and what it says.
struct Speaker {
  const char* name;
  std::function<QWidget*()> make;
};

QStringList SaidBy(const QWidget& part) {
  QStringList said{part.accessibleName(), part.toolTip()};
  for (const QWidget* child : part.findChildren<QWidget*>()) said << child->accessibleName() << child->toolTip();
  return said;
}

const Speaker kSpeakers[] = {
    {"main bar", [] { return new SoftKeyBar(Qt::Horizontal, kMainKeys, &MainKey, nullptr); }},
    {"side bar", [] { return new SoftKeyBar(Qt::Vertical, kSideKeys, &SideKey, nullptr); }},
    {"operator keys", [] { return new OperatorKeys(nullptr); }},
    {"row", [] { return new ReservedRow(nullptr); }},
    {"password", [] { return new PasswordBox(nullptr); }},
    {"first start", [] { return new FirstStart(nullptr); }},
    {"line bar", [] { return new LineBar(nullptr); }},
    {"opening bar", [] { return new OpeningBar(nullptr); }},
    {"touch keyboard", [] { return new TouchKeyboard(nullptr); }},
    {"indicator", [] { return new ErrorIndicator(nullptr); }},
    {"editor", [] { return new ProgramEditor(nullptr); }},
};

TEST(SpeakersTest, EachPartChangesItsWordsWithTheLanguageAndWithNothingElse) {
  for (const Speaker& speaker : kSpeakers) {
    UseWords("en");
    const std::unique_ptr<QWidget> part(speaker.make());
    const QStringList english = SaidBy(*part);
    UseWords("es");
    QEvent font(QEvent::FontChange);
    QCoreApplication::sendEvent(part.get(), &font);
    EXPECT_EQ(SaidBy(*part), english) << speaker.name;
    QEvent language(QEvent::LanguageChange);
    QCoreApplication::sendEvent(part.get(), &language);
    EXPECT_NE(SaidBy(*part), english) << speaker.name;
    const std::unique_ptr<QWidget> fresh(speaker.make());
    EXPECT_EQ(SaidBy(*part), SaidBy(*fresh)) << speaker.name;
  }
  UseWords("en");
}

}  // namespace
}  // namespace panel
