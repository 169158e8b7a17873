// SPDX-License-Identifier: MIT
#include "errors/error_program_line.h"

#include <algorithm>
#include <array>

#include "base/format.h"
#include "errors/error_class.h"

namespace pnl {

namespace {

constexpr int kLineBuffer = 512;
/// From this distance on the line is read only from a little before the mark.
constexpr std::int32_t kFarMark = 510;
constexpr std::int32_t kUnitsBeforeFarMark = 4;

std::int64_t IndexOfBackslash(TextView text) {
  const auto found = text.find(u'\\');
  return found == TextView::npos ? -1 : static_cast<std::int64_t>(found);
}

TextView From(TextView text, std::int64_t start) {
  const auto size = static_cast<std::int64_t>(text.size());
  return text.substr(static_cast<std::size_t>(std::clamp<std::int64_t>(start, 0, size)));
}

/// Whether the text begins with a character of two units.
bool IsPair(TextView text) {
  return text.size() > 1 && text[0] >= 0xD800 && text[0] < 0xDC00 && text[1] >= 0xDC00 && text[1] < 0xE000;
}

bool Cancelled(const std::atomic<bool>* cancel) { return cancel != nullptr && cancel->load(); }

}  // namespace

ProgramPlace ProgramPlaceOf(const ErrorRecord& record) {
  const auto text = [&record](const ErrorField& field) { return record.GetText(field.offset, field.size); };
  const bool script = record.Get<std::int32_t>(error_field::kSource.offset) == error_source::kScript;
  ProgramPlace place;
  place.path = text(script ? error_field::kScriptPath : error_field::kProgramPath);
  if (place.path.empty() || place.path.back() != u'\\') place.path += u'\\';
  place.path += text(error_field::kProgramName);
  const ErrorField& position = script ? error_field::kScriptPosition : error_field::kFilePosition;
  const ErrorField& span = script ? error_field::kScriptSpan : error_field::kFileSpan;
  place.position = record.Get<std::int32_t>(position.offset);
  place.span = record.Get<std::uint16_t>(span.offset);
  return place;
}

Text ShortenPath(TextView path, int width, int available) {
  const auto length = static_cast<std::int64_t>(path.size());
  if (length == 0) return Text(path);
  const std::int64_t perCharacter = width / length + 1;
  const std::int64_t cut = (width - available) / perCharacter + 1;
  const std::int64_t head = IndexOfBackslash(path) + 2;
  std::int64_t keep = head + 1 + IndexOfBackslash(From(path, head));
  if (keep > length - cut) keep = head;
  const std::int64_t last = std::max<std::int64_t>(length - cut - keep - 2, 0);
  const std::int64_t tail = keep + cut + 2 + IndexOfBackslash(From(path, length - last));
  const auto kept = static_cast<std::size_t>(std::clamp<std::int64_t>(keep, 0, length));
  return Format(u"%s..%s", path.substr(0, kept), From(path, tail));
}

Text ComposePathLine(TextView path, const ErrorWords& words, const TextWidths& widths) {
  const int width = widths.of(path);
  // The shortened path has no caption and no line feed. Operators know it so.
  if (width > widths.available) return ShortenPath(path, width, widths.available);
  return Format(u"\n%s  %s", words(error_text::kProgram), path);
}

std::int32_t CountLines(std::int32_t position, CStdioFileEx& file, const std::atomic<bool>* cancel) {
  if (position < 0) return 0;
  const std::int64_t before = file.TCHAR_Seek(0, CStdioFileEx::kCurrent);
  std::int32_t lines = 1;
  if (file.TCHAR_Seek(0, CStdioFileEx::kBegin) != 0) return -1;
  std::array<char16_t, kLineBuffer> buffer{};
  for (std::int64_t read = 0; read < position;) {
    if (Cancelled(cancel) || file.ReadString(buffer.data(), kLineBuffer) == nullptr) {
      lines = -1;
      break;
    }
    const TextView line(buffer.data());
    read += static_cast<std::int64_t>(line.size()) + 1;
    const bool full = line.size() == kLineBuffer - 1 && line.back() != u'\n';
    if (!full) ++lines;
  }
  file.TCHAR_Seek(before, CStdioFileEx::kBegin);
  return lines;
}

Text MarkLine(TextView line, std::size_t index) {
  std::size_t at = std::min(index, line.size());
  // If the index is in the middle of a character of two units, the mark is around both units.
  if (at > 0 && at < line.size() && IsPair(line.substr(at - 1))) --at;
  const TextView rest = line.substr(at);
  const std::size_t length = IsPair(rest) ? 2 : std::min<std::size_t>(rest.size(), 1);
  return Format(u"%s<%s>%s", line.substr(0, at), rest.substr(0, length), rest.substr(length));
}

ProgramCaptions ProgramCaptionsOf(const ErrorWords& words) {
  return {Text(words(error_text::kLineNumber)), Text(words(error_text::kLine))};
}

ProgramLines ReadProgramLines(const ProgramPlace& place, const ProgramCaptions& captions, Files& files,
                              const std::atomic<bool>* cancel) {
  ProgramLines lines;
  CStdioFileEx file(files);
  if (place.path.empty() || !file.Open(place.path, CStdioFileEx::kRead) || file.IsFileEncryptedText()) return lines;
  lines.lineNumber = Format(u"\n%s %d", captions.lineNumber, CountLines(place.position, file, cancel));
  if (Cancelled(cancel)) return lines;
  if (!file.SeekByte(place.position)) return lines;
  std::int32_t mark = place.span / 2;
  const bool cut = mark >= kFarMark;
  if (cut) {
    if (file.TCHAR_Seek(mark - kUnitsBeforeFarMark, CStdioFileEx::kCurrent) == -1) return lines;
    mark = kUnitsBeforeFarMark;
  }
  std::array<char16_t, kLineBuffer> buffer{};
  if (file.ReadString(buffer.data(), kLineBuffer) == nullptr) return lines;
  TextView line(buffer.data());
  // The line feed is removed before the mark is set, so that a mark at the end of the line is "<>".
  if (!line.empty() && line.back() == u'\n') line.remove_suffix(1);
  lines.lineText =
      Format(cut ? u"\n%s ... %s" : u"\n%s %s", captions.line, MarkLine(line, static_cast<std::size_t>(mark)));
  return lines;
}

}  // namespace pnl
