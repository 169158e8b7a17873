// SPDX-License-Identifier: MIT
#include "end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace panel {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

/// The only data that the signal handler uses; -1 without a pipe.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler waits for no lock");

extern "C" void OnEndSignal(int /*number*/) {
  const int before = errno;
  const char byte = 0;
  // When the pipe is full, the event loop has been woken already.
  [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
  errno = before;
}

void Handle(int number, void (*handler)(int)) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;
  action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigaction(number, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> asked) : asked_(std::move(asked)) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = ends[0];
  writeEnd = ends[1];
  notifier_ = new QSocketNotifier(readEnd_, QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, &EndSignals::OnReadable);
  for (const int number : kSignals) Handle(number, &OnEndSignal);
}

EndSignals::~EndSignals() {
  if (readEnd_ < 0) return;
  for (const int number : kSignals) Handle(number, SIG_DFL);
  delete notifier_;
  close(writeEnd.exchange(-1));
  close(readEnd_);
}

void EndSignals::OnReadable() {
  std::array<char, 64> bytes{};
  while (read(readEnd_, bytes.data(), bytes.size()) > 0) {
  }
  asked_();
}

}  // namespace panel
