#include "support/Confinement.h"

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "support/Uninterrupted.h"

namespace quillmeter {
namespace {

// Rules that came after the headers of the oldest system that this is built on, by the version that brought
// them. The one for truncation is for systems without a filter for calls only: the kernel applies it to files
// opened for reading, too, and looks at every folder on the way up for each of them, which would make up a
// tenth of the time of a read.
constexpr std::uint64_t kTruncate = std::uint64_t{1} << 14;     // 3
constexpr std::uint64_t kDeviceIoctl = std::uint64_t{1} << 15;  // 5

/// As the kernel takes them; it ignores what it does not know as long as that is 0.
struct Rules {
  std::uint64_t files = 0;
  std::uint64_t network = 0;  // 4
  std::uint64_t scopes = 0;   // 6
};

constexpr std::uint64_t kWriting =
    LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG;
constexpr std::uint64_t kForbidden = kWriting | LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                     LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR |
                                     LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                     LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

constexpr std::uint64_t kReading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;

/// Languages and character sets, the libraries themselves, and what the system says of the process.
constexpr std::array kReadByLibraries = {"/usr", "/lib", "/lib64", "/proc/self"};

Rules rulesOf(int version, bool truncationIsFiltered, bool confinesReading) {
  Rules rules{.files = kForbidden | (confinesReading ? kReading : 0)};
  if (version >= 2) rules.files |= LANDLOCK_ACCESS_FS_REFER;
  if (version >= 3 && !truncationIsFiltered) rules.files |= kTruncate;
  if (version >= 4) rules.network = 0b11;  // to bind and to connect TCP
  if (version >= 5) rules.files |= kDeviceIoctl;
  // To sockets without a path. Not the rule against signals, though: the one that ends a child with its
  // parent counts as sent by the parent, and the report's process must end with the tool.
  if (version >= 6) rules.scopes = 0b01;
  return rules;
}

/// Allows `rights` at `path` and below.
void allow(int ruleSet, std::uint64_t rights, const std::string& path) {
  const int descriptor = uninterrupted([&] { return ::open(path.c_str(), O_PATH | O_CLOEXEC); });
  if (descriptor < 0) return;  // what is not there can be neither read nor written to
  struct stat status {};
  // The kernel takes no rule that allows a file what only folders can do.
  const bool isKnown = uninterrupted([&] { return ::fstat(descriptor, &status); }) == 0;
  if (isKnown && !S_ISDIR(status.st_mode)) rights &= LANDLOCK_ACCESS_FS_READ_FILE;
  const landlock_path_beneath_attr rule{.allowed_access = rights, .parent_fd = descriptor};
  ::syscall(SYS_landlock_add_rule, ruleSet, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
  ::close(descriptor);
}

void allow(int ruleSet, const Rules& rules, const FileAccess& access) {
  for (const std::string& folder : access.writableFolders)
    allow(ruleSet, (kReading | kWriting | LANDLOCK_ACCESS_FS_REFER | kTruncate) & rules.files, folder);
  if (!access.readable) return;
  for (const char* const path : kReadByLibraries)
    allow(ruleSet, kReading, path);
  for (const std::string& path : *access.readable)
    allow(ruleSet, kReading, path);
}

/// Gives the version of the rules in force, 0 when the kernel has none.
int confineFiles(const FileAccess& access, bool truncationIsFiltered) {
  const auto version =
      static_cast<int>(::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION));
  if (version < 1) return 0;
  const Rules rules = rulesOf(version, truncationIsFiltered, access.readable.has_value());
  const std::size_t size = version >= 6   ? sizeof(Rules)
                           : version >= 4 ? 2 * sizeof(std::uint64_t)
                                          : sizeof(std::uint64_t);
  const auto ruleSet = static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rules, size, 0));
  if (ruleSet < 0) return 0;
  allow(ruleSet, rules, access);
  const bool inForce = ::syscall(SYS_landlock_restrict_self, ruleSet, 0) == 0;
  ::close(ruleSet);
  return inForce ? version : 0;
}

#if defined(__x86_64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_AARCH64;
#elif defined(__riscv) && __riscv_xlen == 64
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_RISCV64;
#else
constexpr std::uint32_t kArchitecture = 0;  // not known here: no filter
#endif

/// The calls that lead to a socket, or truncate a file. io_uring does both past every filter.
constexpr std::array kDeniedCalls = {SYS_socket,           SYS_socketpair, SYS_connect,        SYS_bind,
                                     SYS_listen,           SYS_accept,     SYS_accept4,        SYS_sendto,
                                     SYS_sendmsg,          SYS_sendmmsg,   SYS_io_uring_setup, SYS_truncate,
                                     SYS_open_by_handle_at};

constexpr std::uint32_t kDenial = SECCOMP_RET_ERRNO | EACCES;

/// The lower half of a call's argument, which holds all of an `int`.
constexpr std::uint32_t argument(std::uint32_t number) {
  return static_cast<std::uint32_t>(offsetof(seccomp_data, args) + number * sizeof(std::uint64_t));
}

using Program = std::vector<sock_filter>;

void allow(Program& program) {
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
}

void deny(Program& program) {
  program.push_back(BPF_STMT(BPF_RET | BPF_K, kDenial));
}

/// Goes past the next statements unless this is the call.
void skipUnless(Program& program, long call, std::uint8_t statements) {
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, statements));
}

/// Opening for reading can truncate as well, which the rules for files do not take for writing.
void denyTruncatingReads(Program& program, long call, std::uint32_t flags) {
  skipUnless(program, call, 7);
  program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, flags));
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, O_TRUNC, 0, 4));
  program.push_back(BPF_STMT(BPF_ALU | BPF_AND | BPF_K, O_ACCMODE));
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, O_WRONLY, 2, 0));
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, O_RDWR, 1, 0));
  deny(program);
  allow(program);
}

/// What the kernel does before each system call of the thread.
Program callFilter() {
  Program program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
                  // The calls of another architecture have other numbers: none of them is let through.
                  BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kArchitecture, 1, 0),
                  BPF_STMT(BPF_RET | BPF_K, kDenial),
                  BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
#if defined(__x86_64__)
  constexpr std::uint32_t shortPointers = 0x40000000;  // the bit of a third set of numbers
  program.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, shortPointers, 0, 1));
  deny(program);
#endif
  denyTruncatingReads(program, SYS_openat, argument(2));
#ifdef SYS_open
  denyTruncatingReads(program, SYS_open, argument(1));
#endif
  // Its flags lie in memory, where a filter cannot look. As on the kernels that have not got it, callers fall
  // back on the others.
  skipUnless(program, SYS_openat2, 1);
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS));
  for (const long call : kDeniedCalls) {
    skipUnless(program, call, 1);
    deny(program);
  }
  allow(program);
  return program;
}

bool filterCalls() {
  if (kArchitecture == 0) return false;
  Program program = callFilter();
  const sock_fprog filter{.len = static_cast<unsigned short>(program.size()), .filter = program.data()};
  return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

}  // namespace

Confinement confineThread(const FileAccess& access) {
  Confinement result;
  // The kernel asks for this first: no program that is started can get rights that the thread has not.
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return result;
  result.network = filterCalls();
  result.files = confineFiles(access, result.network);
  return result;
}

std::string confinementText(const Confinement& confinement) {
  const std::string files = confinement.files > 0 ? "files are only read, by the kernel's rules (Landlock " +
                                                        std::to_string(confinement.files) + ")"
                                                  : "this kernel has no rules for files (Landlock)";
  const std::string network = confinement.network ? "the network is denied (seccomp)"
                                                  : "this kernel has no filter for the network (seccomp)";
  return files + "; " + network;
}

}  // namespace quillmeter
