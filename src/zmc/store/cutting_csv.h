// SPDX-License-Identifier: MIT
// Materials and operations as a table for a spreadsheet, one record a line. Reading checks everything: a file with one
// fault gives no record at all, but the list of all its faults. It knows neither files nor XML; parameter blocks aren't
// part of the table.
#pragma once

#include <vector>

#include "base/text.h"
#include "zmc/store/cutting_records.h"

namespace pnl {

struct CuttingRecords {
  std::vector<CT_MaterialDefinition> materials;
  std::vector<CT_Operacion> operations;
};

/// The table: a line of column names, then the records; columns are separated by semicolons, lines end with CR LF. A
/// text with a separator, a quote or a line end is quoted, with its quotes doubled.
[[nodiscard]] Text WriteCuttingCsv(const CuttingRecords& records);

enum class CsvFault {
  kNoHeader,     // the first line doesn't name the columns
  kColumnCount,  // a line has more columns than the first
  kUnknownKind,  // neither "material" nor "operation"
  kNoDescription,
  kRepeated,   // the description of an earlier line of the same kind
  kBadNumber,  // a cutting force that is no number from 0 to 99999.9999
  kBadText,    // a character that the cutting data can't contain
  kOpenQuote,  // a quote that isn't closed
};

struct CsvFaultAt {
  int line = 0;  // of the file, from 1
  CsvFault fault = CsvFault::kNoHeader;
  Text value;  // what was read there
  friend bool operator==(const CsvFaultAt&, const CsvFaultAt&) = default;
};

/// The records, without any if there is a fault. Materials get their id from their designations.
struct CsvReading {
  CuttingRecords records;
  std::vector<CsvFaultAt> faults;
};

/// Reads a table with semicolons, commas or tabs, with its columns in any order; unknown columns are passed over, and a
/// missing one is empty in each record. Reads at most a thousand faults.
[[nodiscard]] CsvReading ReadCuttingCsv(TextView text);

}  // namespace pnl
