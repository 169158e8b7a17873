// SPDX-License-Identifier: MIT
// How a tool's logic survives its window. A callback of the host, a message or a message box may destroy the window in
// the middle of an operation; the operation then goes on without it and ends. One link for each side:
//
// - The window has its logic in a LogicLink. Every call into the logic keeps it alive until the call returns, and the
//   window's destructor ends it with End.
// - The logic has its window in a ViewLink. Its own End detaches that, and from then on every request reaches a view
//   without a window. What a dead tool must not do any more (call the host, start a timer) asks IsDetached first.
//
// Knows neither widgets nor any tool.
#pragma once

#include <memory>
#include <utility>

namespace pnl {

/// NoView derives from View: it answers with nothing and does nothing.
template <typename View, typename NoView>
class ViewLink {
 public:
  explicit ViewLink(View& view) : view_(&view) {}
  View* operator->() const { return view_; }
  [[nodiscard]] View& Get() const { return *view_; }
  void Detach() { view_ = &None(); }
  [[nodiscard]] bool IsDetached() const { return view_ == &None(); }

 private:
  static NoView& None() {
    static NoView none;
    return none;
  }
  View* view_;
};

/// Logic has End(), and HasEnded(), which is true from End on.
template <typename Logic>
class LogicLink {
 public:
  template <typename... Args>
  void Make(Args&&... args) {
    logic_ = std::make_shared<Logic>(std::forward<Args>(args)...);
  }
  /// Calls an intention with the logic, if there is one. False when the window has none, or none any more: it may have
  /// been destroyed in the call, and then nothing of it may be touched, this object included.
  template <typename Intention>
  bool Tell(Intention&& intention) const {
    const std::shared_ptr<Logic> kept = logic_;
    if (!kept) return false;
    std::forward<Intention>(intention)(*kept);
    return !kept->HasEnded();
  }
  /// For the window's destructor. A second call does nothing.
  void End() {
    if (const std::shared_ptr<Logic> ending = std::exchange(logic_, nullptr)) ending->End();
  }

 private:
  std::shared_ptr<Logic> logic_;
};

}  // namespace pnl
