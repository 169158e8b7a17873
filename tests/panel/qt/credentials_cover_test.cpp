// SPDX-License-Identifier: MIT
// The cover that asks for name and password: what it asks, what it answers, and what stays of it.
#include "ui/credentials_cover.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pnltools/pnltools.h>

#include <QApplication>
#include <QKeyEvent>

#include "common/words.h"
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

TEST_F(CredentialsCoverTest, ItSpeaksTheOperatorsLanguage) {
  UseWords("es");
  CredentialsCover cover(&window_);
  cover.Ask(7, "OFICINA", true);
  EXPECT_EQ(cover.Title().toStdString(), "Nombre y contraseña para el servidor OFICINA");
  EXPECT_EQ(cover.Edit(CredentialsCover::kPassword).accessibleName().toStdString(), "Contraseña");
}

}  // namespace
}  // namespace panel
