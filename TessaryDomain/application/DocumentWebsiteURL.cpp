#include "TessaryDomain/application/DocumentWebsiteURL.h"

#include <algorithm>
#include <string>

#include <unicode/uchar.h>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary::DocumentWebsiteURL {
namespace {

/// Characters that a reader of an address does not see, or not as part of it. The separators and Cc hold every
/// character with the property White_Space.
bool isSpaceOrControl(char32_t scalar) {
  return (U_MASK(u_charType(static_cast<UChar32>(scalar))) & (U_GC_Z_MASK | U_GC_CC_MASK | U_GC_CF_MASK)) != 0;
}

/// True for text that holds no space or control character and none of `forbidden`, which is ASCII.
bool holdsNone(std::string_view text, std::string_view forbidden) {
  return std::ranges::none_of(ScalarView(text), [&](char32_t scalar) {
    return isSpaceOrControl(scalar) || (scalar < 0x80 && forbidden.contains(static_cast<char>(scalar)));
  });
}

/// What stands between the "//" of an address and its path, escapes undone. `text` is an address with a host.
std::optional<std::string> writtenAuthority(std::string_view text) {
  text.remove_prefix(text.find("//") + 2);
  return PercentEncoding::decoded(text.substr(0, text.find_first_of("/?#")));
}

bool isWebScheme(std::string_view scheme) {
  std::string lowered(scheme);
  std::ranges::transform(lowered, lowered.begin(), lowercasedASCII<char>);
  return lowered == "https" || lowered == "http";
}

}  // namespace

std::optional<URL> validated(std::optional<std::string_view> text) {
  // There is an address of a length that people and programs still handle.
  if (!text || text->empty() || text->size() > maximumBytes) return std::nullopt;
  // Nothing in it that browsers rewrite or readers overlook.
  if (!holdsNone(*text, "\\")) return std::nullopt;
  // It has the grammar of an address.
  auto url = URL::parse(*text);
  if (!url) return std::nullopt;
  // It leads into the web.
  if (!isWebScheme(url->scheme())) return std::nullopt;
  // It names a host, and no escape in the name hides what other readers would end the host with.
  const auto host = url->host();
  if (!host || host->empty() || !holdsNone(*host, "\\/@?#%")) return std::nullopt;
  // Nor does an escape hide what has no width: the name that is looked up has lost it, so it is sought where it is
  // written.
  const auto written = writtenAuthority(*text);
  if (!written || !holdsNone(*written, "\\")) return std::nullopt;
  // It carries no credentials, and no user that looks like a host.
  if (url->encodedUser() || url->encodedPassword()) return std::nullopt;
  // Its port can be connected to; the type knows no port above 65,535, and reading refuses one.
  if (url->port() == 0) return std::nullopt;
  return url;
}

}  // namespace tessary::DocumentWebsiteURL
