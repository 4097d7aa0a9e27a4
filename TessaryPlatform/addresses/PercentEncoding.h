#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Percent-encoding (RFC 3986, section 2.1): a byte as "%" and two hexadecimal digits.
namespace tessary::PercentEncoding {

/// A set of ASCII characters.
class ASCIISet {
 public:
  constexpr explicit ASCIISet(std::string_view members) {
    for (const char byte : members)
      holds_[static_cast<unsigned char>(byte)] = true;
  }

  [[nodiscard]] constexpr bool contains(char byte) const { return holds_[static_cast<unsigned char>(byte)]; }

  /// The characters of both sets.
  [[nodiscard]] friend constexpr ASCIISet operator|(ASCIISet one, const ASCIISet& other) {
    for (std::size_t index = 0; index < other.holds_.size(); ++index)
      one.holds_[index] |= other.holds_[index];
    return one;
  }

 private:
  std::array<bool, 256> holds_{};
};

/// The characters that never need an escape (RFC 3986, section 2.3).
inline constexpr ASCIISet unreserved("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~");

/// What may stand in a host's name without an escape ("unreserved" and "sub-delims"; sections 3.2.2 and 2.2).
inline constexpr ASCIISet registeredName = unreserved | ASCIISet("!$&'()*+,;=");

/// What may stand in a path without an escape ("pchar" and "/"; section 3.3).
inline constexpr ASCIISet pathCharacters = registeredName | ASCIISet(":@/");

/// `text` with every byte outside `kept` escaped, in capital digits. Any bytes, "%" included where `kept` lacks it, are
/// kept apart, so that `decoded` gives them back.
[[nodiscard]] std::string encoded(std::string_view text, const ASCIISet& kept = unreserved);

/// The bytes that `text` stands for. Absent where a "%" is not followed by two hexadecimal digits of either case. The
/// answer may be ill-formed UTF-8 and may hold any byte, 0 included.
[[nodiscard]] std::optional<std::string> decoded(std::string_view text);

}  // namespace tessary::PercentEncoding
