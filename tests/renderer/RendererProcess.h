#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "support/TemporaryFolder.h"

namespace tessary::testing {

/// How a child process ended and what it left.
struct ProcessEnd {
  /// The exit status, or -1 if a signal ended it.
  int status = -1;
  /// The signal that ended it, or 0.
  int signal = 0;
  std::string output;
  std::string errors;

  bool operator==(const ProcessEnd&) const = default;
};

/// How a failing test shows it.
void PrintTo(const ProcessEnd& end, std::ostream* stream);

/// One run of a child process: everything that a parent can choose.
struct ProcessStart {
  std::string program;
  std::vector<std::string> arguments;
  std::string input;
  /// How many bytes each write to its standard input takes.
  std::size_t chunkBytes = 65'536;
  /// "NAME=value"; nothing is inherited beside them but what the sanitizers read.
  std::vector<std::string> environment;
  /// Runs in the child directly before the program; only what is safe after fork.
  std::function<void()> beforeStart;
  /// Runs in the parent, with the child's process number, once the child has taken its whole input.
  std::function<void(int child)> meanwhile;
  /// Leaves standard input open, without an end, until the child is gone.
  bool withholdsEnd = false;
  /// Lets the child lower its priority, as the renderer does first of all. Otherwise the kernel makes it believe that
  /// it has: on a busy machine a process of the lowest priorities gets some hundredths of a second in its four seconds,
  /// and would tell of the load instead of the code. (The child then starts with a system call filter of the test's.)
  bool lowersPriority = false;
};

/// Runs the child to its end. Its output is read while its input is written, so that neither side waits for the other.
[[nodiscard]] ProcessEnd runProcess(const ProcessStart& start);

/// A start of the renderer under test over an asset folder.
[[nodiscard]] ProcessStart rendererStart(const std::filesystem::path& assets, std::string input = "{}");

/// The renderer's end over an asset that is this script.
[[nodiscard]] ProcessEnd runScript(std::string_view script, std::string input = "{}");

/// The same, over an asset whose `render` has this body; it sees `request` and `token`.
[[nodiscard]] ProcessEnd runRender(std::string_view body, std::string input = "{}");

/// How the renderer ends with a result, and with each failure.
[[nodiscard]] ProcessEnd succeededWith(std::string output);
[[nodiscard]] ProcessEnd failedWith(std::string_view message);

/// The texts that hosts compare, spelled out once more.
inline constexpr std::string_view wrongArguments = "Expected --assets followed by the renderer asset directory.";
inline constexpr std::string_view requestTooLarge = "Renderer request exceeds input limit.";
inline constexpr std::string_view requestNotObject = "Renderer request must be a JSON object.";
inline constexpr std::string_view sourceTooLarge = "Source exceeds renderer input limit.";
inline constexpr std::string_view assetsUnavailable = "Renderer assets are unavailable.";
inline constexpr std::string_view unsafeDocument = "This document could not be rendered safely.";
inline constexpr std::string_view resultTooLarge = "Rendered document exceeds output limit.";
inline constexpr std::string_view generic = "Invalid renderer input or assets.";

/// An asset whose `render` returns what it was asked.
inline constexpr std::string_view echo = "var TessaryOfflineRenderer = {render(request) { return {request}; }};";

}  // namespace tessary::testing
