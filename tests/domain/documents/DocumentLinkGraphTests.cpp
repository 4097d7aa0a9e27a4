#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentLinkGraph.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using enum testing::SweepRule;
using enum JSONExpectation;

TEST(DocumentLink, IsReadAndWrittenByItsTable) {
  testing::sweepRecord<DocumentLink>(testing::goldenText("documents/DocumentLink.json"),
                                     {"d1", "d2", "see also", DocumentLinkKind::wiki},
                                     {{"sourceID", required, text},
                                      {"targetID", required, text},
                                      {"label", required, text},
                                      {"kind", required, text, {.words = testing::SweepRow::Words::closed}}});
}

TEST(DocumentLinkGraph, IsReadAndWrittenByItsTable) {
  testing::sweepRecord<DocumentLinkGraph>(
      testing::goldenText("documents/DocumentLinkGraph.json"),
      {.links = {{"d1", "d2", "see also", DocumentLinkKind::project}}, .projectSuggestionsIncluded = false},
      {{"links", required, list, {.element = object}},
       {"projectSuggestionsIncluded", defaulted, boolean, {.otherwise = "true"}}});
}

TEST(DocumentLinkGraph, KeepsLinksInTheirOrderWithCirclesAndRepetitions) {
  const std::string text =
      R"({"links":[{"sourceID":"b","targetID":"a","label":"","kind":"wiki"},)"
      R"({"sourceID":"a","targetID":"b","label":"x","kind":"markdown"},)"
      R"({"sourceID":"a","targetID":"a","label":"x","kind":"project"},)"
      R"({"sourceID":"b","targetID":"a","label":"","kind":"wiki"}],"projectSuggestionsIncluded":true})";
  const auto read = readJSON<DocumentLinkGraph>(text);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->links.size(), 4);
  EXPECT_EQ(writeJSON(*read), text);
}

TEST(DocumentLinkKind, HasItsRawValuesInOrder) {
  EXPECT_EQ(allCases<DocumentLinkKind>(),
            (std::array{DocumentLinkKind::wiki, DocumentLinkKind::markdown, DocumentLinkKind::project}));
  EXPECT_EQ(rawValue(DocumentLinkKind::wiki), "wiki");
  EXPECT_EQ(rawValue(DocumentLinkKind::markdown), "markdown");
  EXPECT_EQ(rawValue(DocumentLinkKind::project), "project");
}

}  // namespace
}  // namespace tessary
