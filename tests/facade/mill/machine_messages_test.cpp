// SPDX-License-Identifier: MIT
#include "facade/mill/machine_messages.h"

#include <set>

#include "facade/mill/machine_fakes.h"

namespace pnl::sim {
namespace {

TEST(MachineMessages, ThereAreEightOfBothTypes) {
  std::set<std::pair<std::int32_t, std::int32_t>> keys;
  for (const PlcMessage& message : PlcMessages()) {
    EXPECT_TRUE(message.type == 0 || message.type == 1) << ToUtf8(message.english);
    EXPECT_TRUE(keys.insert({message.type, message.id}).second) << ToUtf8(message.english);
    EXPECT_NE(message.english, message.spanish);
    EXPECT_FALSE(message.document.empty());
  }
  EXPECT_EQ(keys.size(), 8u);
  for (const std::int32_t type : {0, 1}) {
    for (std::int32_t id = 1; id <= 4; ++id) EXPECT_EQ(keys.count({type, id}), 1u) << type << " " << id;
  }
}

TEST(MachineMessages, ACodeIsTheTypeInItsTopFourBitsAndTheIdentifierBelow) {
  EXPECT_EQ(CodeOf({0, 1, u"", u"", u""}), 1u);
  EXPECT_EQ(CodeOf({1, 2, u"", u"", u""}), 0x10000002u);
  EXPECT_EQ(CodeOf({0, -1, u"", u"", u""}), 0x0FFFFFFFu) << "an identifier never changes the type";
  EXPECT_EQ(CodeOf({15, 0x0FFFFFFF, u"", u"", u""}), 0xFFFFFFFFu);
}

TEST(MachineMessages, TheMachinePutsThemIntoTheTableInItsLanguage) {
  test::MachineBench bench;
  const auto shown = [&] {
    for (const PlcMessage& message : PlcMessages()) {
      const auto& entry = bench.environment.plcMessages.at({message.type, message.id});
      if (entry.second != message.document) return std::string("wrong document");
      if (entry.first != message.english && entry.first != message.spanish) return std::string("wrong text");
    }
    return ToUtf8(bench.environment.plcMessages.at({1, 1}).first);
  };
  EXPECT_EQ(bench.environment.plcMessages.size(), 8u);
  EXPECT_EQ(shown(), "Safety door open");
  bench.machine->SetLanguage("es");
  EXPECT_EQ(shown(), "Puerta de seguridad abierta");
  bench.machine->SetLanguage("en");
  EXPECT_EQ(shown(), "Safety door open");
}

TEST(MachineMessages, ThePanelOffersThemAndRaisesOneAsOftenAsItLikes) {
  test::MachineBench bench;
  const auto messages = bench.machine->PlcMessages();
  ASSERT_EQ(messages.size(), PlcMessages().size());
  for (std::size_t i = 0; i < messages.size(); ++i) {
    EXPECT_EQ(messages[i].code, CodeOf(PlcMessages()[i]));
    EXPECT_EQ(messages[i].text, PlcMessages()[i].english);
  }
  bench.machine->SetLanguage("es");
  EXPECT_EQ(bench.machine->PlcMessages()[0].text, PlcMessages()[0].spanish);
  (void)bench.environment.Take(u"E.PLCMSGDATA");
  bench.machine->RaisePlcMessage(0x10000002u);
  bench.machine->RaisePlcMessage(0x10000002u);
  EXPECT_EQ(bench.environment.Take(u"E.PLCMSGDATA"), "0x10000002 0x10000002");
}

}  // namespace
}  // namespace pnl::sim
