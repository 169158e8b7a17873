// SPDX-License-Identifier: MIT
#include "places/network_file.h"

#include <algorithm>
#include <utility>

#include "base/ini_file.h"
#include "base/numbers.h"

namespace pnl {
namespace {

constexpr std::uint64_t kMostBytes = 1u << 20;
constexpr std::size_t kMostHostName = 253;
constexpr std::int32_t kMostPort = 65535;

/// True for a name that can be a part of a network path.
bool IsName(TextView name) {
  return !name.empty() && name != u"." && name != u".." && name.find_first_of(TextView(u"\\/\0", 3)) == TextView::npos;
}

template <typename Entry>
bool Has(const std::vector<Entry>& entries, TextView name) {
  return std::any_of(entries.begin(), entries.end(), [&](const Entry& each) { return EqualNoCase(each.name, name); });
}

/// A section's word and the name after it, as in "[SERVER OFFICE]".
std::pair<TextView, TextView> SplitSection(TextView section) {
  const std::size_t blank = std::min(section.find_first_of(u" \t"), section.size());
  return {section.substr(0, blank), Trim(section.substr(blank))};
}

struct Address {
  std::string host;
  std::uint16_t port = 0;
};

/// "host" or "host:port". Returns nothing for anything else.
std::optional<Address> ParseAddress(TextView text) {
  const std::size_t colon = text.find(u':');
  Address address{ToUtf8(text.substr(0, colon)), 0};
  if (!IsHostName(address.host)) return std::nullopt;
  if (colon == TextView::npos) return address;
  const TextView digits = text.substr(colon + 1);
  const bool onlyDigits = digits.find_first_not_of(u"0123456789") == TextView::npos;
  const auto port = ParseInt(digits);
  if (!onlyDigits || !port || *port < 1 || *port > kMostPort) return std::nullopt;
  address.port = static_cast<std::uint16_t>(*port);
  return address;
}

std::vector<Text> ParseShares(TextView list) {
  std::vector<Text> shares;
  for (std::size_t at = 0; at <= list.size();) {
    const std::size_t comma = std::min(list.find(u',', at), list.size());
    const TextView name = Trim(list.substr(at, comma - at));
    if (IsName(name)) shares.emplace_back(name);
    at = comma + 1;
  }
  return shares;
}

/// Reads the sections one after the other.
class Reading {
 public:
  explicit Reading(std::string_view bytes) { ini_.Parse(bytes); }

  [[nodiscard]] NetworkSetup Whole() {
    for (const Text& section : ini_.GetSectionNames()) {
      auto [word, name] = SplitSection(section);
      if (EqualNoCase(word, u"SERVER") && name.substr(0, 2) == u"\\\\") name.remove_prefix(2);
      if (!IsName(name)) continue;
      if (EqualNoCase(word, u"PROVIDER")) AddProvider(section, name);
      if (EqualNoCase(word, u"DOMAIN")) AddDomain(section, name);
      if (EqualNoCase(word, u"SERVER")) AddServer(section, name);
    }
    Complete();
    return std::move(setup_);
  }

 private:
  [[nodiscard]] Text Value(TextView section, TextView key) { return ini_.ReadString(section, key, u""); }
  /// A value that must be a name; empty when it is none.
  [[nodiscard]] Text Name(TextView section, TextView key) {
    Text value = Value(section, key);
    // No section could have a name with that bracket.
    return IsName(value) && value.find(u']') == Text::npos ? value : Text();
  }
  void AddProvider(TextView section, TextView name) {
    if (!Has(setup_.providers, name)) setup_.providers.push_back({Text(name), Value(section, u"Comment")});
  }
  void AddDomain(TextView section, TextView name) {
    if (Has(setup_.domains, name)) return;
    setup_.domains.push_back({Text(name), Name(section, u"Provider"), Value(section, u"Comment")});
  }
  void AddServer(TextView section, TextView name) {
    NetworkServer server;
    const Text given = Value(section, u"Address");
    auto address = ParseAddress(given);
    if (!address) address = ParseAddress(name);
    // There would be no way to it.
    if (!address || Has(setup_.servers, name)) return;
    server.name = name;
    server.provider = Name(section, u"Provider");
    server.domain = Name(section, u"Domain");
    server.comment = Value(section, u"Comment");
    server.host = std::move(address->host);
    server.port = address->port;
    server.shares = ParseShares(Value(section, u"Shares"));
    setup_.servers.push_back(std::move(server));
  }
  /// Adds what is named and has no section, and gives each domain and server the provider under which it is shown.
  void Complete() {
    for (const NetworkServer& server : setup_.servers) {
      if (!server.domain.empty() && !Has(setup_.domains, server.domain)) {
        setup_.domains.push_back({server.domain, server.provider, {}});
      }
    }
    for (NetworkDomain& domain : setup_.domains) TakeProvider(domain.provider);
    for (NetworkServer& server : setup_.servers) {
      if (!server.domain.empty()) {
        server.provider = std::find_if(setup_.domains.begin(), setup_.domains.end(), [&](const NetworkDomain& each) {
                            return EqualNoCase(each.name, server.domain);
                          })->provider;
      }
      TakeProvider(server.provider);
    }
  }
  void TakeProvider(Text& provider) {
    if (provider.empty()) provider = kUsualProvider;
    if (!Has(setup_.providers, provider)) setup_.providers.push_back({provider, {}});
  }

  const DriveMap none_;
  DiscFiles files_{none_};
  CIniFile ini_{files_};
  NetworkSetup setup_;
};

}  // namespace

bool IsHostName(std::string_view text) {
  return !text.empty() && text.size() <= kMostHostName && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '-' ||
           c == '_';
  });
}

NetworkSetup ParseNetworkFile(std::string_view bytes) { return Reading(bytes).Whole(); }

std::optional<NetworkSetup> ReadNetworkFile(const char* hostPath) {
  if (hostPath == nullptr) return std::nullopt;
  const auto bytes = ReadHostFile(hostPath, kMostBytes);
  if (!bytes) return std::nullopt;
  return ParseNetworkFile(*bytes);
}

}  // namespace pnl
