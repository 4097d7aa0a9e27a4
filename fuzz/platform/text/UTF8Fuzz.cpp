#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <unicode/unistr.h>

#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/Normalization.h"
#include "TessaryPlatform/text/TextPieces.h"
#include "TessaryPlatform/text/UTF8.h"
#include "TessaryPlatform/text/WhiteSpace.h"
#include "support/Require.h"

// Any bytes: every road between the encodings gives the same text, in both directions, and agrees with ICU; and what
// ICU is handed in pieces becomes what the whole would.

namespace {

using tessary::testing::require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string repaired = tessary::repairedUTF8(text);
  require(tessary::isWellFormedUTF8(repaired));
  require(tessary::isWellFormedUTF8(text) == (repaired == text));
  const std::u16string units = tessary::toUTF16(text);
  const icu::UnicodeString byICU = icu::UnicodeString::fromUTF8(icu::StringPiece(text));
  require(byICU == icu::UnicodeString(false, units.data(), static_cast<int32_t>(units.size())));
  require(tessary::toUTF8(units) == repaired);
  const std::u32string scalars = tessary::toScalars(text);
  require(tessary::toUTF8(scalars) == repaired);
  require(tessary::scalarCount(text) == scalars.size());
  std::size_t end = size;
  for (std::size_t index = scalars.size(); index > 0; --index) {
    const std::size_t start = tessary::previousScalarStart(text, end);
    const tessary::DecodedScalar decoded = tessary::decodeScalar(text, start);
    require(decoded.scalar == scalars[index - 1] && start + decoded.byteCount == end);
    end = start;
  }
  require(end == 0);
  std::u16string anyUnits(size / 2, u'\0');
  for (std::size_t index = 0; index < anyUnits.size(); ++index)
    anyUnits[index] = static_cast<char16_t>(data[2 * index] << 8 | data[2 * index + 1]);
  require(tessary::isWellFormedUTF8(tessary::toUTF8(anyUnits)));
  require(tessary::isWellFormedUTF8(tessary::lowercased(text)));
  const std::string normalized = tessary::normalizedToFormC(text);
  require(tessary::normalizedToFormC(normalized) == normalized);
  constexpr tessary::PieceSize smallPieces{.least = 3, .most = std::size_t{1} << 28};
  require(tessary::lowercasedInPieces(text, smallPieces) == tessary::lowercased(text));
  require(tessary::normalizedToFormCInPieces(text, smallPieces) == normalized);
  require(tessary::latinToASCIIInPieces(text, smallPieces) == tessary::latinToASCII(text));
  require(tessary::trimmed(text, tessary::isWhiteSpace).size() <= size);
  return 0;
}
