// SPDX-License-Identifier: MIT
// How the covers and the editor look: where their parts are, what is written where, and what their keys do.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QScroller>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>
#include <QTextBlock>

#include "common/words.h"
#include "host/error_desk.h"
#include "panel/qt/files_fixture.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "support/widget_probe.h"
#include "ui/editor_bars.h"
#include "ui/error_list.h"
#include "ui/panel_key.h"
#include "ui/password_box.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

using pnl::test::StrokesOf;
using pnl::test::TextsOf;
using theme::Font;

/// Whether the widget took the key.
bool Press(QWidget& widget, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &event);
  return event.isAccepted();
}

/// The same for a key that somebody before it has refused.
bool PressIgnored(QWidget& widget, int key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  event.ignore();
  QCoreApplication::sendEvent(&widget, &event);
  return event.isAccepted();
}

class CoverPictureTest : public FilesTest {
 protected:
  CoverPictureTest() {
    UseWords("en");
    window_.resize(800, 400);
  }
  void Show(QWidget& cover) {
    window_.show();
    window_.activateWindow();
    cover.setGeometry(window_.rect());
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    ASSERT_TRUE(window_.isActiveWindow());
  }
  QWidget window_;
};

struct QuestionRow {
  const char* what;
  QSize size;
  int pixels;
  std::vector<QRect> keys;
  QRect text;
};

TEST_F(CoverPictureTest, TheAnswersStandSideBySideBelowTheMiddle) {
  for (const QuestionRow& row :
       {QuestionRow{"two", {800, 400}, 16, {{80, 216, 315, 64}, {405, 216, 315, 64}}, {80, 12, 640, 192}},
        QuestionRow{"three",
                    {801, 401},
                    16,
                    {{80, 216, 206, 64}, {296, 216, 207, 64}, {513, 216, 207, 64}},
                    {80, 12, 640, 192}},
        QuestionRow{"narrow", {400, 120}, 16, {{12, 44, 183, 64}, {205, 44, 183, 64}}, {12, 12, 376, 52}},
        QuestionRow{"big letters", {800, 400}, 20, {{12, 220, 383, 80}, {405, 220, 383, 80}}, {12, 12, 776, 196}}}) {
    Question question(&window_);
    question.resize(row.size);
    question.SetFontPixels(row.pixels);
    question.Ask("Really?", QStringList(static_cast<int>(row.keys.size()), "Answer"), [](int) {});
    for (std::size_t i = 0; i < row.keys.size(); ++i) {
      EXPECT_EQ(question.Key(static_cast<int>(i))->geometry(), row.keys[i]) << row.what;
      EXPECT_EQ(question.Key(static_cast<int>(i))->accessibleName(), "Answer");
      EXPECT_THAT(StrokesOf(*question.Key(static_cast<int>(i))),
                  ::testing::Contains(::testing::HasSubstr(" " + std::to_string(row.pixels) + " px")));
    }
    EXPECT_EQ(StrokesOf(question), Pictured([&row](Picture& picture) {
                const QRect all(QPoint(0, 0), row.size);
                picture.Fill(all, theme::kBackground)
                    .Field(all, theme::kBackground, theme::kAmber, 8)
                    .Paragraph(row.text, Qt::AlignCenter, "Really?", Font(row.pixels * 5 / 4, true), theme::kText);
              }))
        << row.what;
    question.Answer(0);
  }
}

TEST_F(CoverPictureTest, ATouchOnAQuestionBesideItsKeysGivesItTheKeyboard) {
  QLineEdit behind(&window_);
  Question question(&window_);
  Show(question);
  question.Ask("Really?", {"Yes", "No"}, [](int) {});
  behind.setFocus();
  pnl::test::PressMouse(&question, QPoint(5, 5));
  EXPECT_TRUE(question.hasFocus());
}

TEST_F(CoverPictureTest, AnOpenQuestionIsLaidOutAnew) {
  Question question(&window_);
  Show(question);
  question.Ask("Really?", {"Yes", "No"}, [](int) {});
  EXPECT_EQ(question.accessibleName(), "Really?");
  question.resize(400, 120);
  QCoreApplication::processEvents();
  EXPECT_EQ(question.Key(1)->geometry(), QRect(205, 44, 183, 64));
  question.SetFontPixels(20);
  EXPECT_EQ(question.Key(1)->height(), 80);
  EXPECT_THAT(StrokesOf(*question.Key(1)), ::testing::Contains(::testing::HasSubstr(" 20 px")));
}

TEST_F(CoverPictureTest, TheCarefulAnswerIsInFrontAndTheArrowsMoveOn) {
  Question question(&window_);
  QWidget other(&window_);
  Show(question);
  EXPECT_FALSE(question.isVisible());
  int answer = -1;
  question.Ask("Really?", {"Yes", "Perhaps", "No"}, [&answer](int index) { answer = index; });
  EXPECT_TRUE(question.isVisible());
  EXPECT_EQ(window_.children().last(), &question) << "over everything";
  EXPECT_TRUE(question.Key(2)->hasFocus());
  const auto expectFocus = [&question](int key, int index) {
    EXPECT_TRUE(Press(question, key));
    EXPECT_TRUE(question.Key(index)->hasFocus()) << index;
  };
  expectFocus(Qt::Key_Right, 0);
  expectFocus(Qt::Key_Right, 1);
  expectFocus(Qt::Key_Left, 0);
  expectFocus(Qt::Key_Left, 2);
  expectFocus(Qt::Key_A, 2);
  EXPECT_TRUE(PressIgnored(question, Qt::Key_A)) << "nothing behind it hears a key";
  EXPECT_TRUE(question.IsOpen());
  question.FocusCareful();
  question.Answer(-1);
  EXPECT_EQ(answer, -1) << "no answer";
  question.Key(1)->click();
  EXPECT_EQ(answer, 1);
  EXPECT_FALSE(question.isVisible());
  EXPECT_FALSE(question.IsOpen());
}

TEST_F(CoverPictureTest, ThePasswordBoxHasItsLineAboveItsKeypad) {
  PasswordBox box(&window_);
  Show(box);
  const auto expectPlaces = [&box](const QRect& line, const QRect& seven, const QRect& nine, const QRect& close,
                                   const QRect& ok, const QRect& back) {
    EXPECT_EQ(box.Edit().geometry(), line);
    EXPECT_EQ(box.Keys()[7]->geometry(), seven);
    EXPECT_EQ(box.Keys()[9]->geometry(), nine);
    EXPECT_EQ(box.Keys()[12]->geometry(), close);
    EXPECT_EQ(box.Keys()[11]->geometry(), ok);
    EXPECT_EQ(box.Keys()[10]->geometry(), back);
  };
  box.SetFontPixels(16);
  expectPlaces({224, 80, 292, 52}, {224, 140, 112, 52}, {464, 140, 112, 52}, {224, 320, 112, 52}, {464, 320, 112, 52},
               {524, 80, 52, 52});
  EXPECT_EQ(box.Edit().font().pixelSize(), 24);
  EXPECT_EQ(box.Edit().echoMode(), QLineEdit::Password);
  for (PanelKey* key : box.Keys()) {
    EXPECT_EQ(key->Fill() == QColor(theme::kGreen), key == box.Keys()[11]) << "only OK is filled";
  }
  for (PanelKey* key : box.Keys()) {
    EXPECT_FALSE(key->accessibleName().isEmpty());
    EXPECT_GE(std::min(key->width(), key->height()), theme::TouchPixels(box));
  }
  box.SetFontPixels(20);
  EXPECT_EQ(box.Edit().geometry().topLeft(), QPoint(180, 100)) << "bigger letters have more room at once";
}

TEST_F(CoverPictureTest, ThePasswordBoxFitsTheRoomThatItHas) {
  struct Row {
    QSize size;
    int pixels;
    QRect line;
    QRect four;
    QRect zero;
  };
  const int touch = theme::TouchPixels(window_);
  for (const Row& row : {Row{{801, 1000}, 16, {224, 80, 264, 80}, {224, 256, 112, 80}, {344, 432, 112, 80}},
                         Row{{300, 400}, 16, {8, 80, 224, 52}, {8, 200, 89, 52}, {105, 320, 89, 52}},
                         Row{{800, 200},
                             16,
                             {224, 80, 352 - touch - 8, touch},
                             {224, 80 + 2 * (touch + 8), 112, touch},
                             {344, 80 + 4 * (touch + 8), 112, touch}}}) {
    PasswordBox box(&window_);
    box.resize(row.size);
    box.SetFontPixels(row.pixels);
    EXPECT_EQ(box.Edit().geometry(), row.line) << row.size.width();
    EXPECT_EQ(box.Keys()[4]->geometry(), row.four) << row.size.width();
    EXPECT_EQ(box.Keys()[0]->geometry(), row.zero) << row.size.width();
  }
}

TEST_F(CoverPictureTest, ThePasswordBoxHasItsHeadAboveTheLine) {
  PasswordBox box(&window_);
  box.resize(800, 400);
  box.SetFontPixels(16);
  const auto expected = [](Word word, QRgb color) {
    return Pictured([&](Picture& picture) {
      picture.Fill({0, 0, 800, 400}, theme::kBackground)
          .Field({0, 0, 800, 400}, theme::kBackground, theme::kAccent, 8)
          .Text({16, 8, 768, 32}, Qt::AlignHCenter | Qt::AlignBottom, Say(word), Font(20, true), QColor(color))
          .Text({16, 40, 768, 32}, Qt::AlignHCenter | Qt::AlignVCenter, Say(Word::kDemoPasswordIs, kDemoPassword),
                Font(16), QColor(theme::kMuted));
    });
  };
  EXPECT_EQ(StrokesOf(box), expected(Word::kPassword, theme::kText));
  box.Enter();
  EXPECT_EQ(StrokesOf(box), expected(Word::kWrongPassword, theme::kAmber));
  EXPECT_EQ(box.Edit().maxLength(), 20);
  EXPECT_EQ(box.Edit().contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_EQ(box.Edit().accessibleName(), Say(Word::kPassword));
  EXPECT_EQ(box.Keys()[10]->text(), "");
  EXPECT_EQ(box.Keys()[10]->Arrow(), Qt::LeftArrow);
  EXPECT_EQ(box.Keys()[11]->Tint(), QColor(theme::kGreen));
  EXPECT_EQ(box.Keys()[11]->Ink(), theme::InkOn(QColor(theme::kGreen)));
  for (PanelKey* key : box.Keys()) {
    EXPECT_FALSE(key->text().isEmpty() && key->Arrow() == Qt::NoArrow);
  }
  EXPECT_THAT(StrokesOf(*box.Keys()[5]), ::testing::Contains(::testing::HasSubstr(" 20 px")));
}

TEST_F(CoverPictureTest, TabGoesThroughThePasswordBoxAndNoFurther) {
  PasswordBox box(&window_);
  Show(box);
  box.show();
  box.Edit().setFocus();
  std::vector<QWidget*> order{&box.Edit(), box.Keys()[10]};
  for (const std::size_t key : {7u, 8u, 9u, 4u, 5u, 6u, 1u, 2u, 3u, 12u, 0u, 11u}) order.push_back(box.Keys()[key]);
  for (std::size_t i = 1; i <= order.size(); ++i) {
    Press(*QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), order[i % order.size()]) << i;
  }
}

TEST_F(CoverPictureTest, ThePasswordBoxSaysThatAPasswordWasWrongUntilAnotherIsTyped) {
  PasswordBox box(&window_);
  Show(box);
  box.show();
  const auto texts = [&box] { return TextsOf(box); };
  EXPECT_TRUE(texts().contains(Say(Word::kPassword)));
  EXPECT_TRUE(texts().contains(Say(Word::kDemoPasswordIs, kDemoPassword)));
  box.Edit().setText("2222");
  RepaintCount count(box);
  EXPECT_TRUE(count.After([&] { box.Enter(); }));
  EXPECT_TRUE(texts().contains(Say(Word::kWrongPassword)));
  EXPECT_EQ(box.Edit().text(), "");
  EXPECT_TRUE(count.After([&] { emit box.Edit().textEdited("1"); }));
  EXPECT_FALSE(texts().contains(Say(Word::kWrongPassword)));
}

/// Opens the box, does act and returns the answer of the box.
bool AnswerTo(PasswordBox& box, const std::function<void()>& act) {
  QMetaObject::invokeMethod(&box, act, Qt::QueuedConnection);
  return box.Ask();
}

TEST_F(CoverPictureTest, ThePasswordBoxAnswersByTouchByKeyboardAndWhenItIsLeft) {
  PasswordBox box(&window_);
  Show(box);
  EXPECT_FALSE(box.isVisibleTo(&window_));
  EXPECT_TRUE(AnswerTo(box, [&box] {
    EXPECT_TRUE(box.isVisible() && box.Edit().hasFocus());
    EXPECT_FALSE(box.Ask()) << "it is open already";
    for (int i = 0; i < 4; ++i) box.Keys()[1]->click();
    box.Keys()[2]->click();
    box.Keys()[10]->click();
    EXPECT_EQ(box.Edit().text(), "1111");
    for (const int key : {1, 10}) {
      box.Keys()[12]->setFocus();
      box.Keys()[static_cast<std::size_t>(key)]->click();
      EXPECT_TRUE(box.Edit().hasFocus()) << "a keyboard goes on where the keypad was pressed";
    }
    EXPECT_EQ(box.Edit().text(), "1111");
    box.Keys()[11]->click();
  }));
  EXPECT_FALSE(box.isVisible());
  EXPECT_FALSE(box.IsOpen());
  EXPECT_EQ(box.Edit().text(), "") << "nothing of it is kept";
  EXPECT_TRUE(AnswerTo(box, [&box] {
    EXPECT_FALSE(box.WasWrong());
    box.Edit().setText("9999");
    Press(box.Edit(), Qt::Key_Return);
    EXPECT_TRUE(box.WasWrong());
    box.Edit().setText(kDemoPassword);
    Press(box.Edit(), Qt::Key_Return);
  }));
  EXPECT_FALSE(AnswerTo(box, [&box] { box.Keys()[12]->click(); }));
  EXPECT_FALSE(AnswerTo(box, [&box] { EXPECT_TRUE(Press(box, Qt::Key_Escape)); }));
  EXPECT_FALSE(AnswerTo(box, [&box] {
    EXPECT_TRUE(PressIgnored(box, Qt::Key_F9)) << "no key reaches what is under it";
    box.Leave();
  }));
}

TEST_F(CoverPictureTest, APasswordBoxThatGoesWhileItAsksHasNotGotThePassword) {
  auto* box = new PasswordBox(&window_);
  Show(*box);
  EXPECT_FALSE(AnswerTo(*box, [box] { delete box; }));
}

TEST_F(CoverPictureTest, ARowOfTheErrorListHasTimeNameTextAndWhatBecameOfIt) {
  QStandardItemModel model(1, 1);
  const QModelIndex index = model.index(0, 0);
  const QColor red(0xA0, 0, 0);
  model.setData(index, "Too fast", Qt::DisplayRole);
  model.setData(index, "12:34:56", ErrorListModel::kTimeRole);
  model.setData(index, "error 12", ErrorListModel::kNameRole);
  model.setData(index, "channel 2", ErrorListModel::kDetailsRole);
  model.setData(index, red, ErrorListModel::kColorRole);
  ErrorRowDelegate delegate;
  delegate.SetSizes(20, 60);
  EXPECT_EQ(delegate.sizeHint({}, index), QSize(100, 60));
  const int time = QFontMetrics(Font(20)).horizontalAdvance("12:34:56") + 10;
  const int name = QFontMetrics(Font(20, true)).horizontalAdvance("error 12") + 20;
  for (const bool chosen : {false, true}) {
    QStyleOptionViewItem option;
    option.rect = QRect(0, 100, 700, 60);
    option.state = chosen ? QStyle::State_Selected | QStyle::State_Enabled : QStyle::State_Enabled;
    const auto drawn = pnl::test::Drawn([&](QPainter& painter) { delegate.paint(&painter, option, index); });
    const QColor fill(chosen ? theme::kPressed : theme::kRaised);
    EXPECT_EQ(drawn, Pictured([&](Picture& picture) {
                picture.Field({0, 101, 700, 58}, fill, fill, 4)
                    .Left({10, 103, 680, 29}, "12:34:56", Font(20), theme::kText)
                    .Field({10 + time, 104, name, 27}, red, red, 4)
                    .Middle({10 + time, 104, name, 27}, "error 12", Font(20, true), theme::InkOn(red))
                    .Left({20 + time + name, 103, 670 - time - name, 29}, "Too fast", Font(20, true), theme::kText)
                    .Left({10, 132, 680, 25}, "channel 2", Font(18), chosen ? theme::kText : theme::kMuted);
              }))
        << chosen;
  }
}

TEST_F(CoverPictureTest, ALongErrorGetsSmallerLettersBeforeItIsCut) {
  QStandardItemModel model(1, 1);
  const QModelIndex index = model.index(0, 0);
  model.setData(index, QString(200, 'W'), Qt::DisplayRole);
  model.setData(index, QString(200, 'M'), ErrorListModel::kDetailsRole);
  for (const auto& [pixels, least] : {std::pair(20, 12), std::pair(13, 11), std::pair(10, 9)}) {
    ErrorRowDelegate delegate;
    delegate.SetSizes(pixels, 60);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 700, 60);
    const auto drawn = pnl::test::Drawn([&](QPainter& painter) { delegate.paint(&painter, option, index); });
    const std::string size = " " + std::to_string(least) + " px";
    EXPECT_THAT(drawn, ::testing::Contains(::testing::AllOf(::testing::HasSubstr("WWW"), ::testing::HasSubstr(size))));
    EXPECT_THAT(drawn, ::testing::Contains(::testing::AllOf(::testing::HasSubstr("MMM"), ::testing::HasSubstr(size))));
  }
}

class ErrorListTest : public CoverPictureTest {
 protected:
  ErrorListTest() : desk_(session_, nullptr), cover_(desk_, &window_) { Show(cover_); }
  HostSession session_;
  ErrorDesk desk_;
  ErrorListCover cover_;
};

TEST_F(ErrorListTest, TheListStandsAboveTheDetailsAndTheKey) {
  EXPECT_FALSE(cover_.isVisible());
  cover_.Open();
  EXPECT_EQ(StrokesOf(cover_), Pictured([](Picture& picture) {
              picture.Fill({0, 0, 800, 400}, theme::kBackground)
                  .Field({0, 0, 800, 400}, theme::kBackground, theme::kAccent, 8)
                  .Left({12, 0, 776, 32}, Say(Word::kErrorListTitle), Font(18, true), theme::kText);
            }));
  EXPECT_EQ(cover_.List().geometry(), QRect(10, 37, 780, 247));
  EXPECT_EQ(cover_.LineKey()->geometry(), QRect(529, 289, 128, 48));
  EXPECT_EQ(cover_.HelpKey()->geometry(), QRect(662, 289, 128, 48));
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(529, 342, 261, 48));
  auto* details = cover_.findChild<QPlainTextEdit*>();
  EXPECT_EQ(details->geometry(), QRect(10, 289, 509, 101));
  cover_.SetFontPixels(20);
  EXPECT_EQ(cover_.List().geometry(), QRect(10, 45, 780, 215));
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(465, 330, 325, 60));
  EXPECT_EQ(details->geometry(), QRect(10, 265, 445, 125));
  EXPECT_EQ(details->font(), Font(20));
  EXPECT_EQ(cover_.List().itemDelegate()->sizeHint({}, {}), QSize(100, 70));
  EXPECT_THAT(StrokesOf(*cover_.BackKey()), ::testing::Contains(::testing::HasSubstr(" 20 px")));
  cover_.resize(500, 100);
  QCoreApplication::processEvents();
  EXPECT_EQ(cover_.List().height(), 0) << "no less than nothing";
  cover_.resize(800, 1000);
  QCoreApplication::processEvents();
  EXPECT_EQ(details->geometry(), QRect(10, 740, 445, 250)) << "a high panel has room for a quarter of details";
}

TEST_F(ErrorListTest, AnEmptyListSaysSoAndItsKeysLeadAway) {
  QWidget other(&window_);
  cover_.Open();
  EXPECT_TRUE(cover_.IsOpen());
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_TRUE(cover_.List().hasFocus());
  EXPECT_EQ(window_.children().last(), &cover_) << "over everything";
  EXPECT_EQ(cover_.Details(), Say(Word::kErrorListEmpty));
  EXPECT_EQ(cover_.accessibleName(), Say(Word::kErrorListTitle));
  EXPECT_EQ(cover_.List().accessibleName(), Say(Word::kErrorListTitle));
  for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    cover_.Open();
    EXPECT_TRUE(Press(cover_.List(), key));
    EXPECT_FALSE(cover_.IsOpen()) << key;
    EXPECT_FALSE(cover_.isVisible());
  }
  cover_.Open();
  Press(cover_.List(), Qt::Key_Down);
  EXPECT_TRUE(Press(cover_, Qt::Key_A)) << "nothing behind it hears a key";
  EXPECT_TRUE(PressIgnored(cover_, Qt::Key_A)) << "whatever became of it before";
  EXPECT_TRUE(cover_.IsOpen());
  Press(cover_, Qt::Key_Escape);
  EXPECT_FALSE(cover_.IsOpen());
  cover_.Open();
  cover_.BackKey()->click();
  EXPECT_FALSE(cover_.IsOpen());
}

TEST_F(ErrorListTest, ItIsMadeForAFingerAndForTab) {
  cover_.Open();
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
  QCoreApplication::sendEvent(&cover_.List(), &tab);
  EXPECT_TRUE(cover_.BackKey()->hasFocus()) << "the other keys are dim without an error";
  EXPECT_EQ(cover_.BackKey()->text(), "Back");
  EXPECT_EQ(cover_.BackKey()->accessibleName(), "Back");
  EXPECT_EQ(cover_.BackKey()->KeyName(), "Esc");
  EXPECT_TRUE(cover_.List().uniformItemSizes());
  EXPECT_EQ(cover_.List().horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  EXPECT_EQ(cover_.List().verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(cover_.List().frameShape(), QFrame::NoFrame);
  const auto* details = cover_.findChild<QPlainTextEdit*>();
  for (QWidget* pulled : {cover_.List().viewport(), details->viewport()}) {
    EXPECT_TRUE(QScroller::hasScroller(pulled)) << "a finger pulls it";
  }
  EXPECT_TRUE(details->isReadOnly());
  EXPECT_EQ(details->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(details->frameShape(), QFrame::NoFrame);
}

class EditorPictureTest : public ::testing::Test {
 protected:
  EditorPictureTest() {
    UseWords("en");
    editor_.resize(400, 300);
  }
  /// Expects the head with the name, the text at the right and, with dot, the dot for changes.
  void ExpectHead(const QString& name, const QString& right, bool dot) {
    const int room = QFontMetrics(Font(14)).horizontalAdvance(right) + 8;
    const int place = 380 - room - 16;
    const int width = std::min(QFontMetrics(Font(16, true)).horizontalAdvance(name), place);
    EXPECT_EQ(StrokesOf(editor_), Pictured([&](Picture& picture) {
                picture.Field({0, 0, 400, 300}, theme::kSurface, theme::kBorder, 4)
                    .Text({10, 0, place, 32}, Qt::AlignLeft | Qt::AlignVCenter, name, Font(16, true),
                          QColor(theme::kText), Qt::ElideMiddle)
                    .Right({10, 0, 380, 32}, right, Font(14), theme::kMuted);
                if (dot) picture.Field({18 + width, 12, 8, 8}, theme::kText, theme::kText, 4);
              }));
  }
  [[nodiscard]] QWidget* Numbers() {
    for (QWidget* child : editor_.Edit().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (child != editor_.Edit().viewport() && child->isVisibleTo(&editor_) && child->x() == 0 &&
          child->width() == editor_.Edit().NumbersWidth()) {
        return child;
      }
    }
    return nullptr;
  }
  ProgramEditor editor_{nullptr};
};

TEST_F(EditorPictureTest, TheHeadNamesTheProgramAndTheCaretsLine) {
  ExpectHead(Say(Word::kNewProgram), Say(Word::kLine, "1"), false);
  editor_.SetProgram("G0\nG1\n", "C:\\A.NC");
  ExpectHead("C:\\A.NC", Say(Word::kLine, "1"), false);
  editor_.Edit().moveCursor(QTextCursor::End);
  editor_.Insert("X");
  ExpectHead("C:\\A.NC", Say(Word::kLine, "3"), true);
  editor_.BeginOpening("B.NC");
  ExpectHead("Opening: B.NC", "0 %", false);
  editor_.CancelOpening();
  editor_.SetSaved();
  ExpectHead("C:\\A.NC", Say(Word::kLine, "3"), false);
  editor_.Insert("X");
  const QString wide = "C:\\" + QString("FOLDER\\").repeated(20) + "A.NC";
  editor_.SetName(wide);
  ExpectHead(wide, Say(Word::kLine, "3"), true);
}

TEST_F(EditorPictureTest, TheHeadTellsHowMuchOfABigProgramIsThere) {
  editor_.Insert("changed");
  const QString text = QString("G1 X1\n").repeated(150'000);
  editor_.Fill(text, "BIG");
  ASSERT_TRUE(editor_.Filling());
  QString right;
  for (const QString& shown : TextsOf(editor_)) {
    if (shown.endsWith(" %")) right = shown;
  }
  ASSERT_FALSE(right.isEmpty());
  const int percent = right.chopped(2).toInt();
  EXPECT_GE(percent, 0);
  EXPECT_LT(percent, 100);
  const qsizetype there = editor_.Edit().document()->characterCount();
  EXPECT_NEAR(static_cast<double>(there) * 100 / static_cast<double>(text.size()), percent, 1);
  ExpectHead(Say(Word::kOpening, "BIG"), right, false);
  editor_.SetProgram("", "");
}

TEST_F(EditorPictureTest, TheBarOfAnOpeningIsFilledAsFarAsItIsThere) {
  OpeningBar bar(nullptr);
  bar.SetFontPixels(16);
  bar.resize(400, bar.Height());
  bar.show();
  QCoreApplication::processEvents();
  const int row = bar.Height() - 8;
  const int beside = 400 - (bar.CancelKey()->x() - 8);
  // In the second one a hundredth is a single pixel.
  for (const auto& [wide, percent] :
       {std::pair(400 - beside, 0), std::pair(152, 1), std::pair(400 - beside, 50), std::pair(400 - beside, 100)}) {
    bar.resize(wide + beside, bar.Height());
    QCoreApplication::processEvents();
    bar.Show(percent);
    const int width = wide;
    const int part = percent;
    EXPECT_EQ(StrokesOf(bar), Pictured([&](Picture& picture) {
                picture.Fill({0, 0, width + beside, row + 8}, theme::kBackground)
                    .Field({4, 4, width, row}, theme::kRaised, theme::kBorder, 4);
                const int done = (width - 2) * part / 100;
                if (done > 0) picture.Field({5, 5, done, row - 2}, theme::kSteel, theme::kSteel, 3);
                picture.Middle({12, 4, width - 16, row}, QString("%1 %").arg(part), Font(16, true), theme::kText);
              }))
        << percent;
  }
}

TEST_F(EditorPictureTest, TheTextHasTheRoomBelowTheHead) {
  editor_.show();
  EXPECT_EQ(editor_.Edit().geometry(), QRect(1, 32, 398, 267));
  editor_.SetFontPixels(20);
  EXPECT_EQ(editor_.Edit().geometry(), QRect(1, 40, 398, 259));
  EXPECT_EQ(editor_.Edit().font(), theme::MonoFont(20));
  editor_.resize(100, 20);
  QCoreApplication::processEvents();
  EXPECT_EQ(editor_.Edit().size().expandedTo({98, 0}), editor_.Edit().size());
  EXPECT_EQ(editor_.focusProxy(), &editor_.Edit());
  EXPECT_EQ(editor_.Edit().accessibleName(), Say(Word::kProgram));
}

TEST_F(EditorPictureTest, EveryChangeOfTheHeadShowsAtOnce) {
  editor_.SetProgram("G0\nG1\n", "P");
  RepaintCount count(editor_);
  EXPECT_TRUE(count.After([this] { editor_.SetName("Q"); }));
  EXPECT_TRUE(count.After([this] { editor_.BeginOpening("busy"); }));
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  EXPECT_TRUE(count.After([this] { editor_.ShowReading(50, false); }));
  editor_.CancelOpening();
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_TRUE(count.After([this] { editor_.Edit().moveCursor(QTextCursor::End); }));
  EXPECT_TRUE(count.After([this] { editor_.Edit().document()->setModified(true); }));
}

TEST_F(EditorPictureTest, AProgramOnItsWayMayNotBeTypedInto) {
  editor_.Fill(QString("G1 X1\n").repeated(150'000), "BIG");
  ASSERT_TRUE(editor_.Filling());
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  editor_.SetProgram("G0", "P");
  EXPECT_FALSE(editor_.Filling());
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_EQ(editor_.Text(), "G0");
}

TEST_F(EditorPictureTest, TheStripOfNumbersLightsTheCaretsLine) {
  editor_.SetProgram("G0\nG1\nG2", "P");
  editor_.show();
  QCoreApplication::processEvents();
  editor_.Edit().moveCursor(QTextCursor::Down);
  QWidget* numbers = Numbers();
  ASSERT_NE(numbers, nullptr);
  const CodeEdit& edit = editor_.Edit();
  const int digit = edit.fontMetrics().horizontalAdvance('9');
  EXPECT_EQ(edit.NumbersWidth(), 14 + 3 * digit);
  EXPECT_EQ(numbers->geometry(), QRect(0, 0, 14 + 3 * digit, edit.contentsRect().height()));
  EXPECT_EQ(edit.viewport()->x(), numbers->width());
  const QTextCursor caret = edit.textCursor();
  QList<int> tops;
  for (QTextBlock block = caret.document()->begin(); block.isValid(); block = block.next()) {
    QTextCursor at(block);
    tops << edit.cursorRect(at).top();
  }
  EXPECT_EQ(StrokesOf(*numbers), Pictured([&](Picture& picture) {
              picture.Fill(numbers->rect(), theme::kBackground);
              for (int line = 0; line < 3; ++line) {
                picture.Right({0, tops[line], numbers->width() - 7, edit.fontMetrics().height()},
                              QString::number(line + 1), edit.font(), line == 1 ? theme::kAccent : theme::kMuted);
              }
            }));
}

TEST_F(EditorPictureTest, TheStripHasRoomForEveryDigit) {
  const int digit = editor_.Edit().fontMetrics().horizontalAdvance('9');
  for (const auto& [lines, digits] : {std::pair(1, 3), std::pair(999, 3), std::pair(1000, 4), std::pair(10000, 5)}) {
    editor_.SetProgram(QString("\n").repeated(lines - 1), "P");
    EXPECT_EQ(editor_.Edit().NumbersWidth(), 14 + digits * digit) << lines;
    EXPECT_EQ(editor_.Edit().viewport()->x(), 14 + digits * digit) << lines;
  }
  editor_.SetFontPixels(30);
  EXPECT_EQ(editor_.Edit().viewport()->x(), editor_.Edit().NumbersWidth());
}

TEST_F(EditorPictureTest, AScrolledStripShowsTheNumbersOfTheLinesThatAreSeen) {
  editor_.SetProgram(QString("G0\n").repeated(500), "P");
  editor_.show();
  QCoreApplication::processEvents();
  editor_.Edit().verticalScrollBar()->setValue(100);
  QCoreApplication::processEvents();
  const QStringList shown = TextsOf(*Numbers());
  EXPECT_EQ(shown.value(0), "101");
  const int lines = Numbers()->height() / editor_.Edit().fontMetrics().height();
  EXPECT_GE(shown.size(), lines);
  EXPECT_LE(shown.size(), lines + 2);
}

TEST_F(EditorPictureTest, TheStripFollowsTheText) {
  editor_.SetProgram(QString("G0\n").repeated(500), "P");
  editor_.show();
  RepaintCount count(*Numbers());
  EXPECT_TRUE(count.After([this] { editor_.Edit().moveCursor(QTextCursor::Down); }));
  EXPECT_TRUE(count.After([this] { editor_.Edit().verticalScrollBar()->setValue(100); }));
  editor_.resize(400, 200);
  QCoreApplication::processEvents();
  EXPECT_EQ(Numbers()->height(), editor_.Edit().contentsRect().height());
}

TEST_F(EditorPictureTest, WhatIsTypedWhereverItIsHasItsColourAndItsNumberAtOnce) {
  editor_.SetProgram("G0\nX1\n", "P");
  editor_.show();
  QCoreApplication::processEvents();
  const auto coloured = [this] {
    QStringList words;
    for (const auto& mark : editor_.Edit().extraSelections().mid(1)) words << mark.cursor.selectedText();
    return words;
  };
  ASSERT_EQ(coloured(), QStringList{"G0"});
  // Below the caret, which stays where it is.
  QTextCursor below(editor_.Edit().document());
  below.movePosition(QTextCursor::End);
  below.insertText("M30");
  EXPECT_EQ(coloured(), (QStringList{"G0", "M30"}));
  below.insertText(QString("\n").repeated(1000) + "G7");
  EXPECT_EQ(editor_.Edit().viewport()->x(), editor_.Edit().NumbersWidth()) << "room for a fourth digit";
  EXPECT_EQ(coloured(), (QStringList{"G0", "M30"})) << "only what is seen";
  editor_.Edit().verticalScrollBar()->setValue(editor_.Edit().verticalScrollBar()->maximum());
  EXPECT_EQ(coloured(), QStringList{"G7"}) << "also when it is scrolled";
}

TEST_F(EditorPictureTest, AMarkedPlaceOutOfSightComesToTheMiddleAndOneInSightStays) {
  editor_.SetProgram(QString("G0\n").repeated(500), "P");
  editor_.show();
  QCoreApplication::processEvents();
  CodeEdit& edit = editor_.Edit();
  const int line = edit.fontMetrics().height();
  // The last line may be cut off.
  const int seen = edit.viewport()->height() / line - 1;
  editor_.MarkInLine(seen - 1, 0, 2);
  EXPECT_EQ(edit.verticalScrollBar()->value(), 0);
  const auto expectInTheMiddle = [&] {
    EXPECT_NEAR(edit.cursorRect().center().y(), edit.viewport()->height() / 2, line);
    EXPECT_EQ(edit.textCursor().selectedText(), "G0");
  };
  editor_.MarkInLine(seen, 0, 2);
  EXPECT_GT(edit.verticalScrollBar()->value(), 0);
  expectInTheMiddle();
  editor_.MarkInLine(400, 0, 2);
  expectInTheMiddle();
  editor_.MarkInLine(100, 0, 2);
  expectInTheMiddle();
}

TEST_F(EditorPictureTest, ALowProgramHasNoBarBelowItsLines) {
  editor_.show();
  const CodeEdit& edit = editor_.Edit();
  const int around = editor_.height() - edit.height();
  const int least = 5 * theme::TouchPixels(edit);
  for (const auto& [height, policy] :
       {std::pair(least, Qt::ScrollBarAsNeeded), std::pair(least - 1, Qt::ScrollBarAlwaysOff),
        std::pair(least, Qt::ScrollBarAsNeeded), std::pair(20, Qt::ScrollBarAlwaysOff)}) {
    editor_.resize(400, height + around);
    QCoreApplication::processEvents();
    EXPECT_EQ(edit.horizontalScrollBarPolicy(), policy) << height;
  }
}

TEST_F(EditorPictureTest, TheCaretsLineIsLitAndTheWordsHaveTheirColours) {
  editor_.SetProgram("G0 X1\nM30 (end)", "P");
  editor_.show();
  QCoreApplication::processEvents();
  editor_.Edit().moveCursor(QTextCursor::End);
  const auto marks = editor_.Edit().extraSelections();
  ASSERT_EQ(marks.size(), 4);
  EXPECT_EQ(marks[0].format.background().color(), QColor(theme::kRaised));
  EXPECT_TRUE(marks[0].format.boolProperty(QTextFormat::FullWidthSelection));
  EXPECT_EQ(marks[0].cursor.blockNumber(), 1);
  EXPECT_FALSE(marks[0].cursor.hasSelection());
  EXPECT_EQ(marks[1].cursor.selectedText(), "G0");
  EXPECT_EQ(marks[1].format.foreground().color(), QColor(theme::kAccent));
  EXPECT_EQ(marks[2].cursor.selectedText(), "M30");
  EXPECT_EQ(marks[3].cursor.selectedText(), "(end)");
  EXPECT_EQ(marks[3].format.foreground().color(), QColor(theme::kMuted));
  editor_.Edit().selectAll();
  EXPECT_FALSE(editor_.Edit().extraSelections()[0].cursor.hasSelection());
}

TEST_F(EditorPictureTest, OfAVeryLongLineOnlyWhatIsSeenIsColoured) {
  editor_.SetProgram(QString(1997, 'X') + "G54 G0", "P");
  editor_.show();
  QCoreApplication::processEvents();
  const auto marks = editor_.Edit().extraSelections();
  ASSERT_EQ(marks.size(), 2);
  EXPECT_EQ(marks[1].cursor.selectedText(), "G54");
  editor_.SetProgram(QString(1998, 'X') + "G54 G0", "P");
  EXPECT_EQ(editor_.Edit().extraSelections().value(1).cursor.selectedText(), "G5");
}

TEST_F(EditorPictureTest, TheTextIsMadeForBlocks) {
  const CodeEdit& edit = editor_.Edit();
  EXPECT_EQ(edit.frameShape(), QFrame::NoFrame);
  EXPECT_EQ(edit.lineWrapMode(), QPlainTextEdit::NoWrap);
  EXPECT_TRUE(edit.tabChangesFocus());
  EXPECT_EQ(edit.cursorWidth(), 2);
}

}  // namespace
}  // namespace panel
