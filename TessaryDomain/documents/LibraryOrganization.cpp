#include "TessaryDomain/documents/LibraryOrganization.h"

#include <utility>

#include "TessaryDomain/application/DocumentWebsiteURL.h"

namespace tessary {

LibraryOrganization::LibraryOrganization(std::vector<DocumentCollection> collections, ByDocument documentCollections,
                                         std::set<std::string> favoriteDocumentIDs,
                                         ByDocument documentSourceWebsiteURLs)
    : collections_(std::move(collections)),
      documentCollections_(std::move(documentCollections)),
      favoriteDocumentIDs_(std::move(favoriteDocumentIDs)),
      documentSourceWebsiteURLs_(withValidAddresses(std::move(documentSourceWebsiteURLs))) {}

LibraryOrganization::ByDocument LibraryOrganization::withValidAddresses(ByDocument addresses) {
  std::erase_if(addresses, [](const auto& entry) { return !DocumentWebsiteURL::validated(entry.second); });
  return addresses;
}

}  // namespace tessary
