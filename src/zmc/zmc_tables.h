// SPDX-License-Identifier: MIT
// The two tables: of materials and of operations. Each knows its columns, how a row becomes a record, and the order of
// its lists; everything else is in zmc/zmc_table.h.
#pragma once

#include "zmc/zmc_table.h"

namespace pnl {

class ZmcMaterials final : public ZmcTable {
 public:
  ZmcMaterials(ZmcDesk& desk, std::function<void()> reloadLists);

 protected:
  [[nodiscard]] std::vector<ZmcTableRow> Rows() const override;
  [[nodiscard]] CuttingError SaveRow(const ZmcTableRow& row, const Text& oldDescription, const Text& storedAs) override;
  [[nodiscard]] CuttingError DeleteRecord(const Text& description) override;
  void SetHeader() override;
  void SetKinds(int row) override;
  [[nodiscard]] std::pair<int, bool> SortColumn() const override;
  void OrderBy(int col) override;
};

class ZmcOperations final : public ZmcTable {
 public:
  ZmcOperations(ZmcDesk& desk, std::function<void()> reloadLists);

 protected:
  [[nodiscard]] std::vector<ZmcTableRow> Rows() const override;
  [[nodiscard]] CuttingError SaveRow(const ZmcTableRow& row, const Text& oldDescription, const Text& storedAs) override;
  [[nodiscard]] CuttingError DeleteRecord(const Text& description) override;
  void SetHeader() override;
  void SetKinds(int row) override;
  [[nodiscard]] std::pair<int, bool> SortColumn() const override;
  void OrderBy(int col) override;

 private:
  std::vector<Text> toolTypes_;  // what the cells of the tool type offer
};

/// The time of a save as the records keep it, "%Y/%m/%d %H:%M:%S" in local time. seconds: since 1970 in UTC.
[[nodiscard]] Text CuttingDate(std::int64_t seconds);

}  // namespace pnl
