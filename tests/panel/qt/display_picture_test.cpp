// SPDX-License-Identifier: MIT
// Where the displays draw what, in which size and colour.
#include <gtest/gtest.h>

#include "common/words.h"
#include "panel/qt/picture.h"
#include "panel/qt/repaint.h"
#include "ui/axis_display.h"
#include "ui/message_zone.h"
#include "ui/readings.h"
#include "ui/status_strip.h"

namespace panel {
namespace {

using pnl::test::StrokesOf;
using pnl::test::TextsOf;
using theme::Font;

int WidthOf(const QString& text, const QFont& font) { return QFontMetrics(font).horizontalAdvance(text); }

class PictureTest : public ::testing::Test {
 protected:
  PictureTest() { UseWords("en"); }
};

/// One axis: its field, where its name, its number and the small texts stand.
struct AxisRow {
  const char* name;
  QRect field;
  QRect head;
  QRect digits;
  QRect value;
  QRect foot;
  int pixels;
};

Strokes AxisPicture(const std::vector<AxisRow>& rows, const QString& number, const QString& left, const QString& right,
                    QRgb going, bool machine = false) {
  const QRgb quiet = machine ? theme::kOrchid : theme::kMuted;
  const QRgb loud = machine ? theme::kOrchid : theme::kText;
  return Pictured([&](Picture& picture) {
    for (const AxisRow& row : rows) {
      picture.Field(row.field, theme::kSurface, theme::kBorder)
          .Right(row.head, machine ? "mm, MACHINE" : "mm, G54", Font(11), quiet)
          .Left(row.digits, row.name, Font(row.pixels, true), theme::kAccent)
          .Right(row.value, number, Font(row.pixels, true), loud)
          .Left(row.foot, left, Font(14), theme::kMuted)
          .Right(row.foot, right, Font(14), going);
    }
  });
}

TEST_F(PictureTest, AxesStandInColumnsWhenTheFieldIsABand) {
  AxisDisplay axes(nullptr);
  axes.SetFrame("G54");
  axes.resize(1196, 100);
  axes.Show({{"X", 1.5, 2.5, 3.5}, {"Y", 1.5, 2.5, 3.5}}, true, false);
  const std::vector<AxisRow> rows = {
      {"X", {0, 0, 596, 100}, {10, 4, 576, 13}, {10, 17, 576, 62}, {65, 17, 521, 62}, {10, 79, 576, 17}, 55},
      {"Y", {600, 0, 596, 100}, {610, 4, 576, 13}, {610, 17, 576, 62}, {665, 17, 521, 62}, {610, 79, 576, 17}, 55}};
  EXPECT_EQ(StrokesOf(axes), AxisPicture(rows, "1.500", "machine 2.500", "to go 3.500", theme::kAmber));
  axes.ShowMachinePositions(true);
  EXPECT_EQ(StrokesOf(axes), AxisPicture(rows, "2.500", "work 1.500", "to go 3.500", theme::kAmber, true));
  axes.ShowMachinePositions(false);
  axes.Show({{"X", 1.5, 2.5, 3.5}, {"Y", 1.5, 2.5, 3.5}}, false, false);
  EXPECT_EQ(StrokesOf(axes), AxisPicture(rows, "1.500", "machine 2.500", "to go 3.500", theme::kMuted)) << "at rest";
}

TEST_F(PictureTest, AxesStandInRowsWhenTheFieldIsTall) {
  AxisDisplay axes(nullptr);
  axes.SetFrame("G54");
  axes.resize(900, 400);
  axes.Show({{"X", 1, 2, 3}, {"Y", 1, 2, 3}, {"Z", 1, 2, 3}}, true, false);
  EXPECT_EQ(
      StrokesOf(axes),
      AxisPicture(
          {{"X", {0, 0, 900, 130}, {10, 4, 880, 13}, {10, 17, 880, 92}, {92, 17, 798, 92}, {10, 109, 880, 17}, 82},
           {"Y",
            {0, 134, 900, 131},
            {10, 138, 880, 13},
            {10, 151, 880, 93},
            {93, 151, 797, 93},
            {10, 244, 880, 17},
            83},
           {"Z",
            {0, 269, 900, 131},
            {10, 273, 880, 13},
            {10, 286, 880, 93},
            {93, 286, 797, 93},
            {10, 379, 880, 17},
            83}},
          "1.000", "machine 2.000", "to go 3.000", theme::kAmber));
}

TEST_F(PictureTest, ANumberOfAnAxisIsNeverHigherThanAHundredAndTenPixels) {
  AxisDisplay axes(nullptr);
  axes.SetFrame("G54");
  axes.resize(2000, 400);
  axes.Show({{"X", 1, 2, 3}}, true, false);
  EXPECT_EQ(StrokesOf(axes), AxisPicture({{"X",
                                           {0, 0, 2000, 400},
                                           {10, 4, 1980, 13},
                                           {10, 17, 1980, 362},
                                           {120, 17, 1870, 362},
                                           {10, 379, 1980, 17},
                                           110}},
                                         "1.000", "machine 2.000", "to go 3.000", theme::kAmber));
}

TEST_F(PictureTest, InALowRowTheNumberHasHalfOfTheHeight) {
  // The texts around the number kept their size, and the number was the smallest of all.
  AxisDisplay axes(nullptr);
  axes.SetFrame("G54");
  axes.SetFontPixels(24);
  axes.resize(530, 76);
  axes.Show({{"X", 5, 5, 0}}, false, false);
  EXPECT_EQ(StrokesOf(axes), Pictured([](Picture& picture) {
              picture.Field({0, 0, 530, 76}, theme::kSurface, theme::kBorder)
                  .Right({10, 4, 510, 13}, "mm, G54", Font(11), theme::kMuted)
                  .Left({10, 17, 510, 37}, "X", Font(33, true), theme::kAccent)
                  .Right({43, 17, 477, 37}, "5.000", Font(33, true), theme::kText)
                  .Left({10, 54, 510, 18}, "machine 5.000", Font(15), theme::kMuted)
                  .Right({10, 54, 510, 18}, "to go 0.000", Font(15), theme::kMuted);
            }));
}

TEST_F(PictureTest, AxesTurnIntoColumnsAboveThreeTimesTheHeight) {
  AxisDisplay axes(nullptr);
  axes.Show({{"X", 1, 2, 3}, {"Y", 1, 2, 3}}, true, false);
  const auto fieldOfSecond = [&axes](int width) {
    axes.resize(width, 200);
    return Pictured([width](Picture& picture) {
      picture.Field(width > 600 ? QRect(302, 0, 299, 200) : QRect(0, 102, 600, 98), theme::kSurface, theme::kBorder);
    })[0];
  };
  EXPECT_THAT((axes.resize(600, 200), StrokesOf(axes)), ::testing::Contains(fieldOfSecond(600)));
  const std::string column = fieldOfSecond(601);
  EXPECT_THAT(StrokesOf(axes), ::testing::Contains(column));
}

TEST_F(PictureTest, TheWayToGoIsLitWhileItIsOneThatShows) {
  AxisDisplay axes(nullptr);
  axes.resize(1000, 100);
  for (const auto& [moving, way, lit] : {std::tuple(true, 0.0005, true), std::tuple(true, -0.0005, true),
                                         std::tuple(true, 0.0004, false), std::tuple(false, 5.0, false)}) {
    axes.Show({{"X", 0, 0, way}}, moving, false);
    const auto strokes = StrokesOf(axes);
    EXPECT_EQ(strokes.back().ends_with(QColor(theme::kAmber).name().toStdString()), lit) << way;
  }
}

TEST_F(PictureTest, WithoutAMachineTheAxesSayThatThereIsNone) {
  AxisDisplay axes(nullptr);
  axes.resize(600, 80);
  axes.SetFontPixels(18);
  EXPECT_EQ(StrokesOf(axes), Pictured([](Picture& picture) {
              picture.Field({0, 0, 600, 80}, theme::kSurface, theme::kBorder)
                  .Middle({0, 0, 600, 80}, "NO MACHINE", Font(24), theme::kMuted);
            }));
}

TEST_F(PictureTest, SmallTextsThatDontFitBesideEachOtherStandInTwoRows) {
  AxisDisplay axes(nullptr);
  axes.resize(120, 200);
  axes.Show({{"X", 1, -2222.222, -3333.333}}, true, false);
  const QString left = "machine -2222.222";
  const QString right = "to go -3333.333";
  const AxisDisplay::Foot fit = AxisDisplay::FitFoot(left, right, 100, 14);
  ASSERT_TRUE(fit.twoRows);
  const int line = fit.pixels * 5 / 4;
  const auto strokes = StrokesOf(axes);
  const auto foot = Pictured([&](Picture& picture) {
    picture.Left({10, 196 - 2 * line, 100, line}, left, Font(fit.pixels), theme::kMuted)
        .Right({10, 196 - line, 100, line}, right, Font(fit.pixels), theme::kAmber);
  });
  EXPECT_EQ(Strokes(strokes.end() - 2, strokes.end()), foot);
  axes.resize(120, 40);
  const auto flat = StrokesOf(axes);
  EXPECT_EQ(Strokes(flat.end() - 2, flat.end()), Pictured([&](Picture& picture) {
              picture.Left({10, 20, 100, 8}, left, Font(fit.pixels), theme::kMuted)
                  .Right({10, 28, 100, 8}, right, Font(fit.pixels), theme::kAmber);
            }))
      << "they take no more than half";
}

TEST(FootTest, TheTextsStandSideBySideAsLongAsTheirLettersAreLegible) {
  const QString left = "machine -129.000";
  const QString right = "to go 1.000";
  const QString both = left + "   " + right;
  for (const int pixels : {14, 12, 11}) {
    const auto fit = AxisDisplay::FitFoot(left, right, WidthOf(both, Font(pixels)) + 1, 14);
    EXPECT_EQ(fit.pixels, pixels);
    EXPECT_FALSE(fit.twoRows) << pixels;
  }
  const int tooNarrow = WidthOf(both, Font(11));
  EXPECT_TRUE(AxisDisplay::FitFoot(left, right, tooNarrow, 14).twoRows);
  EXPECT_EQ(AxisDisplay::FitFoot(left, right, tooNarrow, 14).pixels, 14) << "each has a row for itself";
}

TEST(FootTest, InTwoRowsTheLongerTextDecidesAndNoLetterIsLessThanSix) {
  const QString words = "a rather long text";
  const int width = WidthOf(words, Font(9)) + 1;
  EXPECT_EQ(AxisDisplay::FitFoot(words, "b", width, 14).pixels, 9);
  EXPECT_EQ(AxisDisplay::FitFoot("b", words, width, 14).pixels, 9);
  EXPECT_EQ(AxisDisplay::FitFoot(QString(400, 'x'), "b", 50, 14).pixels, 6);
}

TEST(PositionTest, TheBiggestNumberShowsAndTheNextIsALine) {
  EXPECT_EQ(FormatPosition(999999.999), "999999.999");
  EXPECT_EQ(FormatPosition(-999999.999), "-999999.999");
  EXPECT_EQ(FormatPosition(1000000), "-----");
  EXPECT_EQ(FormatPosition(-1000000), "-----");
}

TEST_F(PictureTest, TheAxesAreSpokenWithTheirNumbers) {
  AxisDisplay axes(nullptr);
  axes.Show({{"X", 1, 2, 3}, {"Y", -1, 2, 3}}, false, false);
  EXPECT_EQ(axes.accessibleName(), "X 1.000, Y -1.000");
  EXPECT_FALSE(axes.MachinePositions());
  axes.ShowMachinePositions(true);
  EXPECT_TRUE(axes.MachinePositions());
}

struct ZoneRow {
  const char* what;
  int height;
  int lines;
  int pixels;
  std::vector<QRect> rows;
};

TEST_F(PictureTest, TheLinesOfTheZoneShareItsHeight) {
  for (const ZoneRow& row :
       {ZoneRow{"one", 45, 1, 16, {{0, 0, 600, 45}}}, ZoneRow{"two", 45, 2, 16, {{0, 0, 600, 22}, {0, 22, 600, 23}}},
        ZoneRow{"three", 45, 3, 13, {{0, 0, 600, 15}, {0, 15, 600, 15}, {0, 30, 600, 15}}},
        ZoneRow{"flat", 10, 1, 9, {{0, 0, 600, 10}}}, ZoneRow{"none", 45, 0, 16, {}}}) {
    MessageZone zone(nullptr);
    zone.resize(600, row.height);
    zone.Show(std::vector<ZoneLine>(static_cast<std::size_t>(row.lines), {"text", Qt::blue, Qt::white, true}));
    EXPECT_EQ(StrokesOf(zone), Pictured([&row](Picture& picture) {
                picture.Field({0, 0, 600, row.height}, theme::kSurface, theme::kBorder);
                for (const QRect& place : row.rows) {
                  picture.Field(place, Qt::blue, Qt::blue)
                      .Paragraph(place.adjusted(12, 0, -12, 0), Qt::AlignLeft | Qt::AlignVCenter, "text",
                                 Font(row.pixels, true), Qt::white);
                }
              }))
        << row.what;
  }
}

TEST_F(PictureTest, AMessageThatIsTooLongTakesSmallerLettersWhenItIsAlone) {
  const QString text = "a message of some words";
  const int fits = WidthOf(text, Font(16)) + 24;
  const auto fontIn = [&](int width, int lines) {
    MessageZone zone(nullptr);
    zone.resize(width, 30);
    zone.Show(std::vector<ZoneLine>(static_cast<std::size_t>(lines), {text, Qt::blue, Qt::white}));
    return StrokesOf(zone);
  };
  const auto has = [](const char* pixels) { return ::testing::Contains(::testing::HasSubstr(pixels)); };
  EXPECT_THAT(fontIn(fits, 1), has(" 16 px weight 400"));
  EXPECT_THAT(fontIn(fits - 1, 1), has(" 12 px weight 400"));
  EXPECT_THAT(fontIn(fits - 1, 2), has(" 13 px weight 400"));
}

TEST_F(PictureTest, TheZoneIsSpokenAndItsTipHasALineForEach) {
  MessageZone zone(nullptr);
  zone.Show({{"one", Qt::blue, Qt::white}, {"two", Qt::blue, Qt::white}});
  EXPECT_EQ(zone.accessibleName(), "one; two");
  EXPECT_EQ(zone.toolTip(), "one\ntwo");
}

const std::vector<Reading> kTiles = {
    {"feed", "100", "F5", false}, {"over", "90 %", "", true}, {"spindle", "7", "S7", false}, {"tool", "T1", "", false}};

/// The four tiles: field, caption, number, and where a detail stands.
struct TileRow {
  QRect field;
  QRect head;
  QRect value;
  QRect detail;
};

Strokes TilePicture(const std::vector<TileRow>& rows, int small, int big) {
  return Pictured([&](Picture& picture) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      picture.Field(rows[i].field, theme::kSurface, theme::kBorder)
          .Left(rows[i].head, kTiles[i].caption, Font(small), theme::kMuted);
      if (!kTiles[i].detail.isEmpty()) picture.Right(rows[i].detail, kTiles[i].detail, Font(small), theme::kMuted);
      picture.Right(rows[i].value, kTiles[i].value, Font(big, true), kTiles[i].unusual ? theme::kAmber : theme::kText);
    }
  });
}

TEST_F(PictureTest, FlatReadingsStandInOneRow) {
  Readings readings(nullptr);
  readings.Show(kTiles);
  readings.resize(796, 44);
  EXPECT_EQ(StrokesOf(readings),
            TilePicture({{{0, 0, 196, 44}, {8, 2, 180, 13}, {8, 15, 180, 27}, {8, 2, 180, 13}},
                         {{200, 0, 196, 44}, {208, 2, 180, 13}, {208, 15, 180, 27}, {}},
                         {{400, 0, 196, 44}, {408, 2, 180, 13}, {408, 15, 180, 27}, {408, 2, 180, 13}},
                         {{600, 0, 196, 44}, {608, 2, 180, 13}, {608, 15, 180, 27}, {}}},
                        12, 27));
}

TEST_F(PictureTest, TallReadingsStandInTwoColumnsWithTheirDetailsBelow) {
  Readings readings(nullptr);
  readings.Show(kTiles);
  readings.resize(796, 400);
  EXPECT_EQ(StrokesOf(readings),
            TilePicture({{{0, 0, 396, 198}, {8, 2, 380, 24}, {8, 26, 380, 146}, {8, 172, 380, 24}},
                         {{400, 0, 396, 198}, {408, 2, 380, 24}, {408, 26, 380, 170}, {}},
                         {{0, 202, 396, 198}, {8, 204, 380, 24}, {8, 228, 380, 146}, {8, 374, 380, 24}},
                         {{400, 202, 396, 198}, {408, 204, 380, 24}, {408, 228, 380, 170}, {}}},
                        20, 64));
}

TEST_F(PictureTest, ReadingsTakeTwoColumnsFromAHundredPixelsOn) {
  Readings readings(nullptr);
  readings.Show(kTiles);
  readings.resize(796, 99);
  EXPECT_EQ(StrokesOf(readings)[0], Pictured([](Picture& p) {
              p.Field({0, 0, 196, 99}, theme::kSurface, theme::kBorder);
            })[0]);
  readings.resize(796, 100);
  EXPECT_EQ(StrokesOf(readings)[0], Pictured([](Picture& p) {
              p.Field({0, 0, 396, 48}, theme::kSurface, theme::kBorder);
            })[0]);
  readings.Show({kTiles[0], kTiles[1], kTiles[2]});
  EXPECT_EQ(TextsOf(readings).count("spindle"), 1) << "an odd one has a row for itself";
  readings.Show({});
  EXPECT_TRUE(StrokesOf(readings).empty());
}

TEST_F(PictureTest, ADetailStandsBesideItsCaptionInLettersThatLeaveRoomBetween) {
  const QFont small = Font(12);
  const int both = WidthOf("feed", small) + WidthOf("F5", small) + 6;
  for (const int room : {both, both + 1}) {
    Readings readings(nullptr);
    readings.Show({kTiles[0]});
    readings.resize(room + 16, 44);
    EXPECT_TRUE(TextsOf(readings).contains("F5")) << room;
    const bool smaller = std::ranges::none_of(
        StrokesOf(readings), [](const std::string& stroke) { return stroke.find(" 12 px weight 400") != stroke.npos; });
    EXPECT_EQ(smaller, room <= both) << room;
  }
  Readings readings(nullptr);
  readings.Show({kTiles[0]});
  readings.resize(26, 44);
  EXPECT_FALSE(TextsOf(readings).contains("F5")) << "not even in the smallest letters";
}

TEST_F(PictureTest, ADetailStandsBelowFromThreeCaptionsHighOn) {
  Readings readings(nullptr);
  readings.Show({kTiles[0]});
  const auto expectDetail = [&readings](int height, const QRect& place) {
    readings.resize(600, height);
    EXPECT_EQ(StrokesOf(readings)[2], Pictured([&](Picture& p) { p.Right(place, "F5", Font(20), theme::kMuted); })[0])
        << height;
  };
  expectDetail(99, {8, 2, 584, 24});
  expectDetail(100, {8, 74, 282, 24});
}

TEST_F(PictureTest, ACaptionAndANumberGetSmallerDownToSix) {
  Readings readings(nullptr);
  readings.resize(60, 44);
  readings.Show({{QString(300, 'x'), QString(300, '8'), "", false}});
  EXPECT_THAT(StrokesOf(readings), ::testing::Contains(::testing::HasSubstr(" 6 px weight 400")));
  EXPECT_THAT(StrokesOf(readings), ::testing::Contains(::testing::HasSubstr(" 6 px weight 600")));
}

TEST_F(PictureTest, TheReadingsAreSpoken) {
  Readings readings(nullptr);
  readings.Show({kTiles[0], kTiles[3]});
  EXPECT_EQ(readings.accessibleName(), "feed 100, tool T1");
}

TEST(ReadingsTest, NumbersHaveOneDecimalFromAHundredOnAndAnEnd) {
  const struct {
    double value;
    int decimals;
    const char* text;
  } rows[] = {{99.987, 3, "99.987"},   {-99.987, 3, "-99.987"},   {100.06, 3, "100.1"},    {-100.06, 3, "-100.1"},
              {9999999, 3, "9999999"}, {-9999999, 3, "-9999999"}, {9999999.5, 3, "-----"}, {-9999999.5, 3, "-----"},
              {0.00004, 4, "0"},       {-0.00004, 4, "0"},        {0.1, 0, "0"},           {1200, 3, "1200"},
              {1.26, 1, "1.3"}};
  for (const auto& row : rows) EXPECT_EQ(FormatNumber(row.value, row.decimals), row.text) << row.value;
}

TEST_F(PictureTest, TheTilesOfAMachineAndOfNone) {
  pnl::rig::MachineState state;
  state.feed = 250;
  state.programmedFeed = 300;
  state.spindleDirection = -1;
  state.spindleSpeed = 1000;
  state.programmedSpeed = 1200;
  state.tool = 7;
  state.coolant = true;
  EXPECT_EQ(ReadingsOf(state), (std::vector<Reading>{{"F  mm/min", "250", "F300", false},
                                                     {Say(Word::kOverride), "100 %", "", false},
                                                     {Say(Word::kSpindle), "1000", "M4 S1200", false},
                                                     {Say(Word::kTool), "T7", Say(Word::kCoolant), false}}));
  state.spindleDirection = 0;
  state.coolant = false;
  EXPECT_EQ(ReadingsOf(state)[2].detail, "S1200");
  EXPECT_EQ(ReadingsOf(state)[3].detail, "");
  state.feedPerRevolution = true;
  state.spindleSpeed = 0.5;
  EXPECT_EQ(ReadingsOf(state)[0].value, "500") << "as slow as it turns";
  const QString none = QString::fromUtf8("–");
  EXPECT_EQ(NoReadings(), (std::vector<Reading>{{"F  mm/min", none, "", false},
                                                {Say(Word::kOverride), none, "", false},
                                                {Say(Word::kSpindle), none, "", false},
                                                {Say(Word::kTool), none, "", false}}));
}

TEST_F(PictureTest, TheModalLineHasItsCodesAtTheLeftAndTheBlockAtTheRight) {
  ModalLine line(nullptr);
  line.resize(800, 22);
  const QString codes = "G0 G17";
  const auto expected = [&](const QString& block, int room) {
    return Pictured([&](Picture& picture) {
      picture.Field({0, 0, 800, 22}, theme::kSurface, theme::kBorder)
          .Left(QRect(10, 2, 780 - room - 12, 18), codes, Font(14), theme::kMuted)
          .Right({790 - room, 2, room, 18}, block, theme::MonoFont(14), theme::kAccent);
    });
  };
  line.Show(codes, "G1 X5");
  EXPECT_EQ(StrokesOf(line), expected("G1 X5", WidthOf("G1 X5", theme::MonoFont(14)) + 4));
  EXPECT_EQ(line.accessibleName(), "G0 G17 G1 X5");
  line.Show(codes, QString(300, 'X'));
  EXPECT_EQ(StrokesOf(line), expected(QString(300, 'X'), 390)) << "half of the line, and no more";
  line.Show("", "G1 X5");
  EXPECT_EQ(line.accessibleName(), " G1 X5");
  line.Show(codes, "");
  EXPECT_EQ(StrokesOf(line).size(), 2u);
}

TEST_F(PictureTest, LongCodesEndBeforeTheBlock) {
  ModalLine line(nullptr);
  line.resize(300, 22);
  const QString codes = QString("G17 ").repeated(40);
  for (const auto& [block, room] :
       {std::pair(QString("G1"), WidthOf("G1", theme::MonoFont(14)) + 4), std::pair(QString(), 0)}) {
    line.Show(codes, block);
    EXPECT_EQ(StrokesOf(line)[1], Pictured([&, taken = room](Picture& picture) {
                picture.Left(QRect(10, 2, 280 - taken - 12, 18), codes, Font(14), theme::kMuted);
              })[0]);
  }
}

TEST_F(PictureTest, AHighModalLineHasTheBlockBelow) {
  ModalLine line(nullptr);
  line.Show("G0 G17", "G1 X5");
  line.resize(400, 42);
  const int foot = QFontMetrics(theme::MonoFont(14)).height() + 2;
  EXPECT_EQ(StrokesOf(line), Pictured([&](Picture& picture) {
              picture.Field({0, 0, 400, 42}, theme::kSurface, theme::kBorder)
                  .Paragraph({10, 2, 380, 38 - foot}, Qt::AlignLeft | Qt::AlignVCenter, "G0 G17", Font(14),
                             theme::kMuted)
                  .Left({10, 40 - foot, 380, foot}, "G1 X5", theme::MonoFont(14), theme::kAccent);
            }));
  line.resize(400, 41);
  EXPECT_EQ(StrokesOf(line)[2], Pictured([&](Picture& picture) {
              const int room = WidthOf("G1 X5", theme::MonoFont(14)) + 4;
              picture.Right({390 - room, 2, room, 37}, "G1 X5", theme::MonoFont(14), theme::kAccent);
            })[0]);
}

struct StripRow {
  int width;
  int pixels;
  QRect state;
  QRect mode;
  QRect errors;
};

TEST_F(PictureTest, TheStripSharesItsWidthAmongStateModeAndErrors) {
  for (const StripRow& row : {StripRow{600, 15, {0, 0, 220, 40}, {224, 0, 186, 40}, {414, 0, 186, 40}},
                              StripRow{400, 15, {0, 0, 180, 40}, {184, 0, 106, 40}, {294, 0, 106, 40}},
                              StripRow{1000, 15, {0, 0, 386, 40}, {390, 0, 303, 40}, {697, 0, 303, 40}},
                              StripRow{700, 16, {0, 0, 234, 40}, {238, 0, 229, 40}, {471, 0, 229, 40}}}) {
    StatusStrip strip(nullptr);
    strip.resize(row.width, 40);
    strip.SetFontPixels(row.pixels);
    strip.Show({Word::kRunning, theme::kGreen}, "MDI");
    EXPECT_EQ(strip.Indicator().geometry(), row.errors) << row.width;
    const QFont font = Font(row.pixels * 5 / 4, true);
    EXPECT_EQ(StrokesOf(strip), Pictured([&](Picture& picture) {
                picture.Field(row.state, theme::kGreen, QColor(theme::kGreen).lighter(130))
                    .Middle(row.state.adjusted(8, 0, -8, 0), "RUNNING", font, theme::kText)
                    .Field(row.mode, theme::kSurface, theme::kBorder)
                    .Middle(row.mode.adjusted(6, 0, -6, 0), "MDI", font, theme::kText);
              }))
        << row.width;
  }
}

TEST_F(PictureTest, InAStripWithMuchRoomTheLettersAreBiggerAsFarAsItsHeightAllows) {
  for (const auto& [width, height, pixels] :
       {std::tuple(1107, 40, 18), std::tuple(1108, 40, 24), std::tuple(1108, 60, 26), std::tuple(1108, 20, 18)}) {
    StatusStrip strip(nullptr);
    strip.resize(width, height);
    strip.SetFontPixels(15);
    strip.Show({Word::kRunning, theme::kGreen}, "MDI");
    const QString letters = QStringLiteral(" %1 px weight 600").arg(pixels);
    EXPECT_THAT(StrokesOf(strip), ::testing::Contains(::testing::HasSubstr(letters.toStdString()))) << width;
  }
}

TEST_F(PictureTest, TheStripPlacesItsIndicatorWhenItIsResized) {
  StatusStrip strip(nullptr);
  strip.resize(600, 40);
  strip.show();
  strip.resize(1000, 40);
  QCoreApplication::processEvents();
  EXPECT_EQ(strip.Indicator().geometry(), QRect(697, 0, 303, 40));
}

TEST_F(PictureTest, AWordOfTheStripGetsSmallerDownToElevenPixels) {
  const auto pixelsOf = [](const QString& text, const QFont& font) {
    StatusStrip strip(nullptr);
    strip.resize(600, 40);
    strip.Show({Word::kReady, theme::kGreen}, text);
    return StrokesOf(strip).back() == Pictured([&](Picture& p) {
             p.Middle({230, 0, 174, 40}, text, font, theme::kText);
           })[0];
  };
  const QString wide(300, 'W');
  EXPECT_TRUE(pixelsOf(wide, Font(11, true)));
  const QString words = "A MODE OF MANY WORDS";
  EXPECT_TRUE(pixelsOf(words, theme::FittingFont(words, 174, 18, 11, true)));
  StatusStrip strip(nullptr);
  strip.resize(120, 40);
  strip.Show({Word::kInspection, theme::kRed, Word::kEmergencyStop}, "");
  EXPECT_THAT(StrokesOf(strip), ::testing::Contains(::testing::HasSubstr(" 8 px weight 600"))) << "a state in two rows";
  EXPECT_EQ(strip.accessibleName(), "INSPECTION, EMERGENCY STOP ");
}

TEST_F(PictureTest, WithoutAMachineTheStripIsDark) {
  EXPECT_EQ(LookWithoutMachine().word, Word::kNoMachine);
  EXPECT_EQ(LookWithoutMachine().color, theme::kSurface);
  StatusStrip strip(nullptr);
  EXPECT_EQ(strip.StateText(), "NO MACHINE");
}

TEST_F(PictureTest, EveryChangeShowsAtOnceAndNothingElseIsDrawnAnew) {
  QWidget window;
  window.resize(900, 600);
  AxisDisplay axes(&window);
  MessageZone zone(&window);
  Readings readings(&window);
  ModalLine modal(&window);
  StatusStrip strip(&window);
  const auto resized = [](QWidget& widget, int y) {
    widget.setGeometry(0, y, 800, 60);
    return &widget;
  };
  RepaintCount ofAxes(*resized(axes, 0));
  RepaintCount ofZone(*resized(zone, 100));
  RepaintCount ofReadings(*resized(readings, 200));
  RepaintCount ofModal(*resized(modal, 300));
  RepaintCount ofStrip(*resized(strip, 400));
  const auto show = [&](double position, bool moving, bool inches) {
    return [&axes, position, moving, inches] { axes.Show({{"X", position, 0, 0}}, moving, inches); };
  };
  EXPECT_TRUE(ofAxes.After(show(1, false, false)));
  EXPECT_TRUE(ofAxes.After(show(2, false, false)));
  EXPECT_TRUE(ofAxes.After(show(2, true, false)));
  EXPECT_TRUE(ofAxes.After(show(2, true, true)));
  EXPECT_FALSE(ofAxes.After(show(2, true, true)));
  EXPECT_TRUE(ofAxes.After([&] { axes.SetFontPixels(18); }));
  EXPECT_TRUE(ofAxes.After([&] { axes.ShowMachinePositions(true); }));
  EXPECT_TRUE(ofAxes.After([&] { axes.SetFrame("G55"); }));
  EXPECT_FALSE(ofAxes.After([&] { axes.SetFrame("G55"); }));
  EXPECT_TRUE(ofZone.After([&] { zone.Show({{"a", Qt::red, Qt::white}}); }));
  EXPECT_FALSE(ofZone.After([&] { zone.Show({{"a", Qt::red, Qt::white}}); }));
  EXPECT_TRUE(ofZone.After([&] { zone.SetFontPixels(18); }));
  EXPECT_TRUE(ofReadings.After([&] { readings.Show(kTiles); }));
  EXPECT_FALSE(ofReadings.After([&] { readings.Show(kTiles); }));
  EXPECT_TRUE(ofReadings.After([&] { readings.SetFontPixels(18); }));
  EXPECT_TRUE(ofModal.After([&] { modal.Show("G0", ""); }));
  EXPECT_TRUE(ofModal.After([&] { modal.Show("G0", "X1"); }));
  EXPECT_TRUE(ofModal.After([&] { modal.Show("G1", "X1"); }));
  EXPECT_FALSE(ofModal.After([&] { modal.Show("G1", "X1"); }));
  EXPECT_TRUE(ofModal.After([&] { modal.SetFontPixels(18); }));
  EXPECT_TRUE(ofStrip.After([&] { strip.Show({Word::kReady, theme::kSteel}, "MDI"); }));
  EXPECT_TRUE(ofStrip.After([&] { strip.SetFontPixels(20); }));
  axes.resize(800, 100);
  EXPECT_THAT(StrokesOf(axes), ::testing::Contains(::testing::HasSubstr(" 18 px weight 400")));
  EXPECT_THAT(StrokesOf(zone), ::testing::Contains(::testing::HasSubstr(" 18 px")));
  EXPECT_THAT(StrokesOf(readings), ::testing::Contains(::testing::HasSubstr(" 18 px")));
  EXPECT_THAT(StrokesOf(modal), ::testing::Contains(::testing::HasSubstr(" 18 px")));
  EXPECT_THAT(StrokesOf(strip.Indicator()), ::testing::Contains(::testing::HasSubstr(" 20 px")));
}

}  // namespace
}  // namespace panel
