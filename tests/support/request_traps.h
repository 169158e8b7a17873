// SPDX-License-Identifier: MIT
// Traps for what a hostile document asks for: a server on this machine that counts whoever connects, and a watch that
// counts whoever opens a file. Both count what the test does itself, which shows that they work.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

namespace pnl::test {

/// Listens on a port of its own on 127.0.0.1.
class ConnectionTrap {
 public:
  ConnectionTrap() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    sockaddr_in place = Loopback(0);
    socklen_t size = sizeof place;
    const bool ready = bind(socket_, Address(place), size) == 0 && listen(socket_, 64) == 0 &&
                       getsockname(socket_, Address(place), &size) == 0;
    port_ = ready ? ntohs(place.sin_port) : 0;
  }
  ~ConnectionTrap() { close(socket_); }
  ConnectionTrap(const ConnectionTrap&) = delete;
  ConnectionTrap& operator=(const ConnectionTrap&) = delete;

  /// "127.0.0.1:" with the port.
  [[nodiscard]] std::string Host() const { return "127.0.0.1:" + std::to_string(port_); }
  /// How many have connected since the last call.
  [[nodiscard]] int Connections() const {
    int count = 0;
    for (int one = accept(socket_, nullptr, nullptr); one >= 0; one = accept(socket_, nullptr, nullptr)) {
      close(one);
      ++count;
    }
    return count;
  }
  /// Connects once itself.
  void Connect() const {
    const int own = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place = Loopback(port_);
    static_cast<void>(connect(own, Address(place), sizeof place));
    close(own);
  }

 private:
  static sockaddr_in Loopback(int port) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(static_cast<std::uint16_t>(port));
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return place;
  }
  static sockaddr* Address(sockaddr_in& place) { return reinterpret_cast<sockaddr*>(&place); }

  const int socket_;
  int port_ = 0;
};

/// Watches a folder with its files.
class OpenTrap {
 public:
  explicit OpenTrap(const std::string& folder) : queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    inotify_add_watch(queue_, folder.c_str(), IN_OPEN | IN_ACCESS);
  }
  ~OpenTrap() { close(queue_); }
  OpenTrap(const OpenTrap&) = delete;
  OpenTrap& operator=(const OpenTrap&) = delete;

  /// Whether a file of the folder was opened or read since the last call.
  [[nodiscard]] bool Sprung() const {
    alignas(inotify_event) char events[4096];
    bool any = false;
    while (read(queue_, events, sizeof events) > 0) any = true;
    return any;
  }

 private:
  const int queue_;
};

}  // namespace pnl::test
