#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "TessaryPlatform/addresses/URL.h"

/// The gate through which every website address passes before it is kept, shown or opened: it lets through what a
/// browser may open and what says plainly where it leads.
namespace tessary::DocumentWebsiteURL {

/// The longest address that is accepted, in bytes of UTF-8, as it is written.
inline constexpr std::size_t maximumBytes = 2'048;

/// The address that `text` stands for, or absent for an absent text and for one that is not acceptable: an address over
/// http or https, with a host, with neither user nor password, with a port of 1 to 65,535 or none, and with neither
/// white space nor control characters nor "\".
///
/// Control characters are the categories Cc and Cf of Unicode: also those without width, among them the ones that turn
/// the direction of writing, by which an address can be made to look like another one. An address that needs one in
/// its path can be written with its escapes; a host cannot.
///
/// The answer is in the form of `URL`, so its text is ASCII, with a Unicode host as the name that is looked up
/// ("https://bücher.example" is "https://xn--bcher-kva.example"), and can be longer than `maximumBytes`. In an ASCII
/// host escapes are undone where they can be, and have capital digits where they cannot. Otherwise letter case, path
/// and escapes stay as they are written, and nothing is added: "https://example.test" gets no "/". A validated text
/// validates again, unchanged, as long as it is not too long.
[[nodiscard]] std::optional<URL> validated(std::optional<std::string_view> text);

}  // namespace tessary::DocumentWebsiteURL
