#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryLocalization/Locale.h"

namespace tessary {

/// The language and locale that hold where a caller names none. Private to this module: a host changes them through
/// `LocalizationController`. May be used from any thread.
class LocalizationRuntime {
 public:
  /// What holds at one moment.
  struct Snapshot {
    /// A supported code.
    std::string language;
    Locale locale;

    bool operator==(const Snapshot&) const = default;
  };

  explicit LocalizationRuntime(Snapshot snapshot) : snapshot_(std::move(snapshot)) {}

  /// The one of this process. At first use it follows the system.
  [[nodiscard]] static LocalizationRuntime& shared();

  /// What holds for `selection` on a system with these languages and this locale. An empty selection follows the
  /// system.
  [[nodiscard]] static Snapshot resolved(std::string_view selection, const std::vector<std::string>& preferredLanguages,
                                         const Locale& systemLocale);

  /// Both fields, as they were at one moment.
  [[nodiscard]] Snapshot snapshot() const {
    const std::lock_guard guard(lock_);
    return snapshot_;
  }

  [[nodiscard]] std::string language() const {
    const std::lock_guard guard(lock_);
    return snapshot_.language;
  }

  [[nodiscard]] Locale locale() const {
    const std::lock_guard guard(lock_);
    return snapshot_.locale;
  }

  void store(Snapshot snapshot) {
    const std::lock_guard guard(lock_);
    // The old one's memory is freed behind the lock.
    std::swap(snapshot_, snapshot);
  }

 private:
  mutable std::mutex lock_;
  Snapshot snapshot_;
};

}  // namespace tessary
