// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_queue.h"

#include <cstring>
#include <utility>

namespace pnl::sim {

namespace {

constexpr TextView kCount = u"E.NERRORS";
constexpr TextView kFirst = u"E.ERRORPRI";

std::int32_t NumberOf(const ErrorRecord& record) { return record.Get<std::int32_t>(error_field::kNumber.offset); }
std::int32_t SourceOf(const ErrorRecord& record) { return record.Get<std::int32_t>(error_field::kSource.offset); }

}  // namespace

void SimErrorQueue::Push(const ErrorRecord& record) {
  entries_.push_back({++lastSerial_, std::make_unique<ErrorRecord>(record)});
  Tell(record, lastSerial_, Fate::kRaised);
  ReportCount();
  ReportPriority();
}

void SimErrorQueue::Take(std::size_t index, Fate fate) {
  const Entry taken = std::move(entries_[index]);
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  Tell(*taken.record, taken.serial, fate);
  ReportCount();
  if (index == 0) ReportPriority();
}

void SimErrorQueue::Clear() {
  const std::deque<Entry> taken = std::exchange(entries_, {});
  for (const Entry& entry : taken) Tell(*entry.record, entry.serial, Fate::kCleared);
  ReportCount();
  ReportPriority();
}

const ErrorRecord* SimErrorQueue::At(std::size_t index) const {
  return index < entries_.size() ? entries_[index].record.get() : nullptr;
}

std::optional<std::size_t> SimErrorQueue::Find(const ErrorRecord& record) const {
  std::optional<std::size_t> alike;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const ErrorRecord& other = *entries_[i].record;
    if (NumberOf(other) != NumberOf(record) || SourceOf(other) != SourceOf(record)) continue;
    if (std::memcmp(other.bytes, record.bytes, sizeof record.bytes) == 0) return i;
    if (!alike) alike = i;
  }
  return alike;
}

std::vector<std::int32_t> SimErrorQueue::Numbers() const {
  std::vector<std::int32_t> numbers;
  numbers.reserve(entries_.size());
  for (const Entry& entry : entries_) numbers.push_back(NumberOf(*entry.record));
  return numbers;
}

void SimErrorQueue::Tell(const ErrorRecord& record, std::int64_t serial, Fate fate) const {
  if (changed_) changed_(record, serial, fate);
}

void SimErrorQueue::ReportCount() {
  const rig::Value count = static_cast<std::int64_t>(entries_.size());
  if (!variables_.Exists(kCount)) variables_.Define(kCount, rig::VariableType::kInt, count);
  variables_.Set(kCount, count);
}

// The variable has no meaningful value: the report is the message.
void SimErrorQueue::ReportPriority() {
  if (!variables_.Exists(kFirst)) variables_.Define(kFirst, rig::VariableType::kInt, std::int64_t{0});
  variables_.Report(kFirst);
}

}  // namespace pnl::sim
