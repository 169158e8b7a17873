// SPDX-License-Identifier: MIT
// The store of the cutting data: every question about a file of cutting data and every change of one. It doesn't merge
// the factory file with the user file; that is zmc/store/cutting_merge.h. A parsed file is kept and used again while
// the file's bytes stay the same. An update reads the file again, so that it keeps what another program has written,
// and replaces it whole. A file that can't be parsed is never written.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "base/files.h"
#include "zmc/store/cutting_csv.h"
#include "zmc/store/cutting_records.h"
#include "zmc/store/cutting_result.h"

namespace pnl {

class CuttingSources;

/// The parameter whose text UpdateCondicionesCorteParam stores. 0 to 11 are numbers: minimum, maximum and selected
/// value of cutting speed, feed per tooth, depth and radial pass, in this order.
inline constexpr int kCuttingRemarkParam = 12;

/// A parameter block with the pair that it belongs to.
struct CuttingPair {
  Text operation;
  Text material;
  CT_Parametros block;
};

class CondicionesCorteParser {
 public:
  explicit CondicionesCorteParser(Files& files);
  ~CondicionesCorteParser();

  /// Non-zero when XML files can be read and written, which is always so.
  [[nodiscard]] static int IsXml6DllRegistered() { return 1; }
  /// True when the file exists.
  [[nodiscard]] bool CanAccess(TextView path) const { return files_.Query(path).exists; }

  [[nodiscard]] CuttingResult<CT_MaterialesDefinition> GetListaMateriales(TextView path);
  [[nodiscard]] CuttingResult<CT_Operaciones> GetListaOperaciones(TextView path);

  /// Descriptions and ids are compared exactly. Of several records with a description the first one counts.
  [[nodiscard]] static bool ExistMaterial(const CT_MaterialesDefinition& list, TextView description);
  [[nodiscard]] static CT_MaterialDefinition GetMaterialByDescription(const CT_MaterialesDefinition& list,
                                                                      TextView description);
  [[nodiscard]] static bool ExistOperation(const CT_Operaciones& list, TextView description, TextView id);
  [[nodiscard]] static bool ExistOperationByDescription(const CT_Operaciones& list, TextView description);
  [[nodiscard]] static CT_Operacion GetOperationByDescription(const CT_Operaciones& list, TextView description);

  /// The block of the pair in that file. No failure and no block: the file has none for this pair.
  [[nodiscard]] CuttingResult<std::optional<CT_Parametros>> GetCondicionesCorte(TextView path, TextView material,
                                                                                TextView operation);

  /// Writes one parameter of the pair and creates operation, block and element as needed. An operation that is created
  /// gets id, description and tool type of the record, and no date. Descriptions are stored as they are, so that the
  /// same ones find the pair again. value is in stored units; text is used for kCuttingRemarkParam alone.
  [[nodiscard]] CuttingError UpdateCondicionesCorteParam(TextView path, const CT_Operacion& operation,
                                                         const CT_MaterialDefinition& material, int param, double value,
                                                         TextView text);
  /// Writes the record over the one with the old description, or adds it. Of several with that description the one
  /// with the old id is taken, or else the first. An empty old description always adds. The description is stored
  /// without white space at both ends.
  [[nodiscard]] CuttingError UpdateMaterialDefinition(TextView path, TextView oldDescription, TextView oldId,
                                                      const CT_MaterialDefinition& record);
  /// The same for an operation. The parameter blocks under it stay.
  [[nodiscard]] CuttingError UpdateOperationWithoutMaterials(TextView path, TextView oldDescription, TextView oldId,
                                                             const CT_Operacion& record);
  /// Removes the first record of that description. If there is none, the file isn't written.
  [[nodiscard]] CuttingError DeleteMaterialDefinition(TextView path, TextView description);
  [[nodiscard]] CuttingError DeleteOperation(TextView path, TextView description);

  /// Writes each of the records over the one of its description, or adds it, all in one replacement of the file: either
  /// every record is stored or none. An operation that is there keeps its id and its parameter blocks.
  [[nodiscard]] CuttingError UpdateRecords(TextView path, const CuttingRecords& records);
  /// All parameter blocks of the file, in its order.
  [[nodiscard]] CuttingResult<std::vector<CuttingPair>> GetPairs(TextView path);

 private:
  /// Applies a change to the file's root element and replaces the file; does nothing when the change answers false.
  template <typename Edit>
  [[nodiscard]] CuttingError Change(TextView path, Edit edit);

  Files& files_;
  std::unique_ptr<CuttingSources> sources_;
};

}  // namespace pnl
