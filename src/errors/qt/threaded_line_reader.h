// SPDX-License-Identifier: MIT
// Reads the failing line in a thread of its own, which may hang on a dead share for as long as it likes: the panel
// waits a moment for it and then goes on. The thread knows files, path and captions, and nothing of any window.
#pragma once

#include <QtCore/QObject>
#include <atomic>
#include <memory>

#include "errors/error_reader.h"

namespace pnl {

class ThreadedLineReader final : public QObject, public ErrorLineReader {
  Q_OBJECT

 public:
  /// So long a Read waits before it answers without the lines.
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
