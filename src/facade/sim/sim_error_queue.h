// SPDX-License-Identifier: MIT
// The kernel's queue of errors, oldest first. It reports through two variables, which it makes when they don't exist:
// "E.NERRORS" is the number of errors, and "E.ERRORPRI" reports when an error arrives, the first one leaves, or the
// queue is cleared. Makes no texts.
#pragma once

#include <pnltools/rig.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "facade/error_record.h"
#include "facade/sim/sim_variables.h"

namespace pnl::sim {

class SimErrorQueue {
 public:
  explicit SimErrorQueue(SimVariables& variables) : variables_(variables) {}

  using Fate = rig::CncControl::ErrorFate;
  using Listener = std::function<void(const ErrorRecord&, std::int64_t serial, Fate)>;
  /// One error of the queue. A serial is never used twice.
  struct Entry {
    std::int64_t serial = 0;
    std::unique_ptr<ErrorRecord> record;
  };
  /// Sets who is called for every error that enters or leaves. At the call the queue has changed already, but its
  /// reports haven't gone out yet.
  void OnChanged(Listener changed) { changed_ = std::move(changed); }

  void Push(const ErrorRecord& record);
  /// Removes the error with that index, which must be there.
  void Take(std::size_t index, Fate fate);
  void Clear();
  [[nodiscard]] std::size_t Size() const { return entries_.size(); }
  /// The error with that index; null when there is none. The pointer is valid until the next change.
  [[nodiscard]] const ErrorRecord* At(std::size_t index) const;
  [[nodiscard]] const std::deque<Entry>& Entries() const { return entries_; }
  /// The index of the first error that equals the record byte by byte, else of the first with the same number and
  /// source.
  [[nodiscard]] std::optional<std::size_t> Find(const ErrorRecord& record) const;
  [[nodiscard]] std::vector<std::int32_t> Numbers() const;

 private:
  void ReportCount();
  void ReportPriority();
  void Tell(const ErrorRecord& record, std::int64_t serial, Fate fate) const;

  SimVariables& variables_;
  // Entries have pointers because removing one would otherwise move 4 KB for each entry after it.
  std::deque<Entry> entries_;
  std::int64_t lastSerial_ = 0;
  Listener changed_;
};

}  // namespace pnl::sim
