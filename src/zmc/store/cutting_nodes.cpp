// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_nodes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <utility>

namespace pnl {
namespace {

// The elements in the order in which they are written.
using Names = std::span<const std::string_view>;
constexpr std::array<std::string_view, 2> kRoot = {"MaterialesDefinition", "Operaciones"};
constexpr std::array<std::string_view, 6> kMaterial = {"id", "descripcion", "Norma", "KC", "Oculto", "Date"};
constexpr std::array<std::string_view, 3> kNorma = {"AlemaniaW", "UNE", "AISI"};
constexpr std::array<std::string_view, 6> kOperation = {"id",   "descripcion", "Oculto",
                                                        "Date", "ToolType",    "Materiales"};
constexpr std::array<std::string_view, 7> kBlock = {"Material",          "VelocidadCorte", "AvancePorDiente",
                                                    "Profundidad",       "PasadaRadial",   "Observaciones",
                                                    "CaracteristicasHta"};
constexpr std::array<std::string_view, 3> kRange = {"Selected", "Min", "Max"};
constexpr std::array<std::string_view, 1> kRemark = {"Descripcion"};

// The parameters of a block by id.
struct Parameter {
  const char* element;
  const char* leaf;
};
constexpr std::array<Parameter, 13> kParameters = {{{"VelocidadCorte", "Min"},
                                                    {"VelocidadCorte", "Max"},
                                                    {"VelocidadCorte", "Selected"},
                                                    {"AvancePorDiente", "Min"},
                                                    {"AvancePorDiente", "Max"},
                                                    {"AvancePorDiente", "Selected"},
                                                    {"Profundidad", "Min"},
                                                    {"Profundidad", "Max"},
                                                    {"Profundidad", "Selected"},
                                                    {"PasadaRadial", "Min"},
                                                    {"PasadaRadial", "Max"},
                                                    {"PasadaRadial", "Selected"},
                                                    {"Observaciones", "Descripcion"}}};

bool IsText(pugi::xml_node node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

/// The text of an element without that of the elements in it. A comment may divide it.
std::string TextIn(pugi::xml_node element) {
  std::string text;
  for (const pugi::xml_node child : element) {
    if (IsText(child)) text += child.value();
  }
  return text;
}

bool HasText(pugi::xml_node element, std::string_view text) {
  const pugi::xml_node only = element.first_child();
  if (only && !only.next_sibling()) return IsText(only) && only.value() == text;
  return TextIn(element) == text;
}

std::size_t IndexOf(std::string_view name, Names order) {
  return static_cast<std::size_t>(std::find(order.begin(), order.end(), name) - order.begin());
}

/// The first child of each name, in the order of the names; an empty node for a name that no child has.
template <std::size_t N>
std::array<pugi::xml_node, N> FirstChildren(pugi::xml_node parent, const std::array<std::string_view, N>& names) {
  std::array<pugi::xml_node, N> found;
  std::size_t expected = 0;
  for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling()) {
    for (std::size_t i = 0; i < N; ++i) {
      // Nearly always they come in order, so that the first comparison fits.
      const std::size_t index = (expected + i) % N;
      if (std::strcmp(child.name(), names[index].data()) != 0) continue;
      if (!found[index]) found[index] = child;
      expected = index + 1;
      break;
    }
  }
  return found;
}

CuttingLeaf Leaf(pugi::xml_node element) {
  const pugi::xml_node only = element.first_child();
  if (!only) return std::nullopt;
  // Nearly every leaf is one piece of text.
  Text text = !only.next_sibling() && IsText(only) ? FromUtf8(only.value()) : FromUtf8(TextIn(element));
  return text.empty() ? std::nullopt : CuttingLeaf(std::move(text));
}

/// The child of that name. A new one comes in front of those that follow it in the order.
pugi::xml_node EnsureChild(pugi::xml_node parent, const char* name, Names order) {
  if (const pugi::xml_node child = parent.child(name)) return child;
  const std::size_t place = IndexOf(name, order);
  for (const pugi::xml_node child : parent) {
    const std::size_t index = IndexOf(child.name(), order);
    if (index > place && index < order.size()) return parent.insert_child_before(name, child);
  }
  return parent.append_child(name);
}

/// Replaces the text of an element and keeps what else is in it.
void SetText(pugi::xml_node element, TextView text) {
  for (pugi::xml_node child = element.first_child(); child;) {
    const pugi::xml_node next = child.next_sibling();
    if (IsText(child)) element.remove_child(child);
    child = next;
  }
  if (!text.empty()) element.append_child(pugi::node_pcdata).set_value(ToUtf8(text).c_str());
}

void SetLeaf(pugi::xml_node parent, const char* name, const CuttingLeaf& leaf, Names order) {
  if (TextOf(leaf).empty()) {
    RemoveTree(parent.child(name));
  } else {
    SetText(EnsureChild(parent, name, order), *leaf);
  }
}

void SetHidden(pugi::xml_node node, bool hidden, Names order) {
  if (!hidden) {
    RemoveTree(node.child("Oculto"));
  } else if (!node.child("Oculto")) {
    SetText(EnsureChild(node, "Oculto", order), u"true");
  }
}

CT_VelocidadCorte ReadRange(pugi::xml_node block, const char* name) {
  const auto [selected, least, most] = FirstChildren(block.child(name), kRange);
  return {Leaf(selected), Leaf(least), Leaf(most)};
}

/// The list's record of a description: the one with the id, else the first.
pugi::xml_node FindRecord(pugi::xml_node list, const char* name, TextView description, std::optional<TextView> id) {
  if (description.empty()) return {};
  const std::string wanted = ToUtf8(description);
  const std::string wantedId = id ? ToUtf8(*id) : std::string();
  pugi::xml_node found;
  for (const pugi::xml_node record : list.children(name)) {
    if (!HasText(record.child("descripcion"), wanted)) continue;
    if (!id || HasText(record.child("id"), wantedId)) return record;
    if (!found) found = record;
  }
  return found;
}

}  // namespace

CT_MaterialDefinition ReadMaterial(pugi::xml_node node) {
  const auto [id, description, norma, force, hidden, date] = FirstChildren(node, kMaterial);
  const auto [germany, spain, america] = FirstChildren(norma, kNorma);
  return {Leaf(id),    Leaf(description),         {Leaf(germany), Leaf(spain), Leaf(america)},
          Leaf(force), static_cast<bool>(hidden), Leaf(date)};
}

CT_Operacion ReadOperation(pugi::xml_node node) {
  const auto [id, description, hidden, date, type, blocks] = FirstChildren(node, kOperation);
  return {Leaf(id), Leaf(description), static_cast<bool>(hidden), Leaf(date), Leaf(type)};
}

CT_Parametros ReadParameters(pugi::xml_node block) {
  return {ReadRange(block, "VelocidadCorte"),
          ReadRange(block, "AvancePorDiente"),
          ReadRange(block, "Profundidad"),
          ReadRange(block, "PasadaRadial"),
          {Leaf(block.child("Observaciones").child("Descripcion"))},
          {Leaf(block.child("CaracteristicasHta").child("Calidad"))}};
}

void WriteMaterial(pugi::xml_node node, const CT_MaterialDefinition& record) {
  SetLeaf(node, "id", record.id, kMaterial);
  SetLeaf(node, "descripcion", record.descripcion, kMaterial);
  const bool norma = record.Norma != CT_Norma();
  if (pugi::xml_node element = norma ? EnsureChild(node, "Norma", kMaterial) : node.child("Norma")) {
    SetLeaf(element, "AlemaniaW", record.Norma.AlemaniaW, kNorma);
    SetLeaf(element, "UNE", record.Norma.UNE, kNorma);
    SetLeaf(element, "AISI", record.Norma.AISI, kNorma);
    // What somebody else has put into it keeps it.
    if (!element.first_child() && !element.first_attribute()) RemoveTree(element);
  }
  SetLeaf(node, "KC", record.KC, kMaterial);
  SetHidden(node, record.Oculto, kMaterial);
  SetLeaf(node, "Date", record.Date, kMaterial);
}

void WriteOperation(pugi::xml_node node, const CT_Operacion& record) {
  SetLeaf(node, "id", record.id, kOperation);
  SetLeaf(node, "descripcion", record.descripcion, kOperation);
  SetHidden(node, record.Oculto, kOperation);
  SetLeaf(node, "Date", record.Date, kOperation);
  SetLeaf(node, "ToolType", record.ToolType, kOperation);
}

void WriteParameter(pugi::xml_node block, int param, TextView text) {
  const Parameter& parameter = kParameters.at(static_cast<std::size_t>(param));
  const pugi::xml_node element = EnsureChild(block, parameter.element, kBlock);
  const bool remark = static_cast<std::size_t>(param) == kParameters.size() - 1;
  SetText(EnsureChild(element, parameter.leaf, remark ? Names(kRemark) : Names(kRange)), text);
}

pugi::xml_node FindMaterial(pugi::xml_node root, TextView description, std::optional<TextView> id) {
  return FindRecord(root.child("MaterialesDefinition"), "MaterialDefinition", description, id);
}

pugi::xml_node FindOperation(pugi::xml_node root, TextView description, std::optional<TextView> id) {
  return FindRecord(root.child("Operaciones"), "Operacion", description, id);
}

pugi::xml_node FindBlock(pugi::xml_node root, TextView material, TextView operation) {
  if (material.empty() || operation.empty()) return {};
  const std::string wanted = ToUtf8(operation);
  const std::string wantedMaterial = ToUtf8(material);
  for (const pugi::xml_node record : root.child("Operaciones").children("Operacion")) {
    if (!HasText(record.child("descripcion"), wanted)) continue;
    for (const pugi::xml_node pair : record.children("Materiales")) {
      const pugi::xml_node block = pair.child("Parametros");
      if (HasText(block.child("Material"), wantedMaterial)) return block;
    }
  }
  return {};
}

pugi::xml_node AddMaterial(pugi::xml_node root) {
  return EnsureChild(root, "MaterialesDefinition", kRoot).append_child("MaterialDefinition");
}

pugi::xml_node AddOperation(pugi::xml_node root) {
  return EnsureChild(root, "Operaciones", kRoot).append_child("Operacion");
}

pugi::xml_node AddBlock(pugi::xml_node operation, TextView material) {
  const pugi::xml_node block = operation.append_child("Materiales").append_child("Parametros");
  SetText(EnsureChild(block, "Material", kBlock), material);
  return block;
}

void RemoveTree(pugi::xml_node node) {
  // The library removes a tree by recursion, which a file of somebody else could make deeper than the stack.
  for (pugi::xml_node at = node; at;) {
    while (const pugi::xml_node child = at.first_child()) at = child;
    pugi::xml_node parent = at.parent();
    const bool last = at == node;
    parent.remove_child(at);
    if (last) return;
    at = parent;
  }
}

}  // namespace pnl
