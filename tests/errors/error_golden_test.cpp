// SPDX-License-Identifier: MIT
// What an operator reads, whole: title box, title line and description of everything that the demo machine raises and
// of records over all sources, classes, diagnoses, meanings and units, in both languages, beside a golden file. With
// PNL_GOLDEN_OUT set to a folder the texts are written there instead of being compared.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "errors/error_fixture.h"
#include "errors/error_program_line.h"
#include "facade/mill/machine.h"
#include "facade/mill/machine_descriptions.h"
#include "facade/mill/machine_errors.h"
#include "host/language.h"

namespace pnl::test {
namespace {

using Raised = rig::MachineControl::Fault;

std::string ReadBytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The lines that differ, each with its number.
std::string Diff(const std::string& golden, const std::string& now) {
  const std::vector<std::string> before = Lines(golden);
  const std::vector<std::string> after = Lines(now);
  std::string diff;
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    const std::string old = i < before.size() ? before[i] : "(no line)";
    const std::string fresh = i < after.size() ? after[i] : "(no line)";
    if (old != fresh) diff += std::to_string(i + 1) + "\n- " + old + "\n+ " + fresh + "\n";
  }
  return diff;
}

constexpr const char* kProgram = "G90 G54\nG0 X10 Y10\nG1 X20 G999 F100\nM30\n";

/// Blocks that are refused, each behind the blocks that must run first.
const std::vector<std::vector<TextView>> kBlocks = {
    {u"X1 ?"},
    {u"G1 X"},
    {u"X1.2.3"},
    {u"X1 (open"},
    {u"Q5"},
    {u"G1 G999 X5"},
    {u"G0.5"},
    {u"M77"},
    {u"M1.5"},
    {u"G17 G18"},
    {u"G1 G0 X1"},
    {u"X1 X2"},
    {u"F1 F2"},
    {u"G0 X1 I2"},
    {u"D100"},
    {u"N1.5 X1"},
    {u"G4 K-1"},
    {u"G1 X1"},
    {u"F0"},
    {u"F30000"},
    {u"G20 F1000"},
    {u"G95 F30000"},
    {u"F100", u"G2 X10"},
    {u"F100", u"G2 X10 I4"},
    {u"F100", u"G2 X10 R1"},
    {u"G0 X501"},
    {u"G0 Z-401"},
    {u"G20 G0 Y12"},
    {u"G95 F1 G1 X1"},
    {u"M3"},
    {u"S20000"},
    {u"T6 M6", u"G96 S900 M3"},
    {u"T100"},
    {u"T50 M6", u"G96 S100 M3"},
    {u"G4"},
    {u"G0 X10/0"},
    {u"G999 X1 Y2 Z3 (a comment that makes the block far too long for its field)"},
};

class ErrorGolden : public ErrorFixture, public testing::WithParamInterface<const char*> {
 protected:
  ErrorGolden() {
    const std::string share = PNL_SHARE_FOLDER;
    LanguagePack pack;
    EXPECT_TRUE(pack.Parse(ReadBytes(share + "/lang/" + GetParam() + ".pnl")));
    texts.clear();
    for (const auto& [first, last] : {std::pair(200, 270), std::pair(57340, 57360)}) {
      for (int id = first; id < last; ++id) {
        if (const Text* text = pack.FindText(id)) texts[id] = *text;
      }
    }
    const std::string bytes = ReadBytes(share + "/errors/" + GetParam() + "/machine.txt");
    const Text file = sim::DescriptionFile(GetParam());
    disc.disc[ToUtf8(file)] = bytes;
    for (const auto& [number, text] : sim::ParseDescriptions(bytes)) cnc.Description(file, number, text);
    disc.disc["C:\\CNC\\PROGRAMS\\PART.NC"] = kProgram;
    machine_->SetLanguage(GetParam());
    cnc.AttachMachine(machine_.get());
    cnc.Returns("ChannelNumber", {4});
  }
  ~ErrorGolden() override { cnc.AttachMachine(nullptr); }

  void Add(const std::string& what, const ErrorRecord& record) {
    ComposedError error = Compose(record);
    if (error.inProgram) {
      const ProgramLines lines = ReadProgramLines(error.place, ProgramCaptionsOf(words), disc);
      error.parts.lineNumber = lines.lineNumber;
      error.parts.lineText = lines.lineText;
    }
    all_ += "== " + what + "\n[" + ToUtf8(error.boxText) + "] " + ToUtf8(error.titleLine) + "\n" +
            ToUtf8(error.Description()) + "\n";
    if (error.showChannel) all_ += "channel\n";
    const auto help = cnc.DescriptionBehind(FieldText(error.info.helpRef));
    if (help) all_ += "help: " + Lines(ToUtf8(*help)).front() + "\n";
  }
  /// What stands in the queue, then empties it.
  void AddQueue(const std::string& what) {
    ErrorRecord record{};
    ASSERT_EQ(cnc.Kapi().ReadError(-1, record), 0) << what;
    Add(what, record);
    EXPECT_FALSE(FieldText(Compose(record).info.helpRef).empty()) << what;
    EXPECT_NE(cnc.DescriptionBehind(FieldText(Compose(record).info.helpRef)), std::nullopt) << what;
    cnc.ClearErrors();
  }
  void Compare(const std::string& name) const {
    const std::string file = name + "." + GetParam() + ".txt";
    if (const char* folder = std::getenv("PNL_GOLDEN_OUT")) {
      std::ofstream(std::string(folder) + "/" + file, std::ios::binary) << all_;
      return;
    }
    EXPECT_EQ(Diff(ReadBytes(std::string(PNL_TESTS_FOLDER) + "/errors/golden/" + file), all_), "");
  }

  std::unique_ptr<sim::Machine> machine_ = sim::MakeMachine("demo", cnc.Environment());
  std::string all_;
};

INSTANTIATE_TEST_SUITE_P(Languages, ErrorGolden, ::testing::Values("en", "es"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(ErrorGolden, WhatTheDemoMachineRaisesReadsAsItDid) {
  Kernel& kapi = cnc.Kapi();
  kapi.SetMdi(1, 1);
  for (const auto& blocks : kBlocks) {
    machine_->Reset();
    timers.Advance(10);
    for (const TextView block : blocks) {
      kapi.MDILine(0, block, 0, 4, 0);
      timers.Advance(60'000);
    }
    AddQueue(ToUtf8(blocks.back()));
  }
  kapi.MDILine(0, u"G0 X100", 0, 4, 0);
  kapi.MDILine(0, u"G0 X1", 0, 4, 0);
  AddQueue("a block while another one runs");
  machine_->EmergencyStop(true);
  AddQueue("the emergency stop");
  machine_->EmergencyStop(false);
  kapi.SetMdi(1, 0);
  kapi.MDILine(0, u"G0 X1", 0, 4, 0);
  AddQueue("a block outside MDI");
  const std::pair<const char*, Raised> faults[] = {
      {"door", Raised::kDoorOpen}, {"drive warning", Raised::kDriveWarning}, {"drive", Raised::kDriveFault},
      {"bus", Raised::kBusFault},  {"program", Raised::kProgramLine},        {"confirm", Raised::kConfirm},
      {"fatal", Raised::kFatal}};
  for (const auto& [name, fault] : faults) {
    machine_->Raise(fault, {u"C:\\CNC\\PROGRAMS", u"PART.NC", 19, 7});
    AddQueue(name);
  }
  Compare("machine");
}

TEST_P(ErrorGolden, EverySourceAndClassReadsAsItDid) {
  const struct {
    const char* name;
    std::uint16_t severity;
    bool marked;
    std::int32_t number;
  } classes[] = {{"error", 1, false, 1000},
                 {"marked", 1, true, 1000},
                 {"warning", 0, false, 1000},
                 {"fatal", 7, false, 1000},
                 {"confirm", 1, false, 3753}};
  for (const ErrorTextFunction function : kErrorTextFunctions) {
    const std::string name = ErrorTextFunctionName(function);
    for (const std::int32_t number : {0, 1000, 3753}) cnc.ErrorText(name, number, FromUtf8("|" + name), u"", false);
  }
  for (std::int32_t source = 0; source < 21; ++source) {
    for (const auto& row : classes) {
      RecordBuilder record;
      record.Source(source).Number(row.number).Severity(row.severity).Channel(2);
      if (row.marked) record.Marked();
      if (source != 3) record.Text(error_field::kMessageText, u"\nmessage");
      if (source == 3) record.Int(error_field::kCode, 4).Int(error_field::kPartner, 5);
      record.Parameter(0, Parameter<std::int32_t>(7, 0, 6, 2)).Extra(0, ExtraValue<std::int32_t>(7, 12));
      Add("source " + std::to_string(source) + " " + row.name, record);
    }
  }
  Compare("sources");
}

TEST_P(ErrorGolden, EveryDiagnosisMeaningAndUnitReadsAsItDid) {
  for (std::uint16_t kind = 0; kind < 24; ++kind) {
    for (const auto& [a, b] : {std::pair(0, 0), std::pair(2, 0), std::pair(2, 3)}) {
      Add("diagnosis " + std::to_string(kind) + " " + std::to_string(a) + " " + std::to_string(b),
          RecordBuilder()
              .Diagnosis(kind, static_cast<std::uint16_t>(a), static_cast<std::uint16_t>(b))
              .Text({"messageText", 40, 102, ErrorField::Kind::kText}, u"G1 X5"));
    }
  }
  for (std::int32_t first = 0; first < 25; first += 5) {
    RecordBuilder record;
    for (std::int32_t i = 0; i < 5; ++i) {
      record.Parameter(static_cast<std::size_t>(i), Parameter<std::int32_t>(7, 0, first + i, 2));
    }
    Add("meanings from " + std::to_string(first), record);
  }
  for (std::int32_t first = 0; first < 25; first += 5) {
    RecordBuilder record;
    for (std::int32_t i = 0; i < 5; ++i) {
      record.Parameter(static_cast<std::size_t>(i), Parameter(8, first + i, 2, 12345.6789));
    }
    Add("units from " + std::to_string(first), record);
  }
  Compare("tables");
}

// A golden that holds an empty title would be as wrong tomorrow as today.
TEST_P(ErrorGolden, NoTextOfTheDemoMachineIsEmpty) {
  for (const sim::FaultText& entry : sim::FaultTexts()) {
    Z7340ERRORINFO_ST info{};
    ASSERT_EQ(cnc.Util().ErrorText(ErrorTextFunction::kErrorToTxt, entry.number, info), 0) << entry.number;
    EXPECT_GT(FieldText(info.text).size(), 1U) << entry.number;
    const auto help = cnc.DescriptionBehind(FieldText(info.helpRef));
    ASSERT_TRUE(help) << entry.number;
    EXPECT_EQ(Lines(ToUtf8(*help)).size(), 3U) << "cause, effect, remedy of " << entry.number;
  }
}

}  // namespace
}  // namespace pnl::test
