// SPDX-License-Identifier: MIT
#include "errors/error_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/format.h"
#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

class ErrorValues : public ErrorFixture {};

struct UnitCase {
  std::int32_t code;
  const char* text;
  double scale;
};

TEST_F(ErrorValues, UnitsHaveTheirTextAndScale) {
  constexpr double kPerMinute = 16.666666666666668;
  const UnitCase cases[] = {
      {0, " ", 1},
      {1, " [mm(º)] ", 10000},
      {2, " [mm(º)/min] ", kPerMinute},
      {3, " [mm(º)/s^2] ", 1},
      {4, " [mm(º)/s^3] ", 1},
      {5, " [s] ", 1000000},
      {6, " [%] ", 10},
      {7, " ", 1},
      {8, "inc", 1},
      {9, " [mm(º)/U] ", 10000},
      {10, " [mm(º)/min] ", kPerMinute},
      {11, " [mm(º)] ", 1},
      {12, " [mm(º)/min] ", 1},
      {13, " [rpm] ", 1},
      {14, " [ms] ", 1},
      {15, " [%] ", 1},
      {16, " [inch] ", 1},
      {17, " [inch/min] ", 1},
      {18, " [inch/s^2] ", 1},
      {19, " [inch/s^3] ", 1},
      {20, "", 1},
      {-1, "", 1},
      {std::numeric_limits<std::int32_t>::max(), "", 1},
      {std::numeric_limits<std::int32_t>::min(), "", 1},
  };
  for (const UnitCase& row : cases) {
    const ErrorUnit unit = UnitOf(row.code);
    EXPECT_EQ(ToUtf8(Format(unit.text)), row.text) << row.code;
    EXPECT_EQ(unit.scale, row.scale) << row.code;
    EXPECT_EQ(unit.inch, row.code >= 16 && row.code <= 19) << row.code;
  }
}

TEST_F(ErrorValues, MeaningsHaveTheirCaption) {
  const int captions[] = {0,   215, 216, 217, 218, 219, 220, 221, 222, 223, 224,
                          225, 226, 227, 228, 248, 249, 0,   0,   264, 265};
  for (int meaning = 0; meaning <= 20; ++meaning) EXPECT_EQ(CaptionTextOf(meaning), captions[meaning]) << meaning;
  for (const int meaning : {-1, 21, 1000}) EXPECT_EQ(CaptionTextOf(meaning), 0) << meaning;
}

TEST_F(ErrorValues, ExtraValuesPrintByTheirType) {
  const std::pair<ErrorValue, const char*> cases[] = {
      {ExtraValue(1, std::uint8_t{1}), " TRUE"},
      {ExtraValue(1, std::uint8_t{0}), " FALSE"},
      {ExtraValue(1, std::uint8_t{200}), " TRUE"},
      {ExtraValue(2, std::uint8_t{200}), " 200"},
      {ExtraValue(3, std::int8_t{-56}), " -56"},
      {ExtraValue(4, std::uint16_t{65535}), " 65535"},
      {ExtraValue(5, std::int16_t{-1}), " -1"},
      {ExtraValue(6, std::uint32_t{4294967295u}), " -1"},
      {ExtraValue(7, std::int32_t{-7}), " -7"},
      {ExtraValue(8, 1.5), " 1.5000"},
      {ExtraValue(8, 1e39), " 1.0000e+39"},
      {ExtraValue(9, std::int32_t{5}), ""},
      {ExtraValue(10, std::uint32_t{255}), ""},
      {ExtraValue(11, std::int32_t{5}), ""},
      {ExtraValue(12, std::int32_t{5}), ""},
      {ExtraValue(13, std::int32_t{5}), ""},
      {ExtraValue(14, std::int32_t{5}), ""},
      {ExtraValue(15, std::int32_t{5}), ""},
      {ExtraValue(16, u'ñ'), " ñ"},
      {ExtraValue(16, u'\0'), " "},
      {ExtraValue(18, std::uint32_t{0xDEADBEEF}), "0xDEADBEEF"},
      {ExtraValue(0, std::int32_t{5}), ""},
      {ExtraValue(19, std::int32_t{5}), ""},
      {ExtraValue(-4, std::int32_t{5}), ""},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(ToUtf8(ComposeValue(value)), text) << value.valueType;
}

TEST_F(ErrorValues, AnExtraTextEndsWithItsField) {
  ErrorValue value{};
  value.valueType = 17;
  const char16_t eight[9] = u"ABCDEFGH";
  std::memcpy(value.value, eight, 16);
  EXPECT_EQ(ToUtf8(ComposeValue(value)), " ABCDEFGH");
  value.value[4] = value.value[5] = 0;
  EXPECT_EQ(ToUtf8(ComposeValue(value)), " AB");
}

TEST_F(ErrorValues, ParametersPrintCaptionValueAndUnit) {
  const std::pair<ErrorParameter, const char*> cases[] = {
      {Parameter(1, 0, 2, std::uint8_t{1}), "\nT216 TRUE "},
      {Parameter(2, 0, 2, std::uint8_t{7}), "\nT216 7 "},
      {Parameter(3, 0, 2, std::int8_t{-7}), "\nT216 -7 "},
      {Parameter(4, 0, 2, std::uint16_t{60000}), "\nT216 60000 "},
      {Parameter(5, 0, 2, std::int16_t{-7}), "\nT216 -7 "},
      {Parameter(6, 0, 2, std::uint32_t{3000000000u}), "\nT216 -1294967296 "},
      {Parameter(7, 0, 2, std::int32_t{-7}), "\nT216 -7 "},
      {Parameter(8, 11, 2, 2.5), "\nT216 2.5000 [mm(º)] "},
      {Parameter(9, 13, 2, std::int32_t{5}), "\nT216 [rpm] "},
      {Parameter(10, 0, 2, std::uint32_t{255}), "\nT2160xFF "},
      {Parameter(11, 0, 2, std::int32_t{5}), "\nT216 "},
      {Parameter(15, 0, 2, std::int32_t{5}), "\nT216 "},
      {Parameter(16, 0, 2, u'X'), "\nT216 X "},
      {TextParameter(2, u"abc"), "\nT216 abc "},
      {Parameter(18, 0, 2, std::uint32_t{0xFFFFFFFF}), "\nT2160xFFFFFFFF "},
      {Parameter(7, 8, 2, std::int32_t{9}), "\nT216 9inc"},
      {Parameter(7, 6, 2, std::int32_t{505}), "\nT216 50 [%] "},
      {Parameter(10, 6, 2, std::uint32_t{170}), "\nT2160x11 [%] "},
      {Parameter(7, 99, 2, std::int32_t{9}), "\nT216 9"},
      {Parameter(7, 0, 99, std::int32_t{9}), " 9 "},
  };
  for (const auto& [parameter, text] : cases) EXPECT_EQ(Line(parameter), text) << parameter.valueType;
}

TEST_F(ErrorValues, AnAbsentParameterLeavesNotEvenALineFeed) {
  EXPECT_EQ(Line(Parameter(0, 1, 2, std::int32_t{5})), "");
}

// The value is divided as a double by 16.666666666666668 and cut, which is a hair below 60.
TEST_F(ErrorValues, ASpeedInTheControlsUnitIsCutWhenWholeAndExactWhenReal) {
  EXPECT_EQ(Line(Parameter(7, 2, 11, std::int32_t{1000})), "\nT225 59 [mm(º)/min] ");
  EXPECT_EQ(Line(Parameter(8, 2, 11, 1000.0)), "\nT225 60.0000 [mm(º)/min] ");
}

TEST_F(ErrorValues, ALengthInTheControlsUnitIsCutWhenWholeAndExactWhenReal) {
  EXPECT_EQ(Line(Parameter(7, 1, 9, std::int32_t{12345})), "\nT223 1 [mm(º)] ");
  EXPECT_EQ(Line(Parameter(8, 1, 9, 12345.0)), "\nT223 1.2345 [mm(º)] ");
  EXPECT_EQ(Line(Parameter(7, 1, 9, std::int32_t{-19999})), "\nT223 -1 [mm(º)] ");
}

TEST_F(ErrorValues, ADoubleBeyondSinglePrecisionPrintsWithAnExponent) {
  EXPECT_EQ(ToUtf8(FormatDouble(1e39, 4)), " 1.0000e+39");
  EXPECT_EQ(ToUtf8(FormatDouble(-1e39, 4)), " -1.0000e+39");
  EXPECT_EQ(ToUtf8(FormatDouble(1e38, 4)).substr(0, 6), " 99999");
  EXPECT_EQ(ToUtf8(FormatDouble(1e38, 4)).find('e'), std::string::npos);
  EXPECT_EQ(ToUtf8(FormatDouble(3.4e38, 0)).find('e'), std::string::npos);
  EXPECT_EQ(ToUtf8(FormatDouble(3.40001e38, 2)), " 3.40e+38");
  EXPECT_EQ(ToUtf8(FormatDouble(std::numeric_limits<double>::infinity(), 4)), " inf");
  EXPECT_EQ(ToUtf8(FormatDouble(0.00001, 5)), " 0.00001");
}

TEST_F(ErrorValues, AValueThatIsNoNumberPrintsSomething) { EXPECT_EQ(ToUtf8(FormatDouble(std::nan(""), 4)), " nan"); }

TEST_F(ErrorValues, AnInchUnitHasFiveDecimals) {
  for (const int unit : {16, 17, 18, 19}) {
    EXPECT_EQ(Line(Parameter(8, unit, 9, 0.5)).substr(0, 14), "\nT223 0.50000 ") << unit;
  }
  EXPECT_EQ(Line(Parameter(8, 15, 9, 0.5)).substr(0, 13), "\nT223 0.5000 ");
}

TEST_F(ErrorValues, ATextWithoutAMeaningStandsAlone) {
  EXPECT_EQ(Line(TextParameter(0, u"from the kernel")), "from the kernel");
  EXPECT_EQ(Line(TextParameter(0, u"")), "");
}

TEST_F(ErrorValues, AnAxisIsNamedWithoutUnit) {
  cnc.Axis(2, u"Y");
  EXPECT_EQ(Line(Parameter(7, 1, 6, std::int32_t{20000})), "\nT220Y");
  EXPECT_EQ(Line(Parameter(7, 0, 6, std::int32_t{2})), "\nT220Y");
  EXPECT_EQ(Line(Parameter(7, 0, 6, std::int32_t{3})), "\nT220") << "an axis that isn't known leaves the caption alone";
}

TEST_F(ErrorValues, ACodeOfADriveOrBusIsAskedOfTheKernel) {
  cnc.ErrorText("GetTextoSercosError", 0x1234, u"drive code %d", u"", false);
  cnc.ErrorText("GetTextoMlinkError", 7, u"link %X", u"", false);
  EXPECT_EQ(Line(Parameter(7, 1, 17, std::int32_t{0x71234})), "\ndrive code 4660");
  EXPECT_EQ(Line(Parameter(7, 1, 18, std::int32_t{7})), "\nlink 7");
}

TEST_F(ErrorValues, AnUnknownCodePrintsALineWithOneBlank) {
  EXPECT_EQ(Line(Parameter(7, 0, 17, std::int32_t{999})), "\n ");
  EXPECT_EQ(Line(Parameter(7, 0, 18, std::int32_t{999})), "\n ");
}

TEST_F(ErrorValues, AFormatThatAsksForMoreThanThereIsPrintsNothingForIt) {
  cnc.ErrorText("GetTextoSercosError", 5, u"%s %d %n %*d end", u"", false);
  const std::string line = Line(Parameter(7, 0, 17, std::int32_t{5}));
  EXPECT_EQ(line.front(), '\n');
  EXPECT_EQ(line.substr(line.size() - 3), "end");
}

TEST_F(ErrorValues, AParametersTextEndsWithItsField) {
  ErrorParameter parameter{};
  parameter.valueType = 17;
  std::memset(parameter.value, 'A', sizeof parameter.value);
  EXPECT_EQ(ComposeParameter(parameter, words, cnc.Kapi()).size(), 260u);
}

}  // namespace
}  // namespace pnl::test
