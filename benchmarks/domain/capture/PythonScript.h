#pragma once

#include <string>
#include <vector>

namespace tessary {

/// What the machine's own python3 writes when it runs `script` with `arguments`, which are put into the command as they
/// stand; empty where there is no python3.
[[nodiscard]] std::string outputOfPython(const std::string& script, const std::string& arguments);

/// What a script says of texts that it was given.
struct PythonAnswers {
  /// The time per text; 0 where the script did not run.
  double nanoseconds = 0;
  /// One line for each text.
  std::vector<std::string> lines;
};

/// Runs a script whose last argument is a file of texts separated by zero bytes, and which writes a number of
/// nanoseconds and then its answers, each in a line. `arguments` stand before the file.
[[nodiscard]] PythonAnswers askPython(const std::string& script, const std::string& arguments,
                                      const std::vector<std::string>& texts);

}  // namespace tessary
