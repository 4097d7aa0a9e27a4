#include "TessaryDomain/application/FeedbackEnvironment.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {
namespace {

/// Far more than any of these files holds.
constexpr std::size_t maximumFileBytes = 65'536;

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string content(maximumFileBytes, '\0');
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(stream.gcount()));
  return content;
}

/// `text` as a part of one line: without control characters, blanks at its ends and what goes beyond the length of a
/// part.
std::string linePart(std::string_view text) {
  std::string kept;
  for (const char32_t scalar : ScalarView(text)) {
    if (scalar >= 0x20 && (scalar < 0x7F || scalar >= 0xA0)) appendScalar(kept, scalar);
  }
  const std::string_view part = trimmed(kept, isWhiteSpace);
  return std::string(characterPrefix(part, FeedbackEnvironment::maximumPartCharacters));
}

/// A value of os-release(5), which is written as a shell would read it: plain or in quotation marks, between double
/// ones with backslashes in front of characters that mean something to a shell.
std::string unquoted(std::string_view written) {
  written = trimmed(written, isWhiteSpace);
  const bool isQuoted =
      written.size() >= 2 && written.front() == written.back() && (written.front() == '"' || written.front() == '\'');
  if (!isQuoted) return std::string(written);
  const bool hasEscapes = written.front() == '"';
  written = written.substr(1, written.size() - 2);
  std::string value;
  for (std::size_t index = 0; index < written.size(); ++index) {
    if (hasEscapes && written[index] == '\\' && index + 1 < written.size()) ++index;
    value += written[index];
  }
  return value;
}

/// The value of a key of a file of lines "KEY=value"; the last one counts, as it does for a shell.
std::string valueIn(std::string_view content, std::string_view key) {
  std::string value;
  while (!content.empty()) {
    const std::string_view line = content.substr(0, content.find('\n'));
    content.remove_prefix(std::min(line.size() + 1, content.size()));
    if (line.starts_with(key) && line.substr(key.size()).starts_with('='))
      value = unquoted(line.substr(key.size() + 1));
  }
  return value;
}

/// "Debian GNU/Linux 12".
std::string distribution(const std::filesystem::path& root) {
  std::string content = contentOf(root / "etc/os-release");
  if (content.empty()) content = contentOf(root / "usr/lib/os-release");
  const std::string name = linePart(valueIn(content, "NAME"));
  const std::string version = linePart(valueIn(content, "VERSION_ID"));
  const std::string known = name.empty() ? "Linux" : name;
  return version.empty() ? known : known + " " + version;
}

std::string operatingSystem(const std::filesystem::path& root) {
  const std::string kernel = linePart(contentOf(root / "proc/sys/kernel/osrelease"));
  return kernel.empty() ? distribution(root) : distribution(root) + " (" + kernel + ")";
}

std::string machineModel(const std::filesystem::path& root) {
  std::string name = linePart(contentOf(root / "sys/class/dmi/id/product_name"));
  // Boards without such firmware describe themselves in a device tree.
  if (name.empty()) name = linePart(contentOf(root / "proc/device-tree/model"));
  return name.empty() ? "unknown" : name;
}

constexpr std::string_view builtArchitecture() {
#if defined(__x86_64__)
  return "x86_64";
#elif defined(__aarch64__)
  return "arm64";
#else
#error "name the architecture"
#endif
}

}  // namespace

FeedbackEnvironment FeedbackEnvironment::current(const ApplicationBundle& bundle, const std::filesystem::path& root) {
  return {.appVersion = bundle.version,
          .build = bundle.build,
          .architecture = std::string(builtArchitecture()),
          .macOS = operatingSystem(root),
          .model = machineModel(root)};
}

std::string FeedbackEnvironment::diagnosticsLine() const {
  return "Tessary " + appVersion + " (" + build + ") · " + architecture + " · " + macOS + " · " + model;
}

}  // namespace tessary
