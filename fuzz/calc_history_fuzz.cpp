// SPDX-License-Identifier: MIT
// Reads any bytes as the calculator's history file and stores the rows. The stored file must read back the same rows,
// and storing them once more must change nothing.
#include "calc/calc_storage.h"

#include "fuzz_check.h"
#include "support/fake_utilities.h"
#include "support/memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using pnl::CalcHistory;
  using pnl::TextRows;
  const std::string path = "C:\\P1\\calc.htr";
  pnl::test::MemoryFiles files;
  pnl::test::FakeUtilities utilities;
  utilities.driveStatus = 0;
  files.disc[path] = std::string(reinterpret_cast<const char*>(data), size);
  // Some inputs are read in short pieces, as from a slow disc.
  if (size % 3 == 1) files.piece = 7;

  CalcHistory history(files, utilities);
  const TextRows rows = history.Load();
  static_cast<void>(history.Save(rows));
  if (rows.empty()) {
    FUZZ_CHECK(files.disc[path] == std::string(reinterpret_cast<const char*>(data), size));
    return 0;
  }
  const std::string stored = files.disc[path];
  CalcHistory again(files, utilities);
  const TextRows reread = again.Load();
  FUZZ_CHECK(reread == rows);
  static_cast<void>(again.Save(reread));
  FUZZ_CHECK(files.disc[path] == stored);
  return 0;
}
