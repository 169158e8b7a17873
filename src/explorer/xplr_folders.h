// SPDX-License-Identifier: MIT
// What the explorer asks of folders and network beside the window's thread: what a folder is, which folders it has,
// what is below a node of the network. The answers come back as operations of the session.
#pragma once

#include <functional>
#include <vector>

#include "explorer/xplr_ids.h"
#include "explorer/xplr_jobs.h"
#include "places/network.h"
#include "places/places.h"

namespace pnl {

/// What an enumeration of the network gave.
struct Neighbours {
  bool opened = false;
  std::vector<NetworkResource> resources;
};

struct FileFacts {
  bool known = false;  // false when the disc couldn't be asked
  bool exists = false;
  bool readOnly = false;
};

class XplrFolders {
 public:
  XplrFolders(const Places& places, const Network& network, XplrJobs& jobs)
      : places_(places), network_(network), jobs_(jobs) {}

  /// Finds out whether a folder can be used. A share that asks for name and password is connected first, with owner as
  /// the window of whatever the operator is asked. An empty path isn't found.
  void Classify(Text path, WindowHandle owner, const std::function<void(Outcome)>& then) const;
  /// The names of the folders in a folder that aren't hidden, in the disc's order; none when it can't be read.
  void ListFolders(Text path, const std::function<void(std::vector<Text>)>& then) const;
  /// What is below a resource of the network.
  void Enumerate(NetworkResource below, const std::function<void(Neighbours)>& then) const;
  /// The top of the network, then the connected resources that have display type 0.
  void EnumerateTop(const std::function<void(std::vector<NetworkResource>)>& then) const;

  /// Finds out whether a file or folder has that path.
  void LookAt(Text path, const std::function<void(FileFacts)>& then) const;
  /// Makes a folder with its parents. True also for a path that exists.
  void MakeFolder(Text path, const std::function<void(bool)>& then) const;

  [[nodiscard]] const Places& Drives() const { return places_; }

 private:
  const Places& places_;
  const Network& network_;
  XplrJobs& jobs_;
};

}  // namespace pnl
