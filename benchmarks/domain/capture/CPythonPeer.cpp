#include "CPythonPeer.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>
#include <utility>

namespace tessary {

namespace {

using Texts = std::vector<std::string>;

std::string hex(std::string_view text) {
  std::string digits;
  for (const char byte : text) {
    digits.push_back("0123456789abcdef"[static_cast<unsigned char>(byte) >> 4]);
    digits.push_back("0123456789abcdef"[static_cast<unsigned char>(byte) & 15]);
  }
  return digits;
}

/// Runs the peer: its nanoseconds per text, and its answers in hexadecimal.
std::pair<double, Texts> runPeer(const CPythonTask& task) {
  const std::filesystem::path input =
      std::filesystem::temp_directory_path() / ("tessary-benchmark-" + std::to_string(getpid()));
  std::ofstream file(input, std::ios::binary);
  for (std::size_t index = 0; index < task.texts.size(); ++index)
    file << (index > 0 ? std::string(1, '\0') : "") << task.texts[index];
  file.close();
  const std::string command = "python3 '" TESSARY_CPYTHON_PEER "' " + task.operation + " '" + input.string() + "'";
  std::stringstream output;
  if (FILE* const pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe))
      output.write(buffer, static_cast<std::streamsize>(count));
    pclose(pipe);
  }
  std::filesystem::remove(input);
  std::string line;
  std::getline(output, line);
  const double nanoseconds = std::strtod(line.c_str(), nullptr);
  Texts answers;
  while (std::getline(output, line))
    answers.push_back(line);
  return {nanoseconds, answers};
}

}  // namespace

void runCPython(benchmark::State& state, const CPythonTask& task) {
  const auto [nanoseconds, answers] = runPeer(task);
  Texts ours;
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
