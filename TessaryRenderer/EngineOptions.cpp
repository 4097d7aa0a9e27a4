#include "TessaryRenderer/EngineOptions.h"

#include <array>
#include <cstdlib>
#include <string>

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
    // The optimizing compilers take longer than what they compile saves, save for half a megabyte of nothing but
    // markup, which takes up to half as long again without them.
    Option{"JSC_useFTLJIT", "0"},
    Option{"JSC_useDFGJIT", "0"},
    // Most functions of a short document are done before the simple compiler would have been worth its while; those of
    // a long one reach this soon enough.
    Option{"JSC_thresholdForJITAfterWarmUp", "4000"},
    // What the simple compiler makes is wanted at once, and handing the work to another thread and back costs more than
    // doing it.
    Option{"JSC_useConcurrentJIT", "0"},
};

}  // namespace

void replaceEnvironment() {
  const char* const zone = std::getenv("TZ");
  const std::string kept = zone != nullptr ? zone : "";
  // These fail out of memory alone, and then the engine runs with its defaults.
  (void)::clearenv();
  if (zone != nullptr) (void)::setenv("TZ", kept.c_str(), 1);
  for (const Option& option : options)
    (void)::setenv(option.name, option.value, 1);
}

}  // namespace tessary::EngineOptions
