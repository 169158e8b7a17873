// SPDX-License-Identifier: MIT
#include "errors/qt/threaded_line_reader.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace pnl {

/// What both threads share. The last of them to release it destroys it.
struct ThreadedLineReader::Job {
  std::unique_ptr<Files> files;
  ProgramPlace place;
  ProgramCaptions captions;
  std::atomic<bool> cancelled = false;
  std::mutex mutex;
  std::condition_variable finished;
  bool done = false;
  ProgramLines lines;
  QObject* waiting = nullptr;  // whom to call with late lines; null if nobody waits for them
  std::function<void(const ProgramLines&)> later;

  void Run(const std::shared_ptr<Job>& self) {
    ProgramLines read = ReadProgramLines(place, captions, *files, &cancelled);
    const std::lock_guard lock(mutex);
    lines = std::move(read);
    done = true;
    finished.notify_all();
    if (waiting == nullptr) return;
    QMetaObject::invokeMethod(
        waiting,
        [self] {
          // This runs on the window's thread, like Drop. So a dropped job is not called.
          if (!self->cancelled) self->later(self->lines);
        },
        Qt::QueuedConnection);
  }
};

std::optional<ProgramLines> ThreadedLineReader::Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                                     std::function<void(const ProgramLines&)> later) {
  Drop();
  const auto job = std::make_shared<Job>();
  job->files = files_.ForAnotherThread();
  if (!job->files) return ReadProgramLines(place, captions, files_);
  job->place = place;
  job->captions = captions;
  job->later = std::move(later);
  try {
    std::thread([job] { job->Run(job); }).detach();
  } catch (const std::system_error&) {
    // No thread could be started. The lines are empty then, and nobody waits for them.
    return ProgramLines{};
  }
  std::unique_lock lock(job->mutex);
  const auto patience = std::chrono::milliseconds(kPatienceMilliseconds);
  if (job->finished.wait_for(lock, patience, [&job] { return job->done; })) return job->lines;
  job->waiting = this;
  job_ = job;
  return std::nullopt;
}

void ThreadedLineReader::Drop() {
  const auto job = std::exchange(job_, nullptr);
  if (!job) return;
  job->cancelled = true;
  const std::lock_guard lock(job->mutex);
  job->waiting = nullptr;
}

}  // namespace pnl
