// SPDX-License-Identifier: MIT
// Reads any bytes as a network file. Whatever they are, each value makes sense, everything that is named is there, and
// a file with these values reads the same.
#include "places/network_file.h"

#include <algorithm>

#include "fuzz_check.h"
#include "places/network_path.h"

namespace {

using pnl::NetworkServer;
using pnl::NetworkSetup;
using pnl::Text;
using pnl::TextView;
using pnl::ToUtf8;

template <typename Entry>
bool Has(const std::vector<Entry>& entries, TextView name) {
  return std::any_of(entries.begin(), entries.end(),
                     [&](const Entry& each) { return pnl::EqualNoCase(each.name, name); });
}

std::string Key(const char* key, TextView value) { return std::string(key) + '=' + ToUtf8(value) + '\n'; }

/// The file with these values, in the order in which a reader makes them.
std::string Written(const NetworkSetup& setup) {
  std::string file;
  for (const auto& each : setup.providers)
    file += "[PROVIDER " + ToUtf8(each.name) + "]\n" + Key("Comment", each.comment);
  for (const auto& each : setup.domains) {
    file += "[DOMAIN " + ToUtf8(each.name) + "]\n" + Key("Comment", each.comment) + Key("Provider", each.provider);
  }
  for (const auto& each : setup.servers) {
    file += "[SERVER " + ToUtf8(each.name) + "]\n" + Key("Comment", each.comment) + Key("Domain", each.domain) +
            Key("Provider", each.provider) + "Address=" + each.host +
            (each.port != 0 ? ":" + std::to_string(each.port) : "") + "\nShares=";
    for (const Text& share : each.shares) file += ToUtf8(share) + ',';
    file += '\n';
  }
  return file;
}

void CheckServer(const NetworkSetup& setup, const NetworkServer& server) {
  FUZZ_CHECK(pnl::IsHostName(server.host));
  FUZZ_CHECK(Has(setup.providers, server.provider));
  FUZZ_CHECK(server.domain.empty() || Has(setup.domains, server.domain));
  const auto path = pnl::ParseNetworkPath(pnl::ServerPath(server.name));
  FUZZ_CHECK(path && path->server == server.name && path->share.empty());
  for (const Text& share : server.shares) {
    const auto shared = pnl::ParseNetworkPath(pnl::SharePath(server.name, share));
    FUZZ_CHECK(shared && shared->share == share && shared->names.empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const NetworkSetup setup = pnl::ParseNetworkFile({reinterpret_cast<const char*>(data), size});
  for (const auto& domain : setup.domains) FUZZ_CHECK(Has(setup.providers, domain.provider));
  for (const auto& server : setup.servers) CheckServer(setup, server);
  const std::string written = Written(setup);
  FUZZ_CHECK(Written(pnl::ParseNetworkFile(written)) == written);
  return 0;
}
