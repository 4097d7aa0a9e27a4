#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryPlatform/paths/Paths.h"
#include "support/Require.h"

using namespace tessary;

namespace {

using tessary::testing::require;

/// An absolute path whose components are neither empty nor dots.
bool isStandard(std::string_view path) {
  if (path == "/") return true;
  if (!path.starts_with('/') || path.ends_with('/')) return false;
  const std::string closed = std::string(path) + "/";
  for (const std::string_view piece : {"//", "/./", "/../"}) {
    if (closed.contains(piece)) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view path(reinterpret_cast<const char*>(data), size);
  const auto standardized = Paths::standardized(path);
  require(standardized.has_value() == path.starts_with('/'));
  if (standardized) {
    require(isStandard(*standardized));
    require(Paths::standardized(*standardized) == standardized);
    // Nothing is a link below a folder that does not exist.
    if (!path.contains('\0')) require(Paths::resolvingLinks(path, "/nonexistent-root") == standardized);
  }
  const std::string_view name = Paths::lastComponent(path);
  require(path.empty() || !name.empty());
  require(name.ends_with(Paths::extension(path)));
  (void)Paths::expandingTilde(path, path);
  (void)Paths::appending(path, path);
  (void)Paths::temporaryFolder(path);
  (void)Paths::homeFolder(path);
  return 0;
}
