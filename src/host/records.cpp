// SPDX-License-Identifier: MIT
#include "host/records.h"

#include <map>

namespace pnl {
namespace {

struct Records {
  std::map<std::int32_t, void*> byNumber;
  std::int32_t next = 1;
};

Records& Published() {
  static Records records;
  return records;
}

}  // namespace

std::int32_t PublishRecord(void* record) {
  if (record == nullptr) return 0;
  Records& records = Published();
  for (const auto& [number, address] : records.byNumber) {
    if (address == record) return number;
  }
  records.byNumber.emplace(records.next, record);
  return records.next++;
}

void* ResolveRecord(std::int32_t number) {
  const auto& byNumber = Published().byNumber;
  const auto found = byNumber.find(number);
  return found == byNumber.end() ? nullptr : found->second;
}

void WithdrawRecord(std::int32_t number) { Published().byNumber.erase(number); }

std::size_t PublishedRecords() { return Published().byNumber.size(); }

}  // namespace pnl
