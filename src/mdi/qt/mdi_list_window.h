// SPDX-License-Identifier: MIT
// ZCMDIList: the drop list with a channel's history. It lies over the panel's window as one of its children, so that it
// needs no window of the system, and is made when it opens and destroyed when done, by its owner. Its owner's window
// gets the verdict ("MDI_ENDLIST"); what follows from it is not decided here.
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

  /// A hidden child of panel, the widget over which it lies. owner's window gets the verdict and may die before the
  /// list; windows outlives it.
  ZCMDIList(WindowSystem& windows, const MessageWindow& owner, QWidget* panel);
  ~ZCMDIList() override;

  void SetColors(Color background, Color text);
  void SetSelectedColors(Color background, Color text);
  /// Null leaves the list empty; else all items in order, the first one selected.
  void Fill(const TextRows* items);
  /// True with the selected text; false with an empty one if nothing is selected.
  bool GetSelected(Text& text) const;
  /// The text that was picked.
  void GetText(Text& text) const { text = verdict_.GetText(); }
  [[nodiscard]] bool Finished() const { return verdict_.Finished(); }

  /// Shows the list over everything else and gives it the focus.
  void Open(const QRect& place);
  /// Ends the list without a verdict: no window any more at once, gone when control is back at the event loop.
  void Dismiss();

  /// OK, or a double click.
  void OnOK();
  void OnCancel();

 signals:
  /// The focus went to another widget of the panel, before the verdict is sent.
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
