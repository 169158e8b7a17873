// SPDX-License-Identifier: MIT
// The touch keyboard by itself: the size of its keys at several densities, what each of them types into a real field,
// shift, repeat, and pages where there is little room.
#include "ui/touch_keyboard.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTimerEvent>
#include <set>

#include "common/words.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr qreal kMillimetresPerInch = 25.4;

class TouchKeyboardTest : public ::testing::Test {
 protected:
  TouchKeyboardTest() {
    UseWords("en");
    panel.resize(800, 600);
    field = new QLineEdit(&panel);
    field->setMaxLength(1000);
    keyboard = new TouchKeyboard(&panel);
    QObject::connect(keyboard, &TouchKeyboard::Typed, &panel, [this](const TouchStroke& stroke, bool repeated) {
      strokes.push_back(stroke);
      if (repeated) ++repeats;
      SendStroke(panel, stroke, repeated);
    });
    SetUpAt(QSize(792, 600), 96);
    panel.show();
    panel.activateWindow();
    field->setFocus();
    QCoreApplication::processEvents();
  }
  ~TouchKeyboardTest() override { UseWords("en"); }

  /// Gives the keyboard that width and the height it wants of at most that height.
  void SetUpAt(QSize most, qreal dotsPerInch) {
    keyboard->SetDensity(dotsPerInch);
    keyboard->setGeometry(0, 100, most.width(), keyboard->HeightFor(most.height()));
    keyboard->show();
  }
  void Mouse(QEvent::Type type, const QPoint& place) {
    QMouseEvent event(type, place, keyboard->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(keyboard, &event);
  }
  void Tap(const QRect& place) {
    Mouse(QEvent::MouseButtonPress, place.center());
    Mouse(QEvent::MouseButtonRelease, place.center());
  }
  [[nodiscard]] const TouchKeyboard::Cell* Find(TouchAct act, QChar plain = {}) const {
    for (const auto& cell : keyboard->Cells()) {
      if (cell.key.act == act && (plain.isNull() || cell.key.plain == plain)) return &cell;
    }
    return nullptr;
  }
  void Tap(TouchAct act, QChar plain = {}) {
    const auto* cell = Find(act, plain);
    ASSERT_NE(cell, nullptr) << static_cast<int>(act);
    Tap(QRect(cell->place));
  }
  [[nodiscard]] QList<QAbstractEventDispatcher::TimerInfo> Timers() const {
    return QAbstractEventDispatcher::instance()->registeredTimers(keyboard);
  }
  void Tick() {
    const auto timers = Timers();
    ASSERT_EQ(timers.size(), 1);
    QTimerEvent tick(timers[0].timerId);
    QCoreApplication::sendEvent(keyboard, &tick);
  }
  /// Every character that a layout types, page by page, with and without Shift.
  [[nodiscard]] std::set<QChar> Characters(TouchLayout layout) {
    std::set<QChar> all;
    keyboard->Use(layout);
    for (int page = 0; page < keyboard->PageCount(); ++page) {
      for (const auto& cell : keyboard->Cells()) {
        if (cell.key.act != TouchAct::kCharacter) continue;
        all.insert(cell.key.plain);
        if (layout != TouchLayout::kBlock) all.insert(cell.key.shifted);
      }
      if (keyboard->PageCount() > 1) Tap(TouchAct::kMore);
    }
    return all;
  }
  [[nodiscard]] std::set<TouchAct> Acts() {
    std::set<TouchAct> all;
    for (int page = 0; page < keyboard->PageCount(); ++page) {
      for (const auto& cell : keyboard->Cells()) all.insert(cell.key.act);
      if (keyboard->PageCount() > 1) Tap(TouchAct::kMore);
    }
    return all;
  }

  QWidget panel;
  QLineEdit* field = nullptr;
  TouchKeyboard* keyboard = nullptr;
  std::vector<TouchStroke> strokes;
  int repeats = 0;
};

struct RoomRow {
  QSize most;
  qreal dotsPerInch;
  int pagesOfBlocks;
};

class TouchKeyboardAt : public TouchKeyboardTest, public ::testing::WithParamInterface<RoomRow> {};

TEST_F(TouchKeyboardTest, AnotherDensityMakesOtherKeysAtOnce) {
  keyboard->SetDensity(200);
  for (const auto& cell : keyboard->Cells()) {
    EXPECT_GE(cell.place.width() * kMillimetresPerInch / 200, 12);
    EXPECT_GE(cell.place.height() * kMillimetresPerInch / 200, 12);
  }
}

TEST_P(TouchKeyboardAt, EveryKeyIsAtLeastTwelveMillimetresHighAndWide) {
  const RoomRow& row = GetParam();
  SetUpAt(row.most, row.dotsPerInch);
  EXPECT_LE(keyboard->height(), std::max(row.most.height(), keyboard->LeastSide()));
  for (const TouchLayout layout : {TouchLayout::kBlock, TouchLayout::kLetters, TouchLayout::kSigns}) {
    keyboard->Use(layout);
    EXPECT_TRUE(layout != TouchLayout::kBlock || keyboard->PageCount() == row.pagesOfBlocks) << keyboard->PageCount();
    for (int page = 0; page < keyboard->PageCount(); ++page) {
      for (const auto& cell : keyboard->Cells()) {
        EXPECT_GE(cell.place.width() * kMillimetresPerInch / row.dotsPerInch, 12) << row.most.width();
        EXPECT_GE(cell.place.height() * kMillimetresPerInch / row.dotsPerInch, 12) << row.most.height();
        EXPECT_TRUE(keyboard->rect().contains(cell.place));
        for (const auto& other : keyboard->Cells()) {
          EXPECT_TRUE(&cell == &other || !cell.place.intersects(other.place));
        }
      }
      if (keyboard->PageCount() > 1) Tap(TouchAct::kMore);
    }
  }
}

TEST_P(TouchKeyboardAt, NoKeyIsLeftOutHoweverLittleRoomThereIs) {
  SetUpAt(QSize(1912, 600), 96);
  std::vector<std::pair<std::set<QChar>, std::set<TouchAct>>> whole;
  for (const TouchLayout layout : {TouchLayout::kBlock, TouchLayout::kLetters, TouchLayout::kSigns}) {
    auto characters = Characters(layout);
    EXPECT_EQ(keyboard->PageCount(), 1);
    whole.emplace_back(std::move(characters), Acts());
  }
  SetUpAt(GetParam().most, GetParam().dotsPerInch);
  std::size_t at = 0;
  for (const TouchLayout layout : {TouchLayout::kBlock, TouchLayout::kLetters, TouchLayout::kSigns}) {
    const auto& [characters, acts] = whole[at++];
    EXPECT_EQ(Characters(layout), characters);
    auto found = Acts();
    found.erase(TouchAct::kMore);
    EXPECT_EQ(found, acts);
  }
}

INSTANTIATE_TEST_SUITE_P(Rooms, TouchKeyboardAt,
                         ::testing::Values(RoomRow{{792, 200}, 96, 1}, RoomRow{{1016, 300}, 96, 1},
                                           RoomRow{{1912, 400}, 96, 1}, RoomRow{{1912, 300}, 160, 1},
                                           RoomRow{{792, 200}, 110, 1}, RoomRow{{632, 150}, 96, 2},
                                           RoomRow{{792, 170}, 160, 3}, RoomRow{{632, 40}, 96, 5}));

TEST_F(TouchKeyboardTest, ItHasTheKeysOfABlock) {
  const auto characters = Characters(TouchLayout::kBlock);
  for (const QChar c : QString("GMXYZIJKFSTRN0123456789-.[]% ")) EXPECT_EQ(characters.count(c), 1u) << c.toLatin1();
  const auto acts = Acts();
  for (const TouchAct act : {TouchAct::kEnter, TouchAct::kEscape, TouchAct::kBack, TouchAct::kLeft, TouchAct::kRight,
                             TouchAct::kUp, TouchAct::kDown, TouchAct::kHide, TouchAct::kLetters}) {
    EXPECT_EQ(acts.count(act), 1u) << static_cast<int>(act);
  }
}

TEST_F(TouchKeyboardTest, ItHasTheCharactersOfBothLanguagesAndOfFileNames) {
  auto characters = Characters(TouchLayout::kLetters);
  characters.merge(Characters(TouchLayout::kSigns));
  for (char c = ' '; c <= '~'; ++c) EXPECT_EQ(characters.count(QChar(c)), 1u) << c;
  for (const QChar c : QString::fromUtf8("ñÑáéíóúüÁÉÍÓÚÜ¡¿"))
    EXPECT_EQ(characters.count(c), 1u) << static_cast<int>(c.unicode());
}

TEST_F(TouchKeyboardTest, EveryKeyPutsItsCharacterIntoTheFieldThatHasTheFocus) {
  for (const char* language : {"en", "es"}) {
    UseWords(language);
    for (const TouchLayout layout : {TouchLayout::kBlock, TouchLayout::kLetters, TouchLayout::kSigns}) {
      keyboard->Use(layout);
      field->clear();
      QString expected;
      const auto cells = keyboard->Cells();
      for (const auto& cell : cells) {
        if (cell.key.act != TouchAct::kCharacter) continue;
        Tap(cell.place);
        expected += cell.key.plain;
        if (layout == TouchLayout::kBlock) continue;
        Tap(TouchAct::kShift);
        EXPECT_TRUE(keyboard->Shifted());
        Tap(cell.place);
        EXPECT_FALSE(keyboard->Shifted()) << "one character only";
        expected += cell.key.shifted;
      }
      EXPECT_EQ(field->text(), expected);
      EXPECT_TRUE(field->hasFocus());
    }
  }
}

TEST_F(TouchKeyboardTest, TheOtherKeysDoWhatTheKeyboardsDo) {
  field->setText("G1 X20");
  int entered = 0;
  QObject::connect(field, &QLineEdit::returnPressed, [&entered] { ++entered; });
  Tap(TouchAct::kBack);
  EXPECT_EQ(field->text(), "G1 X2");
  Tap(TouchAct::kLeft);
  Tap(TouchAct::kLeft);
  EXPECT_EQ(field->cursorPosition(), 3);
  Tap(TouchAct::kRight);
  EXPECT_EQ(field->cursorPosition(), 4);
  Tap(TouchAct::kEnter);
  EXPECT_EQ(entered, 1);
  strokes.clear();
  for (const TouchAct act : {TouchAct::kUp, TouchAct::kDown, TouchAct::kEscape}) Tap(act);
  EXPECT_EQ(strokes, (std::vector<TouchStroke>{
                         {Qt::Key_Up, {}, {}}, {Qt::Key_Down, {}, {}}, {Qt::Key_Escape, {}, QStringLiteral("\x1b")}}));
  strokes.clear();
  Tap(TouchAct::kCharacter, 'G');
  Tap(TouchAct::kCharacter, '7');
  EXPECT_EQ(strokes, (std::vector<TouchStroke>{{Qt::Key_G, Qt::ShiftModifier, "G"}, {Qt::Key_7, {}, "7"}}));
}

TEST_F(TouchKeyboardTest, ShiftTwiceStaysUntilItIsPressedAgain) {
  keyboard->Use(TouchLayout::kLetters);
  Tap(TouchAct::kShift);
  Tap(TouchAct::kShift);
  for (const QChar c : QString("abc")) Tap(TouchAct::kCharacter, c);
  Tap(TouchAct::kBack);
  Tap(TouchAct::kShift);
  Tap(TouchAct::kCharacter, 'd');
  EXPECT_EQ(field->text(), "ABd");
  Tap(TouchAct::kShift);
  Tap(TouchAct::kBack);
  EXPECT_TRUE(keyboard->Shifted()) << "only a character uses it up";
  keyboard->Reset();
  EXPECT_FALSE(keyboard->Shifted());
}

TEST_F(TouchKeyboardTest, AHeldKeyRepeatsUntilItIsLetGo) {
  const QPoint place = Find(TouchAct::kCharacter, 'J')->place.center();
  Mouse(QEvent::MouseButtonPress, place);
  EXPECT_EQ(field->text(), "J");
  ASSERT_EQ(Timers().size(), 1);
  EXPECT_EQ(Timers()[0].interval, 400);
  Tick();
  EXPECT_EQ(Timers()[0].interval, 80) << "faster once it has begun";
  Tick();
  EXPECT_EQ(field->text(), "JJJ");
  EXPECT_EQ(repeats, 2);
  Mouse(QEvent::MouseButtonRelease, place);
  EXPECT_TRUE(Timers().isEmpty());
  EXPECT_EQ(field->text(), "JJJ");
}

TEST_F(TouchKeyboardTest, AHeldEnterOrEscapeActsOnce) {
  for (const TouchAct act : {TouchAct::kEnter, TouchAct::kEscape}) {
    Mouse(QEvent::MouseButtonPress, Find(act)->place.center());
    EXPECT_TRUE(Timers().isEmpty());
    Mouse(QEvent::MouseButtonRelease, Find(act)->place.center());
  }
  EXPECT_EQ(strokes.size(), 2u);
}

TEST_F(TouchKeyboardTest, AHeldKeyStopsWhenTheKeyboardGoes) {
  Mouse(QEvent::MouseButtonPress, Find(TouchAct::kBack)->place.center());
  ASSERT_EQ(Timers().size(), 1);
  keyboard->hide();
  EXPECT_TRUE(Timers().isEmpty());
}

TEST_F(TouchKeyboardTest, ASecondQuickTouchCountsLikeTheFirst) {
  const QPoint place = Find(TouchAct::kCharacter, '7')->place.center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                          QEvent::MouseButtonRelease}) {
    Mouse(type, place);
  }
  EXPECT_EQ(field->text(), "77");
}

TEST_F(TouchKeyboardTest, ATouchBetweenTwoKeysIsForOneOfThem) {
  const QRect g = Find(TouchAct::kCharacter, 'G')->place;
  Tap(QRect(g.right() + 2, g.center().y(), 1, 1));
  Tap(QRect(g.right() + 4, g.center().y(), 1, 1));
  EXPECT_EQ(field->text(), "GM");
}

TEST_F(TouchKeyboardTest, ItSaysWhenItIsToGoOnlyIfTheFingerStaysOnTheKey) {
  int wanted = 0;
  QObject::connect(keyboard, &TouchKeyboard::HideWanted, [&wanted] { ++wanted; });
  const QPoint hide = Find(TouchAct::kHide)->place.center();
  Mouse(QEvent::MouseButtonPress, hide);
  Mouse(QEvent::MouseButtonRelease, Find(TouchAct::kBack)->place.center());
  EXPECT_EQ(wanted, 0);
  Mouse(QEvent::MouseButtonPress, hide);
  EXPECT_EQ(wanted, 0);
  Mouse(QEvent::MouseButtonRelease, hide);
  EXPECT_EQ(wanted, 1);
  EXPECT_TRUE(strokes.empty());
}

TEST_F(TouchKeyboardTest, EachLayoutLeadsToTheOthers) {
  Tap(TouchAct::kLetters);
  EXPECT_EQ(keyboard->Layout(), TouchLayout::kLetters);
  Tap(TouchAct::kSigns);
  EXPECT_EQ(keyboard->Layout(), TouchLayout::kSigns);
  Tap(TouchAct::kLetters);
  Tap(TouchAct::kBlock);
  EXPECT_EQ(keyboard->Layout(), TouchLayout::kBlock);
  EXPECT_TRUE(strokes.empty());
}

/// Deletes the field at the first key.
class FieldEnd : public QObject {
 public:
  explicit FieldEnd(QLineEdit* field) : field_(field) { field->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || watched != field_) return false;
    delete field_;
    return true;
  }

 private:
  QPointer<QLineEdit> field_;
};

TEST_F(TouchKeyboardTest, AKeyWhoseFieldGoesOnPressLeavesNothingBehind) {
  FieldEnd end(field);
  const QPointer<QLineEdit> gone = field;
  Tap(TouchAct::kCharacter, 'X');
  EXPECT_TRUE(gone.isNull());
  Tap(TouchAct::kCharacter, 'Y');
  EXPECT_EQ(strokes.size(), 2u) << "the next key goes to the panel";
}

TEST_F(TouchKeyboardTest, RowsAreGivenUpBeforeKeysBecomeSmall) {
  const int least = keyboard->LeastSide();
  EXPECT_EQ(least, 46);
  EXPECT_EQ(keyboard->HeightFor(10'000), 3 * 50 - 4);
  EXPECT_EQ(keyboard->HeightFor(3 * 50 - 4), 3 * 50 - 4);
  EXPECT_EQ(keyboard->HeightFor(3 * 50 - 5), 2 * 50 - 4);
  EXPECT_EQ(keyboard->HeightFor(0), 46);
  keyboard->SetKeyHeight(80);
  EXPECT_EQ(keyboard->HeightFor(10'000), 3 * 84 - 4);
  EXPECT_EQ(keyboard->HeightFor(200), 200);
}

TEST_F(TouchKeyboardTest, WordsOnKeysAreReadable) {
  for (const QRgb fill : {theme::kRaised, theme::kSteel, theme::kPressed}) {
    EXPECT_GE(theme::Contrast(QColor(fill), theme::InkOn(QColor(fill))), theme::kLeastContrast);
  }
  EXPECT_EQ(keyboard->focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace panel
