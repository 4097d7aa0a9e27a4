// The judgement of content of any bytes, held to what must be true of it whatever the content is, and the scanners to
// the expressions that they stand for. The first line is the path, or the agent where it is "codex".

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/CodeMapEntries.h"
#include "TessaryDomain/capture/Headings.h"
#include "TessaryDomain/capture/InternalArtifact.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/StructuralText.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "support/Require.h"

namespace {

using namespace tessary;
using CaptureRules::internalArtifact;

using tessary::testing::require;

void checkScanners(std::string_view text) {
  static const RegularExpression heading = PythonText::expression(Headings::pattern());
  static const RegularExpression entry = PythonText::expression(CodeMapEntries::pattern());
  const RegexSubject subject(text);
  if (const RegexFindAll found = heading.findAll(subject); found.isComplete) {
    const std::vector<std::string_view> headings = Headings::matches(text);
    require(std::ranges::equal(headings, found.matches, {}, {},
                               [text](const RegexMatch& match) { return match.group(1)->in(text); }));
  }
  if (const RegexFindAll found = entry.findAll(subject); found.isComplete)
    require(CodeMapEntries::count(text, std::numeric_limits<std::size_t>::max()) == found.matches.size());
}

void checkStructure(std::string_view text) {
  const std::string structure = structuralText(text);
  require(structure.size() <= text.size());
  // What is kept holds no fence, so that only an empty last line can be lost once more.
  const std::string again = structuralText(structure);
  require(structure == again || structure == again + '\n');
}

void checkMarker(std::string content) {
  content.insert(0, CaptureRules::internalArtifactMarker);
  const bool isInternal = internalArtifact(content, "a", std::nullopt, std::nullopt);
  require(isInternal == (!content.contains('\0') && content.size() <= CaptureRules::internalArtifactByteLimit));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view place = text.substr(0, end);
  const std::string_view content = text.substr(std::min(end + 1, text.size()));
  const bool isAnswer = place == "codex";
  const auto path = isAnswer ? std::nullopt : std::optional(place);
  if (internalArtifact(content, path, place, "candidate")) {
    require(!content.contains('\0'));
    require(!internalArtifact(std::string(content) + '\0', path, place, "candidate"));
  }
  checkScanners(content);
  checkStructure(content);
  checkMarker(std::string(content));
  return 0;
}
