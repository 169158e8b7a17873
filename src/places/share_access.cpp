// SPDX-License-Identifier: MIT
#include "places/share_access.h"

#include <algorithm>

namespace pnl {

ShareAccess::ShareAccess(NetworkSetup setup, ShareThread::MakeClient makeClient, std::chrono::milliseconds limit,
                         std::shared_ptr<CredentialsAsker> asker)
    : setup_(std::move(setup)), asker_(std::move(asker)), thread_(std::move(makeClient), limit) {}

const NetworkServer* ShareAccess::ServerOf(TextView name) const {
  const auto found = std::find_if(setup_.servers.begin(), setup_.servers.end(),
                                  [&](const NetworkServer& each) { return EqualNoCase(each.name, name); });
  return found != setup_.servers.end() ? &*found : nullptr;
}

std::optional<SharePlace> ShareAccess::PlaceOf(TextView path) const {
  auto parsed = ParseNetworkPath(path);
  if (!parsed) return std::nullopt;
  SharePlace place;
  if (const NetworkServer* server = ServerOf(parsed->server); server != nullptr) {
    place.host = server->host;
    place.port = server->port;
  } else {
    place.host = ToUtf8(parsed->server);
    if (!IsHostName(place.host)) return std::nullopt;
  }
  place.share = std::move(parsed->share);
  place.names = std::move(parsed->names);
  const std::lock_guard lock(mutex_);
  const auto logon = logons_.find(ToUpper(parsed->server));
  if (logon != logons_.end()) place.logon = logon->second;
  return place;
}

ShareNames ShareAccess::SharesOf(const SharePlace& server, TextView name) {
  const NetworkServer* known = ServerOf(name);
  if (known == nullptr || known->shares.empty()) {
    return Ask(server, [](ShareClient& client, const SharePlace& place) { return client.ListShares(place); });
  }
  ShareNames names;
  names.error = place_error::kNone;
  for (const Text& share : known->shares) names.shares.push_back({share, {}});
  return names;
}

int ShareAccess::Connect(TextView path) {
  const auto parsed = ParseNetworkPath(path);
  if (!parsed) return place_error::kPathNotFound;
  // Whoever comes while the operator is asked finds what he has said.
  const std::lock_guard asking(asking_);
  auto place = PlaceOf(path);
  if (!place) return place_error::kPathNotFound;
  // Whether the folder exists isn't what a connection is about.
  place->names.clear();
  int error = Try(*place, parsed->server);
  if (error == kNoClientError) return place_error::kNotConnected;
  if (error == place_error::kLogonFailed) error = AskAndTry(*place, parsed->server);
  if (error == place_error::kNone && !parsed->share.empty()) NoteConnected(SharePath(parsed->server, parsed->share));
  return error;
}

int ShareAccess::Try(SharePlace place, TextView server) {
  if (place.share.empty()) return SharesOf(place, server).error;
  return Ask(std::move(place), [](ShareClient& client, const SharePlace& asked) { return client.Look(asked); }).error;
}

int ShareAccess::AskAndTry(const SharePlace& place, TextView server) {
  for (int question = 0; question < kMostQuestions && asker_ != nullptr; ++question) {
    SharePlace tried = place;
    tried.logon = asker_->Ask(server, question > 0);
    if (tried.logon == nullptr) return kCancelledError;
    const int error = Try(tried, server);
    if (error == place_error::kNone) Keep(server, tried.logon);
    const bool refused = error == place_error::kAccessDenied || error == place_error::kLogonFailed;
    if (!refused) return error;
  }
  return place_error::kLogonFailed;
}

void ShareAccess::Keep(TextView server, SharedCredentials logon) {
  const std::lock_guard lock(mutex_);
  logons_[ToUpper(server)] = std::move(logon);
}

void ShareAccess::NoteConnected(const Text& share) {
  const std::lock_guard lock(mutex_);
  const bool known =
      std::any_of(connected_.begin(), connected_.end(), [&](const Text& each) { return EqualNoCase(each, share); });
  if (!known) connected_.push_back(share);
}

std::vector<Text> ShareAccess::Connected() const {
  const std::lock_guard lock(mutex_);
  return connected_;
}

}  // namespace pnl
