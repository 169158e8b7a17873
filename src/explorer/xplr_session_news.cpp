// SPDX-License-Identifier: MIT
// The part of XplrSession that hears what happens without the operator: drives come and go, shares fail, a folder takes
// long. Also what the operator does about it.
#include <utility>

#include "explorer/xplr_path.h"
#include "explorer/xplr_session.h"

namespace pnl {
namespace {

/// How long a place that has failed isn't asked again, in milliseconds.
constexpr int kLeftAlone = 30'000;
/// A folder that takes longer says so.
constexpr int kLong = 100;

}  // namespace

// Drives that come and go.

void XplrSession::WatchDrives() {
  // Nobody ends the watch: after this session it does nothing, and by then another explorer may have set its own.
  Context().places.Watch(Later([this] {
    // The change may come in the middle of an operation; many may come before the message is delivered.
    if (!std::exchange(drivesPosted_, true)) posts_.Post(XplrWindow::kForm, XplrMessage::kUpdateDrives);
  }));
}

void XplrSession::UpdateDrives() {
  if (boxes_ != 0) return;
  drivesPosted_ = false;
  if (started_) tree_.UpdateDrives();
}

void XplrSession::EndBox() {
  if (--boxes_ == 0 && drivesPosted_) posts_.Post(XplrWindow::kForm, XplrMessage::kUpdateDrives);
}

// Shares and servers that failed.

void XplrSession::NoteFailures() {
  const std::set<Text> places = failures_->TakeNew();
  for (const Text& place : places) {
    TimerId& timer = failed_[place];
    Context().timers.Stop(timer);
    timer = Context().timers.Start(kLeftAlone, true, Later([this, place] {
                                     failed_.erase(place);
                                     ForgetFailure(place);
                                   }));
  }
  if (!places.empty()) ShowFailures();
}

void XplrSession::ShowFailures() {
  tree_.ShowFailures([this](TextView path) { return failures_->ErrorOf(path) != place_error::kNone; });
}

void XplrSession::ForgetFailure(TextView path) {
  if (failures_->Forget(path)) ShowFailures();
}

void XplrSession::OnNodeSelected(NodeId node, bool walked) {
  if (node != kNoNode && !walked) ForgetFailure(Nodes().BuildNodePath(node));
  tree_.OnNodeSelected(node, true);
}

void XplrSession::OnNodeOpening(NodeId node, bool walked) {
  if (Nodes().Exists(node) && !walked) ForgetFailure(Nodes().BuildNodePath(node));
  tree_.OnNodeOpening(node);
}

void XplrSession::OnNodeTouched(NodeId node) {
  if (!Nodes().Exists(node) || failures_->ErrorOf(Nodes().BuildNodePath(node)) == place_error::kNone) return;
  OnNodeSelected(node);
}

// Folders that take long.

void XplrSession::OnLoading(bool loading) {
  if (loading) {
    comingTimer_.StartOnce(kLong, Later([this] {
                             comingShown_ = true;
                             View().ShowMoreComing(true);
                           }));
    return;
  }
  comingTimer_.Stop();
  if (std::exchange(comingShown_, false)) View().ShowMoreComing(false);
}

// The path in the heading.

void XplrSession::OnPathTouched(std::size_t at) {
  if (state_.Has(XPLR_LISTONLY) || state_.HasDialog()) return;
  const Text folder = FolderOfPiece(state_.Path, at);
  if (folder.empty() || EqualNoCase(folder, state_.Path)) return;
  ForgetFailure(folder);
  tree_.GoUp(folder);
}

}  // namespace pnl
