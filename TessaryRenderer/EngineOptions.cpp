#include "TessaryRenderer/EngineOptions.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessary::EngineOptions {

namespace {

struct Option {
  const char* name;
  const char* value;
};

/// For a process that lives some tens of milliseconds. Wall time against the engine's defaults is in
/// benchmarks/renderer/README.md.
constexpr std::array options{
    // The first collection comes when this much has been allocated: most documents then need none.
    Option{"JSC_smallHeapSize", "33554432"},
    // The highest compiler tier takes longer than what it compiles saves; the one below it comes a little later.
    Option{"JSC_useFTLJIT", "0"},
    Option{"JSC_thresholdForOptimizeAfterWarmUp", "4000"},
    Option{"JSC_thresholdForOptimizeAfterLongWarmUp", "4000"},
};

bool isLocaleOrTimeZone(std::string_view name) {
  return name == "TZ" || name == "LANG" || name == "LANGUAGE" || name.starts_with("LC_");
}

}  // namespace

void replaceEnvironment() {
  std::vector<std::pair<std::string, std::string>> kept;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    const std::string_view assignment(*entry);
    const std::size_t sign = assignment.find('=');
    if (sign == std::string_view::npos || !isLocaleOrTimeZone(assignment.substr(0, sign))) continue;
    kept.emplace_back(assignment.substr(0, sign), assignment.substr(sign + 1));
  }
  // A result of setenv is out of memory alone, and then the engine runs with its defaults.
  (void)::clearenv();
  for (const auto& [name, value] : kept)
    (void)::setenv(name.c_str(), value.c_str(), 0);  // The first of two assignments counts, as it does for getenv.
  for (const Option& option : options)
    (void)::setenv(option.name, option.value, 1);
}

}  // namespace tessary::EngineOptions
