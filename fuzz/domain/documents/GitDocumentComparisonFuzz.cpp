#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "TessaryDomain/documents/GitDocumentComparison.h"

using namespace tessary;

/// A link that passes leads to the one host over https; a comparison that was read is read again as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto url = GitDocumentComparison::validatedGitHubURL(text)) {
    if (url->host()->size() != GitDocumentComparison::gitHubHost.size() || url->port() || url->encodedUser())
      std::abort();
    if (url->scheme().size() != 5) std::abort();
  }
  if (const auto comparison = readJSON<GitDocumentComparison>(text)) {
    const auto written = writeJSON(*comparison);
    if (!written || readJSON<GitDocumentComparison>(*written) != comparison) std::abort();
  }
  return 0;
}
