// SPDX-License-Identifier: MIT
// A window of the command line without a window: keeps what the logic set, gives focus events back as the window system
// does, writes every order into the log with the prefix "view ". Once dead, nothing may be asked of it.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "mdi/mdi_drop_list.h"
#include "mdi/mdi_session.h"
#include "mdi_fakes.h"

namespace pnl::test {

class FakeMdiView final : public MdiView {
 public:
  enum class Focus { kElsewhere, kNone, kWindow, kEdit, kList };

  FakeMdiView(Log& log, FakeWindowSystem& windows) : log_(log), windows_(windows), handle_(windows.Open()) {}

  std::shared_ptr<MdiSession> session;
  bool dead = false;
  Rect parent{0, 0, 800, 600};
  Rect editScreen{165, 571, 834, 601};
  bool visible = false;
  MdiLayout layout;
  Text title;
  int blinking = 0;
  std::uint32_t signFore = 0;
  std::uint32_t signBack = 0;
  Focus focus = Focus::kElsewhere;
  Text edit;
  TextSelection selection;
  bool readOnly = false;
  std::vector<Text> items;
  int selected = -1;
  bool listEnabled = true;
  MdiDropListSpec dropSpec;
  std::vector<Text> dropItems;
  int dropSelected = -1;
  std::unique_ptr<MdiDropList> dropList;

  [[nodiscard]] std::vector<std::string> Items() const {
    std::vector<std::string> all;
    for (const Text& item : items) all.push_back(ToUtf8(item));
    return all;
  }

  [[nodiscard]] WindowHandle Handle() const override { return Asked(), handle_; }
  [[nodiscard]] Rect ParentClientRect() const override { return Asked(), parent; }
  [[nodiscard]] bool IsVisible() const override { return Asked(), visible; }
  void Show() override { Order("show"), visible = true; }
  void Hide() override {
    Order("hide");
    visible = false;
    Move(Focus::kElsewhere);
  }
  void BringToTop() override { Order("top"); }
  void Place(const MdiLayout& placed) override { Order("place"), layout = placed; }
  void SetTitle(TextView text) override { Order("title " + ToUtf8(text)), title = Text(text); }
  void SetTitleBlinking(int period) override { Order("blink " + std::to_string(period)), blinking = period; }
  void SetSignColors(std::uint32_t fore, std::uint32_t back) override {
    Order("sign");
    signFore = fore;
    signBack = back;
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
  void ClearFocus() override {
    Order("clear focus");
    if (visible) Move(Focus::kNone);
  }
  [[nodiscard]] Text EditText() const override { return Asked(), edit; }
  void SetEditText(TextView text) override {
    Order("edit \"" + ToUtf8(text) + "\"");
    edit = Text(text);
    selection = {};
  }
  [[nodiscard]] TextSelection EditSelection() const override { return Asked(), selection; }
  void SetEditSelection(TextSelection wanted) override {
    Order("select " + std::to_string(wanted.start) + "," + std::to_string(wanted.end));
    const int length = static_cast<int>(edit.size());
    selection = wanted.start < 0 ? TextSelection{selection.end, selection.end}
                                 : TextSelection{std::min(wanted.start, length), std::min(wanted.end, length)};
  }
  void ReplaceEditSelection(TextView text) override {
    Order("replace selection \"" + ToUtf8(text) + "\"");
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
    Order("list select " + std::to_string(index));
    if (index == -1 || IsItem(index)) selected = index;
  }
  void FillList(const TextRows& all) override {
    Order("fill list");
    items.assign(all.begin(), all.end());
    selected = -1;
  }
  void InsertListItem(int index, TextView text) override {
    Order("list insert " + std::to_string(index) + " \"" + ToUtf8(text) + "\"");
    if (index < 0 || index > static_cast<int>(items.size())) return;
    items.insert(items.begin() + index, Text(text));
    if (selected >= index) ++selected;
  }
  void ReplaceListItem(int index, TextView text) override {
    Order("list replace " + std::to_string(index) + " \"" + ToUtf8(text) + "\"");
    if (IsItem(index)) items[static_cast<std::size_t>(index)] = Text(text);
  }
  void DeleteListItem(int index) override {
    Order("list delete " + std::to_string(index));
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
    dropList = std::make_unique<MdiDropList>(windows_, handle_);
    Move(Focus::kElsewhere);
  }
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
  void Move(Focus to) {
    ++moves_;
    Arrive(to);
    if (--moves_ != 0 || !std::exchange(listGotFocus_, false)) return;
    RunOperation(session, [](MdiSession& logic) { logic.OnFocusSettled(); });
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
  void Asked() const { EXPECT_FALSE(dead) << "asked of a window that is gone"; }
  void Arrive(Focus to) {
    if (to == focus) return;
    const Focus from = focus;
    focus = to;
    if (from == Focus::kEdit) RunOperation(session, [](MdiSession& logic) { logic.OnEditFocus(false); });
    if (session == nullptr || focus != to) return;
    if (to == Focus::kWindow) RunOperation(session, [](MdiSession& logic) { logic.OnWindowFocus(); });
    if (to == Focus::kEdit) RunOperation(session, [](MdiSession& logic) { logic.OnEditFocus(true); });
    if (to != Focus::kList) return;
    listGotFocus_ = true;
    RunOperation(session, [](MdiSession& logic) { logic.OnListFocus(); });
  }
  void Order(const std::string& line) {
    Asked();
    log_.push_back("view " + line);
  }
  Log& log_;
  FakeWindowSystem& windows_;
  WindowHandle handle_;
  int moves_ = 0;
  bool listGotFocus_ = false;
  std::vector<std::unique_ptr<MdiDropList>> buried_;
};

}  // namespace pnl::test
