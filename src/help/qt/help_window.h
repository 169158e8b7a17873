// SPDX-License-Identifier: MIT
// ZCHelpHTML: the window of the help viewer, over the whole area of the host's widget: panes at the left, the page at
// the right. It turns events into calls of HelpSession and does what that asks of its view. It decides nothing. It is a
// child of the host's window, which owns it, and hidden until the host opens it.
#pragma once

#include <QtCore/QPointer>
#include <memory>

#include "controls/page_view.h"
#include "help/help_session.h"
#include "help/qt/help_panes.h"
#include "host/tool_session.h"
#include "window/qt/tool_window.h"

class QLabel;

namespace pnl {

class ZCListManuals;

class ZCHelpHTML final : public ToolWindowWith<HelpView> {
  Q_OBJECT

 public:
  ZCHelpHTML(const ToolContext& context, std::unique_ptr<HelpShelf> shelf, QWidget* parent);
  ~ZCHelpHTML() override;
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // HelpView.
  void FocusWindow() override { setFocus(Qt::OtherFocusReason); }
  void FocusParent() override { parentWidget()->setFocus(Qt::OtherFocusReason); }
  void GiveFocusBack() override;
  void MoveWindow(const Rect& rect) override;
  void ShowBook(bool shown) override;
  void ShowMissing(TextView text) override;
  void ShowNote(TextView text) override;
  void ShowPane(HelpPane pane, bool shown) override;
  void SetContents(const std::vector<HelpRow>& rows) override { panes_->contents->SetRows(rows); }
  void SetIndex(const std::vector<HelpRow>& rows) override { panes_->SetIndex(rows); }
  void SetResults(const std::vector<ResultRow>& rows) override { panes_->SetResults(rows); }
  void SetSearchStatus(TextView text) override;
  void SelectRow(HelpPart list, int row) override;
  [[nodiscard]] int SelectedRow(HelpPart list) const override;
  [[nodiscard]] Text LineText(HelpPart line) const override;
  void SetLineText(HelpPart line, TextView text) override;
  bool ShowPage(const std::shared_ptr<PageSource>& source, TextView page, TextView anchor) override;
  void ClearPage() override { page_->Clear(); }
  void GoBack() override { page_->Back(); }
  void GoForward() override { page_->Forward(); }
  void OpenFindLine(bool open) override;
  bool FindInPage(TextView text, bool backwards) override { return page_->Find(text, backwards); }
  [[nodiscard]] HelpPart FocusedPart() const override;
  void FocusPart(HelpPart part) override;
  void SendKey(HelpKey key) override;
  void OpenPicker(const ManualPicker& picker) override;
  void ClosePicker() override;

  void MakeControls();
  QWidget* MakeFindBar();
  void Connect();
  [[nodiscard]] QWidget* ControlOf(HelpPart part) const;
  [[nodiscard]] QLineEdit* LineOf(HelpPart part) const;
  [[nodiscard]] ListBox* ListOf(HelpPart part) const;
  /// Returns true when no control must get the key.
  [[nodiscard]] bool OnKeyDown(const QKeyEvent& event);
  void PressEnter(HelpPart part);
  void SendTo(QWidget* control, int key);
  void TouchRow(HelpPart list, int row);

  const ToolContext context_;
  const HelpScale scale_;
  QPointer<QWidget> focusBefore_;
  const QKeyEvent* present_ = nullptr;  // the key that is being handled
  bool sending_ = false;                // a key goes to a control, which must get it now
  QWidget* book_ = nullptr;
  HelpPanes* panes_ = nullptr;
  HelpKeyButton* panesKey_ = nullptr;
  PageView* page_ = nullptr;
  QLabel* note_ = nullptr;
  QLabel* missing_ = nullptr;
  QWidget* findBar_ = nullptr;
  QLineEdit* findLine_ = nullptr;
  ZCListManuals* picker_ = nullptr;  // while it is open
  ToolLink<HelpSession> session_;
};

}  // namespace pnl
