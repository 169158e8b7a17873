// SPDX-License-Identifier: MIT
// What the calculator's controls paint, in which letters, and when they paint again.
#include "calc/qt/calc_client_widget.h"
#include "calc/qt/calc_look.h"
#include "calc/qt/calc_text_widgets.h"
#include "calc_stage.h"
#include "controls/draw_text.h"
#include "controls/qt/paint_counter.h"
#include "support/painted_texts.h"

namespace pnl::test {
namespace {

constexpr const char* kRedSquare =
    "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'><rect width='10' height='10' fill='red'/></svg>";
constexpr std::uint32_t kRed = 0x0000FF;

/// The rectangle around the pixels of that colour.
QRect PlaceOf(const QImage& image, std::uint32_t color) {
  QRect place;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (ColorAt(image, x, y) == color) place |= QRect(x, y, 1, 1);
    }
  }
  return place;
}

class CalcPaintTest : public CalcStage {};

TEST_F(CalcPaintTest, TheResultIsInTheMiddleWhateverItsHeight) {
  ZCResultWnd result(1010, nullptr);
  const QFont font = calc_look::Font(19, 400);
  result.SetFont(font);
  result.SetText("H", false);
  const QFontMetrics metrics(font);
  for (const int height : {40, 41}) {
    result.resize(100, height);
    const QImage image = Paint(result);
    EXPECT_EQ(Ink(image, ColorAt(image, 0, 0)).bottom() + 1, (height - CellHeight(metrics)) / 2 + metrics.ascent());
  }
}

TEST_F(CalcPaintTest, TheResultShowsNewColoursAtOnce) {
  ZCResultWnd result(1010, nullptr);
  result.resize(100, 30);
  for (const std::uint32_t back : {0x112233u, 0x445566u}) {
    result.SetColors(back, 0xFFFFFF, false);
    EXPECT_EQ(ColorAt(Paint(result), 1, 1), back);
  }
}

TEST_F(CalcPaintTest, TheResultIsInLargeLetters) {
  Open();
  Write("88888888");
  Key(Qt::Key_Return);
  ASSERT_EQ(Result(), "88888888");
  ZCResultWnd like(1010, nullptr);
  like.resize(Control(calc_id::kResult)->size());
  like.SetColors(Back(Control(calc_id::kResult)), Fore(Control(calc_id::kResult)), false);
  like.SetText("88888888", false);
  like.SetFont(calc_look::Font(11 + 8, 700));
  EXPECT_EQ(Paint(*Control(calc_id::kResult)), Paint(like));
  like.SetFont(calc_look::Font(11, 400));
  EXPECT_NE(Paint(*Control(calc_id::kResult)), Paint(like));
}

TEST_F(CalcPaintTest, WordsAreInTheLettersAndTheColourOfTheDialog) {
  CalcLabelWidget label(1011, 13, nullptr);
  label.resize(300, 30);
  label.SetText("HHHHHHHHHH");
  const std::vector<PaintedText> texts = PaintedTextsOf(label);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts.front().ink.rgb(), calc_look::kText);
  const QFontMetrics metrics(calc_look::Font(13, 400));
  EXPECT_NEAR(texts.front().place.width(), metrics.horizontalAdvance("HHHHHHHHHH"), 4);
}

TEST_F(CalcPaintTest, TheNoteIsInTheColourOfTheDialogAndIsPaintedWhenItsTextChanges) {
  CalcNoteWidget note(1105, 7, calc_look::kNoteHeight, area);
  note.SetText("one");
  note.PlaceBeside(QRect(0, 0, 282, 221));
  note.show();
  const std::vector<PaintedText> texts = PaintedTextsOf(note);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts.front().ink.rgb(), calc_look::kText);
  Settle();
  const PaintCounter painted(note);
  note.SetText("two");
  Settle();
  EXPECT_GT(painted.Count(), 0);
}

TEST_F(CalcPaintTest, LinesOfTheNoteBreakBetweenWords) {
  CalcNoteWidget note(1105, 7, calc_look::kNoteHeight, area);
  const QFontMetrics metrics(note.font());
  const int word = metrics.horizontalAdvance("HHHHHHHH");
  note.SetText("HHHHHHHH HHHHHHHH");
  note.PlaceBeside(QRect(0, 0, word * 3 / 2, 221));
  const QRect inside = note.rect().adjusted(1, 1, -1, -1);
  EXPECT_LE(Ink(Paint(note), calc_look::kGroundColor, inside).width(), word);
}

TEST_F(CalcPaintTest, APartOfItPaintsNothingBelowIt) {
  Open();
  CalcNoteWidget note(1105, 7, calc_look::kNoteHeight, area);
  note.SetText("one");
  note.PlaceBeside(QRect(0, 300, 282, 100));
  note.show();
  Settle();
  const PaintCounter below(*area);
  const PaintCounter window(*tool);
  note.update();
  tool->findChild<CalcClientWidget*>()->update();
  Control(calc_id::kResult)->update();
  Settle();
  EXPECT_EQ(below.Count(), 0);
  EXPECT_EQ(window.Count(), 0);
}

TEST_F(CalcPaintTest, AKeysPictureKeepsItsShapeAndIsShownAtOnce) {
  CalcKeyWidget key(1016, "Acc", calc_look::kKey, area);
  key.setGeometry(0, 0, 60, 28);
  key.show();
  Settle();
  EXPECT_EQ(key.accessibleName(), "Acc");
  const PaintCounter painted(key);
  key.SetPicture(kRedSquare);
  Settle();
  EXPECT_GT(painted.Count(), 0);
  const QRect square = PlaceOf(Paint(key), kRed);
  EXPECT_EQ(square.height(), 24);
  EXPECT_EQ(square.width(), 24) << "the key is wider than high";
}

TEST_F(CalcPaintTest, TheCornersOfAKeyAreSmooth) {
  CalcKeyWidget key(1016, "", calc_look::kKey, nullptr);
  key.resize(40, 30);
  const QImage image = Paint(key);
  int mixed = 0;
  for (int x = 0; x < 4; ++x) {
    for (int y = 0; y < 4; ++y) {
      const QColor color = image.pixelColor(x, y);
      const bool pure =
          color == QColor(calc_look::kKeyEdge) || color == QColor(calc_look::kKey) || color == QColor(Qt::magenta);
      mixed += pure ? 0 : 1;
    }
  }
  EXPECT_GT(mixed, 1);
}

TEST_F(CalcPaintTest, TheMarkOfAFailureStaysHoweverLittleRoomThereIs) {
  const QFontMetrics metrics(calc_look::Font(13, 400));
  const int mark = metrics.horizontalAdvance("< >");
  EXPECT_TRUE(ShortenAroundMark(metrics, "< >" + QString(100, '2'), mark).startsWith("< >"));
  EXPECT_TRUE(ShortenAroundMark(metrics, QString(100, '1') + "< >", mark).endsWith("< >"));
}

TEST_F(CalcPaintTest, ItsMenuIsInItsWindowWhateverTheDesktop) {
  MenuTable own;
  const CalcMenuWidget bar(own, own.Create({}), 15, nullptr);
  EXPECT_FALSE(bar.isNativeMenuBar());
}

TEST_F(CalcPaintTest, AHostSeesFromTheFirstThatItCanHaveAMenu) {
  ZCCalc7340 made(context, area, 0);
  EXPECT_TRUE(made.property(property::kMenuAttached).isValid());
  EXPECT_FALSE(made.property(property::kMenuAttached).toBool());
}

TEST_F(CalcPaintTest, TellsTheHostThatRowsCanBePutBack) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(tool->property(property::kRemoved).toInt(), 0);
  Key(Qt::Key_Delete);
  EXPECT_NE(tool->property(property::kRemoved).toInt(), 0);
}

TEST_F(CalcPaintTest, ControlsAndNoteFollowASizeThatTheHostGivesIt) {
  Open();
  Touch(calc_id::kShowSolver);
  const int gap = Note()->y() - tool->height();
  tool->resize(300, 150);
  EXPECT_EQ(tool->findChild<CalcClientWidget*>()->geometry(), QRect(0, 0, 300, 150));
  EXPECT_EQ(Note()->y(), 150 + gap);
  EXPECT_EQ(Note()->width(), 300);
}

TEST_F(CalcPaintTest, AKeyThatEndsTheWindowIsTaken) {
  Open();
  Write("1");
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolClosed(3,1)") delete tool;
  };
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
  press.ignore();
  QApplication::sendEvent(Line(), &press);
  onHostCall = nullptr;
  EXPECT_TRUE(tool.isNull());
  EXPECT_TRUE(press.isAccepted());
}

TEST_F(CalcPaintTest, SelectedRowsHaveAGroundOfTheirOwn) {
  Open();
  for (const ListBox* list : {List(), Variables()}) {
    EXPECT_EQ(list->SelectedBackColor(), calc_look::kListSelected);
    EXPECT_EQ(list->SelectedTextColor(), calc_look::kListText);
  }
}

TEST_F(CalcPaintTest, AResultIsPaintedInItsTurnAndNothingBelowIt) {
  Open();
  auto* result = static_cast<ZCResultWnd*>(Control(calc_id::kResult));
  Settle();
  const PaintCounter own(*result);
  const PaintCounter below(*tool->findChild<CalcClientWidget*>());
  result->SetText("12", false);
  EXPECT_EQ(own.Count(), 0) << "not at once";
  Settle();
  EXPECT_EQ(own.Count(), 1);
  EXPECT_EQ(below.Count(), 0);
}

TEST_F(CalcPaintTest, NewWordsOfTheStatusArePainted) {
  Open();
  Settle();
  auto* status = static_cast<CalcLabelWidget*>(Control(calc_id::kStatus));
  const PaintCounter own(*status);
  status->SetText("other words");
  Settle();
  EXPECT_GT(own.Count(), 0);
}

TEST_F(CalcPaintTest, APressGoesThroughTheNote) {
  Open();
  Touch(calc_id::kShowSolver);
  ASSERT_TRUE(Note()->isVisible());
  EXPECT_EQ(area->childAt(Note()->geometry().center()), nullptr);
}

TEST_F(CalcPaintTest, OpensAlsoIfTheHostDestroysItsNote) {
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolOpening(3)") delete area->findChild<CalcNoteWidget*>();
  };
  Open();
  onHostCall = nullptr;
  EXPECT_EQ(Note(), nullptr);
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(tool->windowTitle(), "Calculator");
}

TEST_F(CalcPaintTest, AClosedWindowIsHiddenAtOnceAlsoIfTheHostShowsItMeanwhile) {
  Open();
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolClosed(3,2)") tool->show();
  };
  EXPECT_EQ(Command(20), 2);
  ASSERT_FALSE(tool.isNull());
  EXPECT_FALSE(tool->isVisible());
}

TEST_F(CalcPaintTest, ACommandOfTheMenuAnswersNothing) {
  Open();
  EXPECT_EQ(Send(PNL_MSG_COMMAND, calc_id::kMenuCompact), 0);
}

TEST_F(CalcPaintTest, EditingKeysComeBeforeTheShortcutsOfThePanel) {
  Open();
  QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_7, Qt::NoModifier, "7");
  event.ignore();
  QApplication::sendEvent(Line(), &event);
  EXPECT_TRUE(event.isAccepted());
}

TEST_F(CalcPaintTest, ItsClockCountsFromItsMaking) {
  constexpr std::int64_t kHour = 3'600'000;
  const ZCCalc7340::Clock clock = ZCCalc7340::SteadyClock();
  const std::int64_t first = clock();
  EXPECT_GE(first, 0);
  EXPECT_LT(first, kHour);
  EXPECT_GE(clock(), first);
}

}  // namespace
}  // namespace pnl::test
