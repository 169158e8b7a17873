// SPDX-License-Identifier: MIT
#include "facade/mill/machine_raised.h"

#include "facade/mill/machine_fakes.h"
#include "facade/sim/sim_error_summary.h"

namespace pnl::sim {
namespace {

using Raised = rig::MachineControl::Fault;

struct RaisedRow {
  Raised fault;
  std::int32_t source;
  std::int32_t number;
  int severity;
  TextView module;
  const char* function;  // where its text is found, by textNumber
  std::int32_t textNumber;
  TextView english;
  TextView spanish;
};
const RaisedRow kRows[] = {
    {Raised::kDoorOpen, 10, 5012, 1, u"PLC", "ReadPLCError", 5012, u" Safety door open",
     u" Puerta de seguridad abierta"},
    {Raised::kDriveWarning, 13, 6101, 0, u"DRV", "warning_drive_to_txt", 6101, u"\nMotor of the axis too warm",
     u"\nMotor del eje demasiado caliente"},
    {Raised::kDriveFault, 13, 6201, 1, u"DRV", "error_drive_to_txt", 6201, u"\nDrive of the axis switched off",
     u"\nRegulador del eje desconectado"},
    {Raised::kBusFault, 19, 6301, 1, u"BUS", "emcy_Copen_to_txt", 0x8130, u"\nBus node does not answer",
     u"\nEl nodo del bus no contesta"},
    {Raised::kProgramLine, 1, 1101, 1, u"NC", "error_to_txt", 1101, u"\nThe program block cannot be run",
     u"\nEl bloque del programa no se puede ejecutar"},
    {Raised::kConfirm, 0, 3753, 1, u"NC", "error_to_txt", 3753, u"\nConfirm that the workpiece is clamped",
     u"\nConfirme que la pieza está amarrada"},
    {Raised::kFatal, 0, 2001, 7, u"KRN", "error_to_txt", 2001,
     u"\nInternal fault of the kernel: the control must be switched off",
     u"\nFallo interno del núcleo: hay que apagar el control"},
};

std::int32_t Int(const ErrorRecord& record, const ErrorField& field) { return record.Get<std::int32_t>(field.offset); }

TEST(MachineRaised, EachFaultIsARecordOfItsSourceWithTextsInBothLanguages) {
  for (const RaisedRow& row : kRows) {
    SCOPED_TRACE(row.number);
    test::MachineBench bench;
    const auto& texts = bench.environment.tableTexts;
    bench.machine->Raise(row.fault, {});
    ASSERT_EQ(bench.environment.errors.size(), 1U);
    const ErrorRecord& record = bench.environment.errors[0];
    EXPECT_EQ(Int(record, error_field::kSource), row.source);
    EXPECT_EQ(Int(record, error_field::kNumber), row.number);
    EXPECT_EQ(record.Get<std::uint16_t>(error_field::kSeverity.offset), row.severity);
    EXPECT_EQ(record.Get<std::int8_t>(error_field::kChannel.offset), 1);
    EXPECT_EQ(record.GetText(error_field::kModule.offset, error_field::kModule.size), row.module);
    EXPECT_EQ(Int(record, error_field::kIdentifier), row.number);
    EXPECT_EQ(texts.at({row.function, row.textNumber}).first, row.english);
    EXPECT_EQ(texts.at({row.function, row.textNumber}).second, HelpRefOf(row.number, MachineLanguage::kEnglish));
    bench.machine->SetLanguage("es");
    EXPECT_EQ(texts.at({row.function, row.textNumber}).first, row.spanish);
    EXPECT_EQ(texts.at({row.function, row.textNumber}).second, HelpRefOf(row.number, MachineLanguage::kSpanish));
    EXPECT_EQ(bench.Status(), 0x100) << "nothing else happens to the machine";
  }
}

ErrorParameter ParameterAt(const ErrorRecord& record, std::size_t index) {
  return record.Get<ErrorParameter>(error_field::kParametersOffset + index * sizeof(ErrorParameter));
}

TEST(MachineRaised, ADriveNamesItsAxisAndItsCode) {
  for (const auto& [fault, code] : {std::pair(Raised::kDriveWarning, 305), std::pair(Raised::kDriveFault, 602)}) {
    const ErrorRecord record = MakeRaisedRecord(fault, {});
    EXPECT_EQ(ParameterAt(record, 0).meaning, 6);
    EXPECT_EQ(PlainValue(7, ParameterAt(record, 0).value, 520), u"1");
    EXPECT_EQ(ParameterAt(record, 1).meaning, 17);
    EXPECT_EQ(PlainValue(4, ParameterAt(record, 1).value, 520), Format(u"%d", code));
    EXPECT_EQ(ParameterAt(record, 2).valueType, 0);
    test::MachineBench bench;
    const auto& text = bench.environment.tableTexts.at({"GetTextoSercosError", code});
    EXPECT_NE(text.first.find(u"%d"), Text::npos);
    EXPECT_EQ(text.second, u"") << "a drive's code has no description of its own";
  }
}

TEST(MachineRaised, TheBusFaultCarriesItsCodeInAParameterThatIsNotShown) {
  const ErrorRecord record = MakeRaisedRecord(Raised::kBusFault, {});
  EXPECT_EQ(record.Get<std::uint32_t>(3384), 0x8130U);
  EXPECT_EQ(ParameterAt(record, 4).valueType, 0);
  EXPECT_EQ(ParameterAt(record, 0).meaning, 15);
  EXPECT_EQ(PlainValue(ParameterAt(record, 0).valueType, ParameterAt(record, 0).value, 520), u"5");
  EXPECT_EQ(ParameterAt(record, 1).valueType, 0);
}

TEST(MachineRaised, AProgramLineHasItsPlaceAndItsSpanInBytes) {
  const ErrorRecord record = MakeRaisedRecord(Raised::kProgramLine, {u"C:\\CNC\\PROGRAMS", u"PART.NC", 120, 7});
  EXPECT_EQ(record.GetText(308, 148), u"C:\\CNC\\PROGRAMS");
  EXPECT_EQ(record.GetText(168, 128), u"PART.NC");
  EXPECT_EQ(Int(record, error_field::kFilePosition), 120);
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kFileSpan.offset), 14);
  for (const auto& [span, bytes] : {std::pair(32767, 65534), {32768, 65534}, {32766, 65532}, {1, 2}, {0, 0}}) {
    EXPECT_EQ(MakeRaisedRecord(Raised::kProgramLine, {{}, {}, 0, span}).Get<std::uint16_t>(306), bytes) << span;
  }
}

TEST(MachineRaised, AnAbsurdSpotStaysInsideItsFields) {
  const ErrorRecord record = MakeRaisedRecord(Raised::kProgramLine, {Text(500, u'p'), Text(500, u'n'), -5, 0x7FFFFFFF});
  EXPECT_EQ(record.GetText(308, 148).size(), 73U);
  EXPECT_EQ(record.GetText(168, 128).size(), 63U);
  EXPECT_EQ(Int(record, error_field::kFilePosition), -5);
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kFileSpan.offset), 0xFFFE);
  EXPECT_EQ(MakeRaisedRecord(Raised::kProgramLine, {{}, {}, 0, -3}).Get<std::uint16_t>(306), 0);
  EXPECT_EQ(Int(record, error_field::kScriptState), 0);
}

TEST(MachineRaised, AValueThatIsNoFaultIsAnEmptyRecord) {
  const auto none = static_cast<Raised>(99);
  const ErrorRecord record = MakeRaisedRecord(none, {u"C:\\CNC", u"PART.NC", 120, 7});
  for (const unsigned char byte : record.bytes) ASSERT_EQ(byte, 0);
  EXPECT_EQ(RaisedNumber(none), 0);
  EXPECT_FALSE(HasCause(none));
}

TEST(MachineRaised, OtherFaultsDoNotLookAtTheSpot) {
  const ErrorRecord record = MakeRaisedRecord(Raised::kConfirm, {u"C:\\CNC", u"PART.NC", 120, 7});
  EXPECT_EQ(record.GetText(168, 128), u"");
  EXPECT_EQ(Int(record, error_field::kFilePosition), 0);
}

}  // namespace
}  // namespace pnl::sim
