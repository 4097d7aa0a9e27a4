#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonHTMLTitleReferences.h"
#include "TessaryPlatform/text/UTF8.h"

#include "HTMLVectors.h"

namespace tessary {
namespace {

using PythonHTMLTitle::unescape;
using PythonHTMLTitle::unescapeAttribute;

TEST(PythonHTMLTitleReferences, AreDecodedAsCPythonDecodesThem) {
  const auto records = readHTMLVectors("unescape.txt");
  ASSERT_GT(records.size(), 10000U);
  for (const HTMLVector& record : records) {
    EXPECT_EQ(unescape(record.at(0)), record.at(1)) << "text " << record.at(0);
    EXPECT_EQ(unescapeAttribute(record.at(0)), record.at(2)) << "attribute " << record.at(0);
    EXPECT_EQ(toUTF8(unescape(toScalars(record.at(0)))), record.at(1)) << "scalars " << record.at(0);
    EXPECT_EQ(toUTF8(unescapeAttribute(toScalars(record.at(0)))), record.at(2)) << "scalars " << record.at(0);
  }
}

TEST(PythonHTMLTitleReferences, LeaveTextWithoutAmpersandAsItIs) {
  EXPECT_EQ(unescape(""), "");
  EXPECT_EQ(unescape("lt; #65; 漢字"), "lt; #65; 漢字");
  EXPECT_EQ(unescapeAttribute(U"a=b;c"), U"a=b;c");
}

TEST(PythonHTMLTitleReferences, PreferTheWholeNameToTheLongestBeginning) {
  EXPECT_EQ(unescape("&notin;"), "∉");
  EXPECT_EQ(unescape("&notit;"), "¬it;");
  EXPECT_EQ(unescape("&notin"), "¬in");
  EXPECT_EQ(unescape("&copy=2"), "©=2");
}

TEST(PythonHTMLTitleReferences, StayInAnAttributeWhereTheyMayBePartOfAnAddress) {
  EXPECT_EQ(unescapeAttribute("a?x=1&copy=2"), "a?x=1&copy=2");
  EXPECT_EQ(unescapeAttribute("&copyx &copy1 &copy"), "&copyx &copy1 ©");
  EXPECT_EQ(unescapeAttribute("&notit;"), "&notit;") << "the name that matched is \"not\"";
  EXPECT_EQ(unescapeAttribute("&notin;"), "∉");
  EXPECT_EQ(unescapeAttribute("&copy-x &copyé &copy;="), "©-x ©é ©=");
  EXPECT_EQ(unescapeAttribute("&#65x &#x41="), "Ax A=") << "numbers are decoded everywhere";
}

TEST(PythonHTMLTitleReferences, ByNumberFollowTheRulesForBadNumbers) {
  EXPECT_EQ(unescape("&#0;&#13;&#128;&#129;"), "\uFFFD\r€\u0081");
  EXPECT_EQ(unescape("&#xD800;&#xDFFF;&#x110000;"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(unescape("[&#1;&#11;&#127;&#xFDD0;&#xFFFF;&#x10FFFE;]"), "[]");
  EXPECT_EQ(unescape("&#9;&#10;&#12;"), "\t\n\f");
}

/// CPython raises an error beyond 4,300 digits, whatever the number; a page must not be able to do that.
TEST(PythonHTMLTitleReferences, MayHaveAnyNumberOfDigits) {
  for (const std::size_t count : {4299U, 4300U, 4301U, 1U << 20}) {
    EXPECT_EQ(unescape("&#" + std::string(count, '9') + ";a"), "\uFFFDa");
    EXPECT_EQ(unescape("&#x" + std::string(count, 'F') + "g"), "\uFFFDg");
    EXPECT_EQ(unescape("&#" + std::string(count, '0') + "65;"), "A");
  }
}

TEST(PythonHTMLTitleReferences, AreDecodedOnceOnly) {
  EXPECT_EQ(unescape("&amp;lt;&#38;lt;"), "&lt;&lt;");
}

TEST(PythonHTMLTitleReferences, ThatVanishDoNotJoinBrokenBytes) {
  EXPECT_EQ(unescape("\xE2&#1;\x82\xAC"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(unescape("\xFF&amp;"), "\uFFFD&");
  EXPECT_EQ(unescape("\xFF"), "\uFFFD");
}

TEST(PythonHTMLTitleReferences, DoNotReadBehindTheirText) {
  for (const std::string_view whole :
       {"&notin;", "&#x41;", "&#65;", "&lt;", "&lt=", "&#x", "&CounterClockwiseContourIntegral;"}) {
    for (std::size_t length = 0; length <= whole.size(); ++length) {
      // Exactly sized, so that the sanitizer sees a byte too far.
      const std::vector<char> bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
      const std::string_view exact(bytes.data(), bytes.size());
      const std::u32string wide = toScalars(exact);
      EXPECT_EQ(unescape(exact), toUTF8(unescape(wide)));
      EXPECT_EQ(unescapeAttribute(exact), toUTF8(unescapeAttribute(wide)));
    }
  }
}

}  // namespace
}  // namespace tessary
