// SPDX-License-Identifier: MIT
// The calculator's controls one by one: result display, status line, keys, note, menu bar.
#include <QtSvg/QSvgRenderer>

#include "calc/qt/calc_input_widgets.h"
#include "calc/qt/calc_look.h"
#include "calc/qt/calc_text_widgets.h"
#include "calc_stage.h"

namespace pnl::test {
namespace {

constexpr Color kBlue = 0xFF0000;
constexpr Color kYellow = 0x00FFFF;

class ResultTest : public testing::Test {
 protected:
  ResultTest() {
    window.resize(300, 60);
    result.setGeometry(0, 0, 276, 28);
    result.SetFont(calc_look::Font(19, 700));
    result.SetColors(kBlue, kYellow, true);
    Activate(window);
  }
  QWidget window;
  ZCResultWnd result{1010, &window};
};

TEST_F(ResultTest, DrawsItsTextAtTheRightInTheMiddleOnItsGround) {
  result.SetText("14", true);
  const QImage image = Paint(result);
  const QRect ink = Ink(image, kBlue);
  EXPECT_GT(ink.left(), 230);
  EXPECT_GE(ink.right(), 265);
  EXPECT_NEAR(ink.center().y(), 14, 3);
  EXPECT_GT(Count(image, kYellow), 20);
}

TEST_F(ResultTest, ShowsThirtyTwoBinaryDigitsWhole) {
  const QString digits = "B" + QString(32, '1');
  result.SetText(digits, true);
  QString text;
  result.GetText(text);
  EXPECT_EQ(text, digits);
  const QRect ink = Ink(Paint(result), kBlue);
  EXPECT_GE(ink.left(), 2) << "nothing is cut at the left";
}

TEST_F(ResultTest, KeepsTheTextWhateverItIs) {
  for (const QString& text : {QString(), QString(1000, '9'), QStringLiteral("a & b"), QStringLiteral("inf")}) {
    result.SetText(text, true);
    EXPECT_EQ(result.Shown(), text);
    EXPECT_FALSE(Paint(result).isNull());
  }
}

TEST_F(ResultTest, FollowsItsSize) {
  result.SetText("1", true);
  result.resize(100, 40);
  EXPECT_LT(Ink(Paint(result), kBlue).right(), 100);
  result.resize(0, 0);
  result.SetText("2", true);
}

TEST_F(ResultTest, TellsItsColors) {
  EXPECT_EQ(result.property(property::kBack).toUInt(), kBlue);
  EXPECT_EQ(result.property(property::kFore).toUInt(), kYellow);
}

TEST(ShortenAroundMarkTest, KeepsThePlaceOfAFailureInSight) {
  const QFontMetrics metrics(calc_look::Font(13, 400));
  const QString longText = QString(100, '1') + "< >" + QString(100, '2');
  const QString cut = ShortenAroundMark(metrics, longText, 250);
  EXPECT_LE(metrics.horizontalAdvance(cut), 250);
  EXPECT_TRUE(cut.contains("1< >2")) << cut.toStdString();
  EXPECT_EQ(ShortenAroundMark(metrics, "short", 250), "short");
  const QString plain = ShortenAroundMark(metrics, QString(200, 'x'), 250);
  EXPECT_LE(metrics.horizontalAdvance(plain), 250);
  EXPECT_TRUE(ShortenAroundMark(metrics, QString(100, '1') + "< >", 250).endsWith("< >"));
  EXPECT_TRUE(ShortenAroundMark(metrics, "< >" + QString(100, '2'), 250).startsWith("< >"));
  EXPECT_FALSE(ShortenAroundMark(metrics, longText, 0).isNull()) << "no room at all";
}

TEST(CalcLabelTest, TellsTheWholeTextHoweverItIsShown) {
  CalcLabelWidget label(1011, 13, nullptr);
  label.resize(50, 16);
  label.SetText(QString(300, 'x'));
  EXPECT_EQ(label.property("pnlText").toString().size(), 300);
  EXPECT_FALSE(Paint(label).isNull());
}

TEST(CalcKeyTest, IsFilledWithItsGroundAndAnotherWhilePressed) {
  CalcKeyWidget key(1016, "", calc_look::kKey, nullptr);
  key.resize(40, 30);
  const auto colorAt = [&key](int x, int y) { return Paint(key).pixelColor(x, y); };
  EXPECT_EQ(colorAt(20, 15), QColor(calc_look::kKey));
  EXPECT_EQ(colorAt(20, 0), QColor(calc_look::kKeyEdge));
  EXPECT_EQ(colorAt(20, 29), QColor(calc_look::kKeyEdge));
  EXPECT_EQ(colorAt(0, 15), QColor(calc_look::kKeyEdge));
  EXPECT_EQ(colorAt(39, 15), QColor(calc_look::kKeyEdge));
  key.setDown(true);
  EXPECT_EQ(colorAt(20, 15), QColor(calc_look::kPressedKey));
}

TEST(CalcKeyTest, ShowsAWordUntilItHasAPicture) {
  CalcKeyWidget key(1016, "Acc", calc_look::kKey, nullptr);
  key.resize(33, 28);
  const QImage word = Paint(key);
  key.SetPicture("no picture");
  EXPECT_FALSE(key.HasPicture());
  EXPECT_EQ(Paint(key), word) << "a picture that can't be read leaves the key as it is";
  key.SetPicture(
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'><rect width='10' height='10' fill='red'/></svg>");
  EXPECT_TRUE(key.HasPicture());
  EXPECT_GT(Count(Paint(key), 0x0000FF), 100);
  EXPECT_EQ(key.text(), "Acc") << "for whoever can't see it";
}

class CalcFaceTest : public CalcStage {};

TEST_F(CalcFaceTest, EveryKeyHasAFaceOfItsOwn) {
  Open();
  std::vector<QImage> faces;
  for (int id = calc_id::kOpenList; id <= calc_id::kLastKey; ++id) {
    auto* key = qobject_cast<CalcKeyWidget*>(Control(id));
    ASSERT_NE(key, nullptr) << id;
    EXPECT_TRUE(key->HasPicture()) << id;
    const QImage face = Paint(*key);
    for (const QImage& former : faces) EXPECT_NE(face, former) << id;
    faces.push_back(face);
  }
  EXPECT_EQ(faces.size(), 25u);
}

TEST_F(CalcFaceTest, WordsOnKeysFit) {
  Open();
  for (const int id : {1037, 1101, 1102, 1103}) {
    auto* key = qobject_cast<CalcKeyWidget*>(Control(id));
    ASSERT_NE(key, nullptr);
    const QFontMetrics metrics(calc_look::Font(8, 600));
    EXPECT_LE(metrics.horizontalAdvance(key->text()), key->width() - 4) << id;
  }
}

class CalcNoteTest : public CalcStage {};

TEST_F(CalcNoteTest, StandsBelowTheWindowAndFollowsIt) {
  Open();
  EXPECT_FALSE(Note()->isVisible());
  Touch(calc_id::kShowSolver);
  ASSERT_TRUE(Note()->isVisible());
  EXPECT_EQ(Note()->parentWidget(), area);
  EXPECT_EQ(Note()->x(), 0);
  EXPECT_EQ(Note()->y(), 223);
  EXPECT_EQ(Note()->width(), 282);
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(Note()->y(), 231);
  tool->move(0, area->height() - tool->height());
  EXPECT_LE(Note()->geometry().bottom(), tool->y()) << "above it where there is no room";
}

TEST_F(CalcNoteTest, GoesWithTheWindow) {
  Open();
  Touch(calc_id::kShowSolver);
  tool->hide();
  EXPECT_FALSE(Note()->isVisible());
  tool->show();
  EXPECT_TRUE(Note()->isVisible());
  Touch(calc_id::kShowSolver);
  EXPECT_FALSE(Note()->isVisible());
}

TEST_F(CalcNoteTest, GrowsWithItsText) {
  CalcNoteWidget note(1105, 7, calc_look::kNoteHeight, area);
  note.SetText("one");
  note.PlaceBeside(QRect(0, 0, 282, 221));
  const int one = note.height();
  note.SetText("one\ntwo\nthree");
  note.PlaceBeside(QRect(0, 0, 282, 221));
  EXPECT_GT(note.height(), one * 2);
  note.SetText(QString(500, 'x'));
  note.PlaceBeside(QRect(0, 0, 282, 221));
  EXPECT_EQ(note.width(), 282) << "words too long for a line break";
  EXPECT_EQ(note.property(property::kOwner).toInt(), 7);
}

class CalcBarTest : public CalcStage {};

TEST_F(CalcBarTest, IsAttachedAndTakenOffByWords) {
  Open();
  Write("setmenu(true)");
  Key(Qt::Key_Return);
  auto* bar = tool->findChild<CalcMenuWidget*>();
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->pos(), QPoint(0, 0));
  EXPECT_EQ(bar->width(), tool->width());
  EXPECT_TRUE(tool->property(property::kMenuAttached).toBool());
  EXPECT_EQ(tool->height(), 221 + bar->height()) << "the client area keeps its size";
  EXPECT_EQ(Control(1008)->mapTo(tool, QPoint()).y(), 36 + bar->height());
  EXPECT_EQ(LineText(), "setmenu(true)");
  EXPECT_THAT(Status(), ::testing::StartsWith("Syntax error: "));
  Line()->SetText("SETMENU(FALSE)");
  Key(Qt::Key_Return);
  EXPECT_FALSE(bar->isVisible()) << "at once";
  Settle();
  EXPECT_EQ(tool->findChild<CalcMenuWidget*>(), nullptr);
  EXPECT_FALSE(tool->property(property::kMenuAttached).toBool());
  EXPECT_EQ(tool->height(), 221);
}

TEST_F(CalcBarTest, ASecondOneTakesThePlaceOfTheFirst) {
  Open();
  Line()->SetText("SETMENU(TRUE)");
  Key(Qt::Key_Return);
  const QRect place = tool->findChild<CalcMenuWidget*>()->geometry();
  EXPECT_EQ(place.width(), tool->width());
  Key(Qt::Key_Return);
  Settle();
  ASSERT_EQ(tool->findChildren<CalcMenuWidget*>().size(), 1);
  EXPECT_EQ(tool->findChild<CalcMenuWidget*>()->geometry(), place) << "although the window keeps its size";
  EXPECT_EQ(tool->height(), 221 + place.height());
}

TEST_F(CalcBarTest, IsCompactedToo) {
  Open();
  Line()->SetText("SETMENU(TRUE)");
  Key(Qt::Key_Return);
  const int bar = tool->findChild<CalcMenuWidget*>()->height();
  Menu(calc_id::kMenuCompact);
  EXPECT_EQ(tool->height(), 87 + bar);
}

TEST(CalcMenuWidgetTest, ShowsWhatTheMenusContainWhenTheyOpen) {
  MenuTable table;
  const auto item = [](int id, const Text& text, MenuHandle sub = 0) {
    MenuItem made;
    made.id = id;
    made.text = text;
    made.subMenu = sub;
    return made;
  };
  const MenuHandle inner = table.Create({{item(5, u"Inner")}});
  const MenuHandle outer = table.Create({{item(2, u"Plain"), item(3, u"Gone"), item(0, u"More", inner)}});
  const MenuHandle top = table.Create({{item(1, u"Direct"), item(0, u"File", outer), item(9, u"Hidden")}});
  for (const int id : {3, 9}) table.FindItem(top, id)->hidden = true;
  table.FindItem(top, 2)->enabled = false;
  CalcMenuWidget bar(table, top, 21, nullptr);
  std::vector<int> chosen;
  QObject::connect(&bar, &CalcMenuWidget::Chosen, &bar, [&chosen](int id) { chosen.push_back(id); });
  ASSERT_EQ(bar.actions().size(), 2);
  EXPECT_EQ(bar.actions()[0]->menu(), nullptr);
  bar.actions()[0]->trigger();
  QMenu* file = bar.actions()[1]->menu();
  EXPECT_EQ(file->font().pixelSize(), 21);
  for (int opening = 0; opening < 2; ++opening) {
    emit file->aboutToShow();
    ASSERT_EQ(file->actions().size(), 2) << "each time anew, without the hidden one";
  }
  EXPECT_FALSE(file->actions()[0]->isEnabled());
  QMenu* more = file->actions()[1]->menu();
  ASSERT_NE(more, nullptr);
  EXPECT_EQ(more->font().pixelSize(), 21);
  emit more->aboutToShow();
  more->actions().front()->trigger();
  EXPECT_THAT(chosen, ::testing::ElementsAre(1, 5));
}

QAction* Find(QMenu* menu, const QString& text) {
  emit menu->aboutToShow();
  for (QAction* action : menu->actions()) {
    if (action->text() == text) return action;
    if (action->menu() != nullptr) {
      if (QAction* found = Find(action->menu(), text)) return found;
    }
  }
  return nullptr;
}

TEST_F(CalcBarTest, ItsItemsDoWhatTheSoftKeysDo) {
  Open();
  Line()->SetText("SETMENU(TRUE)");
  Key(Qt::Key_Return);
  auto* bar = tool->findChild<CalcMenuWidget*>();
  ASSERT_EQ(bar->actions().size(), 2);
  Line()->SetText("");
  QAction* sine = Find(bar->actions()[0]->menu(), "Sin");
  ASSERT_NE(sine, nullptr);
  sine->trigger();
  Settle();
  EXPECT_EQ(LineText(), "Sin");
  Menu(calc_id::kMenuCompact);
  QAction* compact = Find(bar->actions()[1]->menu(), "Compact");
  ASSERT_NE(compact, nullptr);
  EXPECT_TRUE(compact->isChecked());
  Find(bar->actions()[1]->menu(), "Machining")->trigger();
  Settle();
  EXPECT_TRUE(tool.isNull());
}

}  // namespace
}  // namespace pnl::test
