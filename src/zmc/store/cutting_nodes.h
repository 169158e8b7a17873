// SPDX-License-Identifier: MIT
// The records of the cutting data as elements of a document: reading and writing one, and finding the record that a
// question means. Writing a record changes the elements that it names and leaves all others where they are.
#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "zmc/store/cutting_records.h"

namespace pnl {

[[nodiscard]] CT_MaterialDefinition ReadMaterial(pugi::xml_node node);
[[nodiscard]] CT_Operacion ReadOperation(pugi::xml_node node);
[[nodiscard]] CT_Parametros ReadParameters(pugi::xml_node block);

/// Writes every field; an absent one removes its element.
void WriteMaterial(pugi::xml_node node, const CT_MaterialDefinition& record);
void WriteOperation(pugi::xml_node node, const CT_Operacion& record);
/// Writes one of the parameters 0 to 12 of a block. A text that is empty leaves an empty element.
void WriteParameter(pugi::xml_node block, int param, TextView text);

/// The record of that description; if there are several, the one with that id, else the first. An empty node when there
/// is none or the description is empty.
[[nodiscard]] pugi::xml_node FindMaterial(pugi::xml_node root, TextView description, std::optional<TextView> id);
[[nodiscard]] pugi::xml_node FindOperation(pugi::xml_node root, TextView description, std::optional<TextView> id);
/// The block of a pair: the first in any operation of that description.
[[nodiscard]] pugi::xml_node FindBlock(pugi::xml_node root, TextView material, TextView operation);

/// Appends an element for a record. Makes the list around it if there is none.
[[nodiscard]] pugi::xml_node AddMaterial(pugi::xml_node root);
[[nodiscard]] pugi::xml_node AddOperation(pugi::xml_node root);
[[nodiscard]] pugi::xml_node AddBlock(pugi::xml_node operation, TextView material);

/// Removes a node with everything in it, however deep that goes.
void RemoveTree(pugi::xml_node node);

}  // namespace pnl
