// SPDX-License-Identifier: MIT
// The questions of the first start alone: what they ask, what touches do, and that everything is read and pressed at
// every size.
#include "ui/first_start.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <cmath>

#include "common/words.h"
#include "host/panel_settings.h"
#include "panel/qt/picture.h"
#include "support/text_catcher.h"
#include "ui/panel_key.h"
#include "ui/panel_layout.h"
#include "ui/theme.h"

namespace panel {
namespace {

using pnl::test::TextsOf;
using Page = FirstStart::Page;

class FirstStartTest : public ::testing::Test {
 protected:
  FirstStartTest() {
    UseWords("en");
    theme::SetScreenWidth(0);
    window_.resize(800, 600);
    cover_.setGeometry(4, 160, 790, 330);
    cover_.SetFontPixels(16);
    QObject::connect(&cover_, &FirstStart::LanguageChosen, [this](const QString& language) {
      languages_ << language;
      Speak(language);
    });
    QObject::connect(&cover_, &FirstStart::Answered, [this](double width) { answers_.push_back(width); });
    window_.show();
    window_.activateWindow();
    QCoreApplication::processEvents();
  }
  ~FirstStartTest() override {
    UseWords("en");
    theme::SetScreenWidth(0);
  }
  void Speak(const QString& language) {
    UseWords(language);
    QEvent changed(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&window_, &changed);
  }
  static void Mouse(QWidget& widget, QEvent::Type type, const QPoint& at) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
  }
  /// A finger on a key, and only there: the key must be what is at that place of the window.
  void Touch(FirstStart::Key key) {
    PanelKey* target = cover_.KeyOf(key);
    const QPoint place = target->mapTo(&window_, target->rect().center());
    ASSERT_EQ(window_.childAt(place), target);
    Mouse(*target, QEvent::MouseButtonPress, target->rect().center());
    Mouse(*target, QEvent::MouseButtonRelease, target->rect().center());
  }
  static void Press(int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  [[nodiscard]] int ScreenPixels() const { return window_.screen()->size().width(); }

  QWidget window_;
  FirstStart cover_{&window_};
  QStringList languages_;
  std::vector<double> answers_;
};

TEST_F(FirstStartTest, IsHiddenUntilItAsks) {
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_FALSE(cover_.IsOpen());
  cover_.Ask(Page::kLanguage, false);
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_TRUE(cover_.IsOpen());
}

TEST_F(FirstStartTest, TouchesAloneAnswerEverything) {
  cover_.Ask(Page::kLanguage, false);
  EXPECT_EQ(cover_.Text().toStdString(), "Choose your language\nElija su idioma");
  Touch(FirstStart::kSpanish);
  EXPECT_EQ(languages_, QStringList{"es"});
  EXPECT_EQ(cover_.Shown(), Page::kScreen);
  EXPECT_EQ(cover_.Text().toStdString(),
            "Apoye una tarjeta bancaria en la pantalla y haga la barra tan larga como la tarjeta: 85.6 mm");
  const int before = cover_.Bar().width();
  Touch(FirstStart::kLonger);
  Touch(FirstStart::kLonger);
  EXPECT_EQ(cover_.Bar().width(), before + 2);
  Touch(FirstStart::kShorter);
  EXPECT_EQ(cover_.Bar().width(), before + 1);
  EXPECT_TRUE(answers_.empty());
  Touch(FirstStart::kOk);
  ASSERT_EQ(answers_.size(), 1U);
  EXPECT_DOUBLE_EQ(answers_[0], ScreenPixels() * 85.6 / (before + 1));
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_FALSE(cover_.IsOpen());
}

TEST_F(FirstStartTest, TheBarBeginsAtTheLengthThatTheScreenReports) {
  theme::SetScreenWidth(ScreenPixels() * 25.4 / 120);
  cover_.Ask(Page::kScreen, false);
  EXPECT_EQ(cover_.Bar().width(), std::lround(85.6 * 120 / 25.4));
  EXPECT_NEAR(cover_.ScreenMillimetres(), ScreenPixels() * 25.4 / 120, 0.3);
  EXPECT_EQ(cover_.Reading().toStdString(),
            "The screen is " + std::to_string(std::lround(cover_.ScreenMillimetres())) + " mm wide");
}

TEST_F(FirstStartTest, AFingerPullsTheBarAndATapDoesNot) {
  cover_.Ask(Page::kScreen, false);
  const QRect bar = cover_.Bar();
  const QPoint end(bar.right() + 10, bar.center().y());
  Mouse(cover_, QEvent::MouseButtonPress, end);
  Mouse(cover_, QEvent::MouseButtonRelease, end);
  EXPECT_EQ(cover_.Bar(), bar);
  Mouse(cover_, QEvent::MouseMove, end + QPoint(50, 0));
  EXPECT_EQ(cover_.Bar(), bar) << "nobody holds it";
  Mouse(cover_, QEvent::MouseButtonPress, end);
  Mouse(cover_, QEvent::MouseMove, end + QPoint(37, 4));
  EXPECT_EQ(cover_.Bar().width(), bar.width() + 37);
  Mouse(cover_, QEvent::MouseMove, end - QPoint(20, 0));
  EXPECT_EQ(cover_.Bar().width(), bar.width() - 20);
  Mouse(cover_, QEvent::MouseButtonRelease, end);
  // Beside the bar there is nothing to hold.
  Mouse(cover_, QEvent::MouseButtonPress, QPoint(bar.center().x(), bar.top() - 20));
  Mouse(cover_, QEvent::MouseMove, QPoint(bar.center().x() + 60, bar.top() - 20));
  EXPECT_EQ(cover_.Bar().width(), bar.width() - 20);
}

TEST_F(FirstStartTest, TheBarStaysInTheCoverAndTheScreenPossible) {
  cover_.Ask(Page::kScreen, false);
  cover_.SetBarLength(100'000);
  EXPECT_TRUE(cover_.rect().contains(cover_.Bar()));
  EXPECT_EQ(cover_.Bar().right(), cover_.width() - 13);
  cover_.SetBarLength(-5);
  EXPECT_TRUE(theme::IsDensity(ScreenPixels() * 25.4 / cover_.ScreenMillimetres()));
  EXPECT_LE(cover_.ScreenMillimetres(), kMostScreenMillimetres);
  EXPECT_GT(cover_.Bar().width(), 100);
  // With smaller millimetres the panel would have no room.
  cover_.SetMostDensity(150);
  cover_.SetBarLength(100'000);
  EXPECT_EQ(cover_.Bar().width(), std::lround(85.6 * 150 / 25.4));
}

TEST_F(FirstStartTest, BackLeadsToTheLanguageAndTheFirstQuestionCannotBeLeft) {
  cover_.Ask(Page::kLanguage, false);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(cover_.IsOpen());
  Touch(FirstStart::kEnglish);
  Press(Qt::Key_Escape);
  EXPECT_EQ(cover_.Shown(), Page::kLanguage);
  Touch(FirstStart::kEnglish);
  Touch(FirstStart::kBack);
  EXPECT_EQ(cover_.Shown(), Page::kLanguage);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(cover_.IsOpen());
  EXPECT_TRUE(answers_.empty());
}

TEST_F(FirstStartTest, AskedLaterItCanBeLeftWithoutAnAnswer) {
  for (const Page page : {Page::kScreen, Page::kLanguage}) {
    cover_.Ask(Page::kScreen, true);
    if (page == Page::kLanguage) Touch(FirstStart::kBack);
    ASSERT_EQ(cover_.Shown(), page);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(cover_.IsOpen());
    EXPECT_FALSE(cover_.isVisible());
  }
  EXPECT_TRUE(answers_.empty());
}

TEST_F(FirstStartTest, KeysOfAKeyboardAnswerItToo) {
  cover_.Ask(Page::kLanguage, false);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kEnglish));
  Press(Qt::Key_Right);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kSpanish));
  Press(Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kOk));
  // Tab stays among what is shown.
  for (const FirstStart::Key key : {FirstStart::kBack, FirstStart::kShorter, FirstStart::kLonger, FirstStart::kOk}) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(key));
  }
  Press(Qt::Key_Return);
  EXPECT_EQ(answers_.size(), 1U);
  Speak("es");
  cover_.Ask(Page::kLanguage, false);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kSpanish)) << "the present language first";
}

TEST_F(FirstStartTest, ALanguageThatChangesMeanwhileChangesItsWords) {
  cover_.Ask(Page::kScreen, false);
  EXPECT_EQ(cover_.KeyOf(FirstStart::kOk)->text(), "OK");
  Speak("es");
  EXPECT_EQ(cover_.KeyOf(FirstStart::kOk)->text(), "Aceptar");
  EXPECT_EQ(cover_.KeyOf(FirstStart::kLonger)->accessibleName(), "Alargar la barra");
  EXPECT_TRUE(cover_.accessibleName().startsWith("Apoye"));
  EXPECT_TRUE(cover_.accessibleDescription().startsWith("La pantalla mide"));
  EXPECT_TRUE(TextsOf(cover_).join(' ').contains("La pantalla mide"));
}

TEST_F(FirstStartTest, TheQuestionIsReadInTheMiddleAndThatOfTheScreenJustAboveItsBar) {
  cover_.Ask(Page::kLanguage, false);
  EXPECT_EQ(pnl::test::StrokesOf(cover_), Pictured([this](Picture& picture) {
              picture.Fill({0, 0, 790, 330}, theme::kBackground)
                  .Field({0, 0, 790, 330}, theme::kBackground, theme::kAccent, 8)
                  .Paragraph({43, 12, 704, 143}, Qt::AlignHCenter | Qt::AlignVCenter, cover_.Text(),
                             theme::Font(20, true), theme::kText);
            }));
  Touch(FirstStart::kEnglish);
  cover_.SetBarLength(300);
  const QRect bar(12, 156, 300, 64);
  EXPECT_EQ(cover_.Bar(), bar);
  EXPECT_EQ(pnl::test::StrokesOf(cover_), Pictured([&](Picture& picture) {
              picture.Fill({0, 0, 790, 330}, theme::kBackground)
                  .Field({0, 0, 790, 330}, theme::kBackground, theme::kAccent, 8)
                  .Paragraph({43, 12, 704, 134}, Qt::AlignHCenter | Qt::AlignBottom, cover_.Text(),
                             theme::Font(20, true), theme::kText)
                  .Fill(bar, theme::kAccent)
                  .Fill({12, 156, 2, 64}, theme::kText)
                  .Fill({310, 156, 2, 64}, theme::kText)
                  .Middle({12, 220, 766, 34}, cover_.Reading(), theme::Font(16), theme::kMuted);
            }));
}

TEST_F(FirstStartTest, InASmallCoverTheQuestionHasSmallerLettersUntilAllOfItIsRead) {
  cover_.setGeometry(0, 0, 300, 230);
  cover_.Ask(Page::kScreen, false);
  const QRect room(12, 12, 276, cover_.Bar().top() - 22);
  int pixels = 20;
  while (theme::ParagraphIn(cover_.Text(), theme::Font(pixels, true), room.size()) != cover_.Text()) --pixels;
  ASSERT_LT(pixels, 20);
  ASSERT_GT(pixels, 11);
  const Strokes question = Pictured([&](Picture& picture) {
    picture.Paragraph(room, Qt::AlignHCenter | Qt::AlignBottom, cover_.Text(), theme::Font(pixels, true), theme::kText);
  });
  EXPECT_THAT(pnl::test::StrokesOf(cover_), ::testing::IsSupersetOf(question));
}

TEST_F(FirstStartTest, AnOpenQuestionIsNotAskedAgain) {
  cover_.Ask(Page::kLanguage, false);
  Touch(FirstStart::kEnglish);
  cover_.SetBarLength(333);
  cover_.Ask(Page::kLanguage, true);
  EXPECT_EQ(cover_.Shown(), Page::kScreen);
  EXPECT_EQ(cover_.Bar().width(), 333);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(cover_.IsOpen()) << "it still can't be left";
  EXPECT_EQ(cover_.Shown(), Page::kLanguage);
}

TEST_F(FirstStartTest, ItComesOverEverything) {
  QWidget other(&window_);
  other.show();
  cover_.Ask(Page::kLanguage, false);
  EXPECT_EQ(window_.children().last(), &cover_);
}

TEST_F(FirstStartTest, BackGivesTheKeyboardToTheLanguageInUseAndThereItStays) {
  Speak("es");
  cover_.Ask(Page::kScreen, false);
  Press(Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kSpanish));
  Press(Qt::Key_Left);
  ASSERT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kEnglish));
  Press(Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), cover_.KeyOf(FirstStart::kEnglish)) << "there is nothing further back";
}

TEST_F(FirstStartTest, ABarThatIsHeldIsLetGoWithItsPage) {
  cover_.Ask(Page::kScreen, false);
  const QRect bar = cover_.Bar();
  Mouse(cover_, QEvent::MouseButtonPress, QPoint(bar.right(), bar.center().y()));
  Press(Qt::Key_Escape);
  Mouse(cover_, QEvent::MouseMove, QPoint(bar.right() + 90, bar.center().y()));
  Touch(FirstStart::kEnglish);
  EXPECT_EQ(cover_.Bar(), bar);
}

TEST_F(FirstStartTest, ABarThatIsHeldIsLetGoWithTheAnswer) {
  cover_.Ask(Page::kScreen, false);
  const QRect bar = cover_.Bar();
  Mouse(cover_, QEvent::MouseButtonPress, QPoint(bar.right(), bar.center().y()));
  cover_.KeyOf(FirstStart::kOk)->click();
  ASSERT_EQ(answers_.size(), 1u);
  const QString said = cover_.accessibleDescription();
  Mouse(cover_, QEvent::MouseMove, QPoint(bar.right() + 90, bar.center().y()));
  EXPECT_EQ(cover_.Bar(), bar);
  EXPECT_EQ(cover_.accessibleDescription(), said);
}

TEST_F(FirstStartTest, NoKeyReachesWhatIsUnderIt) {
  cover_.Ask(Page::kLanguage, false);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier);
  // As somebody has left it who didn't want it.
  key.ignore();
  QCoreApplication::sendEvent(&cover_, &key);
  EXPECT_TRUE(key.isAccepted());
  EXPECT_TRUE(cover_.IsOpen());
}

TEST_F(FirstStartTest, TheOtherButtonsOfAMouseDoNotPullTheBar) {
  cover_.Ask(Page::kScreen, false);
  const QRect bar = cover_.Bar();
  const QPoint end(bar.right(), bar.center().y());
  Mouse(cover_, QEvent::MouseButtonPress, end);
  QMouseEvent right(QEvent::MouseButtonPress, end, cover_.mapToGlobal(end), Qt::RightButton,
                    Qt::LeftButton | Qt::RightButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&cover_, &right);
  Mouse(cover_, QEvent::MouseMove, end + QPoint(50, 0));
  EXPECT_EQ(cover_.Bar(), bar);
}

TEST_F(FirstStartTest, AskedAgainOnAnotherScreenItsKeysAreOfThatScreensMillimetres) {
  cover_.Ask(Page::kScreen, true);
  Press(Qt::Key_Escape);
  theme::SetScreenWidth(ScreenPixels() * 25.4 / 160);
  cover_.Ask(Page::kScreen, true);
  for (const FirstStart::Key key : {FirstStart::kBack, FirstStart::kShorter, FirstStart::kLonger, FirstStart::kOk}) {
    EXPECT_GE(cover_.KeyOf(key)->height() * 25.4 / 160, 12);
    EXPECT_EQ(cover_.KeyOf(key)->geometry().bottom(), cover_.height() - 13);
  }
}

TEST_F(FirstStartTest, EachPageIsNamedByItsQuestion) {
  cover_.Ask(Page::kScreen, false);
  EXPECT_EQ(cover_.accessibleName(), cover_.Text());
  EXPECT_EQ(cover_.accessibleDescription(), cover_.Reading());
  EXPECT_TRUE(cover_.Reading().endsWith("mm wide"));
  Press(Qt::Key_Escape);
  EXPECT_EQ(cover_.accessibleName(), "Choose your language\nElija su idioma");
  EXPECT_EQ(cover_.accessibleDescription(), "");
}

/// A window's size, a language and the density that is assumed.
class FirstStartAtTest : public FirstStartTest,
                         public ::testing::WithParamInterface<std::tuple<QSize, const char*, double>> {
 protected:
  FirstStartAtTest() {
    const auto& [size, language, density] = GetParam();
    theme::SetScreenWidth(ScreenPixels() * 25.4 / density);
    Speak(language);
    window_.resize(size);
    const PanelLayout layout = LayOutWithin(size, theme::TouchPixels(density));
    const QRect place = layout.wide ? layout.toolArea | layout.sideBar : layout.toolArea | layout.mainBar;
    cover_.setGeometry(place);
    cover_.SetFontPixels(static_cast<int>(std::lround(16 * layout.scale)));
  }
  void ExpectSound() {
    const double density = std::get<2>(GetParam());
    const QString texts = TextsOf(cover_).join(QString()).remove(' ');
    for (const QString& line : (cover_.Text() + '\n' + cover_.Reading()).split('\n')) {
      EXPECT_TRUE(texts.contains(QString(line).remove(' '))) << line.toStdString() << " in " << texts.toStdString();
    }
    std::vector<QRect> places;
    if (cover_.Shown() == Page::kScreen) places.push_back(cover_.Bar());
    for (int i = 0; i < FirstStart::kKeyCount; ++i) {
      PanelKey* key = cover_.KeyOf(static_cast<FirstStart::Key>(i));
      if (!key->isVisible()) continue;
      EXPECT_GE(key->width() * 25.4 / density, 12) << i;
      EXPECT_GE(key->height() * 25.4 / density, 12) << i;
      EXPECT_EQ(TextsOf(*key).join(' '), key->text());
      EXPECT_GE(theme::Contrast(key->Fill(), key->Ink()), theme::kLeastContrast);
      places.push_back(key->geometry());
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
      EXPECT_TRUE(cover_.rect().contains(places[i])) << i;
      for (std::size_t j = i + 1; j < places.size(); ++j) EXPECT_FALSE(places[i].intersects(places[j])) << i << j;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Screens, FirstStartAtTest,
                         ::testing::Combine(::testing::Values(QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)),
                                            ::testing::Values("en", "es"), ::testing::Values(96.0, 160.0)),
                         [](const auto& row) {
                           return std::to_string(std::get<0>(row.param).width()) + std::get<1>(row.param) +
                                  std::to_string(std::lround(std::get<2>(row.param)));
                         });

TEST_P(FirstStartAtTest, EverythingIsReadWholeAndBigEnough) {
  cover_.Ask(Page::kLanguage, false);
  ExpectSound();
  cover_.KeyOf(std::get<1>(GetParam()) == std::string("es") ? FirstStart::kSpanish : FirstStart::kEnglish)->click();
  ASSERT_EQ(cover_.Shown(), Page::kScreen);
  ExpectSound();
  cover_.SetBarLength(100'000);
  ExpectSound();
}

}  // namespace
}  // namespace panel
