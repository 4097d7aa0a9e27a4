// The filter is a program for the kernel's classic BPF machine, which runs before every system call: it sees the call's
// number and the values of its arguments, not what they point to. Ours is a straight list. First the processor
// architecture is made sure of, since numbers mean other calls under another; then each allowed number is compared in
// turn, and a match allows the call; at the end stands the refusal. A few calls are allowed only with some values of an
// argument: their entries load the argument, test it, and load the number again for what follows.
//
//     load architecture; not ours -> refuse
//     load number
//     number is read   -> allow
//     number is write  -> allow
//     ...
//     number is clone  -> flags have CLONE_THREAD -> allow, else refuse
//     refuse
//
// Cost: some nanoseconds a call, the most frequent calls first; the kernel remembers calls that are allowed whatever
// their arguments are, and does not run the program for them at all.

#include "TessaryRenderer/SystemCallFilter.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/sched.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessary::SystemCallFilter {

#if defined(__x86_64__)

namespace {

constexpr std::uint32_t architecture = AUDIT_ARCH_X86_64;

/// Allowed whatever their arguments are. What reads or writes takes open descriptors, of which there are standard input
/// and output and those that the engine opened for itself.
constexpr std::uint32_t allowed[] = {
    // Waiting and memory: nearly all that the engine calls.
    SYS_futex, SYS_madvise, SYS_mmap, SYS_munmap, SYS_mprotect, SYS_mremap, SYS_brk, SYS_membarrier, SYS_mincore,
    // Threads of this process and their scheduling.
    SYS_sched_yield, SYS_sched_getaffinity, SYS_sched_setscheduler, SYS_sched_getscheduler, SYS_sched_getparam,
    SYS_sched_setparam, SYS_sched_get_priority_max, SYS_sched_get_priority_min, SYS_gettid, SYS_getpid,
    SYS_set_robust_list, SYS_rseq, SYS_exit, SYS_exit_group, SYS_restart_syscall, SYS_getcpu,
    // Signals: the engine stops its own threads with one, and they wait in its handler until they may go on. A thread
    // whose wait were refused would run on while its stack is searched, and lose what it alone holds.
    SYS_rt_sigprocmask, SYS_rt_sigaction, SYS_rt_sigreturn, SYS_rt_sigsuspend, SYS_sigaltstack, SYS_alarm,
    // Descriptors that are open.
    SYS_read, SYS_write, SYS_close, SYS_pread64, SYS_lseek, SYS_poll, SYS_ppoll, SYS_fstat,
    // Time and random numbers.
    SYS_clock_gettime, SYS_clock_getres, SYS_gettimeofday, SYS_time, SYS_nanosleep, SYS_clock_nanosleep, SYS_getrandom,
    // What the process may know of itself and its machine.
    SYS_getrusage, SYS_sysinfo, SYS_uname};

constexpr std::uint32_t offsetOfNumber = offsetof(seccomp_data, nr);

/// The lower half of an argument; the processor is little-endian.
constexpr std::uint32_t offsetOfArgument(unsigned index) {
  return static_cast<std::uint32_t>(offsetof(seccomp_data, args) + index * sizeof(std::uint64_t));
}

/// Writes the program line by line. Jumps in it go forward only, by a number of lines that fits a byte, so that each
/// entry brings its own way out.
class Program {
 public:
  Program() {
    load(offsetof(seccomp_data, arch));
    skipIfEqual(architecture, 1);
    refuse(EPERM);
    load(offsetOfNumber);
  }

  void allow(std::uint32_t number) {
    skipUnlessEqual(number, 1);
    pass();
  }

  void refuse(std::uint32_t number, std::uint32_t error) {
    skipUnlessEqual(number, 1);
    refuse(error);
  }

  /// Allows a call if argument `index` is `value`, and refuses it otherwise.
  void allowIfEqual(std::uint32_t number, unsigned index, std::uint32_t value) {
    skipUnlessEqual(number, 4);
    load(offsetOfArgument(index));
    skipUnlessEqual(value, 1);
    pass();
    refuse(EPERM);
  }

  /// Allows a call if argument `index` has every bit of `bits`, and refuses it otherwise.
  void allowIfContains(std::uint32_t number, unsigned index, std::uint32_t bits) {
    skipUnlessEqual(number, 5);
    load(offsetOfArgument(index));
    line(BPF_ALU | BPF_AND | BPF_K, 0, 0, bits);
    skipUnlessEqual(bits, 1);
    pass();
    refuse(EPERM);
  }

  std::vector<sock_filter> finish() {
    refuse(EPERM);
    return std::move(lines_);
  }

 private:
  void line(int code, std::uint8_t ifTrue, std::uint8_t ifFalse, std::uint32_t value) {
    lines_.push_back({static_cast<std::uint16_t>(code), ifTrue, ifFalse, value});
  }
  void load(std::uint32_t offset) { line(BPF_LD | BPF_W | BPF_ABS, 0, 0, offset); }
  void skipIfEqual(std::uint32_t value, std::uint8_t count) { line(BPF_JMP | BPF_JEQ | BPF_K, count, 0, value); }
  void skipUnlessEqual(std::uint32_t value, std::uint8_t count) { line(BPF_JMP | BPF_JEQ | BPF_K, 0, count, value); }
  void pass() { line(BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW); }
  void refuse(std::uint32_t error) { line(BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | error); }

  std::vector<sock_filter> lines_;
};

std::vector<sock_filter> makeProgram() {
  Program program;
  for (const std::uint32_t number : allowed)
    program.allow(number);
  // New threads, no new processes.
  program.allowIfContains(SYS_clone, 0, CLONE_THREAD);
  program.refuse(SYS_clone3, ENOSYS);
  // Signals to threads of this process alone.
  program.allowIfEqual(SYS_tgkill, 0, static_cast<std::uint32_t>(::getpid()));
  // A thread's name, for debuggers.
  program.allowIfEqual(SYS_prctl, 0, PR_SET_NAME);
  // Asking for a limit of its own, as a thread does for its stack, but not setting one: argument 2 is the new limit.
  program.allowIfEqual(SYS_prlimit64, 2, 0);
  return program.finish();
}

}  // namespace

bool install() {
  std::vector<sock_filter> lines = makeProgram();
  const sock_fprog program{.len = static_cast<unsigned short>(lines.size()), .filter = lines.data()};
  return ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &program) == 0;
}

#else

bool install() {
  return false;
}

#endif

}  // namespace tessary::SystemCallFilter
