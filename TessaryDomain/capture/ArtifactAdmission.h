#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/capture/CapturePreferences.h"
#include "TessaryDomain/capture/ResolvedCapturePolicy.h"

/// Whether the user's choices let an artifact in. Times are in seconds since 1970-01-01T00:00:00Z, and every time
/// from which something is captured belongs to what is captured.
namespace tessary::CaptureRules {

/// The normal form of an extension, as `normalExtension` has it, of `text` without Python's white space at its ends.
/// (`CapturePreferences::normalizedExtension` trims the property White_Space, which lacks U+001C to U+001F.)
[[nodiscard]] std::optional<std::string> normalizedExtension(std::string_view text);

/// Whether a file is captured. An `extension` of "" means that the file has none; an absent one that nothing is to hang
/// on it. A listed extension lets a file in, an unlisted one only a file of the category `other`, and only with
/// `includeUnlistedExtensions`. Of all times that concern the file the latest governs. A file whose own time is not
/// known is held back by none.
[[nodiscard]] bool artifactAllowed(ArtifactCategory category, std::optional<double> modifiedAt,
                                   std::optional<std::string_view> extension, const ResolvedCapturePolicy& policy);

/// Whether an artifact passes the user's choice about what agents answer without writing a file. That concerns
/// artifacts of the kind "candidate" without a path of a file, unless they are plans, by their category or by the event
/// that they come from; all others pass. An answer whose time is not known does not pass where a time is set: unlike a
/// file, it can be an old one that is read again.
[[nodiscard]] bool assistantResponseAllowed(std::optional<std::string_view> kind, bool hasSourcePath,
                                            std::optional<ArtifactCategory> artifactCategory,
                                            std::optional<std::string_view> originEvent,
                                            std::optional<double> observedAt, const ResolvedCapturePolicy& policy);

/// Whether an artifact passes the user's choice about what subagents make. Where `isSubagent` is absent, an artifact is
/// a subagent's if it is a `response` and `isSubagentResponse`. A time in the preferences that cannot be read lets
/// nothing in, and neither does one where `observedAt` is absent.
[[nodiscard]] bool subagentArtifactAllowed(std::optional<bool> isSubagent, bool isSubagentResponse, bool response,
                                           std::optional<double> observedAt, const CapturePreferences& preferences);

}  // namespace tessary::CaptureRules
