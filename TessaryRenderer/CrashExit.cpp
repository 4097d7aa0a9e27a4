#include "TessaryRenderer/CrashExit.h"

#include <array>
#include <atomic>
#include <csignal>
#include <string_view>
#include <unistd.h>

#include "TessaryRenderer/FailureExit.h"

namespace tessary::CrashExit {

namespace {

constexpr int crashSignals[] = {SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGFPE, SIGABRT, SIGSYS};

std::atomic<bool> outputTaken = false;

void leave(int) {
  // Whoever comes first speaks: the run with its result, or the first of the threads that crash.
  if (!outputTaken.exchange(true)) FailureExit::write(RendererFailures::other);
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

void outputBegins() {
  outputTaken.store(true);
}

}  // namespace tessary::CrashExit
