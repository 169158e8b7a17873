// SPDX-License-Identifier: MIT
// The history of the session's errors: the last 200 different ones, how often and when each came, how each left the
// queue, and whether they come in a flood. It hears of every error through Tell. It knows no widget, and no clock but
// the one it is given. It counts the errors that it has no row for any more.
#pragma once

#include <pnltools/rig.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace panel {

using ErrorTime = std::chrono::system_clock::time_point;

/// Errors that differ only in time and serial share one row.
struct ErrorRow {
  std::int64_t id = 0;                       // identifies the row while it exists
  pnl::rig::CncControl::ErrorSummary error;  // the last one
  ErrorTime first;
  ErrorTime last;
  int times = 0;
  // What happened to the errors of this row. The four counts add up to times.
  std::set<std::int64_t> standing;  // serials of those still in the queue
  int acknowledged = 0;
  int confirmed = 0;
  int cleared = 0;
};

class ErrorHistory {
 public:
  using Summary = pnl::rig::CncControl::ErrorSummary;
  using Fate = pnl::rig::CncControl::ErrorFate;

  static constexpr std::size_t kMostRows = 200;
  /// There is a flood when more errors than this came within kFloodTime.
  static constexpr int kFloodCount = 10;
  static constexpr std::chrono::minutes kFloodTime{10};

  explicit ErrorHistory(std::function<ErrorTime()> now) : now_(std::move(now)) {}

  void Tell(const Summary& error, Fate fate);

  /// The rows, the one with the latest error first.
  [[nodiscard]] const std::list<ErrorRow>& Rows() const { return rows_; }
  /// Grows with every call of Tell, so that a reader can see whether anything changed.
  [[nodiscard]] std::int64_t Revision() const { return revision_; }
  /// How many errors (not rows) were dropped for lack of room, and how many of these are still in the queue.
  [[nodiscard]] std::int64_t Dropped() const { return dropped_; }
  [[nodiscard]] std::int64_t DroppedInQueue() const { return static_cast<std::int64_t>(droppedInQueue_.size()); }
  /// How many errors came within kFloodTime. Nothing when that is no flood.
  [[nodiscard]] std::optional<int> Flood() const;
  /// When the present flood will be over if no more errors come. Nothing when there is no flood.
  [[nodiscard]] std::optional<ErrorTime> FloodEnd() const;

  /// Whether the counts and the indexes agree; for the tests.
  [[nodiscard]] bool IsConsistent() const;

 private:
  using Place = std::list<ErrorRow>::iterator;
  struct Second {
    ErrorTime begin;
    int count = 0;
  };

  void Raise(const Summary& error);
  void Leave(const Summary& error, Fate fate);
  void DropOldest();
  void CountArrival(ErrorTime at);
  [[nodiscard]] static std::u16string KeyOf(const Summary& error);

  std::function<ErrorTime()> now_;
  std::list<ErrorRow> rows_;
  std::map<std::u16string, Place> places_;  // by KeyOf
  std::map<std::int64_t, Place> standing_;  // by serial
  std::set<std::int64_t> droppedInQueue_;   // serials of errors without a row that are still in the queue
  std::deque<Second> arrivals_;             // of the last kFloodTime, second by second
  std::int64_t dropped_ = 0;
  std::int64_t revision_ = 0;
  std::int64_t lastId_ = 0;
  ErrorTime latest_{};
};

}  // namespace panel
