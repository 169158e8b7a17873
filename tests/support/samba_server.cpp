// SPDX-License-Identifier: MIT
#include "support/samba_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <tuple>

namespace pnl::test {
namespace {

constexpr const char* kServerProgram = "/usr/sbin/smbd";
constexpr const char* kCallsProgram = "/usr/libexec/samba/samba-dcerpcd";
constexpr const char* kUserProgram = "/usr/bin/smbpasswd";
constexpr int kStartLimit = 30'000;  // milliseconds, on a busy machine

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

/// What the child does before it becomes the program. It must not return.
[[noreturn]] void Become(char* const* command, int input, const char* log, int keep) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int out = open(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  dup2(input, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(out, STDERR_FILENO);
  if (keep >= 0) fcntl(keep, F_SETFD, 0);
  execv(command[0], command);
  _exit(127);
}

/// A descriptor with these bytes to read. Without any it is no pipe: the server would end with a pipe that is closed.
Descriptor InputOf(const std::string& bytes) {
  if (bytes.empty()) return Descriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return {};
  const Descriptor in(ends[1]);
  // Short enough for a pipe without a reader.
  if (write(ends[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) return {};
  return Descriptor(ends[0]);
}

}  // namespace

bool ChildProcess::Start(const std::vector<std::string>& command, const std::string& input, const std::string& log,
                         int keep) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const Descriptor in = InputOf(input);
  pid_ = fork();
  if (pid_ == 0) Become(words.data(), in.Get(), log.c_str(), keep);
  if (pid_ < 0) return false;
  setpgid(pid_, pid_);
  handle_ = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)));
  return static_cast<bool>(handle_);
}

int ChildProcess::Wait() {
  if (pid_ <= 0) return -1;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool ChildProcess::EndsWithin(int milliseconds) const {
  pollfd ended{handle_.Get(), POLLIN, 0};
  return poll(&ended, 1, milliseconds) == 1;
}

void ChildProcess::Stop() {
  if (pid_ <= 0) return;
  const pid_t group = pid_;
  kill(-group, SIGTERM);
  constexpr int kGrace = 5000;
  if (!EndsWithin(kGrace)) kill(-group, SIGKILL);
  Wait();
  // Those that it has started and that didn't hear the first signal.
  kill(-group, SIGKILL);
}

LocalAddress LocalAddress::Choose() {
  static std::atomic<int> chosen{0};
  LocalAddress address;
  const int own = getpid();
  address.host = "127." + std::to_string(10 + own % 200) + "." + std::to_string(own / 200 % 250) + "." +
                 std::to_string(1 + ++chosen % 250);
  const Descriptor probe(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_in found = address.Socket();
  socklen_t size = sizeof found;
  if (bind(probe.Get(), reinterpret_cast<const sockaddr*>(&found), size) == 0 &&
      getsockname(probe.Get(), reinterpret_cast<sockaddr*>(&found), &size) == 0) {
    address.port = ntohs(found.sin_port);
  }
  return address;
}

sockaddr_in LocalAddress::Socket() const {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_port = htons(static_cast<std::uint16_t>(port));
  inet_pton(AF_INET, host.c_str(), &result.sin_addr);
  return result;
}

std::string SambaServer::WhyNot() { return geteuid() != 0 ? "a server of shares is tested by the superuser only" : ""; }

SambaServer::SambaServer(const std::string& config) : files_(folder_.Folder("files")) {
  std::string text = config;
  ReplaceAll(text, "@ADDRESS@", address_.host);
  ReplaceAll(text, "@PORT@", std::to_string(address_.port));
  ReplaceAll(text, "@FOLDER@", folder_.Path().string());
  for (const char* name : {"private", "lock", "state", "cache", "pid", "rpc"}) {
    std::ignore = folder_.Folder(name);
  }
  folder_.Write("smb.conf", text);
  config_ = (folder_.Path() / "smb.conf").string();
}

std::string SambaServer::Log() const { return folder_.Read("log") + folder_.Read("log.smb"); }

bool SambaServer::AddUser() {
  if (hasUser_) return true;
  ChildProcess adding;
  const std::string twice = std::string(kPassword) + "\n" + kPassword + "\n";
  hasUser_ = adding.Start({kUserProgram, "-c", config_, "-s", "-a", kUser}, twice, folder_.Path() / "log") &&
             adding.Wait() == 0;
  return hasUser_;
}

std::string SambaServer::Start() {
  for (const char* program : {kServerProgram, kCallsProgram, kUserProgram}) {
    if (access(program, X_OK) != 0) return std::string(program) + " is missing; ./test installs it";
  }
  if (!AddUser()) return "no user: " + Log();
  int ready[2];
  if (pipe2(ready, O_CLOEXEC) != 0) return "no pipe";
  const Descriptor in(ready[0]);
  const std::string log = folder_.Path() / "log";
  const auto option = "--ready-signal-fd=" + std::to_string(ready[1]);
  const bool calls = calls_.Start({kCallsProgram, "-F", "--no-process-group", "--libexec-rpcds", "-s", config_, option},
                                  "", log, ready[1]);
  close(ready[1]);
  if (!calls || !server_.Start({kServerProgram, "-F", "--no-process-group", "-s", config_}, "", log)) {
    return "no process: " + Log();
  }
  pollfd readable{ready[0], POLLIN, 0};
  if (!AwaitPort() || poll(&readable, 1, kStartLimit) != 1) return "no answer: " + Log();
  return {};
}

/// Tries until the server accepts a connection. Returns false when it ends before.
bool SambaServer::AwaitPort() const {
  constexpr int kBetween = 5;
  for (int waited = 0; waited < kStartLimit; waited += kBetween) {
    const Descriptor probe(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = address_.Socket();
    if (connect(probe.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return true;
    if (server_.EndsWithin(kBetween)) return false;
  }
  return false;
}

void SambaServer::Stop() {
  server_.Stop();
  calls_.Stop();
}

bool SilentServer::AwaitCaller() const {
  pollfd connected{socket_.Get(), POLLIN, 0};
  return poll(&connected, 1, kStartLimit) == 1;
}

SilentServer::SilentServer() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in address = address_.Socket();
  if (bind(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(socket_.Get(), 5) != 0) {
    address_.port = 0;
  }
}

}  // namespace pnl::test
