// SPDX-License-Identifier: MIT
// The cutting data as the tool works with them: the two files, the four lists that are kept in memory, and the records
// selected on the main tab. Its calls return how they ended; the caller shows the message.
#pragma once

#include <optional>
#include <vector>

#include "base/files.h"
#include "zmc/logic/zmc_settings.h"
#include "zmc/store/cutting_merge.h"
#include "zmc/store/cutting_parser.h"

namespace pnl {

/// How loading a pair of lists ended.
struct ZmcLoad {
  bool noFactoryFile = false;
  CuttingError error = CuttingError::kNone;
};

class ZmcData {
 public:
  ZmcData(Files& files, Utilities& utilities);

  /// Forms the paths at the first call; makes the user file if there is none. Returns kOk when it is there afterwards.
  [[nodiscard]] FileStatus Open();
  [[nodiscard]] const Text& FactoryPath() const { return factoryPath_; }
  [[nodiscard]] const Text& UserPath() const { return userPath_; }
  [[nodiscard]] bool CanAccessUserFile() const { return parser_.CanAccess(userPath_); }
  [[nodiscard]] CondicionesCorteParser& Store() { return parser_; }

  /// Read the lists of both files anew. Without the factory file, or without the user file, the lists of the main tab
  /// are empty.
  ZmcLoad LoadMaterials();
  ZmcLoad LoadOperations();
  /// The rows of the main tab's lists.
  [[nodiscard]] std::vector<Text> MaterialNames(const ZmcKept& settings) const;
  [[nodiscard]] std::vector<Text> OperationNames(const ZmcKept& settings) const;
  /// The rows of the tables, hidden records with them.
  [[nodiscard]] std::vector<MaterialRow> MaterialRows(const ZmcKept& settings) const;
  [[nodiscard]] std::vector<OperationRow> OperationRows(const ZmcKept& settings) const;
  [[nodiscard]] const CuttingLists& Lists() const { return lists_; }

  void SelectMaterial(TextView description);
  void SelectOperation(TextView description);
  [[nodiscard]] const std::optional<CT_MaterialDefinition>& MaterialActual() const { return MaterialActual_; }
  [[nodiscard]] const std::optional<CT_Operacion>& OperacionActual() const { return OperacionActual_; }
  /// The cutting force of the selected material in N/mm2; nothing when no file has one.
  [[nodiscard]] std::optional<double> Kc() const;
  /// True when material and operation are selected and the factory has both: their limits can't be edited.
  [[nodiscard]] bool IsFactorySelection() const;

 private:
  Files& files_;
  Utilities& utilities_;
  CondicionesCorteParser parser_;
  Text factoryPath_;
  Text userPath_;
  CuttingLists lists_;
  bool materialsListed_ = false;
  bool operationsListed_ = false;
  std::optional<CT_MaterialDefinition> MaterialActual_;
  std::optional<CT_Operacion> OperacionActual_;
};

}  // namespace pnl
