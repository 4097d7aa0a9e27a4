// Extensions, times and titles out of any bytes. An extension's normal form is its own; a time is the same when it is
// remembered; a title is never too long, is the fallback where the content gives none, and comes out of an exactly
// sized copy as well. The first line of the input is the fallback, extension and time, the rest the content.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/CaptureRules.h"
#include "TessaryDomain/capture/Headings.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

namespace {

namespace CaptureRules = tessary::CaptureRules;

using tessary::testing::require;

void checkExtension(std::string_view text) {
  const std::optional<std::string> normal = CaptureRules::normalizedExtension(text);
  if (!normal) return;
  require(!normal->empty() && normal->size() <= 20 && tessary::isASCII(*normal));
  require(CaptureRules::normalizedExtension(*normal) == normal);
  require(CaptureRules::normalizedExtension(" ." + *normal + "\n") == normal);
}

void checkTime(std::string_view text) {
  tessary::EventTimes times;
  const std::optional<double> seconds = times.seconds(text);
  require(times.seconds(text) == seconds);
  require(times.holds(text) == (tessary::isASCII(text) && text.size() <= tessary::EventTimes::longestText));
  if (seconds) require(std::isfinite(*seconds) && std::abs(*seconds) < 3e11);
}

void checkTitle(std::string_view content, std::string_view fallback, std::string_view kind) {
  const std::string title = CaptureRules::contentTitle(content, fallback, kind);
  require(tessary::scalarCount(title) <= CaptureRules::longestTitle);
  if (kind == "html" || tessary::Headings::find(content)) return;
  require(std::string_view(fallback).starts_with(title));
  require(title == fallback || tessary::scalarCount(title) == CaptureRules::longestTitle);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<char> exact(data, data + size);
  const std::string_view text(exact.data(), exact.size());
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  const std::string_view content = text.substr(std::min(end + 1, text.size()));
  checkExtension(line);
  checkTime(line);
  checkTitle(content, line, "markdown");
  checkTitle(content, line, "html");
  return 0;
}
