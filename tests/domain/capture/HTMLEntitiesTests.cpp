#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/HTMLEntities.h"

#include "HTMLVectors.h"

namespace tessary {
namespace {

/// "3E" or "3E,20D2", as the vectors write an expansion.
std::string codes(const HTMLEntities::Entity& entity) {
  char text[32];
  const int length = entity.second == 0 ? std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(entity.first))
                                        : std::snprintf(text, sizeof text, "%X,%X", static_cast<unsigned>(entity.first),
                                                        static_cast<unsigned>(entity.second));
  return {text, static_cast<std::size_t>(length)};
}

TEST(HTMLEntities, HoldEveryNameOfCPythonWithItsExpansion) {
  const auto records = readHTMLVectors("entities.txt");
  ASSERT_EQ(records.size(), HTMLEntities::entityCount);
  std::set<std::string_view> names;
  for (const HTMLVector& record : records) {
    const auto* entity = HTMLEntities::find(record.at(0));
    ASSERT_NE(entity, nullptr) << record.at(0);
    EXPECT_EQ(entity->name, record.at(0));
    EXPECT_EQ(codes(*entity), record.at(1)) << record.at(0);
    EXPECT_EQ(entity->scalarCount(), record.at(1).contains(',') ? 2 : 1) << record.at(0);
    names.insert(entity->name);
  }
  EXPECT_EQ(names.size(), HTMLEntities::entityCount);
}

TEST(HTMLEntities, AreListedInTheOrderOfTheirNames) {
  const auto table = HTMLEntities::table();
  EXPECT_TRUE(std::ranges::is_sorted(table, {}, &HTMLEntities::Entity::name));
  for (const auto& entity : table)
    EXPECT_EQ(HTMLEntities::find(entity.name), &entity);
}

TEST(HTMLEntities, AreNotFoundByAnyOtherName) {
  for (const std::string_view name : {"", ";", "a", "AM", "amq", "amp;;", "&amp;", "Amp;", "hellip", "notit"})
    EXPECT_EQ(HTMLEntities::find(name), nullptr) << name;
  EXPECT_EQ(HTMLEntities::find(std::string(1000, 'a')), nullptr);
  std::set<std::string> names;
  for (const auto& entity : HTMLEntities::table())
    names.emplace(entity.name);
  for (const std::string& name : names) {
    for (std::size_t length = 0; length < name.size(); ++length) {
      const std::string piece = name.substr(0, length);
      EXPECT_EQ(HTMLEntities::find(piece) != nullptr, names.contains(piece)) << piece;
    }
    EXPECT_EQ(HTMLEntities::find(name + ";") != nullptr, names.contains(name + ";")) << name;
  }
}

}  // namespace
}  // namespace tessary
