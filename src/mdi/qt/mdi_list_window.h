// SPDX-License-Identifier: MIT
// ZCMDIList: the drop list with a channel's history. It is a child of the panel's window and lies over it, so it needs
// no window of the system. Its owner makes it to open it and destroys it afterwards. The owner's window gets the
// verdict ("MDI_ENDLIST") and decides what follows.
#pragma once

#include <QtCore/QPointer>
#include <optional>

#include "controls/list_box.h"
#include "mdi/mdi_drop_list.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCMDIList : public ToolDialog {
  Q_OBJECT

 public:
  /// The id of the list box.
  static constexpr int kListId = 5002;

  /// Makes a hidden child of panel, over which the list will lie. owner gets the verdict and may be destroyed before
  /// the list. windows must outlive the list.
  ZCMDIList(WindowSystem& windows, const MessageWindow& owner, QWidget* panel);
  ~ZCMDIList() override;

  void SetColors(Color background, Color text);
  void SetSelectedColors(Color background, Color text);
  /// Fills the list with the items in order and selects the first one. With null the list is empty.
  void Fill(const TextRows* items);
  /// Copies the selected text and returns true. Without a selection the text is empty and the result false.
  bool GetSelected(Text& text) const;
  /// Copies the picked text.
  void GetText(Text& text) const { text = verdict_.GetText(); }
  [[nodiscard]] bool Finished() const { return verdict_.Finished(); }

  /// Shows the list over everything else and gives it the focus.
  void Open(const QRect& place);
  /// Ends the list without a verdict. It is hidden and gets no more messages at once, and is deleted by the event loop.
  void Dismiss();

  /// Handles OK and a double click.
  void OnOK();
  void OnCancel();

 signals:
  /// Emitted when another widget of the panel gets the focus, before the verdict is sent.
  void LostActivation();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void OnFocusChanged(QWidget* now);
  [[nodiscard]] bool OnKey(QKeyEvent& event);
  const QPointer<const QWidget> owner_;
  MdiDropList verdict_;
  ListBox* list_;
  bool active_ = false;
  bool dismissed_ = false;
};

}  // namespace pnl
