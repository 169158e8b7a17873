// SPDX-License-Identifier: MIT
// How the covers and the editor look: where their parts stand, what is written where, and which keys they hear.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>
#include <QTextBlock>

#include "common/words.h"
#include "host/error_desk.h"
#include "panel/qt/files_fixture.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "support/widget_probe.h"
#include "ui/error_help.h"
#include "ui/error_list.h"
#include "ui/file_chooser.h"
#include "ui/panel_key.h"
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

class CoverTest : public FilesTest {
 protected:
  CoverTest() {
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

TEST_F(CoverTest, TheAnswersStandSideBySideBelowTheMiddle) {
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

TEST_F(CoverTest, ATouchOnAQuestionBesideItsKeysGivesItTheKeyboard) {
  QLineEdit behind(&window_);
  Question question(&window_);
  Show(question);
  question.Ask("Really?", {"Yes", "No"}, [](int) {});
  behind.setFocus();
  pnl::test::PressMouse(&question, QPoint(5, 5));
  EXPECT_TRUE(question.hasFocus());
}

TEST_F(CoverTest, AnOpenQuestionIsLaidOutAnew) {
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

TEST_F(CoverTest, TheCarefulAnswerIsInFrontAndTheArrowsMoveOn) {
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
  EXPECT_TRUE(question.IsOpen());
  question.FocusCareful();
  question.Answer(-1);
  EXPECT_EQ(answer, -1) << "no answer";
  question.Key(1)->click();
  EXPECT_EQ(answer, 1);
  EXPECT_FALSE(question.isVisible());
  EXPECT_FALSE(question.IsOpen());
}

TEST_F(CoverTest, TabMovesAmongWhatIsSeenAndEnabled) {
  QWidget a(&window_);
  QWidget b(&window_);
  QWidget c(&window_);
  for (QWidget* widget : {&a, &b, &c}) widget->setFocusPolicy(Qt::StrongFocus);
  Show(a);
  const auto next = [&](bool forward) { return FocusAmong({&a, &b, &c}, forward); };
  a.clearFocus();
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(a.hasFocus()) << "from nowhere to the first";
  a.clearFocus();
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(c.hasFocus()) << "or the last";
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(a.hasFocus());
  b.setEnabled(false);
  EXPECT_TRUE(next(true));
  EXPECT_TRUE(c.hasFocus());
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(a.hasFocus());
  c.hide();
  EXPECT_TRUE(next(false));
  EXPECT_TRUE(a.hasFocus());
  a.setEnabled(false);
  EXPECT_FALSE(next(true));
}

TEST_F(CoverTest, TheChooserHasItsListAtTheLeftAndItsKeysAtTheRight) {
  FileChooser chooser(Resolver(), &window_);
  Show(chooser);
  chooser.show();
  const auto expectPlaces = [&chooser](const QRect& list, const QRect& name, const QRect& up, const QRect& ok,
                                       const QRect& cancel) {
    EXPECT_EQ(chooser.List().geometry(), list);
    EXPECT_EQ(chooser.NameEdit().geometry(), name);
    EXPECT_EQ(chooser.Keys()[0]->geometry(), up);
    EXPECT_EQ(chooser.Keys()[1]->geometry(), ok);
    EXPECT_EQ(chooser.Keys()[2]->geometry(), cancel);
    EXPECT_EQ(chooser.Confirm().geometry(), chooser.rect());
  };
  expectPlaces({10, 40, 450, 350}, {470, 64, 320, 48}, {470, 284, 320, 48}, {635, 342, 155, 48}, {470, 342, 155, 48});
  chooser.SetFontPixels(20);
  expectPlaces({10, 50, 450, 340}, {470, 80, 320, 60}, {470, 260, 320, 60}, {635, 330, 155, 60}, {470, 330, 155, 60});
  for (PanelKey* key : chooser.Keys()) {
    EXPECT_THAT(StrokesOf(*key), ::testing::Contains(::testing::HasSubstr(" 20 px"))) << key->text().toStdString();
  }
  chooser.resize(201, 400);
  QCoreApplication::processEvents();
  expectPlaces({10, 50, 51, 340}, {71, 80, 120, 60}, {71, 260, 120, 60}, {136, 330, 55, 60}, {71, 330, 55, 60});
  EXPECT_EQ(chooser.List().font(), Font(20));
  EXPECT_EQ(chooser.List().iconSize(), QSize(30, 30));
  EXPECT_EQ(chooser.NameEdit().font().pixelSize(), 22);
}

TEST_F(CoverTest, TheChooserSaysWhatIsAskedWhereAndWhatIsWrong) {
  folder_.Write("P/old.nc", "x");
  FileChooser chooser(Resolver(), &window_);
  Show(chooser);
  FileRequest request;
  request.folder = "C:\\P";
  request.flags = XPLR_MUSTEXIST;
  chooser.Ask(request, {}, {});
  chooser.NameEdit().setText("none");
  chooser.Accept();
  const QString problem = Say(Word::kFileMissing);
  ASSERT_EQ(chooser.Problem(), problem);
  const auto expected = [&](bool empty) {
    return Pictured([&, empty](Picture& picture) {
      picture.Fill({0, 0, 800, 400}, theme::kBackground)
          .Field({0, 0, 800, 400}, theme::kBackground, theme::kAccent, 8)
          .Left({12, 0, 388, 40}, Say(Word::kChooseFile), Font(18, true), theme::kText)
          .Text({400, 0, 388, 40}, Qt::AlignRight | Qt::AlignVCenter, empty ? "C:\\P\\sub" : "C:\\P",
                theme::MonoFont(16), QColor(theme::kAccent), Qt::ElideMiddle)
          .Text({470, 39, 320, 23}, Qt::AlignLeft | Qt::AlignBottom, Say(Word::kFileName), Font(14),
                QColor(theme::kMuted));
      if (!empty) {
        picture.Paragraph({470, 115, 320, 165}, Qt::AlignLeft | Qt::AlignTop, problem, Font(16), QColor(theme::kAmber));
      } else {
        picture.Middle({10, 40, 450, 350}, Say(Word::kEmptyFolder), Font(16), QColor(theme::kMuted));
      }
    });
  };
  EXPECT_EQ(StrokesOf(chooser), expected(false));
  RepaintCount count(chooser);
  EXPECT_TRUE(count.After([&] { emit chooser.NameEdit().textEdited("x"); }));
  EXPECT_EQ(chooser.Problem(), "") << "whoever types another name is not told of the old one";
  (void)folder_.Folder("P/sub");
  EXPECT_TRUE(count.After([&] { chooser.Enter("C:\\P\\sub"); }));
  EXPECT_EQ(StrokesOf(chooser), expected(true));
  EXPECT_EQ(chooser.List().accessibleName(), Say(Word::kEmptyFolder));
}

TEST_F(CoverTest, ALongFolderLeavesItsMiddleOut) {
  FileChooser chooser(Resolver(), &window_);
  Show(chooser);
  FileRequest request;
  chooser.Ask(request, {}, {});
  chooser.Enter("C:\\" + QString("FOLDER\\").repeated(40) + "END");
  EXPECT_EQ(chooser.Problem(), Say(Word::kFolderMissing));
  const QString shown = TextsOf(chooser).filter("FOLDER").value(0);
  EXPECT_TRUE(shown.startsWith("C:\\") && shown.endsWith("END")) << shown.toStdString();
}

TEST_F(CoverTest, TheChoosersPartsAreMadeForAFinger) {
  FileChooser chooser(Resolver(), &window_);
  EXPECT_FALSE(chooser.isVisibleTo(&window_));
  const auto keys = chooser.Keys();
  EXPECT_EQ(keys[0]->text(), Say(Word::kFolderUp));
  EXPECT_EQ(keys[0]->Arrow(), Qt::UpArrow);
  EXPECT_EQ(keys[1]->text(), Say(Word::kOk));
  EXPECT_EQ(keys[1]->Fill(), QColor(theme::kGreen));
  EXPECT_EQ(keys[2]->text(), Say(Word::kCancel));
  EXPECT_EQ(chooser.NameEdit().maxLength(), 255);
  EXPECT_EQ(chooser.NameEdit().accessibleName(), Say(Word::kFileName));
  EXPECT_EQ(chooser.List().horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  EXPECT_EQ(chooser.List().verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(chooser.List().textElideMode(), Qt::ElideMiddle);
  EXPECT_EQ(chooser.List().frameShape(), QFrame::NoFrame);
  EXPECT_TRUE(chooser.List().uniformItemSizes());
}

TEST_F(CoverTest, AFolderAndAFileHaveTheirPictures) {
  folder_.Write("P/old.nc", "x");
  (void)folder_.Folder("P/sub");
  FileChooser chooser(Resolver(), &window_);
  FileRequest request;
  request.folder = "C:\\P";
  chooser.Ask(request, {}, {});
  const auto pixel = [&chooser](int row, int x, int y) {
    return chooser.List().item(row)->icon().pixmap(32, 32).toImage().pixelColor(x, y);
  };
  const QColor amber(theme::kAmber);
  const QColor muted(theme::kMuted);
  for (const QPoint& at : {QPoint(3, 8), QPoint(15, 8), QPoint(2, 15), QPoint(29, 15), QPoint(16, 26), QPoint(16, 9)}) {
    EXPECT_EQ(pixel(0, at.x(), at.y()), amber) << at.x() << "," << at.y();
  }
  for (const QPoint& at : {QPoint(1, 15), QPoint(30, 15), QPoint(16, 27), QPoint(9, 5), QPoint(17, 8)}) {
    EXPECT_EQ(pixel(0, at.x(), at.y()).alpha(), 0) << at.x() << "," << at.y();
  }
  for (const QPoint& at : {QPoint(7, 3), QPoint(7, 28), QPoint(25, 28), QPoint(19, 3), QPoint(25, 10)}) {
    EXPECT_EQ(pixel(1, at.x(), at.y()), muted) << at.x() << "," << at.y();
  }
  for (const QPoint& at : {QPoint(6, 15), QPoint(26, 15), QPoint(15, 2), QPoint(15, 29), QPoint(24, 5)}) {
    EXPECT_EQ(pixel(1, at.x(), at.y()).alpha(), 0) << at.x() << "," << at.y();
  }
}

class HelpTest : public CoverTest {
 protected:
  HelpTest() : cover_(&window_) {
    Show(cover_);
    QObject::connect(&cover_, &ErrorHelpCover::Left, &cover_, [this] { ++left_; });
  }
  ErrorHelpCover cover_;
  int left_ = 0;
  const ErrorHelp help_{"ERROR 7", 0x0000A0, 0x00FFFF, QString("line\n").repeated(200)};
};

TEST_F(HelpTest, TheHeaderStandsAboveTheTextAndTheKeyBelow) {
  EXPECT_FALSE(cover_.isVisible());
  cover_.Show(help_);
  const QColor back = theme::FromColorRef(0x0000A0);
  const int line = QFontMetrics(Font(20, true)).boundingRect(QRect(0, 0, 760, 133), Qt::TextWordWrap, "X").height();
  const QRect header(10, 10, 780, line + 10);
  EXPECT_EQ(StrokesOf(cover_), Pictured([&](Picture& picture) {
              picture.Fill({0, 0, 800, 400}, theme::kBackground)
                  .Field({0, 0, 800, 400}, theme::kBackground, back.lighter(150), 8)
                  .Field(header, back, back)
                  .Paragraph(header.adjusted(10, 0, -10, 0), Qt::AlignLeft | Qt::AlignVCenter, "ERROR 7",
                             Font(20, true), QColor(255, 255, 0));
            }));
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(598, 342, 192, 48));
  EXPECT_EQ(cover_.Text().geometry(), QRect(10, line + 30, 780, 332 - line - 30));
  cover_.SetFontPixels(20);
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(550, 330, 240, 60));
  EXPECT_EQ(cover_.Text().font(), Font(22));
  EXPECT_THAT(StrokesOf(*cover_.BackKey()), ::testing::Contains(::testing::HasSubstr(" 20 px")));
  cover_.resize(700, 300);
  QCoreApplication::processEvents();
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(450, 230, 240, 60));
}

TEST_F(HelpTest, AVeryLongHeaderTakesAThirdOfTheCover) {
  cover_.Show(ErrorHelp{QString("many words ").repeated(300), 0, 0xFFFFFF, "text"});
  EXPECT_EQ(cover_.Text().y(), 10 + 133 + 10);
}

TEST_F(HelpTest, ItIsShownAndHiddenAsItIsTold) {
  QWidget other(&window_);
  cover_.Show(help_);
  EXPECT_TRUE(cover_.IsShown());
  EXPECT_TRUE(cover_.isVisible());
  EXPECT_TRUE(cover_.hasFocus());
  EXPECT_EQ(window_.children().last(), &cover_) << "over everything";
  EXPECT_EQ(cover_.accessibleName(), "ERROR 7");
  EXPECT_EQ(cover_.Text().toPlainText(), help_.text);
  cover_.Text().verticalScrollBar()->setValue(50);
  cover_.Show(help_);
  EXPECT_EQ(cover_.Text().verticalScrollBar()->value(), 50) << "the same text keeps its place";
  RepaintCount count(cover_);
  ErrorHelp other2 = help_;
  other2.back = 0x648064;
  EXPECT_TRUE(count.After([&] { cover_.Show(other2); }));
  cover_.Show(std::nullopt);
  EXPECT_FALSE(cover_.isVisible());
  EXPECT_FALSE(cover_.IsShown());
}

TEST_F(HelpTest, ItsKeysScrollAndLeave) {
  cover_.Show(help_);
  QCoreApplication::processEvents();
  QScrollBar& bar = *cover_.Text().verticalScrollBar();
  const int step = bar.singleStep();
  const int page = bar.pageStep();
  ASSERT_GT(page, step);
  const auto expectAt = [&](int key, int value) {
    EXPECT_TRUE(Press(cover_, key)) << key;
    EXPECT_EQ(bar.value(), value) << key;
  };
  expectAt(Qt::Key_Down, step);
  expectAt(Qt::Key_PageDown, step + page);
  expectAt(Qt::Key_Up, page);
  expectAt(Qt::Key_PageUp, 0);
  expectAt(Qt::Key_A, 0);
  EXPECT_EQ(left_, 0);
  for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) Press(cover_, key);
  EXPECT_EQ(left_, 3);
  cover_.BackKey()->click();
  EXPECT_EQ(left_, 4);
  EXPECT_TRUE(cover_.IsShown()) << "somebody else decides";
}

TEST_F(HelpTest, TabStaysOnTheCover) {
  cover_.Show(help_);
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
  QCoreApplication::sendEvent(&cover_, &tab);
  EXPECT_TRUE(cover_.BackKey()->hasFocus());
  QCoreApplication::sendEvent(cover_.BackKey(), &tab);
  EXPECT_TRUE(cover_.hasFocus());
  EXPECT_EQ(cover_.BackKey()->text(), "Back");
  EXPECT_EQ(cover_.BackKey()->accessibleName(), "Back");
  EXPECT_EQ(cover_.BackKey()->KeyName(), "Esc");
  EXPECT_TRUE(cover_.Text().isReadOnly());
  EXPECT_EQ(cover_.Text().focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(cover_.Text().frameShape(), QFrame::NoFrame);
}

TEST_F(CoverTest, ARowOfTheErrorListHasTimeNameTextAndWhatBecameOfIt) {
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

class ErrorListTest : public CoverTest {
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
  EXPECT_EQ(cover_.List().geometry(), QRect(10, 37, 780, 268));
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(662, 342, 128, 48));
  auto* details = cover_.findChild<QPlainTextEdit*>();
  EXPECT_EQ(details->geometry(), QRect(10, 310, 642, 80));
  cover_.SetFontPixels(20);
  EXPECT_EQ(cover_.List().geometry(), QRect(10, 45, 780, 240));
  EXPECT_EQ(cover_.BackKey()->geometry(), QRect(630, 330, 160, 60));
  EXPECT_EQ(details->geometry(), QRect(10, 290, 610, 100));
  EXPECT_EQ(details->font(), Font(20));
  EXPECT_EQ(cover_.List().itemDelegate()->sizeHint({}, {}), QSize(100, 70));
  EXPECT_THAT(StrokesOf(*cover_.BackKey()), ::testing::Contains(::testing::HasSubstr(" 20 px")));
  cover_.resize(500, 100);
  QCoreApplication::processEvents();
  EXPECT_EQ(cover_.List().height(), 0) << "no less than nothing";
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
  EXPECT_TRUE(cover_.BackKey()->hasFocus());
  EXPECT_EQ(cover_.BackKey()->text(), "Back");
  EXPECT_EQ(cover_.BackKey()->accessibleName(), "Back");
  EXPECT_EQ(cover_.BackKey()->KeyName(), "Esc");
  EXPECT_TRUE(cover_.List().uniformItemSizes());
  EXPECT_EQ(cover_.List().horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  EXPECT_EQ(cover_.List().verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(cover_.List().frameShape(), QFrame::NoFrame);
  const auto* details = cover_.findChild<QPlainTextEdit*>();
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
  /// What the head shows: the name, what stands at the right, and a dot for changes.
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
  editor_.SetBusy("Opening: B.NC");
  ExpectHead("Opening: B.NC", Say(Word::kLine, "3"), true);
  editor_.SetBusy("");
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
  const qsizetype there = editor_.RawText().size();
  EXPECT_NEAR(static_cast<double>(there) * 100 / static_cast<double>(text.size()), percent, 1);
  ExpectHead("BIG", right, false);
  editor_.SetProgram("", "");
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
  EXPECT_TRUE(count.After([this] { editor_.SetBusy("busy"); }));
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  editor_.SetBusy("");
  EXPECT_FALSE(editor_.Edit().isReadOnly());
  EXPECT_TRUE(count.After([this] { editor_.Edit().moveCursor(QTextCursor::End); }));
  EXPECT_TRUE(count.After([this] { editor_.Edit().document()->setModified(true); }));
}

TEST_F(EditorPictureTest, AProgramOnItsWayMayNotBeTypedIntoWhenBusyEnds) {
  editor_.Fill(QString("G1 X1\n").repeated(150'000), "BIG");
  ASSERT_TRUE(editor_.Filling());
  editor_.SetBusy("");
  EXPECT_TRUE(editor_.Edit().isReadOnly());
  editor_.SetBusy("x");
  editor_.SetProgram("G0", "P");
  EXPECT_TRUE(editor_.Edit().isReadOnly()) << "still busy";
  EXPECT_FALSE(editor_.Filling());
  editor_.SetBusy("");
  EXPECT_FALSE(editor_.Edit().isReadOnly());
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
