// SPDX-License-Identifier: MIT
#include "zmc/zmc_tables.h"

#include <ctime>
#include <set>
#include <unordered_set>
#include <utility>

#include "base/format.h"
#include "zmc/logic/zmc_formats.h"

namespace pnl {
namespace {

constexpr int kByDate = 0;
constexpr int kByDescription = 1;
constexpr int kByToolType = 2;

constexpr ZmcTableShape kMaterialsShape = {
    ZmcTab::kMaterials,      7, kByDescription, 6, 7, zmc_command::kDeleteMaterials, zmc_command::kSaveMaterials,
    zmc_text::kSaveMaterials};
constexpr ZmcTableShape kOperationsShape = {
    ZmcTab::kOperations,      4, kByToolType, 3, 4, zmc_command::kDeleteOperations, zmc_command::kSaveOperations,
    zmc_text::kSaveOperations};
constexpr int kForceColumn = 5;
constexpr int kToolTypeColumn = 2;
/// The texts of the tool types, in the order of their list.
constexpr int kToolTypeTexts[] = {89, 90, 98, 91, 92, 93, 94, 95, 96, 97};

Text Now() { return CuttingDate(static_cast<std::int64_t>(std::time(nullptr))); }

/// The types of ordering are the columns that they sort by. A column orders ascending, then descending, then gives way
/// to the order by date.
void StepOrder(int type, std::int32_t& ordering, bool& aToZ) {
  if (ordering != type) {
    ordering = type;
    aToZ = true;
  } else if (aToZ) {
    aToZ = false;
  } else {
    ordering = kByDate;
    aToZ = true;
  }
}

}  // namespace

Text CuttingDate(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm local = {};
  if (localtime_r(&time, &local) == nullptr) return {};
  return Format(u"%04d/%02d/%02d %02d:%02d:%02d", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                local.tm_min, local.tm_sec);
}

// Materials.

ZmcMaterials::ZmcMaterials(ZmcDesk& desk, std::function<void()> reloadLists)
    : ZmcTable(desk, kMaterialsShape, std::move(reloadLists)) {}

std::vector<ZmcTableRow> ZmcMaterials::Rows() const {
  std::vector<ZmcTableRow> rows;
  // A machine may have thousands of materials, so each isn't looked up in the whole list.
  std::unordered_set<TextView> factory;
  for (const CT_MaterialDefinition& record : Desk().data.Lists().MaterialesFabrica.MaterialDefinition) {
    factory.insert(TextOf(record.descripcion));
  }
  for (const MaterialRow& row : Desk().data.MaterialRows(Desk().settings.kept)) {
    const CT_MaterialDefinition& record = *row.record;
    const Text description(TextOf(record.descripcion));
    rows.push_back({{description, Text(TextOf(record.Norma.AlemaniaW)), Text(TextOf(record.Norma.UNE)),
                     Text(TextOf(record.Norma.AISI)), Text(TextOf(record.KC)), Text(), Text()},
                    record.Oculto,
                    factory.count(description) != 0});
  }
  return rows;
}

void ZmcMaterials::SetHeader() {
  const int texts[] = {zmc_text::kDescription, zmc_text::kNormGermany, zmc_text::kNormUne, zmc_text::kNormAisi};
  for (int col = 1; col <= 4; ++col) Grid().SetCellText(0, col, Desk().LoadText(texts[col - 1]));
  Grid().SetCellText(0, kForceColumn, Desk().LoadText(zmc_text::kCuttingForce) + u" (N/mm2)");
  Grid().SetCellText(0, kMaterialsShape.hiddenColumn, Desk().LoadText(zmc_text::kHidden));
}

void ZmcMaterials::SetKinds(int row) {
  ZmcGrid& grid = Grid();
  for (int col = 1; col <= 4; ++col) grid.SetCellKind(row, col, ZmcCellKind::kText, {});
  grid.SetCellKind(row, kForceColumn, ZmcCellKind::kNumber, {});
  grid.SetNumberFormat(row, kForceColumn, {5, 4, 0.0, 99999.9999});
  grid.SetCellKind(row, kMaterialsShape.hiddenColumn, ZmcCellKind::kCheck, {});
}

CuttingError ZmcMaterials::SaveRow(const ZmcTableRow& row, const Text& oldDescription, const Text& storedAs) {
  const CuttingLists& lists = Desk().data.Lists();
  const CT_MaterialDefinition old = CondicionesCorteParser::GetMaterialByDescription(
      row.factory ? lists.MaterialesFabrica : lists.MaterialesUsuario, oldDescription);
  CT_MaterialDefinition record;
  record.descripcion = LeafOf(row.cells[0]);
  record.Norma = {LeafOf(row.cells[1]), LeafOf(row.cells[2]), LeafOf(row.cells[3])};
  record.id = MaterialId(record.Norma);
  record.KC = LeafOf(row.cells[4]);
  record.Oculto = row.hidden;
  record.Date = Now();
  return Desk().data.Store().UpdateMaterialDefinition(Desk().data.UserPath(), storedAs, TextOf(old.id), record);
}

CuttingError ZmcMaterials::DeleteRecord(const Text& description) {
  return Desk().data.Store().DeleteMaterialDefinition(Desk().data.UserPath(), description);
}

std::pair<int, bool> ZmcMaterials::SortColumn() const {
  const ZmcKept& kept = Desk().settings.kept;
  return {kept.OrderingMaterialType == kByDate ? 0 : kByDescription, kept.MaterialAToZ};
}

void ZmcMaterials::OrderBy(int col) {
  ZmcKept& kept = Desk().settings.kept;
  StepOrder(col, kept.OrderingMaterialType, kept.MaterialAToZ);
}

// Operations.

ZmcOperations::ZmcOperations(ZmcDesk& desk, std::function<void()> reloadLists)
    : ZmcTable(desk, kOperationsShape, std::move(reloadLists)) {}

std::vector<ZmcTableRow> ZmcOperations::Rows() const {
  std::vector<ZmcTableRow> rows;
  // An operation is the machine maker's when description and id are.
  std::set<std::pair<TextView, TextView>> factory;
  for (const CT_Operacion& record : Desk().data.Lists().OperacionesFabrica.Operacion) {
    factory.emplace(TextOf(record.descripcion), TextOf(record.id));
  }
  for (const OperationRow& row : Desk().data.OperationRows(Desk().settings.kept)) {
    const CT_Operacion& record = *row.record;
    const Text description(TextOf(record.descripcion));
    rows.push_back({{description, Text(TextOf(record.ToolType)), Text(), Text()},
                    record.Oculto,
                    factory.count({description, TextOf(record.id)}) != 0});
  }
  return rows;
}

void ZmcOperations::SetHeader() {
  toolTypes_.clear();
  for (const int text : kToolTypeTexts) toolTypes_.push_back(Desk().LoadText(text));
  Grid().SetCellText(0, 1, Desk().LoadText(zmc_text::kDescription));
  Grid().SetCellText(0, kToolTypeColumn, Desk().LoadText(zmc_text::kToolType));
  Grid().SetCellText(0, kOperationsShape.hiddenColumn, Desk().LoadText(zmc_text::kHidden));
}

void ZmcOperations::SetKinds(int row) {
  ZmcGrid& grid = Grid();
  grid.SetCellKind(row, 1, ZmcCellKind::kText, {});
  grid.SetCellKind(row, kToolTypeColumn, ZmcCellKind::kList, toolTypes_);
  grid.SetCellKind(row, kOperationsShape.hiddenColumn, ZmcCellKind::kCheck, {});
}

CuttingError ZmcOperations::SaveRow(const ZmcTableRow& row, const Text& oldDescription, const Text& storedAs) {
  const CuttingLists& lists = Desk().data.Lists();
  CT_Operacion old;
  // A new row has no old record, not even one without a description.
  if (!oldDescription.empty()) {
    old = CondicionesCorteParser::GetOperationByDescription(
        row.factory ? lists.OperacionesFabrica : lists.OperacionesUsuario, oldDescription);
  }
  CT_Operacion record;
  record.descripcion = LeafOf(row.cells[0]);
  record.id = old.id;
  record.ToolType = LeafOf(row.cells[1]);
  record.Oculto = row.hidden;
  record.Date = Now();
  return Desk().data.Store().UpdateOperationWithoutMaterials(Desk().data.UserPath(), storedAs, TextOf(old.id), record);
}

CuttingError ZmcOperations::DeleteRecord(const Text& description) {
  return Desk().data.Store().DeleteOperation(Desk().data.UserPath(), description);
}

std::pair<int, bool> ZmcOperations::SortColumn() const {
  const ZmcKept& kept = Desk().settings.kept;
  const std::int32_t ordering = kept.OrderingOperationType;
  return {ordering == kByDescription || ordering == kByToolType ? ordering : 0, kept.OperationAToZ};
}

void ZmcOperations::OrderBy(int col) {
  ZmcKept& kept = Desk().settings.kept;
  StepOrder(col, kept.OrderingOperationType, kept.OperationAToZ);
}

}  // namespace pnl
