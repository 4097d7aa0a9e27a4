// What the texts and days of a board may hold, held against slow readings of the same rules.

#include <array>
#include <cstdio>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Texts.h"

#include "Boards.h"

namespace tessary {
namespace {

using testing::archiveOf;
using testing::boardOf;
using testing::outcome;
using testing::repeated;

/// A text of a board: where it stands, how many characters it may have, and the error for one that may not stand there.
struct Place {
  std::string_view name;
  std::string& (*in)(DocumentBoard& board);
  std::size_t maximum;
  bool allowsLines;
  std::string_view error;
};

const std::vector<Place>& places() {
  static const std::vector<Place> all = {
      {"board title", [](DocumentBoard& board) -> std::string& { return board.title; }, 128, false, "invalidBoard"},
      {"node title", [](DocumentBoard& board) -> std::string& { return board.nodes[1].title; }, 256, false,
       "invalidNode"},
      {"node note", [](DocumentBoard& board) -> std::string& { return board.nodes[1].note; }, 8'192, true,
       "invalidNode"},
      {"edge label", [](DocumentBoard& board) -> std::string& { return board.edges[1].label; }, 256, false,
       "invalidEdge"},
  };
  return all;
}

std::string_view outcomeOf(const Place& place, std::string text) {
  DocumentBoard board = boardOf("b");
  place.in(board) = std::move(text);
  return outcome(std::move(board));
}

void expectAllowed(std::string_view text, bool isAllowed, bool isAllowedInLines) {
  for (const Place& place : places()) {
    const bool expected = place.allowsLines ? isAllowedInLines : isAllowed;
    EXPECT_EQ(outcomeOf(place, std::string(text)), expected ? "valid" : place.error) << place.name << ": " << text;
  }
}

// Lengths.

TEST(DocumentBoardText, IsCountedInCharacters) {
  // Each of these is one character, as the reader sees it, and still one beside another of its kind.
  const std::vector<std::string_view> characters = {
      "a",
      "é",
      "e\u0301",
      "한",
      // Jamo: the leading, the vowel and the trailing one of a syllable.
      "\u1112\u1161\u11AB",
      "😀",
      "👍🏽",
      // A family of four, joined.
      "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466",
      // A flag of two indicators, and one of tags.
      "\U0001F1F0\U0001F1F7",
      "\U0001F3F4\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F",
      "\u0915\u094D\u0937",
      "a\u0301\u0302\u0303\u0304\u0305",
      "\x80",
      "\uFFFD",
  };
  for (const Place& place : places()) {
    for (const std::string_view character : characters) {
      ASSERT_EQ(characterCount(repeated(character, 3)), 3) << character;
      for (const std::size_t count : {place.maximum - 1, place.maximum, place.maximum + 1}) {
        EXPECT_EQ(outcomeOf(place, repeated(character, count)), count <= place.maximum ? "valid" : place.error)
            << place.name << ": " << count << " times " << character;
      }
    }
  }
}

TEST(DocumentBoardText, CountsBlanksAtItsEnds) {
  for (const Place& place : places()) {
    EXPECT_EQ(outcomeOf(place, ' ' + repeated("x", place.maximum - 2) + ' '), "valid");
    EXPECT_EQ(outcomeOf(place, ' ' + repeated("x", place.maximum - 1) + ' '), place.error);
  }
}

TEST(DocumentBoardText, CountsEachLineFeedOfANote) {
  const Place& note = places()[2];
  EXPECT_EQ(outcomeOf(note, repeated("\n", 8'192)), "valid");
  EXPECT_EQ(outcomeOf(note, repeated("\n", 8'193)), "invalidNode");
  // One character each, and refused for what it holds.
  EXPECT_EQ(outcomeOf(note, "\r\n"), "invalidNode");
  EXPECT_EQ(outcomeOf(note, repeated("\r\n", 8'192)), "invalidNode");
}

TEST(DocumentBoardText, MayBeAnySizeWhereItIsFewCharacters) {
  for (const Place& place : places()) {
    EXPECT_EQ(outcomeOf(place, 'e' + repeated("\u0301", 100'000)), "valid") << place.name;
    EXPECT_EQ(outcomeOf(place, 'e' + repeated("\u0301", 100'000) + '\x01'), place.error) << place.name;
    EXPECT_EQ(outcomeOf(place, repeated("x", 1'000'000)), place.error) << place.name;
  }
}

TEST(DocumentBoardText, ThatIsTooLongAndHoldsAControlIsOneFault) {
  for (const Place& place : places())
    EXPECT_EQ(outcomeOf(place, '\x01' + repeated("x", place.maximum)), place.error);
}

// Control characters.

TEST(DocumentBoardText, HoldsNoControlsButTheTabAndInANoteTheLineFeed) {
  for (char32_t scalar = 0; scalar <= 0xA0; ++scalar) {
    const bool isControl = scalar < 0x20 || scalar == 0x7F;
    std::string text = "a";
    appendScalar(text, scalar);
    text += 'b';
    expectAllowed(text, !isControl || scalar == '\t', !isControl || scalar == '\t' || scalar == '\n');
  }
}

TEST(DocumentBoardText, MayHoldLineEndsThatAreNoControls) {
  expectAllowed("a\u2028b\u2029c\u0085d", true, true);
}

TEST(DocumentBoardText, IsReadToItsLastByte) {
  for (const Place& place : places()) {
    for (std::size_t size = 1; size <= 70; ++size) {
      for (std::size_t at = 0; at < size; ++at) {
        std::string text(size, 'x');
        text[at] = '\r';
        EXPECT_EQ(outcomeOf(place, text), place.error) << place.name << ": " << at << " of " << size;
        text[at] = '\t';
        EXPECT_EQ(outcomeOf(place, text), size == 1 && place.name.ends_with("title") ? place.error : "valid");
      }
    }
  }
}

TEST(DocumentBoardText, IsAcceptedAsTheRuleReadScalarByScalarSays) {
  const std::vector<std::string_view> pieces = {
      "x",       " ",        "\t",       "\n",     "\r",     "\r\n",   "\x1F",   "\x7F",       "\u0080",
      "e\u0301", "\u0301",   "가",       "\u1112", "\u1161", "😀",     "\u200D", "\U0001F1F0", "\U0001F1F7",
      "\x80",    "\xE1\x84", "\xF0\x9F", "\xC0",   "\u0600", "\u0915", "\u094D",
  };
  std::mt19937 random(20'261'121);
  const auto upTo = [&](std::size_t last) { return std::uniform_int_distribution<std::size_t>(0, last)(random); };
  std::array<int, 2> counts{};
  for (int round = 0; round < 6'000; ++round) {
    const Place& place = places()[upTo(3)];
    // Most texts are of a few pieces and near the maximum, so that both rules are met.
    const std::size_t first = upTo(pieces.size() - 1);
    const std::size_t second = upTo(pieces.size() - 1);
    const std::size_t maximum = place.maximum > 256 ? 8 : place.maximum;
    std::string text = "t";
    for (std::size_t count = maximum - 8 + upTo(maximum / 2); count > 0; --count)
      text += upTo(40) == 0 ? pieces[upTo(pieces.size() - 1)] : pieces[upTo(1) == 0 ? first : second];

    bool isAllowed = characters(text).size() <= place.maximum;
    for (const char32_t scalar : toScalars(text)) {
      const bool isControl = scalar < 0x20 || scalar == 0x7F;
      isAllowed = isAllowed && (!isControl || scalar == 0x09 || (scalar == 0x0A && place.allowsLines));
    }
    ++counts[isAllowed ? 1 : 0];
    EXPECT_EQ(outcomeOf(place, text), isAllowed ? "valid" : place.error) << place.name << ": " << text;
  }
  EXPECT_GT(counts[0], 1'000);
  EXPECT_GT(counts[1], 1'000);
}

// Titles.

TEST(DocumentBoardText, OfABoardsTitleIsMoreThanWhiteSpace) {
  const auto titled = [](std::string title) {
    DocumentBoard board = boardOf("b");
    board.title = std::move(title);
    return outcome(board);
  };
  for (const char* blank :
       {"", " ", "   ", "\t", "\u00A0", "\u1680", "\u2003 \u205F", "\u3000", "\u0085", "\u2028\u2029", "\u202F\t"}) {
    EXPECT_EQ(titled(blank), "invalidBoard") << blank;
  }
  for (const char* title : {"x", " x ", "\u200B", "\uFEFF", "\u180E", "\u2060", " \u0301", "\x80"})
    EXPECT_EQ(titled(title), "valid") << title;
  EXPECT_EQ(titled(std::string(129, 'x')), "invalidBoard");
  EXPECT_EQ(titled(repeated("😀", 128)), "valid");
  // The text is checked as it stands, not as it is trimmed.
  EXPECT_EQ(titled("x\n"), "invalidBoard");
  EXPECT_EQ(titled("x" + std::string(128, ' ')), "invalidBoard");
}

TEST(DocumentBoardText, OfANodesTitleIsMoreThanWhiteSpaceUnlessItShowsADocument) {
  const auto titled = [](std::string title, std::optional<std::string> documentID) {
    DocumentBoard board = boardOf("b");
    board.nodes[2].title = std::move(title);
    board.nodes[2].documentID = std::move(documentID);
    return outcome(board);
  };
  for (const char* blank : {"", " ", "\t\t", "\u3000", "\u2028"}) {
    EXPECT_EQ(titled(blank, std::nullopt), "invalidNode") << blank;
    EXPECT_EQ(titled(blank, "d"), "valid") << blank;
  }
  EXPECT_EQ(titled(" x", std::nullopt), "valid");
  EXPECT_EQ(titled("\n", "d"), "invalidNode");
  EXPECT_EQ(titled(std::string(257, ' '), "d"), "invalidNode");
}

TEST(DocumentBoardText, OfANoteOrALabelMayBeEmpty) {
  for (const char* blank : {"", " ", "\t"}) {
    DocumentBoard board = boardOf("b");
    board.nodes[0].note = blank;
    board.edges[0].label = blank;
    EXPECT_EQ(outcome(board), "valid");
  }
}

// Days.

bool isAcceptedDay(std::string day) {
  DocumentBoard board = boardOf("b");
  board.nodes[0].date = std::move(day);
  const auto checked = archiveOf(std::move(board)).validated();
  EXPECT_TRUE(checked || checked.error() == DocumentBoardValidationError::invalidDate);
  return checked.has_value();
}

TEST(DocumentBoardDay, IsADayOfTheGregorianCalendar) {
  for (const char* day :
       {"2024-02-29", "2000-02-29", "0001-01-01", "9999-12-31", "1582-10-10", "0004-02-29", "2026-11-30"})
    EXPECT_TRUE(isAcceptedDay(day)) << day;
  for (const char* day : {"2023-02-29", "1900-02-29", "0000-01-01", "0000-02-29", "2024-13-01", "2024-00-10",
                          "2024-01-00", "2024-01-32", "2024-04-31", "2024-02-30", "2024-99-99"})
    EXPECT_FALSE(isAcceptedDay(day)) << day;
}

/// The rule, with a table of months, behind the pattern that says how a day is spelled.
bool isDayByThePattern(std::string_view text) {
  static const RegularExpression pattern(R"(\A[0-9]{4}-[0-9]{2}-[0-9]{2}\z)");
  EXPECT_TRUE(pattern.isValid());
  if (!pattern.find(RegexSubject(text)).match) return false;
  const int year = std::stoi(std::string(text.substr(0, 4)));
  const int month = std::stoi(std::string(text.substr(5, 2)));
  const int day = std::stoi(std::string(text.substr(8, 2)));
  if (year < 1 || month < 1 || month > 12) return false;
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  const int lengths[] = {31, isLeap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return day >= 1 && day <= lengths[month - 1];
}

TEST(DocumentBoardDay, IsJudgedAsThePatternAndTheLengthsOfMonthsSay) {
  const auto spelled = [](int year, int month, int day) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
    return std::string(text.data());
  };
  const auto expectSame = [](const std::string& day) { EXPECT_EQ(isAcceptedDay(day), isDayByThePattern(day)) << day; };
  for (int year = 0; year <= 9'999; year += (year < 2'100 ? 1 : 7))
    expectSame(spelled(year, 2, 29));
  for (const int year : {0, 1, 1'900, 2'000, 2'023, 2'024}) {
    for (int month = 0; month <= 14; ++month) {
      for (int day = 0; day <= 33; ++day)
        expectSame(spelled(year, month, day));
    }
  }
}

TEST(DocumentBoardDay, IsSpelledAsThePatternSays) {
  const std::string day = "2024-02-19";
  const std::vector<std::string> pieces = {"",      "0",  "2",      "-",      "/", " ", "\n",   "\r",
                                           ":",     "２", "\u0663", "\u2010", "+", "a", "\xFF", std::string(1, '\0'),
                                           "\u2028"};
  for (const std::string& piece : pieces) {
    for (std::size_t at = 0; at <= day.size(); ++at) {
      for (std::size_t removed = 0; removed <= 2 && at + removed <= day.size(); ++removed) {
        std::string text = day;
        text.replace(at, removed, piece);
        EXPECT_EQ(isAcceptedDay(text), isDayByThePattern(text)) << at << ", " << removed << ": " << text;
      }
    }
  }
  for (const char* text : {"", "2024", "2024-02", "2024-2-19", "24-02-19", "2024-02-19T00:00:00Z", "12024-02-19",
                           "-024-02-19", "2024-02-19\n", "\n2024-02-19", "2024-02-1９"}) {
    EXPECT_FALSE(isDayByThePattern(text)) << text;
    EXPECT_FALSE(isAcceptedDay(text)) << text;
  }
}

}  // namespace
}  // namespace tessary
