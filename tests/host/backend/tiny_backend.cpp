// SPDX-License-Identifier: MIT
// A backend library for the tests, built four ways: one that works, one that makes nothing, one that throws, and one
// that exports no maker at all.
#include "host/backend/tiny_backend.h"

#include <stdexcept>

#include "window/timers.h"

#define MAKER_EXPORT extern "C" __attribute__((visibility("default")))

#if defined(TINY_WORKS)
MAKER_EXPORT pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return new pnl::test::TinyBackend; }
#elif defined(TINY_MAKES_NOTHING)
MAKER_EXPORT pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) { return nullptr; }
#elif defined(TINY_THROWS)
MAKER_EXPORT pnl::CncFacade* PnlMakeBackend(pnl::WindowSystem&, pnl::Timers&) {
  throw std::runtime_error("no control here");
}
#else
MAKER_EXPORT int SomethingElse() { return 0; }
#endif
