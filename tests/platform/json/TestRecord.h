#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

// A record that uses every rule and every type that has a form.

enum class TestColor { red, darkGreen };

template <>
struct RawValues<TestColor> {
  static constexpr auto table =
      std::to_array<RawValueRow<TestColor>>({{TestColor::red, "red"}, {TestColor::darkGreen, "dark-green"}});
};

struct TestPoint {
  std::int64_t x = 0;
  std::optional<std::string> label;
  bool operator==(const TestPoint&) const = default;
};

template <>
struct JSONForm<TestPoint> {
  static constexpr std::tuple fields{required("x", &TestPoint::x), optional("label", &TestPoint::label)};
};

/// A version that JSON holds as two keys, one of which is checked and one of which went by another name once.
struct TestVersion {
  std::string text;
  std::int64_t build = 0;
  bool operator==(const TestVersion&) const = default;
};

struct TestVersionKeys {
  std::string version;
  std::optional<std::int64_t> build;
  std::optional<std::int64_t> buildNumber;
  bool operator==(const TestVersionKeys&) const = default;
};

template <>
struct JSONForm<TestVersionKeys> {
  static constexpr std::tuple fields{required("version", &TestVersionKeys::version),
                                     optional("build", &TestVersionKeys::build),
                                     optional("buildNumber", &TestVersionKeys::buildNumber)};
};

template <>
struct JSONForm<TestVersion> {
  using Wire = TestVersionKeys;

  static std::expected<TestVersion, JSONRefusal> fromWire(TestVersionKeys keys) {
    if (keys.version.empty()) return std::unexpected(JSONRefusal{"version", "a version has digits"});
    const std::int64_t build = keys.build.value_or(keys.buildNumber.value_or(0));
    if (build < 0) return std::unexpected(JSONRefusal{"", "a build is not negative"});
    return TestVersion{std::move(keys.version), build};
  }
  static TestVersionKeys toWire(const TestVersion& version) { return {version.text, version.build, std::nullopt}; }
};

struct TestRecord {
  std::string id;
  bool flag = false;
  std::int32_t small = 0;
  std::int64_t large = 0;
  double ratio = 0;
  Date when;
  TestColor color = TestColor::red;
  TestPoint point;
  TestVersion version;
  std::optional<std::string> note;
  std::optional<bool> answer;
  std::optional<std::int64_t> size;
  std::optional<Date> due;
  std::optional<TestPoint> corner;
  std::optional<std::vector<std::string>> paths;
  std::string edge;
  std::vector<std::string> roots;
  bool shown = false;
  TestPoint origin;
  double volume = 0;
  TestColor shade = TestColor::red;
  std::optional<TestColor> tint;
  std::vector<TestColor> palette;
  std::int64_t minutes = 0;
  std::vector<std::vector<TestPoint>> grid;
  std::set<std::string> tags;
  std::unordered_set<std::string> favorites;
  std::map<std::string, std::string> links;
  std::unordered_map<std::string, TestPoint> places;
  std::map<std::string, std::optional<TestColor>> states;
  JSONPairs<bool> switches;
  JSONValue any;
  bool operator==(const TestRecord&) const = default;
};

template <>
struct JSONForm<TestRecord> {
  static constexpr std::tuple fields{
      required("id", &TestRecord::id),
      required("flag", &TestRecord::flag),
      required("small", &TestRecord::small),
      required("large", &TestRecord::large),
      required("ratio", &TestRecord::ratio),
      required("when", &TestRecord::when),
      required("color", &TestRecord::color),
      required("point", &TestRecord::point),
      required("version", &TestRecord::version),
      optional("note", &TestRecord::note),
      optional("answer", &TestRecord::answer),
      optional("size", &TestRecord::size),
      optional("due", &TestRecord::due),
      optional("corner", &TestRecord::corner),
      optional("paths", &TestRecord::paths),
      defaulted("edge", &TestRecord::edge, "right"),
      defaulted("roots", &TestRecord::roots, [] { return std::vector<std::string>{"~/a", "~/b"}; }),
      defaulted("isShown", &TestRecord::shown, true),
      defaulted("origin", &TestRecord::origin),
      clamped("volume", &TestRecord::volume, {.low = 0, .high = 2, .otherwise = 0.5}),
      tolerant("shade", &TestRecord::shade, TestColor::darkGreen),
      tolerant("tint", &TestRecord::tint),
      tolerant("palette", &TestRecord::palette),
      defaulted("minutes", &TestRecord::minutes, 0).repaired([](std::int64_t minutes) {
        return minutes >= 0 && minutes < 1440 ? minutes : 0;
      }),
      defaulted("grid", &TestRecord::grid),
      defaulted("tags", &TestRecord::tags),
      defaulted("favorites", &TestRecord::favorites),
      defaulted("links", &TestRecord::links),
      defaulted("places", &TestRecord::places),
      defaulted("states", &TestRecord::states),
      defaulted("switches", &TestRecord::switches),
      defaulted("any", &TestRecord::any),
  };
};

/// A record that keeps the keys that it does not know.
struct TestNotes {
  std::vector<std::string> en;
  std::map<std::string, std::vector<std::string>> translations;
  bool operator==(const TestNotes&) const = default;
};

template <>
struct JSONForm<TestNotes> {
  static constexpr std::tuple fields{required("en", &TestNotes::en)};
  static constexpr auto otherKeys = &TestNotes::translations;
};

/// A record that holds such ones.
struct TestShelf {
  TestNotes top;
  std::map<std::string, TestNotes> rest;
  std::map<std::string, TestNotes> others;
  bool operator==(const TestShelf&) const = default;
};

template <>
struct JSONForm<TestShelf> {
  static constexpr std::tuple fields{defaulted("top", &TestShelf::top), defaulted("rest", &TestShelf::rest)};
  static constexpr auto otherKeys = &TestShelf::others;
};

/// A record with repairs that would change what stands in for its missing keys.
struct TestShift {
  std::int64_t minutes = 0;
  double share = 0;
  bool operator==(const TestShift&) const = default;
};

template <>
struct JSONForm<TestShift> {
  static constexpr std::tuple fields{
      defaulted("minutes", &TestShift::minutes, 5000).repaired([](std::int64_t minutes) {
        return minutes < 1440 ? minutes : 1439;
      }),
      clamped("share", &TestShift::share, {.low = 0, .high = 1, .otherwise = 0.25}).repaired([](double share) {
        return share / 2;
      }),
  };
};

/// One member of a record of many keys, "k00" to "k63".
template <std::size_t index>
struct TestCell {
  std::int64_t value = 0;
  bool operator==(const TestCell&) const = default;
  static constexpr std::array<char, 4> key{'k', '0' + index / 10, '0' + index % 10, '\0'};
};

template <class Indices>
struct TestCells;
template <std::size_t... index>
struct TestCells<std::index_sequence<index...>> : TestCell<index>... {
  bool operator==(const TestCells&) const = default;
};

/// A record of as many keys as there may be.
using TestWide = TestCells<std::make_index_sequence<64>>;

template <std::size_t... index>
struct JSONForm<TestCells<std::index_sequence<index...>>> {
  using Cells = TestCells<std::index_sequence<index...>>;
  static constexpr std::tuple fields{
      required(TestCell<index>::key.data(), static_cast<std::int64_t Cells::*>(&TestCell<index>::value))...};
};

/// What the required keys of a TestRecord look like at the least.
inline constexpr std::string_view leastTestRecord =
    R"({"id":"a","flag":true,"small":1,"large":2,"ratio":0.5,"when":0,"color":"red","point":{"x":3},)"
    R"("version":{"version":"1","build":4}})";

}  // namespace tessary
