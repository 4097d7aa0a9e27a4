// Event times out of any bytes: what is read lies in the years 1 to 9999, give or take an offset of less than a day,
// and reading it again out of an exactly sized copy gives the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/PythonISOTimestamp.h"

namespace {

// 0001-01-01T00:00:00 and 9999-12-31T23:59:59.999999, by the days from 1970-01-01 on the proleptic Gregorian calendar.
constexpr std::int64_t day = 86'400'000'000;
constexpr std::int64_t earliest = -719'162 * day;
constexpr std::int64_t latest = 2'932'897 * day - 1;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<char> exact(data, data + size);
  const std::string_view text(exact.data(), exact.size());
  const auto time = tessary::PythonISOTimestamp::microseconds(text);
  if (time && (*time <= earliest - day || *time >= latest + day)) std::abort();
  if (tessary::PythonISOTimestamp::microseconds(std::string_view(reinterpret_cast<const char*>(data), size)) != time)
    std::abort();
  return 0;
}
