// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_parser.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "zmc/store/cutting_nodes.h"
#include "zmc/store/cutting_sources.h"
#include "zmc/store/cutting_text.h"

namespace pnl {
namespace {

bool CanHold(std::initializer_list<CuttingLeaf> leaves) {
  return std::all_of(leaves.begin(), leaves.end(),
                     [](const CuttingLeaf& leaf) { return CanHoldCuttingText(TextOf(leaf)); });
}

bool CanHold(const CT_MaterialDefinition& record) {
  return CanHold({record.id, record.descripcion, record.Norma.AlemaniaW, record.Norma.UNE, record.Norma.AISI, record.KC,
                  record.Date});
}

bool CanHold(const CT_Operacion& record) {
  return CanHold({record.id, record.descripcion, record.Date, record.ToolType});
}

/// The text to store for a parameter; nothing when there is no such parameter or no file can contain it.
std::optional<Text> StoredParameter(int param, double value, TextView text) {
  if (param < 0 || param > kCuttingRemarkParam) return std::nullopt;
  if (param < kCuttingRemarkParam) return StoredNumber(value);
  return CanHoldCuttingText(text) ? std::optional<Text>(text) : std::nullopt;
}

/// The operation's element, made when there is none. It keeps no date: the user hasn't edited it. It isn't hidden
/// either, or the operator would lose the operation by editing a cell.
pugi::xml_node EnsureOperation(pugi::xml_node root, const CT_Operacion& operation) {
  if (const pugi::xml_node node = FindOperation(root, TextOf(operation.descripcion), TextOf(operation.id))) return node;
  CT_Operacion record = operation;
  record.Date.reset();
  record.Oculto = false;
  const pugi::xml_node node = AddOperation(root);
  WriteOperation(node, record);
  return node;
}

/// The record as it is stored by a table.
template <typename Record>
Record Trimmed(const Record& record) {
  Record trimmed = record;
  trimmed.descripcion = LeafOf(Trim(TextOf(record.descripcion)));
  return trimmed;
}

template <typename Record, typename Nodes>
std::vector<Record> ReadRecords(const Nodes& nodes, Record (*read)(pugi::xml_node)) {
  std::vector<Record> records;
  records.reserve(static_cast<std::size_t>(std::distance(nodes.begin(), nodes.end())));
  for (const pugi::xml_node node : nodes) records.push_back(read(node));
  return records;
}

/// The first record with that description; null when there is none.
template <typename Record>
const Record* FindIn(const std::vector<Record>& records, TextView description) {
  const auto found = std::find_if(records.begin(), records.end(),
                                  [&](const Record& each) { return TextOf(each.descripcion) == description; });
  return found == records.end() ? nullptr : &*found;
}

}  // namespace

CondicionesCorteParser::CondicionesCorteParser(Files& files)
    : files_(files), sources_(std::make_unique<CuttingSources>(files)) {}

CondicionesCorteParser::~CondicionesCorteParser() = default;

CuttingResult<CT_MaterialesDefinition> CondicionesCorteParser::GetListaMateriales(TextView path) {
  const auto document = sources_->Open(path);
  if (!document.Ok()) return document.Error();
  return CT_MaterialesDefinition{ReadRecords<CT_MaterialDefinition>(
      document.Value()->Root().child("MaterialesDefinition").children("MaterialDefinition"), ReadMaterial)};
}

CuttingResult<CT_Operaciones> CondicionesCorteParser::GetListaOperaciones(TextView path) {
  const auto document = sources_->Open(path);
  if (!document.Ok()) return document.Error();
  return CT_Operaciones{
      ReadRecords<CT_Operacion>(document.Value()->Root().child("Operaciones").children("Operacion"), ReadOperation)};
}

bool CondicionesCorteParser::ExistMaterial(const CT_MaterialesDefinition& list, TextView description) {
  return FindIn(list.MaterialDefinition, description) != nullptr;
}

CT_MaterialDefinition CondicionesCorteParser::GetMaterialByDescription(const CT_MaterialesDefinition& list,
                                                                       TextView description) {
  const CT_MaterialDefinition* found = FindIn(list.MaterialDefinition, description);
  return found != nullptr ? *found : CT_MaterialDefinition();
}

bool CondicionesCorteParser::ExistOperation(const CT_Operaciones& list, TextView description, TextView id) {
  return std::any_of(list.Operacion.begin(), list.Operacion.end(), [&](const CT_Operacion& each) {
    return TextOf(each.descripcion) == description && TextOf(each.id) == id;
  });
}

bool CondicionesCorteParser::ExistOperationByDescription(const CT_Operaciones& list, TextView description) {
  return FindIn(list.Operacion, description) != nullptr;
}

CT_Operacion CondicionesCorteParser::GetOperationByDescription(const CT_Operaciones& list, TextView description) {
  const CT_Operacion* found = FindIn(list.Operacion, description);
  return found != nullptr ? *found : CT_Operacion();
}

CuttingResult<std::optional<CT_Parametros>> CondicionesCorteParser::GetCondicionesCorte(TextView path,
                                                                                        TextView material,
                                                                                        TextView operation) {
  const auto document = sources_->Open(path);
  if (!document.Ok()) return document.Error();
  const pugi::xml_node block = FindBlock(document.Value()->Root(), material, operation);
  return block ? std::optional<CT_Parametros>(ReadParameters(block)) : std::nullopt;
}

template <typename Edit>
CuttingError CondicionesCorteParser::Change(TextView path, Edit edit) {
  const auto document = sources_->Open(path);
  if (!document.Ok()) return document.Error();
  if (!edit(document.Value()->Root())) return CuttingError::kNone;
  return sources_->Write(path);
}

CuttingError CondicionesCorteParser::UpdateCondicionesCorteParam(TextView path, const CT_Operacion& operation,
                                                                 const CT_MaterialDefinition& material, int param,
                                                                 double value, TextView text) {
  const std::optional<Text> stored = StoredParameter(param, value, text);
  const bool named = !TextOf(operation.descripcion).empty() && !TextOf(material.descripcion).empty();
  if (!stored || !named || !CanHold(operation) || !CanHold(material)) return CuttingError::kNotHoldable;
  return Change(path, [&](pugi::xml_node root) {
    pugi::xml_node block = FindBlock(root, *material.descripcion, *operation.descripcion);
    if (!block) block = AddBlock(EnsureOperation(root, operation), *material.descripcion);
    WriteParameter(block, param, *stored);
    return true;
  });
}

CuttingError CondicionesCorteParser::UpdateMaterialDefinition(TextView path, TextView oldDescription, TextView oldId,
                                                              const CT_MaterialDefinition& record) {
  if (!CanHold(record)) return CuttingError::kNotHoldable;
  return Change(path, [&](pugi::xml_node root) {
    pugi::xml_node node = FindMaterial(root, oldDescription, oldId);
    if (!node) node = AddMaterial(root);
    WriteMaterial(node, Trimmed(record));
    return true;
  });
}

CuttingError CondicionesCorteParser::UpdateOperationWithoutMaterials(TextView path, TextView oldDescription,
                                                                     TextView oldId, const CT_Operacion& record) {
  if (!CanHold(record)) return CuttingError::kNotHoldable;
  return Change(path, [&](pugi::xml_node root) {
    pugi::xml_node node = FindOperation(root, oldDescription, oldId);
    if (!node) node = AddOperation(root);
    WriteOperation(node, Trimmed(record));
    return true;
  });
}

CuttingError CondicionesCorteParser::DeleteMaterialDefinition(TextView path, TextView description) {
  return Change(path, [&](pugi::xml_node root) {
    const pugi::xml_node node = FindMaterial(root, description, std::nullopt);
    RemoveTree(node);
    return static_cast<bool>(node);
  });
}

CuttingError CondicionesCorteParser::DeleteOperation(TextView path, TextView description) {
  return Change(path, [&](pugi::xml_node root) {
    const pugi::xml_node node = FindOperation(root, description, std::nullopt);
    RemoveTree(node);
    return static_cast<bool>(node);
  });
}

CuttingError CondicionesCorteParser::UpdateRecords(TextView path, const CuttingRecords& records) {
  const auto holds = [](const auto& record) { return CanHold(record); };
  if (!std::all_of(records.materials.begin(), records.materials.end(), holds) ||
      !std::all_of(records.operations.begin(), records.operations.end(), holds)) {
    return CuttingError::kNotHoldable;
  }
  return Change(path, [&](pugi::xml_node root) {
    for (const CT_MaterialDefinition& record : records.materials) {
      const pugi::xml_node node = FindMaterial(root, TextOf(record.descripcion), std::nullopt);
      WriteMaterial(node ? node : AddMaterial(root), Trimmed(record));
    }
    for (CT_Operacion record : records.operations) {
      const pugi::xml_node node = FindOperation(root, TextOf(record.descripcion), std::nullopt);
      if (node) record.id = ReadOperation(node).id;
      WriteOperation(node ? node : AddOperation(root), Trimmed(record));
    }
    return !records.materials.empty() || !records.operations.empty();
  });
}

CuttingResult<std::vector<CuttingPair>> CondicionesCorteParser::GetPairs(TextView path) {
  const auto document = sources_->Open(path);
  if (!document.Ok()) return document.Error();
  std::vector<CuttingPair> pairs;
  for (const pugi::xml_node node : document.Value()->Root().child("Operaciones").children("Operacion")) {
    const Text operation(TextOf(ReadOperation(node).descripcion));
    for (const pugi::xml_node pair : node.children("Materiales")) {
      const pugi::xml_node block = pair.child("Parametros");
      if (block) pairs.push_back({operation, FromUtf8(block.child("Material").text().get()), ReadParameters(block)});
    }
  }
  return pairs;
}

}  // namespace pnl
