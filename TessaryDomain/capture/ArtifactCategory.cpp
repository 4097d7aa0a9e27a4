#include "TessaryDomain/capture/ArtifactCategory.h"

#include <algorithm>

#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

// Every extension; none stands in two tables, so that nothing hangs on the order in which they are searched.
constexpr WordSet extensions = documentExtensions.joined(WordSet(imageExtensions))
                                   .joined(WordSet(videoExtensions))
                                   .joined(WordSet(pdfExtensions))
                                   .joined(codeExtensionSet);

consteval auto makeExtensionCategories() {
  std::array<ArtifactCategory, extensions.size()> categories{};
  const auto set = [&categories](std::span<const std::string_view> words, ArtifactCategory category) {
    for (const std::string_view word : words)
      categories[extensions.index(word)] = category;
  };
  set(documentExtensions.sorted(), ArtifactCategory::documents);
  set(imageExtensions, ArtifactCategory::images);
  set(videoExtensions, ArtifactCategory::videos);
  set(pdfExtensions, ArtifactCategory::pdfs);
  set(codeExtensions, ArtifactCategory::code);
  return categories;
}
// For each of the extensions, in their order.
constexpr auto extensionCategories = makeExtensionCategories();

struct QuickLookTitle {
  std::string_view extension;
  std::string_view title;
};
constexpr auto quickLookTitles = std::to_array<QuickLookTitle>({
    {"doc", "Word"},
    {"docx", "Word"},
    {"xls", "Excel"},
    {"xlsx", "Excel"},
    {"xlsm", "Excel"},
    {"ppt", "PowerPoint"},
    {"pptx", "PowerPoint"},
    {"pptm", "PowerPoint"},
    {"key", "Keynote"},
    {"numbers", "Numbers"},
    {"pages", "Pages"},
    {"csv", "CSV"},
    {"tsv", "TSV"},
});

std::optional<std::string_view> quickLookTitle(std::string_view lowered) {
  const auto* const row = std::ranges::find(quickLookTitles, lowered, &QuickLookTitle::extension);
  if (row == quickLookTitles.end()) return std::nullopt;
  return row->title;
}

}  // namespace

std::string title(ArtifactCategory category) {
  return L10n::text(rawValueRow(category).titleKey);
}

std::span<const std::string_view> fileExtensions(ArtifactCategory category) noexcept {
  switch (category) {
    case ArtifactCategory::documents:
    case ArtifactCategory::plans:
      return documentExtensions.sorted();
    case ArtifactCategory::images:
      return imageExtensions;
    case ArtifactCategory::videos:
      return videoExtensions;
    case ArtifactCategory::pdfs:
      return pdfExtensions;
    case ArtifactCategory::code:
      return codeExtensions;
    case ArtifactCategory::other:
      break;
  }
  return {};
}

ArtifactCategory categoryForExtension(std::string_view extension) noexcept {
  const std::size_t index = extensions.index(extension);
  return index == extensions.size() ? ArtifactCategory::other : extensionCategories[index];
}

std::optional<ArtifactCategory> safeTextCategoryForExtension(std::string_view extension) {
  const std::string lowered = lowercased(extension);
  if (documentExtensions.contains(lowered)) return ArtifactCategory::documents;
  if (codeExtensionSet.contains(lowered)) return ArtifactCategory::code;
  return std::nullopt;
}

std::optional<std::string_view> quickLookTitleForExtension(std::string_view extension) {
  return quickLookTitle(lowercased(extension));
}

bool opensOriginal(std::string_view extension) {
  const std::string lowered = lowercased(extension);
  const ArtifactCategory category = categoryForExtension(lowered);
  if (category != ArtifactCategory::code && category != ArtifactCategory::other) return true;
  return quickLookTitle(lowered) || lowered == "txt" || lowered == "json";
}

}  // namespace tessary
