// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/Confinement.h"

#include <fcntl.h>
#include <grp.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr unsigned kNobody = 65534;
constexpr int kSignalled = 1000;
constexpr int kBroken = 255;

using Filter = std::vector<sock_filter>;

sock_filter loadField(std::size_t offset) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
}

// Goes on when the value equals `value`, else skips `skip` steps.
sock_filter skipUnless(std::uint32_t value, std::uint8_t skip) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, skip);
}

sock_filter give(std::uint32_t verdict) {
  return BPF_STMT(BPF_RET | BPF_K, verdict);
}

std::uint32_t errorVerdict(int error) {
  return SECCOMP_RET_ERRNO | (static_cast<std::uint32_t>(error) & SECCOMP_RET_DATA);
}

bool install(Filter filter) {
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

bool tell(const char* file, const std::string& text) {
  std::ofstream out(file);
  out << text << std::flush;
  return out.good();
}

// Softly, so that it can be undone.
bool limitThreads(rlim_t most) {
  rlimit limit{};
  if (getrlimit(RLIMIT_NPROC, &limit) != 0) return false;
  limit.rlim_cur = std::min(most, limit.rlim_max);
  return setrlimit(RLIMIT_NPROC, &limit) == 0;
}

// Mounts of the child's own. Who is not root becomes the root of a user space of its own for it.
bool enterOwnMounts() {
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (geteuid() == 0) return unshare(CLONE_NEWNS) == 0;
  return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && tell("/proc/self/setgroups", "deny") &&
         tell("/proc/self/uid_map", "0 " + user + " 1") &&
         tell("/proc/self/gid_map", "0 " + group + " 1");
}

}  // namespace

int Confinement::run(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child < 0) return -1;
  if (child == 0) {
    int result = kBroken;
    try {
      result = work();
    } catch (...) {
      result = kBroken;
    }
    _exit(result);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  return WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
}

bool Confinement::dropPrivileges() {
  if (geteuid() != 0) return true;
  return setgroups(0, nullptr) == 0 && setresgid(kNobody, kNobody, kNobody) == 0 &&
         setresuid(kNobody, kNobody, kNobody) == 0;
}

bool Confinement::becomeMemberOf(unsigned group) {
  const gid_t groups[] = {group};
  return setgroups(1, groups) == 0 && setresgid(kNobody, kNobody, kNobody) == 0 &&
         setresuid(kNobody, kNobody, kNobody) == 0;
}

bool Confinement::limitFileSize(std::uint64_t bytes) {
  rlimit limit{};
  if (getrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
  limit.rlim_cur = std::min<rlim_t>(bytes, limit.rlim_max);
  return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

bool Confinement::refuseThreads() {
  return dropPrivileges() && limitThreads(0);
}

bool Confinement::allowThreads() {
  return limitThreads(RLIM_INFINITY);
}

bool Confinement::mountSmallDisk(const std::filesystem::path& folder, std::uint64_t bytes) {
  const std::string options = "size=" + std::to_string(bytes);
  return enterOwnMounts() && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

bool Confinement::refuseUnnamedFiles() {
  constexpr std::uint32_t kUnnamed = O_TMPFILE & ~O_DIRECTORY;
  return install({loadField(offsetof(seccomp_data, nr)), skipUnless(SYS_openat, 3),
                  loadField(offsetof(seccomp_data, args[2])),
                  BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, kUnnamed, 0, 1),
                  give(errorVerdict(EOPNOTSUPP)), give(SECCOMP_RET_ALLOW)});
}

bool Confinement::failSystemCall(long number, int error) {
  return install({loadField(offsetof(seccomp_data, nr)),
                  skipUnless(static_cast<std::uint32_t>(number), 1), give(errorVerdict(error)),
                  give(SECCOMP_RET_ALLOW)});
}

bool Confinement::failRenames(int error) {
  bool done = failSystemCall(SYS_renameat2, error);
#ifdef SYS_renameat
  done = done && failSystemCall(SYS_renameat, error);
#endif
#ifdef SYS_rename
  done = done && failSystemCall(SYS_rename, error);
#endif
  return done;
}
