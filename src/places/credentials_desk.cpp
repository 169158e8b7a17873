// SPDX-License-Identifier: MIT
#include "places/credentials_desk.h"

#include <algorithm>
#include <utility>

namespace pnl {

void CredentialsDesk::SetHost(AskHost ask, void* context) {
  const std::lock_guard lock(mutex_);
  ask_ = ask;
  context_ = context;
  RefuseAll();
}

void CredentialsDesk::Answer(std::uint32_t request, SharedCredentials answer) {
  const std::lock_guard lock(mutex_);
  const auto found = questions_.find(request);
  if (found == questions_.end() || !found->second.handedOver || found->second.answered) return;
  found->second.answered = true;
  found->second.answer = std::move(answer);
  changed_.notify_all();
}

void CredentialsDesk::Close() {
  const std::lock_guard lock(mutex_);
  closed_ = true;
  RefuseAll();
}

bool CredentialsDesk::IsAsking() const {
  const std::lock_guard lock(mutex_);
  return std::any_of(questions_.begin(), questions_.end(),
                     [](const auto& each) { return each.second.handedOver && !each.second.answered; });
}

void CredentialsDesk::RefuseAll() {
  for (auto& [request, question] : questions_) question.answered = true;
  changed_.notify_all();
}

SharedCredentials CredentialsDesk::Ask(TextView server, bool again) {
  std::unique_lock lock(mutex_);
  if (closed_ || ask_ == nullptr) return nullptr;
  const std::uint32_t request = ++last_;
  Question& question = questions_[request];
  question.server = server;
  question.again = again;
  // The waiting thread keeps this object, and no step runs after Close.
  runLater_([this, request] { HandOver(request); });
  changed_.wait(lock, [&] { return question.answered; });
  SharedCredentials answer = std::move(question.answer);
  questions_.erase(request);
  return answer;
}

void CredentialsDesk::HandOver(std::uint32_t request) {
  std::unique_lock lock(mutex_);
  const auto found = questions_.find(request);
  if (found == questions_.end() || found->second.answered) return;
  found->second.handedOver = true;
  const Text server = found->second.server;
  const bool again = found->second.again;
  const AskHost ask = ask_;
  void* const context = context_;
  // The host may answer at once.
  lock.unlock();
  ask(context, request, server.c_str(), again ? 1 : 0);
}

}  // namespace pnl
