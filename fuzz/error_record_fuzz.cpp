// SPDX-License-Identifier: MIT
// Composes an error from any bytes as its record (short inputs are filled with zeros) and reads the program line at
// fault. The kernel and the tables answer every question, and the disc has the record's own program. Both steps must
// end, must open no other file, and must give texts that a window can show.
#include <algorithm>
#include <cstring>

#include "errors/error_composer.h"
#include "facade/kernel.h"
#include "fuzz_check.h"
#include "support/memory_files.h"

namespace {

using pnl::ErrorRecord;
using pnl::Text;
using pnl::TextView;

/// Far more than five texts of 260 units with their captions.
constexpr std::size_t kLongest = 100'000;

/// Answers the questions for texts. Any other call is a bug of the composer and aborts.
class TextKernel final : public pnl::Kernel {
 public:
  int ChannelNumber() override { return 4; }
  int ConvertLogToName(int logicalNumber, Text& name) override {
    if (logicalNumber < 1 || logicalNumber > 3) return -1;
    name = u"X";
    return 0;
  }
  int GetTextoMlinkError(int code, Text& text) override { return CodeText(code, text); }
  int GetTextoSercosError(int code, Text& text) override { return CodeText(code, text); }

  int ExisteKernel() override { std::abort(); }
  int IsNewInspecAllowed(int) override { std::abort(); }
  int EnProcesoInspec(int) override { std::abort(); }
  int IsMDIAllowedInResetInspect(int) override { std::abort(); }
  int CogerPlcFree(int, int) override { std::abort(); }
  int LiberarPlcFree(int, int, int) override { std::abort(); }
  int SetMdi(int, int) override { std::abort(); }
  int EndMDIMode(int) override { std::abort(); }
  int SetMode(int, int) override { std::abort(); }
  int MDILine(int, TextView, int, int, int) override { std::abort(); }
  int NextSingleStep(int) override { std::abort(); }
  int ClearFeedhold(int) override { std::abort(); }
  int MDICancel(int) override { std::abort(); }
  int PosibleMDICancel(int) override { std::abort(); }
  int WriteTxtInBlackBox(TextView, int) override { std::abort(); }
  int SWOption_IsZMCON() override { std::abort(); }
  int ReadError(int, ErrorRecord&) override { std::abort(); }
  int ResetError(int, int) override { std::abort(); }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { std::abort(); }
  int AddLogOnInfo(TextView) override { std::abort(); }

 private:
  /// Odd codes have a text whose format asks for more arguments than there are.
  static int CodeText(int code, Text& text) {
    if (code % 2 == 0) return -1;
    text = u"%d %s %n %*d %08X";
    return 0;
  }
};

class TextTables final : public pnl::Utilities {
 public:
  int ErrorText(pnl::ErrorTextFunction, std::int32_t number, pnl::Z7340ERRORINFO_ST& info) override {
    info = {};
    if (number % 3 == 0) return -1;
    // For some numbers neither field has a terminator; a library may leave them so.
    const char16_t unit = number % 3 == 1 ? u'x' : u'\0';
    std::fill(std::begin(info.text), std::end(info.text), unit);
    std::fill(std::begin(info.helpRef), std::end(info.helpRef), unit);
    info.helpRef[4] = u'#';
    info.helpRef[5] = u'7';
    return 0;
  }
  bool desc_to_txt(std::int32_t, Text& text, TextView) override {
    text = u"%s %n";
    return true;
  }
  Text Get7340Path(int) override { std::abort(); }
  int UTIL7340_DriveStatus(int) override { std::abort(); }
  void UTIL7340_CopyToClipboard_Text(pnl::WindowHandle, TextView) override { std::abort(); }
  int Util7340_MarcaHelpAsignadaABloque(TextView, Text&) override { std::abort(); }
  pnl::Rect UTIL7340_GetCNCRect() override { std::abort(); }
  bool UTIL7340_AreSoftkeyMetricsStandard() override { std::abort(); }
  int UTIL7340_FitFontSize(int) override { std::abort(); }
  int UTIL7340_FitHeight(int) override { std::abort(); }
  bool UTIL7340_Is7335() override { std::abort(); }
};

/// The words of a language pack by their numbers; hostile ones are formats that ask for more than there is.
std::map<int, Text> Words(bool hostile) {
  std::map<int, Text> words;
  for (int id = 200; id < 270; ++id) words[id] = hostile ? u"%s%d%n%*.*f%%" : u"word %d";
  for (int id = 57340; id < 57360; ++id) words[id] = hostile ? u"%99999999d%s" : u"word %s";
  return words;
}

/// Files with exactly one file, whatever its name; opening any other one fails the check.
class OneFile final : public pnl::Files {
 public:
  explicit OneFile(Text path) : path_(std::move(path)) {
    memory_.piece = 100;
    memory_.disc["C:\\a"] = "G1 X1\r\nG2 X2 Y\xC3\xA1\n" + std::string(700, 'X') + "\nM30";
  }
  pnl::FileInfo Query(TextView path) const override {
    return path == path_ ? memory_.Query(u"C:\\a") : pnl::FileInfo{};
  }
  std::unique_ptr<pnl::FileReader> OpenRead(TextView path, pnl::FileStatus* status) const override {
    FUZZ_CHECK(path == path_);
    return memory_.OpenRead(u"C:\\a", status);
  }
  pnl::FileStatus CanReplace(TextView) const override { std::abort(); }
  pnl::FileStatus Replace(TextView, std::string_view) override { std::abort(); }
  pnl::FileStatus MakeFolder(TextView) override { std::abort(); }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }

 private:
  Text path_;
  pnl::test::MemoryFiles memory_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ErrorRecord record{};
  if (size > 0) std::memcpy(record.bytes, data, std::min(size, sizeof record.bytes));
  static const std::map<int, Text> plain = Words(false);
  static const std::map<int, Text> hostile = Words(true);
  const pnl::ErrorWords words(size % 2 == 0 ? plain : hostile);
  const pnl::TextWidths widths{[](TextView text) { return static_cast<int>(text.size()) * 8; }, 400};
  TextKernel kapi;
  TextTables tables;
  const std::int32_t source = record.Get<std::int32_t>(pnl::error_field::kSource.offset);
  const pnl::ProgramPlace place = source == 1 || source == 9 ? pnl::ProgramPlaceOf(record) : pnl::ProgramPlace{};
  FUZZ_CHECK(place.path.size() < 260);
  OneFile files(place.path);

  pnl::ComposedError error = pnl::ComposeError(record, {kapi, tables, files, words, widths});
  FUZZ_CHECK(error.titleLine.size() < 600);
  if (error.inProgram) {
    const pnl::ProgramLines lines = pnl::ReadProgramLines(error.place, pnl::ProgramCaptionsOf(words), files);
    // A line of at most 512 units with its two signs, after a caption.
    FUZZ_CHECK(lines.lineText.size() < 600);
    error.parts.lineNumber = lines.lineNumber;
    error.parts.lineText = lines.lineText;
  }
  FUZZ_CHECK(error.Description().size() < kLongest);
  return 0;
}
