#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace tessary {

/// A list of file name extensions, each in its normal form and once, in ascending order. The normal form is that of
/// `CapturePreferences::normalizedExtension`; what has none never gets into the list.
class ExtensionList {
 public:
  /// Ascending by scalars, since all of them are ASCII.
  using Values = std::set<std::string, std::less<>>;

  ExtensionList() = default;
  /// The normal forms of `texts`.
  explicit ExtensionList(std::span<const std::string> texts);

  /// The extensions in ascending order of their scalars.
  [[nodiscard]] const Values& values() const noexcept { return values_; }

  /// True if exactly this extension is listed; nothing is normalised.
  [[nodiscard]] bool contains(std::string_view extension) const { return values_.contains(extension); }

  /// Adds the normal form of `text`, if it has one.
  void insert(std::string_view text);
  /// Adds the normal form of each of `texts`.
  void insert(std::span<const std::string_view> texts);

  /// Removes exactly this extension, if it is listed; nothing is normalised.
  void erase(const std::string& extension) { values_.erase(extension); }

  /// Removes the extensions of which `isUnwanted` is true.
  template <class Predicate>
  void eraseIf(Predicate isUnwanted) {
    std::erase_if(values_, isUnwanted);
  }

  bool operator==(const ExtensionList&) const = default;

 private:
  Values values_;
};

}  // namespace tessary
