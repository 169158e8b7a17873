// SPDX-License-Identifier: MIT
#include "library/machine_documents.h"

#include <fstream>
#include <optional>

#include "facade/mill/machine_descriptions.h"
#include "facade/utilities.h"
#include "host/pack_files.h"

namespace pnl {

namespace {

/// The file of the documents that are texts by number.
constexpr std::string_view kTextsByNumber = "messages.txt";

Text UpperCode(std::string_view language) {
  Text code = FromUtf8(language);
  for (char16_t& c : code) {
    if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
  }
  return code;
}

/// Writes the file without waiting for the disc: what a power cut leaves half is written again at the next start.
bool Write(const Files& files, TextView target, const std::string& bytes) {
  const std::optional<std::string> host = files.HostPath(target);
  if (!host) return false;
  std::ofstream out(*host, std::ios::binary);
  out << bytes;
  return out.flush().good();
}

/// Puts every file of a folder beside the packs into a folder of the machine's drive.
bool InstallFolder(Files& files, const std::vector<std::string>& packFolders, const std::string& from, TextView to) {
  const std::vector<std::string> names = SharedFileNames(packFolders, from);
  bool all = names.empty() || files.MakeFolder(to) == FileStatus::kOk;
  for (const std::string& name : names) {
    const std::optional<std::string> bytes = ReadSharedFile(packFolders, std::string(from).append("/").append(name));
    const Text target = JoinPath(to, FromUtf8(name));
    if (!bytes || ReadWhole(files, target, bytes->size()) == *bytes) continue;
    all = Write(files, target, *bytes) && all;
  }
  return all;
}

void InstallTexts(const std::vector<std::string>& packFolders, std::string_view language, sim::SimulatedCnc& cnc) {
  const auto bytes = ReadSharedFile(packFolders, "plc/" + std::string(language) + "/" + std::string(kTextsByNumber));
  if (!bytes) return;
  const Text file = JoinPath(PlcFolder(language), FromUtf8(kTextsByNumber));
  for (const auto& [number, text] : sim::ParseDescriptions(*bytes)) cnc.Description(file, number, text);
}

}  // namespace

Text ManualFolder(std::string_view language) { return u"C:\\CNC\\HELP\\" + UpperCode(language); }

Text PlcFolder(std::string_view language) {
  return language.starts_with("es") ? u"C:\\CNC\\PLC\\ES" : u"C:\\CNC\\PLC\\EN";
}

void UseLanguageFolders(rig::Storage& storage, std::string_view language) {
  storage.SetPath(path_id::kHelpLanguage, ManualFolder(language));
  storage.SetPath(path_id::kPlcFiles, PlcFolder(language));
}

bool InstallDocuments(Files& files, const std::vector<std::string>& packFolders, sim::SimulatedCnc& cnc) {
  bool all = true;
  for (const char* const code : kDocumentLanguages) {
    const std::string language(code);
    all = InstallFolder(files, packFolders, "manuals/" + language, ManualFolder(language)) && all;
    all = InstallFolder(files, packFolders, "plc/" + language, PlcFolder(language)) && all;
    InstallTexts(packFolders, language, cnc);
  }
  return all;
}

}  // namespace pnl
