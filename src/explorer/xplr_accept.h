// SPDX-License-Identifier: MIT
// Enter: checks whether the chosen name or folder may be handed back, and shows why when it may not. Asks the discs
// beside the window's thread. A choice that the operator changes meanwhile is dropped.
#pragma once

#include <functional>

#include "explorer/xplr_folders.h"
#include "explorer/xplr_outcomes.h"
#include "explorer/xplr_state.h"
#include "explorer/xplr_view.h"

namespace pnl {

class XplrAccept {
 public:
  struct Links {
    XplrState& state;
    const XplrFolders& folders;
    XplrViewAccess view;
    /// Shows why nothing is handed back.
    std::function<void(const XplrNotice&)> show;
    /// Asks whether the existing file of that name may be overwritten. The window may be gone after it.
    std::function<bool(const Text& name)> confirm;
    /// Hands back path and name and ends the explorer.
    std::function<void(const Text& path, const Text& name)> finish;
  };
  explicit XplrAccept(Links links) : links_(std::move(links)) {}

  /// Looks at the place first, then accepts a file or a folder, as the request asks for. An earlier Enter that has no
  /// answer yet is forgotten.
  void Accept();

 private:
  /// What was chosen when Enter came.
  struct Choice {
    Text path;
    Text file;
    bool byTree = false;
    unsigned enter = 0;
  };
  void AcceptFile(const Choice& choice);
  void CheckFile(const Choice& choice, const Text& name, const FileFacts& facts);
  void AcceptFolder(const Choice& choice);
  void CheckFolder(const Choice& choice, const Text& full, Outcome outcome);
  void Show(Outcome outcome) { links_.show(NoticeOf(outcome)); }
  [[nodiscard]] bool IsStill(const Choice& choice) const;

  const Links links_;
  unsigned enters_ = 0;
};

}  // namespace pnl
