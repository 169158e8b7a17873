// SPDX-License-Identifier: MIT
// What became of the session's errors: the last 200 different ones, how often and when each came, how each left the
// queue, and whether they come in a flood. It is told of every error and asked for rows; it knows no widget and no
// clock but the one it was given. Nothing it leaves out goes without a number that says so.
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

/// Errors that are equal in all but their time share one row.
struct ErrorRow {
  std::int64_t id = 0;                       // of the row, as long as it is there
  pnl::rig::CncControl::ErrorSummary error;  // the last one
  ErrorTime first;
  ErrorTime last;
  int times = 0;
  // What became of them; together as many as times.
  std::set<std::int64_t> standing;  // serials
  int acknowledged = 0;
  int confirmed = 0;
  int cleared = 0;
};

class ErrorHistory {
 public:
  using Summary = pnl::rig::CncControl::ErrorSummary;
  using Fate = pnl::rig::CncControl::ErrorFate;

  static constexpr std::size_t kMostRows = 200;
  /// More than this many within kFloodTime are a flood.
  static constexpr int kFloodCount = 10;
  static constexpr std::chrono::minutes kFloodTime{10};

  explicit ErrorHistory(std::function<ErrorTime()> now) : now_(std::move(now)) {}

  void Tell(const Summary& error, Fate fate);

  /// The row whose error came last is in front.
  [[nodiscard]] const std::list<ErrorRow>& Rows() const { return rows_; }
  /// Another number whenever something above or below changed by a call of Tell.
  [[nodiscard]] std::int64_t Revision() const { return revision_; }
  /// Errors, not rows, that found no place any more, and how many of these stand in the queue still.
  [[nodiscard]] std::int64_t Left() const { return left_; }
  [[nodiscard]] std::int64_t LeftStanding() const { return static_cast<std::int64_t>(leftStanding_.size()); }
  /// How many came within the last ten minutes, if these are a flood.
  [[nodiscard]] std::optional<int> Flood() const;
  /// When the flood that there is now will be over, if no more come.
  [[nodiscard]] std::optional<ErrorTime> FloodEnd() const;

  /// Counts and places fit together; for the tests.
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
  std::map<std::u16string, Place> places_;  // by what makes errors equal
  std::map<std::int64_t, Place> standing_;  // by serial
  std::set<std::int64_t> leftStanding_;     // of errors without a row
  std::deque<Second> arrivals_;             // of the last ten minutes, second by second
  std::int64_t left_ = 0;
  std::int64_t revision_ = 0;
  std::int64_t lastId_ = 0;
  ErrorTime latest_{};
};

}  // namespace panel
