#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "TessaryDomain/application/DocumentWebsiteURL.h"

using namespace tessary;

/// What passes the gate leads to a host and nowhere else, and passes again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto url = DocumentWebsiteURL::validated(text);
  if (!url) return 0;
  if (size > DocumentWebsiteURL::maximumBytes) std::abort();
  const auto host = url->host();
  if (!host || host->empty() || host->find_first_of("\\/@?#% \t\r\n") != std::string::npos) std::abort();
  if (url->encodedUser() || url->encodedPassword() || url->port() == 0) std::abort();
  if (url->text().size() <= DocumentWebsiteURL::maximumBytes && DocumentWebsiteURL::validated(url->text()) != url) {
    std::abort();
  }
  return 0;
}
