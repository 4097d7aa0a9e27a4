#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// One file of the folder `resources`, read without the product's own loader: these tests look at the files.
struct CatalogFile {
  /// From the file's name.
  std::string code;
  /// The file as it stands.
  std::string bytes;

  std::string language;
  std::map<std::string, std::string> messages;
  std::map<std::string, std::map<std::string, std::string>> plurals;
  std::vector<std::string> externalKeys;

  /// All that can become of `key` in this language: the message, then the plural forms.
  [[nodiscard]] std::vector<std::string> texts(const std::string& key) const;
};

/// Every catalog of the folder, in the order of their codes. What cannot be read is a failure of the running test.
const std::vector<CatalogFile>& catalogFiles();

/// The catalog of `code`, empty if there is none.
const CatalogFile& catalogFile(std::string_view code);

/// The placeholders "{0}" and the directives "%.0f" of a text, sorted, each as often as it occurs.
std::vector<std::string> placeholders(std::string_view text);

/// The text without its placeholders.
std::string withoutPlaceholders(std::string_view text);

}  // namespace tessary
