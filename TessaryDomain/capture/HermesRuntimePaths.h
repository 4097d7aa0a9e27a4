#pragma once

#include <span>
#include <string>

namespace tessary {

/// True for what the agent Hermes keeps for itself below its home: its caches, sessions, state and the like, and the
/// book-keeping among its skills. `components` are those of the path behind the home, the file name included; a profile
/// ("profiles", its name, and more) is a home of its own. Compared exactly.
[[nodiscard]] bool isHermesRuntimeRelativePath(std::span<const std::string> components) noexcept;

}  // namespace tessary
