// SPDX-License-Identifier: MIT
#include "explorer/xplr_accept.h"

#include "base/format.h"
#include "explorer/xplr_names.h"

namespace pnl {

bool XplrAccept::IsStill(const Choice& choice) const {
  return enters_ == choice.enter && links_.state.Path == choice.path && links_.state.File == choice.file;
}

void XplrAccept::Accept() {
  const XplrState& state = links_.state;
  ++enters_;
  if (!IsAcceptedPlace(state.Kind)) {
    links_.show(NoticeOfPlace(state.Kind));
    return;
  }
  const Choice choice{state.Path, state.File, links_.view().FocusedControl() == xplr_control::kTree, enters_};
  links_.folders.Classify(choice.path, links_.view().Handle(), [this, choice](Outcome outcome) {
    if (!IsStill(choice)) return;
    if (outcome != Outcome::kFolderUsable) {
      Show(outcome);
    } else if (links_.state.IsFolderMode()) {
      AcceptFolder(choice);
    } else {
      AcceptFile(choice);
    }
  });
}

void XplrAccept::AcceptFile(const Choice& choice) {
  const XplrState& state = links_.state;
  Text name = choice.file;
  const Outcome check = CheckFileName(name, state.Filter, state.Has(XPLR_NOBLANKS));
  if (check == Outcome::kNoExtension) name = ApplyDefaultExtension(name, state.DefaultExtension);
  if (check != Outcome::kNoExtension && check != Outcome::kNameAcceptable) {
    Show(check);
    return;
  }
  // Without a default extension a name loses a lone point each time, and "..." would lead out of the folder.
  const Text onDisc = ApplyDefaultExtension(name, state.DefaultExtension);
  if (!IsPlainName(name) || !IsPlainName(onDisc)) {
    Show(Outcome::kNoAccess);
    return;
  }
  const Text full = Format(u"%s\\%s", choice.path, onDisc);
  links_.folders.LookAt(full, [this, choice, name](const FileFacts& facts) {
    if (IsStill(choice)) CheckFile(choice, name, facts);
  });
}

void XplrAccept::CheckFile(const Choice& choice, const Text& name, const FileFacts& facts) {
  const XplrState& state = links_.state;
  if (!facts.known) {
    Show(Outcome::kNoAccess);
    return;
  }
  if (!facts.exists && state.Has(XPLR_MUSTEXIST)) {
    Show(Outcome::kFileNotFound);
    return;
  }
  if (facts.exists && facts.readOnly && state.Has(XPLR_NOREADONLY)) {
    Show(Outcome::kReadOnly);
    return;
  }
  if (facts.exists && state.Has(XPLR_CONFIRMOVERWRITE) && !links_.confirm(name)) return;
  links_.finish(choice.path, name);
}

void XplrAccept::AcceptFolder(const Choice& choice) {
  if (choice.byTree) {
    // A folder that is chosen in the tree comes back as parent and leaf.
    const std::size_t slash = choice.path.rfind(u'\\');
    const bool whole = slash == Text::npos;
    links_.finish(whole ? choice.path : choice.path.substr(0, slash), whole ? Text() : choice.path.substr(slash + 1));
    return;
  }
  if (choice.file.empty()) return;
  if (!IsPlainName(choice.file)) {
    Show(Outcome::kNoAccess);
    return;
  }
  const Text full = Format(u"%s\\%s", choice.path, choice.file);
  links_.folders.Classify(full, links_.view().Handle(), [this, choice, full](Outcome outcome) {
    if (IsStill(choice)) CheckFolder(choice, full, outcome);
  });
}

void XplrAccept::CheckFolder(const Choice& choice, const Text& full, Outcome outcome) {
  if (outcome == Outcome::kFolderNotFound && links_.state.Has(XPLR_MUSTEXIST)) {
    links_.folders.MakeFolder(full, [this, choice](bool made) {
      if (!IsStill(choice)) return;
      if (made) {
        links_.finish(choice.path, choice.file);
      } else {
        Show(Outcome::kFolderNotFound);
      }
    });
    return;
  }
  // A folder that needn't exist is accepted by its name alone.
  if (outcome == Outcome::kFolderUsable || outcome == Outcome::kFolderNotFound) {
    links_.finish(choice.path, choice.file);
  } else {
    Show(outcome);
  }
}

}  // namespace pnl
