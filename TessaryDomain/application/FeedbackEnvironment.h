#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace tessary {

/// What a package says of the application in it; texts as the host gives them.
struct ApplicationBundle {
  /// Such as "1.4.2".
  std::string version;
  /// Such as "1402".
  std::string build;

  bool operator==(const ApplicationBundle&) const = default;
};

/// The application and the machine it runs on, as far as somebody who reads a report of a problem has to know them. It
/// names neither the user nor the machine.
struct FeedbackEnvironment {
  std::string appVersion;
  std::string build;
  /// The processor architecture that the product was built for, such as "x86_64".
  std::string architecture;
  /// The operating system and its kernel; named after the system on which the product began, as the field of the report
  /// is.
  std::string macOS;
  /// The machine's model.
  std::string model;

  /// This machine: `macOS` is the name and version of the distribution followed by the kernel's release in parentheses
  /// ("Debian GNU/Linux 12 (6.1.0-18-amd64)"), `model` the product name that the firmware gives.
  ///
  /// The distribution is told by its file os-release (os-release(5)); one that tells nothing is "Linux". The model is
  /// "unknown" where the firmware tells none. No part holds control characters or more than `maximumPartCharacters`
  /// characters (grapheme clusters). `root` is the folder in which the system's files are looked for.
  [[nodiscard]] static FeedbackEnvironment current(const ApplicationBundle& bundle,
                                                   const std::filesystem::path& root = "/");

  /// The most characters of each part that `current` finds out.
  static constexpr std::size_t maximumPartCharacters = 128;

  /// One line for a reader: "Tessary 1.4.2 (1402) · x86_64 · Debian GNU/Linux 12 (6.1.0-18-amd64) · ThinkPad X1".
  [[nodiscard]] std::string diagnosticsLine() const;

  bool operator==(const FeedbackEnvironment&) const = default;
};

}  // namespace tessary
