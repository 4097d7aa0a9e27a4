// Any bytes as the names of a model and a provider and as an address: three texts with a line end between them.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryDomain/agents/ModelVendor.h"
#include "support/RecordRoundTrip.h"

using tessary::ModelVendor;
using tessary::testing::require;

namespace {

std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
  return line;
}

std::optional<ModelVendor> eitherOf(std::optional<ModelVendor> first, std::optional<ModelVendor> second) {
  return first ? first : second;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  const std::string_view model = takeLine(rest);
  const std::string_view provider = takeLine(rest);
  const std::string_view address = rest;

  const std::optional<ModelVendor> named = ModelVendor::named(model);
  require(ModelVendor::of(model, provider) == eitherOf(named, ModelVendor::provided(provider)));
  require(ModelVendor::of(model, std::nullopt) == named);
  // White space around a name says nothing.
  require(ModelVendor::named(" " + std::string(model) + "\r\n") == named);
  for (const ModelVendor::Case vendor : tessary::allCases<ModelVendor::Case>())
    require(!ModelVendor::family(vendor, model).empty());

  if (const std::optional<std::string> id = ModelVendor::providerID(provider)) {
    require(*id == provider && id->size() <= ModelVendor::maximumProviderIDScalars);
    require(ModelVendor::providerID(*id) == id);
  }
  (void)ModelVendor::own(provider);

  const bool isLocal = ModelVendor::isLocal(provider, address, model);
  require(ModelVendor::isLocal(" " + std::string(provider), std::string(address) + " ", model) == isLocal);
  // Without a provider only an address of the machine itself, or a tag, can say that a model is local.
  if (ModelVendor::isLocal(std::nullopt, address, "model")) require(ModelVendor::isNearby(address));
  // A vendor's own service is never local by its name alone.
  if (ModelVendor::provided(provider)) require(!ModelVendor::isLocal(provider, std::nullopt, model));
  (void)ModelVendor::isOllamaTag(model);
  return 0;
}
