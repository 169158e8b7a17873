// SPDX-License-Identifier: MIT
// The find dialog without its window: what its keys ask of the list, and what it shows of the results on the message
// line. The list does the searching.
#pragma once

#include "explorer/xplr_messages.h"
#include "host/language.h"

namespace pnl {

/// Key-downs that the dialog sees before its edit.
enum class FindKey { kEnter, kPageDown, kDown, kPageUp, kUp };

class XplrFind {
 public:
  XplrFind(const XplrPosts& posts, const Language& language) : posts_(posts), language_(language) {}

  /// The dialog is there with its text: shows the hint.
  void OnOpened(TextView text);
  void OnKey(FindKey key) const;
  /// After every other key: text is what the edit has now.
  void OnTyped(TextView text);
  /// "XPLR_FIND_RESULT".
  void OnResult(int result);
  /// The dialog is going: the message line is cleared and the list learns of it.
  void OnClosed();

 private:
  void ShowText(std::intptr_t selector, const Text& text) const;
  void ClearResult();

  const XplrPosts& posts_;
  const Language& language_;
  Text text_;
  bool showing_ = false;  // a result is on the message line
};

}  // namespace pnl
