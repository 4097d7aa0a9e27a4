#pragma once

#include <expected>
#include <string_view>

#include "TessaryRenderer/RendererFailure.h"

namespace tessary {

/// Decides whether a request may reach the script.
///
/// `request` must be JSON as `walkJSON` reads it (RFC 8259 strictly, UTF-8 without a byte order mark, at most
/// `maximumJSONNesting` levels, no escaped lone surrogate anywhere), with an object or a list on top: `other` if it is
/// not, `requestNotObject` if it is a list. If the object's `operation` is the text "render", its `text` must be a text
/// of at most `RendererLimits::sourceBytes` bytes: `sourceTooLarge` if it is not, for whatever reason. Keys and texts
/// count as what they spell, and sizes as those of the decoded UTF-8, however they are escaped. Of members with the
/// same key the last one counts, as it does for the script, whose `JSON.parse` reads the same bytes once more.
[[nodiscard]] std::expected<void, RendererFailure> checkRequest(std::string_view request);

}  // namespace tessary
