#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessary::CaptureRules {

/// How long a title may be, in scalars. What is longer is cut, without a mark.
inline constexpr std::size_t longestTitle = 200;

/// The title of an artifact of this kind with this content, for which `fallback` stands where it gives none.
///
/// Of kind "html" it is the text of the page's `title`, with each run of Python's white space as one space. Otherwise,
/// and where that is empty, it is the first heading as `Headings` has it, without white space at its ends, wherever it
/// stands: one inside a code fence counts. A heading of white space alone is none, and none is looked for behind it.
/// `fallback` is cut to length like any other title, and else taken as it is.
///
/// `content` is of any size; linear time.
[[nodiscard]] std::string contentTitle(std::string_view content, std::string_view fallback, std::string_view kind);

}  // namespace tessary::CaptureRules
