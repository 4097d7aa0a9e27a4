#pragma once

#include <cstddef>

namespace tessary::benchmarks {

/// How often this process has asked for memory. The program replaces the global `operator new` to count.
[[nodiscard]] std::size_t allocationCount();

}  // namespace tessary::benchmarks
