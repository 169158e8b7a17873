// SPDX-License-Identifier: MIT
#include "host/backend_entry.h"

#include <dlfcn.h>

namespace pnl {
namespace {

using MakeBackendFn = CncFacade* (*)(WindowSystem&, Timers&);

std::string LastError() {
  const char* text = dlerror();
  return text != nullptr ? text : "unknown failure";
}

}  // namespace

std::unique_ptr<CncFacade> LoadBackend(const std::string& path, WindowSystem& windows, Timers& timers,
                                       std::string& problem) {
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    problem = LastError();
    return nullptr;
  }
  const auto make = reinterpret_cast<MakeBackendFn>(dlsym(library, "PnlMakeBackend"));
  if (make == nullptr) {
    problem = LastError();
    dlclose(library);
    return nullptr;
  }
  std::unique_ptr<CncFacade> backend;
  try {
    backend.reset(make(windows, timers));
  } catch (...) {
    // Somebody else's code: whatever it throws, the host goes on without it.
  }
  if (!backend) {
    problem = path + ": makes no backend";
    dlclose(library);
  }
  return backend;
}

}  // namespace pnl
