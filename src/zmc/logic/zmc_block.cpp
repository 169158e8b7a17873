// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_block.h"

#include <algorithm>

#include "base/format.h"
#include "zmc/logic/zmc_tools.h"

namespace pnl {

namespace {

constexpr TextView kSpindleAddress = u"S";

bool IsLineBreak(char16_t c) { return (c >= u'\n' && c <= u'\r') || c == u'\x85' || c == u'\x2028' || c == u'\x2029'; }

/// The text in one line. A program must get no block that only a description or a remark contains.
Text OneLine(TextView text) {
  Text line(text);
  std::replace_if(line.begin(), line.end(), IsLineBreak, u' ');
  return line;
}

class BlockWriter {
 public:
  BlockWriter(const ZmcBlockInput& input, Variables& variables);
  Text Generate();

 private:
  void Info();
  void Remark();
  void Tool();
  void M6();
  void Feed();
  void Speed();
  void Dmc();
  /// Adds a line. Every line but the first begins with a line break.
  void Add(TextView line);
  void WriteInt(TextView name, int value);
  void WriteDouble(TextView name, double value);
  void WriteText(TextView name, TextView value);

  const ZmcBlockInput& input_;
  const ZmcFields& fields_;
  const ZmcChecks& checks_;
  Variables& variables_;
  Text tool_;
  Text info_;
  Text block_;
  bool started_ = false;
};

BlockWriter::BlockWriter(const ZmcBlockInput& input, Variables& variables)
    : input_(input),
      fields_(input.fields),
      checks_(input.checks),
      variables_(variables),
      tool_(OneLine(input.fields.Tool)) {}

void BlockWriter::Add(TextView line) {
  if (started_) block_ += u"\r\n";
  block_ += line;
  started_ = true;
}

void BlockWriter::WriteInt(TextView name, int value) {
  static_cast<void>(ZCVariable(variables_, name).WriteInt(value));
}

void BlockWriter::WriteDouble(TextView name, double value) {
  static_cast<void>(ZCVariable(variables_, name).WriteDouble(value));
}

void BlockWriter::WriteText(TextView name, TextView value) {
  static_cast<void>(ZCVariable(variables_, name).WriteTxt(value));
}

void BlockWriter::Info() {
  info_ = Format(u"### ZMC # %s # %s # %s", OneLine(fields_.Material), OneLine(fields_.Operation), tool_);
  WriteText(u"DM.ZMC.INFO", info_);
}

void BlockWriter::Remark() {
  const Text remark = checks_.Comments ? OneLine(fields_.Remark) : Text();
  if (!remark.empty()) Add(Format(u";%s", remark));
  WriteText(u"DM.ZMC.COMMENT", remark);
}

void BlockWriter::Tool() {
  // A text that names no tool gives a line too; only its number is 0.
  if (checks_.Tool) Add(Format(u"%-15s ;%s", tool_, info_));
  WriteInt(u"DM.ZMC.T", checks_.Tool ? ZmcToolNumber(tool_) : 0);
}

void BlockWriter::M6() {
  const int state = checks_.Tool ? checks_.M6 : 0;
  if (state != 0) Add(Format(u"%-15s ;%s", TextView(u"M6"), info_));
  // The state of the box, not just whether it is on.
  WriteInt(u"DM.ZMC.M6", state);
}

void BlockWriter::Feed() {
  const Text text = OneLine(Trim(fields_.F));
  const double value = checks_.F ? DecimalOf(text) : 0.0;
  if (value != 0) {
    const bool perMinute = fields_.FUnit == 0;
    WriteInt(u"DM.ZMC.FUNIT", perMinute ? 0 : 1);
    Add(Format(u"%sF%-14s ;%s", perMinute ? u"G94 " : u"G95 ", text, info_));
  }
  WriteDouble(u"DM.ZMC.F", value);
}

void BlockWriter::Speed() {
  const Text text = OneLine(Trim(fields_.S));
  const double value = checks_.S ? DecimalOf(text) : 0.0;
  if (value != 0) {
    const bool revolutions = fields_.SUnit == 0;
    WriteInt(u"DM.ZMC.SUNIT", revolutions ? 0 : 1);
    Text address = OneLine(input_.spindleName);
    if (!EqualNoCase(address, kSpindleAddress)) address += u"=";
    Add(Format(u"%s%s%-14s ;%s", revolutions ? u"G97 " : u"G96 ", address, text, info_));
  }
  WriteDouble(u"DM.ZMC.S", value);
}

void BlockWriter::Dmc() {
  const bool used = input_.dmcUsable() && checks_.Dmc;
  const Text line = used ? OneLine(fields_.DmcText) : Text();
  // An empty line gives a line too, of the comment alone.
  if (used) Add(Format(u"%s\t;%s", line, info_));
  WriteText(u"DM.ZMC.DMC", line);
}

Text BlockWriter::Generate() {
  Info();
  Remark();
  Tool();
  M6();
  Feed();
  Speed();
  Dmc();
  if (started_) block_ += u"\r\n";
  return block_;
}

}  // namespace

Text GenerateBlock(const ZmcBlockInput& input, Variables& variables) {
  return BlockWriter(input, variables).Generate();
}

}  // namespace pnl
