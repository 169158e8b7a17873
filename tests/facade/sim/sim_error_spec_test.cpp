// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_spec.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pnl::sim {
namespace {

using rig::ErrorParameterSpec;
using rig::ErrorSpec;
using rig::Value;

std::string ProblemOf(const ErrorSpec& spec) {
  std::string problem;
  return MakeErrorRecord(spec, problem) ? "none" : problem;
}

ErrorRecord Make(const ErrorSpec& spec) {
  std::string problem;
  const auto record = MakeErrorRecord(spec, problem);
  EXPECT_TRUE(record) << problem;
  return record.value_or(ErrorRecord{});
}

Value Number(std::int64_t number) { return number; }

TEST(ErrorSpecTest, EveryFieldReachesItsPlace) {
  for (const ErrorField& field : error_field::kAll) {
    SCOPED_TRACE(field.name);
    const bool isText = field.kind == ErrorField::Kind::kText;
    const ErrorRecord record = Make({{{field.name, isText ? Value(Text(u"abc")) : Number(77)}}, {}, {}});
    switch (field.kind) {
      case ErrorField::Kind::kText:
        EXPECT_EQ(record.GetText(field.offset, field.size), u"abc");
        break;
      case ErrorField::Kind::kInt32:
        EXPECT_EQ(record.Get<std::int32_t>(field.offset), 77);
        break;
      case ErrorField::Kind::kUint16:
        EXPECT_EQ(record.Get<std::uint16_t>(field.offset), 77);
        break;
      case ErrorField::Kind::kInt8:
      case ErrorField::Kind::kUint8:
        EXPECT_EQ(record.Get<std::uint8_t>(field.offset), 77);
        break;
    }
    // Nothing else was touched.
    ErrorRecord rest = record;
    std::memset(rest.bytes + field.offset, 0, field.size);
    EXPECT_EQ(std::memcmp(rest.bytes, ErrorRecord{}.bytes, sizeof rest.bytes), 0);
  }
}

TEST(ErrorSpecTest, AnEmptySpecIsARecordOfZeros) {
  EXPECT_EQ(std::memcmp(Make({}).bytes, ErrorRecord{}.bytes, sizeof(ErrorRecord)), 0);
}

TEST(ErrorSpecTest, WrongNamesAndValuesAreNamed) {
  struct Row {
    rig::Field field;
    const char* problem;
  };
  const Row rows[] = {
      {{"nummber", Number(1)}, "nummber"},
      {{"Number", Number(1)}, "Number"},
      {{"", Number(1)}, ""},
      {{"number", Text(u"1")}, "number"},
      {{"number", Value{}}, "number"},
      {{"number", 1.5}, "number"},
      {{"number", std::nan("")}, "number"},
      {{"number", 1e30}, "number"},
      {{"number", Number(4294967296LL)}, "number"},
      {{"number", Number(-2147483649LL)}, "number"},
      {{"number", std::vector<rig::Field>{}}, "number"},
      {{"severity", Number(65536)}, "severity"},
      {{"severity", Number(-32769)}, "severity"},
      {{"channel", Number(256)}, "channel"},
      {{"channel", Number(-129)}, "channel"},
      {{"marked", Number(1000)}, "marked"},
      {{"messageText", Number(5)}, "messageText"},
      {{"module", Value{}}, "module"},
      {{"number", Number(-1)}, "none"},
      {{"number", Number(4294967295LL)}, "none"},
      {{"number", 5.0}, "none"},
      {{"channel", Number(-128)}, "none"},
      {{"severity", Number(65535)}, "none"},
  };
  for (const Row& row : rows) {
    std::string problem = "untouched";
    const bool made = MakeErrorRecord({{row.field}, {}, {}}, problem).has_value();
    EXPECT_EQ(made ? "none" : problem, row.problem) << row.field.name;
  }
}

TEST(ErrorSpecTest, FieldsThatShareTheirPlaceCutTheTextBefore) {
  const Text longText(84, u'm');
  const ErrorRecord record = Make({{{"diagnosisKind", Number(5)},
                                    {"diagnosisA", Number(2)},
                                    {"programName", Text(u"O1.nc")},
                                    {"messageText", longText}},
                                   {},
                                   {}});
  EXPECT_EQ(record.GetText(error_field::kMessageText.offset, error_field::kMessageText.size), Text(50, u'm'));
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kDiagnosisKind.offset), 5);
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kDiagnosisA.offset), 2);
  EXPECT_EQ(record.GetText(error_field::kProgramName.offset, error_field::kProgramName.size), u"O1.nc");
}

TEST(ErrorSpecTest, TheOrderInWhichFieldsAreGivenChangesNothing) {
  const rig::Field text{"messageText", Text(84, u'm')};
  const rig::Field kind{"diagnosisKind", Number(5)};
  const rig::Field module{"module", Text(u"NC")};
  const ErrorRecord record = Make({{module, text, kind}, {}, {}});
  for (const auto& fields : {std::vector{text, module, kind}, std::vector{kind, text, module}}) {
    EXPECT_EQ(std::memcmp(Make({fields, {}, {}}).bytes, record.bytes, sizeof record.bytes), 0);
  }
  EXPECT_EQ(record.GetText(error_field::kMessageText.offset, error_field::kMessageText.size), Text(50, u'm'));
}

TEST(ErrorSpecTest, AWholeRealIsANumber) {
  EXPECT_EQ(Make({{{"number", -5.0}}, {}, {}}).Get<std::int32_t>(error_field::kNumber.offset), -5);
  EXPECT_EQ(Make({{{"severity", 7.0}}, {}, {}}).Get<std::uint16_t>(error_field::kSeverity.offset), 7);
}

TEST(ErrorSpecTest, NumbersInThePlaceOfATextWin) {
  const ErrorRecord record =
      Make({{{"code", Number(7)}, {"partner", Number(8)}, {"messageText", Text(u"lost")}}, {}, {}});
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kCode.offset), 7);
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kPartner.offset), 8);
}

TEST(ErrorSpecTest, ALongTextIsCutToItsField) {
  const ErrorRecord record = Make({{{"module", Text(u"abcdefghij")}, {"source", Number(9)}}, {}, {}});
  EXPECT_EQ(record.GetText(0, 12), u"abcde");
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kSource.offset), 9);
}

template <typename T>
T ParameterValue(const ErrorRecord& record, std::size_t index) {
  return record.Get<T>(error_field::kParametersOffset + index * sizeof(ErrorParameter) + 16);
}
template <typename T>
T ExtraValue(const ErrorRecord& record, std::size_t index) {
  return record.Get<T>(error_field::kExtraValuesOffset + index * sizeof(ErrorValue) + 8);
}

/// The same value as a parameter and as an extra value, read back with the type its code says.
template <typename T>
void ExpectEncoded(std::int32_t code, const Value& value, T expected) {
  const ErrorParameterSpec spec{code, 3, 6, value};
  const ErrorRecord record = Make({{}, {{}, spec}, {{}, {}, spec}});
  EXPECT_EQ(record.Get<std::int32_t>(1224 + 536), code);
  EXPECT_EQ(record.Get<std::int32_t>(1224 + 536 + 4), 3);
  EXPECT_EQ(record.Get<std::int32_t>(1224 + 536 + 8), 6);
  EXPECT_EQ(ParameterValue<T>(record, 1), expected) << code;
  EXPECT_EQ(record.Get<std::int32_t>(3904 + 48), code);
  EXPECT_EQ(ExtraValue<T>(record, 2), expected) << code;
  EXPECT_EQ(record.Get<std::int32_t>(1224), 0) << "the first one is absent";
}

TEST(ErrorSpecTest, EveryValueTypeIsEncodedByItsCode) {
  ExpectEncoded<std::uint8_t>(1, Number(1), 1);
  ExpectEncoded<std::uint8_t>(2, Number(255), 255);
  ExpectEncoded<std::int8_t>(3, Number(-5), -5);
  ExpectEncoded<std::uint16_t>(4, Number(65535), 65535);
  ExpectEncoded<std::int16_t>(5, Number(-500), -500);
  ExpectEncoded<std::uint32_t>(6, Number(4294967295LL), 4294967295U);
  ExpectEncoded<std::int32_t>(7, Number(-70000), -70000);
  ExpectEncoded<double>(8, 2.5, 2.5);
  ExpectEncoded<double>(8, Number(3), 3.0);
  ExpectEncoded<std::uint32_t>(10, Number(0xDEADBEEF), 0xDEADBEEFU);
  ExpectEncoded<char16_t>(16, Text(u"ñ"), u'ñ');
  ExpectEncoded<char16_t>(16, Number(65), u'A');
  ExpectEncoded<std::uint32_t>(18, Number(0x1234), 0x1234U);
  ExpectEncoded<std::int32_t>(9, Number(5), 5);
  ExpectEncoded<std::int32_t>(99, Number(5), 5);
}

TEST(ErrorSpecTest, TextValuesAreCutToTheirRoom) {
  const ErrorParameterSpec spec{17, 0, 0, Text(600, u'x')};
  const ErrorRecord record = Make({{}, {spec}, {spec}});
  EXPECT_EQ(record.GetText(1224 + 16, 520), Text(259, u'x'));
  EXPECT_EQ(record.GetText(3904 + 8, 16), Text(7, u'x'));
  EXPECT_EQ(record.Get<std::int32_t>(1224 + 536), 0);
}

TEST(ErrorSpecTest, AValueMayBeLeftOut) {
  const ErrorRecord record = Make({{}, {{7, 0, 1, {}}}, {}});
  EXPECT_EQ(record.Get<std::int32_t>(1224), 7);
  EXPECT_EQ(ParameterValue<std::int32_t>(record, 0), 0);
}

TEST(ErrorSpecTest, WrongValuesOfParametersAreNamed) {
  struct Row {
    std::int32_t code;
    Value value;
  };
  const Row rows[] = {
      {1, Text(u"yes")},
      {1, Number(300)},
      {2, Number(256)},
      {3, Number(-129)},
      {4, Number(65536)},
      {5, Number(-32769)},
      {6, Number(1LL << 32)},
      {7, Text(u"7")},
      {7, 1.5},
      {8, Text(u"2.5")},
      {10, Text(u"DEAD")},
      {16, Text(u"ab")},
      {16, Text()},
      {16, Number(65536)},
      {17, Number(5)},
      {18, Number(1LL << 33)},
      {0, Text(u"x")},
      {99, Text(u"x")},
      {7, std::vector<rig::Field>{}},
  };
  for (const Row& row : rows) {
    const ErrorParameterSpec wrong{row.code, 0, 0, row.value};
    EXPECT_EQ(ProblemOf({{}, {{}, wrong}, {}}), "parameters[1].value") << row.code;
    EXPECT_EQ(ProblemOf({{}, {}, {{}, {}, {}, wrong}}), "extraValues[3].value") << row.code;
  }
}

TEST(ErrorSpecTest, ThereIsRoomForFiveParametersAndFourExtraValues) {
  EXPECT_EQ(ProblemOf({{}, std::vector<ErrorParameterSpec>(5), std::vector<ErrorParameterSpec>(4)}), "none");
  EXPECT_EQ(ProblemOf({{}, std::vector<ErrorParameterSpec>(6), {}}), "parameters");
  EXPECT_EQ(ProblemOf({{}, {}, std::vector<ErrorParameterSpec>(5)}), "extraValues");
}

}  // namespace
}  // namespace pnl::sim
