// SPDX-License-Identifier: MIT
// What the fake views of all tools share: a window without a window that keeps what the logic set and writes every
// order into the log, "view show". A tool's own view adds the rest of its seam.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "base/text.h"
#include "support/fake_window_system.h"
#include "support/noting_host.h"

namespace pnl::test {

inline std::vector<std::string> Utf8Rows(const std::vector<Text>& rows) {
  std::vector<std::string> all;
  for (const Text& row : rows) all.push_back(ToUtf8(row));
  return all;
}

/// What window/tool_view.h asks for.
template <typename View>
class FakeView : public View {
 public:
  enum class Focus { kElsewhere, kNone, kWindow, kEdit, kList, kVariables };

  FakeView(Log& log, FakeWindowSystem& windows) : handle(windows.Open()), log_(log) {}

  const WindowHandle handle;
  bool closing = false;  // its logic has closed it
  bool dead = false;     // whatever is asked of it now is a failed test
  bool visible = false;
  Rect parent{0, 0, 800, 600};
  Focus focus = Focus::kElsewhere;

  [[nodiscard]] WindowHandle Handle() const override { return Asked(), handle; }
  [[nodiscard]] Rect ParentClientRect() const override { return Asked(), parent; }
  [[nodiscard]] bool IsVisible() const override { return Asked(), visible; }
  void Show() override { Order("show"), visible = true; }
  void Hide() override {
    Order("hide");
    visible = false;
    Move(Focus::kElsewhere);
  }
  void BringToTop() override { Order("top"); }
  void ClearFocus() override {
    Order("clear focus");
    if (visible) Move(Focus::kNone);
  }
  /// The focus goes somewhere; a tool's view adds the events that this brings.
  virtual void Move(Focus to) { focus = to; }

 protected:
  virtual void Asked() const { EXPECT_FALSE(dead) << "asked of a window that is gone"; }
  /// A line of the log from texts and numbers.
  template <typename... Parts>
  void Order(const Parts&... parts) const {
    Asked();
    log_.push_back("view " + (Written(parts) + ...));
  }

 private:
  static std::string Written(const char* text) { return text; }
  static std::string Written(TextView text) { return ToUtf8(text); }
  static std::string Written(std::int64_t number) { return std::to_string(number); }
  Log& log_;
};

/// And the controls of a view that has them by id. All are shown until the logic hides them.
template <typename View>
class FakeControls : public FakeView<View> {
 public:
  using FakeView<View>::FakeView;

  std::map<int, Rect> rects;
  std::map<int, bool> shown;

  [[nodiscard]] bool Shows(int id) const {
    const auto found = shown.find(id);
    return found == shown.end() || found->second;
  }
  [[nodiscard]] Rect ControlRect(int id) const override {
    this->Asked();
    const auto found = rects.find(id);
    return found == rects.end() ? Rect() : found->second;
  }
  void MoveControl(int id, const Rect& rect) override {
    this->Order("place ", id);
    rects[id] = rect;
  }
  void ShowControl(int id, bool on) override {
    this->Order(on ? "show " : "hide ", id);
    shown[id] = on;
  }
};

}  // namespace pnl::test
