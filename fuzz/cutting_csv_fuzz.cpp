// SPDX-License-Identifier: MIT
// A table of materials and operations. Whatever the bytes are: a table with a fault gives no record, and one without
// reads the same again after it was written.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz_check.h"
#include "zmc/store/cutting_csv.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const pnl::CsvReading reading = pnl::ReadCuttingCsv(pnl::DecodeFile(bytes));
  const bool empty = reading.records.materials.empty() && reading.records.operations.empty();
  FUZZ_CHECK(reading.faults.empty() || empty);
  if (!reading.faults.empty()) return 0;
  const pnl::CsvReading again = pnl::ReadCuttingCsv(pnl::WriteCuttingCsv(reading.records));
  FUZZ_CHECK(again.faults.empty());
  FUZZ_CHECK(again.records.materials == reading.records.materials);
  FUZZ_CHECK(again.records.operations == reading.records.operations);
  return 0;
}
