#include "TessaryDomain/agents/ModelVendor.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstddef>

#include "TessaryDomain/agents/ModelVendorTables.h"
#include "TessaryPlatform/addresses/URL.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {

namespace {

std::string folded(std::string_view text) {
  return lowercased(trimmed(text, isWhiteSpace));
}

/// An absent text and one of white space are empty.
std::string_view trimmedOrEmpty(std::optional<std::string_view> text) {
  return trimmed(text.value_or(std::string_view()), isWhiteSpace);
}

std::optional<ModelVendor> vendorOf(std::string_view text, const auto& rows) {
  const auto row = std::ranges::find(rows, text, &ModelNames::VendorRow::text);
  if (row == rows.end()) return std::nullopt;
  return row->vendor;
}

std::optional<ModelVendor> vendorOfPrefix(std::string_view text, const auto& rows) {
  const auto row = std::ranges::find_if(
      rows, [text](std::string_view prefix) { return text.starts_with(prefix); }, &ModelNames::VendorRow::text);
  if (row == rows.end()) return std::nullopt;
  return row->vendor;
}

/// What stands behind a prefix and one "-", where it begins with a digit; else empty.
std::string_view numberBehind(std::string_view prefix, std::string_view text) {
  if (!text.starts_with(prefix)) return {};
  text.remove_prefix(prefix.size());
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && isASCIIDigit(text.front()) ? text : std::string_view();
}

/// The parts of a model's name that tell the vendor.
struct ModelName {
  /// The first part of a path; empty for a name that is none.
  std::string_view slug;
  /// The last part of a path, or the whole name.
  std::string_view last;
};

/// The name in a folded text, without the variant behind it. Empty parts of the path do not count.
ModelName nameOf(std::string_view text) {
  text = text.substr(0, text.find_first_of("[:"));
  const std::size_t start = text.find_first_not_of('/');
  if (start == std::string_view::npos) return {};
  text = text.substr(start, text.find_last_not_of('/') + 1 - start);
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return {.slug = {}, .last = text};
  return {.slug = text.substr(0, slash), .last = text.substr(text.rfind('/') + 1)};
}

/// Takes the first part that is not empty, and the "." behind it, from a dotted text.
std::string_view takeDotted(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of('.'), text.size()));
  const std::string_view part = text.substr(0, text.find('.'));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

bool hasBorrowedName(std::string_view name) {
  return std::ranges::any_of(ModelNames::borrowedPrefixes,
                             [name](std::string_view prefix) { return name.starts_with(prefix); });
}

/// A cloud's name of a model, "us.anthropic.claude-v2".
struct CloudName {
  ModelVendor vendor;
  /// The vendor's own name of the model.
  std::string_view model;
};

std::optional<CloudName> cloudNameOf(std::string_view last) {
  std::string_view rest = last;
  const std::string_view first = takeDotted(rest);
  const std::string_view behindFirst = rest;
  const std::string_view second = takeDotted(rest);
  if (second.empty()) return std::nullopt;
  // A region is one only where a vendor and a model can follow.
  const bool hasRegion = !rest.empty() && ModelNames::regions.contains(first);
  const std::optional<ModelVendor> vendor = vendorOf(hasRegion ? second : first, ModelNames::bedrock);
  if (!vendor) return std::nullopt;
  return CloudName{.vendor = *vendor, .model = hasRegion ? rest : behindFirst};
}

/// The host and port of an address that may lack its scheme.
std::optional<URL> serverAddress(std::string_view text) {
  text = trimmed(text, isWhiteSpace);
  // Without "//" the host would be taken for the scheme: "localhost:11434".
  if (text.contains("://")) return URL::parse(text);
  return URL::parse("http://" + std::string(text));
}

/// True for the numbers of the machine itself: 127.0.0.0/8, ::1, and the unspecified address of both kinds.
bool isOwnNumber(std::string_view host) {
  std::array<unsigned char, 4> four{};
  if (inet_pton(AF_INET, std::string(host).c_str(), four.data()) == 1)
    return four[0] == 127 || four == std::array<unsigned char, 4>{};
  if (!host.starts_with('[') || !host.ends_with(']')) return false;
  std::array<unsigned char, 16> six{};
  if (inet_pton(AF_INET6, std::string(host.substr(1, host.size() - 2)).c_str(), six.data()) != 1) return false;
  return std::all_of(six.begin(), six.end() - 1, [](unsigned char byte) { return byte == 0; }) && six.back() <= 1;
}

bool isNearbyHost(const URL& address) {
  std::string host = lowercased(address.host().value_or(std::string()));
  // A host with an escaped byte 0 is none; the functions for numbers would stop reading at it.
  if (host.contains('\0')) return false;
  // The full stop that makes a name absolute.
  if (host.ends_with('.')) host.pop_back();
  return host == "localhost" || host.ends_with(".localhost") || ModelNames::containerHosts.contains(host) ||
         isOwnNumber(host);
}

bool isLocalServer(std::string_view baseURL) {
  const std::optional<URL> address = serverAddress(baseURL);
  return address && isNearbyHost(*address) && address->port() &&
         std::ranges::find(ModelNames::localPorts, *address->port()) != ModelNames::localPorts.end();
}

/// What stands behind the last ":"; empty where there is none.
std::string_view tagOf(std::string_view model) {
  const std::size_t colon = model.rfind(':');
  return colon == std::string_view::npos ? std::string_view() : model.substr(colon + 1);
}

bool isTagOfLocalRunner(std::string_view model) {
  return ModelVendor::isOllamaTag(model) && !model.contains('/') &&
         !std::ranges::all_of(tagOf(model), isASCIIDigit<char>);
}

}  // namespace

std::optional<ModelVendor> ModelVendor::of(std::optional<std::string_view> model,
                                           std::optional<std::string_view> provider) {
  const std::optional<ModelVendor> byModel = model ? named(*model) : std::nullopt;
  if (byModel || !provider) return byModel;
  return provided(*provider);
}

std::optional<ModelVendor> ModelVendor::named(std::string_view text) {
  const std::string lowered = folded(text);
  const ModelName name = nameOf(lowered);
  // 1. Who publishes it.
  if (const auto vendor = vendorOf(name.slug, ModelNames::slugs)) return vendor;
  // 2. What a cloud calls it.
  if (const auto cloud = cloudNameOf(name.last)) return cloud->vendor;
  // 3. Whose name it has only borrowed.
  if (hasBorrowedName(name.last)) return std::nullopt;
  // 4. How the name begins.
  if (const auto vendor = vendorOfPrefix(name.last, ModelNames::modelPrefixes)) return vendor;
  // 5. How it begins, where that alone says too little.
  const auto hasNumber = [&](std::string_view prefix) { return !numberBehind(prefix, name.last).empty(); };
  const auto row = std::ranges::find_if(ModelNames::shortPrefixes, hasNumber, &ModelNames::VendorRow::text);
  if (row == ModelNames::shortPrefixes.end()) return std::nullopt;
  return row->vendor;
}

std::optional<ModelVendor> ModelVendor::provided(std::string_view text) {
  const std::string lowered = folded(text);
  // Not a prefix: it is too short to tell a name that goes on.
  if (lowered == "zai") return zhipu;
  return vendorOfPrefix(lowered, ModelNames::providerPrefixes);
}

std::optional<ModelVendor> ModelVendor::own(std::string_view source) {
  return vendorOf(source, ModelNames::ownAgents);
}

std::string ModelVendor::family(ModelVendor vendor, std::optional<std::string_view> model) {
  const std::string lowered = folded(model.value_or(std::string_view()));
  std::string_view name = nameOf(lowered).last;
  if (const auto cloud = cloudNameOf(name)) name = cloud->model;
  // A provider of OpenAI's interface may serve it; its word is still not one of OpenAI's.
  if (hasBorrowedName(name)) return std::string(vendor.title());
  const auto row = std::ranges::find_if(ModelNames::families, [&](const ModelNames::FamilyRow& family) {
    return family.vendor == vendor && name.starts_with(family.prefix);
  });
  if (row != ModelNames::families.end()) return std::string(row->word);
  if (const std::string_view number = numberBehind("o", name); vendor == openai && !number.empty())
    return "o" + std::string(number.begin(), std::ranges::find_if_not(number, isASCIIDigit<char>));
  return std::string(vendor.title());
}

std::string_view ModelVendor::title() const {
  return rawValueRow(value_).title;
}

bool ModelVendor::isOllamaTag(std::string_view text) {
  return std::ranges::count(text, ':') == 1 && (isASCIILowercase(text.front()) || isASCIIDigit(text.front()));
}

bool ModelVendor::isNearby(std::string_view text) {
  const std::optional<URL> address = serverAddress(text);
  return address && isNearbyHost(*address);
}

bool ModelVendor::isLocal(std::optional<std::string_view> provider, std::optional<std::string_view> baseURL,
                          std::optional<std::string_view> model) {
  const std::string_view name = trimmedOrEmpty(model);
  if (lowercased(tagOf(name)).ends_with("cloud")) return false;
  const std::string runner = folded(provider.value_or(std::string_view()));
  if (ModelNames::localProviders.contains(runner)) return true;
  const std::string_view address = trimmedOrEmpty(baseURL);
  if (!address.empty()) return isLocalServer(address);
  return runner.empty() && isTagOfLocalRunner(name);
}

std::optional<std::string> ModelVendor::providerID(std::optional<std::string_view> text) {
  // All that may stand in it is ASCII, so its bytes are its scalars.
  if (!text || text->empty() || text->size() > maximumProviderIDScalars) return std::nullopt;
  const auto isAllowed = [](char byte) {
    return isASCIIAlphanumeric(byte) || byte == '.' || byte == '_' || byte == '-';
  };
  if (!isASCIIAlphanumeric(text->front()) || !std::ranges::all_of(*text, isAllowed)) return std::nullopt;
  return std::string(*text);
}

}  // namespace tessary
