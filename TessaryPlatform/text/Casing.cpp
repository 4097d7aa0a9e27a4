#include "TessaryPlatform/text/Casing.h"

#include <algorithm>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include "TessaryPlatform/text/TextPieces.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

constexpr char lowercasedASCII(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
}

/// True for a scalar at which the look around a capital sigma for the rest of its word ends, in both directions.
bool standsBetweenWords(char32_t scalar) {
  const auto point = static_cast<UChar32>(scalar);
  return !u_hasBinaryProperty(point, UCHAR_CASED) && !u_hasBinaryProperty(point, UCHAR_CASE_IGNORABLE);
}

}  // namespace

std::string lowercasedInPieces(std::string_view text, PieceSize size) {
  std::string lowered;
  // OPTIMIZATION: in text of ASCII alone no mapping depends on a neighbour.
  if (isASCII(text)) {
    lowered.resize(text.size());
    std::ranges::transform(text, lowered.begin(), lowercasedASCII);
    return lowered;
  }
  // ICU hands broken sequences on as they stand.
  if (!isWellFormedUTF8(text)) return lowercasedInPieces(repairedUTF8(text), size);
  lowered.reserve(text.size() + text.size() / 2);
  icu::StringByteSink<std::string> sink(&lowered);
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, pieceEnd(text, size, standsBetweenWords));
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, icu::StringPiece(piece), sink, nullptr, status);
    text.remove_prefix(piece.size());
  }
  return lowered;
}

std::string lowercased(std::string_view text) {
  return lowercasedInPieces(text, longestPieces);
}

}  // namespace tessary
