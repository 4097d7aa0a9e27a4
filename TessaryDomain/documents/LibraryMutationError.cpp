#include "TessaryDomain/documents/LibraryMutationError.h"

#include "TessaryLocalization/L10n.h"

namespace tessary {

std::string errorDescription(LibraryMutationError error) {
  return L10n::text(rawValueRow(error).messageKey);
}

}  // namespace tessary
