#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "TessaryPlatform/values/OptionalBox.h"

namespace tessary {
namespace {

using Box = OptionalBox<std::string>;

static_assert(sizeof(Box) == sizeof(void*));

TEST(OptionalBox, IsAbsentUnlessGivenAValue) {
  EXPECT_FALSE(Box());
  EXPECT_FALSE(Box(std::nullopt).has_value());
  const Box box = std::string("a");
  ASSERT_TRUE(box);
  EXPECT_EQ(*box, "a");
  EXPECT_EQ(box->size(), 1U);
}

TEST(OptionalBox, IsComparedByValue) {
  EXPECT_EQ(Box(), Box());
  EXPECT_EQ(Box("a"), Box("a"));
  EXPECT_FALSE(Box("a") == Box("b"));
  EXPECT_FALSE(Box("") == Box());
  EXPECT_FALSE(Box() == Box(""));
  EXPECT_EQ(Box("a"), Box(std::string("a")));
  EXPECT_EQ(Box(), Box(std::nullopt));
}

TEST(OptionalBox, ACopyHasAValueOfItsOwn) {
  Box box = std::string("a");
  Box copy = box;
  *copy += "b";
  EXPECT_EQ(*box, "a");
  EXPECT_EQ(*copy, "ab");
  box = copy;
  *copy = "c";
  EXPECT_EQ(*box, "ab");
  const Box& same = box;
  box = same;
  EXPECT_EQ(box, Box("ab"));
  box = Box();
  EXPECT_FALSE(box);
}

TEST(OptionalBox, AMoveTakesTheValue) {
  Box box = std::string("a");
  Box moved = std::move(box);
  EXPECT_EQ(moved, Box("a"));
  box = std::move(moved);
  EXPECT_EQ(box, Box("a"));
}

TEST(OptionalBox, IsEmplacedAndReset) {
  Box box;
  EXPECT_EQ(box.emplace(3U, 'x'), "xxx");
  EXPECT_EQ(box.emplace(), "");
  EXPECT_TRUE(box);
  box.reset();
  EXPECT_FALSE(box);
}

}  // namespace
}  // namespace tessary
