#include "TessaryPlatform/time/SystemTimeZone.h"

#include <array>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <unistd.h>
#include <utility>

#include <unicode/timezone.h>
#include <unicode/ucal.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/time/TimeZone.h"

namespace tessary {
namespace {

constexpr std::string_view zoneFolder = "/zoneinfo/";
const char* const linkToZone = "/etc/localtime";

/// The name of the zone whose file this is. The database may lie there twice more, without leap seconds and with them.
std::optional<std::string> nameOfZoneFile(std::string_view path) {
  const std::size_t folder = path.rfind(zoneFolder);
  if (folder == std::string_view::npos) return std::nullopt;
  std::string_view name = path.substr(folder + zoneFolder.size());
  for (const std::string_view edition : {"posix/", "right/"})
    if (name.starts_with(edition)) name.remove_prefix(edition.size());
  return name.empty() ? std::nullopt : std::optional<std::string>(name);
}

/// A name has no digits but in "Etc/GMT+5" and its like; a rule, as "CET-1CEST,M3.5.0,M10.5.0/3", always has some.
bool isRule(std::string_view text) {
  const std::size_t digit = text.find_first_of("0123456789");
  return digit != std::string_view::npos && text.substr(0, digit).find('/') == std::string_view::npos;
}

std::optional<std::string> nameInVariable(std::string_view value) {
  if (value.starts_with(':')) value.remove_prefix(1);
  if (value.empty()) return "UTC";
  if (value.starts_with('/')) return nameOfZoneFile(value);
  if (isRule(value)) return std::nullopt;
  return std::string(value);
}

std::optional<std::string> nameOfMachine() {
  std::array<char, PATH_MAX> target{};
  const ssize_t size = ::readlink(linkToZone, target.data(), target.size());
  if (size <= 0) return std::nullopt;
  return nameOfZoneFile(std::string_view(target.data(), static_cast<std::size_t>(size)));
}

/// The name of a fixed offset, "GMT-03:30".
std::string offsetName(std::chrono::minutes offset) {
  const auto twoDigits = [](auto number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  const auto distance = std::chrono::abs(offset).count();
  return (offset.count() < 0 ? "GMT-" : "GMT+") + twoDigits(distance / 60) + ':' + twoDigits(distance % 60);
}

std::string nameFoundByICU() {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
  icu::UnicodeString name;
  if (!zone || zone->getID(name) == UNICODE_STRING_SIMPLE(UCAL_UNKNOWN_ZONE_ID)) return "UTC";
  std::string text;
  name.toUTF8String(text);
  // A zone that has only its offset goes by the text of the variable.
  if (TimeZone::named(text)) return text;
  return offsetName(std::chrono::duration_cast<std::chrono::minutes>(std::chrono::milliseconds(zone->getRawOffset())));
}

}  // namespace

std::string systemTimeZoneIdentifier() {
  const char* const variable = std::getenv("TZ");
  std::optional<std::string> name = variable == nullptr ? nameOfMachine() : nameInVariable(variable);
  return name ? std::move(*name) : nameFoundByICU();
}

}  // namespace tessary
