#include <string>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/LibraryOrganization.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using enum testing::SweepRule;
using enum JSONExpectation;

TEST(DocumentCollection, IsReadAndWrittenByItsTable) {
  testing::sweepRecord<DocumentCollection>(testing::goldenText("documents/DocumentCollection.json"), {"c1", "To read"},
                                           {{"id", required, text}, {"name", required, text}});
}

TEST(LibraryOrganization, IsReadAndWrittenByItsTable) {
  const LibraryOrganization organization({{"c2", "Beta"}}, {{"d1", "c2"}}, {"d2", "d1"},
                                         {{"d1", "https://example.test/a"}});
  testing::sweepRecord<LibraryOrganization>(
      testing::goldenText("documents/LibraryOrganization.json"), organization,
      {{"collections", required, list, {.element = object}},
       {"documentCollections", required, object},
       {"favoriteDocumentIDs", defaulted, list, {.otherwise = "[]", .element = text}},
       {"documentSourceWebsiteURLs", defaulted, object, {.otherwise = "{}"}}});
}

LibraryOrganization organizationIn(const std::string& text) {
  const auto organization = readJSON<LibraryOrganization>(text);
  EXPECT_TRUE(organization) << text;
  return organization.value_or(LibraryOrganization());
}

TEST(LibraryOrganization, HasNoFavoritesAndNoAddressesInAnOlderFile) {
  const auto organization =
      organizationIn(R"({"collections":[{"id":"c","name":"n"}],"documentCollections":{"d":"c"}})");
  EXPECT_EQ(organization, LibraryOrganization({{"c", "n"}}, {{"d", "c"}}));
  EXPECT_TRUE(organization.favoriteDocumentIDs().empty());
  EXPECT_TRUE(organization.documentSourceWebsiteURLs().empty());
}

TEST(LibraryOrganization, LeavesOutAddressesThatMayNotBeOpened) {
  const LibraryOrganization::ByDocument addresses = {
      {"a", "https://example.test/"},  {"b", "ftp://example.test/"},      {"c", "javascript:alert"},    {"d", ""},
      {"e", "https://u@example.test"}, {"f", "HTTP://Example.test:80/x"}, {"", "https://example.test"},
  };
  const LibraryOrganization::ByDocument kept = {
      {"", "https://example.test"}, {"a", "https://example.test/"}, {"f", "HTTP://Example.test:80/x"}};
  const LibraryOrganization made({}, {}, {}, addresses);
  EXPECT_EQ(made.documentSourceWebsiteURLs(), kept);
  const auto read = organizationIn(
      R"({"collections":[],"documentCollections":{},"documentSourceWebsiteURLs":{"a":"https://example.test/",)"
      R"("b":"ftp://example.test/","c":"javascript:alert","d":"","e":"https://u@example.test",)"
      R"("f":"HTTP://Example.test:80/x","":"https://example.test"}})");
  EXPECT_EQ(read, made);
  EXPECT_EQ(writeJSON(read),
            R"({"collections":[],"documentCollections":{},"favoriteDocumentIDs":[],"documentSourceWebsiteURLs":)"
            R"({"":"https://example.test","a":"https://example.test/","f":"HTTP://Example.test:80/x"}})");
}

TEST(LibraryOrganization, KeepsAnAddressInTheSpellingInWhichItWasGiven) {
  // Each of them is another text where it is looked up.
  const LibraryOrganization::ByDocument addresses = {{"host", "https://b\u00FCcher.example"},
                                                     {"path", "https://example.test/\u00E4|b"},
                                                     {"port", "https://example.test:0443/"},
                                                     {"noPort", "https://example.test:/"},
                                                     {"escape", "https://%65xample.test"}};
  const LibraryOrganization made({}, {}, {}, addresses);
  EXPECT_EQ(made.documentSourceWebsiteURLs(), addresses);
  const auto text = writeJSON(made);
  ASSERT_TRUE(text);
  EXPECT_EQ(organizationIn(*text).documentSourceWebsiteURLs(), addresses);
}

TEST(LibraryOrganization, OfTwoAddressesOfADocumentTheLastCountsAlsoWhereItIsRefused) {
  const auto read = organizationIn(
      R"({"collections":[],"documentCollections":{},"documentSourceWebsiteURLs":{"a":"https://example.test/1",)"
      R"("b":"ftp://example.test","a":"ftp://example.test","b":"https://example.test/2"}})");
  EXPECT_EQ(read.documentSourceWebsiteURLs(), (LibraryOrganization::ByDocument{{"b", "https://example.test/2"}}));
}

TEST(LibraryOrganization, IdentifiersThatLookAlikeAreDifferentOnes) {
  const std::string text =
      "{\"collections\":[{\"id\":\"b\",\"name\":\"n\"},{\"id\":\"a\",\"name\":\"n\"},{\"id\":\"b\",\"name\":\"n\"}],"
      "\"documentCollections\":{\"A\":\"b\",\"a\":\"a\",\"e\u0301\":\"b\",\"\u00E9\":\"none\"},"
      "\"favoriteDocumentIDs\":[\"A\",\"a\",\"e\u0301\",\"\u00E9\"],\"documentSourceWebsiteURLs\":{}}";
  const auto read = organizationIn(text);
  EXPECT_EQ(read.documentCollections().size(), 4);
  EXPECT_EQ(read.favoriteDocumentIDs().size(), 4);
  EXPECT_EQ(writeJSON(read), text);
}

TEST(LibraryOrganization, RefusesAnAddressThatIsNoText) {
  const auto read = readJSON<LibraryOrganization>(
      R"({"collections":[],"documentCollections":{},"documentSourceWebsiteURLs":{"a":null}})");
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().kind, JSONDecodingError::Kind::nullValue);
  EXPECT_EQ(read.error().path, (JSONPath{"documentSourceWebsiteURLs", "a"}));
}

TEST(LibraryOrganization, UnitesFavoritesAndWritesThemInAscendingOrderByScalar) {
  const auto read = organizationIn(
      "{\"collections\":[],\"documentCollections\":{},\"favoriteDocumentIDs\":"
      "[\"b\",\"\U0001F600\",\"a\",\"\uFFFD\",\"b\",\"B\",\"\"]}");
  EXPECT_EQ(read.favoriteDocumentIDs().size(), 6);
  EXPECT_EQ(writeJSON(read),
            "{\"collections\":[],\"documentCollections\":{},\"favoriteDocumentIDs\":"
            "[\"\",\"B\",\"a\",\"b\",\"\uFFFD\",\"\U0001F600\"],\"documentSourceWebsiteURLs\":{}}");
}

}  // namespace
}  // namespace tessary
