#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "TessaryPlatform/json/JSONRecord.h"

namespace tessary {

/// A collection that the user made and named.
struct DocumentCollection {
  std::string id;
  std::string name;

  bool operator==(const DocumentCollection&) const = default;
};

template <>
struct JSONForm<DocumentCollection> {
  static constexpr std::tuple fields{
      required("id", &DocumentCollection::id),
      required("name", &DocumentCollection::name),
  };
};

/// What the user added to the library: collections, favourites, and a website address for a document. Identifiers are
/// compared exactly, and none is checked against the library.
///
/// The addresses are always such that `DocumentWebsiteURL::validated` accepts them, each in the spelling in which it
/// was given: one that it refuses is left out, when a value is made as when a file is read, without an error.
class LibraryOrganization {
 public:
  /// Document identifiers to texts.
  using ByDocument = std::map<std::string, std::string>;

  LibraryOrganization() = default;
  LibraryOrganization(std::vector<DocumentCollection> collections, ByDocument documentCollections,
                      std::set<std::string> favoriteDocumentIDs = {}, ByDocument documentSourceWebsiteURLs = {});

  /// In the user's order.
  [[nodiscard]] const std::vector<DocumentCollection>& collections() const { return collections_; }
  /// The identifier of the one collection that a document is in.
  [[nodiscard]] const ByDocument& documentCollections() const { return documentCollections_; }
  /// Written to a file in ascending order.
  [[nodiscard]] const std::set<std::string>& favoriteDocumentIDs() const { return favoriteDocumentIDs_; }
  /// Where a document comes from or belongs to.
  [[nodiscard]] const ByDocument& documentSourceWebsiteURLs() const { return documentSourceWebsiteURLs_; }

  bool operator==(const LibraryOrganization&) const = default;

 private:
  friend struct JSONForm<LibraryOrganization>;

  /// The entries whose addresses are accepted.
  static ByDocument withValidAddresses(ByDocument addresses);

  std::vector<DocumentCollection> collections_;
  ByDocument documentCollections_;
  std::set<std::string> favoriteDocumentIDs_;
  ByDocument documentSourceWebsiteURLs_;
};

template <>
struct JSONForm<LibraryOrganization> {
  static constexpr std::tuple fields{
      required("collections", &LibraryOrganization::collections_),
      required("documentCollections", &LibraryOrganization::documentCollections_),
      defaulted("favoriteDocumentIDs", &LibraryOrganization::favoriteDocumentIDs_),
      defaulted("documentSourceWebsiteURLs", &LibraryOrganization::documentSourceWebsiteURLs_)
          .repaired(LibraryOrganization::withValidAddresses),
  };
};

}  // namespace tessary
