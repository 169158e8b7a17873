// SPDX-License-Identifier: MIT
// A window system without windows. It records what is sent, posted and asked, and answers as the test tells it. A test
// opens and kills windows by number.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <set>
#include <vector>

#include "window/window.h"

namespace pnl::test {

struct SentMessage {
  WindowHandle window = 0;
  Message message;
  bool posted = false;
};

class FakeWindowSystem : public WindowSystem {
 public:
  WindowHandle Open() {
    alive.insert(++last_);
    return last_;
  }
  void Kill(WindowHandle window) { alive.erase(window); }

  bool IsAlive(WindowHandle window) const override { return alive.count(window) != 0; }
  std::intptr_t Send(WindowHandle window, const Message& message) override {
    if (!IsAlive(window)) return 0;
    sent.push_back({window, message, false});
    ++callOuts_;
    const std::intptr_t answer = onSend ? onSend(window, message) : 0;
    --callOuts_;
    return answer;
  }
  void Post(WindowHandle window, const Message& message) override {
    if (!IsAlive(window)) return;
    sent.push_back({window, message, true});
    posted.push_back({window, message, true});
    if (onPost) onPost(window, message);
  }
  WindowHandle MainWindow() const override { return mainWindow; }
  Rect PanelRect() const override { return panelRect; }
  BoxAnswer ShowBox(WindowHandle, const BoxSpec& box) override {
    boxes.push_back(box);
    ++callOuts_;
    if (onBox) onBox();
    --callOuts_;
    // A question is answered with yes or no, every other box with OK.
    if (box.style != BoxStyle::kQuestion) return BoxAnswer::kOk;
    EXPECT_TRUE(boxAnswer == BoxAnswer::kYes || boxAnswer == BoxAnswer::kNo) << "a question without an answer";
    return boxAnswer;
  }
  void SetClipboardText(TextView text) override { clipboard = Text(text); }
  Text ClipboardText() const override { return clipboard; }

  /// True while a box is open or a message is being delivered. The tool's code may be on the stack then.
  [[nodiscard]] bool InCallOut() const { return callOuts_ != 0; }

  /// Calls deliver for every posted message to a live window, also for those that are posted meanwhile.
  void Drain(const std::function<void(WindowHandle, const Message&)>& deliver) {
    while (!posted.empty()) {
      const SentMessage next = posted.front();
      posted.pop_front();
      if (IsAlive(next.window)) deliver(next.window, next.message);
    }
  }

  std::set<WindowHandle> alive;
  std::vector<SentMessage> sent;
  std::deque<SentMessage> posted;
  std::vector<BoxSpec> boxes;
  BoxAnswer boxAnswer = BoxAnswer::kOk;
  std::function<std::intptr_t(WindowHandle, const Message&)> onSend;
  std::function<void(WindowHandle, const Message&)> onPost;
  std::function<void()> onBox;
  WindowHandle mainWindow = 0;
  Rect panelRect{0, 0, 800, 600};
  Text clipboard;

 private:
  WindowHandle last_ = 0;
  int callOuts_ = 0;
};

}  // namespace pnl::test
