// SPDX-License-Identifier: MIT
// A whole PLC message view on a simulated CNC: its fake window, and what the PLC, the host and an operator bring.
#pragma once

#include <map>
#include <string>

#include "plc/plc_ids.h"
#include "plc/plc_session.h"
#include "support/fake_view.h"
#include "support/tool_stage.h"

namespace pnl::test {

/// Keeps what is on the screen; what an operator would notice goes to the log.
class FakePlcView final : public FakeView<PlcView> {
 public:
  using FakeView::FakeView;

  void FocusWindow() override { Order("focus"), Move(Focus::kWindow); }
  void SetWindowRect(const Rect& rect) override {
    Asked();
    const bool resized = rect.Width() != window.Width() || rect.Height() != window.Height();
    window = rect;
    if (resized && onResized) onResized();
  }
  [[nodiscard]] Rect ClientRect() const override { return Asked(), Rect{0, 0, window.Width(), window.Height()}; }
  void MoveControl(int id, const Rect& rect) override { Asked(), rects[id] = rect; }
  void ShowControl(int id, bool on) override {
    Asked();
    if (shown[id] && !on) wentAway.push_back(id);
    shown[id] = on;
  }
  void SetControlText(int id, TextView text) override { Asked(), texts[id] = ToUtf8(text); }
  void SetTitleColors(std::uint32_t back, std::uint32_t text) override { Asked(), titleBack = back, titleText = text; }
  void SetText(TextView text) override {
    Asked();
    content = ToUtf8(text);
    picture.clear();
    scroll[plc_id::kText] = 0;
  }
  bool SetPicture(const std::string& bytes) override {
    Order("picture");
    content.clear();
    picture = goodPictures ? bytes : std::string();
    return goodPictures;
  }
  PageRefusal Navigate(TextView folder, TextView name, TextView anchor) override {
    Order("navigate ", folder, "|", name, "|", anchor);
    page = refusal == PageRefusal::kNone ? Text(name) : Text();
    scroll[plc_id::kPage] = 0;
    return refusal;
  }
  void FocusPage() override { Order("focus page"), Move(Focus::kEdit); }
  void ClearPage() override { Asked(), page.clear(); }
  void LoadVideo(TextView path) override { Order("load video ", path), video = ToUtf8(path); }
  void PlayVideo(int times) override {
    Order("play ", times);
    EXPECT_NE(video, "");
  }
  void StopVideo() override { Order("stop"); }
  void RewindVideo() override { Order("rewind"); }
  void ClearVideo() override { Order("clear video"), video.clear(); }
  [[nodiscard]] PlcPlace PlaceIn(int id) const override {
    Asked();
    return {id == plc_id::kPage ? page : Text(), scroll.at(id)};
  }
  void SetPlace(int id, const PlcPlace& place) override {
    Asked();
    if (id == plc_id::kPage) page = place.page;
    scroll[id] = place.scroll;
  }

  /// Which of the views is on the screen.
  [[nodiscard]] std::string Area() const {
    std::string area;
    for (const auto& [id, name] : {std::pair(plc_id::kText, "text"), std::pair(plc_id::kPage, "page"),
                                   std::pair(plc_id::kVideo, "video"), std::pair(plc_id::kNote, "note")}) {
      const auto found = shown.find(id);
      if (found != shown.end() && found->second) area += (area.empty() ? "" : " and ") + std::string(name);
    }
    return area.empty() ? "nothing" : area;
  }

  std::map<int, Rect> rects;
  std::map<int, bool> shown;
  std::vector<int> wentAway;  // the controls that were shown and are hidden, in their order
  std::map<int, std::string> texts;
  std::map<int, int> scroll{{plc_id::kText, 0}, {plc_id::kPage, 0}};
  Rect window;
  std::uint32_t titleBack = 0;
  std::uint32_t titleText = 0;
  std::string content;
  std::string picture;
  std::string video;
  Text page;
  PageRefusal refusal = PageRefusal::kNone;
  bool goodPictures = true;
  std::function<void()> onResized;
};

class PlcToolTest : public testing::Test, public ToolStage<SimGround, FakePlcView, PlcSession> {
 protected:
  PlcToolTest();
  ~PlcToolTest() override { DestroyTool(); }

  void MakeTool();
  /// Delivers what waits for the tool.
  void Drain();
  /// A value of the PLC's variable, with its report delivered.
  void Report(std::int64_t value) {
    EXPECT_TRUE(cnc.Set(u"E.PLCMSGDATA", value));
    Drain();
  }
  void Help(TextView file, TextView title = u"Help");
  void File(TextView file, TextView title = u"File");
  void HideHelp() { Call(&PlcSession::HideErrorHelp); }
  bool Key(PlcKey key) { return Call(&PlcSession::OnKey, key); }
  void Escape() { EXPECT_TRUE(Key(PlcKey::kEscape)); }
  void ToolCommand(std::intptr_t command) { Call(&PlcSession::OnToolCommand, command); }
  void Command(int command) { Call(&PlcSession::OnCommand, command); }
  /// A message of the PLC with its document.
  void Message(std::int32_t type, std::int32_t id, TextView text, TextView info) {
    cnc.PlcMessage(type, id, text, info);
  }
  /// The calls of the host alone, since the last call.
  Log HostCalls();
  [[nodiscard]] std::string Title() const { return view->texts.at(plc_id::kTitle); }
  [[nodiscard]] std::string Count() const { return view->texts.at(plc_id::kCount); }
  [[nodiscard]] std::string Note() const { return view->texts.at(plc_id::kNote); }
  [[nodiscard]] PlcMode Mode() const { return tool->Queue().Mode(); }

  bool mayOpen = true;

 private:
  static inline PlcToolTest* current_ = nullptr;
};

}  // namespace pnl::test
