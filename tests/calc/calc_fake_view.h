// SPDX-License-Identifier: MIT
// A window of the calculator without a window: reports changes of the line as the real one does, and moves rows,
// selection and focus as the real controls do. Once it is closing only what is saved may be asked of it.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

#include "calc/calc_ids.h"
#include "calc/calc_view.h"
#include "support/fake_view.h"

namespace pnl::test {

class FakeCalcView final : public FakeControls<CalcView> {
 public:
  FakeCalcView(Log& log, FakeWindowSystem& windows) : FakeControls(log, windows) {
    rects = {{calc_id::kResult, {3, 3, 279, 31}},  {calc_id::kLine, {3, 36, 248, 62}},
             {calc_id::kStatus, {3, 67, 279, 83}}, {calc_id::kFirstKey, {89, 88, 122, 116}},
             {calc_id::kAcc, {3, 190, 36, 218}},   {calc_id::kHistory, {3, 88, 279, 216}}};
  }

  std::function<void()> onLineChanged;
  int left = 0;
  int top = 0;
  int height = 219;
  int width = 282;
  Text title;
  MenuHandle attached = 0;
  std::map<int, int> icons;
  Text line;
  int limit = 32767;  // of what is typed
  TextSelection selection;
  Text result;
  Text status;
  Text note;
  std::vector<Text> rows;
  std::vector<int> selectedRows;
  int currentRow = -1;
  int valuePaints = 0;
  std::vector<Text> variables;
  int variable = -1;
  bool working = false;

  [[nodiscard]] Rect WindowRect() const override {
    return FakeControls::Asked(), Rect{left, top, left + width, top + height};
  }
  void MoveWindow(int x, int y) override { Order("move ", x, ",", y), left = x, top = y; }
  void SetClientHeight(int wanted) override { Order("height ", wanted), height = wanted; }
  void Destroy() override { Order("destroy"), closing = true; }
  void ClosePanel() override { Order("close panel"); }
  void SetTitle(TextView text) override { Order("title ", text), title = text; }
  void AttachMenu(MenuHandle menu) override { Order(menu != 0 ? "menu on" : "menu off"), attached = menu; }

  [[nodiscard]] Rect ClientRect() const override { return Asked(), Rect{0, 0, width, height}; }
  void ShowControl(int id, bool on) override {
    FakeControls::ShowControl(id, on);
    const bool focused =
        (id == calc_id::kHistory && focus == Focus::kList) || (id == calc_id::kVariables && focus == Focus::kVariables);
    // A control that is hidden with the focus gives it to the line.
    if (!on && focused) focus = Focus::kEdit;
  }
  void SetKeyIcon(int id, int bitmap) override { Order("icon ", id), icons[id] = bitmap; }
  void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) override {
    Order("fonts ", lineHeight, ",", lineWeight, " ", resultHeight, ",", resultWeight);
  }

  [[nodiscard]] Text LineText() const override { return Asked(), line; }
  void SetLineText(TextView text) override { Order("line \"", text, "\""), Replace(text); }
  /// As the operator or the logic replaces the text.
  void Replace(TextView text) {
    selection = {};
    if (line == text) return;
    line = text;
    if (onLineChanged) onLineChanged();
  }
  [[nodiscard]] TextSelection LineSelection() const override { return Asked(), selection; }
  void SetLineSelection(TextSelection wanted) override {
    wanted.end == wanted.start ? Order("caret ", wanted.start) : Order("caret ", wanted.start, "-", wanted.end);
    const int size = static_cast<int>(line.size());
    selection = {std::clamp(wanted.start, 0, size), std::clamp(wanted.end, 0, size)};
  }
  void LimitLine(int characters) override { Order("limit ", characters), limit = characters; }
  void FocusLine() override { Order("focus line"), focus = Focus::kEdit; }

  [[nodiscard]] Text ResultText() const override { return Asked(), result; }
  void SetResultText(TextView text) override { Order("result ", text), result = text; }
  void SetResultColors(std::uint32_t back, std::uint32_t text) override { Order("colors ", back, ",", text); }
  void SetStatus(TextView text) override { Order("status ", text), status = text; }

  [[nodiscard]] int ListCount() const override { return FakeControls::Asked(), static_cast<int>(rows.size()); }
  [[nodiscard]] Text ListItem(int index) const override {
    return FakeControls::Asked(), rows.at(static_cast<std::size_t>(index));
  }
  [[nodiscard]] std::vector<int> ListSelection() const override { return Asked(), selectedRows; }
  [[nodiscard]] int ListCurrent() const override { return Asked(), currentRow; }
  void FillList(const TextRows& all) override {
    Order("fill ", all.size());
    rows.assign(all.begin(), all.end());
    selectedRows.clear();
    currentRow = -1;
  }
  [[nodiscard]] TextRows ListRows() const override { return FakeControls::Asked(), TextRows(rows); }
  void InsertListItem(int index, TextView text) override {
    Order("row ", index, " \"", text, "\"");
    rows.insert(rows.begin() + index, Text(text));
    for (int& row : selectedRows) row += row >= index ? 1 : 0;
    if (currentRow >= index) ++currentRow;
  }
  void DeleteListItem(int index) override {
    Order("delete row ", index);
    ASSERT_LT(index, static_cast<int>(rows.size()));
    rows.erase(rows.begin() + index);
    std::erase(selectedRows, index);
    for (int& row : selectedRows) row -= row > index ? 1 : 0;
    if (index < currentRow || currentRow == static_cast<int>(rows.size())) --currentRow;
  }
  void SelectListItem(int index) override {
    Order("select row ", index);
    ASSERT_LT(index, static_cast<int>(rows.size()));
    selectedRows = {index};
    currentRow = index;
  }
  /// The list itself gets Up or Down: to the next row, to the first one when it is on none, nowhere at its ends.
  void Walk(bool down) {
    const int last = static_cast<int>(rows.size()) - 1;
    const int next = currentRow < 0 ? 0 : currentRow + (down ? 1 : -1);
    if (next < 0 || next > last) return;
    selectedRows = {next};
    currentRow = next;
  }
  void FocusList() override { Order("focus list"), focus = Focus::kList; }
  void RepaintRowValues() override { Asked(), ++valuePaints; }

  void FillVariables(const std::vector<Text>& all) override {
    Order("variables ", all.size());
    variables = all;
    variable = -1;
  }
  [[nodiscard]] int VariablesSelection() const override { return Asked(), variable; }
  void FocusVariables() override { Order("focus variables"), focus = Focus::kVariables; }
  void SetNote(TextView text) override { Order("note \"", text, "\""), note = text; }
  void SetWorking(bool on) override { Order(on ? "working" : "idle"), working = on; }

 private:
  void Asked() const override {
    FakeControls::Asked();
    EXPECT_FALSE(closing);
  }
};

}  // namespace pnl::test
