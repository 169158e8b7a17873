// SPDX-License-Identifier: MIT
// A window of the command line without a window: gives focus events back as the window system does, and has an edit, a
// list and a drop list that behave as the real ones.
#pragma once

#include <memory>
#include <vector>

#include "mdi/mdi_drop_list.h"
#include "mdi/mdi_session.h"
#include "support/fake_view.h"

namespace pnl::test {

class FakeMdiView final : public FakeView<MdiView> {
 public:
  FakeMdiView(Log& log, FakeWindowSystem& windows) : FakeView(log, windows), windows_(windows) {}

  std::weak_ptr<MdiSession> session;
  Rect editScreen{165, 571, 834, 601};
  MdiLayout layout;
  Text title;
  int blinking = 0;
  std::uint32_t signFore = 0;
  std::uint32_t signBack = 0;
  Text edit;
  TextSelection selection;
  bool readOnly = false;
  std::vector<Text> items;
  int selected = -1;
  bool listEnabled = true;
  MdiDropListSpec dropSpec;
  std::vector<Text> dropItems;
  int dropSelected = -1;
  std::vector<MdiRowMark> dropMarks;
  MdiDropKeys dropKeys;
  std::unique_ptr<MdiDropList> dropList;

  [[nodiscard]] std::vector<std::string> Items() const { return Utf8Rows(items); }

  void Place(const MdiLayout& placed) override { Order("place"), layout = placed; }
  void SetTitle(TextView text) override { Order("title ", text), title = Text(text); }
  void SetTitleBlinking(int period) override { Order("blink ", period), blinking = period; }
  void SetSignColors(std::uint32_t fore, std::uint32_t back) override {
    Order("sign"), signFore = fore, signBack = back;
  }
  // Nothing of the logic may touch the view after a move: the host hears when the focus has settled, and may have ended
  // it.
  void FocusWindow() override {
    Order("focus window");
    if (visible) Move(Focus::kWindow);
  }
  void FocusEdit() override {
    Order("focus edit");
    if (visible) Move(Focus::kEdit);
  }
  void FocusList() override {
    Order("focus list");
    if (visible && listEnabled && layout.listShown) Move(Focus::kList);
  }
  [[nodiscard]] Text EditText() const override { return Asked(), edit; }
  void SetEditText(TextView text) override {
    Order("edit \"", text, "\"");
    edit = Text(text);
    selection = {};
  }
  [[nodiscard]] TextSelection EditSelection() const override { return Asked(), selection; }
  void SetEditSelection(TextSelection wanted) override {
    Order("select ", wanted.start, ",", wanted.end);
    const int length = static_cast<int>(edit.size());
    selection = wanted.start < 0 ? TextSelection{selection.end, selection.end}
                                 : TextSelection{std::min(wanted.start, length), std::min(wanted.end, length)};
  }
  void ReplaceEditSelection(TextView text) override {
    Order("replace selection \"", text, "\"");
    const auto start = static_cast<std::size_t>(selection.start);
    edit.replace(start, static_cast<std::size_t>(selection.end) - start, text);
    const int caret = selection.start + static_cast<int>(text.size());
    selection = {caret, caret};
  }
  void ScrollEditCaret() override { Order("scroll caret"); }
  void SetEditReadOnly(bool on) override { Order(on ? "read-only" : "writable"), readOnly = on; }
  void RedrawEdit() override { Order("redraw edit"); }
  [[nodiscard]] int ListCount() const override { return Asked(), static_cast<int>(items.size()); }
  [[nodiscard]] Text ListItem(int index) const override {
    Asked();
    return IsItem(index) ? items[static_cast<std::size_t>(index)] : Text();
  }
  [[nodiscard]] int ListSelection() const override { return Asked(), selected; }
  void SetListSelection(int index) override {
    Order("list select ", index);
    if (index == -1 || IsItem(index)) selected = index;
  }
  void FillList(const TextRows& all) override {
    Order("fill list");
    items.assign(all.begin(), all.end());
    selected = -1;
  }
  void InsertListItem(int index, TextView text) override {
    Order("list insert ", index, " \"", text, "\"");
    if (index < 0 || index > static_cast<int>(items.size())) return;
    items.insert(items.begin() + index, Text(text));
    if (selected >= index) ++selected;
  }
  void ReplaceListItem(int index, TextView text) override {
    Order("list replace ", index, " \"", text, "\"");
    if (IsItem(index)) items[static_cast<std::size_t>(index)] = Text(text);
  }
  void DeleteListItem(int index) override {
    Order("list delete ", index);
    if (!IsItem(index)) return;
    items.erase(items.begin() + index);
    if (selected == index) selected = -1;
    if (selected > index) --selected;
  }
  void SetListEnabled(bool on) override { Order(on ? "list on" : "list off"), listEnabled = on; }
  [[nodiscard]] Rect EditScreenRect() const override { return Asked(), editScreen; }
  [[nodiscard]] bool IsDropListOpen() const override { return Asked(), dropList != nullptr; }
  void OpenDropList(const MdiDropListSpec& spec) override {
    Order("open drop list");
    EXPECT_EQ(dropList, nullptr) << "a second drop list";
    dropSpec = spec;
    dropItems.clear();
    if (spec.items != nullptr) dropItems.assign(spec.items->begin(), spec.items->end());
    dropSpec.items = nullptr;
    dropSelected = dropItems.empty() ? -1 : 0;
    dropList = std::make_unique<MdiDropList>(windows_, handle);
    Move(Focus::kElsewhere);
  }
  void ShowDropRows(const MdiDropRows& rows) override {
    Asked();
    EXPECT_NE(dropList, nullptr) << "rows without a list";
    dropItems.assign(rows.items.begin(), rows.items.end());
    dropMarks = rows.marks;
    dropSelected = rows.selected;
  }
  void ShowDropKeys(const MdiDropKeys& keys) override { Asked(), dropKeys = keys; }
  void CloseDropList() override {
    Order("close drop list");
    // As a widget does: it goes when the event that is being handled has ended.
    if (dropList) buried_.push_back(std::move(dropList));
  }
  [[nodiscard]] std::optional<Text> DropListSelection() const override {
    Asked();
    if (dropSelected < 0) return std::nullopt;
    return dropItems[static_cast<std::size_t>(dropSelected)];
  }
  [[nodiscard]] Text DropListPicked() const override { return Asked(), dropList ? dropList->GetText() : Text(); }

  /// The focus goes somewhere, with the events that this brings.
  void Move(Focus to) override {
    ++moves_;
    Arrive(to);
    if (--moves_ != 0 || !std::exchange(listGotFocus_, false)) return;
    Tell(&MdiSession::OnFocusSettled);
  }
  void OkInDropList() {
    if (dropList) dropList->Accept(DropListSelection());
    buried_.clear();
  }
  void CancelInDropList() {
    if (dropList) dropList->Cancel();
    buried_.clear();
  }

 private:
  [[nodiscard]] bool IsItem(int index) const { return index >= 0 && index < static_cast<int>(items.size()); }
  template <typename... Args>
  void Tell(void (MdiSession::*event)(Args...), Args... args) {
    RunOperation(session.lock(), [&](MdiSession& logic) { (logic.*event)(args...); });
  }
  void Arrive(Focus to) {
    if (to == focus) return;
    const Focus from = focus;
    focus = to;
    if (from == Focus::kEdit) Tell(&MdiSession::OnEditFocus, false);
    if (session.expired() || focus != to) return;
    if (to == Focus::kWindow) Tell(&MdiSession::OnWindowFocus);
    if (to == Focus::kEdit) Tell(&MdiSession::OnEditFocus, true);
    if (to != Focus::kList) return;
    listGotFocus_ = true;
    Tell(&MdiSession::OnListFocus);
  }
  FakeWindowSystem& windows_;
  int moves_ = 0;
  bool listGotFocus_ = false;
  std::vector<std::unique_ptr<MdiDropList>> buried_;
};

}  // namespace pnl::test
