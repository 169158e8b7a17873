// SPDX-License-Identifier: MIT
// A whole help viewer on a simulated CNC: its fake window, and the intentions that an operator and the host bring.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "help/help_fake_books.h"
#include "help/help_session.h"
#include "support/fake_view.h"
#include "support/tool_stage.h"

namespace pnl::test {

class FakeHelpView final : public FakeView<HelpView> {
 public:
  using FakeView::FakeView;

  void FocusWindow() override { Order("focus window"), part = HelpPart::kNone; }
  void FocusParent() override { Order("focus parent"), part = HelpPart::kNone; }
  void GiveFocusBack() override { Order("give focus back"); }
  void MoveWindow(const Rect& rect) override { Order("move"), window = rect; }
  void ShowBook(bool shown) override { Order(shown ? "show book" : "hide book"), bookShown = shown; }
  void ShowMissing(TextView text) override { Asked(), missing = ToUtf8(text); }
  void ShowNote(TextView text) override { Asked(), note = ToUtf8(text); }
  void ShowPane(HelpPane shown, bool on) override {
    Order("pane ", static_cast<int>(shown), on ? "" : " hidden");
    pane = shown;
    panesShown = on;
  }
  void SetContents(const std::vector<HelpRow>& rows) override { Asked(), contents = rows, rowsOf[0] = -1; }
  void SetIndex(const std::vector<HelpRow>& rows) override { Asked(), index = rows, rowsOf[1] = -1; }
  void SetResults(const std::vector<ResultRow>& rows) override {
    Asked();
    results.clear();
    for (const ResultRow& row : rows) results.push_back(ToUtf8(row.title));
    rowsOf[2] = -1;
  }
  void SetSearchStatus(TextView text) override { Asked(), status = ToUtf8(text); }
  void SelectRow(HelpPart list, int row) override { Asked(), rowsOf[ListIndex(list)] = row; }
  [[nodiscard]] int SelectedRow(HelpPart list) const override { return Asked(), rowsOf[ListIndex(list)]; }
  [[nodiscard]] Text LineText(HelpPart line) const override {
    Asked();
    const auto known = lines.find(line);
    return known == lines.end() ? Text() : known->second;
  }
  void SetLineText(HelpPart line, TextView text) override { Asked(), lines[line] = Text(text); }
  bool ShowPage(const std::shared_ptr<PageSource>& source, TextView page, TextView anchor) override {
    EXPECT_NE(source, nullptr);
    Order("page ", page, "#", anchor);
    if (badPages) return false;
    shownPage = ToUtf8(page) + "#" + ToUtf8(anchor);
    if (onPageShown) onPageShown(page, anchor);
    return true;
  }
  void ClearPage() override { Asked(), shownPage.clear(); }
  void GoBack() override { Order("back"); }
  void GoForward() override { Order("forward"); }
  void OpenFindLine(bool open) override {
    if (open != findOpen) Order(open ? "open find line" : "close find line");
    findOpen = open;
    if (open) part = HelpPart::kFindLine;
  }
  bool FindInPage(TextView text, bool backwards) override {
    Order(backwards ? "find back " : "find ", text);
    return pageHas == text;
  }
  [[nodiscard]] HelpPart FocusedPart() const override { return Asked(), part; }
  void FocusPart(HelpPart to) override {
    Order("focus ", static_cast<int>(to));
    if (to != HelpPart::kNone && bookShown && !stubborn) part = to;
  }
  void SendKey(HelpKey key) override {
    Order("key ", static_cast<int>(key));
    if (onKey) onKey(key, part);
  }
  void OpenPicker(const ManualPicker& picker) override {
    Order("pick");
    picked = picker;
    pickerOpen = true;
    // The window may go in onPick, and this object with it.
    const auto pick = onPick;
    const auto answer = [onPicked = onPicked, chosen = choice] {
      if (onPicked) onPicked(chosen);
    };
    if (pick) return pick(answer);
    pickerOpen = false;
    answer();
  }
  void ClosePicker() override { Asked(), pickerOpen = false; }
  void Hide() override { FakeView::Hide(), part = HelpPart::kNone; }

  HelpPart part = HelpPart::kNone;
  bool stubborn = false;  // the focus can't be moved
  Rect window;
  bool bookShown = false;
  std::string missing;
  std::string note;
  HelpPane pane = HelpPane::kContents;
  bool panesShown = true;
  std::vector<HelpRow> contents;
  std::vector<HelpRow> index;
  std::vector<std::string> results;
  std::string status;
  std::map<HelpPart, Text> lines;
  std::string shownPage;  // page#anchor
  bool badPages = false;
  Text pageHas;
  bool findOpen = false;
  ManualPicker picked;
  std::optional<ManualChoice> choice;
  std::function<void(TextView, TextView)> onPageShown;
  std::function<void(HelpKey, HelpPart)> onKey;
  std::function<void(const std::optional<ManualChoice>&)> onPicked;  // what the operator chooses
  /// Instead of an answer at once: the test calls the answer when it likes.
  std::function<void(const std::function<void()>& answer)> onPick;
  bool pickerOpen = false;

 private:
  static std::size_t ListIndex(HelpPart list) {
    EXPECT_TRUE(list == HelpPart::kContents || list == HelpPart::kIndexList || list == HelpPart::kResults);
    return list == HelpPart::kContents ? 0 : list == HelpPart::kIndexList ? 1 : 2;
  }
  int rowsOf[3] = {-1, -1, -1};
};

class HelpToolTest : public testing::Test, public ToolStage<SimGround, FakeHelpView, HelpSession> {
 protected:
  HelpToolTest();
  ~HelpToolTest() override;

  /// Makes window and logic and starts them.
  void MakeTool();
  void MakeTool(const ToolContext& around);
  void SetMark(TextView mark) { cnc.Set(u"E.HELPDATA", Text(mark)); }
  std::intptr_t Command(std::intptr_t command) { return Call(&HelpSession::OnToolCommand, command); }
  void Menu(int id) { Call(&HelpSession::OnMenuCommand, id); }
  bool Key(HelpKey key) { return Call(&HelpSession::OnKey, key); }
  void GoTo(TextView name) {
    Tell([&](HelpSession& session) { session.OnGoToManual(name); });
  }
  /// Opens the viewer at a mark that has its page.
  void OpenAt(TextView mark = u"OPT0130") {
    SetMark(mark);
    EXPECT_EQ(Command(PNL_COMMAND_OPEN), PNL_DONE);
    Forget();
  }
  /// The titles and texts of the boxes since the last call.
  std::vector<std::string> Boxes();
  std::string& Disc(const std::string& path) { return files.disc[path]; }

  std::shared_ptr<FakeBook> book = std::make_shared<FakeBook>();
  std::shared_ptr<FakeBook> other = std::make_shared<FakeBook>();
  FakeShelf::World world;
};

}  // namespace pnl::test
