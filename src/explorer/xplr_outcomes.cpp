// SPDX-License-Identifier: MIT
#include "explorer/xplr_outcomes.h"

#include <algorithm>
#include <iterator>

#include "places/places.h"

namespace pnl {
namespace {

struct OutcomeNotice {
  Outcome outcome;
  XplrNotice notice;
};

constexpr OutcomeNotice kNotices[] = {
    {Outcome::kNoAccess, {xplr_text::kNoAccess, xplr_color::kRefusal}},
    {Outcome::kNoConnection, {xplr_text::kNoConnection, xplr_color::kWarning}},
    {Outcome::kFolderNotFound, {xplr_text::kNoFolder, xplr_color::kRefusal}},
    {Outcome::kEmptyName, {xplr_text::kNoName, xplr_color::kRefusal}},
    {Outcome::kNotInFilter, {xplr_text::kNotInFilter, xplr_color::kRefusal}},
    {Outcome::kFileNotFound, {xplr_text::kNoFile, xplr_color::kRefusal}},
    {Outcome::kNotReady, {xplr_text::kNotReady, xplr_color::kRefusal}},
    {Outcome::kReadOnly, {xplr_text::kReadOnly, xplr_color::kRefusal}},
    {Outcome::kBlankInName, {xplr_text::kBlankInName, xplr_color::kRefusal}},
};

struct ErrorOutcome {
  int error;
  Outcome outcome;
};

constexpr ErrorOutcome kErrors[] = {
    {place_error::kNone, Outcome::kFolderUsable},
    {place_error::kNothingFound, Outcome::kFolderUsable},  // an empty folder
    {place_error::kPathNotFound, Outcome::kFolderNotFound},
    {place_error::kNoFolder, Outcome::kFolderNotFound},
    {place_error::kNotReady, Outcome::kNotReady},
    {place_error::kAccessDenied, Outcome::kNoAccess},
    {place_error::kRemoteNotListening, Outcome::kNoAccess},
    {place_error::kWrongPassword, Outcome::kNoConnection},
    {place_error::kLogonFailed, Outcome::kNoConnection},
    {place_error::kNotAuthenticated, Outcome::kNoConnection},
};

}  // namespace

XplrNotice NoticeOf(Outcome outcome) {
  const auto* found = std::find_if(std::begin(kNotices), std::end(kNotices),
                                   [outcome](const OutcomeNotice& row) { return row.outcome == outcome; });
  return found == std::end(kNotices) ? XplrNotice{} : found->notice;
}

XplrNotice NoticeOfPlace(NodeKind kind) {
  return {kind == NodeKind::kUnavailable ? xplr_text::kUnavailable : xplr_text::kNoAccess, xplr_color::kRefusal};
}

Outcome OutcomeOfError(int error) {
  const auto* found = std::find_if(std::begin(kErrors), std::end(kErrors),
                                   [error](const ErrorOutcome& row) { return row.error == error; });
  return found == std::end(kErrors) ? Outcome::kNoAccess : found->outcome;
}

bool WantsConnection(int error) {
  return error != place_error::kNone && OutcomeOfError(error) == Outcome::kNoConnection;
}

}  // namespace pnl
