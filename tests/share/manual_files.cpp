// SPDX-License-Identifier: MIT
#include "share/manual_files.h"

#include <chm_lib.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>

namespace pnl::test {

namespace fs = std::filesystem;

fs::path ManualsFolder() { return fs::path(PNL_SOURCE_FOLDER) / "share" / "manuals"; }

std::string BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::map<std::string, std::string> ManualFiles::Pages() const {
  std::map<std::string, std::string> pages;
  for (const fs::directory_entry& file : fs::directory_iterator(Folder())) {
    if (file.path().extension() == ".html") pages[file.path().filename().string()] = BytesOf(file.path());
  }
  return pages;
}

std::vector<ManualFiles> AllManuals() {
  std::vector<ManualFiles> manuals;
  for (const char* language : {"en", "es"}) {
    for (const char* name : {"operating", "programming", "errors"}) manuals.push_back({language, name});
  }
  return manuals;
}

std::vector<std::string> Between(std::string_view text, std::string_view begin, std::string_view end) {
  std::vector<std::string> found;
  for (std::size_t at = text.find(begin); at != std::string_view::npos; at = text.find(begin, at)) {
    at += begin.size();
    const std::size_t stop = text.find(end, at);
    if (stop == std::string_view::npos) break;
    found.emplace_back(text.substr(at, stop - at));
    at = stop;
  }
  return found;
}

std::string PlainText(std::string_view html) {
  std::string text;
  bool inTag = false;
  for (const char c : html) {
    if (c == '<') inTag = true;
    if (!inTag) text += c;
    if (c == '>') inTag = false;
  }
  const std::pair<const char*, const char*> entities[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}};
  for (const auto& [entity, character] : entities) {
    for (std::size_t at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1)) {
      text.replace(at, std::strlen(entity), character);
    }
  }
  return text;
}

namespace {

std::string ObjectBytes(chmFile* manual, chmUnitInfo& object) {
  std::string bytes(object.length, '\0');
  auto* const buffer = reinterpret_cast<unsigned char*>(bytes.data());
  const auto size = static_cast<LONGINT64>(object.length);
  return chm_retrieve_object(manual, &object, buffer, 0, size) == size ? bytes : "unreadable";
}

int TakeObject(chmFile* manual, chmUnitInfo* object, void* context) {
  auto& files = *static_cast<std::map<std::string, std::string>*>(context);
  const std::string_view path = object->path;
  // The compiler's own objects begin with one of these signs; a folder ends with a stroke.
  const bool own = path.starts_with("/#") || path.starts_with("/$") || path.starts_with("/_") || !path.starts_with("/");
  if (!own && !path.ends_with("/")) files[std::string(path.substr(1))] = ObjectBytes(manual, *object);
  return CHM_ENUMERATOR_CONTINUE;
}

std::size_t Number(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) | static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + 1]))
                                                     << 8;
}

}  // namespace

CompiledManual ReadCompiled(const fs::path& file) {
  CompiledManual read;
  chmFile* const manual = chm_open(file.c_str());
  if (manual == nullptr) return read;
  chm_enumerate(manual, CHM_ENUMERATE_ALL, &TakeObject, &read.files);
  chmUnitInfo object{};
  if (chm_resolve_object(manual, "/#SYSTEM", &object) == CHM_RESOLVE_SUCCESS) {
    const std::string bytes = ObjectBytes(manual, object);
    // After a version of four bytes: number, length and value of each entry.
    for (std::size_t at = 4; at + 4 <= bytes.size();) {
      const std::size_t length = Number(bytes, at + 2);
      const auto number = static_cast<int>(Number(bytes, at));
      // The compiler fills the object up with zeros.
      if (length != 0) read.system.emplace(number, bytes.substr(at + 4, length));
      at += 4 + length;
    }
  }
  chm_close(manual);
  return read;
}

}  // namespace pnl::test
