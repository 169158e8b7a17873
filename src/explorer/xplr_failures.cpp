// SPDX-License-Identifier: MIT
#include "explorer/xplr_failures.h"

#include <algorithm>
#include <utility>

#include "explorer/xplr_outcomes.h"

namespace pnl {
namespace {

/// The server of a place; the place itself when it is one.
Text ServerOf(const Text& place) { return place.substr(0, place.find(u'\\', 2)); }

/// True for an answer that says nothing about the folder, only that nobody is there to ask.
bool IsUnanswered(int error) { return error == place_error::kRemoteNotListening || error == place_error::kNotReady; }

class CarefulReader final : public FolderReader {
 public:
  CarefulReader(std::shared_ptr<const FolderReader> reader, SharedFailures failures)
      : reader_(std::move(reader)), failures_(std::move(failures)) {}

  int List(TextView folder, const Take& take) const override {
    return Asked(folder, [&] { return reader_->List(folder, take); });
  }
  int Probe(TextView folder) const override {
    return Asked(folder, [&] { return reader_->Probe(folder); });
  }
  bool Exists(TextView path) const override { return IsUsable(path) && reader_->Exists(path); }
  bool IsReadOnly(TextView path) const override { return IsUsable(path) && reader_->IsReadOnly(path); }
  int MakeFolder(TextView path) const override {
    const int error = failures_->ErrorOf(path);
    return error != place_error::kNone ? error : reader_->MakeFolder(path);
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    return IsUsable(path) ? reader_->ReadStart(path, most) : std::nullopt;
  }

 private:
  template <typename Question>
  int Asked(TextView folder, const Question& question) const {
    const int noted = failures_->ErrorOf(folder);
    if (noted != place_error::kNone) return noted;
    const int error = question();
    failures_->Answered(folder, error);
    return error;
  }
  [[nodiscard]] bool IsUsable(TextView path) const { return failures_->ErrorOf(path) == place_error::kNone; }

  std::shared_ptr<const FolderReader> reader_;
  SharedFailures failures_;
};

/// Notes a server whose enumeration breaks off.
class CarefulEnumeration final : public NetworkEnumeration {
 public:
  CarefulEnumeration(std::unique_ptr<NetworkEnumeration> entries, Text server, SharedFailures failures)
      : entries_(std::move(entries)), server_(std::move(server)), failures_(std::move(failures)) {}
  int Next(std::vector<NetworkResource>& entries) override {
    const int status = entries_->Next(entries);
    if (status == network_status::kExtended) failures_->Note(server_, place_error::kRemoteNotListening);
    return status;
  }

 private:
  std::unique_ptr<NetworkEnumeration> entries_;
  Text server_;
  SharedFailures failures_;
};

class CarefulNetworkReader final : public NetworkReader {
 public:
  CarefulNetworkReader(std::shared_ptr<const NetworkReader> reader, SharedFailures failures)
      : reader_(std::move(reader)), failures_(std::move(failures)) {}

  std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                           const std::optional<NetworkResource>& below) const override {
    const Text server = below ? below->remote : Text();
    if (failures_->ErrorOf(server) != place_error::kNone) return nullptr;
    auto entries = reader_->Open(scope, below);
    if (entries != nullptr) return std::make_unique<CarefulEnumeration>(std::move(entries), server, failures_);
    failures_->Note(server, place_error::kRemoteNotListening);
    return nullptr;
  }
  int Connect(TextView path, WindowHandle owner) const override {
    const int noted = failures_->ErrorOf(path);
    if (noted != place_error::kNone) return noted;
    const int error = reader_->Connect(path, owner);
    if (error != 0) failures_->Note(path, place_error::kLogonFailed);
    return error;
  }

 private:
  std::shared_ptr<const NetworkReader> reader_;
  SharedFailures failures_;
};

}  // namespace

Text NetworkPlaceOf(TextView path) {
  if (!path.starts_with(u"\\\\")) return {};
  while (path.size() > 2 && path.back() == u'\\') path.remove_suffix(1);
  if (path.size() == 2) return {};
  const std::size_t server = path.find(u'\\', 2);
  if (server == TextView::npos) return ToUpper(path);
  return ToUpper(path.substr(0, path.find(u'\\', server + 1)));
}

int XplrFailures::ErrorOf(TextView path) const {
  const Text place = NetworkPlaceOf(path);
  if (place.empty()) return place_error::kNone;
  const std::lock_guard<std::mutex> lock(mutex_);
  for (const Text& each : {place, ServerOf(place)}) {
    if (const auto found = errors_.find(each); found != errors_.end()) return found->second;
  }
  return place_error::kNone;
}

void XplrFailures::Answered(TextView folder, int error) {
  const Text place = NetworkPlaceOf(folder);
  // Credentials are asked for first; that fails or not in Connect.
  if (place.empty() || OutcomeOfError(error) == Outcome::kFolderUsable || WantsConnection(error)) return;
  while (folder.size() > 2 && folder.back() == u'\\') folder.remove_suffix(1);
  if (IsUnanswered(error) || folder.size() == place.size()) Note(place, error);
}

void XplrFailures::Note(TextView path, int error) {
  const Text place = NetworkPlaceOf(path);
  if (place.empty()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  errors_[place] = error;
  new_.insert(place);
}

bool XplrFailures::Forget(TextView path) {
  const Text place = NetworkPlaceOf(path);
  if (place.empty()) return false;
  const std::lock_guard<std::mutex> lock(mutex_);
  const Text server = ServerOf(place);
  return std::erase_if(errors_, [&](const auto& noted) {
           const Text& each = noted.first;
           return each == place || each == server || (place == server && each.starts_with(server + u'\\'));
         }) != 0;
}

std::set<Text> XplrFailures::TakeNew() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return std::exchange(new_, {});
}

std::shared_ptr<const FolderReader> CarefulPlaces::Reader() const {
  return std::make_shared<CarefulReader>(places_.Reader(), failures_);
}

std::shared_ptr<const NetworkReader> CarefulNetwork::Reader() const {
  return std::make_shared<CarefulNetworkReader>(network_.Reader(), failures_);
}

}  // namespace pnl
