#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "TessaryDomain/application/DocumentWebsiteURL.h"
#include "TessaryDomain/documents/DocumentLinkGraph.h"
#include "TessaryDomain/documents/LibraryOrganization.h"

using namespace tessary;

namespace {

/// What was read can be written, and is read again as the same.
template <class T>
std::optional<T> readAndAgain(std::string_view text) {
  const auto value = readJSON<T>(text);
  if (!value) return std::nullopt;
  const auto written = writeJSON(*value);
  if (!written || readJSON<T>(*written) != value) std::abort();
  return *value;
}

}  // namespace

/// An organisation that was read holds no address that the gate refuses.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto organization = readAndAgain<LibraryOrganization>(text)) {
    for (const auto& [document, address] : organization->documentSourceWebsiteURLs()) {
      if (!DocumentWebsiteURL::validated(address)) std::abort();
    }
  }
  (void)readAndAgain<DocumentLinkGraph>(text);
  return 0;
}
