#pragma once

#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/CapturePreferences.h"
#include "support/JSONErrors.h"

namespace tessary {

/// The preferences that `json` holds; a text that cannot be read fails the test.
inline CapturePreferences preferences(std::string_view json) {
  const auto read = readJSON<CapturePreferences>(json);
  EXPECT_TRUE(read) << json << ": " << read.error();
  return read.value_or(CapturePreferences());
}

}  // namespace tessary
