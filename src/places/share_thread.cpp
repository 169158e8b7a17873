// SPDX-License-Identifier: MIT
#include "places/share_thread.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace pnl {
namespace {

using Clock = std::chrono::steady_clock;

struct Call {
  std::function<void(ShareClient&)> work;
  bool ended = false;
  bool answered = false;
};

}  // namespace

struct ShareThread::State {
  State(MakeClient maker, std::chrono::milliseconds most) : make(std::move(maker)), limit(most) {}

  /// The life of the thread.
  void RunCalls();
  /// Runs a call. The lock is released meanwhile.
  void RunOne(std::unique_lock<std::mutex>& lock, const std::shared_ptr<Call>& call);
  /// Frees the client on its thread; it may have to say goodbye to servers.
  void End(std::unique_lock<std::mutex>& lock);
  /// Waits until something changes. Returns false when the thread has overrun the limit.
  [[nodiscard]] bool Wait(std::unique_lock<std::mutex>& lock);
  [[nodiscard]] bool Hangs() const { return busy && Clock::now() >= deadline; }
  void MarkBusy() {
    busy = true;
    deadline = Clock::now() + limit;
    // Those who wait now know until when.
    changed.notify_all();
  }
  void MarkIdle() {
    busy = false;
    changed.notify_all();
  }

  const MakeClient make;
  const std::chrono::milliseconds limit;
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::shared_ptr<Call>> waiting;
  std::unique_ptr<ShareClient> client;  // used on its thread only
  bool made = false;
  bool started = false;
  bool ended = false;
  bool closed = false;
  bool busy = false;
  Clock::time_point deadline;  // of what the thread is busy with
};

void ShareThread::State::RunCalls() {
  std::unique_lock lock(mutex);
  while (!closed) {
    if (waiting.empty()) {
      changed.wait(lock);
      continue;
    }
    const auto call = waiting.front();
    waiting.pop_front();
    MarkBusy();
    RunOne(lock, call);
    MarkIdle();
  }
  End(lock);
}

void ShareThread::State::RunOne(std::unique_lock<std::mutex>& lock, const std::shared_ptr<Call>& call) {
  lock.unlock();
  bool answered = false;
  try {
    if (!std::exchange(made, true)) client = make();
    if (client) call->work(*client);
    answered = client != nullptr;
  } catch (...) {
    // Most likely for lack of memory: an answer fails, the thread goes on.
  }
  // What the work contains is given back on this thread, before anybody goes on.
  call->work = nullptr;
  lock.lock();
  call->answered = answered;
  call->ended = true;
}

void ShareThread::State::End(std::unique_lock<std::mutex>& lock) {
  MarkBusy();
  lock.unlock();
  client.reset();
  lock.lock();
  ended = true;
  MarkIdle();
}

bool ShareThread::State::Wait(std::unique_lock<std::mutex>& lock) {
  if (!busy) {
    changed.wait(lock);
    return true;
  }
  changed.wait_until(lock, deadline);
  return !Hangs();
}

ShareThread::ShareThread(MakeClient make, std::chrono::milliseconds limit)
    : state_(std::make_shared<State>(std::move(make), limit)) {}

ShareThread::~ShareThread() {
  std::unique_lock lock(state_->mutex);
  state_->closed = true;
  state_->waiting.clear();
  state_->changed.notify_all();
  if (!state_->started) return;
  while (!state_->ended && state_->Wait(lock)) {
  }
}

ShareThread::Result ShareThread::Run(std::function<void(ShareClient&)> work) {
  // A copy: this object may be destroyed while a caller waits.
  const auto state = state_;
  const auto call = std::make_shared<Call>(Call{std::move(work)});
  std::unique_lock lock(state->mutex);
  if (state->closed) return Result::kNoClient;
  if (state->Hangs()) return Result::kOverrun;
  if (!state->started) {
    try {
      std::thread([state] { state->RunCalls(); }).detach();
      state->started = true;
    } catch (const std::system_error&) {
      return Result::kNoClient;
    }
  }
  state->waiting.push_back(call);
  state->changed.notify_all();
  while (!call->ended) {
    if (state->closed) return Result::kNoClient;
    if (state->Wait(lock)) continue;
    if (call->ended) break;
    std::erase(state->waiting, call);
    return Result::kOverrun;
  }
  return call->answered ? Result::kDone : Result::kNoClient;
}

}  // namespace pnl
