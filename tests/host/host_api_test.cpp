// SPDX-License-Identifier: MIT
#include "host/host_api.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "host/records.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

/// Every call into the host and the variables, in order.
std::vector<std::string>& Calls() {
  static std::vector<std::string> calls;
  return calls;
}

void Note(const std::string& call) { Calls().push_back(call); }

std::string MenuText(HostMenuRef menu) {
  return std::to_string(menu.zero) + "," + std::to_string(menu.menu) + "," + std::to_string(menu.one) + "," +
         std::to_string(menu.another);
}

HostMessage lastMessage;
int answer = 0;

/// A host that offers everything and notes what it is asked, slot by slot.
HostApiTable FullTable() {
  HostApiTable table = {};
  table.mayOpenTool = [](int tool) {
    Note("0 " + std::to_string(tool));
    return answer;
  };
  table.toolOpening = [](int tool) { Note("1 " + std::to_string(tool)); };
  table.toolClosed = [](int tool, int reason) { Note("2 " + std::to_string(tool) + " " + std::to_string(reason)); };
  table.setMainMenu = [](int tool, HostMenuRef menu) { Note("3 " + std::to_string(tool) + " " + MenuText(menu)); };
  table.setSideMenu = [](int tool, HostMenuRef menu) { Note("4 " + std::to_string(tool) + " " + MenuText(menu)); };
  table.updateMainMenu = [](int tool, int zero) { Note("5 " + std::to_string(tool) + " " + std::to_string(zero)); };
  table.updateSideMenu = [](int tool, int zero) { Note("6 " + std::to_string(tool) + " " + std::to_string(zero)); };
  table.showMessage = [](int tool, const HostMessage* message) {
    Note("7 " + std::to_string(tool));
    lastMessage = *message;
  };
  table.explorerRequest = [] { Note("8"); };
  table.calcResultAccepted = [] { Note("9"); };
  table.explorerAccepted = [] { Note("10"); };
  table.explorerAcceptedAlt = [] { Note("11"); };
  table.insertBlock = [] { Note("12"); };
  table.showError = [](const HostErrorLine* line) {
    Note("13 " + std::to_string(line->backColor));
    return answer;
  };
  table.errorsGone = [] { Note("14"); };
  table.forwardKey = [](int key) { Note("15 " + std::to_string(key)); };
  table.toolWantsClose = [](int tool) { Note("16 " + std::to_string(tool)); };
  table.openCalculator = [] { Note("17"); };
  table.openMachiningCalculator = [] { Note("18"); };
  return table;
}

/// A variable server with "E.XPLRDATA" or without.
class OneVariable : public Variables {
 public:
  explicit OneVariable(bool known) : known_(known) {}
  VariableInfo Bind(TextView name) override {
    VariableInfo info;
    if (known_ && name == u"E.XPLRDATA") info.identifier = 7;
    return info;
  }
  int ReadInt(std::int32_t, std::int32_t&) override { return -1; }
  int WriteInt(std::int32_t identifier, std::int32_t value, int flag) override {
    Note("write " + std::to_string(identifier) + " flag " + std::to_string(flag));
    written = value;
    return 0;
  }
  int ReadDouble(std::int32_t, double&) override { return -1; }
  int WriteDouble(std::int32_t, double) override { return -1; }
  int ReadTxt(std::int32_t, Text&) override { return -1; }
  int WriteTxt(std::int32_t, TextView) override { return -1; }
  int UpdateCache(std::int32_t) override { return -1; }
  int OpenReport(std::int32_t, WindowHandle) override { return -1; }
  int CloseReport(std::int32_t, WindowHandle) override { return -1; }
  int GeneraReport(std::int32_t, WindowHandle) override { return -1; }
  std::int32_t written = -1;

 private:
  bool known_;
};

class Bridge : public ::testing::Test {
 protected:
  void SetUp() override {
    Calls().clear();
    answer = 0;
  }
  HostApiTable table_ = FullTable();
  OneVariable variables_{true};
  HostBridge bridge_{table_, variables_};
};

struct SlotCase {
  const char* name;
  std::size_t slot;
  std::function<int(const HostBridge&)> call;  // the wrapper's result, 0 for those without
  std::string expected;
  int result = 0;  // what comes back of a host's answer of 5
};

const HostErrorLine kErrorLine = {0x0000A0, 0xFFFFFF, u"", u"ERROR 1"};

const std::vector<SlotCase>& SlotCases() {
  static XPLRDATA_ST record = {};
  static const auto quiet = [](auto call) {
    return [call](const HostBridge& bridge) {
      call(bridge);
      return 0;
    };
  };
  static const std::vector<SlotCase> cases = {
      {"HostMayOpenTool", 0, [](const HostBridge& b) { return b.HostMayOpenTool(1); }, "0 1", 5},
      {"HostToolOpening", 1, quiet([](const HostBridge& b) { b.HostToolOpening(6); }), "1 6"},
      {"HostToolClosed", 2, quiet([](const HostBridge& b) { b.HostToolClosed(6, 2); }), "2 6 2"},
      {"HostSetMainMenu", 3, quiet([](const HostBridge& b) { b.HostSetMainMenu(6, 44); }), "3 6 0,44,1,1"},
      {"HostSetSideMenu", 4, quiet([](const HostBridge& b) { b.HostSetSideMenu(6, 0); }), "4 6 0,0,1,1"},
      {"HostUpdateMainMenu", 5, quiet([](const HostBridge& b) { b.HostUpdateMainMenu(6); }), "5 6 0"},
      {"HostUpdateSideMenu", 6, quiet([](const HostBridge& b) { b.HostUpdateSideMenu(6); }), "6 6 0"},
      {"HostShowMessage", 7, quiet([](const HostBridge& b) { b.HostShowMessage(6, u"x"); }), "7 6"},
      {"HostExplorerRequest", 8, quiet([](const HostBridge& b) { b.HostExplorerRequest(record); }), "8"},
      {"HostCalcResultAccepted", 9, quiet([](const HostBridge& b) { b.HostCalcResultAccepted(); }), "9"},
      {"HostExplorerAccepted", 10, quiet([](const HostBridge& b) { b.HostExplorerAccepted(); }), "10"},
      {"HostExplorerAcceptedAlt", 11, quiet([](const HostBridge& b) { b.HostExplorerAcceptedAlt(); }), "11"},
      {"HostInsertBlock", 12, quiet([](const HostBridge& b) { b.HostInsertBlock(); }), "12"},
      {"HostShowError", 13, [](const HostBridge& b) { return b.HostShowError(kErrorLine); }, "13 160", 5},
      {"HostErrorsGone", 14, quiet([](const HostBridge& b) { b.HostErrorsGone(); }), "14"},
      {"HostForwardKey", 15, quiet([](const HostBridge& b) { b.HostForwardKey(27); }), "15 27"},
      {"HostToolWantsClose", 16, quiet([](const HostBridge& b) { b.HostToolWantsClose(3); }), "16 3"},
      {"HostOpenCalculator", 17, quiet([](const HostBridge& b) { b.HostOpenCalculator(); }), "17"},
      {"HostOpenMachiningCalculator", 18, quiet([](const HostBridge& b) { b.HostOpenMachiningCalculator(); }), "18"},
  };
  return cases;
}

class Slot : public ::testing::TestWithParam<std::size_t> {
 protected:
  void SetUp() override { Calls().clear(); }
  [[nodiscard]] const SlotCase& Row() const { return SlotCases()[GetParam()]; }
};

TEST_P(Slot, IsCalledByItsWrapperWithItsArguments) {
  answer = 5;
  const HostApiTable table = FullTable();
  OneVariable variables(false);
  const HostBridge bridge(table, variables);
  EXPECT_EQ(Row().call(bridge), Row().result);
  EXPECT_THAT(Calls(), ElementsAre(Row().expected));
  EXPECT_EQ(kHostSlotNames[Row().slot], Row().name);
}

TEST_P(Slot, LeftNullMakesItsWrapperDoNothing) {
  answer = 5;
  HostApiTable table = FullTable();
  // The table is 19 pointers in a row, so a slot can be cleared by its place alone.
  std::memset(reinterpret_cast<unsigned char*>(&table) + Row().slot * sizeof(void*), 0, sizeof(void*));
  OneVariable variables(true);
  const HostBridge bridge(table, variables);
  EXPECT_EQ(Row().call(bridge), 0);
  EXPECT_THAT(Calls(), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(All, Slot, ::testing::Range<std::size_t>(0, 19),
                         [](const auto& row) { return std::string(SlotCases()[row.param].name); });

TEST_F(Bridge, TheTableIsNineteenPointersAndZeroAtFirst) {
  EXPECT_EQ(sizeof(HostApiTable), 19 * sizeof(void*));
  const HostApiTable zero = {};
  EXPECT_EQ(std::memcmp(&HostApi, &zero, sizeof zero), 0);
}

TEST_F(Bridge, AMessageIsZeroFilledAndCarriesTheDefaultColours) {
  bridge_.HostShowMessage(6, u"Inspection");
  EXPECT_EQ(lastMessage.line, 1);
  EXPECT_EQ(lastMessage.one, 1);
  EXPECT_EQ(lastMessage.another, 1);
  EXPECT_EQ(FieldText(lastMessage.text), u"Inspection");
  EXPECT_EQ(lastMessage.back, 0x2C8064u);
  EXPECT_EQ(lastMessage.fore, 0u);
  EXPECT_EQ(lastMessage.ten, 10);
  for (std::size_t i = 10; i < 256; ++i) EXPECT_EQ(lastMessage.text[i], u'\0');
  for (const std::uint8_t byte : lastMessage.rest) EXPECT_EQ(byte, 0);
}

TEST_F(Bridge, AMessageTakesLineAndColoursAndIsCutToItsField) {
  bridge_.HostShowMessage(4, Text(400, u'x'), 0x646E78, 0x646E78, 3);
  EXPECT_EQ(lastMessage.line, 3);
  EXPECT_EQ(lastMessage.back, 0x646E78u);
  EXPECT_EQ(lastMessage.fore, 0x646E78u);
  EXPECT_EQ(FieldText(lastMessage.text).size(), 255u);
  EXPECT_EQ(lastMessage.text[255], u'\0');
}

TEST_F(Bridge, AnExplorerRequestWritesTheRecordsNumberThenCallsTheHost) {
  XPLRDATA_ST record = {};
  bridge_.HostExplorerRequest(record);
  EXPECT_THAT(Calls(), ElementsAre("write 7 flag 0", "8"));
  EXPECT_EQ(ResolveRecord(variables_.written), &record);
  WithdrawRecord(variables_.written);
}

TEST_F(Bridge, AnExplorerRequestWithoutSlotEightWritesAndPublishesNothing) {
  table_.explorerRequest = nullptr;
  const std::size_t before = PublishedRecords();
  XPLRDATA_ST record = {};
  bridge_.HostExplorerRequest(record);
  EXPECT_THAT(Calls(), ElementsAre());
  EXPECT_EQ(PublishedRecords(), before);
}

TEST_F(Bridge, AnExplorerRequestWithoutTheVariableStillCallsTheHost) {
  OneVariable none(false);
  const HostBridge bridge(table_, none);
  const std::size_t before = PublishedRecords();
  XPLRDATA_ST record = {};
  bridge.HostExplorerRequest(record);
  EXPECT_THAT(Calls(), ElementsAre("8"));
  EXPECT_EQ(PublishedRecords(), before);
}

TEST_F(Bridge, ANewTableHoldsFromTheNextCallOn) {
  bridge_.HostToolOpening(1);
  table_.toolOpening = [](int tool) { Note("another host " + std::to_string(tool)); };
  bridge_.HostToolOpening(2);
  table_ = {};
  bridge_.HostToolOpening(3);
  EXPECT_THAT(Calls(), ElementsAre("1 1", "another host 2"));
}

const HostBridge* current = nullptr;

TEST_F(Bridge, KnowsThatACallbackRunsWhileItDoes) {
  current = &bridge_;
  table_.toolOpening = [](int) { Note(current->InCallback() ? "inside" : "outside"); };
  bridge_.HostToolOpening(6);
  Note(bridge_.InCallback() ? "inside" : "outside");
  EXPECT_THAT(Calls(), ElementsAre("inside", "outside"));
}

TEST_F(Bridge, KnowsThatTheOuterCallbackStillRunsWhenAnInnerOneHasReturned) {
  current = &bridge_;
  table_.toolOpening = [](int) {
    current->HostErrorsGone();
    Note(current->InCallback() ? "inside" : "outside");
  };
  table_.errorsGone = [] { Note("inner"); };
  bridge_.HostToolOpening(6);
  EXPECT_THAT(Calls(), ElementsAre("inner", "inside"));
}

}  // namespace
}  // namespace pnl
