// Any bytes as JSON: the walker, the dynamic reader and a plain checker of the grammar agree on what is JSON, and what
// a tree writes is read as the same tree and written as the same text.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryPlatform/json/JSONTokens.h"
#include "TessaryPlatform/json/JSONValue.h"
#include "support/Require.h"

#include "ReferenceJSON.h"
#include "TestRecord.h"

namespace {

using tessary::testing::require;

/// Python's layout, which keeps floating-point numbers apart from integers.
constexpr tessary::JSONStyle style = {.separators = tessary::JSONStyle::Separators::spaced,
                                      .escapes = tessary::JSONStyle::Escapes::ascii,
                                      .numbers = tessary::JSONStyle::Numbers::python};

void checkTree(const tessary::JSONValue& tree) {
  const auto text = tree.text(style);
  // Only a number too large for a double has no form.
  if (!text) return;
  const auto again = tessary::JSONValue::parse(*text);
  require(again.has_value() && *again == tree && again->text(style) == text);
}

void checkRecord(std::string_view text, bool isJSON) {
  const auto record = tessary::readJSON<tessary::TestRecord>(text);
  if (!record) {
    require((record.error().kind == tessary::JSONDecodingError::Kind::malformed) == !isJSON);
    return;
  }
  require(isJSON);
  const auto written = tessary::writeJSON(*record);
  if (!written) return;
  const auto again = tessary::readJSON<tessary::TestRecord>(*written);
  require(again.has_value() && tessary::writeJSON(*again) == written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const bool isJSON = tessary::testing::ReferenceJSON::accepts(text, tessary::maximumJSONNesting);
  const auto walked = tessary::walkJSON(text, [](const tessary::JSONMember&) {});
  require(walked.has_value() == isJSON && tessary::walkJSON(text) == walked);
  require(tessary::findJSONFault(text).has_value() == !isJSON);
  const auto tree = tessary::JSONValue::parse(text);
  require(tree.has_value() == isJSON);
  if (tree) checkTree(*tree);
  checkRecord(text, isJSON);
  return 0;
}
