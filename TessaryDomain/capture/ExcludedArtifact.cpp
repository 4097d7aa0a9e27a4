#include "TessaryDomain/capture/ExcludedArtifact.h"

#include <string>

#include "TessaryDomain/capture/AgentFolders.h"
#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/SecretNames.h"

namespace tessary::CaptureRules {

namespace {

/// True for an extension by which a file is a document, an image or a PDF, whatever its name is: "secrets.md" is a
/// document about secrets.
bool isSafeExtension(std::string_view extension) {
  if (!isASCII(extension)) return false;
  switch (categoryForExtension(extension)) {
    case ArtifactCategory::documents:
    case ArtifactCategory::images:
    case ArtifactCategory::pdfs:
      return true;
    default:
      return false;
  }
}

/// What the folded name of a file tells, once its place has told nothing.
bool isExcludedName(std::string_view name, std::string_view suffix) {
  // 5.-8. Files known by their names.
  if (PythonText::isMember(name, credentialFiles)) return true;
  if (name == ".env" || name.starts_with(".env.")) return true;
  if (name.starts_with("rollout") && suffix == ".jsonl") return true;
  if (name == ".ds_store") return true;
  // 9.-10. Files known by their suffixes.
  if (PythonText::isMember(suffix, keySuffixes)) return true;
  if (PythonText::isMember(suffix, systemBinarySuffixes)) return true;
  // 11. From here on only what is no document by its suffix can be a secret.
  if (isSafeExtension(suffix.substr(suffix.empty() ? 0 : 1))) return false;
  // 12.-14. Names that speak of secrets.
  if (SecretNames::isSSHKeyName(name)) return true;
  if (!PythonText::isMember(suffix, configSuffixes)) return false;
  return SecretNames::isCredentialName(name.substr(0, name.size() - suffix.size()));
}

}  // namespace

bool excludedArtifact(std::string_view path, const CaptureTemporaryScope& scope, bool temporaryDocuments) {
  // 1.-2. What agents keep for themselves.
  if (hermesRuntimeArtifact(path, std::nullopt)) return true;
  if (codexMemoryArtifact(path)) return true;
  // 3. Temporary files. The rules normalise the path or take it apart, so that it may be given to them as it stands.
  if (temporaryLocation(path, scope) && !(temporaryDocuments && temporaryDocument(path))) return true;
  // 4. Folding neither makes nor removes a ".", so that the folded suffix is the suffix of the folded name.
  std::string storage;
  const std::string_view name = PythonText::casefold(PythonPath::nameOf(path), storage);
  return isExcludedName(name, PythonPath::suffixOf(name));
}

}  // namespace tessary::CaptureRules
