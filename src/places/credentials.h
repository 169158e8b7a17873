// SPDX-License-Identifier: MIT
// The name and password with which a server is asked, and the seam to the operator who is asked for them. They are kept
// in memory only, for the session, and never written or logged. CredentialsDesk is the real side of the seam.
#pragma once

#include <cstring>
#include <memory>
#include <utility>

#include "base/text.h"

namespace pnl {

/// Overwrites a text in memory, with what earlier contents have left in its storage, and empties it.
inline void Wipe(Text& text) {
  text.resize(text.capacity());
  explicit_bzero(text.data(), text.size() * sizeof(char16_t));
  text.clear();
}

/// Wipes itself. Not copied, so that the password is in one place only.
struct Credentials {
  Text user;
  Text domain;  // empty for the server's own
  Text password;

  Credentials(Text userName, Text domainName, Text secret)
      : user(std::move(userName)), domain(std::move(domainName)), password(std::move(secret)) {
    // A short text is copied when it moves.
    Wipe(secret);
  }
  ~Credentials() { Wipe(password); }
  Credentials(const Credentials&) = delete;
  Credentials& operator=(const Credentials&) = delete;
};

using SharedCredentials = std::shared_ptr<const Credentials>;

class CredentialsAsker {
 public:
  virtual ~CredentialsAsker() = default;
  /// Asks the operator for name and password on a server, and waits. again: those of before were wrong. Returns null
  /// when nobody can be asked or the operator refuses. To be called on any thread but the window's.
  [[nodiscard]] virtual SharedCredentials Ask(TextView server, bool again) = 0;
};

}  // namespace pnl
