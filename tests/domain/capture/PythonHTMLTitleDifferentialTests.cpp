// The scanner against a slow reading of its rules: exhaustively over small alphabets, then at random.

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryPlatform/text/UTF8.h"

#include "HTMLEvents.h"

namespace tessary {
namespace {

void expectAgreement(const std::string& html) {
  for (const bool end : {true, false}) {
    const HTMLEvents expected = referenceEvents(html, end);
    ASSERT_EQ(utf8Events(html, end), expected) << "UTF-8, end " << end << ": " << html;
    ASSERT_EQ(scalarEvents(html, end), expected) << "scalars, end " << end << ": " << html;
  }
}

void expectAgreementOnReferences(const std::string& text) {
  const std::u32string scalars = toScalars(text);
  for (const bool isAttribute : {true, false}) {
    const std::u32string expected = referenceUnescape(scalars, isAttribute);
    const auto decoded = isAttribute ? PythonHTMLTitle::unescapeAttribute(scalars) : PythonHTMLTitle::unescape(scalars);
    ASSERT_EQ(toUTF8(decoded), toUTF8(expected)) << "scalars: " << text;
    ASSERT_EQ(isAttribute ? PythonHTMLTitle::unescapeAttribute(text) : PythonHTMLTitle::unescape(text),
              toUTF8(expected))
        << "UTF-8: " << text;
  }
}

/// Hands on every text of up to `length` units of the alphabet behind `prefix`.
template <typename Check>
void forEachText(const std::vector<std::string>& alphabet, const std::string& prefix, std::size_t length, Check check) {
  std::vector<std::size_t> digits;
  while (digits.size() <= length && !testing::Test::HasFatalFailure()) {
    std::string text = prefix;
    for (const std::size_t digit : digits)
      text += alphabet[digit];
    check(text);
    std::size_t place = 0;
    while (place < digits.size() && ++digits[place] == alphabet.size())
      digits[place++] = 0;
    if (place == digits.size()) digits.assign(digits.size() + 1, 0);
  }
}

TEST(PythonHTMLTitleDifferential, AgreesOnEveryShortText) {
  forEachText({"<", "/", ">", "a", "!", "-", " ", "=", "\"", "&", "é"}, "", 4, expectAgreement);
}

TEST(PythonHTMLTitleDifferential, AgreesOnEveryShortTag) {
  forEachText({"/", ">", "b", " ", "=", "\"", "'", "<"}, "<a", 5, expectAgreement);
  forEachText({"/", ">", "b", " ", "=", "\""}, "</a", 4, expectAgreement);
}

TEST(PythonHTMLTitleDifferential, AgreesOnEveryShortComment) {
  forEachText({"-", "!", ">", "a"}, "<!-", 6, expectAgreement);
  forEachText({"]", ">", "a", "["}, "<![CDATA", 5, expectAgreement);
}

TEST(PythonHTMLTitleDifferential, AgreesOnEveryShortRawText) {
  for (const std::string prefix : {"<title>", "<script>", "<plaintext>"})
    forEachText({"<", "</", "title", "SCRIPT", ">", " ", "&lt"}, prefix, 4, expectAgreement);
}

TEST(PythonHTMLTitleDifferential, AgreesOnRandomMarkup) {
  const std::vector<std::string> pieces = {
      "<",      ">",   "/",    "=",     "\"",   "'",        "a",         "B",        "p",         " ",     "\n",
      "\t",     "\f",  "\r",   "\v",    "!",    "-",        "--",        "-->",      "--!>",      "<!--",  "<!-->",
      "<!--->", "?",   "&",    ";",     "#",    "&amp;",    "&lt",       "&notit;",  "&#65;",     "&#x41", "&copy=",
      "<a ",    "<p>", "</p>", "</",    "</a ", "<br/>",    "<title>",   "</title>", "<script>",  "é",     "</script>",
      "<xmp>",  "İ",   "Σ",    "漢",    "😀",   "</SCRIPT", "<textarea", "<style ",  "</style/>", "]]>",   "<![CDATA[",
      "<!DOC",  "x='", "y=\"", "z=&gt", "<?",   "<iframe>", "</iframe",  "\u00A0",   "K",         "\uFEFF"};
  const std::uint32_t seed = 20260317;
  std::mt19937 generator(seed);
  for (int round = 0; round < 6000 && !HasFatalFailure(); ++round) {
    std::string html;
    for (std::size_t count = generator() % 24; count > 0; --count)
      html += pieces[generator() % pieces.size()];
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    expectAgreement(html);
  }
}

TEST(PythonHTMLTitleDifferential, AgreesOnEveryShortReference) {
  forEachText({"a", "m", "p", "l", "t", ";", "=", "&"}, "&", 5, expectAgreementOnReferences);
  forEachText({"#", "x", "0", "8", "f", ";", "&"}, "&", 5, expectAgreementOnReferences);
  forEachText({"o", "t", "i", "n", ";", "é", " "}, "&no", 4, expectAgreementOnReferences);
}

TEST(PythonHTMLTitleDifferential, AgreesOnRandomReferences) {
  const std::vector<std::string> pieces = {"&",    "&",
                                           "&",    "#",
                                           "#x",   ";",
                                           "=",    "a",
                                           "Z",    "0",
                                           "9",    "F",
                                           " ",    "\n",
                                           "<",    "é",
                                           "漢",   "amp",
                                           "lt",   "GT",
                                           "not",  "in;",
                                           "copy", "ET",
                                           "H",    "frac12",
                                           "nGt",  "bne",
                                           "fj;",  "sup",
                                           "1",    "gg",
                                           "quot", "CounterClockwiseContourIntegral",
                                           "\v",   "-",
                                           "128",  "d800"};
  const std::uint32_t seed = 20260318;
  std::mt19937 generator(seed);
  for (int round = 0; round < 20000 && !HasFatalFailure(); ++round) {
    std::string text;
    for (std::size_t count = generator() % 12; count > 0; --count)
      text += pieces[generator() % pieces.size()];
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    expectAgreementOnReferences(text);
  }
}

}  // namespace
}  // namespace tessary
