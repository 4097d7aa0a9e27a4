#include "TessaryRenderer/Inheritance.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <ctime>
#include <fcntl.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

namespace tessary::Inheritance {

namespace {

/// What a signal left pending by the parent could mean here: the end of the process (the timers), or a hand-shake
/// inside the engine (SIGUSR1).
constexpr int stalePendingSignals[] = {SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU, SIGUSR1};

/// A signal can only have come pending if it came blocked, so that taking those that are both drops exactly the stale
/// ones; an alarm of this run that went off meanwhile needs four seconds.
void dropStaleSignals() {
  sigset_t blocked;
  sigset_t stale;
  sigemptyset(&stale);
  if (sigprocmask(SIG_SETMASK, nullptr, &blocked) != 0) return;
  for (const int signal : stalePendingSignals) {
    if (sigismember(&blocked, signal) == 1) sigaddset(&stale, signal);
  }
  constexpr timespec noWait{};
  while (sigtimedwait(&stale, nullptr, &noWait) > 0) {
  }
}

void unblockSignals() {
  sigset_t none;
  sigemptyset(&none);
  (void)sigprocmask(SIG_SETMASK, &none, nullptr);
}

void stopTimers() {
  constexpr itimerval stopped{};
  (void)setitimer(ITIMER_VIRTUAL, &stopped, nullptr);
  (void)setitimer(ITIMER_PROF, &stopped, nullptr);
}

bool isOpen(int descriptor) {
  return ::fcntl(descriptor, F_GETFD) >= 0;
}

/// Takes the place of a closed descriptor with one on which every read and write fails, as they do on a closed one.
/// Opening takes the lowest free number, which is `descriptor`, as all lower ones are taken.
void plug(int descriptor) {
  if (!isOpen(descriptor)) (void)::open("/", O_PATH | O_CLOEXEC);
}

void silenceStandardError() {
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  // In a root without devices standard error becomes what cannot be written to, which is as silent.
  const int replacement = nowhere >= 0 ? nowhere : ::open("/", O_PATH | O_CLOEXEC);
  if (replacement < 0) {
    ::close(STDERR_FILENO);
  } else if (replacement != STDERR_FILENO) {
    (void)::dup2(replacement, STDERR_FILENO);
    ::close(replacement);
  }
}

void settleDescriptors() {
  plug(STDIN_FILENO);
  plug(STDOUT_FILENO);
  silenceStandardError();
  (void)::close_range(STDERR_FILENO + 1, ~0U, 0);
}

/// Raises a soft limit to `wanted`, or to the hard limit where that is lower.
void raiseLimit(__rlimit_resource resource, rlim_t wanted) {
  rlimit limit{};
  if (::getrlimit(resource, &limit) != 0) return;
  limit.rlim_cur = std::min(wanted, limit.rlim_max);
  (void)::setrlimit(resource, &limit);
}

/// The size of a stack, bytes, as systems usually have it: the engine measures the main thread's, and how deep a script
/// may recurse depends on it.
constexpr std::size_t stackBytes = 8 * 1024 * 1024;

/// Gives new threads the usual stack. The C library has already taken the stack limit that the process began with for
/// theirs, and in a small one the engine's compiler crashes.
void settleThreadStacks() {
  pthread_attr_t attributes;
  if (::pthread_attr_init(&attributes) != 0) return;
  if (::pthread_attr_setstacksize(&attributes, stackBytes) == 0) (void)::pthread_setattr_default_np(&attributes);
  (void)::pthread_attr_destroy(&attributes);
}

void settleResourceLimits() {
  raiseLimit(RLIMIT_STACK, stackBytes);
  for (const __rlimit_resource resource : {RLIMIT_AS, RLIMIT_DATA, RLIMIT_CPU, RLIMIT_NPROC})
    raiseLimit(resource, RLIM_INFINITY);
}

void forbidCoreFiles() {
  constexpr rlimit none{.rlim_cur = 0, .rlim_max = 0};
  (void)::setrlimit(RLIMIT_CORE, &none);
  // A core file that is piped to a program is not held back by the limit, but by this.
  (void)::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

}  // namespace

void shed() {
  dropStaleSignals();
  unblockSignals();
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
  stopTimers();
  settleDescriptors();
  settleResourceLimits();
  settleThreadStacks();
  forbidCoreFiles();
}

}  // namespace tessary::Inheritance
