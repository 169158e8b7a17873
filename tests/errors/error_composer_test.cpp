// SPDX-License-Identifier: MIT
#include "errors/error_composer.h"

#include <gtest/gtest.h>

#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

class ErrorComposer : public ErrorFixture {
 protected:
  ErrorComposer() {
    cnc.Returns("ChannelNumber", {4});
    for (const char* function : {"error_to_txt", "error_drive_to_txt", "warning_drive_to_txt",
                                 "error_unknown_drive_to_txt", "warning_unknown_drive_to_txt", "error_mlink_to_txt",
                                 "error_CS_to_txt", "warning_CS_to_txt", "ReadPLCError"}) {
      cnc.ErrorText(function, 1000, FromUtf8(std::string("|") + function), u"", false);
    }
    cnc.ErrorText("emcy_Copen_to_txt", 0x8130, u"|emcy_Copen_to_txt", u"", false);
  }
};

// The title box.

struct BoxCase {
  const char16_t* word;
  std::int32_t source;
  std::int32_t number;
  const char* expected;
};

TEST_F(ErrorComposer, TheBoxNamesWordAndNumber) {
  const BoxCase cases[] = {
      {u"Error", 0, 1000, "ERROR 1000"},      {u"Error", 0, 0, "ERROR"},  {u"Error", 0, -5, "ERROR -5"},
      {u"Drive", 16, 1000, "DRIVE 0x3e8"},    {u"Drive", 16, 0, "DRIVE"}, {u"aviso ñ", 13, 7, "AVISO Ñ 7"},
      {u"Drive", 16, -1, "DRIVE 0xffffffff"},
  };
  for (const BoxCase& row : cases) {
    const ErrorRecord record = RecordBuilder().Source(row.source).Number(row.number);
    EXPECT_EQ(ToUtf8(ComposeBoxText(row.word, &record)), row.expected);
  }
  EXPECT_EQ(ToUtf8(ComposeBoxText(u"Drive", nullptr)), "DRIVE");
}

// Texts by source.

struct SourceCase {
  std::int32_t source;
  std::uint16_t severity;
  const char* word;
  const char* box;
  const char* title;
  const char* description;
};

TEST_F(ErrorComposer, EachSourceHasItsTexts) {
  const char* id = "\nID: NC-77";
  const SourceCase cases[] = {
      {10, 1, "T205", "T205 1000", "|ReadPLCError", ""},
      {10, 0, "T205", "T205 1000", "|ReadPLCError", ""},
      {13, 1, "T251", "T251 1000", "error_drive_to_txt", id},
      {13, 0, "T251", "T251 1000", "warning_drive_to_txt", id},
      {16, 1, "T251", "T251 0x3e8", "error_mlink_to_txt", id},
      {16, 0, "T251", "T251 0x3e8", "warning_drive_to_txt", id},
      {14, 1, "T251", "T251", "ERROR : 3E8", "error_unknown_drive_to_txt"},
      {14, 0, "T251", "T251", "ERROR : 3E8", "warning_unknown_drive_to_txt"},
      {17, 1, "T254", "T254 1000", "error_CS_to_txt", "ID: NC-77"},
      {17, 0, "T254", "T254 1000", "warning_CS_to_txt", "ID: NC-77"},
      {19, 1, "T203", "T57356 1000", "emcy_Copen_to_txt", "\nT216 33072 \nID: NC-77"},
      {19, 0, "T206", "T57356 1000", "emcy_Copen_to_txt", "\nT216 33072 \nID: NC-77"},
      {9, 1, "T203", "T203 1000", "script title", "\nT237  C:\\S\\P.NC"},
      {9, 0, "T206", "T206 1000", "script title", "\nT237  C:\\S\\P.NC"},
      {15, 1, "T203", "T203 1000", "own title", ""},
      {15, 0, "T206", "T206 1000", "own title", ""},
      {11, 1, "T203", "T203 1000", "error_to_txt", "T239  own title\nID: NC-77"},
      {12, 1, "T203", "T203 1000", "error_to_txt", "own title"},
      {0, 1, "T203", "T203 1000", "error_to_txt", id},
      {0, 0, "T206", "T206 1000", "error_to_txt", id},
      {4, 1, "T203", "T203 1000", "error_to_txt", id},
      {8, 1, "T203", "T203 1000", "error_to_txt", id},
      {18, 1, "T203", "T203 1000", "error_to_txt", id},
      {-7, 1, "T203", "T203 1000", "error_to_txt", id},
      {12345, 1, "T203", "T203 1000", "error_to_txt", id},
  };
  for (const SourceCase& row : cases) {
    RecordBuilder record;
    record.Source(row.source).Severity(row.severity);
    if (row.source == 9) {
      record.Text(error_field::kScriptText, u"\nscript title")
          .Text(error_field::kScriptPath, u"C:\\S")
          .Text(error_field::kProgramName, u"P.NC")
          .Int(error_field::kScriptState, 0);
    }
    if (row.source == 11) record.Text(error_field::kMessageText, u"own title");
    if (row.source == 12 || row.source == 15) record.Text(error_field::kMessageText, u"\nown title");
    if (row.source == 19) record.Parameter(4, Parameter(7, 0, 2, std::int32_t{0x8130}));
    const ComposedError composed = Compose(record);
    const std::string where = "source " + std::to_string(row.source) + ", severity " + std::to_string(row.severity);
    EXPECT_EQ(ToUtf8(composed.titleWord), row.word) << where;
    EXPECT_EQ(ToUtf8(composed.boxText), row.box) << where;
    EXPECT_EQ(ToUtf8(composed.titleLine), row.title) << where;
    const std::string expected = row.source == 15   ? "\n\nID: NC-77"
                                 : row.source == 19 ? std::string(row.description).substr(1)
                                                    : row.description;
    EXPECT_EQ(ToUtf8(composed.Description()), expected) << where;
  }
}

TEST_F(ErrorComposer, AScriptsErrorAsksForItsHelpReferenceToo) {
  cnc.ErrorText("error_to_txt", 1000, u"|other", u"C:\\H.TXT#4", true);
  const ComposedError composed = Compose(RecordBuilder().Source(9).Text(error_field::kScriptText, u"script"));
  EXPECT_EQ(ToUtf8(composed.titleLine), "script");
  EXPECT_EQ(ToUtf8(FieldText(composed.info.helpRef)), "C:\\H.TXT#4");
}

TEST_F(ErrorComposer, TheEmergencyCodeStandsInTheFifthParameter) {
  ErrorRecord record = RecordBuilder().Source(19);
  record.Set(3384, std::int32_t{0x8130});
  EXPECT_EQ(ToUtf8(Compose(record).titleLine), "emcy_Copen_to_txt");
}

// Channel and log.

TEST_F(ErrorComposer, TheChannelIsShownForTheKernelsSourcesOnly) {
  for (const int source : {0, 1, 2, 3, 9, 11, 12, 15, 18}) {
    EXPECT_TRUE(Compose(RecordBuilder().Source(source).Channel(2)).showChannel) << source;
  }
  for (const int source : {10, 13, 14, 16, 17, 19}) {
    EXPECT_FALSE(Compose(RecordBuilder().Source(source).Channel(2)).showChannel) << source;
  }
}

TEST_F(ErrorComposer, TheChannelIsShownWhereThereAreSeveral) {
  for (const auto& [channel, shown] : {std::pair(-1, false), {0, false}, {1, true}, {4, true}, {5, false}}) {
    EXPECT_EQ(Compose(RecordBuilder().Channel(channel)).showChannel, shown) << channel;
  }
  cnc.Returns("ChannelNumber", {1});
  EXPECT_FALSE(Compose(RecordBuilder().Channel(1)).showChannel);
}

TEST_F(ErrorComposer, FatalAndConfirmErrorsOfTheKernelAreLogged) {
  const ComposedError fatal = Compose(RecordBuilder().Severity(7));
  EXPECT_TRUE(fatal.logIt);
  EXPECT_EQ(ToUtf8(fatal.LogText()), "T203 1000 : error_to_txt");
  EXPECT_TRUE(Compose(RecordBuilder().Number(3753)).logIt);
  EXPECT_FALSE(Compose(RecordBuilder()).logIt);
  EXPECT_FALSE(Compose(RecordBuilder().Severity(7).Marked()).logIt);
  EXPECT_FALSE(Compose(RecordBuilder().Severity(0)).logIt);
  EXPECT_FALSE(Compose(RecordBuilder().Severity(7).Source(13)).logIt);
  EXPECT_FALSE(Compose(RecordBuilder().Severity(7).Source(19)).logIt);
}

// The description.

TEST_F(ErrorComposer, AScriptWithoutFileInformationShowsItsIdAlone) {
  RecordBuilder record;
  record.Source(9).Int(error_field::kScriptState, -1).Text(error_field::kScriptPath, u"C:\\S");
  EXPECT_EQ(DescriptionOf(record), "\nID: NC-77");
  record.Text(error_field::kMessageText, u"there is some");
  EXPECT_EQ(DescriptionOf(record), "\nT237  C:\\S\\");
}

TEST_F(ErrorComposer, AScriptWithFileInformationShowsNeitherIdNorParameters) {
  RecordBuilder record;
  record.Source(9).Text(error_field::kScriptPath, u"C:\\S").Parameter(0, Parameter(7, 0, 2, std::int32_t{5}));
  EXPECT_EQ(DescriptionOf(record), "\nT237  C:\\S\\");
}

TEST_F(ErrorComposer, AnErrorWithItsOwnTextShowsItsSecondLineAndItsId) {
  RecordBuilder record;
  record.Source(15).Text(error_field::kMessageText, u"title").Text(error_field::kExtraText, u"G1 X5");
  EXPECT_EQ(DescriptionOf(record), "\nG1 X5\nID: NC-77");
}

TEST_F(ErrorComposer, ParametersAndExtraValuesStandInTheirOrder) {
  RecordBuilder record;
  record.Parameter(0, Parameter(7, 0, 2, std::int32_t{1}))
      .Parameter(2, Parameter(7, 0, 3, std::int32_t{3}))
      .Parameter(4, Parameter(7, 0, 4, std::int32_t{5}))
      .Extra(0, ExtraValue(7, std::int32_t{10}))
      .Extra(1, ExtraValue(10, std::uint32_t{11}))
      .Extra(3, ExtraValue(18, std::uint32_t{13}));
  EXPECT_EQ(DescriptionOf(record), "\nT216 1 \nT217 3 \nT218 5 \nT216 10\nT2160xD\nID: NC-77");
}

TEST_F(ErrorComposer, APreparationErrorLeadsWithItsDiagnosis) {
  RecordBuilder record;
  record.Diagnosis(4, 0, 0)
      .Text(error_field::kMessageText, u"G1 X1/0")
      .Parameter(0, Parameter(7, 0, 2, std::int32_t{1}));
  EXPECT_EQ(DescriptionOf(record), "\nT232 \nT214 G1 X1/0\nT216 1 \nID: NC-77");
}

TEST_F(ErrorComposer, APartnerErrorEndsWithCodeAndPartner) {
  RecordBuilder record;
  record.Source(3).Int(error_field::kCode, 12).Int(error_field::kPartner, -3);
  EXPECT_EQ(DescriptionOf(record), "\nID: NC-77\nCode: 12 \nPartner: -3");
}

TEST_F(ErrorComposer, AProgramErrorShowsWhereItLies) {
  disc.disc["C:\\P\\A.NC"] = "G0 X1\r\nG1 X2 F0\r\n";
  RecordBuilder record;
  record.Source(1)
      .Text(error_field::kProgramPath, u"C:\\P")
      .Text(error_field::kProgramName, u"A.NC")
      .Int(error_field::kFilePosition, 7)
      .Word(error_field::kFileSpan, 12)
      .Parameter(0, Parameter(7, 0, 2, std::int32_t{1}));
  ComposedError composed = Compose(record);
  ASSERT_TRUE(composed.inProgram);
  EXPECT_EQ(ToUtf8(composed.Description()), "\nT216 1 \nT237  C:\\P\\A.NC\nID: NC-77");
  const ProgramLines lines = ReadProgramLines(composed.place, ProgramCaptionsOf(words), disc);
  composed.parts.lineNumber = lines.lineNumber;
  composed.parts.lineText = lines.lineText;
  EXPECT_EQ(ToUtf8(composed.Description()), "\nT216 1 \nT237  C:\\P\\A.NC\nT240 2\nT210 G1 X2 <F>0\nID: NC-77");
}

TEST_F(ErrorComposer, OnlyProgramsAndScriptsAreReadFromAFile) {
  for (int source = -1; source < 25; ++source) {
    EXPECT_EQ(Compose(RecordBuilder().Source(source)).inProgram, source == 1 || source == 9) << source;
  }
}

// A shortened path stands without line feed, so that the description may begin with it.
TEST_F(ErrorComposer, TheBlankBeforeALeadingLineFeedGoes) {
  EXPECT_EQ(ToUtf8(TrimLeadingBlank(u" \nline")), "\nline");
  EXPECT_EQ(ToUtf8(TrimLeadingBlank(u" line")), " line");
  EXPECT_EQ(ToUtf8(TrimLeadingBlank(u"\nline")), "\nline");
  EXPECT_EQ(ToUtf8(TrimLeadingBlank(u" ")), " ");
  EXPECT_EQ(ToUtf8(TrimLeadingBlank(u"")), "");
  RecordBuilder record;
  record.Parameter(0, TextParameter(0, u" \nof the kernel"));
  EXPECT_EQ(DescriptionOf(record), "\nof the kernel\nID: NC-77");
}

// Help of the PLC.

class PlcHelp : public ErrorComposer {
 protected:
  ComposedError With(TextView helpRef) {
    cnc.ErrorText("ReadPLCError", 1000, u"|door", helpRef, true);
    return Compose(RecordBuilder().Source(10));
  }
};

TEST_F(PlcHelp, TheDescriptionIsThatOfTheReference) {
  disc.disc["C:\\PLC\\D.TXT"] = "there";
  cnc.Description(u"C:\\PLC\\D.TXT", 12, u"The door is open.");
  const ComposedError composed = With(u"C:\\PLC\\D.TXT#12");
  EXPECT_EQ(ToUtf8(composed.Description()), "The door is open.");
  EXPECT_TRUE(composed.hasDescription);
  EXPECT_NE(composed.info.hasHelp, 0);
}

TEST_F(PlcHelp, WithoutADescriptionThereIsNoHelp) {
  disc.disc["C:\\PLC\\D.TXT"] = "there";
  cnc.Description(u"C:\\PLC\\D.TXT", 12, u"The door is open.");
  cnc.Description(u"C:\\PLC\\GONE.TXT", 12, u"The door is open.");
  for (const TextView reference :
       {TextView(u""), TextView(u"#12"), TextView(u"C:\\PLC\\D.TXT"), TextView(u"C:\\PLC\\D.TXT#"),
        TextView(u"C:\\PLC\\D.TXT#x"), TextView(u"C:\\PLC\\D.TXT#13"), TextView(u"C:\\PLC\\GONE.TXT#12"),
        TextView(u"C:\\PLC\\D.TXT##12"), TextView(u"C:\\PLC\\D.TXT#-")}) {
    const ComposedError composed = With(reference);
    EXPECT_EQ(ToUtf8(composed.Description()), "") << ToUtf8(reference);
    EXPECT_FALSE(composed.hasDescription) << ToUtf8(reference);
    EXPECT_EQ(composed.info.hasHelp, 0) << ToUtf8(reference);
  }
}

TEST_F(PlcHelp, TheNumberIsReadAsAnIntegerWithWhatStandsBehindItLeft) {
  disc.disc["C:\\PLC\\D.TXT"] = "there";
  cnc.Description(u"C:\\PLC\\D.TXT", -12, u"minus twelve");
  EXPECT_EQ(ToUtf8(With(u"C:\\PLC\\D.TXT# -12 and more").Description()), "minus twelve");
}

TEST_F(PlcHelp, TheTitleKeepsItsFirstCharacter) { EXPECT_EQ(ToUtf8(With(u"").titleLine), "|door"); }

// What is missing or wrong.

TEST_F(ErrorComposer, AnUnknownNumberLeavesTheTitleEmptyAndTheRestAsItIs) {
  const ComposedError composed = Compose(RecordBuilder().Number(424242));
  EXPECT_EQ(ToUtf8(composed.titleLine), "");
  EXPECT_EQ(ToUtf8(composed.boxText), "T203 424242");
  EXPECT_EQ(ToUtf8(composed.Description()), "\nID: NC-77");
}

TEST_F(ErrorComposer, AnUnterminatedTextEndsWithItsField) {
  ErrorRecord record = RecordBuilder();
  for (std::size_t at = 0; at < 12; at += 2) record.Set(at, u'M');
  EXPECT_EQ(DescriptionOf(record), "\nID: MMMMMM-77");
}

TEST_F(ErrorComposer, AZeroedRecordIsAWarningWithoutNumber) {
  const ComposedError composed = Compose(ErrorRecord{});
  EXPECT_EQ(composed.errorClass, ErrorClass::kWarning);
  EXPECT_EQ(ToUtf8(composed.boxText), "T206");
  EXPECT_EQ(ToUtf8(composed.Description()), "\nID: -0");
}

}  // namespace
}  // namespace pnl::test
