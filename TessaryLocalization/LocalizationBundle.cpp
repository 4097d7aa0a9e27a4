#include "TessaryLocalization/LocalizationBundle.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/paths/Paths.h"

namespace tessary::LocalizationBundle {
namespace {

bool isFolder(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

std::string_view parentFolder(std::string_view path) {
  return path.substr(0, path.find_last_of('/') == std::string_view::npos ? 0 : path.find_last_of('/'));
}

/// Closes a file when it is left.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

FileError lastError() {
  return {.isMissing = errno == ENOENT, .reason = std::strerror(errno)};
}

}  // namespace

Places places(std::string_view executable, std::string_view shareFolder) {
  const std::string_view folder = parentFolder(executable);
  const std::string ownShare = Paths::appending(parentFolder(folder), "share/tessary");
  const bool isInstalled = Paths::lastComponent(folder) == "bin" && isFolder(ownShare);
  return {.besideExecutable = Paths::appending(folder, folderName),
          .installed = Paths::appending(isInstalled ? ownShare : shareFolder, folderName)};
}

Places places() {
  std::error_code error;
  const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
  return places(executable.native(), TESSARY_SHARE_FOLDER);
}

std::expected<std::string, std::string> resources(const Places& places) {
  for (const std::string* path : {&places.besideExecutable, &places.installed})
    if (isFolder(*path)) return Paths::appending(*path, "Resources");
  return std::unexpected("could not load resource bundle: from " + places.besideExecutable + " or " + places.installed);
}

const std::string& sharedResources() {
  static const std::string found = [] {
    std::expected<std::string, std::string> path = resources(places());
    if (!path) fail(path.error());
    return *std::move(path);
  }();
  return found;
}

void fail(std::string_view text) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
  std::abort();
}

std::expected<std::string, FileError> readFile(const std::string& path) {
  const OpenFile file(path);
  if (file.descriptor() < 0) return std::unexpected(lastError());
  struct stat status{};
  if (::fstat(file.descriptor(), &status) != 0) return std::unexpected(lastError());
  std::string bytes;
  bytes.resize(static_cast<std::size_t>(std::max<off_t>(status.st_size, 0)) + 1);
  std::size_t size = 0;
  while (true) {
    if (size == bytes.size()) bytes.resize(size * 2);
    const ssize_t count = ::read(file.descriptor(), bytes.data() + size, bytes.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::unexpected(lastError());
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
  }
  bytes.resize(size);
  return bytes;
}

std::vector<std::string> jsonFiles(const std::string& folder) {
  std::vector<std::pair<std::string, std::string>> urlsAndPaths;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string& path = entry->path().native();
    if (path.ends_with(".json"))
      urlsAndPaths.emplace_back(PercentEncoding::encoded(path, PercentEncoding::pathCharacters), path);
  }
  std::ranges::sort(urlsAndPaths);
  std::vector<std::string> contents;
  for (const auto& [url, path] : urlsAndPaths)
    if (std::expected<std::string, FileError> bytes = readFile(path)) contents.push_back(*std::move(bytes));
  return contents;
}

}  // namespace tessary::LocalizationBundle
