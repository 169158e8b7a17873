// SPDX-License-Identifier: MIT
#include "library/own_file.h"

#include <dlfcn.h>

namespace pnl {

std::string OwnFile() {
  Dl_info info = {};
  if (dladdr(reinterpret_cast<void*>(&OwnFile), &info) == 0 || info.dli_fname == nullptr) return {};
  return info.dli_fname;
}

}  // namespace pnl
