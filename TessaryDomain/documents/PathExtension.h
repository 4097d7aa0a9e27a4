#pragma once

#include <cstddef>
#include <string_view>

#include "TessaryPlatform/paths/Paths.h"

namespace tessary {

/// What stands behind the last "." of the last component of a path, as it is written; empty where there is no ".".
/// Unlike `Paths::extension` it takes ".gitignore" for nothing but an extension.
[[nodiscard]] inline std::string_view pathExtension(std::string_view path) {
  const std::string_view name = Paths::lastComponent(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

}  // namespace tessary
