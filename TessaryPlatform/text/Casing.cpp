#include "TessaryPlatform/text/Casing.h"

#include <algorithm>
#include <array>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

constexpr char lowercasedASCII(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
}

}  // namespace

std::string lowercased(std::string_view text) {
  std::string lowered;
  // OPTIMIZATION: in text of ASCII alone no mapping depends on a neighbour.
  if (isASCII(text)) {
    lowered.resize(text.size());
    std::ranges::transform(text, lowered.begin(), lowercasedASCII);
    return lowered;
  }
  // ICU hands broken sequences on as they stand.
  if (!isWellFormedUTF8(text)) return lowercased(repairedUTF8(text));
  lowered.reserve(text.size() + text.size() / 2);
  icu::StringByteSink<std::string> sink(&lowered);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToLower("", 0, icu::StringPiece(text), sink, nullptr, status);
  return lowered;
}

}  // namespace tessary
