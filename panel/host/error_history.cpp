// SPDX-License-Identifier: MIT
#include "host/error_history.h"

#include <algorithm>
#include <utility>

namespace panel {

std::u16string ErrorHistory::KeyOf(const Summary& error) {
  std::u16string key;
  const auto number = [&key](std::int64_t value) {
    for (const char digit : std::to_string(value)) key += static_cast<char16_t>(digit);
    key += u'\0';
  };
  number(error.number);
  number(error.channel);
  number(error.severity);
  number(static_cast<int>(error.errorClass));
  number(error.source);
  number(error.identifier);
  key += error.module;
  key += u'\0';
  key += error.text;
  for (const std::u16string& parameter : error.parameters) {
    key += u'\0';
    key += parameter;
  }
  // The same error in two lines of a program is two errors.
  if (error.program) {
    key += u'\0';
    key += error.program->folder + u'\\' + error.program->file + u'\0';
    number(error.program->position);
    number(error.program->span);
  }
  return key;
}

void ErrorHistory::Tell(const Summary& error, Fate fate) {
  ++revision_;
  if (fate == Fate::kRaised) return Raise(error);
  Leave(error, fate);
}

void ErrorHistory::Raise(const Summary& error) {
  // When the clock is set back, a later error still gets no earlier time than those before it.
  latest_ = std::max(latest_, now_());
  CountArrival(latest_);
  const auto [place, isNew] = places_.try_emplace(KeyOf(error), rows_.end());
  if (isNew) {
    rows_.push_front({++lastId_, error, latest_, latest_, 0, {}, 0, 0, 0});
    place->second = rows_.begin();
  } else {
    rows_.splice(rows_.begin(), rows_, place->second);
  }
  ErrorRow& row = rows_.front();
  row.error = error;
  row.last = latest_;
  ++row.times;
  row.standing.insert(error.serial);
  standing_[error.serial] = rows_.begin();
  if (rows_.size() > kMostRows) DropOldest();
}

void ErrorHistory::DropOldest() {
  const auto oldest = std::prev(rows_.end());
  dropped_ += oldest->times;
  for (const std::int64_t serial : oldest->standing) standing_.erase(serial);
  droppedInQueue_.merge(oldest->standing);
  places_.erase(KeyOf(oldest->error));
  rows_.erase(oldest);
}

void ErrorHistory::Leave(const Summary& error, Fate fate) {
  droppedInQueue_.erase(error.serial);
  const auto found = standing_.find(error.serial);
  if (found == standing_.end()) return;
  ErrorRow& row = *found->second;
  standing_.erase(found);
  row.standing.erase(error.serial);
  ++(fate == Fate::kAcknowledged ? row.acknowledged : fate == Fate::kConfirmed ? row.confirmed : row.cleared);
}

void ErrorHistory::CountArrival(ErrorTime at) {
  constexpr std::chrono::seconds kSecond{1};
  while (!arrivals_.empty() && arrivals_.front().begin + kFloodTime <= at) arrivals_.pop_front();
  if (arrivals_.empty() || at - arrivals_.back().begin >= kSecond) arrivals_.push_back({at, 0});
  ++arrivals_.back().count;
}

std::optional<int> ErrorHistory::Flood() const {
  const ErrorTime now = std::max(latest_, now_());
  int count = 0;
  for (const Second& second : arrivals_) {
    if (second.begin + kFloodTime > now) count += second.count;
  }
  return count > kFloodCount ? std::optional(count) : std::nullopt;
}

std::optional<ErrorTime> ErrorHistory::FloodEnd() const {
  std::optional<int> rest = Flood();
  if (!rest) return std::nullopt;
  const ErrorTime now = std::max(latest_, now_());
  for (const Second& second : arrivals_) {
    if (second.begin + kFloodTime <= now) continue;
    *rest -= second.count;
    if (*rest <= kFloodCount) return second.begin + kFloodTime;
  }
  return std::nullopt;
}

bool ErrorHistory::IsConsistent() const {
  if (rows_.size() > kMostRows || places_.size() != rows_.size()) return false;
  std::size_t standing = 0;
  ErrorTime before = ErrorTime::max();
  for (const ErrorRow& row : rows_) {
    standing += row.standing.size();
    const int left = row.acknowledged + row.confirmed + row.cleared;
    if (static_cast<int>(row.standing.size()) + left != row.times) return false;
    if (row.first > row.last || row.last > before) return false;
    before = row.last;
  }
  return standing == standing_.size();
}

}  // namespace panel
