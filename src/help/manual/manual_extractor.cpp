// SPDX-License-Identifier: MIT
#include "help/manual/manual_extractor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <optional>

#include "base/descriptor.h"
#include "base/locate.h"
#include "help/manual/leftovers.h"

namespace pnl {
namespace {

using Clock = std::chrono::steady_clock;

/// How often a thread that waits asks whether it still should.
constexpr int kLookMilliseconds = 50;

/// What posix_spawn is to do in the new process.
class Actions {
 public:
  Actions() {
    posix_spawn_file_actions_init(&files_);
    posix_spawnattr_init(&attributes_);
  }
  ~Actions() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;

  /// Starts the program in a process group of its own. It has output as its standard output and no other file of ours.
  [[nodiscard]] int Start(const std::string& program, const std::array<const char*, 4>& words, int output, pid_t& pid) {
    posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setpgroup(&attributes_, 0);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    return posix_spawn(&pid, program.c_str(), &files_, &attributes_, const_cast<char* const*>(words.data()), environ);
  }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

struct Process {
  pid_t pid = 0;
  Descriptor output;
};

std::optional<Process> Start(const std::string& program, const std::string& manual, const std::string& folder) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  Process process;
  process.output = Descriptor(ends[0]);
  const Descriptor theirs(ends[1]);
  Actions actions;
  const std::array<const char*, 4> words = {program.c_str(), manual.c_str(), folder.c_str(), nullptr};
  if (actions.Start(program, words, theirs.Get(), process.pid) != 0) return std::nullopt;
  return process;
}

/// Reads and drops what the program prints. Returns true at the end of it: then all processes that it has started have
/// ended. Waits a moment at most.
bool HasEnded(int output) {
  pollfd wait{output, POLLIN, 0};
  if (poll(&wait, 1, kLookMilliseconds) <= 0) return false;
  std::array<char, 4096> dropped{};
  const ssize_t size = read(output, dropped.data(), dropped.size());
  return size == 0 || (size < 0 && errno != EINTR);
}

int WaitFor(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return status;
}

Extraction ResultOf(int status) {
  if (!WIFEXITED(status)) return Extraction::kNothing;
  switch (WEXITSTATUS(status)) {
    case extractor_exit::kDone:
      return Extraction::kDone;
    case extractor_exit::kNoRoom:
      return Extraction::kNoRoom;
    case extractor_exit::kNotStarted:
      return Extraction::kNoProgram;
    default:
      return Extraction::kNothing;
  }
}

}  // namespace

Extraction ProgramExtractor::Extract(const std::string& manual, const std::string& folder,
                                     const std::function<bool()>& isCancelled) const {
  const auto deadline = Clock::now() + limit_;
  const auto process = Start(program_, manual, folder);
  if (!process) return Extraction::kNoProgram;
  std::optional<Extraction> stopped;
  while (!HasEnded(process->output.Get())) {
    if (stopped) continue;
    if (isCancelled()) {
      stopped = Extraction::kCancelled;
    } else if (Clock::now() >= deadline) {
      stopped = Extraction::kOverrun;
    }
    // Its children are in its group.
    if (stopped) kill(-process->pid, SIGKILL);
  }
  const int status = WaitFor(process->pid);
  RemoveLeftovers(FolderOf(folder));
  return stopped.value_or(ResultOf(status));
}

std::string ExtractorBeside(const std::string& libraryFile) {
  const std::string folder = FolderOf(libraryFile);
  std::string own = folder + "/pnl-chm";
  // Libraries are in "lib" or, on a system with several architectures, in a folder below it.
  for (const char* place :
       {"/pnl-chm", "/../bin/pnl-chm", "/../libexec/pnltools/pnl-chm", "/../../libexec/pnltools/pnl-chm"}) {
    std::string program = folder + place;
    if (access(program.c_str(), X_OK) == 0) return program;
  }
  return own;
}

}  // namespace pnl
