// SPDX-License-Identifier: MIT
// How the panel looks and reads: contrast, signs that every system can draw, texts that are never markup.
#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QRawFont>
#include <QStyleOptionViewItem>

#include "common/shortcuts.h"
#include "remote/settle.h"
#include "support/text_catcher.h"
#include "ui/error_indicator.h"
#include "ui/error_list_model.h"
#include "ui/message_zone.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/question.h"
#include "ui/readings.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"
#include "ui/theme.h"

namespace panel {
namespace {

using pnl::test::TextsOf;
using theme::Contrast;
using theme::kLeastContrast;

TEST(ContrastTest, IsWhatTheGuidelinesCompute) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 1e-6);
  EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 1e-6);
  EXPECT_NEAR(Contrast(Qt::red, Qt::red), 1, 1e-6);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(ContrastTest, EveryTextOfThePanelIsReadOnEveryFieldThatItStandsOn) {
  struct Pair {
    const char* name;
    QRgb ink;
    QRgb fill;
  };
  for (const Pair& pair :
       {Pair{"text on background", theme::kText, theme::kBackground},
        Pair{"text on surface", theme::kText, theme::kSurface}, Pair{"text on raised", theme::kText, theme::kRaised},
        Pair{"text under a mouse", theme::kText, theme::kRaisedHover},
        Pair{"text on pressed", theme::kText, theme::kPressed}, Pair{"text on steel", theme::kText, theme::kSteel},
        Pair{"caption on background", theme::kMuted, theme::kBackground},
        Pair{"caption on surface", theme::kMuted, theme::kSurface},
        Pair{"caption on raised", theme::kMuted, theme::kRaised},
        Pair{"caption under a mouse", theme::kMuted, theme::kRaisedHover},
        Pair{"accent on background", theme::kAccent, theme::kBackground},
        Pair{"accent on surface", theme::kAccent, theme::kSurface},
        Pair{"accent in the caret's line", theme::kAccent, theme::kRaised},
        Pair{"amber on surface", theme::kAmber, theme::kSurface},
        Pair{"orchid on surface", theme::kOrchid, theme::kSurface}, Pair{"warning", theme::kDark, theme::kAmber}}) {
    EXPECT_GE(Contrast(QColor(pair.ink), QColor(pair.fill)), kLeastContrast) << pair.name;
  }
}

TEST(ContrastTest, AKeyIsReadInEveryStateAndColour) {
  OperatorKeys keys(nullptr);
  for (const auto& [action, key] : keys.Keys()) {
    for (const bool checked : {false, true}) {
      for (const bool down : {false, true}) {
        key->setCheckable(checked);
        key->setChecked(checked);
        key->setDown(down);
        EXPECT_GE(Contrast(key->Ink(), key->Fill()), kLeastContrast) << key->text().toStdString() << checked << down;
      }
    }
    if (key->Tint().isValid()) {
      const QColor hover = theme::HoverOf(key->Tint());
      EXPECT_GE(Contrast(theme::InkOn(hover), hover), kLeastContrast) << key->text().toStdString();
    }
  }
}

TEST(ContrastTest, TheStateOfTheChannelIsReadInEveryColour) {
  for (const LookRow& row : LookTable()) {
    const QColor fill(row.look.color);
    EXPECT_GE(Contrast(theme::InkOn(fill), fill), kLeastContrast) << TextOf(row.look).toStdString();
  }
}

TEST(ContrastTest, TheCountOfErrorsIsReadInEveryClassAndBothPhases) {
  for (int kind = 0; kind < kErrorClasses; ++kind) {
    ErrorIndicator indicator(nullptr);
    indicator.Show({5, static_cast<ErrorKind>(kind), 500, 2}, 2);
    EXPECT_GE(Contrast(indicator.Ink(), indicator.Fill()), kLeastContrast) << kind;
    const QColor fill = indicator.Fill();
    const QColor ink = indicator.Ink();
    ASSERT_TRUE(WaitWhile([&] { return indicator.Fill() == fill; }, 10'000));
    EXPECT_EQ(indicator.Fill(), ink);
    EXPECT_EQ(indicator.Ink(), fill);
  }
}

TEST(SignsTest, WordsHaveNoSignThatTheOnlyFontOfABareSystemLacks) {
  const QRawFont font = QRawFont::fromFont(theme::Font(16));
  for (int word = 0; word < static_cast<int>(Word::kCount); ++word) {
    for (int language = 0; language < 2; ++language) {
      const QString text = WordIn(static_cast<Word>(word), language);
      for (const QChar c : text) EXPECT_TRUE(font.supportsCharacter(c)) << text.toStdString();
    }
  }
}

TEST(SignsTest, ThePagingKeysAreDrawnAndNotTyped) {
  for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
    const bool main = orientation == Qt::Horizontal;
    SoftKeyBar bar(orientation, 2, main ? &MainKey : &SideKey, nullptr);
    bar.resize(main ? 800 : 100, main ? 56 : 400);
    bar.ShowItems({{1, "a", {}}, {2, "b", {}}, {3, "c", {}}});
    EXPECT_EQ(bar.BackKey()->Arrow(), main ? Qt::LeftArrow : Qt::UpArrow);
    EXPECT_EQ(bar.MoreKey()->Arrow(), main ? Qt::RightArrow : Qt::DownArrow);
    EXPECT_EQ(bar.BackKey()->text(), "");
    EXPECT_EQ(bar.MoreKey()->text(), "1/2");
    for (const QString& text : TextsOf(bar)) {
      for (const QChar c : text) EXPECT_LT(c.unicode(), 0x2500) << text.toStdString();
    }
  }
}

TEST(SignsTest, AnArrowPointsWhereItSays) {
  for (const auto& [direction, near, far] : {std::tuple(Qt::RightArrow, QPoint(26, 20), QPoint(30, 6)),
                                             std::tuple(Qt::LeftArrow, QPoint(13, 20), QPoint(10, 6)),
                                             std::tuple(Qt::UpArrow, QPoint(20, 13), QPoint(6, 10)),
                                             std::tuple(Qt::DownArrow, QPoint(20, 26), QPoint(6, 30))}) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    theme::DrawArrow(painter, image.rect(), direction, Qt::white);
    painter.end();
    EXPECT_EQ(image.pixelColor(near), QColor(Qt::white)) << direction;
    EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::white)) << direction;
    EXPECT_EQ(image.pixelColor(far), QColor(Qt::black)) << direction;
  }
}

TEST(SignsTest, AProgramWithChangesHasADrawnDot) {
  ProgramEditor editor(nullptr);
  editor.resize(400, 300);
  editor.SetProgram("G0", "C:\\A.NC");
  const QImage before = editor.grab(QRect(0, 0, 400, 30)).toImage();
  editor.Insert("X");
  EXPECT_NE(editor.grab(QRect(0, 0, 400, 30)).toImage(), before);
  EXPECT_TRUE(TextsOf(editor).contains("C:\\A.NC"));
}

// What looks like markup, in every way that a text could be taken for it.
const char* const kMarkup = "<b>bold</b> <a href=\"file:///etc/passwd\">open</a> &amp; <img src=\"/etc/x.png\">";

/// A tooltip shows text as it is when it holds no markup, or markup that writes the text out.
void ExpectPlainTip(const QWidget& widget, const QString& text) {
  const QString tip = widget.toolTip();
  ASSERT_FALSE(tip.isEmpty());
  QTextDocument shown;
  if (Qt::mightBeRichText(tip)) {
    shown.setHtml(tip);
  } else {
    shown.setPlainText(tip);
  }
  EXPECT_TRUE(shown.toPlainText().contains(text)) << tip.toStdString();
}

TEST(MarkupTest, AMessageOfTheZoneIsPlain) {
  MessageZone zone(nullptr);
  zone.resize(1600, 60);
  zone.Show({{kMarkup, Qt::red, Qt::white}});
  EXPECT_EQ(TextsOf(zone).join(""), kMarkup);
  ExpectPlainTip(zone, kMarkup);
}

TEST(MarkupTest, ATipOfSeveralLinesKeepsThem) {
  MessageZone zone(nullptr);
  zone.Show({{"<b>one</b>", Qt::red, Qt::white}, {"two", Qt::red, Qt::white}});
  ExpectPlainTip(zone, "<b>one</b>\ntwo");
}

TEST(MarkupTest, ASoftKeyIsPlain) {
  SoftKeyBar bar(Qt::Horizontal, 1, &MainKey, nullptr);
  bar.resize(3000, 200);
  bar.ShowItems({{1, kMarkup, {}}});
  EXPECT_TRUE(TextsOf(bar).join("").remove(' ').contains(QString(kMarkup).remove(' ')));
  ExpectPlainTip(*bar.Key(0), QString(kMarkup) + " (F1)");
}

TEST(MarkupTest, AnAmpersandOnAKeyMakesNoShortcut) {
  SoftKeyBar bar(Qt::Horizontal, 1, &MainKey, nullptr);
  bar.ShowItems({{1, "&W & &&", {}}});
  EXPECT_EQ(bar.Key(0)->text(), "&W & &&");
  EXPECT_TRUE(bar.Key(0)->shortcut().isEmpty());
}

TEST(MarkupTest, AQuestionIsPlain) {
  QWidget window;
  window.resize(1600, 400);
  Question question(&window);
  question.setGeometry(window.rect());
  question.Ask(kMarkup, {"<u>Yes</u>", "No"}, [](int) {});
  QString shown = TextsOf(question).join("");
  EXPECT_TRUE(shown.contains("<u>Yes</u>"));
  EXPECT_TRUE(shown.remove(' ').contains(QString(kMarkup).remove(' '))) << shown.toStdString();
}

TEST(MarkupTest, AProgramAndItsNameArePlain) {
  ProgramEditor editor(nullptr);
  editor.resize(1600, 300);
  editor.SetProgram(kMarkup, kMarkup);
  EXPECT_EQ(editor.Text(), kMarkup);
  EXPECT_TRUE(TextsOf(editor).contains(kMarkup));
}

TEST(MessageZoneTest, ALongPathKeepsItsBeginningAndItsEnd) {
  MessageZone zone(nullptr);
  zone.resize(500, 44);
  zone.SetFontPixels(17);
  const QString path = "C:\\" + QString("A_VERY_LONG_FOLDER\\").repeated(12) + "PART.NC";
  zone.Show({{"Can't be written: " + path, Qt::red, Qt::white}});
  const QString shown = TextsOf(zone).join("");
  EXPECT_TRUE(shown.startsWith("Can't be written: C:\\")) << shown.toStdString();
  EXPECT_TRUE(shown.endsWith("PART.NC")) << shown.toStdString();
  EXPECT_EQ(shown.count(QChar(0x2026)), 1) << "what is left out is marked";
  zone.Show({{path, Qt::red, Qt::white}, {path, Qt::blue, Qt::white}});
  for (const QString& line : TextsOf(zone)) {
    EXPECT_TRUE(line.endsWith("PART.NC")) << line.toStdString();
    EXPECT_TRUE(line.contains(QChar(0x2026)));
  }
}

TEST(ParagraphTest, OnlyWhatFindsNoRoomIsLeftOut) {
  const QFont font = theme::Font(16);
  EXPECT_EQ(theme::ParagraphIn("one two", font, {400, 20}), "one two");
  const QString words = QString("word ").repeated(200);
  const QString shown = theme::ParagraphIn(words, font, {200, 60});
  EXPECT_LT(shown.size(), words.size());
  EXPECT_GT(shown.size(), 30);
  EXPECT_TRUE(shown.contains(QChar(0x2026)));
  EXPECT_EQ(theme::ParagraphIn(words, font, {4000, 400}), words);
  EXPECT_FALSE(theme::ParagraphIn("one two", font, {400, 2}).isEmpty()) << "one line always shows";
  EXPECT_EQ(theme::ParagraphIn("one two", font, {1, 2}), QString(QChar(0x2026))) << "not even one letter fits";
}

TEST(ParagraphTest, IsWrittenInItsColourAndItsPlace) {
  const QFont font = theme::Font(16);
  const struct {
    Qt::Alignment alignment;
    bool above;  // written in the upper half
    bool below;
  } rows[] = {{Qt::AlignTop | Qt::AlignLeft, true, false},
              {Qt::AlignBottom | Qt::AlignLeft, false, true},
              {Qt::AlignVCenter | Qt::AlignLeft, true, true}};
  for (const auto& row : rows) {
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    theme::DrawParagraph(painter, image.rect(), row.alignment, "HHH", font, QColor(0, 255, 0));
    painter.end();
    bool above = false;
    bool below = false;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        EXPECT_TRUE(color.red() == 0 && color.blue() == 0) << x << "," << y;
        if (color.green() > 0) (y < 50 ? above : below) = true;
      }
    }
    EXPECT_EQ(above, row.above) << row.alignment;
    EXPECT_EQ(below, row.below) << row.alignment;
  }
}

TEST(ParagraphTest, ACharacterOfTwoUnitsIsNotCutInTwo) {
  const QString faces = QString::fromUtf8("\xF0\x9F\x98\x80").repeated(300);
  const QString shown = theme::ParagraphIn(faces, theme::Font(16), {100, 20});
  EXPECT_TRUE(shown.isValidUtf16());
  EXPECT_LT(shown.size(), faces.size());
}

TEST(OperatorKeysTest, TheOverrideStepsWhenItsKeyGoesDownAndGoesOnWhileItIsHeld) {
  OperatorKeys keys(nullptr);
  keys.resize(900, 60);
  keys.Show([](Action) { return true; }, [](Action) { return false; });
  std::vector<Action> pressed;
  QObject::connect(&keys, &OperatorKeys::Pressed, [&](Action action) { pressed.push_back(action); });
  const auto send = [](PanelKey* key, QEvent::Type type) {
    QMouseEvent event(type, QPointF(5, 5), key->mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(key, &event);
  };
  for (const auto& [action, key] : keys.Keys()) {
    const bool repeats = action == Action::kOverrideDown || action == Action::kOverrideUp;
    EXPECT_EQ(key->autoRepeat(), repeats) << key->text().toStdString();
    pressed.clear();
    send(key, QEvent::MouseButtonPress);
    EXPECT_EQ(pressed.size(), repeats ? 1u : 0u);
    send(key, QEvent::MouseButtonRelease);
    EXPECT_EQ(pressed, std::vector<Action>{action}) << "one press is one step";
  }
}

TEST(OperatorKeysTest, ADimKeyTellsOfATouchOnceAndAnAbleOneAsBefore) {
  OperatorKeys keys(nullptr);
  keys.resize(900, 60);
  keys.Show([](Action action) { return action != Action::kCancel; }, [](Action) { return false; });
  std::vector<Action> pressed;
  QObject::connect(&keys, &OperatorKeys::Pressed, [&](Action action) { pressed.push_back(action); });
  for (const Action action : {Action::kCancel, Action::kReset}) {
    PanelKey* key = keys.Key(action);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, QPointF(5, 5), key->mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(key, &event);
    }
  }
  EXPECT_EQ(pressed, (std::vector{Action::kCancel, Action::kReset}));
}

TEST(OperatorKeysTest, StartHasItsReasonOnTheKeyAndInItsTip) {
  UseWords("en");
  OperatorKeys keys(nullptr);
  keys.resize(792, 54);
  keys.ShowStartReason("door open", "The <b>door</b> is open");
  const PanelKey* start = keys.Key(Action::kCycleStart);
  EXPECT_TRUE(TextsOf(*keys.Key(Action::kCycleStart)).contains("door open"));
  ExpectPlainTip(*start, TooltipOf(Action::kCycleStart));
  ExpectPlainTip(*start, "The <b>door</b> is open");
  keys.ShowStartReason({}, {});
  EXPECT_FALSE(TextsOf(*keys.Key(Action::kCycleStart)).contains("door open"));
  EXPECT_EQ(start->toolTip(), TooltipOf(Action::kCycleStart));
}

TEST(OperatorKeysTest, EveryReasonOnTheStartKeyIsShownWholeBesideItsCaption) {
  for (const char* language : {"en", "es"}) {
    UseWords(language);
    for (const Word note : {Word::kStoppedNote, Word::kDoorNote, Word::kFaultNote}) {
      OperatorKeys keys(nullptr);
      keys.resize(792, 54);
      keys.SetFontPixels(14);
      keys.ShowStartReason(Say(note), "reason");
      const QStringList shown = TextsOf(*keys.Key(Action::kCycleStart));
      EXPECT_TRUE(shown.contains(Say(note))) << shown.join('|').toStdString();
      EXPECT_TRUE(shown.contains(Say(Word::kCycleStart))) << shown.join('|').toStdString();
    }
  }
  UseWords("en");
}

}  // namespace
}  // namespace panel
