// SPDX-License-Identifier: MIT
#include "places/share_module.h"

#include <dlfcn.h>

#include <cstdio>
#include <utility>

#include "base/locate.h"

namespace pnl {
namespace {

std::unique_ptr<ShareClient> Refused(const char* why) {
  std::fprintf(stderr, "pnltools: no Windows shares: %s\n", why != nullptr ? why : "unknown failure");
  return nullptr;
}

std::unique_ptr<ShareClient> Load(const std::string& path, std::chrono::milliseconds timeOut) {
  void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) return Refused(dlerror());
  const auto make = reinterpret_cast<MakeShareClientFn>(dlsym(module, kShareClientMaker));
  const auto milliseconds = static_cast<int>(timeOut.count());
  std::unique_ptr<ShareClient> client(make != nullptr ? make(kShareClientVersion, milliseconds) : nullptr);
  // Never closed: the libraries that it brings keep pointers into themselves.
  return client ? std::move(client) : Refused("the module is of another version, or its client can't start");
}

}  // namespace

std::string ShareModuleBeside(const std::string& libraryFile) { return FolderOf(libraryFile) + "/pnl-shares.so"; }

ShareThread::MakeClient ShareClientFrom(std::string modulePath, std::chrono::milliseconds timeOut) {
  return [path = std::move(modulePath), timeOut] { return Load(path, timeOut); };
}

}  // namespace pnl
