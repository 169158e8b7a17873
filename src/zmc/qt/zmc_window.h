// SPDX-License-Identifier: MIT
// ZCZelorMacCalc: the machining calculator's frame, a child of the host's window over its whole client area, with the
// three tabs. It turns each event into one intention of ZmcSession and does what its view is asked to; it decides
// nothing.
#pragma once

#include <QtCore/QPointer>

#include "host/tool_session.h"
#include "window/qt/tool_window.h"
#include "zmc/qt/zmc_main_tab.h"
#include "zmc/qt/zmc_table_tab.h"
#include "zmc/zmc_session.h"

namespace pnl {

class ZCZelorMacCalc final : public ToolWindowWith<ZmcView> {
  Q_OBJECT

 public:
  ZCZelorMacCalc(const ToolContext& context, QWidget* parent);
  ~ZCZelorMacCalc() override;
  void Start() override;
  void setVisible(bool visible) override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // ZmcView.
  void Show() override;
  void Destroy() override;
  void PostTab() override;
  void MakeTab(ZmcTab tab) override;
  void ShowTab(ZmcTab tab) override;
  void HideTab(ZmcTab tab) override;
  [[nodiscard]] WindowHandle TabHandle(ZmcTab tab) const override;
  [[nodiscard]] ZmcGrid& Grid(ZmcTab tab) override;
  [[nodiscard]] Text ControlText(int id) const override { return main_->ControlText(id); }
  void SetControlText(int id, TextView text) override { main_->SetControlText(id, text); }
  void ShowControl(int id, bool on) override { main_->ShowControl(id, on); }
  void EnableControl(int id, bool on) override { main_->EnableControl(id, on); }
  void SetLabelColor(int id, std::uint32_t color) override { main_->SetLabelColor(id, color); }
  void SetDigits(int id, const ZmcDigits& digits) override { main_->SetDigits(id, digits); }
  [[nodiscard]] int State(int id) const override { return main_->State(id); }
  void SetState(int id, int state) override { main_->SetState(id, state); }
  void SetPowerBar(std::optional<double> percent) override { main_->SetPowerBar(percent); }
  [[nodiscard]] bool IsFieldEditing(int id) const override { return main_->IsFieldEditing(id); }
  void FillList(int id, const std::vector<Text>& items) override { main_->FillList(id, items); }
  [[nodiscard]] std::vector<Text> ListItems(int id) const override { return main_->ListItems(id); }
  [[nodiscard]] int ListSelection(int id) const override { return main_->ListSelection(id); }
  void SelectItem(int id, int index) override { main_->SelectItem(id, index); }
  [[nodiscard]] bool IsListOpen(int id) const override { return main_->IsListOpen(id); }
  void OpenList(int id, bool open) override { main_->OpenList(id, open); }
  void MoveInList(int id, int by) override { main_->MoveInList(id, by); }
  bool AcceptItem(int id) override { return main_->AcceptItem(id); }
  void SelectAllText(int id) override { main_->SelectAllText(id); }
  [[nodiscard]] int FocusedControl() const override { return main_ != nullptr ? main_->FocusedControl() : 0; }
  void FocusControl(int id) override { main_->FocusControl(id); }
  void FocusGrid(ZmcTab tab) override;
  BoxAnswer AskInBox(const BoxSpec& box) override;

  void ConnectMain();
  void ConnectGrid(ZmcTab tab, ZCGridXWrap& grid);
  void LeaveTabs();
  [[nodiscard]] MessageWindow* Page(ZmcTab tab) const;
  [[nodiscard]] bool OnKeyDown(QKeyEvent& event);
  [[nodiscard]] static bool ClaimKey(QKeyEvent& event);
  void TellFocusLater();
  void OpenAgain();

  const ToolContext context_;
  ZCTabZMCMain* main_ = nullptr;
  ZCTabZMCMateriales* materials_ = nullptr;
  ZCTabZMCOperaciones* operations_ = nullptr;
  ToolLink<ZmcSession> session_;
  bool showing_ = false;  // the frame is being shown, by the session or by setVisible
};

}  // namespace pnl
