// SPDX-License-Identifier: MIT
// Takes any bytes as the user's file of cutting data. A file that is no document of ours is never written. Any other
// one takes updates: afterwards a fresh store reads what the updates stored, and everything else as it was.
#include <optional>
#include <utility>

#include "fuzz_check.h"
#include "support/memory_files.h"
#include "zmc/store/cutting_merge.h"
#include "zmc/store/cutting_parser.h"

namespace {

using pnl::CondicionesCorteParser;
using pnl::CuttingError;
using pnl::CuttingOrder;
using pnl::HiddenRecords;
using pnl::Text;
using pnl::TextView;

constexpr TextView kPath = u"C:\\P118\\CondicionesCorteP.xml";

struct Lists {
  pnl::CT_MaterialesDefinition materials;
  pnl::CT_Operaciones operations;
};

std::optional<Lists> Read(CondicionesCorteParser& store) {
  auto materials = store.GetListaMateriales(kPath);
  auto operations = store.GetListaOperaciones(kPath);
  FUZZ_CHECK(materials.Error() == operations.Error());
  FUZZ_CHECK(materials.Ok() || materials.Error() == CuttingError::kXmlEngine);
  if (!materials.Ok()) return std::nullopt;
  return Lists{std::move(materials).Value(), std::move(operations).Value()};
}

/// Merged with itself, no list has more rows than records.
void CheckMerges(const Lists& lists) {
  for (int type = 0; type < 3; ++type) {
    const CuttingOrder order{type, true, true};
    FUZZ_CHECK(pnl::MergeMaterials(lists.materials, lists.materials, order, HiddenRecords::kList).size() <=
               2 * lists.materials.MaterialDefinition.size());
    FUZZ_CHECK(pnl::MergeOperations(lists.operations, lists.operations, order, HiddenRecords::kList).size() <=
               2 * lists.operations.Operacion.size());
  }
}

void CheckUpdates(pnl::test::MemoryFiles& files, const Lists& before) {
  CondicionesCorteParser store(files);
  pnl::CT_MaterialDefinition material;
  material.descripcion = u"fuzzed <material>";
  pnl::CT_Operacion operation;
  operation.descripcion = u"fuzzed\r\n& operation";
  FUZZ_CHECK(store.UpdateMaterialDefinition(kPath, u"", u"", material) == CuttingError::kNone);
  const bool known = CondicionesCorteParser::ExistOperationByDescription(before.operations, *operation.descripcion);
  FUZZ_CHECK(store.UpdateCondicionesCorteParam(kPath, operation, material, 2, 0.1, {}) == CuttingError::kNone);
  CondicionesCorteParser fresh(files);
  const auto block = fresh.GetCondicionesCorte(kPath, *material.descripcion, *operation.descripcion);
  FUZZ_CHECK(block.Ok() && block.Value() && block.Value()->VelocidadCorte.Selected == u"0.1");
  auto after = Read(fresh);
  FUZZ_CHECK(after && after->materials.MaterialDefinition.back() == material);
  after->materials.MaterialDefinition.pop_back();
  if (!known) after->operations.Operacion.pop_back();
  FUZZ_CHECK(after->materials.MaterialDefinition == before.materials.MaterialDefinition);
  FUZZ_CHECK(after->operations.Operacion == before.operations.Operacion);
  // Written again, it is the same to the byte.
  const std::string once = files.disc.at(pnl::ToUtf8(kPath));
  FUZZ_CHECK(fresh.UpdateCondicionesCorteParam(kPath, operation, material, 2, 0.1, {}) == CuttingError::kNone);
  FUZZ_CHECK(files.disc.at(pnl::ToUtf8(kPath)) == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  pnl::test::MemoryFiles files;
  files.disc[pnl::ToUtf8(kPath)] = bytes;
  CondicionesCorteParser store(files);
  if (const auto lists = Read(store)) {
    CheckMerges(*lists);
    CheckUpdates(files, *lists);
  } else {
    FUZZ_CHECK(store.DeleteMaterialDefinition(kPath, u"x") == CuttingError::kXmlEngine);
    FUZZ_CHECK(files.disc.at(pnl::ToUtf8(kPath)) == bytes);
  }
  return 0;
}
