// SPDX-License-Identifier: MIT
// The cover that asks for name and password: what it asks, what it answers, and what stays of it.
#include "ui/credentials_cover.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pnltools/pnltools.h>

#include <QApplication>
#include <QKeyEvent>
#include <cmath>

#include "common/words.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Field = CredentialsCover::Field;

class CredentialsCoverTest : public testing::Test {
 protected:
  CredentialsCoverTest() {
    UseWords("en");
    window_.resize(800, 600);
    cover_.setGeometry(window_.rect());
    cover_.SetAnswer(
        [this](std::uint32_t request, const char16_t* user, const char16_t* domain, const char16_t* password) {
          const auto text = [](const char16_t* field) { return field != nullptr ? QString::fromUtf16(field) : "none"; };
          answers_.push_back(
              QString("%1 %2 %3 %4").arg(request).arg(text(user), text(domain), text(password)).toStdString());
          if (onAnswer_) onAnswer_();
        });
    window_.show();
    window_.activateWindow();
    QCoreApplication::processEvents();
  }
  void Press(int key) {
    QWidget* const target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &cover_;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
  }
  void Type(const QString& text) {
    for (const QChar c : text) {
      QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
      QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
  }
  [[nodiscard]] std::string TextOf(Field field) const { return cover_.Edit(field).text().toStdString(); }

  QWidget window_;
  CredentialsCover cover_{&window_};
  std::vector<std::string> answers_;
  std::function<void()> onAnswer_;
};

TEST_F(CredentialsCoverTest, IsHiddenUntilItIsAsked) {
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_FALSE(cover_.IsOpen());
  cover_.Ask(7, "OFFICE", false);
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_TRUE(cover_.IsOpen());
  EXPECT_EQ(cover_.Title().toStdString(), "Name and password for the server OFFICE");
  EXPECT_EQ(cover_.accessibleName(), cover_.Title());
  EXPECT_TRUE(cover_.Problem().isEmpty());
}

TEST_F(CredentialsCoverTest, TheKeyboardAloneAnswersIt) {
  cover_.Ask(7, "OFFICE", false);
  Type("ana");
  Press(Qt::Key_Return);
  Type("HALL");
  Press(Qt::Key_Return);
  Type("Se creto");
  Press(Qt::Key_Return);
  EXPECT_THAT(answers_, ElementsAre("7 ana HALL Se creto"));
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_FALSE(cover_.IsOpen());
}

TEST_F(CredentialsCoverTest, TheKeysAnswerItToo) {
  cover_.Ask(7, "OFFICE", false);
  Type("ana");
  cover_.Keys()[0]->click();
  cover_.Ask(8, "OFFICE", false);
  cover_.Keys()[1]->click();
  EXPECT_THAT(answers_, ElementsAre("7 ana  ", "8 none  "));
}

TEST_F(CredentialsCoverTest, EscapeRefusesFromEveryField) {
  std::uint32_t request = 0;
  for (const Field field : {CredentialsCover::kUser, CredentialsCover::kDomain, CredentialsCover::kPassword}) {
    cover_.Ask(++request, "OFFICE", false);
    cover_.Edit(field).setFocus();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(cover_.IsOpen());
  }
  EXPECT_THAT(answers_, ElementsAre("1 none  ", "2 none  ", "3 none  "));
}

TEST_F(CredentialsCoverTest, WithoutANameThereIsNoAnswer) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Edit(CredentialsCover::kPassword).setText("secret");
  cover_.Accept();
  EXPECT_THAT(answers_, IsEmpty());
  EXPECT_TRUE(cover_.Edit(CredentialsCover::kUser).hasFocus());
}

TEST_F(CredentialsCoverTest, ThePasswordIsHiddenAndGoneAfterTheAnswer) {
  cover_.Ask(7, "OFFICE", false);
  EXPECT_EQ(cover_.Edit(CredentialsCover::kPassword).echoMode(), QLineEdit::Password);
  for (const bool accepted : {true, false}) {
    cover_.Ask(8, "OFFICE", false);
    cover_.Edit(CredentialsCover::kUser).setText("ana");
    cover_.Edit(CredentialsCover::kPassword).setText("secret");
    onAnswer_ = [&] { EXPECT_EQ(TextOf(CredentialsCover::kPassword), ""); };
    accepted ? cover_.Accept() : cover_.Leave();
    EXPECT_FALSE(cover_.Edit(CredentialsCover::kPassword).isUndoAvailable());
  }
}

TEST_F(CredentialsCoverTest, AfterAWrongAnswerTheNameStaysAndThePasswordIsAskedAgain) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Edit(CredentialsCover::kUser).setText("ana");
  cover_.Edit(CredentialsCover::kDomain).setText("HALL");
  cover_.Edit(CredentialsCover::kPassword).setText("wrong");
  cover_.Accept();
  cover_.Ask(8, "OFFICE", true);
  EXPECT_EQ(TextOf(CredentialsCover::kUser), "ana");
  EXPECT_EQ(TextOf(CredentialsCover::kDomain), "HALL");
  EXPECT_EQ(TextOf(CredentialsCover::kPassword), "");
  EXPECT_TRUE(cover_.Edit(CredentialsCover::kPassword).hasFocus());
  EXPECT_EQ(cover_.Problem().toStdString(), "The server refuses them: the name or the password is wrong");
  EXPECT_EQ(cover_.accessibleDescription(), cover_.Problem());
}

TEST_F(CredentialsCoverTest, AnotherServerGetsNoNameOfBefore) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Edit(CredentialsCover::kUser).setText("ana");
  cover_.Accept();
  cover_.Ask(8, "CAM", true);
  EXPECT_EQ(TextOf(CredentialsCover::kUser), "");
  cover_.Edit(CredentialsCover::kUser).setText("eva");
  cover_.Accept();
  cover_.Ask(9, "CAM", false);
  EXPECT_EQ(TextOf(CredentialsCover::kUser), "");
}

TEST_F(CredentialsCoverTest, ASecondQuestionWaitsForTheFirst) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Ask(8, "CAM", false);
  EXPECT_EQ(cover_.Title().toStdString(), "Name and password for the server OFFICE");
  cover_.Leave();
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_EQ(cover_.Title().toStdString(), "Name and password for the server CAM");
  cover_.Leave();
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_THAT(answers_, ElementsAre("7 none  ", "8 none  "));
}

TEST_F(CredentialsCoverTest, AnAnswerMayBringTheNextQuestion) {
  onAnswer_ = [this] {
    onAnswer_ = nullptr;
    cover_.Ask(8, "OFFICE", true);
  };
  cover_.Ask(7, "OFFICE", false);
  cover_.Edit(CredentialsCover::kUser).setText("ana");
  cover_.Accept();
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_TRUE(cover_.Edit(CredentialsCover::kPassword).hasFocus());
}

TEST_F(CredentialsCoverTest, TabAndArrowsStayOnTheCover) {
  cover_.Ask(7, "OFFICE", false);
  const std::vector<QWidget*> order = {&cover_.Edit(CredentialsCover::kUser), &cover_.Edit(CredentialsCover::kDomain),
                                       &cover_.Edit(CredentialsCover::kPassword), cover_.Keys()[1], cover_.Keys()[0]};
  for (std::size_t i = 1; i <= order.size(); ++i) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), order[i % order.size()]) << i;
  }
  Press(Qt::Key_Down);
  EXPECT_EQ(QApplication::focusWidget(), order[1]);
  Press(Qt::Key_Up);
  EXPECT_EQ(QApplication::focusWidget(), order[0]);
}

TEST_F(CredentialsCoverTest, ItsPartsAreMadeForAFingerAndLieInside) {
  cover_.Ask(7, "OFFICE", true);
  for (const QSize size : {QSize(800, 400), QSize(1600, 860), QSize(640, 360)}) {
    cover_.resize(size);
    cover_.SetFontPixels(16);
    std::vector<QWidget*> parts = {cover_.Keys()[0], cover_.Keys()[1]};
    for (const Field field : {CredentialsCover::kUser, CredentialsCover::kDomain, CredentialsCover::kPassword}) {
      parts.push_back(&cover_.Edit(field));
    }
    for (const QWidget* part : parts) {
      EXPECT_GE(part->height(), theme::TouchPixels(cover_)) << size.width();
      EXPECT_TRUE(cover_.rect().contains(part->geometry())) << size.width();
      for (const QWidget* other : parts) {
        EXPECT_TRUE(part == other || !part->geometry().intersects(other->geometry())) << size.width();
      }
    }
  }
}

struct CoverRow {
  const char* what;
  QSize size;
  int pixels;
  QRect user;
  QRect password;
  QRect cancel;
  QRect ok;
};

TEST_F(CredentialsCoverTest, TheKeysStandBelowTheFieldsAndThoseBesideTheirNames) {
  ASSERT_LE(theme::TouchPixels(cover_), 40);
  for (const CoverRow& row :
       {CoverRow{
            "usual", {800, 600}, 16, {256, 96, 432, 40}, {256, 196, 432, 40}, {112, 286, 283, 40}, {405, 286, 283, 40}},
        CoverRow{"big letters",
                 {801, 600},
                 20,
                 {220, 120, 540, 50},
                 {220, 240, 540, 50},
                 {40, 350, 355, 50},
                 {405, 350, 355, 50}},
        CoverRow{"narrow and flat",
                 {401, 300},
                 16,
                 {154, 96, 237, 40},
                 {154, 196, 237, 40},
                 {10, 250, 185, 40},
                 {205, 250, 186, 40}},
        CoverRow{"too flat",
                 {801, 200},
                 16,
                 {256, 96, 432, 40},
                 {256, 196, 432, 40},
                 {112, 246, 283, 40},
                 {405, 246, 283, 40}}}) {
    CredentialsCover cover(&window_);
    cover.resize(row.size);
    cover.SetFontPixels(row.pixels);
    cover.Ask(7, "OFFICE", true);
    EXPECT_EQ(cover.Edit(CredentialsCover::kUser).geometry(), row.user) << row.what;
    EXPECT_EQ(cover.Edit(CredentialsCover::kPassword).geometry(), row.password) << row.what;
    EXPECT_EQ(cover.Keys()[1]->geometry(), row.cancel) << row.what;
    EXPECT_EQ(cover.Keys()[0]->geometry(), row.ok) << row.what;
    EXPECT_EQ(cover.Edit(CredentialsCover::kUser).font().pixelSize(), row.pixels * 9 / 8);
    for (PanelKey* key : {cover.Keys()[0], cover.Keys()[1]}) {
      EXPECT_THAT(pnl::test::StrokesOf(*key),
                  testing::Contains(testing::HasSubstr(" " + std::to_string(row.pixels) + " px")));
    }
  }
}

TEST_F(CredentialsCoverTest, OtherLettersHaveTheirRoomAtOnce) {
  cover_.Ask(7, "OFFICE", false);
  cover_.SetFontPixels(20);
  EXPECT_EQ(cover_.Edit(CredentialsCover::kUser).geometry(), QRect(220, 120, 540, 50));
}

TEST_F(CredentialsCoverTest, TheServerStandsAboveTheProblemAndEachNameBesideItsField) {
  cover_.SetFontPixels(16);
  cover_.Ask(7, "OFFICE", true);
  const auto expected = [this](const QString& problem) {
    return Pictured([&](Picture& picture) {
      picture.Fill({0, 0, 800, 600}, theme::kBackground)
          .Field({0, 0, 800, 600}, theme::kBackground, theme::kAccent, 8)
          .Paragraph({112, 10, 576, 40}, Qt::AlignLeft | Qt::AlignVCenter, cover_.Title(), theme::Font(18, true),
                     QColor(theme::kText))
          .Paragraph({112, 50, 576, 36}, Qt::AlignLeft | Qt::AlignVCenter, problem, theme::Font(16),
                     QColor(theme::kAmber));
      int top = 96;
      for (const Word word : {Word::kUserName, Word::kUserDomain, Word::kPassword}) {
        picture.Left({112, top, 134, 40}, Say(word), theme::Font(16), theme::kMuted);
        top += 50;
      }
    });
  };
  EXPECT_EQ(pnl::test::StrokesOf(cover_), expected(Say(Word::kCredentialsWrong)));
  cover_.Leave();
  cover_.Ask(8, "OFFICE", false);
  EXPECT_EQ(pnl::test::StrokesOf(cover_), expected(""));
}

TEST_F(CredentialsCoverTest, TheServersNameHasAllTheWidthOfTheFields) {
  cover_.SetFontPixels(16);
  cover_.Ask(7, "OFFICE", false);
  const qreal width = QFontMetricsF(theme::Font(18, true)).horizontalAdvance(cover_.Title());
  const int box = static_cast<int>(std::ceil(width)) + 1;
  ASSERT_LT(box, 16 * 36);
  cover_.resize(box + 20, 600);
  QCoreApplication::processEvents();
  EXPECT_TRUE(pnl::test::TextsOf(cover_).contains(cover_.Title()));
}

TEST_F(CredentialsCoverTest, ItLiesOverEverythingAndHearsEveryKey) {
  QWidget other(&window_);
  cover_.Ask(7, "OFFICE", false);
  EXPECT_EQ(window_.children().last(), &cover_);
  QKeyEvent letter(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier);
  letter.ignore();
  QCoreApplication::sendEvent(&cover_, &letter);
  EXPECT_TRUE(letter.isAccepted());
  EXPECT_TRUE(cover_.IsOpen());
  EXPECT_EQ(cover_.focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(cover_.Keys()[0]->text(), Say(Word::kConnect));
  EXPECT_EQ(cover_.Keys()[0]->Tint(), QColor(theme::kGreen));
  EXPECT_EQ(cover_.Keys()[1]->text(), Say(Word::kCancel));
  EXPECT_EQ(cover_.Keys()[1]->KeyName(), "Esc");
  EXPECT_FALSE(cover_.Keys()[1]->Tint().isValid());
  for (const Field field : {CredentialsCover::kUser, CredentialsCover::kDomain, CredentialsCover::kPassword}) {
    EXPECT_EQ(cover_.Edit(field).maxLength(), 127);
    EXPECT_FALSE(cover_.Edit(field).accessibleName().isEmpty());
  }
  EXPECT_EQ(cover_.Edit(CredentialsCover::kDomain).echoMode(), QLineEdit::Normal);
}

TEST_F(CredentialsCoverTest, TheSecondQuestionOfAServerShowsItsProblemAtOnce) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Ask(8, "OFFICE", true);
  cover_.Edit(CredentialsCover::kUser).setText("ana");
  RepaintCount count(cover_);
  EXPECT_TRUE(count.After([this] { cover_.Accept(); }));
  EXPECT_EQ(cover_.accessibleDescription(), Say(Word::kCredentialsWrong));
  EXPECT_EQ(TextOf(CredentialsCover::kUser), "ana");
}

// The second question came up with the first one's name in its field.
TEST_F(CredentialsCoverTest, AQuestionThatWaitedForAnotherServerGetsNoNameOfBefore) {
  cover_.Ask(7, "OFFICE", false);
  cover_.Ask(8, "CAM", false);
  cover_.Edit(CredentialsCover::kUser).setText("ana");
  cover_.Edit(CredentialsCover::kPassword).setText("secret");
  cover_.Accept();
  EXPECT_EQ(TextOf(CredentialsCover::kUser), "");
  EXPECT_TRUE(cover_.Edit(CredentialsCover::kUser).hasFocus());
  EXPECT_EQ(cover_.accessibleName(), cover_.Title());
  EXPECT_THAT(answers_, ElementsAre("7 ana  secret"));
}

TEST_F(CredentialsCoverTest, WithoutAQuestionThereIsNoAnswer) {
  cover_.Leave();
  cover_.Accept();
  EXPECT_THAT(answers_, IsEmpty()) << "nothing was asked";
  EXPECT_TRUE(cover_.Title().isEmpty());
  EXPECT_TRUE(cover_.Problem().isEmpty());
}

TEST_F(CredentialsCoverTest, ItSpeaksTheOperatorsLanguage) {
  UseWords("es");
  CredentialsCover cover(&window_);
  cover.Ask(7, "OFICINA", true);
  EXPECT_EQ(cover.Title().toStdString(), "Nombre y contraseña para el servidor OFICINA");
  EXPECT_EQ(cover.Edit(CredentialsCover::kPassword).accessibleName().toStdString(), "Contraseña");
}

}  // namespace
}  // namespace panel
