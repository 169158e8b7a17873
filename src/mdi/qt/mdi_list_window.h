// SPDX-License-Identifier: MIT
// ZCMDIList: the drop list with a channel's history, and two touch keys beside it. It is a child of the panel's window
// and lies over it, so it needs no window of the system. Its owner makes it to open it and destroys it afterwards. The
// owner's window gets the verdict ("MDI_ENDLIST") and the signals, and decides what follows.
#pragma once

#include <QtCore/QPointer>
#include <optional>
#include <vector>

#include "controls/list_box.h"
#include "mdi/mdi_drop_list.h"
#include "mdi/mdi_view.h"
#include "mdi/qt/mdi_list_key.h"
#include "window/qt/tool_window.h"

namespace pnl {

class ZCMDIList : public ToolDialog {
  Q_OBJECT

 public:
  /// The id of the list box.
  static constexpr int kListId = 5002;
  /// The ids of the keys: the one that arranges the list, and the one that pins the selected row.
  static constexpr const char* kArrangeKey = "mdiArrangeKey";
  static constexpr const char* kPinKey = "mdiPinKey";

  /// Makes a hidden child of panel, over which the list will lie. owner gets the verdict and may be destroyed before
  /// the list. windows must outlive the list.
  ZCMDIList(WindowSystem& windows, const MessageWindow& owner, QWidget* panel);
  ~ZCMDIList() override;

  void SetColors(Color background, Color text);
  /// Fills the list with the items in order and selects the first one. With null the list is empty.
  void Fill(const TextRows* items);
  /// Copies the selected text and returns true. Without a selection the text is empty and the result false.
  bool GetSelected(Text& text) const;
  /// Copies the picked text.
  void GetText(Text& text) const { text = verdict_.GetText(); }
  [[nodiscard]] bool Finished() const { return verdict_.Finished(); }

  /// Replaces the rows unless they are the same, and sets marks and selection.
  void ShowRows(const MdiDropRows& rows);
  /// Shows the keys with these captions.
  void ShowKeys(const MdiDropKeys& keys);

  /// Shows the list over everything else and gives it the focus. The keys, which ShowKeys shows, are above or below it.
  void Open(const QRect& place, bool keysAbove = false);
  /// Ends the list without a verdict. It is hidden and gets no more messages at once, and is deleted by the event loop.
  void Dismiss();

  /// Handles OK and a double click.
  void OnOK();
  void OnCancel();

 signals:
  /// Emitted when another widget of the panel gets the focus, before the verdict is sent.
  void LostActivation();
  /// The operator has typed characters, or pressed Backspace. The list itself has no use for them.
  void Typed(const QString& text);
  void Erased();
  /// The operator has pressed the key that arranges the list or Tab, or the key that pins or Insert.
  void SwitchWanted();
  void PinWanted();
  /// The operator has selected another row, or none.
  void SelectionMoved();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void OnFocusChanged(QWidget* now);
  [[nodiscard]] bool OnKey(QKeyEvent& event);
  void PlaceKeys();
  [[nodiscard]] ListNote NoteOf(int row) const;
  const QPointer<const QWidget> owner_;
  MdiDropList verdict_;
  ListBox* list_;
  QPointer<MdiListKey> arrangeKey_;
  QPointer<MdiListKey> pinKey_;
  bool keysAbove_ = false;
  std::vector<MdiRowMark> marks_;
  Text refusedWord_;
  bool quiet_ = false;  // set while the rows change, so that nothing is emitted
  bool active_ = false;
  bool dismissed_ = false;
};

}  // namespace pnl
