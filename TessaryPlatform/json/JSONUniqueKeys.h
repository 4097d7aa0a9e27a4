#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace tessary {

/// Leaves, of the entries with the same key, the last one's value in the place of the first. `keyOf` and `valueOf` are
/// projections of an entry. Takes time n log n, and allocates nothing for the few entries that most objects have.
template <class Entry, class KeyOf, class ValueOf>
void uniteRepeatedKeys(std::vector<Entry>& entries, KeyOf keyOf, ValueOf valueOf) {
  constexpr std::size_t fewEntries = 8;
  const auto key = [&](const Entry& entry) -> const auto& { return std::invoke(keyOf, entry); };
  if (entries.size() <= fewEntries) {
    bool isUnique = true;
    for (auto entry = entries.begin(); entry != entries.end() && isUnique; ++entry) {
      isUnique = std::none_of(entries.begin(), entry, [&](const Entry& other) { return key(other) == key(*entry); });
    }
    if (isUnique) return;
  }
  std::vector<std::size_t> order(entries.size());
  for (std::size_t index = 0; index < order.size(); ++index)
    order[index] = index;
  std::ranges::stable_sort(order, {}, [&](std::size_t index) -> const auto& { return key(entries[index]); });
  std::vector<bool> isSuperseded(entries.size(), false);
  for (std::size_t first = 0; first < order.size();) {
    std::size_t end = first + 1;
    for (; end < order.size() && key(entries[order[end]]) == key(entries[order[first]]); ++end) {
      isSuperseded[order[end]] = true;
    }
    if (end > first + 1) {
      std::invoke(valueOf, entries[order[first]]) = std::move(std::invoke(valueOf, entries[order[end - 1]]));
    }
    first = end;
  }
  std::size_t index = 0;
  std::erase_if(entries, [&](const Entry&) { return isSuperseded[index++]; });
}

}  // namespace tessary
