// SPDX-License-Identifier: MIT
// Parts of the explorer's logic with everything around them fake: places, network, window and worker. What is asked of
// the window and sent between its parts goes into one log.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/format.h"
#include "explorer/xplr_folders.h"
#include "explorer/xplr_messages.h"
#include "explorer/xplr_state.h"
#include "explorer/xplr_view.h"
#include "support/fake_places.h"
#include "support/fake_view.h"
#include "support/fake_window_system.h"
#include "support/stepped_worker.h"

namespace pnl::test {

class FakeXplrView final : public FakeView<XplrView> {
 public:
  using FakeView<XplrView>::FakeView;

  int focused = 0;
  NodeId selected = kNoNode;
  Text name;
  Text find;
  Text folder;
  XplrLayout layout;
  XplrFonts fonts;
  std::map<int, Text> labels;
  std::map<int, std::pair<std::uint32_t, std::uint32_t>> colors;  // frame and background
  std::shared_ptr<const std::vector<XplrRow>> rows;

  [[nodiscard]] WindowHandle HandleOf(XplrWindow window) const override {
    // A test reads the windows apart by these numbers; only the frame's is a live window.
    return Asked(), static_cast<WindowHandle>(handle + static_cast<int>(window));
  }
  void Destroy() override { Order("destroy"), closing = true; }
  void PostTab() override { Order("tab"); }
  void StyleForm(const XplrFonts& style) override { Order("style ", style.caption), fonts = style; }
  void SetColumnTitles(const std::array<Text, 3>& titles) override { Order("titles ", titles[0]); }
  void PostEscapeToDialog() override { Order("escape to dialog"); }
  void Place(const XplrLayout& next) override { Order("place"), layout = next; }
  void SetLabel(int id, TextView text) override { Order("label ", id, " ", text), labels[id] = Text(text); }
  void SetLabelColors(int id, std::uint32_t frame, std::uint32_t back, std::uint32_t) override {
    Order("colours ", id, " ", frame);
    colors[id] = {frame, back};
  }
  [[nodiscard]] int FocusedControl() const override { return Asked(), focused; }
  void FocusControl(int id) override {
    Order("focus ", id);
    const int before = std::exchange(focused, id);
    if (before == id || !onFocus) return;
    // A copy: an event may end the window.
    const auto changed = onFocus;
    if (before != 0) changed(before, false);
    if (!dead) changed(id, true);
  }
  void FocusFrame() override { Order("focus frame"); }
  std::function<void(int id, bool focused)> onFocus;
  [[nodiscard]] Text NameText() const override { return Asked(), name; }
  void SetNameText(TextView text) override { Order("name ", text), name = Text(text); }
  void OnNodesAdded(const XplrNodes&, NodeId above, std::size_t index, std::size_t count) override {
    Order("nodes ", above, " ", static_cast<std::int64_t>(index), " ", static_cast<std::int64_t>(count));
  }
  void OnNodeChanged(const XplrNodes&, NodeId node) override { Order("changed ", node); }
  void OnNodeRemoving(NodeId node) override { Order("removing ", node); }
  void SelectNode(NodeId node) override { Order("select ", node), selected = node; }
  void OpenNode(NodeId node) override { Order("open ", node); }
  void OnRowsReset(std::shared_ptr<const std::vector<XplrRow>> reset) override {
    Order("rows"), rows = std::move(reset);
  }
  void SelectRow(int row) override { Order("row ", row); }
  void ScrollToRow(int row) override { Order("scroll ", row); }
  void MarkTyped(std::size_t letters) override { Order("mark ", static_cast<std::int64_t>(letters)); }
  void ShowMoreComing(bool coming) override { Order(coming ? "more coming" : "no more coming"); }
  void ShowPreview(const XplrPreviewFace& face) override {
    Order("preview ", face.name, " ", static_cast<std::int64_t>(face.lines.size())), preview = face;
  }
  XplrPreviewFace preview;
  void PostEnter() override { Order("enter"); }
  bool OpenFind(TextView text) override { return Order("find ", text), true; }
  bool OpenFolderSearch() override { return Order("folder search"), true; }
  [[nodiscard]] Text FindText() const override { return Asked(), find; }
  [[nodiscard]] Text FolderText() const override { return Asked(), folder; }
  void FocusDialog() override { Order("focus dialog"); }
};

/// MakeWorker is InlineWorker, or SteppedWorker for the moments between question and answer.
template <typename AWorker = InlineWorker>
struct XplrGround {
  XplrGround() {
    for (int i = 1; i <= 5; ++i) windows.Open();
    windows.onSend = [this](WindowHandle window, const Message& message) { return Note("send", window, message), 0; };
    windows.onPost = [this](WindowHandle window, const Message& message) { Note("post", window, message); };
  }

  /// What was asked and sent since the last call.
  Log Take() { return std::exchange(log, {}); }
  /// The same without the orders to the window.
  Log Sent() {
    Log sent = Take();
    std::erase_if(sent, [](const std::string& line) { return line.starts_with("view "); });
    return sent;
  }

  Log log;
  FakeWindowSystem windows;
  FakePlaces places;
  FakeNetwork network;
  FakeXplrView view{log, windows};
  AWorker worker;
  XplrState state;
  XplrJobs jobs{worker, XplrSteps([](const std::function<void()>& step) { step(); })};
  XplrFolders folders{places, network, jobs};
  XplrViewAccess access = [this]() -> XplrView& { return view; };
  XplrPosts posts{windows, access};

 private:
  void Note(const std::string& how, WindowHandle window, const Message& message) {
    static constexpr const char* kWindows[] = {"frame", "form", "tree", "list", "find", "folder"};
    std::string line = how + " " + kWindows[window - view.handle] + " ";
    line += RegisteredMessageName(message.number);
    if (message.number == posts.NumberOf(XplrMessage::kUpdateCaption)) {
      line += " '" + ToUtf8(reinterpret_cast<const char16_t*>(message.first)) + "'";
    } else if (message.first != 0) {
      line += " " + std::to_string(message.first);
    }
    log.push_back(line);
  }
};

}  // namespace pnl::test
