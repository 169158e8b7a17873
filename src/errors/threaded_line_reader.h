// SPDX-License-Identifier: MIT
// Reads the failing line beside the window's thread. The panel waits a moment for it and then goes on, even if the
// reading hangs on a dead share for a long time. The reading knows files, place and captions, and no window.
#pragma once

#include <memory>

#include "errors/error_reader.h"
#include "window/worker.h"

namespace pnl {

class ThreadedLineReader final : public ErrorLineReader {
 public:
  /// How long Read waits before it returns without the lines.
  static constexpr int kPatienceMilliseconds = 60;

  ThreadedLineReader(Files& files, Worker& worker) : files_(files), worker_(worker) {}
  ~ThreadedLineReader() override { ThreadedLineReader::Drop(); }

  std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                   std::function<void(const ProgramLines&)> later) override;
  void Drop() override;

 private:
  struct Reading;
  Files& files_;
  Worker& worker_;
  JobId job_ = 0;
  std::shared_ptr<Reading> reading_;
};

}  // namespace pnl
