// SPDX-License-Identifier: MIT
// Files that fail on command: a decorator over other files. It shows that a tool survives a full disc, a folder that
// can't be written, or a file that breaks off in the middle. It records the calls of enum Call in order. Calls that
// aren't told to fail go through.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"

namespace pnl::test {

class FailingFiles final : public Files {
 public:
  enum class Call { kOpenRead, kCanReplace, kReplace, kMakeFolder };
  struct Asked {
    Call call;
    Text path;
    FileStatus answer;
    friend bool operator==(const Asked&, const Asked&) = default;
  };
  static constexpr int kForEver = std::numeric_limits<int>::max();

  explicit FailingFiles(Files& inner) : inner_(inner) {}

  /// Makes count such calls on the path return status and do nothing, from the first-th call from now on (counted from
  /// 1). Paths compare without regard to case; an empty path means every path.
  void Fail(Call call, TextView path, FileStatus status, int first = 1, int count = 1);
  /// The disc has room for only so many bytes more. A Replace with more returns kDiscFull, and the old file stays.
  void SetRoom(std::uint64_t bytes) { room_ = bytes; }
  /// Readers of the path that are opened from now on return -1 after so many bytes.
  void FailReadsAfter(TextView path, std::uint64_t bytes);
  /// Puts everything in and below the folder out of reach from now on, as when its disc isn't mounted. An empty path
  /// takes every file away.
  void TakeAway(TextView folder) { away_.emplace_back(folder); }
  /// Forgets every failure and brings back what was taken away. The record stays.
  void Heal();
  [[nodiscard]] const std::vector<Asked>& AskedSoFar() const { return asked_; }

  FileInfo Query(TextView panelPath) const override;
  std::unique_ptr<FileReader> OpenRead(TextView panelPath, FileStatus* status) const override;
  FileStatus CanReplace(TextView panelPath) const override;
  FileStatus Replace(TextView panelPath, std::string_view bytes) override;
  FileStatus MakeFolder(TextView panelPath) override;
  std::optional<std::string> HostPath(TextView panelPath) const override { return inner_.HostPath(panelPath); }

 private:
  struct Failure {
    Call call;
    Text path;
    FileStatus status;
    int skip;   // calls that still go through
    int count;  // calls that fail after those
  };
  struct BrokenRead {
    Text path;
    std::uint64_t bytes;
  };

  [[nodiscard]] bool IsAway(TextView path) const;
  /// Counts this call and returns the status of the failure that is due for it; nothing when the call may go through.
  std::optional<FileStatus> Due(Call call, TextView path) const;
  FileStatus Record(Call call, TextView path, FileStatus answer) const;

  Files& inner_;
  // Mutable because a call is counted and recorded, and calls that only read are const in the seam.
  mutable std::vector<Failure> failures_;
  mutable std::vector<Asked> asked_;
  std::vector<BrokenRead> brokenReads_;
  std::vector<Text> away_;
  std::optional<std::uint64_t> room_;
};

}  // namespace pnl::test
