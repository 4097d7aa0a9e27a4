#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonHTMLTitle.h"

#include "HTMLVectors.h"

namespace tessary {
namespace {

using PythonHTMLTitle::ResourceReference;
using PythonHTMLTitle::resourceReferences;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(PythonHTMLTitle, IsTheTextThatCPythonSeesInTitleElements) {
  const auto records = readHTMLVectors("titles.txt");
  ASSERT_GT(records.size(), 1000U);
  for (const HTMLVector& record : records)
    EXPECT_EQ(PythonHTMLTitle::text(record.at(0)), record.at(1)) << record[0];
}

TEST(PythonHTMLTitle, IsDecodedRawText) {
  EXPECT_EQ(PythonHTMLTitle::text("<title>A &amp; B</title>"), "A & B");
  EXPECT_EQ(PythonHTMLTitle::text("<TITLE>x</TITLE>"), "x");
  EXPECT_EQ(PythonHTMLTitle::text("<title>a<b>c</title>"), "a<b>c");
  EXPECT_EQ(PythonHTMLTitle::text("<title>\n a  b </title >"), "\n a  b ");
}

TEST(PythonHTMLTitle, CollectsLaterTitlesToo) {
  EXPECT_EQ(PythonHTMLTitle::text("<title>a</title><svg><title>b</title></svg>"), "ab");
}

TEST(PythonHTMLTitle, IsNoneWhereItsElementIsNeverClosed) {
  EXPECT_EQ(PythonHTMLTitle::text("<title>a"), "");
  EXPECT_EQ(PythonHTMLTitle::text("<title>a</title"), "") << "the name may go on";
  EXPECT_EQ(PythonHTMLTitle::text("<title>a</title "), "a") << "the tag is unfinished, but the text before it is sure";
  EXPECT_EQ(PythonHTMLTitle::text("<title/>a"), "");
  EXPECT_EQ(PythonHTMLTitle::text("<p>a"), "");
  EXPECT_EQ(PythonHTMLTitle::text(""), "");
}

TEST(PythonHTMLTitle, ReadsBrokenBytesAsReplacementCharacters) {
  EXPECT_EQ(PythonHTMLTitle::text("<title>\xE2&#1;\x82\xAC</title>"), "\uFFFD\uFFFD\uFFFD");
}

TEST(HTMLResourceReferences, AreThoseThatCPythonsParserShows) {
  const auto records = readHTMLVectors("resources.txt");
  ASSERT_GT(records.size(), 1000U);
  for (const HTMLVector& record : records) {
    std::vector<ResourceReference> expected;
    for (std::size_t index = 1; index < record.size(); index += 2)
      expected.push_back({record[index + 1], record[index]});
    EXPECT_EQ(resourceReferences(record[0]), expected) << record[0];
  }
}

TEST(HTMLResourceReferences, AreImagesAndStyleSheetsInTheOrderOfThePage) {
  EXPECT_THAT(resourceReferences("<link rel='x STYLEsheet' href=a><img src='b?c&amp;d'><link href=e rel=icon>"),
              ElementsAre(ResourceReference{"a", "css"}, ResourceReference{"b?c&d", "image"}));
  EXPECT_THAT(
      resourceReferences("<img src><img src=''><link rel=stylesheet><link rel=stylesheet href=''><link href=a>"),
      IsEmpty());
}

TEST(HTMLResourceReferences, TakeTheFirstAttributeOfAName) {
  EXPECT_THAT(resourceReferences("<img src=a src=b><img src src=c>"), ElementsAre(ResourceReference{"a", "image"}));
}

TEST(HTMLResourceReferences, HaveAnAddressThatIsNotEmptyOnceDecoded) {
  EXPECT_THAT(resourceReferences("<img src='&#1;'><link rel=stylesheet href=&#xFFFE;>"), IsEmpty());
  EXPECT_THAT(resourceReferences("<img src=' '><img src=&#0;>"),
              ElementsAre(ResourceReference{" ", "image"}, ResourceReference{"\uFFFD", "image"}));
  EXPECT_THAT(resourceReferences("<img src='' src=a>"), IsEmpty()) << "the first counts, also where it is empty";
}

TEST(HTMLResourceReferences, SeparateRelationsByPythonsWhiteSpace) {
  for (const std::string space : {"\v", "\x1C", "\u0085", "\u00A0", "\u3000"}) {
    const std::string html = "<link href=a rel='x" + space + "StyleSheet" + space + "y'>";
    EXPECT_THAT(resourceReferences(html), ElementsAre(ResourceReference{"a", "css"})) << html;
  }
  for (const std::string other : {",", "\u180E", "\u200B", "\uFEFF"}) {
    const std::string html = "<link href=a rel='x" + other + "stylesheet'>";
    EXPECT_THAT(resourceReferences(html), IsEmpty()) << html;
  }
  EXPECT_THAT(resourceReferences("<link href=a rel='style\u017Fheet'>"), IsEmpty()) << "lower-cased, not folded";
  EXPECT_THAT(resourceReferences("<link href=a rel rel=stylesheet>"), IsEmpty());
}

TEST(HTMLResourceReferences, InsidePassiveElementsDoNotCount) {
  for (const std::string element : {"script", "template", "noscript", "textarea"}) {
    const std::string html = "<" + element + "><img src=a></" + element + "><img src=b>";
    EXPECT_THAT(resourceReferences(html), ElementsAre(ResourceReference{"b", "image"})) << html;
    const std::string selfClosed = "<" + element + "/><img src=a>";
    EXPECT_THAT(resourceReferences(selfClosed), ElementsAre(ResourceReference{"a", "image"})) << selfClosed;
    const std::string closedTooOften = "</" + element + "></" + element + "><img src=a>";
    EXPECT_THAT(resourceReferences(closedTooOften), ElementsAre(ResourceReference{"a", "image"})) << closedTooOften;
  }
  EXPECT_THAT(resourceReferences("<template><template></template><img src=a></template><img src=b>"),
              ElementsAre(ResourceReference{"b", "image"}));
}

TEST(HTMLResourceReferences, AreReadToTheEndOfAnUnfinishedPage) {
  EXPECT_THAT(resourceReferences("<img src=a><title>b<img src=c>"), ElementsAre(ResourceReference{"a", "image"}));
  EXPECT_THAT(resourceReferences("<img src=a>&am"), ElementsAre(ResourceReference{"a", "image"}));
}

TEST(HTMLResourceReferences, StopAtTheLimitOfStartTags) {
  const auto page = [](std::size_t before) {
    std::string html;
    for (std::size_t count = 0; count < before; ++count)
      html += count % 2 == 0 ? "<p>" : "</i><br/>";
    return html + "<img src=a>";
  };
  constexpr std::size_t limit = PythonHTMLTitle::resourceReferenceTagLimit;
  EXPECT_EQ(limit, 4096U);
  EXPECT_EQ(resourceReferences(page(limit - 2)).size(), 1U);
  EXPECT_EQ(resourceReferences(page(limit - 1)).size(), 1U);
  EXPECT_EQ(resourceReferences(page(limit)).size(), 0U);
}

TEST(HTMLResourceReferences, CountStartTagsInsidePassiveElementsTowardsTheLimit) {
  const auto page = [](std::size_t inside) {
    std::string html = "<template>";
    for (std::size_t count = 0; count < inside; ++count)
      html += "<img src=a>";
    return html + "</template><img src=b>";
  };
  constexpr std::size_t limit = PythonHTMLTitle::resourceReferenceTagLimit;
  EXPECT_THAT(resourceReferences(page(limit - 2)), ElementsAre(ResourceReference{"b", "image"}));
  EXPECT_THAT(resourceReferences(page(limit - 1)), IsEmpty());
}

}  // namespace
}  // namespace tessary
