// SPDX-License-Identifier: MIT
// The exports of a backend library: a mark that says for which interface it was built, and the function that makes its
// CncFacade. The host reads the mark before it calls anything. A library's source has PNL_BACKEND_LIBRARY once and then
// the function:
//
//     PNL_BACKEND_LIBRARY
//     extern "C" pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return new MyFacade; }
#pragma once

#include <cstdint>

#include "facade/cnc_facade.h"
#include "window/timers.h"
#include "window/window.h"

namespace pnl {

/// The version of the interface. It must go up with every change of a class that a backend implements or receives:
/// those of cnc_facade.h and the headers it includes, window.h and timers.h.
inline constexpr std::uint32_t kBackendVersion = 1;

/// The mark of a backend library: plain data that can be read without a call. A call through the interface is safe only
/// if all of it equals the host's own mark.
struct BackendMark {
  char name[16];
  std::uint32_t version;
  std::uint32_t pointerBytes;
  std::uint32_t compilerAbi;
  std::uint32_t textBytes;    // size of the string class, which differs between standard libraries
  std::uint32_t recordBytes;  // size of ErrorRecord
};

inline constexpr BackendMark kBackendMark{"pnltools.cnc",    kBackendVersion, sizeof(void*),
                                          __GXX_ABI_VERSION, sizeof(Text),    sizeof(ErrorRecord)};

}  // namespace pnl

#define PNL_BACKEND_LIBRARY                                                                \
  extern "C" __attribute__((visibility("default"))) const pnl::BackendMark PnlBackendMark; \
  const pnl::BackendMark PnlBackendMark = pnl::kBackendMark;                               \
  extern "C" __attribute__((visibility("default"))) pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&);
