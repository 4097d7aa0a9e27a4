#include "TessaryDomain/documents/DocumentRendering.h"

#include <algorithm>
#include <array>
#include <utility>

#include "TessaryDomain/application/DocumentWebsiteURL.h"
#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryDomain/documents/CodeLanguages.h"
#include "TessaryDomain/documents/PathExtension.h"
#include "TessaryDomain/understanding/PlainTextLanguages.h"
#include "TessaryPlatform/json/JSONRecordHash.h"
#include "TessaryPlatform/paths/Paths.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {

namespace {

constexpr WordSet makefileNames(std::to_array<std::string_view>({"makefile", "gnumakefile", "bsdmakefile"}));

/// What tells the form of a document: where it was found, where its copy lies, or what it is called.
std::string_view namingPath(const DocumentRecord& document, const DocumentRevision* revision) {
  if (document.sourcePath) return *document.sourcePath;
  return revision != nullptr ? revision->snapshotPath : document.title;
}

/// The language of code in a file; both texts are in lower case.
DocumentContentFormat codeFormat(std::string_view name, std::string_view extension) {
  if (name == "dockerfile" || name.starts_with("dockerfile.")) return DocumentContentFormat::code("dockerfile");
  if (makefileNames.contains(name)) return DocumentContentFormat::code("makefile");
  if (extension.empty()) return DocumentContentFormat::code(std::nullopt);
  const auto row = std::ranges::find(codeLanguages, extension, &CodeLanguageRow::extension);
  return DocumentContentFormat::code(row == codeLanguages.end() ? extension : row->language);
}

}  // namespace

DocumentContentFormat DocumentContentFormat::code(std::optional<std::string_view> language) {
  return {Code{.language = language ? std::optional<std::string>(*language) : std::nullopt}};
}

DocumentContentFormat DocumentContentFormat::resolve(const DocumentRecord& document, const DocumentRevision* revision) {
  const std::string_view path = namingPath(document, revision);
  const std::string extension = lowercased(pathExtension(path));
  const std::string name = lowercased(Paths::lastComponent(path));
  // 1. HTML, also where only the kind says so.
  if (document.kind == "html" || htmlExtensions.contains(extension)) return html();
  // 2. Markdown, whatever else the name says.
  if (markdownExtensions.contains(extension)) return markdown();
  // 3. The one name that ends in ".txt" and is not plain text.
  if (name == "cmakelists.txt") return code("cmake");
  // 4. Plain text.
  if (extension == "txt" || extension == "text") return code("plaintext");
  // 5. Code.
  if (document.kind == "text" || document.category() == ArtifactCategory::code) return codeFormat(name, extension);
  // 6. Any text can be shown as Markdown.
  return markdown();
}

bool DocumentContentFormat::isProse() const {
  const Code* source = std::get_if<Code>(&value);
  if (source == nullptr) return true;
  return source->language && DocumentSummaryExtractor::plainTextLanguages.contains(*source->language);
}

RenderedDocument::RenderedDocument(std::string body, std::string style, std::vector<std::string> remarks,
                                   std::optional<std::string> resultLanguage, std::optional<std::string_view> origin)
    : html(std::move(body)),
      styleSheet(std::move(style)),
      notices(std::move(remarks)),
      language(std::move(resultLanguage)),
      sourceWebsiteURL_(DocumentWebsiteURL::validated(origin)) {}

bool DocumentProse::reads(const DocumentRecord& document, const DocumentRevision* revision) {
  const ArtifactCategory category = document.category();
  if (category == ArtifactCategory::videos) return false;
  // Both are shown by other means than as text.
  if (document.kind == "candidate" || category == ArtifactCategory::pdfs) return true;
  if (!document.supportsTextContent()) return false;
  return DocumentContentFormat::resolve(document, revision).isProse();
}

}  // namespace tessary

std::size_t std::hash<tessary::DocumentContentFormat>::operator()(
    const tessary::DocumentContentFormat& format) const noexcept {
  const auto* code = std::get_if<tessary::DocumentContentFormat::Code>(&format.value);
  return tessary::combinedHash(format.value.index(), code != nullptr ? tessary::json::hashOf(code->language) : 0);
}

std::size_t std::hash<tessary::DocumentRenderRequest>::operator()(
    const tessary::DocumentRenderRequest& request) const noexcept {
  std::size_t combined = std::hash<std::string>()(request.text);
  combined = tessary::combinedHash(combined, std::hash<tessary::DocumentContentFormat>()(request.format));
  combined = tessary::combinedHash(combined, tessary::json::hashOf(request.frontmatterLabel));
  return tessary::combinedHash(combined, request.allowsRemoteImages ? 1 : 0);
}
