#include "ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

/// A descriptor that closes itself.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }

  void close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
  }
  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] bool isOpen() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

struct Pipe {
  Descriptor reader;
  Descriptor writer;
};

std::optional<Pipe> makePipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

/// Writes and reads as the child is ready for either, so that neither side waits for the other. A child that stops
/// reading early has made up its mind: what it has not read is dropped.
std::string exchange(Descriptor input, Descriptor output, std::string_view toWrite) {
  std::string written;
  std::array<char, 65'536> chunk;
  fcntl(input.number(), F_SETFL, O_NONBLOCK);
  while (output.isOpen()) {
    std::array<pollfd, 2> ends{{{output.number(), POLLIN, 0}, {input.number(), POLLOUT, 0}}};
    if (poll(ends.data(), input.isOpen() ? 2 : 1, -1) < 0 && errno != EINTR) break;
    if (input.isOpen() && ends[1].revents != 0) {
      const ssize_t count = write(input.number(), toWrite.data(), toWrite.size());
      if (count > 0) toWrite.remove_prefix(static_cast<std::size_t>(count));
      if (toWrite.empty() || (count < 0 && errno != EAGAIN && errno != EINTR)) input.close();
    }
    if (ends[0].revents != 0) {
      const ssize_t count = read(output.number(), chunk.data(), chunk.size());
      if (count > 0) written.append(chunk.data(), static_cast<std::size_t>(count));
      if (count == 0 || (count < 0 && errno != EINTR)) output.close();
    }
  }
  return written;
}

}  // namespace

std::optional<ChildOutcome> runChild(const std::vector<std::string>& arguments, std::string_view input) {
  auto toChild = makePipe();
  auto fromChild = makePipe();
  if (!toChild || !fromChild) return std::nullopt;

  std::vector<char*> argumentPointers;
  for (const std::string& argument : arguments)
    argumentPointers.push_back(const_cast<char*>(argument.c_str()));
  argumentPointers.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, toChild->reader.number(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fromChild->writer.number(), STDOUT_FILENO);
  pid_t child = 0;
  const int failure = posix_spawn(&child, argumentPointers[0], &actions, nullptr, argumentPointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) return std::nullopt;

  // A child that ends before it has read everything must be an answer, not the end of the host.
  std::signal(SIGPIPE, SIG_IGN);
  toChild->reader.close();
  fromChild->writer.close();
  ChildOutcome outcome;
  outcome.output = exchange(std::move(toChild->writer), std::move(fromChild->reader), input);

  int state = 0;
  while (waitpid(child, &state, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(state)) outcome.status = WEXITSTATUS(state);
  if (WIFSIGNALED(state)) outcome.signal = WTERMSIG(state);
  return outcome;
}
