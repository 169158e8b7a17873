// SPDX-License-Identifier: MIT
// Takes any bytes as the texts of the machining calculator's screen, one a line, computes and makes the block. The
// first two bytes choose machine, tool and checks. The block has as many lines as the checks allow, each but the remark
// with the comment, and no text breaks out of its line. Computing again from what was computed changes nothing.
#include "base/format.h"
#include "fuzz_check.h"
#include "zmc/logic/zmc_block.h"
#include "zmc/logic/zmc_cascade.h"
#include "zmc/logic/zmc_formula.h"
#include "zmc/logic/zmc_rig.h"

namespace {

using pnl::Text;
using pnl::TextView;
using pnl::ZmcCascade;
using pnl::ZmcChecks;
using pnl::ZmcFields;
using pnl::ZmcMachine;

/// Takes lines off the front of the input; the last one is what is left.
class Lines {
 public:
  Lines(const char* data, std::size_t size) : rest_(data, size) {}
  Text Next() {
    const std::size_t end = rest_.find('\n');
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    // A file can contain other line breaks; this one is written for the tests.
    Text text = pnl::FromUtf8(line);
    for (char16_t& c : text) c = c == u'|' ? u'\n' : c;
    return text;
  }

 private:
  std::string_view rest_;
};

ZmcFields FieldsOf(Lines lines) {
  ZmcFields fields;
  fields.Tool = lines.Next();
  fields.Material = lines.Next();
  fields.Operation = lines.Next();
  fields.Remark = lines.Next();
  for (Text* text : {&fields.D, &fields.Z, &fields.S, &fields.F}) *text = lines.Next();
  for (Text& cell : fields.Cells) cell = lines.Next();
  return fields;
}

ZmcMachine MachineOf(std::uint8_t bits) {
  ZmcMachine machine;
  machine.units.inches = (bits & 1) != 0;
  machine.SFormat.precision = (bits & 2) != 0 ? 1 : 0;
  machine.FFormat.precision = (bits & 4) != 0 ? 1 : 0;
  machine.DmcOption = (bits & 8) != 0;
  machine.RatedPower = (bits & 16) != 0 ? 10 : 0;
  machine.DriveType = 8;
  machine.DmcSpindle = 1;
  machine.ForcedSUnit = (bits & 32) != 0 ? 11 : 0;
  machine.DualPurpose = (bits & 64) != 0;
  machine.MasterSpindleName = (bits & 128) != 0 ? u"S2" : u"S";
  return machine;
}

ZmcChecks ChecksOf(std::uint8_t bits) {
  return {(bits & 1) != 0, (bits & 2) != 0,  (bits & 4) != 0 ? 1 : 0,
          (bits & 8) != 0, (bits & 16) != 0, (bits & 32) != 0};
}

/// Whatever breaks a line for some reader of programs.
std::size_t Breaks(TextView text) {
  std::size_t count = 0;
  for (const char16_t c : text) {
    if ((c >= u'\n' && c <= u'\r') || c == u'\x85' || c == u'\x2028' || c == u'\x2029') ++count;
  }
  return count;
}

void CheckBlock(TextView block, const ZmcChecks& checks) {
  if (!checks.AnyWord()) FUZZ_CHECK(block.empty());
  if (block.empty()) return;
  std::size_t lines = 0;
  while (!block.empty()) {
    const std::size_t end = block.find(u"\r\n");
    FUZZ_CHECK(end != TextView::npos);
    const TextView line = block.substr(0, end);
    FUZZ_CHECK(Breaks(line) == 0);
    const bool remark = lines == 0 && checks.Comments && line.front() == u';';
    FUZZ_CHECK(remark || line.find(u" ;### ZMC # ") != TextView::npos || line.find(u"\t;### ZMC # ") != TextView::npos);
    block.remove_prefix(end + 2);
    ++lines;
  }
  const int most = checks.Comments + checks.Tool + (checks.Tool && checks.M6 != 0) + checks.F + checks.S + checks.Dmc;
  FUZZ_CHECK(lines <= static_cast<std::size_t>(most));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const ZmcMachine machine = MachineOf(data[0]);
  const ZmcChecks checks = ChecksOf(data[1]);
  pnl::test::NotedTools tables;
  tables.tools = {{1, {1, 1, 100000, 4}}, {5, {5, 10, 0, 3}}};
  ZmcFields fields = FieldsOf(Lines(reinterpret_cast<const char*>(data) + 2, size - 2));
  if (!fields.Material.empty()) fields.Kc = 2000;
  fields.FUnit = (data[1] & 64) != 0 ? 1 : 0;
  fields.SUnit = (data[1] & 128) != 0 ? 1 : 0;

  const ZmcCascade cascade(machine, tables);
  if (fields.D.empty()) cascade.Apply(pnl::ZmcEvent::kTool, fields);
  cascade.ForceSUnit(0, fields);
  cascade.RecalcConditions(fields);
  ZmcFields again = fields;
  cascade.RecalcConditions(again);
  FUZZ_CHECK(again.S == fields.S && again.F == fields.F && again.Power == fields.Power);
  FUZZ_CHECK(again.DmcText == fields.DmcText);
  for (const pnl::ZmcField field : {pnl::ZmcField::kS, pnl::ZmcField::kF, pnl::ZmcField::kPower}) {
    static_cast<void>(FormulaText(field, cascade, fields, u"rev/min"));
  }

  pnl::test::NotedVariables variables;
  variables.values = {{"DM.ZMC.INFO", Text()}, {"DM.ZMC.T", 0}, {"DM.ZMC.S", 0.0}};
  const Text block =
      GenerateBlock({fields, checks, machine.MasterSpindleName, [&] { return cascade.DmcUsable(fields); }}, variables);
  CheckBlock(block, checks);
  return 0;
}
