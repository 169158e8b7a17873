// SPDX-License-Identifier: MIT
#include "facade/mill/machine_errors.h"

#include <set>

#include "facade/mill/machine_fakes.h"
#include "facade/mill/machine_record.h"
#include "facade/sim/sim_error_summary.h"

namespace pnl::sim {
namespace {

std::int32_t Int(const ErrorRecord& record, const ErrorField& field) { return record.Get<std::int32_t>(field.offset); }
int Word16(const ErrorRecord& record, const ErrorField& field) { return record.Get<std::uint16_t>(field.offset); }
Text TextOf(const ErrorRecord& record, const ErrorField& field) { return record.GetText(field.offset, field.size); }

ErrorParameter ParameterAt(const ErrorRecord& record, std::size_t index) {
  return record.Get<ErrorParameter>(error_field::kParametersOffset + index * sizeof(ErrorParameter));
}

/// "meaning:unit:value" of each parameter that is there.
std::string Parameters(const ErrorRecord& record) {
  std::string all;
  for (std::size_t i = 0; i < error_field::kParameterCount; ++i) {
    const ErrorParameter parameter = ParameterAt(record, i);
    if (parameter.valueType == value_type::kAbsent) continue;
    if (!all.empty()) all += ", ";
    all += std::to_string(parameter.meaning) + ":" + std::to_string(parameter.unit) + ":" +
           ToUtf8(PlainValue(parameter.valueType, parameter.value, sizeof parameter.value));
  }
  return all;
}

std::string Diagnosis(const ErrorRecord& record) {
  return std::to_string(Word16(record, error_field::kDiagnosisKind)) + " " +
         std::to_string(Word16(record, error_field::kDiagnosisA)) + " " +
         std::to_string(Word16(record, error_field::kDiagnosisB));
}

TEST(MachineErrors, EveryFaultHasANumberOfItsOwnAndBothTexts) {
  std::set<std::int32_t> numbers;
  for (const FaultText& entry : FaultTexts()) {
    EXPECT_TRUE(numbers.insert(entry.number).second) << entry.number;
    EXPECT_FALSE(entry.english.empty());
    EXPECT_FALSE(entry.spanish.empty());
    EXPECT_NE(entry.english, entry.spanish);
    // 201 and 3753 are handled in ways of their own by the error display.
    EXPECT_NE(entry.number, 201);
    EXPECT_NE(entry.number, 3753);
  }
}

struct RefusalRow {
  std::vector<TextView> before;  // blocks that run first
  TextView block;
  std::int32_t number;
  const char* diagnosis;  // empty: the kernel itself raised it
  const char* parameters;
};

// One row for every fault that a block can be refused for; what the kernel has a diagnosis for carries it, the others
// name the block on a line of their own.
const RefusalRow kRefusals[] = {
    {{}, u"X1 ?", 1001, "13 0 0", "2:0:?"},
    {{}, u"G1 X", 1002, "13 0 0", "2:0:X"},
    {{}, u"X1.2.3", 1003, "13 0 0", "2:0:X1.2.3"},
    {{}, u"X1 (open", 1004, "13 0 0", "2:0:(open"},
    {{}, u"Q5", 1005, "13 0 0", "2:0:Q5"},
    {{}, u"G1 G999 X5", 1006, "1 999 0", "2:0:G999"},
    {{}, u"G0.5", 1006, "1 0 0", "2:0:G0.5"},
    {{}, u"G99999 X1", 1006, "1 0 0", "2:0:G99999"},
    {{}, u"M77", 1007, "19 77 0", "2:0:M77"},
    {{}, u"M65535", 1007, "19 65535 0", "2:0:M65535"},
    {{}, u"M65536", 1007, "", "2:0:M65536, 0:0:Block: M65536"},
    {{}, u"M-1", 1007, "", "2:0:M-1, 0:0:Block: M-1"},
    {{}, u"Y1 Y1", 1009, "2 2 0", "2:0:Y1"},
    {{}, u"S20000.6", 1021, "16 20001 0", "2:0:S20000.6, 12:13:20000.6, 4:13:12000"},
    {{}, u"M1.5", 1007, "", "2:0:M1.5, 0:0:Block: M1.5"},
    {{}, u"G17 G18", 1008, "6 18 0", "2:0:G18"},
    {{}, u"G1 G0 X1", 1008, "6 0 0", "2:0:G0"},
    {{}, u"X1 X2", 1009, "2 1 0", "2:0:X2"},
    {{}, u"Z1 Z1", 1009, "2 3 0", "2:0:Z1"},
    {{}, u"F1 F2", 1009, "", "2:0:F2, 0:0:Block: F1 F2"},
    {{}, u"G0 X1 I2", 1010, "", "2:0:I2, 0:0:Block: G0 X1 I2"},
    {{}, u"D100", 1011, "", "2:0:D100, 3:0:0, 4:0:99, 0:0:Block: D100"},
    {{}, u"S-1", 1011, "", "2:0:S-1, 3:0:0, 0:0:Block: S-1"},
    {{}, u"N1.5 X1", 1011, "", "2:0:N1.5, 3:0:0, 4:0:99999999, 0:0:Block: N1.5 X1"},
    {{}, u"G4 K-1", 1011, "", "2:0:K-1, 3:0:0, 4:5:8.64e+10, 0:0:Block: G4 K-1"},
    {{}, u"G1 X1", 1012, "", "2:0:G1, 0:0:Block: G1 X1"},
    {{}, u"F0", 1013, "", "2:0:F0, 11:12:0, 0:0:Block: F0"},
    {{}, u"F30000", 1014, "", "2:0:F30000, 11:12:30000, 4:12:20000, 0:0:Block: F30000"},
    {{}, u"G20 F1000", 1014, "", "2:0:F1000, 11:17:1000, 4:17:787.4015748, 0:0:Block: G20 F1000"},
    {{}, u"G95 F30000", 1014, "", "2:0:F30000, 11:9:300000000, 0:0:Block: G95 F30000"},
    {{u"F100"}, u"G2 X10", 1015, "", "2:0:G2, 0:0:Block: G2 X10"},
    {{u"F100"}, u"G2 X10 I4", 1016, "12 0 0", "2:0:X10"},
    {{u"F100"}, u"G2 X10 R1", 1017, "", "2:0:R1, 0:0:Block: G2 X10 R1"},
    {{}, u"G0 X501", 1018, "7 1 0", "2:0:X501, 6:0:1, 1:11:500, 10:11:501"},
    {{}, u"G0 Z-401", 1018, "7 3 0", "2:0:Z-401, 6:0:3, 1:11:-400, 10:11:-401"},
    {{u"G0 X-500"}, u"X501", 1018, "7 1 0", "2:0:X501, 6:0:1, 1:11:500, 10:11:501"},  // from the other limit
    {{}, u"G20 G0 Y12", 1018, "7 2 0", "2:0:Y12, 6:0:2, 1:16:11.81102362, 10:16:12"},
    {{}, u"G95 F1 G1 X1", 1019, "", "2:0:F1, 0:0:Block: G95 F1 G1 X1"},
    {{}, u"M3", 1020, "", "2:0:M3, 0:0:Block: M3"},
    {{}, u"S20000", 1021, "16 20000 0", "2:0:S20000, 12:13:20000, 4:13:12000"},
    {{u"T6 M6"}, u"G96 S900 M3", 1021, "", "2:0:S900, 12:13:95492.96586, 4:13:12000, 0:0:Block: G96 S900 M3"},
    {{}, u"T100", 1022, "8 100 0", "2:0:T100, 3:0:0, 4:0:99"},
    {{}, u"T1.5", 1022, "", "2:0:T1.5, 3:0:0, 4:0:99, 0:0:Block: T1.5"},
    {{u"T50 M6"}, u"G96 S100 M3", 1023, "", "2:0:S100, 13:0:50, 0:0:Block: G96 S100 M3"},
    {{}, u"G4", 1024, "", "2:0:G4, 0:0:Block: G4"},
    {{}, u"G0 X10/0", 1025, "4 0 0", "2:0:X10/0"},
};

TEST(MachineErrors, ARefusalSaysWhatHappenedByItsFields) {
  for (const RefusalRow& row : kRefusals) {
    SCOPED_TRACE(ToUtf8(row.block));
    test::MachineBench bench;
    for (const TextView block : row.before) bench.Do(block);
    EXPECT_EQ(bench.Send(row.block), row.number);
    ASSERT_EQ(bench.environment.errors.size(), 1U);
    const ErrorRecord& record = bench.environment.errors[0];
    const bool diagnosed = *row.diagnosis != '\0';
    EXPECT_EQ(Int(record, error_field::kSource), diagnosed ? 2 : 0);
    EXPECT_EQ(Int(record, error_field::kNumber), row.number);
    EXPECT_EQ(Int(record, error_field::kIdentifier), row.number);
    EXPECT_EQ(Word16(record, error_field::kSeverity), 1);
    EXPECT_EQ(record.Get<std::int8_t>(error_field::kChannel.offset), 1);
    EXPECT_EQ(record.Get<std::uint8_t>(error_field::kMarked.offset), 0);
    EXPECT_EQ(TextOf(record, error_field::kModule), u"NC");
    EXPECT_EQ(TextOf(record, error_field::kMessageText), diagnosed ? Text(row.block) : Text());
    EXPECT_EQ(Diagnosis(record), diagnosed ? row.diagnosis : "0 0 0");
    EXPECT_EQ(Parameters(record), row.parameters);
  }
}

TEST(MachineErrors, ARefusalMarksTheWordAtFault) {
  struct Row {
    TextView block;
    int begin;
  };
  for (const Row& row :
       {Row{u"G1 G999 X5", 3}, Row{u"X1 ?", 3}, Row{u"? X1 ?", 0}, Row{u"X1 Y2 X1", 6}, Row{u"M77", 0}}) {
    SCOPED_TRACE(ToUtf8(row.block));
    test::MachineBench bench;
    EXPECT_NE(bench.Send(row.block), 0);
    ASSERT_EQ(bench.environment.errors.size(), 1U);
    // As in an error of a program, the mark counts bytes.
    EXPECT_EQ(Word16(bench.environment.errors[0], error_field::kFileSpan), 2 * row.begin);
  }
}

TEST(MachineErrors, EveryFaultOfABlockIsRefusedSomewhereAbove) {
  std::set<std::int32_t> shown;
  for (const RefusalRow& row : kRefusals) shown.insert(row.number);
  for (const FaultText& entry : FaultTexts()) {
    const bool ofState = entry.code >= FaultCode::kNotInMdi;
    EXPECT_EQ(shown.count(entry.number), ofState ? 0U : 1U) << entry.number;
  }
}

TEST(MachineErrors, TheStateOfTheMachineRefusesWithTheBlockAlone) {
  test::MachineBench bench;
  bench.machine->EmergencyStop(true);
  EXPECT_EQ(bench.Send(u"G0 X1"), 1033);
  bench.machine->EmergencyStop(false);
  bench.machine->SetMdi(1, 0);
  EXPECT_EQ(bench.Send(u"G0 X1"), 1031);
  bench.machine->SetMdi(1, 1);
  EXPECT_EQ(bench.Send(u"G0 X2"), 0);
  EXPECT_EQ(bench.Send(u"G0 X1"), 1032);
  ASSERT_EQ(bench.environment.errors.size(), 4U);
  EXPECT_EQ(Parameters(bench.environment.errors[0]), "") << "the emergency stop itself has no block";
  for (std::size_t i = 1; i < 4; ++i) {
    EXPECT_EQ(Int(bench.environment.errors[i], error_field::kSource), 0);
    EXPECT_EQ(Parameters(bench.environment.errors[i]), "0:0:Block: G0 X1");
  }
}

TEST(MachineErrors, ADiagnosisFindsItsNumberWhereverItIsAmongTheFacts) {
  const Fault fault =
      Fault{FaultCode::kTravelLimit, u"Y9", 0, 2}.With(FaultFact::Kind::kLimit, 300).With(FaultFact::Kind::kAxis, 2);
  EXPECT_EQ(Diagnosis(MakeErrorRecord(fault, u"Y9", MachineLanguage::kEnglish)), "7 2 0");
}

// The message and the diagnosis share their field: 50 units, the terminator, the three numbers.
TEST(MachineErrors, ALongBlockLeavesItsDiagnosisWhole) {
  const Text block = u"G999 " + Text(200, u'X');
  const Fault fault{FaultCode::kUnknownG, u"G999", 0, 4, 999};
  const ErrorRecord record = MakeErrorRecord(fault, block, MachineLanguage::kEnglish);
  EXPECT_EQ(Diagnosis(record), "1 999 0");
  const Text message = TextOf(record, error_field::kMessageText);
  EXPECT_EQ(message, block.substr(0, 49) + u'…');
  const ErrorRecord whole = MakeErrorRecord(fault, Text(50, u'Y'), MachineLanguage::kEnglish);
  EXPECT_EQ(TextOf(whole, error_field::kMessageText), Text(50, u'Y'));
}

TEST(MachineErrors, AWordThatIsTooLongIsCutToItsParameter) {
  const ErrorRecord record = MakeErrorRecord({FaultCode::kUnusedWord, u"X" + Text(5000, u'9'), 0, 5001},
                                             Text(5000, u'Y'), MachineLanguage::kEnglish);
  EXPECT_EQ(PlainValue(value_type::kText, ParameterAt(record, 0).value, 520).size(), 259U);
  EXPECT_EQ(PlainValue(value_type::kText, ParameterAt(record, 1).value, 520).substr(0, 8), u"Block: Y");
  EXPECT_EQ(ParameterAt(record, 2).valueType, 0);
}

TEST(MachineErrors, ARecordHasFiveParametersAndASixthIsLeftOut) {
  RecordMaker maker(0, 1, severity::kError, u"NC");
  for (std::int32_t i = 1; i <= 6; ++i) maker.Parameter(i, value_type::kInt32, i);
  EXPECT_EQ(Parameters(maker.Record()), "1:0:1, 2:0:2, 3:0:3, 4:0:4, 5:0:5");
  for (std::size_t at = error_field::kExtraValuesOffset; at < sizeof(ErrorRecord); ++at) {
    ASSERT_EQ(maker.Record().bytes[at], 0) << at;
  }
}

TEST(MachineErrors, TheTextsAreThereBeforeAnyError) {
  test::MachineBench bench;
  EXPECT_EQ(bench.environment.errorTexts[1018], u"\nTravel limit exceeded");
  bench.machine->SetLanguage("es");
  EXPECT_EQ(bench.environment.errorTexts[1018], u"\nLímite de recorrido sobrepasado");
  for (const FaultText& entry : FaultTexts()) {
    EXPECT_EQ(bench.environment.errorTexts[entry.number], u"\n" + Text(entry.spanish));
  }
  bench.Send(u"F1 F2");
  EXPECT_EQ(Parameters(bench.environment.errors.back()), "2:0:F2, 0:0:Bloque: F1 F2");
  EXPECT_EQ(bench.environment.errorTexts[1009], u"\nPalabra repetida") << "two of one number read the same title";
}

TEST(MachineErrors, EveryTextLeadsToItsDescriptionInItsLanguage) {
  test::MachineBench bench;
  const auto& texts = bench.environment.tableTexts;
  EXPECT_EQ(texts.at({"error_to_txt", 1018}).second, u"C:\\CNC\\HELP\\ERRORS\\en\\MACHINE.TXT#1018");
  bench.machine->SetLanguage("es");
  EXPECT_EQ(texts.at({"error_to_txt", 1018}).second, u"C:\\CNC\\HELP\\ERRORS\\es\\MACHINE.TXT#1018");
  EXPECT_EQ(texts.at({"ReadPLCError", 5012}).second, u"C:\\CNC\\HELP\\ERRORS\\es\\MACHINE.TXT#5012");
}

}  // namespace
}  // namespace pnl::sim
