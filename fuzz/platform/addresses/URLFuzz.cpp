#include <cstddef>
#include <cstdint>
#include <string_view>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/addresses/URL.h"
#include "support/Require.h"

using namespace tessary;

namespace {

using tessary::testing::require;

void checkForm(const URL& url) {
  for (const char byte : url.text())
    require(byte > ' ' && byte < 0x7F && byte != '\\');
  require(PercentEncoding::decoded(url.text()).has_value());
  require(URL::parse(url.text()) == url);
  require(!url.scheme().empty());
  require(url.encodedHost().has_value() == url.host().has_value());
  require(url.encodedUser() || !url.encodedPassword());
  if (url.encodedHost()) {
    require(url.encodedPath().empty() || url.encodedPath().starts_with('/'));
    require(url.encodedHost()->find_first_of("/?#@") == std::string_view::npos);
  } else {
    require(!url.encodedUser() && !url.port() && !url.encodedPath().starts_with("//"));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto url = URL::parse(text)) checkForm(*url);
  if (const auto url = URL::ofFile(text)) {
    checkForm(*url);
    require(PercentEncoding::decoded(url->encodedPath()) == text);
  }
  require(PercentEncoding::decoded(PercentEncoding::encoded(text)) == text);
  return 0;
}
