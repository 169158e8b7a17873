// SPDX-License-Identifier: MIT
#include "base/ini_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "base/numbers.h"

namespace pnl {
namespace {

/// Both names in one text, in capitals. No name contains a line feed, so different pairs give different texts.
Text IndexName(TextView section, TextView key) { return ToUpper(section) + u'\n' + ToUpper(key); }

/// The text as a reader of the file would find it.
Text OneLine(TextView text) {
  Text line(Trim(text));
  for (char16_t& c : line) {
    if (c == u'\r' || c == u'\n') c = u' ';
  }
  return line;
}

/// The name between the brackets of a section's line; nothing when the line isn't one.
std::optional<TextView> SectionName(TextView line) {
  line = Trim(line);
  const std::size_t end = line.find(u']');
  if (line.empty() || line[0] != u'[' || end == TextView::npos) return std::nullopt;
  return Trim(line.substr(1, end - 1));
}

bool CanBeKey(TextView name) {
  return !name.empty() && name[0] != u';' && name[0] != u'[' && name.find(u'=') == TextView::npos;
}

}  // namespace

bool CIniFile::ReadIniFile(TextView panelPath) {
  CloseIniFile();
  if (const auto bytes = ReadWhole(*files_, panelPath, kMostBytes)) {
    Parse(*bytes);
    return true;
  }
  const FileInfo info = files_->Query(panelPath);
  if (info.exists || info.outOfReach) unreadPath_ = panelPath;
  return false;
}

bool CIniFile::WriteIniFile(TextView panelPath) const {
  if (!unreadPath_.empty() && EqualNoCase(unreadPath_, panelPath)) return false;
  return files_->Replace(panelPath, Serialize()) == FileStatus::kOk;
}

void CIniFile::CloseIniFile() {
  stretches_.assign(1, {});
  sections_.clear();
  sections_[Text()] = {0};
  keys_.clear();
  unreadPath_.clear();
}

const Text& CIniFile::ReadString(TextView section, TextView key, TextView fallback) {
  if (const Line* line = Find(section, key)) return line->value;
  if (fallback_ != fallback) fallback_ = Text(fallback);
  return fallback_;
}

std::int32_t CIniFile::ReadInt(TextView section, TextView key, std::int32_t fallback) const {
  const Line* line = Find(section, key);
  return line != nullptr ? ParseIntPrefix(line->value) : fallback;
}

double CIniFile::ReadDouble(TextView section, TextView key, double fallback) const {
  const Line* line = Find(section, key);
  return line != nullptr ? ParseDoublePrefix(line->value) : fallback;
}

bool CIniFile::ReadBool(TextView section, TextView key, bool fallback) const {
  const Line* line = Find(section, key);
  if (line == nullptr) return fallback;
  // "TRUE" and "ON" are false: the files of the machines in the field rely on it.
  return line->value == u"1" || EqualNoCase(line->value, u"YES");
}

void CIniFile::WriteString(TextView section, TextView key, TextView value) {
  const Text sectionName = OneLine(section);
  const Text keyName = OneLine(key);
  if (!CanBeKey(keyName) || sectionName.find(u']') != Text::npos) return;
  Text text = OneLine(value);
  const auto found = keys_.find(IndexName(sectionName, keyName));
  if (found == keys_.end()) {
    const auto valueAt = static_cast<std::uint32_t>(keyName.size() + 1);
    Insert(sectionName, {true, false, valueAt, {}, keyName + u'=' + text, keyName, text});
    return;
  }
  Line& line = At(found->second);
  line.raw.replace(line.valueAt, Text::npos, text);
  line.value = std::move(text);
}

void CIniFile::WriteInt(TextView section, TextView key, std::int32_t value) {
  WriteString(section, key, FromUtf8(std::to_string(value)));
}

void CIniFile::WriteDouble(TextView section, TextView key, double value) {
  // The shortest text that reads back as the same number.
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  WriteString(section, key, Text(buffer.data(), end));
}

void CIniFile::WriteBool(TextView section, TextView key, bool value) {
  WriteString(section, key, value ? u"YES" : u"NO");
}

void CIniFile::DeleteKey(TextView section, TextView key) {
  const auto found = keys_.find(IndexName(OneLine(section), OneLine(key)));
  if (found == keys_.end()) return;
  for (Place place = found->second; place.stretch != kNowhere;) {
    // The line stays in its list, empty, so that the places of the other lines remain valid.
    Line& line = At(place);
    place = line.again;
    line = {};
    line.deleted = true;
  }
  keys_.erase(found);
}

std::vector<Text> CIniFile::GetKeyNames(TextView section) const {
  std::vector<Text> names;
  const auto found = sections_.find(ToUpper(OneLine(section)));
  if (found == sections_.end()) return names;
  for (const std::uint32_t stretch : found->second) {
    for (const Line& line : stretches_[stretch].lines) {
      // Only the line that counts adds the name, so that a key with two lines is listed once.
      if (line.isKey && Find(section, line.name) == &line) names.push_back(line.name);
    }
  }
  return names;
}

std::vector<Text> CIniFile::GetSectionNames() const {
  std::vector<Text> names;
  // The first stretch has no header.
  for (std::size_t i = 1; i < stretches_.size(); ++i) {
    const Text& name = stretches_[i].name;
    if (sections_.at(ToUpper(name)).front() == i) names.push_back(name);
  }
  return names;
}

std::string CIniFile::Serialize() const {
  std::string bytes;
  const auto put = [&bytes](const Text& line) { bytes += ToUtf8(line) + "\r\n"; };
  for (const Stretch& stretch : stretches_) {
    if (!stretch.header.empty()) put(stretch.header);
    for (const Line& line : stretch.lines) {
      if (!line.deleted) put(line.raw);
    }
  }
  // Reading drops one byte order mark, so a first line that begins with its character needs another before it.
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kMark)) bytes.insert(0, kMark);
  return bytes;
}

void CIniFile::Parse(std::string_view bytes) {
  CloseIniFile();
  const Text text = DecodeFile(bytes);
  TextView rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
    AddLine(rest.substr(0, end));
    const std::size_t ending = rest.substr(end, 2) == u"\r\n" ? 2 : 1;
    rest.remove_prefix(std::min(end + ending, rest.size()));
  }
}

void CIniFile::AddLine(TextView line) {
  if (const auto section = SectionName(line)) {
    sections_[ToUpper(*section)].push_back(static_cast<std::uint32_t>(stretches_.size()));
    stretches_.push_back({Text(line), Text(*section), {}});
    return;
  }
  const std::size_t equals = line.find(u'=');
  if (equals != TextView::npos && CanBeKey(Trim(line.substr(0, equals)))) {
    AddKey(line, equals);
    return;
  }
  std::vector<Line>& lines = stretches_.back().lines;
  // Other lines share one record, so that a file of blank lines doesn't need a record for each.
  if (lines.empty() || lines.back().isKey) {
    lines.push_back({false, false, 0, {}, Text(line), {}, {}});
  } else {
    lines.back().raw.append(u"\r\n").append(line);
  }
}

void CIniFile::AddKey(TextView line, std::size_t equals) {
  const TextView name = Trim(line.substr(0, equals));
  const TextView value = Trim(line.substr(equals + 1));
  // An empty value begins right after the sign, so that a value that is set later has no white space before it.
  const std::size_t valueAt = value.empty() ? equals + 1 : static_cast<std::size_t>(value.data() - line.data());
  Stretch& stretch = stretches_.back();
  const Place place{static_cast<std::uint32_t>(stretches_.size() - 1),
                    static_cast<std::uint32_t>(stretch.lines.size())};
  stretch.lines.push_back({true, false, static_cast<std::uint32_t>(valueAt), {}, Text(line), Text(name), Text(value)});
  const auto [first, isNew] = keys_.try_emplace(IndexName(stretch.name, name), place);
  // The first line counts. The others are linked to it, in any order.
  if (!isNew) stretch.lines.back().again = std::exchange(At(first->second).again, place);
}

const CIniFile::Line* CIniFile::Find(TextView section, TextView key) const {
  const auto found = keys_.find(IndexName(OneLine(section), OneLine(key)));
  if (found == keys_.end()) return nullptr;
  const Place place = found->second;
  return &stretches_[place.stretch].lines[place.line];
}

void CIniFile::Insert(const Text& section, Line line) {
  const std::uint32_t stretch = StretchOf(section);
  std::vector<Line>& lines = stretches_[stretch].lines;
  // Insert after the last key: the comments that follow it mostly belong to the next section. No other key's place
  // changes.
  const auto lastKey = std::find_if(lines.rbegin(), lines.rend(), [](const Line& each) { return each.isKey; });
  const auto at = lines.rend() - lastKey;
  keys_[IndexName(section, line.name)] = {stretch, static_cast<std::uint32_t>(at)};
  lines.insert(lines.begin() + at, std::move(line));
}

std::uint32_t CIniFile::StretchOf(const Text& section) {
  const auto found = sections_.find(ToUpper(section));
  if (found != sections_.end()) return found->second.front();
  BlankLineAtEnd();
  sections_[ToUpper(section)].push_back(static_cast<std::uint32_t>(stretches_.size()));
  stretches_.push_back({u'[' + section + u']', section, {}});
  return static_cast<std::uint32_t>(stretches_.size() - 1);
}

void CIniFile::BlankLineAtEnd() {
  std::vector<Line>& lines = stretches_.back().lines;
  const auto last = std::find_if(lines.rbegin(), lines.rend(), [](const Line& each) { return !each.deleted; });
  const bool nothing = last == lines.rend() && stretches_.back().header.empty();
  const bool blank = last != lines.rend() && (last->raw.empty() || last->raw.ends_with(u'\n'));
  if (!nothing && !blank) lines.push_back({});
}

}  // namespace pnl
