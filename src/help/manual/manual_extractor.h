// SPDX-License-Identifier: MIT
// The seam to what unpacks a manual. The real one starts the program pnl-chm, which reads the manual in a process of
// its own: a damaged manual may crash, hang or overfill that process, and never the panel. Unpacking may take seconds,
// so it is done on a thread of the worker.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>

namespace pnl {

enum class Extraction {
  kDone,       // the folder is there, with a listing; the listing says what is missing
  kNothing,    // the file isn't a manual, or nothing of it could be read
  kOverrun,    // it took too long, and nothing of it is there
  kCancelled,  // nobody waits for it any more
  kNoProgram,  // what unpacks manuals can't be started
  kNoRoom,     // the folder can't be written
};

/// How pnl-chm ends.
namespace extractor_exit {
inline constexpr int kDone = 0;
inline constexpr int kNothing = 1;
inline constexpr int kUsage = 2;
inline constexpr int kNoRoom = 3;
inline constexpr int kNotStarted = 127;  // the system's, for a program that it can't run
}  // namespace extractor_exit

class ManualExtractor {
 public:
  virtual ~ManualExtractor() = default;
  /// Unpacks the file at the path manual into a new folder, whose parent exists. The folder is there only after kDone,
  /// and whole. Asks isCancelled from time to time. Any thread may call it.
  [[nodiscard]] virtual Extraction Extract(const std::string& manual, const std::string& folder,
                                           const std::function<bool()>& isCancelled) const = 0;
};

/// Starts a program for each manual, kills it when it overruns, and removes what it left.
class ProgramExtractor final : public ManualExtractor {
 public:
  /// Longer than pnl-chm gives itself, so that it ends by itself in nearly all cases.
  static constexpr std::chrono::milliseconds kLimit{30'000};

  explicit ProgramExtractor(std::string program, std::chrono::milliseconds limit = kLimit)
      : program_(std::move(program)), limit_(limit) {}
  [[nodiscard]] Extraction Extract(const std::string& manual, const std::string& folder,
                                   const std::function<bool()>& isCancelled) const override;

 private:
  std::string program_;
  std::chrono::milliseconds limit_;
};

/// The program beside a file of this library: in the same folder, or in one of the places that an installed or built
/// tree has for programs. Returns the first of them when there is no program in any.
[[nodiscard]] std::string ExtractorBeside(const std::string& libraryFile);

}  // namespace pnl
