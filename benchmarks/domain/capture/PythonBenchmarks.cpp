// The text primitives against the C functions of CPython that they stand for. The peer is timed by the machine's own
// python3, in a loop over the same texts, in the same run; nothing is timed whose answers differ.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "TessaryDomain/capture/PythonISOTimestamp.h"
#include "TessaryDomain/capture/PythonText.h"

#include "CPythonPeer.h"

namespace tessary {
namespace {

using Texts = std::vector<std::string>;

std::string repeated(std::string_view unit, std::size_t leastBytes) {
  std::string text;
  while (text.size() < leastBytes)
    text += unit;
  return text;
}

// What is compared with CPython's answer: the operation's own, as text.

std::string linesAnswer(std::string_view text) {
  std::string answer;
  for (const std::string_view line : PythonText::splitlines(text)) {
    if (!answer.empty() || line.data() != text.data()) answer.push_back('\0');
    answer += line;
  }
  return answer;
}

std::string pathAnswer(std::string_view text) {
  return PythonText::normpath(text);
}

std::string timeAnswer(std::string_view text) {
  return std::to_string(PythonISOTimestamp::microseconds(text).value_or(-1));
}

// What is timed.

void runLines(std::string_view text) {
  benchmark::DoNotOptimize(PythonText::splitlines(text));
}

void runPath(std::string_view text) {
  benchmark::DoNotOptimize(PythonText::normpath(text));
}

void runPathIntoStorage(std::string_view text) {
  static std::string storage;
  benchmark::DoNotOptimize(PythonText::normpath(text, storage));
}

void runTime(std::string_view text) {
  benchmark::DoNotOptimize(PythonISOTimestamp::microseconds(text));
}

struct Task : CPythonTask {
  std::string name;
};

void runTessary(benchmark::State& state, const Task& task, void (*body)(std::string_view)) {
  for (auto _ : state) {
    for (const std::string& text : task.texts)
      body(text);
  }
  const auto items = static_cast<double>(state.iterations()) * static_cast<double>(task.texts.size());
  state.counters["per_text"] = benchmark::Counter(items, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

std::vector<Task> makeTasks() {
  constexpr std::size_t size = 256 * 1024;
  const auto lines = [](std::string name, std::string text) {
    return Task{{"splitlines", {std::move(text)}, linesAnswer}, std::move(name)};
  };
  const auto paths = [](std::string name, Texts texts) {
    return Task{{"normpath", std::move(texts), pathAnswer}, std::move(name)};
  };
  const auto times = [](std::string name, Texts texts) {
    return Task{{"microseconds", std::move(texts), timeAnswer}, std::move(name)};
  };
  return {
      lines("ASCII prose",
            repeated("The quick brown fox jumps over the lazy dog, and then it sleeps for a while.\n", size)),
      lines("source code",
            repeated("\tif (a < b) {\r\n\t\treturn compute(a, b);\r\n\t}\r\n\r\n\t// and so on, until it ends\r\n",
                     size)),
      lines("Korean prose",
            repeated("모든 국민은 인간으로서의 존엄과 가치를 가지며, 행복을 추구할 권리를 가진다.\n", size)),
      lines("worst: empty lines", repeated("\n", size)),
      lines("worst: false starts", repeated("“\t\x1F”€", size)),
      lines("worst: one line", std::string(size, 'x')),
      paths("clean absolute", {"/home/someone/projects/tessary/documents/plans/2026-01-02-first-plan.md",
                               "/Users/someone/Documents/notes/read me.txt", "/tmp/a/b.md",
                               "/home/someone/.claude/plans/quiet-singing-river.md"}),
      paths("to be cleaned", {"/home/someone/./projects/../documents/plan.md", "plans//first.md", "../notes/./a.md",
                              "/a/b/c/../../d/", "///usr/lib//x/"}),
      paths("worst: up and down", {repeated("a/", 1000) + repeated("../", 1500)}),
      times("extended", {"2026-01-02T03:04:05+00:00", "2024-02-29T23:59:59+09:00", "1999-12-31T00:00:00-05:30"}),
      times("with a fraction", {"2026-01-02T03:04:05.123456+00:00", "2026-01-02 03:04:05.678+00:00"}),
      times("Z", {"2026-01-02T03:04:05.123Z", "2026-01-02T03:04:05Z"}),
      times("basic and weeks", {"20260102T030405Z", "2026-W01-5T03:04:05+00:00", "2026W015T030405.5+0100"}),
      times("worst: many digits", {"2026-01-02T03:04:05." + std::string(900, '1') + "+23:59:59.999999"}),
  };
}

void registerAll() {
  static const std::vector<Task> tasks = makeTasks();
  for (const Task& task : tasks) {
    const std::string name = task.operation + "/" + task.name + "/";
    void (*const body)(std::string_view) = task.operation == "splitlines" ? runLines
                                           : task.operation == "normpath" ? runPath
                                                                          : runTime;
    benchmark::RegisterBenchmark((name + "Tessary").c_str(), runTessary, task, body);
    if (task.operation == "normpath")
      benchmark::RegisterBenchmark((name + "Tessary, into storage").c_str(), runTessary, task, runPathIntoStorage);
    benchmark::RegisterBenchmark((name + "CPython").c_str(), runCPython, task)->UseManualTime()->Iterations(1);
  }
}

[[maybe_unused]] const bool registered = (registerAll(), true);

}  // namespace
}  // namespace tessary
