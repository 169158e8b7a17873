// SPDX-License-Identifier: MIT
// The records of the cutting data: materials, operations and the block of parameters of a material and operation pair.
// They are plain copies of what a file contains and know neither files nor XML. A record's name and its fields' names
// are those of the elements in the files; docs/formats/cutting-data.md describes them.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"

namespace pnl {

/// The text of an element; nothing when the element is missing or empty.
using CuttingLeaf = std::optional<Text>;

struct CT_Norma {
  CuttingLeaf AlemaniaW;
  CuttingLeaf UNE;
  CuttingLeaf AISI;
  friend bool operator==(const CT_Norma&, const CT_Norma&) = default;
};

struct CT_MaterialDefinition {
  CuttingLeaf id;
  CuttingLeaf descripcion;
  CT_Norma Norma;
  CuttingLeaf KC;
  bool Oculto = false;  // true when the element is there, also when it is empty
  CuttingLeaf Date;
  friend bool operator==(const CT_MaterialDefinition&, const CT_MaterialDefinition&) = default;
};

/// The parameter blocks under an operation are no part of its record: GetCondicionesCorte reads them.
struct CT_Operacion {
  CuttingLeaf id;
  CuttingLeaf descripcion;
  bool Oculto = false;  // as in a material
  CuttingLeaf Date;
  CuttingLeaf ToolType;
  friend bool operator==(const CT_Operacion&, const CT_Operacion&) = default;
};

struct CT_MaterialesDefinition {
  std::vector<CT_MaterialDefinition> MaterialDefinition;
};

struct CT_Operaciones {
  std::vector<CT_Operacion> Operacion;
};

/// One row of a block, in stored units.
struct CT_VelocidadCorte {
  CuttingLeaf Selected;
  CuttingLeaf Min;
  CuttingLeaf Max;
  friend bool operator==(const CT_VelocidadCorte&, const CT_VelocidadCorte&) = default;
};
using CT_AvancePorDiente = CT_VelocidadCorte;
using CT_Profundidad = CT_VelocidadCorte;
using CT_PasadaRadial = CT_VelocidadCorte;

struct CT_Observaciones {
  CuttingLeaf Descripcion;
  friend bool operator==(const CT_Observaciones&, const CT_Observaciones&) = default;
};

struct CT_CaracteristicasHta {
  CuttingLeaf Calidad;
  friend bool operator==(const CT_CaracteristicasHta&, const CT_CaracteristicasHta&) = default;
};

struct CT_Parametros {
  CT_VelocidadCorte VelocidadCorte;
  CT_AvancePorDiente AvancePorDiente;
  CT_Profundidad Profundidad;
  CT_PasadaRadial PasadaRadial;
  CT_Observaciones Observaciones;
  CT_CaracteristicasHta CaracteristicasHta;
  friend bool operator==(const CT_Parametros&, const CT_Parametros&) = default;
};

/// The text of a leaf; empty when there is none.
[[nodiscard]] inline TextView TextOf(const CuttingLeaf& leaf) { return leaf ? TextView(*leaf) : TextView(); }
/// A leaf with that text; nothing for an empty text.
[[nodiscard]] inline CuttingLeaf LeafOf(TextView text) { return text.empty() ? CuttingLeaf() : CuttingLeaf(text); }

/// The id of a material, made from its designations: "1.0503#F-1142#1045", or "##" when it has none.
[[nodiscard]] inline Text MaterialId(const CT_Norma& norma) {
  Text id(TextOf(norma.AlemaniaW));
  id.append(u"#").append(TextOf(norma.UNE)).append(u"#").append(TextOf(norma.AISI));
  return id;
}

}  // namespace pnl
