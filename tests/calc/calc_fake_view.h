// SPDX-License-Identifier: MIT
// A window of the calculator without a window: keeps what the logic set, reports changes of the line as the real one
// does, moves rows, selection and focus as the real controls do, and writes every order into the log. Once it is
// closing only what is saved may be asked of it, and once it is dead nothing at all.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "calc/calc_ids.h"
#include "calc/calc_view.h"

namespace pnl::test {

using Log = std::vector<std::string>;

class FakeCalcView final : public CalcView {
 public:
  explicit FakeCalcView(Log& log) : log_(log) {
    rects[calc_id::kResult] = {3, 3, 279, 31};
    rects[calc_id::kLine] = {3, 36, 248, 62};
    rects[calc_id::kStatus] = {3, 67, 279, 83};
    rects[calc_id::kFirstKey] = {89, 88, 122, 116};
    rects[calc_id::kAcc] = {3, 190, 36, 218};
    rects[calc_id::kHistory] = {3, 88, 279, 216};
  }

  enum class Focus { kElsewhere, kLine, kList, kVariables };

  std::function<void()> onLineChanged;
  bool closing = false;
  bool dead = false;
  Rect parent{0, 0, 800, 600};
  int left = 0;
  int top = 0;
  int height = 219;
  int width = 282;
  bool visible = false;
  Text title;
  MenuHandle attached = 0;
  std::map<int, Rect> rects;
  std::map<int, bool> shown;
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
  std::vector<Text> variables;
  int variable = -1;
  Focus focus = Focus::kElsewhere;
  bool working = false;

  [[nodiscard]] bool IsShown(int id) const {
    const auto found = shown.find(id);
    return found == shown.end() || found->second;
  }

  [[nodiscard]] WindowHandle Handle() const override { return Asked(), 7; }
  [[nodiscard]] Rect ParentClientRect() const override { return Asked(), parent; }
  [[nodiscard]] Rect WindowRect() const override {
    EXPECT_FALSE(dead);
    return {left, top, left + width, top + height};
  }
  void MoveWindow(int x, int y) override {
    Order("move " + std::to_string(x) + "," + std::to_string(y));
    left = x;
    top = y;
  }
  void SetClientHeight(int wanted) override {
    Order("height " + std::to_string(wanted));
    height = wanted;
  }
  void Show() override { Order("show"), visible = true; }
  void Hide() override {
    Order("hide");
    visible = false;
    focus = Focus::kElsewhere;
  }
  void BringToTop() override { Order("top"); }
  [[nodiscard]] bool IsVisible() const override { return Asked(), visible; }
  void ClearFocus() override { Order("clear focus"); }
  void Destroy() override { Order("destroy"), closing = true; }
  void ClosePanel() override { Order("close panel"); }
  void SetTitle(TextView text) override { Order("title " + ToUtf8(text)), title = text; }
  void AttachMenu(MenuHandle menu) override { Order(menu != 0 ? "menu on" : "menu off"), attached = menu; }

  [[nodiscard]] Rect ClientRect() const override { return Asked(), Rect{0, 0, width, height}; }
  [[nodiscard]] Rect ControlRect(int id) const override {
    Asked();
    const auto found = rects.find(id);
    return found == rects.end() ? Rect() : found->second;
  }
  void MoveControl(int id, const Rect& rect) override {
    Order("place " + std::to_string(id));
    rects[id] = rect;
  }
  void ShowControl(int id, bool on) override {
    Order((on ? "show " : "hide ") + std::to_string(id));
    shown[id] = on;
    const bool focused =
        (id == calc_id::kHistory && focus == Focus::kList) || (id == calc_id::kVariables && focus == Focus::kVariables);
    // A control that is hidden with the focus gives it to the line.
    if (!on && focused) focus = Focus::kLine;
  }
  void SetKeyIcon(int id, int bitmap) override {
    Order("icon " + std::to_string(id));
    icons[id] = bitmap;
  }
  void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) override {
    Order("fonts " + std::to_string(lineHeight) + "," + std::to_string(lineWeight) + " " +
          std::to_string(resultHeight) + "," + std::to_string(resultWeight));
  }

  [[nodiscard]] Text LineText() const override { return Asked(), line; }
  void SetLineText(TextView text) override {
    Order("line \"" + ToUtf8(text) + "\"");
    Replace(text);
  }
  /// As the operator or the logic replaces the text.
  void Replace(TextView text) {
    selection = {};
    if (line == text) return;
    line = text;
    if (onLineChanged) onLineChanged();
  }
  [[nodiscard]] TextSelection LineSelection() const override { return Asked(), selection; }
  void SetLineSelection(TextSelection wanted) override {
    Order("caret " + std::to_string(wanted.start) +
          (wanted.end == wanted.start ? "" : "-" + std::to_string(wanted.end)));
    const int size = static_cast<int>(line.size());
    selection = {std::clamp(wanted.start, 0, size), std::clamp(wanted.end, 0, size)};
  }
  void LimitLine(int characters) override {
    Order("limit " + std::to_string(characters));
    limit = characters;
  }
  void FocusLine() override { Order("focus line"), focus = Focus::kLine; }

  [[nodiscard]] Text ResultText() const override { return Asked(), result; }
  void SetResultText(TextView text) override { Order("result " + ToUtf8(text)), result = text; }
  void SetResultColors(std::uint32_t back, std::uint32_t text) override {
    Order("colors " + std::to_string(back) + "," + std::to_string(text));
  }
  void SetStatus(TextView text) override { Order("status " + ToUtf8(text)), status = text; }

  [[nodiscard]] int ListCount() const override {
    EXPECT_FALSE(dead);
    return static_cast<int>(rows.size());
  }
  [[nodiscard]] Text ListItem(int index) const override {
    EXPECT_FALSE(dead);
    return rows.at(static_cast<std::size_t>(index));
  }
  [[nodiscard]] std::vector<int> ListSelection() const override { return Asked(), selectedRows; }
  [[nodiscard]] int ListCurrent() const override { return Asked(), currentRow; }
  void FillList(const TextRows& all) override {
    Order("fill " + std::to_string(all.size()));
    rows.assign(all.begin(), all.end());
    selectedRows.clear();
    currentRow = -1;
  }
  [[nodiscard]] TextRows ListRows() const override {
    EXPECT_FALSE(dead);
    return TextRows(rows);
  }
  void InsertListItem(int index, TextView text) override {
    Order("row " + std::to_string(index) + " \"" + ToUtf8(text) + "\"");
    rows.insert(rows.begin() + index, Text(text));
    for (int& row : selectedRows) row += row >= index ? 1 : 0;
    if (currentRow >= index) ++currentRow;
  }
  void DeleteListItem(int index) override {
    Order("delete row " + std::to_string(index));
    ASSERT_LT(index, static_cast<int>(rows.size()));
    rows.erase(rows.begin() + index);
    std::erase(selectedRows, index);
    for (int& row : selectedRows) row -= row > index ? 1 : 0;
    if (index < currentRow || currentRow == static_cast<int>(rows.size())) --currentRow;
  }
  void SelectListItem(int index) override {
    Order("select row " + std::to_string(index));
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

  void FillVariables(const std::vector<Text>& all) override {
    Order("variables " + std::to_string(all.size()));
    variables = all;
    variable = -1;
  }
  [[nodiscard]] int VariablesSelection() const override { return Asked(), variable; }
  void FocusVariables() override { Order("focus variables"), focus = Focus::kVariables; }
  void SetNote(TextView text) override { Order("note \"" + ToUtf8(text) + "\""), note = text; }
  void SetWorking(bool on) override { Order(on ? "working" : "idle"), working = on; }

 private:
  void Asked() const {
    EXPECT_FALSE(dead);
    EXPECT_FALSE(closing);
  }
  void Order(const std::string& order) const {
    Asked();
    log_.push_back("view " + order);
  }

  Log& log_;
};

}  // namespace pnl::test
