#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CaptureRules.h"

namespace tessary::CaptureRules {
namespace {

std::string markdownTitle(std::string_view content) {
  return contentTitle(content, " the file ", "markdown");
}

std::string htmlTitle(std::string_view content) {
  return contentTitle(content, " the file ", "html");
}

TEST(ContentTitle, IsTheFirstHeading) {
  EXPECT_EQ(markdownTitle("# Title"), "Title");
  EXPECT_EQ(markdownTitle("text\n\n###   A  b\t##  \n# Other"), "A  b");
  EXPECT_EQ(markdownTitle("x\r\n## 한글 제목\r\ny"), "한글 제목");
  EXPECT_EQ(markdownTitle("#\u3000\u3000wide\u00A0\u3000"), "wide");
  EXPECT_EQ(contentTitle("# Title", "f", "text"), "Title");
  EXPECT_EQ(contentTitle("# Title", "f", ""), "Title");
}

TEST(ContentTitle, IsAHeadingInsideACodeFenceToo) {
  EXPECT_EQ(markdownTitle("```\n# Inside\n```\n# Outside"), "Inside");
  EXPECT_EQ(markdownTitle("<!--\n# Inside\n-->"), "Inside");
}

TEST(ContentTitle, IsTheFallbackAsItIsWhereThereIsNoHeading) {
  for (const std::string_view content :
       {"", "text", "#text", "####### seven", " # indented", "#", "Title\n=====", "\\# x"})
    EXPECT_EQ(markdownTitle(content), " the file ") << content;
  EXPECT_EQ(contentTitle("", "", "markdown"), "");
}

TEST(ContentTitle, IsTheFallbackWhereTheFirstHeadingIsOfBlanksAlone) {
  EXPECT_EQ(markdownTitle("# "), " the file ");
  EXPECT_EQ(markdownTitle("#    "), " the file ");
  EXPECT_EQ(markdownTitle("#\u3000\u2003\t"), " the file ");
}

TEST(ContentTitle, IsCutToTwoHundredScalarsWithoutAMark) {
  EXPECT_EQ(longestTitle, 200U);
  for (const std::string_view unit : {"a", "é", "한", "😀"}) {
    for (const std::size_t count : {199U, 200U, 201U, 300U}) {
      std::string text;
      std::string cut;
      for (std::size_t index = 0; index < count; ++index) {
        text += unit;
        if (index < 200) cut += unit;
      }
      EXPECT_EQ(markdownTitle("# " + text), cut) << count;
      EXPECT_EQ(htmlTitle("<title>" + text + "</title>"), cut) << count;
      EXPECT_EQ(contentTitle("", text, "markdown"), cut) << count;
      EXPECT_EQ(contentTitle("", text, "html"), cut) << count;
    }
  }
  // The ends are stripped before, and not behind the cut.
  EXPECT_EQ(markdownTitle("# " + std::string(199, 'a') + "  b"), std::string(199, 'a') + " ");
}

TEST(ContentTitle, OfAPageIsItsTitleWithSingleSpaces) {
  EXPECT_EQ(htmlTitle("<title> A &amp;\n\tB\u00A0\u3000c </title>"), "A & B c");
  EXPECT_EQ(htmlTitle("<TITLE>x</TITLE># y"), "x");
  EXPECT_EQ(htmlTitle("<title>x</title><svg><title>y</title></svg>"), "xy");
  EXPECT_EQ(htmlTitle("\n# Heading\n<title>Title</title>"), "Title");
}

TEST(ContentTitle, OfAPageWithoutATitleIsItsFirstHeadingOfMarkdown) {
  EXPECT_EQ(htmlTitle("<p>x</p>\n# Heading\n"), "Heading");
  EXPECT_EQ(htmlTitle("<title> \n&nbsp;</title>\n# Heading\n"), "Heading");
  EXPECT_EQ(htmlTitle("<title>never closed\n# Heading"), "Heading");
  EXPECT_EQ(htmlTitle("<h1>x</h1>"), " the file ");
}

TEST(ContentTitle, OfWhatIsNotAPageIgnoresTheTitleElement) {
  EXPECT_EQ(markdownTitle("<title>x</title>"), " the file ");
  EXPECT_EQ(contentTitle("<title>x</title>", "f", "HTML"), "f");
}

TEST(ContentTitle, SurvivesAnyBytes) {
  EXPECT_EQ(markdownTitle("# \xFF\xC3 x"), "\xFF\xC3 x");
  EXPECT_EQ(contentTitle("# " + std::string(300, '\xFF'), "f", "markdown"), std::string(200, '\xFF'));
  EXPECT_EQ(markdownTitle(std::string_view("# a\0b", 5)), std::string_view("a\0b", 3));
  EXPECT_EQ(contentTitle("", "\xFF", "file"), "\xFF");
}

TEST(HTMLResourceReferences, AreImagesAndStyleSheetsInOrder) {
  const auto references = htmlResourceReferences(
      R"(<link rel="Alternate STYLESHEET" href="a.css"><img src="b&amp;.png"><link rel=icon href=c><script><img src=d>)");
  ASSERT_EQ(references.size(), 2U);
  EXPECT_EQ(references[0], (PythonHTMLTitle::ResourceReference{.reference = "a.css", .kind = "css"}));
  EXPECT_EQ(references[1], (PythonHTMLTitle::ResourceReference{.reference = "b&.png", .kind = "image"}));
}

}  // namespace
}  // namespace tessary::CaptureRules
