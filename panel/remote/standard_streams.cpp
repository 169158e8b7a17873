// SPDX-License-Identifier: MIT
#include "remote/standard_streams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>

namespace panel {

namespace {

constexpr std::size_t kPiece = 65536;
/// A pipe that polls as writable takes this many bytes without blocking.
constexpr qsizetype kSafeWrite = PIPE_BUF;

bool CanWrite(int descriptor, int milliseconds) {
  pollfd poller{descriptor, POLLOUT, 0};
  int ready = 0;
  do {
    ready = poll(&poller, 1, milliseconds);
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

}  // namespace

void KeepStandardDescriptors() {
  int descriptor = open("/dev/null", O_RDWR);
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
  if (descriptor >= 0) close(descriptor);
}

StandardStreams::StandardStreams(QObject* parent) : QObject(parent), input_(STDIN_FILENO) {
  output_ = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  ownsOutput_ = output_ >= 0;
  if (!ownsOutput_) broken_ = true;
  // What a library prints must not mix with the replies.
  dup2(STDERR_FILENO, STDOUT_FILENO);
  std::signal(SIGPIPE, SIG_IGN);
}

StandardStreams::StandardStreams(int input, int output, QObject* parent)
    : QObject(parent), input_(input), output_(output) {
  std::signal(SIGPIPE, SIG_IGN);
}

StandardStreams::~StandardStreams() {
  readable_.reset();
  writable_.reset();
  if (ownsOutput_) close(output_);
}

void StandardStreams::Start(std::function<void(const QByteArray&)> received) {
  received_ = std::move(received);
  readable_ = std::make_unique<QSocketNotifier>(input_, QSocketNotifier::Read);
  connect(readable_.get(), &QSocketNotifier::activated, this, [this] { OnReadable(); });
}

void StandardStreams::Stop() {
  ended_ = true;
  if (readable_) readable_->setEnabled(false);
}

void StandardStreams::OnReadable() {
  if (ended_ || busy_) return;
  std::array<char, kPiece> piece;
  const ssize_t count = read(input_, piece.data(), piece.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (count <= 0) Stop();
  // While this piece is handled, an event loop inside must not read the next one.
  busy_ = true;
  readable_->setEnabled(false);
  received_(count > 0 ? QByteArray(piece.data(), count) : QByteArray());
  busy_ = false;
  Watch();
}

void StandardStreams::Write(const QByteArray& bytes) {
  if (broken_) return;
  waiting_.append(bytes);
  WriteSome();
  Watch();
}

void StandardStreams::WriteSome() {
  qsizetype written = 0;
  while (!broken_ && written < waiting_.size() && CanWrite(output_, 0)) {
    const qsizetype size = std::min(waiting_.size() - written, kSafeWrite);
    const ssize_t count = write(output_, waiting_.constData() + written, static_cast<std::size_t>(size));
    if (count > 0) {
      written += count;
    } else if (count < 0 && errno != EINTR && errno != EAGAIN) {
      broken_ = true;
    }
  }
  waiting_.remove(0, written);
  if (broken_) waiting_.clear();
}

void StandardStreams::Watch() {
  if (readable_ && !ended_ && !busy_) readable_->setEnabled(!Full());
  if (waiting_.isEmpty()) {
    writable_.reset();
  } else if (!writable_) {
    writable_ = std::make_unique<QSocketNotifier>(output_, QSocketNotifier::Write);
    connect(writable_.get(), &QSocketNotifier::activated, this, [this] { OnWritable(); });
  }
}

void StandardStreams::OnWritable() {
  const bool full = Full();
  WriteSome();
  Watch();
  if (full && !Full() && drained_) drained_();
}

void StandardStreams::Flush() {
  while (!broken_ && !waiting_.isEmpty()) {
    if (!CanWrite(output_, -1)) break;
    WriteSome();
  }
}

}  // namespace panel
