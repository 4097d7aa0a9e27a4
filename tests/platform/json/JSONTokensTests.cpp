#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>
#include <simdjson.h>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryPlatform/json/JSONTokens.h"

#include "ReferenceJSON.h"

namespace tessary {
namespace {

using testing::ReferenceJSON;

/// Runs `body` once for each implementation of simdjson that this machine can run, as the active one.
template <class Body>
void forEachImplementation(Body body) {
  const simdjson::implementation* before = simdjson::get_active_implementation();
  for (const simdjson::implementation* implementation : simdjson::get_available_implementations()) {
    if (!implementation->supported_by_runtime_system()) continue;
    SCOPED_TRACE(implementation->name());
    simdjson::get_active_implementation() = implementation;
    body();
  }
  simdjson::get_active_implementation() = before;
}

/// A copy of a text that ends where the process may read no further.
class GuardedText {
 public:
  explicit GuardedText(std::string_view text) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t pages = text.size() / page + 1;
    byteCount_ = (pages + 1) * page;
    start_ = static_cast<char*>(mmap(nullptr, byteCount_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(start_ + pages * page, page, PROT_NONE);
    char* copy = start_ + pages * page - text.size();
    std::memcpy(copy, text.data(), text.size());
    text_ = {copy, text.size()};
  }
  GuardedText(const GuardedText&) = delete;
  GuardedText& operator=(const GuardedText&) = delete;
  ~GuardedText() { munmap(start_, byteCount_); }

  [[nodiscard]] std::string_view text() const { return text_; }

 private:
  char* start_;
  std::size_t byteCount_;
  std::string_view text_;
};

constexpr std::string_view sample =
    R"({"id":"doc-1","title":"A \"quoted\" \\ title é 한국어 \ud83d\ude00","list":[1,-2.5e3,true,false,null,{}, [ ] ],)"
    R"("nested":{"a":{"b":[[["x"]]]}},"tail":"long enough to run over a block of sixty-four bytes, twice over if need be"})";

TEST(JSONTokens, NoImplementationReadsBehindTheText) {
  forEachImplementation([] {
    for (std::size_t length = 0; length <= sample.size(); ++length) {
      const GuardedText guarded(sample.substr(0, length));
      const auto walked = walkJSON(guarded.text(), [](const JSONMember&) {});
      EXPECT_EQ(walked.has_value(), length == sample.size()) << length;
    }
    for (const std::string_view tail :
         {"1", "-", "1.", "1e", "tru", "true", "nul", "\"\\", "\"\\u", "\"\\ud800\\", "\xE2", "["}) {
      const GuardedText guarded(tail);
      EXPECT_EQ(walkJSON(guarded.text()).has_value(), ReferenceJSON::accepts(tail, 3)) << tail;
    }
  });
}

TEST(JSONTokens, TheFastIndexIsThatOfThePlainRoad) {
  forEachImplementation([] {
    for (std::size_t shift = 0; shift < 130; ++shift) {
      const std::string text = std::string(shift, ' ') + std::string(sample) + std::string(shift % 7, '\n');
      const auto fast = JSONTokens::indexed(text);
      ASSERT_TRUE(fast);
      const JSONTokensUpToFault plain = indexedUpToFault(text);
      EXPECT_FALSE(plain.fault);
      EXPECT_EQ(std::vector<std::uint32_t>(fast->begin(), fast->end() + 1), plain.positions);
    }
  });
}

TEST(JSONTokens, EveryFaultIsToldAlikeByEveryImplementation) {
  const std::vector<std::string_view> texts = {"1\"a b\" ",      "1\" x",       "\xFF",        "[\xFF\"a\"]",
                                               "\"\\\xC3\xA9\"", "\"\\\xC3\"",  "\\\"abc\"",   "\"a\\\\\\\" ",
                                               "[\"\\\x01\"]",   "tr\"ue\" \"", "[\x0C\"\n\"]"};
  std::vector<JSONSyntaxError> first;
  forEachImplementation([&] {
    std::vector<JSONSyntaxError> faults;
    for (const std::string_view text : texts) {
      const auto walked = walkJSON(text);
      ASSERT_FALSE(walked) << text;
      faults.push_back(walked.error());
    }
    if (first.empty()) first = faults;
    EXPECT_EQ(faults, first);
  });
}

/// Short texts over an alphabet in which every byte matters to some rule, all of them.
TEST(JSONTokens, AllShortTextsAreJudgedAsByTheReference) {
  constexpr std::string_view alphabet = "[]{},:\"\\u0-.e1 n\xC3\xA9\x0C\n";
  forEachImplementation([&] {
    for (int length = 1; length <= 3; ++length) {
      std::string text(static_cast<std::size_t>(length), alphabet[0]);
      std::vector<std::size_t> digits(text.size(), 0);
      for (bool done = false; !done;) {
        ASSERT_EQ(walkJSON(text).has_value(), ReferenceJSON::accepts(text, maximumJSONNesting)) << text;
        std::size_t place = 0;
        while (place < digits.size() && ++digits[place] == alphabet.size())
          digits[place++] = 0;
        done = place == digits.size();
        for (std::size_t index = 0; index < digits.size(); ++index)
          text[index] = alphabet[digits[index]];
      }
    }
  });
}

/// A valid text with a few bytes struck out, doubled, replaced or swapped in from a list of troublesome pieces.
std::string mutated(std::string text, std::mt19937& random) {
  static constexpr std::string_view pieces[] = {
      "\"",   "\\",           "{",  "}", "[",    "]",    ",",    ":",   "0", "-", ".", "e", "\\u", "\\ud800", "\\udc00",
      "\xFF", "\xED\xA0\x80", "\n", " ", "null", "true", "\x01", "1e5", "é"};
  const auto below = [&](std::size_t bound) { return static_cast<std::size_t>(random() % bound); };
  for (std::size_t count = 1 + below(3); count > 0 && !text.empty(); --count) {
    const std::size_t at = below(text.size());
    switch (below(3)) {
      case 0:
        text.erase(at, 1 + below(4));
        break;
      case 1:
        text.insert(at, pieces[below(std::size(pieces))]);
        break;
      default:
        text.replace(at, 1, pieces[below(std::size(pieces))]);
        break;
    }
  }
  return text;
}

TEST(JSONTokens, MutatedTextsAreJudgedAsByTheReference) {
  constexpr std::uint32_t seed = 20260214;
  forEachImplementation([&] {
    std::mt19937 random(seed);
    int accepted = 0;
    for (int round = 0; round < 20'000; ++round) {
      const std::string text = mutated(std::string(sample), random);
      const bool expected = ReferenceJSON::accepts(text, maximumJSONNesting);
      accepted += expected ? 1 : 0;
      ASSERT_EQ(walkJSON(text).has_value(), expected) << "seed " << seed << ", round " << round << ": " << text;
      ASSERT_EQ(findJSONFault(text).has_value(), !expected) << "seed " << seed << ", round " << round << ": " << text;
    }
    // Both answers occur often enough to be worth comparing.
    EXPECT_GT(accepted, 500);
    EXPECT_LT(accepted, 19'500);
  });
}

TEST(JSONTokens, RepeatedPiecesAreReadInLinearTime) {
  constexpr std::size_t count = 1'000'000;
  for (const std::string_view piece :
       {"[", "]", "{\"a\":", "\"", "\\", "1", "-", "1 ", "\"a\" ", " ", "\\\"", ",", "\\u", "\xE2", "\n"}) {
    std::string text;
    text.reserve(count * piece.size());
    for (std::size_t index = 0; index < count; ++index)
      text += piece;
    EXPECT_EQ(walkJSON(text).has_value(), piece == "1") << piece;
    EXPECT_FALSE(walkJSON("[" + text).has_value()) << piece;
  }
}

}  // namespace
}  // namespace tessary
