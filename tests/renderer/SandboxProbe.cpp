// A process that closes the product's own sandbox around itself and then tries what it should no longer be able to do.
//
//     SandboxProbe none|files|filter|whole <folder>
//
// Its threads are the C library's: for C++ ones the undefined behaviour sanitizer looks into memory through a pipe,
// which the filter refuses.
//
// The first argument says which means to close: none, Landlock alone, the system call filter alone, or both as the
// product does. It prints what was closed, and a line for each attempt: its name, and 0 or the error number it met. The
// folder holds a readable file "file" and may be written to.

#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <mutex>
#include <pthread.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "TessaryRenderer/Inheritance.h"
#include "TessaryRenderer/Landlock.h"
#include "TessaryRenderer/Sandbox.h"
#include "TessaryRenderer/ScriptContext.h"
#include "TessaryRenderer/SystemCallFilter.h"

namespace {

using Attempt = std::function<long()>;

struct NamedAttempt {
  const char* name;
  Attempt run;
};

/// 0, or why the call failed.
int errorOf(const Attempt& attempt) {
  errno = 0;
  return attempt() < 0 ? errno : 0;
}

long openAndClose(const std::string& path, int flags) {
  const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
  if (descriptor < 0) return -1;
  return ::close(descriptor);
}

long connectTo(int family) {
  const int descriptor = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return -1;
  return ::close(descriptor);
}

/// Starts a program that says whether it ran by its status.
long startProgram(const std::string& path) {
  const pid_t child = ::vfork();
  if (child < 0) return -1;
  if (child == 0) {
    ::execl(path.c_str(), path.c_str(), nullptr);
    ::_exit(100);
  }
  int state = 0;
  ::waitpid(child, &state, 0);
  errno = EACCES;
  return WIFEXITED(state) && WEXITSTATUS(state) == 100 ? -1 : 0;
}

/// Waits for a signal that is pending already, as a thread does that the engine's collector holds still.
long waitForSignal() {
  sigset_t blocked;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGUSR2);
  sigset_t before;
  ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
  ::signal(SIGUSR2, [](int) {});
  ::raise(SIGUSR2);
  sigset_t waiting = before;
  sigdelset(&waiting, SIGUSR2);
  ::sigsuspend(&waiting);
  const int error = errno;
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return error == EINTR ? 0 : -1;
}

std::vector<NamedAttempt> attemptsIn(const std::string& folder) {
  const std::string file = folder + "/file";
  return {
      {"read-file", [=] { return openAndClose(file, O_RDONLY); }},
      {"write-file", [=] { return openAndClose(file, O_WRONLY); }},
      {"create-file", [=] { return openAndClose(folder + "/created", O_WRONLY | O_CREAT); }},
      {"read-folder", [=] { return openAndClose(folder, O_RDONLY | O_DIRECTORY); }},
      {"make-folder", [=] { return ::mkdir((folder + "/made").c_str(), 0700); }},
      {"remove-file", [=] { return ::unlink((folder + "/created").c_str()); }},
      {"start-program", [] { return startProgram("/bin/true"); }},
      {"local-socket", [] { return connectTo(AF_UNIX); }},
      {"internet-socket", [] { return connectTo(AF_INET); }},
      {"new-process",
       [] {
         const pid_t child = ::fork();
         if (child == 0) ::_exit(0);
         return child < 0 ? -1L : static_cast<long>(::waitpid(child, nullptr, 0));
       }},
      {"read-memory",
       [] {
         char from = 'a';
         char to = 0;
         const iovec source{&from, 1};
         const iovec target{&to, 1};
         return static_cast<long>(::process_vm_readv(::getpid(), &target, 1, &source, 1, 0));
       }},
      {"signal-parent", [] { return ::syscall(SYS_tgkill, ::getppid(), ::getppid(), 0); }},
      {"kill-parent", [] { return ::kill(::getppid(), 0); }},
      {"memory-file",
       [] {
         const long descriptor = ::syscall(SYS_memfd_create, "x", 0U);
         return descriptor < 0 ? -1L : static_cast<long>(::close(static_cast<int>(descriptor)));
       }},
      {"pipe",
       [] {
         int ends[2];
         if (::pipe(ends) != 0) return -1L;
         ::close(ends[0]);
         return static_cast<long>(::close(ends[1]));
       }},
      {"stat-file",
       [=] {
         struct stat status{};
         return ::stat(file.c_str(), &status);
       }},
      {"dumpable", [] { return ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0); }},
      {"raise-limit",
       [] {
         const rlimit limit{1024, 1024};
         return ::syscall(SYS_prlimit64, 0, static_cast<int>(RLIMIT_MEMLOCK), &limit, nullptr);
       }},
      {"unshare", [] { return ::syscall(SYS_unshare, 0); }},
      // And what must go on working.
      {"own-thread",
       [] {
         pthread_t thread{};
         errno = ::pthread_create(&thread, nullptr, [](void*) -> void* { return nullptr; }, nullptr);
         return errno != 0 ? -1L : static_cast<long>(::pthread_join(thread, nullptr));
       }},
      {"map-memory",
       [] {
         void* pages = ::mmap(nullptr, 1 << 20, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
         return pages == MAP_FAILED ? -1L : static_cast<long>(::munmap(pages, 1 << 20));
       }},
      {"signal-self", [] { return ::syscall(SYS_tgkill, ::getpid(), ::gettid(), 0); }},
      {"wait-for-signal", waitForSignal},
      // Last, since a traced process stops at its next signal.
      {"be-traced", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
  };
}

/// A thread that was there before the sandbox, and tries afterwards.
class OlderThread {
 public:
  explicit OlderThread(Attempt attempt) : attempt_(std::move(attempt)) {
    (void)::pthread_create(&thread_, nullptr, run, this);
  }

  int finish() {
    {
      const std::lock_guard lock(mutex_);
      mayBegin_ = true;
    }
    begins_.notify_one();
    ::pthread_join(thread_, nullptr);
    return error_;
  }

 private:
  static void* run(void* object) {
    auto* self = static_cast<OlderThread*>(object);
    std::unique_lock lock(self->mutex_);
    self->begins_.wait(lock, [self] { return self->mayBegin_; });
    self->error_ = errorOf(self->attempt_);
    return nullptr;
  }

  std::mutex mutex_;
  std::condition_variable begins_;
  bool mayBegin_ = false;
  int error_ = 0;
  Attempt attempt_;
  pthread_t thread_{};
};

tessary::Sandbox::Outcome close(std::string_view means) {
  if (means == "whole") return tessary::Sandbox::enter();
  if (means == "none" || ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return {};
  if (means == "files") return {.hasNoFiles = tessary::Landlock::forbidFiles()};
  return {.hasFilter = tessary::SystemCallFilter::install()};
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const std::string folder = arguments[2];
  tessary::Inheritance::shed();
  auto context = tessary::ScriptContext::make();
  if (!context) return 3;
  context->loadLazyParts();
  OlderThread older([=] { return openAndClose(folder + "/file", O_RDONLY); });

  const auto outcome = close(arguments[1]);
  std::printf("closed-files %d\nclosed-calls %d\n", outcome.hasNoFiles, outcome.hasFilter);
  for (const NamedAttempt& attempt : attemptsIn(folder))
    std::printf("%s %d\n", attempt.name, errorOf(attempt.run));
  std::printf("older-thread %d\n", older.finish());
  context->evaluate(u"var ok = new Date().toString().length > 0;");
  std::printf("script %d\n", context->hasException());
  std::fflush(stdout);
  ::_exit(0);
}
