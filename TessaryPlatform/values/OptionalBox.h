#pragma once

#include <memory>
#include <optional>
#include <utility>

namespace tessary {

/// A value that may be absent and, where it is there, lies in memory of its own: a `std::optional` for large members
/// that are often absent, in types of which there are many. It takes the room of a pointer, copies as deeply as the
/// value does, and compares by value.
template <class T>
class OptionalBox {
 public:
  using value_type = T;

  OptionalBox() = default;
  // NOLINTBEGIN(google-explicit-constructor): as of std::optional.
  OptionalBox(std::nullopt_t) {}
  OptionalBox(T value) : value_(std::make_unique<T>(std::move(value))) {}
  // NOLINTEND(google-explicit-constructor)
  OptionalBox(const OptionalBox& other) : value_(other ? std::make_unique<T>(*other) : nullptr) {}
  OptionalBox(OptionalBox&&) noexcept = default;
  OptionalBox& operator=(const OptionalBox& other) {
    if (this != &other) *this = OptionalBox(other);
    return *this;
  }
  /// Leaves `other` absent.
  OptionalBox& operator=(OptionalBox&&) noexcept = default;
  ~OptionalBox() = default;

  [[nodiscard]] bool has_value() const { return value_ != nullptr; }
  explicit operator bool() const { return has_value(); }

  /// The value, which must be there.
  [[nodiscard]] T& operator*() { return *value_; }
  [[nodiscard]] const T& operator*() const { return *value_; }
  [[nodiscard]] T* operator->() { return value_.get(); }
  [[nodiscard]] const T* operator->() const { return value_.get(); }

  /// Makes a new value, in place of one that is there.
  template <class... Arguments>
  T& emplace(Arguments&&... arguments) {
    value_ = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    return *value_;
  }
  void reset() { value_.reset(); }

  [[nodiscard]] friend bool operator==(const OptionalBox& left, const OptionalBox& right) {
    return left && right ? *left == *right : left.has_value() == right.has_value();
  }

 private:
  std::unique_ptr<T> value_;
};

}  // namespace tessary
