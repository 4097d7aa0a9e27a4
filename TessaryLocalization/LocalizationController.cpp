#include "TessaryLocalization/LocalizationController.h"

#include <utility>

#include "TessaryLocalization/LocalizationRuntime.h"
#include "TessaryLocalization/PreferredLanguages.h"

namespace tessary {

struct LocalizationController::Observation::Observer {
  std::function<void()> changed;
};

LocalizationController::Observation::Observation(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}

LocalizationController::Observation& LocalizationController::Observation::operator=(Observation&& other) noexcept =
    default;

LocalizationController::Observation::~Observation() = default;

void LocalizationController::Observation::end() {
  observer_.reset();
}

LocalizationController& LocalizationController::shared() {
  static LocalizationController controller(LocalizationRuntime::shared(), [] {
    return System{.preferredLanguages = systemPreferredLanguages(), .locale = Locale::system()};
  });
  return controller;
}

LocalizationController::LocalizationController(LocalizationRuntime& runtime, std::function<System()> system)
    : runtime_(runtime), system_(std::move(system)) {
  LocalizationRuntime::Snapshot snapshot = runtime.snapshot();
  language_ = std::move(snapshot.language);
  locale_ = std::move(snapshot.locale);
}

void LocalizationController::apply(std::string_view selection, bool force) {
  const System system = system_();
  LocalizationRuntime::Snapshot snapshot =
      LocalizationRuntime::resolved(selection, system.preferredLanguages, system.locale);
  if (!force && selection == selection_ && snapshot.language == language_ && snapshot.locale == locale_) return;

  selection_ = selection;
  language_ = snapshot.language;
  locale_ = snapshot.locale;
  runtime_.store(std::move(snapshot));
  ++revision_;

  // A list of its own, since observers may register others. Each is held while it is called, and not before: one that
  // was ended by an earlier one is not called any more.
  std::erase_if(observers_, [](const std::weak_ptr<Observer>& observer) { return observer.expired(); });
  for (const std::weak_ptr<Observer>& each : std::vector(observers_))
    if (const std::shared_ptr<Observer> observer = each.lock()) observer->changed();
}

void LocalizationController::systemLocaleChanged() {
  if (isObservingSystemLocale_) apply(std::string(selection_), /*force=*/true);
}

LocalizationController::Observation LocalizationController::observe(std::function<void()> changed) {
  auto observer = std::make_shared<Observer>(std::move(changed));
  observers_.emplace_back(observer);
  return Observation(std::move(observer));
}

}  // namespace tessary
