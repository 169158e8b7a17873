// SPDX-License-Identifier: MIT
// A real server of Windows shares on an address of this machine's own, with all that it writes in a temporary folder,
// and a server that accepts and says nothing. Both end with their objects; the processes end with the test in any case.
#pragma once

#include <netinet/in.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include "base/descriptor.h"
#include "support/temp_folder.h"

namespace pnl::test {

/// A program in a process group of its own.
class ChildProcess {
 public:
  ChildProcess() = default;
  ~ChildProcess() { Stop(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Starts it with that standard input; what it prints goes to the file log. keep stays open in it, if it isn't -1.
  [[nodiscard]] bool Start(const std::vector<std::string>& command, const std::string& input, const std::string& log,
                           int keep = -1);
  /// Waits for its end. Returns its exit code, or -1.
  int Wait();
  /// Waits so long for its end. Returns false when it is still there.
  [[nodiscard]] bool EndsWithin(int milliseconds) const;
  /// Ends it and whatever it has started, and waits for it.
  void Stop();

 private:
  pid_t pid_ = 0;
  Descriptor handle_;
};

/// An address of this machine that no other test uses, with a port that is free now.
struct LocalAddress {
  std::string host;
  int port = 0;

  [[nodiscard]] static LocalAddress Choose();
  [[nodiscard]] sockaddr_in Socket() const;
  [[nodiscard]] std::string Text() const { return host + ":" + std::to_string(port); }
};

class SambaServer {
 public:
  static constexpr const char* kUser = "daemon";  // an account that every system has
  static constexpr const char* kPassword = "Zahn rad 7%ñ";

  /// Why there can't be a server here; empty when there can.
  [[nodiscard]] static std::string WhyNot();
  /// config is the server's configuration, with @ADDRESS@, @PORT@ and @FOLDER@ for what is chosen here.
  explicit SambaServer(const std::string& config);

  /// Returns what went wrong, or an empty text once the server answers.
  [[nodiscard]] std::string Start();
  void Stop();
  [[nodiscard]] const LocalAddress& Address() const { return address_; }
  /// The folder that all its shares show.
  [[nodiscard]] const std::string& Files() const { return files_; }
  [[nodiscard]] std::string Log() const;

 private:
  [[nodiscard]] bool AddUser();
  [[nodiscard]] bool AwaitPort() const;
  TempFolder folder_;
  const LocalAddress address_ = LocalAddress::Choose();
  std::string files_;
  std::string config_;  // the file's path
  bool hasUser_ = false;
  ChildProcess calls_;  // answers what isn't about files, such as the list of shares
  ChildProcess server_;
};

/// Accepts connections, as the system does for a socket that listens, and never says anything.
class SilentServer {
 public:
  SilentServer();
  /// Waits until somebody has connected. Returns false when nobody does.
  [[nodiscard]] bool AwaitCaller() const;
  [[nodiscard]] const LocalAddress& Address() const { return address_; }

 private:
  LocalAddress address_ = LocalAddress::Choose();
  Descriptor socket_;
};

}  // namespace pnl::test
