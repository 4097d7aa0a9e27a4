#pragma once

// What holds for every record, run over one of them. A test gives a text that was written by hand with every key of the
// record, the value that it stands for, and the record's table once more as the requirements have it:
//
//     sweepRecord<Note>(goldenText("notes/Note.json"), note(),
//                       {{"id", required, JSONExpectation::text},
//                        {"author", optional, JSONExpectation::text},
//                        {"count", optional, JSONExpectation::integer, {.bits = 32}},
//                        {"tags", defaulted, JSONExpectation::list, {.otherwise = "[]"}}});
//
// Every failure shows the text that was read. What a record asks beyond its table (rules of a wire form, repairs,
// values inside of values) has to be tested beside the sweep.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONRecord.h"
#include "support/JSONErrors.h"

namespace tessary::testing {

enum class SweepRule : std::uint8_t { required, optional, defaulted };

struct SweepRow {
  /// Which texts a key of text may hold.
  enum class Words : std::uint8_t {
    /// Every text, which is written back as it was.
    any,
    /// The raw values of a vocabulary; any other text is an error.
    closed,
    /// The same, but any other text is read as if the key were missing.
    tolerant,
    /// Those that a rule of the record allows: not swept.
    ruled,
  };

  struct More {
    /// For a defaulted key, the JSON text of the value that it takes where it is missing.
    std::string otherwise{};
    Words words = Words::any;
    /// For an integer, the bits of its type; 0 where a rule of the record changes what was read, which is not swept.
    int bits = 64;
    /// For a list, what its elements have to be.
    std::optional<JSONExpectation> element{};
  };

  std::string key;
  SweepRule rule;
  JSONExpectation expected;
  More more{};
};

struct SweepOptions {
  JSONCoder coder{};
  /// The record keeps unknown keys.
  bool keepsOtherKeys = false;
};

/// The contents of a file below tests/vectors, without the line end that closes it.
inline std::string goldenText(std::string_view path) {
  std::ifstream file(std::filesystem::path(TESSARY_TEST_VECTORS) / path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  EXPECT_FALSE(text.empty()) << path << " cannot be read";
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

/// A date of a golden text: how the text spells it, and the seconds since 2001 that it stands for, counted by hand.
struct SweepDate {
  /// "2026-01-02T03:04:05Z"; no two dates of a text are spelled alike.
  std::string_view spelling;
  std::int64_t secondsSince2001;
};

/// A golden text whose dates are spelled "2026-01-02T03:04:05Z", with the dates in another form.
inline std::string inDateForm(std::string golden, const std::vector<SweepDate>& dates, JSONDateForm form) {
  for (const SweepDate& date : dates) {
    const std::string spelled = '"' + std::string(date.spelling) + '"';
    std::string text = spelled;
    if (form == JSONDateForm::secondsSince2001) text = std::to_string(date.secondsSince2001);
    if (form == JSONDateForm::secondsSince1970) text = std::to_string(date.secondsSince2001 + 978'307'200);
    if (form == JSONDateForm::iso8601WithFractions) text.replace(text.size() - 2, 0, ".000");
    std::size_t found = golden.find(spelled);
    EXPECT_NE(found, std::string::npos) << date.spelling;
    for (; found != std::string::npos; found = golden.find(spelled, found + text.size()))
      golden.replace(found, spelled.size(), text);
  }
  return golden;
}

inline constexpr auto everyDateForm = std::to_array({JSONDateForm::secondsSince1970, JSONDateForm::secondsSince2001,
                                                     JSONDateForm::iso8601, JSONDateForm::iso8601WithFractions});

template <class T>
class RecordSweep {
 public:
  RecordSweep(std::string_view golden, const T& value, std::vector<SweepRow> rows, SweepOptions options)
      : golden_(golden), value_(value), rows_(std::move(rows)), options_(options), members_(membersOf(golden)) {}

  void run() {
    checkGolden();
    if (::testing::Test::HasFatalFailure()) return;
    checkOrder();
    checkPrefixes();
    checkOtherKeys();
    checkLeast();
    for (std::size_t index = 0; index < rows_.size(); ++index) {
      checkMissing(index);
      checkNull(index);
      checkWrongTypes(index);
      checkElements(index);
      checkRepeated(index);
      if (rows_[index].expected == JSONExpectation::text) checkWords(index);
      if (rows_[index].expected == JSONExpectation::integer) checkBounds(index);
    }
  }

 private:
  using Kind = JSONDecodingError::Kind;
  using Words = SweepRow::Words;

  struct Member {
    std::string key;
    std::string value;
  };
  using Members = std::vector<Member>;

  /// The members of a compact object, their values as they are spelled.
  static Members membersOf(std::string_view text) {
    Members members;
    int depth = 0;
    bool isInText = false;
    std::string piece;
    for (std::size_t index = 0; index < text.size(); ++index) {
      const char byte = text[index];
      if (isInText && byte == '\\') {
        piece += text.substr(index++, 2);
        continue;
      }
      if (byte == '"') isInText = !isInText;
      if (!isInText && (byte == '}' || byte == ']')) --depth;
      if (!isInText && (depth == 0 || (depth == 1 && byte == ','))) {
        if (piece.size() > 1) {
          const std::size_t colon = piece.find("\":");
          members.push_back({piece.substr(1, colon - 1), piece.substr(colon + 2)});
        }
        piece.clear();
      } else {
        piece += byte;
      }
      if (!isInText && (byte == '{' || byte == '[')) {
        ++depth;
        if (depth == 1) piece.clear();
      }
    }
    return members;
  }

  static std::string textOf(const Members& members) {
    std::string text = "{";
    for (const Member& member : members) {
      if (text.size() > 1) text += ',';
      text.append("\"").append(member.key).append("\":").append(member.value);
    }
    return text += '}';
  }

  Members without(std::size_t index) const {
    Members members = members_;
    members.erase(members.begin() + static_cast<std::ptrdiff_t>(index));
    return members;
  }
  Members with(std::size_t index, std::string_view value) const {
    Members members = members_;
    members[index].value = value;
    return members;
  }
  Members inserted(std::size_t index, Member member) const {
    Members members = members_;
    members.insert(members.begin() + static_cast<std::ptrdiff_t>(index), std::move(member));
    return members;
  }

  /// Where the value of member `index` begins.
  std::size_t valuePosition(std::size_t index) const {
    const Members before(members_.begin(), members_.begin() + static_cast<std::ptrdiff_t>(index) + 1);
    return textOf(before).size() - 1 - members_[index].value.size();
  }

  void expectSame(const std::string& text) const {
    const auto read = readJSON<T>(text, options_.coder);
    ASSERT_TRUE(read) << text << "\n" << read.error();
    EXPECT_TRUE(*read == value_) << text;
    EXPECT_EQ(writeJSON(*read, options_.coder), golden_) << text;
  }

  /// Reads `members` and writes them again as `written`, which in turn is read as the same.
  void expectWritten(const Members& members, const Members& written) const {
    const std::string text = textOf(members);
    const auto read = readJSON<T>(text, options_.coder);
    ASSERT_TRUE(read) << text << "\n" << read.error();
    EXPECT_EQ(writeJSON(*read, options_.coder), textOf(written)) << text;
    const auto again = readJSON<T>(textOf(written), options_.coder);
    ASSERT_TRUE(again) << textOf(written) << "\n" << again.error();
    EXPECT_TRUE(*again == *read) << text;
  }

  void expectError(const Members& members, const JSONDecodingError& error) const {
    const std::string text = textOf(members);
    const auto read = readJSON<T>(text, options_.coder);
    ASSERT_FALSE(read) << text;
    EXPECT_EQ(read.error(), error) << text;
  }

  JSONDecodingError errorAt(Kind kind, std::size_t index, std::optional<JSONExpectation> expected) const {
    return {kind, {members_[index].key}, expected, "", valuePosition(index), std::nullopt};
  }

  /// The members where the value under `index` is absent.
  Members asAbsent(std::size_t index) const {
    return rows_[index].rule == SweepRule::defaulted ? with(index, rows_[index].more.otherwise) : without(index);
  }

  void checkGolden() const {
    ASSERT_EQ(textOf(members_), golden_) << "the golden text is compact and without blanks";
    ASSERT_EQ(members_.size(), rows_.size()) << "the golden text has every key";
    for (std::size_t index = 0; index < rows_.size(); ++index)
      ASSERT_EQ(members_[index].key, rows_[index].key);
    const auto written = writeJSON(value_, options_.coder);
    ASSERT_TRUE(written);
    ASSERT_EQ(*written, golden_);
    expectSame(golden_);
  }

  void checkOrder() const { expectSame(textOf(Members(members_.rbegin(), members_.rend()))); }

  void checkPrefixes() const {
    for (std::size_t length = 0; length < golden_.size(); ++length) {
      const auto read = readJSON<T>(std::string_view(golden_).substr(0, length), options_.coder);
      ASSERT_FALSE(read) << length;
      EXPECT_EQ(read.error().kind, Kind::malformed) << length;
    }
  }

  void checkOtherKeys() const {
    for (std::size_t index = 0; index <= members_.size(); ++index) {
      // A key is known by all its bytes.
      for (const char* key : {"", "aKeyOfALaterVersion", "\\u0000"}) {
        const std::string text = textOf(inserted(index, {key, R"({"a":[null,1e400,{"b":"\ud83d\ude00"}]})"}));
        if (!options_.keepsOtherKeys) expectSame(text);
      }
    }
    if (!options_.keepsOtherKeys) expectSame(textOf(inserted(0, {members_[0].key + "\\u0000", "null"})));
  }

  /// Of several missing keys the first of the table is told; with the required keys alone the record can be read.
  void checkLeast() const {
    Members least;
    Members written;
    std::optional<std::string> firstRequired;
    for (std::size_t index = 0; index < rows_.size(); ++index) {
      const SweepRow& row = rows_[index];
      if (row.rule == SweepRule::optional) continue;
      written.push_back({row.key, row.rule == SweepRule::required ? members_[index].value : row.more.otherwise});
      if (row.rule == SweepRule::defaulted) continue;
      least.push_back(members_[index]);
      if (!firstRequired) firstRequired = row.key;
    }
    expectWritten(least, written);
    if (firstRequired) expectError({}, {Kind::missingKey, {*firstRequired}, std::nullopt, "", 0, std::nullopt});
    for (const char* other : {"null", "true", "5", "\"x\"", "[]"}) {
      const auto read = readJSON<T>(other, options_.coder);
      const Kind kind = std::string_view(other) == "null" ? Kind::nullValue : Kind::wrongType;
      ASSERT_FALSE(read) << other;
      EXPECT_EQ(read.error(), (JSONDecodingError{kind, {}, JSONExpectation::object, "", 0, std::nullopt})) << other;
    }
  }

  void checkMissing(std::size_t index) const {
    if (rows_[index].rule == SweepRule::required) {
      expectError(without(index), {Kind::missingKey, {rows_[index].key}, std::nullopt, "", 0, std::nullopt});
    } else {
      expectWritten(without(index), asAbsent(index));
    }
  }

  void checkNull(std::size_t index) const {
    if (rows_[index].rule == SweepRule::required) {
      expectError(with(index, "null"), errorAt(Kind::nullValue, index, rows_[index].expected));
    } else {
      expectWritten(with(index, "null"), asAbsent(index));
    }
  }

  bool datesAreNumbers() const {
    return options_.coder.dates == JSONDateForm::secondsSince1970 ||
           options_.coder.dates == JSONDateForm::secondsSince2001;
  }

  /// Whether a value that begins with `first` is of the type that is asked for; for a number also whether it `isWhole`.
  bool fits(JSONExpectation expected, char first, bool isWhole) const {
    switch (expected) {
      case JSONExpectation::boolean:
        return first == 't';
      case JSONExpectation::integer:
        return first == '5' && isWhole;
      case JSONExpectation::number:
        return first == '5';
      case JSONExpectation::text:
        return first == '"';
      case JSONExpectation::date:
        return first == (datesAreNumbers() ? '5' : '"');
      case JSONExpectation::list:
        return first == '[';
      case JSONExpectation::object:
        return first == '{';
    }
    return false;
  }

  static constexpr auto values = std::to_array<std::string_view>({"true", "5", "5.0", "5e0", "\"x\"", "[]", "{}"});

  /// What the error for another type says that it expected: a date that is a number is told as one.
  JSONExpectation toldFor(JSONExpectation expected) const {
    return expected == JSONExpectation::date && datesAreNumbers() ? JSONExpectation::number : expected;
  }

  void checkWrongTypes(std::size_t index) const {
    const JSONExpectation expected = rows_[index].expected;
    for (const std::string_view value : values) {
      if (fits(expected, value[0], value == "5")) continue;
      expectError(with(index, value), errorAt(Kind::wrongType, index, toldFor(expected)));
    }
    if (expected == JSONExpectation::date && !datesAreNumbers()) {
      JSONDecodingError error = errorAt(Kind::corrupted, index, std::nullopt);
      error.description = "not a date in the form of the file";
      expectError(with(index, "\"x\""), error);
    }
  }

  void checkElements(std::size_t index) const {
    const std::optional<JSONExpectation> element = rows_[index].more.element;
    if (!element) return;
    expectWritten(with(index, "[]"), with(index, "[]"));
    for (const std::string_view value : values) {
      if (fits(*element, value[0], value == "5")) continue;
      JSONDecodingError error = errorAt(Kind::wrongType, index, toldFor(*element));
      error.path.emplace_back(std::size_t{0});
      ++error.position;
      expectError(with(index, "[" + std::string(value) + "]"), error);
    }
    JSONDecodingError error = errorAt(Kind::nullValue, index, *element);
    error.path.emplace_back(std::size_t{0});
    ++error.position;
    expectError(with(index, "[null]"), error);
  }

  /// The last of several values counts, however its key is spelled.
  void checkRepeated(std::size_t index) const {
    expectSame(textOf(inserted(index, members_[index])));
    if (rows_[index].rule != SweepRule::required) expectSame(textOf(inserted(index, {members_[index].key, "null"})));
    constexpr std::string_view digits = "0123456789abcdef";
    Members members = members_;
    std::string& key = members[index].key;
    const auto first = static_cast<unsigned char>(key[0]);
    key.replace(0, 1, std::string("\\u00") + digits[first >> 4] + digits[first & 0xF]);
    expectSame(textOf(members));
  }

  void checkWords(std::size_t index) const {
    const Words words = rows_[index].more.words;
    if (words == Words::any) {
      for (const char* text : {R"("")", R"(" ")", R"("a\"\\\n\u0000\u001f/é가😀")"})
        expectWritten(with(index, text), with(index, text));
      expectWritten(with(index, R"("\u00e9\/\ud83d\ude00")"), with(index, R"("é/😀")"));
    }
    if (words == Words::closed) {
      for (const char* text : {R"("")", R"("no such word")"}) {
        expectError(with(index, text), errorAt(Kind::unknownRawValue, index, JSONExpectation::text));
      }
    }
    if (words == Words::tolerant) expectWritten(with(index, R"("no such word")"), asAbsent(index));
    // Half a pair of surrogates is no text at all.
    for (const char* text : {R"("\ud83d")", R"("\ude00\ud83d")"}) {
      const auto read = readJSON<T>(textOf(with(index, text)), options_.coder);
      ASSERT_FALSE(read) << text;
      EXPECT_EQ(read.error().kind, Kind::malformed) << text;
    }
  }

  void checkBounds(std::size_t index) const {
    const int bits = rows_[index].more.bits;
    if (bits == 0) return;
    const std::string greatest = bits == 32 ? "2147483647" : "9223372036854775807";
    const std::string beyond = bits == 32 ? "2147483648" : "9223372036854775808";
    const std::string least = "-" + beyond;
    const std::string below = bits == 32 ? "-2147483649" : "-9223372036854775809";
    for (const std::string& value : {std::string("0"), greatest, least})
      expectWritten(with(index, value), with(index, value));
    for (const std::string& value : {beyond, below, std::string("123456789012345678901234567890")}) {
      expectError(with(index, value), errorAt(Kind::outOfRange, index, JSONExpectation::integer));
    }
  }

  std::string golden_;
  const T& value_;
  std::vector<SweepRow> rows_;
  SweepOptions options_;
  Members members_;
};

/// Runs the sweep: `golden` is the text of `value`, and `rows` has its keys in the order of the text.
template <class T>
void sweepRecord(std::string_view golden, const T& value, std::vector<SweepRow> rows, SweepOptions options = {}) {
  RecordSweep<T>(golden, value, std::move(rows), options).run();
}

}  // namespace tessary::testing
