// SPDX-License-Identifier: MIT
#include "help/manual/chm/unpack.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <optional>

#include "help/manual/chm/limits.h"
#include "help/manual/chm/reader.h"
#include "help/manual/chm/reports.h"
#include "help/manual/chm_system.h"
#include "help/manual/code_page.h"
#include "help/manual/leftovers.h"
#include "help/manual/manual_extractor.h"
#include "help/manual/manual_names.h"

namespace pnl::chm {
namespace {

using Clock = std::chrono::steady_clock;

/// What the readers have reported so far.
class Progress {
 public:
  void Take(const ReportFrame& frame) {
    switch (frame.report) {
      case Report::kOpened:
        opened_ = true;
        break;
      case Report::kSystem:
        TakeSystem(frame.bytes);
        break;
      case Report::kStage:
        ++stage_;
        break;
      case Report::kQueued:
        queue_.Add(frame.bytes);
        break;
      case Report::kTrying:
        if (!queue_.IsEmpty()) queue_.Take();
        break;
      case Report::kUnpacked:
        TakeObject(frame.bytes);
        break;
      case Report::kAbsent:
        break;
      case Report::kUnreadable:
        ++listing_.unreadable;
        break;
      case Report::kTooLarge:
        listing_.overrun = true;
        break;
      case Report::kRefused:
        ++listing_.refused;
        break;
      case Report::kNoRoom:
        noRoom_ = true;
        break;
      case Report::kDone:
        done_ = true;
        break;
    }
  }
  void TakeCrash() { ++listing_.crashes; }
  void TakeOverrun() { listing_.overrun = true; }

  [[nodiscard]] bool IsOver() const { return done_ || noRoom_; }
  [[nodiscard]] bool HasOpened() const { return opened_; }
  [[nodiscard]] bool HasNoRoom() const { return noRoom_; }
  [[nodiscard]] const ManualListing& Listing() const { return listing_; }
  [[nodiscard]] ReaderTask Task() const {
    ReaderTask task;
    task.queue = queue_;
    task.stage = stage_;
    task.objects = listing_.objects.size();
    task.bytes = listing_.bytes;
    return task;
  }

 private:
  void TakeSystem(const std::string& bytes) {
    const ChmSystem system = ParseChmSystem(bytes);
    listing_.language = system.language;
    listing_.codePage = CodePageOfLanguage(system.language);
    listing_.title = DecodeCodePage(system.title, listing_.codePage);
    listing_.page = DecodeCodePage(system.page, listing_.codePage);
    listing_.contents = DecodeCodePage(system.contents, listing_.codePage);
    listing_.index = DecodeCodePage(system.index, listing_.codePage);
  }

  void TakeObject(std::string_view bytes) {
    if (bytes.size() < 2 * kNumberBytes) return;
    Text name = FromUtf8(bytes.substr(2 * kNumberBytes));
    if (!IsManualName(name) || listing_.objects.size() >= kMostObjects) return;
    const std::uint64_t size = NumberFrom(bytes);
    listing_.objects.push_back({std::move(name), size, NumberFrom(bytes.substr(kNumberBytes))});
    listing_.bytes += size;
  }

  ManualListing listing_;
  ObjectQueue queue_;
  int stage_ = 0;
  bool opened_ = false;
  bool noRoom_ = false;
  bool done_ = false;
};

struct ReaderProcess {
  pid_t pid = 0;
  Descriptor reports;
};

/// Closes all files of the process but its output, which shows whoever waits for it that it lives, and the pipe.
void CloseOthers(int pipe) {
  const int nothing = open("/dev/null", O_RDWR);
  dup2(nothing, STDIN_FILENO);
  dup2(nothing, STDERR_FILENO);
  if (pipe > STDERR_FILENO + 1) close_range(STDERR_FILENO + 1, static_cast<unsigned>(pipe) - 1, 0);
  close_range(static_cast<unsigned>(pipe) + 1, UINT_MAX, 0);
}

std::optional<ReaderProcess> StartReader(ReaderTask task) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  ReaderProcess process;
  process.reports = Descriptor(ends[0]);
  const Descriptor theirs(ends[1]);
  process.pid = fork();
  if (process.pid < 0) return std::nullopt;
  if (process.pid == 0) {
    task.pipe = theirs.Get();
    CloseOthers(task.pipe);
    // Nothing of the watching process may run on in this one.
    _exit(RunReader(std::move(task)));
  }
  return process;
}

int MillisecondsUntil(Clock::time_point time) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(time - Clock::now()).count();
  return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
}

/// Takes a reader's reports until its end or its time is over.
void Follow(int reports, Clock::time_point deadline, Progress& progress) {
  ReportReader reader;
  std::array<char, 65'536> buffer{};
  while (!progress.IsOver()) {
    pollfd wait{reports, POLLIN, 0};
    const int ready = poll(&wait, 1, MillisecondsUntil(std::min(deadline, Clock::now() + kSilence)));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return;
    const ssize_t size = read(reports, buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return;
    reader.Add({buffer.data(), static_cast<std::size_t>(size)});
    while (const auto frame = reader.Next()) progress.Take(*frame);
    if (reader.IsBroken()) return;
  }
}

/// Runs one reader after the other until the manual is unpacked or there is no use in going on.
void ReadAll(const std::string& manual, const std::string& file, Progress& progress) {
  const auto deadline = Clock::now() + kWholeTime;
  for (int crashes = 0; crashes <= kMostCrashes; ++crashes) {
    ReaderTask task = progress.Task();
    task.manual = manual;
    task.file = file;
    const auto process = StartReader(std::move(task));
    if (!process) return;
    Follow(process->reports.Get(), deadline, progress);
    kill(process->pid, SIGKILL);
    while (waitpid(process->pid, nullptr, 0) < 0 && errno == EINTR) {
    }
    if (progress.IsOver()) return;
    // The file is no manual, or not even its head can be read.
    if (!progress.HasOpened()) return;
    progress.TakeCrash();
    if (Clock::now() >= deadline) break;
  }
  progress.TakeOverrun();
}

[[nodiscard]] Descriptor MakeFile(const std::string& path) {
  return Descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
}

/// Without flushing: whoever reads the folder after a power cut compares the size of the objects with the listing.
bool WriteListing(const std::string& path, const ManualListing& listing) {
  const std::string bytes = WriteManualListing(listing);
  const Descriptor file = MakeFile(path);
  return file && write(file.Get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

/// Gives the folder its name. Another process may have been quicker; its folder is as good.
bool MakeWhole(const std::string& part, const std::string& folder) {
  if (rename(part.c_str(), folder.c_str()) == 0) return true;
  const bool isThere = errno == EEXIST || errno == ENOTEMPTY;
  RemoveWhole(part);
  return isThere;
}

}  // namespace

Unpacked Unpack(const std::string& manual, const std::string& folder) {
  Unpacked result;
  result.exit = extractor_exit::kNoRoom;
  const auto part = MakePart(folder);
  if (!part) return result;
  const std::string objects = part->path + "/" + ManualListing::kObjectFile;
  Progress progress;
  if (MakeFile(objects)) {
    ReadAll(manual, objects, progress);
    result.listing = progress.Listing();
    if (result.listing.objects.empty() && !progress.HasNoRoom()) {
      result.exit = extractor_exit::kNothing;
    } else if (!progress.HasNoRoom() && WriteListing(part->path + "/" + ManualListing::kFile, result.listing) &&
               MakeWhole(part->path, folder)) {
      result.exit = extractor_exit::kDone;
    }
  }
  if (result.exit != extractor_exit::kDone) RemoveWhole(part->path);
  return result;
}

}  // namespace pnl::chm
