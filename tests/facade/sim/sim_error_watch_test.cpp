// SPDX-License-Identifier: MIT
// Who keeps a list of errors hears of each one that comes and goes, before the variables report it.
#include <array>
#include <vector>

#include "facade/sim/sim_error_summary.h"
#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using Fate = rig::CncControl::ErrorFate;
using Summary = rig::CncControl::ErrorSummary;

class ErrorWatchTest : public test::SimFixture {
 protected:
  void Push(std::int64_t number, std::int64_t source = 0) {
    rig::ErrorSpec spec;
    spec.fields = {{"number", number}, {"source", source}};
    std::string problem;
    ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
  }
  int Watch(std::string name = "") {
    return cnc.WatchErrors([this, name](const Summary& error, Fate fate) {
      constexpr const char* kFates[] = {"raised", "acknowledged", "confirmed", "cleared"};
      heard += name + kFates[static_cast<int>(fate)] + " " + std::to_string(error.number) + "#" +
               std::to_string(error.serial) + " of " + Get(u"E.NERRORS") + "; ";
    });
  }
  std::string Heard() { return std::exchange(heard, {}); }
  std::string heard;
};

TEST_F(ErrorWatchTest, EveryWayInAndOutIsTold) {
  cnc.ClearErrors();
  const int watch = Watch();
  Push(5);
  Push(6);
  Push(7);
  EXPECT_EQ(Heard(), "raised 5#1 of 0; raised 6#2 of 1; raised 7#3 of 2; ") << "before the count is reported";
  ErrorRecord shown{};
  cnc.Kapi().ReadError(1, shown);
  cnc.Kapi().ResetErrorWithEnter(0, shown);
  EXPECT_EQ(Heard(), "confirmed 6#2 of 3; ");
  cnc.Kapi().ResetError(0, 1);
  EXPECT_EQ(Heard(), "acknowledged 5#1 of 2; ");
  cnc.Kapi().ResetError(9, 1);
  EXPECT_EQ(Heard(), "");
  Push(8);
  Heard();
  cnc.ClearErrors();
  EXPECT_EQ(Heard(), "cleared 7#3 of 2; cleared 8#4 of 2; ");
  cnc.UnwatchErrors(watch);
  Push(9);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(cnc.Errors().at(0).serial, 5) << "a serial is never used twice";
}

TEST_F(ErrorWatchTest, AnErrorOfAProgramTellsItsPlace) {
  struct Row {
    std::int64_t source;
    bool placed;
  };
  for (const Row& row : {Row{1, true}, Row{9, true}, Row{0, false}, Row{10, false}}) {
    cnc.ClearErrors();
    rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{1}},
                   {"source", row.source},
                   {"programName", std::u16string(u"A.NC")},
                   {row.source == 9 ? "scriptPath" : "programPath", std::u16string(u"C:\\P")},
                   {row.source == 9 ? "scriptPosition" : "filePosition", std::int64_t{70}},
                   {row.source == 9 ? "scriptSpan" : "fileSpan", std::int64_t{6}}};
    std::string problem;
    ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
    const auto spot = cnc.Errors().at(0).program;
    ASSERT_EQ(spot.has_value(), row.placed) << row.source;
    if (!spot) continue;
    EXPECT_EQ(spot->folder, u"C:\\P");
    EXPECT_EQ(spot->file, u"A.NC");
    EXPECT_EQ(spot->position, 70);
    EXPECT_EQ(spot->span, 3) << "the record counts two bytes for each unit";
  }
  cnc.ClearErrors();
  rig::ErrorSpec nameless;
  nameless.fields = {{"number", std::int64_t{1}}, {"source", std::int64_t{1}}};
  std::string problem;
  ASSERT_TRUE(cnc.PushError(nameless, problem));
  EXPECT_FALSE(cnc.Errors().at(0).program);
}

TEST_F(ErrorWatchTest, AnErrorTellsItsDescription) {
  cnc.ClearErrors();
  cnc.ErrorText("error_to_txt", 5, u" five", u"D.TXT#5", true);
  Push(5);
  Push(6);
  EXPECT_EQ(cnc.Errors().at(0).helpRef, u"D.TXT#5");
  EXPECT_EQ(cnc.Errors().at(1).helpRef, u"");
}

TEST_F(ErrorWatchTest, AWatcherMayEndItselfAndTheNext) {
  cnc.ClearErrors();
  int first = 0;
  int second = 0;
  first = cnc.WatchErrors([&](const Summary&, Fate) {
    cnc.UnwatchErrors(first);
    cnc.UnwatchErrors(second);
    Watch("late ");
  });
  second = Watch("second ");
  Watch("third ");
  Push(5);
  EXPECT_EQ(Heard(), "third raised 5#1 of 0; ");
  Push(6);
  EXPECT_EQ(Heard(), "third raised 6#2 of 1; late raised 6#2 of 1; ");
}

TEST_F(ErrorWatchTest, AWatcherMayTakeTheErrorOutAtOnce) {
  cnc.WatchErrors([&](const Summary&, Fate fate) {
    if (fate == Fate::kRaised) cnc.Kapi().ResetError(-1, 1);
  });
  Push(5);
  EXPECT_TRUE(cnc.ErrorQueue().empty());
  EXPECT_EQ(Get(u"E.NERRORS"), "0");
}

TEST_F(ErrorWatchTest, TheSummaryTellsSourceIdentifierModuleAndPlainParameters) {
  rig::ErrorSpec spec;
  spec.fields = {{"number", std::int64_t{5}},
                 {"source", std::int64_t{13}},
                 {"identifier", std::int64_t{-77}},
                 {"module", std::u16string(u"DRV")}};
  spec.parameters = {
      {7, 1, 9, std::int64_t{12345}}, {0, 0, 0, {}}, {8, 11, 1, 1.5}, {17, 0, 0, std::u16string(u"\nX5")}};
  std::string problem;
  ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
  const Summary error = cnc.Errors().at(0);
  EXPECT_EQ(error.source, 13);
  EXPECT_EQ(error.identifier, -77);
  EXPECT_EQ(error.module, u"DRV");
  EXPECT_EQ(error.text, u"");
  EXPECT_THAT(error.parameters, testing::ElementsAre(u"12345", u"1.5", u"X5"));
}

TEST_F(ErrorWatchTest, EachTypeOfParameterHasItsPlainText) {
  struct Row {
    std::int32_t type;
    std::vector<unsigned char> bytes;
    TextView text;
  };
  const Row rows[] = {
      {1, {1}, u"TRUE"},
      {1, {0, 1}, u"FALSE"},
      {1, {200}, u"TRUE"},
      {2, {200, 1}, u"200"},
      {3, {200, 1}, u"-56"},
      {4, {0xFF, 0xFF, 1}, u"65535"},
      {5, {0xFE, 0xFF, 1}, u"-2"},
      {6, {0xFF, 0xFF, 0xFF, 0xFF}, u"4294967295"},
      {7, {0xFE, 0xFF, 0xFF, 0xFF}, u"-2"},
      {8, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}, u"1.5"},
      {10, {0xAB, 1, 0, 0}, u"0x1AB"},
      {18, {0xEF, 0xBE, 0xAD, 0xDE}, u"0xDEADBEEF"},
      {16, {'X', 0}, u"X"},
      {16, {0, 0, 'X', 0}, u""},
      {17, {'\n', 0, 'A', 0, 'B', 0, 0, 0, 'C', 0}, u"AB"},
      {17, {'A', 0, '\n', 0}, u"A\n"},
      {9, {5}, u""},
      {19, {5}, u""},
  };
  for (const Row& row : rows) {
    std::array<unsigned char, 16> value{};
    std::copy(row.bytes.begin(), row.bytes.end(), value.begin());
    EXPECT_EQ(PlainValue(row.type, value.data(), value.size()), row.text) << row.type;
  }
  const unsigned char full[] = {'A', 0, 'B', 0, 'C'};
  EXPECT_EQ(PlainValue(17, full, 4), u"AB") << "a text may fill its field";
  EXPECT_EQ(PlainValue(17, full, 5), u"AB") << "half a unit is none";
}

TEST_F(ErrorWatchTest, TheTextIsThatOfTheSourcesTable) {
  const struct {
    std::int64_t source;
    std::int64_t severity;
    TextView text;
  } rows[] = {
      {0, 1, u"error_to_txt"},
      {1, 0, u"error_to_txt"},
      {10, 1, u"ReadPLCError"},
      {10, 0, u"ReadPLCError"},
      {13, 1, u"error_drive_to_txt"},
      {13, 0, u"warning_drive_to_txt"},
      {14, 7, u"error_unknown_drive_to_txt"},
      {14, 0, u"warning_unknown_drive_to_txt"},
      {16, 1, u"error_mlink_to_txt"},
      {16, 0, u"warning_drive_to_txt"},
      {17, 1, u"error_CS_to_txt"},
      {17, 0, u"warning_CS_to_txt"},
      {19, 1, u"emcy_Copen_to_txt"},
  };
  for (const ErrorTextFunction function : kErrorTextFunctions) {
    const std::string name = ErrorTextFunctionName(function);
    cnc.ErrorText(name, name == "emcy_Copen_to_txt" ? 0 : 5, FromUtf8("|" + name), u"", false);
  }
  for (const auto& row : rows) {
    cnc.ClearErrors();
    rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{5}}, {"source", row.source}, {"severity", row.severity}};
    std::string problem;
    ASSERT_TRUE(cnc.PushError(spec, problem)) << problem;
    EXPECT_EQ(cnc.Errors().at(0).text, row.text) << row.source << " " << row.severity;
  }
}

TEST_F(ErrorWatchTest, ADescriptionIsFoundBehindItsReference) {
  cnc.Description(u"C:\\D.TXT", 7, u"Seven");
  cnc.Description(u"C:\\D.TXT", -7, u"Minus seven");
  const struct {
    TextView reference;
    std::optional<Text> text;
  } rows[] = {
      {u"C:\\D.TXT#7", u"Seven"},
      {u"C:\\D.TXT# \t+7x", u"Seven"},
      {u"C:\\D.TXT#-7", u"Minus seven"},
      {u"C:\\D.TXT#8", {}},
      {u"C:\\E.TXT#7", {}},
      {u"C:\\D.TXT", {}},
      {u"#7", {}},
      {u"", {}},
      {u"C:\\D.TXT#", {}},
      {u"C:\\D.TXT#x7", {}},
      {u"C:\\D.TXT#--7", {}},
      {u"C:\\D.TXT#99999999999", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(cnc.DescriptionBehind(row.reference), row.text) << ToUtf8(row.reference);
}

TEST_F(ErrorWatchTest, TheSummaryTellsTheClassOfTheError) {
  using Class = rig::CncControl::ErrorClass;
  const std::pair<std::vector<rig::Field>, Class> rows[] = {
      {{{"severity", std::int64_t{1}}}, Class::kError},
      {{{"severity", std::int64_t{1}}, {"marked", std::int64_t{1}}}, Class::kMarked},
      {{{"severity", std::int64_t{0}}}, Class::kWarning},
      {{{"severity", std::int64_t{7}}}, Class::kFatal},
      {{{"severity", std::int64_t{1}}, {"number", std::int64_t{3753}}}, Class::kConfirm},
  };
  for (const auto& [fields, errorClass] : rows) {
    cnc.ClearErrors();
    std::string problem;
    ASSERT_TRUE(cnc.PushError({fields, {}, {}}, problem)) << problem;
    EXPECT_EQ(cnc.Errors().at(0).errorClass, errorClass);
  }
}

TEST_F(ErrorWatchTest, AWatchWithoutAFunctionKeepsNobodyElseFromHearing) {
  cnc.WatchErrors({});
  Watch();
  Push(5);
  EXPECT_EQ(Heard(), "raised 5#1 of absent; ");
}

TEST_F(ErrorWatchTest, TenThousandErrorsAreToldOneByOne) {
  std::int64_t heardOf = 0;
  cnc.WatchErrors([&](const Summary&, Fate) { ++heardOf; });
  for (int i = 0; i < 10'000; ++i) Push(i);
  cnc.ClearErrors();
  EXPECT_EQ(heardOf, 20'000);
}

}  // namespace
}  // namespace pnl::sim
