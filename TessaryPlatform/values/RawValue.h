#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tessary {

/// A closed vocabulary is an `enum class` with one table that gives each case its persistent raw text, and whatever
/// else belongs to a case:
///
///     enum class Status { pending, inProgress };
///
///     template <>
///     struct RawValues<Status> {
///       static constexpr auto table = std::to_array<RawValueRow<Status>>({
///           {Status::pending, "pending"},
///           {Status::inProgress, "in_progress"},
///       });
///     };
///
/// The rows stand in the order of declaration, which is checked when the program is built. A row type of its own may
/// hold further columns behind `value` and `rawValue`; `rawValueRow(x)` gives the row.
template <class E>
struct RawValues;

/// The row of a table that holds raw texts alone.
template <class E>
struct RawValueRow {
  E value;
  std::string_view rawValue;
};

/// True for a table whose rows are the cases 0, 1, 2 … in this order, with raw texts that all differ.
template <class Table>
constexpr bool isRawValueTable(const Table& table) {
  for (std::size_t index = 0; index < table.size(); ++index) {
    if (static_cast<std::size_t>(table[index].value) != index) return false;
    for (std::size_t other = 0; other < index; ++other) {
      if (table[other].rawValue == table[index].rawValue) return false;
    }
  }
  return true;
}

/// An enumeration that has such a table.
template <class E>
concept RawRepresentable = std::is_enum_v<E> && requires { RawValues<E>::table.size(); };

/// The row of `value` in its table.
template <RawRepresentable E>
[[nodiscard]] constexpr const auto& rawValueRow(E value) {
  static_assert(isRawValueTable(RawValues<E>::table), "rows in declaration order, raw texts unique");
  return RawValues<E>::table[static_cast<std::size_t>(value)];
}

/// The raw text of `value`.
template <RawRepresentable E>
[[nodiscard]] constexpr std::string_view rawValue(E value) {
  return rawValueRow(value).rawValue;
}

/// The case whose raw text is exactly `text`; absent if there is none.
template <RawRepresentable E>
[[nodiscard]] constexpr std::optional<E> fromRawValue(std::string_view text) {
  for (const auto& row : RawValues<E>::table) {
    if (row.rawValue == text) return row.value;
  }
  return std::nullopt;
}

/// All cases, in the order of declaration.
template <RawRepresentable E>
[[nodiscard]] constexpr auto allCases() {
  std::array<E, RawValues<E>::table.size()> cases{};
  for (std::size_t index = 0; index < cases.size(); ++index)
    cases[index] = RawValues<E>::table[index].value;
  return cases;
}

}  // namespace tessary
