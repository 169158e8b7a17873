// SPDX-License-Identifier: MIT
// ZCExplorer: the frame of the file explorer, over the whole area of the host's widget. Turns the events of its form
// and controls into intentions of XplrSession, and does what that asks of its view. It decides nothing.
#pragma once

#include <QtCore/QPointer>

#include "explorer/qt/xplr_dialogs.h"
#include "explorer/qt/xplr_form.h"
#include "explorer/xplr_session.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCExplorer final : public ToolWindowWith<XplrView> {
  Q_OBJECT

 public:
  ZCExplorer(const ToolContext& context, QWidget* parent);
  ~ZCExplorer() override;
  /// Reads the request and shows the explorer.
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override { return TellMessage(XplrWindow::kFrame, message); }
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // XplrView.
  [[nodiscard]] WindowHandle HandleOf(XplrWindow window) const override;
  void Destroy() override;
  void PostTab() override;
  void StyleForm(const XplrFonts& fonts) override;
  void Place(const XplrLayout& layout) override { form_->Place(layout); }
  void SetLabel(int id, TextView text) override;
  void SetLabelColors(int id, std::uint32_t frame, std::uint32_t back, std::uint32_t text) override;
  [[nodiscard]] int FocusedControl() const override;
  void FocusControl(int id) override;
  void FocusFrame() override { setFocus(Qt::OtherFocusReason); }
  [[nodiscard]] Text NameText() const override;
  void SetNameText(TextView text) override;
  void OnNodesAdded(const XplrNodes& nodes, NodeId parent, std::size_t index, std::size_t count) override {
    form_->tree->AddNodes(nodes, parent, index, count);
  }
  void OnNodeChanged(const XplrNodes& nodes, NodeId node) override { form_->tree->UpdateNode(nodes, node); }
  void OnNodeRemoving(NodeId node) override { form_->tree->RemoveNode(node); }
  void SelectNode(NodeId node) override { form_->tree->SelectNode(node); }
  void OpenNode(NodeId node) override { form_->tree->OpenNode(node); }
  void OnRowsReset(std::shared_ptr<const std::vector<XplrRow>> rows) override { form_->list->SetRows(std::move(rows)); }
  void SelectRow(int row) override { form_->list->SelectRow(row); }
  void ScrollToRow(int row) override { form_->list->ScrollToRow(row); }
  void SetColumnTitles(const std::array<Text, 3>& titles) override;
  void MarkTyped(std::size_t letters) override { form_->list->MarkTyped(letters); }
  void ShowMoreComing(bool coming) override { form_->list->ShowMoreComing(coming); }
  void ShowPreview(const XplrPreviewFace& preview) override { form_->list->ShowPreview(preview); }
  void PostEnter() override;
  bool OpenFind(TextView text) override;
  bool OpenFolderSearch() override;
  [[nodiscard]] Text FindText() const override;
  [[nodiscard]] Text FolderText() const override;
  void FocusDialog() override;
  void PostEscapeToDialog() override;

  void Connect();
  void ConnectList();
  [[nodiscard]] std::intptr_t TellMessage(XplrWindow window, const Message& message);
  [[nodiscard]] bool OnKeyDown(QKeyEvent& event);

  const ToolContext context_;
  XplrFonts fonts_;
  ZCXPLRView* form_;
  QPointer<ZCFind> find_;
  QPointer<ZCFolder> folder_;
  ToolLink<XplrSession> session_;
};

}  // namespace pnl
