// SPDX-License-Identifier: MIT
// A whole error manager on a simulated CNC: host, window, files, language, with one log of what was asked, in order.
#pragma once

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "errors/error_fixture.h"
#include "errors/error_ids.h"
#include "errors/error_session.h"
#include "host/language_pack.h"

namespace pnl::test {

using Log = std::vector<std::string>;

/// A window that remembers what it was told and logs what an operator would notice. Once it is dead, whatever is asked
/// of it is a failed test.
class FakeErrorView final : public ErrorView {
 public:
  FakeErrorView(Log& log, WindowHandle handle) : log_(log), handle_(handle) {
    rects = {{error_id::kTitleBox, {112, 10, 430, 52}},    {error_id::kChannelBox, {61, 10, 106, 52}},
             {error_id::kTitleLine, {10, 63, 579, 97}},    {error_id::kDescription, {10, 109, 579, 244}},
             {error_id::kPrevious, {10, 24, 40, 56}},      {error_id::kNext, {537, 10, 567, 42}},
             {error_id::kBefore, {19, 10, 49, 26}},        {error_id::kAfter, {543, 41, 573, 57}},
             {error_id::kHelp, {436, 10, 466, 42}},        {error_id::kAcknowledge, {471, 10, 501, 42}},
             {error_id::kConfirmSign, {502, 10, 532, 42}}, {error_id::kMarkedSign, {502, 10, 532, 42}}};
  }
  [[nodiscard]] WindowHandle Handle() const override { return Alive(), handle_; }
  void Show() override { Note("show"), visible = true; }
  void Hide() override {
    if (visible) Note("hide");
    Alive();
    visible = false;
  }
  void BringToTop() override { Note("top"); }
  [[nodiscard]] Rect ParentClientRect() const override { return Alive(), Rect{0, 0, 800, 600}; }
  [[nodiscard]] bool IsVisible() const override { return Alive(), visible; }
  void ClearFocus() override { Alive(); }
  void FocusWindow() override { Note("focus"); }
  void Invalidate() override { Alive(), ++invalidated; }
  void SetWindowRect(const Rect& rect) override {
    Alive();
    const bool resized = rect.Width() != client.Width() || rect.Height() != client.Height();
    window = rect;
    client = {0, 0, rect.Width(), rect.Height()};
    if (resized && onResized) onResized();
  }
  [[nodiscard]] Rect ClientRect() const override { return Alive(), client; }
  void SetWaitCursor(bool waiting) override {
    Note(waiting ? "wait" : "ready");
    waits = waiting;
  }
  void RegisterHotKey(bool registered) override { Alive(), hotKey = registered; }
  void SetFonts(const ErrorFont& title, const ErrorFont& text) override {
    Alive();
    titleFont = title;
    textFont = text;
  }
  [[nodiscard]] Rect ControlRect(int id) const override { return Alive(), rects.at(id); }
  void MoveControl(int id, const Rect& rect) override { Alive(), rects.at(id) = rect; }
  void ShowControl(int id, bool shown) override {
    Alive();
    if (shown) {
      shownControls.insert(id);
    } else {
      shownControls.erase(id);
    }
  }
  void SetControlText(int id, TextView text) override { Alive(), texts[id] = ToUtf8(text); }
  void CentreTitleLine(bool centred) override { Alive(), titleCentred = centred; }
  void SetClassColor(std::uint32_t color) override { Alive(), classColor = color; }
  void SetBoxColors(int id, std::uint32_t back, std::uint32_t text, bool) override {
    Alive(), boxColors[id] = {back, text};
  }
  void UseRaisedLook(int id, bool raised) override { Alive(), raisedLook[id] = raised; }
  [[nodiscard]] int DescriptionTextWidth(TextView text) const override {
    return Alive(), static_cast<int>(text.size()) * 8;
  }
  [[nodiscard]] int TitleTextHeight(TextView text, int width) const override {
    return Alive(), 20 * (1 + static_cast<int>(text.size()) * 8 / std::max(width, 1));
  }
  [[nodiscard]] bool Shows(int id) const { return shownControls.count(id) != 0; }

  std::map<int, Rect> rects;
  std::map<int, std::string> texts;
  std::set<int> shownControls;
  std::map<int, std::pair<std::uint32_t, std::uint32_t>> boxColors;  // back, text
  std::map<int, bool> raisedLook{{error_id::kTitleBox, true}, {error_id::kChannelBox, true}};
  Rect window;
  Rect client{0, 0, 590, 255};
  ErrorFont titleFont;
  ErrorFont textFont;
  std::uint32_t classColor = 0;
  bool visible = false;
  bool hotKey = false;
  bool titleCentred = true;
  bool waits = false;
  int invalidated = 0;
  bool dead = false;
  std::function<void()> onResized;

 private:
  void Alive() const { EXPECT_FALSE(dead) << "a window that is gone was asked"; }
  void Note(const char* what) { Alive(), log_.push_back(what); }
  Log& log_;
  WindowHandle handle_;
};

/// Reads at once, or keeps whoever asked waiting.
class FakeLineReader final : public ErrorLineReader {
 public:
  FakeLineReader(Files& files, bool isSlow) : slow(isSlow), files_(files) {}
  std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                   std::function<void(const ProgramLines&)> whenRead) override {
    ++reads;
    if (!slow) return ReadProgramLines(place, captions, files_);
    later = std::move(whenRead);
    return std::nullopt;
  }
  void Drop() override { later = nullptr; }

  bool slow;
  int reads = 0;
  std::function<void(const ProgramLines&)> later;

 private:
  Files& files_;
};

class LoggingWindows final : public FakeWindowSystem {
 public:
  explicit LoggingWindows(Log& log) : log_(log) {}
  void Post(WindowHandle window, const Message& message) override;

 private:
  Log& log_;
};

class LoggingSink final : public rig::EventSink {
 public:
  explicit LoggingSink(Log& log) : log_(log) {}
  void Cnc(std::string_view name, const std::vector<rig::Value>& args, const rig::Value& result) override;
  void Write(std::u16string_view name, const rig::Value& value, bool ok) override;
  void MessageToHost(PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) override {}
  void Box(std::u16string_view, std::u16string_view, std::string_view, std::string_view) override {}

 private:
  Log& log_;
};

class ErrorRig {
 public:
  ErrorRig();
  ~ErrorRig();
  ErrorRig(const ErrorRig&) = delete;
  ErrorRig& operator=(const ErrorRig&) = delete;

  /// Makes window and logic; the ini file and the queue are as they are then.
  void MakeTool();
  /// The window goes, and the logic with it unless a call keeps it for its own length.
  void DestroyTool();
  /// Delivers what waits for the tool.
  void Drain();
  /// Into the kernel's queue, with its reports delivered.
  void Push(const ErrorRecord& record);
  void Key(ErrorKey key);
  void Click(int id);
  void DoubleClick(int id);
  void Notify(std::intptr_t what, std::intptr_t value);
  /// Calls an intention as the window does.
  template <typename Intention>
  void Tell(Intention intention) {
    RunOperation(tool, intention);
  }
  /// What was asked since the last call.
  Log Asked();
  [[nodiscard]] std::string Box() const { return view->texts.at(error_id::kTitleBox); }
  [[nodiscard]] std::string Title() const { return view->texts.at(error_id::kTitleLine); }
  [[nodiscard]] std::string Description() const { return view->texts.at(error_id::kDescription); }
  [[nodiscard]] std::string Counters() const;
  [[nodiscard]] std::string Current() const;
  [[nodiscard]] std::string& Ini() { return disc.disc["C:\\P52\\errman.ini"]; }

  Log log;
  LoggingWindows windows{log};
  ManualTimers timers;
  DriveMap drives;
  MemoryFiles disc;
  LoggingSink sink{log};
  sim::SimulatedCnc cnc{windows, timers, disc, drives};
  MenuTable menus;
  Language language;
  HostApiTable table = {};
  HostBridge host;
  ToolContext context;
  WindowHandle window = 0;
  std::unique_ptr<FakeErrorView> view;
  FakeLineReader* reader = nullptr;  // the tool's
  std::shared_ptr<ErrorSession> tool;

  static ErrorRig* current;
};

class ErrorToolTest : public testing::Test, public ErrorRig {};

}  // namespace pnl::test
