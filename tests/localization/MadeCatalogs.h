#pragma once

#include <string>
#include <utility>
#include <vector>

#include "TessaryLocalization/LocalizationCatalogs.h"

namespace tessary {

/// A catalog made for a test.
inline LocalizationCatalog madeCatalog(CatalogMap<std::string> messages,
                                       CatalogMap<LocalizationCatalog::PluralForms> plurals = {},
                                       std::vector<std::string> externalKeys = {}) {
  return {.language = "",
          .messages = std::move(messages),
          .plurals = std::move(plurals),
          .externalKeys = std::move(externalKeys)};
}

}  // namespace tessary
