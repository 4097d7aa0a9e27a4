#include "TessaryPlatform/text/Casing.h"

#include <algorithm>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/TextPieces.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

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
    std::ranges::transform(text, lowered.begin(), lowercasedASCII<char>);
    return lowered;
  }
  // ICU hands broken sequences on as they stand.
  if (!isWellFormedUTF8(text)) return lowercasedInPieces(repairedUTF8(text), size);
  lowered.reserve(text.size() + text.size() / 2);
  icu::StringByteSink<std::string> sink(&lowered);
  UErrorCode status = U_ZERO_ERROR;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view piece = rest.substr(0, pieceEnd(rest, size, standsBetweenWords));
    icu::CaseMap::utf8ToLower("", 0, icu::StringPiece(piece), sink, nullptr, status);
    rest.remove_prefix(piece.size());
  }
  // It can fail for want of memory only. Text that is not lowered is better than text of which a part is lost.
  return U_SUCCESS(status) ? lowered : std::string(text);
}

std::string lowercased(std::string_view text) {
  return lowercasedInPieces(text, longestPieces);
}

}  // namespace tessary
