// SPDX-License-Identifier: MIT
#include "base/panel_path.h"

#include <algorithm>

namespace pnl {

std::optional<PanelPath> ParsePanelPath(TextView path) {
  if (path.size() < 2 || path[1] != u':' || path.find(u'\0') != TextView::npos) return std::nullopt;
  const char16_t letter = ToUpper(path[0]);
  if (letter < u'A' || letter > u'Z') return std::nullopt;
  PanelPath result;
  result.drive = static_cast<char>(letter);
  TextView rest = path.substr(2);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(u"\\/"), rest.size());
    const TextView name = rest.substr(0, end);
    if (name == u"..") {
      if (!result.names.empty()) result.names.pop_back();
    } else if (!name.empty() && name != u".") {
      result.names.emplace_back(name);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return result;
}

Text JoinPath(TextView folder, TextView name) {
  Text path(folder);
  if (!path.empty() && path.back() != u'\\' && path.back() != u'/') path += u'\\';
  return path += name;
}

TextView FileNameOf(TextView path) {
  const std::size_t last = path.find_last_of(u"\\/");
  if (last != TextView::npos) return path.substr(last + 1);
  return path.size() > 1 && path[1] == u':' ? path.substr(2) : path;
}

TextView FileTitleOf(TextView path) {
  const TextView name = FileNameOf(path);
  return name.substr(0, name.rfind(u'.'));
}

}  // namespace pnl
