#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

namespace tessary {

/// One of the operations of CPythonPeer.py, texts to run it on, and what our own code answers for each.
struct CPythonTask {
  std::string operation;
  std::vector<std::string> texts;
  std::function<std::string(std::string_view)> answer;
};

/// The body of a benchmark with manual time and one iteration: the time of the machine's own python3 over the texts.
/// Nothing is timed whose answers differ.
void runCPython(benchmark::State& state, const CPythonTask& task);

}  // namespace tessary
