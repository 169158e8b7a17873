// SPDX-License-Identifier: MIT
#include "help/help_marks.h"

#include <algorithm>

#include "base/format.h"
#include "base/ini_file.h"

namespace pnl {
namespace {

constexpr TextView kFirstName = u"CNC.helps";
constexpr TextView kOtherName = u"Cnc7340.helps";
constexpr TextView kManualsSection = u"MANUALS";
constexpr TextView kMarksSection = u"MARKS";
/// What an absent key reads as. A key with this value counts as absent.
constexpr TextView kFailed = u"FAILED";
/// The value of a manual that isn't listed. It still resolves, as a file of that name.
constexpr TextView kUnlisted = u"DEFAULT";
constexpr TextView kFallbackNumber = u"0000";
constexpr std::size_t kManualKey = 3;
constexpr std::size_t kExtension = 4;
/// Spanish in every language.
constexpr TextView kNoManualText =
    u"EL FORMATO DE LA MARCA DE AYUDA SOLICITADA NO SE CORRESPONDE CON NINGUNA\n DE LAS AYUDAS DISPONIBLES ACTUALMENTE "
    u"EN EL SISTEMA.\n MODIFIQUE EL FICHERO \"%s.\"";
constexpr TextView kNoMarkText = u"La marca %s ha sido eliminada o aún no se ha implementado";

Text PathOf(TextView folder, TextView name) { return Format(u"%s\\%s", folder, name); }

/// The marks file beside a manual. The last four characters go whatever they are: those of a name without an extension
/// take a part of the path with them.
Text MarksPath(TextView manual) {
  return Text(manual.substr(0, manual.size() - std::min(manual.size(), kExtension))) + u".mrk";
}

/// The keys that fit into the buffer: each ends with a zero, and the list with an empty name.
std::vector<Text> FittingKeys(std::vector<Text> keys) {
  std::size_t used = 1;
  const auto end = std::find_if(keys.begin(), keys.end(), [&used](const Text& key) {
    used += key.size() + 1;
    return used > manual_list::kNamesBuffer;
  });
  keys.erase(end, keys.end());
  return keys;
}

}  // namespace

HelpProbe ProbeHelp(const HelpDisc& disc, TextView name) {
  if (name.empty()) return {};
  HelpProbe probe{help_probe::kFound, disc.utilities.Get7340Path(path_id::kHelpLanguage)};
  if (disc.files.Query(PathOf(probe.folder, name)).exists) return probe;
  probe.folder = disc.utilities.Get7340Path(path_id::kHelpFallback);
  if (!disc.files.Query(PathOf(probe.folder, name)).exists) probe.code = help_probe::kNotFound;
  return probe;
}

Text HelpsFile::Path() const { return PathOf(folder, name); }

HelpsFile FindHelpsFile(const HelpDisc& disc) {
  // The result of the probe for the other name plays no part on a panel of that family.
  if (!disc.utilities.UTIL7340_Is7335()) return {0, Text(kOtherName), ProbeHelp(disc, kOtherName).folder};
  const HelpProbe first = ProbeHelp(disc, kFirstName);
  if (first.code == help_probe::kFound) return {0, Text(kFirstName), first.folder};
  const HelpProbe other = ProbeHelp(disc, kOtherName);
  return {0, Text(other.code == help_probe::kFound ? kOtherName : kFirstName), other.folder};
}

Text ManualPage::Topic() const { return Format(u"%s#%s", page, mark); }

ResolvedPage ResolveManualPage(const HelpDisc& disc, TextView mark, const HelpBoxShower& showBox) {
  if (mark.empty()) return {};
  const Text key(mark.substr(0, kManualKey));
  const HelpsFile helps = FindHelpsFile(disc);
  CIniFile index(disc.files);
  index.ReadIniFile(helps.Path());
  const Text manual = index.ReadString(kManualsSection, key, kFailed);
  index.CloseIniFile();
  if (manual == kFailed) {
    showBox(helps.name, Format(kNoManualText, helps.name));
    return {HelpResolution::kNoManual, {}};
  }

  ResolvedPage resolved{HelpResolution::kFound, {PathOf(helps.folder, manual), {}, Text(mark), false}};
  index.ReadIniFile(MarksPath(resolved.page.manual));
  resolved.page.page = index.ReadString(kMarksSection, mark, kFailed);
  if (resolved.page.page != kFailed) return resolved;

  // Deliberately, although help opens all the same: the operator sees which mark has no page.
  showBox(helps.name, Format(kNoMarkText, mark));
  resolved.page.mark = key + Text(kFallbackNumber);
  resolved.page.fallback = true;
  resolved.page.page = index.ReadString(kMarksSection, resolved.page.mark, kFailed);
  if (resolved.page.page == kFailed) {
    showBox(helps.name, Format(kNoMarkText, resolved.page.mark));
    resolved.result = HelpResolution::kNoPage;
  }
  return resolved;
}

ManualNames ListManuals(const HelpsFile& helps, Files& files, bool hasListBox) {
  if (!hasListBox) return {manual_list::kNoListBox, {}};
  if (helps.code != 0) return {manual_list::kNoHelpsFile, {}};
  CIniFile index(files);
  if (!index.ReadIniFile(helps.Path())) return {manual_list::kUnreadable, {}};
  const std::vector<Text> keys = FittingKeys(index.GetKeyNames(kManualsSection));
  if (keys.empty()) return {manual_list::kNoKeys, {}};
  ManualNames manuals;
  for (const Text& key : keys) {
    const Text& value = index.ReadString(kManualsSection, key, kUnlisted);
    if (value != kUnlisted && !value.empty()) manuals.names.push_back(value);
  }
  return manuals;
}

}  // namespace pnl
