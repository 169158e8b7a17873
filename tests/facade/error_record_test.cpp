// SPDX-License-Identifier: MIT
#include "facade/error_record.h"

#include <gtest/gtest.h>

#include <string>

namespace pnl {
namespace {

struct Place {
  const ErrorField* field;
  const char* name;
  std::size_t offset;
  std::size_t size;
};
const Place kPlaces[] = {
    {&error_field::kModule, "module", 0, 12},
    {&error_field::kSource, "source", 12, 4},
    {&error_field::kNumber, "number", 24, 4},
    {&error_field::kIdentifier, "identifier", 28, 4},
    {&error_field::kSeverity, "severity", 32, 2},
    {&error_field::kChannel, "channel", 36, 1},
    {&error_field::kMarked, "marked", 38, 1},
    {&error_field::kMessageText, "messageText", 40, 168},
    {&error_field::kCode, "code", 40, 4},
    {&error_field::kPartner, "partner", 44, 4},
    {&error_field::kDiagnosisKind, "diagnosisKind", 142, 2},
    {&error_field::kDiagnosisA, "diagnosisA", 144, 2},
    {&error_field::kDiagnosisB, "diagnosisB", 146, 2},
    {&error_field::kProgramName, "programName", 168, 128},
    {&error_field::kExtraText, "extraText", 208, 88},
    {&error_field::kFilePosition, "filePosition", 296, 4},
    {&error_field::kFileSpan, "fileSpan", 306, 2},
    {&error_field::kProgramPath, "programPath", 308, 148},
    {&error_field::kScriptState, "scriptState", 456, 4},
    {&error_field::kScriptText, "scriptText", 460, 512},
    {&error_field::kScriptPath, "scriptPath", 972, 244},
    {&error_field::kScriptPosition, "scriptPosition", 1216, 4},
    {&error_field::kScriptSpan, "scriptSpan", 1220, 2},
};

TEST(ErrorRecordLayout, EveryFieldHasItsPlace) {
  for (const Place& place : kPlaces) {
    EXPECT_STREQ(place.field->name, place.name);
    EXPECT_EQ(place.field->offset, place.offset) << place.name;
    EXPECT_EQ(place.field->size, place.size) << place.name;
  }
  EXPECT_EQ(error_field::kParametersOffset, 1224U);
  EXPECT_EQ(error_field::kExtraValuesOffset, 3904U);
  // The value of the fifth parameter carries the code of a field bus emergency.
  EXPECT_EQ(error_field::kParametersOffset + 4 * sizeof(ErrorParameter) + offsetof(ErrorParameter, value), 3384U);
}

TEST(ErrorRecordLayout, TheListHasEveryFieldInOrderOfPlace) {
  ASSERT_EQ(std::size(error_field::kAll), std::size(kPlaces));
  for (std::size_t i = 0; i < std::size(kPlaces); ++i) EXPECT_STREQ(error_field::kAll[i].name, kPlaces[i].name);
}

TEST(ErrorRecordLayout, ANumbersFieldIsAsWideAsItsKind) {
  for (const ErrorField& field : error_field::kAll) {
    switch (field.kind) {
      case ErrorField::Kind::kInt32:
        EXPECT_EQ(field.size, 4U) << field.name;
        break;
      case ErrorField::Kind::kUint16:
        EXPECT_EQ(field.size, 2U) << field.name;
        break;
      case ErrorField::Kind::kInt8:
      case ErrorField::Kind::kUint8:
        EXPECT_EQ(field.size, 1U) << field.name;
        break;
      case ErrorField::Kind::kText:
        EXPECT_EQ(field.size % 2, 0U) << field.name;
        break;
    }
  }
}

TEST(ErrorRecord, ATextEndsAtItsTerminator) {
  ErrorRecord record{};
  record.SetText(0, 12, u"abc");
  EXPECT_EQ(record.GetText(0, 12), u"abc");
}

TEST(ErrorRecord, AShorterTextTakesThePlaceOfALongerOne) {
  ErrorRecord record{};
  record.SetText(0, 12, u"abcde");
  record.SetText(0, 12, u"xy");
  EXPECT_EQ(record.GetText(0, 12), u"xy");
}

TEST(ErrorRecord, ATextWithoutTerminatorEndsWithItsField) {
  ErrorRecord record{};
  for (std::size_t at = 0; at < sizeof record.bytes; at += 2) record.Set(at, u'x');
  EXPECT_EQ(record.GetText(0, 12), u"xxxxxx");
  EXPECT_EQ(record.GetText(4040, 100), u"xxxx");
  EXPECT_EQ(record.GetText(5000, 10), u"");
}

TEST(ErrorRecord, ALongTextIsCutWithItsTerminator) {
  ErrorRecord record{};
  record.Set<std::int32_t>(12, 77);
  record.SetText(0, 12, u"abcdefghij");
  EXPECT_EQ(record.GetText(0, 12), u"abcde");
  EXPECT_EQ(record.Get<std::int32_t>(12), 77);
}

TEST(ErrorRecord, ATextLeavesWhatLiesBehindItsTerminator) {
  ErrorRecord record{};
  record.Set<std::uint16_t>(error_field::kDiagnosisKind.offset, 5);
  record.SetText(error_field::kMessageText.offset, error_field::kMessageText.size, u"axis");
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kDiagnosisKind.offset), 5);
}

TEST(ErrorRecord, ATextOutsideTheRecordIsNotWritten) {
  ErrorRecord record{};
  record.SetText(4046, 100, u"abc");
  EXPECT_EQ(record.Get<char16_t>(4046), u'\0');
  record.SetText(9000, 10, u"abc");
}

}  // namespace
}  // namespace pnl
