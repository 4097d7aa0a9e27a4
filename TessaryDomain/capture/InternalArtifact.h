#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// What only looks like a document, as its content tells: working papers of the product and of agents.
namespace tessary::CaptureRules {

/// How many bytes of UTF-8 a content may have; a longer one is never looked at, and is shown.
inline constexpr std::size_t internalArtifactByteLimit = 524288;

/// What a content begins with that says of itself that it is internal, behind a byte order mark, blanks and line ends.
inline constexpr std::string_view internalArtifactMarker = "<!-- tessary:internal -->";

/// True for content that is internal: it begins with `internalArtifactMarker`; or it is a file "capture_contract.md" or
/// "code_map.md" in a folder "docs" and has the structure of the product's own; or it has no `sourcePath`, is a
/// "candidate" of the agent "codex", and is the summary that such an agent writes for its own memory. Content that is
/// absent, longer than `internalArtifactByteLimit`, or holds U+0000 is none, so that what is in doubt stays visible.
/// Linear time, any bytes.
[[nodiscard]] bool internalArtifact(std::optional<std::string_view> content, std::optional<std::string_view> sourcePath,
                                    std::optional<std::string_view> agent, std::optional<std::string_view> kind);

}  // namespace tessary::CaptureRules
