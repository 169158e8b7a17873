// SPDX-License-Identifier: MIT
// The base of every tool's logic, which survives the end of the tool's window. A callback of the host, a message or a
// message box may destroy the window in the middle of an operation of the logic. Then
//
// - the window's destructor calls ToolLink::End, which calls the session's End;
// - the session stays in memory until the operation has returned;
// - the operation ends where it next uses the view or the host: View() and Host() throw WindowGone, and RunOperation,
//   which began the operation, catches it. Work that comes before that point (giving a channel back to the kernel,
//   storing a file) is still done.
//
// So an operation must first do the work that may not be left half done. It needs to ask HasEnded only before it begins
// something that nobody would end. Knows no widget.
#pragma once

#include <memory>
#include <utility>

#include "host/tool_context.h"

namespace pnl {

/// The exception that ends an operation of a session whose window is gone. It never leaves RunOperation.
struct WindowGone {};

/// Calls operation(session) and keeps the session alive until it returns. Returns false when the session ended before
/// or during the call; the caller must not touch the window or its members after that.
template <typename Session, typename Operation>
bool RunOperation(const std::shared_ptr<Session>& session, Operation&& operation) {
  // A copy: the window's own pointer may go in the call.
  const std::shared_ptr<Session> kept = session;  // NOLINT(performance-unnecessary-copy-initialization)
  if (kept == nullptr || kept->HasEnded()) return false;
  try {
    std::forward<Operation>(operation)(*kept);
  } catch (const WindowGone&) {
    // The operation has ended with its window.
  }
  return !kept->HasEnded();
}

/// The base of a tool's logic. The window's ToolLink makes it as a shared object.
template <typename ToolView>
class ToolSession : public std::enable_shared_from_this<ToolSession<ToolView>> {
 public:
  ToolSession(const ToolSession&) = delete;
  ToolSession& operator=(const ToolSession&) = delete;
  /// True from the end of the tool on.
  [[nodiscard]] bool HasEnded() const { return ended_; }

 protected:
  ToolSession(const ToolContext& context, ToolView& view) : context_(context), view_(view) {}
  ~ToolSession() = default;

  /// The window. Throws WindowGone when the tool has ended.
  [[nodiscard]] ToolView& View() const {
    if (ended_) throw WindowGone();
    return view_;
  }
  /// The host. Throws WindowGone when the tool has ended.
  [[nodiscard]] const HostBridge& Host() const {
    if (ended_) throw WindowGone();
    return context_.host;
  }
  [[nodiscard]] const ToolContext& Context() const { return context_; }
  [[nodiscard]] Kernel& Kapi() const { return context_.cnc.Kapi(); }

  /// Marks the session as ended: from now on View and Host throw. A second call does nothing.
  void MarkEnded() { ended_ = true; }

  /// Wraps a function for a later call, by a timer or with a thread's result. The later call runs it as an operation of
  /// its own, and does nothing when the session has ended or is gone. Must not be called in a constructor.
  template <typename Operation>
  [[nodiscard]] auto Later(Operation operation) {
    return [weak = this->weak_from_this(), operation = std::move(operation)](auto&&... args) {
      RunOperation(weak.lock(), [&](ToolSession& /*session*/) { operation(std::forward<decltype(args)>(args)...); });
    };
  }

 private:
  const ToolContext context_;
  ToolView& view_;
  bool ended_ = false;
};

/// A window's link to its session.
template <typename Session>
class ToolLink {
 public:
  template <typename... Args>
  void Make(Args&&... args) {
    session_ = std::make_shared<Session>(std::forward<Args>(args)...);
  }
  /// Calls RunOperation with the session. Also returns false before Make. When it returns false, the caller must not
  /// touch the window any more, nor this object.
  template <typename Operation>
  bool Tell(Operation&& operation) const {
    return RunOperation(session_, std::forward<Operation>(operation));
  }
  /// For the window's destructor: calls the session's End. A second call does nothing.
  void End() {
    if (const std::shared_ptr<Session> ending = std::exchange(session_, nullptr)) ending->End();
  }

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace pnl
