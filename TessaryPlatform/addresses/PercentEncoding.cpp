#include "TessaryPlatform/addresses/PercentEncoding.h"

#include <cstddef>

namespace tessary::PercentEncoding {
namespace {

constexpr std::string_view hexadecimalDigits = "0123456789ABCDEF";

/// The value of a hexadecimal digit, or -1 for another byte.
constexpr int digitValue(char byte) {
  if (byte >= '0' && byte <= '9') return byte - '0';
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  return -1;
}

}  // namespace

std::string encoded(std::string_view text, const ASCIISet& kept) {
  std::string result;
  result.reserve(text.size());
  for (const char byte : text) {
    if (kept.contains(byte)) {
      result += byte;
      continue;
    }
    const auto value = static_cast<unsigned char>(byte);
    result += '%';
    result += hexadecimalDigits[value >> 4U];
    result += hexadecimalDigits[value & 0xFU];
  }
  return result;
}

std::optional<std::string> decoded(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (text[position] != '%') {
      result += text[position];
      continue;
    }
    if (text.size() - position < 3) return std::nullopt;
    const int high = digitValue(text[position + 1]);
    const int low = digitValue(text[position + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    result += static_cast<char>(high * 16 + low);
    position += 2;
  }
  return result;
}

}  // namespace tessary::PercentEncoding
