// SPDX-License-Identifier: MIT
// The logic of the main tab: the operator picks material, operation and tool; the grid shows the parameters of the
// pair, the fields the computed speed, feed, power and DMC line, and the check boxes choose what goes into the block.
// It wires the data, the cascade and the block generator to the controls. Their texts are the model: each operation
// reads them, computes, and writes what has changed. The session owns it; keys and focus are in zmc/zmc_keys.h.
#pragma once

#include <functional>
#include <vector>

#include "zmc/logic/zmc_cascade.h"
#include "zmc/logic/zmc_focus.h"
#include "zmc/zmc_desk.h"
#include "zmc/zmc_keys.h"

namespace pnl {

class ZmcMain {
 public:
  /// shown: whether the tab is on the screen.
  ZmcMain(ZmcDesk& desk, std::function<bool()> shown);

  /// Makes and fills the tab. A damaged file ends the opening where it is; the tab stays as far as it got.
  void Open();
  [[nodiscard]] bool IsOpen() const { return open_; }
  /// The tab is on the screen: its soft keys, and the focus on the material box.
  void OnShown();
  /// A table has been saved: the lists are read anew, and the pair with them.
  void ReloadMaterials();
  void ReloadOperations();

  // What the operator did.
  void OnListSelected(int id);
  void OnToolTyped() { toolEdited_ = true; }
  void OnToolLeft();
  void OnCheckChanged(int id);
  void OnFieldChanged(int id);
  void OnCellCommitted(int row, int col);
  void OnLineFocus(int id, bool focused);
  /// Another control has the focus.
  void OnFocusMoved() { Explain(Collect()); }
  /// Does the tab's part of a key; returns what is left to do for the frame.
  ZmcKeyEnd OnKey(ZmcKey key);
  void MoveFocus(bool forward);

  // The block.
  [[nodiscard]] Text GenerateBlock();
  void CopyBlock();
  void InsertBlock();

 private:
  // Opening.
  void SetUpChecks();
  void SetUpGrid();
  void SetUpUnits();
  void SetUpLabels();
  Text FillBox(int id, const std::vector<Text>& names, Text& last);
  [[nodiscard]] bool FillMaterials();
  [[nodiscard]] bool FillOperations();
  void ForceSUnit();
  // Fields.
  [[nodiscard]] ZmcFields Collect() const;
  void Write(const ZmcFields& before, const ZmcFields& after);
  /// Reads the fields, has them computed, and writes those that have changed.
  void Compute(const std::function<void(ZmcFields&)>& work);
  /// Beyond the dialog: the formula of the value in focus, the bar of the power, a tint on values outside their limits.
  void Explain(const ZmcFields& fields);
  // The pair.
  bool LoadPair();
  void ClearPair();
  void SetCellRights();
  void ShowPair(const CT_Parametros& block);
  void StoreParameter(int id, double value, TextView text);
  // The tool.
  void FillTools();
  void SelectTool(TextView name);
  void ChangeTool();
  void TakeTypedTool();
  void ResetTool();
  [[nodiscard]] ZmcTool Tool() const;
  void ShowToolControls();
  void ShowDmcControls(const ZmcTool& tool);
  void ShowFieldControls(const ZmcTool& tool);
  // Lines, checks, keys.
  void ToggleLine(int id);
  void BeginLine(int id, bool blank);
  void RestoreLine(int id);
  void ShowM6();
  [[nodiscard]] bool EnableSoftKeys();
  void UpdateSoftKeys();
  [[nodiscard]] ZmcChecks Checks() const;
  [[nodiscard]] ZmcKeyPlace KeyPlace() const;
  [[nodiscard]] ZmcFocusState FocusState() const;
  void DoStep(ZmcKeyStep step, int control);
  void SelectEdgeCell(bool first);
  [[nodiscard]] ZmcCell FirstCell() const;
  [[nodiscard]] ZmcView& View() const { return desk_.View(); }
  [[nodiscard]] ZmcGrid& Grid() const { return desk_.View().Grid(ZmcTab::kMain); }

  ZmcDesk& desk_;
  const std::function<bool()> shown_;
  ZmcCascade cascade_;
  bool open_ = false;
  bool reloading_ = false;
  bool toolEdited_ = false;
  int textEditing_ = 0;  // the line in edit mode; 0 for none
  Text textBackup_;
};

}  // namespace pnl
