// SPDX-License-Identifier: MIT
// How the calculator looks: grounds of its keys, fonts and colours of its line, lists and words, and its edges.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "calc/calc_ids.h"
#include "calc/qt/calc_client_widget.h"
#include "calc/qt/calc_input_widgets.h"
#include "calc/qt/calc_look.h"
#include "calc/qt/calc_stage.h"
#include "calc/qt/calc_text_widgets.h"

namespace pnl::test {
namespace {

std::uint32_t Bgr(QRgb color) {
  return static_cast<std::uint32_t>(qRed(color) | qGreen(color) << 8 | qBlue(color) << 16);
}

class CalcLookTest : public CalcStage {
 protected:
  CalcLookTest() { Open(); }
};

TEST_F(CalcLookTest, DigitsOperatorsExtrasAndTheConfirmingKeyHaveGroundsOfTheirOwn) {
  for (int id = calc_id::kOpenList; id <= calc_id::kAssign; ++id) {
    const auto* key = qobject_cast<CalcKeyWidget*>(Control(id));
    if (key == nullptr) continue;
    // Three of the five keys of a row are digits, signs or letters.
    const bool digit = id >= 1017 && id <= 1035 && (id - 1017) % 5 < 3;
    const QRgb ground = id == calc_id::kConfirm  ? calc_look::kConfirmKey
                        : id == calc_id::kAssign ? calc_look::kExtraKey
                        : digit                  ? calc_look::kKey
                                                 : calc_look::kOperatorKey;
    EXPECT_EQ(ColorAt(Paint(*Control(id)), 3, 5), Bgr(ground)) << id;
  }
  for (const int id : {calc_id::kShowBases, calc_id::kShowVariables, calc_id::kShowSolver}) {
    EXPECT_EQ(ColorAt(Paint(*Control(id)), 3, 5), Bgr(calc_look::kExtraKey)) << id;
  }
}

TEST_F(CalcLookTest, TheWindowHasAnEdgeAroundItsGround) {
  auto* client = tool->findChild<CalcClientWidget*>();
  QImage image(client->size(), QImage::Format_RGB32);
  client->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  for (const QPoint place :
       {QPoint(0, 50), QPoint(image.width() - 1, 50), QPoint(50, 0), QPoint(50, image.height() - 1)}) {
    EXPECT_EQ(image.pixel(place), calc_look::kEdge) << place.x() << "," << place.y();
  }
  EXPECT_EQ(image.pixel(1, 1), calc_look::kGround);
  EXPECT_EQ(image.pixel(image.width() - 2, image.height() - 2), calc_look::kGround);
  EXPECT_EQ(Back(tool), Bgr(calc_look::kGround));
}

TEST_F(CalcLookTest, TheLineIsDarkOnLightWithItsOwnMark) {
  EXPECT_EQ(Line()->palette().color(QPalette::Base).rgb(), calc_look::kLineGround);
  EXPECT_EQ(Line()->palette().color(QPalette::Text).rgb(), calc_look::kLineText);
  EXPECT_EQ(Line()->palette().color(QPalette::Highlight).rgb(), calc_look::kSelection);
  EXPECT_EQ(Line()->palette().color(QPalette::HighlightedText), QColor(Qt::white));
  EXPECT_FALSE(Line()->hasFrame());
  EXPECT_EQ(Line()->textMargins(), QMargins(4, 0, 4, 0));
}

TEST_F(CalcLookTest, TheListsAreLightOnDark) {
  for (ListBox* list : {List(), Variables()}) {
    EXPECT_EQ(Back(list), calc_look::kListBack);
    EXPECT_EQ(Fore(list), calc_look::kListText);
  }
  EXPECT_EQ(List()->selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_NE(Variables()->selectionMode(), QAbstractItemView::ExtendedSelection) << "one variable at a time";
}

TEST_F(CalcLookTest, WordsAreDrawnFromTheLeftEdgeOfTheirField) {
  CalcLabelWidget label(1011, 13, nullptr);
  label.resize(200, 20);
  const QImage blank = Paint(label);
  const std::uint32_t ground = ColorAt(blank, 199, 19);
  EXPECT_TRUE(Ink(blank, ground).isEmpty());
  label.SetText("HHHH");
  const QImage image = Paint(label);
  const QRect ink = Ink(image, ground);
  EXPECT_GE(ink.left(), 2);
  EXPECT_LE(ink.left(), 5);
  EXPECT_NEAR(ink.center().y(), 10, 3);
  label.SetText(QString(12, 'H'));
  EXPECT_GT(Ink(Paint(label), ground).width(), ink.width()) << "painted anew";
}

TEST_F(CalcLookTest, ATextThatDoesntFitIsDrawnSmallerDownToALimit) {
  const QFont font = calc_look::Font(19, 600);
  EXPECT_EQ(font.pixelSize(), 19);
  EXPECT_EQ(font.weight(), 600);
  const QString text(10, 'H');
  const int width = QFontMetrics(font).horizontalAdvance(text);
  EXPECT_EQ(calc_look::FittingFont(font, text, width, 8).pixelSize(), 19) << "it fits exactly";
  EXPECT_EQ(calc_look::FittingFont(font, text, width - 1, 8).pixelSize(), 18);
  EXPECT_EQ(calc_look::FittingFont(font, text, 1, 8).pixelSize(), 8);
  EXPECT_EQ(calc_look::FittingFont(font, text, 1, 19).pixelSize(), 19);
}

TEST_F(CalcLookTest, TheNoteHasAnEdgeAndItsTextAMargin) {
  CalcNoteWidget note(1105, 7, calc_look::kNoteHeight, area);
  note.SetText("HHHH");
  note.PlaceBeside(QRect(0, 0, 282, 221));
  const QImage image = Paint(note);
  for (const QPoint place :
       {QPoint(0, 5), QPoint(image.width() - 1, 5), QPoint(50, 0), QPoint(50, image.height() - 1)}) {
    EXPECT_EQ(image.pixel(place), calc_look::kEdge) << place.x() << "," << place.y();
  }
  const QRect ink = Ink(image, Bgr(calc_look::kGround), image.rect().adjusted(1, 1, -1, -1));
  EXPECT_NEAR(ink.left(), 7, 2);
  EXPECT_GE(ink.top(), 6);
  EXPECT_LE(ink.bottom(), image.height() - 7);
  EXPECT_NEAR(image.height(), QFontMetrics(note.font()).height() + 2 * 6, 2);
  EXPECT_EQ(note.font().pixelSize(), 14);
}

TEST_F(CalcLookTest, AMarkAndItsTextShareTheRoomByThirds) {
  const QFontMetrics metrics(calc_look::Font(13, 400));
  const int room = 300;
  // A short text before the mark leaves its room to the one after it, and the other way round.
  const QString after = ShortenAroundMark(metrics, "1< >" + QString(100, '2'), room);
  EXPECT_TRUE(after.startsWith("1< >2"));
  EXPECT_GT(metrics.horizontalAdvance(after), room - 15);
  const QString before = ShortenAroundMark(metrics, QString(100, '1') + "< >2", room);
  EXPECT_TRUE(before.endsWith("< >2"));
  EXPECT_GT(metrics.horizontalAdvance(before), room - 15);
  const QString both = ShortenAroundMark(metrics, QString(100, '1') + "< >" + QString(100, '2'), room);
  const QString tail = both.mid(both.indexOf("< >") + 3);
  EXPECT_NEAR(metrics.horizontalAdvance(tail), (room - metrics.horizontalAdvance("< >")) / 3, 12);
  const QString fits = QString(10, '1') + "< >2";
  EXPECT_EQ(ShortenAroundMark(metrics, fits, metrics.horizontalAdvance(fits)), fits) << "it fits exactly";
}

// ---------------------------------------------------------------- the line

TEST_F(CalcLookTest, ASelectionIsKeptWithinTheText) {
  Line()->SetText("12345");
  const std::pair<TextSelection, TextSelection> rows[] = {{{1, 3}, {1, 3}}, {{-2, 3}, {0, 3}},  {{2, 9}, {2, 5}},
                                                          {{9, 9}, {5, 5}}, {{-1, -1}, {0, 0}}, {{0, 5}, {0, 5}}};
  for (const auto& [wanted, got] : rows) {
    Line()->Select(wanted);
    EXPECT_EQ(Line()->Selection(), got) << wanted.start << " " << wanted.end;
  }
}

TEST_F(CalcLookTest, OnlyOneCommittedCharacterIsAKey) {
  const auto commit = [this](const QString& text, int replaced, const QString& preedit) {
    Line()->SetText("2");
    Line()->Select({0, 1});
    QInputMethodEvent event(preedit, {});
    event.setCommitString(text, 0, replaced);
    QApplication::sendEvent(Line(), &event);
    return LineText();
  };
  EXPECT_EQ(commit("^", 0, ""), "(2)^");
  EXPECT_EQ(commit("^^", 0, ""), "^^");
  EXPECT_NE(commit("^", 0, "x"), "(2)^") << "a composition goes on";
}

// ---------------------------------------------------------------- keys

struct LogicKeyRow {
  int key;
  Qt::KeyboardModifiers modifiers;
  bool taken;
};

TEST_F(CalcLookTest, EachOfItsKeysComesBeforeTheShortcutsOfThePanelAlsoWithTheOtherModifiers) {
  const LogicKeyRow rows[] = {
      {Qt::Key_Return, Qt::NoModifier, true},
      {Qt::Key_Enter, Qt::NoModifier, true},
      {Qt::Key_Left, Qt::NoModifier, true},
      {Qt::Key_Right, Qt::ShiftModifier, true},
      {Qt::Key_Up, Qt::ShiftModifier, true},
      {Qt::Key_Down, Qt::NoModifier, true},
      {Qt::Key_Delete, Qt::NoModifier, true},
      {Qt::Key_Delete, Qt::ShiftModifier, false},
      {Qt::Key_Insert, Qt::ShiftModifier, false},
      {Qt::Key_Enter, Qt::ControlModifier, true},
      {Qt::Key_Left, Qt::ControlModifier, true},
      {Qt::Key_Right, Qt::ControlModifier, true},
      {Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier, true},
      {Qt::Key_Escape, Qt::ControlModifier, false},
      {Qt::Key_Insert, Qt::ControlModifier, false},
      {Qt::Key_Delete, Qt::ControlModifier, false},
      {Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier, false},
      {Qt::Key_B, Qt::NoModifier, false},
      {Qt::Key_E, Qt::AltModifier, false},
      {Qt::Key_F4, Qt::NoModifier, false},
      {Qt::Key_F4, Qt::ControlModifier, false},
      {Qt::Key_Return, Qt::ControlModifier | Qt::AltModifier, false},
      {Qt::Key_Return, Qt::MetaModifier, false},
  };
  for (const LogicKeyRow& row : rows) {
    QKeyEvent event(QEvent::ShortcutOverride, row.key, row.modifiers);
    event.ignore();
    QApplication::sendEvent(List(), &event);
    EXPECT_EQ(event.isAccepted(), row.taken) << row.key << " " << row.modifiers;
  }
}

TEST_F(CalcLookTest, ShortcutsOfItsThreeExtrasShowThem) {
  Key(Qt::Key_R, Qt::ControlModifier);
  EXPECT_TRUE(Variables()->isVisible());
  Key(Qt::Key_R, Qt::ControlModifier);
  EXPECT_FALSE(Variables()->isVisible());
  EXPECT_FALSE(Note()->isVisible());
  Key(Qt::Key_B, Qt::ControlModifier);
  EXPECT_TRUE(Note()->isVisible());
  Key(Qt::Key_E, Qt::ControlModifier);
  EXPECT_TRUE(Note()->isVisible()) << "the solver's";
}

TEST_F(CalcLookTest, APressOnTheWindowItselfStaysThere) {
  QMouseEvent press(QEvent::MouseButtonPress, QPoint(1, 1), tool->mapToGlobal(QPoint(1, 1)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  press.ignore();
  QApplication::sendEvent(tool, &press);
  EXPECT_TRUE(press.isAccepted()) << "the host's widget below doesn't get it";
}

struct SizeRow {
  QSize area;
  double scale;
};

class CalcSizes : public CalcStage, public testing::WithParamInterface<SizeRow> {};

TEST_P(CalcSizes, KeysAndLettersGrowWithTheToolArea) {
  area->resize(GetParam().area);
  Open();
  const double scale = GetParam().scale;
  const auto scaled = [scale](int pixels) { return static_cast<int>(std::lround(pixels * scale)); };
  EXPECT_EQ(tool->width(), DialogPixelsX(188, scale));
  EXPECT_EQ(Control(1017)->size(), QSize(DialogPixelsX(22, scale), DialogPixelsY(17, scale)));
  EXPECT_EQ(Line()->font().pixelSize(), scaled(11) + scaled(6));
  EXPECT_EQ(Note()->font().pixelSize(), scaled(14));
  EXPECT_EQ(List()->font().pixelSize(), scaled(16));
  Write("SETMENU(TRUE)");
  Key(Qt::Key_Return);
  EXPECT_EQ(tool->findChild<CalcMenuWidget*>()->font().pixelSize(), scaled(15));
  // A key without a picture.
  const QImage key = Paint(*Control(calc_id::kShowVariables));
  const QFont letters =
      calc_look::FittingFont(calc_look::Font(scaled(12), calc_look::kBoldWeight), "Vars", key.width() - 4, 8);
  const QRect ink = Ink(key.copy(4, 4, key.width() - 8, key.height() - 8), Bgr(calc_look::kExtraKey));
  EXPECT_NEAR(ink.width(), QFontMetrics(letters).horizontalAdvance("Vars"), 4);
}

INSTANTIATE_TEST_SUITE_P(Areas, CalcSizes,
                         testing::Values(SizeRow{{528, 300}, 1}, SizeRow{{800, 600}, 1}, SizeRow{{1024, 768}, 1.25},
                                         SizeRow{{1600, 860}, 1.75}, SizeRow{{1920, 1080}, 2.25}));

}  // namespace
}  // namespace pnl::test
