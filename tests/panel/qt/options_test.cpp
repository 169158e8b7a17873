// SPDX-License-Identifier: MIT
// The command line: what each option sets, and what is said about a wrong one.
#include "options.h"

#include <gtest/gtest.h>

namespace panel {
namespace {

Options Good(const QStringList& arguments) {
  const auto parsed = ParseOptions(arguments);
  const auto* error = std::get_if<OptionError>(&parsed);
  EXPECT_EQ(error, nullptr) << (error == nullptr ? "" : error->text.toStdString());
  return error == nullptr ? std::get<Options>(parsed) : Options{};
}

TEST(OptionsTest, NothingGivenMeansADemoMachineByRealTime) {
  const Options options = Good({});
  EXPECT_FALSE(options.touch || options.journal || options.untilPainted);
  EXPECT_FALSE(options.headless || options.rpc || options.bare || options.manualTime || options.help || options.keys);
  EXPECT_TRUE(options.root.isEmpty());
  EXPECT_EQ(options.machine, "demo");
  EXPECT_TRUE(options.language.isEmpty()) << "that of the settings, else English";
  EXPECT_FALSE(options.settings);
  EXPECT_TRUE(options.toolArea.isEmpty());
  EXPECT_TRUE(options.guidedInto.isEmpty());
}

TEST(OptionsTest, EveryOptionSetsItsOwnField) {
  const Options options = Good({"--headless", "--rpc", "--root", "/tmp/a b", "--bare", "--machine", "mill", "--lang",
                                "none", "--time", "manual", "--size", "1024x768", "--touch", "--settings"});
  EXPECT_TRUE(options.settings);
  EXPECT_TRUE(options.touch);
  EXPECT_TRUE(options.headless);
  EXPECT_TRUE(options.rpc);
  EXPECT_TRUE(options.bare);
  EXPECT_TRUE(options.manualTime);
  EXPECT_EQ(options.root, "/tmp/a b");
  EXPECT_EQ(options.machine, "mill");
  EXPECT_EQ(options.language, "none");
  EXPECT_EQ(options.toolArea, QSize(1024, 768));
}

TEST(OptionsTest, AFlagSetsItsOwnFieldAndNoOther) {
  struct Row {
    const char* name;
    bool Options::*field;
  };
  const Row rows[] = {{"--headless", &Options::headless}, {"--rpc", &Options::rpc},
                      {"--bare", &Options::bare},         {"--journal", &Options::journal},
                      {"--touch", &Options::touch},       {"--until-painted", &Options::untilPainted},
                      {"--keys", &Options::keys},         {"--help", &Options::help}};
  for (const Row& row : rows) {
    const Options options = Good({row.name});
    for (const Row& other : rows) EXPECT_EQ(options.*other.field, &other == &row) << row.name << ", " << other.name;
    EXPECT_FALSE(options.manualTime) << row.name;
  }
}

TEST(OptionsTest, TheEndsOfARangeAreInIt) {
  EXPECT_EQ(Good({"--size", "100x8000"}).toolArea, QSize(100, 8000));
  EXPECT_EQ(Good({"--size", "8000x100"}).toolArea, QSize(8000, 100));
  EXPECT_EQ(Good({"--lang", "ab"}).language, "ab");
  EXPECT_EQ(Good({"--lang", "abcdefgh"}).language, "abcdefgh");
  EXPECT_FALSE(Good({"--time", "manual", "--time", "real"}).manualTime);
  EXPECT_TRUE(Good({"--rpc", "--bare"}).bare) << "only a guided session excludes them";
  EXPECT_EQ(Good({"--root", "-"}).root, "-") << "one dash begins no option";
}

TEST(OptionsTest, AValueMayStandBehindAnEqualsSign) {
  const Options options = Good({"--size=640x480", "--root=/tmp/x=y", "--guided=out"});
  EXPECT_EQ(options.toolArea, QSize(640, 480));
  EXPECT_EQ(options.root, "/tmp/x=y");
  EXPECT_EQ(options.guidedInto, "out");
}

TEST(OptionsTest, TheLastOfTwoWins) { EXPECT_EQ(Good({"--lang", "en", "--lang", "es"}).language, "es"); }

struct BadRow {
  const char* name;
  QStringList arguments;
  const char* says;
};

class BadOptions : public ::testing::TestWithParam<BadRow> {};

TEST_P(BadOptions, AreRefusedWithTheReason) {
  const auto parsed = ParseOptions(GetParam().arguments);
  const auto* error = std::get_if<OptionError>(&parsed);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->text.toStdString(), GetParam().says);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadOptions,
    ::testing::Values(
        BadRow{"Unknown", {"--hurry"}, "unknown option: --hurry"}, BadRow{"SingleDash", {"-h"}, "unknown option: -h"},
        BadRow{"PlainWord", {"file.nc"}, "unknown option: file.nc"}, BadRow{"EmptyWord", {""}, "unknown option: "},
        BadRow{"RootWithout", {"--root"}, "--root needs a value: DIR"},
        BadRow{"RootBeforeOption", {"--root", "--rpc"}, "--root needs a value: DIR"},
        BadRow{"RootEmpty", {"--root", ""}, "--root : must not be empty"},
        BadRow{"FlagWithValue", {"--rpc=yes"}, "--rpc takes no value"},
        BadRow{"SizeWord", {"--size", "big"}, "--size big: must be WIDTHxHEIGHT, as in 800x600"},
        BadRow{"SizeNegative", {"--size", "-1x600"}, "--size -1x600: must be WIDTHxHEIGHT, as in 800x600"},
        BadRow{"SizeTail", {"--size", "800x600x2"}, "--size 800x600x2: must be WIDTHxHEIGHT, as in 800x600"},
        BadRow{"SizeZero", {"--size", "0x600"}, "--size 0x600: each side must be from 100 to 8000"},
        BadRow{"SizeHuge", {"--size", "800x9000"}, "--size 800x9000: each side must be from 100 to 8000"},
        BadRow{"SizeNarrow", {"--size", "99x600"}, "--size 99x600: each side must be from 100 to 8000"},
        BadRow{"SizeLow", {"--size", "800x99"}, "--size 800x99: each side must be from 100 to 8000"},
        BadRow{"SizeWide", {"--size", "8001x600"}, "--size 8001x600: each side must be from 100 to 8000"},
        BadRow{"SizeHigh", {"--size", "800x8001"}, "--size 800x8001: each side must be from 100 to 8000"},
        BadRow{"SizeDigits", {"--size", "1234567x600"}, "--size 1234567x600: must be WIDTHxHEIGHT, as in 800x600"},
        BadRow{"LangShort", {"--lang", "e"}, "--lang e: must be a language code such as en or es, or none"},
        BadRow{"LangLong", {"--lang=abcdefghi"}, "--lang abcdefghi: must be a language code such as en or es, or none"},
        BadRow{"MachineEmpty", {"--machine="}, "--machine : must not be empty"},
        BadRow{"FirstOfTwo", {"--size", "x", "--time", "slow"}, "--size x: must be WIDTHxHEIGHT, as in 800x600"},
        BadRow{"TimeWord", {"--time", "slow"}, "--time slow: must be real or manual"},
        BadRow{"LangNumber", {"--lang", "42"}, "--lang 42: must be a language code such as en or es, or none"},
        BadRow{"LangPath", {"--lang", "../x"}, "--lang ../x: must be a language code such as en or es, or none"},
        BadRow{"RpcGuided", {"--rpc", "--guided", "o"}, "--rpc and --guided exclude each other"},
        BadRow{"BareGuided", {"--bare", "--guided", "o"}, "--guided needs a machine, --bare has none"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OptionsTest, TheHelpNamesEveryOptionOfTheProtocol) {
  for (const char* name : {"--headless", "--rpc", "--root", "--bare", "--machine", "--lang", "--time", "--size",
                           "--journal", "--touch", "--guided", "--until-painted", "--keys", "--settings", "--help"}) {
    EXPECT_EQ(OptionsHelp().count(QStringLiteral("\n  %1 ").arg(name)), 1) << name;
  }
  EXPECT_EQ(OptionsHelp().count('\n'), 2 + 15) << "the heading, a blank line and a line for each option";
  EXPECT_TRUE(OptionsHelp().startsWith("pnlpanel: the panel program of the tool library\n\n  --headless "));
  EXPECT_TRUE(OptionsHelp().contains("\n  --root DIR               the folder behind drive C:\n"));
  EXPECT_TRUE(OptionsHelp().contains("\n  --keys                   print the table of keys and leave\n"));
}

}  // namespace
}  // namespace panel
