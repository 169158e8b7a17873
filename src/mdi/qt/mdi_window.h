// SPDX-License-Identifier: MIT
// ZCMDIWindow: the window of the MDI/MDA command line. It has the controls, turns each event into one intention of
// MdiSession, and does what that asks of its view. It decides nothing. It is a child of the host's window, which owns
// it.
#pragma once

#include <QtCore/QPointer>

#include "controls/fonts.h"
#include "controls/list_box.h"
#include "controls/zwc_static.h"
#include "host/tool_session.h"
#include "mdi/mdi_session.h"
#include "mdi/mdi_view.h"
#include "mdi/qt/mdi_edit_widget.h"
#include "mdi/qt/mdi_list_window.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCMDIWindow final : public ToolWindowWith<MdiView> {
  Q_OBJECT

 public:
  static constexpr int kEditId = 5000;
  static constexpr int kListId = 5001;
  static constexpr int kTitleId = 5003;
  static constexpr int kSignId = 3003;

  /// Makes the window, hidden. parent must have a handle, to which the messages about channels go.
  ZCMDIWindow(const ToolContext& context, QWidget* parent);
  ~ZCMDIWindow() override;
  /// Reads the settings and loads the menus. Calls no callback; the window stays hidden until a command opens it.
  void Start() override;

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Place(const MdiLayout& layout) override;
  void SetTitle(TextView title) override;
  void SetTitleBlinking(int period) override;
  void SetSignColors(std::uint32_t fore, std::uint32_t back) override;
  void FocusWindow() override { MoveFocus(this); }
  void FocusEdit() override { MoveFocus(edit_); }
  void FocusList() override { MoveFocus(list_); }
  [[nodiscard]] Text EditText() const override;
  void SetEditText(TextView text) override;
  [[nodiscard]] TextSelection EditSelection() const override { return edit_->Selection(); }
  void SetEditSelection(TextSelection selection) override { edit_->Select(selection); }
  void ReplaceEditSelection(TextView text) override;
  void ScrollEditCaret() override { edit_->update(); }
  void SetEditReadOnly(bool readOnly) override;
  void RedrawEdit() override;
  [[nodiscard]] int ListCount() const override { return list_->Count(); }
  [[nodiscard]] Text ListItem(int index) const override { return list_->Item(index); }
  [[nodiscard]] int ListSelection() const override { return list_->Selection(); }
  void SetListSelection(int index) override { list_->Select(index); }
  void FillList(const TextRows& items) override { list_->SetItems(items); }
  void InsertListItem(int index, TextView text) override { list_->Insert(index, Text(text)); }
  void ReplaceListItem(int index, TextView text) override { list_->Replace(index, Text(text)); }
  void DeleteListItem(int index) override { list_->Delete(index); }
  void SetListEnabled(bool enabled) override { list_->setEnabled(enabled); }
  [[nodiscard]] Rect EditScreenRect() const override;
  [[nodiscard]] bool IsDropListOpen() const override { return !dropList_.isNull(); }
  void OpenDropList(const MdiDropListSpec& spec) override;
  void ShowDropRows(const MdiDropRows& rows) override;
  void ShowDropKeys(const MdiDropKeys& keys) override;
  void CloseDropList() override;
  [[nodiscard]] std::optional<Text> DropListSelection() const override;
  [[nodiscard]] Text DropListPicked() const override;

  /// Calls an intention and then updates the colours. Returns false if the window was destroyed in it or is being
  /// destroyed; then nothing of this object may be touched.
  template <typename Intention>
  bool Tell(Intention intention);
  bool ShowRemoval();
  [[nodiscard]] bool OnKeyDown(QKeyEvent& event);
  void MoveFocus(QWidget* taker);
  void OnListFocus();
  void OnWindowFocus();
  void SettleFocus();
  void SettleFocusLater();
  void NoteEndedDropList();
  void ConnectDropList();
  void UseColors();

  const ToolContext context_;
  MdiEdit* edit_;
  ListBox* list_;
  ZWCStatic* title_;
  ZWCStatic* sign_;
  QPointer<ZCMDIList> dropList_;
  MdiColorPair titleColors_;
  MdiColorPair signColors_;
  bool endedDropList_ = false;
  bool listGotFocus_ = false;  // OnFocusSettled must still be called
  int focusMoves_ = 0;         // how many changes of the focus are under way
  ToolLink<MdiSession> session_;
};

}  // namespace pnl
