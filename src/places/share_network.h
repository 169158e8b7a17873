// SPDX-License-Identifier: MIT
// The real network neighbourhood: providers, domains and servers of the network file, and the shares that the servers
// list. Loads nothing and asks no server before a server's shares or a path on it are asked for.
#pragma once

#include <chrono>
#include <memory>

#include "places/network.h"
#include "places/share_access.h"

namespace pnl {

class ShareNetwork final : public Network {
 public:
  /// What a call may take before it is given up.
  static constexpr std::chrono::milliseconds kCallLimit{4000};

  /// asker may be null: nobody is asked for credentials.
  ShareNetwork(NetworkSetup setup, ShareThread::MakeClient makeClient, std::shared_ptr<CredentialsAsker> asker,
               std::chrono::milliseconds limit = kCallLimit);

  /// A resource is found by its display type and its remote name, or without one by its comment, which is a provider's
  /// name. Its provider isn't looked at. Any server may be asked for its shares, also one that the file doesn't have.
  /// The connected resources are the shares that Connect has connected.
  [[nodiscard]] std::shared_ptr<const NetworkReader> Reader() const override { return reader_; }
  /// Reads the folders of the shares.
  [[nodiscard]] const std::shared_ptr<const FolderReader>& Folders() const { return folders_; }

 private:
  std::shared_ptr<const NetworkReader> reader_;
  std::shared_ptr<const FolderReader> folders_;
};

}  // namespace pnl
