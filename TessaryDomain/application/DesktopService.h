#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessary {

/// What the desktop service can do on this machine, as it tells the application.
struct DesktopServiceStatus {
  /// The service answers.
  bool isAvailable = false;
  /// The system can show notifications of the product.
  bool notificationSupport = false;
  /// The product starts when the user logs in.
  bool launchAtLogin = false;
  /// The system's own word for that registration.
  std::string loginStatus;
  /// The system's own word for the permission to notify; `notificationLabel` reads it.
  std::string notificationAuthorization;
  std::string applicationVersion;
  std::string applicationBuild;

  /// `notificationAuthorization` in words for the reader, in the language now selected. Words are compared exactly; one
  /// that is not known, the empty one included, reads as not available in this environment.
  [[nodiscard]] std::string notificationLabel() const;

  bool operator==(const DesktopServiceStatus&) const = default;
};

/// A notification that the service is to show. One about a document leads to it when the user opens it: the two
/// identifiers then stand in the notification's user data under the two keys.
struct DesktopNotification {
  static constexpr std::string_view documentIDKey = "documentID";
  static constexpr std::string_view revisionIDKey = "revisionID";

  std::string id;
  std::string title;
  std::string body;
  std::optional<std::string> documentID;
  std::optional<std::string> revisionID;

  bool operator==(const DesktopNotification&) const = default;
};

}  // namespace tessary
