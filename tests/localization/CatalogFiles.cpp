#include "CatalogFiles.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONValue.h"

namespace tessary {
namespace {

std::map<std::string, std::string> textMap(const JSONValue* value) {
  std::map<std::string, std::string> texts;
  if (value == nullptr || value->object() == nullptr) return texts;
  for (const auto& [key, member] : *value->object()) {
    EXPECT_NE(member.string(), nullptr) << key;
    if (member.string() != nullptr) texts.emplace(key, *member.string());
  }
  return texts;
}

CatalogFile readCatalog(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  CatalogFile file;
  file.code = path.stem().string();
  file.bytes.assign(std::istreambuf_iterator<char>(stream), {});
  const auto json = JSONValue::parse(file.bytes);
  EXPECT_TRUE(json) << path;
  if (!json) return file;

  if (const JSONValue* language = json->find("language"); language != nullptr && language->string() != nullptr)
    file.language = *language->string();
  file.messages = textMap(json->find("messages"));
  if (const JSONValue* plurals = json->find("plurals"); plurals != nullptr && plurals->object() != nullptr) {
    for (const auto& [key, forms] : *plurals->object())
      file.plurals.emplace(key, textMap(&forms));
  }
  if (const JSONValue* keys = json->find("externalKeys"); keys != nullptr && keys->array() != nullptr) {
    for (const JSONValue& key : *keys->array())
      file.externalKeys.push_back(key.string() == nullptr ? "" : *key.string());
  }
  return file;
}

std::vector<CatalogFile> readCatalogs() {
  std::vector<CatalogFile> files;
  for (const auto& entry : std::filesystem::directory_iterator(TESSARY_RESOURCES)) {
    if (entry.path().extension() == ".json") files.push_back(readCatalog(entry.path()));
  }
  std::ranges::sort(files, {}, &CatalogFile::code);
  return files;
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// The length of the placeholder with which `text` begins, 0 if it begins with something else.
std::size_t placeholderLength(std::string_view text) {
  const char first = text.empty() ? '\0' : text.front();
  if (first != '{' && first != '%') return 0;
  std::size_t end = 1;
  while (end < text.size() && (isDigit(text[end]) || (first == '%' && text[end] == '.')))
    ++end;
  const char last = first == '{' ? '}' : 'f';
  return end > 1 && end < text.size() && text[end] == last ? end + 1 : 0;
}

}  // namespace

std::vector<std::string> CatalogFile::texts(const std::string& key) const {
  std::vector<std::string> all;
  if (const auto message = messages.find(key); message != messages.end()) all.push_back(message->second);
  if (const auto forms = plurals.find(key); forms != plurals.end()) {
    for (const auto& [category, form] : forms->second)
      all.push_back(form);
  }
  return all;
}

const std::vector<CatalogFile>& catalogFiles() {
  static const std::vector<CatalogFile> files = readCatalogs();
  return files;
}

const CatalogFile& catalogFile(std::string_view code) {
  static const CatalogFile none;
  const auto found = std::ranges::find(catalogFiles(), code, &CatalogFile::code);
  return found == catalogFiles().end() ? none : *found;
}

std::vector<std::string> placeholders(std::string_view text) {
  std::vector<std::string> found;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t length = placeholderLength(text.substr(position));
    if (length > 0) found.emplace_back(text.substr(position, length));
    position += std::max<std::size_t>(length, 1);
  }
  std::ranges::sort(found);
  return found;
}

std::string withoutPlaceholders(std::string_view text) {
  std::string rest;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t length = placeholderLength(text.substr(position));
    if (length == 0) rest += text[position];
    position += std::max<std::size_t>(length, 1);
  }
  return rest;
}

}  // namespace tessary
