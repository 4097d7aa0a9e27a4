#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/PythonHTMLTitleParser.h"      // IWYU pragma: export
#include "TessaryDomain/capture/PythonHTMLTitleReferences.h"  // IWYU pragma: export

/// What capture reads out of an HTML page: its title, and the images and style sheets that it draws in. The scanner
/// itself is `Parser`, the decoding of character references `unescape`.
///
/// Pages are UTF-8; ill-formed bytes read as U+FFFD. Any input gives an answer, in linear time.
namespace tessary::PythonHTMLTitle {

/// Something outside the page that the page draws in.
struct ResourceReference {
  /// The address as the page gives it, character references decoded; not empty.
  std::string reference;
  /// "image" or "css".
  std::string kind;

  bool operator==(const ResourceReference&) const = default;
};

/// After how many start tags `resourceReferences` stops looking.
inline constexpr std::size_t resourceReferenceTagLimit = 4096;

/// The text of the page's `title` elements, one behind the other, character references decoded and white space as it
/// stands. Empty where there is none, and where the first is never closed: the page is read as CPython's `feed` does
/// without `close`, which waits for the end.
[[nodiscard]] std::string text(std::string_view html);

/// The `src` of each `img` and the `href` of each `link` whose `rel` holds "stylesheet" (in any case, among others), in
/// the order of the page. Nothing inside "script", "template", "noscript" or "textarea" counts, no empty address, and
/// nothing behind the first 4,096 start tags. Of attributes with one name the first counts.
[[nodiscard]] std::vector<ResourceReference> resourceReferences(std::string_view html);

}  // namespace tessary::PythonHTMLTitle
