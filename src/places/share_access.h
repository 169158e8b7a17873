// SPDX-License-Identifier: MIT
// What all readers of the real network share: the network file, the thread of the client, and for each server the
// credentials with which it let the operator in. They are kept until this object is destroyed, in memory only. May be
// used on any thread but the window's: every question may take as long as the thread's limit allows.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "places/credentials.h"
#include "places/network_file.h"
#include "places/network_path.h"
#include "places/share_thread.h"
#include "window/window.h"

namespace pnl {

/// The answer for whatever would need a client when there is none. Connect refuses it without asking anybody.
inline constexpr int kNoClientError = place_error::kNotAuthenticated;
/// The operator didn't want to connect.
inline constexpr int kCancelledError = 1223;

class ShareAccess {
 public:
  static constexpr int kMostQuestions = 3;

  ShareAccess(NetworkSetup setup, ShareThread::MakeClient makeClient, std::chrono::milliseconds limit,
              std::shared_ptr<CredentialsAsker> asker);

  [[nodiscard]] const NetworkSetup& Setup() const { return setup_; }
  /// What the file says about a server; null for one that it doesn't have.
  [[nodiscard]] const NetworkServer* ServerOf(TextView name) const;
  /// Where a path leads, with the server's credentials. Nothing when it is no network path or its server can't have
  /// that name.
  [[nodiscard]] std::optional<SharePlace> PlaceOf(TextView path) const;
  /// Asks the client. An answer that doesn't come has the error kRemoteNotListening, or kNoClientError.
  template <typename Question>
  [[nodiscard]] auto Ask(SharePlace place, Question question) {
    using Answer = std::invoke_result_t<Question, ShareClient&, const SharePlace&>;
    const auto answer = std::make_shared<Answer>();
    const auto result = thread_.Run(
        [answer, question, place = std::move(place)](ShareClient& client) { *answer = question(client, place); });
    if (result == ShareThread::Result::kDone) return std::move(*answer);
    Answer none;
    none.error = result == ShareThread::Result::kOverrun ? place_error::kRemoteNotListening : kNoClientError;
    return none;
  }
  /// The shares of a server: those of the file, else those that the server lists.
  [[nodiscard]] ShareNames SharesOf(const SharePlace& server, TextView name);

  /// See NetworkReader. Asks for credentials only when nobody's will do, at most kMostQuestions times, and never two
  /// questions at a time. What a server accepts is kept for it.
  [[nodiscard]] int Connect(TextView path);
  /// "\\server\share" of each share that has been connected, in that order.
  [[nodiscard]] std::vector<Text> Connected() const;

 private:
  /// Whether the server lets these credentials in: kNone, or why not.
  [[nodiscard]] int Try(SharePlace place, TextView server);
  [[nodiscard]] int AskAndTry(const SharePlace& place, TextView server);
  void Keep(TextView server, SharedCredentials logon);
  void NoteConnected(const Text& share);

  const NetworkSetup setup_;
  const std::shared_ptr<CredentialsAsker> asker_;
  std::mutex asking_;                         // held while the operator is asked
  mutable std::mutex mutex_;                  // guards the two below
  std::map<Text, SharedCredentials> logons_;  // by server, in capitals
  std::vector<Text> connected_;
  ShareThread thread_;
};

}  // namespace pnl
