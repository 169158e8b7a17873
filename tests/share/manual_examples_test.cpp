// SPDX-License-Identifier: MIT
// What the programming manual says of the machine is true: its examples run, the blocks that it calls refused are
// refused with the number that it names, and its tables have the machine's figures.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/format.h"
#include "facade/mill/machine_data.h"
#include "facade/mill/machine_fakes.h"
#include "facade/mill/machine_tools.h"
#include "share/manual_files.h"

namespace pnl::test {
namespace {

class ProgrammingManual : public ::testing::TestWithParam<const char*> {
 protected:
  const std::map<std::string, std::string> pages_ = ManualFiles{GetParam(), "programming"}.Pages();
};
INSTANTIATE_TEST_SUITE_P(Languages, ProgrammingManual, ::testing::Values("en", "es"));

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (const char c : PlainText(text) + "\n") {
    if (c != '\n') {
      line += c;
    } else {
      lines.push_back(std::exchange(line, {}));
    }
  }
  return lines;
}

/// Runs a block to its end, with a start key at each stop.
void RunToItsEnd(MachineBench& bench) {
  for (int stops = 0; bench.Status() != 0x100 && stops < 3; ++stops) {
    while (bench.environment.clock.Running() != 0) bench.environment.clock.Advance(1000);
    if (bench.Status() != 0x100) static_cast<void>(bench.machine->NextSingleStep());
  }
}

TEST_P(ProgrammingManual, ItsExamplesRunBlockByBlock) {
  int examples = 0;
  for (const auto& [name, text] : pages_) {
    for (const std::string& program : Between(text, "<pre class=\"program\">", "</pre>")) {
      MachineBench bench;
      ++examples;
      for (const std::string& line : Lines(program)) {
        EXPECT_EQ(bench.Send(FromUtf8(line)), 0) << name << ": " << line;
        RunToItsEnd(bench);
        EXPECT_EQ(bench.Status(), 0x100) << name << ": " << line;
      }
    }
  }
  EXPECT_GE(examples, 30);
}

TEST_P(ProgrammingManual, WhatItCallsRefusedIsRefusedWithThatNumber) {
  int blocks = 0;
  for (const auto& [name, text] : pages_) {
    for (const std::string& program : Between(text, "<pre class=\"refused\">", "</pre>")) {
      for (const std::string& line : Lines(program)) {
        MachineBench bench;
        ++blocks;
        const std::size_t semicolon = line.rfind("; ");
        ASSERT_NE(semicolon, std::string::npos) << name << ": " << line;
        EXPECT_EQ(std::to_string(bench.Send(FromUtf8(line))), line.substr(semicolon + 2)) << name << ": " << line;
      }
    }
  }
  EXPECT_GE(blocks, 30);
}

/// A row of a table as it is in a page.
std::string Row(const std::vector<Text>& cells) {
  Text row = u"<tr>";
  for (const Text& cell : cells) row += u"<td>" + cell + u"</td>";
  return ToUtf8(row + u"</tr>");
}

Text Figure(double value) { return Format(u"%g", value); }

TEST_P(ProgrammingManual, ItsOffsetsAreTheMachines) {
  for (int code = 54; code <= 59; ++code) {
    const sim::Point zero = sim::OffsetOf(code);
    const std::string row = Row({Format(u"G%d", code), Figure(zero[0]), Figure(zero[1]), Figure(zero[2])});
    EXPECT_NE(pages_.at("offsets.html").find(row), std::string::npos) << row;
  }
}

TEST_P(ProgrammingManual, ItsTravelAndSpeedsAreTheMachines) {
  const std::string& page = pages_.at("travel.html");
  for (const sim::AxisFacts& axis : sim::kAxes) {
    const std::string row =
        Row({Text(1, axis.name), Figure(axis.low), Figure(axis.high), Figure(axis.rapid) + u" mm/min"});
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
  for (const auto& [value, unit] : {std::pair{sim::kHighestFeed, u" mm/min"}, {sim::kHighestSpeed, u" rev/min"}}) {
    EXPECT_NE(page.find(ToUtf8(Figure(value) + unit + u"</td>")), std::string::npos) << value;
  }
}

TEST_P(ProgrammingManual, ItsToolsAreTheMachines) {
  const std::string& page = pages_.at("tools.html");
  int rows = 0;
  for (int number = 1; number <= sim::kHighestTool; ++number) {
    const sim::ToolFacts tool = sim::ToolOf(number);
    const std::string begin = "<tr><td>" + std::to_string(number) + "</td>";
    if (page.find(begin) == std::string::npos) continue;
    ++rows;
    const Text teeth = tool.teeth == 0 ? u"-" : Format(u"%d", tool.teeth);
    const std::string figures =
        ToUtf8(Format(u"<td>%s</td><td>%s</td><td>%s</td></tr>", Figure(tool.diameter), teeth, Figure(tool.length)));
    EXPECT_EQ(Between(page, begin, "</tr>").at(0).find("<td>"), 0u);
    EXPECT_NE((Between(page, begin, "</tr>").at(0) + "</tr>").find(figures), std::string::npos) << number;
  }
  EXPECT_EQ(rows, 19);
}

TEST_P(ProgrammingManual, ItNamesEveryWordOfTheMachine) {
  const std::string& words = pages_.at("words.html");
  for (const char* code : {"G0",  "G1",  "G2",  "G3",  "G4",  "G17", "G18", "G19", "G20", "G70", "G21", "G71", "G40",
                           "G41", "G42", "G43", "G44", "G53", "G54", "G59", "G90", "G91", "G94", "G95", "G96", "G97",
                           "M0",  "M1",  "M2",  "M30", "M3",  "M4",  "M5",  "M6",  "M7",  "M8",  "M9",  "X",   "Y",
                           "Z",   "I",   "J",   "K",   "R",   "F",   "S",   "T",   "D",   "P",   "N"}) {
    EXPECT_NE(words.find(std::string("<code>") + code + "</code>"), std::string::npos) << code;
  }
}

}  // namespace
}  // namespace pnl::test
