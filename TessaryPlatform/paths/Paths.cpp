#include "TessaryPlatform/paths/Paths.h"

#include <array>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <unistd.h>

namespace tessary::Paths {
namespace {

constexpr std::string_view defaultTemporaryFolder = "/tmp";

/// `path` without slashes at its end; of slashes alone nothing is left.
std::string_view withoutTrailingSlashes(std::string_view path) {
  return path.substr(0, path.find_last_not_of('/') + 1);
}

/// An absolute path of a variable, without slashes at its end.
std::optional<std::string> folder(std::optional<std::string_view> value) {
  if (!value || !value->starts_with('/')) return std::nullopt;
  const std::string_view trimmed = withoutTrailingSlashes(*value);
  return std::string(trimmed.empty() ? "/" : trimmed);
}

/// Takes the next component off `rest`; an empty one between two slashes, and behind the last.
std::string_view takeComponent(std::string_view& rest) {
  const std::string_view component = rest.substr(0, rest.find('/'));
  rest.remove_prefix(component.size() == rest.size() ? component.size() : component.size() + 1);
  return component;
}

/// Goes from the folder `path` to its `component`. `path` is written like "/a/b" behind its first `kept` bytes, which
/// stand for the root.
void enter(std::string& path, std::string_view component, std::size_t kept) {
  if (component.empty() || component == ".") return;
  if (component == "..") {
    if (path.size() > kept) path.resize(path.rfind('/'));
    return;
  }
  path += '/';
  path += component;
}

/// Where the link at `path` leads; absent for anything but a link.
std::optional<std::string> linkTarget(const std::string& path) {
  if (path.size() >= PATH_MAX) return std::nullopt;
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
  // A target that fills the buffer may have been cut, and none that long can be opened.
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return std::nullopt;
  return std::string(target.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::optional<std::string> environmentValue(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::optional<std::string> homeFolder(std::optional<std::string_view> home) {
  return folder(home);
}

std::string temporaryFolder(std::optional<std::string_view> tmpdir) {
  return folder(tmpdir).value_or(std::string(defaultTemporaryFolder));
}

std::string expandingTilde(std::string_view path, std::string_view home) {
  if (path == "~") return std::string(home);
  if (!path.starts_with("~/")) return std::string(path);
  return std::string(withoutTrailingSlashes(home)).append(path.substr(1));
}

std::string appending(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  return std::string(withoutTrailingSlashes(folder)).append("/").append(name);
}

std::optional<std::string> standardized(std::string_view path) {
  if (!path.starts_with('/')) return std::nullopt;
  std::string result;
  result.reserve(path.size());
  while (!path.empty())
    enter(result, takeComponent(path), 0);
  if (result.empty()) result = "/";
  return result;
}

/// Walks the path from the root. Every folder walked through is free of links, so the last component is the only one
/// of which the kernel is asked; where it is a link, its target is put in front of what is still to walk.
std::string resolvingLinks(std::string_view path, std::string_view root) {
  if (!path.starts_with('/') || path.contains('\0') || root.contains('\0')) return std::string(path);
  std::string walked(withoutTrailingSlashes(root));
  const std::size_t rootLength = walked.size();
  std::string pending(path);
  std::string_view rest = pending;
  int linkCount = 0;
  while (!rest.empty()) {
    const std::string_view component = takeComponent(rest);
    const std::size_t folderLength = walked.size();
    enter(walked, component, rootLength);
    if (walked.size() <= folderLength) continue;
    const auto target = linkTarget(walked);
    if (!target) continue;
    if (++linkCount > maximumLinks) return standardized(path).value_or(std::string(path));
    walked.resize(target->starts_with('/') ? rootLength : folderLength);
    pending = *target + '/' + std::string(rest);
    rest = pending;
  }
  walked.erase(0, rootLength);
  return walked.empty() ? "/" : walked;
}

std::string_view lastComponent(std::string_view path) {
  const std::string_view trimmed = withoutTrailingSlashes(path);
  if (trimmed.empty()) return path.substr(0, 1);
  return trimmed.substr(trimmed.rfind('/') + 1);
}

std::string_view extension(std::string_view path) {
  const std::string_view name = lastComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || name.find_first_not_of('.') > dot) return {};
  return name.substr(dot + 1);
}

}  // namespace tessary::Paths
