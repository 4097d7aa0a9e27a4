// The shadow report from any bytes: what is read is written and reads as the same value, also after comparisons and
// outcomes have been entered. The same bytes are read as modes and as a timestamp.

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/CaptureShadowReport.h"
#include "TessaryDomain/capture/NativeCaptureFeature.h"
#include "TessaryPlatform/json/JSONRecord.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

namespace {

using namespace tessary;
using Report = CaptureShadowReport;

using tessary::testing::require;

void requireRoundTrip(const Report& report) {
  const auto written = writeJSON(report);
  require(written.has_value());
  require(readJSON<Report>(*written) == report);
}

void enterAll(Report& report, const std::string& text) {
  std::array<Report::Result, 25> results;
  for (std::size_t index = 0; index < results.size(); ++index) {
    results[index].documentID = text;
    results[index].category = allCases<Report::Category>()[index % 5];
    if (index % 3 > 0) results[index].fields = {text, "provenance"};
    if (index % 2 == 0) results[index].reason = text;
  }
  const Date date = Report::date(text).value_or(Date());
  report.record(text, "swift", results, date, TimeZone::utc());
  require(report.samples.size() == Report::sampleLimit);
  // No agreement stands behind the last mismatch.
  require(!report.stages.at(text).streak);
  requireRoundTrip(report);
  const Report before = report;
  report.recordOutcome(text, text, std::nullopt, 0, false, date);
  require(report == before);
  for (const Report::Reply reply : allCases<Report::Reply>())
    report.recordOutcome("merge", text, reply, std::numeric_limits<std::int64_t>::max(), true, date);
  requireRoundTrip(report);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (const auto date = Report::date(text)) {
    const std::string timestamp = Report::timestamp(*date);
    require(timestamp.empty() || Report::timestamp(Report::date(timestamp).value()) == timestamp);
  }
  if (const auto modes = NativeCaptureFeature::parse(text)) {
    require(modes->empty() == text.empty());
    std::string written;
    for (const auto& [stage, mode] : *modes)
      written += (written.empty() ? "" : ",") + std::string(rawValue(stage)) + "=" + std::string(rawValue(mode));
    require(NativeCaptureFeature::parse(written) == modes);
  }
  Report report = readJSON<Report>(text).value_or(Report());
  requireRoundTrip(report);
  // Broken text is mended in writing, so that it would not read as the same.
  if (isWellFormedUTF8(text)) enterAll(report, std::string(text));
  return 0;
}
