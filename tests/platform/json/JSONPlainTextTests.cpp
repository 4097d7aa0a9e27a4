#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONEncoding.h"
#include "TessaryPlatform/json/JSONPlainText.h"
#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {
namespace {

/// Longer than three vectors, and every length before.
constexpr std::size_t longest = 50;

/// What `copyPlain` copies, from and to memory that is exactly as large as it may be.
std::string copied(std::string_view text) {
  const auto from = std::make_unique<char[]>(text.size());
  const auto to = std::make_unique<char[]>(text.size());
  text.copy(from.get(), text.size());
  const std::size_t count = json::copyPlain({from.get(), text.size()}, to.get());
  return {to.get(), count};
}

TEST(JSONPlainText, AllOfAPlainTextIsCopied) {
  std::string text;
  for (std::size_t length = 0; length <= longest; ++length) {
    EXPECT_EQ(copied(text), text);
    text += static_cast<char>('a' + length % 26);
  }
}

TEST(JSONPlainText, EveryByteIsPlainThatStandsForItself) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool isPlain = byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\';
    EXPECT_EQ(json::isPlain(static_cast<char>(byte)), isPlain) << byte;
    for (std::size_t length = 1; length <= longest; ++length) {
      for (std::size_t position = 0; position < length; ++position) {
        std::string text(length, 'x');
        text[position] = static_cast<char>(byte);
        const std::string front = copied(text);
        ASSERT_EQ(front.size() == length, isPlain) << byte << " at " << position << " of " << length;
        // Less than all that is plain may be copied, and never the byte itself.
        ASSERT_TRUE(isPlain || (front.size() <= position && text.starts_with(front))) << byte << " at " << position;
      }
    }
  }
}

struct Note {
  std::string text;
  std::int64_t number = 0;
  bool flag = false;
  bool operator==(const Note&) const = default;
};

}  // namespace

template <>
struct JSONForm<Note> {
  static constexpr std::tuple fields{
      required("text", &Note::text),
      required("number", &Note::number),
      required("flag", &Note::flag),
  };
};

namespace {

TEST(JSONPlainText, AMemberIsWrittenAsItsPartsAre) {
  // Every kind of byte at every place, whole sequences and broken ones.
  for (const char* piece :
       {"x", "\"", "\\", "\n", "\x7F", "\xC3\xA9", "\xF0\x9F\x98\x80", "\xC3", "\xF0\x9F", "\x80"}) {
    for (std::size_t length = 0; length <= longest; ++length) {
      for (std::size_t position = 0; position <= length; ++position) {
        const std::string text = std::string(position, 'a') + piece + std::string(length - position, 'b');
        std::string expected = "{\"text\":";
        appendJSONText(expected, text, JSONStyle::Escapes::minimal);
        expected += R"(,"number":-9223372036854775808,"flag":true})";
        ASSERT_EQ(writeJSON(Note{text, std::numeric_limits<std::int64_t>::min(), true}), expected);
      }
    }
  }
  EXPECT_EQ(writeJSON(Note{"", 0, false}), R"({"text":"","number":0,"flag":false})");
}

TEST(JSONPlainText, RoomForAListIsWhatItsFirstElementsLetExpect) {
  std::string text(6400, 'x');
  json::reserveForRest(text, 0, 64, 1000);
  EXPECT_GE(text.capacity(), 100'000U);
  EXPECT_LE(text.capacity(), 120'000U);
  EXPECT_EQ(text, std::string(6400, 'x'));
  // However many are to come.
  json::reserveForRest(text, 0, 64, std::size_t{1} << 60);
  EXPECT_EQ(text.capacity(), std::size_t{256} << 20);
  json::reserveForRest(text, 0, 64, 64);
  EXPECT_EQ(text.capacity(), std::size_t{256} << 20);
}

TEST(JSONPlainText, LongListsAreWrittenWholeWhereverRoomIsMade) {
  for (const std::size_t count : std::initializer_list<std::size_t>{63, 64, 65, 127, 128, 129, 1000, 300'000}) {
    std::vector<Note> notes(count, Note{"short", 5, true});
    notes[0].text = std::string(10'000, 'y');
    notes[count - 1].text = std::string(10'000, 'z');
    EXPECT_EQ(readJSON<std::vector<Note>>(writeJSON(notes).value()), notes);
  }
}

/// Large enough that its elements are counted before they are read.
struct Large {
  std::string a, b, c, d, e;
  bool operator==(const Large&) const = default;
};
static_assert(sizeof(Large) >= json::worthReserving);

}  // namespace

template <>
struct JSONForm<Large> {
  static constexpr std::tuple fields{
      defaulted("a", &Large::a), defaulted("b", &Large::b), defaulted("c", &Large::c),
      defaulted("d", &Large::d), defaulted("e", &Large::e),
  };
};

namespace {

std::string listOf(std::size_t count, std::string_view element) {
  std::string text = "[";
  for (std::size_t index = 0; index < count; ++index)
    text.append(index == 0 ? "" : ",").append(element);
  return text += ']';
}

TEST(JSONPlainText, AShortListOfLargeElementsHasNoRoomToSpare) {
  for (const std::size_t count : std::initializer_list<std::size_t>{0, 1, 2, 3, 5, 63, 64}) {
    const auto read = readJSON<std::vector<Large>>(listOf(count, R"({"a":"[,{","x":[1,[2,3],{"y":4,"z":5}]})"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), count);
    EXPECT_EQ(read->capacity(), count);
  }
  for (const std::size_t count : std::initializer_list<std::size_t>{65, 200}) {
    const auto read = readJSON<std::vector<Large>>(listOf(count, "{}"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->size(), count);
  }
}

TEST(JSONCursor, CountsTheElementsThatCommasPromise) {
  struct Row {
    std::string_view text;
    std::size_t count;
  };
  for (const Row& row : std::initializer_list<Row>{{"[]", 0},
                                                   {"[ ]", 0},
                                                   {"[1]", 1},
                                                   {"[1,2]", 2},
                                                   {R"([[1,2],{"a":[3,4],"b":5},"[,]"])", 3},
                                                   {"[1],[2,3]", 1},
                                                   {"[[[]],[],[]]", 3},
                                                   {"[,,,,,,,,,,,]", 8},
                                                   {"[1,2,3,4,5,6,7,8]", 8},
                                                   {"[1,2,3,4,5,6,7,8,9]", 8},
                                                   {"[", 0},
                                                   {"[1", 1},
                                                   {"[1,", 2},
                                                   {"[1,{", 2},
                                                   {"[}", 1}}) {
    const std::string text(row.text);
    const auto tokens = JSONTokens::indexed(text);
    ASSERT_TRUE(tokens) << text;
    EXPECT_EQ(JSONCursor(*tokens).elementCount(8), row.count) << text;
  }
}

}  // namespace
}  // namespace tessary
