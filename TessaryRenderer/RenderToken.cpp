#include "TessaryRenderer/RenderToken.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <span>
#include <sys/random.h>

namespace tessary {

namespace {

constexpr std::size_t uuidBytes = 16;

/// Marks 16 random bytes as a UUID of version 4 and of the variant that RFC 9562 defines.
void stampVersion(std::span<std::uint8_t, uuidBytes> uuid) {
  uuid[6] = static_cast<std::uint8_t>((uuid[6] & 0x0F) | 0x40);
  uuid[8] = static_cast<std::uint8_t>((uuid[8] & 0x3F) | 0x80);
}

}  // namespace

std::optional<std::string> makeRenderToken() {
  std::array<std::uint8_t, 2 * uuidBytes> bytes;
  ssize_t count = 0;
  do {
    // Up to 256 bytes come whole or not at all.
    count = ::getrandom(bytes.data(), bytes.size(), 0);
  } while (count < 0 && errno == EINTR);
  if (count != static_cast<ssize_t>(bytes.size())) return std::nullopt;
  const std::span<std::uint8_t, 2 * uuidBytes> both(bytes);
  stampVersion(both.first<uuidBytes>());
  stampVersion(both.last<uuidBytes>());

  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string token;
  token.reserve(renderTokenLength);
  for (const std::uint8_t byte : bytes) {
    token.push_back(digits[byte >> 4]);
    token.push_back(digits[byte & 0x0F]);
  }
  return token;
}

}  // namespace tessary
