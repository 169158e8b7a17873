// SPDX-License-Identifier: MIT
#include "zmc/zmc_data.h"

#include <utility>

#include "base/format.h"
#include "facade/utilities.h"
#include "zmc/logic/zmc_fields.h"
#include "zmc/store/user_file.h"
#include "zmc/zmc_ids.h"

namespace pnl {
namespace {

CuttingOrder MaterialOrder(const ZmcKept& settings) {
  return {settings.OrderingMaterialType, settings.CustomMaterialFirst, settings.MaterialAToZ};
}

CuttingOrder OperationOrder(const ZmcKept& settings) {
  return {settings.OrderingOperationType, settings.CustomOperationFirst, settings.OperationAToZ};
}

template <typename Row>
std::vector<Text> NamesOf(const std::vector<Row>& rows) {
  std::vector<Text> names;
  names.reserve(rows.size());
  for (const Row& row : rows) names.emplace_back(TextOf(row.record->descripcion));
  return names;
}

/// Reads a list of both files. What can't be read stays as it was.
template <typename List, typename Read>
ZmcLoad LoadBoth(const CondicionesCorteParser& parser, const Text& factoryPath, const Text& userPath, List& factory,
                 List& user, bool& listed, Read read) {
  listed = false;
  if (!parser.CanAccess(factoryPath)) {
    factory = {};
    user = {};
    return {true, CuttingError::kNone};
  }
  auto ours = read(factoryPath);
  if (!ours.Ok()) return {false, ours.Error()};
  factory = std::move(ours).Value();
  if (!parser.CanAccess(userPath)) return {};
  auto theirs = read(userPath);
  if (!theirs.Ok()) return {false, theirs.Error()};
  user = std::move(theirs).Value();
  listed = true;
  return {};
}

}  // namespace

ZmcData::ZmcData(Files& files, Utilities& utilities) : files_(files), utilities_(utilities), parser_(files) {}

FileStatus ZmcData::Open() {
  // A frame that is shown again keeps its files: the lists and records in memory are theirs.
  if (userPath_.empty()) {
    factoryPath_ = Format(u"%s\\%s", utilities_.Get7340Path(path_id::kCuttingData), kFactoryFileName);
    userPath_ = Format(u"%s\\%s", utilities_.Get7340Path(path_id::kUserCuttingData), kUserFileName);
  }
  return EnsureUserFile(files_, userPath_);
}

ZmcLoad ZmcData::LoadMaterials() {
  return LoadBoth(parser_, factoryPath_, userPath_, lists_.MaterialesFabrica, lists_.MaterialesUsuario,
                  materialsListed_, [this](const Text& path) { return parser_.GetListaMateriales(path); });
}

ZmcLoad ZmcData::LoadOperations() {
  return LoadBoth(parser_, factoryPath_, userPath_, lists_.OperacionesFabrica, lists_.OperacionesUsuario,
                  operationsListed_, [this](const Text& path) { return parser_.GetListaOperaciones(path); });
}

std::vector<Text> ZmcData::MaterialNames(const ZmcKept& settings) const {
  if (!materialsListed_) return {};
  return NamesOf(MergeMaterials(lists_.MaterialesFabrica, lists_.MaterialesUsuario, MaterialOrder(settings),
                                HiddenRecords::kSkip));
}

std::vector<Text> ZmcData::OperationNames(const ZmcKept& settings) const {
  if (!operationsListed_) return {};
  return NamesOf(MergeOperations(lists_.OperacionesFabrica, lists_.OperacionesUsuario, OperationOrder(settings),
                                 HiddenRecords::kSkip));
}

std::vector<MaterialRow> ZmcData::MaterialRows(const ZmcKept& settings) const {
  return MergeMaterials(lists_.MaterialesFabrica, lists_.MaterialesUsuario, MaterialOrder(settings),
                        HiddenRecords::kList);
}

std::vector<OperationRow> ZmcData::OperationRows(const ZmcKept& settings) const {
  return MergeOperations(lists_.OperacionesFabrica, lists_.OperacionesUsuario, OperationOrder(settings),
                         HiddenRecords::kList);
}

void ZmcData::SelectMaterial(TextView description) {
  MaterialActual_ = SelectedMaterial(lists_.MaterialesFabrica, lists_.MaterialesUsuario, description);
}

void ZmcData::SelectOperation(TextView description) {
  OperacionActual_ = SelectedOperation(lists_.OperacionesFabrica, lists_.OperacionesUsuario, description);
}

std::optional<double> ZmcData::Kc() const {
  if (!MaterialActual_) return std::nullopt;
  const CuttingLeaf kc =
      SelectedKC(lists_.MaterialesFabrica, lists_.MaterialesUsuario, TextOf(MaterialActual_->descripcion));
  return kc ? std::optional(DecimalOf(*kc)) : std::nullopt;
}

bool ZmcData::IsFactorySelection() const {
  return MaterialActual_ && OperacionActual_ &&
         IsFactoryPair(lists_, TextOf(MaterialActual_->descripcion), TextOf(OperacionActual_->descripcion));
}

}  // namespace pnl
