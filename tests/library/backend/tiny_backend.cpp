// SPDX-License-Identifier: MIT
// A backend library for the tests, built several ways: one that works, ones that make nothing, and ones that must not
// be called at all, whose maker ends the process.
#include "library/backend/tiny_backend.h"

#include <cstdlib>
#include <stdexcept>

#include "facade/backend.h"

#define EXPORTED extern "C" __attribute__((visibility("default")))

#if defined(TINY_WORKS)
PNL_BACKEND_LIBRARY
pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return new pnl::test::TinyBackend; }
#elif defined(TINY_MAKES_NOTHING)
PNL_BACKEND_LIBRARY
pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return nullptr; }
#elif defined(TINY_THROWS)
PNL_BACKEND_LIBRARY
pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { throw std::runtime_error("no control here"); }
#elif defined(TINY_EXPORTS_NOTHING)
EXPORTED int SomethingElse() { return 0; }
#else

// Somebody else's library that happens to have a symbol of that name.
EXPORTED void* PnlMakeBackend() { std::abort(); }

constexpr pnl::BackendMark Changed(pnl::BackendMark mark) {
#if defined(TINY_IS_OLD)
  --mark.version;
#elif defined(TINY_OTHER_COMPILER)
  ++mark.compilerAbi;
#elif defined(TINY_OTHER_NAME)
  mark.name[0] = 'P';
#endif
  return mark;
}

#if defined(TINY_MARK_IS_CODE)
EXPORTED void PnlBackendMark() { std::abort(); }
#elif !defined(TINY_IS_FOREIGN)
EXPORTED const pnl::BackendMark PnlBackendMark;
const pnl::BackendMark PnlBackendMark = Changed(pnl::kBackendMark);
#endif
#endif
