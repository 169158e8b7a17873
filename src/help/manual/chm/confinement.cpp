// SPDX-License-Identifier: MIT
#include "help/manual/chm/confinement.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <vector>

#include "base/descriptor.h"

namespace pnl::chm {
namespace {

constexpr rlim_t kOpenFiles = 32;

#if defined(__x86_64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_AARCH64;
#else
#error "The filter of system calls needs the number of this architecture."
#endif

/// What the filter refuses.
constexpr int kRefused[] = {
    __NR_socket,
    __NR_socketpair,
    __NR_connect,
    __NR_bind,
    __NR_listen,
    __NR_accept,
    __NR_accept4,
    __NR_sendto,
    __NR_sendmsg,
    __NR_recvfrom,
    __NR_recvmsg,
    __NR_execve,
    __NR_execveat,
    __NR_clone,
    __NR_clone3,
    __NR_kill,
    __NR_ptrace,
    __NR_process_vm_readv,
    __NR_process_vm_writev,
    __NR_pidfd_open,
    __NR_pidfd_getfd,
    __NR_mount,
    __NR_umount2,
    __NR_unshare,
    __NR_setns,
    __NR_chroot,
    __NR_pivot_root,
    __NR_bpf,
    __NR_perf_event_open,
    __NR_io_uring_setup,
    __NR_userfaultfd,
    __NR_memfd_create,
    __NR_add_key,
    __NR_keyctl,
    __NR_request_key,
    __NR_init_module,
    __NR_finit_module,
    __NR_openat2,
    __NR_mkdirat,
    __NR_unlinkat,
    __NR_truncate,
    __NR_symlinkat,
    __NR_linkat,
    __NR_renameat2,
    __NR_fchmodat,
    __NR_fchownat,
    __NR_mknodat,
    __NR_open_by_handle_at,
    __NR_shmget,
    __NR_msgget,
    __NR_semget,
#if defined(__x86_64__)
    __NR_fork,
    __NR_vfork,
    __NR_creat,
    __NR_mkdir,
    __NR_rmdir,
    __NR_unlink,
    __NR_symlink,
    __NR_link,
    __NR_rename,
    __NR_renameat,
    __NR_chmod,
    __NR_chown,
    __NR_mknod,
#endif
};

bool Limit(__rlimit_resource resource, rlim_t most) {
  const rlimit limit{most, most};
  return setrlimit(resource, &limit) == 0;
}

bool SetLimits(const Confinement& confinement) {
  // The address sanitizer takes terabytes of address space for itself; its own limits serve.
  if (!kHasAddressSanitizer && !Limit(RLIMIT_AS, confinement.memory)) return false;
  return Limit(RLIMIT_FSIZE, confinement.fileBytes) && Limit(RLIMIT_CPU, confinement.processorSeconds) &&
         Limit(RLIMIT_NOFILE, kOpenFiles) && Limit(RLIMIT_CORE, 0);
}

sock_filter Statement(int code, std::uint32_t value) { return {static_cast<std::uint16_t>(code), 0, 0, value}; }

/// Goes on with the next statement if the value loaded last is equal, else with the one after it.
sock_filter IfEqual(std::uint32_t value) { return {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, value}; }

/// Adds to the filter that a file isn't opened for writing by a call whose argument of that number has the flags.
void RefuseWriting(std::vector<sock_filter>& program, int call, unsigned argument) {
  constexpr std::uint32_t kWriting = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;
  const auto flags = static_cast<std::uint32_t>(offsetof(seccomp_data, args) + argument * sizeof(std::uint64_t));
  program.push_back({BPF_JMP | BPF_JEQ | BPF_K, 0, 4, static_cast<std::uint32_t>(call)});
  program.push_back(Statement(BPF_LD | BPF_W | BPF_ABS, flags));
  program.push_back({BPF_JMP | BPF_JSET | BPF_K, 0, 1, kWriting});
  program.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
  program.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
}

bool SetFilter() {
  std::vector<sock_filter> program = {
      Statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
      // A call in the manner of another architecture has other numbers.
      sock_filter{BPF_JMP | BPF_JEQ | BPF_K, 1, 0, kArchitecture},
      Statement(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
      Statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
  };
#if defined(__x86_64__)
  // The calls have a second set of numbers, from this one on.
  program.push_back({BPF_JMP | BPF_JGE | BPF_K, 0, 1, __X32_SYSCALL_BIT});
  program.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS));
#endif
  for (const int number : kRefused) {
    program.push_back(IfEqual(static_cast<std::uint32_t>(number)));
    program.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
  }
  RefuseWriting(program, __NR_openat, 2);
#if defined(__x86_64__)
  RefuseWriting(program, __NR_open, 1);
#endif
  program.push_back(Statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
  return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

bool AllowReading(int rules, const std::string& path) {
  const Descriptor place(open(path.c_str(), O_PATH | O_CLOEXEC));
  landlock_path_beneath_attr rule{};
  rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE;
  rule.parent_fd = place.Get();
  return place && syscall(__NR_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
}

/// Refuses all files but the manual. Does nothing on a kernel without such rules.
void SetFileRules(const Confinement& confinement) {
  landlock_ruleset_attr handled{};
  // All that the first version of the rules knows, so that every kernel that has rules takes them.
  handled.handled_access_fs = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1;
  const Descriptor rules(static_cast<int>(syscall(__NR_landlock_create_ruleset, &handled, sizeof handled, 0)));
  if (!rules) return;
  if (!AllowReading(rules.Get(), confinement.manual)) return;
  static_cast<void>(syscall(__NR_landlock_restrict_self, rules.Get(), 0));
}

}  // namespace

bool Confine(const Confinement& confinement) {
  // Ends with whoever started it.
  if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return false;
  // Only a process with the right may take a network of its own; the filter below refuses sockets in any case.
  static_cast<void>(unshare(CLONE_NEWNET));
  if (prctl(PR_SET_DUMPABLE, 0) != 0 || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
  SetFileRules(confinement);
  return SetLimits(confinement) && SetFilter();
}

}  // namespace pnl::chm
