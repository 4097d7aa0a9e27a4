// Holds the catalogs against the code: no key is used that no catalog has, and none is kept that nothing uses.
//
// A Korean literal alone does not tell whether it is a key: tables of words by which documents are recognised hold
// Korean too, and many a title is such a word. What counts is the unit. In a unit, that is in X.h and X.cpp together,
// of which one includes L10n.h, every Korean literal is taken for a key; elsewhere only what is written as the
// argument of L10n::text is. So a table of titles has to stand in the unit that translates them.

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/text/UTF8.h"

#include "CatalogFiles.h"
#include "SourceLiterals.h"

namespace tessary {
namespace {

/// Korean in units that translate which is shown as it stands, or is part of an expression.
constexpr auto koreanThatIsNoKey = std::to_array<std::string_view>({
    "한국어",
    R"(\{(\d+)\}(?:개|명|일))",
});

struct PlacedLiteral {
  std::string file;
  SourceLiteral literal;
};

std::string contents(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

bool holdsKorean(std::string_view text) {
  return std::ranges::any_of(ScalarView(text), [](char32_t scalar) { return scalar >= U'가' && scalar <= U'힣'; });
}

/// The literals of both modules by unit, which is the path without its extension.
const std::map<std::string, std::vector<PlacedLiteral>>& units() {
  static const auto units = [] {
    std::map<std::string, std::vector<PlacedLiteral>> found;
    for (const std::string_view folder : {"TessaryDomain", "TessaryLocalization"}) {
      const std::filesystem::path root = std::filesystem::path(TESSARY_SOURCES) / folder;
      for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::filesystem::path& path = entry.path();
        if (path.extension() != ".h" && path.extension() != ".cpp") continue;
        for (SourceLiteral& literal : sourceLiterals(contents(path)))
          found[path.parent_path() / path.stem()].push_back({path.string(), std::move(literal)});
      }
    }
    return found;
  }();
  return units;
}

bool translates(const std::vector<PlacedLiteral>& unit) {
  return std::ranges::any_of(unit, [](const PlacedLiteral& placed) {
    return placed.literal.isInclude && placed.literal.text == "TessaryLocalization/L10n.h";
  });
}

/// What the code uses as keys. Literals that are keys without being Korean count in a unit that translates.
std::vector<PlacedLiteral> keysInCode() {
  const auto& messages = catalogFile("ko").messages;
  std::vector<PlacedLiteral> keys;
  for (const auto& [path, unit] : units()) {
    const bool isTranslating = translates(unit);
    std::ranges::copy_if(unit, std::back_inserter(keys), [&](const PlacedLiteral& placed) {
      const SourceLiteral& literal = placed.literal;
      if (literal.isTranslated) return true;
      if (!isTranslating || literal.isInclude || std::ranges::count(koreanThatIsNoKey, literal.text) > 0) return false;
      return holdsKorean(literal.text) || messages.contains(literal.text);
    });
  }
  return keys;
}

/// The keys of rooms that are not built yet.
std::vector<std::string> keysAwaitingCode() {
  std::ifstream stream(TESSARY_SOURCES "/tests/localization/keysAwaitingCode.txt");
  EXPECT_TRUE(stream.is_open());
  std::vector<std::string> keys;
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && !line.starts_with('#')) keys.push_back(line);
  }
  return keys;
}

TEST(CatalogUsage, EveryKeyInTheCodeIsInTheCatalogs) {
  const auto& messages = catalogFile("ko").messages;
  for (const auto& [file, literal] : keysInCode()) {
    EXPECT_TRUE(messages.contains(literal.text))
        << file << ":" << literal.line << ": no catalog has \"" << literal.text << "\"";
  }
}

TEST(CatalogUsage, EveryKeyOfTheCatalogsIsInTheCodeOrAwaitsIt) {
  std::set<std::string> known;
  for (const auto& [file, literal] : keysInCode())
    known.insert(literal.text);
  for (std::string& key : keysAwaitingCode())
    known.insert(std::move(key));
  for (const auto& [key, message] : catalogFile("ko").messages) {
    EXPECT_TRUE(known.contains(key)) << "\"" << key << "\" is used nowhere. A table of titles stands in the unit, "
                                     << "X.h or X.cpp, that includes L10n.h";
  }
}

TEST(CatalogUsage, NoKeyAwaitsCodeThatIsThere) {
  std::map<std::string, std::string> files;
  for (const auto& [file, literal] : keysInCode())
    files.emplace(literal.text, file);
  for (const std::string& key : keysAwaitingCode()) {
    EXPECT_FALSE(files.contains(key)) << "strike \"" << key << "\" from keysAwaitingCode.txt: it is used in "
                                      << files[key];
  }
}

TEST(CatalogUsage, OnlyKeysAwaitCodeAndEachOnce) {
  std::set<std::string> seen;
  for (const std::string& key : keysAwaitingCode()) {
    EXPECT_TRUE(catalogFile("ko").messages.contains(key)) << key;
    EXPECT_TRUE(seen.insert(key).second) << key;
  }
}

}  // namespace
}  // namespace tessary
