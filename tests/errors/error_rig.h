// SPDX-License-Identifier: MIT
// A whole error manager on a simulated CNC: its fake window, a reader of program lines that may be slow, and the
// intentions that an operator, the kernel and the host bring.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "errors/error_fixture.h"
#include "errors/error_ids.h"
#include "errors/error_session.h"
#include "support/fake_view.h"
#include "support/tool_stage.h"

namespace pnl::test {

/// Of what the logic does to the controls only the outcome is kept: what an operator would notice goes to the log.
class FakeErrorView final : public FakeControls<ErrorView> {
 public:
  FakeErrorView(Log& log, FakeWindowSystem& windows) : FakeControls(log, windows) {
    rects = {{error_id::kTitleBox, {112, 10, 430, 52}},    {error_id::kChannelBox, {61, 10, 106, 52}},
             {error_id::kTitleLine, {10, 63, 579, 97}},    {error_id::kDescription, {10, 109, 579, 244}},
             {error_id::kPrevious, {10, 24, 40, 56}},      {error_id::kNext, {537, 10, 567, 42}},
             {error_id::kBefore, {19, 10, 49, 26}},        {error_id::kAfter, {543, 41, 573, 57}},
             {error_id::kHelp, {436, 10, 466, 42}},        {error_id::kAcknowledge, {471, 10, 501, 42}},
             {error_id::kConfirmSign, {502, 10, 532, 42}}, {error_id::kMarkedSign, {502, 10, 532, 42}}};
    for (const auto& [id, rect] : rects) shown[id] = false;
  }
  void FocusWindow() override { Order("focus window"), Move(Focus::kWindow); }
  void Invalidate() override { Asked(), ++invalidations; }
  void SetWindowRect(const Rect& rect) override {
    Asked();
    const bool resized = rect.Width() != client.Width() || rect.Height() != client.Height();
    window = rect;
    client = {0, 0, rect.Width(), rect.Height()};
    if (resized && onResized) onResized();
  }
  [[nodiscard]] Rect ClientRect() const override { return Asked(), client; }
  void SetWaitCursor(bool waiting) override { Order(waiting ? "wait" : "ready"), waits = waiting; }
  void RegisterHotKey(bool registered) override { Asked(), hotKey = registered; }
  void SetFonts(const ErrorFont& title, const ErrorFont&) override { Asked(), titleFont = title; }
  void ScaleDialog(double wanted) override { Asked(), scale = wanted; }
  [[nodiscard]] Rect ControlRect(int id) const override { return Asked(), rects.at(id); }
  void MoveControl(int id, const Rect& rect) override { Asked(), rects.at(id) = rect; }
  void ShowControl(int id, bool on) override { Asked(), shown[id] = on; }
  void SetControlText(int id, TextView text) override { Asked(), texts[id] = ToUtf8(text); }
  void CentreTitleLine(bool centred) override { Asked(), titleCentred = centred; }
  void SetClassColor(std::uint32_t color) override { Asked(), classColor = color; }
  void SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool) override {
    Asked(), boxColors[id] = {back, text};
  }
  void UseRaisedLook(int id, bool raised) override { Asked(), raisedLook[id] = raised; }
  [[nodiscard]] int DescriptionTextWidth(TextView text) const override {
    return Asked(), static_cast<int>(text.size()) * 8;
  }
  [[nodiscard]] int TitleTextHeight(TextView text, int width) const override {
    return Asked(), 20 * (1 + static_cast<int>(text.size()) * 8 / std::max(width, 1));
  }

  std::map<int, std::string> texts;
  std::map<int, std::pair<std::uint32_t, std::uint32_t>> boxColors;  // back, text
  std::map<int, bool> raisedLook{{error_id::kTitleBox, true}, {error_id::kChannelBox, true}};
  Rect window;
  Rect client{0, 0, 590, 255};
  ErrorFont titleFont;
  std::uint32_t classColor = 0;
  double scale = 0;
  bool hotKey = false;
  bool titleCentred = true;
  bool waits = false;
  int invalidations = 0;
  std::function<void()> onResized;
};

/// Reads at once, or keeps whoever asked waiting.
class FakeLineReader final : public ErrorLineReader {
 public:
  explicit FakeLineReader(Files& files) : files_(files) {}
  std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                   std::function<void(const ProgramLines&)> whenRead) override {
    ++reads;
    if (!slow) return ReadProgramLines(place, captions, files_);
    later = std::move(whenRead);
    return std::nullopt;
  }
  void Drop() override { later = nullptr; }

  bool slow = false;
  int reads = 0;
  std::function<void(const ProgramLines&)> later;

 private:
  Files& files_;
};

class ErrorToolTest : public testing::Test, public ToolStage<SimGround, FakeErrorView, ErrorSession> {
 protected:
  ErrorToolTest();
  ~ErrorToolTest() override;

  /// Makes window and logic; the ini file and the queue are as they are then.
  void MakeTool();
  /// The two without its start.
  void MakeTool(const ToolContext& around);
  void DestroyTool();
  /// Delivers what waits for the tool.
  void Drain();
  /// Into the kernel's queue, with its reports delivered.
  void Push(const ErrorRecord& record) { PushRecord(cnc, record), Drain(); }
  void Key(ErrorKey key) { Do(&ErrorSession::OnKey, key); }
  void Click(int id) { Do(&ErrorSession::OnClick, id); }
  void DoubleClick(int id) { Do(&ErrorSession::OnDoubleClick, id); }
  void Notify(std::intptr_t what, std::intptr_t value) { Do(&ErrorSession::OnToolNotify, what, value); }
  [[nodiscard]] std::string Box() const { return view->texts.at(error_id::kTitleBox); }
  [[nodiscard]] std::string Title() const { return view->texts.at(error_id::kTitleLine); }
  [[nodiscard]] std::string Description() const { return view->texts.at(error_id::kDescription); }
  [[nodiscard]] std::string Counters() const;
  [[nodiscard]] std::string Current() const { return Describe(*cnc.Get(u"DM.HMI.ERROR.CURRENT")); }
  [[nodiscard]] std::string& Ini() { return files.disc["C:\\P52\\errman.ini"]; }

  FakeLineReader* reader = nullptr;  // the tool's

 private:
  template <typename Intention, typename... Args>
  void Do(Intention intention, Args... args) {
    Call(intention, args...);
    EXPECT_FALSE(view->waits) << "the wait cursor stays";
    Drain();
  }
};

}  // namespace pnl::test
