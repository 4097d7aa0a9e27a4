#pragma once

#include <cstddef>

/// The numbers that bound one run of the renderer process.
namespace tessary::RendererLimits {

/// Nice value that the process gives itself, so that a heavy document does not compete with the host's interface.
inline constexpr int niceness = 15;
/// Wall-clock seconds from start to end, the script included.
inline constexpr unsigned seconds = 4;
/// Bytes of one read from standard input.
inline constexpr std::size_t readBytes = 65'536;
/// Largest request, bytes.
inline constexpr std::size_t requestBytes = 4'194'304;
/// Largest `text` of a render request, bytes of its decoded UTF-8 form.
inline constexpr std::size_t sourceBytes = 524'288;
/// Smallest and largest `renderer.js`, bytes.
inline constexpr std::size_t smallestAssetBytes = 1;
inline constexpr std::size_t largestAssetBytes = 4'194'304;
/// Largest result, bytes of serialised JSON.
inline constexpr std::size_t resultBytes = 6'291'456;
/// Deepest nesting of objects and lists in a result; the result itself is level 1.
inline constexpr std::size_t resultDepth = 512;

}  // namespace tessary::RendererLimits
