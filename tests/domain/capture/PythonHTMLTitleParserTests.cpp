#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonHTMLTitleParser.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/UTF8.h"

#include "HTMLEvents.h"
#include "HTMLVectors.h"

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Holds a file of inputs and events to the scanner: over scalars and over UTF-8, with the end known and not.
void expectEvents(std::string_view file, std::size_t least) {
  const auto records = readHTMLVectors(file);
  ASSERT_GT(records.size(), least);
  for (const HTMLVector& record : records) {
    const HTMLEvents closed(record.begin() + 2, record.end());
    const HTMLEvents fed(closed.begin(), closed.begin() + std::stoi(record.at(1)));
    EXPECT_EQ(scalarEvents(record[0], true), closed) << record[0];
    EXPECT_EQ(scalarEvents(record[0], false), fed) << "without end: " << record[0];
    EXPECT_EQ(utf8Events(record[0], true), closed) << "UTF-8: " << record[0];
    EXPECT_EQ(utf8Events(record[0], false), fed) << "UTF-8, without end: " << record[0];
  }
}

TEST(PythonHTMLTitleParser, SeesTheEventsThatCPythonSees) {
  expectEvents("events.txt", 12000);
}

TEST(PythonHTMLTitleParser, DepartsFromCPythonAsItsTwoRulesSay) {
  expectEvents("departures.txt", 100);
}

TEST(PythonHTMLTitleParser, EndsAnEmptyCommentAtOnceAlsoWhereAnotherEndFollows) {
  EXPECT_THAT(utf8Events("<!-->a-->b", true), ElementsAre("Ta-->b"));
  EXPECT_THAT(utf8Events("<!--->a-->b", true), ElementsAre("Ta-->b"));
  EXPECT_THAT(utf8Events("<!---->a-->b", true), ElementsAre("Ta-->b"));
  EXPECT_THAT(utf8Events("<!-- x --!>b", true), ElementsAre("Tb"));
  EXPECT_THAT(utf8Events("<!---!>b-->c", true), ElementsAre("Tc"));
}

TEST(PythonHTMLTitleParser, LetsAQuoteThatIsLeftOpenRunToTheEnd) {
  EXPECT_THAT(utf8Events("<a b=\"c>d", true), IsEmpty());
  EXPECT_THAT(utf8Events("<a b= \"c>d", true), IsEmpty());
  EXPECT_THAT(utf8Events("<a \"=\"c>d", true), IsEmpty());
  EXPECT_THAT(utf8Events("x</a b='c>d", true), ElementsAre("Tx"));
  // With a ">" as the last of the input.
  EXPECT_THAT(utf8Events("<a b=\"&lt;<p>", true), ElementsAre("T<a b=\"&lt;<p>"));
  EXPECT_THAT(utf8Events("<a b= 'c>", false), ElementsAre("T<a b= 'c>"));
  EXPECT_THAT(utf8Events("<a b='c/>", true), ElementsAre("T<a b='c/>"));
  EXPECT_THAT(utf8Events("<script b='c>", true), ElementsAre("T<script b='c>"));
  EXPECT_THAT(utf8Events("x</A b='c>", true), ElementsAre("Tx", "Ea"));
}

TEST(PythonHTMLTitleParser, LowersNamesByTheFullRules) {
  EXPECT_THAT(utf8Events("<É><eÉCOLE ΟΔΟΣ=Σ İ>", true), ElementsAre("T<", "TÉ>", "Seécole", "Aοδος", "VΣ", "Ai\u0307"));
}

/// What allows the names of raw elements to be compared as ASCII.
TEST(PythonHTMLTitleParser, NeedsOnlyASCIIToLowerTheNamesOfRawElements) {
  for (char32_t scalar = 0x80; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    const std::string lower = lowercased(toUTF8(std::u32string(1, scalar)));
    EXPECT_TRUE(lower.size() > 1 || scalar == 0x212A) << static_cast<std::uint32_t>(scalar);
  }
}

TEST(PythonHTMLTitleParser, ReadsWhiteSpaceBeforeTheEqualsSignAsPartOfTheAttribute) {
  EXPECT_THAT(utf8Events("<a b \n= '>'c>", true), ElementsAre("Sa", "Ab", "V>", "Ac"));
  EXPECT_THAT(utf8Events("<a b / = '>'", true), ElementsAre("Sa", "Ab", "A=", "A'", "T'"));
}

TEST(PythonHTMLTitleParser, ClosesATagItselfOnlyWithTheSlashDirectlyBeforeItsEnd) {
  EXPECT_THAT(utf8Events("<br/>", true), ElementsAre("Sbr", "Ebr"));
  EXPECT_THAT(utf8Events("<br / >", true), ElementsAre("Sbr"));
  EXPECT_THAT(utf8Events("<br a=b/>", true), ElementsAre("Sbr", "Aa", "Vb/"));
  EXPECT_THAT(utf8Events("<br a='b'/>", true), ElementsAre("Sbr", "Aa", "Vb", "Ebr"));
  EXPECT_THAT(utf8Events("<style/>a<b>", true), ElementsAre("Sstyle", "Estyle", "Ta", "Sb"));
}

TEST(PythonHTMLTitleParser, KeepsAnOpenRawElementAsTextOnlyAtTheEnd) {
  EXPECT_THAT(utf8Events("<script>a &amp; <b>", true), ElementsAre("Sscript", "Ta &amp; <b>"));
  EXPECT_THAT(utf8Events("<script>a &amp; <b>", false), ElementsAre("Sscript"));
  EXPECT_THAT(utf8Events("<title>a &amp; <b>", true), ElementsAre("Stitle", "Ta & <b>"));
  EXPECT_THAT(utf8Events("<plaintext>a &amp; <b>", false), ElementsAre("Splaintext", "Ta &amp; <b>"));
}

/// A reference may be cut off if its "&" is one of the last 34 scalars.
TEST(PythonHTMLTitleParser, WaitsForTheRestOfAReferenceWithinTheLast34Scalars) {
  for (const std::string unit : {"a", "é", "漢", "😀"}) {
    for (const std::size_t behind : {0U, 1U, 32U, 33U}) {
      std::string html = "<p>x&";
      for (std::size_t count = 0; count < behind; ++count)
        html += unit;
      EXPECT_THAT(utf8Events(html, false), ElementsAre("Sp")) << html;
      EXPECT_EQ(utf8Events(html, true).size(), 2U) << html;
      EXPECT_THAT(scalarEvents(html, false), ElementsAre("Sp")) << html;
    }
    std::string html = "<p>x&";
    for (std::size_t count = 0; count < 34; ++count)
      html += unit;
    EXPECT_EQ(utf8Events(html, false).size(), 2U) << html;
    EXPECT_EQ(scalarEvents(html, false).size(), 2U) << html;
  }
  for (const char stop : std::string("\t\n\r\f ;"))
    EXPECT_EQ(utf8Events(std::string("a&b") + stop, false).size(), 1U) << static_cast<int>(stop);
  EXPECT_THAT(utf8Events("a&b\v", false), IsEmpty());
}

TEST(PythonHTMLTitleParser, GivesRangesOfItsSourceAndAttributesWithOrWithoutValue) {
  const std::u32string html = U"é<P A=1 b C=\"&amp;\">x&lt;</P>";
  PythonHTMLTitle::Parser parser(html);
  std::vector<PythonHTMLTitle::Text> texts;
  parser.run(/*end=*/true, [&](const PythonHTMLTitle::Event& event) {
    if (const auto* text = std::get_if<PythonHTMLTitle::Text>(&event)) texts.push_back(*text);
    if (const auto* start = std::get_if<PythonHTMLTitle::Parser::Start>(&event)) {
      EXPECT_EQ(start->tag, U"p");
      ASSERT_EQ(start->attributes.size(), 3U);
      EXPECT_EQ(start->firstValue(U"a"), U"1");
      EXPECT_EQ(start->firstValue(U"b"), std::nullopt);
      EXPECT_EQ(start->firstValue(U"c"), U"&");
      EXPECT_EQ(start->firstValue(U"d"), std::nullopt);
    }
  });
  EXPECT_THAT(texts, ElementsAre(PythonHTMLTitle::Text{0, 1, true}, PythonHTMLTitle::Text{20, 25, true}));
  EXPECT_EQ(parser.slice(texts[1]), U"x&lt;");
}

TEST(PythonHTMLTitleParser, BeginsEveryRunAnew) {
  PythonHTMLTitle::UTF8Parser parser("<script>a");
  for (int run = 0; run < 2; ++run) {
    std::size_t count = 0;
    parser.run(/*end=*/true, [&](const PythonHTMLTitle::UTF8Event&) { ++count; });
    EXPECT_EQ(count, 2U);
  }
}

TEST(PythonHTMLTitleParser, ReadsBrokenBytesAsReplacementCharacters) {
  EXPECT_THAT(utf8Events("\xFF<a\xC3 b\xE2=\x82\xAC>\xE2&#1;\x82</a\xC3>", true),
              ElementsAre("T\uFFFD", "Sa\uFFFD", "Ab\uFFFD", "V\uFFFD\uFFFD", "T\uFFFD\uFFFD", "Ea\uFFFD"));
}

}  // namespace
}  // namespace tessary
