// SPDX-License-Identifier: MIT
// The operator's own materials and operations as a table in a file, out and in, and what his data change against the
// machine maker's. The file is chosen in the explorer. An import checks everything, shows what it would change, and
// then stores all of it or nothing.
#pragma once

#include <pnltools/pnltools.h>

#include <functional>

#include "zmc/store/cutting_changes.h"
#include "zmc/zmc_desk.h"

namespace pnl {

class ZmcExchange {
 public:
  /// reload is called after records were imported.
  ZmcExchange(ZmcDesk& desk, std::function<void()> reload);
  ~ZmcExchange();
  ZmcExchange(const ZmcExchange&) = delete;
  ZmcExchange& operator=(const ZmcExchange&) = delete;

  void Export() { Request(Kind::kExport); }
  void Import() { Request(Kind::kImport); }
  void ShowChanges();
  /// The explorer has ended: with a file, or without one.
  void OnExplorerEnded(bool accepted);

 private:
  enum class Kind { kNone, kExport, kImport };
  void Request(Kind kind);
  void ExportTo(const Text& path);
  void ImportFrom(const Text& path, const Text& name);
  void Store(CuttingRecords records);
  void ShowText(Text text) const;
  [[nodiscard]] CuttingRecords UserRecords() const;
  [[nodiscard]] CuttingRecords FactoryRecords() const;
  [[nodiscard]] Text FaultText(const CsvFaultAt& fault) const;
  [[nodiscard]] Text ChangeText(const CuttingChange& change) const;
  [[nodiscard]] Text PairText(const CuttingPair& pair) const;

  ZmcDesk& desk_;
  const std::function<void()> reload_;
  XPLRDATA_ST request_ = {};
  Kind waiting_ = Kind::kNone;
};

}  // namespace pnl
