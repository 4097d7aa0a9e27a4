#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// What sort of thing an agent has made, as the user sees it: the choices in the capture settings, and the heading
/// under which a document stands. Kept as its raw value, and iterated in the order of declaration.
enum class ArtifactCategory : std::uint8_t { documents, plans, images, videos, pdfs, code, other };

/// A row of the table of categories.
struct ArtifactCategoryRow {
  ArtifactCategory value;
  std::string_view rawValue;
  /// The key of the category's name in the catalog: the name in the source language.
  std::string_view titleKey;
  /// The name of the category's symbol.
  std::string_view symbol;
};

template <>
struct RawValues<ArtifactCategory> {
  static constexpr auto table = std::to_array<ArtifactCategoryRow>({
      {ArtifactCategory::documents, "documents", "문서", "doc.text"},
      {ArtifactCategory::plans, "plans", "플랜", "list.bullet.clipboard"},
      {ArtifactCategory::images, "images", "이미지", "photo"},
      {ArtifactCategory::videos, "videos", "동영상", "video"},
      {ArtifactCategory::pdfs, "pdfs", "PDF", "doc.richtext"},
      {ArtifactCategory::code, "code", "코드·텍스트", "chevron.left.forwardslash.chevron.right"},
      {ArtifactCategory::other, "other", "기타 파일", "doc"},
  });
};

/// The identity of a category in lists and in the settings: its raw value.
[[nodiscard]] constexpr std::string_view id(ArtifactCategory category) {
  return rawValue(category);
}

/// The name of a category, in the language now selected.
[[nodiscard]] std::string title(ArtifactCategory category);

/// The name of the symbol that stands for a category.
[[nodiscard]] constexpr std::string_view symbol(ArtifactCategory category) {
  return rawValueRow(category).symbol;
}

/// The extensions by which a file belongs to the category, lower case, without dot, in ascending order: plans have
/// those of documents, and `other` has none.
[[nodiscard]] std::span<const std::string_view> fileExtensions(ArtifactCategory category) noexcept;

/// The category of files with this extension, which is compared as it stands: lower case, without dot ("MD" is
/// `other`). Never `plans`: a plan is a document of which its maker says that it is a plan.
[[nodiscard]] ArtifactCategory categoryForExtension(std::string_view extension) noexcept;

/// `documents` or `code` for an extension of text, in any letter case and without dot; absent for all else.
[[nodiscard]] std::optional<ArtifactCategory> safeTextCategoryForExtension(std::string_view extension);

/// The name by which users know the format of an extension, in any letter case and without dot ("xlsm" gives "Excel"):
/// for formats of offices, which only the system's previewer can show. Absent for all else.
[[nodiscard]] std::optional<std::string_view> quickLookTitleForExtension(std::string_view extension);

/// True for an extension, in any letter case and without dot, of a file that is opened itself and not as its text:
/// documents, images, videos, PDF, what has a `quickLookTitleForExtension`, "txt" and "json".
[[nodiscard]] bool opensOriginal(std::string_view extension);

}  // namespace tessary
