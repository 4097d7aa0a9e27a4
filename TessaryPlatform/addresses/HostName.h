#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Names of hosts beyond ASCII.
namespace tessary::HostName {

/// The ASCII form of a Unicode host name, labels in Punycode: IDNA by UTS 46 as browsers apply it, non-transitional
/// ("ß" is kept), with the rules for bidirectional labels and for joiners, and with hyphens anywhere in a label. The
/// full stops of other scripts separate labels too. Letters are lower-cased and compatibility forms replaced, so the
/// answer may hold any printable ASCII character that the name holds in such a form.
///
/// Absent for a name that those rules refuse, for one that is ill-formed UTF-8, empty, or longer than the name system
/// carries (63 bytes of ASCII in a label, 253 in all), and for more than `URL::maximumUnicodeHostBytes` bytes: a bound
/// on the time that Punycode takes, which is not linear.
[[nodiscard]] std::optional<std::string> toASCII(std::string_view name);

}  // namespace tessary::HostName
