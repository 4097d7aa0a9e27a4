#include "TessaryDomain/capture/ArtifactCategory.h"

#include <algorithm>

#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary {
namespace {

struct ExtensionCategory {
  std::string_view extension;
  ArtifactCategory category;
};

// Every extension with its category, ascending. No extension stands in two tables, so nothing hangs on their order.
consteval auto makeExtensionCategories() {
  std::array<ExtensionCategory, documentExtensions.size() + imageExtensions.size() + videoExtensions.size() +
                                    pdfExtensions.size() + codeExtensions.size()>
      all{};
  auto next = all.begin();
  const auto add = [&next](std::span<const std::string_view> extensions, ArtifactCategory category) {
    for (const std::string_view extension : extensions)
      *next++ = {extension, category};
  };
  add(documentExtensions.sorted(), ArtifactCategory::documents);
  add(imageExtensions, ArtifactCategory::images);
  add(videoExtensions, ArtifactCategory::videos);
  add(pdfExtensions, ArtifactCategory::pdfs);
  add(codeExtensions, ArtifactCategory::code);
  std::ranges::sort(all, {}, &ExtensionCategory::extension);
  if (std::ranges::adjacent_find(all, {}, &ExtensionCategory::extension) != all.end())
    throw "an extension stands in two tables";
  return all;
}
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
  const auto* const row = std::ranges::lower_bound(extensionCategories, extension, {}, &ExtensionCategory::extension);
  return row != extensionCategories.end() && row->extension == extension ? row->category : ArtifactCategory::other;
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
