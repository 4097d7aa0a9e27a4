#include "TessaryDomain/capture/ArtifactType.h"

#include <optional>
#include <string>

#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary::CaptureRules {
namespace {

// Absent where the extension says nothing.
std::optional<ArtifactType> typeOfExtension(std::string_view extension, bool isPlan) {
  switch (categoryForExtension(extension)) {
    case ArtifactCategory::documents:
    case ArtifactCategory::plans:
      return ArtifactType{.category = isPlan ? ArtifactCategory::plans : ArtifactCategory::documents,
                          .kind = htmlExtensions.contains(extension) ? "html" : "markdown"};
    case ArtifactCategory::images:
      return ArtifactType{.category = ArtifactCategory::images, .kind = "image"};
    case ArtifactCategory::videos:
      return ArtifactType{.category = ArtifactCategory::videos, .kind = "video"};
    case ArtifactCategory::pdfs:
      return ArtifactType{.category = ArtifactCategory::pdfs, .kind = "pdf"};
    case ArtifactCategory::code:
      return ArtifactType{.category = ArtifactCategory::code, .kind = "text"};
    case ArtifactCategory::other:
      break;
  }
  return std::nullopt;
}

}  // namespace

ArtifactType artifactType(std::string_view path, bool isPlan) {
  // Folding neither makes nor removes a ".", so that the folded suffix is the suffix of the folded name.
  std::string storage;
  const std::string_view name = PythonText::casefold(PythonPath::nameOf(path), storage);
  const std::string_view suffix = PythonPath::suffixOf(name);
  const std::string_view extension = suffix.substr(suffix.empty() ? 0 : 1);
  // The tables are ASCII, so that an extension outside it is in none of them.
  if (const auto type = typeOfExtension(extension, isPlan)) return *type;
  if (PythonText::isMember(name, codeFileNames)) return {.category = ArtifactCategory::code, .kind = "text"};
  return {.category = ArtifactCategory::other, .kind = "file"};
}

}  // namespace tessary::CaptureRules
