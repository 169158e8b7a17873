// SPDX-License-Identifier: MIT
// The machine's numbers on the panel: no digit is cut at any size, and each stands in the unit in which it is
// programmed.
#include <gtest/gtest.h>

#include "common/words.h"
#include "support/text_catcher.h"
#include "ui/axis_display.h"
#include "ui/panel_layout.h"
#include "ui/readings.h"
#include "ui/theme.h"

namespace panel {
namespace {

using pnl::test::TextsOf;

const std::vector<double> kPositions = {0, -0.001, -129.5, 12345.678, -999999.999, 999999.999};

std::vector<AxisReading> AxesAt(double position) {
  return {{"X", position, position, position}, {"Y", position, position, -position}, {"Z", 0, position, position}};
}

struct NumbersRow {
  QSize window;
  bool inches;
  const char* language;
};

class NumbersAt : public ::testing::TestWithParam<NumbersRow> {
 protected:
  NumbersAt() { UseWords(GetParam().language); }
  ~NumbersAt() override { UseWords("en"); }
  [[nodiscard]] static int Scaled(const PanelLayout& layout, int pixels) {
    return static_cast<int>(std::lround(pixels * layout.scale));
  }
};

TEST_P(NumbersAt, EveryDigitOfEveryAxisShows) {
  const PanelLayout layout = LayOutWithin(GetParam().window, theme::TouchPixels(96));
  AxisDisplay axes(nullptr);
  axes.resize(layout.axes.size());
  axes.SetFontPixels(Scaled(layout, 14));
  for (const bool machine : {false, true}) {
    axes.ShowMachinePositions(machine);
    for (const double position : kPositions) {
      axes.Show(AxesAt(position), true, GetParam().inches);
      const QStringList shown = TextsOf(axes);
      const QString number = FormatPosition(position, GetParam().inches);
      EXPECT_FALSE(shown.join(' ').contains(QChar(0x2026))) << shown.join('|').toStdString();
      EXPECT_GE(shown.count(number), 2) << shown.join('|').toStdString();
      EXPECT_EQ(shown.count(axes.FrameText()), 3) << shown.join('|').toStdString();
      EXPECT_TRUE(shown.contains(Say(Word::kToGo) + ' ' + number)) << shown.join('|').toStdString();
      EXPECT_TRUE(shown.contains(Say(machine ? Word::kWorkPosition : Word::kMachinePosition) + ' ' + number));
    }
  }
}

TEST_P(NumbersAt, EveryDigitOfEveryReadingShows) {
  const PanelLayout layout = LayOutWithin(GetParam().window, theme::TouchPixels(96));
  Readings readings(nullptr);
  readings.resize(layout.readings.size());
  readings.SetFontPixels(Scaled(layout, 12));
  pnl::rig::MachineState state;
  state.inches = GetParam().inches;
  for (const double value : {0.0, 0.1234, 1234.5, 9999999.0}) {
    state.feed = value;
    state.spindleSpeed = value;
    state.tool = 99999999;
    readings.Show(ReadingsOf(state));
    const QStringList shown = TextsOf(readings);
    EXPECT_FALSE(shown.join(' ').contains(QChar(0x2026))) << shown.join('|').toStdString();
    for (const Reading& reading : readings.Shown()) {
      EXPECT_TRUE(shown.contains(reading.value)) << reading.value.toStdString();
      EXPECT_TRUE(shown.contains(reading.caption)) << reading.caption.toStdString();
      EXPECT_TRUE(reading.detail.isEmpty() || shown.contains(reading.detail)) << reading.detail.toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, NumbersAt,
                         ::testing::Values(NumbersRow{{640, 480}, false, "en"}, NumbersRow{{640, 480}, true, "es"},
                                           NumbersRow{{800, 600}, false, "en"}, NumbersRow{{800, 600}, true, "en"},
                                           NumbersRow{{800, 600}, false, "es"}, NumbersRow{{1024, 768}, false, "en"},
                                           NumbersRow{{1024, 768}, true, "es"}, NumbersRow{{1600, 860}, false, "es"},
                                           NumbersRow{{1920, 1080}, false, "en"},
                                           NumbersRow{{1920, 1080}, true, "es"}));

TEST_P(NumbersAt, WhatIsProgrammedShowsBesideEveryUnitOfTheFeed) {
  const PanelLayout layout = LayOutWithin(GetParam().window, theme::TouchPixels(96));
  Readings readings(nullptr);
  readings.resize(layout.readings.size());
  readings.SetFontPixels(Scaled(layout, 12));
  pnl::rig::MachineState state;
  state.inches = GetParam().inches;
  state.spindleDirection = 1;
  state.programmedSpeed = 12000;
  // The smallest window has no room for the longest details.
  const bool small = GetParam().window.width() < 800;
  state.cuttingSpeed = !small;
  state.coolant = true;
  for (const bool perRevolution : {false, true}) {
    for (const bool rapid : {false, true}) {
      state.feedPerRevolution = perRevolution;
      state.rapid = rapid && !small;
      state.programmedFeed = perRevolution ? 0.1234 : 12345.6;
      readings.Show(ReadingsOf(state));
      const QStringList shown = TextsOf(readings);
      for (const Reading& reading : readings.Shown()) {
        EXPECT_TRUE(reading.detail.isEmpty() || shown.contains(reading.detail)) << shown.join('|').toStdString();
      }
    }
  }
}

TEST(PositionTest, InchesHaveFourDecimalsAndNoNegativeZero) {
  EXPECT_EQ(FormatPosition(25.4, true), "1.0000");
  EXPECT_EQ(FormatPosition(-12.5, true), "-0.4921");
  EXPECT_EQ(FormatPosition(-0.001, true), "0.0000");
  EXPECT_EQ(FormatPosition(-0.002, true), "-0.0001");
  EXPECT_EQ(FormatPosition(-0.0005, false), "-0.001");
  EXPECT_EQ(FormatPosition(std::numeric_limits<double>::infinity(), true), "-----");
}

TEST(AxisDisplayTest, TheFootTakesTwoRowsBeforeItsLettersGetIllegible) {
  const AxisDisplay::Foot wide = AxisDisplay::FitFoot("machine -129.000", "to go -129.000", 400, 14);
  EXPECT_EQ(wide.pixels, 14);
  EXPECT_FALSE(wide.twoRows);
  const AxisDisplay::Foot narrow = AxisDisplay::FitFoot("machine -129.000", "to go -129.000", 120, 14);
  EXPECT_TRUE(narrow.twoRows);
  EXPECT_GE(narrow.pixels, 11);
}

TEST(AxisDisplayTest, AChangeOfUnitAloneShows) {
  UseWords("en");
  AxisDisplay axes(nullptr);
  axes.Show({{"X", 25.4, 0, 0}}, false, false);
  EXPECT_EQ(axes.accessibleName(), "X 25.400");
  axes.Show({{"X", 25.4, 0, 0}}, false, true);
  EXPECT_EQ(axes.accessibleName(), "X 1.0000");
}

TEST(AxisDisplayTest, EachNumberNamesItsUnitAndItsFrame) {
  AxisDisplay axes(nullptr);
  axes.Show({{"X", 25.4, 0, 0}}, false, false);
  const struct {
    const char* language;
    const char* frame;
    bool inches;
    bool machine;
    const char* text;
  } rows[] = {{"en", "G54", false, false, "mm, G54"},     {"en", "G59", true, false, "inch, G59"},
              {"en", "G54", true, true, "inch, MACHINE"}, {"en", "", false, false, "mm, WORK"},
              {"es", "G54", true, false, "pulg., G54"},   {"es", "G54", false, true, "mm, MÁQUINA"},
              {"es", "", false, false, "mm, PIEZA"}};
  for (const auto& row : rows) {
    UseWords(row.language);
    axes.SetFrame(row.frame);
    axes.ShowMachinePositions(row.machine);
    axes.Show({{"X", 25.4, 0, 0}}, false, row.inches);
    EXPECT_EQ(axes.FrameText(), row.text);
  }
  UseWords("en");
}

struct UnitRow {
  const char* name;
  bool inches;
  bool perRevolution;
  bool cuttingSpeed;
  const char* caption;
  const char* feed;
  const char* programmed;
  const char* speed;
};

class UnitsTest : public ::testing::TestWithParam<UnitRow> {};

TEST_P(UnitsTest, ANumberStandsInTheUnitThatItsCaptionNames) {
  UseWords("en");
  pnl::rig::MachineState state;
  state.inches = GetParam().inches;
  state.feedPerRevolution = GetParam().perRevolution;
  state.cuttingSpeed = GetParam().cuttingSpeed;
  state.feed = 254;
  state.spindleSpeed = 2000;
  state.spindleDirection = 1;
  state.programmedFeed = 0.1234;
  state.programmedSpeed = 180;
  const auto readings = ReadingsOf(state);
  EXPECT_EQ(readings[0].caption, GetParam().caption);
  EXPECT_EQ(readings[0].value, GetParam().feed);
  EXPECT_EQ(readings[0].detail, GetParam().programmed);
  EXPECT_EQ(readings[2].detail, GetParam().speed);
}

INSTANTIATE_TEST_SUITE_P(
    All, UnitsTest,
    ::testing::Values(UnitRow{"Metric", false, false, false, "F  mm/min", "254", "F0.123", "M3 S180"},
                      UnitRow{"Inch", true, false, false, "F  in/min", "10", "F0.123", "M3 S180"},
                      UnitRow{"PerRevolution", false, true, false, "F  mm/rev", "0.127", "F0.1234", "M3 S180"},
                      UnitRow{"InchPerRevolution", true, true, false, "F  in/rev", "0.005", "F0.1234", "M3 S180"},
                      UnitRow{"CuttingSpeed", false, false, true, "F  mm/min", "254", "F0.123", "M3 G96 S180"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadingsTest, AFeedPerRevolutionOfASpindleAtRestIsNothing) {
  pnl::rig::MachineState state;
  state.feedPerRevolution = true;
  state.feed = 100;
  EXPECT_EQ(ReadingsOf(state)[0].value, "0");
}

TEST(ReadingsTest, ARapidIsPerMinuteWhateverTheFeedIsProgrammedIn) {
  UseWords("en");
  pnl::rig::MachineState state;
  state.feedPerRevolution = true;
  state.programmedFeed = 0.2;
  state.spindleSpeed = 1000;
  state.feed = 10000;
  state.rapid = true;
  EXPECT_EQ(ReadingsOf(state)[0].caption, "F  mm/min");
  EXPECT_EQ(ReadingsOf(state)[0].value, "10000");
  EXPECT_EQ(ReadingsOf(state)[0].detail, "G95 F0.2");
  state.rapid = false;
  EXPECT_EQ(ReadingsOf(state)[0].caption, "F  mm/rev");
  EXPECT_EQ(ReadingsOf(state)[0].detail, "F0.2");
}

TEST(ReadingsTest, AnOverrideOtherThanAHundredStandsOut) {
  pnl::rig::MachineState state;
  EXPECT_FALSE(ReadingsOf(state)[1].unusual);
  state.feedOverride = 90;
  EXPECT_TRUE(ReadingsOf(state)[1].unusual);
  EXPECT_EQ(ReadingsOf(state)[1].value, "90 %");
  EXPECT_EQ(FormatNumber(0.12345, 4), "0.1235");
  EXPECT_EQ(FormatNumber(100.04), "100");
  EXPECT_EQ(FormatNumber(20), "20");
}

}  // namespace
}  // namespace panel
