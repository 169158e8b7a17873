// SPDX-License-Identifier: MIT
#include "places/share_errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "places/places.h"

namespace pnl {
namespace {

struct ErrorRow {
  int error;
  int place;
};

constexpr ErrorRow kErrors[] = {
    {0, place_error::kNone},
    {ENOENT, place_error::kPathNotFound},
    {ENODEV, place_error::kPathNotFound},  // no such share
    {ENOTDIR, place_error::kNoFolder},
    {EEXIST, place_error::kAlreadyExists},
    {EROFS, place_error::kAccessDenied},
    {EBUSY, place_error::kAccessDenied},
    {ENOSPC, place_error::kAccessDenied},
    {ENOMEDIUM, place_error::kNotReady},
    {EIO, place_error::kNotReady},
};

}  // namespace

int ShareErrorOf(int error, bool loggedOn) {
  if (error == EACCES || error == EPERM) return loggedOn ? place_error::kAccessDenied : place_error::kLogonFailed;
  const auto row =
      std::find_if(std::begin(kErrors), std::end(kErrors), [&](const ErrorRow& each) { return each.error == error; });
  // All others come from the way to the server: refused, timed out, broken off, no such host.
  return row != std::end(kErrors) ? row->place : place_error::kRemoteNotListening;
}

}  // namespace pnl
