// SPDX-License-Identifier: MIT
#include "window/tool_link.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pnl::test {
namespace {

class View {
 public:
  virtual ~View() = default;
  virtual std::string Name() const { return "window"; }
};
class NoView final : public View {
 public:
  std::string Name() const override { return "none"; }
};

/// Counts the logics that live.
class Logic {
 public:
  explicit Logic(View& view) : view_(view) { ++living; }
  ~Logic() { --living; }
  Logic(const Logic&) = delete;
  Logic& operator=(const Logic&) = delete;
  void End() {
    ++ends;
    view_.Detach();
  }
  [[nodiscard]] bool HasEnded() const { return view_.IsDetached(); }
  [[nodiscard]] std::string AskView() const { return view_->Name(); }

  static inline int living = 0;
  static inline int ends = 0;

 private:
  ViewLink<View, NoView> view_;
};

TEST(ToolLink, ADetachedViewIsAnsweredByOneWithoutAWindow) {
  View view;
  ViewLink<View, NoView> link(view);
  EXPECT_EQ(link->Name(), "window");
  EXPECT_EQ(&link.Get(), &view);
  EXPECT_FALSE(link.IsDetached());
  link.Detach();
  EXPECT_EQ(link->Name(), "none");
  EXPECT_EQ(link.Get().Name(), "none");
  EXPECT_TRUE(link.IsDetached());
}

TEST(ToolLink, WithoutALogicNothingIsTold) {
  const LogicLink<Logic> link;
  EXPECT_FALSE(link.Tell([](Logic&) { ADD_FAILURE(); }));
}

TEST(ToolLink, ALogicIsToldUntilItsEnd) {
  Logic::ends = 0;
  View view;
  LogicLink<Logic> link;
  link.Make(view);
  std::string asked;
  EXPECT_TRUE(link.Tell([&asked](Logic& logic) { asked = logic.AskView(); }));
  EXPECT_EQ(asked, "window");
  link.End();
  link.End();
  EXPECT_EQ(Logic::ends, 1);
  EXPECT_EQ(Logic::living, 0);
  EXPECT_FALSE(link.Tell([](Logic&) { ADD_FAILURE(); }));
}

TEST(ToolLink, ALogicOutlivesItsWindowForTheCallInWhichThatGoes) {
  auto view = std::make_optional<View>();
  auto link = std::make_optional<LogicLink<Logic>>();
  link->Make(*view);
  std::string asked;
  const bool windowIsThere = link->Tell([&](Logic& logic) {
    link->End();
    link.reset();
    view.reset();
    EXPECT_EQ(Logic::living, 1);
    asked = logic.AskView();
  });
  EXPECT_FALSE(windowIsThere);
  EXPECT_EQ(asked, "none");
  EXPECT_EQ(Logic::living, 0);
}

}  // namespace
}  // namespace pnl::test
