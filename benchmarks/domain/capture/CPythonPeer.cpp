#include "CPythonPeer.h"

#include "PythonScript.h"

namespace tessary {

namespace {

std::string hex(std::string_view text) {
  std::string digits;
  for (const char byte : text) {
    digits.push_back("0123456789abcdef"[static_cast<unsigned char>(byte) >> 4]);
    digits.push_back("0123456789abcdef"[static_cast<unsigned char>(byte) & 15]);
  }
  return digits;
}

}  // namespace

void runCPython(benchmark::State& state, const CPythonTask& task) {
  const auto [nanoseconds, answers] = askPython(TESSARY_CPYTHON_PEER, task.operation, task.texts);
  std::vector<std::string> ours;
  for (const std::string& text : task.texts)
    ours.push_back(hex(task.answer(text)));
  if (nanoseconds <= 0 || answers != ours) {
    for (auto _ : state) {
    }
    state.SkipWithError("python3 is missing, or its answers differ");
    return;
  }
  for (auto _ : state)
    state.SetIterationTime(nanoseconds * static_cast<double>(task.texts.size()) * 1e-9);
  state.counters["per_text"] = nanoseconds * 1e-9;
}

}  // namespace tessary
