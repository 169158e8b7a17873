// SPDX-License-Identifier: MIT
#include "zmc/qt/msg_display.h"

#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/wide_scroll_bar.h"
#include "support/window_stage.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl::test {
namespace {

constexpr int kText = 3069;
constexpr int kFirst = 3058;
constexpr int kSecond = 3059;
constexpr int kFinger = 34;

class MsgDisplayTest : public WindowStage {
 protected:
  MsgDisplayTest() : WindowStage({800, 600}, {0, 0, 800, 600}) {}
  ~MsgDisplayTest() override { delete box; }

  CDlgMsgDisplay& Show(const QString& text, BoxStyle style = BoxStyle::kInfo) {
    delete box;
    BoxSpec spec;
    spec.title = u"CNC";
    spec.text = FromQString(text);
    spec.style = style;
    box = new CDlgMsgDisplay(language, spec, area);
    box->open();
    Settle();
    return *box;
  }
  [[nodiscard]] QWidget* Part(int id) const { return FindControl(box, id); }
  [[nodiscard]] std::string Caption(int id) const { return Part(id)->property("pnlText").toString().toStdString(); }
  [[nodiscard]] QScrollBar* Bar() const { return box->findChild<QScrollArea*>()->verticalScrollBar(); }
  static QString Lines(int count) {
    QStringList lines;
    for (int i = 0; i < count; ++i) lines << "line " + QString::number(i);
    return lines.join('\n');
  }

  QPointer<CDlgMsgDisplay> box;
};

TEST_F(MsgDisplayTest, ANoticeHasOneButtonAndAQuestionTwo) {
  Show("text");
  EXPECT_EQ(box->findChildren<QPushButton*>().size(), 1);
  EXPECT_EQ(Caption(kFirst), "OK");
  EXPECT_EQ(Part(kSecond), nullptr);
  Show("text", BoxStyle::kQuestion);
  EXPECT_EQ(box->findChildren<QPushButton*>().size(), 2);
  EXPECT_EQ(Caption(kFirst), "Yes");
  EXPECT_EQ(Caption(kSecond), "No");
  EXPECT_EQ(box->windowTitle(), "CNC");
}

TEST_F(MsgDisplayTest, WithoutALanguageTheButtonsAreOkAndCancel) {
  language.Use(LanguagePack());
  Show("text");
  EXPECT_EQ(Caption(kFirst), "OK");
  Show("text", BoxStyle::kQuestion);
  EXPECT_EQ(Caption(kFirst), "OK");
  EXPECT_EQ(Caption(kSecond), "CANCEL");
}

TEST_F(MsgDisplayTest, ACaptionIsSetWhenTheBoxOpens) {
  language.SetText(266, u"Fine & good");
  Show("text");
  EXPECT_EQ(Caption(kFirst), "Fine & good");
  EXPECT_EQ(qobject_cast<QPushButton*>(Part(kFirst))->text(), "Fine && good") << "for those who don't see it";
  EXPECT_EQ(qobject_cast<QPushButton*>(Part(kFirst))->shortcut(), QKeySequence()) << "no key but Enter presses it";
}

struct AnswerRow {
  BoxStyle style;
  std::vector<int> keys;
  BoxAnswer answer;
};

TEST_F(MsgDisplayTest, KeysAnswer) {
  const AnswerRow rows[] = {
      {BoxStyle::kInfo, {Qt::Key_Return}, BoxAnswer::kOk},
      {BoxStyle::kInfo, {Qt::Key_Escape}, BoxAnswer::kOk},
      {BoxStyle::kInfo, {Qt::Key_Left, Qt::Key_Right, Qt::Key_Enter}, BoxAnswer::kOk},
      {BoxStyle::kQuestion, {Qt::Key_Return}, BoxAnswer::kYes},
      {BoxStyle::kQuestion, {Qt::Key_Escape}, BoxAnswer::kNo},
      {BoxStyle::kQuestion, {Qt::Key_Right, Qt::Key_Return}, BoxAnswer::kNo},
      {BoxStyle::kQuestion, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}, BoxAnswer::kNo},
      {BoxStyle::kQuestion, {Qt::Key_Right, Qt::Key_Left, Qt::Key_Enter}, BoxAnswer::kYes},
      {BoxStyle::kQuestion, {Qt::Key_Tab, Qt::Key_Return}, BoxAnswer::kNo},
      {BoxStyle::kQuestion, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, BoxAnswer::kYes},
      {BoxStyle::kQuestion, {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Return}, BoxAnswer::kYes},
      {BoxStyle::kQuestion, {Qt::Key_Down, Qt::Key_Return}, BoxAnswer::kYes},
      {BoxStyle::kQuestion, {Qt::Key_Right, Qt::Key_Up, Qt::Key_Return}, BoxAnswer::kNo},
      {BoxStyle::kQuestion, {Qt::Key_Right, Qt::Key_Escape}, BoxAnswer::kNo},
  };
  for (const AnswerRow& row : rows) {
    Show("text", row.style);
    for (const int key : row.keys) {
      ASSERT_TRUE(box->isVisible()) << &row - rows;
      Key(key);
    }
    EXPECT_FALSE(box->isVisible()) << &row - rows;
    EXPECT_EQ(box->Answer(), row.answer) << &row - rows;
  }
}

TEST_F(MsgDisplayTest, TouchesAnswer) {
  Show("text", BoxStyle::kQuestion);
  Touch(Part(kSecond));
  EXPECT_FALSE(box->isVisible());
  EXPECT_EQ(box->Answer(), BoxAnswer::kNo);
  Show("text", BoxStyle::kQuestion);
  Touch(Part(kFirst));
  EXPECT_EQ(box->Answer(), BoxAnswer::kYes);
}

TEST_F(MsgDisplayTest, IsInFrontAndHasTheKeys) {
  Show("text");
  EXPECT_TRUE(box->isActiveWindow());
  EXPECT_TRUE(Part(kFirst)->hasFocus());
  EXPECT_TRUE(box->isModal());
}

/// Counts how often a window is put in front of those beside it.
struct FrontCounter : QObject {
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::ZOrderChange ? 1 : 0;
    return false;
  }
  int count = 0;
};

TEST_F(MsgDisplayTest, ComesToTheFrontWithTheKeysWhenItIsSeenAgain) {
  Show("text");
  QWidget elsewhere;
  Activate(elsewhere);
  ASSERT_FALSE(box->isActiveWindow());
  FrontCounter front;
  box->installEventFilter(&front);
  QShowEvent restored;
  QApplication::sendEvent(box, &restored);
  Settle();
  EXPECT_TRUE(box->isActiveWindow());
  EXPECT_EQ(front.count, 1);
}

TEST_F(MsgDisplayTest, GrowsWithItsTextAndKeepsItsButtonsOnThePanel) {
  Show("short");
  const int shortBox = box->height();
  EXPECT_EQ(box->width(), 398);
  EXPECT_EQ(shortBox, 198);
  EXPECT_EQ(Bar()->maximum(), 0);
  const QPoint middle = area->mapToGlobal(area->rect().center());
  EXPECT_LE((box->geometry().center() - middle).manhattanLength(), 2) << "over the middle";
  Show("a list\nof lines");
  EXPECT_EQ(box->width(), 620);
  Show(QString("a text of many words ").repeated(20));
  EXPECT_GT(box->height(), shortBox + 100);
  EXPECT_EQ(Bar()->maximum(), 0) << "no need to scroll";
  EXPECT_EQ(box->width(), 398);
  for (const QSize size : {QSize(800, 600), QSize(400, 300), QSize(1920, 1080), QSize(320, 200)}) {
    area->resize(size);
    Show(Lines(200), BoxStyle::kQuestion);
    const QRect panelArea(area->mapToGlobal(QPoint(0, 0)), area->size());
    EXPECT_TRUE(panelArea.contains(box->geometry()))
        << size.width() << " at " << box->x() << "," << box->y() << " " << box->width() << "x" << box->height();
    for (const int id : {kFirst, kSecond}) {
      EXPECT_TRUE(box->rect().contains(Part(id)->geometry())) << size.width();
      EXPECT_GE(Part(id)->height(), kFinger) << size.width();
      EXPECT_GE(Part(id)->width(), 2 * kFinger) << size.width();
    }
    EXPECT_FALSE(Part(kFirst)->geometry().intersects(Part(kSecond)->geometry()));
    EXPECT_FALSE(Part(kFirst)->geometry().intersects(box->findChild<QScrollArea*>()->geometry()));
  }
}

TEST_F(MsgDisplayTest, ALongTextIsScrolledToItsEnd) {
  Show(Lines(200));
  ASSERT_GT(Bar()->maximum(), 0);
  Key(Qt::Key_Down);
  const int line = Bar()->value();
  EXPECT_GT(line, 0);
  Key(Qt::Key_PageDown);
  EXPECT_GT(Bar()->value(), 5 * line);
  Key(Qt::Key_PageUp);
  Key(Qt::Key_Up);
  EXPECT_EQ(Bar()->value(), 0);
  for (int i = 0; i < 200; ++i) Key(Qt::Key_PageDown);
  EXPECT_EQ(Bar()->value(), Bar()->maximum());
  // The last line is drawn at the end of the text.
  QWidget* text = Part(kText);
  const QImage image = Paint(*text);
  EXPECT_GT(Count(image, zmc_look::kBoxText, QRect(0, text->height() - 25, text->width(), 25)), 20);
}

TEST_F(MsgDisplayTest, AWordThatIsLongerThanALineIsBroken) {
  Show("Delete " + QString(300, 'W') + "?");
  QWidget* text = Part(kText);
  EXPECT_LE(text->width(), box->findChild<QScrollArea*>()->width());
  EXPECT_GT(text->height(), 100);
  EXPECT_EQ(box->findChild<QScrollArea*>()->horizontalScrollBar()->maximum(), 0);
}

TEST_F(MsgDisplayTest, ShowsMarkupAndAmpersandsAsTheyAre) {
  const QString markup = "<b>Delete</b> <img src='x'> A & B && C?";
  Show(markup, BoxStyle::kQuestion);
  EXPECT_EQ(Caption(kText), markup.toStdString());
  const QImage plain = Paint(*Part(kText));
  Show("Delete A  B  C?", BoxStyle::kQuestion);
  EXPECT_NE(Ink(plain, ColorAt(plain, 0, 0)), Ink(Paint(*Part(kText)), ColorAt(plain, 0, 0)));
}

TEST_F(MsgDisplayTest, TheIconTellsAQuestionFromANotice) {
  const auto look = [this](BoxStyle style) {
    Show("text", style);
    return Paint(*Part(3070));
  };
  /// How wide the sign on the disc is.
  const auto width = [](const QImage& icon, Color ink) {
    int columns = 0;
    for (int x = 0; x < icon.width(); ++x) columns += Count(icon, ink, QRect(x, 0, 1, icon.height())) != 0 ? 1 : 0;
    return columns;
  };
  const QImage question = look(BoxStyle::kQuestion);
  const QImage notice = look(BoxStyle::kInfo);
  EXPECT_GT(Count(question, zmc_look::kBoxEdge), 400);
  EXPECT_GT(Count(notice, zmc_look::kBoxInfo), 400);
  EXPECT_GT(width(question, zmc_look::kBoxDark), 2 * width(notice, zmc_look::kBoxText)) << "a question mark and an i";
}

TEST_F(MsgDisplayTest, HasThePanelsDarkLook) {
  Show("text", BoxStyle::kQuestion);
  const QImage image = Paint(*box);
  EXPECT_EQ(ColorAt(image, box->width() / 2, 120), zmc_look::kBoxBack);
  EXPECT_EQ(ColorAt(image, 0, box->height() / 2), zmc_look::kBoxEdge);
  const QRect key = Part(kSecond)->geometry();
  EXPECT_EQ(ColorAt(image, key.left() + 6, key.center().y()), zmc_look::kBoxRaised);
  EXPECT_GT(Count(image, zmc_look::kBoxText, Part(kFirst)->geometry()), 20);
  EXPECT_GT(Count(image, zmc_look::kBoxFocus, Part(kFirst)->geometry()), 50) << "the focus is seen";
  EXPECT_EQ(Count(image, zmc_look::kBoxFocus, key), 0);
  EXPECT_TRUE(box->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MsgDisplayTest, LaysOutItsPartsByTheScaleOfThePanel) {
  Show("text");
  EXPECT_EQ(Part(3070)->geometry(), QRect(16, 46, 40, 40));
  EXPECT_EQ(Part(kFirst)->geometry(), QRect(134, 136, 130, 46));
  EXPECT_EQ(box->findChild<QScrollArea*>()->geometry(), QRect(72, 46, 310, 74));
  EXPECT_EQ(Part(kText)->width(), 310 - Bar()->sizeHint().width());
  Show("text", BoxStyle::kQuestion);
  EXPECT_EQ(Part(kFirst)->geometry(), QRect(61, 136, 130, 46));
  EXPECT_EQ(Part(kSecond)->geometry(), QRect(207, 136, 130, 46));
  for (const auto& [height, side] : {std::pair(300, 24), {360, 24}, {450, 30}, {900, 60}, {1500, 100}, {2000, 100}}) {
    area->resize(800, height);
    Show("text");
    EXPECT_EQ(Part(3070)->size(), QSize(side, side)) << height;
  }
}

TEST_F(MsgDisplayTest, LettersAreNeverSmallerThanCanBeRead) {
  for (const auto& [height, least] : {std::pair(213, 13), {300, 13}, {600, 17}, {1200, 34}}) {
    area->resize(800, height);
    Show("text", BoxStyle::kQuestion);
    for (const int part : {kText, kFirst, kSecond}) {
      EXPECT_GE(QFontInfo(Part(part)->font()).pixelSize(), least) << part << " at " << height;
      EXPECT_GE(Part(part)->height(), CellHeight(Part(part)->fontMetrics())) << part << " at " << height;
    }
    EXPECT_GE(Part(kText)->parentWidget()->height(), CellHeight(box->fontMetrics())) << height;
  }
}

TEST_F(MsgDisplayTest, AButtonGrowsWithItsCaptionWhileThereIsRoom) {
  language.SetText(266, u"A caption of some length");
  Show("text");
  const int needed = Part(kFirst)->fontMetrics().horizontalAdvance("A caption of some length");
  ASSERT_GT(needed, 130 - 32);
  EXPECT_EQ(Part(kFirst)->width(), needed + 32);
  EXPECT_NEAR(Part(kFirst)->geometry().center().x(), box->rect().center().x(), 1);
  language.SetText(266, Text(200, u'H'));
  Show("text");
  EXPECT_EQ(Part(kFirst)->width(), 398 - 2 * 16) << "a margin at both sides";
}

TEST_F(MsgDisplayTest, AnArrowScrollsByALine) {
  Show(Lines(200));
  Key(Qt::Key_Down);
  EXPECT_EQ(Bar()->value(), box->fontMetrics().lineSpacing());
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Bar()->value(), box->fontMetrics().lineSpacing() + Bar()->pageStep());
  Key(Qt::Key_Down);
  Key(Qt::Key_Up);
  EXPECT_EQ(Bar()->value(), box->fontMetrics().lineSpacing() + Bar()->pageStep()) << "as far back";
  EXPECT_TRUE(Key(Qt::Key_PageDown));
  EXPECT_TRUE(Key(Qt::Key_PageUp));
  EXPECT_EQ(Bar()->value(), box->fontMetrics().lineSpacing() + Bar()->pageStep());
  EXPECT_EQ(box->findChild<QScrollArea*>()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
  EXPECT_EQ(box->findChild<QScrollArea*>()->focusPolicy(), Qt::NoFocus);
}

TEST_F(MsgDisplayTest, HasATitleBarAndAnEdge) {
  Show("text");
  const QImage image = Paint(*box);
  for (const int in : {0, 1}) {
    EXPECT_EQ(ColorAt(image, in, 100), zmc_look::kBoxEdge);
    EXPECT_EQ(ColorAt(image, 200, in), zmc_look::kBoxEdge);
  }
  EXPECT_EQ(ColorAt(image, image.width() - 1, 100), zmc_look::kBoxEdge);
  EXPECT_EQ(ColorAt(image, 200, image.height() - 1), zmc_look::kBoxEdge);
  EXPECT_EQ(ColorAt(image, 2, 100), zmc_look::kBoxBack) << "and no broader";
  EXPECT_EQ(ColorAt(image, 3, 29), zmc_look::kBoxRaised);
  EXPECT_EQ(ColorAt(image, 3, 30), zmc_look::kBoxBack);
  const QRect title = Ink(image, zmc_look::kBoxRaised, QRect(3, 3, 300, 26));
  EXPECT_NEAR(title.left(), 17, 2);
  EXPECT_NEAR(title.center().y(), 15, 3);
  EXPECT_GT(Count(image, zmc_look::kBoxText, title), 10);
}

TEST_F(MsgDisplayTest, APressedButtonIsSeen) {
  Show("text");
  auto* button = qobject_cast<QPushButton*>(Part(kFirst));
  button->setDown(true);
  EXPECT_EQ(ColorAt(Paint(*button), 8, 23), zmc_look::kBoxPressed);
  button->setDown(false);
  EXPECT_EQ(ColorAt(Paint(*button), 8, 23), zmc_look::kBoxRaised);
  EXPECT_TRUE(button->isDefault());
}

// Fonts and drawing.

TEST_F(MsgDisplayTest, ItsTextsHaveOneFontThatGrowsWithThePanel) {
  for (const auto& [height, font] : {std::pair(600, 20), {900, 30}, {300, 15}}) {
    area->resize(800, height);
    Show("text", BoxStyle::kQuestion);
    const QFont expected = MakeFont("Arial", font, 500).value();
    for (const QWidget* part :
         {static_cast<const QWidget*>(box), static_cast<const QWidget*>(Part(kText)),
          static_cast<const QWidget*>(Part(kFirst)), static_cast<const QWidget*>(Part(kSecond))}) {
      EXPECT_EQ(part->font().pixelSize(), expected.pixelSize()) << height;
      EXPECT_EQ(part->font().weight(), 500) << height;
      EXPECT_EQ(part->font().family(), expected.family()) << height;
    }
  }
}

TEST_F(MsgDisplayTest, ItsTitleIsBoldAndFillsTheBar) {
  Show("text");
  QImage expected(Paint(*box));
  {
    QPainter painter(&expected);
    painter.fillRect(2, 2, 300, 28, ToQColor(zmc_look::kBoxRaised));
    painter.setPen(ToQColor(zmc_look::kBoxText));
    painter.setFont(MakeFont("Arial", 21, 700).value());
    painter.drawText(QRect(16, 0, box->width(), 30), Qt::AlignVCenter | Qt::AlignLeft, "CNC");
  }
  EXPECT_EQ(expected, Paint(*box));
}

TEST_F(MsgDisplayTest, TheSignIsLargeAndItsDiscSmoothAndWithoutARim) {
  const auto near = [](const QImage& image, int x, int y, Color color) {
    const QColor there = image.pixelColor(x, y);
    const QColor wanted = ToQColor(color);
    return std::abs(there.red() - wanted.red()) + std::abs(there.green() - wanted.green()) +
               std::abs(there.blue() - wanted.blue()) <
           24;
  };
  for (const BoxStyle style : {BoxStyle::kQuestion, BoxStyle::kInfo}) {
    const bool question = style == BoxStyle::kQuestion;
    Show("text", style);
    const QImage icon = Paint(*Part(3070));
    const Color ground = question ? zmc_look::kBoxEdge : zmc_look::kBoxInfo;
    for (const QPoint rim : {QPoint(0, 20), QPoint(39, 20), QPoint(20, 0), QPoint(20, 39)}) {
      EXPECT_TRUE(near(icon, rim.x(), rim.y(), ground)) << rim.x() << "," << rim.y();
    }
    const int top = icon.width() * 4;
    EXPECT_LT(Count(icon, ground, QRect(0, 0, 40, 4)) + Count(icon, 0xFF00FF, QRect(0, 0, 40, 4)), top) << "no steps";
    const Color ink = question ? zmc_look::kBoxDark : zmc_look::kBoxText;
    QRect sign;
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) sign |= ColorAt(icon, x, y) == ink ? QRect(x, y, 1, 1) : QRect();
    }
    const QFontMetrics metrics(MakeFont("Arial", 32, 700).value());
    EXPECT_NEAR(sign.height(), metrics.tightBoundingRect(question ? "?" : "i").height(), 2);
  }
}

TEST_F(MsgDisplayTest, TheFocusIsABroadFrameAndTheOtherButtonHasAThinOne) {
  Show("text", BoxStyle::kQuestion);
  const QImage focused = Paint(*Part(kFirst));
  const QImage thin = Paint(*Part(kSecond));
  for (const int in : {0, 1, 2}) {
    EXPECT_EQ(ColorAt(focused, in, 23), zmc_look::kBoxFocus) << in;
    EXPECT_EQ(ColorAt(focused, focused.width() - 1 - in, 23), zmc_look::kBoxFocus) << in;
    EXPECT_EQ(ColorAt(focused, 65, in), zmc_look::kBoxFocus) << in;
    EXPECT_EQ(ColorAt(thin, in, 23), in == 0 ? zmc_look::kBoxBorder : zmc_look::kBoxRaised) << in;
  }
  EXPECT_EQ(ColorAt(focused, 3, 23), zmc_look::kBoxRaised);
  EXPECT_NE(ColorAt(thin, 0, 0), zmc_look::kBoxBorder) << "the corners are round";
  EXPECT_LT(Count(thin, zmc_look::kBoxBorder, QRect(0, 0, 7, 7)) +
                Count(thin, zmc_look::kBoxRaised, QRect(0, 0, 7, 7)) + Count(thin, 0xFF00FF, QRect(0, 0, 7, 7)),
            49)
      << "and smooth";
}

TEST_F(MsgDisplayTest, ACaptionThatIsTooLongIsCutInsideItsButton) {
  language.SetText(266, Text(200, u'H'));
  Show("text");
  const QImage image = Paint(*Part(kFirst));
  const auto text = [&](const QRect& part) { return Count(image, zmc_look::kBoxText, part); };
  EXPECT_GT(text(image.rect()), 100);
  EXPECT_EQ(text(QRect(0, 0, 4, image.height())), 0);
  EXPECT_EQ(text(QRect(image.width() - 4, 0, 4, image.height())), 0);
}

TEST_F(MsgDisplayTest, ItsScrollBarIsBroadAndDark) {
  Show(Lines(200));
  EXPECT_NE(dynamic_cast<WideScrollBar*>(Bar()), nullptr);
  EXPECT_EQ(Bar()->width(), Bar()->sizeHint().width());
  EXPECT_EQ(Bar()->palette().color(QPalette::Button), ToQColor(zmc_look::kBoxRaised));
  EXPECT_EQ(Bar()->palette().color(QPalette::Window), ToQColor(zmc_look::kBoxBack));
}

// Places.

TEST_F(MsgDisplayTest, LiesInTheMiddleOfTheAreaWithRoomAtTheEdges) {
  area->setGeometry(30, 20, 700, 500);
  Show("text");
  const QPoint corner = area->mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(box->pos() - corner, QPoint(4 + (692 - box->width()) / 2, 4 + (492 - box->height()) / 2));
  Show(Lines(200));
  EXPECT_EQ(box->y() - corner.y(), 4);
  EXPECT_EQ(box->height(), 500 - 8);
  area->setGeometry(0, 0, 300, 300);
  Show("a list\nof lines");
  EXPECT_EQ(box->width(), 300 - 8);
  EXPECT_EQ(Part(kFirst)->height(), FingerPixels(*Part(kFirst)));
}

TEST_F(MsgDisplayTest, OverAPanelThatIsHalfOffTheScreenItIsOnTheScreenAll) {
  const QRect screen = panel.screen()->availableGeometry();
  panel.move(screen.width() - 500, 0);
  Show("text");
  EXPECT_TRUE(screen.contains(box->geometry())) << box->x();
  panel.move(screen.width() + 500, 0);
  Show("text");
  EXPECT_TRUE(QRect(area->mapToGlobal(QPoint(0, 0)), area->size()).contains(box->geometry())) << "else over its panel";
  panel.move(0, 0);
}

}  // namespace
}  // namespace pnl::test
