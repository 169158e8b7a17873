// SPDX-License-Identifier: MIT
#include "library/backend_loader.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstring>

#include "facade/backend.h"

namespace pnl {
namespace {

using MakeBackendFn = CncFacade* (*)(WindowSystem&, Timers&);

/// An open library. The destructor closes it unless Keep was called.
class OpenLibrary {
 public:
  explicit OpenLibrary(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
  ~OpenLibrary() {
    if (handle_ != nullptr) dlclose(handle_);
  }
  OpenLibrary(const OpenLibrary&) = delete;
  OpenLibrary& operator=(const OpenLibrary&) = delete;

  explicit operator bool() const { return handle_ != nullptr; }
  [[nodiscard]] void* Symbol(const char* name) const { return dlsym(handle_, name); }
  void Keep() { handle_ = nullptr; }

 private:
  void* handle_;
};

std::string LastError() {
  const char* text = dlerror();
  return text != nullptr ? text : "unknown failure";
}

/// True when the library's symbol table has a data symbol of that many bytes at the address. A foreign library may have
/// anything else under the name.
bool IsDataOf(const void* address, std::size_t bytes) {
  Dl_info info{};
  void* extra = nullptr;
  if (dladdr1(address, &info, &extra, RTLD_DL_SYMENT) == 0 || extra == nullptr) return false;
  const auto* symbol = static_cast<const ElfW(Sym)*>(extra);
  return info.dli_saddr == address && ELF64_ST_TYPE(symbol->st_info) == STT_OBJECT && symbol->st_size == bytes;
}

/// Checks the mark. Returns an empty text when the library was built for this interface, else what is wrong.
std::string ProblemOfMark(const OpenLibrary& library) {
  const void* const address = library.Symbol("PnlBackendMark");
  if (address == nullptr || !IsDataOf(address, sizeof(BackendMark))) return "is no backend library";
  BackendMark mark{};
  std::memcpy(&mark, address, sizeof mark);
  if (std::memcmp(mark.name, kBackendMark.name, sizeof mark.name) != 0) return "is no backend library";
  if (mark.version != kBackendMark.version) {
    return "is made for version " + std::to_string(mark.version) + " of the interface, not " +
           std::to_string(kBackendMark.version);
  }
  if (std::memcmp(&mark, &kBackendMark, sizeof mark) != 0) return "is made with another compiler or standard library";
  return {};
}

}  // namespace

std::unique_ptr<CncFacade> LoadBackend(const std::string& path, WindowSystem& windows, Timers& timers,
                                       std::string& problem) {
  // A bare name would be searched in the system's folders, and any library of that name there would run.
  if (path.empty() || path[0] != '/') {
    problem = "\"" + path + "\": a backend library is named by its absolute path";
    return nullptr;
  }
  OpenLibrary library(path.c_str());
  if (!library) {
    problem = LastError();
    return nullptr;
  }
  problem = ProblemOfMark(library);
  const auto make = reinterpret_cast<MakeBackendFn>(library.Symbol("PnlMakeBackend"));
  if (problem.empty() && make == nullptr) problem = "makes no backend";
  std::unique_ptr<CncFacade> backend;
  if (problem.empty()) {
    try {
      backend.reset(make(windows, timers));
    } catch (...) {
      // The library is foreign code: whatever it throws, the host goes on without it.
    }
    if (!backend) problem = "makes no backend";
  }
  if (backend) {
    library.Keep();
  } else {
    problem = path + ": " + problem;
  }
  return backend;
}

}  // namespace pnl
