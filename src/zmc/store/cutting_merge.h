// SPDX-License-Identifier: MIT
// The one view that the operator has of factory and user data: the merged lists of materials and operations in each
// ordering, the record that a selection gives, and the merged block of a pair. It reads no files, except LoadPair, and
// changes nothing.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"
#include "zmc/store/cutting_parser.h"
#include "zmc/store/cutting_records.h"

namespace pnl {

/// How a list is ordered, by the settings OrderingMaterialType, CustomMaterialFirst and MaterialAToZ or those for
/// operations. Type 0: last edited first. Type 1: by description. Type 2: operations by tool type, then description.
/// Materials take every type but 0 as 1; operations have no rows with a type that isn't known.
struct CuttingOrder {
  int type = 0;
  bool customFirst = true;
  bool aToZ = true;
};

/// Whether hidden records are rows: they are in the tables, but not in the lists of the main tab.
enum class HiddenRecords { kSkip, kList };

/// The files that have the record. A row of kBoth shows the user's record.
enum class CuttingOrigin { kFactory, kUser, kBoth };

/// A row of a merged list. record points into one of the two lists, which must outlive the row unchanged.
template <typename Record>
struct CuttingRow {
  const Record* record;
  CuttingOrigin origin;
  friend bool operator==(const CuttingRow&, const CuttingRow&) = default;
};
using MaterialRow = CuttingRow<CT_MaterialDefinition>;
using OperationRow = CuttingRow<CT_Operacion>;

[[nodiscard]] std::vector<MaterialRow> MergeMaterials(const CT_MaterialesDefinition& factory,
                                                      const CT_MaterialesDefinition& user, CuttingOrder order,
                                                      HiddenRecords hidden);
[[nodiscard]] std::vector<OperationRow> MergeOperations(const CT_Operaciones& factory, const CT_Operaciones& user,
                                                        CuttingOrder order, HiddenRecords hidden);

/// The record of a selected description: the factory's, else the user's, else nothing.
[[nodiscard]] std::optional<CT_MaterialDefinition> SelectedMaterial(const CT_MaterialesDefinition& factory,
                                                                    const CT_MaterialesDefinition& user,
                                                                    TextView description);
[[nodiscard]] std::optional<CT_Operacion> SelectedOperation(const CT_Operaciones& factory, const CT_Operaciones& user,
                                                            TextView description);
/// The cutting force of a material: the user's, else the factory's, else nothing.
[[nodiscard]] CuttingLeaf SelectedKC(const CT_MaterialesDefinition& factory, const CT_MaterialesDefinition& user,
                                     TextView description);

/// The four lists of the tool.
struct CuttingLists {
  CT_MaterialesDefinition MaterialesFabrica;
  CT_MaterialesDefinition MaterialesUsuario;
  CT_Operaciones OperacionesFabrica;
  CT_Operaciones OperacionesUsuario;
};

/// True when the factory has both the material and the operation, whether or not it has a block for the pair.
[[nodiscard]] bool IsFactoryPair(const CuttingLists& lists, TextView material, TextView operation);
/// The block that the operator sees: selected values and remark of the user, limits and quality of the factory for a
/// factory pair, else of the user.
[[nodiscard]] CT_Parametros MergeParametros(const std::optional<CT_Parametros>& factory,
                                            const std::optional<CT_Parametros>& user, bool factoryPair);
/// Reads the pair's blocks from both files and merges them. No failure and no block: one of the files can't be
/// accessed.
[[nodiscard]] CuttingResult<std::optional<CT_Parametros>> LoadPair(CondicionesCorteParser& parser, TextView factoryPath,
                                                                   TextView userPath, const CuttingLists& lists,
                                                                   TextView material, TextView operation);

}  // namespace pnl
