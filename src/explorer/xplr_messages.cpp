// SPDX-License-Identifier: MIT
#include "explorer/xplr_messages.h"

#include <algorithm>

namespace pnl {

XplrPosts::XplrPosts(WindowSystem& windows, XplrViewAccess view) : windows_(windows), view_(std::move(view)) {
  std::transform(kXplrMessageNames.begin(), kXplrMessageNames.end(), numbers_.begin(), RegisterMessage);
}

void XplrPosts::Post(XplrWindow to, XplrMessage message, std::intptr_t first) const {
  windows_.Post(view_().HandleOf(to), {NumberOf(message), first, 0});
}

std::intptr_t XplrPosts::Send(XplrWindow to, XplrMessage message, std::intptr_t first, std::intptr_t second) const {
  return windows_.Send(view_().HandleOf(to), {NumberOf(message), first, second});
}

void XplrPosts::SendCaption(const Text& text) const {
  Send(XplrWindow::kForm, XplrMessage::kUpdateCaption, reinterpret_cast<std::intptr_t>(text.c_str()));
}

}  // namespace pnl
