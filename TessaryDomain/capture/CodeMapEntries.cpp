#include "TessaryDomain/capture/CodeMapEntries.h"

#include <algorithm>
#include <array>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary::CodeMapEntries {

namespace {

constexpr std::string_view mark = "- `";

constexpr auto folders = std::to_array<std::string_view>({"Projects/", "Sources/", "Scripts/", "Tests/"});

/// The end of the entry whose list mark begins at `start`; npos if none does.
std::size_t entryEnd(std::string_view text, std::size_t start) {
  if (!text.substr(start).starts_with(mark)) return std::string_view::npos;
  const std::size_t path = start + mark.size();
  const auto* const folder =
      std::ranges::find_if(folders, [&](std::string_view name) { return text.substr(path).starts_with(name); });
  if (folder == folders.end()) return std::string_view::npos;
  const std::size_t rest = path + folder->size();
  const std::size_t end = text.find('`', rest);
  // Something must stand in the folder.
  return end == std::string_view::npos || end == rest ? std::string_view::npos : end + 1;
}

/// True if a line begins at or behind `from` from which only white space leads to the list mark at `start`. It may
/// begin in that white space, which may hold line ends.
bool beginsLine(std::string_view text, std::size_t from, std::size_t start) {
  for (std::size_t position = start; position > from;) {
    if (text[position - 1] == '\n') return true;
    position = previousScalarStart(text, position);
    if (!PythonText::isSpace(decodeScalar(text, position).scalar)) return false;
  }
  // An entry ends with what is no line end, so that no line begins directly behind it.
  return from == 0;
}

}  // namespace

std::size_t count(std::string_view text, std::size_t limit) {
  std::size_t entries = 0;
  // Where the last entry ended. What stands between two "`" is read backwards once, from the second.
  std::size_t from = 0;
  for (std::size_t tick = text.find('`'); tick != std::string_view::npos && entries < limit;) {
    const std::size_t start = tick + 1 - std::min(mark.size(), tick + 1 - from);
    const std::size_t end = entryEnd(text, start);
    if (end != std::string_view::npos && beginsLine(text, from, start)) {
      ++entries;
      from = end;
      tick = text.find('`', end);
    } else {
      tick = text.find('`', tick + 1);
    }
  }
  return entries;
}

}  // namespace tessary::CodeMapEntries
