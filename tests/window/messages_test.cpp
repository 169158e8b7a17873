// SPDX-License-Identifier: MIT
#include "window/messages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "window/window.h"

namespace pnl {
namespace {

// In a process of its own, where nobody has asked for any name before.
TEST(Messages, TheNumberOfASharedNameDependsOnTheTableAndNotOnWhoAsksFirst) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::_Exit(RegisterMessage("NOT_SHARED") == kFirstRegistered + 34 ? 0 : 1), testing::ExitedWithCode(0),
              "");
  EXPECT_EXIT(std::_Exit(RegisterMessage("XPLR_END_FIND") == kFirstRegistered + 33 ? 0 : 1), testing::ExitedWithCode(0),
              "");
  EXPECT_EXIT(std::_Exit(RegisteredMessageName(kFirstRegistered) == "ZMC_CANCELDLG" ? 0 : 1),
              testing::ExitedWithCode(0), "");
}

TEST(Messages, EverySharedNameHasANumberOfItsOwnThatFollowsTheTable) {
  std::set<std::uint32_t> numbers;
  for (std::size_t i = 0; i < kMessageNames.size(); ++i) {
    const std::uint32_t number = RegisterMessage(kMessageNames[i]);
    EXPECT_EQ(number, kFirstRegistered + i) << kMessageNames[i];
    EXPECT_EQ(RegisteredMessageName(number), kMessageNames[i]);
    numbers.insert(number);
  }
  EXPECT_EQ(numbers.size(), 34u);
}

struct NameCase {
  const char* name;
};

class SharedName : public ::testing::TestWithParam<NameCase> {};

TEST_P(SharedName, IsRegisteredFromTheStart) {
  const std::uint32_t number = RegisterMessage(GetParam().name);
  EXPECT_GE(number, kFirstRegistered);
  EXPECT_LT(number, kFirstRegistered + 34) << "not in the shared table";
}

INSTANTIATE_TEST_SUITE_P(
    All, SharedName,
    ::testing::Values(NameCase{"ZMC_CANCELDLG"}, NameCase{"ZMC_SHOWMSG"}, NameCase{"ZMC_RESETMSG"},
                      NameCase{"ZMC_SHOWMENU"}, NameCase{"ZMC_UPDATEMENU"}, NameCase{"ZWCEDIT_SETFOCUS"},
                      NameCase{"ZWCEDIT_KILLFOCUS"}, NameCase{"ZM_CLOSE7340"}, NameCase{"ZM_UPDATE_NERRORS"},
                      NameCase{"ZM_END_ERRORHELP"}, NameCase{"ZM_SHOW_ERRORHELP"}, NameCase{"ZM_HIDE_ERRORHELP"},
                      NameCase{"ZM_SHOW_FILE"}, NameCase{"HELPHTML_GOTOMANUAL"}, NameCase{"MDI_ENDLIST"},
                      NameCase{"TM_HANDLEVALUE"}, NameCase{"UTIL7340_SetCNCRect"}, NameCase{"XPLR_GO"},
                      NameCase{"XPLR_SHOWMENU"}, NameCase{"XPLR_UPDATEMENU"}, NameCase{"XPLR_SHOWMSG"},
                      NameCase{"XPLR_UPDATE"}, NameCase{"XPLR_UPDATE_PINSTATE"}, NameCase{"XPLR_UPDATE_CAPTION"},
                      NameCase{"XPLR_UPDATE_FOLDER"}, NameCase{"XPLR_UPDATE_LIST"}, NameCase{"XPLR_UPDATE_TREE"},
                      NameCase{"XPLR_UPDATE_EDIT"}, NameCase{"XPLR_RESET_LIST"}, NameCase{"XPLR_FIND"},
                      NameCase{"XPLR_FIND_NEXT"}, NameCase{"XPLR_FIND_PREVIOUS"}, NameCase{"XPLR_FIND_RESULT"},
                      NameCase{"XPLR_END_FIND"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Messages, ANewNameGetsOneNumberForGood) {
  const std::uint32_t first = RegisterMessage("TEST_NEW_NAME");
  EXPECT_GE(first, kFirstRegistered + 34);
  EXPECT_EQ(RegisterMessage(std::string("TEST_NEW_") + "NAME"), first);
  EXPECT_EQ(RegisteredMessageName(first), "TEST_NEW_NAME");
  EXPECT_NE(RegisterMessage("test_new_name"), first) << "names are told apart by case";
}

TEST(Messages, NoNameAndUnknownNumbersAreAnsweredWithNothing) {
  EXPECT_EQ(RegisterMessage(""), 0u);
  EXPECT_EQ(RegisteredMessageName(0), "");
  EXPECT_EQ(RegisteredMessageName(0x802), "");
  EXPECT_EQ(RegisteredMessageName(0xFFFFFFFF), "");
}

TEST(Messages, ANumberThatIsStillFreeHasNoName) {
  const std::uint32_t newest = RegisterMessage("TEST_NEWEST_NAME");
  EXPECT_EQ(RegisteredMessageName(newest), "TEST_NEWEST_NAME");
  EXPECT_EQ(RegisteredMessageName(newest + 1), "");
  EXPECT_EQ(RegisteredMessageName(kFirstRegistered - 1), "");
}

TEST(Messages, ATextComesByItsAddress) {
  const char16_t text[] = u"G0 X1";
  EXPECT_EQ(TextAt(reinterpret_cast<std::intptr_t>(text)), u"G0 X1");
  EXPECT_EQ(TextAt(0), u"");
}

TEST(Messages, TheFixedNumbersAreTheHostsOwn) {
  EXPECT_EQ(PNL_MSG_VARIABLE_REPORT, 0x700u);
  EXPECT_EQ(PNL_MSG_CYCLE_START, 0x800u);
  EXPECT_EQ(PNL_MSG_TOOL_NOTIFY, 0x801u);
  EXPECT_EQ(PNL_MSG_TOOL_COMMAND, 0x802u);
  EXPECT_EQ(PNL_MSG_RESULT_READY, 0x804u);
  EXPECT_EQ(PNL_MSG_HELP_KEY, 0x805u);
  EXPECT_EQ(PNL_MSG_EXPLORER_ENDED, 0x806u);
  EXPECT_EQ(PNL_MSG_COMMAND, 0x111u);
}

// Runs last in this file by its name: it uses the whole range up.
TEST(MessagesZ, ARangeThatIsUsedUpGivesNoMoreNumbersAndKeepsTheOldOnes) {
  const std::uint32_t known = RegisterMessage("MDI_ENDLIST");
  std::uint32_t number = 1;
  for (int i = 0; i < 0x4001 && number != 0; ++i) number = RegisterMessage("FILL_" + std::to_string(i));
  EXPECT_EQ(number, 0u);
  EXPECT_EQ(RegisterMessage("MDI_ENDLIST"), known);
  EXPECT_NE(RegisteredMessageName(kLastRegistered), "");
  EXPECT_EQ(RegisteredMessageName(kLastRegistered + 1), "");
}

}  // namespace
}  // namespace pnl
