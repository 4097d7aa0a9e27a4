// The decoding of character references on any bytes: scalars and UTF-8 give the same text, which never grows beyond
// what its references allow, and text without "&" comes back as it is.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/PythonHTMLTitleReferences.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::u32string scalars = toScalars(text);
  const std::u32string decoded = PythonHTMLTitle::unescape(scalars);
  const std::u32string value = PythonHTMLTitle::unescapeAttribute(scalars);
  require(PythonHTMLTitle::unescape(text) == toUTF8(decoded));
  require(PythonHTMLTitle::unescapeAttribute(text) == toUTF8(value));
  require(decoded.size() <= value.size() && value.size() <= scalars.size());
  if (scalars.find(U'&') == scalars.npos) require(decoded == scalars && value == scalars);
  return 0;
}
