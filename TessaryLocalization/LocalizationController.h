#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryLocalization/Locale.h"

namespace tessary {

class LocalizationRuntime;

/// The name of the notification that the language has changed, for hosts that pass it on under a name. It has no
/// object.
inline constexpr std::string_view tessaryLanguageChanged = "com.kelvane.tessary.languageChanged";

/// The language of the product, as a host's user interface changes and watches it. Used on the host's main thread; what
/// it sets holds at once for `L10n` on every thread.
///
///     auto watching = LocalizationController::shared().observe([] { redraw(); });
///     LocalizationController::shared().apply(settings.language);
class LocalizationController {
 public:
  /// What a controller follows where nothing is selected.
  struct System {
    std::vector<std::string> preferredLanguages;
    Locale locale;
  };

  /// Keeps an observer registered for as long as it lives. It may outlive the controller.
  class Observation {
   public:
    Observation() = default;
    Observation(Observation&& other) noexcept = default;
    Observation& operator=(Observation&& other) noexcept;
    ~Observation();

    /// Ends it early. An observer may end its own, or another's, while it is called.
    void end();

   private:
    friend class LocalizationController;
    struct Observer;
    explicit Observation(std::shared_ptr<Observer> observer);

    std::shared_ptr<Observer> observer_;
  };

  /// The one of this process.
  [[nodiscard]] static LocalizationController& shared();

  /// A controller of `runtime`, which must outlive it. `system` is asked anew at each change. Hosts use `shared`.
  LocalizationController(LocalizationRuntime& runtime, std::function<System()> system);
  LocalizationController(const LocalizationController&) = delete;
  LocalizationController& operator=(const LocalizationController&) = delete;

  /// How many changes were applied, from 0. A user interface that shows the present revision is up to date.
  [[nodiscard]] std::int64_t revision() const { return revision_; }
  /// The choice that was applied last: a language code, or empty for the language of the system.
  [[nodiscard]] const std::string& selection() const { return selection_; }
  /// The code of the language that holds.
  [[nodiscard]] const std::string& language() const { return language_; }
  [[nodiscard]] const Locale& locale() const { return locale_; }

  /// Makes `selection` the choice of language: resolves it with the languages and the locale that the system has now,
  /// and makes the result what holds where `L10n` is told no language. Where nothing changes by that it does nothing,
  /// unless `force` is true. Observers are called last, in the order in which they were registered; one that is
  /// registered meanwhile waits for the next change.
  void apply(std::string_view selection, bool force = false);

  /// Lets `systemLocaleChanged` have an effect. Calling it again changes nothing.
  void startObservingSystemLocale() { isObservingSystemLocale_ = true; }

  /// A host calls this when the languages or the locale of the system have changed. Where they are observed, the
  /// present selection is applied by force.
  void systemLocaleChanged();

  /// Calls `changed` after each applied change, on the thread that applies it, until the observation ends.
  [[nodiscard]] Observation observe(std::function<void()> changed);

 private:
  using Observer = Observation::Observer;

  LocalizationRuntime& runtime_;
  std::function<System()> system_;
  std::int64_t revision_ = 0;
  std::string selection_;
  std::string language_;
  Locale locale_;
  bool isObservingSystemLocale_ = false;
  std::vector<std::weak_ptr<Observer>> observers_;
};

}  // namespace tessary
