// SPDX-License-Identifier: MIT
// A window of the machining calculator without a window: it keeps what the logic set, as the controls would, and writes
// every order into the log. A read-only cell takes no typing, a disabled control no press.
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "support/fake_view.h"
#include "zmc/zmc_places.h"
#include "zmc/zmc_session.h"

namespace pnl::test {

class FakeZmcGrid final : public ZmcGrid {
 public:
  struct Cell {
    Text text;
    bool checked = false;
    bool readOnly = false;
    bool tint = false;
    ZmcCellKind kind = ZmcCellKind::kText;
    std::vector<Text> items;
    ZmcDigits digits;
  };
  struct Row {
    std::vector<Cell> cells;
    int state = zmc_row_state::kNormal;
  };

  /// dead: the grid's window is gone. Whatever is asked of the grid then is a failed test.
  FakeZmcGrid(int count, int columns, const bool& dead) : columns_(columns), dead_(dead) {
    for (int row = 0; row < count; ++row) AddRow();
  }

  std::vector<Row> rows;
  ZmcCell current{1, 1};
  int lastSelected = 0;  // beside the present row, of a range
  bool editing = false;
  int sortColumn = 0;
  bool ascending = true;
  int redrawn = 0;
  std::function<void(int row, int col)> onCommitted;

  [[nodiscard]] int Rows() const override { return Asked(), static_cast<int>(rows.size()); }
  [[nodiscard]] Text CellText(int row, int col) const override { return Has(row, col) ? At(row, col).text : Text(); }
  void SetCellText(int row, int col, TextView text) override {
    if (Has(row, col)) Own(row, col).text = Text(text);
  }
  [[nodiscard]] bool IsChecked(int row, int col) const override { return Has(row, col) && At(row, col).checked; }
  void SetChecked(int row, int col, bool on) override {
    if (Has(row, col)) Own(row, col).checked = on;
  }
  [[nodiscard]] bool IsReadOnly(int row, int col) const override {
    if (!Has(row, col) || row == 0 || col == 0) return true;
    if (rows[static_cast<std::size_t>(row)].state == zmc_row_state::kFactory &&
        At(row, col).kind != ZmcCellKind::kCheck)
      return true;
    return At(row, col).readOnly;
  }
  void SetReadOnly(int row, int col, bool on) override {
    if (Has(row, col)) Own(row, col).readOnly = on;
  }
  void SetNumberFormat(int row, int col, const ZmcDigits& digits) override {
    if (Has(row, col)) Own(row, col).digits = digits;
  }
  void SetCellKind(int row, int col, ZmcCellKind kind, const std::vector<Text>& items) override {
    if (Has(row, col)) Own(row, col).kind = kind, Own(row, col).items = items;
  }
  void SetTint(int row, int col, bool on) override {
    if (Has(row, col)) Own(row, col).tint = on;
  }
  void SetRowState(int row, int state) override { Asked(), rows[static_cast<std::size_t>(row)].state = state; }
  int AddRow() override {
    Asked();
    rows.push_back({std::vector<Cell>(static_cast<std::size_t>(columns_))});
    return Rows() - 1;
  }
  void RemoveRow(int row) override {
    Asked();
    rows.erase(rows.begin() + row);
    current.row = std::min(current.row, Rows() - 1);
  }
  void RemoveAllRows() override { Asked(), rows.resize(1), current = {0, 0}, lastSelected = 0; }
  [[nodiscard]] ZmcCell Current() const override { return Asked(), current; }
  void Select(ZmcCell cell) override {
    if (!Has(cell.row, cell.col) || cell.row == 0 || cell.col == 0) return;
    CommitEdit();
    current = cell, lastSelected = cell.row;
  }
  [[nodiscard]] std::pair<int, int> SelectedRows() const override {
    Asked();
    return {std::min(current.row, lastSelected), std::max(current.row, lastSelected)};
  }
  [[nodiscard]] bool IsEditing() const override { return Asked(), editing; }
  void BeginEdit(ZmcCell cell) override {
    Asked();
    current = cell, lastSelected = cell.row;
    editing = !IsReadOnly(cell.row, cell.col);
    typed_ = CellText(cell.row, cell.col);
  }
  void CommitEdit() override {
    Asked();
    if (!std::exchange(editing, false)) return;
    SetCellText(current.row, current.col, typed_);
    if (onCommitted) onCommitted(current.row, current.col);
  }
  void CancelEdit() override { Asked(), editing = false; }
  void ShowSortMarker(int col, bool up) override { Asked(), sortColumn = col, ascending = up; }
  void Redraw() override { Asked(), ++redrawn; }

  /// The operator types into the open edit.
  void TypeHere(TextView text) {
    EXPECT_TRUE(editing) << "no edit is open";
    typed_ = Text(text);
  }
  /// The operator types into a cell and commits it. False for a cell that takes no typing.
  bool Type(int row, int col, TextView text) {
    BeginEdit({row, col});
    if (!editing) return false;
    typed_ = Text(text);
    CommitEdit();
    return true;
  }
  /// The operator turns a check cell.
  bool Check(int row, int col, bool on) {
    if (IsReadOnly(row, col)) return false;
    SetChecked(row, col, on);
    if (onCommitted) onCommitted(row, col);
    return true;
  }
  [[nodiscard]] const Cell& At(int row, int col) const {
    return rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(col)];
  }
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> texts;
    for (int row = 1; row < Rows(); ++row) texts.push_back(ToUtf8(CellText(row, col)));
    return texts;
  }

 private:
  void Asked() const { EXPECT_FALSE(dead_) << "asked of a grid whose window is gone"; }
  [[nodiscard]] bool Has(int row, int col) const {
    Asked();
    return row >= 0 && row < Rows() && col >= 0 && col < columns_;
  }
  [[nodiscard]] Cell& Own(int row, int col) {
    return rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(col)];
  }
  const int columns_;
  const bool& dead_;
  Text typed_;
};

class FakeZmcView final : public FakeView<ZmcView> {
 public:
  FakeZmcView(Log& log, FakeWindowSystem& windows) : FakeView<ZmcView>(log, windows) {
    for (const ZmcTab tab : kZmcTabs) {
      for (const ZmcControlPlace& place : ControlsOf(tab)) {
        if (tab == ZmcTab::kMain) controls[place.id].kind = place.kind;
      }
    }
  }

  struct Control {
    ZmcControlKind kind = ZmcControlKind::kLabel;
    Text text;
    bool shown = true;
    bool enabled = true;
    int state = 0;
    std::uint32_t color = 0;
    ZmcDigits digits;
    std::vector<Text> items;
    int selected = -1;
    bool open = false;
    int mark = -1;
    bool editing = false;
  };
  std::map<int, Control> controls;
  FakeZmcGrid main{5, 4, dead};
  FakeZmcGrid materials{1, 8, dead};
  FakeZmcGrid operations{1, 5, dead};
  std::set<ZmcTab> made;
  std::set<ZmcTab> shownTabs;
  int focused = 0;
  std::optional<double> power;
  std::function<void(int id, bool focused)> onLineFocus;
  std::function<void()> onToolLeft;

  void Destroy() override { Order("destroy"), closing = true; }
  void PostTab() override { Order("tab"); }
  void MakeTab(ZmcTab tab) override {
    if (made.insert(tab).second) Order("make ", static_cast<int>(tab));
  }
  void ShowTab(ZmcTab tab) override { Order("show tab ", static_cast<int>(tab)), shownTabs.insert(tab); }
  void HideTab(ZmcTab tab) override {
    if (shownTabs.erase(tab) != 0) Order("hide tab ", static_cast<int>(tab));
  }
  /// Only the frame is a live window. The tabs are 100, 101 and 102.
  [[nodiscard]] WindowHandle TabHandle(ZmcTab tab) const override {
    return Asked(), made.count(tab) != 0 ? 100 + static_cast<int>(tab) : 0;
  }
  [[nodiscard]] FakeZmcGrid& GridOf(ZmcTab tab) {
    return tab == ZmcTab::kMain ? main : tab == ZmcTab::kMaterials ? materials : operations;
  }
  [[nodiscard]] ZmcGrid& Grid(ZmcTab tab) override {
    Asked();
    EXPECT_TRUE(made.count(tab) != 0) << "a grid of a tab that was not made";
    return GridOf(tab);
  }
  [[nodiscard]] Text ControlText(int id) const override { return Asked(), At(id).text; }
  void SetControlText(int id, TextView text) override { Asked(), controls.at(id).text = Text(text); }
  void ShowControl(int id, bool on) override { Asked(), controls.at(id).shown = on; }
  void EnableControl(int id, bool on) override { Asked(), controls.at(id).enabled = on; }
  void SetLabelColor(int id, std::uint32_t color) override { Asked(), controls.at(id).color = color; }
  void SetDigits(int id, const ZmcDigits& digits) override { Asked(), controls.at(id).digits = digits; }
  [[nodiscard]] int State(int id) const override { return Asked(), At(id).state; }
  void SetState(int id, int state) override { Asked(), controls.at(id).state = state; }
  void SetPowerBar(std::optional<double> percent) override { Asked(), power = percent; }
  [[nodiscard]] bool IsFieldEditing(int id) const override { return Asked(), At(id).editing; }
  void FillList(int id, const std::vector<Text>& items) override {
    Asked(), controls.at(id).items = items, controls.at(id).selected = -1;
  }
  [[nodiscard]] std::vector<Text> ListItems(int id) const override { return Asked(), At(id).items; }
  [[nodiscard]] int ListSelection(int id) const override { return Asked(), At(id).selected; }
  void SelectItem(int id, int index) override {
    Asked();
    Control& list = controls.at(id);
    list.selected = index >= 0 && index < static_cast<int>(list.items.size()) ? index : -1;
    list.text = list.selected >= 0 ? list.items[static_cast<std::size_t>(list.selected)] : Text();
  }
  [[nodiscard]] bool IsListOpen(int id) const override { return Asked(), At(id).open; }
  void OpenList(int id, bool open) override {
    Order(open ? "open list " : "close list ", id);
    controls.at(id).open = open && !At(id).items.empty();
    controls.at(id).mark = At(id).selected;
  }
  void MoveInList(int id, int by) override {
    Order("move in list ", id, " ", by);
    Control& list = controls.at(id);
    list.mark = std::clamp(list.mark + by, 0, static_cast<int>(list.items.size()) - 1);
  }
  bool AcceptItem(int id) override {
    Order("accept ", id);
    const int mark = At(id).mark;
    controls.at(id).open = false;
    if (mark < 0) return false;
    SelectItem(id, mark);
    return true;
  }
  void SelectAllText(int id) override { Order("select all ", id); }
  [[nodiscard]] int FocusedControl() const override { return Asked(), focused; }
  void FocusControl(int id) override {
    Order("focus ", id);
    const int before = std::exchange(focused, id);
    if (before == id) return;
    if (before == zmc_control::kTool && onToolLeft) onToolLeft();
    if (At(before).kind == ZmcControlKind::kLine && onLineFocus) onLineFocus(before, false);
    if (!dead && At(id).kind == ZmcControlKind::kLine && onLineFocus) onLineFocus(id, true);
  }
  void FocusGrid(ZmcTab tab) override { Order("focus grid ", static_cast<int>(tab)); }
  BoxAnswer AskInBox(const BoxSpec&) override {
    ADD_FAILURE() << "the window system answers the boxes";
    return BoxAnswer::kOk;
  }

 private:
  [[nodiscard]] const Control& At(int id) const {
    static const Control kNone;
    const auto found = controls.find(id);
    return found != controls.end() ? found->second : kNone;
  }
};

}  // namespace pnl::test
