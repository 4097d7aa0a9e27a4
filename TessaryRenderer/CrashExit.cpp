#include "TessaryRenderer/CrashExit.h"

#include <array>
#include <atomic>
#include <csignal>
#include <poll.h>
#include <unistd.h>

#include "TessaryRenderer/FailureExit.h"

namespace tessary::CrashExit {

namespace {

constexpr int crashSignals[] = {SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE, SIGABRT, SIGSYS};

/// The thread whose object stands or will stand on standard output; 0 while there is none.
std::atomic<pid_t> outputOwner = 0;
static_assert(decltype(outputOwner)::is_always_lock_free, "a signal handler uses it");

/// Waits for the thread that owns the output to end the process. (`pause` is not among the calls that the sandbox lets
/// pass.)
[[noreturn]] void waitForTheEnd() {
  while (true)
    (void)::poll(nullptr, 0, -1);
}

void leave(int) {
  const pid_t self = ::gettid();
  pid_t owner = 0;
  if (outputOwner.compare_exchange_strong(owner, self)) {
    FailureExit::write(RendererFailures::other);
  } else if (owner != self) {
    waitForTheEnd();
  }
  ::_exit(FailureExit::status);
}

}  // namespace

void install() {
  // A stack that has run out cannot hold its own handler.
  static std::array<char, 65'536> stack;
  const stack_t alternative{.ss_sp = stack.data(), .ss_flags = 0, .ss_size = stack.size()};
  (void)::sigaltstack(&alternative, nullptr);
  struct sigaction action{};
  action.sa_handler = leave;
  action.sa_flags = SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (const int signal : crashSignals)
    (void)::sigaction(signal, &action, nullptr);
}

void claimOutput() {
  pid_t owner = 0;
  if (!outputOwner.compare_exchange_strong(owner, ::gettid()) && owner != ::gettid()) waitForTheEnd();
}

}  // namespace tessary::CrashExit
