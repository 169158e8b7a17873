// SPDX-License-Identifier: MIT
// Takes from a process all that reading a manual doesn't need, before it reads the first byte: whoever takes it over
// through a damaged manual can write into the files that are open already and use up a little memory and time.
// Everything here binds the calling process for the rest of its life.
#pragma once

#include <cstdint>
#include <string>

namespace pnl::chm {

/// True in a build for finding faults, in which memory has no limit here.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
inline constexpr bool kHasAddressSanitizer = __has_feature(address_sanitizer);
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif

struct Confinement {
  std::string manual;           // the one file that may be opened, to be read
  std::uint64_t memory = 0;     // bytes of address space
  std::uint64_t fileBytes = 0;  // of one file
  unsigned processorSeconds = 0;
};

/// Memory, file size, processor time, open files and core dumps get limits of the system. A filter of system calls
/// refuses files that are opened for writing, made, renamed or removed, sockets, new processes and programs, and
/// whatever reaches other processes. Reading other files is refused by the kernel's own rules for them (Landlock) where
/// it has these; a network of its own, without any device, is taken where the process may. Returns false when the
/// limits or the filter can't be set: nothing should be read then.
[[nodiscard]] bool Confine(const Confinement& confinement);

}  // namespace pnl::chm
