// SPDX-License-Identifier: MIT
#include "errors/error_settings.h"

#include <array>
#include <optional>

#include "base/ini_file.h"
#include "base/numbers.h"

namespace pnl {

namespace {

constexpr TextView kSection = u"PRIVATE";
constexpr TextView kAbsent = u"FAIL";
constexpr TextView kDefaultFont = u"Arial,21,400";
constexpr std::int32_t kDefaultFlash = 500;

/// How many units at the front of the text "%d" would read: white space, a sign and digits. 0 if there is no digit.
std::size_t NumberLength(TextView text) {
  std::size_t at = 0;
  while (at < text.size() && (text[at] == u' ' || (text[at] >= u'\t' && text[at] <= u'\r'))) ++at;
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
  const std::size_t digits = at;
  while (at < text.size() && text[at] >= u'0' && text[at] <= u'9') ++at;
  return at == digits ? 0 : at;
}

/// Removes a comma and the number after it from the front of the text and returns the number. Returns nothing and
/// leaves the text if there is none. The caller then stops.
std::optional<std::int32_t> TakeNumber(TextView& text) {
  if (text.empty() || text[0] != u',') return std::nullopt;
  const std::size_t length = NumberLength(text.substr(1));
  if (length == 0) return std::nullopt;
  const std::int32_t number = ParseIntPrefix(text.substr(1, length));
  text.remove_prefix(1 + length);
  return number;
}

bool IsTrue(CIniFile& ini, TextView key) { return EqualNoCase(ini.ReadString(kSection, key, kAbsent), u"TRUE"); }

}  // namespace

ErrorFont ParseErrorFont(TextView text) {
  // The face in the file has no effect: the window is designed for this one.
  ErrorFont font{.face = Text(u"Arial")};
  if (text.empty()) return font;
  font.height = 21;
  const std::size_t face = text.find(u',');
  if (face == 0 || face == TextView::npos) return font;
  text.remove_prefix(face);
  std::array<std::int32_t, 5> fields{font.height, font.weight, 0, 0, 0};
  for (std::int32_t& field : fields) {
    const auto number = TakeNumber(text);
    if (!number) break;
    field = *number;
  }
  font.height = fields[0];
  font.weight = fields[1];
  font.italic = fields[2] != 0;
  font.underline = fields[3] != 0;
  font.strikeOut = fields[4] != 0;
  return font;
}

ErrorSettings ReadErrorSettings(Files& files, TextView iniPath) {
  CIniFile ini(files);
  (void)ini.ReadIniFile(iniPath);
  ErrorSettings settings;
  settings.flashPeriod = ini.ReadInt(kSection, u"Flash", kDefaultFlash);
  settings.titleFont = ParseErrorFont(ini.ReadString(kSection, u"FontTitle", kDefaultFont));
  settings.textFont = ParseErrorFont(ini.ReadString(kSection, u"FontText", kDefaultFont));
  settings.hideErrors = IsTrue(ini, u"HideErrors");
  // If errors are hidden, warnings are hidden too.
  settings.hideWarnings = settings.hideErrors || IsTrue(ini, u"HideWarnings");
  return settings;
}

}  // namespace pnl
