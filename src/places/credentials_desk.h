// SPDX-License-Identifier: MIT
// Brings questions for credentials from the threads that wait for them to the host's function on the window's thread,
// and the answers back. Shows nothing itself and keeps no answer. Ask is called by any thread but the window's, all
// else on the window's.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>

#include "places/credentials.h"

namespace pnl {

class CredentialsDesk final : public CredentialsAsker {
 public:
  /// The host's function. The server's name is valid during the call only.
  using AskHost = void (*)(void* context, std::uint32_t request, const char16_t* server, int again);
  /// Runs a step on the window's thread later. Called on any thread, never after Close.
  using RunLater = std::function<void(std::function<void()>)>;

  explicit CredentialsDesk(RunLater runLater) : runLater_(std::move(runLater)) {}

  /// Sets whom to ask; null for nobody. Questions that wait for the host of before are refused.
  void SetHost(AskHost ask, void* context);
  /// Answers a question; null refuses it. Does nothing for a question that isn't open.
  void Answer(std::uint32_t request, SharedCredentials answer);
  /// Refuses all questions, the open ones and any that come.
  void Close();
  /// True while the host has a question that isn't answered.
  [[nodiscard]] bool IsAsking() const;

  [[nodiscard]] SharedCredentials Ask(TextView server, bool again) override;

 private:
  struct Question {
    Text server;
    bool again = false;
    bool handedOver = false;
    bool answered = false;
    SharedCredentials answer;
  };
  void HandOver(std::uint32_t request);
  void RefuseAll();

  const RunLater runLater_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::uint32_t, Question> questions_;  // those that somebody waits for
  std::uint32_t last_ = 0;
  AskHost ask_ = nullptr;
  void* context_ = nullptr;
  bool closed_ = false;
};

}  // namespace pnl
