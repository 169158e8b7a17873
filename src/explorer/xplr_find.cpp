// SPDX-License-Identifier: MIT
#include "explorer/xplr_find.h"

#include "base/format.h"
#include "explorer/xplr_search.h"

namespace pnl {
namespace {

// Selectors of "XPLR_SHOWMSG": colour in the low half, line in the high half.
constexpr std::intptr_t kHint = 0;
constexpr std::intptr_t kResult = 0x10001;
constexpr std::intptr_t kResultAgain = 1;
constexpr std::intptr_t kClear = 0x20000;

}  // namespace

void XplrFind::ShowText(std::intptr_t selector, const Text& text) const {
  posts_.Send(XplrWindow::kFrame, XplrMessage::kShowMessage, selector, reinterpret_cast<std::intptr_t>(text.c_str()));
}

void XplrFind::ClearResult() {
  if (!showing_) return;
  posts_.Send(XplrWindow::kFrame, XplrMessage::kShowMessage, kClear);
  showing_ = false;
}

void XplrFind::OnOpened(TextView text) {
  text_ = text;
  ShowText(kHint, language_.LoadToolText(xplr_text::kFindHint));
}

void XplrFind::OnKey(FindKey key) const {
  const bool back = key == FindKey::kPageUp || key == FindKey::kUp;
  posts_.Post(XplrWindow::kList, back ? XplrMessage::kFindPrevious : XplrMessage::kFindNext,
              static_cast<std::intptr_t>(text_.size()));
}

void XplrFind::OnTyped(TextView text) {
  ClearResult();
  const bool changed = text.empty() != text_.empty();
  text_ = text;
  if (changed) posts_.Post(XplrWindow::kList, XplrMessage::kFind, static_cast<std::intptr_t>(text.size()));
}

void XplrFind::OnResult(int result) {
  if (result == static_cast<int>(FindResult::kFound)) {
    ClearResult();
    return;
  }
  const bool only = result == static_cast<int>(FindResult::kOnlySelected);
  if (!only && result != static_cast<int>(FindResult::kNotFound)) return;
  const Text format = language_.LoadToolText(only ? xplr_text::kOnlyOne : xplr_text::kNotFound);
  const Text shown = Format(format, text_);
  const std::intptr_t selector = showing_ ? kResultAgain : kResult;
  showing_ = true;
  ShowText(selector, shown);
}

void XplrFind::OnClosed() {
  ClearResult();
  posts_.Send(XplrWindow::kFrame, XplrMessage::kShowMessage, kClear);
  posts_.Send(XplrWindow::kList, XplrMessage::kEndFind);
}

}  // namespace pnl
