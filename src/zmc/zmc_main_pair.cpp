// SPDX-License-Identifier: MIT
// The pair of material and operation on the main tab: its parameters in the grid, what may be edited, what is stored.
#include "zmc/logic/zmc_recompute.h"
#include "zmc/zmc_main.h"

namespace pnl {
namespace {

constexpr int kSelectedColumn = 3;

const CT_VelocidadCorte* RowOf(const CT_Parametros& block, int row) {
  const CT_VelocidadCorte* rows[] = {&block.VelocidadCorte, &block.AvancePorDiente, &block.Profundidad,
                                     &block.PasadaRadial};
  return rows[row - 1];
}

const CuttingLeaf& LeafIn(const CT_VelocidadCorte& row, int column) {
  return column == 1 ? row.Min : column == 2 ? row.Max : row.Selected;
}

}  // namespace

bool ZmcMain::LoadPair() {
  reloading_ = true;
  ClearPair();
  SetCellRights();
  for (int row = 1; row <= kZmcGridRows; ++row) {
    for (int col = 1; col <= kZmcGridColumns; ++col) {
      Grid().SetNumberFormat(row, col, CellDigits(row, desk_.machine.units));
    }
  }
  bool loaded = true;
  const auto& material = desk_.data.MaterialActual();
  const auto& operation = desk_.data.OperacionActual();
  if (material && operation) {
    const auto block = pnl::LoadPair(desk_.data.Store(), desk_.data.FactoryPath(), desk_.data.UserPath(),
                                     desk_.data.Lists(), TextOf(material->descripcion), TextOf(operation->descripcion));
    loaded = desk_.CheckRead(block.Error());
    // Without one of the files there is no block, and no quality to show either.
    if (block.Ok()) ShowPair(block.Value().value_or(CT_Parametros()));
  }
  reloading_ = false;
  Compute([this](ZmcFields& fields) { cascade_.RecalcConditions(fields); });
  return loaded;
}

void ZmcMain::ClearPair() {
  Compute([](ZmcFields& fields) { ClearFields(ZmcEvent::kPair, fields); });
  Grid().Select({kZmcGridRows, kSelectedColumn});
}

/// The limits of a factory pair are the machine maker's. Without a pair nothing can be edited but what is nobody's.
void ZmcMain::SetCellRights() {
  const bool pair = desk_.data.MaterialActual() && desk_.data.OperacionActual();
  const bool factory = desk_.data.IsFactorySelection();
  for (int row = 1; row <= kZmcGridRows; ++row) {
    Grid().SetReadOnly(row, 1, factory);
    Grid().SetReadOnly(row, 2, factory);
    Grid().SetReadOnly(row, kSelectedColumn, !pair);
  }
}

void ZmcMain::ShowPair(const CT_Parametros& block) {
  for (const ZmcParameter& parameter : kZmcParameters) {
    if (parameter.row == 0) continue;
    const CuttingLeaf& leaf = LeafIn(*RowOf(block, parameter.row), parameter.column);
    if (!leaf) continue;
    const double shown = ZmcToScreen(desk_.machine.units, parameter.id, DecimalOf(*leaf));
    Grid().SetCellText(parameter.row, parameter.column, CellText(shown));
  }
  View().SetControlText(zmc_control::kRemark, TextOf(block.Observaciones.Descripcion));
  const TextView quality = TextOf(block.CaracteristicasHta.Calidad);
  if (quality.empty()) {
    desk_.ResetMessage();
  } else {
    desk_.ShowMessage(0, quality);
  }
}

void ZmcMain::OnCellCommitted(int row, int col) {
  const std::optional<int> parameter = ZmcParameterOf(row, col);
  if (!parameter || reloading_ || !desk_.data.MaterialActual() || !desk_.data.OperacionActual()) return;
  const double shown = DecimalOf(Grid().CellText(row, col));
  StoreParameter(*parameter, ZmcToStored(desk_.machine.units, *parameter, shown), {});
  Compute([this, row, col](ZmcFields& fields) { cascade_.Apply(ZmcCellEvent(row, col), fields); });
}

void ZmcMain::StoreParameter(int parameter, double value, TextView text) {
  (void)desk_.CheckStored(desk_.data.Store().UpdateCondicionesCorteParam(
      desk_.data.UserPath(), *desk_.data.OperacionActual(), *desk_.data.MaterialActual(), parameter, value, text));
}

}  // namespace pnl
