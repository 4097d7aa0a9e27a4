#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/TextPieces.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

/// The same by another door of the authority.
std::string loweredByICU(std::string_view text) {
  std::string lowered;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text)).toLower(icu::Locale::getRoot()).toUTF8String(lowered);
  return lowered;
}

TEST(Casing, LowersASCIILettersAndNoOtherASCII) {
  std::string all;
  for (char byte = 0; byte < 0x7F; ++byte)
    all.push_back(byte);
  EXPECT_EQ(lowercased(all), loweredByICU(all));
  EXPECT_EQ(lowercased("README.MD [@A-Z`a-z{]"), "readme.md [@a-z`a-z{]");
  EXPECT_EQ(lowercased(""), "");
  EXPECT_EQ(lowercased(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

TEST(Casing, LowersEveryScalarAsICUDoes) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    std::string text;
    appendScalar(text, scalar);
    ASSERT_EQ(lowercased(text), loweredByICU(text)) << static_cast<unsigned>(scalar);
  }
}

TEST(Casing, MayTurnOneScalarIntoSeveral) {
  EXPECT_EQ(lowercased("\u0130X"), "i\u0307x");
}

TEST(Casing, TellsASigmaAtTheEndOfAWordFromOthers) {
  EXPECT_EQ(lowercased("\u039F\u0394\u039F\u03A3 \u03A3\u0391"), "\u03BF\u03B4\u03BF\u03C2 \u03C3\u03B1");
  EXPECT_EQ(lowercased("\u03A3"), "\u03C3");
  EXPECT_EQ(lowercased("A\u03A3.B"), "a\u03C3.b") << "a full stop between is passed over";
  EXPECT_EQ(lowercased("A\u03A3-B"), "a\u03C2-b");
}

/// Words with a sigma, of lengths on both sides of what ASCII paths take at once.
TEST(Casing, SeesAWordsLettersHoweverFarFromTheSigma) {
  for (std::size_t letters = 0; letters < 20; ++letters) {
    for (std::size_t stops = 0; stops < 20; ++stops) {
      const std::string upper(letters, 'A'), lower(letters, 'a'), between(stops, '.');
      EXPECT_EQ(lowercased(upper + between + "\u03A3"), lower + between + (letters == 0 ? "\u03C3" : "\u03C2"));
      EXPECT_EQ(lowercased(upper + "\u03A3" + between + "B"), lower + "\u03C3" + between + "b");
    }
  }
}

TEST(Casing, InPiecesIsCasingOfTheWhole) {
  const std::vector<std::string> alphabet = {"A",      "b",      " ",      "-",      ".",         "'",
                                             "\u03A3", "\u03A3", "\u0301", "\u0130", "\u02B0",    "\u00AD",
                                             "\u4E2D", "\u0345", "\xFF",   "ABCD",   "\U00010400"};
  std::mt19937 random(31);
  for (int round = 0; round < 10'000; ++round) {
    std::string text;
    for (std::size_t pieces = random() % 24; pieces > 0; --pieces)
      text += alphabet[random() % alphabet.size()];
    const std::size_t least = 1 + random() % 16;
    ASSERT_EQ(lowercasedInPieces(text, {.least = least, .most = 1000}), loweredByICU(text))
        << testing::PrintToString(text) << " by " << least;
  }
}

TEST(Casing, CutsAWordOnlyWhenItIsLongerThanAPieceMayBe) {
  const PieceSize size{.least = 4, .most = 8};
  EXPECT_EQ(lowercasedInPieces("\u03A3\u03A3\u03A3\u03A3", size), "\u03C3\u03C3\u03C3\u03C2");
  EXPECT_EQ(lowercasedInPieces("\u03A3\u03A3\u03A3\u03A3\u03A3", size), "\u03C3\u03C3\u03C3\u03C2\u03C3");
  EXPECT_EQ(lowercasedInPieces("\u03A3\u03A3\u03A3 \u03A3\u03A3\u03A3", size), "\u03C3\u03C3\u03C2 \u03C3\u03C3\u03C2");
}

TEST(Casing, ReadsBrokenSequencesAsReplacementCharacters) {
  EXPECT_EQ(lowercased("A\xFF"
                       "B\xE1\x80"
                       "C"),
            "a\uFFFDb\uFFFDc");
  EXPECT_EQ(lowercased("\xC3"), "\uFFFD");
}

}  // namespace
}  // namespace tessary
