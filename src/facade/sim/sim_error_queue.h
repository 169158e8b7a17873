// SPDX-License-Identifier: MIT
// The kernel's queue of errors, oldest first, and what it tells about itself through "E.NERRORS" (how many) and
// "E.ERRORPRI" (another one is first). Makes these two variables when they aren't there. Composes no texts.
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
  /// Serials are never used twice.
  struct Entry {
    std::int64_t serial = 0;
    std::unique_ptr<ErrorRecord> record;
  };
  /// Hears of every error that enters or leaves: the queue is as it will be, its reports haven't gone out.
  void OnChanged(Listener changed) { changed_ = std::move(changed); }

  void Push(const ErrorRecord& record);
  /// Takes the error with that index out. False when there is none.
  bool Take(std::size_t index, Fate fate);
  void Clear();
  [[nodiscard]] std::size_t Size() const { return entries_.size(); }
  /// Null when there is none. The pointer holds until the next change.
  [[nodiscard]] const ErrorRecord* At(std::size_t index) const;
  [[nodiscard]] const std::deque<Entry>& Entries() const { return entries_; }
  /// The first error that is the same byte for byte; else the first with the same number and source.
  [[nodiscard]] std::optional<std::size_t> Find(const ErrorRecord& record) const;
  [[nodiscard]] std::vector<std::int32_t> Numbers() const;

 private:
  void ReportCount();
  void ReportFirst();
  void Tell(const ErrorRecord& record, std::int64_t serial, Fate fate) const;

  SimVariables& variables_;
  // By pointer, since taking one of thousands out would otherwise move 4 KB for each one behind it.
  std::deque<Entry> entries_;
  std::int64_t lastSerial_ = 0;
  Listener changed_;
};

}  // namespace pnl::sim
