#pragma once

#include <string>
#include <string_view>

#include "TessaryLocalization/LocalizationRuntime.h"

namespace tessary::testing {

/// Selects a language for a scope of a test.
class SelectedLanguage {
 public:
  explicit SelectedLanguage(std::string_view code) : before_(LocalizationRuntime::shared().snapshot()) {
    LocalizationRuntime::shared().store({std::string(code), before_.locale});
  }
  SelectedLanguage(const SelectedLanguage&) = delete;
  SelectedLanguage& operator=(const SelectedLanguage&) = delete;
  ~SelectedLanguage() { LocalizationRuntime::shared().store(before_); }

 private:
  LocalizationRuntime::Snapshot before_;
};

}  // namespace tessary::testing
