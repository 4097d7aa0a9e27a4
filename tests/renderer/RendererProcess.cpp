#include "RendererProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <ostream>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessary::testing {

namespace {

struct Pipe {
  int readEnd = -1;
  int writeEnd = -1;

  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    readEnd = ends[0];
    writeEnd = ends[1];
  }
};

void closeOnce(int& descriptor) {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> list;
  for (std::string& text : texts)
    list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

std::vector<std::string> environmentOf(const ProcessStart& start) {
  std::vector<std::string> environment = start.environment;
  for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
    if (const char* value = std::getenv(name)) environment.push_back(std::string(name) + "=" + value);
  }
  return environment;
}

/// Has the kernel answer every `setpriority` of this process from here on with success, and do nothing. Where it has no
/// filters, the priority falls. Safe after fork.
void keepPriority() {
  std::array<sock_filter, 4> lines{{
      {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
      {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, SYS_setpriority},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | 0},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
  }};
  const sock_fprog program{.len = lines.size(), .filter = lines.data()};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

/// Takes in what a pipe holds; closes it at its end.
void drain(int& descriptor, std::string& into) {
  std::array<char, 65'536> bytes;
  const ssize_t count = ::read(descriptor, bytes.data(), bytes.size());
  if (count > 0) {
    into.append(bytes.data(), static_cast<std::size_t>(count));
  } else if (count == 0 || errno != EINTR) {
    closeOnce(descriptor);
  }
}

void exchange(const ProcessStart& start, pid_t child, int input, int output, int errors, ProcessEnd& end) {
  std::string_view rest = start.input;
  int heldOpen = start.withholdsEnd ? ::dup(input) : -1;
  if (rest.empty()) closeOnce(input);
  bool isTold = !start.meanwhile;
  // A child may close both its outputs and still wait for its input.
  while (input >= 0 || output >= 0 || errors >= 0 || !isTold) {
    if (!isTold && input < 0) {
      isTold = true;
      start.meanwhile(child);
      continue;
    }
    std::array<pollfd, 3> waited{{{input, POLLOUT, 0}, {output, POLLIN, 0}, {errors, POLLIN, 0}}};
    if (::poll(waited.data(), waited.size(), -1) < 0) continue;
    if (input >= 0 && waited[0].revents != 0) {
      const ssize_t count = ::write(input, rest.data(), std::min(rest.size(), start.chunkBytes));
      if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
      // A child that has gone or has read enough breaks the pipe.
      const bool isBroken = count < 0 && errno != EINTR && errno != EAGAIN;
      if (rest.empty() || isBroken) closeOnce(input);
    }
    if (output >= 0 && waited[1].revents != 0) drain(output, end.output);
    if (errors >= 0 && waited[2].revents != 0) drain(errors, end.errors);
  }
  closeOnce(input);
  closeOnce(heldOpen);
}

}  // namespace

ProcessEnd runProcess(const ProcessStart& start) {
  Pipe input;
  Pipe output;
  Pipe errors;
  std::vector<std::string> arguments = start.arguments;
  arguments.insert(arguments.begin(), start.program);
  std::vector<std::string> environment = environmentOf(start);
  const std::vector<char*> argumentList = pointers(arguments);
  const std::vector<char*> environmentList = pointers(environment);

  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    ::dup2(input.readEnd, STDIN_FILENO);
    ::dup2(output.writeEnd, STDOUT_FILENO);
    ::dup2(errors.writeEnd, STDERR_FILENO);
    if (!start.lowersPriority) keepPriority();
    if (start.beforeStart) start.beforeStart();
    ::execve(start.program.c_str(), argumentList.data(), environmentList.data());
    ::_exit(127);
  }
  closeOnce(input.readEnd);
  closeOnce(output.writeEnd);
  closeOnce(errors.writeEnd);
  ::fcntl(input.writeEnd, F_SETFL, O_NONBLOCK);

  const auto before = std::signal(SIGPIPE, SIG_IGN);
  ProcessEnd end;
  exchange(start, child, input.writeEnd, output.readEnd, errors.readEnd, end);
  std::signal(SIGPIPE, before);

  int state = 0;
  while (::waitpid(child, &state, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(state)) end.status = WEXITSTATUS(state);
  if (WIFSIGNALED(state)) end.signal = WTERMSIG(state);
  return end;
}

void PrintTo(const ProcessEnd& end, std::ostream* stream) {
  *stream << "status " << end.status << ", signal " << end.signal << ", " << end.output.size()
          << " bytes: " << end.output.substr(0, 300) << ", errors: " << end.errors.substr(0, 300);
}

ProcessStart rendererStart(const std::filesystem::path& assets, std::string input) {
  return {.program = TESSARY_RENDERER,
          .arguments = {"--assets", assets.string()},
          .input = std::move(input),
          .environment = {},
          .beforeStart = {},
          .meanwhile = {}};
}

ProcessEnd runScript(std::string_view script, std::string input) {
  const TemporaryFolder folder;
  folder.write("renderer.js", script);
  return runProcess(rendererStart(folder.path(), std::move(input)));
}

ProcessEnd runRender(std::string_view body, std::string input) {
  return runScript("var TessaryOfflineRenderer = {render(request, token) {" + std::string(body) + "}};",
                   std::move(input));
}

ProcessEnd succeededWith(std::string output) {
  return {.status = 0, .signal = 0, .output = std::move(output), .errors = ""};
}

ProcessEnd failedWith(std::string_view message) {
  return {.status = 1, .signal = 0, .output = "{\"error\":\"" + std::string(message) + "\"}", .errors = ""};
}

}  // namespace tessary::testing
