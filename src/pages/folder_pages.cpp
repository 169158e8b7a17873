// SPDX-License-Identifier: MIT
#include "pages/folder_pages.h"

#include <algorithm>

namespace pnl {

PageBytes FolderPages::Load(TextView page) {
  Text names(page);
  std::replace(names.begin(), names.end(), u'/', u'\\');
  const Text path = JoinPath(folder_, names);
  const FileInfo info = files_.Query(path);
  if (info.outOfReach) return {PageRefusal::kUnreadable, {}};
  if (!info.exists || info.folder) return {PageRefusal::kNotFound, {}};
  if (info.size > kMostBytes) return {PageRefusal::kTooLarge, {}};
  auto bytes = ReadWhole(files_, path, kMostBytes);
  if (!bytes) return {PageRefusal::kUnreadable, {}};
  return {PageRefusal::kNone, std::move(*bytes)};
}

}  // namespace pnl
