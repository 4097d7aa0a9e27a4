#include <cstddef>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONRecordHash.h"

#include "TestRecord.h"

namespace tessary {
namespace {

TEST(JSONRecordHash, EqualRecordsHashAlikeInWhateverOrderTheirSetsAndMapsAreWalked) {
  std::unordered_map<std::string, int> ascending;
  std::unordered_map<std::string, int> descending(1024);
  for (int index = 0; index < 100; ++index) {
    ascending["k" + std::to_string(index)] = index;
    descending["k" + std::to_string(99 - index)] = 99 - index;
  }
  ASSERT_EQ(ascending, descending);
  EXPECT_EQ(json::hashOf(ascending), json::hashOf(descending));
  descending["k0"] = 1;
  descending["k1"] = 0;
  EXPECT_NE(json::hashOf(ascending), json::hashOf(descending));
}

TEST(JSONRecordHash, AbsentFalseAndTrueAreThree) {
  using Flag = std::optional<bool>;
  EXPECT_EQ((std::set{json::hashOf(Flag()), json::hashOf(Flag(false)), json::hashOf(Flag(true))}).size(), 3U);
}

TEST(JSONRecordHash, AnEmptyListIsNotAnAbsentOneAndOrderCounts) {
  using List = std::vector<std::string>;
  const std::optional<List> absent;
  const std::set<std::size_t> hashes{json::hashOf(absent),
                                     json::hashOf(std::optional<List>(List{})),
                                     json::hashOf(std::optional<List>(List{""})),
                                     json::hashOf(std::optional<List>(List{"a", "b"})),
                                     json::hashOf(std::optional<List>(List{"b", "a"})),
                                     json::hashOf(std::optional<List>(List{"ab"}))};
  EXPECT_EQ(hashes.size(), 6U);
}

TEST(JSONRecordHash, SmallNumbersInNeighbouringFieldsDoNotUndoEachOther) {
  std::set<std::size_t> hashes;
  for (std::int64_t first = -20; first < 20; ++first) {
    for (std::int64_t second = -20; second < 20; ++second)
      hashes.insert(json::hashOf(std::vector<std::int64_t>{first, second}));
  }
  EXPECT_EQ(hashes.size(), 1600U);
}

TEST(JSONRecordHash, CountsEveryFieldOfTheTable) {
  const JSONRecordHash<TestPoint> hash;
  EXPECT_EQ(hash({7, "p"}), hash({7, "p"}));
  EXPECT_NE(hash({7, "p"}), hash({8, "p"}));
  EXPECT_NE(hash({7, "p"}), hash({7, "q"}));
  EXPECT_NE(hash({7, ""}), hash({7, std::nullopt}));
}

}  // namespace
}  // namespace tessary
