// SPDX-License-Identifier: MIT
// ZCTabZMCMain: the page of the main tab with its controls, placed by their units over the whole page, which scrolls in
// an area that is too low for it. It has no rules: the frame listens to its signals and gives it texts, states and
// colours.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "controls/c_multistatic.h"
#include "controls/zc_dato_wrap.h"
#include "controls/zwc_edit.h"
#include "controls/zwc_static.h"
#include "host/tool_context.h"
#include "window/qt/tool_window.h"
#include "zmc/qt/zmc_box.h"
#include "zmc/qt/zmc_grid_adapter.h"
#include "zmc/qt/zmc_page_area.h"
#include "zmc/qt/zmc_power_bar.h"
#include "zmc/zmc_places.h"

namespace pnl {

class ZCTabZMCMain : public MessageWindow {
  Q_OBJECT

 public:
  ZCTabZMCMain(const ToolContext& context, QWidget* frame);
  ~ZCTabZMCMain() override;

  /// The control with that id; null when the page has none of this class.
  [[nodiscard]] QWidget* Control(int id) const;
  template <typename Class>
  [[nodiscard]] Class* ControlAs(int id) const {
    return qobject_cast<Class*>(Control(id));
  }
  [[nodiscard]] ZmcGrid& Grid() { return *cells_; }
  [[nodiscard]] ZCGridXWrap& GridControl() { return *grid_; }

  // The orders of ZmcView; on a control that isn't there, or is of another class, they do nothing.
  [[nodiscard]] Text ControlText(int id) const;
  void SetControlText(int id, TextView text);
  void ShowControl(int id, bool on);
  void EnableControl(int id, bool on);
  void SetLabelColor(int id, std::uint32_t color);
  void SetDigits(int id, const ZmcDigits& digits);
  [[nodiscard]] int State(int id) const;
  void SetState(int id, int state);
  void SetPowerBar(std::optional<double> percent);
  [[nodiscard]] bool IsFieldEditing(int id) const;
  void FillList(int id, const std::vector<Text>& items);
  [[nodiscard]] std::vector<Text> ListItems(int id) const;
  [[nodiscard]] int ListSelection(int id) const;
  void SelectItem(int id, int index);
  [[nodiscard]] bool IsListOpen(int id) const;
  void OpenList(int id, bool open);
  void MoveInList(int id, int by);
  bool AcceptItem(int id);
  void SelectAllText(int id);
  [[nodiscard]] int FocusedControl() const;
  void FocusControl(int id);

  /// Scrolls until the control with the focus, or the present cell of the grid, is in sight.
  void ShowFocused();
  /// Every widget that may get a key press, for the filter of the frame.
  [[nodiscard]] std::vector<QWidget*> KeyReceivers() const;
  /// Ends the page's messages. Called when the frame ends before its pages.
  void End() { EndMessages(); }

 signals:
  void ListSelected(int id);
  void ToolTyped();
  void ToolLeft();
  void CheckChanged(int id);
  void FieldChanged(int id);
  void LineFocused(int id, bool focused);

 protected:
  std::intptr_t OnMessage(const Message& message) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Make(const ZmcControlPlace& place);
  QWidget* MakeLabel(int id);
  QWidget* MakeBox(int id, bool typed);
  QWidget* MakeLine(int id);
  QWidget* MakePicture(int id, CMultistatic::Face face);
  QWidget* MakeDataField(int id);
  QWidget* MakeGrid(int id);
  void Place();
  void PlaceControl(const ZmcControlPlace& place, const DialogTemplate* dialog);
  void PlaceGrid(const QRect& place);
  void FitLabel(int id, ZWCStatic& label) const;
  static void SetControlFont(QWidget* control, int height);

  const ToolContext context_;
  const std::uint32_t focusMessage_;
  const std::uint32_t blurMessage_;
  ZmcPageArea* const area_;
  QWidget* const sheet_;  // the page itself, on which the controls lie
  ZmcPage page_;
  int placedWidth_ = 0;
  int tallest_ = 0;  // with this width
  std::map<int, QWidget*> controls_;
  ZCGridXWrap* grid_ = nullptr;
  std::unique_ptr<ZmcGridAdapter> cells_;
};

}  // namespace pnl
