#include "TessaryPlatform/addresses/HostName.h"

#include <cstdint>
#include <memory>

#include <unicode/bytestream.h>
#include <unicode/idna.h>
#include <unicode/stringpiece.h>
#include <unicode/uidna.h>

#include "TessaryPlatform/addresses/URL.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary::HostName {
namespace {

/// What the name system of today holds against the rules of yesterday: names of large sites have hyphens in the third
/// and fourth place.
constexpr std::uint32_t toleratedErrors =
    UIDNA_ERROR_LEADING_HYPHEN | UIDNA_ERROR_TRAILING_HYPHEN | UIDNA_ERROR_HYPHEN_3_4;

/// Built on first use and shared from then on; ICU's instance is immutable. Null where ICU's data is missing.
const icu::IDNA* converter() {
  static const std::unique_ptr<const icu::IDNA> instance = [] {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<const icu::IDNA>(icu::IDNA::createUTS46Instance(
        UIDNA_NONTRANSITIONAL_TO_ASCII | UIDNA_CHECK_BIDI | UIDNA_CHECK_CONTEXTJ, status));
  }();
  return instance.get();
}

}  // namespace

std::optional<std::string> toASCII(std::string_view name) {
  if (name.size() > URL::maximumUnicodeHostBytes || !isWellFormedUTF8(name) || converter() == nullptr) {
    return std::nullopt;
  }
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  icu::IDNAInfo info;
  UErrorCode status = U_ZERO_ERROR;
  converter()->nameToASCII_UTF8(icu::StringPiece(name.data(), static_cast<std::int32_t>(name.size())), sink, info,
                                status);
  if (U_FAILURE(status) || (info.getErrors() & ~toleratedErrors) != 0 || result.empty()) return std::nullopt;
  return result;
}

}  // namespace tessary::HostName
