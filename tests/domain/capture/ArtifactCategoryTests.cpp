#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/ArtifactCategory.h"
#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryLocalization/L10n.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::Optional;

std::string joined(std::span<const std::string_view> words) {
  std::string text;
  for (const std::string_view word : words)
    text.append(text.empty() ? "" : " ").append(word);
  return text;
}

TEST(ArtifactCategory, HasSevenCasesEachWithItsRawValueAndItsSymbol) {
  std::vector<std::string> rows;
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    EXPECT_EQ(id(category), rawValue(category));
    EXPECT_EQ(fromRawValue<ArtifactCategory>(rawValue(category)), category);
    rows.push_back(std::string(id(category)) + " " + std::string(symbol(category)));
  }
  EXPECT_THAT(rows, ElementsAre("documents doc.text", "plans list.bullet.clipboard", "images photo", "videos video",
                                "pdfs doc.richtext", "code chevron.left.forwardslash.chevron.right", "other doc"));
}

TEST(ArtifactCategory, HasANameInEveryCatalog) {
  std::vector<std::string> korean;
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    const std::string key(rawValueRow(category).titleKey);
    EXPECT_EQ(title(category), L10n::text(key)) << id(category);
    korean.push_back(L10n::text(key, {}, {}, "ko"));
    for (const std::string& language : L10n::availableCatalogLanguages())
      EXPECT_TRUE(L10n::catalog(language)->messages.contains(key)) << language << " " << key;
  }
  EXPECT_THAT(korean, ElementsAre("문서", "플랜", "이미지", "동영상", "PDF", "코드·텍스트", "기타 파일"));
}

TEST(ArtifactCategory, IsKeptInJSONAsItsRawValue) {
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    const std::string text = writeJSON(category).value();
    EXPECT_EQ(text, "\"" + std::string(rawValue(category)) + "\"");
    EXPECT_EQ(readJSON<ArtifactCategory>(text), category);
  }
  for (const std::string_view unknown : {R"("Documents")", R"("")", R"("document")", "1", "null"}) {
    EXPECT_FALSE(readJSON<ArtifactCategory>(unknown)) << unknown;
  }
  EXPECT_EQ(fromRawValue<ArtifactCategory>("audio"), std::nullopt);
}

TEST(ArtifactCategory, OffersTheExtensionsOfItsTablesInAscendingOrder) {
  constexpr std::string_view documents = "htm html markdown md mdown mdtext mdtxt mdwn mkd mkdn qmd rmd xhtml";
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::documents)), documents);
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::plans)), documents);
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::images)),
            "avif bmp gif heic heif ico jpeg jpg png svg tif tiff webp");
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::videos)), "avi m4v mkv mov mp4 mpeg mpg webm");
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::pdfs)), "pdf");
  EXPECT_EQ(joined(fileExtensions(ArtifactCategory::code)),
            "adoc asm bash bat c cc cfg cjs clj cljc cljs cmd conf cpp cs css csv cxx dart erl ex exs f f90 f95 fish "
            "fs fsx go h hpp hrl hs ini ino java jl js json jsonc jsx kt kts lhs lisp log lua m mdx mjs ml mli mm nix "
            "pas pde php pl pm pp properties proto ps1 psm1 py pyw r rb rs rst s sass sc scm scss sh sql svelte swift "
            "tex text tf toml ts tsv tsx txt vb vbs vue xml yaml yml zsh");
  EXPECT_TRUE(fileExtensions(ArtifactCategory::other).empty());
}

TEST(ArtifactCategory, CountsItsTables) {
  EXPECT_EQ(markdownExtensions.size(), 10U);
  EXPECT_EQ(htmlExtensions.size(), 3U);
  EXPECT_EQ(documentExtensions.size(), 13U);
  EXPECT_EQ(imageExtensions.size(), 13U);
  EXPECT_EQ(videoExtensions.size(), 8U);
  EXPECT_EQ(pdfExtensions.size(), 1U);
  EXPECT_EQ(codeExtensions.size(), 94U);
  EXPECT_EQ(codeExtensionSet.size(), 94U);
  EXPECT_EQ(codeFileNames.size(), 5U);
}

TEST(ArtifactCategory, HasEveryExtensionOnceInLowerCaseASCII) {
  std::vector<std::string_view> all;
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    if (category == ArtifactCategory::plans) continue;
    const auto extensions = fileExtensions(category);
    EXPECT_TRUE(std::ranges::is_sorted(extensions)) << id(category);
    all.insert(all.end(), extensions.begin(), extensions.end());
  }
  EXPECT_EQ(all.size(), 129U);
  std::ranges::sort(all);
  EXPECT_TRUE(std::ranges::adjacent_find(all) == all.end());
  for (const std::string_view extension : all) {
    EXPECT_TRUE(std::ranges::all_of(extension, [](char unit) {
      return (unit >= 'a' && unit <= 'z') || (unit >= '0' && unit <= '9');
    })) << extension;
  }
}

TEST(ArtifactCategory, IsFoundForEveryExtensionOfItsTablesAndNeverPlans) {
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    if (category == ArtifactCategory::plans) continue;
    for (const std::string_view extension : fileExtensions(category)) {
      EXPECT_EQ(categoryForExtension(extension), category) << extension;
      // Neither a dot, nor a letter too many or too few.
      EXPECT_EQ(categoryForExtension("." + std::string(extension)), ArtifactCategory::other);
      EXPECT_EQ(categoryForExtension(std::string(extension) + "~"), ArtifactCategory::other);
    }
  }
  for (const std::string_view other :
       {"", "MD", "Md", "docx", "exe", "zip", "zzz", "aaa", "mark", "markdowns", "é", "ſvg", "\xFF"})
    EXPECT_EQ(categoryForExtension(other), ArtifactCategory::other) << other;
  EXPECT_EQ(categoryForExtension(std::string_view("md\0", 3)), ArtifactCategory::other);
}

TEST(ArtifactCategory, OfSafeTextIsThatOfDocumentsAndCodeInAnyCase) {
  EXPECT_THAT(safeTextCategoryForExtension("MD"), Optional(ArtifactCategory::documents));
  EXPECT_THAT(safeTextCategoryForExtension("qmd"), Optional(ArtifactCategory::documents));
  EXPECT_THAT(safeTextCategoryForExtension("XHTML"), Optional(ArtifactCategory::documents));
  EXPECT_THAT(safeTextCategoryForExtension("Py"), Optional(ArtifactCategory::code));
  EXPECT_THAT(safeTextCategoryForExtension("properties"), Optional(ArtifactCategory::code));
  // The sign for kelvin is lower-cased to an ASCII letter.
  EXPECT_THAT(safeTextCategoryForExtension("M\u212AD"), Optional(ArtifactCategory::documents));
  for (const std::string_view none : {"", "png", "svg", "mp4", "pdf", "docx", ".md", "md ", "\xFF"})
    EXPECT_EQ(safeTextCategoryForExtension(none), std::nullopt) << none;
}

TEST(ArtifactCategory, NamesTheFormatsThatThePreviewerShows) {
  struct Row {
    std::string_view extension;
    std::string_view title;
  };
  for (const auto& [extension, title] : std::to_array<Row>({{"doc", "Word"},
                                                            {"docx", "Word"},
                                                            {"DOCX", "Word"},
                                                            {"xls", "Excel"},
                                                            {"xlsx", "Excel"},
                                                            {"xlsm", "Excel"},
                                                            {"ppt", "PowerPoint"},
                                                            {"pptx", "PowerPoint"},
                                                            {"pptm", "PowerPoint"},
                                                            {"key", "Keynote"},
                                                            {"\u212AEY", "Keynote"},
                                                            {"numbers", "Numbers"},
                                                            {"pages", "Pages"},
                                                            {"Csv", "CSV"},
                                                            {"tsv", "TSV"}}))
    EXPECT_THAT(quickLookTitleForExtension(extension), Optional(title)) << extension;
  for (const std::string_view none : {"", "docm", "page", "number", "pdf", "md", ".doc", "xlsb"})
    EXPECT_EQ(quickLookTitleForExtension(none), std::nullopt) << none;
}

TEST(ArtifactCategory, OpensWhatIsNoPlainTextAsItsOriginal) {
  for (const ArtifactCategory category :
       {ArtifactCategory::documents, ArtifactCategory::images, ArtifactCategory::videos, ArtifactCategory::pdfs}) {
    for (const std::string_view extension : fileExtensions(category))
      EXPECT_TRUE(opensOriginal(extension)) << extension;
  }
  for (const std::string_view extension : {"MD", "PDF", "docx", "Key", "pages", "numbers", "txt", "TXT", "json"})
    EXPECT_TRUE(opensOriginal(extension)) << extension;
  // Of code only what has a format of an office's, and the two that are named.
  for (const std::string_view extension : codeExtensions) {
    const bool opens = extension == "csv" || extension == "tsv" || extension == "txt" || extension == "json";
    EXPECT_EQ(opensOriginal(extension), opens) << extension;
  }
  for (const std::string_view extension : {"", "zip", ".md", "jsonl", "exe"})
    EXPECT_FALSE(opensOriginal(extension)) << extension;
}

}  // namespace
}  // namespace tessary
