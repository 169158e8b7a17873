// SPDX-License-Identifier: MIT
#include "explorer/xplr_preview.h"

#include <utility>

#include "base/text.h"

namespace pnl {
namespace {

constexpr std::size_t kTabWidth = 8;
/// More of a line is never seen.
constexpr std::size_t kLongestLine = 200;

/// The beginning of a file without a last character that may be cut in the middle.
std::string_view WithoutCutCharacter(std::string_view bytes) {
  std::size_t whole = bytes.size();
  for (int back = 0; back < 4 && whole > 0; ++back) {
    const auto byte = static_cast<unsigned char>(bytes[--whole]);
    if (byte < 0x80) return bytes;
    if (byte >= 0xC0) {
      const std::string_view cut = bytes.substr(0, whole);
      return IsUtf8(bytes.substr(whole)) ? bytes : cut;
    }
  }
  return bytes;
}

void AddCharacter(Text& line, char16_t c) {
  if (c == u'\t') {
    line.append(kTabWidth - line.size() % kTabWidth, u' ');
  } else if (c >= u' ' && c != 0x7F) {
    line += c;
  }
}

}  // namespace

std::vector<Text> FirstLines(std::string_view bytes, bool whole) {
  const Text text = DecodeFile(whole ? bytes : WithoutCutCharacter(bytes));
  std::vector<Text> lines;
  if (text.find(u'\0') != Text::npos) return lines;
  for (std::size_t i = 0; i < text.size() && lines.size() < kPreviewLines; ++i) {
    Text line;
    for (; i < text.size() && text[i] != u'\n' && text[i] != u'\r'; ++i) {
      if (line.size() < kLongestLine) AddCharacter(line, text[i]);
    }
    if (i + 1 < text.size() && text[i] == u'\r' && text[i + 1] == u'\n') ++i;
    lines.push_back(std::move(line));
  }
  return lines;
}

void XplrPreview::SetThere(bool there) {
  if (there == there_) return;
  there_ = there;
  filled_ = false;
  view_().ShowPreview({there_, {}, {}});
  Begin();
}

void XplrPreview::OnSelected(const Text& folder, const XplrRow* row) {
  Wanted wanted;
  if (row != nullptr && !row->IsFolder()) wanted = {folder + u'\\' + row->name, row->name, row->length, row->shownTime};
  if (wanted == wanted_) return;
  wanted_ = std::move(wanted);
  Begin();
}

void XplrPreview::Begin() {
  jobs_.Drop(std::exchange(reading_, 0));
  if (filled_) Show({});
  if (!there_ || wanted_.path.empty()) return;
  const auto work = [reader = places_.Reader(), path = wanted_.path] {
    const auto bytes = reader->ReadStart(path, kPreviewBytes);
    return bytes ? FirstLines(*bytes, bytes->size() < kPreviewBytes) : std::vector<Text>();
  };
  const JobId job = jobs_.Ask(work, [this](std::vector<Text> lines) {
    reading_ = 0;
    if (!lines.empty()) Show(std::move(lines));
  });
  if (jobs_.IsUnderWay(job)) reading_ = job;
}

void XplrPreview::Show(std::vector<Text> lines) {
  filled_ = !lines.empty();
  const Text name = filled_ ? wanted_.name : Text();
  view_().ShowPreview({there_, name, std::move(lines)});
}

}  // namespace pnl
