// SPDX-License-Identifier: MIT
// How the touch keyboard looks, what several fingers do on it, and how a held key ends when the keys move.
#include <QtGui/qtestsupport_gui.h>
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTimerEvent>
#include <QTouchEvent>
#include <QWindow>

#include "common/words.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "ui/touch_keyboard.h"
#include "ui/touch_signs.h"

namespace panel {
namespace {

using pnl::test::StrokesOf;

class TouchLookTest : public ::testing::Test {
 protected:
  TouchLookTest() {
    UseWords("en");
    panel.resize(800, 400);
    keyboard.SetDensity(96);
    keyboard.setGeometry(0, 100, 792, keyboard.HeightFor(300));
    keyboard.show();
    panel.show();
    Settle();
    QObject::connect(&keyboard, &TouchKeyboard::Typed, [this](const TouchStroke& stroke, bool repeated) {
      typed += (repeated ? QStringLiteral("~") : QString()) + stroke.text;
    });
    QObject::connect(&keyboard, &TouchKeyboard::HideWanted, [this] { ++hides; });
  }
  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  [[nodiscard]] QRect PlaceOf(TouchAct act, QChar plain = {}) const {
    for (const auto& cell : keyboard.Cells()) {
      if (cell.key.act == act && (plain.isNull() || cell.key.plain == plain)) return cell.place;
    }
    ADD_FAILURE() << "no key " << static_cast<int>(act);
    return {};
  }
  void Mouse(QEvent::Type type, const QPoint& place) {
    QMouseEvent event(type, place, keyboard.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&keyboard, &event);
  }
  void Tap(const QPoint& place) {
    Mouse(QEvent::MouseButtonPress, place);
    Mouse(QEvent::MouseButtonRelease, place);
  }
  struct Finger {
    int id;
    QEventPoint::State state;
    QPoint place;
  };
  void Fingers(const std::vector<Finger>& fingers) {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    QList<QEventPoint> points;
    for (const Finger& finger : fingers) {
      points << QEventPoint(finger.id, finger.state, keyboard.mapTo(&panel, finger.place),
                            keyboard.mapToGlobal(finger.place));
    }
    qt_handleTouchEventv2(panel.windowHandle(), screen, points);
  }
  [[nodiscard]] QList<QAbstractEventDispatcher::TimerInfo> Timers() {
    return QAbstractEventDispatcher::instance()->registeredTimers(&keyboard);
  }
  void Tick() {
    const auto timers = Timers();
    ASSERT_EQ(timers.size(), 1);
    QTimerEvent tick(timers[0].timerId);
    QCoreApplication::sendEvent(&keyboard, &tick);
  }
  /// What is drawn when that key is down, and with Shift latched or not.
  [[nodiscard]] Strokes Expected(const QRect& down = {}, bool latched = false, bool locked = false) const {
    return Pictured([&](Picture& picture) {
      picture.Fill(keyboard.rect(), theme::kBackground);
      for (const auto& cell : keyboard.Cells()) {
        const bool types = cell.key.act == TouchAct::kCharacter;
        const bool pressed = cell.place == down || (latched && cell.key.act == TouchAct::kShift);
        const QColor fill(pressed ? theme::kPressed : types ? theme::kRaised : theme::kSteel);
        picture.Field(cell.place, fill, theme::kBorder);
        const QString caption = CaptionOf(cell.key, latched);
        if (caption.isEmpty()) {
          DrawTouchSign(picture.Painter(), cell.key.act, cell.place, theme::InkOn(fill), locked);
          continue;
        }
        const QFont font = theme::FittingFont(caption, cell.place.width() - 4, cell.place.height() * 9 / 20, 11, types);
        picture.Text(cell.place, Qt::AlignCenter, caption, font, theme::InkOn(fill), Qt::ElideNone);
      }
    });
  }
  [[nodiscard]] static QString CaptionOf(const TouchKey& key, bool shifted) {
    switch (key.act) {
      case TouchAct::kCharacter:
        return key.plain == ' ' ? QString() : QString(shifted ? key.shifted : key.plain);
      case TouchAct::kEscape:
        return "Esc";
      case TouchAct::kBlock:
        return "G1";
      case TouchAct::kLetters:
        return "abc";
      case TouchAct::kSigns:
        return "?#+";
      default:
        return {};
    }
  }

  static constexpr auto kDown = QEventPoint::State::Pressed;
  static constexpr auto kStill = QEventPoint::State::Stationary;
  static constexpr auto kUp = QEventPoint::State::Released;
  QWidget panel;
  TouchKeyboard keyboard{&panel};
  QString typed;
  int hides = 0;
};

TEST_F(TouchLookTest, EachKeyHasItsColourAndItsCaptionOrItsSign) {
  EXPECT_EQ(StrokesOf(keyboard), Expected());
  const QRect seven = PlaceOf(TouchAct::kCharacter, '7');
  Mouse(QEvent::MouseButtonPress, seven.center());
  EXPECT_EQ(StrokesOf(keyboard), Expected(seven)) << "a key that is down is lit";
  Mouse(QEvent::MouseButtonRelease, seven.center());
  EXPECT_EQ(StrokesOf(keyboard), Expected());
  keyboard.Use(TouchLayout::kLetters);
  EXPECT_EQ(StrokesOf(keyboard), Expected());
  const QPoint shift = PlaceOf(TouchAct::kShift).center();
  Tap(shift);
  EXPECT_EQ(StrokesOf(keyboard), Expected({}, true)) << "capitals on the keys";
  Tap(shift);
  EXPECT_EQ(StrokesOf(keyboard), Expected({}, true, true)) << "Shift says that it stays";
  Tap(shift);
  EXPECT_EQ(StrokesOf(keyboard), Expected());
  keyboard.Use(TouchLayout::kSigns);
  EXPECT_EQ(StrokesOf(keyboard), Expected());
}

TEST_F(TouchLookTest, EveryChangeShowsAtOnce) {
  RepaintCount count(keyboard);
  const QPoint g = PlaceOf(TouchAct::kCharacter, 'G').center();
  EXPECT_TRUE(count.After([&] { Mouse(QEvent::MouseButtonPress, g); }));
  EXPECT_TRUE(count.After([&] { Mouse(QEvent::MouseButtonRelease, g); }));
  EXPECT_TRUE(count.After([&] { keyboard.Use(TouchLayout::kLetters); }));
  Mouse(QEvent::MouseButtonPress, g);
  EXPECT_TRUE(count.After([&] {
    QTouchEvent cancel(QEvent::TouchCancel);
    QCoreApplication::sendEvent(&keyboard, &cancel);
  }));
}

TEST_F(TouchLookTest, TheKeyForMorePagesSaysWhichOneIsShown) {
  keyboard.resize(632, keyboard.HeightFor(46));
  const int pages = keyboard.PageCount();
  ASSERT_GT(pages, 2);
  for (int page = 1; page <= pages + 1; ++page) {
    const int shown = page > pages ? 1 : page;
    EXPECT_TRUE(pnl::test::TextsOf(keyboard).contains(QStringLiteral("%1/%2").arg(shown).arg(pages))) << page;
    Tap(PlaceOf(TouchAct::kMore).center());
  }
}

TEST_F(TouchLookTest, ItBeginsHiddenWithoutAFocusAndWithAName) {
  TouchKeyboard other(&panel);
  EXPECT_TRUE(other.isHidden());
  EXPECT_TRUE(other.testAttribute(Qt::WA_AcceptTouchEvents));
  EXPECT_TRUE(other.testAttribute(Qt::WA_OpaquePaintEvent));
  EXPECT_EQ(other.accessibleName(), "Keyboard");
  EXPECT_FALSE(other.Cells().empty());
  EXPECT_EQ(other.Layout(), TouchLayout::kBlock);
  EXPECT_FALSE(other.Shifted());
  EXPECT_EQ(other.LeastSide(), theme::PixelsOf(12, theme::DensityOf(other))) << "until a density is set";
  other.SetDensity(200);
  EXPECT_EQ(other.LeastSide(), theme::PixelsOf(12, 200));
  other.SetDensity(0);
  EXPECT_EQ(other.LeastSide(), theme::PixelsOf(12, theme::DensityOf(other)));
}

TEST_F(TouchLookTest, OfTwoFingersTheLastOneRepeats) {
  const QPoint x = PlaceOf(TouchAct::kCharacter, 'X').center();
  const QPoint y = PlaceOf(TouchAct::kCharacter, 'Y').center();
  Fingers({{1, kDown, x}});
  EXPECT_EQ(typed, "X");
  Fingers({{1, kStill, x}, {2, kDown, y}});
  EXPECT_EQ(typed, "XY");
  Fingers({{1, kUp, x}, {2, kStill, y}});
  ASSERT_EQ(Timers().size(), 1) << "the other one is still held";
  Tick();
  EXPECT_EQ(typed, "XY~Y");
  Fingers({{2, kUp, y}});
  EXPECT_TRUE(Timers().isEmpty());
  EXPECT_EQ(StrokesOf(keyboard), Expected());
}

TEST_F(TouchLookTest, ASecondKeyEndsTheRepeatingOfTheFirst) {
  Fingers({{1, kDown, PlaceOf(TouchAct::kCharacter, 'X').center()}});
  ASSERT_EQ(Timers().size(), 1);
  Fingers({{1, kStill, PlaceOf(TouchAct::kCharacter, 'X').center()}, {2, kDown, PlaceOf(TouchAct::kHide).center()}});
  EXPECT_TRUE(Timers().isEmpty());
  Fingers({{1, kUp, PlaceOf(TouchAct::kCharacter, 'X').center()}, {2, kUp, PlaceOf(TouchAct::kHide).center()}});
  EXPECT_EQ(hides, 1);
  EXPECT_EQ(typed, "X");
}

TEST_F(TouchLookTest, EveryHeldKeyWaitsBeforeItRepeats) {
  for (const QChar key : {QChar('X'), QChar('Y')}) {
    const QPoint place = PlaceOf(TouchAct::kCharacter, key).center();
    Mouse(QEvent::MouseButtonPress, place);
    ASSERT_EQ(Timers().size(), 1);
    EXPECT_EQ(Timers()[0].interval, 400) << key.toLatin1();
    Tick();
    EXPECT_EQ(Timers()[0].interval, 80) << key.toLatin1();
    Mouse(QEvent::MouseButtonRelease, place);
  }
  Mouse(QEvent::MouseButtonPress, PlaceOf(TouchAct::kCharacter, 'X').center());
  QTimerEvent other(Timers()[0].timerId + 1000);
  QCoreApplication::sendEvent(&keyboard, &other);
  EXPECT_EQ(typed, "X~XY~YX") << "a timer of somebody else types nothing";
}

TEST_F(TouchLookTest, ATouchThatIsCancelledDoesNothingMore) {
  Mouse(QEvent::MouseButtonPress, PlaceOf(TouchAct::kHide).center());
  QTouchEvent cancel(QEvent::TouchCancel);
  QCoreApplication::sendEvent(&keyboard, &cancel);
  Mouse(QEvent::MouseButtonRelease, PlaceOf(TouchAct::kHide).center());
  EXPECT_EQ(hides, 0);
  Mouse(QEvent::MouseButtonPress, PlaceOf(TouchAct::kCharacter, 'X').center());
  QCoreApplication::sendEvent(&keyboard, &cancel);
  EXPECT_TRUE(Timers().isEmpty());
}

TEST_F(TouchLookTest, KeysThatMoveUnderAFingerAreLetGo) {
  const QPoint hide = PlaceOf(TouchAct::kHide).center();
  Mouse(QEvent::MouseButtonPress, hide);
  keyboard.resize(keyboard.width() - 1, keyboard.height());
  Mouse(QEvent::MouseButtonRelease, hide);
  EXPECT_EQ(hides, 0);
  Mouse(QEvent::MouseButtonPress, PlaceOf(TouchAct::kCharacter, 'X').center());
  keyboard.resize(keyboard.width() + 1, keyboard.height());
  EXPECT_TRUE(Timers().isEmpty());
  EXPECT_EQ(StrokesOf(keyboard), Expected()) << "no key is lit";
}

TEST_F(TouchLookTest, WithMoreRoomAPageThatIsNoMoreThereGivesWayToOneThatIs) {
  keyboard.resize(632, keyboard.HeightFor(46));
  for (int i = 1; i < keyboard.PageCount(); ++i) Tap(PlaceOf(TouchAct::kMore).center());
  keyboard.resize(792, keyboard.HeightFor(300));
  EXPECT_EQ(keyboard.PageCount(), 1);
  EXPECT_FALSE(PlaceOf(TouchAct::kCharacter, 'G').isEmpty());
  keyboard.resize(632, keyboard.HeightFor(46));
  Tap(PlaceOf(TouchAct::kMore).center());
  keyboard.Use(TouchLayout::kLetters);
  EXPECT_FALSE(PlaceOf(TouchAct::kCharacter, 'q').isEmpty()) << "another layout begins with its first page";
  Tap(PlaceOf(TouchAct::kMore).center());
  keyboard.Reset();
  EXPECT_FALSE(PlaceOf(TouchAct::kCharacter, 'G').isEmpty());
}

TEST_F(TouchLookTest, ATouchWhereNoKeyIsDoesNothing) {
  keyboard.resize(632, keyboard.HeightFor(46));
  while (!pnl::test::TextsOf(keyboard).contains(QStringLiteral("%1/%1").arg(keyboard.PageCount()))) {
    Tap(PlaceOf(TouchAct::kMore).center());
  }
  const QRect more = PlaceOf(TouchAct::kMore);
  QRect last;
  for (const auto& cell : keyboard.Cells()) {
    if (cell.place.right() < more.left() && cell.place.right() > last.right()) last = cell.place;
  }
  ASSERT_LT(last.right() + 10, more.left()) << "the last page has blanks before its last keys";
  Tap(QPoint(more.left() - 5, more.center().y()));
  EXPECT_TRUE(typed.isEmpty());
  EXPECT_TRUE(Timers().isEmpty());
  EXPECT_EQ(hides, 0);
}

struct SignRow {
  TouchAct act;
  bool locked;
  QList<QPolygonF> lines;  // in a square from -1 to 1
};

TEST(TouchSignsTest, EachSignHasItsLinesInTheMiddleOfItsKey) {
  const QPolygonF arrow({{0, -0.9}, {0.9, 0}, {0.4, 0}, {0.4, 0.5}, {-0.4, 0.5}, {-0.4, 0}, {-0.9, 0}, {0, -0.9}});
  const SignRow rows[] = {
      {TouchAct::kCharacter, false, {QPolygonF({{-1, 0}, {-1, 0.5}, {1, 0.5}, {1, 0}})}},
      {TouchAct::kEnter,
       false,
       {QPolygonF({{1, -0.7}, {1, 0.2}, {-0.9, 0.2}}), QPolygonF({{-0.4, -0.3}, {-0.9, 0.2}, {-0.4, 0.7}})}},
      {TouchAct::kBack,
       false,
       {QPolygonF({{-0.3, -0.6}, {1, -0.6}, {1, 0.6}, {-0.3, 0.6}, {-1, 0}, {-0.3, -0.6}}),
        QPolygonF({{0, -0.3}, {0.6, 0.3}}), QPolygonF({{0, 0.3}, {0.6, -0.3}})}},
      {TouchAct::kShift, false, {arrow}},
      {TouchAct::kShift, true, {arrow, QPolygonF({{-0.4, 0.9}, {0.4, 0.9}})}},
      {TouchAct::kHide,
       false,
       {QPolygonF({{-1, -0.7}, {1, -0.7}, {1, 0.2}, {-1, 0.2}, {-1, -0.7}}), QPolygonF({{-0.6, -0.25}, {0.6, -0.25}}),
        QPolygonF({{-0.4, 0.5}, {0, 0.9}, {0.4, 0.5}})}},
      {TouchAct::kMore, false, {}},
  };
  struct Size {
    QRect place;
    QPoint middle;
    qreal half;
    qreal width;
  };
  for (const Size& size : {Size{{10, 20, 275, 110}, {146, 73}, 22, 4}, Size{{0, 0, 110, 275}, {53, 136}, 22, 4},
                           Size{{0, 0, 20, 20}, {8, 8}, 4, 1.5}}) {
    for (const SignRow& row : rows) {
      const auto drawn = pnl::test::Drawn(
          [&](QPainter& painter) { DrawTouchSign(painter, row.act, size.place, Qt::yellow, row.locked); });
      const auto expected = pnl::test::Drawn([&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::yellow, size.width));
        for (const QPolygonF& line : row.lines) {
          QPolygonF placed;
          for (const QPointF& point : line) placed << size.middle + point * size.half;
          painter.drawPolyline(placed);
        }
      });
      EXPECT_EQ(drawn, expected) << static_cast<int>(row.act) << " " << size.half;
    }
  }
}

TEST(TouchSignsTest, TheKeysOfTheCaretHaveArrowsAndThePainterIsAsItWas) {
  const std::pair<TouchAct, Qt::ArrowType> rows[] = {{TouchAct::kLeft, Qt::LeftArrow},
                                                     {TouchAct::kRight, Qt::RightArrow},
                                                     {TouchAct::kUp, Qt::UpArrow},
                                                     {TouchAct::kDown, Qt::DownArrow}};
  for (const auto& [act, arrow] : rows) {
    EXPECT_EQ(pnl::test::Drawn([act = act](QPainter& painter) {
                DrawTouchSign(painter, act, QRect(0, 0, 100, 50), Qt::yellow, false);
              }),
              pnl::test::Drawn([arrow = arrow](QPainter& painter) {
                theme::DrawArrow(painter, QRect(39, 14, 20, 20), arrow, Qt::yellow);
              }));
  }
  pnl::test::Drawn([](QPainter& painter) {
    painter.setPen(Qt::red);
    DrawTouchSign(painter, TouchAct::kEnter, QRect(0, 0, 100, 50), Qt::yellow, false);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
  });
}

}  // namespace
}  // namespace panel
