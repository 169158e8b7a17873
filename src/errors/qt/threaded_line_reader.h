// SPDX-License-Identifier: MIT
// Reads the failing line in a thread of its own. The panel waits a moment for it and then goes on, even if the thread
// hangs on a dead share for a long time. The thread knows files, place and captions, and no window.
#pragma once

#include <QtCore/QObject>
#include <atomic>
#include <memory>

#include "errors/error_reader.h"

namespace pnl {

class ThreadedLineReader final : public QObject, public ErrorLineReader {
  Q_OBJECT

 public:
  /// How long Read waits before it returns without the lines.
  static constexpr int kPatienceMilliseconds = 60;

  explicit ThreadedLineReader(Files& files) : files_(files) {}
  ~ThreadedLineReader() override { ThreadedLineReader::Drop(); }

  std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                   std::function<void(const ProgramLines&)> later) override;
  void Drop() override;

 private:
  struct Job;
  Files& files_;
  std::shared_ptr<Job> job_;
};

}  // namespace pnl
