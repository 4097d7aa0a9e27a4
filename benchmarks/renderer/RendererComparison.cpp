// Whole-process times of several programs over the same requests.
//
//     RendererComparison <rounds> <stage file> <request file>... -- <name> <program> <argument>... [-- <name> ...]...
//
// In each round every program renders every request once, so that whatever else the machine does meets all alike. The
// time is from before the start of the process to after its end, and its output is read as it comes. Printed are
// medians: wall milliseconds, their ratio to the first program, milliseconds until the reader saw the end of the
// output, processor milliseconds and peak memory; and the stages of a program whose name is "stages".
//
// Before anything is timed the outputs of all programs whose names do not begin with "floor" are compared.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "StageClock.h"

namespace {

using tessary::benchmarks::now;
using tessary::benchmarks::stageCount;
using tessary::benchmarks::stageNames;
using tessary::benchmarks::StageTimes;

constexpr int niceness = 15;

struct Request {
  std::string name;
  std::string bytes;
};

struct Program {
  std::string name;
  std::vector<std::string> command;

  [[nodiscard]] bool isFloor() const { return name.starts_with("floor"); }
};

struct Sample {
  double wall;
  double untilOutputEnded;
  double processor;
  double megabytes;
  std::array<double, stageCount + 1> stages;
};

[[noreturn]] void stop(const std::string& reason) {
  std::fprintf(stderr, "%s\n", reason.c_str());
  std::exit(1);
}

double milliseconds(std::uint64_t from, std::uint64_t to) {
  return static_cast<double>(to - from) / 1e6;
}

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) stop("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Feeds the request in and takes the output out until it ends.
std::string exchange(const std::string& request, int input, int output) {
  std::string_view rest = request;
  std::string result;
  std::array<char, 65'536> bytes;
  while (true) {
    std::array<pollfd, 2> waited{{{output, POLLIN, 0}, {input, POLLOUT, 0}}};
    if (::poll(waited.data(), rest.empty() ? 1 : 2, -1) < 0) continue;
    if (!rest.empty() && waited[1].revents != 0) {
      const ssize_t count = ::write(input, rest.data(), rest.size());
      if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
      if (count < 0 && errno != EAGAIN && errno != EINTR) stop("a program does not read its request");
      if (rest.empty()) ::close(input);
    }
    if (waited[0].revents == 0) continue;
    const ssize_t count = ::read(output, bytes.data(), bytes.size());
    if (count > 0) result.append(bytes.data(), static_cast<std::size_t>(count));
    if (count == 0) break;
  }
  ::close(output);
  return result;
}

double processorMilliseconds(const rusage& usage) {
  const auto total = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return total(usage.ru_utime) + total(usage.ru_stime);
}

Sample run(const Program& program, const Request& request, const StageTimes& stages, std::string& output) {
  std::vector<char*> arguments;
  for (const std::string& argument : program.command)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  int input[2];
  int result[2];
  if (::pipe2(input, O_CLOEXEC) != 0 || ::pipe2(result, O_CLOEXEC) != 0) stop("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, result[1], STDOUT_FILENO);

  const std::uint64_t begin = now();
  pid_t child = 0;
  if (::posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
    stop("cannot start " + program.command[0]);
  ::close(input[0]);
  ::close(result[1]);
  ::fcntl(input[1], F_SETFL, O_NONBLOCK);
  output = exchange(request.bytes, input[1], result[0]);
  const std::uint64_t outputEnd = now();
  int state = 0;
  rusage usage{};
  ::wait4(child, &state, 0, &usage);
  const std::uint64_t end = now();
  posix_spawn_file_actions_destroy(&actions);
  if (!WIFEXITED(state) || WEXITSTATUS(state) != 0) stop(program.name + " fails over " + request.name + ": " + output);

  Sample sample{milliseconds(begin, end),
                milliseconds(begin, outputEnd),
                processorMilliseconds(usage),
                static_cast<double>(usage.ru_maxrss) / 1024,
                {}};
  if (program.name == "stages") {
    std::uint64_t before = begin;
    for (std::size_t stage = 0; stage < stageCount; ++stage) {
      sample.stages[stage] = milliseconds(before, stages[stage]);
      before = stages[stage];
    }
    sample.stages[stageCount] = milliseconds(before, end);
  }
  return sample;
}

template <typename Select>
double median(const std::vector<Sample>& samples, Select select) {
  std::vector<double> values;
  for (const Sample& sample : samples)
    values.push_back(select(sample));
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void compareOutputs(const std::vector<Program>& programs, const std::vector<Request>& requests,
                    const StageTimes& stages) {
  for (const Request& request : requests) {
    std::string expected;
    std::string output;
    for (const Program& program : programs) {
      (void)run(program, request, stages, output);
      if (program.isFloor()) continue;
      if (expected.empty()) expected = output;
      if (output != expected) stop(program.name + " gives another result for " + request.name);
    }
  }
}

void report(const std::vector<Program>& programs, const Request& request,
            const std::vector<std::vector<Sample>>& samples) {
  std::printf("\n%s (%zu bytes)\n", request.name.c_str(), request.bytes.size());
  const double first = median(samples[0], [](const Sample& sample) { return sample.wall; });
  for (std::size_t index = 0; index < programs.size(); ++index) {
    const auto& own = samples[index];
    const double wall = median(own, [](const Sample& sample) { return sample.wall; });
    std::printf("  %-12s %8.2f ms  first/this %5.2f  output ended %8.2f ms  processor %8.2f ms  peak %6.1f MB\n",
                programs[index].name.c_str(), wall, first / wall,
                median(own, [](const Sample& sample) { return sample.untilOutputEnded; }),
                median(own, [](const Sample& sample) { return sample.processor; }),
                median(own, [](const Sample& sample) { return sample.megabytes; }));
    if (programs[index].name != "stages") continue;
    for (std::size_t stage = 0; stage <= stageCount; ++stage)
      std::printf("    %-11s %7.2f ms\n", stage < stageCount ? stageNames[stage] : "exit",
                  median(own, [stage](const Sample& sample) { return sample.stages[stage]; }));
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 5) stop("usage: see the head of RendererComparison.cpp");
  // The product lowers its own priority; so that the machine treats all alike, it is lowered for all.
  (void)::setpriority(PRIO_PROCESS, 0, niceness);
  const int rounds = std::atoi(arguments[1]);
  const int file = ::open(arguments[2], O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0 || ::ftruncate(file, sizeof(StageTimes)) != 0) stop("no stage file");
  const void* shared = ::mmap(nullptr, sizeof(StageTimes), PROT_READ, MAP_SHARED, file, 0);
  if (shared == MAP_FAILED) stop("no shared memory");
  const auto& stages = *static_cast<const StageTimes*>(shared);
  ::setenv(tessary::benchmarks::stageFileVariable, arguments[2], 1);

  std::vector<Request> requests;
  std::vector<Program> programs;
  for (int index = 3; index < argumentCount; ++index) {
    if (std::strcmp(arguments[index], "--") == 0) {
      if (++index < argumentCount) programs.push_back({arguments[index], {}});
    } else if (programs.empty()) {
      const std::string path = arguments[index];
      requests.push_back({path.substr(path.rfind('/') + 1), contentsOf(path)});
    } else {
      programs.back().command.emplace_back(arguments[index]);
    }
  }
  if (programs.empty() || rounds < 1) stop("nothing to compare");
  compareOutputs(programs, requests, stages);

  for (const Request& request : requests) {
    std::vector<std::vector<Sample>> samples(programs.size());
    std::string output;
    for (int round = 0; round < rounds; ++round) {
      for (std::size_t index = 0; index < programs.size(); ++index)
        samples[index].push_back(run(programs[index], request, stages, output));
    }
    report(programs, request, samples);
  }
}
