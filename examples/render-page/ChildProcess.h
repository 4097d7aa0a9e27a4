#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How a child process ended, and what it wrote.
struct ChildOutcome {
  std::string output;
  /// The exit status, or absent where a signal ended the process.
  std::optional<int> status;
  /// The signal that ended the process, or 0.
  int signal = 0;
};

/// Runs `arguments[0]` with `input` on its standard input and gives what it wrote to its standard output. Absent where
/// the process could not be started.
std::optional<ChildOutcome> runChild(const std::vector<std::string>& arguments, std::string_view input);
