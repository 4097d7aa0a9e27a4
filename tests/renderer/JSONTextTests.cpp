#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "TessaryPlatform/text/UTF8.h"
#include "TessaryRenderer/JSONText.h"

namespace tessary {
namespace {

constexpr std::size_t noLimit = 1'000'000'000;

std::string jsonString(std::u16string_view units) {
  std::string json;
  EXPECT_TRUE(JSONText::append(json, units, noLimit));
  return json;
}

/// The same, unit by unit, in the obvious way.
std::string obviousString(std::u16string_view units) {
  std::string json = "\"";
  for (const char32_t scalar : toScalars(toUTF8(units))) {
    static const std::string_view named = "\b\f\n\r\t\"\\";
    const std::size_t place = scalar < 0x80 ? named.find(static_cast<char>(scalar)) : std::string_view::npos;
    if (place != std::string_view::npos) {
      json += std::string("\\") + "bfnrt\"\\"[place];
    } else if (scalar < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(scalar));
      json += escape;
    } else {
      appendScalar(json, scalar);
    }
  }
  return json + "\"";
}

std::u16string unitsFrom(const std::vector<int>& choices) {
  constexpr char16_t alphabet[] = {u'a',  u'z',   u'"',   u'\\',  u'\n',  0x00,   0x1F,   0x7F,   0x80,
                                   0x7FF, 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFD, 0xFFFF};
  std::u16string units;
  for (const int choice : choices)
    units.push_back(alphabet[static_cast<std::size_t>(choice) % std::size(alphabet)]);
  return units;
}

TEST(JSONText, EveryUnitAloneAndAmongPlainOnesIsQuotedAsTheObviousWayDoes) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::u16string alone(1, static_cast<char16_t>(unit));
    ASSERT_EQ(jsonString(alone), obviousString(alone)) << unit;
    const std::u16string among = u"0123456789012345678" + alone + u"abc";
    ASSERT_EQ(jsonString(among), obviousString(among)) << unit;
  }
}

TEST(JSONText, RandomUnitsAreQuotedAsTheObviousWayDoes) {
  EXPECT_TRUE(rc::check([](const std::vector<int>& choices) {
    const std::u16string units = unitsFrom(choices);
    RC_ASSERT(jsonString(units) == obviousString(units));
  }));
}

TEST(JSONText, TheLimitIsMetToTheByte) {
  for (const std::u16string_view units : {u"", u"plain", u"a\nb", u"é€", u"\xD83D\xDE00", u"\xD800", u"x\x01"}) {
    const std::size_t bytes = 1 + obviousString(units).size();
    for (const std::size_t limit : {bytes - 1, bytes, bytes + 1}) {
      std::string json = "[";
      EXPECT_EQ(JSONText::append(json, units, limit), limit >= bytes) << toUTF8(units) << " " << limit;
    }
  }
}

TEST(JSONText, WhatIsAppendedStaysNearTheLimit) {
  std::string json;
  EXPECT_FALSE(JSONText::append(json, std::u16string(1000, u'\x01'), 1002));
  EXPECT_LE(json.size(), 1002U + 6);
}

TEST(JSONText, LoneSurrogatesAndNothingElseAreReplaced) {
  EXPECT_EQ(JSONText::withoutLoneSurrogates(u"a\xD800"), u"a\xFFFD");
  EXPECT_EQ(JSONText::withoutLoneSurrogates(u"\xDC00\xD83D\xDE00\xD83D\xD83D\xDE00"),
            u"\xFFFD\xD83D\xDE00\xFFFD\xD83D\xDE00");
  EXPECT_TRUE(rc::check([](const std::vector<int>& choices) {
    const std::u16string units = unitsFrom(choices);
    RC_ASSERT(JSONText::withoutLoneSurrogates(units) == toUTF16(toUTF8(units)));
  }));
}

TEST(JSONText, TheOrderIsThatOfTheUTF8Bytes) {
  EXPECT_TRUE(JSONText::isOrderedByScalar(u"\xFF5E", u"\xD83D\xDE00"));
  EXPECT_FALSE(JSONText::isOrderedByScalar(u"\xD83D\xDE00", u"\xFF5E"));
  EXPECT_FALSE(JSONText::isOrderedByScalar(u"a", u"a"));
  EXPECT_TRUE(JSONText::isOrderedByScalar(u"a", u"ab"));
  EXPECT_TRUE(rc::check([](const std::vector<int>& some, const std::vector<int>& others) {
    const std::u16string left = JSONText::withoutLoneSurrogates(unitsFrom(some));
    const std::u16string right = JSONText::withoutLoneSurrogates(unitsFrom(others));
    RC_ASSERT(JSONText::isOrderedByScalar(left, right) == (toUTF8(left) < toUTF8(right)));
  }));
}

}  // namespace
}  // namespace tessary
