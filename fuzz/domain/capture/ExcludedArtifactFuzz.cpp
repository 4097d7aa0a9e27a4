// The exclusions on paths of any bytes, held to what must be true of their answers whatever the path is. The first
// three lines are the scope, the rest is the path.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/AgentFolders.h"
#include "TessaryDomain/capture/ExcludedArtifact.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/SecretNames.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "support/Require.h"

namespace {

using namespace tessary;
using namespace tessary::CaptureRules;

using tessary::testing::require;

std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

void checkExclusion(std::string_view path, const CaptureTemporaryScope& scope) {
  const std::string written = PythonPath(path).string();
  for (const bool documents : {false, true})
    require(excludedArtifact(path, scope, documents) == excludedArtifact(written, scope, documents));
  // To want temporary documents takes nothing away.
  if (excludedArtifact(path, scope, true)) require(excludedArtifact(path, scope, false));
  if (temporaryDocument(path)) require(temporaryDocumentFolder(path) && !nonDocumentText(path));
}

void checkFolders(std::string_view path) {
  const PythonPath parsed(path);
  require(hermesRuntimeArtifact(path, std::nullopt) == hermesRuntimeArtifact(parsed, std::nullopt));
  require(codexMemoryArtifact(path) == codexMemoryArtifact(parsed.parts()));
  if (hiddenFoldersAllowed(parsed.tail(), false)) require(hiddenFoldersAllowed(parsed.tail(), true));
}

void checkNames(std::string_view name) {
  static const RegularExpression credential = PythonText::expression(SecretNames::credentialNamePattern);
  static const RegularExpression key = PythonText::expression(SecretNames::sshKeyNamePattern);
  const RegexSubject subject(name);
  if (const RegexFind found = credential.find(subject); found.isComplete)
    require(SecretNames::isCredentialName(name) == found.match.has_value());
  if (const RegexFind found = key.find(subject); found.isComplete)
    require(SecretNames::isSSHKeyName(name) == found.match.has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  CaptureTemporaryScope scope;
  scope.temporaryDirectory = takeLine(text);
  scope.resolvedTemporaryDirectory = takeLine(text);
  scope.dataFolderParent = takeLine(text);
  checkExclusion(text, scope);
  checkFolders(text);
  checkNames(text);
  return 0;
}
