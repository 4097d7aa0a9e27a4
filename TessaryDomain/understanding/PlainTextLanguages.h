#pragma once

#include <array>
#include <string_view>

#include "TessaryDomain/capture/WordSet.h"

namespace tessary::DocumentSummaryExtractor {

/// The languages of code that are text for people to read, and not source code: they have a summary, and count as
/// prose. Compared exactly.
inline constexpr WordSet plainTextLanguages(std::to_array<std::string_view>({"plaintext", "rst", "adoc"}));

}  // namespace tessary::DocumentSummaryExtractor
