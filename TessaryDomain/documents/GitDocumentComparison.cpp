#include "TessaryDomain/documents/GitDocumentComparison.h"

#include "TessaryDomain/application/DocumentWebsiteURL.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

/// Whether a ":" stands behind the host of an address without a user: an empty port is gone from the URL that was read.
bool hasWrittenPort(std::string_view address) {
  address.remove_prefix(address.find("//") + 2);
  return address.substr(0, address.find_first_of("/?#")).contains(':');
}

}  // namespace

std::optional<URL> GitDocumentComparison::validatedGitHubURL(std::optional<std::string_view> text) {
  auto url = DocumentWebsiteURL::validated(text);
  if (!url || lowercased(url->scheme()) != "https") return std::nullopt;
  if (lowercased(*url->host()) != gitHubHost) return std::nullopt;
  if (hasWrittenPort(*text)) return std::nullopt;
  return url;
}

}  // namespace tessary
