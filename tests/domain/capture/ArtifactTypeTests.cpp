#include <array>
#include <cstdint>
#include <ostream>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryDomain/capture/ArtifactType.h"
#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary::CaptureRules {

// Found by GoogleTest, so that a failing row shows the type.
std::ostream& operator<<(std::ostream& stream, const ArtifactType& type) {
  return stream << id(type.category) << ", " << type.kind;
}

namespace {

using enum ArtifactCategory;

constexpr ArtifactType markdownDocument{.category = documents, .kind = "markdown"};
constexpr ArtifactType htmlDocument{.category = documents, .kind = "html"};
constexpr ArtifactType image{.category = images, .kind = "image"};
constexpr ArtifactType video{.category = videos, .kind = "video"};
constexpr ArtifactType pdf{.category = pdfs, .kind = "pdf"};
constexpr ArtifactType text{.category = code, .kind = "text"};
constexpr ArtifactType file{.category = other, .kind = "file"};

struct Row {
  std::string_view path;
  ArtifactType type;
};

TEST(ArtifactType, IsThatOfTheExtensionElseOfTheWholeName) {
  for (const auto& [path, type] : std::to_array<Row>({
           {"/a/READ.ME.MD", markdownDocument},
           {"/a/x.qmd", markdownDocument},
           {"/a/x.Html", htmlDocument},
           {"x.xhtml", htmlDocument},
           {"/a/x.PNG", image},
           {"/a/x.mov", video},
           {"/a/x.pdf", pdf},
           {"/a/x.tsx", text},
           {"/a/x.tar.gz", file},
           {"/a/x.md~", file},
           {"/a/x.md/", markdownDocument},
           {"/a/x.md/.", markdownDocument},
           {"/a/x.md/..", file},
           {"/a/x.md/y", file},
           // The whole name is asked for, not its stem.
           {"/a/Makefile", text},
           {"/a/DOCKERFILE", text},
           {"gemfile", text},
           {"/a/LICENSE", text},
           {"/a/ReadMe/", text},
           {"/a/Makefile.bak", file},
           {"/a/License.zip", file},
           {"/a/.readme", file},
           {"/a/readmes", file},
           {"/a/readme/x", file},
           // A name of dots and one that begins with a dot have no extension.
           {"/a/.md", file},
           {"/a/..md", file},
           {"/a/...", file},
           {"/a/.x.md", markdownDocument},
           // A dot at the end is a suffix, and the extension is empty.
           {"x.", file},
           {"makefile.", file},
           {"x.md.", file},
           {"", file},
           {"/", file},
           {".", file},
       })) {
    EXPECT_EQ(artifactType(path, /*isPlan=*/false), type) << path;
  }
}

TEST(ArtifactType, FoldsWhatFoldsToASCIIAndNothingElse) {
  EXPECT_EQ(artifactType("/a/x.\u017Fvg", /*isPlan=*/false), image);                      // a long s
  EXPECT_EQ(artifactType("/a/x.\u212Aey.M\u212AD", /*isPlan=*/false), markdownDocument);  // a kelvin sign
  EXPECT_EQ(artifactType("/a/x.ti\uFB00", /*isPlan=*/false), image);                      // the ligature ff
  EXPECT_EQ(artifactType("/a/x.é", /*isPlan=*/false), file);
  EXPECT_EQ(artifactType("/a/x.mdé", /*isPlan=*/false), file);
  EXPECT_EQ(artifactType("/a/x.\xC3md", /*isPlan=*/false), file);
  EXPECT_EQ(artifactType("/a/x.m\xFF", /*isPlan=*/false), file);
  EXPECT_EQ(artifactType("/a/ma\u212Aefile", /*isPlan=*/false), text);
  EXPECT_EQ(artifactType("/a/makefilé", /*isPlan=*/false), file);
  EXPECT_EQ(artifactType(std::string_view("/a/x.md\0", 8), /*isPlan=*/false), file);
  EXPECT_EQ(artifactType(std::string_view("/a\0/x.md", 8), /*isPlan=*/false), markdownDocument);
}

// The name is folded as a whole, once, and taken apart then: the same as folding its suffix alone.
TEST(ArtifactType, TheFoldedSuffixIsTheSuffixOfTheFoldedName) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    std::string letter;
    appendScalar(letter, scalar);
    const std::string folded = PythonText::casefold(letter);
    ASSERT_FALSE(folded.empty()) << static_cast<std::uint32_t>(scalar);
    ASSERT_EQ(folded.contains('.'), scalar == '.') << static_cast<std::uint32_t>(scalar);
  }
  // Among them scalars that fold to several, a final sigma, and pieces of scalars.
  constexpr auto pieces = std::to_array<std::string_view>(
      {".", "..", "a", "MD", "\u017F", "\uFB00", "\u00DF", "\u0130", "\u03A3", " ", "\xC3", "\xFF"});
  std::mt19937 random(3);
  for (int round = 0; round < 5000; ++round) {
    std::string name;
    for (auto count = random() % 7; count > 0; --count)
      name += pieces[random() % pieces.size()];
    const std::string folded = PythonText::casefold(name);
    ASSERT_EQ(PythonPath::suffixOf(folded), PythonText::casefold(PythonPath::suffixOf(name)))
        << testing::PrintToString(name);
  }
}

TEST(ArtifactType, OfAPlanIsAnotherForDocumentsOnly) {
  EXPECT_EQ(artifactType("/a/READ.ME.MD", /*isPlan=*/true), (ArtifactType{.category = plans, .kind = "markdown"}));
  EXPECT_EQ(artifactType("/a/plan.htm", /*isPlan=*/true), (ArtifactType{.category = plans, .kind = "html"}));
  for (const std::string_view path : {"/a/x.png", "/a/x.mp4", "/a/x.pdf", "/a/x.txt", "/a/Makefile", "/a/x.docx", "x."})
    EXPECT_EQ(artifactType(path, /*isPlan=*/true), artifactType(path, /*isPlan=*/false)) << path;
}

TEST(ArtifactType, IsKnownForEveryExtensionOfTheTables) {
  for (const ArtifactCategory category : allCases<ArtifactCategory>()) {
    for (const std::string_view extension : fileExtensions(category)) {
      const ArtifactType type = artifactType("/a/b." + std::string(extension), /*isPlan=*/category == plans);
      EXPECT_EQ(type.category, category) << extension;
      EXPECT_EQ(type.kind == "html", htmlExtensions.contains(extension)) << extension;
      EXPECT_EQ(type.kind == "markdown", markdownExtensions.contains(extension)) << extension;
    }
  }
  for (const std::string_view name : codeFileNames)
    EXPECT_EQ(artifactType("/a/" + std::string(name), /*isPlan=*/false), text);
}

}  // namespace
}  // namespace tessary::CaptureRules
