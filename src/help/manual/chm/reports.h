// SPDX-License-Identifier: MIT
// What the process that reads a manual reports to the one that watches it, through a pipe. Nothing that comes out of
// the pipe is trusted: the reader may have been taken over by the manual.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pnl::chm {

enum class Report : char {
  kOpened = 'o',      // the file is a manual
  kSystem = 's',      // the bytes of its table "#SYSTEM"
  kStage = 'g',       // begins with the next part of the work
  kQueued = 'q',      // an object to unpack: its own name
  kTrying = 't',      // begins with the object at the front of the queue
  kUnpacked = 'u',    // its name, after 8 bytes each for its size and its start in the file of all objects
  kAbsent = 'a',      // the manual has no such object
  kUnreadable = 'x',  // it can't be read
  kTooLarge = 'b',
  kRefused = 'r',  // no page may have its name
  kNoRoom = 'n',   // it can't be written; the reader ends
  kDone = 'd',
};

struct ReportFrame {
  Report report = Report::kDone;
  std::string bytes;
};

inline constexpr std::size_t kLongestReport = 65'536;

/// Writes a report. Returns false when nobody reads it any more.
[[nodiscard]] bool SendReport(int pipe, Report report, std::string_view bytes = {});

/// Puts reports together from the bytes of the pipe, in whatever pieces they come.
class ReportReader {
 public:
  void Add(std::string_view bytes) { waiting_.append(bytes); }
  /// The next whole report; nothing when there is none yet.
  [[nodiscard]] std::optional<ReportFrame> Next();
  /// True when a report says that it is longer than a report may be.
  [[nodiscard]] bool IsBroken() const { return broken_; }

 private:
  std::string waiting_;
  std::size_t at_ = 0;
  bool broken_ = false;
};

/// A number in 8 bytes, in little endian.
inline constexpr std::size_t kNumberBytes = 8;
[[nodiscard]] std::string NumberBytes(std::uint64_t number);
[[nodiscard]] std::uint64_t NumberFrom(std::string_view bytes);

}  // namespace pnl::chm
