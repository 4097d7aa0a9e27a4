#pragma once

#include <array>
#include <cstdint>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// Where documents come from that no hook of an agent tells of: folders into which applications put what they make,
/// and the kinds of files in the folder of downloads. Each can be switched on and off by itself.
///
/// The raw values stand in settings files and in stored documents.
enum class CaptureOutput : std::uint8_t {
  claudeCowork,
  codexImages,
  codexVisualizations,
  manus,
  /// Any file that arrives in the folder of downloads. The only output that is off where nothing is set.
  downloadsInbox,
  downloadsDocuments,
  downloadsPDFs,
  downloadsOffice,
  downloadsImages,
};

template <>
struct RawValues<CaptureOutput> {
  static constexpr auto table = std::to_array<RawValueRow<CaptureOutput>>({
      {CaptureOutput::claudeCowork, "claudeCowork"},
      {CaptureOutput::codexImages, "codexImages"},
      {CaptureOutput::codexVisualizations, "codexVisualizations"},
      {CaptureOutput::manus, "manus"},
      {CaptureOutput::downloadsInbox, "downloadsInbox"},
      {CaptureOutput::downloadsDocuments, "downloadsDocuments"},
      {CaptureOutput::downloadsPDFs, "downloadsPDFs"},
      {CaptureOutput::downloadsOffice, "downloadsOffice"},
      {CaptureOutput::downloadsImages, "downloadsImages"},
  });
};

}  // namespace tessary
