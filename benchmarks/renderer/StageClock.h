#pragma once

#include <array>
#include <cstdint>
#include <ctime>

namespace tessary::benchmarks {

/// The variable that names the file in which a run of RendererStages notes its times.
inline constexpr const char* stageFileVariable = "TESSARY_STAGES";

/// What is noted, in order: the entry into `main`, then the end of each stage of `RendererMain::Stage`.
inline constexpr const char* stageNames[] = {"link",  "read",   "context",    "evaluation",
                                             "parse", "render", "conversion", "output"};
inline constexpr std::size_t stageCount = std::size(stageNames);

using StageTimes = std::array<std::uint64_t, stageCount>;

/// Nanoseconds of the clock that all processes share.
inline std::uint64_t now() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000 + static_cast<std::uint64_t>(time.tv_nsec);
}

}  // namespace tessary::benchmarks
