// SPDX-License-Identifier: MIT
#include "errors/threaded_line_reader.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace pnl {

/// What both threads share. The last of them to release it destroys it.
struct ThreadedLineReader::Reading {
  std::atomic<bool> cancelled = false;
  std::mutex mutex;
  std::condition_variable finished;
  bool done = false;
  ProgramLines lines;
  bool late = false;  // nobody has the lines yet; used on the window's thread only

  void Finish(ProgramLines read) {
    const std::lock_guard lock(mutex);
    lines = std::move(read);
    done = true;
    finished.notify_all();
  }
  [[nodiscard]] bool IsDoneWithin(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex);
    return finished.wait_for(lock, patience, [this] { return done; });
  }
};

std::optional<ProgramLines> ThreadedLineReader::Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                                     std::function<void(const ProgramLines&)> later) {
  Drop();
  const std::shared_ptr<Files> files = files_.ForAnotherThread();
  if (!files) return ReadProgramLines(place, captions, files_);
  const auto reading = std::make_shared<Reading>();
  const JobId job = worker_.Start([reading, files, place, captions, later = std::move(later)](Job& work) {
    reading->Finish(ReadProgramLines(place, captions, *files, &reading->cancelled));
    work.Post([reading, later] {
      if (reading->late) later(reading->lines);
    });
  });
  // Without a thread the lines are empty, and nobody waits for them.
  if (job == 0) return ProgramLines{};
  if (reading->IsDoneWithin(std::chrono::milliseconds(kPatienceMilliseconds))) {
    worker_.Cancel(job);
    return reading->lines;
  }
  reading->late = true;
  reading_ = reading;
  job_ = job;
  return std::nullopt;
}

void ThreadedLineReader::Drop() {
  const auto reading = std::exchange(reading_, nullptr);
  if (!reading) return;
  reading->cancelled = true;
  worker_.Cancel(std::exchange(job_, 0));
}

}  // namespace pnl
