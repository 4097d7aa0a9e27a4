#include "PythonScript.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace tessary {

std::string outputOfPython(const std::string& script, const std::string& arguments) {
  const std::string command = "python3 '" + script + "' " + arguments;
  std::string output;
  if (std::FILE* const pipe = popen(command.c_str(), "r")) {
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
      output.append(buffer.data(), count);
    pclose(pipe);
  }
  return output;
}

PythonAnswers askPython(const std::string& script, const std::string& arguments,
                        const std::vector<std::string>& texts) {
  const std::filesystem::path input =
      std::filesystem::temp_directory_path() / ("tessary-benchmark-" + std::to_string(getpid()));
  std::ofstream file(input, std::ios::binary);
  for (std::size_t index = 0; index < texts.size(); ++index)
    file << (index > 0 ? std::string(1, '\0') : "") << texts[index];
  file.close();
  std::istringstream output(outputOfPython(script, arguments + " '" + input.string() + "'"));
  std::filesystem::remove(input);
  PythonAnswers answers;
  std::string line;
  std::getline(output, line);
  answers.nanoseconds = std::strtod(line.c_str(), nullptr);
  while (std::getline(output, line))
    answers.lines.push_back(line);
  return answers;
}

}  // namespace tessary
