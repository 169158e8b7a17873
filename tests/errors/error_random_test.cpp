// SPDX-License-Identifier: MIT
// A hundred thousand records, half of them as no kernel should make them: all compose, and no file is opened but the
// one that the record names.
#include <gtest/gtest.h>

#include <random>

#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

/// Notes what is opened.
class WatchedFiles final : public Files {
 public:
  FileInfo Query(TextView path) const override {
    touched.push_back(Text(path));
    return {true, false, true, 10};
  }
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    touched.push_back(Text(path));
    return disc.OpenRead(u"P", status);
  }
  FileStatus CanReplace(TextView) const override { return FileStatus::kDenied; }
  FileStatus Replace(TextView, std::string_view) override { return FileStatus::kDenied; }
  FileStatus MakeFolder(TextView) override { return FileStatus::kDenied; }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }

  MemoryFiles disc;
  mutable std::vector<Text> touched;
};

class ErrorRandom : public ErrorFixture {
 protected:
  ErrorRandom() {
    files_.disc.disc["P"] = "G0 X1\r\nG1 X2 F0\r\n" + std::string(1000, 'X') + "\r\nM30";
    cnc.Returns("ChannelNumber", {4});
    for (int axis = 0; axis < 4; ++axis) cnc.Axis(axis, Text(1, static_cast<char16_t>(u'X' + axis)));
    // Words as a careless pack has them: arguments that nobody gives, wrong types, absurd widths.
    for (auto& [id, text] : texts) {
      static constexpr TextView kFormats[] = {u"%s %s %s", u"%d %*d", u"%n%n", u"%9999999s", u"%.99999f", u"%c", u"%%"};
      text += kFormats[static_cast<std::size_t>(id) % std::size(kFormats)];
    }
    for (int code = 0; code < 64; ++code) cnc.ErrorText("GetTextoSercosError", code, u"%s%d%d%n", u"", false);
    for (int number = 0; number < 64; ++number) {
      cnc.ErrorText("ReadPLCError", number, u"|p", u"C:\\D.TXT#3", true);
      cnc.ErrorText("error_to_txt", number, u"|k", u"", false);
    }
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  ErrorRecord Orderly() {
    RecordBuilder record;
    record.Source(Below(21)).Number(Below(64)).Severity(static_cast<std::uint16_t>(Below(9))).Channel(Below(6) - 1);
    if (Below(4) == 0) record.Marked();
    if (Below(3) == 0)
      record.Diagnosis(static_cast<std::uint16_t>(Below(24)), static_cast<std::uint16_t>(Below(3)),
                       static_cast<std::uint16_t>(Below(3)));
    record.Text(error_field::kProgramPath, u"C:\\P").Text(error_field::kScriptPath, u"C:\\S\\");
    record.Text(error_field::kProgramName, u"A.NC");
    record.Int(error_field::kFilePosition, Below(40) - 2)
        .Word(error_field::kFileSpan, static_cast<std::uint16_t>(Below(2000)));
    for (std::size_t i = 0; i < 5; ++i) {
      record.Parameter(i, Parameter(Below(20), Below(21), Below(22), std::int64_t{Below(100000)}));
    }
    for (std::size_t i = 0; i < 4; ++i) record.Extra(i, ExtraValue(Below(20), std::int64_t{Below(100000)}));
    return record;
  }

  ErrorRecord Hostile() {
    ErrorRecord record;
    for (unsigned char& byte : record.bytes) byte = static_cast<unsigned char>(random_());
    // Mostly a source and types that mean something, so that the bytes are read as many things.
    if (Below(8) != 0) record.Set(error_field::kSource.offset, std::int32_t{Below(21)});
    for (std::size_t i = 0; i < 5; ++i) {
      if (Below(4) == 0) continue;
      const std::size_t at = error_field::kParametersOffset + i * sizeof(ErrorParameter);
      record.Set(at, std::int32_t{Below(20)});
      record.Set(at + 4, std::int32_t{Below(22)});
      record.Set(at + 8, std::int32_t{Below(22)});
    }
    for (std::size_t i = 0; i < 4; ++i) {
      record.Set(error_field::kExtraValuesOffset + i * sizeof(ErrorValue), std::int32_t{Below(20)});
    }
    return record;
  }

  void ComposeAndCheck(const ErrorRecord& record) {
    files_.touched.clear();
    const ErrorSurroundings around{cnc.Kapi(), cnc.Util(), files_, words, widths};
    ComposedError composed = ComposeError(record, around);
    Text allowed = composed.place.path;
    if (composed.inProgram) {
      const ProgramLines lines = ReadProgramLines(composed.place, ProgramCaptionsOf(words), files_);
      composed.parts.lineNumber = lines.lineNumber;
      composed.parts.lineText = lines.lineText;
    } else {
      allowed = u"C:\\D.TXT";
    }
    for (const Text& path : files_.touched) ASSERT_EQ(ToUtf8(path), ToUtf8(allowed));
    ASSERT_LE(composed.Description().size(), 200000u);
    ASSERT_LE(composed.titleLine.size(), 512u);
    ASSERT_LE(composed.place.path.size(), 259u);
  }

  std::mt19937 random_{20260101};
  WatchedFiles files_;
};

TEST_F(ErrorRandom, AHundredThousandRecordsCompose) {
  for (int i = 0; i < 50000; ++i) {
    ASSERT_NO_FATAL_FAILURE(ComposeAndCheck(Orderly())) << "orderly record " << i;
    ASSERT_NO_FATAL_FAILURE(ComposeAndCheck(Hostile())) << "hostile record " << i;
  }
}

}  // namespace
}  // namespace pnl::test
