// SPDX-License-Identifier: MIT
// The page of a table tab: a title and the grid. ZCTabZMCMateriales and ZCTabZMCOperaciones differ in their columns'
// widths. It has no rules: the frame listens to the grid.
#pragma once

#include <memory>
#include <vector>

#include "controls/zwc_static.h"
#include "host/tool_context.h"
#include "window/qt/tool_window.h"
#include "zmc/qt/zmc_grid_adapter.h"
#include "zmc/zmc_places.h"

namespace pnl {

class ZmcTableTab : public MessageWindow {
  Q_OBJECT

 public:
  /// shares: the widths of the columns, from column 1, in parts of the whole. A share of 0 isn't shown.
  ZmcTableTab(const ToolContext& context, ZmcTab tab, std::vector<int> shares, QWidget* frame);
  ~ZmcTableTab() override;

  [[nodiscard]] ZmcGrid& Grid() { return *cells_; }
  [[nodiscard]] ZCGridXWrap& GridControl() { return *grid_; }
  void End() { EndMessages(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void PlaceColumns();

  const ToolContext context_;
  const ZmcTab tab_;
  const std::vector<int> shares_;
  ZWCStatic* title_ = nullptr;
  ZCGridXWrap* grid_ = nullptr;
  std::unique_ptr<ZmcGridAdapter> cells_;
};

class ZCTabZMCMateriales final : public ZmcTableTab {
  Q_OBJECT

 public:
  ZCTabZMCMateriales(const ToolContext& context, QWidget* frame);
};

class ZCTabZMCOperaciones final : public ZmcTableTab {
  Q_OBJECT

 public:
  ZCTabZMCOperaciones(const ToolContext& context, QWidget* frame);
};

}  // namespace pnl
