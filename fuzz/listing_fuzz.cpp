// SPDX-License-Identifier: MIT
// Makes files with any names, one a line, and lists their folder. A line that begins with '>' makes a folder, one that
// begins with '@' a link that leads nowhere. Each name that a panel path can contain must be listed once, as what it
// is, and open by the name that is shown.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <string_view>

#include "base/files.h"
#include "fuzz_check.h"
#include "places/disc_places.h"
#include "support/temp_folder.h"

namespace {

using pnl::PlaceEntry;
using pnl::Text;

constexpr std::size_t kMostNames = 200;

/// What was made: the kind of each name.
using Made = std::map<std::string, char>;

void Make(const std::string& folder, std::string name, Made& made) {
  char kind = '-';
  if (!name.empty() && (name[0] == '>' || name[0] == '@')) {
    kind = name[0];
    name.erase(0, 1);
  }
  if (name.empty() || name == "." || name == ".." || name.size() > 255 || made.count(name) != 0) return;
  const std::string path = folder + "/" + name;
  if (kind == '>') {
    FUZZ_CHECK(mkdir(path.c_str(), 0755) == 0);
  } else if (kind == '@') {
    FUZZ_CHECK(symlink("../nowhere", path.c_str()) == 0);
  } else {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    FUZZ_CHECK(file >= 0);
    close(file);
  }
  made[name] = kind;
}

Made MakeAll(const std::string& folder, std::string_view lines) {
  Made made;
  while (!lines.empty() && made.size() < kMostNames) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    std::string name(line);
    std::replace(name.begin(), name.end(), '/', '_');
    std::replace(name.begin(), name.end(), '\0', '_');
    Make(folder, std::move(name), made);
  }
  return made;
}

/// True when no other name reads the same without regard to case.
bool IsAlone(const Made& made, const Text& name) {
  return std::count_if(made.begin(), made.end(),
                       [&](const auto& each) { return pnl::EqualNoCase(pnl::FromUtf8(each.first), name); }) == 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const pnl::test::TempFolder temp;
  pnl::DriveMap drives;
  drives.Set('C', temp.Path().string());
  const std::string_view lines(reinterpret_cast<const char*>(data), size);
  const Made made = MakeAll(temp.Folder("sub"), lines);

  const auto reader = pnl::MakeDiscReader(drives, 0);
  std::vector<PlaceEntry> entries;
  const int error = reader->List(u"C:\\sub", [&](std::vector<PlaceEntry>&& more) {
    entries.insert(entries.end(), more.begin(), more.end());
    return true;
  });
  FUZZ_CHECK(error == pnl::place_error::kNone);
  FUZZ_CHECK(entries.size() > 1 && entries[0].dots && entries[1].dots);
  entries.erase(entries.begin(), entries.begin() + 2);
  const auto nameable = [](const auto& each) { return each.first.find('\\') == std::string::npos; };
  FUZZ_CHECK(static_cast<std::ptrdiff_t>(entries.size()) == std::count_if(made.begin(), made.end(), nameable));

  for (const PlaceEntry& entry : entries) {
    FUZZ_CHECK(!entry.dots && entry.hidden == (entry.name[0] == u'.') && entry.size == 0);
    const auto exact = made.find(pnl::ToUtf8(entry.name));
    if (exact == made.end() && !IsAlone(made, entry.name)) continue;
    const Text path = pnl::JoinPath(u"C:\\sub", entry.name);
    FUZZ_CHECK((reader->Probe(path) == pnl::place_error::kNone) == entry.folder);
    if (exact != made.end()) FUZZ_CHECK(reader->Exists(path) == (exact->second != '@'));
  }
  static_cast<void>(reader->Probe(u"C:\\" + pnl::FromUtf8(lines)));
  return 0;
}
