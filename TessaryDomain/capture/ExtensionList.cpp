#include "TessaryDomain/capture/ExtensionList.h"

#include <optional>
#include <utility>

#include "TessaryDomain/capture/CapturePreferences.h"

namespace tessary {

ExtensionList::ExtensionList(std::span<const std::string> texts) {
  for (const std::string& text : texts)
    insert(text);
}

void ExtensionList::insert(std::string_view text) {
  if (std::optional<std::string> extension = CapturePreferences::normalizedExtension(text))
    values_.insert(std::move(*extension));
}

void ExtensionList::insert(std::span<const std::string_view> texts) {
  for (const std::string_view text : texts)
    insert(text);
}

}  // namespace tessary
