// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_queue.h"

#include <cstring>

namespace pnl::sim {

namespace {

constexpr TextView kCount = u"E.NERRORS";
constexpr TextView kFirst = u"E.ERRORPRI";

std::int32_t NumberOf(const ErrorRecord& record) { return record.Get<std::int32_t>(error_field::kNumber.offset); }
std::int32_t SourceOf(const ErrorRecord& record) { return record.Get<std::int32_t>(error_field::kSource.offset); }

}  // namespace

void SimErrorQueue::Push(const ErrorRecord& record) {
  records_.push_back(std::make_unique<ErrorRecord>(record));
  ReportCount();
  ReportFirst();
}

bool SimErrorQueue::Take(std::size_t index) {
  if (index >= records_.size()) return false;
  records_.erase(records_.begin() + static_cast<std::ptrdiff_t>(index));
  ReportCount();
  if (index == 0) ReportFirst();
  return true;
}

void SimErrorQueue::Clear() {
  records_.clear();
  ReportCount();
  ReportFirst();
}

const ErrorRecord* SimErrorQueue::At(std::size_t index) const {
  return index < records_.size() ? records_[index].get() : nullptr;
}

std::optional<std::size_t> SimErrorQueue::Find(const ErrorRecord& record) const {
  std::optional<std::size_t> alike;
  for (std::size_t i = 0; i < records_.size(); ++i) {
    const ErrorRecord& other = *records_[i];
    if (NumberOf(other) != NumberOf(record) || SourceOf(other) != SourceOf(record)) continue;
    if (std::memcmp(other.bytes, record.bytes, sizeof record.bytes) == 0) return i;
    if (!alike) alike = i;
  }
  return alike;
}

std::vector<std::int32_t> SimErrorQueue::Numbers() const {
  std::vector<std::int32_t> numbers;
  numbers.reserve(records_.size());
  for (const auto& record : records_) numbers.push_back(NumberOf(*record));
  return numbers;
}

void SimErrorQueue::ReportCount() {
  const rig::Value count = static_cast<std::int64_t>(records_.size());
  if (!variables_.Exists(kCount)) variables_.Define(kCount, rig::VariableType::kInt, count);
  variables_.Set(kCount, count);
}

// The variable carries no value of its own: that it reports is the whole message.
void SimErrorQueue::ReportFirst() {
  if (!variables_.Exists(kFirst)) variables_.Define(kFirst, rig::VariableType::kInt, std::int64_t{0});
  variables_.Report(kFirst);
}

}  // namespace pnl::sim
