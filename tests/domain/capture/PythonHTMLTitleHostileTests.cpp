// Linear time on pages built to be slow: a mebibyte of each unit that a scan could start anew for every repetition. A
// quadratic scan would take many minutes for one of them and run into the limit of the test.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;

struct HostilePage {
  /// For the name of the test.
  const char* name;
  std::string prefix;
  std::string unit;
  /// What every repetition of the unit must give as events with the end known; absent events are not counted.
  std::size_t eventsPerUnit;
  std::string suffix = {};
};

/// The page: the prefix, the unit over a mebibyte, the suffix. `repetitions` is how often the unit stands there.
std::string makePage(const HostilePage& page, std::size_t& repetitions) {
  repetitions = mebibyte / page.unit.size();
  std::string html = page.prefix;
  html.reserve(mebibyte + page.prefix.size() + page.suffix.size());
  for (std::size_t count = 0; count < repetitions; ++count)
    html += page.unit;
  return html + page.suffix;
}

template <typename Unit>
std::size_t countEvents(std::basic_string_view<Unit> html, bool end) {
  std::size_t count = 0;
  std::size_t position = 0;
  bool isInOrder = true;
  PythonHTMLTitle::BasicParser<Unit> parser(html);
  parser.run(end, [&](const PythonHTMLTitle::BasicEvent<Unit>& event) {
    ++count;
    if (const auto* text = std::get_if<PythonHTMLTitle::Text>(&event)) {
      isInOrder &= position <= text->begin && text->begin < text->end && text->end <= parser.source().size();
      position = text->end;
    }
  });
  EXPECT_TRUE(isInOrder);
  return count;
}

class HostileHTML : public testing::TestWithParam<HostilePage> {};

TEST_P(HostileHTML, IsReadInLinearTime) {
  std::size_t repetitions = 0;
  const std::string html = makePage(GetParam(), repetitions);
  const std::u32string scalars = toScalars(html);
  const std::size_t count = countEvents<char>(html, true);
  const std::size_t expected = GetParam().eventsPerUnit * repetitions;
  EXPECT_GE(count, expected);
  EXPECT_LE(count, expected + 3) << "what the prefix and the end of the input give";
  EXPECT_EQ(countEvents<char32_t>(scalars, true), count);
  EXPECT_LE(countEvents<char>(html, false), count);
  EXPECT_LE(countEvents<char32_t>(scalars, false), count);
  EXPECT_LE(PythonHTMLTitle::text(html).size(), 3 * html.size()) << "a broken byte becomes three";
  EXPECT_LE(PythonHTMLTitle::resourceReferences(html).size(), PythonHTMLTitle::resourceReferenceTagLimit);
}

TEST_P(HostileHTML, IsDecodedInLinearTime) {
  std::size_t repetitions = 0;
  const std::string html = makePage(GetParam(), repetitions);
  EXPECT_LE(PythonHTMLTitle::unescape(html).size(), 3 * html.size());
  EXPECT_LE(PythonHTMLTitle::unescapeAttribute(html).size(), 3 * html.size());
}

INSTANTIATE_TEST_SUITE_P(
    Pages, HostileHTML,
    testing::Values(
        // Markup that is never finished.
        HostilePage{"Less", "", "<", 1}, HostilePage{"CommentStart", "", "<!--", 0},
        HostilePage{"CommentStartThenEnd", "", "<!-", 0, ">"}, HostilePage{"TagStart", "", "<a ", 0},
        HostilePage{"EndTagStart", "", "</", 0}, HostilePage{"EndTagName", "", "</a ", 0},
        HostilePage{"Declaration", "", "<!", 0}, HostilePage{"Instruction", "", "<?", 0},
        HostilePage{"Section", "", "<![CDATA[", 0}, HostilePage{"SectionEnds", "<![CDATA[", "]]", 0},
        HostilePage{"SectionGreater", "<![CDATA[", "]>", 0}, HostilePage{"CommentHyphens", "<!--", "-", 0},
        HostilePage{"CommentGreater", "<!--", "->", 0}, HostilePage{"CommentExclamation", "<!--", "--!", 0},
        // Quotes and attributes.
        HostilePage{"OpenQuote", "", "<a b='", 0}, HostilePage{"NestedQuotes", "<a ", "b='\"' c=\"'\" ", 0},
        HostilePage{"ClosedQuotesAndOpenTag", "", "<a b='' ", 0}, HostilePage{"OpenQuoteThenEnd", "<a b='", "<p>", 0},
        HostilePage{"Attributes", "<a", " b", 0}, HostilePage{"ClosedAttributes", "<a", " B=&lt;", 0, ">"},
        HostilePage{"WhiteSpaceInTag", "<a b", " ", 0, ">"},
        HostilePage{"WhiteSpaceBeforeValue", "<a b=", "\n", 0, ">"},
        HostilePage{"NameThenWhiteSpace", "<a", " b  \t  ", 0, "=c>"}, HostilePage{"Slashes", "<a", "/", 0, ">"},
        HostilePage{"Equals", "<a ", "=", 0, ">"}, HostilePage{"LongName", "<", "A", 0, ">"},
        HostilePage{"LongForeignName", "<a", "Σ", 0, ">"}, HostilePage{"ForeignAttributes", "<a", " İ", 0, ">"},
        HostilePage{"EndTagAttributes", "</a", " b='>'", 0, ">"},
        // Markup that is finished, again and again.
        HostilePage{"Tags", "", "<p>", 1}, HostilePage{"SelfClosing", "", "<a/>", 2},
        HostilePage{"Comments", "", "<!-->", 0}, HostilePage{"BogusComments", "", "</1>", 0},
        // A comment may end in two ways; to look for each by itself would scan all that follows for the one never used.
        HostilePage{"UsualComments", "", "<!-- x -->", 0}, HostilePage{"OddComments", "", "<!-- x --!>", 0},
        HostilePage{"Sections", "", "<![CDATA[x]]>", 0}, HostilePage{"Instructions", "", "<?x>", 0},
        HostilePage{"Doctypes", "", "<!DOCTYPE>", 0}, HostilePage{"EndTags", "", "</a b='>'>", 1},
        HostilePage{"Scripts", "", "<script></script>", 2}, HostilePage{"NestedTags", "", "<b>x", 2},
        HostilePage{"Titles", "", "<title>&lt</title>", 3}, HostilePage{"PassiveElements", "", "<template>", 1},
        // Raw text.
        HostilePage{"OpenScript", "", "<script>", 0}, HostilePage{"OpenTitle", "", "<title>", 0},
        HostilePage{"ScriptEndCut", "<script>", "</script", 0}, HostilePage{"TitleEndCut", "<title>", "</titl", 0},
        HostilePage{"ScriptEndsUnfinished", "<script>", "</script ", 0},
        HostilePage{"ScriptEndsWithQuote", "<script>", "</script a='", 0},
        HostilePage{"Plaintext", "", "<plaintext>", 0},
        // References.
        HostilePage{"Ampersands", "", "&", 0},
        HostilePage{"NamesThatAreNone", "", "&CounterClockwiseContourIntegra", 0},
        HostilePage{"AmpersandsAndBlanks", "", "& ", 0}, HostilePage{"OneLongName", "&", "a", 0},
        HostilePage{"OneLongNumber", "&#", "9", 0}, HostilePage{"ReferencesInTag", "<a b='", "&lt;", 0, "'>"},
        HostilePage{"VanishingReferences", "", "&#1;", 0}, HostilePage{"Broken", "<title>", "\x80", 0, "</title>"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tessary
