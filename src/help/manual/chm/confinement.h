// SPDX-License-Identifier: MIT
// Takes from a process all that reading a manual doesn't need, before it reads the first byte: whoever takes it over
// through a damaged manual can write into one folder and use up a little memory and time. Everything here binds the
// calling process for the rest of its life.
#pragma once

#include <cstdint>
#include <string>

namespace pnl::chm {

struct Confinement {
  std::string manual;           // the one file that may be read
  std::string folder;           // the one folder in and below which files may be made
  std::uint64_t memory = 0;     // bytes of address space
  std::uint64_t fileBytes = 0;  // of one file
  unsigned processorSeconds = 0;
};

/// Memory, file size, processor time, open files and core dumps get limits of the system, and further files and folders
/// are refused by the kernel's own rules for them (Landlock) where it has these. A filter of system calls refuses
/// sockets, new processes and programs, and whatever reaches other processes; a network of its own, without any device,
/// is taken where the process may. Returns false when the limits or the filter can't be set: nothing should be read
/// then.
[[nodiscard]] bool Confine(const Confinement& confinement);

}  // namespace pnl::chm
