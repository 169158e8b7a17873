// SPDX-License-Identifier: MIT
#include "facade/sim/machine_errors.h"

#include <set>

#include "facade/sim/machine_fakes.h"

namespace pnl::sim {
namespace {

Text TextOf(const ErrorRecord& record, const ErrorField& field) { return record.GetText(field.offset, field.size); }

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

TEST(MachineErrors, TheTextNamesTheWordAtFault) {
  const Fault fault{FaultCode::kUnknownG, u"G999", 0, 4};
  EXPECT_EQ(Describe(fault, MachineLanguage::kEnglish), u"Unknown G code: G999");
  EXPECT_EQ(Describe(fault, MachineLanguage::kSpanish), u"Código G desconocido: G999");
  EXPECT_EQ(Describe({FaultCode::kBusy, {}, 0, 0}, MachineLanguage::kEnglish), u"The channel is busy");
}

TEST(MachineErrors, TheRecordCarriesNumberTextAndBlock) {
  const ErrorRecord record =
      MakeErrorRecord({FaultCode::kUnknownG, u"G999", 0, 4}, u"G999 X1", MachineLanguage::kEnglish);
  EXPECT_EQ(TextOf(record, error_field::kModule), u"NC");
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kSource.offset), 15);
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kNumber.offset), 1006);
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kIdentifier.offset), 1006);
  EXPECT_EQ(record.Get<std::uint16_t>(error_field::kSeverity.offset), 1);
  EXPECT_EQ(record.Get<std::int8_t>(error_field::kChannel.offset), 1);
  EXPECT_EQ(record.Get<std::uint8_t>(error_field::kMarked.offset), 0);
  EXPECT_EQ(TextOf(record, error_field::kMessageText), u"Unknown G code: G999");
  EXPECT_EQ(TextOf(record, error_field::kExtraText), u"G999 X1");
}

TEST(MachineErrors, LongTextsAreCutToTheirFields) {
  const ErrorRecord record = MakeErrorRecord({FaultCode::kBadNumber, u"X" + Text(500, u'9'), 0, 501}, Text(500, u'Y'),
                                             MachineLanguage::kEnglish);
  EXPECT_EQ(TextOf(record, error_field::kMessageText).size(), 83U);
  EXPECT_EQ(TextOf(record, error_field::kExtraText), Text(43, u'Y'));
  EXPECT_EQ(record.Get<std::int32_t>(error_field::kFilePosition.offset), 0);
}

TEST(MachineErrors, ARefusalPushesOneRecordAndSetsTheTextOfItsNumber) {
  test::MachineBench bench;
  EXPECT_EQ(bench.Send(u"G1 G999 X5"), 1006);
  ASSERT_EQ(bench.environment.errors.size(), 1U);
  EXPECT_EQ(TextOf(bench.environment.errors[0], error_field::kMessageText), u"Unknown G code: G999");
  EXPECT_EQ(bench.environment.errorTexts[1006], u"\nUnknown G code: G999");
}

TEST(MachineErrors, TheLanguageHoldsForWhatComesAfter) {
  test::MachineBench bench;
  EXPECT_EQ(bench.environment.errorTexts[1018], u"\nTravel limit exceeded");
  bench.machine->SetLanguage("es");
  EXPECT_EQ(bench.environment.errorTexts[1018], u"\nLímite de recorrido sobrepasado");
  bench.Send(u"G0 X501");
  EXPECT_EQ(bench.environment.errorTexts[1018], u"\nLímite de recorrido sobrepasado: X501");
  bench.machine->SetLanguage("en");
  bench.Send(u"G0 X501");
  EXPECT_EQ(TextOf(bench.environment.errors.back(), error_field::kMessageText), u"Travel limit exceeded: X501");
}

}  // namespace
}  // namespace pnl::sim
