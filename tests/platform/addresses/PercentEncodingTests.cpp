#include <array>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/addresses/PercentEncoding.h"

namespace tessary {
namespace {

using PercentEncoding::ASCIISet;

TEST(PercentEncoding, LeavesTheUnreservedCharactersAlone) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  std::string expected;
  for (int byte = 0; byte < 256; ++byte) {
    const bool isKept = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
                        byte == '-' || byte == '.' || byte == '_' || byte == '~';
    std::array<char, 4> escape{};
    std::snprintf(escape.data(), escape.size(), "%%%02X", static_cast<unsigned>(byte));
    expected += isKept ? std::string(1, static_cast<char>(byte)) : std::string(escape.data());
  }
  EXPECT_EQ(PercentEncoding::encoded(all), expected);
  EXPECT_EQ(PercentEncoding::decoded(expected), all);
}

TEST(PercentEncoding, KeepsTheSetThatItIsGiven) {
  EXPECT_EQ(PercentEncoding::encoded("a+b&c d%", ASCIISet("+ ")), "%61+%62%26%63 %64%25");
  EXPECT_EQ(PercentEncoding::encoded("/a b", PercentEncoding::unreserved | ASCIISet("/")), "/a%20b");
  EXPECT_EQ(PercentEncoding::encoded("한"), "%ED%95%9C");
  EXPECT_EQ(PercentEncoding::encoded(""), "");
}

TEST(PercentEncoding, DecodesDigitsOfBothCases) {
  EXPECT_EQ(PercentEncoding::decoded("%ed%95%9C%2f%2F"), "한//");
  EXPECT_EQ(PercentEncoding::decoded("%00%ff"), std::string("\0\xFF", 2));
  EXPECT_EQ(PercentEncoding::decoded("%2541"), "%41");
  EXPECT_EQ(PercentEncoding::decoded(""), "");
}

TEST(PercentEncoding, AnIncompleteEscapeIsAbsent) {
  for (const std::string_view text : {"%", "a%", "%4", "a%4", "%4g", "%g4", "%%41", "%-1", "% 1", "%+1", "%4\xEF"}) {
    EXPECT_EQ(PercentEncoding::decoded(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tessary
