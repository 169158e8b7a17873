// SPDX-License-Identifier: MIT
// A client of shares in memory: what it has, whom it lets in, and what it was asked. A call can be made to hang until
// it is released. The client itself is made by Maker and refers to what is here.
#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "places/share_network.h"
#include "places/share_url.h"

namespace pnl::test {

/// Used by the client's thread, and by the test while no call is under way.
class FakeServers {
 public:
  std::map<std::string, std::vector<ShareNames::Share>> shares;  // by the server's address
  std::map<std::string, std::vector<PlaceEntry>> folders;        // by their address
  std::set<std::string> files;                                   // by their address
  std::set<std::string> readOnly;
  std::map<std::string, int> errors;      // what a place, with all below it, answers
  std::map<std::string, Text> passwords;  // servers that let only those in who have it, by the start of the address
  std::vector<std::string> asked;         // "list smb://…", with " as user" when somebody has logged on
  std::set<std::thread::id> threads;      // on which the client was made, asked and destroyed
  int clients = 0;                        // that are there

  /// Lets the calls that follow hang until Release.
  void Hold() {
    const std::lock_guard lock(mutex_);
    held_ = true;
  }
  void Release() {
    const std::lock_guard lock(mutex_);
    held_ = false;
    changed_.notify_all();
  }
  /// Waits until so many calls hang. Returns false when they don't come.
  [[nodiscard]] bool AwaitHanging(int calls) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(60), [&] { return hanging_ >= calls; });
  }
  void HangWhileHeld() {
    std::unique_lock lock(mutex_);
    ++hanging_;
    changed_.notify_all();
    changed_.wait(lock, [&] { return !held_; });
    --hanging_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool held_ = false;
  int hanging_ = 0;
};

class FakeShareClient final : public ShareClient {
 public:
  explicit FakeShareClient(std::shared_ptr<FakeServers> servers) : servers_(std::move(servers)) {
    servers_->threads.insert(std::this_thread::get_id());
    ++servers_->clients;
  }
  ~FakeShareClient() override {
    servers_->threads.insert(std::this_thread::get_id());
    --servers_->clients;
  }

  ShareNames ListShares(const SharePlace& server) override {
    if (const int error = Enter("shares ", server); error != place_error::kNone) return {error, {}};
    const auto found = servers_->shares.find(Address(server));
    if (found == servers_->shares.end()) return {place_error::kRemoteNotListening, {}};
    return {place_error::kNone, found->second};
  }
  ShareListing List(const SharePlace& folder) override {
    if (const int error = Enter("list ", folder); error != place_error::kNone) return {error, {}};
    if (servers_->files.count(Address(folder)) != 0) return {place_error::kNoFolder, {}};
    const auto found = servers_->folders.find(Address(folder));
    if (found == servers_->folders.end()) return {place_error::kPathNotFound, {}};
    return {place_error::kNone, found->second};
  }
  ShareFacts Look(const SharePlace& place) override {
    if (const int error = Enter("look ", place); error != place_error::kNone) return {error};
    const bool folder = servers_->folders.count(Address(place)) != 0;
    if (!folder && servers_->files.count(Address(place)) == 0) return {place_error::kPathNotFound};
    return {place_error::kNone, folder, servers_->readOnly.count(Address(place)) != 0};
  }
  int MakeFolder(const SharePlace& folder) override {
    if (const int error = Enter("make ", folder); error != place_error::kNone) return error;
    return servers_->folders.try_emplace(Address(folder)).second ? place_error::kNone : place_error::kAlreadyExists;
  }
  ShareStart ReadStart(const SharePlace& file, std::size_t most) override {
    if (const int error = Enter("read ", file); error != place_error::kNone) return {error, {}};
    if (servers_->files.count(Address(file)) == 0) return {place_error::kPathNotFound, {}};
    return {place_error::kNone, Address(file).substr(0, most)};
  }

 private:
  static std::string Address(const SharePlace& place) {
    std::string url = ShareUrl(place);
    while (url.back() == '/') url.pop_back();
    return url;
  }
  [[nodiscard]] int Enter(const std::string& what, const SharePlace& place) {
    const std::string address = Address(place);
    servers_->threads.insert(std::this_thread::get_id());
    servers_->asked.push_back(what + address + (place.logon ? " as " + ToUtf8(place.logon->user) : ""));
    servers_->HangWhileHeld();
    for (const auto& [start, error] : servers_->errors) {
      if (address.starts_with(start)) return error;
    }
    for (const auto& [start, password] : servers_->passwords) {
      if (!address.starts_with(start)) continue;
      if (place.logon == nullptr) return place_error::kLogonFailed;
      if (place.logon->password != password) return place_error::kAccessDenied;
    }
    return place_error::kNone;
  }

  std::shared_ptr<FakeServers> servers_;
};

/// Makes clients for those servers.
[[nodiscard]] inline ShareThread::MakeClient ClientOf(std::shared_ptr<FakeServers> servers) {
  return [servers = std::move(servers)] { return std::make_unique<FakeShareClient>(servers); };
}

}  // namespace pnl::test
