#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/UTF8.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

// The operations that are fast because they look at bytes, against their rules written out over scalars.

using Texts = std::vector<std::string>;

Texts owned(const std::vector<std::string_view>& views) {
  return {views.begin(), views.end()};
}

/// A scalar as the rules see it, with the bytes that it came from.
struct Piece {
  char32_t scalar;
  std::string bytes;
};

std::vector<Piece> pieces(std::string_view text) {
  std::vector<Piece> result;
  for (std::size_t position = 0; position < text.size();) {
    const DecodedScalar decoded = decodeScalar(text, position);
    result.push_back({decoded.scalar, std::string(text.substr(position, decoded.byteCount))});
    position += decoded.byteCount;
  }
  return result;
}

std::string joined(const std::vector<Piece>& text, std::size_t start, std::size_t end) {
  std::string bytes;
  for (; start < end; ++start)
    bytes += text[start].bytes;
  return bytes;
}

std::string slowStrip(const std::vector<Piece>& text) {
  std::size_t start = 0;
  std::size_t end = text.size();
  while (start < end && PythonText::isSpace(text[start].scalar))
    ++start;
  while (end > start && PythonText::isSpace(text[end - 1].scalar))
    --end;
  return joined(text, start, end);
}

Texts slowSplit(const std::vector<Piece>& text) {
  Texts result;
  std::string piece;
  for (const Piece& next : text) {
    if (!PythonText::isSpace(next.scalar)) {
      piece += next.bytes;
    } else if (!piece.empty()) {
      result.push_back(piece);
      piece.clear();
    }
  }
  if (!piece.empty()) result.push_back(piece);
  return result;
}

Texts slowSplitlines(const std::vector<Piece>& text) {
  const std::u32string lineEnds = U"\u000A\u000B\u000C\u000D\u001C\u001D\u001E\u0085\u2028\u2029";
  Texts result;
  std::size_t start = 0;
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (lineEnds.find(text[index].scalar) == std::u32string::npos) continue;
    result.push_back(joined(text, start, index));
    if (text[index].scalar == '\r' && index + 1 < text.size() && text[index + 1].scalar == '\n') ++index;
    start = index + 1;
  }
  if (start < text.size()) result.push_back(joined(text, start, text.size()));
  return result;
}

/// What folds is one scalar at a time, each of which other tests hold against the table.
std::string slowCasefold(const std::vector<Piece>& text) {
  std::string folded;
  for (const Piece& next : text)
    folded += PythonText::casefold(next.bytes);
  return folded;
}

/// True if the fold makes the capitals of ASCII small and changes nothing else.
bool slowFoldsWithinASCII(const std::vector<Piece>& text) {
  std::string folded = joined(text, 0, text.size());
  for (char& byte : folded) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return folded == slowCasefold(text);
}

void checkFolds(std::string_view text) {
  const std::vector<Piece> scalars = pieces(text);
  std::string storage;
  ASSERT_EQ(PythonText::casefold(text), slowCasefold(scalars)) << testing::PrintToString(text);
  ASSERT_EQ(PythonText::casefold(text, storage), slowCasefold(scalars)) << testing::PrintToString(text);
  ASSERT_EQ(PythonText::foldsWithinASCII(text), slowFoldsWithinASCII(scalars)) << testing::PrintToString(text);
}

void checkAgainstTheRules(std::string_view text) {
  const std::vector<Piece> scalars = pieces(text);
  ASSERT_EQ(PythonText::strip(text), slowStrip(scalars)) << testing::PrintToString(text);
  ASSERT_EQ(owned(PythonText::split(text)), slowSplit(scalars)) << testing::PrintToString(text);
  ASSERT_EQ(owned(PythonText::splitlines(text)), slowSplitlines(scalars)) << testing::PrintToString(text);
  ASSERT_NO_FATAL_FAILURE(checkFolds(text));
  for (std::size_t count = 0; count <= scalars.size(); ++count)
    ASSERT_EQ(PythonText::prefix(text, count), joined(scalars, 0, count)) << testing::PrintToString(text);
}

TEST(PythonTextRules, HoldForEveryShortText) {
  forEveryText({"a", " ", "\r", "\n", "\u0085", "\u2028", "\u200B"}, 5, checkAgainstTheRules);
}

TEST(PythonTextRules, HoldForEveryShortRunOfBytesThatNeedNotBeText) {
  forEveryText({"a", " ", "\n", "\xC2", "\x85", "\xE2", "\x80", "\xA8", "\xF0"}, 5, checkAgainstTheRules);
}

TEST(PythonTextRules, HoldForALineEndAtEveryPlaceInAWord) {
  for (const std::string lineEnd : {"\n", "\r\n", "\r", "\x1E", "\u0085", "\u2028"}) {
    for (std::size_t before = 0; before < 20; ++before) {
      for (const std::string filler : {"x", "\x1F", "\t", "\u00E9", "\u2027", "\xFF", "\x9E"}) {
        std::string text;
        for (std::size_t count = 0; count < before; ++count)
          text += filler;
        ASSERT_NO_FATAL_FAILURE(checkAgainstTheRules(text + lineEnd + text));
      }
    }
  }
}

TEST(PythonTextRules, HoldForAFoldIntoASCIIAtEveryPlaceInAWord) {
  for (const std::string fold :
       {"Z", "\u00DF", "\u0130", "\u0149", "\u017F", "\u01F0", "\u1E96", "\u1E9A", "\u1E9E", "\u212A", "\uFB00",
        "\uFB06", "\u00DE", "\u1E95", "\u212B", "\uFB07", "\xE1\xBA", "\xC5"}) {
    for (std::size_t before = 0; before < 36; ++before) {
      for (const std::string filler : {"x", "@", "[", "\u00E9", "\u1E80", "\uD55C", "\xFF", "\xBA", "\xEF"}) {
        std::string text;
        for (std::size_t count = 0; count < before; ++count)
          text += filler;
        ASSERT_NO_FATAL_FAILURE(checkAgainstTheRules(text + fold + text));
      }
    }
  }
}

TEST(PythonTextRules, HoldForAFoldIntoASCIIBehindALongerRun) {
  for (const std::string fold :
       {"\u00DF", "\u1E9E", "\u212A", "\uFB06", "\u1EA0", "\u2122", "\uFB07", "\xE1\xBA", "\xC3"}) {
    for (std::size_t before = 36; before < 150; ++before) {
      const std::string text(before, 'X');
      ASSERT_NO_FATAL_FAILURE(checkFolds(text + fold));
      ASSERT_NO_FATAL_FAILURE(checkFolds(text + fold + text));
      ASSERT_NO_FATAL_FAILURE(checkFolds(text + "\u1EA0" + fold + "\u1EA0" + text + fold + "yz"));
    }
  }
}

TEST(PythonTextRules, HoldForLongRandomTexts) {
  std::mt19937 random(20260104);
  const Texts units = {"a",      "b",      "word",   " ",    "\uD55C", "\u00E9", "\n",     "\r",
                       "\u2028", "\u0085", "\u201C", "\xE2", "\xC2",   "W",      "\u212A", "\u0149"};
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int count = 0; count < 60; ++count)
      text += units[random() % units.size()];
    ASSERT_NO_FATAL_FAILURE(checkAgainstTheRules(text)) << "round " << round;
  }
}

}  // namespace
}  // namespace tessary
