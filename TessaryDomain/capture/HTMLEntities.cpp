#include "TessaryDomain/capture/HTMLEntities.h"

#include <array>

#include "TessaryDomain/capture/HTMLEntitiesText.h"

// The text of the table is read by the compiler: what the program holds is the sorted table and a hash index over it,
// so that no first caller pays for it and no lock is needed. A malformed text does not compile.

namespace tessary::HTMLEntities {

namespace {

using Table = std::array<Entity, entityCount>;

constexpr bool isSeparator(char character) {
  return character == ' ' || character == '\n';
}

constexpr char32_t hexadecimalValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<char32_t>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<char32_t>(digit - 'A' + 10);
  throw "not a hexadecimal digit";
}

/// Reads the code point at `position` and moves behind it.
constexpr char32_t readCodePoint(std::string_view source, std::size_t& position) {
  char32_t value = 0;
  for (; position < source.size() && source[position] != ',' && !isSeparator(source[position]); ++position)
    value = value * 16 + hexadecimalValue(source[position]);
  return value;
}

constexpr Table parse(std::string_view source) {
  Table entities{};
  std::size_t count = 0;
  for (std::size_t position = 0; position < source.size();) {
    if (isSeparator(source[position])) {
      ++position;
      continue;
    }
    Entity& entity = entities.at(count++);
    const std::size_t equals = source.find('=', position);
    entity.name = source.substr(position, equals - position);
    position = equals + 1;
    entity.first = readCodePoint(source, position);
    if (position < source.size() && source[position] == ',') entity.second = readCodePoint(source, ++position);
  }
  if (count != entityCount) throw "a wrong number of entries";
  return entities;
}

constexpr Table entities = parse(text);

constexpr bool namesRise() {
  for (std::size_t index = 1; index < entities.size(); ++index) {
    if (entities[index - 1].name >= entities[index].name) return false;
  }
  return true;
}
static_assert(namesRise(), "names are sorted, and no name stands twice");

constexpr bool namesKeepTheirBounds() {
  std::size_t longest = 0;
  std::size_t longestOpen = 0;
  std::size_t shortestOpen = longestName;
  for (const Entity& entity : entities) {
    const std::size_t length = entity.name.size();
    if (length > longest) longest = length;
    if (entity.name.ends_with(';')) continue;
    if (length > longestOpen) longestOpen = length;
    if (length < shortestOpen) shortestOpen = length;
  }
  return longest == longestName && longestOpen == longestOpenName && shortestOpen == shortestOpenName;
}
static_assert(namesKeepTheirBounds());

/// Open addressing over a table more than half empty: a search ends at the name or at the first free place.
constexpr std::size_t placeCount = 8192;
constexpr std::uint16_t freePlace = entityCount;

constexpr std::size_t placeOf(std::string_view name) {
  std::uint32_t hash = 2166136261;  // FNV-1a
  for (const char character : name)
    hash = (hash ^ static_cast<unsigned char>(character)) * 16777619;
  return (hash ^ (hash >> 15)) % placeCount;
}

constexpr std::array<std::uint16_t, placeCount> makeIndex() {
  std::array<std::uint16_t, placeCount> index{};
  index.fill(freePlace);
  for (std::uint16_t entity = 0; entity < entityCount; ++entity) {
    std::size_t place = placeOf(entities[entity].name);
    while (index[place] != freePlace)
      place = (place + 1) % placeCount;
    index[place] = entity;
  }
  return index;
}

constexpr std::array<std::uint16_t, placeCount> entityAt = makeIndex();

}  // namespace

std::span<const Entity, entityCount> table() noexcept {
  return entities;
}

const Entity* find(std::string_view name) noexcept {
  for (std::size_t place = placeOf(name); entityAt[place] != freePlace; place = (place + 1) % placeCount) {
    const Entity& entity = entities[entityAt[place]];
    if (entity.name == name) return &entity;
  }
  return nullptr;
}

}  // namespace tessary::HTMLEntities
