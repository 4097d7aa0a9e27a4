#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The named character references of HTML, as the HTML standard lists them and CPython's `html.entities.html5` holds
/// them: 2,231 names, each with its closing ";" where it has one. 106 names stand without as well, since old pages
/// write them so.
namespace tessary::HTMLEntities {

/// One named reference.
struct Entity {
  /// What stands behind the "&", such as "amp;" or "amp". ASCII letters and digits, then perhaps ";".
  std::string_view name;
  /// What the reference stands for.
  char32_t first;
  /// The second scalar of the 93 references that stand for two, else 0, which no reference stands for.
  char32_t second;

  /// How many scalars the reference stands for, 1 or 2.
  [[nodiscard]] std::size_t scalarCount() const noexcept { return second == 0 ? 1 : 2; }

  bool operator==(const Entity&) const = default;
};

/// How many references there are.
inline constexpr std::size_t entityCount = 2231;

/// The bytes of the longest name, its ";" included.
inline constexpr std::size_t longestName = 32;

/// The bytes of the longest name that stands without ";".
inline constexpr std::size_t longestOpenName = 6;

/// The bytes of the shortest name that stands without ";".
inline constexpr std::size_t shortestOpenName = 2;

/// All references in the order of their names' bytes.
[[nodiscard]] std::span<const Entity, entityCount> table() noexcept;

/// The reference whose name is exactly `name`, its ";" included where it has one; null if there is none.
[[nodiscard]] const Entity* find(std::string_view name) noexcept;

}  // namespace tessary::HTMLEntities
