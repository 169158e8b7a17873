// SPDX-License-Identifier: MIT
#include "places/network_path.h"

#include <algorithm>
#include <utility>

#include "base/panel_path.h"

namespace pnl {

std::optional<NetworkPath> ParseNetworkPath(TextView path) {
  if (path.substr(0, 2) != u"\\\\" || path.find(u'\0') != TextView::npos) return std::nullopt;
  while (path.size() > 2 && path.back() == u'\\') path.remove_suffix(1);
  const std::size_t server = std::min(path.find(u'\\', 2), path.size());
  if (server == 2) return std::nullopt;
  NetworkPath result;
  result.server = path.substr(2, server - 2);
  if (server == path.size()) return result;
  const std::size_t share = std::min(path.find(u'\\', server + 1), path.size());
  result.share = path.substr(server + 1, share - server - 1);
  if (result.share.empty() || result.share == u"." || result.share == u"..") return std::nullopt;
  auto below = ParsePanelPath(u"S:" + Text(path.substr(share)));
  if (!below) return std::nullopt;
  result.names = std::move(below->names);
  return result;
}

Text ServerPath(TextView server) { return Text(u"\\\\").append(server); }

Text SharePath(TextView server, TextView share) { return ServerPath(server).append(u"\\").append(share); }

}  // namespace pnl
