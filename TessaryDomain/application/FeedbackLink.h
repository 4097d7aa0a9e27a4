#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "TessaryDomain/application/FeedbackEnvironment.h"
#include "TessaryPlatform/addresses/URL.h"

namespace tessary {

/// What a user has to say.
enum class FeedbackKind : std::uint8_t { bug, feature };

/// Where a user says it: a form of the product's public repository, filled in with what can be known beforehand.
namespace FeedbackLink {

/// The public repository that takes reports.
inline constexpr std::string_view repository = "https://github.com/kelvane/tessary";

/// The address of a new report. It carries the version of the application, and the system and the machine only for a
/// bug: a wish does not depend on them. Whatever the texts of the environment hold, each stays within its field.
/// Absent only if the repository's address were none.
[[nodiscard]] std::optional<URL> url(FeedbackKind kind, const FeedbackEnvironment& environment);

}  // namespace FeedbackLink

}  // namespace tessary
