#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/application/DocumentWebsiteURL.h"
#include "TessaryDomain/documents/DocumentRendering.h"
#include "TessaryRenderer/RendererLimits.h"

namespace tessary {

// Found by GoogleTest, so that a failing row shows the format.
static void PrintTo(const DocumentContentFormat& format, std::ostream* stream) {
  const auto* source = std::get_if<DocumentContentFormat::Code>(&format.value);
  if (source != nullptr)
    *stream << "code " << source->language.value_or("without language");
  else
    *stream << (format == DocumentContentFormat::html() ? "html" : "markdown");
}

namespace {

using Format = DocumentContentFormat;
using Text = std::optional<std::string>;

DocumentRevision revisionAt(std::string_view snapshotPath) {
  return {.id = "r",
          .contentHash = "h",
          .snapshotPath = std::string(snapshotPath),
          .capturedAt = "2026-01-01T00:00:00Z",
          .originEvent = "hook"};
}

DocumentRecord record(std::string_view kind, Text sourcePath = {}, Text category = {}) {
  return {.id = "d",
          .title = "title",
          .project = "p",
          .source = "claude",
          .sourcePath = std::move(sourcePath),
          .kind = std::string(kind),
          .createdAt = "2026-01-01T00:00:00Z",
          .updatedAt = "2026-01-01T00:00:00Z",
          .revisions = {},
          .artifactCategory = std::move(category)};
}

Format formatOf(std::string_view kind, std::string_view path, Text category = {}) {
  return Format::resolve(record(kind, std::string(path), std::move(category)), nullptr);
}

struct LanguageRow {
  std::string_view language;
  std::vector<std::string_view> extensions;
};

const std::vector<LanguageRow> languages = {
    {"python", {"py", "pyw"}},
    {"javascript", {"js", "mjs", "cjs", "jsx"}},
    {"typescript", {"ts", "tsx"}},
    {"kotlin", {"kt", "kts"}},
    {"arduino", {"ino"}},
    {"processing", {"pde"}},
    {"bash", {"sh", "bash", "zsh"}},
    {"ruby", {"rb"}},
    {"rust", {"rs"}},
    {"yaml", {"yml"}},
    {"c", {"h"}},
    {"cpp", {"hpp", "cc", "cxx"}},
    {"csharp", {"cs"}},
    {"fsharp", {"fs", "fsx"}},
    {"elixir", {"ex", "exs"}},
    {"erlang", {"erl", "hrl"}},
    {"haskell", {"hs", "lhs"}},
    {"julia", {"jl"}},
    {"perl", {"pl", "pm"}},
    {"clojure", {"clj", "cljs", "cljc"}},
    {"r", {"r"}},
    {"powershell", {"ps1", "psm1"}},
    {"dos", {"bat", "cmd"}},
    {"vbnet", {"vb"}},
    {"vbscript", {"vbs"}},
    {"x86asm", {"asm", "s"}},
    {"fortran", {"f", "f90", "f95"}},
    {"latex", {"tex"}},
    {"sql", {"sql"}},
    {"json", {"jsonc"}},
    {"xml", {"vue", "svelte", "svg", "xml"}},
    {"nix", {"nix"}},
    {"scala", {"sc"}},
    {"scheme", {"scm"}},
    {"lisp", {"lisp"}},
    {"ocaml", {"ml", "mli"}},
    {"pascal", {"pp", "pas"}},
    {"protobuf", {"proto"}},
    {"hcl", {"tf"}},
    {"ini", {"conf", "toml"}},
    {"properties", {"properties"}},
    {"mdx", {"mdx"}},
};

TEST(DocumentContentFormat, EveryExtensionOfCodeTellsItsLanguageInAnyLetterCase) {
  std::size_t rows = 0;
  for (const auto& [language, extensions] : languages) {
    for (const std::string_view extension : extensions) {
      std::string capitals(extension);
      for (char& byte : capitals)
        byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
      EXPECT_EQ(formatOf("text", "/a/b." + std::string(extension)), Format::code(language)) << extension;
      EXPECT_EQ(formatOf("text", "/a/b." + capitals), Format::code(language)) << capitals;
      EXPECT_EQ(formatOf("other", "/a/b." + capitals, "code"), Format::code(language)) << capitals;
      ++rows;
    }
  }
  EXPECT_EQ(rows, 70U);
}

struct ResolveRow {
  std::string_view kind;
  std::string_view path;
  Text category;
  Format format;
};

const std::vector<ResolveRow> resolveRows = {
    // HTML by the kind wins over any extension, and by the extension over any kind.
    {"html", "/a/b.py", {}, Format::html()},
    {"html", "/a/b.md", {}, Format::html()},
    {"html", "/a/CMakeLists.txt", "code", Format::html()},
    {"html", "", {}, Format::html()},
    {"text", "/a/b.html", {}, Format::html()},
    {"markdown", "/a/b.HTM", {}, Format::html()},
    {"image", "/a/b.xhtml", {}, Format::html()},
    {"text", "/a/dockerfile.html", {}, Format::html()},
    {"HTML", "/a/b.md", {}, Format::markdown()},
    // Markdown extensions win over kind, category and named files.
    {"text", "/a/b.md", "code", Format::markdown()},
    {"text", "/a/b.MARKDOWN", {}, Format::markdown()},
    {"text", "/a/b.mdown", {}, Format::markdown()},
    {"text", "/a/b.mkd", {}, Format::markdown()},
    {"text", "/a/b.mkdn", {}, Format::markdown()},
    {"text", "/a/b.mdwn", {}, Format::markdown()},
    {"text", "/a/b.mdtxt", {}, Format::markdown()},
    {"text", "/a/b.mdtext", {}, Format::markdown()},
    {"text", "/a/b.rmd", {}, Format::markdown()},
    {"text", "/a/b.qmd", {}, Format::markdown()},
    {"text", "/a/Dockerfile.md", {}, Format::markdown()},
    {"text", "/a/.md", {}, Format::markdown()},
    // One name that ends in ".txt" is a language, whatever the kind.
    {"text", "/a/CMakeLists.txt", {}, Format::code("cmake")},
    {"markdown", "/a/CMAKELISTS.TXT", {}, Format::code("cmake")},
    {"file", "cmakelists.txt", "images", Format::code("cmake")},
    {"text", "/a/cmakelists.txt/", {}, Format::code("cmake")},
    {"text", "/a/xcmakelists.txt", {}, Format::code("plaintext")},
    {"text", "/cmakelists.txt/a.py", {}, Format::code("python")},
    // All others that end so are plain text, whatever the kind.
    {"markdown", "/a/b.txt", {}, Format::code("plaintext")},
    {"file", "/a/b.TEXT", "images", Format::code("plaintext")},
    {"text", "/a/dockerfile.txt", {}, Format::code("plaintext")},
    {"text", "/a/.text", {}, Format::code("plaintext")},
    // Named files, for code alone.
    {"text", "/a/Dockerfile", {}, Format::code("dockerfile")},
    {"text", "/a/dockerfile.prod", {}, Format::code("dockerfile")},
    {"text", "/a/DOCKERFILE.PY", {}, Format::code("dockerfile")},
    {"text", "/a/dockerfile.", {}, Format::code("dockerfile")},
    {"text", "/a/dockerfiles", {}, Format::code(std::nullopt)},
    {"text", "/a/my.dockerfile", {}, Format::code("dockerfile")},
    {"other", "/a/dockerfile.prod", "code", Format::code("dockerfile")},
    {"file", "/a/dockerfile.prod", {}, Format::markdown()},
    {"file", "/a/dockerfile.prod", "documents", Format::markdown()},
    {"text", "/a/Makefile", {}, Format::code("makefile")},
    {"text", "/a/GNUmakefile", {}, Format::code("makefile")},
    {"text", "/a/BSDmakefile", {}, Format::code("makefile")},
    {"text", "/a/makefile.am", {}, Format::code("am")},
    // The Kelvin sign is a capital k in names as well.
    {"text", "/a/Ma\u212AeFile", {}, Format::code("makefile")},
    {"text", "/a/Doc\u212Aerfile.prod", {}, Format::code("dockerfile")},
    {"markdown", "/a/CMa\u212AeLists.txt", {}, Format::code("cmake")},
    {"markdown", "/a/Makefile", {}, Format::markdown()},
    // Code without an extension, and with one that has no row.
    {"text", "/a/b", {}, Format::code(std::nullopt)},
    {"text", "/a/b.", {}, Format::code(std::nullopt)},
    {"text", "/a.py/b", {}, Format::code(std::nullopt)},
    {"text", "", {}, Format::code(std::nullopt)},
    {"text", "/", {}, Format::code(std::nullopt)},
    {"text", "/a/b.C", {}, Format::code("c")},
    {"text", "/a/b.go", {}, Format::code("go")},
    {"text", "/a/b.json", {}, Format::code("json")},
    {"text", "/a/b.swift", {}, Format::code("swift")},
    {"text", "/a/b.yaml", {}, Format::code("yaml")},
    {"text", "/a/.gitignore", {}, Format::code("gitignore")},
    {"text", "/a/b.py.weiß", {}, Format::code("weiß")},
    {"text", "/a/b.py ", {}, Format::code("py ")},
    {"text", "/a/b.\u212At", {}, Format::code("kotlin")},
    {"text", "/a/b.py", "documents", Format::code("python")},
    // The category is that of the record: a file of code by its extension has it without storing it.
    {"file", "/a/b.py", {}, Format::code("python")},
    {"file", "/a/b.py", "other", Format::code("python")},
    {"file", "/a/b.py", "images", Format::markdown()},
    {"image", "/a/b.py", {}, Format::markdown()},
    {"image", "/a/b", "code", Format::code(std::nullopt)},
    {"Text", "/a/b.py", {}, Format::markdown()},
    // Everything else.
    {"markdown", "/a/b.py", {}, Format::markdown()},
    {"markdown", "/a/b", {}, Format::markdown()},
    {"candidate", "", {}, Format::markdown()},
    {"pdf", "/a/b.pdf", {}, Format::markdown()},
};

TEST(DocumentContentFormat, TheFirstSignThatFitsDecides) {
  for (const ResolveRow& row : resolveRows)
    EXPECT_EQ(formatOf(row.kind, row.path, row.category), row.format) << row.kind << ' ' << row.path;
}

TEST(DocumentContentFormat, TheOriginComesBeforeTheCopyAndTheCopyBeforeTheTitle) {
  const DocumentRevision copy = revisionAt("/library/copy.rs");
  DocumentRecord document = record("text", "/a/b.py");
  document.title = "page.html";
  EXPECT_EQ(Format::resolve(document, &copy), Format::code("python"));
  // A path that is present and empty is a path.
  document.sourcePath = "";
  EXPECT_EQ(Format::resolve(document, &copy), Format::code(std::nullopt));
  document.sourcePath.reset();
  EXPECT_EQ(Format::resolve(document, &copy), Format::code("rust"));
  EXPECT_EQ(Format::resolve(document, nullptr), Format::html());
  // The record's own revisions are not asked.
  document.revisions.push_back(copy);
  EXPECT_EQ(Format::resolve(document, nullptr), Format::html());
  document.revisions.clear();
  document.title = "Notes";
  EXPECT_EQ(Format::resolve(document, nullptr), Format::code(std::nullopt));
  document.kind = "markdown";
  EXPECT_EQ(Format::resolve(document, nullptr), Format::markdown());
  const DocumentRevision nameless = revisionAt("");
  document.title = "page.html";
  EXPECT_EQ(Format::resolve(document, &nameless), Format::markdown());
}

TEST(DocumentContentFormat, ProseIsMarkdownHTMLAndPlainText) {
  EXPECT_TRUE(Format::markdown().isProse());
  EXPECT_TRUE(Format::html().isProse());
  for (const std::string_view language : {"plaintext", "rst", "adoc"})
    EXPECT_TRUE(Format::code(language).isProse()) << language;
  for (const std::string_view language : {"python", "markdown", "Plaintext", "plaintext ", "txt", "log", ""})
    EXPECT_FALSE(Format::code(language).isProse()) << language;
  EXPECT_FALSE(Format::code(std::nullopt).isProse());
}

TEST(DocumentContentFormat, EqualFormatsHaveEqualHashesAndOthersDiffer) {
  const std::vector<Format> formats = {Format::code(std::nullopt), Format::code(""),   Format::code("c"),
                                       Format::code("r"),          Format::markdown(), Format::html()};
  const std::hash<Format> hash;
  for (std::size_t one = 0; one < formats.size(); ++one) {
    for (std::size_t other = 0; other < formats.size(); ++other) {
      EXPECT_EQ(formats[one] == formats[other], one == other);
      EXPECT_EQ(hash(formats[one]) == hash(Format(formats[other])), one == other) << one << ' ' << other;
    }
  }
  EXPECT_EQ(Format::code("c").value.index(), 0U);
  EXPECT_EQ(Format::markdown().value.index(), 1U);
  EXPECT_EQ(Format::html().value.index(), 2U);
}

TEST(DocumentRenderRequest, EveryFieldCountsInEqualityAndHash) {
  const DocumentRenderRequest request{
      .text = "t", .format = Format::markdown(), .frontmatterLabel = "l", .allowsRemoteImages = false};
  DocumentRenderRequest copy = request;
  const std::hash<DocumentRenderRequest> hash;
  EXPECT_EQ(copy, request);
  EXPECT_EQ(hash(copy), hash(request));
  std::vector<DocumentRenderRequest> others(4, request);
  others[0].text = "u";
  others[1].format = Format::html();
  others[2].frontmatterLabel.reset();
  others[3].allowsRemoteImages = true;
  for (const DocumentRenderRequest& other : others) {
    EXPECT_NE(other, request);
    EXPECT_NE(hash(other), hash(request));
  }
}

RenderedDocument renderedFrom(std::optional<std::string_view> address) {
  return {"<p>", "p {}", {"notice"}, "en", address};
}

TEST(RenderedDocument, KeepsAnAddressOnlyAsTheGateLetsItThrough) {
  const RenderedDocument rendered = renderedFrom("https://b\u00FCcher.example/a");
  EXPECT_EQ(rendered.html, "<p>");
  EXPECT_EQ(rendered.styleSheet, "p {}");
  EXPECT_EQ(rendered.notices, std::vector<std::string>{"notice"});
  EXPECT_EQ(rendered.language, "en");
  ASSERT_TRUE(rendered.sourceWebsiteURL());
  EXPECT_EQ(rendered.sourceWebsiteURL()->text(), "https://xn--bcher-kva.example/a");
  for (const std::string_view refused :
       {"", "example.test", "ftp://example.test", "https://user@example.test", "https://example.test:0", "https://a b"})
    EXPECT_FALSE(renderedFrom(refused).sourceWebsiteURL()) << refused;
  EXPECT_FALSE(renderedFrom(std::nullopt).sourceWebsiteURL());
}

TEST(RenderedDocument, IsEqualWhereAllItsFieldsAre) {
  const RenderedDocument rendered = renderedFrom("https://example.test");
  EXPECT_EQ(rendered, renderedFrom("https://example.test"));
  EXPECT_NE(rendered, renderedFrom("https://example.test/"));
  EXPECT_EQ(renderedFrom("refused"), renderedFrom(std::nullopt));
  std::vector<RenderedDocument> others(4, rendered);
  others[0].html = "";
  others[1].styleSheet = "";
  others[2].notices.clear();
  others[3].language.reset();
  for (const RenderedDocument& other : others)
    EXPECT_NE(other, rendered);
}

TEST(DocumentRenderLimits, AreTheNumbersThatTheRendererProcessKeeps) {
  EXPECT_EQ(DocumentRenderLimits::sourceBytes, 0x80000U);
  EXPECT_EQ(DocumentRenderLimits::requestBytes, 0x400000U);
  EXPECT_EQ(DocumentRenderLimits::outputBytes, 0x600000U);
  EXPECT_EQ(DocumentRenderLimits::highlightBytes, 0x10000U);
  EXPECT_EQ(DocumentRenderLimits::fallbackBytes, 0x10000U);
  EXPECT_EQ(DocumentRenderLimits::resourceBytes, 0x400000U);
  EXPECT_EQ(DocumentRenderLimits::sourceBytes, RendererLimits::sourceBytes);
  EXPECT_EQ(DocumentRenderLimits::requestBytes, RendererLimits::requestBytes);
  EXPECT_EQ(DocumentRenderLimits::outputBytes, RendererLimits::resultBytes);
  EXPECT_EQ(DocumentRenderLimits::resourceBytes, RendererLimits::largestAssetBytes);
}

struct ProseRow {
  std::string_view kind;
  std::string_view path;
  Text category;
  bool reads;
};

TEST(DocumentProse, ReadsWhatPeopleRead) {
  const std::vector<ProseRow> rows = {
      // A video is none, of whatever kind.
      {"video", "/a/b.md", {}, false},
      {"candidate", "/a/b.md", "videos", false},
      {"file", "/a/b.mov", {}, false},
      {"markdown", "/a/b.md", "videos", false},
      // Candidates and PDFs are, of whatever name.
      {"candidate", "/a/b.py", {}, true},
      {"candidate", "", "images", true},
      {"candidate", "/a/b.py", "code", true},
      {"candidate", "/a/CMakeLists.txt", {}, true},
      {"pdf", "/a/b.pdf", {}, true},
      {"image", "/a/b.png", "pdfs", true},
      // What has no text is none.
      {"image", "/a/b.md", {}, false},
      {"image", "/a/b.txt", {}, false},
      {"image", "/a/b.html", "documents", false},
      {"file", "/a/b.png", {}, false},
      {"file", "/a/b.md", "images", false},
      {"pdf", "/a/b.md", "documents", false},
      // For the rest the format tells.
      {"markdown", "/a/b.md", {}, true},
      {"html", "/a/b.py", {}, true},
      {"file", "/a/b.md", {}, true},
      {"file", "/a/b.txt", {}, true},
      {"file", "/a/b.py", {}, false},
      {"file", "/a/CMakeLists.txt", {}, false},
      {"text", "/a/b.rst", {}, true},
      {"text", "/a/b.adoc", {}, true},
      {"text", "/a/b.py", {}, false},
      {"text", "/a/b", {}, false},
  };
  for (const ProseRow& row : rows)
    EXPECT_EQ(DocumentProse::reads(record(row.kind, std::string(row.path), row.category), nullptr), row.reads)
        << row.kind << ' ' << row.path << ' ' << row.category.value_or("no category");
}

TEST(DocumentProse, TheRevisionTellsTheFormatOfADocumentWithoutOrigin) {
  const DocumentRevision code = revisionAt("/library/copy.py");
  const DocumentRevision text = revisionAt("/library/copy.txt");
  EXPECT_FALSE(DocumentProse::reads(record("text"), &code));
  EXPECT_TRUE(DocumentProse::reads(record("text"), &text));
  EXPECT_FALSE(DocumentProse::reads(record("text"), nullptr));
  // The record's own revisions are not asked for it.
  DocumentRecord document = record("text");
  document.revisions.push_back(text);
  EXPECT_FALSE(DocumentProse::reads(document, nullptr));
}

}  // namespace
}  // namespace tessary
